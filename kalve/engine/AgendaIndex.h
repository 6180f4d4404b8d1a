// AgendaIndex: where an insertion into the agenda may begin its walk, so that nobody can tell.
//
// The agenda is a list walked from its head. Beside it stand fences, couples (bound, cell) in order of their
// bounds; the first stands on the head, the last bound is infinite, and its cell may be null, behind the
// tail. The rule that holds in a list of any order:
//
//   every cell in front of a fence's cell has a key of at most the bound of the fence before it,
//
// a key being clock and priority in one number. An insertion with a larger key would pass all those cells:
// the default predicate answers 0 for each, with its flag at 0. So the walk begins at the first fence whose
// bound is not below the key. What the walk finds becomes new fences; the index repairs itself as it is used.
//
// It serves the default predicate alone. With another one it is switched off and knows nothing.
#pragma once

#include "kalve/engine/AgendaFences.h"

class AgendaIndex {
 public:
  using AgendaCell = AgendaFences::AgendaCell;

  explicit AgendaIndex(Liste<Event*>& agenda);
  AgendaIndex(const AgendaIndex&) = delete;
  AgendaIndex& operator=(const AgendaIndex&) = delete;
  ~AgendaIndex();

  bool IsOn() const { return mIsOn; }
  void SwitchOn(bool on);
  /// Forgets all fences: the next walk begins at the head.
  void Forget();

  /// The cell where a walk for the event may begin; null behind the tail.
  AgendaCell* StartFor(const Event* event) const;
  /// Where the walk for an event may begin.
  struct Start {
    AgendaCell* cell;   // null behind the tail
    bool standsBefore;  // the event stands before the one in that cell: this is known without a look at it
    AgendaFences::Place fence;
    AgendaFences::Key key;
  };
  Start FindStart(const Event* event) const;
  /// After an insertion without a walk, before what stood in the start's cell and has moved to the next one.
  void InsertedAt(const Start& start);
  /// After an insertion whose walk began at `start`: the event stands in `cell`, and what stood there before
  /// in the next one.
  void InsertedBefore(AgendaCell* start, AgendaCell* cell);
  /// The event stands behind the equally placed one in `cell`.
  void InsertedBehindEqual(AgendaCell* start, AgendaCell* cell);
  /// The walk passed the tail, where the event stands now.
  void InsertedAtTail(AgendaCell* start);
  /// The event at the tail was appended without any test.
  void Appended();
  /// The cell is about to be freed.
  void Removing(AgendaCell* cell);
  /// An event that stands in some agenda changes its key: all indexes hear of it.
  static void KeyChanges(int oldClock, short oldPriority, int newClock, short newPriority);
  /// Visits the events of all agendas; no agenda may change meanwhile.
  template <class Visit>
  static void ForEachEvent(Visit visit) {
    for (AgendaIndex* index = sFirstIndex; index != nullptr; index = index->mNextIndex)
      for (Event* event : index->mAgenda) visit(event);
  }

 private:
  friend struct AgendaProbe;
  using Key = AgendaFences::Key;
  using Fence = AgendaFences::Place;

  static Key KeyOf(int clock, short priority) { return clock * 65536L + (priority + 32768L); }
  static Key KeyOf(const Event* event);
  Fence Find(Key key) const;
  bool IsFirst(Fence fence) const { return fence == mFences.First(); }
  AgendaCell* CellOf(Fence fence) const { return IsFirst(fence) ? Head() : mFences.CellAt(fence); }
  AgendaCell* Head() const { return mAgenda.HeadCell(); }
  void MoveFence(Fence fence, AgendaCell* cell, bool isExact = false);
  Fence AddFence(Fence behind, Key bound, AgendaCell* cell, bool isExact);
  void DropFence(Fence& fence);
  void FreeFirst() { MoveFence(mFences.First(), nullptr, mFences.IsExact(mFences.First())); }
  bool HasFence(AgendaCell* cell, const Event* event, Fence& fence) const;
  Fence Walked(Key key, AgendaCell* start, AgendaCell* reached);
  void KeyChanged(Key from, Key to);

  Liste<Event*>& mAgenda;
  AgendaFences mFences;  // the first one counts as standing on the head
  // The last search, which an insertion repeats.
  mutable Key mFoundKey = 0;
  mutable Fence mFound;
  mutable std::uint64_t mFoundAt = 0;
  bool mIsOn = true;
  AgendaIndex* mNextIndex;  // of all that live
  static AgendaIndex* sFirstIndex;
};
