// The text writer of series, byte for byte.
#include <map>
#include <random>

#include "kalve/inputs/Parameter.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "tests/outputs/OutputTest.h"

namespace {

class TextWriterTest : public OutputTest {
 protected:
  ~TextWriterTest() override { DeleteParameters(); }

  struct Cow {
    Thing* entity = NewCow();
    FloatVariableDescriptor& weight = Give<FloatVariableDescriptor>(entity, 20, "weight");
    StringVariableDescriptor& owner = Give<StringVariableDescriptor>(entity, 21, "owner_name");
  };
  static void AddText(const char* className, const char* name, const char* text,
                      const char* group = nullptr) {
    CreateParameter(STRING, className, name, UnifiedValue{.stringValue = const_cast<char*>(text)}, group);
  }
  static void AddReal(const char* className, const char* name, double number, const char* group = nullptr) {
    CreateParameter(DOUBLE, className, name, UnifiedValue{.doubleValue = number}, group);
  }
  static void AddColumns(OutputFileMDescOS* writer) {
    writer->AddDescriptorOS("weight", 2);
    writer->AddDescriptorOS("owner_name", 0);
  }
  void MakeTwoCows() {
    Cow first;
    SetAt(0, first.weight, 12.5F);
    SetAt(5, first.owner, "Bob");
    SetAt(10, first.weight, 13.0F);
    Cow second;
    second.entity->SetInstanceName("Cow_22");
    SetAt(3, second.weight, 9.0F);
  }
  std::string Dump() const {
    DisplayAllOutputSpecs();
    return Content("series.txt");
  }
  /// The header of a file of one column "weight".
  std::string Header(TimeType type) const {
    NewWriter("Cow", AOE_ALL, type)->AddDescriptorOS("weight", 0);
    const Cow cow;
    const std::string dump = Dump();
    return dump.substr(0, dump.find('\n'));
  }
};

TEST_F(TextWriterTest, WritesTheParametersTheNamesAndABlockForEachInstance) {
  AddText("Herd", "breed", "Angus");
  OutputFileMDescOS* const writer = NewWriter("Cow");
  AddColumns(writer);
  writer->AddParameterOS("Herd", "breed");
  writer->AddParameterOS("Herd", "breed");
  MakeTwoCows();
  EXPECT_EQ(Dump(),
            "#\"Herd\" \"breed\" = 'Angus'\n"
            "#Cow   \tclock\tweight\towner_n\n"
            "Cow_1 \t0\t12.50\t_\n"
            "Cow_1 \t5\t12.50\tBob\n"
            "Cow_1 \t10\t13.00\tBob\n"
            "\n"
            "Cow_22\t3\t9.00\t_\n"
            "\n");
  writer->SetIsNumIdentified(1);
  simulation.SetNumId(12);
  EXPECT_EQ(Dump(),
            "#\"Herd\" \"breed\" = 'Angus'\n"
            "#sim_idn Cow   \tclock\tweight\towner_n\n"
            "     12 Cow_1 \t0\t12.50\t_\n"
            "     12 Cow_1 \t5\t12.50\tBob\n"
            "     12 Cow_1 \t10\t13.00\tBob\n"
            "\n"
            "     12 Cow_22\t3\t9.00\t_\n"
            "\n");
}

TEST_F(TextWriterTest, ASecondDumpAddsToTheFileOrReplacesIt) {
  for (const OutputMode mode : {OM_APPEND, OM_OVERWRITE}) {
    folder.Write("series.txt", "before\n");
    OutputFileMDescOS* const writer = NewWriter("Cow", AOE_ALL, CLOCK, mode);
    AddColumns(writer);
    EXPECT_EQ(Content("series.txt"), mode == OM_APPEND ? "before\n" : "");
    MakeTwoCows();
    const std::string once = Dump();
    const std::string block = once.substr(once.find('#'));
    EXPECT_EQ(once, mode == OM_APPEND ? "before\n" + block : block);
    EXPECT_EQ(Dump(), mode == OM_APPEND ? once + block : block);
    DeleteOutputSpecs();
  }
}

TEST_F(TextWriterTest, NamesTheColumnsOfEachFormOfDate) {
  struct Case {
    TimeType type;
    const char* header;
  };
  const Case cases[] = {
      {CLOCK, "#Cow  \tclock\tweight"},
      {MIN_HOUR_YEARDAY, "#Cow  \tmin\thour\tjulian\tweight"},
      {YEARDAY_HOUR_MIN, "#Cow  \tjulian\thour\tmin\tweight"},
      {SIMDAY_HOUR_MIN, "#Cow  \tdayFrom1\thour\tmin\tweight"},
      {HOUR_DAY_MONTH, "#Cow  \thour\tday\tmonth\tweight"},
      {DAY_MONTH_YEAR, "#Cow  \tday\tmonth\tyear\tweight"},
      {ISO_8601, "\tweight"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Header(c.type), c.header);
    DeleteOutputSpecs();
    DeleteEntityInstances(COW);
    BasicEntity::mInstanceNumber = 0;
  }
}

TEST_F(TextWriterTest, DatesTakeThreeColumnsOrOne) {
  simulation.ClockTimeUnit(MINUTE);
  simulation.ClockTimeUnitQuantity(1);
  simulation.SetBeginningDate(31, 12, 2007, 22, 0, 0);
  for (const auto& [type, date] : {std::pair{DAY_MONTH_YEAR, "1\t1\t2008"},
                                   {SIMDAY_HOUR_MIN, "2\t0\t5"},
                                   {ISO_8601, "2008-01-01 00:05:00"}}) {
    NewWriter("Cow", AOE_ALL, type)->AddDescriptorOS("weight", 1);
    Cow cow;
    SetAt(125, cow.weight, 1.25F);
    const std::string dump = Dump();
    EXPECT_NE(dump.find(Text("%s\t%s\t1.2\n", cow.entity->InstanceName(), date)), std::string::npos) << dump;
    DeleteOutputSpecs();
  }
}

TEST_F(TextWriterTest, ColumnsAreThoseOfTheFirstInstanceAndPrecisionsShift) {
  OutputFileMDescOS* const writer = NewWriter("Cow");
  writer->AddDescriptorOS("absent", 4);
  writer->AddDescriptorOS("exactly", 1);
  writer->AddDescriptorOS("weight", 3);
  Thing* const first = NewCow();
  Give<FloatVariableDescriptor>(first, 20, "weight").SetValue(1.0F);
  Give<FloatVariableDescriptor>(first, 21, "exactly").SetValue(2.0F);
  Thing* const second = NewCow();
  Give<FloatVariableDescriptor>(second, 22, "weight").SetValue(3.0F);
  Give<FloatVariableDescriptor>(second, 21, "exactly").SetValue(4.0F);
  Give<FloatVariableDescriptor>(second, 20, "absent").SetValue(5.0F);
  const std::string rows =
      "#Cow  \tclock\texactly\tweight\n"
      "Cow_1\t0\t2.0000\t1.0\n\n"
      "Cow_2\t0\t4.0000\t3.0\n\n";
  EXPECT_EQ(Dump(), rows);
  Give<FloatVariableDescriptor>(NewCow(), 20, "absent").SetValue(5.0F);
  const std::string report = RunInChild([] { DisplayAllOutputSpecs(); }).output;
  EXPECT_NE(report.find("Indice hors tableau"), std::string::npos) << report;
  EXPECT_EQ(Content("series.txt"), rows);
  NewCow();  // without any series
}

TEST_F(TextWriterTest, EmptySeriesShowNothing) {
  AddColumns(NewWriter("Cow"));
  const Cow without;
  Cow with;
  SetAt(0, with.weight, 1.0F);
  SetAt(7, with.weight, 2.0F);
  NewCow();
  EXPECT_EQ(Dump(),
            "#Cow  \tclock\tweight\towner_n\n"
            "Cow_2\t0\t1.00\t_\n"
            "Cow_2\t7\t2.00\t_\n\n");
}

TEST_F(TextWriterTest, ParametersAreShownOneByOneByGroupOrAll) {
  AddText("Herd", "breed", "Angus", "fixed");
  AddReal("Herd", "growth", 0.5, "fixed");
  CreateParameter(INT, "Herd", "size", UnifiedValue{.intValue = 40});
  CreateParameter(VOID, "Herd", "start",
                  UnifiedValue{.entityValue = reinterpret_cast<BasicEntity*>(new Date(2008, 1, 2, 3, 4, 5))},
                  "fixed");
  const std::string breed = "#\"Herd\" \"breed\" = 'Angus'\n";
  const std::string growth = "#\"Herd\" \"growth\" = 0.500000\n";
  const std::string size = "#\"Herd\" \"size\" = 40\n";
  struct Case {
    const char* ident1;
    const char* ident2;
    std::string lines;
  };
  const Case cases[] = {{"ALL", "", breed + growth + size},
                        {"GROUP", "fixed", breed + growth},
                        {"GROUP", "loose", ""},
                        {"Herd", "size", size},
                        {"Herd", "start", ""}};
  const Cow cow;
  for (const Case& c : cases) {
    OutputFileMDescOS* const writer = NewWriter("Cow");
    AddColumns(writer);
    const Cow watched;
    writer->AddParameterOS(c.ident1, c.ident2);
    EXPECT_EQ(Dump().substr(0, c.lines.size() + 1), c.lines + "#");
    DeleteOutputSpecs();
  }
}

TEST_F(TextWriterTest, AParameterThatIsNotThereEndsTheRun) {
  AddText("Herd", "breed", "Angus");
  OutputFileMDescOS* const writer = NewWriter("Cow");
  writer->AddParameterOS("Herd", "breed");
  writer->AddParameterOS("Herd", "nothing");
  const Cow watched;
  EXPECT_NE(FailureOf([] { DisplayAllOutputSpecs(); }).find(" InexistantParameter "), std::string::npos);
  EXPECT_EQ(Content("series.txt"), "#\"Herd\" \"breed\" = 'Angus'\n");  // what came before
}

TEST_F(TextWriterTest, NothingIsWrittenWithoutAnInstance) {
  folder.Write("series.txt", "before");
  NewWriter("Cow", AOE_ALL, CLOCK, OM_APPEND);
  EXPECT_EQ(OutputOf([] { DisplayAllOutputSpecs(); }),
            "\n!!! Sauvegarde série temporelle : pas d'information pour la classe \"Cow\"."
            "\n!!! Vérifier le nom de classe dans le fichier de spécification des sorties."
            "\n!!! Vérifier que les spécifications de sortie ont été lues avant la création "
            "\n!!! des instances de \"Cow\".\n");
  EXPECT_EQ(Content("series.txt"), "before");
}

TEST_F(TextWriterTest, AWriterWithoutAFileEndsTheRun) {
  AddColumns(NewWriter("Cow"));
  auto* const without = new OutputFileMDescOS(CLOCK, 0, 0, 1, GRAPH_LINE, AOE_ALL);
  without->RegisterEntityOS("Cow");
  without->ConfigureOutputFile("", OM_OVERWRITE);
  EXPECT_EQ(without->GetOutputFile(), nullptr);
  const Cow cow;
  EXPECT_NE(FailureOf([] { DisplayAllOutputSpecs(); }).find(" BadFileName "), std::string::npos);
}

TEST_F(TextWriterTest, LongNamesAndTextsStayWhole) {
  const std::string name(300, 'n');
  const std::string text(700, 't');
  AddText(name.c_str(), "breed", text.c_str());
  OutputFileMDescOS* const writer = NewWriter("Cow");
  AddColumns(writer);
  writer->AddParameterOS("ALL", "");
  Cow cow;
  cow.entity->SetInstanceName(name.c_str());
  cow.owner.SetValue(text.c_str());
  EXPECT_EQ(Dump(), "#\"" + name + "\" \"breed\" = '" + text + "'\n#Cow" + std::string(297, ' ') +
                        "\tclock\tweight\towner_n\n" + name + "\t0\t_\t" + text + "\n\n");
}

// Long enough for several pieces of a file.
TEST_F(TextWriterTest, RowsAgreeWithANaiveMerge) {
  constexpr int columns = 4;
  const char* const names[columns] = {"d0", "d1", "d2", "d3"};
  OutputFileMDescOS* const writer = NewWriter("Cow");
  for (int k = 0; k < columns; ++k) writer->AddDescriptorOS(names[k], k);
  std::mt19937 random(7);
  std::string expected = "#Cow   \tclock\td0\td1\td2\td3\n";
  for (int turn = 0; turn < 10; ++turn) {
    Thing* const cow = NewCow();
    std::map<int, double> points[columns];
    DoubleVariableDescriptor* descriptors[columns];
    for (int k = 0; k < columns; ++k) descriptors[k] = &Give<DoubleVariableDescriptor>(cow, 20 + k, names[k]);
    for (int clock = turn % 2; clock < 800; clock += 1 + static_cast<int>(random() % 3))
      for (int k = 0; k < columns; ++k) {
        if (random() % 4 > static_cast<unsigned>(k)) continue;
        points[k][clock] = static_cast<double>(random() % 100000) / 64.0;
        SetAt(clock, *descriptors[k], points[k][clock]);
      }
    std::map<int, bool> clocks;
    for (const auto& column : points)
      for (const auto& point : column) clocks[point.first] = true;
    for (const auto& row : clocks) {
      expected += Text("%-6s\t%d", cow->InstanceName(), row.first);
      for (int k = 0; k < columns; ++k) {
        const auto behind = points[k].upper_bound(row.first);
        expected += behind == points[k].begin() ? "\t_" : Text("\t%.*f", k, std::prev(behind)->second);
      }
      expected += '\n';
    }
    expected += '\n';
  }
  EXPECT_GT(expected.size(), 2U * 65536U);
  EXPECT_TRUE(Dump() == expected);
}

}  // namespace
