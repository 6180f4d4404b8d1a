// The directive file: dated events with their priorities.
#include "kalve/engine/Event.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/parsers/ParserTest.h"

namespace {

class DirectiveFileTest : public ParserTest {
 protected:
  DirectiveFileTest() {
    simulation.ClockTimeUnit(DAY);
    simulation.ClockTimeUnitQuantity(1);
    simulation.SetBeginningDate(1, 4, 2008);
    Assign_App_NewEventFromStringFunction(
        [](const char* name) { return std::string(name) == "milking" ? new Event(name) : nullptr; });
  }
  ~DirectiveFileTest() override { Assign_App_NewEventFromStringFunction(nullptr); }

  /// "class clock priority, " for each event of the agenda.
  std::string Agenda() {
    std::string events;
    for (simulation.GoHeadInAgenda(); simulation.IsCurrentInAgenda(); simulation.GoNextInAgenda()) {
      const Event* event = simulation.GetCurrentInAgenda();
      events += std::string(event->ClassName()) + " " + std::to_string(event->OccurrenceClockTime()) + " " +
                std::to_string(event->PriorityDegree()) + ", ";
    }
    return events;
  }
};

TEST_F(DirectiveFileTest, PostsEventsByDateAndPriority) {
  Read(ParseDirectiveFile,
       "EVENT event NAME turnout AT 10 AVR 2008 PRIORITY 10 { }\n"
       "EVENT \"milking\" PRIORITY 5 AT CLOCK 9;   # the same day\n"
       "EVENT event AT 15 \"NOV\" 12:00;\n"
       "EVENT event AT 29 FEV 12;\n"
       "EVENT milking AT CLOCK 0;\n");
  EXPECT_EQ(Agenda(), "milking 0 99, milking 9 5, turnout 9 10, event 228 99, event 1429 99, ");
}

TEST_F(DirectiveFileTest, GivesAPlainEventItsNameAsClassToo) {
  Read(ParseDirectiveFile, "EVENT event AT CLOCK 1 NAME \"EVENT\"; EVENT milking AT CLOCK 2 NAME morning;");
  simulation.GoHeadInAgenda();
  EXPECT_STREQ(simulation.GetCurrentInAgenda()->ClassName(), "EVENT");
  EXPECT_STREQ(simulation.GetCurrentInAgenda()->InstanceName(), "EVENT");
  simulation.GoNextInAgenda();
  EXPECT_STREQ(simulation.GetCurrentInAgenda()->ClassName(), "milking");
  EXPECT_STREQ(simulation.GetCurrentInAgenda()->InstanceName(), "morning");
}

TEST_F(DirectiveFileTest, DrawsDatesBetweenTwoMoments) {
  std::string directives;
  for (int i = 0; i < 300; ++i) directives += "EVENT event BETWEEN CLOCK 20 AND 23 AVR 2008;";
  Read(ParseDirectiveFile, directives +
                               "EVENT event BETWEEN CLOCK 7 AND CLOCK 7;"
                               "EVENT event BETWEEN CLOCK 0 AND CLOCK 2147483647;");
  bool drawn[3] = {};
  for (simulation.GoHeadInAgenda(); simulation.IsCurrentInAgenda(); simulation.GoNextInAgenda()) {
    const int clock = simulation.GetCurrentInAgenda()->OccurrenceClockTime();
    if (clock >= 20 && clock <= 22) drawn[clock - 20] = true;
  }
  EXPECT_TRUE(drawn[0] && drawn[1] && drawn[2]);
  EXPECT_EQ(simulation.AgendaEventSize(), 302);
}

TEST_F(DirectiveFileTest, TakesMomentsOfToday) {
  simulation.ClockTimeUnit(MINUTE);
  simulation.SetThisDayBeginningDate(0, 0, 0);
  Read(ParseDirectiveFile, "EVENT event AT TODAY 06:30;");
  EXPECT_EQ(Agenda(), "event 390 99, ");
}

TEST_F(DirectiveFileTest, FreesARefusedEventAndSaysSo) {
  simulation.SetEndClock(100);
  const std::string directives =
      "EVENT event AT CLOCK 101 NAME late;\nEVENT event AT CLOCK 1 PROBABILITY 0;\nEVENT event AT CLOCK 1 "
      "PERCENT 100;";
  Read(ParseDirectiveFile, directives);
  EXPECT_EQ(Agenda(), "event 1 99, ");
  g_KV_TraceWarnings = 1;
  const int next = Event::mInstanceNumber + 2;
  EXPECT_EQ(ReadInChild(ParseDirectiveFile, directives),
            "\n!!! " + path + ", ligne 1 : l'événement 'late' n'est pas entré dans l'agenda.\n!!! " + path +
                ", ligne 2 : l'événement 'event_" + std::to_string(next) +
                "' n'est pas entré dans l'agenda.");
  g_KV_TraceWarnings = 0;
}

TEST_F(DirectiveFileTest, SaysWhatIsWrong) {
  const std::string parts = "AT, BETWEEN, NAME, PERCENT, PRIORITY, PROBABILITY";
  const FaultCase cases[] = {
      {"PROCESS p;", 1, "lu : 'PROCESS' ; attendu : la fin du fichier ou EVENT"},
      {"EVENT AT CLOCK 1;", 1, "lu : 'AT' ; attendu : un nom ou un texte entre guillemets"},
      {"EVENT event\nAT;", 2, "lu : ';' ; attendu : un entier, CLOCK ou TODAY"},
      {"EVENT event AT CLOCK 1 AFTER;", 1, "lu : 'AFTER' ; attendu : " + parts + ", ';' ou '{'"},
      {"EVENT event AT CLOCK 1 { EXEC }", 1, "lu : 'EXEC' ; attendu : '}'"},
      {"EVENT event AT CLOCK 1 {", 1,
       "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
      {"EVENT event AT TODAY;", 1, "lu : ';' ; attendu : un entier"},
      {"\nEVENT event PRIORITY 1\n;", 2, "l'événement n'a pas de date (AT ou BETWEEN)"},
      {"EVENT event AT CLOCK 1\nAT CLOCK 2;", 2, "la date est donné deux fois pour l'événement"},
      {"EVENT event AT CLOCK -1;", 1, "date antérieure au début de la simulation"},
      {"EVENT event AT 31 MRS 2008 23:59:59;", 1, "date antérieure au début de la simulation"},
      {"EVENT event BETWEEN CLOCK 5 AND CLOCK 4;", 1,
       "la seconde date de BETWEEN est antérieure à la première"},
      {"EVENT event AT 30 FEV;", 1, "le jour 30 FEV n'existe pas"},
      {"EVENT event AT CLOCK 1 PROBABILITY 0.5 PERCENT 50;", 1,
       "PROBABILITY et PERCENT sont donnés pour le même événement"},
  };
  for (const FaultCase& c : cases) {
    const std::string output = ReadInChild(ParseDirectiveFile, c.bytes);
    EXPECT_EQ(output, Fault(c.line, c.what)) << c.bytes;
  }
}

TEST_F(DirectiveFileTest, EndsInTheFailureMadeForTheFault) {
  const FaultCase cases[] = {
      {"\nEVENT calving AT CLOCK 1;", 2,
       "classe d'événement inconnue : 'calving'\n!!!============== UnknownClassName =============="
       "\n!!! Le nom de classe 'calving' n'est connu ni du noyau, ni de l'application."
       "\n    Le service qui l'a cherché est 'K_NewEventFromString'.\nERROR \n"},
      {"EVENT event AT CLOCK 1 PRIORITY 65536;", 1,
       "PRIORITY demande un entier de 0 à 99\n!!!============== UnexpectedPriorityDegree =============="
       "\n!!! degre de priorite incorrect (non inclus dans [0 99] !!!"
       "\n    événement : event\n    date : 0\n      degré affecté : 32767\nERROR \n"},
      {"EVENT event AT CLOCK 1 PROBABILITY 95;", 1,
       "PROBABILITY demande un nombre de 0 à 1\n!!!============== UnexpectedProbability =============="
       "\n!!! probabilité d'occurrence incorrecte (non incluse dans [0 1] !!!"
       "\n    événement : event\n    date : 0\n    probabilité affectée : 95\nERROR \n"},
      {"EVENT event AT CLOCK 1 PROBABILITY 1.0000000001;", 1,  // 1 in single precision
       "PROBABILITY demande un nombre de 0 à 1\n!!!============== UnexpectedProbability =============="
       "\n!!! probabilité d'occurrence incorrecte (non incluse dans [0 1] !!!"
       "\n    événement : event\n    date : 0\n    probabilité affectée : 1\nERROR \n"},
      {"EVENT event AT CLOCK 1 PERCENT 101;", 1,
       "PERCENT demande un entier de 0 à 100\n!!!============== UnexpectedProbability =============="
       "\n!!! probabilité d'occurrence incorrecte (non incluse dans [0 1] !!!"
       "\n    événement : event\n    date : 0\n    probabilité affectée : 1.00999999\nERROR \n"},
  };
  for (const FaultCase& c : cases) {
    const std::string output = ReadInChild(ParseDirectiveFile, c.bytes);
    EXPECT_EQ(output, Announced(path, c.line, c.what)) << c.bytes;
  }
}

TEST_F(DirectiveFileTest, ReadsDatesWithoutAYearInTheCurrentOne) {
  simulation.Clock(275);  // 1 January 2009
  Read(ParseDirectiveFile, "EVENT event AT 1 FEV;");
  EXPECT_EQ(Agenda(), "event 306 99, ");
  EXPECT_EQ(ReadInChild(ParseDirectiveFile, "EVENT event AT 29 FEV;"),
            Fault(1, "le jour 29 FEV 2009 n'existe pas"));
  simulation.ClockTimeUnitQuantity(-1);
  EXPECT_EQ(ReadInChild(ParseDirectiveFile, "EVENT event AT 1 FEV;"),
            Fault(1, "une date demande une unité d'horloge (CLOCK dans le fichier de la simulation)"));
}

}  // namespace
