// Liste<T>: the linked list of the whole kernel, with one cursor of its own.
//
// Like a Tableau it never owns what its items point to. Every walk has the same form:
//   for (list.go_head(); list.is_current_in(); list.go_next()) use(list.current());
//
// Cursor: it stays on its cell whatever is pushed or inserted around it, and goes off when that cell is
// freed. A copy has cells and a cursor of its own, the cursor off. Reading or freeing what is not there
// (an empty list, a cursor that is off) throws an `int`.
//
// Cells come from a pool that the lists of one item type share.
#pragma once

#include <cstdio>

#include "kalve/foundations/BlockPool.h"
#include "kalve/foundations/Tableau.h"

template <class T>
class Cell {
 public:
  const T& GetItem() const { return mItem; }
  /// The next cell, null behind the last.
  Cell* GetNextCell() const { return mNext; }
  /// The cell before, null in front of the first.
  Cell* GetPreviousCell() const { return mPrevious; }

 private:
  friend class Liste<T>;
  Cell(const T& item, Cell* previous, Cell* next) : mItem(item), mNext(next), mPrevious(previous) {}
  static void* operator new(std::size_t size) { return pool.Take(size); }
  static void operator delete(void* block) { pool.Give(block); }

  T mItem;
  Cell* mNext;
  Cell* mPrevious;

  static BlockPool pool;
};

template <class T>
constinit BlockPool Cell<T>::pool{sizeof(Cell)};

template <class T>
class Liste {
 public:
  Liste() = default;
  Liste(const Liste& other) { Append(other); }
  Liste& operator=(const Liste& other);
  ~Liste() { erase(); }

  int size() const { return mSize; }
  int empty() const { return mSize == 0; }

  void go_head() { mCurrent = mHead; }
  void go_last() { mCurrent = mTail; }
  /// One cell on; off from the last cell; nothing when off.
  void go_next() {
    if (mCurrent != nullptr) mCurrent = mCurrent->mNext;
  }
  /// go_next, but with `stayOnLast` the cursor does not leave the last cell.
  void go_next2(bool stayOnLast) {
    if (mCurrent != nullptr && !(stayOnLast && mCurrent->mNext == nullptr)) mCurrent = mCurrent->mNext;
  }
  bool is_current_in() const { return mCurrent != nullptr; }
  bool is_current_off() const { return mCurrent == nullptr; }

  T current() const { return Existing(mCurrent)->mItem; }
  T front() const { return Existing(mHead)->mItem; }
  void pop_front() { Unlink(Existing(mHead)); }
  void push_back(const T& item) { Link(item, mTail, nullptr); }
  void push_front(const T& item) { Link(item, nullptr, mHead); }
  /// New cell behind the cursor's; appends when the cursor is off.
  void insert_after_current(const T& item) {
    if (mCurrent == nullptr)
      push_back(item);
    else
      Link(item, mCurrent, mCurrent->mNext);
  }
  void replace_current_by_item(const T& item) { Existing(mCurrent)->mItem = item; }
  /// Frees the cursor's cell; the cursor is off until the caller sets it.
  void remove_current() { Unlink(Existing(mCurrent)); }
  /// Frees the first cell with an equal item; nothing if there is none.
  void remove_first(const T& item);
  void erase();

  /// For `for (T item : list)`, which leaves the cursor alone. The item that is read may leave the list
  /// only once the walk is past it.
  class Iterator {
   public:
    explicit Iterator(const Cell<T>* cell) : mCell(cell) {}
    const T& operator*() const { return mCell->mItem; }
    Iterator& operator++() {
      mCell = mCell->mNext;
      return *this;
    }
    bool operator==(const Iterator&) const = default;

   private:
    const Cell<T>* mCell;
  };
  Iterator begin() const { return Iterator(mHead); }
  Iterator end() const { return Iterator(nullptr); }

  /// First and last cell, null in an empty list.
  Cell<T>* HeadCell() const { return mHead; }
  Cell<T>* TailCell() const { return mTail; }
  Cell<T>* get_currentCell() const { return mCurrent; }
  /// Null sets the cursor off.
  void set_currentCell(Cell<T>* cell) { mCurrent = cell; }

  /// Prints the items (pointers by their low 32 bits), for debugging.
  void display() const;

 private:
  Cell<T>* Existing(Cell<T>* cell) const {
    if (cell == nullptr) ThrowIndex(0);
    return cell;
  }
  void Link(const T& item, Cell<T>* before, Cell<T>* behind);
  void Unlink(Cell<T>* cell);
  void Append(const Liste& other) {
    for (const Cell<T>* cell = other.mHead; cell != nullptr; cell = cell->mNext) push_back(cell->mItem);
  }

  Cell<T>* mHead = nullptr;
  Cell<T>* mTail = nullptr;
  Cell<T>* mCurrent = nullptr;
  int mSize = 0;
};

// Bodies -----------------------------------------------------------------------------------------------

template <class T>
Liste<T>& Liste<T>::operator=(const Liste& other) {
  if (this == &other) return *this;
  erase();
  Append(other);
  return *this;
}

template <class T>
void Liste<T>::Link(const T& item, Cell<T>* before, Cell<T>* behind) {
  auto* const cell = new Cell<T>(item, before, behind);
  (before != nullptr ? before->mNext : mHead) = cell;
  (behind != nullptr ? behind->mPrevious : mTail) = cell;
  ++mSize;
}

template <class T>
void Liste<T>::Unlink(Cell<T>* cell) {
  (cell->mPrevious != nullptr ? cell->mPrevious->mNext : mHead) = cell->mNext;
  (cell->mNext != nullptr ? cell->mNext->mPrevious : mTail) = cell->mPrevious;
  if (mCurrent == cell) mCurrent = nullptr;
  delete cell;
  --mSize;
}

template <class T>
void Liste<T>::remove_first(const T& item) {
  for (Cell<T>* cell = mHead; cell != nullptr; cell = cell->mNext)
    if (cell->mItem == item) return Unlink(cell);
}

template <class T>
void Liste<T>::erase() {
  for (Cell<T>* cell = mHead; cell != nullptr;) {
    Cell<T>* const next = cell->mNext;
    delete cell;
    cell = next;
  }
  mHead = mTail = mCurrent = nullptr;
  mSize = 0;
}

template <class T>
void Liste<T>::display() const {
  std::printf("(");
  for (const Cell<T>* cell = mHead; cell != nullptr; cell = cell->mNext) DisplayTableItem(cell->mItem);
  std::printf(")\n");
}
