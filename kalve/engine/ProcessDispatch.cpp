#include "kalve/engine/ProcessDispatch.h"

#include <iostream>

#include "kalve/engine/DataReading.h"
#include "kalve/foundations/TraceSwitches.h"

namespace {

/// Calls `act` with the process as its true class; `otherwise` for an unknown subclass.
template <class Act, class Result>
Result AsTrueClass(Process* process, Act act, Result otherwise) {
  switch (process->Subclass()) {
    case DISCRETE_PROCESS: {
      auto* discrete = static_cast<DiscreteProcess*>(process);
      if (discrete->IsReadSDRec() != 0) return act(static_cast<ReadFactualDataRecordProcess*>(discrete));
      if (discrete->IsInitSDRec() != 0) return act(static_cast<InitFactualDataFileReadingProcess*>(discrete));
      return act(discrete);
    }
    case CONTINUOUS_PROCESS: {
      auto* continuous = static_cast<ContinuousProcess*>(process);
      if (continuous->IsReadSDF() != 0) return act(static_cast<ReadSequentialDataFileProcess*>(continuous));
      return act(continuous);
    }
  }
  return otherwise;
}

}  // namespace

Process* CopyProcess(Process* process) {
  return AsTrueClass(
      process,
      []<class Class>(Class* source) -> Process* { return new Class(static_cast<const Class&>(*source)); },
      static_cast<Process*>(nullptr));
}

void DeleteProcessInDepth(Process* process) {
  AsTrueClass(
      process,
      [](auto* doomed) {
        doomed->DeleteInDepth();
        return true;
      },
      false);
}

void DeleteProcessShallowly(Process* process) {
  AsTrueClass(
      process,
      [](auto* doomed) {
        Process::Free(doomed);
        return true;
      },
      false);
}

// Members of the bases that look at the marks.

/// What a raw copy takes.
void DiscreteProcess::ShareWith(const DiscreteProcess& other) {
  ++_nbConst;
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n++raw copy construction de DP " << other.ClassName() << " " << this << " <- " << &other;
  TakeBinding(other);
  mIsReadSDRec = other.mIsReadSDRec;
  mIsInitSDRec = other.mIsInitSDRec;
  AddInstance(other.ClassSymbol(), other.ClassName());
  mMethods.Share(other.mMethods, static_cast<Process*>(this));
  TakeFlags(other);
}

DiscreteProcess* DiscreteProcess::RawCopy() {
  const auto copyOf = [this]<class Reader>(Reader* reader) {
    auto* copy = new Reader(true);
    copy->ShareWith(*this);
    copy->TakePlaceOf(*reader);
    return copy;
  };
  if (mIsReadSDRec) return copyOf(static_cast<ReadFactualDataRecordProcess*>(this));
  if (mIsInitSDRec) return copyOf(static_cast<InitFactualDataFileReadingProcess*>(this));
  auto* copy = new DiscreteProcess(true);
  copy->ShareWith(*this);
  return copy;
}

void DiscreteProcess::DeleteInDepth() {
  if (mIsReadSDRec || mIsInitSDRec) return DeleteProcessInDepth(this);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n-Destruction profonde du processus ponctuel " << this;
  mMethods.DestroyMethods();
  Free(this);
}

void ContinuousProcess::DeleteInDepth() {
  if (mIsReadSDF != 0) return DeleteProcessInDepth(this);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n-Destruction profonde du processus continu " << this;
  mMethods.DestroyMethods();
  Free(this);
}
