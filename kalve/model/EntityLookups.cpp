// Counts, lists and lookups of entities by class and name.
#include <cstring>
#include <memory>
#include <unordered_set>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

const MetaClass* InSlot(int classId, const char* service) {
  if (classId < 0 || classId >= gMetaClassTab.size()) FailOnIndex(service, gMetaClassTab.size(), classId);
  return gMetaClassTab[classId];
}

bool IsFree(const BasicEntity& entity) {
  if (IsLivingEntity(entity.GetBasicSuperEntity())) return false;
  for (const BasicEntity* set : entity.GetSuperSetTab())
    if (IsLivingEntity(set)) return false;
  return true;
}

Entity* NamedIn(const MetaClass& metaClass, const char* name) {
  for (BasicEntity* entity : metaClass.Instances())
    if (std::strcmp(entity->InstanceName(), name) == 0) return static_cast<Entity*>(entity);
  return nullptr;
}

}  // namespace

int GetEntityCreations(int classId) {
  const MetaClass* const metaClass = InSlot(classId, " GetEntityCreations");
  return metaClass != nullptr ? metaClass->InstanceCreation() : K_INT_UNSIGNIFICANT;
}

int GetEntityDeletions(int classId) {
  const MetaClass* const metaClass = InSlot(classId, " GetEntityDeletions");
  return metaClass != nullptr ? metaClass->InstanceDeletion() : K_INT_UNSIGNIFICANT;
}

int GetNumberOfEntities(int classId) {
  const MetaClass* const metaClass = GetMetaClass(classId);
  return metaClass != nullptr ? metaClass->InstanceNumber() : K_INT_UNSIGNIFICANT;
}

Tableau<BasicEntity*>* GetEntityList(int classId) {
  if (classId < 0) BadEntityClassSpecification("GetEntityList");
  MetaClass* const metaClass = GetMetaClass(classId);
  return metaClass != nullptr ? metaClass->SharedInstanceTab() : nullptr;
}

Tableau<BasicEntity*>* GetFreeEntityList(int classId) {
  if (classId < 0) BadEntityClassSpecification("GetFreeEntityList");
  if (classId >= gMetaClassTab.size()) return nullptr;
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr) UnknownEntityClass(classId, "GetFreeEntityList");
  auto* const entities = new Tableau<BasicEntity*>();
  for (BasicEntity* entity : metaClass->Instances())
    if (IsFree(*entity)) entities->push_back(entity);
  return entities;
}

Tableau<BasicEntity*>* GetFreeEntityList() {
  auto* const entities = new Tableau<BasicEntity*>();
  std::unordered_set<const BasicEntity*> seen;
  for (const MetaClass* metaClass : gMetaClassTab) {
    if (metaClass == nullptr) continue;
    for (BasicEntity* entity : metaClass->Instances())
      if (IsFree(*entity) && seen.insert(entity).second) entities->push_back(entity);
  }
  return entities;
}

int GetNumberOfFreeEntities(int classId) {
  if (classId < 0 || classId >= gMetaClassTab.size()) return K_INT_UNSIGNIFICANT;
  const std::unique_ptr<Tableau<BasicEntity*>> entities(GetFreeEntityList(classId));
  return entities->size();
}

BasicEntity* GetFirstBasicEntity(int classId) {
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr) UnknownEntityClass(classId, "GetFirstBasicEntity");
  if (metaClass->InstanceNumber() > 0) return metaClass->GetInstance(0);
  EmptyInstanceListForMetaClass(classId);
  return nullptr;
}

DescriptedEntity* GetFirstDescriptedEntity(int classId) {
  return static_cast<DescriptedEntity*>(GetFirstBasicEntity(classId));
}

Entity* GetFirstEntity(int classId) { return static_cast<Entity*>(GetFirstBasicEntity(classId)); }

// The classes of the three layers keep no instances.
Entity* GetNamedEntity(const char* name) {
  for (int id = gMetaClassTab.size(); id-- > KV_ENTITYSPEC;) {
    const MetaClass* const metaClass = GetMetaClass(id);
    Entity* const found = metaClass != nullptr ? NamedIn(*metaClass, name) : nullptr;
    if (found != nullptr) return found;
  }
  return nullptr;
}

Entity* GetNamedEntity(const char* className, const char* name) {
  if (OrEmpty(className)[0] == '\0') return GetNamedEntity(name);
  const int classId = GetClassSymbol(className);
  if (classId < 0) BadEntityClassSpecification(Text("%s(%s)", "GetNamedEntity", className).c_str());
  return GetNamedEntity(classId, name);
}

Entity* GetNamedEntity(int classId, const char* name) {
  if (classId < 0) BadEntityClassSpecification(Text("%s(%d)", "GetNamedEntity", classId).c_str());
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr)
    UnknownEntityClass(classId, Text("%s(%s)", "GetNamedEntity", OrEmpty(name)).c_str());
  return NamedIn(*metaClass, name);
}
