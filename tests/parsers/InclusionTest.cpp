// INCLUDE and END INCLUDE over a chain of files.
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/parsers/ParserTest.h"

namespace {

class InclusionTest : public ParserTest {
 protected:
  static std::string IncludedBy(const std::string& file, int line) {
    return "\n    inclus par " + file + ", ligne " + std::to_string(line);
  }
};

TEST_F(InclusionTest, ReadsFilesRelativeToTheirIncluder) {
  folder.Write("farm/dates", "BEGIN 1 AVR 2008;\nINCLUDE\n \"deep/unit\"\n;INCLUDE \"../end\";");
  folder.Write("farm/deep/unit", "CLOCK 1 DAY;\nEND INCLUDE;\nnothing of this is read {");
  folder.Write("end", "# no line end, then the end of the file\nEND 3 AVR 2008;#");
  folder.Write("empty", "");
  Read(ParseSimulationFile,
       "INCLUDE \"farm/dates\";INCLUDE \"empty\"; INCLUDE \"empty\";\nIN_DIR a/;INCLUDE \"" +
           folder.Path("empty") + "\";OUT_DIR b/;");
  EXPECT_EQ(simulation.EndClock(), 2);
  EXPECT_STREQ(simulation.GetInDir(), "a/");
  EXPECT_STREQ(simulation.GetOutDir(), "b/");
  EXPECT_EQ(File::mpInstanceTab.size(), 0);
}

TEST_F(InclusionTest, FindsFilesWithAccents) {
  folder.Write(
      "dur\xC3\xA9"
      "e",
      "END CLOCK 4;");
  Read(ParseSimulationFile,
       "INCLUDE \"dur\xC3\xA9"
       "e\";");
  EXPECT_EQ(simulation.EndClock(), 4);
}

TEST_F(InclusionTest, NamesTheFilesThatLedToAFault) {
  const std::string inner = folder.Write("inner", "\n\nEND 1;");
  const std::string middle = folder.Write("middle", "\nINCLUDE \"inner\";\n");
  EXPECT_EQ(ReadInChild(ParseSimulationFile, "INCLUDE \"middle\";\n\n"),
            FaultOf(inner, 3, "lu : ';' ; attendu : un nom ou un texte entre guillemets",
                    IncludedBy(middle, 2) + IncludedBy(path, 1)));
}

TEST_F(InclusionTest, RefusesCirclesAndDepth) {
  const std::string other = folder.Write("g", "\nINCLUDE \"./f\";");
  EXPECT_EQ(
      ReadInChild(ParseSimulationFile, "INCLUDE \"g\";"),
      FaultOf(other, 2, "le fichier '" + folder.Path("./f") + "' s'inclut lui-même", IncludedBy(path, 1)));
  const std::string self = ReadInChild(ParseSimulationFile, "\nINCLUDE \"f\";");
  EXPECT_EQ(self, Fault(2, "le fichier '" + path + "' s'inclut lui-même"));

  for (int i = 1; i <= 20; ++i) folder.Write(std::to_string(i), "INCLUDE \"" + std::to_string(i + 1) + "\";");
  folder.Write("21", "END CLOCK 6;");
  const std::string tooDeep = ReadInChild(ParseSimulationFile, "INCLUDE \"1\";");
  EXPECT_EQ(tooDeep.find(Announced(folder.Path("20"), 1, "plus de 20 inclusions imbriquées")), 0U) << tooDeep;
  Read(ParseSimulationFile, "INCLUDE \"2\";");
  EXPECT_EQ(simulation.EndClock(), 6);
}

TEST_F(InclusionTest, RefusesWhatDoesNotCloseInItsOwnFile) {
  struct Case {
    const char* included;
    int line;
    const char* what;
  };
  const Case cases[] = {
      {"EVENT event AT CLOCK 1 {\n", 2,
       "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
      {"EVENT event AT CLOCK 1 {\nEND INCLUDE;", 2,
       "lu : 'END INCLUDE' ; attendu : '}' (accolade ouverte à la ligne 1)"},
      {"}", 1, "lu : '}' ; attendu : une instruction (aucune accolade n'est ouverte dans ce fichier)"},
      {"EVENT event AT CLOCK", 1, "lu : la fin du fichier ; attendu : un entier"},
      {"SPEC s INCLUDE \"x\";", 1, "lu : 'INCLUDE' ; attendu : OF, ';' ou '{'"},
  };
  Assign_App_NewProcessFromStringFunction(
      [](const char* name) -> Process* { return new DiscreteProcess(0, name); });
  for (const Case& c : cases) {
    const std::string included = folder.Write("g", c.included);
    EXPECT_EQ(ReadInChild(ParseDirectiveFile, "EVENT event AT CLOCK 0 { PROCESS p EXEC;\n}INCLUDE \"g\";\n"),
              FaultOf(included, c.line, c.what, IncludedBy(path, 2)));
  }
  // An inclusion may stand in a block.
  folder.Write("g", "# nothing");
  Read(ParseDirectiveFile, "EVENT event AT CLOCK 0 {\nPROCESS p EXEC; INCLUDE \"g\";\n}");
  EXPECT_EQ(simulation.AgendaEventSize(), 1);
  Assign_App_NewProcessFromStringFunction(nullptr);
}

TEST_F(InclusionTest, FindsFaultsWhateverTheKindOfFile) {
  const std::string unclosed = "un guillemet fermant sur la même ligne";
  const std::string fileName = "le nom du fichier à inclure, entre guillemets";
  const std::string longLine(1000000, 'x');
  folder.Write("part", "# nothing\n");
  const FaultCase cases[] = {
      {"\n\"herd;\n\"", 2, "lu : '\"herd;' ; attendu : " + unclosed},
      {"\"" + longLine, 1, "lu : '\"" + longLine.substr(0, 59) + "...' ; attendu : " + unclosed},
      {"#" + longLine + "\n" + std::string(1000000, '9') + ";", 2,
       "lu : '" + std::string(60, '9') + "...' ; attendu : un entier entre -2147483648 et 2147483647"},
      {"1e999;", 1, "lu : '1e999' ; attendu : un réel représentable"},
      {"INCLUDE;", 1, "lu : ';' ; attendu : " + fileName},
      {"INCLUDE", 1, "lu : la fin du fichier ; attendu : " + fileName},
      {"INCLUDE \"part\"\n", 2, "lu : la fin du fichier ; attendu : ';'"},
      {"INCLUDE \"part\";\nEND INCLUDE", 2, "lu : la fin du fichier ; attendu : ';'"},
      {"INCLUDE \"part\";\nINCLUDE \"f\";", 2, "le fichier '" + path + "' s'inclut lui-même"},
      {"\n}", 2, "lu : '}' ; attendu : une instruction (aucune accolade n'est ouverte dans ce fichier)"},
      {std::string("#\n\0", 3), 2, "octet nul : ce fichier n'est pas un texte"},
  };
  const std::string tooMany = Announced(path, 2, "END INCLUDE dans un fichier qui n'est pas inclus") +
                              "\n!!!============== UnexpectedEndInclude =============="
                              "\n!!! END INCLUDE sans inclusion en cours.\n    fichier : '" +
                              path + "'\nERROR \n";
  const std::string banner =
      "\n!!!============== BadFileName ==============\n!!! Impossible d'ouvrir le fichier '";
  for (auto parse : {ParseSimulationFile, ParseDirectiveFile}) {
    for (const FaultCase& c : cases)
      EXPECT_EQ(ReadInChild(parse, c.bytes), Fault(c.line, c.what)) << c.bytes.substr(0, 100);
    EXPECT_EQ(ReadInChild(parse, "INCLUDE \"part\";\nEND INCLUDE;"), tooMany);
    EXPECT_EQ(ReadInChild(parse, "\nINCLUDE \"none\";"),
              banner + folder.Path("none") + "'." + IncludedBy(path, 2) + "\nERROR \n");
    EXPECT_EQ(RunInChild([parse] { parse("/no/file"); }).output, banner + "/no/file'.\nERROR \n");
    EXPECT_EQ(RunInChild([parse] { parse("/"); }).output,
              FaultOf("/", 1, "le fichier ne peut pas être lu", ""));
  }
}

TEST_F(InclusionTest, EndsInTheFailureMadeForTheFault) {
  EXPECT_EQ(ReadInChild(ParseStructureFile, "\nEND INCLUDE;"),
            Announced(path, 2, "END INCLUDE dans un fichier qui n'est pas inclus") +
                "\n!!!============== UnexpectedEndInclude =============="
                "\n!!! END INCLUDE sans inclusion en cours.\n    fichier : '" +
                path + "'\nERROR \n");
  EXPECT_EQ(ReadInChild(ParseParameterFile, "\nINCLUDE \"none\";"),
            "\n!!!============== BadFileName =============="
            "\n!!! Impossible d'ouvrir le fichier '" +
                folder.Path("none") + "'." + IncludedBy(path, 2) + "\nERROR \n");
  EXPECT_EQ(ReadInChild(ParseOutputSpecFile, "\nINCLUDE none;"),
            Announced(path, 2, "lu : 'none' ; attendu : le nom du fichier à inclure, entre guillemets") +
                "\n!!!============== BadSyntaxInOSFile =============="
                "\n!!! Erreur lors de la lecture du fichier de spécification des sorties"
                "\n!!! lu : 'none'\n    attendu : le nom du fichier à inclure, entre guillemets\nERROR \n");
  const std::string folderInside = ReadInChild(ParseExpeFile, "INCLUDE \".\";");
  EXPECT_NE(folderInside.find("le fichier ne peut pas être lu"), std::string::npos) << folderInside;
}

}  // namespace
