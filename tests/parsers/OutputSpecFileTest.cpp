// The output-specification file: what it declares, what a run then writes, and its faults.
#include <sstream>

#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"
#include "tests/parsers/FarmClasses.h"
#include "tests/parsers/RandomInput.h"

namespace {

class OutputSpecFileTest : public RandomInput {
 protected:
  OutputSpecFileTest() {
    BasicEntity::mInstanceNumber = 0;
    InstallFarmClasses();
    simulation.SetOutDir(folder.Path("").c_str());
  }
  ~OutputSpecFileTest() override {
    DeleteOutputSpecs();
    for (int id = gMetaClassTab.size(); id-- > KV_PROCESS;)
      while (GetNumberOfEntities(id) > 0) DeleteEntity(GetMetaClass(id)->GetInstance(0));
    DeleteParameters();
    DeleteFileInstances();
    for (MetaClass* metaClass : gMetaClassTab) delete metaClass;
    gMetaClassTab.erase();
    gMetaClassIdTab.erase();
  }

  std::string ContentOf(const std::string& file) const {
    std::ostringstream bytes;
    bytes << std::ifstream(folder.Path(file), std::ios::binary).rdbuf();
    return bytes.str();
  }
  static std::string NameOf(const OutputFile* file) { return file != nullptr ? file->GetSimpleName() : "-"; }

  /// All specifications in their order, a line each, the writers behind that of their class.
  static std::string Declared() {
    std::ostringstream list;
    for (OutputSpec* spec : EntityOutputSpec::mpInstanceList) {
      auto& entities = *static_cast<EntityOutputSpec*>(spec);
      list << "entities " << spec->TargetClassName() << " " << spec->GetTimeType();
      if (entities.IsCreationSaved() != 0) list << " creation " << NameOf(entities.GetCreationOutputFile());
      if (entities.IsChangeComponentSaved() != 0)
        list << " component " << NameOf(entities.GetChangeComponentOutputFile());
      if (entities.IsChangeElementSaved() != 0)
        list << " element " << NameOf(entities.GetChangeElementOutputFile());
      list << "\n";
      for (const MultipleDescriptorOS* writer : entities.GetMultipleDescriptorsData())
        ListWriter(*writer, list);
    }
    for (OutputSpec* spec : EventOutputSpec::mpInstanceList)
      list << "events " << spec->TargetClassName() << " " << spec->GetTimeType() << " "
           << NameOf(static_cast<EventOutputSpec*>(spec)->GetOutputFile()) << "\n";
    for (OutputSpec* spec : ProcessOutputSpec::mpInstanceList)
      list << "processes of kind " << spec->GetOutputSpecType() << " " << spec->TargetClassName() << " "
           << spec->GetTimeType() << " " << NameOf(static_cast<ProcessOutputSpec*>(spec)->GetOutputFile())
           << "\n";
    return list.str();
  }
  static void ListWriter(const MultipleDescriptorOS& writer, std::ostream& list) {
    list << "  dates " << writer.GetTimeType() << (writer.GetAllOrFinal() == AOE_END ? " end" : " all")
         << (writer.GetIsNumIdentified() != 0 ? " numbered" : "")
         << (writer.IsRecorded() != 0 ? " recorded" : "") << (writer.IsSaved() != 0 ? " saved" : "");
    if (writer.GetSubClass() == MultipleDescriptorOS::textFile) {
      const auto& file = static_cast<const OutputFileMDescOS&>(writer);
      if (writer.IsPlotted() != 0) list << (file.GetGraphType() == GRAPH_LINE ? " line" : " point");
      list << " file " << NameOf(file.GetOutputFile());
      for (const ParameterOS* parameter : file.GetParametersData())
        list << " [" << parameter->GetIdent1() << " " << parameter->GetIdent2() << "]";
    }
    if (writer.GetSubClass() == MultipleDescriptorOS::database) {
      const auto& database = static_cast<const DatabaseMDescOS&>(writer);
      list << (dynamic_cast<const PostgresqlMDescOS*>(&writer) != nullptr ? " copy" : " insert") << " into "
           << database.GetTableName() << " of " << database.GetDatabaseName() << " as " << database.GetUser()
           << ":" << database.GetPassword();
    }
    list << " :";
    for (const DescriptorOS* descriptor : writer.GetDescriptorsData())
      list << " " << descriptor->GetDescName() << " "
           << descriptor->ParticipationIn(&writer)->GetPrecisionInMDescOS();
    list << "\n";
  }

  /// The whole text of a fault of this file.
  std::string OutputFault(int line, const std::string& what) const {
    const std::string asked = " ; attendu : ";
    const bool isSyntax = what.rfind("lu : ", 0) == 0;
    const std::size_t expected = what.find(asked);
    return Announced(path, line, what) +
           "\n!!!============== BadSyntaxInOSFile =============="
           "\n!!! Erreur lors de la lecture du fichier de spécification des sorties\n!!! " +
           (isSyntax ? what.substr(0, expected) + "\n    attendu : " + what.substr(expected + asked.size())
                     : "lu : " + what) +
           "\nERROR \n";
  }
};

TEST_F(OutputSpecFileTest, DeclaresWhatItSays) {
  CreateParameter(STRING, "Herd", "breed", {}, "feeding");
  Read(
      ParseOutputSpecFile,
      "STRUCTURE Herd DAY_MONTH_YEAR APPEND { ELEMENT \"moves\"; CREATION \"herds\"; }\n"
      "STRUCTURE Cow OVERWRITE { COMPONENT \"udders\"; }\n"
      "EVENT all_eventClasses ISO_8601 \"events\" OVERWRITE; EVENT \"milking\" \"milkings\";\n"
      "PROCESS all_processClasses MIN_HOUR_YEARDAY \"processes\";\n"
      "PROCESS CONTINUOUS grazing YEARDAY_HOUR_MIN \"grazing\" APPEND; PROCESS DISCRETE \"CLOCK\" \"d\";\n"
      "SERIES Cow {\n"
      "  FILE \"weights\" OVERWRITE; DATE HOUR_DAY_MONTH; VALUES END; NUMBERED; RECORDED; PLOTTED LINE;\n"
      "  PARAMETER Herd breed; PARAMETER GROUP feeding; PARAMETER ALL; PARAMETER Herd breed;\n"
      "  weight 2; \"DATE\" 0; calvings;\n"
      "}\n"
      "SERIES Cow { weight 5; PLOTTED POINT; DATE CLOCK; DATE SIMDAY_HOUR_MIN; VALUES END; VALUES ALL; }\n"
      "SERIES Paddock { area; RECORDED; }\n"
      "SERIES Udder { DATABASE INSERT { TABLE t; NAME n; PASSWORD \"p\"; USER u; } NUMBERED; capacity 3; }\n");
  EXPECT_EQ(Declared(),
            "entities Herd 5 creation herds element moves\n"
            "entities Cow 0 component udders\n"
            "  dates 4 end numbered recorded saved line file weights [Herd breed] [GROUP feeding] [ALL ]"
            " : weight 2 DATE 0 calvings 0\n"
            "  dates 3 all point file - : weight 5\n"
            "entities Paddock 0\n"
            "  dates 0 all recorded file - : area 0\n"
            "entities Udder 0\n"
            "  dates 0 all numbered saved insert into t of n as u:p : capacity 3\n"
            "events all_eventClasses 6 events\n"
            "events milking 0 milkings\n"
            "processes of kind 1 all_processClasses 1 processes\n"
            "processes of kind 2 grazing 2 grazing\n"
            "processes of kind 3 CLOCK 0 d\n");
}

TEST_F(OutputSpecFileTest, EmptiesTheFilesThatItOverwrites) {
  for (const char* file : {"a", "b", "c", "d", "e", "f1", "g", "h"}) folder.Write(file, "old");
  Read(ParseOutputSpecFile,
       "EVENT e \"a\" OVERWRITE; EVENT e \"b\"; PROCESS p \"c\" OVERWRITE; PROCESS p \"d\" APPEND;\n"
       "STRUCTURE Cow OVERWRITE { CREATION \"e\"; } STRUCTURE Herd { CREATION \"f1\"; }\n"
       "SERIES Cow { FILE \"g\" OVERWRITE; weight; } SERIES Cow { FILE \"h\"; weight; }");
  std::string kept;
  for (const char* file : {"a", "b", "c", "d", "e", "f1", "g", "h"}) kept += ContentOf(file) + "|";
  EXPECT_EQ(kept, "|old||old||old||old|");
}

TEST_F(OutputSpecFileTest, ARunWritesWhatWasAskedFor) {
  CreateParameter(INT, "Herd", "size", {.intValue = 2}, "feeding");
  Read(ParseOutputSpecFile,
       "STRUCTURE Cow { CREATION \"cows\"; }\n"
       "SERIES Cow { FILE \"weights\"; PARAMETER GROUP feeding; weight 2; calvings; }\n"
       "SERIES Paddock { FILE \"areas\"; VALUES END; DATE CLOCK; area 1; }");
  Entity* const cow = NewFarmEntity("Cow");
  cow->SetInstanceName("hortense");
  Entity* const paddock = NewFarmEntity("Paddock");
  paddock->SetInstanceName("river");
  paddock->SetDoubleValue(AREA, 2.5);
  cow->SetDoubleValue(WEIGHT, 612.5);
  simulation.Clock(3);
  cow->SetIntValue(CALVINGS, 2);
  DisplayEntityOutputSpecs(0);
  EXPECT_EQ(ContentOf("weights"),
            "#\"Herd\" \"size\" = 2\n#Cow     \tclock\tweight\tcalving\n"
            "hortense\t0\t612.50\t_\nhortense\t3\t612.50\t2\n\n");
  EXPECT_EQ(ContentOf("areas"), "#Paddock\tclock\tarea\nriver  \t3\t2.5\n\n");
}

TEST_F(OutputSpecFileTest, NamesFilesInTheBytesOfTheFileThatNamesThem) {
  Read(ParseOutputSpecFile, "EVENT e \"\xC3\xA9t\xC3\xA9\" OVERWRITE;");
  EXPECT_TRUE(std::filesystem::exists(folder.Path("\xC3\xA9t\xC3\xA9")));
  Read(ParseOutputSpecFile, "EVENT e \"\xE9t\xE9\" OVERWRITE;");
  EXPECT_TRUE(std::filesystem::exists(folder.Path("\xE9t\xE9")));
}

TEST_F(OutputSpecFileTest, SaysWhatItReadAndExpected) {
  const std::string formats =
      "CLOCK, MIN_HOUR_YEARDAY, YEARDAY_HOUR_MIN, SIMDAY_HOUR_MIN, HOUR_DAY_MONTH, DAY_MONTH_YEAR";
  const std::string name = "un nom ou un texte entre guillemets";
  const FaultCase cases[] = {
      {"KEEP Cow;", 1, "lu : 'KEEP' ; attendu : la fin du fichier, EVENT, PROCESS, SERIES ou STRUCTURE"},
      {"EVENT \"e\" ISO \"f\";", 1,
       "lu : 'ISO' ; attendu : un texte entre guillemets, " + formats + " ou ISO_8601"},
      {"EVENT e CLOCK;", 1, "lu : ';' ; attendu : un texte entre guillemets"},
      {"EVENT e CLOCK\n\"\";", 1, "le nom du fichier de sortie est vide"},
      {"EVENT e CLOCK \"f\" REPLACE;", 1, "lu : 'REPLACE' ; attendu : APPEND, OVERWRITE ou ';'"},
      {"PROCESS DISCRETE CONTINUOUS p \"f\";", 1, "lu : 'CONTINUOUS' ; attendu : " + name},
      {"STRUCTURE Cow {\n}", 1, "STRUCTURE 'Cow' ne demande ni CREATION, ni COMPONENT, ni ELEMENT"},
      {"STRUCTURE Cow {\nCREATION \"a\";\nCREATION \"b\"; }", 3, "CREATION est donné deux fois pour 'Cow'"},
      {"STRUCTURE Cow {\nELEMENT \"\"; }", 2, "le nom du fichier de sortie est vide"},
      {"STRUCTURE Cow {\nDELETION \"f\"; }", 2,
       "lu : 'DELETION' ; attendu : COMPONENT, CREATION, ELEMENT ou '}'"},
      {"SERIES Cow {\nFILE \"f\"; }", 1, "SERIES 'Cow' ne donne aucun descripteur"},
      {"SERIES Cow {\nweight 2; }", 1, "SERIES 'Cow' n'a ni FILE, ni DATABASE, ni RECORDED, ni PLOTTED"},
      {"SERIES Cow { weight\n-1;", 1, "-1 décimales pour 'weight' : de 0 à 99 sont attendues"},
      {"SERIES Cow {\nweight 100;", 2, "100 décimales pour 'weight' : de 0 à 99 sont attendues"},
      {"SERIES Cow { weight 2.0;", 1, "lu : '2.0' ; attendu : un entier ou ';'"},
      {"SERIES Cow { weight 2;\nweight; }", 2, "le descripteur 'weight' est donné deux fois"},
      {"SERIES Cow { FILE \"a\";\nFILE \"b\"; }", 2,
       "SERIES 'Cow' va déjà dans un fichier ou une base de données"},
      {"SERIES Cow {\nFILE \"\"; }", 2, "le nom du fichier de sortie est vide"},
      {"SERIES Cow {\nFILE weights; }", 2, "lu : 'weights' ; attendu : un texte entre guillemets"},
      {"SERIES Cow { DATE;", 1, "lu : ';' ; attendu : " + formats + " ou ISO_8601"},
      {"SERIES Cow { VALUES LAST;", 1, "lu : 'LAST' ; attendu : ALL ou END"},
      {"SERIES Cow { PLOTTED;", 1, "lu : ';' ; attendu : LINE ou POINT"},
      {"SERIES Cow { weight; RECORDED;\nPARAMETER ALL; }", 2,
       "PARAMETER : les paramètres ne s'écrivent que dans un fichier (FILE)"},
      {"SERIES Cow { PARAMETER Herd;", 1, "lu : ';' ; attendu : " + name},
  };
  for (const FaultCase& c : cases)
    EXPECT_EQ(ReadInChild(ParseOutputSpecFile, c.bytes), OutputFault(c.line, c.what)) << c.bytes;
}

TEST_F(OutputSpecFileTest, EndsInTheFailureMadeForTheFault) {
  const struct {
    FaultCase fault;
    const char* failure;
  } cases[] = {
      {{"SERIES\nCows { weight; }", 2, "'Cows' : classe d'entité inconnue"}, "UnknownClassName"},
      {{"STRUCTURE goat { CREATION \"f\"; }", 1, "'goat' : classe d'entité inconnue"}, "UnknownClassName"},
      {{"SERIES FarmUnit { FILE \"f\"; area; }\nSERIES Paddock { FILE \"g\"; area; }", 2, "SERIES 'Paddock'"},
       "OverSpecificationOnParentClass"},
      {{"SERIES Cow { FILE \"f\"; weight;\nPARAMETER Herd age; }", 2, "PARAMETER"}, "InexistantParameter"},
      {{"\nEVENT e \"no/such\" OVERWRITE;", 2, "EVENT 'e'"}, "BadFileName"},
      {{"\nPROCESS p \"no/such\" OVERWRITE;", 2, "PROCESS 'p'"}, "BadFileName"},
      {{"STRUCTURE Cow OVERWRITE { CREATION \"no/such\"; }", 1, "STRUCTURE 'Cow'"}, "BadFileName"},
      {{"SERIES Cow { FILE \"no/such\" OVERWRITE; weight; }", 1, "SERIES 'Cow'"}, "BadFileName"},
  };
  for (const auto& [fault, failure] : cases) {
    const std::string output = ReadInChild(ParseOutputSpecFile, fault.bytes);
    EXPECT_EQ(output.find(Announced(path, fault.line, fault.what) + "\n!!!============== " + failure), 0U)
        << output;
  }
}

TEST_F(OutputSpecFileTest, RefusesWhatADatabaseCannotDo) {
  const std::string access = "DATABASE INSERT { USER \"farm\"; NAME \"herd\"; }";
  const FaultCase cases[] = {
      {"SERIES Cow { DATABASE {", 1, "lu : '{' ; attendu : COPY ou INSERT"},
      {"SERIES Cow {\nDATABASE COPY { NAME \"herd\"; }\n}", 2,
       "DATABASE demande un utilisateur (USER), un nom (NAME) et une table (TABLE) non vides"},
      {"SERIES Cow { " + access + "\nFILE \"f\"; }", 2,
       "SERIES 'Cow' va déjà dans un fichier ou une base de données"},
      {"SERIES Cow { weight;\nPLOTTED LINE; " + access + "}", 2,
       "PLOTTED : une série qui va dans une base de données ne se trace pas"},
      {"SERIES Cow { weight; " + access + "\nPARAMETER ALL; }", 2,
       "PARAMETER : les paramètres ne s'écrivent que dans un fichier (FILE)"},
      {"SERIES Cow { DATABASE COPY { HOST h;", 1,
       "lu : 'HOST' ; attendu : NAME, PASSWORD, TABLE, USER ou '}'"},
  };
  for (const FaultCase& c : cases)
    EXPECT_EQ(ReadInChild(ParseOutputSpecFile, c.bytes), OutputFault(c.line, c.what)) << c.bytes;
}

TEST_F(OutputSpecFileTest, WarnsOfDatesThatADatabaseDoesNotTake) {
  const auto warnings = [this](const std::string& date, int areOn) {
    g_KV_TraceWarnings = areOn;
    const std::string output = ReadInChild(
        ParseOutputSpecFile, "SERIES Cow { weight;\nDATE " + date + "; DATABASE COPY { USER u; NAME n; } }");
    g_KV_TraceWarnings = 0;
    const std::string warning =
        Announced(path, 2, "DATE") +
        "\n!!! Erreur lors de la lecture du fichier de spécification des sorties"
        "\n!!! Pour l'exportation vers une base de données, seuls les formats CLOCK et ISO_8601 sont autorisés."
        "\n!!! L'exécution continue avec l'option CLOCK.\n";
    return output.find(warning) == 0;
  };
  EXPECT_TRUE(warnings("DAY_MONTH_YEAR", 1));
  EXPECT_FALSE(warnings("DAY_MONTH_YEAR", 0));
  EXPECT_FALSE(warnings("ISO_8601", 1));
  EXPECT_FALSE(warnings("CLOCK", 1));
}

TEST_F(OutputSpecFileTest, TheDocumentedExampleStands) {
  Read(ParseParameterFile, DocumentedExample("The parameter file"));
  Read(ParseOutputSpecFile, DocumentedExample("The output-specification file"));
  EXPECT_EQ(Declared(),
            "entities Cow 5 creation cows.txt component udders.txt\n"
            "  dates 0 all numbered recorded saved line file weights.txt [Herd breed] [GROUP feeding]"
            " : weight 2 calvings 0\n"
            "entities Herd 0 element moves.txt\n"
            "entities Paddock 0\n"
            "  dates 6 end saved copy into default of herd as farm: : area 1\n"
            "events all_eventClasses 6 events.txt\n"
            "processes of kind 1 all_processClasses 0 processes.txt\n"
            "processes of kind 2 grazing 0 grazing.txt\n");
}

TEST_F(OutputSpecFileTest, MutatedFilesEndInOrder) {
  folder.Write("part", "# nothing\nEND INCLUDE;");
  const std::string example =
      "STRUCTURE Cow DAY_MONTH_YEAR APPEND { CREATION \"cows\"; INCLUDE \"part\"; }\n"
      "EVENT all_eventClasses ISO_8601 \"events\" OVERWRITE;\nPROCESS CONTINUOUS grazing \"grazing\";\n"
      "SERIES Cow { FILE \"weights\"; VALUES END; NUMBERED; PLOTTED LINE; PARAMETER ALL; weight 2; }\n"
      "SERIES Paddock { RECORDED; DATE CLOCK; INCLUDE \"part\"; area; }\n";
  for (int i = 0; i < 300; ++i) ExpectOrderlyEnd(ParseOutputSpecFile, Mutated(example));
  EXPECT_GT(faults, 40);
}

}  // namespace
