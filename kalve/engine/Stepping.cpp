// How a continuous process advances the clock within one event.
#include <cstdio>
#include <iostream>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"

int gNbProgReprise = 0;

void ContinuousProcess::Proceed(Event* event) {
  const int start = pCurrentSim->Clock();
  if (UpdateActionLog(start) != 0)
    std::printf("\nDEBUT Proceed '%s' --- mToBeStopped = %d\n", ClassName(), mToBeStopped);
  Method* method = mToBeStopped == 0 ? GetMethod(GOONESTEPFORWARD_PROCESS) : nullptr;
  if (method != nullptr) {
    auto* step = static_cast<ProcessMethod*>(method);
    step->Call<void>();  // the event was popped for this one
    long next = static_cast<long>(start) + mStep;
    while (next <= K_INTMAX && CheckForInterruption(static_cast<int>(next), event) == 0) {
      pCurrentSim->Clock(static_cast<int>(next));
      if (g_KV_actionLog != 0) std::printf(" [%d-> \n", static_cast<int>(next));
      step->Call<void>();
      next += mStep;  // read anew: a body may change it
    }
    if (next > K_INTMAX) mToBeStopped = 1;
  }
  if (g_KV_actionLog != 0)
    std::printf("\nFIN Proceed '%s' --- mToBeStopped = %d\n", ClassName(), mToBeStopped);
}

int ContinuousProcess::CheckForInterruption(int nextClock, Event* event) {
  UpdateActionLog(pCurrentSim->Clock());
  if (pCurrentSim->EndClock() < nextClock) {
    mToBeStopped = 1;
    return 1;
  }
  if (mToBeStopped != 0 || pCurrentSim->IsEmptyAgendaEvents() != 0) return mToBeStopped;
  const int clock = event->OccurrenceClockTime();
  event->SetOccurrenceClockTime(nextClock);
  const bool isFrontDue = pCurrentSim->IsFrontBefore(event);
  if (isFrontDue) {
    if (g_KV_actionLog != 0)
      std::cout << "\n** programmation event 'reprise processus' n° " << ++gNbProgReprise
                << " et insertion en clock = " << nextClock << std::endl;
    PostProceedEvent(nextClock, event->PriorityDegree());
  }
  event->SetOccurrenceClockTime(clock);
  return isFrontDue ? 1 : mToBeStopped;
}

void ContinuousProcess::ToBeStopped(int flag) {
  mToBeStopped = flag;
  if (flag != 1) return;
  ToBeDeleted(1);
  RecordStop();
}
