// What the farm is made of. A farm is a set of units: its herd and its paddocks. The herd is a set of cows,
// and each cow has an udder.
#pragma once

#include "kalve/kalve.h"

/// Class symbols, behind those of the kernel.
enum HerdClass : int { FARM = KV_PROCESS + 1, FARM_UNIT, HERD, PADDOCK, COW, UDDER };

/// Symbols of the descriptors, likewise; the structure file gives them by name.
enum HerdDescriptor : int {
  AREA = 14,  ///< of a paddock, in hectares
  CALVINGS,   ///< of a cow, so far
  WEIGHT,     ///< of a cow, in kilograms
  CAPACITY,   ///< of an udder, in litres
};

class Farm : public Entity {
 public:
  Farm();
};

/// What a farm may hold.
class FarmUnit : public Entity {
 protected:
  FarmUnit();
};

class Herd : public FarmUnit {
 public:
  Herd();
};

class Paddock : public FarmUnit {
 public:
  Paddock();
};

class Cow : public Entity {
 public:
  Cow();
};

class Udder : public Entity {
 public:
  Udder();
};

/// Makes the classes known to the kernel; to be called before any entity is made.
void InstallHerdClasses();

/// By the name of its class, as the structure file has it; null for another name.
Entity* NewHerdEntity(const char* className);
