// What the output specification in charge of an entity hears of it. An entity without a record tells
// nothing, and a record comes only from a specification of the entity's class.
#include <iostream>

#include "kalve/descriptors/Descriptor.h"
#include "kalve/engine/Simulation.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/ChangeStructureItem.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/outputs/OutputFileMDescOS.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

int PresentClock() { return pCurrentSim != nullptr ? pCurrentSim->Clock() : gFinalClock; }

/// A database writer draws nothing, whatever it was asked.
const char* GraphWord(const MultipleDescriptorOS& writer) {
  const bool isText = writer.GetSubClass() == MultipleDescriptorOS::textFile;
  return isText && static_cast<const OutputFileMDescOS&>(writer).GetGraphType() == GRAPH_LINE ? "LINE"
                                                                                              : "POINT";
}

/// Tells the user interface which graphs it will get.
void AnnounceGraphs(const BasicEntity& entity, const MultipleDescriptorOS& writer) {
  constexpr int usualPrecision = 5;
  for (const DescriptorOS* descriptor : writer.GetDescriptorsData()) {
    const MDescOSParticipation* const participation = descriptor->ParticipationIn(&writer);
    std::cout << "DRAW GRAPH " << entity.InstanceName() << " " << descriptor->GetDescName() << " "
              << (participation != nullptr ? participation->GetPrecisionInMDescOS() : usualPrecision) << " "
              << GraphWord(writer) << "\n"
              << std::flush;
  }
}

}  // namespace

void BasicEntity::EquipForOSAccount() {
  for (OutputSpec* listed : EntityOutputSpec::mpInstanceList) {
    if (listed->GetOutputSpecType() != OS_ENTITY) continue;
    auto& spec = *static_cast<EntityOutputSpec*>(listed);
    if (::GetMetaClass(spec.TargetClassId()) == nullptr) continue;
    if (ClassId() == spec.TargetClassId() || mpMetaClass->IsDescendantOf(spec.TargetClassId()))
      ComeUnder(spec);
  }
}

/// A record in another specification gives way, so that the last one that applies has the entity.
void BasicEntity::ComeUnder(EntityOutputSpec& spec) {
  if (EntityInstanceOS* const record = mpEntityInstanceOS) {
    LeaveOutputs();
    record->GetEntityOutputSpec()->RemoveInstanceData(record);
    record->DeleteChanges();
    delete record;
  }
  mCreationSaved = spec.IsCreationSaved();
  mChangeComponentSaved = spec.IsChangeComponentSaved();
  mChangeElementSaved = spec.IsChangeElementSaved();
  mpEntityInstanceOS = new EntityInstanceOS(PresentClock(), &spec);
  mpEntityInstanceOS->SetEntity(this);
  spec.AddInstanceData(mpEntityInstanceOS);
  for (const MultipleDescriptorOS* writer : spec.GetMultipleDescriptorsData())
    if (writer->IsPlotted() != 0) AnnounceGraphs(*this, *writer);
}

void BasicEntity::LeaveOutputs() {
  mpEntityInstanceOS = nullptr;
  mCreationSaved = mChangeComponentSaved = mChangeElementSaved = 0;
  if (mEntityType < KV_DESCRIPTED_ENTITY) return;
  const auto forget = [](Descriptor* descriptor) {
    descriptor->SetDescTimeSeries(nullptr);
    descriptor->IsRecorded(0);
  };
  const auto& self = *static_cast<const DescriptedEntity*>(this);
  for (ConstantDescriptor* descriptor : self.ConstantDescriptorTab()) forget(descriptor);
  for (VariableDescriptor* descriptor : self.VariableDescriptorTab()) forget(descriptor);
}

void BasicEntity::GiveElementItem(BasicEntity* element) {
  if (mChangeElementSaved != 0)
    mpEntityInstanceOS->AddChangeElementData(new ChangeStructureItem(
        element->ClassName(), element->InstanceName(), PresentClock(), mNumberOfElements));
}

void BasicEntity::GiveComponentItem(BasicEntity* component, int number) {
  if (mChangeComponentSaved != 0)
    mpEntityInstanceOS->AddChangeComponentData(
        new ChangeStructureItem(component->ClassName(), component->InstanceName(), PresentClock(), number));
}

void BasicEntity::TellNameToOutputs() {
  if (mpEntityInstanceOS != nullptr) mpEntityInstanceOS->SetEntityInstanceName(InstanceName());
}

void BasicEntity::TellDeletionToOutputs() {
  if (mpEntityInstanceOS == nullptr) return;
  mpEntityInstanceOS->SetDeletionClock(PresentClock());
  mpEntityInstanceOS->SetEntity(nullptr);
}
