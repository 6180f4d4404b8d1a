// What a process's method knows of its process.
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/methods/Method.h"

Process* ProcessMethod::DescribedProcess() const {
  if (mpDescribedProcess == nullptr) return nullptr;
  const ProcessSubclassId subclass = mpDescribedProcess->Subclass();
  return subclass == DISCRETE_PROCESS || subclass == CONTINUOUS_PROCESS ? mpDescribedProcess : nullptr;
}

ContinuousProcess* ProcessMethod::DescribedContinuousProcess() const {
  const bool isContinuous =
      mpDescribedProcess != nullptr && mpDescribedProcess->Subclass() == CONTINUOUS_PROCESS;
  return isContinuous ? static_cast<ContinuousProcess*>(mpDescribedProcess) : nullptr;
}

DiscreteProcess* ProcessMethod::DescribedDiscreteProcess() const {
  const bool isDiscrete = mpDescribedProcess != nullptr && mpDescribedProcess->Subclass() == DISCRETE_PROCESS;
  return isDiscrete ? static_cast<DiscreteProcess*>(mpDescribedProcess) : nullptr;
}
