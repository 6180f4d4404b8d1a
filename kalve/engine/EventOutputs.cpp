// What the output specifications hear of events and processes. A recorded flag without a specification
// records nothing.
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/model/Entity.h"
#include "kalve/outputs/OutputSpec.h"

void Event::ClassName(const char* name) {
  mClassName = name;
  if (!EventOutputSpec::AreOutputSpec()) return;
  EventOutputSpec* const spec = EventOutputSpec::InChargeOf(name);
  if (spec == nullptr) return;
  mMarks.isRecorded = 1;
  mMarks.outputSpec = spec;
}

void Event::RecordPop() const {
  if (mMarks.isRecorded != 0 && mMarks.outputSpec != nullptr)
    mMarks.outputSpec->AddOccurrenceData(mClassName, mTerms.clock);
}

void Process::ClassName(const char* name) {
  mClassName = name;
  if (!ProcessOutputSpec::AreOutputSpec()) return;
  ProcessOutputSpec* const spec = ProcessOutputSpec::InChargeOf(name);
  if (spec == nullptr) return;
  mBinding.isRecorded = 1;
  mOutputSpec = spec;
}

void Process::RecordStart(int clock) {
  if (mBinding.isRecorded == 0 || mOutputSpec == nullptr) return;
  const Entity* const entity = ProcessedEntity();
  mOutputSpec->AddOccurrenceData(mBinding.subclass, mClassName, mThisInstanceNumber, clock,
                                 entity != nullptr ? entity->InstanceName() : "");
}

void ContinuousProcess::RecordStop() {
  if (IsRecorded() != 0 && GetOutputSpec() != nullptr)
    GetOutputSpec()->AddOccurrenceData(ProcessInstanceNumber(), pCurrentSim->Clock());
}
