// What the farm is made of. A farm is a set of units: its herd and its paddocks. The herd is a set of cows,
// and each cow has an udder; calves stand in a table of their mothers.
#pragma once

#include "kalve/kalve.h"

/// Class symbols, behind those of the kernel.
enum HerdClass : int { FARM = KV_PROCESS + 1, FARM_UNIT, HERD, PADDOCK, COW, CALF, UDDER };

/// Symbols of the descriptors, likewise; the files give them by name.
enum HerdDescriptor : int {
  AREA = 14,     ///< of a paddock, in hectares
  NITROGEN,      ///< of a paddock, in kg N per hectare and season
  GRASS,         ///< of a paddock, in kg of dry matter per hectare
  IS_OPEN,       ///< of a paddock: 1 while the herd grazes it
  HALF_DAYS,     ///< of a paddock: how often the herd grazed it for half a day
  GRAZED,        ///< of a paddock, in kg of dry matter per hectare since the beginning
  HAY,           ///< of a paddock, in kg of dry matter per hectare since the beginning
  PLACE,         ///< of the herd: its paddock, null in the barn
  TANK,          ///< of the herd, in kg of milk since the beginning
  TEMPERATURE,   ///< of the farm, in degrees: mean of the day
  RAIN,          ///< of the farm, in mm a day
  HEAT,          ///< of the farm: degrees that a heat wave adds
  BREED,         ///< of a cow
  CALVINGS,      ///< of a cow, so far
  TERM,          ///< of a cow: the day of the year on which she is due; 0 for none
  DAYS_IN_MILK,  ///< of a cow, since her last calving; 0 while she is dry
  WEIGHT,        ///< of a cow, in kg
  INTAKE,        ///< of a cow, in kg of dry matter in the last half day
  MILK,          ///< of a cow, in kg of milk a day
  SEASON_MILK,   ///< of a cow, in kg of milk since the beginning
  WITHHELD,      ///< of a cow: milkings to come that do not go into the tank
  CALVES,        ///< of a cow: those born in the season
  SEX,           ///< of a calf
  BIRTH_WEIGHT,  ///< of a calf, in kg
  CAPACITY,      ///< of an udder, in kg of milk
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

/// Keeps thirty cows, whatever is to be culled.
class Herd : public FarmUnit {
 public:
  static constexpr int smallest = 30;
  Herd();
};

/// Its grass never falls below what the mouth of a cow can reach.
class Paddock : public FarmUnit {
 public:
  static constexpr double stubble = 400.0;
  Paddock();
};

class Cow : public Entity {
 public:
  Cow();
};

class Calf : public Entity {
 public:
  Calf();
};

class Udder : public Entity {
 public:
  Udder();
};

/// Makes the classes known to the kernel; to be called before any entity is made.
void InstallHerdClasses();

/// Makes the monitors that all instances share, and that watch each from its construction on; to be called
/// again after DeleteMonitors.
void MakeHerdMonitors();

/// By the name of its class, as the structure file has it; null for another name.
Entity* NewHerdEntity(const char* className);
/// By class symbol; null for a class without instances of its own.
Entity* NewHerdEntityOfId(int classId);

/// Class symbol or descriptor symbol of a name; -9 for another name.
int HerdEnumToInt(const char* name);

/// Writes the class files herd_classes.cls, herd_descriptors.cls and herd_methods.cls into the working
/// directory, for tools that work from class definitions. Leaves an instance of each class behind.
void ExportHerdClasses();
