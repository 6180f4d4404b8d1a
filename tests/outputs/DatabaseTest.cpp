// The database writers, before a real server: what they send, and what they say when it is refused.
#include <fcntl.h>
#include <unistd.h>

#include <random>
#include <sstream>

#include "kalve/outputs/PostgresqlMDescOS.h"
#include "tests/outputs/OutputTest.h"
#include "tests/support/PostgresServer.h"

namespace {

/// What `body` writes on standard error.
std::string ErrorsOf(const std::function<void()>& body) {
  return OutputOf([&body] {
    dup2(STDOUT_FILENO, STDERR_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    body();
  });
}

const std::string noConnection = "Postgresql: Impossible d'établir la connexion!!!";

/// The database "herd" of the user "farm"; its tables go with the test.
class DatabaseTest : public OutputTest {
 protected:
  static void SetUpTestSuite() {
    server = std::make_unique<PostgresServer>();
    Prepare(*server);
  }
  static void TearDownTestSuite() { server.reset(); }
  ~DatabaseTest() override { server->Run("herd", "farm", "DROP OWNED BY farm"); }

  static void Prepare(const PostgresServer& any) {
    for (const char* statement : {"CREATE ROLE farm LOGIN", "ALTER ROLE farm SET client_encoding TO 'LATIN1'",
                                  "CREATE DATABASE herd OWNER farm"})
      any.Run("postgres", "postgres", statement);
  }
  static void Create(const std::string& table) { server->Run("herd", "farm", "CREATE TABLE " + table); }
  /// What the table holds once all dumps have come to their end.
  static std::string Rows(const std::string& query) {
    server->AwaitTheOthers("herd");
    return server->Run("herd", "farm", "SELECT " + query);
  }

  template <class Writer>
  static Writer* NewDatabaseWriter(const char* table, TimeType timeType = CLOCK, const char* password = "") {
    auto* const writer = new Writer(0, 0, 1);
    writer->SetTimeType(timeType);
    writer->SetAllOrFinal(AOE_ALL);
    writer->RegisterEntityOS("Cow");
    writer->SetIsNumIdentified(0);
    writer->ConfigureDatabase("farm", "herd", table, password);
    return writer;
  }
  static void AddColumns(MultipleDescriptorOS* writer) {
    writer->AddDescriptorOS("weight", 2);
    writer->AddDescriptorOS("owner_name", 0);
  }

  struct Cow {
    Thing* entity = NewCow();
    FloatVariableDescriptor& weight = Give<FloatVariableDescriptor>(entity, 20, "weight");
    StringVariableDescriptor& owner = Give<StringVariableDescriptor>(entity, 21, "owner_name");
  };
  void MakeTwoCows() {
    Cow first;
    SetAt(0, first.weight, 12.5F);
    SetAt(5, first.owner, "Bob");
    SetAt(10, first.weight, 13.0F);
    Cow second;
    SetAt(3, second.weight, 9.0F);
  }

  static std::unique_ptr<PostgresServer> server;
};
std::unique_ptr<PostgresServer> DatabaseTest::server;

// Statements and rows -------------------------------------------------------------------------------------

// The column "sent" keeps the statement that brought the row.
TEST_F(DatabaseTest, ACopySendsWhatIsThereAndNullForWhatIsMissing) {
  Create(
      "Cow (instanceName text, T integer, weight real, owner_name text, sent text DEFAULT current_query())");
  AddColumns(NewDatabaseWriter<PostgresqlMDescOS>("default"));
  MakeTwoCows();
  DisplayAllOutputSpecs();
  EXPECT_EQ(Rows("instanceName, T, weight, owner_name FROM Cow"),
            "Cow_1|0|12.5|NULL\n"
            "Cow_1|5|12.5|Bob\n"
            "Cow_1|10|13|Bob\n"
            "Cow_2|3|9|NULL\n");
  EXPECT_EQ(Rows("DISTINCT sent FROM Cow"), "COPY Cow(instanceName, T, weight, owner_name) FROM STDIN\n");
}

TEST_F(DatabaseTest, AnInsertionIsOneStatementWithEmptyTextsForWhatIsMissing) {
  Create(
      "cows (sim_idn integer, instanceName text, T integer, weight real, owner_name text, "
      "sent text DEFAULT current_query())");
  auto* const writer = NewDatabaseWriter<AltPostgresqlMDescOS>("cows");
  AddColumns(writer);
  writer->SetIsNumIdentified(1);
  simulation.SetNumId(12);
  MakeTwoCows();
  for (int dumps : {1, 2}) {
    DisplayAllOutputSpecs();
    std::string expected;
    for (int dump = 0; dump < dumps; ++dump)
      expected +=
          "12|Cow_1|0|12.5|\n"
          "12|Cow_1|5|12.5|Bob\n"
          "12|Cow_1|10|13|Bob\n"
          "12|Cow_2|3|9|\n";
    EXPECT_EQ(Rows("sim_idn, instanceName, T, weight, owner_name FROM cows"), expected);
  }
  EXPECT_EQ(Rows("DISTINCT sent FROM cows"),
            "INSERT INTO cows(sim_idn, instanceName, T, weight, owner_name) VALUES "
            "(12, 'Cow_1', 0, 12.50, ''), (12, 'Cow_1', 5, 12.50, 'Bob'), "
            "(12, 'Cow_1', 10, 13.00, 'Bob'), (12, 'Cow_2', 3, 9.00, '')\n");
}

TEST_F(DatabaseTest, ACopyIsNumberedAndCanBeRepeated) {
  Create("cows (sim_idn integer, instanceName text, T integer, weight real)");
  auto* const writer = NewDatabaseWriter<PostgresqlMDescOS>("cows");
  writer->AddDescriptorOS("weight", 1);
  writer->SetIsNumIdentified(1);
  const Cow cow;
  cow.weight.SetValue(1.25F);
  for (int number : {7, 8}) {
    simulation.SetNumId(number);
    DisplayAllOutputSpecs();
    server->AwaitTheOthers("herd");
  }
  EXPECT_EQ(Rows("* FROM cows ORDER BY sim_idn"), "7|Cow_1|0|1.2\n8|Cow_1|0|1.2\n");
}

TEST_F(DatabaseTest, DatesArriveAsTheDatesThatTheyAre) {
  Create("copied (instanceName text, T timestamp, weight real)");
  Create("inserted (instanceName text, T timestamp, weight real, sent text DEFAULT current_query())");
  simulation.ClockTimeUnit(MINUTE);
  simulation.ClockTimeUnitQuantity(1);
  simulation.SetBeginningDate(31, 8, 2008, 22, 0, 0);
  NewDatabaseWriter<PostgresqlMDescOS>("copied", ISO_8601)->AddDescriptorOS("weight", 1);
  NewDatabaseWriter<AltPostgresqlMDescOS>("inserted", ISO_8601)->AddDescriptorOS("weight", 1);
  const Cow cow;
  SetAt(0, cow.weight, 1.0F);
  SetAt(125, cow.weight, 2.0F);
  DisplayAllOutputSpecs();
  const std::string expected = "Cow_1|2008-08-31 22:00:00|1\nCow_1|2008-09-01 00:05:00|2\n";
  EXPECT_EQ(Rows("* FROM copied"), expected);
  EXPECT_EQ(Rows("instanceName, T, weight FROM inserted"), expected);
  EXPECT_EQ(Rows("DISTINCT sent FROM inserted"),
            "INSERT INTO inserted(instanceName, T, weight) VALUES "
            "('Cow_1', '2008-08-31 22:00:00', 1.0), ('Cow_1', '2008-9-01 00:05:00', 2.0)\n");
}

TEST_F(DatabaseTest, ValuesOfAllTypesKeepTheirWorth) {
  const std::string columns =
      " (instanceName text, T integer, number integer, weight real, yield double precision, "
      "a_long_owner_name text, mate text, calves text)";
  Create("copied" + columns);
  Create("inserted" + columns);
  for (DatabaseMDescOS* writer :
       std::initializer_list<DatabaseMDescOS*>{NewDatabaseWriter<PostgresqlMDescOS>("copied"),
                                               NewDatabaseWriter<AltPostgresqlMDescOS>("inserted")}) {
    writer->AddDescriptorOS("number", 3);
    writer->AddDescriptorOS("weight", 3);
    writer->AddDescriptorOS("yield", 4);
    writer->AddDescriptorOS("a_long_owner_name", 0);
    writer->AddDescriptorOS("mate", 0);
    writer->AddDescriptorOS("calves", 0);
  }
  Thing* const cow = NewCow();
  auto& calves = Give<EntityTabVariableDescriptor>(cow, 25, "calves");
  Give<IntVariableDescriptor>(cow, 20, "number").SetValue(K_INTMIN);
  Give<FloatVariableDescriptor>(cow, 21, "weight").SetValue(-0.0625F);
  Give<DoubleVariableDescriptor>(cow, 22, "yield").SetValue(123456.7891);
  Give<StringVariableDescriptor>(cow, 23, "a_long_owner_name").SetValue("Élevage du Montbéliard, 10 %");
  Give<EntityVariableDescriptor>(cow, 24, "mate").SetValue(NewBull());
  calves.AddValueElement(NewBull());
  DisplayAllOutputSpecs();
  const std::string expected =
      "Cow_1|0|-2147483647|-0.062|123456.7891|Élevage du Montbéliard, 10 %|Bull_2|\"Bull_3\"\n";
  EXPECT_EQ(Rows("* FROM copied"), expected);
  EXPECT_EQ(Rows("* FROM inserted"), expected);
}

// Enough for a server that cannot keep up.
TEST_F(DatabaseTest, BothWritersTellWhatTheTextFileTells) {
  constexpr int columns = 3;
  const char* const names[columns] = {"d0", "d1", "d2"};
  const std::string table = " (instanceName text, T text, d0 text, d1 text, d2 text)";
  Create("copied" + table);
  Create("inserted" + table);
  for (MultipleDescriptorOS* writer : std::initializer_list<MultipleDescriptorOS*>{
           NewWriter("Cow"), NewDatabaseWriter<PostgresqlMDescOS>("copied"),
           NewDatabaseWriter<AltPostgresqlMDescOS>("inserted")})
    for (int k = 0; k < columns; ++k) writer->AddDescriptorOS(names[k], k);
  std::mt19937 random(11);
  for (int turn = 0; turn < 20; ++turn) {
    Thing* const cow = NewCow();
    for (int k = 0; k < columns; ++k) Give<DoubleVariableDescriptor>(cow, 20 + k, names[k]);
    for (int clock = 0; clock < 800; ++clock)
      for (int k = 0; k < columns; ++k)
        if (random() % 4 == 0)
          SetAt(clock, *static_cast<DoubleVariableDescriptor*>(cow->GetVariableDescriptor(20 + k)),
                static_cast<double>(random() % 100000) / 64.0);
  }
  DisplayAllOutputSpecs();
  std::istringstream file(Content("series.txt"));
  std::string copied;
  std::string inserted;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream values(line);
    const char* separator = "";
    for (std::string value; values >> value; separator = "|") {
      copied += separator + (value == "_" ? "NULL" : value);
      inserted += separator + (value == "_" ? "" : value);
    }
    copied += '\n';
    inserted += '\n';
  }
  EXPECT_GT(copied.size(), 200000U);
  EXPECT_TRUE(Rows("* FROM copied") == copied);
  EXPECT_TRUE(Rows("* FROM inserted") == inserted);
}

// Nothing is escaped.
TEST_F(DatabaseTest, TextsReachTheServerAsTheyAre) {
  Create("copied (instanceName text, T integer, owner_name text)");
  Create("inserted (instanceName text, T integer, owner_name text)");
  NewDatabaseWriter<PostgresqlMDescOS>("copied")->AddDescriptorOS("owner_name", 0);
  auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("inserted");
  inserting->AddDescriptorOS("owner_name", 0);
  const Cow cow;
  cow.owner.SetValue("d'Or, \\\\ \"");
  EXPECT_NE(ErrorsOf([] { DisplayAllOutputSpecs(); }).find("Echec POSTGRES : ERROR:  syntax error"),
            std::string::npos);
  EXPECT_EQ(Rows("owner_name FROM copied"), "d'Or, \\ \"\n");
  EXPECT_EQ(Rows("count(*) FROM inserted"), "0\n");
  cow.owner.SetValue("d''Or");
  inserting->DisplayTimeSeries();
  EXPECT_EQ(Rows("owner_name FROM inserted"), "d'Or\n");
}

TEST_F(DatabaseTest, RecordsCanBeBuiltByHand) {
  Create("cows (name text, owner text)");
  auto* const copying = NewDatabaseWriter<PostgresqlMDescOS>("cows");
  auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("cows");
  for (DatabaseMDescOS* writer : std::initializer_list<DatabaseMDescOS*>{copying, inserting}) {
    writer->BeginSQLInsertion({"name", "owner"});
    for (const char* owner : {"Bob", ""}) {
      writer->BeginRecord();
      writer->NextValue(writer->FormatTextValue("Cow_1"));
      writer->NextValue(*owner != '\0' ? writer->FormatTextValue(owner) : "''");
      writer->EndRecord();
    }
    if (writer == copying) {  // a first text that is empty is as good as none
      for (const char* value : {"", "Cow_2", "Ann"}) writer->NextValue(value);
      writer->EndRecord();
    }
    writer->FinishSQLInsertion();
    server->AwaitTheOthers("herd");
  }
  EXPECT_EQ(Rows("* FROM cows"), "Cow_1|Bob\nCow_1|NULL\nCow_2|Ann\nCow_1|Bob\nCow_1|\n");
}

// Refusals ------------------------------------------------------------------------------------------------

TEST_F(DatabaseTest, ATableThatIsMissingIsToldOnStandardError) {
  auto* const copying = NewDatabaseWriter<PostgresqlMDescOS>("nowhere");
  AddColumns(copying);
  auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("nowhere");
  AddColumns(inserting);
  MakeTwoCows();
  std::string rows;
  for (int row = 0; row < 4; ++row) rows += "Copie vers Postgresql impossible!!";
  const std::string copyErrors = ErrorsOf([copying] { copying->DisplayTimeSeries(); });
  const std::string end = "no COPY in progress\n";
  EXPECT_EQ(copyErrors.rfind(
                "Echec POSTGRES: requête COPY (ouverture)\nERROR:  relation \"nowhere\" does not exist\n" +
                    rows + "Echec POSTGRES: requête COPY (fermeture)\n",
                0),
            0U)
      << copyErrors;
  EXPECT_EQ(copyErrors.find(end), copyErrors.size() - end.size()) << copyErrors;
  const std::string start =
      "Echec POSTGRES : ERROR:  relation \"nowhere\" does not exist\nLINE 1: INSERT INTO nowhere(";
  EXPECT_EQ(ErrorsOf([inserting] { inserting->DisplayTimeSeries(); }).substr(0, start.size()), start);
  // Both can go on once the table is there.
  Create("nowhere (instanceName text, T integer, weight real, owner_name text)");
  DisplayAllOutputSpecs();
  EXPECT_EQ(Rows("count(*) FROM nowhere"), "8\n");
}

// A copy ends before the server has read it all.
TEST_F(DatabaseTest, AValueThatTheTableRefusesTakesTheDumpWithIt) {
  Create("cows (instanceName text, T integer, weight integer, owner_name real)");
  auto* const copying = NewDatabaseWriter<PostgresqlMDescOS>("cows");
  AddColumns(copying);
  auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("cows");
  AddColumns(inserting);
  const Cow cow;
  cow.weight.SetValue(12.5F);
  EXPECT_EQ(ErrorsOf([copying] { copying->DisplayTimeSeries(); }), "");
  const std::string start = "Echec POSTGRES : ERROR:  invalid input syntax for type real: \"\"\nLINE 1:";
  EXPECT_EQ(ErrorsOf([inserting] { inserting->DisplayTimeSeries(); }).substr(0, start.size()), start);
  EXPECT_EQ(Rows("count(*) FROM cows"), "0\n");
}

TEST_F(DatabaseTest, WithoutAConnectionTheRunEnds) {
  server->Run("postgres", "postgres", "CREATE ROLE locked LOGIN PASSWORD 'Gate'");
  Create("cows (instanceName text, T integer, weight real, owner_name text)");
  server->Run("herd", "farm", "GRANT ALL ON cows TO locked");
  MakeTwoCows();
  struct Case {
    const char* user;
    const char* database;
    const char* password;
  };
  for (const Case& c : {Case{"farm", "nobase", ""},
                        {"nobody", "herd", ""},
                        {"locked", "herd", ""},
                        {"locked", "herd", "wrong"}}) {
    auto* const copying = NewDatabaseWriter<PostgresqlMDescOS>("cows");
    auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("cows");
    const Cow cow;
    cow.weight.SetValue(1.0F);
    for (DatabaseMDescOS* writer : std::initializer_list<DatabaseMDescOS*>{copying, inserting}) {
      AddColumns(writer);
      writer->ConfigureDatabase(c.user, c.database, "cows", c.password);
      const ChildOutcome outcome = RunInChild([writer] { writer->DisplayTimeSeries(); });
      EXPECT_EQ(outcome.output, noConnection) << c.user;
      EXPECT_EQ(outcome.exitStatus, 0);
    }
    DeleteOutputSpecs();
  }
  auto* const writer = NewDatabaseWriter<PostgresqlMDescOS>("cows");
  writer->ConfigureDatabase("locked", "herd", "cows", "Gate");
  AddColumns(writer);
  const Cow cow;
  cow.weight.SetValue(1.0F);
  DisplayAllOutputSpecs();
  EXPECT_EQ(Rows("weight FROM cows"), "1\n");
  server->Run("herd", "postgres", "DROP OWNED BY locked; DROP ROLE locked");
}

TEST_F(DatabaseTest, WithoutAnInstanceNothingIsConnected) {
  auto* const writer = NewDatabaseWriter<PostgresqlMDescOS>("cows");
  writer->ConfigureDatabase("nobody", "nobase", "cows", "");
  AddColumns(writer);
  EXPECT_EQ(OutputOf([] { DisplayAllOutputSpecs(); }),
            "\n!!! Sauvegarde série temporelle : pas d'information pour la classe \"Cow\"."
            "\n!!! Vérifier le nom de classe dans le fichier de spécification des sorties."
            "\n!!! Vérifier que les spécifications de sortie ont été lues avant la création "
            "\n!!! des instances de \"Cow\".\n");
}

TEST_F(DatabaseTest, TheRunSurvivesAServerThatGoes) {
  auto* const copying = NewDatabaseWriter<PostgresqlMDescOS>("cows");
  auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("cows");
  const auto addCow = [](DatabaseMDescOS* writer) {
    writer->BeginRecord();
    writer->NextValue(writer->FormatTextValue("Cow_1"));
    writer->EndRecord();
  };
  for (DatabaseMDescOS* writer : std::initializer_list<DatabaseMDescOS*>{copying, inserting}) {
    PostgresServer mortal;
    Prepare(mortal);
    mortal.Run("herd", "farm", "CREATE TABLE cows (name text)");
    const std::string errors = ErrorsOf([&] {
      writer->BeginSQLInsertion({"name"});
      addCow(writer);
      mortal.Kill();
      for (int i = 0; i < 100000; ++i) addCow(writer);
      writer->FinishSQLInsertion();
    });
    // The end of a copy is sent, not awaited: that the server is gone goes unseen.
    EXPECT_EQ(errors.find("Echec POSTGRES : ") != std::string::npos, writer == inserting) << errors;
    // The next dump finds nobody.
    const ChildOutcome outcome = RunInChild([writer] { writer->BeginSQLInsertion({"name"}); });
    EXPECT_EQ(outcome.output, noConnection);
    EXPECT_EQ(outcome.exitStatus, 0);
  }
}

// Tables --------------------------------------------------------------------------------------------------

std::string OutputOfCommand(const std::string& command) {
  std::string text;
  std::FILE* const pipe = popen(command.c_str(), "r");
  for (int c; (c = std::fgetc(pipe)) != EOF;) text += static_cast<char>(c);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

TEST_F(DatabaseTest, TheTablesOfAFileOfOutputSpecificationsTakeItsSeries) {
  folder.Write("more.out",
               "SERIES Cow {\n"
               "  weight 2; \"owner_name\"; NUMBERED; RECORDED;\n"
               "  DATABASE INSERT { USER \"farm\"; NAME \"herd\"; TABLE \"cows\"; PASSWORD \"\"; }\n"
               "} END INCLUDE; SERIES Bull { DATABASE COPY { NAME \"herd\"; } }\n");
  const std::string file = folder.Write("farm.out",
                                        "STRUCTURE Cow CLOCK APPEND { CREATION \"SERIES.txt\"; }\n"
                                        "SERIES Udder { FILE \"udders.txt\" APPEND; capacity 2; }\n"
                                        "SERIES Cow {  # SERIES \" {\n"
                                        "  DATABASE COPY { TABLE default; }\n"
                                        "  DATE ISO_8601; VALUES END; weight 2; owner_name 0;\n"
                                        "}\n"
                                        "INCLUDE \"more.out\";\n");
  const std::string statements = OutputOfCommand(KALVE_SOURCE_DIR "/examples/herd/tables " + file);
  EXPECT_EQ(statements,
            "CREATE TABLE IF NOT EXISTS Cow (\n"
            "  instanceName text,\n"
            "  T timestamp,\n"
            "  weight double precision,\n"
            "  owner_name text\n"
            ");\n"
            "CREATE TABLE IF NOT EXISTS cows (\n"
            "  sim_idn integer,\n"
            "  instanceName text,\n"
            "  T integer,\n"
            "  weight text,\n"
            "  owner_name text\n"
            ");\n");
  server->Run("herd", "farm", statements);
  simulation.ClockTimeUnit(DAY);
  simulation.ClockTimeUnitQuantity(1);
  simulation.SetBeginningDate(1, 4, 2008, 0, 0, 0);
  auto* const copying = NewDatabaseWriter<PostgresqlMDescOS>("default", ISO_8601);
  auto* const inserting = NewDatabaseWriter<AltPostgresqlMDescOS>("cows");
  inserting->SetIsNumIdentified(1);
  simulation.SetNumId(3);
  AddColumns(copying);
  AddColumns(inserting);
  const Cow cow;
  SetAt(0, cow.owner, "Bob");
  SetAt(9, cow.weight, 1.25F);
  DisplayAllOutputSpecs();
  EXPECT_EQ(Rows("* FROM Cow"), "Cow_1|2008-04-01 00:00:00|NULL|Bob\nCow_1|2008-04-10 00:00:00|1.25|Bob\n");
  EXPECT_EQ(Rows("* FROM cows"), "3|Cow_1|0||Bob\n3|Cow_1|9|1.25|Bob\n");
}

}  // namespace
