#include "kalve/engine/Event.h"

#include "kalve/engine/DiscreteProcess.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/InstanceName.h"
#include "kalve/foundations/Prefetch.h"

int Event::mInstanceNumber = 0;
int Event::_nbConst = 0;
int Event::_nbDest = 0;
constinit BlockPool Event::pool{sizeof(Event)};

void Event::AddInstance(int classSymbol, const char* className) {
  mThisInstanceNumber = ++mInstanceNumber;
  mClassSymbol = classSymbol;
  ClassName(className);
  mNameStem = mClassName;
}

const char* Event::InstanceName() const {
  if (mNameStem != nullptr) mInstanceName.Set(ComposeInstanceName(mNameStem, mThisInstanceNumber));
  mNameStem = nullptr;
  return mInstanceName.Get();
}

void Event::SetInstanceName(const char* name) {
  mInstanceName.Set(name);
  mNameStem = nullptr;
}

void Event::SetInstanceName(const char* name, int number) {
  SetInstanceName(ComposeInstanceName(name, number));
}

void Event::SetPriorityDegree(short degree) {
  if (degree < 0 || degree > 99) UnexpectedPriorityDegree(this, degree);
  Place(mOccurrenceClockTime, degree);
}

namespace {

bool IsProbability(float probability) {
  return probability >= -K_float_EPS &&
         static_cast<double>(probability) <= 1.0 + static_cast<double>(K_float_EPS);
}

float CheckedProbability(Event* event, float probability) {
  if (!IsProbability(probability)) UnexpectedProbability(event, probability);
  return probability;
}

float CheckedProbability(Event* event, int percent) {
  const float probability = static_cast<float>(percent) / 100.0F;
  if (percent < 0 || percent > 100) UnexpectedProbability(event, probability);
  return probability;
}

}  // namespace

void Event::SetOccurrenceProbability(float probability) {
  mOccurrenceProbability = CheckedProbability(this, probability);
}

void Event::SetOccurrenceProbability(int percent) {
  mOccurrenceProbability = CheckedProbability(this, percent);
}

void Event::SetNextEventOccurrenceProbability(float probability) {
  mNextEventOccurrenceProbability = CheckedProbability(this, probability);
}

void Event::SetNextEventOccurrenceProbability(int percent) {
  mNextEventOccurrenceProbability = CheckedProbability(this, percent);
}

void Event::SetMinDelayNextEvent(int delay) {
  if (mAutoGenerate == 0) UnexpectedDelayNextEvent(this, delay);
  mMinDelayNextEvent = delay;
}

void Event::SetMaxDelayNextEvent(int delay) {
  if (mAutoGenerate == 0) UnexpectedDelayNextEvent(this, delay);
  mMaxDelayNextEvent = delay;
}

// Couples

Process* Event::FirstProcess() {
  if (!mListpProcessAction.empty()) return mListpProcessAction[0]->process;
  UnexpectedVoidListProcessAction(this);
  return nullptr;
}

ActionType Event::FirstActionLabel() {
  if (!mListpProcessAction.empty()) return mListpProcessAction[0]->action;
  UnexpectedVoidListProcessAction(this);
  return UNSPECIFIED_ACTION;
}

void Event::ClearListProcessAction() {
  // Outside of an agenda the processes may be gone already.
  if (mAgendas != 0) CountCouples(-mAgendas);
  mListpProcessAction.Clear();
}

void Event::Fetch(int eventsBefore) const {
  const Process* const process =
      eventsBefore < 3 && !mListpProcessAction.empty() ? mListpProcessAction[0]->process : nullptr;
  switch (eventsBefore) {
    case 3:
      return Prefetch(this, sizeof *this);
    case 2:
      mMethods.FetchBlock();
      return Prefetch(process, sizeof(DiscreteProcess));
    case 1:
      mMethods.FetchMethods();
      if (process != nullptr) process->mMethods.FetchBlock();
      return;
    default:
      if (process != nullptr) process->mMethods.FetchMethods();
  }
}

/// Puts a couple at its rank; the process knows of the agendas in which it now waits.
void Event::Append(Process* process, ActionType action, int rank) {
  mListpProcessAction.Insert(rank, process, action);
  if (process != nullptr) process->mAgendaCouples += mAgendas;
}

void Event::StandInAgendas(int change) {
  mAgendas += change;
  CountCouples(change);
}

void Event::CountCouples(int change) {
  for (StructProcessAction* couple : mListpProcessAction)
    if (couple->process != nullptr) couple->process->mAgendaCouples += change;
}

Tableau<Process*> Event::DistinctProcesses() const {
  Tableau<Process*> processes;
  for (StructProcessAction* couple : mListpProcessAction)
    if (couple->process != nullptr) processes.push_back_ifnew(couple->process);
  return processes;
}
