// The main loop: events are popped and applied one by one, and freed.
#include <ctime>
#include <iostream>
#include <memory>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Chronometer.h"
#include "kalve/foundations/CoreTime.h"

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

}  // namespace

void Simulation::Run() { Run(K_INTMAX); }

void Simulation::Run(int iterationLimit) {
  mIterationLimit = iterationLimit;
  std::cin.tie(nullptr);
  PrepareProgress();
  int iteration = 0;
  while (GoesOn(iteration)) {
    if (iteration == 0 && IsChronometerActive()) RestartChrono();
    RunCore(iteration);
    Kalve_millisleep(mSleepMilliseconds < 1 ? 1 : mSleepMilliseconds);
  }
  EndNormally();
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

void Simulation::EndNormally() {
  if (IsChronometerActive()) {
    PauseChrono();
    MilliPrintChrono();
    std::cout << "DUREE EXECUTION : " << gTimeString << std::endl;
  }
  std::cout << "FIN RUN" << std::endl;
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
  event->DeleteInDepth();
}
