// Designs of experiments: what is applied when, against an enumeration of all combinations; exact traces.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <sstream>
#include <vector>

#include "kalve/designs/DesignOfExperiment.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/inputs/ParserFunction.h"
#include "tests/support/ChildProcess.h"

namespace {

UnifiedValue* Int(int value) { return new UnifiedValue{.intValue = value}; }
UnifiedValue* Real(double value) { return new UnifiedValue{.doubleValue = value}; }
UnifiedValue* Word(const char* value) { return new UnifiedValue{.stringValue = strdup(value)}; }

SerialDesignOfExperiment* Factor(const char* name, int modalities) {
  auto* factor = new SerialDesignOfExperiment;
  factor->SetName(name);
  factor->SetNbModalities(modalities);
  return factor;
}

/// Adds a variable "name name" to the factor: a value for each modality.
void Vary(SerialDesignOfExperiment* factor, const char* name, int type,
          const std::vector<UnifiedValue*>& values) {
  const int row = factor->GetParamTypes()->size();
  factor->GetParamIds1()->push_back(strdup(name));
  factor->GetParamIds2()->push_back(strdup(name));
  factor->GetParamTypes()->push_back(type);
  factor->AddRow();
  for (UnifiedValue* value : values) factor->AddUnifiedValue(row, value);
  factor->SetNbVariables(row + 1);
}

void Complete(FactorialDesignOfExperiment& design, const std::vector<SerialDesignOfExperiment*>& factors) {
  for (SerialDesignOfExperiment* factor : factors) design.AddElement(factor);
  design.SetNbFactors(static_cast<int>(factors.size()));
  design.SetCurrentSerialExpeDesignIndex(static_cast<int>(factors.size()) - 1);
}

/// The lines of the body's output that open with "@": traces print whatever the switches.
std::string MarkedLines(const std::function<void()>& body) {
  std::istringstream output(OutputOf(body));
  std::string marked;
  for (std::string line; std::getline(output, line);)
    if (!line.empty() && line[0] == '@') marked += line.substr(1) + "\n";
  return marked;
}

class DesignTest : public testing::Test {
 protected:
  ~DesignTest() override { DeleteParameters(); }

  /// Factors named by their rank over integer parameters, which stand at `initial`; modality m has value m.
  static void Cross(FactorialDesignOfExperiment& design, const std::vector<int>& sizes, int initial = 0) {
    std::vector<SerialDesignOfExperiment*> factors;
    for (const int size : sizes) {
      const std::string name = std::to_string(factors.size());
      CreateParameter(INT, name.c_str(), name.c_str(), {.intValue = initial});
      factors.push_back(Factor(name.c_str(), size));
      std::vector<UnifiedValue*> values;
      for (int modality = 0; modality < size; ++modality) values.push_back(Int(modality));
      Vary(factors.back(), name.c_str(), INT, values);
    }
    Complete(design, factors);
  }

  static std::string Settings() {
    std::string settings;
    for (Parameter* parameter : Parameter::mpInstanceTab)
      settings += " " + std::to_string(static_cast<IntParameter*>(parameter)->GetIntValue());
    return settings;
  }

  /// Answer and settings of each call, until the answer is -9.
  static std::string Run(FactorialDesignOfExperiment& design) {
    return MarkedLines([&] {
      for (int answer = 0; answer != -9;) {
        answer = design.NextSimulationSettings();
        std::printf("\n@%d:%s\n", answer, Settings().c_str());
      }
    });
  }
};

TEST_F(DesignTest, OuterFactorsKeepTheFilesValueDuringTheFirstPass) {
  FactorialDesignOfExperiment design;
  Cross(design, {2, 3}, 77);
  EXPECT_EQ(Run(design), "1: 77 0\n1: 77 1\n1: 77 2\n1: 1 0\n1: 1 1\n1: 1 2\n-9: 0 0\n");
}

TEST_F(DesignTest, RunsEveryCombinationInOrderWhenTheFileHoldsModality0) {
  std::mt19937 random(20240301);
  for (int round = 0; round < 60; ++round) {
    std::vector<int> sizes(1 + random() % 4);
    for (int& size : sizes) size = static_cast<int>(1 + random() % 4);
    const int replications = static_cast<int>(1 + random() % 5);
    FactorialDesignOfExperiment design;
    Cross(design, sizes);
    design.SetNbReplications(replications);

    std::string expected;
    std::vector<int> combination(sizes.size(), 0);
    for (bool done = false; !done;) {
      expected += std::to_string(replications) + ":";
      for (const int modality : combination) expected += " " + std::to_string(modality);
      expected += "\n";
      std::size_t i = sizes.size();
      while (i > 0 && ++combination[i - 1] == sizes[i - 1]) combination[--i] = 0;
      done = i == 0;
    }
    expected += "-9:";
    for (std::size_t i = 0; i < sizes.size(); ++i) expected += " 0";
    EXPECT_EQ(Run(design), expected + "\n");
    DeleteParameters();
  }
}

TEST_F(DesignTest, VariablesOfAFactorChangeTogetherAndCallTheHookEach) {
  CreateParameter(INT, "size", "size", {.intValue = 1});
  CreateParameter(DOUBLE, "area", "area", {.doubleValue = 1.0});
  CreateParameter(STRING, "breed", "breed", {});
  CreateParameter(VOID, "day", "day", {.entityValue = reinterpret_cast<BasicEntity*>(new Date)});
  FactorialDesignOfExperiment design;
  SerialDesignOfExperiment* factor = Factor("herd", 2);
  Vary(factor, "size", INT, {Int(10), Int(20)});
  Vary(factor, "area", DOUBLE, {Real(1.5), Real(2.5)});
  Vary(factor, "breed", STRING, {Word("aubrac"), Word("salers")});
  Vary(factor, "day", VOID, {Int(0), Int(0)});
  Complete(design, {factor, Factor("repeat", 1)});
  design.SetNbFactors(1);
  design.SetCurrentSerialExpeDesignIndex(0);
  static int calls;
  calls = 0;
  const std::string lines = MarkedLines([&] {
    Assign_InitParameterGlobalVariablesFunction([] { ++calls; });
    for (int i = 0; i < 3; ++i) {
      const int answer = design.NextSimulationSettings();
      std::printf("\n@%d: %d %g %s, %d calls\n", answer, GetIntParameterValue("size", "size"),
                  GetRealParameterValue("area", "area"), GetStringParameterValue("breed", "breed"), calls);
    }
  });
  EXPECT_EQ(lines, "1: 10 1.5 aubrac, 3 calls\n1: 20 2.5 salers, 6 calls\n-9: 10 1.5 aubrac, 9 calls\n");
}

TEST_F(DesignTest, FactorsWithoutVariablesOnlyCount) {
  FactorialDesignOfExperiment design;
  Complete(design, {Factor("outer", 3), Factor("inner", 1)});
  EXPECT_EQ(Run(design), "1:\n1:\n1:\n-9:\n");
  FactorialDesignOfExperiment empty;
  EXPECT_EQ(Run(empty), "-9:\n");
}

// The traces with accents are in UTF-8, byte by byte; a name comes as it is.
TEST_F(DesignTest, TracesEveryStepInItsTwoCharacterSets) {
  FactorialDesignOfExperiment design;
  CreateParameter(DOUBLE, "a", "a", {.doubleValue = 0.0});
  CreateParameter(STRING, "b", "b", {});
  SerialDesignOfExperiment* outer = Factor("prés", 2);
  Vary(outer, "a", DOUBLE, {Real(1.5), Real(2.5)});
  SerialDesignOfExperiment* inner = Factor("in", 1);
  Vary(inner, "b", STRING, {Word("x")});
  Complete(design, {outer, inner});
  EXPECT_EQ(OutputOf([&] { design.NextSimulationSettings(); }),
            "\nDEBUT FED::NSS index du SEDS courant = 1\n"
            "\n\tDEBUT SED 'in'::NSS mCurrentModalityIndex = 0"
            "\n\tindexVar = 0 id1 = 'b'\tid2 = 'b'\tval = 'x'\n"
            "\n\tFIN SED 'in'::NSS returns endReached = 0\n"
            "\nFIN FED::NSS goneAllOver = 0 - la var qui vient de changer est d'index 1\n");
  const std::string innerWraps =
      "\n\tDEBUT SED 'in'::NSS mCurrentModalityIndex = 1"
      "\tretour \xc3\xa0 mCurrentModalityIndex = 0 pour 'in'"
      "\n\tindexVar = 0 id1 = 'b'\tid2 = 'b'\tval = 'x'\n"
      "\n\tFIN SED 'in'::NSS returns endReached = 1\n";
  EXPECT_EQ(OutputOf([&] {
              inner->SetCurrentModalityIndex(1);
              design.NextSimulationSettings();
              std::printf("===");
              design.NextSimulationSettings();
            }),
            "\nDEBUT FED::NSS index du SEDS courant = 1\n" + innerWraps +
                "\n\tremont\xc3\xa9"
                "e sur 'pr\xe9s' avec modalit\xc3\xa9 d'index 1"
                "\n\tDEBUT SED 'pr\xe9s'::NSS mCurrentModalityIndex = 1"
                "\n\tindexVar = 0 id1 = 'a'\tid2 = 'a'\tval = 2.500000\n"
                "\n\tFIN SED 'pr\xe9s'::NSS returns endReached = 0\n"
                "\n\ton continuera sur 'in' avec modalit\xc3\xa9 d'index 1"
                "\nFIN FED::NSS goneAllOver = 0 - la var qui vient de changer est d'index 1\n==="
                "\nDEBUT FED::NSS index du SEDS courant = 1\n" +
                innerWraps +
                "\n\tremont\xc3\xa9"
                "e sur 'pr\xe9s' avec modalit\xc3\xa9 d'index 2"
                "\n\tDEBUT SED 'pr\xe9s'::NSS mCurrentModalityIndex = 2"
                "\tretour \xc3\xa0 mCurrentModalityIndex = 0 pour 'pr\xe9s'"
                "\n\tindexVar = 0 id1 = 'a'\tid2 = 'a'\tval = 1.500000\n"
                "\n\tFIN SED 'pr\xe9s'::NSS returns endReached = 1\n"
                "\nFIN FED::NSS goneAllOver = 1 - la var qui vient de changer est d'index 0\n");
}

TEST_F(DesignTest, ShowsFactorsAndModalities) {
  FactorialDesignOfExperiment design;
  SerialDesignOfExperiment* land = Factor("land", 2);
  Vary(land, "area", DOUBLE, {Real(1.5), Real(2.5)});
  SerialDesignOfExperiment* herd = Factor("herd", 2);
  Vary(herd, "size", INT, {Int(10), Int(20)});
  Vary(herd, "breed", STRING, {Word("aubrac"), Word("salers")});
  Complete(design, {land, herd});
  EXPECT_EQ(
      OutputOf([&] { design.Display(); }),
      "--------------------------------\n(['area' 'area']\n X\n ['size' 'size' + 'breed' 'breed'])\n"
      "--------------------------------\n([1.500000] -> [2.500000]\n X\n [10 + 'aubrac'] -> [20 + 'salers'])\n"
      "--------------------------------");
}

TEST_F(DesignTest, FailsOnParametersThatAreNotThereOrOfAnotherType) {
  FactorialDesignOfExperiment design;
  SerialDesignOfExperiment* factor = Factor("land", 1);
  Vary(factor, "area", DOUBLE, {Real(1.5)});
  EXPECT_EQ(FailureOf([&] { factor->NextSimulationSettings(); }),
            "\n!!!============== InexistantParameter =============="
            "\n!!! Il n'existe pas de paramètre 'area area'.\n");
  struct Case {
    int asked;
    ValueTypeId held;
    const char* word;
  };
  for (const Case& c :
       {Case{DOUBLE, INT, "réel"}, {INT, DOUBLE, "entier"}, {STRING, VOID, "chaîne de caractères"}}) {
    DeleteParameters();
    CreateParameter(c.held, "area", "area", {});
    const Tableau<Parameter*> kept(Parameter::mpInstanceTab);  // no leak where the failure ends a child
    factor->GetParamTypes()->set_nth(0, c.asked);
    EXPECT_EQ(FailureOf([&] { factor->NextSimulationSettings(); }),
              std::string("\n!!!============== InexistantTypedParameter =============="
                          "\n!!! Il n'existe pas de paramètre 'area area' de type ") +
                  c.word + ".\n    Opération en cours : 'set value'.\n");
  }
  factor->GetParamTypes()->set_nth(0, DOUBLE);  // as its values are
  factor->SetNbVariables(2);
  DeleteParameters();
  CreateParameter(DOUBLE, "area", "area", {});
  const Tableau<Parameter*> kept(Parameter::mpInstanceTab);
  for (const std::function<void()>& access :
       {std::function<void()>([&] { factor->NextSimulationSettings(); }),
        {[&] { factor->AddUnifiedValue(1, nullptr); }},
        {[&] { factor->Display(); }},
        {[&] { factor->DisplayIds(); }}}) {
    const std::string output = RunInChild(access).output;
    EXPECT_NE(output.find("indice 1, taille du tableau 1.\nERROR \n"), std::string::npos) << output;
  }
}

TEST(Factors, StandOnceInTheTableThatOwnsThem) {
  auto* factor = new SerialDesignOfExperiment;
  SerialDesignOfExperiment::AddInstance(factor);
  EXPECT_EQ(SerialDesignOfExperiment::mInstanceNumber, 1);
  EXPECT_EQ(SerialDesignOfExperiment::GetInstance(0), factor);
  g_KV_DOE = new FactorialDesignOfExperiment;
  EXPECT_EQ(g_KV_DOE->GetNbReplications(), 1);
  DeleteExpeSpecifications();
  EXPECT_NE(GetDesignOfExperiment(), nullptr);
  g_KV_DOE = nullptr;
  EXPECT_EQ(SerialDesignOfExperiment::mpInstanceTab.size(), 0);
  EXPECT_EQ(SerialDesignOfExperiment::mInstanceNumber, 0);
  DeleteExpeSpecifications();
}

TEST(Factors, TraceTheirLife) {
  const std::string output = OutputOf([] {
    g_KV_TraceNewDelMode = 1;
    FactorialDesignOfExperiment design;
    new SerialDesignOfExperiment;
  });
  std::size_t at = 0;
  for (const char* line : {"\n-Construction du FED ", "\n-Construction du SED ", "-Destruction du FED ",
                           "-Destruction du SED "}) {
    at = output.find(line, at);
    EXPECT_NE(at, std::string::npos) << line;
  }
}

}  // namespace
