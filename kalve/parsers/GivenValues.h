// Values as the structure file writes them, those of system parameters among them.
#pragma once

#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/parsers/Faults.h"

/// A value for a descriptor, or a bound.
struct GivenValue {
  ValueTypeId type = VOID;
  int low = 0;  ///< an int too
  int high = 0;
  double real = 0.0;
  std::string text = {};            ///< class of an entity too
  std::string iterator = {};        ///< "" for a value that does not change
  EntitySpec* selection = nullptr;  ///< not owned

  bool IsNumber() const { return type == INT || type == DOUBLE; }
  /// Of a number.
  double Number() const { return type == INT ? low : real; }
};

/// The value of a system parameter: INT, DOUBLE or STRING. InexistantParameter; a date is a fault.
GivenValue ParameterValue(const Position& where, const std::string& className, const std::string& name);
/// The same with an iterator behind it, which only a text takes.
GivenValue IteratedParameterText(const Position& where, const std::string& className, const std::string& name,
                                 const std::string& iterator);
/// InexistantTypedParameter.
int IntParameterValue(const Position& where, const std::string& className, const std::string& name);
