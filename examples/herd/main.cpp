// A dairy herd at pasture through one grazing season, from its five files:
//   herd season.prm season.sim season.out season.str season.dir [options]
#include <array>
#include <cstring>

#include "kalve/kalve.h"

namespace {

/// What can happen to this herd, by the names that the directive file uses.
constexpr std::array<const char*, 9> eventNames = {"turnout",       "nightsOut",   "haymaking",
                                                   "deworming",     "inspection",  "calving",
                                                   "paddockChange", "milkControl", "dryingOff"};

Event* NewHerdEvent(const char* name) {
  for (const char* known : eventNames)
    if (std::strcmp(known, name) == 0) return new Event(known);
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  if (ParseMainArguments(argc, argv, 0) == 0) return 1;
  Assign_App_NewEventFromStringFunction(NewHerdEvent);
  pCurrentSim = new Simulation();
  ParseParameterFile(argv[1]);
  ParseSimulationFile(argv[2]);
  ParseOutputSpecFile(argv[3]);
  ParseStructureFile(argv[4]);
  ParseDirectiveFile(argv[5]);
  InitChrono();
  pCurrentSim->Run();
  delete pCurrentSim;
  return 0;
}
