// Failures of classes and instances.
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"

void SimulationNotYetCreated() {
  ReportFailure("\n!!!============== SimulationNotYetCreated ==============",
                "\n!!! La simulation n'a pas encore été créée."
                "\n    L'affecter à pCurrentSim avant cette opération.");
}

void UnknownClassName(const char* service, const char* className) {
  ReportFailure("\n!!!============== UnknownClassName ==============",
                "\n!!! Le nom de classe '%s' n'est connu ni du noyau, ni de l'application."
                "\n    Le service qui l'a cherché est '%s'.",
                OrEmpty(className), OrEmpty(service));
}
