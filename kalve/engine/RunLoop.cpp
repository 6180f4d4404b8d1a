// The main loop: events are popped and applied one by one, and freed.
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <iostream>
#include <memory>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Chronometer.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"

namespace {

void TracePop(int iteration) {
  const std::unique_ptr<std::tm> now(CurrentRealDateToTm());
  std::cout << "\n=====>dépilement " << iteration << " à partir de : "
            << " " << now->tm_hour << "h" << now->tm_min << "'" << now->tm_sec << std::endl;
}

/// The measured time begins with the first event.
void RestartChrono() {
  PauseChrono();
  CloseChrono();
  InitChrono();
  StartChrono();
}

/// While it lives, a read of standard input answers at once. The other flags are off meanwhile.
class NonBlockingInput {
 public:
  NonBlockingInput() : mFlags(fcntl(STDIN_FILENO, F_GETFL)) { fcntl(STDIN_FILENO, F_SETFL, O_NONBLOCK); }
  NonBlockingInput(const NonBlockingInput&) = delete;
  NonBlockingInput& operator=(const NonBlockingInput&) = delete;
  ~NonBlockingInput() {
    if (mFlags != -1) fcntl(STDIN_FILENO, F_SETFL, mFlags);
  }

 private:
  int mFlags;
};

}  // namespace

void Simulation::Run() { Run(K_INTMAX); }

void Simulation::Run(int iterationLimit) {
  mIterationLimit = iterationLimit;
  std::cin.tie(nullptr);
  PrepareProgress();
  if (!RunInDialogue()) std::exit(0);
}

/// False when the user interface wants the process to end.
bool Simulation::RunInDialogue() {
  const NonBlockingInput input;
  int iteration = 0;
  while (GoesOn(iteration)) {
    const int result = InteractWithUser(iteration);
    if (result == -1) return false;
    if (result == 0) {
      EndStopped();
      return true;
    }
    if (iteration == 0 && IsChronometerActive()) RestartChrono();
    RunCore(iteration);
    Kalve_millisleep(mSleepMilliseconds < 1 ? 1 : mSleepMilliseconds);
  }
  EndNormally(iteration);
  return true;
}

int Simulation::RunBatch(int iterationLimit) {
  mIterationLimit = iterationLimit;
  mMode = WAITING_MODE;  // of a run that was stopped: no dates are told
  int iteration = 0;
  while (GoesOn(iteration)) RunCore(iteration);
  return iteration;
}

/// One hundredth of the run's extent: of the end clock when an end date was given, else of the limit.
void Simulation::PrepareProgress() {
  if (mEndTime > 0)
    mProgressStep = mEndClock / 100;
  else if (mIterationLimit != K_INTMAX && mIterationLimit >= 1)
    mProgressStep = mIterationLimit / 100;
  else
    return;
  mProgressThreshold = mProgressStep;
}

bool Simulation::GoesOn(int iteration) const {
  return mToBeStopped == 0 && !mAgendaEvents.empty() && mClock <= mEndClock && mIterationLimit > iteration;
}

/// Queries are still answered, until a word leaves the dialogue.
void Simulation::EndNormally(int& iteration) {
  if (IsChronometerActive()) {
    PauseChrono();
    MilliPrintChrono();
    std::cout << "DUREE EXECUTION : " << gTimeString << std::endl;
  }
  std::cout << "FIN RUN" << std::endl;
  mMode = WAITING_MODE;
  InteractWithUser(iteration);
}

void Simulation::EndStopped() {
  if (IsChronometerActive()) {
    PauseChrono();
    MilliPrintChrono();
    std::cout << "\nDUREE EXECUTION " << gTimeString << "\n";
  }
  std::cout << "FIN RUN\n";
}

void Simulation::RunCore(int& iteration) {
  mIterationCounter = ++iteration;
  UpdateActionLog(mClock);
  if (g_KV_actionLog != 0 || gTraceActionMode != 0) {
    TracePop(iteration);
    DisplayAgendaEvents();
  }
  Event* event = DepileAgendaEvents();
  const int clock = event->OccurrenceClockTime();
  if (pCurrentSim->EndClock() < clock) {  // neither applied nor freed
    mToBeStopped = 1;
    return;
  }
  Clock(clock);
  if (mMode == CONTINU) SendDateToIHM(iteration);
  mEventInHand = event;
  Event* result = event->ApplyConsequences();
  if (result == event && event->HasPostConsequence() != 0) {
    Method* method = event->GetMethodWithBody(EVENT_POSTCONSEQUENCE);
    if (method == nullptr) UnspecifiedPredefinedMethod("postconsequence", event);
    static_cast<EventMethod*>(method)->Call<void>();
  }
  DisposeOf(event, result);
  mEventInHand = nullptr;
}

/// A postponed copy shares the event's methods, and so does a successor of its own class: the event then
/// dies shallowly.
void Simulation::DisposeOf(Event* event, Event* result) {
  if (result == event && event->IsAutoGenerate() != 0) return DisposeOfGenerating(event);
  const bool isPostponed = result != event && result != nullptr;
  event->DeleteProcessesIfNeeded(!isPostponed);
  if (isPostponed)
    delete event;
  else
    event->DeleteInDepth();
}

void Simulation::DisposeOfGenerating(Event* event) {
  if (!event->HasGeneration()) UnspecifiedPredefinedMethod("autogeneration", event);
  Event* next = event->GenerateNextEventCore() != 0 ? event->NextEvent() : nullptr;
  if (next == nullptr) {
    event->DeleteProcessesIfNeeded(true);
    event->DeleteInDepth();
    return;
  }
  ++gNbGenInsert;
  const bool isSameClass = event->ClassSymbol() == next->ClassSymbol();
  const int inserted = InsertInAgendaEvents(next);
  event->DeleteProcessesIfNeeded(!isSameClass);
  if (isSameClass)
    delete event;
  else
    event->DeleteInDepth();
  if (inserted != 0) return;
  if (g_KV_actionLog != 0) std::cout << "\n     ** génération, mais échec insertion";
  next->DeleteProcessesIfNeeded(true);
  next->DeleteInDepth();
}
