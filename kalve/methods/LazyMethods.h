// The methods of an event or a process: many, and mostly never looked at.
//
// The owner's constructor names a set of predefined methods. They exist from then on, for the counters too,
// but each object is made when it is first looked at. With the trace of constructions on, all are made at
// once. Nobody can tell the difference.
//
// A raw copy shares the methods of its source, those still to be made included. Who adds a method to shared
// ones goes on with a table of its own; the objects stay shared.
//
// As a MethodTable, it says where a method is, not whose: DestroyMethods destroys, the destructor leaves the
// methods alone, and the reads throw an `int` for an absent id.
#pragma once

#include <cstdint>
#include <memory>

#include "kalve/foundations/BlockPool.h"
#include "kalve/foundations/Prefetch.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/MethodTable.h"
#include "kalve/methods/PredefinedSet.h"

class LazyMethods {
 public:
  LazyMethods() = default;
  LazyMethods(const LazyMethods&) = delete;
  LazyMethods& operator=(const LazyMethods&) = delete;
  ~LazyMethods() { LetGo(); }

  /// The owner, an event or a process, has the methods of a set; what was there must be the set's first
  /// rows. They describe the owner.
  template <class Owner>
  void Begin(const PredefinedSet& set, Owner* owner);
  /// Appends a method that is not there yet; its id leads to the last rank from now on. The owner has
  /// checked the method's kind, and tells it whom it describes. A negative id is an index failure of `where`.
  void Add(Method* method, const char* where);

  /// The method of an id. Throws an `int` for an id beyond the table, and for one without a method.
  Method* operator[](int id) const { return At(Rank(id)); }
  /// The same when it has a body, else null; a method without body is not made for the question.
  Method* WithBody(int id) const {
    if (mBlock == nullptr || mBlock->more != nullptr) return FindWithBody(id);
    const int rank = mSet->Rank(id);
    if (rank < 0) return FindWithBody(id);
    const int place = mBlock->places[rank];
    if (place == 0) return (mSet->ranksWithBody >> rank & 1U) != 0 ? Make(rank) : nullptr;
    Method* const made = mBlock->made[place - 1];
    return made->HasBodyAssigned() ? made : nullptr;
  }
  /// Its rank, negative for none; throws an `int` for an id beyond the table.
  int Rank(int id) const { return HasAdded() ? mBlock->more->ranks[id] : mSet->Rank(id); }
  /// The method of lowest rank that has the name, or null.
  Method* Named(const char* name) const;
  /// All of them by rank, and the ranks by id.
  Tableau<Method*> Methods() const;
  Tableau<int> Ranks() const;

  /// Copies the methods of `source` whose result type is in `kept`, in rank order, through owner.AddMethod.
  template <class Owner>
  static void CopyMethods(const LazyMethods& source, ValueTypeSet kept, Owner& owner) {
    for (Method* method : source.Methods())
      if (Method* copy = NewMethodCopy(*method, kept)) owner.AddMethod(copy);
  }
  /// Assigns each method of `source` to the method of the same rank; throws an `int` where there is none.
  void AssignMethods(const LazyMethods& source);
  /// Shares the source's methods in place of its own; they describe the owner.
  template <class Owner>
  void Share(const LazyMethods& source, Owner* owner);
  /// All methods describe the owner.
  template <class Owner>
  void Describe(Owner* owner);
  /// Empties the table; the methods live on.
  void Forget();
  /// Destroys the methods and empties the table.
  void DestroyMethods();

  /// Ask for the memory of what they look at: first the block, then what it says.
  void FetchBlock() const { Prefetch(mBlock); }
  void FetchMethods() const {
    if (mBlock != nullptr) ForEachMade([](const Method* method) { Prefetch(method); });
  }
  void FetchArguments() const {
    if (mBlock != nullptr) ForEachMade([](const Method* method) { method->FetchArgument(); });
  }

 private:
  static constexpr int few = 4;
  /// What most owners do not have.
  struct More {
    Method* made[PredefinedSet::most - few];
    Tableau<Method*> added;
    Tableau<int> ranks;  // of all methods, once one was added
  };

  /// What is not as the set says: the objects made so far, and the methods added. A cache line.
  struct Block {
    static void* operator new(std::size_t size) { return pool.Take(size); }
    static void operator delete(void* block) { pool.Give(block); }
    static BlockPool pool;

    int holders = 1;
    std::uint8_t places[PredefinedSet::most] = {};  // of the object of each rank, from 1; 0 before it is made
    std::uint8_t madeCount = 0;
    void* owner;  // whom the methods still to be made describe
    Method* made[few];
    std::unique_ptr<More> more;

    Method* Made(int place) const { return place <= few ? made[place - 1] : more->made[place - 1 - few]; }
    Method* MadeAt(int rank) const { return places[rank] == 0 ? nullptr : Made(places[rank]); }
    void Keep(int rank, Method* method);
    void ForgetMade();
    More& MakeMore();
  };

  bool HasAdded() const {
    return mBlock != nullptr && mBlock->more != nullptr && !mBlock->more->ranks.empty();
  }
  int Size() const { return mSet->size + (HasAdded() ? mBlock->more->added.size() : 0); }
  Method* MadeAt(int rank) const {
    if (rank < 0) ThrowIndex(rank);
    if (mBlock == nullptr) return nullptr;
    return rank < mSet->size ? mBlock->MadeAt(rank) : mBlock->more->added[rank - mSet->size];
  }
  Method* At(int rank) const {
    Method* const made = MadeAt(rank);
    return made != nullptr ? made : Make(rank);
  }
  /// There is a block.
  template <class Act>
  void ForEachMade(Act act) const {
    for (int place = 1; place <= mBlock->madeCount; ++place) act(mBlock->Made(place));
  }
  static void Tell(Method* method, Event* owner) { static_cast<EventMethod*>(method)->DescribedEvent(owner); }
  static void Tell(Method* method, Process* owner) {
    static_cast<ProcessMethod*>(method)->DescribedProcess(owner);
  }
  Method* FindWithBody(int id) const;
  Method* Make(int rank) const;
  void MakeAll() const;
  Block& OwnBlock() const { return mBlock != nullptr ? *mBlock : NewBlock(); }
  Block& NewBlock() const;
  void Part();
  void LetGo() {
    if (mBlock != nullptr && --mBlock->holders == 0) delete mBlock;
  }

  const PredefinedSet* mSet = &PredefinedSet::none;
  void* mOwner = nullptr;  // while there is no block
  mutable Block* mBlock = nullptr;
};

// What every raw copy does.

template <class Owner>
void LazyMethods::Share(const LazyMethods& source, Owner* owner) {
  ++source.OwnBlock().holders;
  LetGo();
  mSet = source.mSet;
  mBlock = source.mBlock;
  Describe(owner);
}

template <class Owner>
void LazyMethods::Describe(Owner* owner) {
  mOwner = owner;
  if (mBlock == nullptr) return;
  mBlock->owner = owner;
  ForEachMade([owner](Method* method) { Tell(method, owner); });
  if (HasAdded())
    for (Method* method : mBlock->more->added) Tell(method, owner);
}
