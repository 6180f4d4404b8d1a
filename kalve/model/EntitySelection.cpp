// Selections in tables of entities. What has died is passed over.
#include <cstring>
#include <unordered_set>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/model/MetaClass.h"

namespace {

bool IsItself(const char* scope) { return std::strcmp(OrEmpty(scope), "itself") == 0; }

}  // namespace

BasicEntity* SelectBasicEntity(const Tableau<BasicEntity*>& entities, int classId, const char* scope) {
  for (BasicEntity* entity : entities) {
    if (!IsLivingEntity(entity)) continue;
    const bool isOfAncestor = !IsItself(scope) && IsAncestorOf(entity->ClassId(), classId);
    if (entity->ClassId() == classId || isOfAncestor) return entity;
  }
  return nullptr;
}

Tableau<BasicEntity*>* SelectBasicEntities(const Tableau<BasicEntity*>& entities, int classId,
                                           const char* scope) {
  auto* const selected = new Tableau<BasicEntity*>();
  for (BasicEntity* entity : entities) {
    if (!IsLivingEntity(entity)) continue;
    if (IsItself(scope) ? entity->IsDirectInstanceOf(classId) : entity->IsInstanceOf(classId))
      selected->push_back(entity);
  }
  return selected;
}

BasicEntity* CommonElementInSeveralEntities(Tableau<BasicEntity*>* entities) {
  if (entities == nullptr) return nullptr;
  std::unordered_set<BasicEntity*> seen;
  for (const BasicEntity* entity : *entities) {
    if (!IsLivingEntity(entity)) continue;
    BasicEntity* common = nullptr;
    const Tableau<BasicEntity*> elements = entity->GetDepthElementTab(KV_BASIC_ENTITY);
    for (BasicEntity* element : elements)
      if (seen.contains(element)) common = element;
    if (common != nullptr) return common;
    seen.insert(elements.begin(), elements.end());
  }
  return nullptr;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): applications rely on the table by value.
Tableau<DescriptedEntity*>* EntityTabToDescriptedEntityTab(Tableau<BasicEntity*> entities) {
  auto* const described = new Tableau<DescriptedEntity*>(entities.size());
  for (BasicEntity* entity : entities) {
    if (!IsLivingEntity(entity)) continue;
    if (entity->EntityType() == KV_BASIC_ENTITY) BadEntityTypeInOrderToSort(entities);
    described->push_back(static_cast<DescriptedEntity*>(entity));
  }
  return described;
}
