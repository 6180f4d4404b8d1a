// Failures and warnings about events.
#include "kalve/engine/Event.h"
#include "kalve/engine/Process.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/BasicEntity.h"

void NoSimulatedEntity() {
  ReportFailure("\n!!!============== NoSimulatedEntity ==============",
                "\n!!! L'entité simulée est demandée alors qu'elle n'a pas été affectée à la simulation."
                "\n    Utiliser Simulation::SimulatedEntity(entité).");
}

void UnspecifiedProcess(Event* event) {
  // The one fatal failure without banner.
  ReportFailure("", "\n!!! On n'a pas specifié le ou les processus géré(s). !!!\n    événement : %s",
                event->ClassName());
}

namespace {

/// "'event' ('process' sur 'entity')", of the event's first process.
std::string WithProcess(Event* event) {
  Process* process = event->LengthListProcessAction() > 0 ? event->FirstProcess() : nullptr;
  const bool isBound =
      process != nullptr && (process->HasProcessedEntity() != 0 || process->HasProcessedEntitySpec() != 0);
  const BasicEntity* entity = isBound ? process->ProcessedBasicEntity() : nullptr;
  const std::string on = entity != nullptr ? Text("'%s'", entity->InstanceName()) : "<non spécifié>";
  return Text("'%s' ('%s' sur %s)", event->ClassName(), process != nullptr ? process->ClassName() : "",
              on.c_str());
}

}  // namespace

void TwoEventsWithSameDateAndPriority(Event* first, Event* second, int date) {
  if (g_KV_TraceWarnings != 1) return;  // a specification of the entity would be expanded for nothing
  ReportWarning(
      "\n!!!! Attention : les deux événements suivants :\n%s\net\n%s"
      "\n... ont la même priorité (%d) et peuvent intervenir à la même date (%d)."
      "\nArbitrairement, le premier (%s) est supposé intervenir avant le second (%s).",
      WithProcess(second).c_str(), WithProcess(first).c_str(), first->PriorityDegree(), date,
      first->ClassName(), second->ClassName());
}

void UnexpectedProbability(Event* event, float probability) {
  ReportFailure("\n!!!============== UnexpectedProbability ==============",
                "\n!!! probabilité d'occurrence incorrecte (non incluse dans [0 1] !!!"
                "\n    événement : %s\n    date : %d\n    probabilité affectée : %.10g",
                event->ClassName(), event->OccurrenceClockTime(), static_cast<double>(probability));
}

void UnexpectedPriorityDegree(Event* event, short degree) {
  ReportFailure("\n!!!============== UnexpectedPriorityDegree ==============",
                "\n!!! degre de priorite incorrect (non inclus dans [0 99] !!!"
                "\n    événement : %s\n    date : %d\n      degré affecté : %d",
                event->ClassName(), event->OccurrenceClockTime(), degree);
}

void UnauthorizedMaxOccurenceClockTime(Event* event, int clock) {
  ReportFailure("\n!!!============== UnauthorizedMaxOccurenceClockTime ==============",
                "\n!!! Affectation d'une date d'occurrence maximale sans date minimale préalable."
                "\n    événement : %s\n    date maximale : %d",
                event->ClassName(), clock);
}

void UnexpectedDelayNextEvent(Event* event, int delay) {
  ReportFailure("\n!!!============== UnexpectedDelayNextEvent ==============",
                "\n!!! Affectation d'un délai avant l'événement suivant, pour un événement non auto-généré."
                "\n    événement : %s\n    délai affecté : %d",
                event->ClassName(), delay);
}

void UnspecifiedPredefinedMethod(const char* method, Event* event) {
  ReportFailure("\n!!!============== UnspecifiedPredefinedMethod ==============",
                "\n!!! La méthode prédéfinie '%s' n'a pas reçu de corps.\n    événement : %s", method,
                event->ClassName());
}

void UnexpectedVoidListProcessAction(Event* event) {
  ReportWarning("\n!!! La liste des couples (processus action) de l'événement '%s' est vide.",
                event->ClassName());
}
