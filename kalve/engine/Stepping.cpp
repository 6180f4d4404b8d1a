// How a continuous process advances the clock within one event.
#include <cstdio>
#include <iostream>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"

int gNbProgReprise = 0;

namespace {

/// What the placement predicate answers on the head and `event`, were this one dated `clock`.
inline bool IsDueBefore(Event* head, Event* event, int clock) {
  if (pCurrentSim->HasDefaultPlacement() && head != event) {
    const int date = head->OccurrenceClockTime();
    const bool isSameDate = date == clock;
    gEquallyPlacedEventFlag = isSameDate && head->PriorityDegree() == event->PriorityDegree() ? 1 : 0;
    return isSameDate ? head->PriorityDegree() < event->PriorityDegree() : date < clock;
  }
  const int kept = event->OccurrenceClockTime();
  event->SetOccurrenceClockTime(clock);
  const bool isDue = pCurrentSim->IsPlacedBefore(head, event);
  event->SetOccurrenceClockTime(kept);
  return isDue;
}

}  // namespace

// Called between two steps, of which there may be millions.
inline int ContinuousProcess::MustLeave(int nextClock, Event* event) {
  UpdateActionLog(pCurrentSim->Clock());
  if (pCurrentSim->EndClock() < nextClock) {
    mToBeStopped = 1;
    return 1;
  }
  if (mToBeStopped != 0) return mToBeStopped;
  Event* const head = pCurrentSim->FrontEvent();
  if (head == nullptr || !IsDueBefore(head, event, nextClock)) return mToBeStopped;
  Resume(nextClock, event);
  return 1;
}

/// Posts the event that goes on at the next step, while this one still bears its date.
void ContinuousProcess::Resume(int nextClock, Event* event) {
  const int clock = event->OccurrenceClockTime();
  event->SetOccurrenceClockTime(nextClock);
  if (g_KV_actionLog != 0)
    std::cout << "\n** programmation event 'reprise processus' n° " << ++gNbProgReprise
              << " et insertion en clock = " << nextClock << std::endl;
  PostProceedEvent(nextClock, event->PriorityDegree());
  event->SetOccurrenceClockTime(clock);
}

int ContinuousProcess::CheckForInterruption(int nextClock, Event* event) {
  return MustLeave(nextClock, event);
}

void ContinuousProcess::Proceed(Event* event) {
  const int start = pCurrentSim->Clock();
  if (UpdateActionLog(start) != 0)
    std::printf("\nDEBUT Proceed '%s' --- mToBeStopped = %d\n", ClassName(), mToBeStopped);
  Method* method = mToBeStopped == 0 ? GetMethod(GOONESTEPFORWARD_PROCESS) : nullptr;
  if (method != nullptr) {
    auto* step = static_cast<ProcessMethod*>(method);
    step->Call<void>();  // the event was popped for this one
    long next = static_cast<long>(start) + mStep;
    while (next <= K_INTMAX && MustLeave(static_cast<int>(next), event) == 0) {
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

void ContinuousProcess::ToBeStopped(int flag) {
  mToBeStopped = flag;
  if (flag != 1) return;
  ToBeDeleted(1);
  RecordStop();
}
