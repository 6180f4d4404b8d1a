// The directive file: processes that read data files, from the directive to the records.
#include "kalve/engine/DataReading.h"

#include "kalve/inputs/FactualDataFile.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "tests/parsers/FarmTest.h"

namespace {

constexpr int rain = 40;
constexpr int facts = 41;

std::string gRecords;  // "value@clock " for each record that was used

int ReadRain(SequentialDataFile* file) {
  return std::fscanf(file->GetPhysicalFile(), "%d", &file->mFields[0]->mValue.intValue);
}

void UseRain(ProcessMethod* method) {
  auto* reader = static_cast<ReadSequentialDataFileProcess*>(method->DescribedContinuousProcess());
  gRecords += std::to_string(reader->GetFile()->GetIntFieldValue(0)) + "@" +
              std::to_string(pCurrentSim->Clock()) + " ";
}

SerialDataFile* NewFile(int symbol) {
  if (symbol == facts) {
    auto* file = new FactualDataFile(symbol, READ_ACCESS, OM_APPEND);
    file->AssignReadNextEnrgtMethod([](FactualDataFile*) { return -1; });
    return file;
  }
  if (symbol != rain) return nullptr;
  auto* file = new SequentialDataFile(symbol, READ_ACCESS, OM_APPEND);
  file->AddField(0, INT);
  file->AssignReadNextEnrgtMethod(ReadRain);
  return file;
}

Process* NewReader(const char* name) {
  const std::string className = name;
  if (className == "rainReading") {
    auto* reader = new ReadSequentialDataFileProcess(0, name);
    reader->SetPostRead(UseRain);
    return reader;
  }
  if (className == "factReading") {
    auto* opener = new InitFactualDataFileReadingProcess(0, name);
    opener->SetPostRead([](ProcessMethod* method) {
      gRecords += std::string(method->DescribedProcess()->ProcessedEntity()->InstanceName()) + "@" +
                  std::to_string(pCurrentSim->Clock()) + " ";
    });
    return opener;
  }
  return className == "grazing" ? new ContinuousProcess(0, name) : nullptr;
}

class DirectiveReadingTest : public FarmTest {
 protected:
  DirectiveReadingTest() {
    gRecords.clear();
    simulation.ClockTimeUnit(DAY);
    simulation.ClockTimeUnitQuantity(1);
    simulation.SetBeginningDate(1, 4, 2008);
    Assign_App_NewProcessFromStringFunction(NewReader);
    Assign_App_NewSerialDataFileFromIdFunction(NewFile);
    Assign_App_SerialDataFileIdFromStringFunction(
        [](const char* name) { return std::string(name) == "Rain" ? rain : K_INT_UNSIGNIFICANT; });
    folder.Write("rain \xC3\xA9t\xC3\xA9.txt", "12\n0\n7\n");
  }
  ~DirectiveReadingTest() override {
    DeleteFileInstances();
    Assign_App_NewProcessFromStringFunction(nullptr);
    Assign_App_NewSerialDataFileFromIdFunction(nullptr);
    Assign_App_SerialDataFileIdFromStringFunction(nullptr);
  }

  void RunToTheEnd() {
    int iteration = 0;
    while (simulation.AgendaEventSize() > 0) simulation.RunCore(iteration);
  }
  Event& First() {
    simulation.GoHeadInAgenda();
    return *simulation.GetCurrentInAgenda();
  }
};

/// The bytes of a name of file are those of the directive file, here UTF-8.
TEST_F(DirectiveReadingTest, ReadsASequentialFileStepByStep) {
  simulation.SetEndClock(20);
  const std::string readings[] = {"PROCESS rainReading READS Rain PATH " + folder.Path("") +
                                      " NAME \"rain \xC3\xA9t\xC3\xA9.txt\" "
                                      "AT 3 AVR STEP 2 DAY;",
                                  "PROCESS rainReading READS 40 STEP 2 AT CLOCK 2 FULL_NAME \"" +
                                      folder.Path("rain ") + "\xC3\xA9t\xC3\xA9.txt\";"};
  for (const std::string& reading : readings) {
    simulation.Clock(0);
    gRecords.clear();
    Read(ParseDirectiveFile, reading);
    EXPECT_EQ(First().PriorityDegree(), 0);
    RunToTheEnd();
    EXPECT_EQ(gRecords, "12@2 0@4 7@6 ") << reading;
  }
}

/// The body that uses records runs once more at the end of the file, on the entity of the opening process.
TEST_F(DirectiveReadingTest, OpensAFactualFile) {
  Read(ParseStructureFile, "ENTITY Cow hortense;");
  Read(ParseDirectiveFile, "PROCESS factReading READS 41 FULL_NAME " + folder.Path("f") +
                               " DELAY 3 PRIORITY 12 ON hortense AT CLOCK 5;");
  EXPECT_EQ(First().PriorityDegree(), 12);
  EXPECT_EQ(First().FirstActionLabel(), EXEC);
  EXPECT_EQ(First().FirstProcess()->PostponementDelay(), 3);
  RunToTheEnd();
  EXPECT_EQ(gRecords, "hortense@5 ");
}

TEST_F(DirectiveReadingTest, FreesAReadingThatTheAgendaRefuses) {
  simulation.SetEndClock(10);
  const std::string readings =
      "PROCESS rainReading READS Rain AT CLOCK 11;\nPROCESS factReading READS 41 AT CLOCK 11;";
  Read(ParseDirectiveFile, readings);
  EXPECT_EQ(simulation.AgendaEventSize() + Process::mpInstanceTab.Items().size(), 0);
  g_KV_TraceWarnings = 1;
  EXPECT_EQ(ReadQuietly(ParseDirectiveFile, readings),
            "\n!!! " + path + ", ligne 1 : la lecture 'rainReading_1' n'est pas entrée dans l'agenda.\n!!! " +
                path + ", ligne 2 : la lecture 'factReading_1' n'est pas entrée dans l'agenda.");
  g_KV_TraceWarnings = 0;
}

TEST_F(DirectiveReadingTest, SaysWhatIsWrong) {
  const FaultCase texts[] = {
      {"PROCESS rainReading;", 1, "lu : ';' ; attendu : READS"},
      {"PROCESS rainReading READS;", 1,
       "lu : ';' ; attendu : un nom, un texte entre guillemets ou un entier"},
      {"PROCESS rainReading READS Rain EXEC;", 1,
       "lu : 'EXEC' ; attendu : AT, DELAY, FULL_NAME, NAME, ON, PATH, PRIORITY, STEP ou ';'"},
      {"PROCESS rainReading READS Rain NAME;", 1, "lu : ';' ; attendu : un chemin"},
      {"PROCESS rainReading READS\nRain;", 1, "la lecture n'a pas de date (AT)"},
      {"PROCESS rainReading READS Rain AT CLOCK 1\nAT CLOCK 1;", 2, "AT est donné deux fois"},
      {"PROCESS rainReading READS Rain AT CLOCK 1\nFULL_NAME a NAME b;", 2,
       "FULL_NAME ne se donne pas avec PATH ou NAME"},
      {"PROCESS factReading READS 41 AT CLOCK 1\nSTEP 2;", 2, "STEP demande un processus continu"},
      {"\nPROCESS grazing READS Rain AT CLOCK 1;", 2, "READS : le processus 'grazing' ne lit pas de fichier"},
  };
  for (const FaultCase& c : texts) ExpectFault(ParseDirectiveFile, c);
  const FaultCase failures[] = {
      {"PROCESS rainReading READS\nSnow AT CLOCK 1;", 2,
       "classe de fichier inconnue : 'Snow'\n!!!============== UnknownClassName =============="
       "\n!!! Le nom de classe 'Snow' n'est connu ni du noyau, ni de l'application."
       "\n    Le service qui l'a cherché est 'K_SerialDataFileIdFromString'.\nERROR \n"},
      {"PROCESS snowReading READS Rain AT CLOCK 1;", 1,
       "classe de processus inconnue : 'snowReading'\n!!!============== UnknownClassName =============="},
      {"PROCESS rainReading READS Rain AT CLOCK 1\nPRIORITY 100;", 2,
       "PRIORITY demande un entier de 0 à 99\n!!!============== UnexpectedPriorityDegree =============="},
  };
  for (const FaultCase& c : failures) ExpectFailure(ParseDirectiveFile, c);
}

}  // namespace
