// The dump of an entity's values, for debugging. Values are read past the monitors.
#include <cstdio>

#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Records.h"
#include "kalve/model/DescriptedEntity.h"

namespace {

/// What stands in front of each row: the indentation of the entity, and one step.
constexpr const char* depthIndent = "";
constexpr const char* stepIndent = "    ";

const char* NameOrUnknown(const BasicEntity* entity) {
  return IsLivingEntity(entity) ? entity->InstanceName() : "inconnu";
}

std::string ItemText(int item) { return Text("%d, ", item); }
std::string ItemText(float item) { return Text("%f, ", static_cast<double>(item)); }
std::string ItemText(double item) { return Text("%f, ", item); }
std::string ItemText(const char* item) { return Text("%s, ", OrEmpty(item)); }
std::string ItemText(const BasicEntity* item) { return Text("%x, ", Address32(item)); }
std::string ItemText(const DescValueSpec* item) { return Text("%x, ", Address32(item)); }

template <class Item>
std::string TableText(const Tableau<Item>* table) {
  std::string text;
  if (table != nullptr)
    for (const Item& item : *table) text += ItemText(item);
  return text;
}

/// What follows the name; empty for a type that is not shown.
std::string ShownValue(int value) { return Text(" = %d", value); }
std::string ShownValue(float value) { return Text(" = %10.5f", static_cast<double>(value)); }
std::string ShownValue(double value) { return Text(" = %10.5f", value); }
std::string ShownValue(const char* value) { return Text(" = %s", value); }
std::string ShownValue(const Tableau<BasicEntity*>* value) { return " =(" + TableText(value) + ")"; }
std::string ShownValue(const Tableau<DescValueSpec*>* value) { return " =(" + TableText(value) + ")"; }
std::string ShownValue(const Tableau<char*>* value) { return " =(" + TableText(value) + ")"; }
std::string ShownValue(const Tableau<int>* value) { return " = (" + TableText(value) + ")"; }
std::string ShownValue(const Tableau<float>* value) { return " = (" + TableText(value) + ")"; }
std::string ShownValue(const Tableau<double>* value) { return " = (" + TableText(value) + ")"; }
std::string ShownValue(const EntitySpec* /*value*/) { return ""; }
template <class Interval>
std::string ShownValue(const Tableau<Interval*>* /*domain*/) {
  return "";
}

template <class ValueClass>
std::string Shown(ValueClass& descriptor) {
  if constexpr (std::is_same_v<ValueClass, EntityConstantDescriptor>)
    return Text(" %x = %s", Address32(descriptor.GetValue()), NameOrUnknown(descriptor.GetValue()));
  else if constexpr (std::is_same_v<ValueClass, EntityVariableDescriptor>)
    return Text(" = %s", NameOrUnknown(descriptor.GetValue(0)));
  else if constexpr (requires { descriptor.GetValue(0); })
    return ShownValue(descriptor.GetValue(0));
  else
    return ShownValue(descriptor.GetValue());
}

void DisplayRow(Descriptor& descriptor) {
  std::string value;
  VisitDescriptor(descriptor, [&value](auto& valued) { value = Shown(valued); });
  if (!value.empty())
    std::printf("\n%s%s%s%s", depthIndent, stepIndent, OrEmpty(descriptor.ClassName()), value.c_str());
}

}  // namespace

void DescriptedEntity::DisplayAttributes() const {
  BasicEntity::DisplayAttributes();
  for (ConstantDescriptor* descriptor : mConstantDescriptorTab) DisplayRow(*descriptor);
  for (VariableDescriptor* descriptor : mVariableDescriptorTab) DisplayRow(*descriptor);
}
