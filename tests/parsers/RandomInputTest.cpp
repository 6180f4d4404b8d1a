// Whatever the bytes, a parser ends by itself: normally, or in a failure that names file and line.
#include <random>

#include "kalve/inputs/ParserFunction.h"
#include "tests/parsers/ParserTest.h"

/// Asked by the leak checker at the end of each process. What a failing reading leaves behind goes with it,
/// and the search would take longer than the reading.
static int leaksDoNotMatter = 0;
extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off() { return leaksDoNotMatter; }

namespace {

constexpr const char* simulationExample =
    "# a season\nINCLUDE \"part\";\nIN_DIR data/; OUT_DIR \"res ults/\";\nCLOCK 1 DAY;\n"
    "BEGIN 1 JAN 2008 00:00;\nEND 31 DEC 2008 23:59:59;\nEND CLOCK 365;\nBEGIN TODAY 06:30;\n";
constexpr const char* directiveExample =
    "EVENT event NAME \"turn\\\"out\" AT 10 AVR 2008 PRIORITY 10 { INCLUDE \"part\"; }\n"
    "EVENT event BETWEEN CLOCK 20 AND 15 NOV 06:30 PROBABILITY 0.95;\n"
    "EVENT event AT TODAY 06:30 PERCENT 95 PRIORITY 3;\nEVENT event AT 1 MAI;\n";

class RandomInputTest : public ParserTest {
 protected:
  RandomInputTest() {
    leaksDoNotMatter = 1;
    simulation.ClockTimeUnit(DAY);
    simulation.ClockTimeUnitQuantity(1);
    simulation.SetBeginningDate(1, 1, 2008);
    folder.Write("part", "# nothing\nEND INCLUDE;");
  }

  ~RandomInputTest() override { leaksDoNotMatter = 0; }

  std::size_t Below(std::size_t n) { return random() % n; }
  char Byte() { return static_cast<char>(Below(256)); }

  std::string Mutated(std::string bytes) {
    for (std::size_t changes = 1 + Below(3); changes > 0; --changes) {
      const std::size_t at = Below(bytes.size());
      const std::size_t length = Below(12);
      switch (Below(5)) {
        case 0:
          bytes[at] = Byte();
          break;
        case 1:
          bytes.erase(at, length);
          break;
        case 2:
          bytes.insert(Below(bytes.size()), bytes.substr(at, length));
          break;
        case 3:
          bytes.insert(at, 1, ";{}\"\\#-0"[Below(8)]);
          break;
        default:
          bytes.resize(at + 1);
      }
      if (bytes.empty()) bytes = ";";
    }
    return bytes;
  }

  void ExpectOrderlyEnd(void (*parse)(const char*), const std::string& bytes) {
    folder.Write("f", bytes);
    const ChildOutcome outcome = RunInChild([&] { parse(path.c_str()); });
    if (outcome.exitStatus == bodyReturned) return;
    EXPECT_EQ(outcome.exitStatus, 0) << bytes;
    EXPECT_NE(outcome.output.find(path + ", ligne "), std::string::npos) << bytes << outcome.output;
    EXPECT_TRUE(outcome.output.ends_with("\nERROR \n")) << bytes << outcome.output;
    ++faults;
  }

  std::mt19937 random{5};
  int faults = 0;
};

TEST_F(RandomInputTest, MutatedFilesEndInOrder) {
  for (int i = 0; i < 100; ++i) {
    ExpectOrderlyEnd(ParseSimulationFile, Mutated(simulationExample));
    ExpectOrderlyEnd(ParseDirectiveFile, Mutated(directiveExample));
  }
  EXPECT_GT(faults, 100);
}

TEST_F(RandomInputTest, RandomBytesEndInOrder) {
  for (auto parse : {ParseParameterFile, ParseSimulationFile, ParseOutputSpecFile, ParseStructureFile,
                     ParseDirectiveFile, ParseExpeFile}) {
    for (int i = 0; i < 8; ++i) {
      std::string bytes(1 + Below(2000), '\0');
      for (char& byte : bytes) byte = i % 2 == 0 ? Byte() : static_cast<char>(1 + Below(255));
      ExpectOrderlyEnd(parse, bytes);
    }
  }
  EXPECT_GT(faults, 40);
}

}  // namespace
