#include "kalve/model/Entity.h"

#include <iostream>

#include "kalve/foundations/TraceSwitches.h"

Entity::Entity() {
  const void* const address = this;
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n+Construction de l'entité " << address;
  SetMetaClass(KV_ENTITY);
  AddInstanceToClass(0);
  SetEntityType(KV_ENTITY);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n+ FIN Construction de l'entité " << address;
}

Entity::Entity(const Entity& source) : DescriptedEntity(source) { BecomeCopyOf(source); }

Entity::Entity(const Entity& source, int depth) : DescriptedEntity(source, depth) { BecomeCopyOf(source); }

Entity::Entity(const Entity& source, bool withMonitors) : DescriptedEntity(source, withMonitors) {
  BecomeCopyOf(source);
}

Entity::Entity(const Entity& source, bool withMonitors, int depth)
    : DescriptedEntity(source, withMonitors, depth) {
  BecomeCopyOf(source);
}

void Entity::BecomeCopyOf(const Entity& source) {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n++copy construction de " << ClassName() << " " << static_cast<const void*>(this) << " <- "
              << static_cast<const void*>(&source);
  SetEntityType(KV_ENTITY);
}

Entity::~Entity() {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n-Destruction de l'entité " << static_cast<const void*>(this) << " (pas de ses éléments)";
}
