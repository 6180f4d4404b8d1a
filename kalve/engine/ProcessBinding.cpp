// The entity that a process works on.
#include "kalve/engine/Process.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/specs/EntitySpec.h"

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

void BadProcessedEntitySpec(Process* process, int classSymbol) {
  const int expected = process->ProcessedEntityClassId();
  ReportFailure("\n!!!============== BadProcessedEntitySpec ==============",
                "\n!!! Une spécification d'entités de classe %s ne convient pas au processus '%s'."
                "\n    Classe attendue : %s. Un processus gère une seule entité : la spécification"
                "\n    retourne des instances, ou en crée une (quantité 1).",
                ClassSymbolText(classSymbol).c_str(), process->ClassName(),
                ClassSymbolText(expected).c_str());
}

void EntitySpecForProcessedEntityYieldsNone(Process* process, EntitySpec* spec) {
  ReportFailure("\n!!!============== EntitySpecForProcessedEntityYieldsNone ==============",
                "\n!!! La spécification '%s' (classe %s) de l'entité gérée par le processus '%s'"
                "\n    ne donne aucune entité.",
                spec->ClassName(), ClassSymbolText(spec->GetReferenceClassId()).c_str(),
                process->ClassName());
}

void Process::ProcessedEntity(BasicEntity* entity) {
  if (entity != nullptr) {
    if (!entity->IsInstanceOf(mProcessedEntityClassId)) BadProcessedEntityClass(this, entity);
    mHasProcessedEntity = 1;
  }
  mProcessedEntity = entity;
}

void Process::ProcessedEntitySpec(EntitySpec* spec) {
  if (spec != nullptr) {
    const int classId = spec->GetReferenceClassId();
    const bool isOfClass =
        classId == mProcessedEntityClassId || IsAncestorOf(mProcessedEntityClassId, classId);
    const bool isForOne = spec->GetMode() == RETURN_INSTANCES || spec->IntQuantity() == 1;
    if (!isOfClass || !isForOne) BadProcessedEntitySpec(this, classId);
    mHasProcessedEntitySpec = 1;
  }
  mProcessedEntitySpec = spec;
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

BasicEntity* Process::SpecifiedProcessedBasicEntity() {
  if (mProcessedEntitySpec == nullptr) return GetFirstBasicEntity(mProcessedEntityClassId);
  mProcessedEntitySpec->Expand();
  const Tableau<BasicEntity*>& expansion = *mProcessedEntitySpec->GetExpansion();
  if (expansion.empty()) EntitySpecForProcessedEntityYieldsNone(this, mProcessedEntitySpec);
  return expansion[0];
}
