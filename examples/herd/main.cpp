// A dairy herd at pasture through one grazing season, from its five files:
//   herd season.prm season.sim season.out season.str season.dir [options]
// A user interface drives it over standard input and output. With -BATCH it runs by itself and sums the
// season up; -EXPORT writes the class files and runs nothing; -EXPE stocking.exp runs a design.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "examples/herd/HerdClasses.h"
#include "examples/herd/HerdData.h"
#include "examples/herd/HerdLife.h"
#include "examples/herd/HerdSummary.h"

namespace {

bool HasOption(int argc, char** argv, const char* option) {
  return std::any_of(argv, argv + argc,
                     [option](const char* word) { return std::strcmp(word, option) == 0; });
}

/// A line for each entity, its parts below it.
void PrintStructure(const BasicEntity& entity, int depth = 0) {
  std::printf("%*s%s (%s)\n", 2 * depth, "", entity.InstanceName(), entity.ClassName());
  const Tableau<BasicEntity*> parts =
      entity.HasComponents() ? entity.GetComponentTab() : entity.GetElementTab();
  for (const BasicEntity* part : parts)
    if (part != nullptr) PrintStructure(*part, depth + 1);  // a slot without its component holds null
}

/// Equal seeds and numbers give equal seasons.
void SeedAll() {
  gRandomSeed = GetIntParameterValue("Herd", "seed") + std::max(0, pCurrentSim->GetNumId());
  std::srand(static_cast<unsigned>(gRandomSeed));
  pCurrentSim->GetRandomGenerator()->seed(static_cast<unsigned long>(gRandomSeed));
}

void InstallHerd() {
  InstallHerdClasses();
  AssignEnumToInt(HerdEnumToInt);
  Assign_App_NewEntityFromStringFunction(NewHerdEntity);
  Assign_App_NewEntityFromIdFunction(NewHerdEntityOfId);
  Assign_App_NewEventFromStringFunction(NewHerdEvent);
  Assign_App_NewProcessFromStringFunction(NewHerdProcess);
  Assign_App_NewSerialDataFileFromStringFunction(NewHerdDataFile);
  Assign_App_NewSerialDataFileFromIdFunction([](int id) { return GetSerialDataFile(id); });
  Assign_App_SerialDataFileIdFromStringFunction(HerdDataFileId);
}

void ReadParameters(const char* path) {
  ParseParameterFile(path);
  Assign_InitParameterGlobalVariablesFunction(RefreshHerdParameters);
  RefreshHerdParameters();
}

/// `files` are the five of the command line.
void SetSeasonUp(char** files) {
  MakeHerdMonitors();
  pCurrentSim = new Simulation();
  SeedAll();
  ParseSimulationFile(files[1]);
  ParseOutputSpecFile(files[2]);
  ParseStructureFile(files[3]);
  ParseDirectiveFile(files[4]);
}

/// What belongs to one run goes; parameters and design stay for the next one, which gives the same names.
void TearSeasonDown() {
  DeleteEntitySpecs();
  DeleteEntityInstances();
  DeleteMonitors();
  DeleteOutputSpecs();
  DeleteHerdDataFiles();
  delete pCurrentSim;
  pCurrentSim = nullptr;
  BasicEntity::mInstanceNumber = 0;
  Event::mInstanceNumber = 0;
}

void RunInBatch() {
  PrintStructure(*pCurrentSim->SimulatedBasicEntity());
  const int events = pCurrentSim->RunBatch(K_INTMAX);
  std::printf("\n%d événements\n", events);
  PrintSummary();
  DisplayAllOutputSpecs();
  std::puts("FIN RUN");
}

/// All runs of the design, numbered from 1.
void RunDesign(FactorialDesignOfExperiment& design, char** files) {
  gCurrentSimNumId = 0;
  for (int runs = design.NextSimulationSettings(); runs > 0; runs = design.NextSimulationSettings())
    for (int run = 0; run < runs; ++run) {
      ++gCurrentSimNumId;
      SetSeasonUp(files);
      pCurrentSim->RunBatch(K_INTMAX);
      PrintRunLine();
      DisplayAllOutputSpecs();
      TearSeasonDown();
    }
}

void RunOnce(int argc, char** argv) {
  SetSeasonUp(argv + 1);
  if (HasOption(argc, argv, "-EXPORT")) {
    ExportHerdClasses();
  } else if (HasOption(argc, argv, "-BATCH")) {
    RunInBatch();
  } else {
    InitChrono();
    pCurrentSim->Run();
    DisplayAllOutputSpecs();
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (ParseMainArguments(argc, argv, 0) == 0) return 1;
  InstallHerd();
  ReadParameters(argv[1]);
  if (FactorialDesignOfExperiment* design = GetDesignOfExperiment())
    RunDesign(*design, argv + 1);
  else
    RunOnce(argc, argv);
  DeleteAll();
  return 0;
}
