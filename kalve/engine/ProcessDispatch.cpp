#include "kalve/engine/ProcessDispatch.h"

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"

namespace {

/// Calls `act` with the process as its true class; `otherwise` for an unknown subclass.
template <class Act, class Result>
Result AsTrueClass(Process* process, Act act, Result otherwise) {
  switch (process->Subclass()) {
    case DISCRETE_PROCESS:
      return act(static_cast<DiscreteProcess*>(process));
    case CONTINUOUS_PROCESS:
      return act(static_cast<ContinuousProcess*>(process));
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
        delete doomed;
        return true;
      },
      false);
}
