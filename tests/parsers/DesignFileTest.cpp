// The file of a design of experiments: the design that it makes, and its faults.
#include "kalve/designs/DesignOfExperiment.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/inputs/ParserFunction.h"
#include "tests/parsers/ParserTest.h"

namespace {

class DesignFileTest : public ParserTest {
 protected:
  ~DesignFileTest() override {
    DeleteParameters();
    DeleteExpeSpecifications();
    g_KV_DOE = nullptr;
  }

  void Write(const std::string& parameters, const std::string& design) {
    folder.Write("p", parameters);
    folder.Write("f", design);
  }
  /// Reads both files, runs the design to its end, and prints the settings after each call between marks.
  void RunDesign() {
    ParseExpeFile(path.c_str());
    ParseParameterFile(folder.Path("p").c_str());
    for (int answer = 0; answer != -9;) {
      answer = GetDesignOfExperiment()->NextSimulationSettings();
      std::printf("@%d: %g %d %s@", answer, GetRealParameterValue("Paddock", "area"),
                  GetIntParameterValue("Herd", "size"), GetStringParameterValue("Herd", "breed"));
    }
  }
  /// What stands between the marks, a line each.
  std::string Settings() {
    const std::string output = OutputOf([this] { RunDesign(); });
    std::string settings;
    for (std::size_t from = output.find('@'); from != std::string::npos; from = output.find('@', from)) {
      const std::size_t to = output.find('@', from + 1);
      settings += output.substr(from + 1, to - from - 1) + "\n";
      from = to + 1;
    }
    return settings;
  }
};

TEST_F(DesignFileTest, MakesTheDesignThatTheParametersFollow) {
  folder.Write("herd.doe", "FACTOR herd (Herd size INT, \"Herd\" breed TEXT) {\n INCLUDE \"rows\"; }");
  folder.Write("rows", "(40, \"salers\"); (60, \"aubrac\");");
  const std::string design =
      "REPLICATIONS 1; # to be replaced\n"
      "REPLICATIONS 3;\n"
      "FACTOR land (Paddock area REAL) {\n  (1.5);\n  (2); }\n"
      "INCLUDE \"herd.doe\";";
  const std::string parameters = "Herd size = 1; Herd breed = \"\"; Paddock area = 1.5;";
  Write(parameters, design);
  EXPECT_EQ(Settings(),
            "3: 1.5 40 salers\n3: 1.5 60 aubrac\n3: 2 40 salers\n3: 2 60 aubrac\n-9: 1.5 40 salers\n");
  EXPECT_EQ(OutputOf([&] {
              ParseExpeFile(path.c_str());
              GetDesignOfExperiment()->Display();
            }),
            "--------------------------------\n(['Paddock' 'area']\n X\n ['Herd' 'size' + 'Herd' 'breed'])\n"
            "--------------------------------\n([1.500000] -> [2.000000]\n X\n "
            "[40 + 'salers'] -> [60 + 'aubrac'])\n--------------------------------");
}

// Two parameters of the same names are two: the older one is set, whatever type the younger one has.
TEST_F(DesignFileTest, SetsTheFirstParameterOfItsNames) {
  const std::string parameters = "Herd size = 1; Herd size = 2.5; Herd breed = \"\"; Paddock area = 1.5;";
  Write(parameters, "FACTOR n (Herd size INT) { (40); }");
  EXPECT_EQ(Settings(), "1: 1.5 40 \n-9: 1.5 40 \n");
  Write(parameters, "FACTOR n (Herd size REAL) { (40.5); }");
  const std::string failure = FailureOf([this] {
    leaksDoNotMatter = 1;
    RunDesign();
  });
  EXPECT_NE(failure.find("'Herd size' de type réel"), std::string::npos) << failure;
}

TEST_F(DesignFileTest, AFactorWithoutVariablesOnlyCounts) {
  Read(ParseExpeFile, "FACTOR \"n\" () { (); (); ();\n}");
  ASSERT_EQ(SerialDesignOfExperiment::mpInstanceTab.size(), 1);
  EXPECT_STREQ(SerialDesignOfExperiment::GetInstance(0)->GetName(), "n");
  EXPECT_EQ(OutputOf([] { GetDesignOfExperiment()->Display(); }),
            "--------------------------------\n([])\n--------------------------------\n([] -> [] -> [])\n"
            "--------------------------------");
  EXPECT_EQ(GetDesignOfExperiment()->GetNbReplications(), 1);
}

TEST_F(DesignFileTest, SaysWhatItReadAndExpected) {
  const std::string statement = "la fin du fichier, FACTOR ou REPLICATIONS";
  const FaultCase cases[] = {
      {"", 1, "le plan d'expériences n'a aucun facteur"},
      {"REPLICATIONS 3;\n\n", 3, "le plan d'expériences n'a aucun facteur"},
      {"\nREPLICATIONS 0;", 2, "0 répétitions : 1 au moins est attendue"},
      {"REPLICATIONS 1.5;", 1, "lu : '1.5' ; attendu : un entier"},
      {"FACTORS n", 1, "lu : 'FACTORS' ; attendu : " + statement},
      {"FACTOR n () { }", 1, "le facteur 'n' n'a aucune modalité"},
      {"FACTOR n { (); }", 1, "lu : '{' ; attendu : '('"},
      {"FACTOR n (Herd size) { (1); }", 1, "lu : ')' ; attendu : INT, REAL ou TEXT"},
      {"FACTOR n (Herd size DATE) { (1); }", 1, "lu : 'DATE' ; attendu : INT, REAL ou TEXT"},
      {"FACTOR n (Herd size INT,) { (1); }", 1, "lu : ')' ; attendu : un nom ou un texte entre guillemets"},
      {"FACTOR n (Herd size INT) {\n(1);\n(1, 2); }", 3,
       "modalité de 2 valeur(s) dans un facteur de 1 variable(s)"},
      {"FACTOR n (Herd size INT) {\n(); }", 2, "modalité de 0 valeur(s) dans un facteur de 1 variable(s)"},
      {"FACTOR n () { (1); }", 1, "modalité de 1 valeur(s) dans un facteur de 0 variable(s)"},
      {"FACTOR n (Herd size INT) { (1.0); }", 1,
       "la valeur de 'Herd' 'size' n'est pas du type du paramètre ; attendu : un entier"},
      {"FACTOR n (Herd size INT, Herd area REAL) {\n(1,\n\"2\"); }", 3,
       "la valeur de 'Herd' 'area' n'est pas du type du paramètre ; attendu : un réel"},
      {"FACTOR n (Herd breed TEXT) { (1); }", 1,
       "la valeur de 'Herd' 'breed' n'est pas du type du paramètre ; attendu : un texte entre guillemets"},
      {"FACTOR n (Herd breed TEXT) { (salers); }", 1,
       "lu : 'salers' ; attendu : un texte entre guillemets, un entier, un réel ou ')'"},
      {"FACTOR n () { () }", 1, "lu : '}' ; attendu : ';'"},
  };
  for (const FaultCase& c : cases)
    EXPECT_EQ(ReadInChild(ParseExpeFile, c.bytes), Fault(c.line, c.what)) << c.bytes;
}

TEST_F(DesignFileTest, TheDocumentedExampleStands) {
  Write("Herd size = 1; Herd breed = \"\"; Paddock area = 1.5;",
        DocumentedExample("The file of a design of experiments"));
  EXPECT_EQ(Settings(),
            "3: 1.5 40 Montbéliarde\n3: 1.5 60 Salers\n3: 2.5 40 Montbéliarde\n3: 2.5 60 Salers\n"
            "-9: 1.5 40 Montbéliarde\n");
}

}  // namespace
