// Processes that read data files: real files with header lines, keys and formats, read over a run.
#include "kalve/engine/DataReading.h"

#include <gtest/gtest.h>

#include <sstream>

#include "kalve/engine/Event.h"
#include "kalve/engine/PredefinedEvents.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/DataFiles.h"
#include "kalve/inputs/FactualDataFile.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/model/ModelTest.h"
#include "tests/support/Owned.h"
#include "tests/support/TemporaryFolder.h"

namespace {

constexpr int weather = 40;
constexpr int facts = 41;

std::string gLog;  // what was read, and when

void Log(const std::string& what) { gLog += what + "@" + std::to_string(pCurrentSim->Clock()) + " "; }

// Weather: day, rain and wind of a line.

int ReadWeather(SequentialDataFile* file) {
  Tableau<StructField*>& fields = file->mFields;
  return std::fscanf(file->GetPhysicalFile(), file->GetFormat(), &fields[0]->mValue.intValue,
                     &fields[1]->mValue.floatValue, fields[2]->mValue.stringValue);
}

void UseWeather(ProcessMethod* method) {
  auto* reader = static_cast<ReadSequentialDataFileProcess*>(method->DescribedContinuousProcess());
  SequentialDataFile* file = reader->GetFile();
  Log(Text("%d:%g:%s", file->GetIntFieldValue(0), static_cast<double>(file->GetFloatFieldValue(1)),
           file->GetStringFieldValue(2)));
}

// Facts: a date and a word, shown when the clock is there.

int ReadFact(FactualDataFile* file) {
  if (file->IsBufferEmpty() != 0) {
    Tableau<StructField*>& read = file->mReadTab;
    const int count = std::fscanf(file->GetPhysicalFile(), "%d %49s", &read[0]->mValue.intValue,
                                  read[1]->mValue.stringValue);
    if (count == -1) file->IsDataEmpty(1);
    if (count < 2) return count;
    file->ReadTabToBufferTab();
  }
  if (file->GetRecordClockValue() > pCurrentSim->Clock()) return -9;
  file->BufferTabToDataTab();
  file->IsBufferEmpty(1);
  return 2;
}

FactualDataFile* FileOf(ProcessMethod* method) {
  return static_cast<ReadFactualDataRecordProcess*>(method->DescribedDiscreteProcess())->GetFile();
}

/// Uses the fact that has been shown, if there is one.
void UseFact(ProcessMethod* method) {
  const FactualDataFile* file = FileOf(method);
  if (file->IsDataEmpty() != 0)
    Log("end");
  else if (file->IsBufferEmpty() != 0)
    Log(FileOf(method)->GetStringFieldValue(1));
}

/// Uses the fact, and reads on: at once, or when the fact that was kept is due.
void UseFactAndReadOn(ProcessMethod* method) {
  UseFact(method);
  FactualDataFile* file = FileOf(method);
  if (file->IsDataEmpty() != 0) return;
  const int next = file->IsBufferEmpty() != 0 ? pCurrentSim->Clock() : file->GetRecordClockValue();
  auto* event = new DiscreteExecution(next, method->DescribedDiscreteProcess());
  event->SetPriorityDegree(0);
  if (pCurrentSim->InsertInAgendaEvents(event) == 0) event->DeleteInDepth();
}

class DataReadingTest : public ModelTest {
 protected:
  DataReadingTest() {
    gLog.clear();
    methods = Method::getNbConst() - Method::getNbDest();
    events = Event::getNbConst() - Event::getNbDest();
    run = new Simulation();
    pCurrentSim = run;
    run->SetEndClock(100);
    Assign_App_NewSerialDataFileFromIdFunction([](int symbol) -> SerialDataFile* {
      for (File* file : File::mpInstanceTab)
        if (file->ClassSymbol() == symbol) return static_cast<SerialDataFile*>(file);
      return nullptr;
    });
    weatherFile = new SequentialDataFile(weather, READ_ACCESS, OM_APPEND);
    for (const ValueTypeId type : {INT, FLOAT, STRING}) weatherFile->AddField(0, type);
    weatherFile->AssignReadNextEnrgtMethod(ReadWeather);
    weatherFile->AssignFormat("%d", "%f %49s");
    factFile = new FactualDataFile(facts, READ_ACCESS, OM_APPEND);
    for (const ValueTypeId type : {INT, STRING}) factFile->AddField(0, type);
    factFile->AssignReadNextEnrgtMethod(ReadFact);
    factFile->AssignGetRecordClockValueMethod([](FactualDataFile* f) { return f->GetIntFieldReadValue(0); });
  }
  ~DataReadingTest() override {
    DeleteFileInstances();
    delete run;
    pCurrentSim = &simulation;
    Assign_App_NewSerialDataFileFromIdFunction(nullptr);
    EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
    EXPECT_EQ(Event::getNbConst() - Event::getNbDest(), events);
    EXPECT_EQ(Method::getNbConst() - Method::getNbDest(), methods);
  }

  void WriteWeather(const std::string& bytes) {
    weatherFile->AssignFullName(folder.Write("weather.txt", bytes).c_str());
  }
  void WriteFacts(const std::string& bytes) {
    factFile->AssignFullName(folder.Write("facts.txt", bytes).c_str());
  }
  static ReadSequentialDataFileProcess* NewWeatherReading() {
    auto* reading = new ReadSequentialDataFileProcess();
    reading->FileClassId(weather);
    reading->SetPostRead(UseWeather);
    return reading;
  }
  static InitFactualDataFileReadingProcess* NewFactReading(Process::VoidBody postRead) {
    auto* reading = new InitFactualDataFileReadingProcess();
    reading->FileClassId(facts);
    reading->SetPostRead(postRead);
    return reading;
  }
  Event* Post(Process* process, ActionType action, int clock, int priority = 50) {
    auto* event = new Event(30, "événement");
    event->AddProcessAction(process, action);
    EXPECT_EQ(run->InsertInAgendaEvents(event, priority, clock), 1);
    return event;
  }
  std::string Run(int limit = 1000) {
    run->RunBatch(limit);
    return gLog;
  }

  TemporaryFolder folder;
  Simulation* run;
  SequentialDataFile* weatherFile;  // go with the table of files
  FactualDataFile* factFile;
  int methods;
  int events;
};

constexpr const char* aWeek =
    "# station 12\n# day rain wind\n 1 0.5 calm\n 2 12 gale\n 3 0 calm\n 4 1.25 breeze\n";

TEST_F(DataReadingTest, ASequentialProcessReadsARecordEachStepUntilTheEnd) {
  WriteWeather(aWeek);
  weatherFile->SetNbTopCommentLines(2);
  ReadSequentialDataFileProcess* reading = NewWeatherReading();
  reading->Step(2);
  reading->PostInitAndProceedEvent(1);
  auto* visit = new DiscreteProcess(20, "visite");
  visit->SetExec([](ProcessMethod*) { Log("visit"); });
  Post(visit, EXEC, 4);  // the reading goes on behind it
  EXPECT_EQ(Run(), "1:0.5:calm@1 2:12:gale@3 visit@4 3:0:calm@5 4:1.25:breeze@7 ");
  EXPECT_EQ(run->Clock(), 9);  // where the end was met
  EXPECT_EQ(weatherFile->GetState(), 2);
  EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
}

TEST_F(DataReadingTest, AnEmptyFileStopsASequentialProcessAndRunsTheBodyOfAFactualOneOnce) {
  WriteWeather("# nothing\n");
  weatherFile->SetNbTopCommentLines(1);
  WriteFacts("");
  NewWeatherReading()->PostInitAndProceedEvent(0);
  Post(NewFactReading(UseFactAndReadOn), EXEC, 3);
  EXPECT_EQ(Run(), "end@3 ");
  EXPECT_EQ(weatherFile->GetState(), 2);
  EXPECT_EQ(factFile->GetState(), 2);
  EXPECT_EQ(factFile->GetReaderProcess(), nullptr);
  EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
}

TEST_F(DataReadingTest, AFactualReaderSchedulesItsNextReadingUntilTheEnd) {
  WriteFacts("0 rain\n10 sun\n10 hail\n25 snow\n");
  Post(NewFactReading(UseFactAndReadOn), EXEC, 0);
  EXPECT_EQ(Run(4), "rain@0 sun@10 ");
  auto* reader = static_cast<ReadFactualDataRecordProcess*>(factFile->GetReaderProcess());
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(reader->GetFile(), factFile);
  EXPECT_EQ(reader->GetFileFullName(), folder.Path("facts.txt"));
  EXPECT_EQ(Run(), "rain@0 sun@10 hail@10 snow@25 end@25 ");
  EXPECT_EQ(factFile->GetState(), 2);
  EXPECT_EQ(factFile->GetReaderProcess(), nullptr);
  EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
}

TEST_F(DataReadingTest, TheReaderOfFactsTakesTheEntityAndReadsOnlyOnceByItself) {
  WriteFacts("0 rain\n0 sun\n");
  Thing* cow = NewCow();
  InitFactualDataFileReadingProcess* reading = NewFactReading([](ProcessMethod* method) {
    UseFact(method);
    Log(method->DescribedProcess()->ProcessedBasicEntity()->InstanceName());
  });
  reading->ProcessedEntity(cow);
  Post(reading, EXEC, 2);
  EXPECT_EQ(Run(), Text("rain@2 %s@2 ", cow->InstanceName()));
  EXPECT_EQ(factFile->GetState(), 1);
}

TEST_F(DataReadingTest, WithoutPostReadingTheRecordsAreOnlyRead) {
  WriteWeather("1 0.5 calm\n2 12 gale\n");
  ReadSequentialDataFileProcess* reading = NewWeatherReading();
  reading->HasPostRead(0);
  reading->PostInitAndProceedEvent(0);
  WriteFacts("0 rain\n0 sun\n");
  InitFactualDataFileReadingProcess* starter = NewFactReading(UseFactAndReadOn);
  starter->HasPostRead(0);
  Post(starter, EXEC, 0);
  EXPECT_EQ(Run(), "");
  EXPECT_EQ(weatherFile->GetIntFieldValue(0), 2);
  EXPECT_STREQ(factFile->GetStringFieldValue(1), "rain");
}

/// Names that a process and its file have been told, and the name that is opened.
struct NameCase {
  const char* path;
  const char* name;
  const char* fullName;
  const char* filePath;
  const char* fileName;
  const char* fileFullName;
  const char* opened;  // null for a failure
};

TEST_F(DataReadingTest, NamesOfTheProcessGoBeforeThoseOfTheFile) {
  const NameCase cases[] = {
      {"/data/", "x.txt", "", "", "", "", "/data/x.txt"},
      {"/data", "x.txt", "", "", "", "", "/datax.txt"},
      {"/data/", "x.txt", "/full", "", "", "", "/full"},
      {"", "", "", "/in/", "y.txt", "", "/in/y.txt"},
      {"", "", "", "", "", "/full", "/full"},
      {"", "x.txt", "", "/in/", "", "", "/in/x.txt"},
      {"", "x.txt", "", "/in/", "y.txt", "", "/in/x.txt"},
      {"/data/", "", "", "/in/", "y.txt", "", "/data/y.txt"},
      {"/data/", "x.txt", "", "/in/", "y.txt", "", "/data/x.txt"},
      {"", "", "/own", "/in/", "y.txt", "", "/own"},
      {"", "x.txt", "", "", "", "/full", "/full"},
      {"/data/", "", "", "", "", "", nullptr},
      {"", "x.txt", "", "", "y.txt", "", nullptr},
      {"", "", "", "", "", "", nullptr},
  };
  const std::string root = folder.Path("");
  const auto inFolder = [&](const char* name) {
    return *name == '/' ? root + (name + 1) : std::string(name);
  };
  for (const char* name : {"data/x.txt", "data/y.txt", "datax.txt", "full", "own", "in/x.txt", "in/y.txt"})
    folder.Write(name, "");
  for (const NameCase& c : cases) {
    auto* file = new SequentialDataFile(50, READ_ACCESS, OM_APPEND);
    file->AssignFullName(inFolder(c.fileFullName).c_str());
    if (*c.filePath != '\0') file->AssignPhysicalPath(inFolder(c.filePath).c_str());
    file->AssignSimpleName(c.fileName);
    auto* process = new ReadSequentialDataFileProcess(20, "lecture");
    process->FileClassId(50);
    process->SetFilePath(inFolder(c.path).c_str());
    process->SetFileSimpleName(c.name);
    process->SetFileFullName(inFolder(c.fullName).c_str());
    const auto open = [&] { process->ExecVoidMethod(INITIALIZE_PROCESS); };
    if (c.opened != nullptr) {
      open();
      EXPECT_EQ(file->GetFullName(), inFolder(c.opened)) << c.path << c.name << c.fullName;
      file->Close();
      open();  // again: what was taken from the file changes nothing
      EXPECT_EQ(file->GetFullName(), inFolder(c.opened)) << c.path << c.name << c.fullName;
    } else {
      EXPECT_EQ(FailureOf(open),
                "\n!!!============== UnspecifiedPath =============="
                "\n!!! Lecture d'un fichier de données (de symbole 50) sans nom complet,"
                "\n    ni chemin et nom simple.\n");
    }
    process->DeleteInDepth();
    delete file;
  }
}

TEST_F(DataReadingTest, EachNameIsTakenFromTheFileByItself) {
  InitFactualDataFileReadingProcess* process = NewFactReading(nullptr);
  process->SetFilePath("/own/");
  factFile->AssignPhysicalPath("/in/");
  factFile->AssignSimpleName("y.txt");
  EXPECT_EQ(process->FileNameSpecified(), 0);
  process->SetNamesFromFile(factFile);
  EXPECT_EQ(process->FileNameSpecified(), 1);
  EXPECT_EQ(OutputOf([&] { process->DisplayNames(); }),
            Text("\nInitFactualDataFileReadingProcess '%x' :\n\tpath       : /own/\n\tsimpleName : y.txt"
                 "\n\tfullName   : /in/y.txt\n",
                 Address32(process)));
  ReadSequentialDataFileProcess* empty = NewWeatherReading();
  EXPECT_EQ(
      OutputOf([&] { empty->DisplayNames(); }),
      Text("\nReadSequentialDataFileProcess '%x' :\n\tpath       : \n\tsimpleName : \n\tfullName   : \n",
           Address32(empty)));
}

TEST_F(DataReadingTest, FailsInWords) {
  struct Case {
    std::function<void()> prepare;
    const char* failure;
  };
  const auto weatherOver = [&](const char* bytes) {
    WriteWeather(bytes);
    NewWeatherReading()->PostInitAndProceedEvent(0);
  };
  const auto factsOver = [&](const char* bytes, Process::VoidBody postRead) {
    WriteFacts(bytes);
    Post(NewFactReading(postRead), EXEC, 0);
  };
  const std::string factName = folder.Path("facts.txt");
  const std::string voidRecord =
      "\n!!!============== VoidRecordInFactualDataFile =============="
      "\n!!! Enregistrement interne vide après lecture du fichier de faits '" +
      factName + "'.\n    Revoir la fonction ReadNextEnrgt de ce fichier.\n";
  const Case cases[] = {
      {[&] {
         ReadSequentialDataFileProcess* reading = NewWeatherReading();
         reading->FileClassId(7);
         reading->PostInitAndProceedEvent(0);
       },
       "\n!!!============== UnknownFileClassSymbol =============="
       "\n!!! Aucun fichier de classe 'SequentialDataFile' n'est connu avec le symbole 7.\n"},
      {[&] {
         Assign_App_NewSerialDataFileFromIdFunction(nullptr);
         factsOver("", UseFact);
       },
       "\n!!!============== UnknownFileClassSymbol =============="
       "\n!!! Aucun fichier de classe 'FactualDataFile' n'est connu avec le symbole 41.\n"},
      {[&] {
         ReadSequentialDataFileProcess* reading = NewWeatherReading();
         reading->FileClassId(facts);
         reading->PostInitAndProceedEvent(0);
       },
       "\n!!!============== UnknownFileClassSymbol =============="},
      {[&] { NewWeatherReading()->PostProceedEvent(0); }, "\n!!!============== BadFileRead =============="},
      {[&] { weatherOver("1 0.5 calm\n2 wet calm\n"); }, "\n!!!============== BadFileRead =============="},
      {[&] { weatherOver("1 0.5 calm\n2 1"); }, "\n!!!============== BadFileRead =============="},
      {[&] {
         weatherFile->AssignFullName(folder.Path("").c_str());  // a folder can be opened, but not read
         NewWeatherReading()->PostInitAndProceedEvent(0);
       },
       "\n!!!============== BadFileRead =============="},
      {[&] { factsOver("5 rain\n", UseFact); }, voidRecord.c_str()},  // nothing is due
      {[&] {                                                          // reads on behind the end
         factsOver("", [](ProcessMethod* method) {
           pCurrentSim->InsertInAgendaEvents(new DiscreteExecution(9, method->DescribedDiscreteProcess()));
         });
       },
       "\n!!!============== BadFileRead =============="},
  };
  for (const Case& c : cases) {
    const std::string failure = FailureOf([&] {
      c.prepare();
      Run();
    });
    EXPECT_EQ(failure.find(c.failure), 0U) << failure << c.failure;
  }
}

TEST_F(DataReadingTest, AProcessThatIsStoppedBeforeItBeginsHasNoFileToClose) {
  ReadSequentialDataFileProcess* reading = NewWeatherReading();
  reading->SetPrecondition([](ProcessMethod*) { return -1; });
  reading->PostInitialisationEvent(4);
  EXPECT_EQ(run->RunBatch(10), 2);  // the initialisation and the stop
  EXPECT_EQ(gLog, "");
}

TEST_F(DataReadingTest, CopiesOfEventsAreOfTheTrueClassAndReadTheSameOpenFile) {
  WriteWeather(aWeek);
  weatherFile->SetNbTopCommentLines(2);
  ReadSequentialDataFileProcess* reading = NewWeatherReading();
  reading->ExecVoidMethod(INITIALIZE_PROCESS);
  reading->ExecVoidMethod(GOONESTEPFORWARD_PROCESS);
  InitFactualDataFileReadingProcess* starter = NewFactReading(UseFact);
  starter->SetFilePath("/in/");
  const OwnedEvent event = MakeEvent("lectures");
  event->AddProcessAction(starter, EXEC);
  event->AddProcessAction(reading, PROCEED);

  const OwnedEvent copy(new Event(*event));
  auto* starterCopy = static_cast<InitFactualDataFileReadingProcess*>(copy->ListpProcessAction()[0]->process);
  EXPECT_EQ(starterCopy->IsInitSDRec(), 1);
  EXPECT_EQ(starterCopy->FileClassId(), facts);
  EXPECT_STREQ(starterCopy->GetFilePath(), "/in/");
  EXPECT_EQ(starterCopy->HasPostRead(), 0);  // alone among the three
  auto* readingCopy = static_cast<ReadSequentialDataFileProcess*>(copy->ListpProcessAction()[1]->process);
  EXPECT_EQ(readingCopy->IsReadSDF(), 1);
  EXPECT_NE(readingCopy->GetMethod(POST_READ), reading->GetMethod(POST_READ));
  readingCopy->ExecVoidMethod(GOONESTEPFORWARD_PROCESS);
  reading->ExecVoidMethod(GOONESTEPFORWARD_PROCESS);
  EXPECT_EQ(gLog, "1:0.5:calm@0 2:12:gale@0 3:0:calm@0 ");
}

TEST_F(DataReadingTest, APostponedStarterKeepsItsPostReading) {
  WriteFacts("0 rain\n10 sun\n");
  InitFactualDataFileReadingProcess* starter = NewFactReading(UseFactAndReadOn);
  starter->SetPrecondition([](ProcessMethod*) { return pCurrentSim->Clock() < 3 ? 0 : 1; });
  Post(starter, EXEC, 1);
  EXPECT_EQ(Run(), "rain@3 sun@10 end@10 ");
}

// An event that renews itself passes the reading on to a raw copy each time.
TEST_F(DataReadingTest, TheFileKnowsTheReaderThatTookTheOthersPlace) {
  WriteFacts("2 rain\n7 sun\n30 snow\n");
  run->SetEndClock(10);
  Post(NewFactReading([](ProcessMethod* method) {
         UseFact(method);
         EXPECT_EQ(FileOf(method)->GetReaderProcess(), method->DescribedProcess());
         if (pCurrentSim->Clock() > 2) return;
         auto* daily = new Event(31, "lecture quotidienne");
         daily->AddProcessAction(method->DescribedDiscreteProcess(), EXEC);
         daily->IsAutoGenerate(1);
         EXPECT_EQ(pCurrentSim->InsertInAgendaEvents(daily, 50, 3), 1);
       }),
       EXEC, 2);
  EXPECT_EQ(Run(), "rain@2 sun@7 ");
  EXPECT_EQ(run->Clock(), 10);
  EXPECT_EQ(factFile->GetReaderProcess(), nullptr);
  EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
}

TEST_F(DataReadingTest, AReaderMayOutliveItsFile) {
  WriteFacts("0 rain\n10 sun\n");
  Post(NewFactReading(UseFactAndReadOn), EXEC, 0);
  EXPECT_EQ(Run(2), "rain@0 ");
  EXPECT_EQ(run->AgendaEventSize(), 1);  // which goes after the files
}

TEST_F(DataReadingTest, DeepDeletionNamesTheKindThroughTheBaseToo) {
  const auto traceOf = [](auto* process) {
    return OutputOf([process] {
      g_KV_TraceNewDelMode = 1;
      process->DeleteInDepth();
    });
  };
  const auto expected = [](const char* text, const void* process) {
    std::ostringstream line;
    line << text << process;
    return line.str();
  };
  DiscreteProcess* starter = NewFactReading(UseFact);
  EXPECT_EQ(traceOf(starter).find(expected("\n-Destruction profonde du processus InitSDFReading ", starter)),
            0U);
  DiscreteProcess* reader = new ReadFactualDataRecordProcess();
  EXPECT_EQ(traceOf(reader).find(expected("\n-Destruction profonde du processus ReadSDRec ", reader)), 0U);
  ContinuousProcess* sequential = NewWeatherReading();
  EXPECT_EQ(traceOf(sequential).find(expected("\n-Destruction profonde du processus ReadSDF ", sequential)),
            0U);
}

}  // namespace
