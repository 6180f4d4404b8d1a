// The ways in which a model starts a continuous process.
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/PredefinedEvents.h"
#include "kalve/engine/Simulation.h"

namespace {

/// Posts the event, or frees it.
int Post(Event* event, int priority) {
  event->SetPriorityDegree(static_cast<short>(priority));
  const int inserted = pCurrentSim->InsertInAgendaEvents(event);
  if (inserted == 0) event->DeleteInDepth();
  return inserted;
}

}  // namespace

int ContinuousProcess::PostInitialisationEvent(int clock) { return PostInitialisationEvent(clock, 0); }

int ContinuousProcess::PostInitialisationEvent(int clock, int priority) {
  return Post(new SetInitialState(clock, this), priority);
}

int ContinuousProcess::PostInitAndProceedEvent(int clock) { return PostInitAndProceedEvent(clock, 0); }

int ContinuousProcess::PostInitAndProceedEvent(int clock, int priority) {
  return Post(new SetInitialStateAndProceed(clock, this), priority);
}

int ContinuousProcess::PostProceedEvent(int clock) { return PostProceedEvent(clock, 0); }

int ContinuousProcess::PostProceedEvent(int clock, int priority) {
  return Post(new ProceedFromCurrentState(clock, this), priority);
}

int ContinuousProcess::PostInitThenProceedEvent(int initClock, int proceedClock) {
  return PostInitThenProceedEvent(initClock, proceedClock, 0);
}

int ContinuousProcess::PostInitThenProceedEvent(int initClock, int proceedClock, int priority) {
  Event* init = new SetInitialState(initClock, this);
  if (Post(init, priority) == 0) return 0;
  if (Post(new ProceedFromCurrentState(proceedClock, this), priority) != 0) return 1;
  pCurrentSim->RemoveFromAgendaEvents(init);
  init->DeleteInDepth();
  return 0;
}
