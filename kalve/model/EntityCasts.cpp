// The questions that answer the upper layer of an entity: the same pointers as those of the basic forms. An
// entity of a lower layer comes back as an Entity* that only its own layer's members may be called on.
#include <cstring>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/methods/Method.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/Entity.h"

namespace {

Entity* Cast(BasicEntity* entity) { return static_cast<Entity*>(entity); }

template <class Matches>
Entity* FirstLiving(const Tableau<BasicEntity*>& entities, Matches matches) {
  for (BasicEntity* entity : entities)
    if (IsLivingEntity(entity) && matches(*entity)) return Cast(entity);
  return nullptr;
}

}  // namespace

Entity* BasicEntity::GetComponent(int id) const { return Cast(GetBasicComponent(id)); }
Entity* BasicEntity::GetComponent(int id, int strict) const { return Cast(GetBasicComponent(id, strict)); }
Entity* BasicEntity::GetComponent(const char* className) const { return Cast(GetBasicComponent(className)); }
Entity* BasicEntity::GetSuperEntity() const { return Cast(mpSuperEntity); }
Entity* BasicEntity::GetElement() const { return Cast(GetBasicElement()); }
Entity* BasicEntity::GetElement(int rank) const { return Cast(GetBasicElement(rank)); }
Entity* BasicEntity::GetSuperSet() const { return Cast(GetBasicSuperSet()); }
Entity* BasicEntity::GetSuperSet(int rank) const { return Cast(GetBasicSuperSet(rank)); }

Entity* BasicEntity::GetLastElement() const {
  CheckTakesElements("BasicEntity::GetLastElement()");
  if (!mElementTab.empty()) return Cast(mElementTab[mElementTab.size() - 1]);
  NoElement(this);
  return nullptr;
}

Entity* BasicEntity::GetNamedElement(const char* name) const {
  CheckTakesElements("BasicEntity::GetNamedElement(nom)");
  Entity* const found = FirstLiving(
      mElementTab.Entries(), [&](const BasicEntity& e) { return std::strcmp(e.InstanceName(), name) == 0; });
  if (found == nullptr) NoNamedElement(this, name);
  return found;
}

Entity* BasicEntity::GetClassNamedElement(const char* className) const {
  CheckTakesElements("BasicEntity::GetClassNamedElement(nom)");
  Entity* const found = FirstLiving(mElementTab.Entries(), [&](const BasicEntity& e) {
    return std::strcmp(e.ClassName(), className) == 0;
  });
  if (found == nullptr) NoNamedElement(this, className);
  return found;
}

Entity* BasicEntity::GetClassNamedElement(int id) const {
  CheckTakesElements("BasicEntity::GetClassNamedElement(id)");
  Entity* const found =
      FirstLiving(mElementTab.Entries(), [&](const BasicEntity& e) { return e.ClassId() == id; });
  if (found == nullptr) NoClassNamedElement(this, id);
  return found;
}

Entity* DescriptedEntity::GetEntityValue(int id) const { return Cast(GetBasicEntityValue(id)); }
Entity* DescriptedEntity::GetEntityValue(int id, Boolean trigger) const {
  return Cast(TriggeredAccess<EntityRow>::Get(*this, id, trigger, "GetEntityValue"));
}
Entity* DescriptedEntity::GetEntityVarValue(int id) const { return Cast(GetBasicEntityVarValue(id)); }
Entity* DescriptedEntity::GetEntityVarValue(int id, Boolean trigger) const {
  return Cast(GetBasicEntityVarValue(id, trigger));
}
Entity* DescriptedEntity::GetEntityConstValue(int id) const { return Cast(GetBasicEntityConstValue(id)); }

Entity* Method::GetEntityArgValue(int id) { return Cast(GetBasicEntityArgValue(id)); }

Entity* Simulation::SimulatedEntity() const { return Cast(SimulatedBasicEntity()); }
