// The expansion of an entity specification: selection among the instances of a class, or new instances.
#include "kalve/foundations/CoreException.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"

void EntitySpec::Expand() {
  const int classId = GetReferenceClassId();
  mpExpansion->erase();
  const int limit = Limit();
  if (mMode == RETURN_INSTANCES) SelectInstances(classId, limit);
  if (mMode == INSTANTIATE) MakeInstances(classId, limit);
}

Tableau<BasicEntity*>* EntitySpec::GetExpansion() {
  const auto isKept = [](BasicEntity* entity) {
    if (!IsLivingEntity(entity)) return false;
    return entity->EntityType() < KV_DESCRIPTED_ENTITY ||
           static_cast<DescriptedEntity*>(entity)->IsEngineManaged() == 0;
  };
  int kept = 0;
  for (BasicEntity* entity : *mpExpansion)
    if (isKept(entity)) mpExpansion->set_nth(kept++, entity);
  while (mpExpansion->size() > kept) mpExpansion->remove(mpExpansion->size() - 1);
  return mpExpansion.get();
}

/// The function, with the referent as its argument.
EntitySpecMethod& EntitySpec::FunctionOfReferent(int id) const {
  EntitySpecMethod& function = Function(id);
  function.SetArgValue(REFERENCEENTITY_ARGUMENT, mpReferentEntity);
  return function;
}

int EntitySpec::Limit() const {
  if (mQuantificatorId == ALLENT) return K_INTMAX;
  if (mIntQuantity >= 1) return mIntQuantity;
  if (mHasQuantityEvaluator == 0) return K_INTMAX;
  EntitySpecMethod& evaluator = FunctionOfReferent(QUANTITY_EVALUATOR);
  return evaluator.HasBodyAssigned() ? evaluator.Call<int>() : K_INTMAX;
}

// Selection

// The predicate may make and delete instances: the table is looked at again for each of them.
void EntitySpec::SelectInstances(int classId, int limit) {
  if (mHasEntityListInstantiator != 0) {
    if (!Function(ENTITYLIST_INSTANTIATOR).HasBodyAssigned()) NoReturnInstanceProcedure(ClassName(), classId);
    return TakeListOfModel(classId, limit);
  }
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr) return;
  EntitySpecMethod& selector = Function(SELECTOR_PREDICATE);
  if (!selector.HasBodyAssigned()) NoReturnInstanceProcedure(ClassName(), classId);
  const auto qualifies = [&](BasicEntity* entity) {
    if (!MeetsConditions(entity)) return false;
    selector.SetArgValue(CANDIDATEENTITY_ARGUMENT, entity);
    selector.SetArgValue(REFERENCEENTITY_ARGUMENT, mpReferentEntity);
    return mHasSelectorPredicate == 0 || selector.Call<bool>();
  };
  int rank = 0;
  for (int kept = 0; kept < limit && rank < metaClass->Instances().size(); ++rank) {
    BasicEntity* const entity = metaClass->Instances()[rank];
    if (!qualifies(entity)) continue;
    mpExpansion->push_back(entity);
    ++kept;
  }
}

bool EntitySpec::MeetsConditions(BasicEntity* entity) const {
  for (DescValueSpec* condition : mDescValueSpecTab)
    if (condition->IsInDomain(static_cast<DescriptedEntity*>(entity)) == 0) return false;
  return true;
}

// New instances

void EntitySpec::MakeInstances(int classId, int limit) {
  if (mHasEntityListInstantiator != 0) {
    if (!Function(ENTITYLIST_INSTANTIATOR).HasBodyAssigned()) NoInstantiationProcedure(ClassName(), classId);
    TakeListOfModel(classId, limit);
    for (BasicEntity* entity : *mpExpansion)
      if (IsLivingEntity(entity)) Initialise(entity);
    return;
  }
  for (int turn = 0; turn < limit; ++turn) {
    BasicEntity* const entity = NewInstance(classId);
    if (entity == nullptr) continue;
    Initialise(entity);
    mpExpansion->push_back(entity);
  }
}

BasicEntity* EntitySpec::NewInstance(int classId) const {
  if (mHasEntityInstantiator != 0) {
    EntitySpecMethod& instantiator = FunctionOfReferent(ENTITY_INSTANTIATOR);
    if (!instantiator.HasBodyAssigned()) NoInstantiationProcedure(ClassName(), classId);
    instantiator.SetArgValue(CLASSID_ARGUMENT, classId);
    return instantiator.Call<BasicEntity*>();
  }
  if (mReferenceClassName.empty()) {
    if (pApp_NewEntityFromId == nullptr) NoInstantiationProcedure(ClassName(), classId);
    return pApp_NewEntityFromId(classId);
  }
  if (pApp_NewEntityFromString == nullptr) NoInstantiationProcedure(ClassName(), classId);
  return pApp_NewEntityFromString(ReferenceClassName());
}

void EntitySpec::Initialise(BasicEntity* entity) const {
  for (const DescValueSpec* condition : mDescValueSpecTab)
    condition->DrawInto(static_cast<DescriptedEntity*>(entity));
}

// The table held so far is given up and not freed: whoever asked for it may still have it in hand.
void EntitySpec::TakeListOfModel(int classId, int limit) {
  EntitySpecMethod& instantiator = FunctionOfReferent(ENTITYLIST_INSTANTIATOR);
  instantiator.SetArgValue(CLASSID_ARGUMENT, classId);
  instantiator.SetArgValue(LISTSIZE_ARGUMENT, limit);
  auto* const list = instantiator.Call<Tableau<BasicEntity*>*>();
  if (list == nullptr) return;
  static_cast<void>(mpExpansion.release());
  mpExpansion.reset(list);
}
