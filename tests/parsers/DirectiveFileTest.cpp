// The directive file: dated events, the processes that they hold, and what is wrong in them.
#include <algorithm>
#include <iterator>
#include <sstream>

#include "tests/parsers/FarmTest.h"

namespace {

Process* NewTestProcess(const char* name) {
  const std::string className = name;
  if (className == "grazing") return new ContinuousProcess(0, name);
  if (className == "rainReading") return new ReadSequentialDataFileProcess(0, name);
  if (className != "milking" && className != "openGate" && className != "repair") return nullptr;
  auto* process = new DiscreteProcess(0, name);
  if (className == "openGate") process->ProcessedEntityClassId(PADDOCK);
  return process;
}

/// Events of the class "calving" come with their process.
Event* NewTestEvent(const char* name) {
  const std::string className = name;
  const std::string known[] = {"milking", "calving", "storm", "season", "housing"};
  if (std::find(std::begin(known), std::end(known), className) == std::end(known)) return nullptr;
  Event* event = new Event(name);
  if (className == "calving") event->AddProcessAction(new DiscreteProcess(0, "birth"), EXEC);
  return event;
}

class DirectiveFileTest : public FarmTest {
 protected:
  DirectiveFileTest() {
    simulation.ClockTimeUnit(DAY);
    simulation.ClockTimeUnitQuantity(1);
    simulation.SetBeginningDate(1, 4, 2008);
    Assign_App_NewEventFromStringFunction(NewTestEvent);
    Assign_App_NewProcessFromStringFunction(NewTestProcess);
  }
  ~DirectiveFileTest() override {
    Assign_App_NewEventFromStringFunction(nullptr);
    Assign_App_NewProcessFromStringFunction(nullptr);
  }

  template <class Line>
  std::string OfAgenda(Line line) {
    std::string lines;
    for (simulation.GoHeadInAgenda(); simulation.IsCurrentInAgenda(); simulation.GoNextInAgenda())
      lines += line(*simulation.GetCurrentInAgenda());
    return lines;
  }
  /// "class clock priority, " for each event.
  std::string Agenda() {
    return OfAgenda([](const Event& event) {
      return std::string(event.ClassName()) + " " + std::to_string(event.OccurrenceClockTime()) + " " +
             std::to_string(event.PriorityDegree()) + ", ";
    });
  }
  Event& First() {
    simulation.GoHeadInAgenda();
    return *simulation.GetCurrentInAgenda();
  }
  /// "name ACTION, " for each couple of each event.
  std::string Couples() {
    return OfAgenda([](const Event& event) {
      std::string couples;
      for (const StructProcessAction* couple : event.ListpProcessAction())
        couples +=
            std::string(couple->process->InstanceName()) + " " + StringActionType(couple->action) + ", ";
      return couples;
    });
  }
};

TEST_F(DirectiveFileTest, PostsEventsByDateAndPriority) {
  Read(ParseDirectiveFile,
       "EVENT event NAME turnout AT 10 AVR 2008 PRIORITY 10 { PROCESS openGate EXEC; }\n"
       "EVENT \"milking\" PRIORITY 5 AT CLOCK 9 { PROCESS milking EXEC; }  # the same day\n"
       "EVENT event AT 15 \"NOV\" 12:00 { PROCESS milking EXEC; }\n"
       "EVENT calving AT 29 FEV 12;\n"
       "EVENT calving AT CLOCK 0;\n");
  EXPECT_EQ(Agenda(), "calving 0 99, milking 9 5, turnout 9 10, event 228 99, calving 1429 99, ");
}

TEST_F(DirectiveFileTest, GivesAPlainEventItsNameAsClassToo) {
  Read(
      ParseDirectiveFile,
      "EVENT event AT CLOCK 1 NAME \"EVENT\" { PROCESS milking EXEC; } EVENT calving AT CLOCK 2 NAME hortense;");
  EXPECT_EQ(OfAgenda([](const Event& event) {
              return std::string(event.ClassName()) + " " + event.InstanceName() + ", ";
            }),
            "EVENT EVENT, calving hortense, ");
}

/// Of equal events, all but the first are refused: at most one stands at each of the three clocks.
TEST_F(DirectiveFileTest, DrawsDatesBetweenTwoMoments) {
  std::string directives;
  for (int i = 0; i < 300; ++i) directives += "EVENT calving BETWEEN CLOCK 20 AND 23 AVR 2008;";
  Read(ParseDirectiveFile, directives +
                               "EVENT calving BETWEEN CLOCK 7 AND CLOCK 7;"
                               "EVENT calving BETWEEN CLOCK 100 AND CLOCK 2147483647;");
  EXPECT_EQ(Agenda().substr(0, 57), "calving 7 99, calving 20 99, calving 21 99, calving 22 99");
  EXPECT_EQ(simulation.AgendaEventSize(), 5);
  EXPECT_EQ(First().MinOccurrenceClockTime(), 7);
  EXPECT_EQ(First().MaxOccurrenceClockTime(), 7);
}

TEST_F(DirectiveFileTest, TakesMomentsOfToday) {
  simulation.ClockTimeUnit(MINUTE);
  simulation.SetThisDayBeginningDate(0, 0, 0);
  Read(ParseDirectiveFile,
       "EVENT calving AT TODAY 06:30; EVENT calving BETWEEN TODAY 06:31 AND TODAY 06:31;");
  EXPECT_EQ(Agenda(), "calving 390 99, calving 391 99, ");
}

TEST_F(DirectiveFileTest, ReadsDatesWithoutAYearInTheCurrentOne) {
  simulation.Clock(275);  // 1 January 2009
  Read(ParseDirectiveFile, "EVENT calving AT 1 FEV;");
  EXPECT_EQ(Agenda(), "calving 306 99, ");
  ExpectFault(ParseDirectiveFile, {"EVENT calving AT 29 FEV;", 1, "le jour 29 FEV 2009 n'existe pas"});
  simulation.ClockTimeUnitQuantity(-1);
  const std::string clockUnit = " demande une unité d'horloge (CLOCK dans le fichier de la simulation)";
  ExpectFault(ParseDirectiveFile, {"EVENT calving AT 1 FEV;", 1, "une date" + clockUnit});
  ExpectFault(ParseDirectiveFile,
              {"EVENT calving AT CLOCK 1\nEVERY 1 DAY;", 2, "une durée en unités de temps" + clockUnit});
}

TEST_F(DirectiveFileTest, RenewsEvents) {
  simulation.ClockTimeUnit(HOUR);
  simulation.ClockTimeUnitQuantity(2);
  Read(ParseDirectiveFile,
       "EVENT calving AT CLOCK 1 EVERY 3 PROBABILITY 1 NEXT milking NEXT_PROBABILITY 0.25;\n"
       "EVENT calving AT CLOCK 2 EVERY 6 HOUR TO 2 DAY NEXT_PERCENT 100 PERCENT 100;\n"
       "EVENT calving AT CLOCK 3 EVERY 2 TO 4 HOUR;\n"
       "EVENT calving AT CLOCK 4;\n");
  EXPECT_EQ(OfAgenda([](const Event& event) {
              std::ostringstream line;
              line << event.IsAutoGenerate() << " " << event.MinDelayNextEvent() << " "
                   << event.MaxDelayNextEvent() << " " << event.NextEventClassName() << " "
                   << event.GetOccurrenceProbability() << " " << event.NextEventOccurrenceProbability()
                   << ", ";
              return line.str();
            }),
            "1 3 3 milking 1 0.25, 1 3 24  1 1, 1 1 2  1 1, 0 1 1  1 1, ");
}

TEST_F(DirectiveFileTest, MakesTheProcessesOfABlock) {
  Read(ParseStructureFile, "ENTITY Paddock river; ENTITY Cow hortense;");
  Read(ParseDirectiveFile,
       "SPEC cows OF Cow { NFIRST 1; }\n"
       "EVENT event AT CLOCK 1 {\n"
       "  PROCESS grazing NAME north ON river DELAY 2 STEP 3 DAY INIT;\n"
       "  PROCESS \"grazing\" PROCEED;\n"
       "  PROCESS grazing NAME south ON SPEC cows STEP 4 INIT PROCEED;\n"
       "  PROCESS grazing NAME north STOP;\n"
       "}\n"
       "EVENT milking AT CLOCK 2 { PROCESS openGate NAME a EXEC; PROCESS openGate NAME b EXEC; }\n");
  EXPECT_EQ(Couples(), "north INIT, north PROCEED, south INIT, south PROCEED, north STOP, a EXEC, b EXEC, ");
  auto* north = static_cast<ContinuousProcess*>(GetNamedProcess("north"));
  auto* south = static_cast<ContinuousProcess*>(GetNamedProcess("south"));
  EXPECT_EQ(First().ListpProcessAction()[1]->process, north);
  EXPECT_EQ(north->ProcessedEntity(), GetNamedEntity("river"));
  EXPECT_EQ(south->ProcessedEntity(), GetNamedEntity("hortense"));
  EXPECT_EQ(south->ProcessedEntitySpec(), GetNamedEntitySpec("cows"));
  EXPECT_EQ(north->PostponementDelay(), 2);
  EXPECT_EQ(north->Step(), 3);
  EXPECT_EQ(south->Step(), 4);
}

TEST_F(DirectiveFileTest, TakesLivingProcesses) {
  Read(ParseDirectiveFile,
       "EVENT event AT CLOCK 1 { PROCESS milking EXEC; PROCESS grazing NAME north INIT PROCEED; }\n"
       "EVENT event AT CLOCK 8 { PROCESS REF north STOP; }\n"
       "EVENT event AT CLOCK 9 { PROCESS REF grazing STOP; }\n");
  EXPECT_EQ(Couples(), "milking_1 EXEC, north INIT, north PROCEED, north STOP, north STOP, ");
}

/// The processes of a refused event go with it, but not one that another event has.
TEST_F(DirectiveFileTest, FreesARefusedEventAndSaysSo) {
  simulation.SetEndClock(100);
  const std::string directives =
      "EVENT event AT CLOCK 5 { PROCESS grazing INIT; }\n"
      "EVENT event AT CLOCK 101 NAME late { PROCESS openGate EXEC; PROCESS REF grazing STOP; }\n"
      "EVENT event AT CLOCK 1 PROBABILITY 0 { PROCESS milking EXEC; PROCESS milking NAME two EXEC; }\n"
      "EVENT event AT CLOCK 1 PERCENT 100 { PROCESS milking EXEC; }\n"
      "EVENT event AT CLOCK 1 { PROCESS milking EXEC; }  # the same again\n";
  Read(ParseDirectiveFile, directives);
  EXPECT_EQ(Agenda(), "event 1 99, event 5 99, ");
  EXPECT_EQ(Process::mpInstanceTab.Items().size(), 2);
  g_KV_TraceWarnings = 1;
  simulation.SetEndClock(-1);
  EXPECT_EQ(ReadQuietly(ParseDirectiveFile, "\nEVENT event AT CLOCK 0 NAME late { PROCESS openGate EXEC; }"),
            "\n!!! " + path + ", ligne 2 : l'événement 'late' n'est pas entré dans l'agenda.");
  g_KV_TraceWarnings = 0;
}

/// From the file to the bodies of the application: nine steps until the stop, milked each third day.
TEST_F(DirectiveFileTest, WhatItPostsRuns) {
  static int steps;
  static std::string milked;
  steps = 0;
  milked.clear();
  Assign_App_NewProcessFromStringFunction([](const char* name) -> Process* {
    if (std::string(name) == "milking") {
      auto* milking = new DiscreteProcess(0, name);
      milking->SetExec([](ProcessMethod* method) {
        milked += std::string(method->DescribedProcess()->ProcessedEntity()->InstanceName()) +
                  std::to_string(pCurrentSim->Clock()) + " ";
      });
      return milking;
    }
    auto* grazing = new ContinuousProcess(0, name);
    grazing->SetInitialize([](ProcessMethod*) {});
    grazing->SetGoOneStepForward([](ProcessMethod*) { ++steps; });
    grazing->SetStop([](ProcessMethod*) {});
    return grazing;
  });
  Read(ParseStructureFile, "ENTITY Cow hortense; ENTITY Cow marguerite { calvings = 2; }");
  Read(ParseDirectiveFile,
       "SPEC second OF Cow { NFIRST 1; WHERE calvings IN [1, 9]; }\n"
       "EVENT event AT CLOCK 2 { PROCESS grazing ON hortense INIT PROCEED; }\n"
       "EVENT event AT CLOCK 20 PRIORITY 0 { PROCESS REF grazing STOP; }\n"
       "EVENT event AT CLOCK 1 EVERY 3 { PROCESS milking ON SPEC second EXEC; }\n");
  simulation.SetEndClock(21);
  int iteration = 0;
  while (simulation.AgendaEventSize() > 0) simulation.RunCore(iteration);
  EXPECT_EQ(steps, 18);
  EXPECT_EQ(milked,
            "marguerite1 marguerite4 marguerite7 marguerite10 marguerite13 marguerite16 marguerite19 ");
}

TEST_F(DirectiveFileTest, SaysWhatIsWrong) {
  const std::string parts =
      "AT, BETWEEN, EVERY, NAME, NEXT, NEXT_PERCENT, NEXT_PROBABILITY, PERCENT, PRIORITY, PROBABILITY";
  const std::string actions = "EXEC, INIT, PROCEED ou STOP";
  const std::string event = "EVENT event AT CLOCK 1 ";
  const FaultCase cases[] = {
      {"TO p;", 1, "lu : 'TO' ; attendu : la fin du fichier, EVENT, PROCESS ou SPEC"},
      {"EVENT AT CLOCK 1;", 1, "lu : 'AT' ; attendu : un nom ou un texte entre guillemets"},
      {"EVENT event\nAT;", 2, "lu : ';' ; attendu : un entier, CLOCK ou TODAY"},
      {event + "AFTER;", 1, "lu : 'AFTER' ; attendu : " + parts + ", ';' ou '{'"},
      {event + "{ EXEC }", 1, "lu : 'EXEC' ; attendu : PROCESS, SPEC ou '}'"},
      {event + "{", 1, "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
      {"EVENT event AT TODAY;", 1, "lu : ';' ; attendu : un entier"},
      {event + "{ PROCESS milking; }", 1,
       "lu : ';' ; attendu : DELAY, EXEC, INIT, NAME, ON, PROCEED, STEP ou STOP"},
      {event + "{ PROCESS milking EXEC\n} ", 2, "lu : '}' ; attendu : EXEC, INIT, PROCEED, STOP ou ';'"},
      {event + "{ PROCESS milking EXEC; PROCESS REF milking\nON x; }", 1,
       "PROCESS REF 'milking' : ce processus n'est pas continu"},
      {event + "{ PROCESS grazing INIT; PROCESS REF grazing\nON x; }", 2, "lu : 'ON' ; attendu : " + actions},
      {event + "EVERY 2 TO 3 DAYS;", 1, "lu : 'DAYS' ; attendu : DAY, HOUR, MINUTE ou SECOND"},
      {"\nEVENT event PRIORITY 1\n;", 2, "l'événement n'a pas de date (AT ou BETWEEN)"},
      {event + "\nAT CLOCK 2;", 2, "AT ou BETWEEN est donné deux fois"},
      {event + "EVERY 1\nEVERY 2;", 2, "EVERY est donné deux fois"},
      {event + "PRIORITY 5\nPRIORITY 5;", 2, "PRIORITY est donné deux fois"},
      {"EVENT event AT CLOCK -1;", 1, "date antérieure au début de la simulation"},
      {"EVENT event AT 31 MRS 2008 23:59:59;", 1, "date antérieure au début de la simulation"},
      {"EVENT event BETWEEN CLOCK 5 AND\nCLOCK 4;", 2,
       "la seconde date de BETWEEN est antérieure à la première"},
      {"EVENT event AT 30 FEV;", 1, "le jour 30 FEV n'existe pas"},
      {event + "PROBABILITY 0.5 PERCENT 50;", 1, "PROBABILITY et PERCENT sont donnés pour le même événement"},
      {event + "NEXT_PROBABILITY 0.5 NEXT_PERCENT 50;", 1,
       "NEXT_PROBABILITY et NEXT_PERCENT sont donnés pour le même événement"},
      {event + "EVERY\n0;", 2, "EVERY demande une durée d'au moins 1"},
      {event + "EVERY 3 TO\n2;", 2, "le second délai de EVERY est inférieur au premier"},
      {event + "EVERY 36 HOUR;", 1, "EVERY 36 HOUR : l'unité d'horloge est 1 DAY"},
      {event + "{\nPROCESS milking DELAY 0 EXEC; }", 2, "DELAY demande une durée d'au moins 1"},
      {event + "{\nPROCESS grazing STEP -1 DAY INIT; }", 2, "STEP demande une durée d'au moins 1"},
      {event + "{\nPROCESS milking STEP 1 EXEC; }", 2, "STEP demande un processus continu"},
      {event + "{ PROCESS milking ON hortense EXEC;\nPROCESS milking ON hortense EXEC; }", 2,
       "le processus 'milking' du bloc a déjà son entité (ON) : en nommer un second (NAME)"},
      {event + "{\nPROCESS REF grazing STOP; }", 2,
       "PROCESS REF 'grazing' : aucun processus ne porte ce nom"},
  };
  Read(ParseStructureFile, "ENTITY Cow hortense;");
  for (const FaultCase& c : cases) ExpectFault(ParseDirectiveFile, c);
}

TEST_F(DirectiveFileTest, EndsInTheFailureMadeForTheFault) {
  const std::string event = "EVENT event AT CLOCK 1 ";
  const auto failure = [](const std::string& name) {
    return "\n!!!============== " + name + " ==============";
  };
  const std::string probability = failure("UnexpectedProbability") +
                                  "\n!!! probabilité d'occurrence incorrecte (non incluse dans [0 1] !!!"
                                  "\n    événement : event\n    date : 0\n    probabilité affectée : ";
  const FaultCase cases[] = {
      {"\nEVENT goat AT CLOCK 1;", 2,
       "classe d'événement inconnue : 'goat'" + failure("UnknownClassName") +
           "\n!!! Le nom de classe 'goat' n'est connu ni du noyau, ni de l'application."
           "\n    Le service qui l'a cherché est 'K_NewEventFromString'.\nERROR \n"},
      {event + "{\nPROCESS goat EXEC; }", 2,
       "classe de processus inconnue : 'goat'" + failure("UnknownClassName") +
           "\n!!! Le nom de classe 'goat' n'est connu ni du noyau, ni de l'application."
           "\n    Le service qui l'a cherché est 'K_NewProcessFromString'.\nERROR \n"},
      {event + "PRIORITY 65536;", 1,
       "PRIORITY demande un entier de 0 à 99" + failure("UnexpectedPriorityDegree") +
           "\n!!! degre de priorite incorrect (non inclus dans [0 99] !!!"
           "\n    événement : event\n    date : 0\n      degré affecté : 32767\nERROR \n"},
      {event + "PROBABILITY 95;", 1, "PROBABILITY demande un nombre de 0 à 1" + probability + "95\nERROR \n"},
      {event + "PERCENT 101;", 1,
       "PERCENT demande un entier de 0 à 100" + probability + "1.00999999\nERROR \n"},
      {event + "PROBABILITY 1.00000001;", 1,
       "PROBABILITY demande un nombre de 0 à 1" + probability + "1\nERROR \n"},
      {event + "NEXT_PERCENT -5;", 1, "NEXT_PERCENT demande un entier de 0 à 100" + probability},
      {"\n" + event + "NAME empty { }", 2,
       "l'événement n'a pas de processus\n!!! On n'a pas specifié le ou les processus géré(s). !!!"
       "\n    événement : empty\nERROR \n"},
      {event + "{ PROCESS grazing PROCEED;\nPROCESS grazing INIT; }", 2,
       "INIT 'grazing'" + failure("UnexpectedAddToListProcessAction")},
      {event + "{\nPROCESS milking STOP; }", 2, "STOP 'milking'" + failure("UnAuthorizedDirective")},
      {event + "{\nPROCESS milking ON goat EXEC; }", 2,
       "ON 'goat'" + failure("UnfoundEntityBasedOnInstanceName")},
      {event + "{\nPROCESS openGate ON hortense EXEC; }", 2,
       "ON 'hortense'" + failure("BadProcessedEntityClass")},
      {event + "{\nPROCESS openGate ON SPEC goats EXEC; }", 2,
       "SPEC 'goats' : aucune sélection ne porte ce nom" + failure("UnknownClassName")},
      {"SPEC cows OF Cow;\n" + event + "{\nPROCESS openGate ON SPEC cows EXEC; }", 3,
       "ON SPEC 'cows'" + failure("BadProcessedEntitySpec")},
  };
  Read(ParseStructureFile, "ENTITY Cow hortense;");
  for (const FaultCase& c : cases) ExpectFailure(ParseDirectiveFile, c);
}

TEST_F(DirectiveFileTest, TheDocumentedExampleStands) {
  SetParameter(INT, "size", {.intValue = 3});
  Assign_App_SerialDataFileIdFromStringFunction([](const char*) { return 40; });
  Read(ParseStructureFile, DocumentedExample("The structure file"));
  Read(ParseDirectiveFile, DocumentedExample("The directive file"));
  Assign_App_SerialDataFileIdFromStringFunction(nullptr);
  EXPECT_NE(Agenda().find(" milking 1 99, turnout 9 10, season 9 20, "), std::string::npos) << Agenda();
  EXPECT_EQ(Couples(),
            "rainReading_5 INIT, rainReading_5 PROCEED, milking_2 EXEC, openGate_1 EXEC, grazing_4 INIT, "
            "grazing_4 PROCEED, repair_3 EXEC, grazing_4 STOP, ");
}

}  // namespace
