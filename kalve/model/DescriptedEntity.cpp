#include "kalve/model/DescriptedEntity.h"

#include <iostream>

#include "kalve/foundations/TraceSwitches.h"

namespace {

void Trace(const char* text, const DescriptedEntity* entity) {
  if (g_KV_TraceNewDelMode != 0) std::cout << text << static_cast<const void*>(entity);
}

}  // namespace

DescriptedEntity::DescriptedEntity() {
  Trace("\n+Construction de l'entité avec descripteurs ", this);
  SetMetaClass(KV_DESCRIPTED_ENTITY);
  AddInstanceToClass(0);
  SetEntityType(KV_DESCRIPTED_ENTITY);
  Trace("\n+ FIN Construction de l'entité avec descripteurs ", this);
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source) : BasicEntity(source) { BecomeCopy(); }

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source, int depth) : BasicEntity(source, depth) {
  BecomeCopy();
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source, bool withMonitors)
    : BasicEntity(source, withMonitors) {
  BecomeCopy();
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source, bool withMonitors, int depth)
    : BasicEntity(source, withMonitors, depth) {
  BecomeCopy();
}

void DescriptedEntity::BecomeCopy() {
  Trace("\n++copy construction de DescriptedEntity ", this);
  SetEntityType(KV_DESCRIPTED_ENTITY);
}

DescriptedEntity::~DescriptedEntity() { Trace("\n-Destruction de l'entité à descripteurs ", this); }
