// A dairy herd at pasture through one grazing season, from its five files:
//   herd season.prm season.sim season.out season.str season.dir [options]
#include <array>
#include <cstdio>
#include <cstring>

#include "examples/herd/HerdClasses.h"

namespace {

// What can happen to this herd, and what is done then, by the names that the directive file uses.
constexpr std::array<const char*, 9> eventNames = {"turnout",       "nightsOut",   "haymaking",
                                                   "deworming",     "inspection",  "calving",
                                                   "paddockChange", "milkControl", "dryingOff"};
constexpr std::array<const char*, 9> processNames = {"openGate", "closeGate", "walkFences", "moveHerd", "mow",
                                                     "deworm",   "birth",     "sampleMilk", "dryOff"};

/// An object of the known class, else null.
template <class Made>
Made* NewOf(const auto& knownNames, const char* name, Made* (*make)(const char* name)) {
  for (const char* known : knownNames)
    if (std::strcmp(known, name) == 0) return make(known);
  return nullptr;
}

Event* NewHerdEvent(const char* name) {
  return NewOf<Event>(eventNames, name, [](const char* known) { return new Event(known); });
}

Process* NewHerdProcess(const char* name) {
  return NewOf<Process>(processNames, name,
                        [](const char* known) -> Process* { return new DiscreteProcess(0, known); });
}

/// A line for each entity, its parts below it.
void PrintStructure(const BasicEntity& entity, int depth = 0) {
  std::printf("%*s%s (%s)\n", 2 * depth, "", entity.InstanceName(), entity.ClassName());
  const Tableau<BasicEntity*> parts =
      entity.HasComponents() ? entity.GetComponentTab() : entity.GetElementTab();
  for (const BasicEntity* part : parts)
    if (part != nullptr) PrintStructure(*part, depth + 1);  // a slot without its component holds null
}

}  // namespace

int main(int argc, char** argv) {
  if (ParseMainArguments(argc, argv, 0) == 0) return 1;
  InstallHerdClasses();
  Assign_App_NewEntityFromStringFunction(NewHerdEntity);
  Assign_App_NewEventFromStringFunction(NewHerdEvent);
  Assign_App_NewProcessFromStringFunction(NewHerdProcess);
  pCurrentSim = new Simulation();
  ParseParameterFile(argv[1]);
  ParseSimulationFile(argv[2]);
  ParseOutputSpecFile(argv[3]);
  ParseStructureFile(argv[4]);
  ParseDirectiveFile(argv[5]);

  BasicEntity* farm = pCurrentSim->SimulatedBasicEntity();
  PrintStructure(*farm);
  InitChrono();
  pCurrentSim->Run();

  farm->DeleteInDepth();
  delete pCurrentSim;
  return 0;
}
