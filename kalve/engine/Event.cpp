#include "kalve/engine/Event.h"

#include <cstdio>
#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"

int Event::mInstanceNumber = 0;
int Event::_nbConst = 0;
int Event::_nbDest = 0;

Event::Event() : Event(K_INT_UNSIGNIFICANT, "") {}

Event::Event(const char* className) : Event(K_INT_UNSIGNIFICANT, className) {}

Event::Event(int classSymbol, const char* className) {
  ++_nbConst;
  AddInstance(classSymbol, className);
  TraceConstruction();
}

Event::Event(short priority, const char* className) {
  ++_nbConst;
  SetPriorityDegree(priority);
  AddInstance(K_INT_UNSIGNIFICANT, className);
  TraceConstruction();
}

Event::Event(const Event& other) : mNextEvent(other.mNextEvent) {
  ++_nbConst;
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n++copy construction de l'event " << this << " <- " << &other;
  TakeDates(other);
  AddInstance(other.mClassSymbol, other.mClassName);
  mIsRecorded = other.mIsRecorded;
  mOutputSpec = other.mOutputSpec;
  mIsPoppingToSuspend = other.mIsPoppingToSuspend;
  mIsPoppingToResume = other.mIsPoppingToResume;
  mAutoGenerate = other.mAutoGenerate;
  mHasPostConsequence = other.mHasPostConsequence;
}

const Event& Event::operator=(const Event& other) {
  if (g_KV_TraceNewDelMode != 0) std::cout << "=assignation de " << this << " avec " << &other;
  if (this == &other) return other;
  TakeDates(other);
  mClassName = other.mClassName;
  mIsRecorded = other.mIsRecorded;
  mOutputSpec = other.mOutputSpec;
  mAutoGenerate = other.mAutoGenerate;
  mHasPostConsequence = other.mHasPostConsequence;
  return other;
}

/// Date and its bounds, probability, priority, and what is said of the successor.
void Event::TakeDates(const Event& other) {
  mMinOccurrenceClockTime = other.mMinOccurrenceClockTime;
  mMaxOccurrenceClockTime = other.mMaxOccurrenceClockTime;
  mOccurrenceProbability = other.mOccurrenceProbability;
  mMinDelayNextEvent = other.mMinDelayNextEvent;
  mMaxDelayNextEvent = other.mMaxDelayNextEvent;
  mNextEventClassName = other.mNextEventClassName;
  mNextEventOccurrenceProbability = other.mNextEventOccurrenceProbability;
  Place(other.mOccurrenceClockTime, other.mPriorityDegree);
}

Event::~Event() {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n-Destruction superficielle de l'event " << mClassName << " " << this;
  ++_nbDest;
  ClearListProcessAction();
}

void Event::DeleteInDepth() {
  if (g_KV_TraceNewDelMode != 0) std::printf("\n-Destruction profonde de l'event %x\n", Address32(this));
  delete this;
}

void Event::TraceConstruction() const {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n+Construction de l'event " << this << " \"" << mClassName << "\"";
}

void Event::AddInstance(int classSymbol, const char* className) {
  mThisInstanceNumber = ++mInstanceNumber;
  mClassSymbol = classSymbol;
  ClassName(className);
  SetInstanceName(mClassName, mThisInstanceNumber);
}

void Event::ClassName(const char* name) { mClassName = name; }

void Event::SetInstanceName(const char* name, int number) {
  std::snprintf(gInstanceNameString, sizeof gInstanceNameString, "%s%s%d", name, gUnderscore, number);
  mInstanceName = gInstanceNameString;
}

void Event::Place(int clock, short priority) {
  mOccurrenceClockTime = clock;
  mPriorityDegree = priority;
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

}  // namespace

void Event::SetOccurrenceProbability(float probability) {
  if (!IsProbability(probability)) UnexpectedProbability(this, probability);
  mOccurrenceProbability = probability;
}

void Event::SetOccurrenceProbability(int percent) {
  const float probability = static_cast<float>(percent) / 100.0F;
  if (percent < 0 || percent > 100) UnexpectedProbability(this, probability);
  mOccurrenceProbability = probability;
}

void Event::SetNextEventOccurrenceProbability(float probability) {
  if (!IsProbability(probability)) UnexpectedProbability(this, probability);
  mNextEventOccurrenceProbability = probability;
}

void Event::SetNextEventOccurrenceProbability(int percent) {
  const float probability = static_cast<float>(percent) / 100.0F;
  if (percent < 0 || percent > 100) UnexpectedProbability(this, probability);
  mNextEventOccurrenceProbability = probability;
}

void Event::SetMinDelayNextEvent(int delay) {
  if (mAutoGenerate == 0) UnexpectedDelayNextEvent(this, delay);
  mMinDelayNextEvent = delay;
}

void Event::SetMaxDelayNextEvent(int delay) {
  if (mAutoGenerate == 0) UnexpectedDelayNextEvent(this, delay);
  mMaxDelayNextEvent = delay;
}

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
  for (StructProcessAction* couple : mListpProcessAction) delete couple;
  mListpProcessAction.erase();
}
