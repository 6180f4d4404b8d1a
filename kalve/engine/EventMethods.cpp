// The methods of an event: table, bodies, execution.
#include "kalve/engine/Event.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"

void Event::AddMethod(Method* method) {
  if (method->ObjectClass() != KV_EVENT) return;
  if (const int id = method->ClassSymbol(); id < 0) return ReportAbsent(id, "Event::AddMethod");
  mMethods.Add(method, "Event::AddMethod");
  static_cast<EventMethod*>(method)->DescribedEvent(this);
}

void Event::ReportAbsent(int id, const char* caller) const {
  const Tableau<int> ranks = mMethods.Ranks();
  TabIndexOutOfRange(id, caller, &ranks, id, true);
}

/// The method of an id; its absence is reported under the caller's name and answers null.
Method* Event::MethodOr(int id, const char* caller) {
  try {
    return mMethods[id];
  } catch (int) {
    ReportAbsent(id, caller);
    return nullptr;
  }
}

/// The same, and null for a method without body.
Method* Event::MethodWithBody(int id, const char* caller) {
  try {
    return mMethods.WithBody(id);
  } catch (int) {
    ReportAbsent(id, caller);
    return nullptr;
  }
}

bool Event::HasGeneration() {
  const bool generates = GetMethodWithBody(GENERATE_NEXTEVENT) != nullptr;
  const bool updates = GetMethodWithBody(UPDATE_NEXTEVENT) != nullptr;
  const bool defines = GetMethodWithBody(DEFINE_NEXTEVENTCLOCKTIME) != nullptr;
  return generates || updates || defines;
}

Method* Event::GetMethod(int id) { return MethodOr(id, "Event::GetMethod"); }
Method* Event::GetMethodWithBody(int id) { return MethodWithBody(id, "Event::GetMethod"); }

/// To take a body away, no method need be made.
template <class Body>
void Event::Assign(int id, Body body) {
  constexpr const char* caller = "Event::AssignBody";
  Method* const method = body != nullptr ? MethodOr(id, caller) : MethodWithBody(id, caller);
  if (method != nullptr) static_cast<EventMethod*>(method)->SetBody(body);
}

void Event::AssignBody(int id, VoidBody body) { Assign(id, body); }
void Event::AssignBody(int id, BoolBody body) { Assign(id, body); }
void Event::AssignBody(int id, IntBody body) { Assign(id, body); }

void Event::SetIntArgValue(int methodId, int argumentId, int value) {
  if (Method* method = MethodOr(methodId, "Event::SetIntArgValue")) method->SetArgValue(argumentId, value);
}

void Event::SetEventArgValue(int methodId, int argumentId, Event* value) {
  if (Method* method = MethodOr(methodId, "Event::SetEventArgValue")) method->SetArgValue(argumentId, value);
}

template <class Result>
Result Event::Exec(int id, const char* caller) {
  Method* method = MethodWithBody(id, caller);
  return method != nullptr ? static_cast<EventMethod*>(method)->Call<Result>() : Result();
}

template <class Result>
Result Event::ExecTyped(int id, ValueTypeId type, const char* caller, const char* operation) {
  Method* method = MethodOr(id, caller);
  if (method == nullptr) return Result();
  if (method->ClassType() != type) BadMethodValueType(this, method, operation);
  return static_cast<EventMethod*>(method)->Call<Result>();
}

void Event::ExecVoidCoreMethod(int id) { Exec<void>(id, "Event::ExecVoidCoreMethod"); }
bool Event::ExecCorePredicate(int id) { return Exec<bool>(id, "Event::ExecCorePredicate"); }
int Event::ExecIntCoreMethod(int id) { return Exec<int>(id, "Event::ExecIntCoreMethod"); }

void Event::ExecVoidMethod(int id) { ExecTyped<void>(id, VOID, "Event::ExecVoidMethod", "exec void method"); }
bool Event::ExecPredicate(int id) {
  return ExecTyped<bool>(id, BOOLEAN, "Event::ExecPredicate", "exec predicate");
}
int Event::ExecIntMethod(int id) {
  return ExecTyped<int>(id, INT, "Event::ExecIntMethod", "exec int method");
}

// Behaviour

void Event::SetPostConsequence(VoidBody body) {
  HasPostConsequence(1);
  AssignBody(EVENT_POSTCONSEQUENCE, body);
}

void Event::SetGenerateNextEvent(BoolBody body) {
  IsAutoGenerate(1);
  AssignBody(GENERATE_NEXTEVENT, body);
}

void Event::SetUpdateNextEvent(VoidBody body) {
  IsAutoGenerate(1);
  AssignBody(DEFINE_NEXTEVENTCLOCKTIME, IntBody{nullptr});
  AssignBody(UPDATE_NEXTEVENT, body);
}

void Event::SetDefineNextEventClockTime(IntBody body) {
  IsAutoGenerate(1);
  AssignBody(UPDATE_NEXTEVENT, VoidBody{nullptr});
  AssignBody(DEFINE_NEXTEVENTCLOCKTIME, body);
}

void Event::SetRandomizeThisEventClockTime(IntBody body) { AssignBody(RANDOMIZE_THISEVENTCLOCKTIME, body); }
void Event::SetRandomizeNextEventClockTime(IntBody body) { AssignBody(RANDOMIZE_NEXTEVENTCLOCKTIME, body); }
void Event::SetIsPoppingToSuspendMethod(BoolBody body) { AssignBody(IS_POPPING_TO_SUSPEND, body); }

void Event::SetMaxOccurrenceClockTime(int clock) {
  if (mTerms.minClock < 0) UnauthorizedMaxOccurenceClockTime(this, clock);
  int date = clock;
  if (mTerms.minClock != clock) {
    SetIntArgValue(RANDOMIZE_THISEVENTCLOCKTIME, INT_LOW_BOUND_ARGUMENT, mTerms.minClock);
    SetIntArgValue(RANDOMIZE_THISEVENTCLOCKTIME, INT_UPPER_BOUND_ARGUMENT, clock);
    date = ExecIntCoreMethod(RANDOMIZE_THISEVENTCLOCKTIME);
  }
  SetOccurrenceClockTime(date);
  mTerms.maxClock = clock;
}
