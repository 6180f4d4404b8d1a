// Methods by the names of their owner and their own.
#include <cstring>

#include "kalve/engine/EngineLookups.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Process.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/Method.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

/// A lower layer has no methods.
bool HasMethods(const BasicEntity& entity) { return entity.EntityType() == KV_ENTITY; }

}  // namespace

Method* GetNamedMethod(ObjectClassId kind, const char* instance, const char* method) {
  if (kind == KV_EVENT) {
    const Event* const event = GetNamedEvent(instance);
    return event != nullptr ? event->GetMethod(method) : nullptr;
  }
  if (kind == KV_PROCESS) {
    const Process* const process = GetNamedProcess(instance);
    return process != nullptr ? process->GetMethod(method) : nullptr;
  }
  if (kind != KV_ENTITY) return nullptr;
  const Entity* const entity = GetNamedEntity(instance);
  if (entity == nullptr) UnfoundEntityBasedOnInstanceName("GetNamedMethod", instance);
  return HasMethods(*entity) ? entity->GetMethod(method) : nullptr;
}

int GetMethodSymbol(int classId, const char* name) {
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr || metaClass->InstanceNumber() < 1) return K_INT_UNSIGNIFICANT;
  const BasicEntity* const first = metaClass->GetInstance(0);
  if (!HasMethods(*first)) return K_INT_UNSIGNIFICANT;
  for (const Method* method : static_cast<const Entity*>(first)->MethodTab())
    if (std::strcmp(OrEmpty(method->StoredClassName()), OrEmpty(name)) == 0) return method->ClassSymbol();
  return K_INT_UNSIGNIFICANT;
}
