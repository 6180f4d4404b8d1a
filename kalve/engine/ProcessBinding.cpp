// The entity that a process works on.
#include "kalve/engine/Process.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"

void BadProcessedEntityClass(Process* process, BasicEntity* entity) {
  const int expected = process->ProcessedEntityClassId();
  const int given = entity->ClassId();
  const bool haveNames = HaveClassSymbolNames(expected, given);
  ReportFailure(
      "\n!!!============== BadProcessedEntityClass ==============",
      "\n!!! L'entité '%s' (classe %s) ne peut être gérée par le processus '%s'"
      "\n    (classe attendue : %s).",
      entity->InstanceName(), haveNames ? ClassSymbolText(given).c_str() : std::to_string(given).c_str(),
      process->ClassName(), haveNames ? ClassSymbolText(expected).c_str() : std::to_string(expected).c_str());
}

void Process::ProcessedEntity(BasicEntity* entity) {
  if (entity != nullptr) {
    if (!entity->IsInstanceOf(mProcessedEntityClassId)) BadProcessedEntityClass(this, entity);
    mHasProcessedEntity = 1;
  }
  mProcessedEntity = entity;
}

BasicEntity* Process::ProcessedBasicEntity() {
  if (mHasProcessedEntity == 0 && mHasProcessedEntitySpec == 0) {
    DoNotHaveProcessedEntity(this);
    return nullptr;
  }
  return BoundOrSpecifiedEntity();
}

Entity* Process::ProcessedEntity() {
  if (mHasProcessedEntity == 0 && mHasProcessedEntitySpec == 0 && mProcessedEntityClassId == 0) {
    DoNotHaveProcessedEntity(this);
    return nullptr;
  }
  return static_cast<Entity*>(BoundOrSpecifiedEntity());
}

BasicEntity* Process::BoundOrSpecifiedEntity() {
  if (mProcessedEntity == nullptr) return SpecifiedProcessedBasicEntity();
  return IsLivingEntity(mProcessedEntity) ? mProcessedEntity : nullptr;
}

Entity* Process::SpecifiedProcessedEntity() { return static_cast<Entity*>(SpecifiedProcessedBasicEntity()); }

BasicEntity* Process::SpecifiedProcessedBasicEntity() { return GetFirstBasicEntity(mProcessedEntityClassId); }
