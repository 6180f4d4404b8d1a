// The agenda against a naive one, through random operations.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <random>
#include <vector>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Owned.h"

namespace {

/// The agenda as a vector: what a new event is compared with, and where it lands.
class NaiveAgenda {
 public:
  std::vector<Event*> events;

  /// Behind the first equally placed event, else in front of the first later one.
  void Insert(Event* event) {
    const auto at =
        std::find_if(events.begin(), events.end(), [&](Event* e) { return Key(e) >= Key(event); });
    events.insert(at != events.end() && Key(*at) == Key(event) ? std::next(at) : at, event);
  }
  /// The head goes behind all that are not later than its new date.
  void DelayHead(Event* head) {
    events.erase(events.begin());
    events.insert(std::find_if(events.begin(), events.end(), [&](Event* e) { return Key(e) > Key(head); }),
                  head);
  }

 private:
  static long Key(Event* event) { return event->OccurrenceClockTime() * 100L + event->PriorityDegree(); }
};

class AgendaTest : public testing::Test {
 protected:
  AgendaTest() { pCurrentSim = &simulation; }
  ~AgendaTest() override { pCurrentSim = nullptr; }

  Event* Insert(const char* name, int clock, int priority) {
    auto* event = new Event(name);
    EXPECT_EQ(simulation.InsertInAgendaEvents(event, priority, clock), 1);
    return event;
  }
  std::string Order() {
    std::string names;
    for (simulation.GoHeadInAgenda(); simulation.IsCurrentInAgenda(); simulation.GoNextInAgenda())
      names += simulation.GetCurrentInAgenda()->ClassName();
    return names;
  }

  Simulation simulation;
};

TEST_F(AgendaTest, FollowsANaiveAgendaThroughRandomOperations) {
  std::mt19937 random(11);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  NaiveAgenda naive;
  simulation.SetEndClock(90);
  for (int turn = 0; turn < 6000; ++turn) {
    switch (below(8)) {
      case 0:
      case 1:
      case 2: {
        auto* event = new Event("e");
        const int clock = below(100);
        const int inserted = simulation.InsertInAgendaEvents(event, below(4), clock);
        ASSERT_EQ(inserted, clock <= 90 ? 1 : 0);
        if (inserted != 0)
          naive.Insert(event);
        else
          event->DeleteInDepth();
        break;
      }
      case 3: {  // out of order
        auto* event = new Event("e");
        event->SetOccurrenceClockTime(below(200));
        simulation.PushBackToAgendaEvents(event);
        naive.events.push_back(event);
        break;
      }
      case 4: {
        if (naive.events.empty()) {
          ASSERT_EQ(simulation.DelayInAgendaEvents(nullptr, 1), 0);
          break;
        }
        Event* head = naive.events.front();
        ASSERT_EQ(simulation.DelayInAgendaEvents(head, below(60)), 1);
        naive.DelayHead(head);
        break;
      }
      case 5:
        if (naive.events.empty()) break;
        ASSERT_EQ(simulation.DepileAgendaEvents(), naive.events.front());
        naive.events.front()->DeleteInDepth();
        naive.events.erase(naive.events.begin());
        break;
      case 6: {
        if (naive.events.empty()) break;
        const auto at = naive.events.begin() + below(static_cast<int>(naive.events.size()));
        simulation.RemoveFromAgendaEvents(*at, 1);
        naive.events.erase(at);
        break;
      }
      default: {
        const OwnedEvent absent = MakeEvent("absent");
        simulation.RemoveFromAgendaEvents(absent.get(), 0);
      }
    }
    std::vector<Event*> order;
    for (simulation.GoHeadInAgenda(); simulation.IsCurrentInAgenda(); simulation.GoNextInAgenda())
      order.push_back(simulation.GetCurrentInAgenda());
    ASSERT_EQ(order, naive.events) << "turn " << turn;
    ASSERT_EQ(simulation.AgendaEventSize(), static_cast<int>(naive.events.size()));
  }
}

TEST_F(AgendaTest, EqualEventsStandBehindTheFirstOfThem) {
  for (const char* name : {"A", "B", "C", "D"}) Insert(name, 5, 10);
  Insert("first", 5, 9);
  Insert("last", 6, 0);
  EXPECT_EQ(Order(), "firstADCBlast");
}

TEST_F(AgendaTest, AnEventWithoutProcessEndsTheRunInTheFormThatAsksForOne) {
  EXPECT_EQ(simulation.InsertInAgendaEvents(new Event("seule")), 1);
  EXPECT_EQ(RunInChild([&] { simulation.InsertInAgendaEvents(new Event("vêlage")); }).output,
            "\n!!! On n'a pas specifié le ou les processus géré(s). !!!\n    événement : vêlage\nERROR \n");
  // The other form warns of the event, and of the one that it stands beside.
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              simulation.InsertInAgendaEvents(new Event("vêlage"), 99, 0);
            }),
            "\n!!! La liste des couples (processus action) de l'événement 'vêlage' est vide."
            "\n!!! La liste des couples (processus action) de l'événement 'seule' est vide.");
}

TEST_F(AgendaTest, ADelayOfAnotherEventThanTheHeadDoesNotReturn) {
  Insert("a", 1, 1);
  Event* second = Insert("b", 2, 1);
  const ChildOutcome outcome = RunInChild([&] {
    ualarm(200000, 0);
    simulation.DelayInAgendaEvents(second, 1);
  });
  EXPECT_EQ(outcome.signal, SIGALRM);
}

TEST_F(AgendaTest, ProbabilityDrawsOnceBeforeAnyLookAtTheAgenda) {
  // The draws as the test computes them, from the same source.
  std::srand(5);
  std::vector<bool> expected;
  for (int i = 0; i < 200; ++i)
    expected.push_back(
        static_cast<int>(static_cast<double>(static_cast<float>(std::rand()) * 100.0F) / 2147483648.0) < 50);
  std::srand(5);
  for (bool accepted : expected) {
    auto* certain = new Event("certain");
    ASSERT_EQ(simulation.InsertInAgendaEvents(certain, 1, 1), 1);  // draws nothing
    auto* event = new Event("perhaps");
    event->SetOccurrenceProbability(50);
    const int inserted = simulation.InsertInAgendaEvents(event, 1, 1);
    ASSERT_EQ(inserted != 0, accepted);
    if (inserted == 0) event->DeleteInDepth();
  }
  EXPECT_GT(std::count(expected.begin(), expected.end(), true), 60);
  EXPECT_GT(std::count(expected.begin(), expected.end(), false), 60);
}

/// An assigned predicate: the latest date first, priorities play no part.
int LatestFirst(Event* a, Event* b) {
  gEquallyPlacedEventFlag = a->OccurrenceClockTime() == b->OccurrenceClockTime() ? 1 : 0;
  return a->OccurrenceClockTime() > b->OccurrenceClockTime() ? 1 : 0;
}

TEST_F(AgendaTest, FollowsAnAssignedPredicate) {
  simulation.AssignBeforeInAgendaMethod(LatestFirst);
  Insert("a", 1, 1);
  Insert("c", 3, 3);
  Insert("b", 2, 2);
  Insert("B", 2, 1);
  EXPECT_EQ(Order(), "cbBa");
}

TEST_F(AgendaTest, ACopyOfTheListSharesItsEvents) {
  Event* event = Insert("a", 1, 1);
  Liste<Event*> copy = simulation.AgendaEvents();
  EXPECT_EQ(copy.front(), event);
  copy.pop_front();
  EXPECT_EQ(simulation.AgendaEventSize(), 1);
}

TEST_F(AgendaTest, DisplayPadsClockAndPriorityToNineDigits) {
  Insert("a", 0, 0);
  Insert("b", 12345, 7);
  Insert("c", 123456789, 99);
  std::string expected = "\n état de l'agenda d'événements (avec le 1er processus seulement):";
  simulation.GoHeadInAgenda();
  const char* places[] = {"t = 0 p = 0       ", "t = 12345 p = 7   ", "t = 123456789 p = 99 "};
  for (int rank = 1; rank <= 3; ++rank, simulation.GoNextInAgenda()) {
    char line[200];
    std::snprintf(line, sizeof line, "\nev %d(%x) %s (0),...  UNSPECIFIED ACTION,... '   '", rank,
                  Address32(simulation.GetCurrentInAgenda()), places[rank - 1]);
    expected += line;
  }
  EXPECT_EQ(OutputOf([&] { simulation.DisplayAgendaEvents(); }), expected + "\n");
}

}  // namespace
