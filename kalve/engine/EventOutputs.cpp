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
  mIsRecorded = 1;
  mOutputSpec = spec;
}

void Event::RecordPop() const {
  if (mIsRecorded != 0 && mOutputSpec != nullptr)
    mOutputSpec->AddOccurrenceData(mClassName, mOccurrenceClockTime);
}

void Process::ClassName(const char* name) {
  mClassName = name;
  if (!ProcessOutputSpec::AreOutputSpec()) return;
  ProcessOutputSpec* const spec = ProcessOutputSpec::InChargeOf(name);
  if (spec == nullptr) return;
  mIsRecorded = 1;
  mOutputSpec = spec;
}

void Process::RecordStart(int clock) {
  if (mIsRecorded == 0 || mOutputSpec == nullptr) return;
  const Entity* const entity = ProcessedEntity();
  mOutputSpec->AddOccurrenceData(mSubclass, mClassName, mThisInstanceNumber, clock,
                                 entity != nullptr ? entity->InstanceName() : "");
}

void ContinuousProcess::RecordStop() {
  if (IsRecorded() != 0 && GetOutputSpec() != nullptr)
    GetOutputSpec()->AddOccurrenceData(ProcessInstanceNumber(), pCurrentSim->Clock());
}
