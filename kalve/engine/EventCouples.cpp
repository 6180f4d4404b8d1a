// The order of an event's couples: by rising action, and by rising step of continuous processes within one.
#include <cstdio>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/EngineLookups.h"
#include "kalve/engine/Event.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/model/ApplicationHooks.h"

namespace {

bool HasLowerStep(Process* process, Process* other) {
  return process->Subclass() == CONTINUOUS_PROCESS && other != nullptr &&
         other->Subclass() == CONTINUOUS_PROCESS &&
         static_cast<ContinuousProcess*>(process)->Step() < static_cast<ContinuousProcess*>(other)->Step();
}

}  // namespace

/// Puts a couple at its rank; the process knows of the agendas in which it now waits.
void Event::Append(Process* process, ActionType action, int rank) {
  mListpProcessAction.Insert(rank, process, action);
  if (process != nullptr) process->mAgendaCouples += mAgendas;
}

void Event::AddProcessAction(Process* process, ActionType action) {
  if (!mListpProcessAction.empty()) {
    const StructProcessAction& last = *mListpProcessAction.back();
    const bool isSameProcess = process == last.process;
    const bool isSecondProceed = action == PROCEED && last.action == PROCEED && isSameProcess;
    const bool goesBack = action < last.action && isSameProcess;
    const bool hasLowerStep =
        process != nullptr && action == last.action && HasLowerStep(process, last.process);
    if (isSecondProceed || goesBack || hasLowerStep) UnexpectedAddToListProcessAction(this, process, action);
  }
  Append(process, action, mListpProcessAction.size());
}

void Event::AddProcessAction(const char* processClassName, ActionType action) {
  Process* process = GetClassNamedProcess(processClassName);
  if (process == nullptr) {
    UnfoundProcessForAddingToEvent(processClassName, action);
    process = pApp_NewProcessFromString != nullptr ? pApp_NewProcessFromString(processClassName) : nullptr;
  }
  if (process != nullptr) AddProcessAction(process, action);
}

void Event::InsertProcessAction(Process* process, ActionType action) {
  try {
    const StructProcessAction& last = *mListpProcessAction.back();
    if (action == PROCEED && last.action == PROCEED)
      UnexpectedInsertInListProcessAction(this, process, action);
  } catch (int index) {
    const Tableau<StructProcessAction*> none;
    VoidArray(index, "Event::InsertProcessAction", &none, true);
  }
  int rank = 0;
  for (; rank < mListpProcessAction.size(); ++rank) {
    const StructProcessAction& couple = *mListpProcessAction[rank];
    if (action < couple.action) break;
    if (action == couple.action && process != nullptr && HasLowerStep(process, couple.process)) break;
  }
  Append(process, action, rank);
}

void Event::InsertProcessAction(const char* processClassName, ActionType action) {
  Process* process = GetClassNamedProcess(processClassName);
  if (process != nullptr)
    InsertProcessAction(process, action);
  else
    UnfoundProcessForAddingToEvent(processClassName, action);
}

void Event::DisplayListProcessAction() const {
  std::printf("\n ** couples (processus action) pour l'événement \"%s\" :", mClassName);
  for (int i = 0; i < mListpProcessAction.size(); ++i) {
    const StructProcessAction& couple = *mListpProcessAction[i];
    std::printf("\n    %d : %s (ptr=%p), %s", i, couple.process != nullptr ? couple.process->ClassName() : "",
                static_cast<void*>(couple.process), StringActionType(couple.action));
  }
}
