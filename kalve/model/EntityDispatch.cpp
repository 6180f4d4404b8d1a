// Copy and delete by layer: nothing in an entity is virtual.
#include <new>

#include "kalve/foundations/CoreException.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"

namespace {

/// The class tells the layer, as far as the entity has it: a copy cut down to a lower layer keeps its class.
bool IsOfLayer(const BasicEntity& entity, int layer) {
  return entity.EntityType() >= layer && entity.IsInstanceOf(layer);
}

template <class... Form>
BasicEntity* Copy(BasicEntity* entity, Form... form) {
  if (entity == nullptr) StrangeEntity("CopyEntity", entity);
  if (IsOfLayer(*entity, KV_ENTITY)) return new Entity(static_cast<const Entity&>(*entity), form...);
  if (IsOfLayer(*entity, KV_DESCRIPTED_ENTITY))
    return new DescriptedEntity(static_cast<const DescriptedEntity&>(*entity), form...);
  if (IsOfLayer(*entity, KV_BASIC_ENTITY)) return new BasicEntity(*entity, form...);
  StrangeEntity("CopyEntity", entity);
}

}  // namespace

BasicEntity* CopyEntity(BasicEntity* entity) { return Copy(entity); }
BasicEntity* CopyEntity(BasicEntity* entity, bool withMonitors) { return Copy(entity, withMonitors); }

// The object may be of an application class: only its allocation knows the size, so it is freed without one.
void DeleteEntity(BasicEntity* entity) {
  switch (entity != nullptr ? entity->EntityType() : K_INT_UNSIGNIFICANT) {
    case KV_BASIC_ENTITY:
      entity->~BasicEntity();
      break;
    case KV_DESCRIPTED_ENTITY:
      static_cast<DescriptedEntity*>(entity)->~DescriptedEntity();
      break;
    case KV_ENTITY:
      static_cast<Entity*>(entity)->~Entity();
      break;
    default:
      StrangeEntity("DeleteEntity", entity);
  }
  ::operator delete(static_cast<void*>(entity));
}
