#include "kalve/engine/Process.h"

#include <cstdio>
#include <cstring>
#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/InstanceName.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/PredefinedMethods.h"

InstanceTable<Process, Process::Ranks> Process::mpInstanceTab{Process::Ranks()};
int Process::mInstanceNumber = 0;

Process::Process() { BeginMethods(predefinedSet<ProcessPrecondition, ProcessPostponementDelay>); }

void Process::RefuseMethods() { std::printf("\nappel interdit du constructeur Process(withoutMethod)\n"); }

Process::Process(const Process& other) : mBinding(other.mBinding) {
  AddInstance(other.mClassSymbol, other.mClassName);
}

void Process::TraceDestruction() const {
  std::cout << "\n-Destruction du processus " << this << " (" << mClassName << ") ";
}

// Identity

void Process::AddInstance(int classSymbol, const char* className) {
  mpInstanceTab.Add(this);
  mThisInstanceNumber = ++mInstanceNumber;
  mClassSymbol = classSymbol;
  ClassName(className);
  mNameStem = className;
}

void Process::RemoveInstance(Process* process) {
  if (!mpInstanceTab.Remove(process)) InexistantInstance("Process::RemoveInstance");
  --mInstanceNumber;
}

Process* Process::GetInstance(int rank) {
  const Tableau<Process*>& processes = mpInstanceTab.Items();
  try {
    return processes[rank];
  } catch (int index) {
    TabIndexOutOfRange(index, "Process::GetInstance", &processes, rank, true);
    return nullptr;
  }
}

const char* Process::InstanceName() const {
  if (mNameStem != nullptr) mInstanceName.Set(ComposeInstanceName(mNameStem, mThisInstanceNumber));
  mNameStem = nullptr;
  return mInstanceName.Get();
}

void Process::SetInstanceName(const char* name) {
  mInstanceName.Set(name);
  mNameStem = nullptr;
}

void Process::SetInstanceName(const char* name, int number) {
  SetInstanceName(ComposeInstanceName(name, number));
}

// Precondition and delay

void Process::SetPrecondition(IntBody body) {
  HasPrecondition(1);
  AssignBody(PROCESS_PRECONDITION, body);
}

void Process::SetPostponementDelay(IntBody body) {
  HasPostponementDelay(1);
  AssignBody(PROCESS_POSTPONEMENT_DELAY, body);
}

// Methods

void Process::AddMethod(Method* method) {
  if (method->ObjectClass() != KV_PROCESS) return;
  if (const int id = method->ClassSymbol(); id < 0) return ReportAbsent(id, "Process::AddMethod");
  mMethods.Add(method, "Process::AddMethod");
  static_cast<ProcessMethod*>(method)->DescribedProcess(this);
}

void Process::ReportAbsent(int id, const char* caller) const {
  const Tableau<int> ranks = mMethods.Ranks();
  TabIndexOutOfRange(id, caller, &ranks, id, true);
}

/// The method of an id; its absence is reported under the caller's name and answers null.
Method* Process::MethodOr(int id, const char* caller) {
  try {
    return mMethods[id];
  } catch (int) {
    ReportAbsent(id, caller);
    return nullptr;
  }
}

/// The same, and null for a method without body.
Method* Process::MethodWithBody(int id, const char* caller) {
  try {
    return mMethods.WithBody(id);
  } catch (int) {
    ReportAbsent(id, caller);
    return nullptr;
  }
}

Method* Process::GetMethod(int id) { return MethodOr(id, "Process::GetMethod"); }
Method* Process::GetMethodWithBody(int id) { return MethodWithBody(id, "Process::GetMethod"); }

/// To take a body away, no method need be made.
template <class Body>
void Process::Assign(int id, Body body) {
  constexpr const char* caller = "Process::AssignBody";
  Method* const method = body != nullptr ? MethodOr(id, caller) : MethodWithBody(id, caller);
  if (method != nullptr) static_cast<ProcessMethod*>(method)->SetBody(body);
}

void Process::AssignBody(int id, VoidBody body) { Assign(id, body); }
void Process::AssignBody(int id, IntBody body) { Assign(id, body); }

void Process::SetIntArgValue(int methodId, int argumentId, int value) {
  if (Method* method = MethodOr(methodId, "Process::SetIntArgValue")) method->SetArgValue(argumentId, value);
}

void Process::SetEntityArgValue(int methodId, int argumentId, BasicEntity* value) {
  if (Method* method = MethodOr(methodId, "Process::SetEntityArgValue"))
    method->SetArgValue(argumentId, value);
}

void Process::ExecVoidCoreMethod(int id) {
  if (Method* method = MethodWithBody(id, "Process::ExecVoidCoreMethod"))
    static_cast<ProcessMethod*>(method)->Call<void>();
}

int Process::ExecIntCoreMethod(int id) {
  Method* method = MethodWithBody(id, "Process::ExecIntCoreMethod");
  return method != nullptr ? static_cast<ProcessMethod*>(method)->Call<int>() : 0;
}

void Process::ExecVoidMethod(int id) {
  Method* method = MethodOr(id, "Process::ExecVoidMethod");
  if (method == nullptr) return;
  if (method->ClassType() != VOID) BadMethodValueType(this, method, "exec void method");
  static_cast<ProcessMethod*>(method)->Call<void>();
}

int Process::ExecIntMethod(int id) {
  Method* method = MethodOr(id, "Process::ExecIntMethod");
  if (method == nullptr) return 0;
  if (method->ClassType() != INT) BadMethodValueType(this, method, "exec int method");
  return static_cast<ProcessMethod*>(method)->Call<int>();
}
