#include "kalve/engine/AgendaIndex.h"

#include "kalve/engine/Event.h"

AgendaIndex* AgendaIndex::sFirstIndex = nullptr;

AgendaIndex::AgendaIndex(Liste<Event*>& agenda) : mAgenda(agenda), mNextIndex(sFirstIndex) {
  sFirstIndex = this;
}

AgendaIndex::~AgendaIndex() {
  AgendaIndex** link = &sFirstIndex;
  while (*link != this) link = &(*link)->mNextIndex;
  *link = mNextIndex;
}

AgendaIndex::Key AgendaIndex::KeyOf(const Event* event) {
  return KeyOf(event->OccurrenceClockTime(), event->PriorityDegree());
}

void AgendaIndex::SwitchOn(bool on) {
  if (on == mIsOn) return;
  Forget();
  mIsOn = on;
}

void AgendaIndex::Forget() {
  for (Fence fence = mFences.Last(); !IsFirst(fence); fence = mFences.Previous(fence))
    MoveFence(fence, nullptr);
  mFences.Clear();
}

AgendaIndex::Fence AgendaIndex::Find(Key key) const {
  if (mFoundAt != mFences.Changes() || mFoundKey != key) {
    mFound = mFences.LowerBound(key);
    mFoundKey = key;
    mFoundAt = mFences.Changes();
  }
  return mFound;
}

// An event counts the fences on its cells, so that a removal knows without a search that there is none.

void AgendaIndex::MoveFence(Fence fence, AgendaCell* cell, bool isExact) {
  if (AgendaCell* const old = mFences.CellAt(fence)) --old->GetItem()->mFences;
  mFences.SetCell(fence, cell, isExact);
  if (cell != nullptr) ++cell->GetItem()->mFences;
}

/// In front of a fence with a greater bound, whose new place is answered. Nothing beside an equal bound; the
/// first fence stands on the head by itself.
AgendaIndex::Fence AgendaIndex::AddFence(Fence behind, Key bound, AgendaCell* cell, bool isExact) {
  if (!IsFirst(behind) && mFences.Bound(mFences.Previous(behind)) == bound) return behind;
  const Fence added = mFences.Insert(behind, bound);
  MoveFence(added, IsFirst(added) ? nullptr : cell, isExact);
  return mFences.Next(added);
}

/// Goes on to the fence behind.
void AgendaIndex::DropFence(Fence& fence) {
  MoveFence(fence, nullptr);
  fence = mFences.Erase(fence);
}

AgendaIndex::AgendaCell* AgendaIndex::StartFor(const Event* event) const {
  return CellOf(Find(KeyOf(event)));
}

AgendaIndex::Start AgendaIndex::FindStart(const Event* event) const {
  const Key key = KeyOf(event);
  const Fence fence = Find(key);
  return {CellOf(fence), mFences.IsExact(fence) && key < mFences.Bound(fence), fence, key};
}

void AgendaIndex::InsertedAt(const Start& start) {
  AgendaCell* const cell = start.cell;
  // The first fence stands on the head by itself.
  if (IsFirst(start.fence)) return InsertedBefore(cell, cell);
  // The fence goes on with its event, which keeps its count.
  mFences.SetCell(start.fence, cell->GetNextCell(), true);
  mFences.SetCell(mFences.Insert(start.fence, start.key), cell, true);
  ++cell->GetItem()->mFences;
}

/// The walk for `key` passed from `start` to `reached`: everything in front of `reached` has a smaller key.
/// The fences passed become one, which is answered.
AgendaIndex::Fence AgendaIndex::Walked(Key key, AgendaCell* start, AgendaCell* reached) {
  Fence fence = Find(key);
  if (start == reached) return fence;
  int passed = 0;
  Fence last = fence;
  for (AgendaCell* cell = start; cell != reached;) {
    cell = cell->GetNextCell();
    if (last == mFences.Last() || mFences.CellAt(mFences.Next(last)) != cell) continue;
    last = mFences.Next(last);
    ++passed;
  }
  for (; passed > 0; --passed) DropFence(fence);
  return AddFence(fence, key - 1, start, false);
}

void AgendaIndex::InsertedBefore(AgendaCell* start, AgendaCell* cell) {
  if (!mIsOn) return;
  const Key key = KeyOf(cell->GetItem());
  AgendaCell* const moved = cell->GetNextCell();
  Fence fence = Find(key);
  Fence onCell;
  if (HasFence(cell, moved->GetItem(), onCell)) {
    --moved->GetItem()->mFences;  // counted while its event stood in this cell
    ++cell->GetItem()->mFences;
  }
  fence = Walked(key, start, cell);
  if (mFences.Bound(fence) == key) {
    MoveFence(fence, IsFirst(fence) ? nullptr : cell, true);
    return;
  }
  const bool stoodOnCell = CellOf(fence) == cell;
  fence = AddFence(fence, key, cell, true);
  const bool isExact = stoodOnCell && mFences.IsExact(fence);
  MoveFence(fence, IsFirst(fence) ? nullptr : moved, isExact);
}

void AgendaIndex::InsertedBehindEqual(AgendaCell* start, AgendaCell* cell) {
  if (!mIsOn || start == cell) return;
  const Fence fence = Walked(KeyOf(cell->GetItem()), start, cell);
  MoveFence(fence, IsFirst(fence) ? nullptr : cell);
}

void AgendaIndex::InsertedAtTail(AgendaCell* start) {
  AgendaCell* const tail = mAgenda.TailCell();
  if (!mIsOn || tail == mAgenda.HeadCell()) return;
  const Key key = KeyOf(tail->GetItem());
  Fence fence = Find(key);
  if (start != nullptr) {
    fence = Walked(key, start, tail);
    if (fence != mFences.Last()) DropFence(fence);  // the one behind the tail serves in its place
  }
  fence = AddFence(fence, key, tail, true);
  MoveFence(fence, nullptr);
}

void AgendaIndex::Appended() {
  const Fence last = mFences.Last();
  if (!mIsOn || IsFirst(last) || mFences.CellAt(last) != nullptr) return;
  AgendaCell* const tail = mAgenda.TailCell();
  const Key key = KeyOf(tail->GetItem());
  if (key > mFences.Bound(mFences.Previous(last))) AddFence(last, key, tail, true);
}

/// The fence on a cell, near the key of the event that it was set for, or else by a look at all of them.
bool AgendaIndex::HasFence(AgendaCell* cell, const Event* event, Fence& fence) const {
  if (event->mFences == 0) return false;
  const Fence near = mFences.LowerBound(KeyOf(event));
  for (fence = near; mFences.CellAt(fence) != cell; fence = mFences.Next(fence))
    if (fence == mFences.Last()) break;
  if (mFences.CellAt(fence) == cell) return true;
  for (fence = near; !IsFirst(fence);) {
    fence = mFences.Previous(fence);
    if (mFences.CellAt(fence) == cell) return true;
  }
  return false;
}

void AgendaIndex::Removing(AgendaCell* cell) {
  if (!mIsOn) return;
  AgendaCell* const next = cell->GetNextCell();
  if (cell == mAgenda.HeadCell()) {
    if (mFences.size() > 1 && mFences.CellAt(mFences.Next(mFences.First())) == next) {
      mFences.EraseFirst();
      FreeFirst();
    } else {
      MoveFence(mFences.First(), nullptr);
    }
    return;
  }
  Fence fence;
  if (!HasFence(cell, cell->GetItem(), fence)) return;
  const bool nextHasOne = fence != mFences.Last() && mFences.CellAt(mFences.Next(fence)) == next;
  if (nextHasOne)
    DropFence(fence);
  else
    MoveFence(fence, next);
}

void AgendaIndex::KeyChanges(int oldClock, short oldPriority, int newClock, short newPriority) {
  const Key from = KeyOf(oldClock, oldPriority);
  const Key to = KeyOf(newClock, newPriority);
  if (to == from) return;
  for (AgendaIndex* index = sFirstIndex; index != nullptr; index = index->mNextIndex)
    index->KeyChanged(from, to);
}

/// A fence may be exact no longer. The bounds are upper ones: if a key rises, the fences with bounds from
/// `from` to below `to` and the one behind them become one.
void AgendaIndex::KeyChanged(Key from, Key to) {
  Fence first = mFences.LowerBound(from);
  AgendaCell* const cell = mFences.CellAt(first);
  if (mFences.Bound(first) == from) mFences.SetCell(first, cell, false);
  if (mFences.Bound(first) >= to) return;
  while (mFences.Bound(first) < to) DropFence(first);
  MoveFence(first, cell);
  FreeFirst();
}
