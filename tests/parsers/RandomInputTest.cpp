// Whatever the bytes, a parser ends by itself: normally, or in a failure that names file and line.
#include "kalve/engine/DataReading.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/parsers/RandomInput.h"

extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off() { return leaksDoNotMatter; }

namespace {

constexpr const char* simulationExample =
    "# a season\nINCLUDE \"part\";\nIN_DIR data/; OUT_DIR \"res ults/\";\nCLOCK 1 DAY;\n"
    "DATA_FILE Weather { NAME weather.txt; COMMENTS 2; KEY \"%d\"; DATA \"%f\"; }\nDATA_FILE 7 { FILE x; }\n"
    "BEGIN 1 JAN 2008 00:00;\nEND 31 DEC 2008 23:59:59;\nEND CLOCK 365;\nBEGIN TODAY 06:30;\n";
constexpr const char* directiveExample =
    "EVENT event NAME \"turn\\\"out\" AT 10 AVR 2008 PRIORITY 10 { INCLUDE \"part\"; PROCESS milking EXEC; }\n"
    "EVENT event BETWEEN CLOCK 20 AND 15 NOV 06:30 PROBABILITY 0.95 EVERY 1 TO 2 DAY\n"
    "{ PROCESS grazing DELAY 3 STEP 1 DAY INIT; PROCESS grazing PROCEED; }\n"
    "EVENT event AT TODAY 06:30 PERCENT 95 PRIORITY 3 NEXT event { PROCESS REF grazing STOP; }\n"
    "EVENT event AT 1 MAI { PROCESS milking NAME a EXEC; PROCESS milking NAME b EXEC; }\n"
    "PROCESS rain READS 7 NAME a PATH \"b \" AT CLOCK 3 STEP 2;PROCESS rain READS 7 FULL_NAME a AT CLOCK 3;\n";

constexpr const char* parameterExample =
    "Herd size = 42; Herd breed = \"sal\\\"ers\";\nHerd turnout = 10 AVR 2008 06:30:00;\n"
    "GROUP feeding { Cow intake = -1.5e3; INCLUDE \"part\"; Cow day = 1 MAI 08; }\n";
constexpr const char* designExample =
    "REPLICATIONS 3;\nFACTOR land (Paddock area REAL) { (1.5); (2); INCLUDE \"part\"; }\n"
    "FACTOR herd (Herd size INT, Herd breed TEXT) { (40, \"a\"); (60, \"b\"); }\nFACTOR n () { (); }\n";

class RandomInputTest : public RandomInput {
 protected:
  RandomInputTest() {
    simulation.ClockTimeUnit(DAY);
    simulation.ClockTimeUnitQuantity(1);
    simulation.SetBeginningDate(1, 1, 2008);
    folder.Write("part", "# nothing\nEND INCLUDE;");
    Assign_App_NewProcessFromStringFunction([](const char* name) -> Process* {
      if (std::string(name) == "grazing") return new ContinuousProcess(0, name);
      if (std::string(name) == "rain") return new ReadSequentialDataFileProcess(0, name);
      return std::string(name) == "milking" ? new DiscreteProcess(0, name) : nullptr;
    });
    Assign_App_NewSerialDataFileFromStringFunction(
        [](const char*) -> SerialDataFile* { return new SequentialDataFile(40, READ_ACCESS, OM_APPEND); });
    Assign_App_NewSerialDataFileFromIdFunction([](int symbol) -> SerialDataFile* {
      return symbol == 7 ? new SequentialDataFile(7, READ_ACCESS, OM_APPEND) : nullptr;
    });
  }
  ~RandomInputTest() override {
    Assign_App_NewProcessFromStringFunction(nullptr);
    Assign_App_NewSerialDataFileFromStringFunction(nullptr);
    Assign_App_NewSerialDataFileFromIdFunction(nullptr);
  }
};

TEST_F(RandomInputTest, MutatedFilesEndInOrder) {
  for (int i = 0; i < 300; ++i) {
    ExpectOrderlyEnd(ParseSimulationFile, Mutated(simulationExample));
    ExpectOrderlyEnd(ParseDirectiveFile, Mutated(directiveExample));
    ExpectOrderlyEnd(ParseParameterFile, Mutated(parameterExample));
    ExpectOrderlyEnd(ParseExpeFile, Mutated(designExample));
  }
  EXPECT_GT(faults, 600);
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
