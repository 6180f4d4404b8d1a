// The main loop: what is popped, when it ends, what it prints.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Chronometer.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Owned.h"

namespace {

/// Every run of digits as one '#', and so every address in brackets: hours and durations vary too.
std::string Masked(const std::string& text) {
  std::string masked;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t hexEnd = text.find_first_not_of("0123456789abcdef", i + 1);
    const bool isAddress =
        text[i] == '(' && hexEnd != std::string::npos && hexEnd > i + 1 && text[hexEnd] == ')';
    const bool isDigit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    if (isAddress) {
      masked += "(#)";
      i = hexEnd;
    } else if (!isDigit) {
      masked += text[i];
    } else if (masked.empty() || masked.back() != '#') {
      masked += '#';
    }
  }
  return masked;
}

class RunTest : public testing::Test {
 protected:
  RunTest() { pCurrentSim = &simulation; }
  ~RunTest() override { pCurrentSim = nullptr; }

  void Post(const char* name, int clock) {
    auto* event = new Event(name);
    if (simulation.InsertInAgendaEvents(event, 10, clock) == 0) event->DeleteInDepth();
  }

  /// Each word lets one event pass, and the last one ends the last dialogue.
  static std::string Words(int number) {
    std::string words;
    for (; number > 0; --number) words += "go ";
    return words;
  }

  Simulation simulation;
};

TEST_F(RunTest, EndsOnAnEmptyAgendaWithItsLastWord) {
  Post("b", 20);
  Post("a", 10);
  EXPECT_EQ(OutputOf(
                [&] {
                  simulation.Run();
                  std::printf("%d %d %d", simulation.Clock(), simulation.GetIterationCounter(),
                              simulation.AgendaEventSize());
                },
                Words(3)),
            "FIN RUN\n20 2 0");
}

TEST_F(RunTest, AnEventAtTheEndClockIsAppliedAndOneBehindItRefused) {
  simulation.SetEndClock(30);
  Post("last", 30);
  Post("late", 31);
  EXPECT_EQ(simulation.AgendaEventSize(), 1);
  EXPECT_EQ(simulation.RunBatch(K_INTMAX), 1);
  EXPECT_EQ(simulation.Clock(), 30);
}

TEST_F(RunTest, StopsAtItsIterationLimitAndGoesOnFromThere) {
  for (int clock = 1; clock <= 8; ++clock) Post("e", clock);
  EXPECT_EQ(OutputOf(
                [&] {
                  simulation.Run(5);
                  std::printf("%d ", simulation.AgendaEventSize());
                  simulation.Run(2);
                  std::printf("%d %d", simulation.AgendaEventSize(), simulation.Clock());
                },
                Words(6 + 3)),
            "FIN RUN\n3 FIN RUN\n1 7");
}

TEST_F(RunTest, ALimitedRunTellsItsPercentageOncePerHundredth) {
  for (int clock = 1; clock <= 350; ++clock) Post("e", clock);
  simulation.ClockTimeUnit(DAY);
  simulation.ClockTimeUnitQuantity(1);
  const std::string output = OutputOf([&] { simulation.Run(300); }, "EXEC CONTINU 0 " + Words(300));
  EXPECT_NE(output.find(" UT 3}\n\nUPDATE DATE {"), std::string::npos);
  for (const char* told : {" UT 4 | 1%}\n", " UT 7 | 2%}\n", " UT 298 | 99%}\n"})
    EXPECT_NE(output.find(told), std::string::npos) << told << output;
  EXPECT_EQ(std::ranges::count(output, '%'), 99);
}

TEST_F(RunTest, ABatchTellsNothingEvenBehindAStoppedRun) {
  for (int clock = 1; clock <= 3; ++clock) Post("e", clock);
  simulation.ClockTimeUnit(DAY);
  simulation.ClockTimeUnitQuantity(1);
  const std::string output = OutputOf(
      [&] {
        simulation.Run();
        std::printf("%d", simulation.RunBatch(2));
      },
      "EXEC CONTINU 0 STOP ");
  EXPECT_TRUE(output.ends_with("UT 1}\nFIN RUN\n2")) << output;
}

TEST_F(RunTest, AnEventBehindTheEndClockStopsTheRunUnappliedAndUnfreed) {
  const OwnedEvent owned = MakeEvent("late");
  Event& late = *owned;
  late.SetOccurrenceClockTime(50);
  simulation.SetEndClock(40);
  simulation.PushBackToAgendaEvents(&late);
  int iteration = 0;
  simulation.RunCore(iteration);
  EXPECT_EQ(simulation.ToBeStopped(), 1);
  EXPECT_EQ(simulation.Clock(), 0);
  EXPECT_EQ(simulation.CurrentlyPoppedEvent(), &late);
  EXPECT_STREQ(late.ClassName(), "late");
}

TEST_F(RunTest, TracesTheAgendaWhileThePreviousClockIsInTheRange) {
  for (int clock : {5, 6, 7}) Post("e", clock);
  g_KV_actionLog_begClock = 5;
  g_KV_actionLog_endClock = 5;
  const std::string output = OutputOf([&] { simulation.Run(); }, Words(4));
  g_KV_actionLog_begClock = 0;
  g_KV_actionLog_endClock = -1;
  EXPECT_EQ(Masked(output),
            "\n=====>dépilement # à partir de :  #h#'#\n"
            "\n état de l'agenda d'événements (avec le #er processus seulement):"
            "\nev #(#) t = # p = #       (#),...  UNSPECIFIED ACTION,... '   '"
            "\nev #(#) t = # p = #       (#),...  UNSPECIFIED ACTION,... '   '\n"
            "FIN RUN\n");
  EXPECT_NE(output.find("dépilement 2 "), std::string::npos);
  EXPECT_NE(output.find(" t = 6 p = 10 "), std::string::npos);
}

TEST_F(RunTest, AnActiveChronometerSaysHowLongTheRunTook) {
  Post("e", 1);
  const std::string output = OutputOf(
      [&] {
        InitChrono();
        StartChrono();
        simulation.Run();
      },
      Words(2));
  EXPECT_EQ(Masked(output), "DUREE EXECUTION : #''#\nFIN RUN\n");
  EXPECT_EQ(output.size(), std::string("DUREE EXECUTION : 0''000\nFIN RUN\n").size());
}

TEST_F(RunTest, TheDestructorFreesWhatIsLeftAndKeepsTheClock) {
  const int living = Event::getNbConst() - Event::getNbDest();
  {
    Simulation other;
    pCurrentSim = &other;
    for (int clock : {1, 2, 3}) other.InsertInAgendaEvents(new Event("e"), 1, clock);
    other.Clock(77);
    const Simulation copy(other);
    EXPECT_EQ(copy.AgendaEventSize(), 3);
    EXPECT_NE(copy.AgendaEvents().front(), other.AgendaEvents().front());
    EXPECT_EQ(copy.Clock(), 77);
    EXPECT_STREQ(copy.GetInDir(), "");
  }
  EXPECT_EQ(gFinalClock, 77);
  EXPECT_EQ(Event::getNbConst() - Event::getNbDest(), living);
}

TEST_F(RunTest, EndDateGivesTheEndClockAndShortYearsAreAfter2000) {
  simulation.ClockTimeUnit(HOUR);
  simulation.ClockTimeUnitQuantity(2);
  simulation.SetBeginningDate(1, 1, 8);
  simulation.SetEndDate(3, 1, 8, 1, 0, 0);
  EXPECT_EQ(*simulation.BeginningDate(), Date(2008, 1, 1, 0, 0, 0));
  EXPECT_EQ(*simulation.EndDate(), Date(2008, 1, 3, 1, 0, 0));
  EXPECT_EQ(simulation.EndTime(), 49 * 3600);
  EXPECT_EQ(simulation.EndClock(), 24);
  simulation.SetEndDate(1, 1, 99);
  EXPECT_EQ(simulation.EndDate()->year, 2099);
}

TEST_F(RunTest, ASimulatedEntityThatWasNotSetIsAFailure) {
  EXPECT_EQ(
      FailureOf([&] { simulation.SimulatedBasicEntity(); }).rfind("\n!!!============== NoSimulatedEntity", 0),
      0U);
}

}  // namespace
