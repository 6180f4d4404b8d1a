// The indexed agenda in lock-step with the plain walk, which a predicate of one's own asks for: order,
// answers, flag and cursor must never differ, and the index must keep its rule.
#include "kalve/engine/AgendaIndex.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>

#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"

/// Looks into the index.
struct AgendaProbe {
  /// Every cell in front of a fence's cell has a key of at most the bound of the fence before; fences stand
  /// in the order of the cells; events count the fences on their cells.
  static void ExpectRule(const AgendaIndex& index) {
    std::map<const AgendaIndex::AgendaCell*, int> rankOf{{nullptr, index.mAgenda.size()}};
    std::vector<AgendaIndex::Key> highestBefore{std::numeric_limits<AgendaIndex::Key>::min()};
    for (auto* cell = index.Head(); cell != nullptr; cell = cell->GetNextCell()) {
      rankOf.emplace(cell, static_cast<int>(rankOf.size()) - 1);
      highestBefore.push_back(std::max(highestBefore.back(), AgendaIndex::KeyOf(cell->GetItem())));
    }
    std::map<const Event*, int> fencesOn;
    const AgendaFences& fences = index.mFences;
    ASSERT_EQ(fences.Bound(fences.Last()), AgendaFences::infinite);
    ASSERT_EQ(fences.CellAt(fences.First()), nullptr);
    std::size_t count = 1;
    for (auto fence = fences.First(); fence != fences.Last(); ++count) {
      const AgendaFences::Place before = fence;
      fence = fences.Next(fence);
      ASSERT_EQ(fences.Previous(fence), before);
      ASSERT_LT(fences.Bound(before), fences.Bound(fence));
      ASSERT_EQ(fences.LowerBound(fences.Bound(fence)), fence);
      ASSERT_EQ(fences.LowerBound(fences.Bound(before) + 1), fence);
      auto* const cell = fences.CellAt(fence);
      ASSERT_TRUE(rankOf.contains(cell)) << "a fence stands on a freed cell";
      const int rank = rankOf[cell];
      ASSERT_LE(highestBefore[static_cast<std::size_t>(rank)], fences.Bound(before));
      ASSERT_LE(rankOf[index.CellOf(before)], rank);
      if (cell != nullptr) ++fencesOn[cell->GetItem()];
      if (fences.IsExact(fence)) {
        ASSERT_EQ(AgendaIndex::KeyOf(cell->GetItem()), fences.Bound(fence));
      }
    }
    if (fences.IsExact(fences.First())) {
      ASSERT_EQ(AgendaIndex::KeyOf(index.Head()->GetItem()), fences.Bound(fences.First()));
    }
    ASSERT_EQ(count, fences.size());
    for (auto* cell = index.Head(); cell != nullptr; cell = cell->GetNextCell())
      ASSERT_EQ(cell->GetItem()->mFences, fencesOn[cell->GetItem()]);
  }
  static const AgendaIndex& IndexOf(const Simulation& simulation) { return simulation.mAgendaIndex; }
  static std::size_t FenceCount(const Simulation& simulation) { return IndexOf(simulation).mFences.size(); }
};

namespace {

int PlainOrder(Event* a, Event* b) { return BeforeByDatePriority(a, b); }

int LatestFirst(Event* a, Event* b) {
  gEquallyPlacedEventFlag = a->OccurrenceClockTime() == b->OccurrenceClockTime() ? 1 : 0;
  return a->OccurrenceClockTime() > b->OccurrenceClockTime() ? 1 : 0;
}

/// Two agendas to which the same is done, with events in pairs of one name.
class LockStep {
 public:
  explicit LockStep(unsigned seed) : random(seed) {
    plain.AssignBeforeInAgendaMethod(PlainOrder);
    for (Simulation* simulation : Both()) simulation->SetEndClock(95);
    for (std::size_t i = 0; i < processes.size(); ++i)
      processes[i] = new DiscreteProcess(static_cast<int>(i), i % 2 == 0 ? "traite" : "vêlage");
  }
  ~LockStep() {
    while (!pairs.empty()) Free(0);
    for (DiscreteProcess* process : processes) process->DeleteInDepth();
  }

  void Turn() {
    switch (Below(12)) {
      case 0:
      case 1:
      case 2:
      case 3:
        return InsertNew();
      case 4: {
        const Pair pair = NewPair(Below(130), Below(4));
        return Do([&](Simulation& s, Event* e) { return s.PushBackToAgendaEvents(e), 1; }, pair);
      }
      case 5:
        return WithSome([&](const Pair& pair) {  // once more, the same event
          Do(
              [](Simulation& s, Event* e) {
                return s.InsertInAgendaEvents(e, e->PriorityDegree(), e->OccurrenceClockTime());
              },
              pair);
        });
      case 6:
        return WithSome([&](const Pair& pair) {
          const int clock = Below(100);
          for (Event* event : pair) event->SetOccurrenceClockTime(clock);
        });
      case 7:
        return WithSome([&](const Pair& pair) {
          const auto priority = static_cast<short>(Below(4));
          for (Event* event : pair) event->SetPriorityDegree(priority);
        });
      case 8:
        return WithSome([&](const Pair& pair) {
          Do([](Simulation& s, Event* e) { return s.RemoveFromAgendaEvents(e), 1; }, pair);
        });
      case 9:
        return RemoveAtCursor();
      case 10:
        return Pop();
      default:
        return Rarely();
    }
  }

  void Compare() {
    ASSERT_EQ(indexed.AgendaEventSize(), plain.AgendaEventSize());
    ASSERT_EQ(Names(indexed), Names(plain));
    ASSERT_NO_FATAL_FAILURE(AgendaProbe::ExpectRule(AgendaProbe::IndexOf(indexed)));
  }

  Simulation indexed;
  Simulation plain;

 private:
  using Pair = std::array<Event*, 2>;
  std::array<Simulation*, 2> Both() { return {&indexed, &plain}; }
  int Below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }

  Pair NewPair(int clock, int priority) {
    Pair pair{};
    const int process = Below(8);
    for (Event*& event : pair) {
      event = new Event(static_cast<int>(++made), "e");
      event->SetInstanceName(std::to_string(made / 2).c_str());
      event->SetOccurrenceClockTime(clock);
      event->SetPriorityDegree(static_cast<short>(priority));
      if (process < 4) event->AddProcessAction(processes[static_cast<std::size_t>(process)], EXEC);
    }
    pairs.push_back(pair);
    return pair;
  }

  /// The same operation on both: the same answer, flag and cursor.
  template <class Operation>
  void Do(Operation operation, const Pair& pair) {
    std::array<int, 2> answers{};
    std::array<int, 2> flags{};
    for (std::size_t i = 0; i < 2; ++i) {
      gEquallyPlacedEventFlag = 7;
      answers[i] = operation(*Both()[i], pair[i]);
      flags[i] = gEquallyPlacedEventFlag;
    }
    ASSERT_EQ(answers[0], answers[1]);
    ASSERT_EQ(flags[0], flags[1]);
    ASSERT_EQ(CursorName(indexed), CursorName(plain));
  }

  void InsertNew() {
    const Pair pair = NewPair(Below(100), Below(4));
    Do([](Simulation& s,
          Event* e) { return s.InsertInAgendaEvents(e, e->PriorityDegree(), e->OccurrenceClockTime()); },
       pair);
  }

  template <class Use>
  void WithSome(Use use) {
    if (!pairs.empty()) use(pairs[static_cast<std::size_t>(Below(static_cast<int>(pairs.size())))]);
  }

  void RemoveAtCursor() {
    const int steps = Below(30);
    for (Simulation* simulation : Both()) {
      simulation->GoHeadInAgenda();
      for (int i = 0; i < steps; ++i) simulation->GoNextInAgenda();
      if (simulation->IsCurrentInAgenda()) simulation->RemoveCurrentInAgenda();
    }
  }

  void Pop() {
    if (indexed.IsEmptyAgendaEvents() != 0) return;
    const std::string name = indexed.DepileAgendaEvents()->InstanceName();
    ASSERT_EQ(name, plain.DepileAgendaEvents()->InstanceName());
  }

  /// Delays, other predicates, and the freeing of events that stand nowhere any more.
  void Rarely() {
    const int choice = Below(40);
    if (choice == 0) return SwitchOrder();
    if (choice < 4 && indexed.IsEmptyAgendaEvents() == 0) {
      const int delay = Below(30);
      for (Simulation* simulation : Both()) {
        simulation->GoHeadInAgenda();
        simulation->DelayInAgendaEvents(simulation->GetCurrentInAgenda(), delay);
      }
      return;
    }
    if (pairs.size() > 80) Free(static_cast<std::size_t>(Below(static_cast<int>(pairs.size()))));
  }

  void SwitchOrder() {
    isUsual = !isUsual;
    indexed.AssignBeforeInAgendaMethod(isUsual ? BeforeByDatePriority : LatestFirst);
    plain.AssignBeforeInAgendaMethod(isUsual ? PlainOrder : LatestFirst);
  }

  void Free(std::size_t at) {
    for (std::size_t i = 0; i < 2; ++i) {
      for (int before = -1; before != Both()[i]->AgendaEventSize();) {
        before = Both()[i]->AgendaEventSize();
        Both()[i]->RemoveFromAgendaEvents(pairs[at][i]);
      }
      pairs[at][i]->DeleteInDepth();
    }
    pairs.erase(pairs.begin() + static_cast<std::ptrdiff_t>(at));
  }

  static std::string CursorName(Simulation& simulation) {
    return simulation.IsCurrentInAgenda() ? simulation.GetCurrentInAgenda()->InstanceName() : "off";
  }
  static std::string Names(Simulation& simulation) {
    std::string names;
    Liste<Event*> agenda = simulation.AgendaEvents();
    for (agenda.go_head(); agenda.is_current_in(); agenda.go_next())
      names += std::string(agenda.current()->InstanceName()) + " ";
    return names;
  }

  std::mt19937 random;
  std::vector<Pair> pairs;
  std::array<DiscreteProcess*, 4> processes{};
  unsigned made = 1;
  bool isUsual = true;
};

TEST(AgendaIndex, NobodyCanTellItFromThePlainWalk) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    LockStep agendas(seed);
    for (int turn = 0; turn < 2000; ++turn) {
      ASSERT_NO_FATAL_FAILURE(agendas.Turn()) << "seed " << seed << ", turn " << turn;
      ASSERT_NO_FATAL_FAILURE(agendas.Compare()) << "seed " << seed << ", turn " << turn;
    }
  }
}

TEST(AgendaIndex, LearnsFromInsertionsAndShrinksWithTheAgenda) {
  Simulation simulation;
  for (int i = 0; i < 1000; ++i) simulation.InsertInAgendaEvents(new Event("e"), 5, (i * 7919) % 1000);
  EXPECT_GT(AgendaProbe::FenceCount(simulation), 500U);
  while (simulation.IsEmptyAgendaEvents() == 0) simulation.DepileAgendaEvents()->DeleteInDepth();
  EXPECT_LE(AgendaProbe::FenceCount(simulation), 2U);
}

}  // namespace
