#include "kalve/methods/LazyMethods.h"

#include <algorithm>
#include <cstring>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"

constexpr PredefinedSet PredefinedSet::none{};

constinit BlockPool LazyMethods::Block::pool{sizeof(LazyMethods::Block)};

namespace {

void CountUnmade(int methods, int arguments) {
  Method::CountUnmade(methods, 0);
  Argument::CountUnmade(arguments, 0);
}

}  // namespace

void LazyMethods::Block::Keep(int rank, Method* method) {
  places[rank] = ++madeCount;
  (madeCount <= few ? made[madeCount - 1] : MakeMore().made[madeCount - 1 - few]) = method;
}

void LazyMethods::Block::ForgetMade() {
  std::fill(std::begin(places), std::end(places), std::uint8_t{0});
  madeCount = 0;
}

LazyMethods::More& LazyMethods::Block::MakeMore() {
  if (more == nullptr) more = std::make_unique<More>();
  return *more;
}

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

LazyMethods::Block& LazyMethods::NewBlock() const {
  mBlock = new Block;
  mBlock->owner = mOwner;
  return *mBlock;
}

Method* LazyMethods::FindWithBody(int id) const {
  const int rank = Rank(id);
  Method* method = MadeAt(rank);
  if (method == nullptr && mSet->rows[rank].hasBody) method = Make(rank);
  return method != nullptr && method->HasBodyAssigned() ? method : nullptr;
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
  if (HasAdded()) return mBlock->more->ranks;
  Tableau<int> ranks(mSet->ids);
  for (int id = 0; id < mSet->ids; ++id) ranks.push_back(mSet->rankOf[id]);
  return ranks;
}

// Changing --------------------------------------------------------------------------------------------

void LazyMethods::Add(Method* method, const char* where) {
  const int id = method->ClassSymbol();
  if (id < 0) FailOnIndex(where, Ranks().size(), id);
  if (OwnBlock().holders > 1) Part();
  More& more = mBlock->MakeMore();
  if (more.ranks.empty()) more.ranks = Ranks();
  bool isThere = false;
  for (int rank = 0; rank < Size(); ++rank) isThere = isThere || MadeAt(rank) == method;
  if (!isThere) more.added.push_back(method);
  set_nth_num(more.ranks, id, Size() - 1);
}

/// The same methods in a block of its own.
void LazyMethods::Part() {
  MakeAll();
  auto* const own = new Block;
  own->owner = mBlock->owner;
  for (int rank = 0; rank < mSet->size; ++rank) own->Keep(rank, mBlock->MadeAt(rank));
  if (HasAdded()) {
    own->MakeMore().added = mBlock->more->added;
    own->more->ranks = mBlock->more->ranks;
  }
  LetGo();
  mBlock = own;
}

void LazyMethods::AssignMethods(const LazyMethods& source) {
  const Tableau<Method*> own = Methods();
  const Tableau<Method*> others = source.Methods();
  for (int rank = 0; rank < others.size(); ++rank) AssignMethod(*own[rank], *others[rank]);
}

template void LazyMethods::Begin(const PredefinedSet&, Event*);
template void LazyMethods::Begin(const PredefinedSet&, Process*);

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
    unmade -= mBlock->madeCount;
    for (int rank = 0; rank < mSet->size; ++rank)
      if (mBlock->places[rank] != 0) arguments -= mSet->rows[rank].arguments;
    ForEachMade(DestroyMethod);
    if (HasAdded())
      for (Method* method : mBlock->more->added) DestroyMethod(method);
    mBlock->ForgetMade();  // for those who share it
    mBlock->more = nullptr;
  }
  Method::CountUnmade(0, unmade);
  Argument::CountUnmade(0, arguments);
  Forget();
}
