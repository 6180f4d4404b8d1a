// The run loop through RunBatch: the hold model, a full event, and the bare step of a continuous process,
// each against the same work done with a plain queue and a function pointer.
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <queue>
#include <random>
#include <string>
#include <vector>

#include "bench/Pair.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

constexpr int endless = 2000000000;
constexpr int animalClass = 10;
constexpr int weight = 20;

class Animal : public Entity {
 public:
  Animal() {
    SetMetaClass(animalClass);
    AddVariableDescriptor(new IntVariableDescriptor(weight, "weight"));
    AddInstanceToClass();
  }
};

struct World {
  World() {
    pCurrentSim = &simulation;
    K_InstallMetaClasses();
    CreateMetaClass(animalClass, "Animal")->SetParentClassId(KV_ENTITY);
    SetHierarchy();
    simulation.SetEndClock(endless);
  }
  Simulation simulation;
};

/// Delays drawn beforehand, so that both sides spend nothing on drawing.
class Delays {
 public:
  explicit Delays(int mean) {
    std::mt19937 source(7);
    std::exponential_distribution<double> law(1.0 / mean);
    for (int& delay : mDelays) delay = 1 + static_cast<int>(law(source));
  }
  int Next() { return mDelays[mNext++ & (std::size(mDelays) - 1)]; }

 private:
  int mDelays[1 << 16];
  std::size_t mNext = 0;
};

Delays* delays = nullptr;
int runs = 0;

void CountRun(ProcessMethod*) { ++runs; }
int AfterADelay(EventMethod*) { return pCurrentSim->Clock() + delays->Next(); }

/// Equally placed events of one process name and entity would count as duplicates.
Event* NewEvent(const char* name, BasicEntity* entity, void (*body)(ProcessMethod*)) {
  auto* const process = new DiscreteProcess(-1, name);
  process->SetExec(body);
  if (entity != nullptr) process->ProcessedEntity(entity);
  auto* const event = new Event(name);
  event->AddProcessAction(process, EXEC);
  return event;
}

/// Events that renew themselves after a drawn delay; `pending` of them, `passing` popped at each call.
class Hold {
 public:
  explicit Hold(int pending) : mDelays(10 * pending), mNames(static_cast<std::size_t>(pending)) {
    delays = &mDelays;
    for (std::string& name : mNames) {
      name = "work" + std::to_string(&name - mNames.data());
      Event* const event = NewEvent(name.c_str(), nullptr, CountRun);
      event->SetDefineNextEventClockTime(AfterADelay);
      event->SetGenerateNextEvent(standardEvent_generateNextEvent_Body);
      event->SetOccurrenceClockTime(mDelays.Next());
      if (pCurrentSim->InsertInAgendaEvents(event) == 0) event->DeleteInDepth();
    }
  }

 private:
  Delays mDelays;
  std::vector<std::string> mNames;
};

struct Waiting {
  void (*body)(int*);
  int* counter;
};
void Increment(int* counter) { ++*counter; }

void HoldOfPending(benchmark::State& state) {
  constexpr int passing = 20000;
  const int pending = static_cast<int>(state.range(0));
  World world;
  const Hold hold(pending);
  Delays plainDelays(10 * pending);
  std::multimap<int, Waiting> plain;
  for (int i = 0; i < pending; ++i) plain.emplace(plainDelays.Next(), Waiting{Increment, &runs});
  int popped = passing;
  MeasurePair(
      state, passing, [&] { popped = std::min(popped, world.simulation.RunBatch(passing)); },
      [&] {
        for (int i = 0; i < passing; ++i) {
          const auto first = plain.begin();
          const int clock = first->first;
          const Waiting waiting = first->second;
          plain.erase(first);
          waiting.body(waiting.counter);
          plain.emplace(clock + plainDelays.Next(), waiting);
        }
      });
  if (popped < passing) state.SkipWithError("the agenda ran dry");
}
BENCHMARK(HoldOfPending)->RangeMultiplier(10)->Range(100, 100000)->UseManualTime();

void GainWeight(ProcessMethod* method) {
  Entity* const animal = method->DescribedProcess()->ProcessedEntity();
  animal->SetIntValue(weight, animal->GetIntValue(weight) + 1);
}
void NoWork(ProcessMethod*) {}

struct PlainAnimal {
  int weight = 0;
};

/// A thousand events made, inserted, popped and freed, each with one process, against a priority queue.
void WholeEvents(benchmark::State& state, bool isBound) {
  constexpr int events = 1000;
  World world;
  auto* const animal = new Animal();
  PlainAnimal plainAnimal;
  using Dated = std::pair<int, std::function<void()>*>;
  MeasurePair(
      state, events,
      [&] {
        world.simulation.Clock(0);
        for (int clock = 0; clock < events; ++clock) {
          Event* const event =
              isBound ? NewEvent("work", animal, GainWeight) : NewEvent("work", nullptr, NoWork);
          event->SetOccurrenceClockTime(clock);
          pCurrentSim->InsertInAgendaEvents(event);
        }
        world.simulation.RunBatch(events);
      },
      [&] {
        std::priority_queue<Dated, std::vector<Dated>, std::greater<>> queue;
        for (int clock = 0; clock < events; ++clock)
          queue.emplace(clock, isBound ? new std::function<void()>([&] { ++plainAnimal.weight; })
                                       : new std::function<void()>([] {}));
        for (; !queue.empty(); queue.pop()) {
          const std::unique_ptr<std::function<void()>> body(queue.top().second);
          (*body)();
        }
        benchmark::DoNotOptimize(plainAnimal.weight);
      });
  DeleteEntity(animal);
}
void EventWithEmptyProcess(benchmark::State& state) { WholeEvents(state, false); }
void EventWithSetAndGet(benchmark::State& state) { WholeEvents(state, true); }
BENCHMARK(EventWithEmptyProcess)->UseManualTime();
BENCHMARK(EventWithSetAndGet)->UseManualTime();

/// Five million steps of one process beside a hundred pending events.
void ContinuousSteps(benchmark::State& state) {
  constexpr int steps = 5000000;
  World world;
  for (int i = 0; i < 100; ++i) {
    Event* const event = NewEvent("work", nullptr, NoWork);
    event->SetOccurrenceClockTime(steps + 1000 + i);
    pCurrentSim->InsertInAgendaEvents(event);
  }
  world.simulation.SetEndClock(steps);
  int plainRuns = 0;
  MeasurePair(
      state, steps,
      [&] {
        world.simulation.Clock(0);
        auto* const process = new ContinuousProcess(-1, "grow");
        process->SetInitialize(NoWork);
        process->SetGoOneStepForward(CountRun);
        process->PostInitAndProceedEvent(0);
        world.simulation.RunBatch(1);
      },
      [&] {
        void (*volatile source)(int*) = Increment;
        void (*const body)(int*) = source;
        const volatile int end = steps;
        for (int clock = 0; clock <= end; ++clock) body(&plainRuns);
      });
}
BENCHMARK(ContinuousSteps)->UseManualTime();

}  // namespace
