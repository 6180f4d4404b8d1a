#include "kalve/methods/LazyMethods.h"

#include <cstring>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"

constexpr PredefinedSet PredefinedSet::none{};

constinit BlockPool LazyMethods::Block::pool{sizeof(LazyMethods::Block)};

namespace {

void Tell(Method* method, Event* owner) { static_cast<EventMethod*>(method)->DescribedEvent(owner); }
void Tell(Method* method, Process* owner) { static_cast<ProcessMethod*>(method)->DescribedProcess(owner); }

void CountUnmade(int methods, int arguments) {
  Method::CountUnmade(methods, 0);
  Argument::CountUnmade(arguments, 0);
}

}  // namespace

// Making ----------------------------------------------------------------------------------------------

template <class Owner>
void LazyMethods::Begin(const PredefinedSet& set, Owner* owner) {
  const PredefinedSet& before = *mSet;
  mSet = &set;
  mOwner = owner;
  if (g_KV_TraceNewDelMode == 0) return CountUnmade(set.size - before.size, set.arguments - before.arguments);
  for (int rank = before.size; rank < set.size; ++rank) {
    Method* const method = set.rows[rank].make();
    OwnBlock().Keep(rank, method);
    Tell(method, owner);
  }
}

/// The method has been counted already, and its construction is no event any more.
Method* LazyMethods::Make(int rank) const {
  Block& block = OwnBlock();
  const PredefinedRow& row = mSet->rows[rank];
  const int trace = g_KV_TraceNewDelMode;
  g_KV_TraceNewDelMode = 0;
  Method* const method = row.make();
  g_KV_TraceNewDelMode = trace;
  CountUnmade(-1, -row.arguments);
  if (method->ObjectClass() == KV_EVENT)
    Tell(method, static_cast<Event*>(block.owner));
  else
    Tell(method, static_cast<Process*>(block.owner));
  block.Keep(rank, method);
  return method;
}

void LazyMethods::MakeAll() const {
  for (int rank = 0; rank < mSet->size; ++rank) At(rank);
}

LazyMethods::Block& LazyMethods::OwnBlock() const {
  if (mBlock == nullptr) {
    mBlock = new Block;
    mBlock->owner = mOwner;
  }
  return *mBlock;
}

// Reading ---------------------------------------------------------------------------------------------

Method* LazyMethods::Named(const char* name) const {
  for (int rank = 0; rank < Size(); ++rank) {
    const Method* const made = MadeAt(rank);
    const char* const own = made != nullptr ? made->StoredClassName() : mSet->rows[rank].name;
    if (std::strcmp(OrEmpty(own), OrEmpty(name)) == 0) return At(rank);
  }
  return nullptr;
}

Tableau<Method*> LazyMethods::Methods() const {
  Tableau<Method*> methods(Size());
  for (int rank = 0; rank < Size(); ++rank) methods.push_back(At(rank));
  return methods;
}

Tableau<int> LazyMethods::Ranks() const {
  if (HasAdded()) return mBlock->added->ranks;
  Tableau<int> ranks(mSet->ids);
  for (int id = 0; id < mSet->ids; ++id) ranks.push_back(mSet->rankOf[id]);
  return ranks;
}

// Changing --------------------------------------------------------------------------------------------

void LazyMethods::Add(Method* method, const char* where) {
  const int id = method->ClassSymbol();
  if (id < 0) FailOnIndex(where, Ranks().size(), id);
  if (OwnBlock().holders > 1) Part();
  if (!HasAdded()) mBlock->added.reset(new Added{{}, Ranks()});
  Added& added = *mBlock->added;
  bool isThere = false;
  for (int rank = 0; rank < Size(); ++rank) isThere = isThere || MadeAt(rank) == method;
  if (!isThere) added.methods.push_back(method);
  set_nth_num(added.ranks, id, Size() - 1);
}

/// The same methods in a block of its own.
void LazyMethods::Part() {
  MakeAll();
  auto* const own = new Block;
  own->owner = mBlock->owner;
  for (int rank = 0; rank < mSet->size; ++rank) own->Keep(rank, mBlock->made[rank]);
  if (HasAdded()) own->added = std::make_unique<Added>(*mBlock->added);
  LetGo();
  mBlock = own;
}

void LazyMethods::AssignMethods(const LazyMethods& source) {
  const Tableau<Method*> own = Methods();
  const Tableau<Method*> others = source.Methods();
  for (int rank = 0; rank < others.size(); ++rank) AssignMethod(*own[rank], *others[rank]);
}

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
  ForEachMade([owner](Method* method, int) { Tell(method, owner); });
  if (HasAdded())
    for (Method* method : mBlock->added->methods) Tell(method, owner);
}

template void LazyMethods::Begin(const PredefinedSet&, Event*);
template void LazyMethods::Begin(const PredefinedSet&, Process*);
template void LazyMethods::Share(const LazyMethods&, Event*);
template void LazyMethods::Share(const LazyMethods&, Process*);
template void LazyMethods::Describe(Event*);
template void LazyMethods::Describe(Process*);

void LazyMethods::Forget() {
  LetGo();
  mBlock = nullptr;
  mSet = &PredefinedSet::none;
}

void LazyMethods::DestroyMethods() {
  if (g_KV_TraceNewDelMode != 0) MakeAll();  // so that their ends are traced
  int unmade = mSet->size;
  int arguments = mSet->arguments;
  if (mBlock != nullptr) {
    ForEachMade([&](Method* method, int rank) {
      DestroyMethod(method);
      mBlock->made[rank] = nullptr;  // for those who share it
      --unmade;
      arguments -= mSet->rows[rank].arguments;
    });
    mBlock->madeRanks = 0;
    if (HasAdded())
      for (Method* method : mBlock->added->methods) DestroyMethod(method);
    mBlock->added = nullptr;
  }
  Method::CountUnmade(0, unmade);
  Argument::CountUnmade(0, arguments);
  Forget();
}

void LazyMethods::FetchMethods() const {
  if (mBlock != nullptr)
    ForEachMade([](const Method* method, int) { Prefetch(method, sizeof(VoidEventMethod)); });
}
