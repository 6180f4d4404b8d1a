// A simulation in UTC and a folder, for the tests of the parsers.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "kalve/engine/Simulation.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

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
    return RunInChild([&] { parse(path.c_str()); }).output;
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

  TemporaryFolder folder;
  Simulation simulation;
  std::string path = folder.Path("f");
};
