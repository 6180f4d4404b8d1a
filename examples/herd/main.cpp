// A dairy herd at pasture through one grazing season, from its five files:
//   herd season.prm season.sim season.out season.str season.dir [options]
// A user interface drives it over standard input and output; with -BATCH it runs by itself.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "examples/herd/HerdClasses.h"

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

/// A line for each entity, its parts below it.
void PrintStructure(const BasicEntity& entity, int depth = 0) {
  std::printf("%*s%s (%s)\n", 2 * depth, "", entity.InstanceName(), entity.ClassName());
  const Tableau<BasicEntity*> parts =
      entity.HasComponents() ? entity.GetComponentTab() : entity.GetElementTab();
  for (const BasicEntity* part : parts)
    if (part != nullptr) PrintStructure(*part, depth + 1);  // a slot without its component holds null
}

bool HasOption(int argc, char** argv, const char* option) {
  return std::any_of(argv, argv + argc,
                     [option](const char* word) { return std::strcmp(word, option) == 0; });
}

}  // namespace

int main(int argc, char** argv) {
  if (ParseMainArguments(argc, argv, 0) == 0) return 1;
  InstallHerdClasses();
  Assign_App_NewEntityFromStringFunction(NewHerdEntity);
  Assign_App_NewEventFromStringFunction(NewHerdEvent);
  pCurrentSim = new Simulation();
  ParseParameterFile(argv[1]);
  ParseSimulationFile(argv[2]);
  ParseOutputSpecFile(argv[3]);
  ParseStructureFile(argv[4]);
  ParseDirectiveFile(argv[5]);

  BasicEntity* farm = pCurrentSim->SimulatedBasicEntity();
  PrintStructure(*farm);
  InitChrono();
  if (HasOption(argc, argv, "-BATCH")) {
    pCurrentSim->RunBatch(K_INTMAX);
    std::puts("FIN RUN");
  } else {
    pCurrentSim->Run();
  }

  farm->DeleteInDepth();
  delete pCurrentSim;
  return 0;
}
