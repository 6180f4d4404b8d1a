// Walks over the structure around an entity: down through components and elements, up through super-sets and
// super-entities.
#include <cstring>
#include <unordered_set>

#include "kalve/foundations/CoreException.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

Tableau<BasicEntity*> LivingOnes(const Tableau<BasicEntity*>& partners) {
  Tableau<BasicEntity*> living(partners.size());
  for (BasicEntity* partner : partners)
    if (IsLivingEntity(partner)) living.push_back(partner);
  return living;
}

bool IsOfClassOrBelow(const BasicEntity& entity, int classId) {
  return entity.ClassId() == classId || entity.GetMetaClassInstance()->IsDescendantOf(classId);
}

template <class Matches>
Entity* FirstMatch(const Tableau<BasicEntity*>& entities, Matches matches) {
  for (BasicEntity* entity : entities)
    if (matches(*entity)) return static_cast<Entity*>(entity);
  return nullptr;
}

/// What matches among the direct elements, or else among those of a class below.
template <class Matches>
Entity* FirstElementBelow(const BasicEntity& entity, const Tableau<BasicEntity*>& elements, int classId,
                          Matches matches) {
  Entity* const direct = FirstMatch(elements, matches);
  return direct != nullptr ? direct : FirstMatch(entity.GetDepthElementTab(classId), matches);
}

auto IsOfClass(int classId, bool exactly) {
  return [=](const BasicEntity& entity) {
    return exactly ? entity.ClassId() == classId : IsOfClassOrBelow(entity, classId);
  };
}

}  // namespace

// Partners ------------------------------------------------------------------------------------------------

Tableau<BasicEntity*> BasicEntity::LivingElements() const { return LivingOnes(mElementTab.Entries()); }
Tableau<BasicEntity*> BasicEntity::LivingComponents() const { return LivingOnes(mComponentTab); }
Tableau<BasicEntity*> BasicEntity::LivingSuperSets() const { return LivingOnes(mSuperSetTab.Entries()); }

BasicEntity* BasicEntity::LivingSuperEntity() const {
  return mHasSuperEntity != 0 && IsLivingEntity(mpSuperEntity) ? mpSuperEntity : nullptr;
}

/// The super-sets, or without any the super-entity.
Tableau<BasicEntity*> BasicEntity::LivingContainers() const {
  Tableau<BasicEntity*> containers = LivingSuperSets();
  if (containers.empty() && LivingSuperEntity() != nullptr) containers.push_back(LivingSuperEntity());
  return containers;
}

// Down ----------------------------------------------------------------------------------------------------

void BasicEntity::GatherComponents(int classId, Tableau<BasicEntity*>& result) const {
  for (BasicEntity* component : LivingComponents()) {
    if (component->ClassId() == classId) {
      result.push_back(component);
      break;
    }
    component->GatherComponents(classId, result);
  }
  for (const BasicEntity* element : LivingElements()) element->GatherComponents(classId, result);
}

Tableau<BasicEntity*> BasicEntity::GetDepthComponentTab(int classId) const {
  Tableau<BasicEntity*> result;
  GatherComponents(classId, result);
  return result;
}

void BasicEntity::GetDepthComponentTab(int classId, Tableau<BasicEntity*>& result) const {
  result = GetDepthComponentTab(classId);
}

// What is below an entity that was walked before is in the result already.
Tableau<BasicEntity*> BasicEntity::GetDepthElementTab(int classId) const {
  Tableau<BasicEntity*> result;
  std::unordered_set<const BasicEntity*> gathered;
  std::unordered_set<const BasicEntity*> walked;
  const auto walk = [&](const auto& self, const BasicEntity& entity) -> void {
    if (!walked.insert(&entity).second) return;
    const Tableau<BasicEntity*> elements = entity.LivingElements();
    for (BasicEntity* element : elements) {
      if (IsOfClassOrBelow(*element, classId) && gathered.insert(element).second) result.push_back(element);
      self(self, *element);
    }
    if (!elements.empty()) return;
    for (const BasicEntity* component : entity.LivingComponents()) self(self, *component);
  };
  walk(walk, *this);
  return result;
}

void BasicEntity::GetDepthElementTab(int classId, Tableau<BasicEntity*>& result) const {
  result = GetDepthElementTab(classId);
}

bool BasicEntity::HasAsElement(int classId) const {
  for (const BasicEntity* element : LivingElements())
    if (element->IsInstanceOf(classId) || element->HasAsElement(classId)) return true;
  return false;
}

bool BasicEntity::HasAsElement(BasicEntity* element) const {
  const Tableau<BasicEntity*> elements = LivingElements();
  if (elements.position(element) >= 0) return true;
  for (const BasicEntity* other : elements)
    if (other->HasAsElement(element)) return true;
  return false;
}

Entity* BasicEntity::GetDepthNamedElement(const char* name) const {
  Entity* const found =
      FirstElementBelow(*this, LivingElements(), KV_BASIC_ENTITY,
                        [=](const BasicEntity& e) { return std::strcmp(e.InstanceName(), name) == 0; });
  if (found == nullptr) NoNamedElement(this, name);
  return found;
}

Entity* BasicEntity::GetDepthClassNamedElement(const char* className) const {
  Entity* const found =
      FirstElementBelow(*this, LivingElements(), KV_BASIC_ENTITY,
                        [=](const BasicEntity& e) { return std::strcmp(e.ClassName(), className) == 0; });
  if (found == nullptr) NoNamedElement(this, className);
  return found;
}

Entity* BasicEntity::GetDepthClassNamedElement(int id) const {
  Entity* const found = FirstElementBelow(*this, LivingElements(), id, IsOfClass(id, true));
  if (found == nullptr) NoClassNamedElement(this, id);
  return found;
}

// Up ------------------------------------------------------------------------------------------------------

template <class Matches>
void BasicEntity::GatherContainers(Matches matches, bool goesOnAboveMatches,
                                   Tableau<BasicEntity*>& result) const {
  for (BasicEntity* container : LivingContainers()) {
    const bool isMatch = matches(*container);
    if (isMatch) result.push_back(container);
    if (!isMatch || goesOnAboveMatches) container->GatherContainers(matches, goesOnAboveMatches, result);
  }
}

Tableau<BasicEntity*>* BasicEntity::GetContainerTab(int classId) const {
  auto* const result = new Tableau<BasicEntity*>();
  GatherContainers(IsOfClass(classId, false), true, *result);
  return result;
}

Tableau<BasicEntity*>* BasicEntity::GetContainerTab(int classId, int exact) const {
  auto* const result = new Tableau<BasicEntity*>();
  GatherContainers(IsOfClass(classId, exact != 0), false, *result);
  return result;
}

// Each super-set overwrites the answer of the one before.
template <class Matches>
BasicEntity* BasicEntity::LastContainer(Matches matches) const {
  BasicEntity* last = nullptr;
  for (BasicEntity* container : LivingContainers())
    last = matches(*container) ? container : container->LastContainer(matches);
  return last;
}

Entity* BasicEntity::GetFirstContainer(int classId, int exact) const {
  return static_cast<Entity*>(LastContainer(IsOfClass(classId, exact != 0)));
}

Entity* BasicEntity::GetSimulatedContainerEntity() const {
  return static_cast<Entity*>(
      LastContainer([](const BasicEntity& container) { return container.mpSimulation != nullptr; }));
}
