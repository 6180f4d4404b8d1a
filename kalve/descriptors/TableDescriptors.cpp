#include "kalve/descriptors/TableDescriptors.h"

#include "kalve/foundations/CoreException.h"

// Domains --------------------------------------------------------------------------------------------------

template <class Branch, class DomainKind>
DomainDescriptor<Branch, DomainKind>::DomainDescriptor(int classSymbol, const char* className)
    : Base(classSymbol, className) {
  this->mValue.Made();
  this->mDefaultValue.Made();
}

template <class Branch, class DomainKind>
void DomainDescriptor<Branch, DomainKind>::AddValueElement(Bound low, Bound high) {
  using Interval = std::remove_pointer_t<typename DomainKind::Item>;
  this->mValue.Made().push_back(new Interval(low, high));
}

template <class Branch, class DomainKind>
void DomainDescriptor<Branch, DomainKind>::InsertValueElement(Bound low, Bound high) {
  using Interval = std::remove_pointer_t<typename DomainKind::Item>;
  Table& table = this->mValue.Made();
  int position = 0;
  while (position < table.size() && !(table[position]->low > low)) ++position;
  table.insert(position, new Interval(low, high));
}

template <class Branch, class DomainKind>
bool DomainDescriptor<Branch, DomainKind>::IsInValue(Bound value) const {
  if (const Table* table = GetValue())
    for (const auto* interval : *table)
      if (interval->low <= value && value <= interval->high) return true;
  return false;
}

template class DomainDescriptor<ConstantDescriptor, IntDomainKind>;
template class DomainDescriptor<VariableDescriptor, IntDomainKind>;
template class DomainDescriptor<ConstantDescriptor, FloatDomainKind>;
template class DomainDescriptor<VariableDescriptor, FloatDomainKind>;
template class DomainDescriptor<ConstantDescriptor, DoubleDomainKind>;
template class DomainDescriptor<VariableDescriptor, DoubleDomainKind>;

// Tables of numbers ----------------------------------------------------------------------------------------

namespace {

constexpr int firstPlaces = 10;

}  // namespace

template <class TabKind>
NumberTabDescriptor<TabKind>::NumberTabDescriptor(int classSymbol, const char* className)
    : Base(classSymbol, className) {
  this->mDefaultValue.Made(firstPlaces);
}

template <class TabKind>
void NumberTabDescriptor<TabKind>::AddValueElement(Item value) {
  this->mValue.Made(firstPlaces).push_back(value);
}

template <class TabKind>
void NumberTabDescriptor<TabKind>::SetValueElement(int rank, Item value) {
  Table& table = this->mValue.Made(firstPlaces);
  if (rank < 0) FailOnIndex(TabKind::elementSetter, table.size(), rank);
  while (table.size() <= rank) table.push_back(TabKind::gap);
  table.set_nth(rank, value);
}

template <class TabKind>
void NumberTabDescriptor<TabKind>::ClearValues() {
  if (Table* table = GetValue()) table->erase();
}

template class NumberTabDescriptor<IntTabKind>;
template class NumberTabDescriptor<FloatTabKind>;
template class NumberTabDescriptor<DoubleTabKind>;

// Tables of texts ------------------------------------------------------------------------------------------

template <class Branch>
StringTabDescriptor<Branch>::StringTabDescriptor(int classSymbol, const char* className)
    : Base(classSymbol, className) {}

template <class Branch>
void StringTabDescriptor<Branch>::AddValueElement(char* text) {
  this->mValue.Made().push_back(strdup(OrEmpty(text)));
  std::free(text);
}

template <class Branch>
void StringTabDescriptor<Branch>::RemoveValue(char* text) {
  if (Table* table = GetValue()) table->remove_first(text);
  std::free(text);
}

template <class Branch>
void StringTabDescriptor<Branch>::ClearValues() {
  if (Table* table = GetValue()) table->erase();
}

template class StringTabDescriptor<ConstantDescriptor>;
template class StringTabDescriptor<VariableDescriptor>;

void StringTabVariableDescriptor::SetValue(Table* table, int withMonitor) {
  if (withMonitor == 0 && table != nullptr)
    for (const char* text : *table)
      if (IsOutOfDomain(text)) OutOfStringDomain(this, text);
  SetValue(table);
}
