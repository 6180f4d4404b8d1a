// What the registry knows of the living instances: the members of MetaClass that look at entities.
#include <iostream>
#include <memory>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/MetaClass.h"

int EntityRanks::RankOf(const BasicEntity* entity) const { return entity->RankIn(metaClass); }

void EntityRanks::Keep(BasicEntity* entity, int from, int to) const {
  entity->KeepRankIn(metaClass, from, to);
}

void EntityRanks::Forget(BasicEntity* entity, int rank) const { entity->ForgetRankIn(metaClass, rank); }

const MetaClass& MetaClass::operator=(const MetaClass& other) {  // NOLINT: answers its right-hand side
  mClassId = other.mClassId;
  mInstanceNumber = other.mInstanceNumber;
  mInstanceCreation = other.mInstanceCreation;
  mInstanceDeletion = other.mInstanceDeletion;
  mInstanceTab = other.mInstanceTab;
  mUserInstantiable = other.mUserInstantiable;
  mExistsInstanceTab = other.mExistsInstanceTab;
  return other;
}

void MetaClass::AddInstance(BasicEntity* entity) {
  if (mExistsInstanceTab != 0) {
    mInstanceTab.Add(entity);
    ++mInstanceNumber;
  }
  ++mInstanceCreation;
}

void MetaClass::RemoveInstance(BasicEntity* entity) {
  const void* const address = entity;
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\nMetaClass " << this << " (" << mClassName << ")::RemoveInstance " << address << " ";
  if (mExistsInstanceTab != 0) {
    if (!mInstanceTab.Remove(entity)) InexistantInstance("MetaClass::RemoveInstance");
    --mInstanceNumber;
  }
  ++mInstanceDeletion;
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\nsortie MetaClass(" << mClassName << ")::RemoveInstance " << address << " ";
}

BasicEntity* MetaClass::GetInstance(int rank) const {
  BasicEntity* const first = mInstanceTab.First();
  if (first == nullptr) EmptyInstanceListForMetaClass(mClassId, rank);
  if (rank == 0) return first;
  const Tableau<BasicEntity*>& instances = mInstanceTab.Items();
  if (rank < 0 || rank >= instances.size()) FailOnIndex("MetaClass::GetInstance", instances.size(), rank);
  return instances[rank];
}

Tableau<BasicEntity*> MetaClass::InstanceTab() const { return mInstanceTab.Items(); }
const Tableau<BasicEntity*>& MetaClass::Instances() const { return mInstanceTab.Items(); }
Tableau<BasicEntity*>* MetaClass::SharedInstanceTab() { return mInstanceTab.Shared(); }

int FirstCommonAncestorId(const Tableau<BasicEntity*>& entities) {
  if (entities.empty()) return KV_BASIC_ENTITY;
  if (entities.size() == 1) return entities[0]->ClassId();
  Tableau<int> tail = entities[0]->AncestorIds();
  for (int i = 1; i < entities.size() && !tail.empty(); ++i) {
    const std::unique_ptr<Tableau<int>> common(tail.commonTail(entities[i]->AncestorIds()));
    tail = *common;
  }
  return tail.empty() ? KV_BASIC_ENTITY : tail[0];
}
