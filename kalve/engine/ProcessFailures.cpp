// Failures and warnings about processes and the couples that hold them.
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/Method.h"

namespace {

const char* NameOf(Process const* process) { return process != nullptr ? process->ClassName() : ""; }

}  // namespace

void BadMethodValueType(Event* event, Method* method, const char* operation) {
  ReportFailure("\n!!!============== BadMethodValueType ==============",
                "\n!!! L'opération '%s' ne respecte pas le type de la méthode '%s' (%s)."
                "\n    événement : %s",
                operation, method->StoredClassName(), ValueTypeToChar(method->ClassType()),
                event->ClassName());
}

void BadMethodValueType(Process* process, Method* method, const char* operation) {
  ReportFailure("\n!!!============== BadMethodValueType ==============",
                "\n!!! L'opération '%s' ne respecte pas le type de la méthode '%s' (%s)."
                "\n    processus : %s",
                operation, method->StoredClassName(), ValueTypeToChar(method->ClassType()), NameOf(process));
}

void DoNotHaveProcessedEntity(Process const* process) {
  ReportWarning("\n!!! Le processus '%s' n'a pas d'entité gérée.", NameOf(process));
}

void InexistantInitializationMethod(ContinuousProcess* process) {
  ReportFailure("\n!!!============== InexistantInitializationMethod ==============",
                "\n!!! Le processus '%s' n'a pas de méthode d'initialisation.", NameOf(process));
}

void InexistantProceedMethod(ContinuousProcess* process) {
  ReportFailure("\n!!!============== InexistantProceedMethod ==============",
                "\n!!! Le processus '%s' n'a pas de méthode d'avancement d'un pas.", NameOf(process));
}

void InexistantStopMethod(ContinuousProcess* process) {
  ReportFailure("\n!!!============== InexistantStopMethod ==============",
                "\n!!! Le processus '%s' n'a pas de méthode d'arrêt.", NameOf(process));
}

void UnexpectedAddToListProcessAction(Event* event, Process* process, ActionType action) {
  ReportFailure("\n!!!============== UnexpectedAddToListProcessAction ==============",
                "\n!!! L'ajout du couple ('%s' %s) à l'événement '%s'"
                "\n    ne respecte pas l'ordre INIT PROCEED STOP (ni, à action égale, celui des pas).",
                NameOf(process), StringActionType(action), event->ClassName());
}

void UnexpectedInsertInListProcessAction(Event* event, Process* process, ActionType action) {
  ReportFailure("\n!!!============== UnexpectedInsertInListProcessAction ==============",
                "\n!!! L'insertion du couple ('%s' %s) dans l'événement '%s' est refusée :"
                "\n    l'événement comporte déjà une action PROCEED.",
                NameOf(process), StringActionType(action), event->ClassName());
}

void UnfoundProcessForAddingToEvent(const char* processClassName, ActionType action) {
  ReportWarning("\n!!! Aucun processus de classe '%s' à ajouter à un événement (action %s).",
                processClassName, StringActionType(action));
}

void UnfoundProcessInEvent(Event* event, int processClass) {
  ReportFailure("\n!!!============== UnfoundProcessInEvent ==============",
                "\n!!! L'événement '%s' ne comporte pas de processus de classe %s.", event->ClassName(),
                ClassSymbolText(processClass).c_str());
}

void UnAuthorizedDirective(Process* process, const char* directive) {
  ReportFailure("\n!!!============== UnAuthorizedDirective ==============",
                "\n!!! L'action %s n'est pas autorisée sur le processus '%s'.", directive, NameOf(process));
}
