#include "kalve/engine/ContinuousProcess.h"

#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/PredefinedMethods.h"

int ContinuousProcess::_nbConst = 0;
int ContinuousProcess::_nbDest = 0;

ContinuousProcess::ContinuousProcess() {
  Subclass(CONTINUOUS_PROCESS);
  BeginMethods(predefinedSet<ProcessPrecondition, ProcessPostponementDelay, GoOneStepForwardProcess,
                             InitializeProcess, StopProcess>);
}

ContinuousProcess::ContinuousProcess(int classSymbol) : ContinuousProcess(classSymbol, "ContinuousProcess") {}

ContinuousProcess::ContinuousProcess(int classSymbol, const char* className) : ContinuousProcess() {
  ++_nbConst;
  AddInstance(classSymbol, className);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n+Construction du processus continu " << this;
}

ContinuousProcess::ContinuousProcess(const ContinuousProcess& other)
    : Process(other), mStep(other.mStep), mToBeStopped(other.mToBeStopped), mIsReadSDF(other.mIsReadSDF) {
  ++_nbConst;
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "++copy construction de CP " << ClassName() << " " << this << " <- " << &other;
  LazyMethods::CopyMethods(other.mMethods, {VOID, INT}, static_cast<Process&>(*this));
  TakeFlags(other);
}

const ContinuousProcess& ContinuousProcess::operator=(const ContinuousProcess& other) {
  if (this == &other) return other;
  TakeBinding(other);
  ClassSymbol(other.ClassSymbol());
  ClassName(other.ClassName());
  mStep = other.mStep;
  mToBeStopped = other.mToBeStopped;
  mIsReadSDF = other.mIsReadSDF;
  try {
    mMethods.AssignMethods(other.mMethods);
  } catch (int index) {
    const Tableau<Method*> methods = mMethods.Methods();
    TabIndexOutOfRange(index, "ContinuousProcess::operator=", &methods, index, true);
  }
  TakeFlags(other);
  return other;
}

ContinuousProcess::~ContinuousProcess() {
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n-Destruction du processus continu " << this;
  ++_nbDest;
}

void ContinuousProcess::TakeFlags(const ContinuousProcess& other) {
  HasPrecondition(other.HasPrecondition());
  HasPostponementDelay(other.HasPostponementDelay());
}

void ContinuousProcess::SetInitialize(VoidBody body) { AssignBody(INITIALIZE_PROCESS, body); }
void ContinuousProcess::SetGoOneStepForward(VoidBody body) { AssignBody(GOONESTEPFORWARD_PROCESS, body); }
void ContinuousProcess::SetStop(VoidBody body) { AssignBody(STOP_PROCESS, body); }
