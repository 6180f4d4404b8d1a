#include "kalve/inputs/ParserFunction.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Liste.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/model/Entity.h"
#include "kalve/parsers/Parsers.h"

FactorialDesignOfExperiment* g_KV_DOE = nullptr;
void (*pInitParameterGlobalVariables)() = InitParameterGlobalVariables;
LexicalInputFile* pCurrentFile = nullptr;
LexicalInputFile* pFatherFile = nullptr;
LexicalInputFile* pTmpFile = nullptr;

// Command line -----------------------------------------------------------------------------------------

namespace {

constexpr int positionalFiles = 5;

void PrintUsage() {
  std::puts(
      "Usage : main system_parameters simulation_parameters output_specifications structure directives");
  std::puts("\t[-MR (memory report)] [-M(emory trace)]");
  std::puts("\t[-V <begClock>[-<endClock>](history of agenda of events from[-to])]");
  std::puts("\t[-Warn (miscellaneous warnings)] ");
  std::puts("\t[-T(ableaux trace)] [-L(istes trace)]  [-IDN <num>] ");
  std::puts("\t[-EXPE(rimental design)]");
}

/// "100-200" or "100"; a missing number leaves 0 at the beginning and no limit at the end.
void SetAgendaHistory(std::string interval) {
  g_KV_TraceActionMode = 1;
  g_KV_actionLog_begClock = 0;
  g_KV_actionLog_endClock = K_INTMAX;
  char* rest = nullptr;
  const char* begin = strtok_r(interval.data(), "-", &rest);
  const char* end = strtok_r(nullptr, "-", &rest);
  if (begin != nullptr) g_KV_actionLog_begClock = std::atoi(begin);
  if (end != nullptr) g_KV_actionLog_endClock = std::atoi(end);
}

struct Switch {
  const char* option;
  int* value;
};
constexpr Switch switches[] = {
    {"-M", &g_KV_TraceNewDelMode},  {"-MR", &g_KV_MemoryReportMode}, {"-Warn", &g_KV_TraceWarnings},
    {"-T", &g_KV_TraceTableauMode}, {"-L", &g_KV_TraceListeMode},
};

void ApplySwitch(const char* word) {
  for (const Switch& known : switches)
    if (std::strcmp(word, known.option) == 0) *known.value = 1;
}

/// Options that take the word behind them; at the end of the line they have none and are ignored.
void ApplyOptionWithValue(const char* word, const char* value) {
  if (std::strcmp(word, "-V") == 0) SetAgendaHistory(value);
  if (std::strcmp(word, "-IDN") == 0) gCurrentSimNumId = std::atoi(value);
  if (std::strcmp(word, "-EXPE") == 0) ParseExpeFile(value);
}

}  // namespace

int ParseMainArguments(int argc, char** argv, int printCommandLine) {
  const bool enough = argc > positionalFiles;
  const bool usable = enough && std::strcmp(argv[1], "-h") != 0;
  if (!usable) PrintUsage();
  for (int i = positionalFiles + 1; enough && i < argc; ++i) {
    ApplySwitch(argv[i]);
    if (i + 1 < argc) ApplyOptionWithValue(argv[i], argv[i + 1]);
  }
  if (printCommandLine != 0) PrintCommandLine(argc, argv);
  return usable ? 1 : 0;
}

int ParseMainArguments(int argc, char** argv) { return ParseMainArguments(argc, argv, 1); }

void PrintCommandLine(int argc, char** argv) {
  if (const char* directory = std::getenv("PWD")) std::printf("\n'%s'\n", directory);
  for (int i = 0; i < argc; ++i) std::printf("%s ", argv[i]);
}

// Files ------------------------------------------------------------------------------------------------

namespace {

void ParseWith(void (*parser)(LexicalInputFile*), const char* path) {
  auto* file = new LexicalInputFile;
  file->AssignFullName(path);
  parser(file);
  delete file;
}

}  // namespace

void ParseParameterFile(const char* path) {
  File::mpInstanceTab.erase(10);
  Parameter::mpInstanceTab.erase(100);
  ParseWith(Param_Parser, path);
  Assign_InitParameterGlobalVariablesFunction(InitParameterGlobalVariables);
  pInitParameterGlobalVariables();
}

void ParseSimulationFile(const char* path) { ParseWith(Simu_Parser, path); }
void ParseOutputSpecFile(const char* path) { ParseWith(OutputSpec_Parser, path); }
void ParseStructureFile(const char* path) { ParseWith(Structure_Parser, path); }
void ParseDirectiveFile(const char* path) { ParseWith(Directive_Parser, path); }
void ParseExpeFile(const char* path) { ParseWith(Expe_Parser, path); }

FactorialDesignOfExperiment* GetDesignOfExperiment() { return g_KV_DOE; }

void Assign_InitParameterGlobalVariablesFunction(void (*function)()) {
  pInitParameterGlobalVariables = function != nullptr ? function : InitParameterGlobalVariables;
}

void InitParameterGlobalVariables() {}

// Traces -----------------------------------------------------------------------------------------------

namespace {

void PrintDashes() { std::printf("\n%s\n", std::string(75, '-').c_str()); }

}  // namespace

void DisplayContainerEntityList(Liste<Entity*>* containers) {
  containers->go_head();
  if (containers->is_current_off()) {
    std::printf("\tLa liste est vide");
    return;
  }
  std::printf("PILE DES ENTITES (classes) :");
  for (int number = containers->size() - 1; containers->is_current_in(); containers->go_next(), --number)
    std::printf("\t%d : %s (%x)\n", number, containers->current()->ClassName(),
                Address32(containers->current()));
}

#define KALVE_DEFINE_TRACE(letter, LETTER)                     \
  void NL##letter() {                                          \
    if (g_KV_TraceParsing##LETTER != 0) PrintDashes();         \
  }                                                            \
  void TL##letter(const char* text) {                          \
    if (g_KV_TraceParsing##LETTER != 0) std::printf(text, ""); \
  }
KALVE_PARSER_LETTERS(KALVE_DEFINE_TRACE)
#undef KALVE_DEFINE_TRACE
