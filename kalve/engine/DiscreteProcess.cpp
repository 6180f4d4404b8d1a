#include "kalve/engine/DiscreteProcess.h"

#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/PredefinedMethods.h"

int DiscreteProcess::_nbConst = 0;
int DiscreteProcess::_nbDest = 0;
constinit BlockPool DiscreteProcess::pool{sizeof(DiscreteProcess)};

namespace {

/// What copies keep of a process's methods, by result type.
constexpr ValueTypeSet copiedMethods = {VOID, INT};

}  // namespace

DiscreteProcess::DiscreteProcess() {
  Subclass(DISCRETE_PROCESS);
  BeginMethods(predefinedSet<ProcessPrecondition, ProcessPostponementDelay, ExecProcess>);
}

DiscreteProcess::DiscreteProcess(int classSymbol) : DiscreteProcess(classSymbol, "DiscreteProcess") {}

DiscreteProcess::DiscreteProcess(int classSymbol, const char* className) : DiscreteProcess() {
  ++_nbConst;
  AddInstance(classSymbol, className);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n+Construction du processus ponctuel " << this;
}

DiscreteProcess::DiscreteProcess(const DiscreteProcess& other)
    : Process(other), mIsReadSDRec(other.mIsReadSDRec), mIsInitSDRec(other.mIsInitSDRec) {
  ++_nbConst;
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "++copy construction de DP " << ClassName() << " " << this << " <- " << &other;
  LazyMethods::CopyMethods(other.mMethods, copiedMethods, static_cast<Process&>(*this));
  TakeFlags(other);
}

void DiscreteProcess::TraceDestruction() const {
  std::cout << "\n-Destruction du processus ponctuel " << this;
}

const DiscreteProcess& DiscreteProcess::operator=(const DiscreteProcess& other) {
  if (this == &other) return other;
  TakeBinding(other);
  ClassSymbol(other.ClassSymbol());
  ClassName(other.ClassName());
  mIsReadSDRec = other.mIsReadSDRec;
  mIsInitSDRec = other.mIsInitSDRec;
  try {
    mMethods.AssignMethods(other.mMethods);
  } catch (int index) {
    const Tableau<Method*> methods = mMethods.Methods();
    TabIndexOutOfRange(index, "DiscreteProcess::operator=", &methods, index, true);
  }
  TakeFlags(other);
  return other;
}

void DiscreteProcess::TakeMethodsOfItsOwn() {
  const Tableau<Method*> shared = mMethods.Methods();
  if (!shared.empty() && static_cast<ProcessMethod*>(shared[0])->DescribedProcess() == this) return;
  mMethods.Forget();
  for (Method* method : shared)
    if (Method* copy = NewMethodCopy(*method, copiedMethods)) AddMethod(copy);
}

void DiscreteProcess::SetExec(VoidBody body) { AssignBody(EXEC_PROCESS, body); }
