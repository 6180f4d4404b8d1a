// The dumps at the end of a run.
#include <unordered_map>

#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/ChangeStructureItem.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/outputs/MultipleDescriptorOS.h"
#include "kalve/outputs/OutputSpec.h"
#include "kalve/outputs/OutputText.h"

// All -----------------------------------------------------------------------------------------------------

void DisplayAllOutputSpecs() {
  DisplayEntityOutputSpecs(KV_BASIC_ENTITY);
  DisplayProcessOutputSpecs();
  DisplayCProcessOutputSpecs();
  DisplayDProcessOutputSpecs();
  DisplayEventOutputSpecs();
}

void DisplayEntityOutputSpecs(int classId) {
  for (OutputSpec* listed : EntityOutputSpec::mpInstanceList) {
    auto* const spec = static_cast<EntityOutputSpec*>(listed);
    const MetaClass* const target = GetMetaClass(spec->TargetClassId());
    if (classId >= KV_ENTITYSPEC && (target == nullptr || !target->IsDescendantOf(classId))) continue;
    spec->DisplayStructureChangesOneOS();
    spec->DisplayDescValueChangesOneOS();
  }
}

namespace {

void DisplayProcesses(bool (ProcessOutputSpec::*isMeant)() const, void (ProcessOutputSpec::*display)()) {
  for (OutputSpec* listed : ProcessOutputSpec::mpInstanceList) {
    auto* const spec = static_cast<ProcessOutputSpec*>(listed);
    if ((spec->*isMeant)() && spec->IsSaved() != 0) (spec->*display)();
  }
}

}  // namespace

void DisplayProcessOutputSpecs() {
  DisplayProcesses(&ProcessOutputSpec::IsPOutputSpec, &ProcessOutputSpec::DisplayOneOS);
}

void DisplayCProcessOutputSpecs() {
  DisplayProcesses(&ProcessOutputSpec::IsCPOutputSpec, &ProcessOutputSpec::DisplayOneCPOS);
}

void DisplayDProcessOutputSpecs() {
  DisplayProcesses(&ProcessOutputSpec::IsDPOutputSpec, &ProcessOutputSpec::DisplayOneDPOS);
}

void DisplayEventOutputSpecs() {
  for (OutputSpec* listed : EventOutputSpec::mpInstanceList) {
    auto* const spec = static_cast<EventOutputSpec*>(listed);
    if (spec->IsSaved() != 0) spec->DisplayOneOS();
  }
}

// Structure -----------------------------------------------------------------------------------------------

namespace {

/// A line: its words, the date, and what comes behind.
void AddLine(std::string& text, const std::string& words, int clock, TimeType timeType,
             const std::string& tail = "") {
  text += words;
  AppendDateFromClock(text, clock, timeType);
  text += tail + '\n';
}

void AddComponentLines(std::string& text, const EntityInstanceOS& instance, TimeType timeType) {
  for (const ChangeStructureItem* item : instance.GetChangeComponentList())
    AddLine(text,
            item->GetResultingNumber() != 0
                ? Text("%s ajout   composant %s (classe %s) date : ", instance.GetEntityInstanceName(),
                       item->GetInstanceName(), item->GetClassName())
                : Text("%s retrait composant %s (classe %s) date : ", instance.GetEntityInstanceName(),
                       item->GetInstanceName(), item->GetClassName()),
            item->GetClock(), timeType);
}

void AddElementLines(std::string& text, const EntityInstanceOS& instance, TimeType timeType) {
  for (const ChangeStructureItem* item : instance.GetChangeElementList())
    AddLine(text,
            Text("%sajout/retrait élément %s (classe %s) date : ", instance.GetEntityInstanceName(),
                 item->GetInstanceName(), item->GetClassName()),
            item->GetClock(), timeType, Text(" (-> %d)", item->GetResultingNumber()));
}

}  // namespace

void EntityOutputSpec::DisplayStructureChangesOneOS() {
  std::string creations;
  std::string components;
  std::string elements;
  for (const EntityInstanceOS* instance : mInstancesData) {
    if (mIsCreationSaved != 0)
      AddLine(creations, Text("%s création à la date ", instance->GetEntityInstanceName()),
              instance->GetCreationClock(), GetTimeType());
    if (mIsChangeComponentSaved != 0) AddComponentLines(components, *instance, GetTimeType());
    if (mIsChangeElementSaved != 0) AddElementLines(elements, *instance, GetTimeType());
  }
  if (mIsCreationSaved != 0) WriteAtProcessEnd(mCreationOutputFile, creations);
  if (mIsChangeComponentSaved != 0) WriteAtProcessEnd(mChangeComponentOutputFile, components);
  if (mIsChangeElementSaved != 0) WriteAtProcessEnd(mChangeElementOutputFile, elements);
}

// Series --------------------------------------------------------------------------------------------------

namespace {

bool KeepsFinalValues(const MultipleDescriptorOS& writer) {
  return writer.IsSaved() != 0 && writer.GetAllOrFinal() == AOE_END;
}

/// Records the stored value at the present clock, as a change to itself. Only numbers and texts have it.
void RecordFinalPoint(Descriptor& descriptor) {
  descriptor.IsRecorded(1);
  VisitDescriptor(descriptor, []<class Class>(Class& changed) {
    if constexpr (Class::type == INT || Class::type == FLOAT || Class::type == DOUBLE ||
                  Class::type == STRING) {
      if constexpr (Class::branch == CONSTANT) {
        changed.SetValue(changed.GetValue());
        changed.RecordPresentValue(pCurrentSim != nullptr ? pCurrentSim->Clock() : gFinalClock);
      } else {
        changed.SetValue(changed.GetValue(0));
      }
    }
  });
}

/// The first living instance of each name.
std::unordered_map<std::string, BasicEntity*> InstancesByName(const MetaClass* metaClass) {
  std::unordered_map<std::string, BasicEntity*> instances;
  if (metaClass != nullptr)
    for (BasicEntity* entity : metaClass->Instances()) instances.emplace(entity->InstanceName(), entity);
  return instances;
}

/// The descriptors are those of the whole specification, whatever the writer's columns are.
void RecordFinalPoints(const EntityOutputSpec& spec) {
  int finalWriters = 0;
  for (const MultipleDescriptorOS* writer : spec.GetMultipleDescriptorsData())
    if (KeepsFinalValues(*writer)) ++finalWriters;
  if (finalWriters == 0) return;
  const auto instances = InstancesByName(GetMetaClass(spec.TargetClassId()));
  for (const EntityInstanceOS* instance : spec.GetInstancesData()) {
    const auto found = instances.find(instance->GetEntityInstanceName());
    if (found == instances.end()) continue;
    for (int i = 0; i < finalWriters; ++i)
      for (const DescriptorOS* named : spec.GetDescriptorsData()) {
        BasicEntity* const entity = found->second;  // a monitor may delete it
        if (!IsLivingEntity(entity) || entity->EntityType() < KV_DESCRIPTED_ENTITY) continue;
        RecordFinalPoint(*static_cast<DescriptedEntity*>(entity)->GetDescriptor(named->GetDescName()));
      }
  }
}

}  // namespace

void EntityOutputSpec::DisplayDescValueChangesOneOS() {
  RecordFinalPoints(*this);
  for (MultipleDescriptorOS* writer : mMultipleDescriptorsData)
    if (writer->IsSaved() != 0) writer->DisplayTimeSeries();
}

// Events and processes ------------------------------------------------------------------------------------

void EventOutputSpec::DisplayOneOS() {
  OutputText out(mOutputFile);
  for (const StructEventData* occurrence : mOccurrences) {
    std::string& line = out.Line();
    line += Text("%s ", OrEmpty(occurrence->mClassName));
    AppendDateFromClock(line, occurrence->mPopClock, GetTimeType());
    out.EndLine();
  }
}

namespace {

void AddContinuous(std::string& line, const StructProcessData& occurrence, TimeType timeType) {
  line += Text("cont %s ", OrEmpty(occurrence.mClassName));
  AppendDateFromClock(line, occurrence.mInitOrExecClock, timeType);
  line += ' ';
  AppendDateFromClock(line, occurrence.mStopOrVoidClock, timeType);
  line += ' ' + occurrence.mProcessedEntityInstanceName;
}

void AddDiscrete(std::string& line, const StructProcessData& occurrence, TimeType timeType,
                 const char* stopped = "") {
  line += Text("disc %s %s", OrEmpty(occurrence.mClassName), stopped);
  AppendDateFromClock(line, occurrence.mInitOrExecClock, timeType);
  line += ' ' + occurrence.mProcessedEntityInstanceName;
}

}  // namespace

void ProcessOutputSpec::DisplayOneOS() {
  OutputText out(mOutputFile);
  for (const StructProcessData* occurrence : mOccurrences) {
    if (occurrence->mClassType == DISCRETE_PROCESS)
      AddDiscrete(out.Line(), *occurrence, GetTimeType(), "-9 -9 ");
    else
      AddContinuous(out.Line(), *occurrence, GetTimeType());
    out.EndLine();
  }
}

void ProcessOutputSpec::DisplayOneCPOS() {
  OutputText out(mOutputFile);
  for (const StructProcessData* occurrence : mOccurrences) {
    AddContinuous(out.Line(), *occurrence, GetTimeType());
    out.EndLine();
  }
}

void ProcessOutputSpec::DisplayOneDPOS() {
  OutputText out(mOutputFile);
  for (const StructProcessData* occurrence : mOccurrences) {
    AddDiscrete(out.Line(), *occurrence, GetTimeType());
    out.EndLine();
  }
}
