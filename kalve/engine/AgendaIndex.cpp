#include "kalve/engine/AgendaIndex.h"

#include <iterator>

#include "kalve/engine/Event.h"

AgendaIndex* AgendaIndex::sFirstIndex = nullptr;

AgendaIndex::AgendaIndex(Liste<Event*>& agenda) : mAgenda(agenda), mNextIndex(sFirstIndex) {
  sFirstIndex = this;
  mFences.emplace(infinite, nullptr);
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
  for (auto fence = std::next(mFences.begin()); fence != mFences.end(); ++fence) MoveFence(fence, nullptr);
  mFences.clear();
  mFences.emplace(infinite, nullptr);
}

AgendaIndex::AgendaCell* AgendaIndex::CellOf(Fences::const_iterator fence) const {
  return fence == mFences.begin() ? Head() : fence->second;
}

// An event counts the fences on its cells, so that a removal knows without a search that there is none.

void AgendaIndex::MoveFence(Fences::iterator fence, AgendaCell* cell) {
  if (fence->second != nullptr) --fence->second->GetItem()->mFences;
  fence->second = cell;
  if (cell != nullptr) ++cell->GetItem()->mFences;
}

/// Nothing beside an equal bound.
void AgendaIndex::AddFence(Fences::iterator behind, Key bound, AgendaCell* cell) {
  if (behind != mFences.begin() && std::prev(behind)->first == bound) return;
  const auto fence = mFences.emplace_hint(behind, bound, nullptr);
  if (fence != mFences.begin()) MoveFence(fence, cell);
}

/// The first fence stands on the head by itself.
void AgendaIndex::FreeFirst() { MoveFence(mFences.begin(), nullptr); }

AgendaIndex::AgendaCell* AgendaIndex::StartFor(const Event* event) const {
  return CellOf(mFences.lower_bound(KeyOf(event)));
}

/// The walk for `key` passed from `start` to `reached`: everything in front of `reached` has a smaller key.
/// The fences passed become one, which is answered.
AgendaIndex::Fences::iterator AgendaIndex::Walked(Key key, AgendaCell* start, AgendaCell* reached) {
  const auto first = mFences.lower_bound(key);
  if (start == reached) return first;
  auto last = first;
  for (AgendaCell* cell = start; cell != reached;) {
    cell = cell->GetNextCell();
    const auto next = std::next(last);
    if (next != mFences.end() && next->second == cell) last = next;
  }
  for (auto fence = first; fence != last; fence = mFences.erase(fence)) MoveFence(fence, nullptr);
  AddFence(last, key - 1, start);
  return last;
}

void AgendaIndex::InsertedBefore(AgendaCell* start, AgendaCell* cell) {
  if (!mIsOn) return;
  const Key key = KeyOf(cell->GetItem());
  AgendaCell* const moved = cell->GetNextCell();
  if (FenceOn(cell, moved->GetItem()) != mFences.end()) {
    --moved->GetItem()->mFences;  // counted while its event stood in this cell
    ++cell->GetItem()->mFences;
  }
  const auto fence = Walked(key, start, cell);
  if (fence->first == key) {
    if (fence != mFences.begin()) MoveFence(fence, cell);
    return;
  }
  AddFence(fence, key, cell);
  if (fence != mFences.begin()) MoveFence(fence, moved);
}

void AgendaIndex::InsertedBehindEqual(AgendaCell* start, AgendaCell* cell) {
  if (!mIsOn || start == cell) return;
  const auto fence = Walked(KeyOf(cell->GetItem()), start, cell);
  if (fence != mFences.begin()) MoveFence(fence, cell);
}

void AgendaIndex::InsertedAtTail(AgendaCell* start) {
  AgendaCell* const tail = mAgenda.TailCell();
  if (!mIsOn || tail == mAgenda.HeadCell()) return;
  const Key key = KeyOf(tail->GetItem());
  auto fence = mFences.lower_bound(key);
  if (start != nullptr) {
    fence = Walked(key, start, tail);
    if (std::next(fence) != mFences.end()) {  // the one behind the tail serves in its place
      MoveFence(fence, nullptr);
      fence = mFences.erase(fence);
    }
  }
  AddFence(fence, key, tail);
  if (fence != mFences.begin()) MoveFence(fence, nullptr);
}

void AgendaIndex::Appended() {
  const auto last = std::prev(mFences.end());
  if (!mIsOn || last == mFences.begin() || last->second != nullptr) return;
  AgendaCell* const tail = mAgenda.TailCell();
  const Key key = KeyOf(tail->GetItem());
  if (key > std::prev(last)->first) AddFence(last, key, tail);
}

/// The fence on a cell, near the key of the event that it was set for, or else by a look at all of them.
AgendaIndex::Fences::iterator AgendaIndex::FenceOn(AgendaCell* cell, const Event* event) {
  if (event->mFences == 0) return mFences.end();
  const auto near = mFences.lower_bound(KeyOf(event));
  for (auto fence = near; fence != mFences.end(); ++fence)
    if (fence->second == cell) return fence;
  for (auto fence = mFences.begin(); fence != near; ++fence)
    if (fence->second == cell) return fence;
  return mFences.end();
}

void AgendaIndex::Removing(AgendaCell* cell) {
  if (!mIsOn) return;
  AgendaCell* const next = cell->GetNextCell();
  if (cell == mAgenda.HeadCell()) {
    const auto second = std::next(mFences.begin());
    if (second == mFences.end() || second->second != next) return;
    mFences.erase(mFences.begin());
    FreeFirst();
    return;
  }
  const auto fence = FenceOn(cell, cell->GetItem());
  if (fence == mFences.end()) return;
  const auto following = std::next(fence);
  const bool nextHasOne = following != mFences.end() && following->second == next;
  MoveFence(fence, nextHasOne ? nullptr : next);
  if (nextHasOne) mFences.erase(fence);
}

void AgendaIndex::KeyChanges(int oldClock, short oldPriority, int newClock, short newPriority) {
  const Key from = KeyOf(oldClock, oldPriority);
  const Key to = KeyOf(newClock, newPriority);
  if (to <= from) return;  // the bounds are upper ones
  for (AgendaIndex* index = sFirstIndex; index != nullptr; index = index->mNextIndex) index->Merge(from, to);
}

/// The fences with bounds from `from` to below `to` and the one behind them become one.
void AgendaIndex::Merge(Key from, Key to) {
  const auto first = mFences.lower_bound(from);
  const auto last = mFences.lower_bound(to);
  if (first == last) return;
  MoveFence(last, first->second);
  for (auto fence = first; fence != last; fence = mFences.erase(fence)) MoveFence(fence, nullptr);
  FreeFirst();
}
