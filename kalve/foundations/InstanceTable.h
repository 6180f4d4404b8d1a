// InstanceTable<T, Ranks>: a registry's table of its living instances, in order of creation.
//
// Whoever reads sees a dense Tableau. Underneath, a removal only leaves a hole at the rank that the instance
// keeps, so that it costs the same in a table of any size; the holes are squeezed out before a read, and
// when they are three quarters of the table. Once Shared() has handed the table out, its holder would meet
// the holes: from then on every removal closes the gap at once.
//
// Ranks says where an instance keeps its rank: `RankOf(item)` (any number when it keeps none),
// `Keep(item, from, to)` (`from` is -9 for a new instance) and `Forget(item, rank)`.
#pragma once

#include "kalve/foundations/Prefetch.h"
#include "kalve/foundations/Tableau.h"

template <class T, class Ranks>
class InstanceTable {
 public:
  explicit InstanceTable(Ranks ranks) : mRanks(ranks) {}
  InstanceTable(const InstanceTable&) = delete;
  /// The instances keep no rank in this copy: their removal searches.
  InstanceTable& operator=(const InstanceTable& other);

  void Add(T* item);
  /// False when the item is not there.
  bool Remove(T* item);
  const Tableau<T*>& Items() const;
  /// The first instance; null when there is none.
  T* First() const;
  /// Asks for the memory that a removal looks at.
  void Fetch(const T* item) const { Prefetch(mItems.begin() + mRanks.RankOf(item)); }
  /// The table itself, for a holder that keeps it.
  Tableau<T*>* Shared();

 private:
  int PositionOf(T* item) const;
  void Squeeze() const;

  Ranks mRanks;
  mutable Tableau<T*> mItems;
  mutable int mHoles = 0;
  mutable int mFirst = 0;  // no instance stands below
  bool mIsShared = false;
};

template <class T, class Ranks>
InstanceTable<T, Ranks>& InstanceTable<T, Ranks>::operator=(const InstanceTable& other) {
  if (this == &other) return *this;
  mItems = other.Items();
  mHoles = mFirst = 0;
  return *this;
}

template <class T, class Ranks>
void InstanceTable<T, Ranks>::Add(T* item) {
  mRanks.Keep(item, K_INT_UNSIGNIFICANT, mItems.size());
  mItems.push_back(item);
}

template <class T, class Ranks>
bool InstanceTable<T, Ranks>::Remove(T* item) {
  const int kept = mRanks.RankOf(item);
  const bool isThere = kept >= 0 && kept < mItems.size() && mItems[kept] == item;
  const int position = isThere ? kept : PositionOf(item);
  if (position < 0) return false;
  mRanks.Forget(item, kept);
  if (mIsShared) {
    mItems.remove(position);
  } else {
    mItems[position] = nullptr;
    if (++mHoles > mItems.size() / 4 * 3) Squeeze();
  }
  return true;
}

template <class T, class Ranks>
const Tableau<T*>& InstanceTable<T, Ranks>::Items() const {
  if (mHoles > 0) Squeeze();
  return mItems;
}

template <class T, class Ranks>
T* InstanceTable<T, Ranks>::First() const {
  if (mIsShared) return mItems.empty() ? nullptr : mItems[0];
  while (mFirst < mItems.size() && mItems[mFirst] == nullptr) ++mFirst;
  return mFirst < mItems.size() ? mItems[mFirst] : nullptr;
}

template <class T, class Ranks>
Tableau<T*>* InstanceTable<T, Ranks>::Shared() {
  Squeeze();
  mIsShared = true;
  return &mItems;
}

// Removals of a shared table shift instances towards the front, so that a kept rank is never too small.
template <class T, class Ranks>
int InstanceTable<T, Ranks>::PositionOf(T* item) const {
  const int kept = mRanks.RankOf(item);
  for (int i = kept < mItems.size() ? kept : mItems.size() - 1; i >= 0; --i)
    if (mItems[i] == item) return i;
  return mItems.position(item);
}

template <class T, class Ranks>
void InstanceTable<T, Ranks>::Squeeze() const {
  T** const items = mItems.begin();
  const int end = mItems.size();
  mItems.erase();  // what follows writes at or in front of what it reads
  for (int from = mFirst; from < end; ++from) {
    T* const item = items[from];
    if (item == nullptr) continue;
    if (from != mItems.size()) mRanks.Keep(item, from, mItems.size());
    mItems.push_back(item);
  }
  mHoles = mFirst = 0;
}
