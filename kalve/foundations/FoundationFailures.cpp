// Failures of dates, numbers, intervals, the chronometer, and those that concern no other subsystem.
#include <cstring>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"

void BadClockValueForTm(int clock) {
  ReportFailure(
      "\n!!!============== BadClockValueForTm ==============",
      "\n!!! On cherche à établir une date calendaire,\n    avec une valeur d'horloge négative : %d", clock);
}

void BadClockTimeUnit(TimeUnit unit) {
  ReportFailure("\n!!!============== BadClockTimeUnit ==============",
                "\n!!! L'unité de temps déclarée (%d) n'est pas gérée par le système."
                "\n    Les unités valides sont : SECOND MINUTE HOUR DAY.",
                unit);
}

void BadDate(const char* where, int a, int b, int c, int d, int e, int f) {
  ReportWarning(
      "\n!!! Erreur dans '%s' : (%d %d %d %d %d %d) :"
      "\n    la date est antérieure à la date de début de la simulation.",
      where, a, b, c, d, e, f);
}

void BadChronometerHandling(const char* operation) {
  const char* cause = "???";
  if (std::strcmp(operation, "StartChrono") == 0 || std::strcmp(operation, "CloseChrono") == 0)
    cause = "InitChrono().";
  else if (std::strcmp(operation, "PauseChrono") == 0)
    cause = "InitChrono() ou n'a pas été lancé par StarChrono().";
  ReportFailure("\n!!!============== BadChronometerHandling ==============",
                "\n!!! %s : le chronomètre n'a pas été initialisé par %s", operation, cause);
}

namespace {

constexpr const char* badIntervalBounds = "\n!!!============== BadIntervalBounds ==============";

}  // namespace

void BadIntervalBounds(int low, int high) {
  ReportFailure(badIntervalBounds,
                "\n!!! La borne inférieure d'un intervalle d'entiers est supérieure à sa borne supérieure."
                "\n!!! intervalle : [%d, %d]",
                low, high);
}

void BadIntervalBounds(float low, float high) {
  ReportFailure(badIntervalBounds,
                "\n!!! La borne inférieure d'un intervalle de flottants est supérieure à sa borne supérieure."
                "\n!!! intervalle : [%.10g, %.10g]",
                static_cast<double>(low), static_cast<double>(high));
}

void BadIntervalBounds(double low, double high) {
  ReportFailure(badIntervalBounds,
                "\n!!! La borne inférieure d'un intervalle de doubles est supérieure à sa borne supérieure."
                "\n!!! intervalle : [%.10g, %.10g]",
                low, high);
}

void ConnexionFailedToDataBase(std::string baseName, std::string userName) {  // NOLINT: by value, as declared
  ReportFailure("\n!!!============== ConnexionFailedToDataBase ==============",
                "Postgresql: Impossible d'établir la connexion\n    data base : '%s'\n    user name : '%s'",
                baseName.c_str(), userName.c_str());
}

void NonPositiveStandardDeviation(const char* function, double deviation) {
  ReportFailure("\n!!!============== NonPositiveStandardDeviation ==============",
                "!!! %s : on manipule un écart-type non positif : %.10g", function, deviation);
}

void Obsolescence(const char* what, const char* since) {
  ReportFailure("\n!!!============== Obsolescence ==============",
                "\n!!! '%s' est une obsolescence depuis %s.", what, since);
}

void OverSpecificationOnParentClass(const char* className, const char* relatedClassName) {
  ReportFailure("\n!!!============== OverSpecificationOnParentClass ==============",
                "\n!!! Tentative de spécification de sortie sur la classe '%s'"
                "\n    alors qu'une spécification sur la classe aparentée '%s'\n    a déjà été faite.!!!",
                className, relatedClassName);
}

void InexistantInstance(const char* operation) {
  ReportFailure("\n!!!============== InexistantInstance ==============",
                "\n!!! Référence à une instance inexistante dans une opération '%s'."
                "\n    Vérifier que deux classes ne possèdent pas le même symbole"
                "\n    (notamment entre couches génériques et couches applicatives).",
                operation);
}
