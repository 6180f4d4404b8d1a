// The value of a descriptor as a text, and its way to the user interface.
#include <cstdio>
#include <optional>

#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/DescriptedEntity.h"

namespace {

constexpr std::size_t longestText = 499;

std::string ShownName(const BasicEntity* entity) {
  return IsLivingEntity(entity) ? entity->InstanceName() : "no_name";
}

// Each item followed by one blank, or the word for none.
template <class Item, class ItemText>
std::string ShownTable(const Tableau<Item>* table, const char* none, ItemText itemText) {
  if (table == nullptr || table->empty()) return none;
  std::string text;
  for (const Item& item : *table) text += itemText(item) + ' ';
  return text;
}

template <class Class>
std::string ShownValue(Class& descriptor) {
  constexpr ValueTypeId type = Class::type;
  if constexpr (type == INT)
    return std::to_string(descriptor.GetValue());
  else if constexpr (type == FLOAT || type == DOUBLE)
    return Text("%g", static_cast<double>(descriptor.GetValue()));
  else if constexpr (type == STRING)
    return OrEmpty(descriptor.GetValue());
  else if constexpr (type == P_ENTITY)
    return ShownName(descriptor.GetValue());
  else if constexpr (type == ENTITY_TAB)
    return ShownTable(descriptor.GetValue(), "no_name", ShownName);
  else if constexpr (type == INT_TAB)
    return ShownTable(descriptor.GetValue(), "no_value", [](int item) { return Text("%10d", item); });
  else if constexpr (type == FLOAT_TAB || type == DOUBLE_TAB)
    return ShownTable(descriptor.GetValue(), "no_value", [](double item) { return Text("%10.5f", item); });
  else
    return "";
}

std::string ShownValueOf(Descriptor& descriptor) {
  std::string text;
  VisitDescriptor(descriptor, [&text](auto& object) { text = ShownValue(object); });
  return text;
}

std::optional<std::string> TextOf(ConstantDescriptor& descriptor) {
  if (descriptor.Subclass() == CONSTANT) return ShownValueOf(descriptor);
  std::puts("\nsituation inattendue : appel ConstantDescriptor::ValueToString sur descripteur variable");
  return std::nullopt;
}

std::optional<std::string> TextOf(VariableDescriptor& descriptor) {
  if (descriptor.Subclass() != CONSTANT) return ShownValueOf(descriptor);
  std::puts("\nsituation inattendue : appel VariableDescriptor::ValueToString sur descripteur constant");
  return std::nullopt;
}

std::optional<std::string> TextOf(Descriptor& descriptor) {
  if (descriptor.Subclass() != CONSTANT && descriptor.Subclass() != VARIABLE) return std::nullopt;
  return ShownValueOf(descriptor);
}

void Write(const std::optional<std::string>& text, char* buffer) {
  if (text) buffer[text->copy(buffer, longestText)] = '\0';
}

}  // namespace

std::string Descriptor::ValueToString() { return TextOf(*this).value_or(""); }
void Descriptor::ValueToString(char* buffer) { Write(TextOf(*this), buffer); }
std::string ConstantDescriptor::ValueToString() { return TextOf(*this).value_or(""); }
void ConstantDescriptor::ValueToString(char* buffer) { Write(TextOf(*this), buffer); }
std::string VariableDescriptor::ValueToString() { return TextOf(*this).value_or(""); }
void VariableDescriptor::ValueToString(char* buffer) { Write(TextOf(*this), buffer); }

void Descriptor::PlotValue() {
  if (!IsLivingEntity(mpDescribedEntity)) return;
  std::printf("\nUPDATE GRAPH %s %s %d %s\n", mpDescribedEntity->InstanceName(), OrEmpty(mClassName),
              PresentClock(), ValueToString().c_str());
  std::fflush(stdout);
}
