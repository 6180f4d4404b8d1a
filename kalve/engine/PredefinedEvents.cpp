#include "kalve/engine/PredefinedEvents.h"

#include <initializer_list>
#include <iostream>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/foundations/TraceSwitches.h"

namespace {

struct PredefinedEvent {
  PredefinedEventId symbol;
  const char* className;
};

constexpr PredefinedEvent setInitialState{SET_INITIAL_STATE, "initialisation d'un processus continu"};
constexpr PredefinedEvent proceedFromCurrentState{PROCEED_FROM_CURRENT_STATE, "continuation d'un processus"};
constexpr PredefinedEvent setInitialStateAndProceed{SET_INITIAL_STATE_AND_PROCEED,
                                                    "initialisation et demarrage d'un processus continu"};
constexpr PredefinedEvent discreteExecution{DISCRETE_EXECUTION, "execution d'un processus discret"};

void Prepare(Event& event, const PredefinedEvent& row, int clock, Process* process,
             std::initializer_list<ActionType> actions) {
  event.SetOccurrenceClockTime(clock);
  event.ClearListProcessAction();
  for (ActionType action : actions) event.AddProcessAction(process, action);
  event.ClassSymbol(row.symbol);
  if (g_KV_TraceNewDelMode != 0) std::cout << ", process : " << process;
}

}  // namespace

SetInitialState::SetInitialState() : Event(setInitialState.className, 0, 0) {
  ClassSymbol(setInitialState.symbol);
}

SetInitialState::SetInitialState(int clock, ContinuousProcess* process)
    : Event(setInitialState.className, 0, 0) {
  Prepare(*this, setInitialState, clock, process, {INIT});
}

ProceedFromCurrentState::ProceedFromCurrentState() : Event(proceedFromCurrentState.className, 0, 0) {
  ClassSymbol(proceedFromCurrentState.symbol);
}

ProceedFromCurrentState::ProceedFromCurrentState(int clock, ContinuousProcess* process)
    : Event(proceedFromCurrentState.className, 0, 0) {
  Prepare(*this, proceedFromCurrentState, clock, process, {PROCEED});
}

SetInitialStateAndProceed::SetInitialStateAndProceed() : Event(setInitialStateAndProceed.className, 0, 0) {
  ClassSymbol(setInitialStateAndProceed.symbol);
}

SetInitialStateAndProceed::SetInitialStateAndProceed(int clock, ContinuousProcess* process)
    : Event(setInitialStateAndProceed.className, 0, 0) {
  Prepare(*this, setInitialStateAndProceed, clock, process, {INIT, PROCEED});
}

DiscreteExecution::DiscreteExecution() : Event(discreteExecution.className, 0, 0) {
  ClassSymbol(discreteExecution.symbol);
}

DiscreteExecution::DiscreteExecution(int clock, DiscreteProcess* process)
    : Event(discreteExecution.className, 0, 0) {
  Prepare(*this, discreteExecution, clock, process, {EXEC});
}
