// The entities that an event's processes work on.
#include "kalve/engine/Event.h"
#include "kalve/engine/Process.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/model/Entity.h"

/// The process of that class, else the last one.
Process* Event::ProcessOfClass(int processClass) {
  Process* found = nullptr;
  for (StructProcessAction* couple : mListpProcessAction) {
    if (couple->process == nullptr) continue;
    found = couple->process;
    if (found->ClassSymbol() == processClass) break;
  }
  if (found == nullptr) UnfoundProcessInEvent(this, processClass);
  return found;
}

BasicEntity* Event::ProcessedBasicEntity(int processClass) {
  Process* process = ProcessOfClass(processClass);
  const bool isBound = process->HasProcessedEntity() != 0 || process->HasProcessedEntitySpec() != 0;
  return isBound ? process->ProcessedBasicEntity() : nullptr;
}

Entity* Event::ProcessedEntity(int processClass) {
  return static_cast<Entity*>(ProcessedBasicEntity(processClass));
}

void Event::ProcessedEntity(int processClass, BasicEntity* entity) {
  Process* process = ProcessOfClass(processClass);
  if (process->ClassSymbol() != processClass) UnfoundProcessInEvent(this, processClass);
  if (!entity->IsInstanceOf(process->ProcessedEntityClassId())) BadProcessedEntityClass(process, entity);
  process->ProcessedEntity(entity);
  process->HasProcessedEntity(1);
}
