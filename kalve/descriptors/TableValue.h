// What the descriptors of a table share: the tables of the value and of the default.
//
// The descriptor owns both. Value and default, or two descriptors after an assignment, may come to hold one
// table, which then dies with the last of them. A null table reads as empty and is made at the first
// addition.
//
// A Kind says: Item, type, and the initials of the class in traces.
#pragma once

#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Holders.h"

template <class Layer, class ValueKind>
class TableValue : public Layer {
 public:
  using Kind = ValueKind;
  using Item = typename Kind::Item;
  using Table = Tableau<Item>;
  static constexpr ValueTypeId type = Kind::type;

  TableValue(const TableValue& other)
      : Layer(other), mValue(other.mValue), mDefaultValue(other.mDefaultValue) {
    this->TraceCopy(Kind::initials, other);
  }
  TableValue& operator=(const TableValue&) = delete;

  // Default: tables are taken over; no domain, monitor or recording applies.
  Table* GetDefaultValue() const { return mDefaultValue.Get(); }
  void SetDefaultValue(Table* table) { Take(mDefaultValue, table); }
  /// The value becomes a copy of the default.
  void SetToDefaultValue() { mValue.TakeCopy(mDefaultValue); }
  /// The default becomes the table, the value a copy of it.
  void SetToDefaultValue(Table* table) {
    SetDefaultValue(table);
    SetToDefaultValue();
  }

 protected:
  TableValue(int classSymbol, const char* className) : Layer(Kind::type, classSymbol, className) {
    this->TraceNew(Kind::initials);
  }

  /// The assignment of the value classes: both tables, shared.
  void TakeValues(const TableValue& source) {
    mValue.Share(source.mValue);
    mDefaultValue.Share(source.mDefaultValue);
  }
  void TakeValue(Table* table) { Take(mValue, table); }

  Item ItemAt(const char* where, const Table* table, int rank) const {
    CheckRank(where, table, rank);
    return table->get_nth(rank);
  }
  void CheckRank(const char* where, const Table* table, int rank) const {
    const int size = table != nullptr ? table->size() : 0;
    if (rank < 0 || rank >= size) FailOnIndex(where, size, rank);
  }

  HeldTable<Item> mValue;
  HeldTable<Item> mDefaultValue;

 private:
  void Take(HeldTable<Item>& held, Table* table) {
    const HeldTable<Item>& other = &held == &mValue ? mDefaultValue : mValue;
    if (table != nullptr && table == other.Get())
      held.Share(other);
    else
      held.Take(table);
  }
};
