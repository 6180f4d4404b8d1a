// The command line, the hooks, and the wrappers of the parsers.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kalve/designs/DesignOfExperiment.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/NameTables.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace {

int Parse(std::vector<std::string> words, int print = 0) {
  words.insert(words.begin(), "main");
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  return ParseMainArguments(static_cast<int>(argv.size()), argv.data(), print);
}

constexpr const char* usage =
    "Usage : main system_parameters simulation_parameters output_specifications structure directives\n"
    "\t[-MR (memory report)] [-M(emory trace)]\n"
    "\t[-V <begClock>[-<endClock>](history of agenda of events from[-to])]\n"
    "\t[-Warn (miscellaneous warnings)] \n"
    "\t[-T(ableaux trace)] [-L(istes trace)]  [-IDN <num>] \n"
    "\t[-EXPE(rimental design)]\n";

TEST(CommandLine, NeedsFiveFiles) {
  EXPECT_EQ(OutputOf([] {
              EXPECT_EQ(Parse({"p", "s", "o", "-Warn"}), 0);
              std::printf("%d", g_KV_TraceWarnings);
            }),
            std::string(usage) + "0");
  EXPECT_EQ(OutputOf([] {
              EXPECT_EQ(Parse({"-h", "s", "o", "t", "d", "-Warn", "-IDN", "12"}), 0);
              std::printf("%d %d", g_KV_TraceWarnings, gCurrentSimNumId);
            }),
            std::string(usage) + "1 12");
  EXPECT_EQ(OutputOf([] {
              EXPECT_EQ(Parse({"p", "s", "o", "t", "-Warn", "unknown", "-M", "-IDN"}), 1);
              std::printf("%d %d %d", g_KV_TraceWarnings, g_KV_TraceNewDelMode, gCurrentSimNumId);
            }),
            "0 1 -9");
}

TEST(CommandLine, ReadsTheIntervalOfTheAgendasHistory) {
  struct Case {
    const char* value;
    int begin;
    int end;
  };
  const Case cases[] = {{"100-200", 100, 200}, {"100", 100, K_INTMAX}, {"100-", 100, K_INTMAX},
                        {"-50", 50, K_INTMAX}, {"-", 0, K_INTMAX},     {"", 0, K_INTMAX}};
  for (const Case& c : cases) {
    EXPECT_EQ(Parse({"p", "s", "o", "t", "d", "-V", c.value}), 1);
    EXPECT_EQ(g_KV_actionLog_begClock, c.begin) << c.value;
    EXPECT_EQ(g_KV_actionLog_endClock, c.end) << c.value;
  }
  // A value that looks like an option acts as one.
  EXPECT_EQ(OutputOf([] {
              Parse({"p", "s", "o", "t", "d", "-V", "-Warn"});
              std::printf("%d %d", g_KV_TraceActionMode, g_KV_TraceWarnings);
            }),
            "1 1");
}

TEST(CommandLine, IsPrinted) {
  EXPECT_EQ(OutputOf([] {
              setenv("PWD", "/here", 1);
              Parse({"p", "s", "o", "t", "d"}, 1);
            }),
            "\n'/here'\nmain p s o t d ");
}

TEST(CommandLine, ReadsTheDesignInTheMiddleOfTheScan) {
  const auto outputOf = [](std::vector<std::string> options) {
    options.insert(options.begin(), {"p", "s", "o", "t", "d"});
    return RunInChild([&] { Parse(options); }).output;
  };
  const std::string failure =
      "\n!!!============== BadFileName =============="
      "\n!!! Impossible d'ouvrir le fichier '/no/design'.\nERROR \n";
  EXPECT_EQ(outputOf({"-EXPE", "/no/design", "-M"}), failure);
  const std::string traced = outputOf({"-M", "-EXPE", "/no/design"});
  EXPECT_EQ(traced.find("\nConstruction d'une instance de 'File' : "), 0U);
  EXPECT_TRUE(traced.ends_with(failure));
}

TEST(Parsers, ReadTheFilesOfAllKindsInTheirOrder) {
  TemporaryFolder folder;
  const std::string empty = folder.Write("empty", "# nothing\nINCLUDE \"other\";\n");
  folder.Write("other", "# nor here\nEND INCLUDE;\n");
  const std::string design = folder.Write("design", "FACTOR season () { (); (); }");
  Simulation simulation;
  pCurrentSim = &simulation;
  static int refreshed = 0;
  Assign_InitParameterGlobalVariablesFunction([] { ++refreshed; });
  ParseParameterFile(empty.c_str());
  EXPECT_EQ(refreshed, 0);
  EXPECT_EQ(pInitParameterGlobalVariables, InitParameterGlobalVariables);
  for (auto parse : {ParseSimulationFile, ParseOutputSpecFile, ParseStructureFile, ParseDirectiveFile})
    parse(empty.c_str());
  ParseExpeFile(design.c_str());
  EXPECT_NE(GetDesignOfExperiment(), nullptr);
  DeleteExpeSpecifications();
  g_KV_DOE = nullptr;
  EXPECT_EQ(File::mpInstanceTab.size(), 0);
  EXPECT_EQ(pCurrentFile, nullptr);
  pCurrentSim = nullptr;
}

TEST(Parsers, TraceStatementsUnderTheSwitchOfTheirLetter) {
  TemporaryFolder folder;
  const std::string path = folder.Write("f", "OUT_DIR 100%s/;\n  CLOCK 1\n DAY;DATA_FILE W { KEY \"%d\"; }");
  const std::string dashes = "\n" + std::string(75, '-') + "\n";
  const auto parse = [&](int& trace) {
    Simulation simulation;
    pCurrentSim = &simulation;
    trace = 1;
    Assign_App_NewSerialDataFileFromStringFunction(
        [](const char*) -> SerialDataFile* { return new SequentialDataFile(40, READ_ACCESS, OM_APPEND); });
    ParseSimulationFile(path.c_str());
  };
  EXPECT_EQ(OutputOf([&] { parse(g_KV_TraceParsingI); }),
            dashes + "OUT_DIR 100%s/ ;\nCLOCK 1 DAY ;\nDATA_FILE W {\nKEY \"%d\" ;\n}\n " + dashes);
  EXPECT_EQ(OutputOf([&] { parse(g_KV_TraceParsingD); }), "");
}

TEST(Hooks, ThatAreNotAssignedAreNull) {
  EXPECT_EQ(pApp_NewEventFromString, nullptr);
  Event* event = K_NewEventFromString("event");
  ASSERT_NE(event, nullptr);
  EXPECT_STREQ(event->ClassName(), "event");
  event->DeleteInDepth();
  EXPECT_EQ(K_NewEventFromString("events"), nullptr);
}

TEST(Hooks, NumberEnumeratedNames) {
  for (auto* table : {&ClassIdToCharTab, &DescIdToCharTab, &MethodIdToCharTab, &ArgumentIdToCharTab})
    table->erase();
  for (const char* name : {"@", "Cow", "Herd"}) ClassIdToCharTab.push_back(name);
  for (const char* name : {"Herd", "weight"}) DescIdToCharTab.push_back(name);
  struct Case {
    const char* name;
    int number;
  };
  for (const Case& c : {Case{"Herd", 2}, {"weight", 1}, {"IN", 1}, {"NOT_IN", 0}, {"ALLENT", 2}, {"?", -9}})
    EXPECT_EQ(K_EnumToInt(c.name), c.number) << c.name;
}

}  // namespace
