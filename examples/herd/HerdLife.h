// How the herd lives: what its events and processes do, by the names that the directive file uses.
//
// Milk follows the lactation curve of P. D. P. Wood, "Algebraic model of the lactation curve in cattle",
// Nature 216, 1967; grass grows by a logistic law, slower when it is cold, hot or dry.
#pragma once

#include "kalve/kalve.h"

/// Constants of the season, from the parameter file.
struct HerdParameters {
  double intake = 0.0;      ///< kg of dry matter that a cow of 600 kg wants in a day
  double residue = 0.0;     ///< kg/ha of grass at which the herd leaves a paddock
  double growthRate = 0.0;  ///< of grass that little stands of, per day
  double ceiling = 0.0;     ///< kg/ha of grass at which growth ends
  double woodA = 0.0;       ///< Wood's a, b and c, for days and kg
  double woodB = 0.0;
  double woodC = 0.0;
  double heatLoss = 0.0;  ///< share of milk lost per degree above 22
};
extern HerdParameters herdParameters;

/// Reads them; assigned to the hook that follows each change of a parameter.
void RefreshHerdParameters();

/// Makes an event of one of the herd's classes; null for another name.
Event* NewHerdEvent(const char* className);
/// Makes a process; null for another name.
Process* NewHerdProcess(const char* className);
