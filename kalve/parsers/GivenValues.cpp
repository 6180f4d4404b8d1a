#include "kalve/parsers/GivenValues.h"

#include "kalve/foundations/FailureReport.h"
#include "kalve/inputs/Parameter.h"

namespace {

std::string Statement(const std::string& className, const std::string& name) {
  return "PARAM " + Quoted(className) + " " + Quoted(name);
}

}  // namespace

GivenValue ParameterValue(const Position& where, const std::string& className, const std::string& name) {
  const Parameter* parameter = nullptr;
  {
    const FailureContext context([&] { AnnounceFault(where, Statement(className, name)); });
    parameter = GetParameter(className.c_str(), name.c_str());
  }
  switch (parameter->ValueType()) {
    case INT:
      return {.type = INT, .low = static_cast<const IntParameter*>(parameter)->GetIntValue()};
    case DOUBLE:
      return {.type = DOUBLE, .real = static_cast<const RealParameter*>(parameter)->GetRealValue()};
    case STRING:
      return {.type = STRING, .text = static_cast<const StringParameter*>(parameter)->GetStringValue()};
    default:
      FaultInFile(where, Statement(className, name) + " : une date n'est pas une valeur de descripteur");
  }
}

GivenValue IteratedParameterText(const Position& where, const std::string& className, const std::string& name,
                                 const std::string& iterator) {
  GivenValue value = ParameterValue(where, className, name);
  if (value.type != STRING)
    FaultInFile(where, Statement(className, name) + " : seul un texte prend un itérateur");
  value.iterator = iterator;
  return value;
}

int IntParameterValue(const Position& where, const std::string& className, const std::string& name) {
  const FailureContext context([&] { AnnounceFault(where, Statement(className, name)); });
  return GetIntParameterValue(className.c_str(), name.c_str());
}
