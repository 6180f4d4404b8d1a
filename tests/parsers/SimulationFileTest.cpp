// The simulation file, and the lexemes that all files share.
#include "kalve/engine/DataReading.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/inputs/DataFiles.h"
#include "kalve/inputs/FactualDataFile.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/methods/Method.h"
#include "kalve/model/ApplicationHooks.h"
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
  const std::string setting = "la fin du fichier, BEGIN, CLOCK, DATA_FILE, END, IN_DIR ou OUT_DIR";
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
  EXPECT_EQ(
      output,
      Fault(1, "lu : '" + longOne.substr(0, 60) +
                   "...' ; attendu : la fin du fichier, BEGIN, CLOCK, DATA_FILE, END, IN_DIR ou OUT_DIR"));
}

// Data files -------------------------------------------------------------------------------------------

constexpr int weather = 40;

/// What an application knows: Weather and 7 with their fields, a file with a path of its own, a file that is
/// no file of records.
class SimulationDataFileTest : public SimulationFileTest {
 protected:
  SimulationDataFileTest() {
    Assign_App_NewSerialDataFileFromStringFunction([](const char* name) -> SerialDataFile* {
      const std::string className = name;
      if (className == "Weather") {
        auto* file = new SequentialDataFile(weather, READ_ACCESS, OM_APPEND);
        for (const ValueTypeId type : {INT, FLOAT, FLOAT}) file->AddField(0, type);
        file->AssignReadNextEnrgtMethod([](SequentialDataFile* f) {
          return std::fscanf(f->GetPhysicalFile(), f->GetFormat(), &f->mFields[0]->mValue.intValue,
                             &f->mFields[1]->mValue.floatValue, &f->mFields[2]->mValue.floatValue);
        });
        return file;
      }
      if (className == "DATA" || className == "placed") {
        auto* file = new SequentialDataFile(41, READ_ACCESS, OM_APPEND);
        if (className == "placed") file->AssignPhysicalPath("/app/");
        return file;
      }
      return className == "plain" ? new SerialDataFile(43, READ_ACCESS, OM_APPEND) : nullptr;
    });
    Assign_App_NewSerialDataFileFromIdFunction([](int symbol) -> SerialDataFile* {
      if (symbol == 7) return new FactualDataFile(7, READ_ACCESS, OM_APPEND);
      return symbol == weather ? GetSerialDataFile(weather) : nullptr;
    });
  }
  ~SimulationDataFileTest() override {
    DeleteFileInstances();
    Assign_App_NewSerialDataFileFromStringFunction(nullptr);
    Assign_App_NewSerialDataFileFromIdFunction(nullptr);
  }
  /// "name comments format" of each file, in the order of their making.
  static std::string Files() {
    std::string files;
    for (int i = 0; i < File::mpInstanceTab.size(); ++i) {
      const auto* file = static_cast<SerialDataFile*>(File::mpInstanceTab[i]);
      files += std::string(file->GetFullName()) + " " + std::to_string(file->GetNbTopCommentLines()) + " " +
               file->GetFormat() + "|";
    }
    return files;
  }
};

TEST_F(SimulationDataFileTest, DeclaresDataFilesOnceTheDirectoriesAreKnown) {
  Read(ParseSimulationFile,
       "DATA_FILE Weather { NAME weather.txt; COMMENTS 2; KEY \"%d\"; DATA \"%f %f\"; }\n"
       "DATA_FILE 7 { FORMAT \"%d;%s\"; NAME \"milk prices.txt\"; PATH /herd/; }\n"
       "DATA_FILE \"DATA\" { FILE /x/m\xC3\xA9t\xC3\xA9o; DATA \"%*s\"; }\n"
       "DATA_FILE placed { NAME y.txt; }\n"
       "IN_DIR data/;\n");
  EXPECT_EQ(Files(),
            "data/weather.txt 2 %d %f %f|/herd/milk prices.txt 0 %d;%s|/x/m\xC3\xA9t\xC3\xA9o 0  %*s|"
            "/app/y.txt 0 |");
  DeleteFileInstances();
  Read(ParseSimulationFile, "DATA_FILE placed; DATA_FILE 7 { PATH /herd/; COMMENTS 0; }");
  EXPECT_EQ(Files(), " 0 | 0 |");
}

TEST_F(SimulationDataFileTest, TheDocumentedExampleStands) {
  Read(ParseSimulationFile, DocumentedExample("The simulation file"));
  EXPECT_EQ(simulation.EndClock(), 228);
  EXPECT_STREQ(simulation.GetOutDir(), "results of 2008/");
  EXPECT_EQ(Files(), "data/weather.txt 2 %d %f %f|/herd/prices.txt 0 |");
}

TEST_F(SimulationDataFileTest, ADeclaredFileIsReadOverTheRun) {
  folder.Write("in/weather.txt", "station 12\nday rain wind\n1 0.5 3\n2 12 40\n3 0 8\n");
  Read(ParseSimulationFile,
       "CLOCK 1 DAY; BEGIN 1 AVR 2008; END 15 NOV 2008; IN_DIR " + folder.Path("in/") +
           "; DATA_FILE Weather { NAME weather.txt; COMMENTS 2; KEY \"%d\"; DATA \"%f %f\"; }");
  auto* reading = new ReadSequentialDataFileProcess();
  reading->FileClassId(weather);
  static std::string rain;
  rain.clear();
  reading->SetPostRead([](ProcessMethod*) {
    rain += std::to_string(pCurrentSim->Clock()) + ":" + std::to_string(GetFloatFieldValue(weather, 1)) + " ";
  });
  reading->PostInitAndProceedEvent(1);
  simulation.RunBatch(10);
  EXPECT_EQ(rain, "1:0.500000 2:12.000000 3:0.000000 ");
}

TEST_F(SimulationDataFileTest, SaysWhatIsWrongWithADeclaration) {
  const std::string parts = "COMMENTS, DATA, FILE, FORMAT, KEY, NAME, PATH";
  const std::string both = " sont donnés pour le même fichier de données";
  const FaultCase cases[] = {
      {"DATA_FILE\n;", 2, "lu : ';' ; attendu : un nom, un texte entre guillemets ou un entier"},
      {"DATA_FILE NAME;", 1, "lu : 'NAME' ; attendu : un nom, un texte entre guillemets ou un entier"},
      {"DATA_FILE Weather\nNAME x;", 2, "lu : 'NAME' ; attendu : ';' ou '{'"},
      {"DATA_FILE Weather {\nSIZE 3; }", 2, "lu : 'SIZE' ; attendu : " + parts + " ou '}'"},
      {"DATA_FILE Weather { NAME; }", 1, "lu : ';' ; attendu : un chemin"},
      {"DATA_FILE Weather { NAME x }", 1, "lu : '}' ; attendu : ';'"},
      {"DATA_FILE Weather { KEY x; }", 1, "lu : 'x' ; attendu : un texte entre guillemets"},
      {"DATA_FILE Weather { COMMENTS \"2\"; }", 1, "lu : '2' ; attendu : un entier"},
      {"DATA_FILE Weather {\nCOMMENTS -1; }", 2, "COMMENTS demande un nombre de lignes d'au moins 0"},
      {"DATA_FILE Weather { COMMENTS 1;\nCOMMENTS 1; }", 2,
       "COMMENTS est donné deux fois pour le fichier de données"},
      {"DATA_FILE Weather { KEY \"a\";\nKEY \"a\"; }", 2,
       "KEY est donné deux fois pour le fichier de données"},
      {"DATA_FILE Weather { PATH \"\"; }", 1, "PATH demande un nom non vide"},
      {"DATA_FILE Weather { PATH a/;\nFILE b; }", 2, "FILE et PATH" + both},
      {"DATA_FILE Weather { FILE b; NAME a; }", 1, "FILE et NAME" + both},
      {"DATA_FILE Weather { FORMAT \"a\"; KEY \"b\"; }", 1, "FORMAT et KEY" + both},
      {"DATA_FILE Weather { DATA \"a\"; FORMAT \"b\"; }", 1, "FORMAT et DATA" + both},
      {"DATA_FILE Weather;\nDATA_FILE 7;\nDATA_FILE \"Weather\";", 3,
       "le fichier de données 'Weather' est déjà déclaré à la ligne 1"},
      {"DATA_FILE 7;\nDATA_FILE 7;", 2, "le fichier de données 7 est déjà déclaré à la ligne 1"},
      {"DATA_FILE Weather {", 1, "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
  };
  for (const FaultCase& c : cases) {
    const std::string output = ReadInChild(ParseSimulationFile, c.bytes);
    EXPECT_EQ(output, Fault(c.line, c.what)) << c.bytes;
  }
}

TEST_F(SimulationDataFileTest, EndsInTheFailureMadeForTheFault) {
  const FaultCase cases[] = {
      {"\nDATA_FILE Rain;", 2,
       "DATA_FILE 'Rain'\n!!!============== UnknownClassName =============="
       "\n!!! Le nom de classe 'Rain' n'est connu ni du noyau, ni de l'application."
       "\n    Le service qui l'a cherché est 'K_NewSerialDataFileFromString'.\nERROR \n"},
      {"DATA_FILE 8;", 1,
       "DATA_FILE 8\n!!!============== UnknownFileClassSymbol =============="
       "\n!!! Aucun fichier de classe 'SerialDataFile' n'est connu avec le symbole 8.\nERROR \n"},
      {"DATA_FILE plain;", 1,
       "DATA_FILE 'plain'\n!!!============== BadFileType =============="
       "\n!!! Un fichier de données séquentiel ou factuel est attendu.\n    fichier : '' de type 2\nERROR \n"},
      {"DATA_FILE Weather {\nNAME \"weather.txt\"; }", 1,
       "DATA_FILE 'Weather'\n!!!============== UnspecifiedInPath =============="
       "\n!!! Le fichier de données 'weather.txt' est donné par son nom simple,"
       "\n    alors que le répertoire des entrées n'est pas spécifié"
       "\n    (dans le fichier des paramètres de la simulation (IN_DIR <path>)"
       "\n    ou par pCurrentSim->SetInDir(<path>).\nERROR \n"},
  };
  for (const FaultCase& c : cases) {
    const std::string output = ReadInChild(ParseSimulationFile, c.bytes);
    EXPECT_EQ(output, Announced(path, c.line, c.what)) << c.bytes;
  }
  Assign_App_NewSerialDataFileFromStringFunction(nullptr);
  EXPECT_NE(ReadInChild(ParseSimulationFile, "DATA_FILE Weather;").find(" UnknownClassName "),
            std::string::npos);
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
