// Tableau<T>: the growable array of the whole kernel.
//
// A table holds numbers or pointers, and never owns what a pointer points to: clearing, copying or
// destroying a table leaves the pointed objects alone; whoever removes an item frees it if it must be freed.
// Indexes run from 0. An index out of range throws an `int`, which callers catch and hand to
// TabIndexOutOfRange with their own name. References to items live until the table next grows.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

#include "kalve/foundations/Forward.h"
#include "kalve/foundations/SharedConstants.h"

/// Throws the index as an `int`: the failure of every table and list.
[[noreturn]] void ThrowIndex(int index);

/// What TabIndexOutOfRange and VoidArray print.
void ReportTabIndexOutOfRange(const char* where, int size, int index);
void ReportVoidArray(const char* where);

template <class T>
class Tableau {
  static_assert(std::is_trivially_copyable_v<T>, "a table holds numbers and pointers");

 public:
  Tableau() = default;
  /// Empty, with room for `capacity` items.
  explicit Tableau(int capacity) { Reserve(capacity); }
  Tableau(const Tableau& other) { push_back(other); }
  Tableau& operator=(const Tableau& other);
  ~Tableau() { std::free(mItems); }

  int size() const { return mSize; }
  int empty() const { return mSize == 0; }

  T& operator[](int i) const { return mItems[Checked(i)]; }
  T& get_nth(int i) const { return mItems[Checked(i)]; }
  void set_nth(int i, const T& item) { mItems[Checked(i)] = item; }
  void replace_by_item(int i, const T& item) { set_nth(i, item); }
  T& front() const { return mItems[Checked(0)]; }
  T& back() const { return mItems[Checked(mSize - 1)]; }

  void push_back(const T& item);
  void push_back(const Tableau& others);
  /// Append what is not there yet, by `==`: texts count by their address here.
  void push_back_ifnew(const T& item);
  void push_back_ifnew(const Tableau& others);
  /// Inserts before index i; i equal to size appends.
  void insert(int i, const T& item);
  void remove(int i);
  /// Removes the first item that is `==` the argument; nothing if there is none.
  void remove_first(const T& item);
  void pop_front() { remove(0); }
  void erase() { mSize = 0; }
  /// Empties the table and makes room for `capacity` items.
  void erase(int capacity);

  /// Index of the first equal item, -9 for none. Tables of texts compare the texts.
  int position(const T& item) const;
  /// The least number of items that the table grows by.
  void sizeIncrement(int step) { mStep = step > 0 ? step : 1; }

  /// Stable sorts of the range [first, last] by `operator<` (`operator>`) of the pointed objects, merge by
  /// merge, so that they end and stay in bounds whatever the two operators answer. (0, -1) is no work.
  void quick_sort(int first, int last);
  void quick_sort_inverse(int first, int last);

  /// On a table of intervals sorted by low bound: merges those that overlap or share a bound. Merged slots
  /// get new intervals; the old ones are neither changed nor freed, since a copy of the table may share them.
  void reduce_to_disjunction();

  /// The longest common end of the two tables, in order, as a new table that the caller owns.
  Tableau<int>* commonTail(const Tableau<int>& other) const;
  /// Non-zero when the two tables share an item.
  int commonElement(const Tableau<int>& other) const;

  /// Prints the items (pointers by their low 32 bits), for debugging.
  void display() const;
  /// Prints the instance name of each entity of the table, for debugging.
  void display_names() const;

  /// Iteration for range-based loops.
  T* begin() const { return mItems; }
  T* end() const { return mItems + mSize; }

 private:
  int Checked(int i) const {
    if (static_cast<unsigned>(i) >= static_cast<unsigned>(mSize)) ThrowIndex(i);
    return i;
  }
  void Reserve(int capacity);
  void Grow() { Reserve(mCapacity + (mCapacity > mStep ? mCapacity : mStep)); }
  template <class Before>
  void MergeSort(int first, int last, Before before);

  T* mItems = nullptr;
  int mSize = 0;
  int mCapacity = 0;
  int mStep = 4;
};

// Helpers of tables ------------------------------------------------------------------------------------

/// Reports an index failure and returns: prints the calling function, the index and the table's size.
template <class T>
void TabIndexOutOfRange(int /*code*/, const char* where, const Tableau<T>* t, int index, bool /*flag*/) {
  ReportTabIndexOutOfRange(where, t != nullptr ? t->size() : 0, index);
}

/// Reports an empty table and returns.
template <class T>
void VoidArray(int /*code*/, const char* where, const Tableau<T>* /*t*/, bool /*flag*/) {
  ReportVoidArray(where);
}

/// Stores `v` at index i and grows the table as needed; the gaps hold -9, which marks an absent id.
template <class T>
void set_nth_num(Tableau<T>& t, int i, const T& v) {
  if (i < 0) ThrowIndex(i);
  while (t.size() <= i) t.push_back(static_cast<T>(K_INT_UNSIGNIFICANT));
  t.set_nth(i, v);
}

/// Stores `p` in the existing slot i.
template <class T>
void set_nth_obj(Tableau<T>& t, int i, T p) {
  t.set_nth(i, p);
}

/// Appends `v` to a row; missing rows are made, and belong to whoever owns the table.
template <class T>
void push_back_in_row(Tableau<Tableau<T>*>& t, int row, T v) {
  if (row < 0) ThrowIndex(row);
  while (t.size() <= row) t.push_back(new Tableau<T>());
  t[row]->push_back(v);
}

template <class T>
T& get_nth_elem(Tableau<Tableau<T>*>& t, int row, int col) {
  return t[row]->get_nth(col);
}

/// Frees the rows, the values in them, and the texts of the rows whose type is STRING; empties the table.
template <class T>
void depth_delete(Tableau<Tableau<T>*>& t, Tableau<int>* valueTypes);
template <>
void depth_delete<UnifiedValue*>(Tableau<Tableau<UnifiedValue*>*>& t, Tableau<int>* valueTypes);

// Bodies -----------------------------------------------------------------------------------------------

template <class T>
Tableau<T>& Tableau<T>::operator=(const Tableau& other) {
  if (this == &other) return *this;
  mSize = 0;
  push_back(other);
  return *this;
}

template <class T>
void Tableau<T>::Reserve(int capacity) {
  if (capacity <= mCapacity) return;
  void* grown = std::realloc(static_cast<void*>(mItems), static_cast<std::size_t>(capacity) * sizeof(T));
  if (grown == nullptr) throw std::bad_alloc();
  mItems = static_cast<T*>(grown);
  mCapacity = capacity;
}

template <class T>
void Tableau<T>::push_back(const T& item) {
  const T copy = item;  // the item may stand in this table
  if (mSize == mCapacity) Grow();
  mItems[mSize++] = copy;
}

template <class T>
void Tableau<T>::push_back(const Tableau& others) {
  const int added = others.mSize;
  if (added <= 0) return;
  if (mSize + added > mCapacity) Reserve(mSize + added);
  std::memcpy(mItems + mSize, others.mItems, static_cast<std::size_t>(added) * sizeof(T));
  mSize += added;
}

template <class T>
void Tableau<T>::push_back_ifnew(const T& item) {
  for (const T& present : *this)
    if (present == item) return;
  push_back(item);
}

template <class T>
void Tableau<T>::push_back_ifnew(const Tableau& others) {
  for (int i = 0; i < others.size(); ++i) push_back_ifnew(others[i]);
}

template <class T>
void Tableau<T>::insert(int i, const T& item) {
  if (i < 0 || i > mSize) ThrowIndex(i);
  const T copy = item;
  push_back(copy);
  std::memmove(mItems + i + 1, mItems + i, static_cast<std::size_t>(mSize - 1 - i) * sizeof(T));
  mItems[i] = copy;
}

template <class T>
void Tableau<T>::remove(int i) {
  Checked(i);
  --mSize;
  std::memmove(mItems + i, mItems + i + 1, static_cast<std::size_t>(mSize - i) * sizeof(T));
}

template <class T>
void Tableau<T>::remove_first(const T& item) {
  for (int i = 0; i < mSize; ++i)
    if (mItems[i] == item) return remove(i);
}

template <class T>
void Tableau<T>::erase(int capacity) {
  mSize = 0;
  Reserve(capacity);
}

template <class T>
int Tableau<T>::position(const T& item) const {
  for (int i = 0; i < mSize; ++i) {
    if (mItems[i] == item) return i;
    if constexpr (std::is_same_v<T, char*> || std::is_same_v<T, const char*>)
      if (mItems[i] != nullptr && item != nullptr && std::strcmp(mItems[i], item) == 0) return i;
  }
  return K_INT_UNSIGNIFICANT;
}

template <class T>
void Tableau<T>::quick_sort(int first, int last) {
  MergeSort(first, last, [](T a, T b) { return *a < *b; });
}

template <class T>
void Tableau<T>::quick_sort_inverse(int first, int last) {
  MergeSort(first, last, [](T a, T b) { return *a > *b; });
}

template <class T>
template <class Before>
void Tableau<T>::MergeSort(int first, int last, Before before) {
  const int count = last - first + 1;
  if (count < 2) return;
  Checked(first);
  Checked(last);
  Tableau sorted;
  sorted.Reserve(count);
  T* from = mItems + first;
  T* to = sorted.mItems;
  for (int width = 1; width<count; width = width> count / 2 ? count : 2 * width) {
    for (int low = 0; low < count; low += 2 * width) {
      const int middle = width < count - low ? low + width : count;
      const int high = width < count - middle ? middle + width : count;
      for (int left = low, right = middle, k = low; k < high; ++k)
        to[k] = left < middle && (right == high || !before(from[right], from[left])) ? from[left++]
                                                                                     : from[right++];
    }
    T* const swapped = from;
    from = to;
    to = swapped;
  }
  if (from != mItems + first)
    std::memcpy(static_cast<void*>(mItems + first), from, static_cast<std::size_t>(count) * sizeof(T));
}

template <class T>
void Tableau<T>::reduce_to_disjunction() {
  using Interval = std::remove_pointer_t<T>;
  int reduced = 0;
  for (int i = 0; i < mSize;) {
    T const first = mItems[i];
    auto high = first->high;
    for (++i; i < mSize && !(mItems[i]->low > high); ++i)
      if (mItems[i]->high > high) high = mItems[i]->high;
    mItems[reduced++] = high > first->high ? new Interval(first->low, high) : first;
  }
  mSize = reduced;
}

template <class T>
Tableau<int>* Tableau<T>::commonTail(const Tableau<int>& other) const {
  const int shorter = size() < other.size() ? size() : other.size();
  int length = 0;
  while (length < shorter && mItems[mSize - 1 - length] == other[other.size() - 1 - length]) ++length;
  auto* tail = new Tableau<int>(length);
  for (int i = mSize - length; i < mSize; ++i) tail->push_back(mItems[i]);
  return tail;
}

template <class T>
int Tableau<T>::commonElement(const Tableau<int>& other) const {
  for (const T& item : *this)
    if (other.position(item) >= 0) return 1;
  return 0;
}

template <class T>
void DisplayTableItem(const T& item) {
  if constexpr (std::is_same_v<T, char*> || std::is_same_v<T, const char*>)
    std::printf("%s ", item != nullptr ? item : "NULL");
  else if constexpr (std::is_pointer_v<T>)
    std::printf("%x ", static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(item)));
  else
    std::printf("%.10g ", static_cast<double>(item));
}

template <class T>
void Tableau<T>::display() const {
  std::printf("(");
  for (const T& item : *this) DisplayTableItem(item);
  std::printf(")\n");
}

template <class T>
void Tableau<T>::display_names() const {
  std::printf("(");
  for (const T& item : *this) std::printf("%s ", item->InstanceName());
  std::printf(")\n");
}
