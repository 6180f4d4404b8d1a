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
    if (!entity->IsInstanceOf(mBinding.entityClass)) BadProcessedEntityClass(this, entity);
    mBinding.hasEntity = 1;
  }
  mBinding.entity = entity;
}

void Process::ProcessedEntitySpec(EntitySpec* spec) {
  if (spec != nullptr) {
    const int classId = spec->GetReferenceClassId();
    const bool isOfClass = classId == mBinding.entityClass || IsAncestorOf(mBinding.entityClass, classId);
    const bool isForOne = spec->GetMode() == RETURN_INSTANCES || spec->IntQuantity() == 1;
    if (!isOfClass || !isForOne) BadProcessedEntitySpec(this, classId);
    mBinding.hasSpec = 1;
  }
  mBinding.spec = spec;
}

BasicEntity* Process::ProcessedBasicEntity() {
  if (mBinding.hasEntity == 0 && mBinding.hasSpec == 0) {
    DoNotHaveProcessedEntity(this);
    return nullptr;
  }
  return BoundOrSpecifiedEntity();
}

Entity* Process::ProcessedEntity() {
  if (mBinding.hasEntity == 0 && mBinding.hasSpec == 0 && mBinding.entityClass == 0) {
    DoNotHaveProcessedEntity(this);
    return nullptr;
  }
  return static_cast<Entity*>(BoundOrSpecifiedEntity());
}

BasicEntity* Process::BoundOrSpecifiedEntity() {
  if (mBinding.entity == nullptr) return SpecifiedProcessedBasicEntity();
  return IsLivingEntity(mBinding.entity) ? mBinding.entity : nullptr;
}

Entity* Process::SpecifiedProcessedEntity() { return static_cast<Entity*>(SpecifiedProcessedBasicEntity()); }

BasicEntity* Process::SpecifiedProcessedBasicEntity() {
  if (mBinding.spec == nullptr) return GetFirstBasicEntity(mBinding.entityClass);
  mBinding.spec->Expand();
  const Tableau<BasicEntity*>& expansion = *mBinding.spec->GetExpansion();
  if (expansion.empty()) EntitySpecForProcessedEntityYieldsNone(this, mBinding.spec);
  return expansion[0];
}
