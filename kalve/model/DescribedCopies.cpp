// Members that look at the values of two entities, or at a value and its default.
#include <cstdio>
#include <cstring>

#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/model/DescriptedEntity.h"

namespace {

template <class... Rows>
struct RowList {};

/// The types that CopyDescriptorValuesFrom carries over, in both kinds of descriptors.
using CarriedRows = RowList<IntRow, FloatRow, DoubleRow, StringRow, EntityRow, IntDomainRow, FloatDomainRow,
                            DoubleDomainRow, EntityTabRow, StringTabRow>;

/// What the setter may keep: a table is taken over, so it must be a new one; so must what it owns or what
/// its intervals are, which no entity shares with another.
template <class Value>
Value Duplicate(Value value) {
  return value;
}
template <class Item>
Tableau<Item>* Duplicate(Tableau<Item>* table) {
  return table != nullptr ? OwnedTable::Duplicate(*table) : nullptr;
}
template <class Interval>
Tableau<Interval*>* DuplicateIntervals(const Tableau<Interval*>* table) {
  if (table == nullptr) return nullptr;
  auto* const copy = new Tableau<Interval*>(table->size());
  for (const Interval* interval : *table)
    copy->push_back(interval != nullptr ? new Interval(*interval) : nullptr);
  return copy;
}
Tableau<IntInterval*>* Duplicate(Tableau<IntInterval*>* table) { return DuplicateIntervals(table); }
Tableau<FloatInterval*>* Duplicate(Tableau<FloatInterval*>* table) { return DuplicateIntervals(table); }
Tableau<DoubleInterval*>* Duplicate(Tableau<DoubleInterval*>* table) { return DuplicateIntervals(table); }

using Entities = const DescriptedEntity&;

template <class Row>
bool CarriesConstant(Entities source, Entities target, const Descriptor& descriptor) {
  if (descriptor.ClassType() != Row::Constant::type) return false;
  const int id = descriptor.ClassSymbol();
  ConstantAccess<Row>::SetConstant(target, id, Duplicate(ConstantAccess<Row>::GetConstant(source, id)));
  return true;
}

template <class Row>
bool CarriesVariable(Entities source, Entities target, const Descriptor& descriptor) {
  if (descriptor.ClassType() != Row::Variable::type) return false;
  const int id = descriptor.ClassSymbol();
  PlainAccess<Row>::SetVariable(target, id, Duplicate(PlainAccess<Row>::GetVariable(source, id)));
  return true;
}

template <class... Rows>
void CarryConstant(RowList<Rows...> /*rows*/, Entities source, Entities target,
                   const Descriptor& descriptor) {
  static_cast<void>((CarriesConstant<Rows>(source, target, descriptor) || ... ||
                     CarriesConstant<FloatTabRow>(source, target, descriptor)));
}

template <class... Rows>
void CarryVariable(RowList<Rows...> /*rows*/, Entities source, Entities target,
                   const Descriptor& descriptor) {
  static_cast<void>((CarriesVariable<Rows>(source, target, descriptor) || ...));
}

/// Past the monitor.
template <class ValueClass>
auto Stored(ValueClass& descriptor) {
  if constexpr (requires { descriptor.GetValue(0); })
    return descriptor.GetValue(0);
  else
    return descriptor.GetValue();
}

bool AreEqual(const char* value, const char* other) { return std::strcmp(value, other) == 0; }
template <class Number>
bool AreEqual(Number value, Number other) {
  return value == other;
}

bool DefaultIsCompared(ValueTypeId type) {
  return type == INT || type == FLOAT || type == DOUBLE || type == STRING;
}

bool DefaultIsRefused(ValueTypeId type) {
  return type == ENTITY_TAB || type == INTDOMAIN || type == FLOATDOMAIN || type == DOUBLEDOMAIN ||
         type == DESCVALUESPEC_TAB || type == STRING_TAB;
}

}  // namespace

void DescriptedEntity::CopyDescriptorValuesFrom(const DescriptedEntity* source) {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n'%s'::CopyDescriptorValuesFrom('%s')", InstanceName(), source->InstanceName());
  for (const ConstantDescriptor* descriptor : source->mConstantDescriptorTab)
    if (FindConstantDescriptor(descriptor->ClassSymbol()) != nullptr)
      CarryConstant(CarriedRows(), *source, *this, *descriptor);
  for (const VariableDescriptor* descriptor : source->mVariableDescriptorTab)
    if (FindVariableDescriptor(descriptor->ClassSymbol()) != nullptr)
      CarryVariable(CarriedRows(), *source, *this, *descriptor);
}

bool DescriptedEntity::DefaultValueIsAssigned(int id) const {
  Descriptor& descriptor = *GetDescriptor(id);
  const ValueTypeId type = descriptor.ClassType();
  if (DefaultIsRefused(type)) DefaultValueNotSupported(this, id, type);
  if (!DefaultIsCompared(type)) return false;
  bool isAssigned = false;
  VisitDescriptor(descriptor, [&isAssigned](auto& scalar) {
    if constexpr (requires { AreEqual(Stored(scalar), scalar.GetDefaultValue()); })
      isAssigned = AreEqual(Stored(scalar), scalar.GetDefaultValue());
  });
  return isAssigned;
}

// Order

template <class Compare>
bool DescriptedEntity::Compares(const DescriptedEntity& right, Compare compare) const {
  const int id = mDescIdForSorting;
  const Descriptor& descriptor = *GetDescriptor(id);
  const auto by = [&]<class Row>(Row /*row*/) {
    using Access = PlainAccess<Row>;
    return descriptor.IsConstant() ? compare(Access::GetConstant(*this, id), Access::GetConstant(right, id))
                                   : compare(Access::GetVariable(*this, id), Access::GetVariable(right, id));
  };
  if (descriptor.IsInteger()) return by(IntRow());
  if (descriptor.IsFloat()) return by(FloatRow());
  if (descriptor.IsDouble()) return by(DoubleRow());
  return true;
}

bool DescriptedEntity::operator<(const DescriptedEntity& right) const {
  return Compares(right, [](auto value, auto other) { return value < other; });
}

bool DescriptedEntity::operator>(const DescriptedEntity& right) const {
  return Compares(right, [](auto value, auto other) { return value >= other; });
}
