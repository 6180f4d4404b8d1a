#include "kalve/outputs/OutputSpec.h"

#include <cstdio>
#include <cstring>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/ChangeStructureItem.h"
#include "kalve/model/MetaClass.h"
#include "kalve/outputs/DescTimeSeries.h"

int OutputSpec::mInstanceNumber = 0;
int OutputSpec::_nbConst = 0;
int OutputSpec::_nbDest = 0;

// Records -------------------------------------------------------------------------------------------------

const MDescOSParticipation* DescriptorOS::ParticipationIn(const MultipleDescriptorOS* writer) const {
  for (const MDescOSParticipation* participation : mParticipations)
    if (participation->GetMDescOS() == writer) return participation;
  return nullptr;
}

EntityInstanceOS::~EntityInstanceOS() {
  for (DescTimeSeries* series : mDescTimeSeriesTab) delete series;
}

void EntityInstanceOS::DeleteChanges() {
  for (Liste<ChangeStructureItem*>* changes : {&mChangeComponentList, &mChangeElementList}) {
    for (ChangeStructureItem* item : *changes) delete item;
    changes->erase();
  }
}

bool EntityInstanceOS::ExistsDTS(const char* name) const {
  for (const DescTimeSeries* series : mDescTimeSeriesTab)
    if (std::strcmp(series->GetDescriptorOS()->GetDescName(), name) == 0) return true;
  return false;
}

// Specifications ------------------------------------------------------------------------------------------

OutputSpec::OutputSpec(OutputSpecType type, const char* targetClassName, TimeType timeType)
    : mTimeType(timeType), mTargetClassName(targetClassName), mOutputSpecType(type) {
  ++_nbConst;
  ++mInstanceNumber;
}

namespace {

constexpr const char* allEvents = "all_eventClasses";
constexpr const char* allProcesses = "all_processClasses";

bool Targets(const OutputSpec* spec, const char* className) {
  return std::strcmp(spec->TargetClassName(), OrEmpty(className)) == 0;
}

template <class Spec>
Spec* LastInCharge(const char* className, const char* all) {
  OutputSpec* found = nullptr;
  for (OutputSpec* spec : Spec::mpInstanceList) {
    const bool isOfAll = Targets(spec, all);
    if (isOfAll || Targets(spec, className)) found = spec;
    if (isOfAll) break;
  }
  return static_cast<Spec*>(found);
}

}  // namespace

void OutputSpec::TargetClassName(const char* name) {
  mTargetClassName = name;
  if (mTargetClassName == allProcesses) mOutputSpecType = OS_PROCESS;
}

template <>
Liste<OutputSpec*> ListedOutputSpec<EntityOutputSpec>::mpInstanceList{};
template <>
Liste<OutputSpec*> ListedOutputSpec<EventOutputSpec>::mpInstanceList{};
template <>
Liste<OutputSpec*> ListedOutputSpec<ProcessOutputSpec>::mpInstanceList{};

template <class Spec>
void ListedOutputSpec<Spec>::PushBackInstanceList(OutputSpec* spec) {
  for (const OutputSpec* listed : mpInstanceList)
    if (listed == spec) return;
  mpInstanceList.push_back(spec);
}

template <class Spec>
void ListedOutputSpec<Spec>::DisplayInstanceList() {
  for (const OutputSpec* spec : mpInstanceList) std::printf("%s ", spec->TargetClassName());
  std::printf("\n");
}

template class ListedOutputSpec<EntityOutputSpec>;
template class ListedOutputSpec<EventOutputSpec>;
template class ListedOutputSpec<ProcessOutputSpec>;

// Entities ------------------------------------------------------------------------------------------------

EntityOutputSpec::EntityOutputSpec(const char* targetClassName, TimeType timeType, int isCreationSaved,
                                   int isChangeComponentSaved, int isChangeElementSaved,
                                   OutputFile* creationFile, OutputFile* changeComponentFile,
                                   OutputFile* changeElementFile)
    : ListedOutputSpec(OS_ENTITY, targetClassName, timeType),
      mTargetClassId(GetClassSymbol(targetClassName)),
      mIsCreationSaved(isCreationSaved),
      mIsChangeComponentSaved(isChangeComponentSaved),
      mIsChangeElementSaved(isChangeElementSaved),
      mCreationOutputFile(creationFile),
      mChangeComponentOutputFile(changeComponentFile),
      mChangeElementOutputFile(changeElementFile) {}

// From the end: the record that goes is mostly that of an entity just made.
bool EntityOutputSpec::RemoveInstanceData(EntityInstanceOS* instance) {
  for (Cell<EntityInstanceOS*>* cell = mInstancesData.TailCell(); cell != nullptr;
       cell = cell->GetPreviousCell()) {
    if (cell->GetItem() != instance) continue;
    mInstancesData.set_currentCell(cell);
    mInstancesData.remove_current();
    return true;
  }
  return false;
}

DescriptorOS* EntityOutputSpec::GetDescriptorOS(const char* name) const {
  for (DescriptorOS* descriptor : mDescriptorsData)
    if (std::strcmp(descriptor->GetDescName(), name) == 0) return descriptor;
  return nullptr;
}

void EntityOutputSpec::AddDescriptorOSIfNew(DescriptorOS* descriptor) {
  if (GetDescriptorOS(descriptor->GetDescName()) == nullptr) mDescriptorsData.push_back(descriptor);
}

EntityOutputSpec* EntityOutputSpec::GetCreationDateOS(const char* className) {
  for (OutputSpec* listed : mpInstanceList) {
    auto* const spec = static_cast<EntityOutputSpec*>(listed);
    if (Targets(spec, className) && spec->mIsCreationSaved != 0) return spec;
  }
  return nullptr;
}

EntityOutputSpec* EntityOutputSpec::OfClass(const char* className) {
  for (OutputSpec* spec : mpInstanceList)
    if (Targets(spec, className)) return static_cast<EntityOutputSpec*>(spec);
  return nullptr;
}

// Events --------------------------------------------------------------------------------------------------

EventOutputSpec::EventOutputSpec(const char* targetClassName, TimeType timeType, OutputFile* file)
    : ListedOutputSpec(OS_EVENT, targetClassName, timeType), mOutputFile(file) {}

EventOutputSpec::~EventOutputSpec() {
  for (StructEventData* occurrence : mOccurrences) delete occurrence;
}

void EventOutputSpec::AddOccurrenceData(const char* className, int clock) {
  mOccurrences.push_back(new StructEventData{className, clock});
}

EventOutputSpec* EventOutputSpec::InChargeOf(const char* className) {
  return LastInCharge<EventOutputSpec>(className, allEvents);
}

// Processes -----------------------------------------------------------------------------------------------

ProcessOutputSpec::ProcessOutputSpec(OutputSpecType type, const char* targetClassName, TimeType timeType,
                                     OutputFile* file)
    : ListedOutputSpec(type, targetClassName, timeType), mOutputFile(file) {}

ProcessOutputSpec::ProcessOutputSpec(const char* targetClassName, TimeType timeType, OutputFile* file)
    : ProcessOutputSpec(OS_PROCESS, targetClassName, timeType, file) {}

ProcessOutputSpec::~ProcessOutputSpec() {
  for (StructProcessData* occurrence : mOccurrences) delete occurrence;
}

void ProcessOutputSpec::AddOccurrenceData(ProcessSubclassId subclass, const char* className,
                                          int instanceNumber, int clock, const char* entityName) {
  auto* const occurrence = new StructProcessData{subclass, className,           instanceNumber,
                                                 clock,    K_INT_UNSIGNIFICANT, OrEmpty(entityName)};
  mOccurrences.push_back(occurrence);
  mFirstOccurrences.emplace(instanceNumber, occurrence);
}

void ProcessOutputSpec::AddOccurrenceData(int instanceNumber, int /*clock*/) {
  const auto found = mFirstOccurrences.find(instanceNumber);
  if (found != mFirstOccurrences.end()) found->second->mStopOrVoidClock = pCurrentSim->Clock();
}

ProcessOutputSpec* ProcessOutputSpec::InChargeOf(const char* className) {
  return LastInCharge<ProcessOutputSpec>(className, allProcesses);
}
