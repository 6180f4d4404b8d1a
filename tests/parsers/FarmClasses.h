// Classes of entities for the tests of the parsers: a farm is a set of units, its herd and its paddocks; the
// herd is a set of cows, and each cow has an udder.
#pragma once

#include "kalve/kalve.h"

enum FarmClass : int { FARM = KV_PROCESS + 1, FARM_UNIT, HERD, PADDOCK, COW, UDDER };

enum FarmDescriptor : int {
  AREA = 14,  ///< of a paddock, double, constant
  CALVINGS,   ///< of a cow, int
  WEIGHT,     ///< of a cow, double
  CAPACITY,   ///< of an udder, double, constant
};

void InstallFarmClasses();
/// By the name of its class; null for another name.
Entity* NewFarmEntity(const char* className);
