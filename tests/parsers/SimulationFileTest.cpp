// The simulation file, and the lexemes that all files share.
#include "kalve/foundations/CoreException.h"
#include "kalve/inputs/ParserFunction.h"
#include "tests/parsers/ParserTest.h"

namespace {

class SimulationFileTest : public ParserTest {};

TEST_F(SimulationFileTest, SetsTheSimulationWhateverTheOrder) {
  Read(ParseSimulationFile,
       "END 31 DEC 2008; # the last day\r\n"
       "IN_DIR data/;OUT_DIR \"results of June/\" ;\n"
       "BEGIN 1 \"JAN\" 2008 06:30;\n"
       "CLOCK 2 HOUR;\n");
  EXPECT_EQ(simulation.ClockTimeUnit(), HOUR);
  EXPECT_EQ(simulation.ClockTimeUnitQuantity(), 2);
  EXPECT_EQ(*simulation.BeginningDate(), Date(2008, 1, 1, 6, 30, 0));
  EXPECT_EQ(*simulation.EndDate(), Date(2008, 12, 31, 0, 0, 0));
  EXPECT_EQ(simulation.EndClock(), (365 * 24 - 6) / 2 - 1);
  EXPECT_STREQ(simulation.GetInDir(), "data/");
  EXPECT_STREQ(simulation.GetOutDir(), "results of June/");
}

TEST_F(SimulationFileTest, TakesTheLastOfSettingsGivenTwice) {
  Read(ParseSimulationFile,
       "CLOCK 1 DAY; BEGIN 10 AVR 08; END CLOCK 5; CLOCK 1 MINUTE; END 11 AVR 8 00:00:59;");
  EXPECT_EQ(*simulation.BeginningDate(), Date(2008, 4, 10, 0, 0, 0));
  EXPECT_EQ(simulation.EndClock(), 24 * 60);
}

TEST_F(SimulationFileTest, BeginsToday) {
  Read(ParseSimulationFile, "BEGIN TODAY 06:15:10; END CLOCK 30;");
  EXPECT_EQ(simulation.BeginningDate()->hour, 6);
  EXPECT_EQ(simulation.BeginningDate()->second, 10);
  EXPECT_LT(std::abs(simulation.AbsoluteBeginningTime() - std::time(nullptr)), 86400);
  EXPECT_EQ(simulation.EndClock(), 30);
}

TEST_F(SimulationFileTest, TakesPathsAsTheyStand) {
  const std::string cases[][2] = {{"IN_DIR /a-b.c/{d}=,e;", "/a-b.c/{d}=,e"},
                                  {"IN_DIR # where\n  a/# there\n;", "a/"},
                                  {"IN_DIR \"a # b;/\";", "a # b;/"},
                                  {"IN_DIR for\xC3\xAAt/;", "for\xC3\xAAt/"},  // bytes of the file system
                                  {"IN_DIR for\xEAt/;", "for\xEAt/"},
                                  {"IN_DIR 12;", "12"}};
  for (const auto& c : cases) {
    Read(ParseSimulationFile, c[0]);
    EXPECT_EQ(simulation.GetInDir(), c[1]);
  }
}

TEST_F(SimulationFileTest, SaysWhatItReadAndExpected) {
  const std::string setting = "la fin du fichier, BEGIN, CLOCK, END, IN_DIR ou OUT_DIR";
  const FaultCase cases[] = {
      {"\n\nFINISH 10;", 3, "lu : 'FINISH' ; attendu : " + setting},
      {"CLOCK DAY;", 1, "lu : 'DAY' ; attendu : un entier"},
      {"CLOCK 1\n;", 2, "lu : ';' ; attendu : un nom ou un texte entre guillemets"},
      {"CLOCK 1 DAYS;", 1, "lu : 'DAYS' ; attendu : DAY, HOUR, MINUTE ou SECOND"},
      {"CLOCK 0 DAY;", 1, "l'unité d'horloge compte 0 : 1 au moins est attendu"},
      {"CLOCK 1.5 DAY;", 1, "lu : '1.5' ; attendu : un entier"},
      {"CLOCK 99999999999 DAY;", 1,
       "lu : '99999999999' ; attendu : un entier entre -2147483648 et 2147483647"},
      {"CLOCK 1 DAY", 1, "lu : la fin du fichier ; attendu : ';'"},
      {"CLOCK 1DAY;", 1, "lu : '1DAY' ; attendu : un nombre ou un nom"},
      {"BEGIN 10 MARS 2008;", 1,
       "lu : 'MARS' ; attendu : JAN, FEV, MRS, AVR, MAI, JUN, JUL, AOU, SEP, OCT, NOV ou DEC"},
      {"BEGIN 10 AVR;", 1, "lu : ';' ; attendu : un entier"},
      {"BEGIN 31 AVR 2008;", 1, "le jour 31 AVR 2008 n'existe pas"},
      {"BEGIN 29 FEV 1900;", 1, "le jour 29 FEV 1900 n'existe pas"},
      {"BEGIN 29 FEV 7;", 1, "le jour 29 FEV 2007 n'existe pas"},
      {"BEGIN 0 AVR 2008;", 1, "le jour 0 AVR 2008 n'existe pas"},
      {"BEGIN 1 AVR -2;", 1, "l'année -2 n'est pas comprise entre 0 et 9999"},
      {"BEGIN 1 AVR 2008 24:00;", 1, "l'heure 24:00:00 n'existe pas"},
      {"BEGIN TODAY 10:00:-1;", 1, "l'heure 10:00:-1 n'existe pas"},
      {"BEGIN 1 AVR 2008 6;", 1, "lu : ';' ; attendu : ':'"},
      {"CLOCK 1 DAY;\nBEGIN 1 AVR 2008;\nEND 31 MRS 2008;", 3, "date antérieure au début de la simulation"},
      {"CLOCK 1 SECOND;BEGIN 1 AVR 2008;END 1 AVR 2108;", 1,
       "date trop lointaine pour l'unité d'horloge de la simulation"},
      {"BEGIN 1 AVR 2008;\nEND 2 AVR 2008;", 2,
       "une date demande une unité d'horloge (CLOCK dans le fichier de la simulation)"},
      {"END CLOCK -1;", 1, "la fin est antérieure au début de la simulation"},
      {"IN_DIR ;", 1, "lu : ';' ; attendu : un chemin"},
      {"IN_DIR a b;", 1, "lu : 'b' ; attendu : ';'"},
      {"OUT_DIR \"a\n\";", 1, "lu : '\"a' ; attendu : un guillemet fermant sur la même ligne"},
      {"CLOCK 1 \"a\\", 1, "lu : '\"a\\' ; attendu : un guillemet fermant sur la même ligne"},
      {"CLOCK 1 \"\\q\";", 1, "lu : '\\q' ; attendu : \\\", \\\\, \\t ou \\n dans un texte"},
      {"CLOCK 1 \"\\t\\n\\\"\\\\\";", 1, "lu : '\\x09\\x0A\"\\' ; attendu : DAY, HOUR, MINUTE ou SECOND"},
      {"CLOCK @;", 1, "lu : '@' ; attendu : un entier"},
      {"CLOCK \x07;", 1, "lu : '\\x07' ; attendu : un entier"},
      {"CLOCK 1 {", 1, "lu : '{' ; attendu : un nom ou un texte entre guillemets"},
      {"}", 1, "lu : '}' ; attendu : une instruction (aucune accolade n'est ouverte dans ce fichier)"},
      {std::string("CLOCK\n\0;", 8), 2, "octet nul : ce fichier n'est pas un texte"},
  };
  for (const FaultCase& c : cases) {
    const std::string output = ReadInChild(ParseSimulationFile, c.bytes);
    EXPECT_EQ(output, Fault(c.line, c.what)) << c.bytes;
  }
}

TEST_F(SimulationFileTest, KnowsBothCharacterSets) {
  for (const char* e : {"\xC3\xA9", "\xE9"}) {
    const std::string output =
        ReadInChild(ParseSimulationFile, "# \xC3\xA8" + std::string(e) + "\nt" + e + ";");
    EXPECT_NE(output.find("lu : 't\xE9' ;"), std::string::npos) << output;
  }
  // Characters of UTF-8 that ISO-8859-1 does not have may stand in comments only; a byte order mark is
  // dropped.
  Read(ParseSimulationFile, "\xEF\xBB\xBF# \xE2\x82\xAC \xF0\x9F\x90\x84\nEND CLOCK 8;");
  EXPECT_EQ(simulation.EndClock(), 8);
  EXPECT_EQ(ReadInChild(ParseSimulationFile, "CLOCK 1 \"D\xE2\x82\xACY\";"),
            Fault(1, "lu : '\"D' ; attendu : un guillemet fermant sur la même ligne"));
}

TEST_F(SimulationFileTest, TakesWordsAndLinesOfAnyLength) {
  const std::string longOne(100000, 'a');
  Read(ParseSimulationFile, "#" + longOne + "\nOUT_DIR \"" + longOne + "\"; IN_DIR " + longOne + ";" +
                                std::string(100000, ' ') + "END CLOCK 3;");
  EXPECT_EQ(simulation.GetOutDir(), longOne);
  EXPECT_EQ(simulation.GetInDir(), longOne);
  EXPECT_EQ(simulation.EndClock(), 3);
  const std::string output = ReadInChild(ParseSimulationFile, longOne + ";");
  EXPECT_EQ(output, Fault(1, "lu : '" + longOne.substr(0, 60) +
                                 "...' ; attendu : la fin du fichier, BEGIN, CLOCK, END, IN_DIR ou OUT_DIR"));
}

TEST_F(SimulationFileTest, NeedsASimulation) {
  pCurrentSim = nullptr;
  for (auto parse : {ParseSimulationFile, ParseDirectiveFile})
    EXPECT_EQ(ReadInChild(parse, ""),
              "\n!!!============== SimulationNotYetCreated =============="
              "\n!!! La simulation n'a pas encore été créée."
              "\n    L'affecter à pCurrentSim avant cette opération.\nERROR \n");
}

}  // namespace
