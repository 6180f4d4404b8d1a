#include "kalve/specs/EntitySpec.h"

#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Registry.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/PredefinedMethods.h"
#include "kalve/model/MetaClass.h"
#include "kalve/specs/DescValueSpec.h"

int EntitySpec::mInstanceNumber = 0;
// Never destroyed: an application may keep its specifications to the very end.
Tableau<EntitySpec*>& EntitySpec::mpInstanceTab = *new Tableau<EntitySpec*>();
int EntitySpec::_nbConst = 0;
int EntitySpec::_nbDest = 0;

namespace {

void Trace(const char* text, const EntitySpec* spec) {
  if (g_KV_TraceNewDelMode != 0) std::cout << text << static_cast<const void*>(spec);
}

}  // namespace

// Life

EntitySpec::EntitySpec(const char* name, int classId, EntitySpecMode mode, QuantificatorId quantificator,
                       int quantity, BasicEntity* referent)
    : mReferenceClassId(classId),
      mMode(mode),
      mQuantificatorId(quantificator),
      mIntQuantity(quantity),
      mpReferentEntity(referent),
      mSpecName(name) {
  Trace("\n+Construction de la EntitySpec ", this);
  ++_nbConst;
  AddInstance(this);
}

EntitySpec::EntitySpec()
    : EntitySpec("entitySpec", K_INT_UNSIGNIFICANT, RETURN_INSTANCES, ALLENT, K_INT_UNSIGNIFICANT, nullptr) {
  AddModelFunctions();
}

EntitySpec::EntitySpec(int classId)
    : EntitySpec("", classId, RETURN_INSTANCES, ALLENT, K_INT_UNSIGNIFICANT, nullptr) {
  AddModelFunctions();
}

EntitySpec::EntitySpec(int classId, QuantificatorId quantificator, int quantity, Selector selector,
                       Evaluator evaluator, BasicEntity* referent)
    : EntitySpec("", classId, RETURN_INSTANCES, quantificator, quantity, referent) {
  if (quantificator == NFIRST && evaluator == nullptr && quantity < 1)
    BadQuantitySpecification(classId, quantificator, quantity);
  AddModelFunctions();
  AssignSelectorPredicate(selector);
  AssignQuantityEvaluator(evaluator);
}

EntitySpec::EntitySpec(int classId, QuantificatorId quantificator, int quantity, Instantiator instantiator,
                       Evaluator evaluator, BasicEntity* referent)
    : EntitySpec("", classId, INSTANTIATE, quantificator, quantity, referent) {
  CheckMadeQuantity(evaluator != nullptr);
  AddModelFunctions();
  AssignEntityInstantiator(instantiator);
  AssignQuantityEvaluator(evaluator);
}

EntitySpec::EntitySpec(int classId, QuantificatorId quantificator, int quantity,
                       ListInstantiator instantiator, Evaluator evaluator, BasicEntity* referent)
    : EntitySpec("", classId, INSTANTIATE, quantificator, quantity, referent) {
  CheckMadeQuantity(evaluator != nullptr);
  AddModelFunctions();
  AssignEntityListInstantiator(instantiator);
  AssignQuantityEvaluator(evaluator);
}

EntitySpec::EntitySpec(const EntitySpec& other)
    : EntitySpec(other.mSpecName.c_str(), other.mReferenceClassId, other.mMode, other.mQuantificatorId,
                 other.mIntQuantity, other.mpReferentEntity) {
  mReferenceClassName = other.mReferenceClassName;
  for (DescValueSpec* condition : other.mDescValueSpecTab) AddDescValueSpec(condition);
  MethodTable::CopyMethods(other.mMethods, {BOOLEAN, INT, P_ENTITY, ENTITY_TAB}, *this);
  mHasSelectorPredicate = other.mHasSelectorPredicate;
  mHasEntityInstantiator = other.mHasEntityInstantiator;
  mHasEntityListInstantiator = other.mHasEntityListInstantiator;
  mHasQuantityEvaluator = other.mHasQuantityEvaluator;
}

EntitySpec::~EntitySpec() {
  Trace("\n-Destruction de la EntitySpec ", this);
  ++_nbDest;
  mMethods.DestroyMethods();
  for (DescValueSpec* condition : mDescValueSpecTab)
    if (--condition->mListings.count == 0) DescValueSpec::DeleteByType(condition);
  RemoveInstance(this);
}

void EntitySpec::AddModelFunctions() {
  AddMethod(new EntitySelector);
  AddMethod(new EntityInstantiator);
  AddMethod(new EntityListInstantiator);
  AddMethod(new QuantityEvaluator);
}

/// For those that make entities: without a limit they would never end.
void EntitySpec::CheckMadeQuantity(bool hasEvaluator) const {
  if (mQuantificatorId != NFIRST || (!hasEvaluator && mIntQuantity < 1))
    BadQuantitySpecification(mReferenceClassId, mQuantificatorId, mIntQuantity);
}

// Description

void EntitySpec::ClassName(const char* name) { mSpecName = OrEmpty(name); }
void EntitySpec::ReferenceClassName(const char* name) { mReferenceClassName = OrEmpty(name); }

int EntitySpec::GetReferenceClassId() {
  if (mReferenceClassId >= 0) return mReferenceClassId;
  if (mReferenceClassName.empty()) NoInformationForReferenceClass(this);
  mReferenceClassId = GetClassSymbol(mReferenceClassName.c_str());
  if (mReferenceClassId < 0) NoInformationForReferenceClass(this, mReferenceClassName.c_str());
  return mReferenceClassId;
}

void EntitySpec::AddDescValueSpec(DescValueSpec* condition) {
  if (condition == nullptr) return;
  mDescValueSpecTab.push_back(condition);
  ++condition->mListings.count;
}

// Functions of the model

void EntitySpec::AssignSelectorPredicate(Selector body) {
  Function(SELECTOR_PREDICATE).SetBody(body);
  mHasSelectorPredicate = 1;
}

void EntitySpec::AssignEntityInstantiator(Instantiator body) {
  Function(ENTITY_INSTANTIATOR).SetBody(body);
  mHasEntityInstantiator = 1;
}

void EntitySpec::AssignEntityListInstantiator(ListInstantiator body) {
  Function(ENTITYLIST_INSTANTIATOR).SetBody(body);
  mHasEntityListInstantiator = 1;
}

void EntitySpec::AssignQuantityEvaluator(Evaluator body) {
  Function(QUANTITY_EVALUATOR).SetBody(body);
  mHasQuantityEvaluator = 1;
}

// Methods

void EntitySpec::AddMethod(Method* method) {
  if (method->ObjectClass() != KV_ENTITYSPEC) return;
  mMethods.Add(method, "EntitySpec::AddMethod");
  static_cast<EntitySpecMethod*>(method)->DescribedEntitySpec(this);
}

EntitySpecMethod* EntitySpec::FoundMethod(int id, const char* where) const {
  const Tableau<int>& ranks = mMethods.Ranks();
  if (id < 0 || id >= ranks.size() || ranks[id] < 0) FailOnIndex(where, ranks.size(), id);
  return static_cast<EntitySpecMethod*>(mMethods[id]);
}

EntitySpecMethod& EntitySpec::Function(int id) const { return static_cast<EntitySpecMethod&>(*mMethods[id]); }

Method* EntitySpec::GetMethod(int id) const { return FoundMethod(id, "EntitySpec::GetMethod"); }

bool EntitySpec::ExecCorePredicate(int id) {
  return FoundMethod(id, "EntitySpec::ExecCorePredicate")->Call<bool>();
}

int EntitySpec::ExecIntCoreMethod(int id) {
  return FoundMethod(id, "EntitySpec::ExecIntCoreMethod")->Call<int>();
}

BasicEntity* EntitySpec::ExecEntityCoreMethod(int id) {
  return FoundMethod(id, "EntitySpec::ExecEntityCoreMethod")->Call<BasicEntity*>();
}

Tableau<BasicEntity*>* EntitySpec::ExecEntityTabCoreMethod(int id) {
  return FoundMethod(id, "EntitySpec::ExecEntityTabCoreMethod")->Call<Tableau<BasicEntity*>*>();
}

// Registry

void EntitySpec::AddInstance(EntitySpec* spec) {
  mpInstanceTab.push_back(spec);
  ++mInstanceNumber;
}

void EntitySpec::RemoveInstance(EntitySpec* spec) {
  TakeOut(mpInstanceTab, spec, "EntitySpec::RemoveInstance");
  --mInstanceNumber;
}

EntitySpec* EntitySpec::GetInstance(int rank) {
  return InstanceAt(mpInstanceTab, rank, "EntitySpec::GetInstance");
}
