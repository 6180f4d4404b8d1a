// The parameter file: what it makes, and its faults.
#include "kalve/inputs/Parameter.h"

#include "kalve/inputs/File.h"
#include "kalve/inputs/ParserFunction.h"
#include "tests/parsers/ParserTest.h"

namespace {

class ParameterFileTest : public ParserTest {
 protected:
  ~ParameterFileTest() override { DeleteParameters(); }

  /// All parameters in their order, as "[group] class name = value".
  static std::string Listed() {
    std::string list;
    for (Parameter* parameter : Parameter::mpInstanceTab) {
      if (parameter->Group() != nullptr) list += std::string("[") + parameter->Group() + "] ";
      list += std::string(parameter->EntityClassName()) + " " + parameter->DescriptorName() + " = ";
      list += ValueOf(parameter) + "\n";
    }
    return list;
  }
  static std::string ValueOf(Parameter* parameter) {
    char text[100];
    switch (parameter->ValueType()) {
      case INT:
        return std::to_string(static_cast<IntParameter*>(parameter)->GetIntValue());
      case DOUBLE:
        std::snprintf(text, sizeof text, "%.9g real", static_cast<RealParameter*>(parameter)->GetRealValue());
        return text;
      case STRING:
        return std::string("'") + static_cast<StringParameter*>(parameter)->GetStringValue() + "'";
      default: {
        const Date& date = *static_cast<DateParameter*>(parameter)->GetDateValue();
        std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d", date.year, date.month, date.day, date.hour,
                      date.minute, date.second);
        return text;
      }
    }
  }
};

TEST_F(ParameterFileTest, MakesParametersOfFourTypesInTheirOrder) {
  folder.Write("milk.prm", "Herd milk = 1e3;\nGROUP dairy { INCLUDE \"cold.prm\"; }\n");
  folder.Write("cold.prm", "Tank cold = -4;\nEND INCLUDE;\nHerd nothing = 1;");
  Read(ParseParameterFile,
       "# dairy herd at pasture\n"
       "Herd size = 42; Herd \"breed\" = \"Montb\xC3\xA9liarde\";\n"
       "Herd turnout\n = 10 AVR 2008;Herd dawn = 1 DEC 8 06:30;  Herd dusk = 29 FEV 2008 23:59:59;\n"
       "GROUP feeding {\n"
       "  Cow intake = 16.5;\n"
       "  \"GROUP\" \"an hour\" = \"\";\n"
       "}\n"
       "GROUP \"no one\" { }\n"
       "INCLUDE \"milk.prm\";\n"
       "Herd size = 3.0; Herd size = 43;\n");
  EXPECT_EQ(Listed(),
            "Herd size = 42\n"
            "Herd breed = 'Montbéliarde'\n"
            "Herd turnout = 2008-4-10 0:0:0\n"
            "Herd dawn = 2008-12-1 6:30:0\n"
            "Herd dusk = 2008-2-29 23:59:59\n"
            "[feeding] Cow intake = 16.5 real\n"
            "[feeding] GROUP an hour = ''\n"
            "Herd milk = 1000 real\n"
            "[dairy] Tank cold = -4\n"
            "Herd size = 3 real\n"
            "Herd size = 43\n");
  EXPECT_EQ(GetIntParameterValue("Herd", "size"), 42);
  EXPECT_EQ(GetRealParameterValue("Herd", "size"), 3.0);
  EXPECT_EQ(File::mpInstanceTab.size(), 0);
}

TEST_F(ParameterFileTest, ForgetsTheParametersOfAnEarlierReading) {
  Read(ParseParameterFile, "Herd size = 42;");
  const Tableau<Parameter*> first(Parameter::mpInstanceTab);
  Read(ParseParameterFile, "Herd age = 7;");
  EXPECT_EQ(Listed(), "Herd age = 7\n");
  Parameter::mpInstanceTab.push_back(first);  // they still live
  EXPECT_EQ(GetIntParameterValue("Herd", "size"), 42);
}

TEST_F(ParameterFileTest, SaysWhatItReadAndExpected) {
  const std::string value = "un texte entre guillemets, un entier ou un réel";
  const std::string name = "un nom ou un texte entre guillemets";
  const FaultCase cases[] = {
      {"Herd size = 42", 1, "lu : la fin du fichier ; attendu : un nom, un texte entre guillemets ou ';'"},
      {"Herd size = 42.0", 1, "lu : la fin du fichier ; attendu : ';'"},
      {"Herd\n= 42;", 2, "lu : '=' ; attendu : " + name},
      {"Herd size 42;", 1, "lu : '42' ; attendu : '='"},
      {"Herd size =\n\nlarge;", 3, "lu : 'large' ; attendu : " + value},
      {"Herd size = ;", 1, "lu : ';' ; attendu : " + value},
      {"Herd size = 4 2;", 1, "lu : '2' ; attendu : un nom, un texte entre guillemets ou ';'"},
      {"Herd size = 10 AVR;", 1, "lu : ';' ; attendu : un entier"},
      {"Herd size = 10 AVR 2008 6;", 1, "lu : ';' ; attendu : ':'"},
      {"Herd size = 1e999;", 1, "lu : '1e999' ; attendu : un réel représentable"},
      {"42 = 42;", 1, "lu : '42' ; attendu : la fin du fichier, un nom, un texte entre guillemets ou GROUP"},
      {"GROUP = 1;", 1, "lu : '=' ; attendu : " + name},
      {"GROUP g\nHerd size = 1;", 2, "lu : 'Herd' ; attendu : '{'"},
      {"GROUP g {\nHerd size = 1;\nGROUP h { } }", 3,
       "lu : 'GROUP' ; attendu : un nom, un texte entre guillemets ou '}'"},
      {"GROUP g {\nHerd size = 1;\n", 3,
       "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
  };
  for (const FaultCase& c : cases)
    EXPECT_EQ(ReadInChild(ParseParameterFile, c.bytes), Fault(c.line, c.what)) << c.bytes;
}

TEST_F(ParameterFileTest, RefusesDatesThatDoNotExist) {
  const FaultCase cases[] = {
      {"31 AVR 2008", 2, "le jour 31 AVR 2008 n'existe pas"},
      {"29 FEV 2007", 2, "le jour 29 FEV 2007 n'existe pas"},
      {"1 MARS 2008", 2,
       "lu : 'MARS' ; attendu : JAN, FEV, MRS, AVR, MAI, JUN, JUL, AOU, SEP, OCT, NOV ou DEC"},
      {"1 AVR -1", 2, "l'année -1 n'est pas comprise entre 0 et 9999"},
      {"1 AVR 2008 24:00", 2, "l'heure 24:00:00 n'existe pas"},
      {"1 AVR 2008 06:00:60", 2, "l'heure 06:00:60 n'existe pas"},
  };
  for (const FaultCase& c : cases)
    EXPECT_EQ(ReadInChild(ParseParameterFile, "Herd turnout =\n" + c.bytes + "\n;"),
              Announced(path, c.line, c.what) +
                  "\n!!!============== BadDateParameterValue =============="
                  "\n!!! La valeur du paramètre 'Herd turnout' n'est pas une date correcte.\nERROR \n");
}

TEST_F(ParameterFileTest, TheDocumentedExampleStands) {
  Read(ParseParameterFile, DocumentedExample("The parameter file"));
  EXPECT_EQ(Listed(),
            "Herd size = 42\nHerd breed = 'Montbéliarde'\nHerd turnout = 2008-4-10 0:0:0\n"
            "[feeding] Cow intake = 16.5 real\n[feeding] Paddock residue = 5 real\n");
}

}  // namespace
