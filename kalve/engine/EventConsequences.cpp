// What happens when an event is popped: its couples in turn, its postponement, its successor.
#include <algorithm>
#include <cstdio>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/EventBodies.h"
#include "kalve/engine/PredefinedEvents.h"
#include "kalve/engine/ProcessDispatch.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"

Event* Event::ApplyConsequences() {
  const int clock = pCurrentSim->Clock();
  UpdateActionLog(clock);
  Event* result = this;
  int inserted = 0;
  const int count = mListpProcessAction.size();
  for (int i = 0; i < count && i < mListpProcessAction.size(); ++i) {
    Process* process = mListpProcessAction[i]->process;
    const ActionType action = mListpProcessAction[i]->action;
    if (process == nullptr) continue;
    if (g_KV_actionLog != 0)
      std::printf("\n     processus %x (%s) type action = %s", Address32(process), process->ClassName(),
                  StringActionType(action));
    switch (action) {
      case EXEC:
        ApplyExec(process, clock, result, inserted);
        break;
      case INIT:
        ApplyInit(process, clock, result, inserted);
        break;
      case STOP:
        ApplyStop(process);
        break;
      case PROCEED:
        ApplyProceed(process);
        break;
      case UNSPECIFIED_ACTION:
        break;
    }
    if (inserted != 0) break;  // the remaining couples belong to the copy
  }
  return result;
}

namespace {

/// At least 1 goes, 0 postpones, negative gives up. A precondition without body lets go.
int Precondition(Process* process) {
  if (process->HasPrecondition() == 0) return 1;
  Method* method = process->GetMethodWithBody(PROCESS_PRECONDITION);
  if (method == nullptr) return 1;
  return static_cast<ProcessMethod*>(method)->Call<int>();
}

/// By the method, or by the number when there is none with a body.
int PostponementDelay(Process* process) {
  if (process->HasPostponementDelay() != 0 &&
      process->GetMethodWithBody(PROCESS_POSTPONEMENT_DELAY) != nullptr)
    return process->ExecIntMethod(PROCESS_POSTPONEMENT_DELAY);
  return process->PostponementDelay();
}

ContinuousProcess* AsContinuous(Process* process) {
  return process->Subclass() == CONTINUOUS_PROCESS ? static_cast<ContinuousProcess*>(process) : nullptr;
}

}  // namespace

void Event::ApplyExec(Process* process, int clock, Event*& result, int& inserted) {
  const int go = Precondition(process);
  if (go >= 1) {
    process->RecordStart(clock);
    process->ExecVoidCoreMethod(EXEC_PROCESS);
  } else if (go == 0) {
    Postpone(process, clock, result, inserted);
  }
  process->ToBeDeleted(1);
}

void Event::ApplyInit(Process* process, int clock, Event*& result, int& inserted) {
  const int go = Precondition(process);
  if (go == 0) return Postpone(process, clock, result, inserted);
  if (go < 0) {  // to be stopped at once
    auto* stop = new Event(*this);
    stop->SetOccurrenceClockTime(clock);
    stop->IsAutoGenerate(0);
    stop->ClearListProcessAction();
    stop->AddProcessAction(process, STOP);
    inserted = pCurrentSim->InsertInAgendaEvents(stop);
    return;
  }
  process->RecordStart(clock);
  auto* continuous = static_cast<ContinuousProcess*>(process);
  Method* initialize = process->GetMethod(INITIALIZE_PROCESS);
  if (initialize == nullptr) InexistantInitializationMethod(continuous);
  static_cast<ProcessMethod*>(initialize)->Call<void>();
  if (process->GetMethod(GOONESTEPFORWARD_PROCESS) == nullptr) InexistantProceedMethod(continuous);
}

void Event::ApplyStop(Process* process) {
  ContinuousProcess* continuous = AsContinuous(process);
  if (continuous == nullptr) UnAuthorizedDirective(process, "STOP");
  continuous->RecordStop();
  Method* stop = process->GetMethod(STOP_PROCESS);
  if (stop == nullptr) InexistantStopMethod(continuous);
  static_cast<ProcessMethod*>(stop)->Call<void>();
  continuous->ToBeStopped(1);
}

void Event::ApplyProceed(Process* process) {
  ContinuousProcess* continuous = AsContinuous(process);
  if (continuous == nullptr) UnAuthorizedDirective(process, "PROCEED");
  continuous->Proceed(this);
  continuous->ToBeDeleted(continuous->ToBeStopped());
}

namespace {

int LaterClock(int clock, int delay) {
  return static_cast<int>(std::clamp(static_cast<long>(clock) + delay, long{K_INTMIN}, long{K_INTMAX}));
}

}  // namespace

/// A raw copy of the whole event comes back later. When the agenda refuses it, the methods that it shared
/// go back to describe their owners.
void Event::Postpone(Process* process, int clock, Event*& result, int& inserted) {
  Event* copy = RawCopy();
  copy->SetOccurrenceClockTime(LaterClock(clock, PostponementDelay(process)));
  inserted = pCurrentSim->InsertInAgendaEvents(copy);
  result = inserted != 0 ? copy : nullptr;
  if (inserted != 0) return;
  copy->ForEachProcess([](Process* copied) {
    if (copied->Subclass() == DISCRETE_PROCESS)
      DeleteProcessShallowly(copied);
    else
      DeleteProcessInDepth(copied);
  });
  delete copy;
  DescribeByMethods();
}

void Event::DescribeByMethods() {
  mMethods.Describe(this);
  ForEachProcess([](Process* process) { process->mMethods.Describe(process); });
}

int Event::GenerateNextEventCore() {
  const bool isGenerated = ExecCorePredicate(GENERATE_NEXTEVENT);
  Event* next = NextEvent();
  if (!isGenerated || next == nullptr) return isGenerated ? 1 : 0;
  if (Method* define = GetMethodWithBody(DEFINE_NEXTEVENTCLOCKTIME)) {
    define->SetArgValue(PREVIOUS_EVENT_ARGUMENT, this);
    next->SetOccurrenceClockTime(static_cast<EventMethod*>(define)->Call<int>());
    return 1;
  }
  if (Method* update = GetMethodWithBody(UPDATE_NEXTEVENT)) {
    update->SetArgValue(PREVIOUS_EVENT_ARGUMENT, this);
    static_cast<EventMethod*>(update)->Call<void>();
  }
  return 1;
}

bool standardEvent_generateNextEvent_Body(EventMethod* method) {
  Event* event = method->DescribedEvent();
  Event* next = event->RawCopy();
  event->SetNextEvent(next);
  int delay = event->MaxDelayNextEvent();
  if (event->MinDelayNextEvent() != delay) {
    next->SetIntArgValue(RANDOMIZE_THISEVENTCLOCKTIME, INT_LOW_BOUND_ARGUMENT, event->MinDelayNextEvent());
    next->SetIntArgValue(RANDOMIZE_THISEVENTCLOCKTIME, INT_UPPER_BOUND_ARGUMENT, delay);
    delay = next->ExecIntCoreMethod(RANDOMIZE_THISEVENTCLOCKTIME);
  }
  next->SetOccurrenceClockTime(LaterClock(pCurrentSim->Clock(), delay));
  return true;
}

int InsertProceedFromCurrentStateEvent(EventMethod* method) {
  Event* event = method->DescribedEvent();
  Process* process = event->FirstProcess();
  ContinuousProcess* continuous = process != nullptr ? AsContinuous(process) : nullptr;
  if (continuous == nullptr || continuous->ToBeStopped() != 0) return 0;
  return continuous->PostProceedEvent(pCurrentSim->Clock(), event->PriorityDegree());
}

int InsertProceedFromCurrentStateEvent(Method* method) {
  return InsertProceedFromCurrentStateEvent(static_cast<EventMethod*>(method));
}
