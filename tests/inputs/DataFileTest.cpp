// Data files read from real files by functions of the application, and output files.
#include "kalve/inputs/DataFiles.h"

#include <gtest/gtest.h>

#include <cstring>

#include "kalve/designs/DesignOfExperiment.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/FactualDataFile.h"
#include "kalve/inputs/OutputFile.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace {

constexpr int milk = 20;
constexpr int facts = 21;

/// Day, litres, fat and name of a line.
int ReadMilk(SequentialDataFile* file) {
  Tableau<StructField*>& fields = file->mFields;
  return std::fscanf(file->GetPhysicalFile(), "%d %f %lf %49s", &fields[0]->mValue.intValue,
                     &fields[1]->mValue.floatValue, &fields[2]->mValue.doubleValue,
                     fields[3]->mValue.stringValue);
}

template <class DataFile>
void AddFourFields(DataFile& file) {
  for (const ValueTypeId type : {INT, FLOAT, DOUBLE, STRING}) file.AddField(0, type);
}

class DataFileTest : public testing::Test {
 protected:
  DataFileTest() : file(milk, READ_ACCESS, OM_APPEND) {
    AddFourFields(file);
    file.AssignReadNextEnrgtMethod(ReadMilk);
  }
  void Open(const std::string& bytes) {
    file.AssignFullName(folder.Write("milk.txt", bytes).c_str());
    file.Open();
  }

  TemporaryFolder folder;
  SequentialDataFile file;
};

TEST_F(DataFileTest, ReadsRecordAfterRecordUntilTheEnd) {
  Open(
      "day litres fat name\n1 20.5 3.75 Marguerite\n2 18 4 abcdefghijabcdefghijabcdefghijabcdefghijabcdefghi\n");
  file.SetNbTopCommentLines(1);
  file.Skip(file.GetNbTopCommentLines());
  EXPECT_EQ(ReadNextEnrgt(milk), 4);
  EXPECT_EQ(GetIntFieldValue(milk, 0), 1);
  EXPECT_EQ(GetFloatFieldValue(milk, 1), 20.5F);
  EXPECT_EQ(GetDoubleFieldValue(milk, 2), 3.75);
  EXPECT_STREQ(GetStringFieldValue(milk, 3), "Marguerite");
  EXPECT_EQ(ReadNextEnrgt(milk), 4);
  EXPECT_EQ(std::strlen(GetStringFieldValue(milk, 3)), 49U);
  EXPECT_EQ(ReadNextEnrgt(milk), -1);
}

TEST_F(DataFileTest, SkipsLinesInPiecesOf99Characters) {
  Open(std::string(250, '-') + "\n7 1 1 a\n");
  file.Skip(3);
  EXPECT_EQ(file.ReadNextEnrgt(), 4);
  EXPECT_EQ(file.GetIntFieldValue(0), 7);
  file.Skip(50);
  EXPECT_EQ(file.ReadNextEnrgt(), -1);
}

TEST_F(DataFileTest, ShowsItsFields) {
  Open("1 20.5 3.75 Marguerite\n");
  file.ReadNextEnrgt();
  EXPECT_EQ(OutputOf([this] { file.Display(); }),
            "\n   -------------------------------\n  .Nom fichier  : " + folder.Path("milk.txt") +
                "\n  .Mode ouvert. : lecture\n  .Etat fichier : ouvert"
                "\n  .Champ (Entier) 0 :             1.  \n  .Champ (Float)  1 :      20.50000."
                "\n  .Champ (Double) 2 :       3.75000.\n  .Champ (String) 3 : Marguerite."
                "\n   -------------------------------");
}

TEST_F(DataFileTest, KeepsItsFormatFromTwoParts) {
  file.AssignFormat("%d", "%f %lf");
  EXPECT_STREQ(file.GetFormat(), "%d %f %lf");
  file.AssignFormat("%s");
  EXPECT_STREQ(file.GetFormat(), "%s");
  EXPECT_STREQ(file.GetFormatData(), "%f %lf");
  file.AssignKeyFormat("%u");
  EXPECT_STREQ(file.GetFormat(), "%u %f %lf");
  file.AssignDataFormat("%c");
  EXPECT_STREQ(file.GetFormat(), "%u %c");
}

TEST_F(DataFileTest, FailsInWords) {
  SerialDataFile plain(30, READ_ACCESS, OM_APPEND);
  SequentialDataFile readerless(31, READ_ACCESS, OM_APPEND);
  FactualDataFile factual(facts, READ_ACCESS, OM_APPEND);
  factual.AddField(0, INT);
  struct Case {
    std::function<void()> attempt;
    const char* failure;
  };
  const Case cases[] = {
      {[] { ReadNextEnrgt(99); }, "BadSearchByFileId"},
      {[] { ReadNextEnrgt(30); }, "BadFileType"},
      {[] { ReadNextEnrgt(31); }, "BadFileRead"},
      {[] { ReadNextEnrgt(facts); }, "BadFileRead"},
      {[&] { file.Skip(1); }, "BadFileRead"},
      {[] { GetFloatFieldValue(milk, 0); }, "BadFieldValueType"},
      {[] { GetIntFieldValue(milk, 3); }, "BadFieldValueType"},
      {[] { GetDoubleFieldValue(milk, 1); }, "BadFieldValueType"},
      {[] { GetStringFieldValue(milk, 2); }, "BadFieldValueType"},
      {[&] { factual.GetFloatFieldReadValue(0); }, "BadFieldValueType"},
      {[&] {
         OutputFile output("x", OM_APPEND);
         OutputFile::mpInstanceTab.erase();
         OutputFile::RemoveInstance(&output);
       },
       "InexistantInstance"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(FailureOf(c.attempt).find(std::string("\n!!!============== ") + c.failure + " ="), 0U)
        << c.failure;
  EXPECT_EQ(
      RunInChild([] { GetIntFieldValue(milk, 4); }).output,
      "\n!!! Indice hors tableau dans 'SerialDataFile::FieldValue' : indice 4, taille du tableau 4.\nERROR \n");
}

TEST_F(DataFileTest, AcceptsEnoughFieldsTheEndAndInAFactualFileWhatIsNotDue) {
  struct Case {
    int answer;
    bool sequential;
    bool factual;
  };
  static int answer;
  FactualDataFile factual(facts, READ_ACCESS, OM_APPEND);
  AddFourFields(factual);
  factual.AssignReadNextEnrgtMethod([](FactualDataFile*) { return answer; });
  file.AssignReadNextEnrgtMethod([](SequentialDataFile*) { return answer; });
  for (const Case& c : {Case{5, true, true},
                        {4, true, true},
                        {3, false, false},
                        {0, false, false},
                        {-1, true, true},
                        {-2, false, false},
                        {-9, false, true}}) {
    answer = c.answer;
    for (const bool isFactual : {false, true}) {
      const auto read = [&] { std::printf("%d", isFactual ? ReadNextEnrgt(facts) : file.ReadNextEnrgt()); };
      if (isFactual ? c.factual : c.sequential) {
        EXPECT_EQ(OutputOf(read), std::to_string(c.answer));
      } else {
        EXPECT_NE(
            FailureOf(read).find("erreur de lecture (fin inattendue, enregistrement erroné ou vide,...)"),
            std::string::npos);
      }
    }
  }
}

/// Reads a fact ahead and shows it once its date has come at the clock, which is `now`.
int now = 0;
int ReadFact(FactualDataFile* file) {
  if (file->IsBufferEmpty() != 0) {
    Tableau<StructField*>& read = file->mReadTab;
    const int count = std::fscanf(file->GetPhysicalFile(), "%d %49s", &read[0]->mValue.intValue,
                                  read[1]->mValue.stringValue);
    if (count < 2) return count;
    if (file->GetRecordClockValue() <= now) {
      file->ReadTabToDataTab();
      return count;
    }
    file->ReadTabToBufferTab();
  }
  if (file->GetIntFieldReadValue(0) > now) return -9;
  file->BufferTabToDataTab();
  file->IsBufferEmpty(1);
  return 2;
}

TEST(FactualDataFile, KeepsARecordUntilItsDate) {
  TemporaryFolder folder;
  FactualDataFile file(facts, READ_ACCESS, OM_APPEND);
  EXPECT_EQ(file.GetRecordClockValue(), -9);
  file.AddField(0, INT);
  file.AddField(1, STRING);
  file.AssignReadNextEnrgtMethod(ReadFact);
  file.AssignGetRecordClockValueMethod([](FactualDataFile* f) { return f->GetIntFieldReadValue(0); });
  file.AssignFullName(folder.Write("facts.txt", "0 rain\n10 sun\n").c_str());
  file.Open();
  EXPECT_EQ(file.IsDataEmpty(), 1);
  now = 0;
  EXPECT_EQ(file.ReadNextEnrgt(), 2);
  EXPECT_EQ(file.IsDataEmpty(), 0);
  EXPECT_STREQ(file.GetStringFieldValue(1), "rain");
  now = 9;
  EXPECT_EQ(file.ReadNextEnrgt(), -9);
  EXPECT_EQ(file.IsBufferEmpty(), 0);
  EXPECT_STREQ(file.GetStringFieldReadValue(1), "sun");
  EXPECT_STREQ(file.GetStringFieldValue(1), "rain");
  std::strcpy(file.mReadTab[1]->mValue.stringValue, "hail");  // the kept record does not change with it
  now = 10;
  EXPECT_EQ(file.ReadNextEnrgt(), 2);
  EXPECT_STREQ(file.GetStringFieldValue(1), "sun");
  EXPECT_EQ(file.ReadNextEnrgt(), -1);
}

TEST(OutputFile, TakesItsPlaceFromTheSimulation) {
  Simulation simulation;
  struct Case {
    Simulation* current;
    const char* directory;
    std::string name;
    std::string fullName;
  };
  const std::string longDirectory = "/" + std::string(300, 'd') + "/";
  for (const Case& c : {Case{nullptr, "", "a.txt", "a.txt"},
                        {&simulation, "", "b.txt", ""},
                        {&simulation, "/out/", "c.txt", "/out/c.txt"},
                        {&simulation, longDirectory.c_str(), "d.txt", longDirectory + "d.txt"}}) {
    pCurrentSim = c.current;
    simulation.SetOutDir(c.directory);
    OutputFile file(c.name.c_str(), OM_OVERWRITE);
    pCurrentSim = nullptr;
    EXPECT_EQ(file.GetFullName(), c.fullName);
    EXPECT_EQ(GetOutputFile(c.name.c_str()), &file);
    EXPECT_EQ(file.ClassSymbol(), -2);
    if (c.fullName.empty()) {
      EXPECT_NE(FailureOf([&] { file.Open(); }).find("'b.txt'"), std::string::npos);
    }
  }
  EXPECT_EQ(GetOutputFile("c.txt"), nullptr);
}

TEST(Files, AreFoundByPathAndNeverByClassAmongOutputs) {
  LexicalInputFile text;
  text.AssignFullName("/in/a");
  FactualDataFile first(facts, READ_ACCESS, OM_APPEND);
  first.AssignFullName("/in/a");
  FactualDataFile second(facts, READ_ACCESS, OM_APPEND);
  second.AssignFullName("/in/a");
  OutputFile output("a", OM_APPEND);
  EXPECT_EQ(GetPathNamedSDF("/in/a"), &first);
  EXPECT_EQ(GetPathNamedSDF("a"), nullptr);
  EXPECT_EQ(GetSerialDataFile(facts), &first);
  EXPECT_EQ(GetClassNamedSDF("output"), nullptr);
  Assign_App_SerialDataFileIdFromStringFunction([](const char*) { return -2; });
  EXPECT_EQ(GetClassNamedSDF("output"), nullptr);
  EXPECT_EQ(GetClassNamedSDF(facts), nullptr);
  Assign_App_SerialDataFileIdFromStringFunction(nullptr);
}

/// A class of an application, with something of its own.
class MilkFile : public SequentialDataFile {
 public:
  MilkFile() : SequentialDataFile(milk, READ_ACCESS, OM_APPEND) { AddFourFields(*this); }
  double mSums[4] = {};
};

TEST(Files, AreDeletedByKindTogetherWithTheDesign) {
  const int alive = File::getNbConst() - File::getNbDest();
  {
    SerialDataFile plain(30, READ_ACCESS, OM_APPEND);
    LexicalInputFile text;
    new MilkFile;
    AddFourFields(*new FactualDataFile(facts, READ_ACCESS, OM_APPEND));
    new OutputFile("a", OM_APPEND);
    g_KV_DOE = new FactorialDesignOfExperiment;
    g_KV_DOE->AddElement(new SerialDesignOfExperiment);
    DeleteFileInstances();
    g_KV_DOE = nullptr;
    EXPECT_EQ(File::mpInstanceTab.size(), 2);
    EXPECT_EQ(File::mInstanceNumber, 2);
    EXPECT_EQ(OutputFile::InstanceTab()->size(), 0);
    EXPECT_EQ(SerialDesignOfExperiment::mpInstanceTab.size(), 0);
  }
  EXPECT_EQ(File::getNbConst() - File::getNbDest(), alive);
}

TEST(Files, TraceTheirKind) {
  const std::string output = OutputOf([] {
    g_KV_TraceNewDelMode = 1;
    SequentialDataFile file(milk, READ_ACCESS, OM_APPEND);
  });
  for (const char* line :
       {"\n... particularisation en 'SerialDataFile' : ",
        "\n... particularisation en 'SequentialDataFile' : ", "\nDestruction d'une instance de 'File' : "})
    EXPECT_NE(output.find(line), std::string::npos) << line;
}

}  // namespace
