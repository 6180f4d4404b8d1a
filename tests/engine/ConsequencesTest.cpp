// What popped events do: actions, preconditions, postponement, successors, stepping; and that no process,
// event or method dies twice or stays without reason.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/PredefinedEvents.h"
#include "kalve/engine/Simulation.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/MethodTable.h"
#include "kalve/methods/PredefinedIds.h"
#include "tests/support/ChildProcess.h"

namespace {

std::string gLog;  // what the bodies did, and when

void Log(const char* what) { gLog += std::string(what) + "@" + std::to_string(pCurrentSim->Clock()) + " "; }

class ConsequencesTest : public testing::Test {
 protected:
  ConsequencesTest() {
    simulation = new Simulation();
    pCurrentSim = simulation;
    gLog.clear();
    living = {Event::getNbConst() - Event::getNbDest(), Method::getNbConst() - Method::getNbDest()};
  }
  ~ConsequencesTest() override {
    delete simulation;
    pCurrentSim = nullptr;
    EXPECT_EQ(Event::getNbConst() - Event::getNbDest(), living[0] + keptEvents);
    EXPECT_EQ(Method::getNbConst() - Method::getNbDest(), living[1] + keptMethods);
    EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
  }

  static DiscreteProcess* NewMilking() {
    auto* process = new DiscreteProcess(20, "traite");
    process->SetExec([](ProcessMethod* m) { Log(m->DescribedProcess()->ClassName()); });
    return process;
  }
  static ContinuousProcess* NewGrass(int step) {
    auto* process = new ContinuousProcess(21, "herbe");
    process->Step(step);
    process->SetInitialize([](ProcessMethod*) { Log("init"); });
    process->SetGoOneStepForward([](ProcessMethod*) { Log("pas"); });
    process->SetStop([](ProcessMethod*) { Log("fin"); });
    return process;
  }
  Event* Post(Process* process, ActionType action, int clock, int priority = 50) {
    auto* event = new Event(30, "événement");
    event->AddProcessAction(process, action);
    EXPECT_EQ(simulation->InsertInAgendaEvents(event, priority, clock), 1);
    return event;
  }
  std::string Run(int limit = 1000) {
    simulation->RunBatch(limit);
    return gLog;
  }

  Simulation* simulation;
  std::array<int, 2> living{};
  int keptEvents = 0;
  int keptMethods = 0;
};

TEST_F(ConsequencesTest, APreconditionLetsGoPostponesOrGivesUp) {
  struct Case {
    int (*precondition)(ProcessMethod*);
    const char* log;
  };
  const Case cases[] = {
      {nullptr, "traite@3 suite@3 "},  // without body it lets go
      {[](ProcessMethod*) { return 1; }, "traite@3 suite@3 "},
      {[](ProcessMethod*) { return 5; }, "traite@3 suite@3 "},
      {[](ProcessMethod*) { return -1; }, "suite@3 "},
      {[](ProcessMethod*) { return pCurrentSim->Clock() < 9 ? 0 : 1; }, "traite@11 suite@11 "},
      {[](ProcessMethod*) { return 0; }, ""},  // until the agenda refuses
  };
  for (const Case& c : cases) {
    gLog.clear();
    simulation->Clock(0);
    simulation->SetEndClock(20);
    DiscreteProcess* milking = NewMilking();
    milking->SetPrecondition(c.precondition);
    milking->SetPostponementDelay([](ProcessMethod*) { return 4; });
    Post(milking, EXEC, 3)->SetPostConsequence([](EventMethod*) { Log("suite"); });
    EXPECT_EQ(Run(), c.log);
    EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
  }
}

TEST_F(ConsequencesTest, APostponedEventRunsAllItsCouplesAgain) {
  DiscreteProcess* milking = NewMilking();
  auto* late = new DiscreteProcess(22, "contrôle");
  late->SetExec([](ProcessMethod*) { Log("contrôle"); });
  late->SetPrecondition([](ProcessMethod*) { return pCurrentSim->Clock() < 4 ? 0 : 1; });
  Event* event = Post(milking, EXEC, 3);
  event->AddProcessAction(late, EXEC);
  EXPECT_EQ(Run(), "traite@3 traite@4 contrôle@4 ");
}

TEST_F(ConsequencesTest, AProcessWithoutTheNeededMethodOrOfTheWrongKindEndsTheRun) {
  const auto failure = [&](Process* process, ActionType action) {
    return FailureOf([&] {
      Post(process, action, 1);
      Run();
    });
  };
  EXPECT_NE(failure(NewMilking(), STOP).find("L'action STOP n'est pas autorisée sur le processus 'traite'."),
            std::string::npos);
  EXPECT_NE(failure(NewMilking(), PROCEED).find(" UnAuthorizedDirective "), std::string::npos);
  EXPECT_NE(failure(NewMilking(), INIT).find(" InexistantInitializationMethod "), std::string::npos);
}

TEST_F(ConsequencesTest, AContinuousProcessStepsUntilAnotherEventIsDue) {
  simulation->SetEndClock(12);
  ContinuousProcess* grass = NewGrass(5);
  EXPECT_EQ(grass->PostInitAndProceedEvent(0), 1);
  EXPECT_EQ(Run(), "init@0 pas@0 pas@5 pas@10 ");
  EXPECT_EQ(simulation->Clock(), 10);
}

TEST_F(ConsequencesTest, AnEarlierEventInterruptsAndAnEqualOneDoesNot) {
  simulation->SetEndClock(12);
  NewGrass(5)->PostInitAndProceedEvent(0, 20);
  Post(NewMilking(), EXEC, 7);
  Post(NewMilking(), EXEC, 10, 50);  // behind the step of the same date
  EXPECT_EQ(Run(), "init@0 pas@0 pas@5 traite@7 pas@10 traite@10 ");
}

TEST_F(ConsequencesTest, AStoppedProcessMakesNoStepAndDiesWithItsLastEvent) {
  ContinuousProcess* grass = NewGrass(2);
  grass->PostInitAndProceedEvent(0, 20);
  Post(grass, STOP, 3);
  Post(NewMilking(), EXEC, 5);
  simulation->SetEndClock(9);
  EXPECT_EQ(Run(), "init@0 pas@0 pas@2 fin@3 traite@5 ");
  EXPECT_EQ(Process::mpInstanceTab.Items().size(), 0);
}

TEST_F(ConsequencesTest, TheInitPreconditionThatGivesUpStopsTheProcess) {
  ContinuousProcess* grass = NewGrass(2);
  grass->SetPrecondition([](ProcessMethod*) { return -1; });
  EXPECT_EQ(grass->PostInitialisationEvent(4), 1);
  EXPECT_EQ(Run(), "fin@4 ");
}

TEST_F(ConsequencesTest, BothEventsOfAPairGoInOrNeither) {
  simulation->SetEndClock(10);
  ContinuousProcess* grass = NewGrass(2);
  EXPECT_EQ(grass->PostInitThenProceedEvent(3, 11), 0);
  EXPECT_EQ(simulation->AgendaEventSize(), 0);
  EXPECT_EQ(grass->PostInitThenProceedEvent(3, 8), 1);
  EXPECT_EQ(Run(), "init@3 pas@8 pas@10 ");
}

TEST_F(ConsequencesTest, AutogenerationByDelayDefinitionAndAnotherClass) {
  simulation->SetEndClock(10);
  Event* daily = Post(NewMilking(), EXEC, 1);
  daily->IsAutoGenerate(1);
  daily->SetMinDelayNextEvent(4);
  daily->SetMaxDelayNextEvent(4);
  EXPECT_EQ(Run(), "traite@1 traite@5 traite@9 ");

  gLog.clear();
  simulation->Clock(0);
  Event* defined = Post(NewMilking(), EXEC, 1);
  defined->SetDefineNextEventClockTime(
      [](EventMethod* m) { return 3 * m->GetEventArgValue(PREVIOUS_EVENT_ARGUMENT)->OccurrenceClockTime(); });
  EXPECT_EQ(Run(), "traite@1 traite@3 traite@9 ");

  gLog.clear();
  simulation->Clock(0);
  Event* other = Post(NewMilking(), EXEC, 2);
  other->SetGenerateNextEvent([](EventMethod* m) {
    m->DescribedEvent()->SetNextEvent(new DiscreteExecution(6, NewMilking()));
    return true;
  });
  EXPECT_EQ(Run(), "traite@2 traite@6 ");
}

TEST_F(ConsequencesTest, DelaysAreDrawnBetweenTheirBounds) {
  simulation->SetEndClock(K_INTMAX);
  Event* event = Post(NewMilking(), EXEC, 1);
  event->IsAutoGenerate(1);
  event->SetMinDelayNextEvent(2);
  event->SetMaxDelayNextEvent(4);
  std::set<int> delays;
  for (int last = 0, i = 0; i < 200; ++i) {
    simulation->RunBatch(1);
    if (last != 0) delays.insert(simulation->Clock() - last);
    last = simulation->Clock();
  }
  EXPECT_EQ(delays, (std::set<int>{2, 3, 4}));
}

// The event leaves its methods to a successor of its class, even to one that it does not share them with.
TEST_F(ConsequencesTest, AProcessThatTheSuccessorHoldsKeepsItsMethods) {
  DiscreteProcess* milking = NewMilking();
  Event* event = Post(milking, EXEC, 3);
  event->SetGenerateNextEvent([](EventMethod* m) {
    if (pCurrentSim->Clock() > 3) return false;
    auto* next = new Event(30, "événement");
    next->AddProcessAction(m->DescribedEvent()->FirstProcess(), EXEC);
    next->SetOccurrenceClockTime(6);
    m->DescribedEvent()->SetNextEvent(next);
    return true;
  });
  const Tableau<Method*> left = event->MethodTab();
  Method* exec = milking->GetMethod(EXEC_PROCESS);
  simulation->RunBatch(1);
  EXPECT_EQ(milking->GetMethod(EXEC_PROCESS), exec);
  EXPECT_EQ(Run(), "traite@3 traite@6 ");
  for (Method* method : left) DestroyMethod(method);
}

TEST_F(ConsequencesTest, AnEventGoesOnWithoutAProcessThatDied) {
  DiscreteProcess* milking = NewMilking();
  Event* removed = Post(milking, EXEC, 3);
  Post(milking, EXEC, 5)->AddProcessAction(NewMilking(), EXEC);
  milking->DeleteInDepth();
  simulation->RemoveFromAgendaEvents(removed, 1);
  EXPECT_EQ(Run(), "traite@5 ");
}

TEST_F(ConsequencesTest, ACopyOfTheSimulationRunsItsOwnEvents) {
  simulation->SetEndClock(20);
  Post(NewMilking(), EXEC, 7, 10);
  Post(NewGrass(2), INIT, 7, 20);
  {
    Simulation copy(*simulation);
    pCurrentSim = &copy;
    EXPECT_EQ(copy.EndClock(), 20);
    copy.RunBatch(10);
    EXPECT_EQ(gLog, "traite@7 init@7 ");
    pCurrentSim = simulation;
  }
  // The end of a simulation frees the processes of all.
  EXPECT_EQ(simulation->RunBatch(10), 2);
  EXPECT_EQ(gLog, "traite@7 init@7 ");
}

TEST_F(ConsequencesTest, FlagsWithoutBodiesEndTheRun) {
  EXPECT_NE(FailureOf([&] {
              Post(NewMilking(), EXEC, 1)->HasPostConsequence(1);
              Run();
            }).find("'postconsequence'"),
            std::string::npos);
  EXPECT_NE(FailureOf([&] {
              Event* event = Post(NewMilking(), EXEC, 1);
              event->SetGenerateNextEvent(nullptr);
              Run();
            }).find("'autogeneration'"),
            std::string::npos);
}

// Random models: processes shared between events, postponements, generation, refusals by end clock,
// probability and duplicate, removals. The fixture counts what is left.
TEST_F(ConsequencesTest, NothingDiesTwiceAndNothingStaysInRandomModels) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    simulation->Clock(0);
    simulation->SetEndClock(300);
    for (int i = 0; i < 40; ++i) {
      DiscreteProcess* milking = NewMilking();
      if (below(3) == 0)
        milking->SetPrecondition([](ProcessMethod* m) {
          return (pCurrentSim->Clock() + m->DescribedProcess()->ClassSymbol()) % 3 - 1;
        });
      for (int events = 1 + below(3); events > 0; --events) {
        auto* event = new Event(30 + below(2), "événement");
        event->AddProcessAction(milking, EXEC);
        if (below(4) == 0) {
          event->IsAutoGenerate(1);
          event->SetMaxDelayNextEvent(1 + below(60));
        }
        if (below(4) == 0) event->SetOccurrenceProbability(70);
        if (simulation->InsertInAgendaEvents(event, below(5), below(330)) == 0) event->DeleteInDepth();
      }
      if (below(3) == 0) {
        ContinuousProcess* grass = NewGrass(1 + below(20));
        if (grass->PostInitAndProceedEvent(below(300), below(9)) == 0 || below(2) == 0) continue;
        auto* stop = new Event(30, "arrêt");
        stop->AddProcessAction(grass, STOP);
        if (simulation->InsertInAgendaEvents(stop, 50, below(300)) == 0) stop->DeleteInDepth();
      }
    }
    simulation->RunBatch(3000);
    while (simulation->IsEmptyAgendaEvents() == 0) {
      Event* event = simulation->AgendaEvents().front();
      simulation->RemoveFromAgendaEvents(event, 1);
    }
    // Processes whose events were all refused, and those given up on, are left to the end of the simulation.
  }
}

}  // namespace
