#include "kalve/engine/Event.h"

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/InstanceName.h"

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
  Place(mTerms.clock, degree);
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
  mTerms.probability = CheckedProbability(this, probability);
}

void Event::SetOccurrenceProbability(int percent) { mTerms.probability = CheckedProbability(this, percent); }

void Event::SetNextEventOccurrenceProbability(float probability) {
  mTerms.nextProbability = CheckedProbability(this, probability);
}

void Event::SetNextEventOccurrenceProbability(int percent) {
  mTerms.nextProbability = CheckedProbability(this, percent);
}

void Event::SetMinDelayNextEvent(int delay) {
  if (mMarks.isAutoGenerate == 0) UnexpectedDelayNextEvent(this, delay);
  mTerms.minDelay = delay;
}

void Event::SetMaxDelayNextEvent(int delay) {
  if (mMarks.isAutoGenerate == 0) UnexpectedDelayNextEvent(this, delay);
  mTerms.maxDelay = delay;
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

void Event::ClearListProcessAction() { LetGoOfCouples(); }

Tableau<Process*> Event::DistinctProcesses() const {
  Tableau<Process*> processes;
  for (StructProcessAction* couple : mListpProcessAction)
    if (couple->process != nullptr) processes.push_back_ifnew(couple->process);
  return processes;
}
