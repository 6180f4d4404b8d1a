// What an event does to the processes of its couples when it is done with.
#include "kalve/engine/AgendaIndex.h"
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/ProcessDispatch.h"

void Event::ForgetProcess(const Process* process) {
  for (StructProcessAction* couple : mListpProcessAction)
    if (couple->process == process) couple->process = nullptr;
}

void Process::LeaveAgendas() {
  AgendaIndex::ForEachEvent([this](Event* event) { event->ForgetProcess(this); });
}

void Event::DeleteProcesses() {
  ForEachProcess([](Process* process) {
    if (process->mAgendaCouples == 0) DeleteProcessInDepth(process);
  });
}

void Event::DeleteProcessesIfNeeded(bool inDepth) {
  ForEachProcess([inDepth](Process* process) {
    const bool isHeld = process->mAgendaCouples > 0;
    if (process->Subclass() == CONTINUOUS_PROCESS) {
      if (process->ToBeDeleted() != 0 && !isHeld) DeleteProcessInDepth(process);
    } else if (process->Subclass() == DISCRETE_PROCESS) {
      if (isHeld && !inDepth)
        // The successor took its methods, and another event still counts on it.
        static_cast<DiscreteProcess*>(process)->TakeMethodsOfItsOwn();
      else if (!inDepth)
        DeleteProcessShallowly(process);
      else if (!isHeld)
        DeleteProcessInDepth(process);
    }
  });
}
