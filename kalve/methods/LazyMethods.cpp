#include "kalve/methods/LazyMethods.h"

#include <cstring>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"

constexpr PredefinedSet PredefinedSet::none{};

constinit BlockPool LazyMethods::Block::pool{sizeof(LazyMethods::Block)};

namespace {

void Tell(Method* method, void* owner) {
  if (method->ObjectClass() == KV_EVENT)
    static_cast<EventMethod*>(method)->DescribedEvent(static_cast<Event*>(owner));
  else
    static_cast<ProcessMethod*>(method)->DescribedProcess(static_cast<Process*>(owner));
}

}  // namespace

// Making ----------------------------------------------------------------------------------------------

void LazyMethods::Begin(const PredefinedSet& set, void* owner) {
  const int before = mSet->size;
  mSet = &set;
  mOwner = owner;
  for (int rank = before; rank < set.size; ++rank) {
    if (g_KV_TraceNewDelMode != 0)
      Tell(OwnBlock().made[rank] = set.rows[rank].make(), owner);
    else
      CountUnmade(set.rows[rank], 1, 0);
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
  CountUnmade(row, -1, 0);
  Tell(method, block.owner);
  return block.made[rank] = method;
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

void LazyMethods::CountUnmade(const PredefinedRow& row, int constructions, int destructions) {
  Method::CountUnmade(constructions, destructions);
  Argument::CountUnmade(row.arguments * constructions, row.arguments * destructions);
}

// Reading ---------------------------------------------------------------------------------------------

Method* LazyMethods::WithBody(int id) const {
  const int rank = Rank(id);
  Method* method = MadeAt(rank);
  if (method == nullptr && mSet->rows[rank].hasBody) method = Make(rank);
  return method != nullptr && method->HasBodyAssigned() ? method : nullptr;
}

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
  if (HasRanks()) return mBlock->ranks;
  Tableau<int> ranks(mSet->ids);
  for (int id = 0; id < mSet->ids; ++id) ranks.push_back(mSet->rankOf[id]);
  return ranks;
}

// Changing --------------------------------------------------------------------------------------------

void LazyMethods::Add(Method* method, const char* where) {
  const int id = method->ClassSymbol();
  if (id < 0) FailOnIndex(where, Ranks().size(), id);
  if (OwnBlock().holders > 1) Part();
  if (!HasRanks()) mBlock->ranks = Ranks();
  bool isThere = false;
  for (int rank = 0; rank < Size(); ++rank) isThere = isThere || MadeAt(rank) == method;
  if (!isThere) mBlock->added.push_back(method);
  set_nth_num(mBlock->ranks, id, Size() - 1);
}

/// The same methods in a block of its own.
void LazyMethods::Part() {
  MakeAll();
  auto* const own = new Block(*mBlock);
  own->holders = 1;
  LetGo();
  mBlock = own;
}

void LazyMethods::AssignMethods(const LazyMethods& source) {
  const Tableau<Method*> own = Methods();
  const Tableau<Method*> others = source.Methods();
  for (int rank = 0; rank < others.size(); ++rank) AssignMethod(*own[rank], *others[rank]);
}

void LazyMethods::Share(const LazyMethods& source, void* owner) {
  ++source.OwnBlock().holders;
  LetGo();
  mSet = source.mSet;
  mBlock = source.mBlock;
  Describe(owner);
}

void LazyMethods::Describe(void* owner) {
  mOwner = owner;
  if (mBlock == nullptr) return;
  mBlock->owner = owner;
  for (int rank = 0; rank < Size(); ++rank)
    if (Method* const made = MadeAt(rank)) Tell(made, owner);
}

void LazyMethods::Forget() {
  LetGo();
  mBlock = nullptr;
  mSet = &PredefinedSet::none;
}

void LazyMethods::DestroyMethods() {
  if (g_KV_TraceNewDelMode != 0) MakeAll();  // so that their ends are traced
  for (int rank = 0; rank < Size(); ++rank) {
    if (Method* const made = MadeAt(rank))
      DestroyMethod(made);
    else
      CountUnmade(mSet->rows[rank], 0, 1);
  }
  if (mBlock != nullptr) {  // for those who share it
    std::memset(mBlock->made, 0, sizeof mBlock->made);
    mBlock->added.erase();
    mBlock->ranks.erase();
  }
  Forget();
}

void LazyMethods::LetGo() {
  if (mBlock != nullptr && --mBlock->holders == 0) delete mBlock;
}
