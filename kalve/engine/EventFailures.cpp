// Failures and warnings about events.
#include "kalve/engine/Event.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"

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
