// Descriptors that hold several values: domains, which are sets of intervals, tables of numbers, tables of
// texts. They have no domain of their own, no monitor and no recording; the variable classes differ from the
// constant ones by forms with a last `withMonitor`, which change nothing. Tables are owned (TableValue.h).
#pragma once

#include "kalve/descriptors/TableValue.h"
#include "kalve/descriptors/ValueClass.h"
#include "kalve/foundations/Records.h"

// Domains --------------------------------------------------------------------------------------------------

struct IntDomainKind {
  using Item = IntInterval*;
  using Bound = int;
  static constexpr ValueTypeId type = INTDOMAIN;
  static constexpr const char* initials = "ID";
};
struct FloatDomainKind {
  using Item = FloatInterval*;
  using Bound = float;
  static constexpr ValueTypeId type = FLOATDOMAIN;
  static constexpr const char* initials = "FD";
};
struct DoubleDomainKind {
  using Item = DoubleInterval*;
  using Bound = double;
  static constexpr ValueTypeId type = DOUBLEDOMAIN;
  static constexpr const char* initials = "DD";
};

/// A table of closed intervals. The descriptor owns the table and never the intervals, which copies share.
/// Both tables are empty at first.
template <class Branch, class DomainKind>
class DomainDescriptor : public TableValue<Branch, DomainKind> {
 public:
  using Base = TableValue<Branch, DomainKind>;
  using Table = typename Base::Table;
  using Bound = typename DomainKind::Bound;
  explicit DomainDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "");

  /// Takes the table over and destroys the one held.
  void SetValue(Table* table) { this->TakeValue(table); }
  Table* GetValue() const { return this->mValue.Get(); }
  /// Appends a new interval. A low bound above the high one is BadIntervalBounds, here and below.
  void AddValueElement(Bound low, Bound high);
  /// Keeps a table sorted by low bound, the new interval behind those of an equal one.
  void InsertValueElement(Bound low, Bound high);
  /// Whether an interval holds the value, compared exactly.
  bool IsInValue(Bound value) const;
};

/// The forms that variables have besides.
template <class Domain>
class MonitoredForms : public Domain {
 public:
  using Table = typename Domain::Table;
  using Domain::Domain;
  using Domain::GetValue;
  using Domain::SetValue;
  void SetValue(Table* table, int /*withMonitor*/) { Domain::SetValue(table); }
  Table* GetValue(int /*withMonitor*/) const { return Domain::GetValue(); }
};

extern template class DomainDescriptor<ConstantDescriptor, IntDomainKind>;
extern template class DomainDescriptor<VariableDescriptor, IntDomainKind>;
extern template class DomainDescriptor<ConstantDescriptor, FloatDomainKind>;
extern template class DomainDescriptor<VariableDescriptor, FloatDomainKind>;
extern template class DomainDescriptor<ConstantDescriptor, DoubleDomainKind>;
extern template class DomainDescriptor<VariableDescriptor, DoubleDomainKind>;

class IntDomainConstantDescriptor : public DomainDescriptor<ConstantDescriptor, IntDomainKind> {
  KALVE_DESCRIPTOR(IntDomainConstantDescriptor, DomainDescriptor)
  using DomainDescriptor::AddValueElement;
  void AddValueElement(int value) { AddValueElement(value, value); }
  Table* GetIntDomainValue() const { return GetValue(); }
};
class IntDomainVariableDescriptor
    : public MonitoredForms<DomainDescriptor<VariableDescriptor, IntDomainKind>> {
  KALVE_DESCRIPTOR(IntDomainVariableDescriptor, MonitoredForms)
  using MonitoredForms::AddValueElement;
  void AddValueElement(int value) { AddValueElement(value, value); }
  Table* GetIntDomainValue() const { return GetValue(); }
  Table* GetIntDomainValue(int withMonitor) const { return GetValue(withMonitor); }
};
class FloatDomainConstantDescriptor : public DomainDescriptor<ConstantDescriptor, FloatDomainKind> {
  KALVE_DESCRIPTOR(FloatDomainConstantDescriptor, DomainDescriptor)
  Table* GetFloatDomainValue() const { return GetValue(); }
};
class FloatDomainVariableDescriptor
    : public MonitoredForms<DomainDescriptor<VariableDescriptor, FloatDomainKind>> {
  KALVE_DESCRIPTOR(FloatDomainVariableDescriptor, MonitoredForms)
  Table* GetFloatDomainValue() const { return GetValue(); }
  Table* GetFloatDomainValue(int withMonitor) const { return GetValue(withMonitor); }
};
class DoubleDomainConstantDescriptor : public DomainDescriptor<ConstantDescriptor, DoubleDomainKind> {
  KALVE_DESCRIPTOR(DoubleDomainConstantDescriptor, DomainDescriptor)
  Table* GetDoubleDomainValue() const { return GetValue(); }
};
class DoubleDomainVariableDescriptor
    : public MonitoredForms<DomainDescriptor<VariableDescriptor, DoubleDomainKind>> {
  KALVE_DESCRIPTOR(DoubleDomainVariableDescriptor, MonitoredForms)
  Table* GetDoubleDomainValue() const { return GetValue(); }
  Table* GetDoubleDomainValue(int withMonitor) const { return GetValue(withMonitor); }
};

// Tables of numbers ----------------------------------------------------------------------------------------

struct IntTabKind {
  using Item = int;
  static constexpr ValueTypeId type = INT_TAB;
  static constexpr const char* initials = "IT";
  static constexpr const char* elementGetter = "IntTabConstantDescriptor::GetIntValueElement";
  static constexpr const char* elementSetter = "IntTabConstantDescriptor::SetValueElement";
  static constexpr int gap = K_INT_UNSIGNIFICANT;
};
struct FloatTabKind {
  using Item = float;
  static constexpr ValueTypeId type = FLOAT_TAB;
  static constexpr const char* initials = "FT";
  static constexpr const char* elementGetter = "FloatTabConstantDescriptor::GetFloatValueElement";
  static constexpr const char* elementSetter = "FloatTabConstantDescriptor::SetValueElement";
  static constexpr auto gap = static_cast<float>(K_FLOAT_UNSIGNIFICANT);
};
struct DoubleTabKind {
  using Item = double;
  static constexpr ValueTypeId type = DOUBLE_TAB;
  static constexpr const char* initials = "DT";
  static constexpr const char* elementGetter = "DoubleTabConstantDescriptor::GetDoubleValueElement";
  static constexpr const char* elementSetter = "DoubleTabConstantDescriptor::SetValueElement";
  static constexpr double gap = K_FLOAT_UNSIGNIFICANT;
};

/// Constants only. The value is null at first, the default empty.
template <class TabKind>
class NumberTabDescriptor : public TableValue<ConstantDescriptor, TabKind> {
 public:
  using Base = TableValue<ConstantDescriptor, TabKind>;
  using Table = typename Base::Table;
  using Item = typename Base::Item;
  explicit NumberTabDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "");

  /// Takes the table over and destroys the one held.
  void SetValue(Table* table) { this->TakeValue(table); }
  Table* GetValue() const { return this->mValue.Get(); }
  void AddValueElement(Item value);
  /// The table grows to reach the rank; the gaps hold -9, in tables of reals K_FLOAT_UNSIGNIFICANT. A
  /// negative rank is an index failure.
  void SetValueElement(int rank, Item value);
  /// An index failure out of range.
  Item GetValueElement(int rank) const { return this->ItemAt(TabKind::elementGetter, GetValue(), rank); }
  void ClearValues();
  bool IsInDomain(Item /*value*/) const { return true; }
  bool IsOutOfDomain(Item /*value*/) const { return false; }
};

extern template class NumberTabDescriptor<IntTabKind>;
extern template class NumberTabDescriptor<FloatTabKind>;
extern template class NumberTabDescriptor<DoubleTabKind>;

class IntTabConstantDescriptor : public NumberTabDescriptor<IntTabKind> {
  KALVE_DESCRIPTOR(IntTabConstantDescriptor, NumberTabDescriptor)
  Table* GetIntTabValue() const { return GetValue(); }
  int GetIntValueElement(int rank) const { return GetValueElement(rank); }
};
class FloatTabConstantDescriptor : public NumberTabDescriptor<FloatTabKind> {
  KALVE_DESCRIPTOR(FloatTabConstantDescriptor, NumberTabDescriptor)
  Table* GetFloatTabValue() const { return GetValue(); }
  float GetFloatValueElement(int rank) const { return GetValueElement(rank); }
};
class DoubleTabConstantDescriptor : public NumberTabDescriptor<DoubleTabKind> {
  KALVE_DESCRIPTOR(DoubleTabConstantDescriptor, NumberTabDescriptor)
  Table* GetDoubleTabValue() const { return GetValue(); }
  double GetDoubleValueElement(int rank) const { return GetValueElement(rank); }
};

// Tables of texts ------------------------------------------------------------------------------------------

struct StringTabKind {
  using Item = char*;
  static constexpr ValueTypeId type = STRING_TAB;
  static constexpr const char* initials = "ST";
};

/// Owns the table and the texts in it, which come from `malloc`. Both tables are null at first.
template <class Branch>
class StringTabDescriptor : public TableValue<Branch, StringTabKind> {
 public:
  using Base = TableValue<Branch, StringTabKind>;
  using Table = typename Base::Table;
  explicit StringTabDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "");

  /// Takes table and texts over, and frees the present ones.
  void SetValue(Table* table) { this->TakeValue(table); }
  Table* GetValue() const { return this->mValue.Get(); }
  Table* GetStringTabValue() const { return GetValue(); }
  /// Appends a copy of the text and frees the text given: it changes hands. Equal texts can stand twice.
  void AddValueElement(char* text);
  /// Takes this very pointer out of the table, and frees it, whether it was there or not.
  void RemoveValue(char* text);
  /// Empties the table; the texts go back to the caller.
  void ClearValues();
  /// Frees the texts, from the last to the first, and the table; null stands in its place.
  void DepthDeleteValue() { this->mValue.Take(nullptr); }
  void DepthDeleteDefaultValue() { this->mDefaultValue.Take(nullptr); }
  /// Value and default are one table from then on: adding to one adds to the other.
  void SetToDefaultValue() { this->mValue.Share(this->mDefaultValue); }
  void SetToDefaultValue(Table* table) {
    this->SetDefaultValue(table);
    SetToDefaultValue();
  }
  bool IsInDomain(const char* /*text*/) const { return true; }
  bool IsOutOfDomain(const char* /*text*/) const { return false; }
};

extern template class StringTabDescriptor<ConstantDescriptor>;
extern template class StringTabDescriptor<VariableDescriptor>;

class StringTabConstantDescriptor : public StringTabDescriptor<ConstantDescriptor> {
  KALVE_DESCRIPTOR(StringTabConstantDescriptor, StringTabDescriptor)
};
class StringTabVariableDescriptor : public MonitoredForms<StringTabDescriptor<VariableDescriptor>> {
  KALVE_DESCRIPTOR(StringTabVariableDescriptor, MonitoredForms)
  using MonitoredForms::SetValue;
  /// With 0 each text is held against the domain first.
  void SetValue(Table* table, int withMonitor);
  using MonitoredForms::GetStringTabValue;
  Table* GetStringTabValue(int withMonitor) const { return GetValue(withMonitor); }
};
