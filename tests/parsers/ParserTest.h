// A simulation in UTC and a folder, for the tests of the parsers.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <string>

#include "kalve/engine/Simulation.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

/// Asked by the leak checker at the end of each process. What a failing reading leaves behind goes with it,
/// and the search would take longer than the reading.
inline int leaksDoNotMatter = 0;

class ParserTest : public testing::Test {
 protected:
  ParserTest() {
    setenv("TZ", "UTC0", 1);
    tzset();
    pCurrentSim = &simulation;
  }
  ~ParserTest() override { pCurrentSim = nullptr; }

  /// Everything that a child printed while it read the bytes as a file named "f".
  std::string ReadInChild(void (*parse)(const char*), const std::string& bytes) {
    folder.Write("f", bytes);
    return RunInChild([&] {
             leaksDoNotMatter = 1;
             parse(path.c_str());
           })
        .output;
  }
  void Read(void (*parse)(const char*), const std::string& bytes) {
    folder.Write("f", bytes);
    parse(path.c_str());
  }
  /// The whole text of a fault in that file.
  std::string Fault(int line, const std::string& what) const { return FaultOf(path, line, what, ""); }
  static std::string Announced(const std::string& file, int line, const std::string& what) {
    return "\n!!! " + file + ", ligne " + std::to_string(line) + " : " + what;
  }
  static std::string FaultOf(const std::string& file, int line, const std::string& what,
                             const std::string& includers) {
    return Announced(file, line, what) + includers +
           "\n!!!============== BadFileRead =============="
           "\n!!! erreur de lecture (fin inattendue, enregistrement erroné ou vide,...)"
           "\n    fichier : '" +
           file + "'\nERROR \n";
  }

  struct FaultCase {
    std::string bytes;
    int line;
    std::string what;
  };

  /// The example of a section of the page on input files.
  static std::string DocumentedExample(const std::string& section) {
    std::ifstream file(std::string(KALVE_SOURCE_DIR) + "/docs/input-files.md");
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    const std::size_t at = page.find("\n## " + section + "\n");
    const std::size_t from = page.find("```\n", at) + 4;
    EXPECT_NE(at, std::string::npos);
    return page.substr(from, page.find("```", from) - from);
  }

  TemporaryFolder folder;
  Simulation simulation;
  std::string path = folder.Path("f");
};
