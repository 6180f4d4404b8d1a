// Failures of arguments.
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"

void InexistantArgument(Method* method, int argumentId) {
  ReportFailure("\n!!!============== InexistantArgument ==============",
                "\n!!! Tentative d'accès à un argument de classe : %s\n    sur la méthode '%s' de classe : %s"
                "\n!!! Un tel argument n'existe pas pour cette méthode.",
                ArgumentIdText(argumentId).c_str(), OrEmpty(method->StoredClassName()),
                MethodIdText(method->ClassSymbol()).c_str());
}

void BadArgumentType(int argumentId, int methodId, const char* operation) {
  ReportFailure("\n!!!============== BadArgumentType ==============",
                "\n!!! Le type de valeur de l'argument de classe : %s\n    de la méthode de classe : %s"
                "\n    ne convient pas à l'opération '%s'.",
                ArgumentIdText(argumentId).c_str(), MethodIdText(methodId).c_str(), OrEmpty(operation));
}

void UnsupportedArgumentType(const char* methodName, Argument* argument) {
  ReportFailure("\n!!!============== UnsupportedArgumentType ==============",
                "\n!!! Assignation d'une méthode '%s' :\n    le type de valeur (%s) de l'argument '%s' n'est "
                "pas géré pour cette méthode.",
                OrEmpty(methodName), ValueTypeToChar(argument->ClassType()), OrEmpty(argument->ClassName()));
}
