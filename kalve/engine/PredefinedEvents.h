// The events that processes post for themselves. Each has a constructor from a clock and a process; the
// default constructors make an event without couples.
#pragma once

#include "kalve/engine/Event.h"

/// Symbols of their classes.
enum PredefinedEventId : int {
  SET_INITIAL_STATE = 0,
  PROCEED_FROM_CURRENT_STATE = 1,
  SET_INITIAL_STATE_AND_PROCEED = 2,
  DISCRETE_EXECUTION = 3,
};

/// "initialisation d'un processus continu": INIT.
class SetInitialState : public Event {
 public:
  SetInitialState();
  SetInitialState(int clock, ContinuousProcess* process);
};

/// "continuation d'un processus": PROCEED.
class ProceedFromCurrentState : public Event {
 public:
  ProceedFromCurrentState();
  ProceedFromCurrentState(int clock, ContinuousProcess* process);
};

/// "initialisation et demarrage d'un processus continu": INIT, PROCEED.
class SetInitialStateAndProceed : public Event {
 public:
  SetInitialStateAndProceed();
  SetInitialStateAndProceed(int clock, ContinuousProcess* process);
};

/// "execution d'un processus discret": EXEC.
class DiscreteExecution : public Event {
 public:
  DiscreteExecution();
  DiscreteExecution(int clock, DiscreteProcess* process);
};
