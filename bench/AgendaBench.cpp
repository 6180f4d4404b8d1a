// Insertion at both ends of an agenda of a thousand events, and popping with disposal, against a sorted
// linked list of plain records.
#include <algorithm>
#include <list>

#include "bench/Pair.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"

namespace {

constexpr int pending = 1000;

struct Record {
  int clock;
  int priority;
};

using Records = std::list<Record*>;

void Insert(Records& records, Record* record) {
  auto at = records.begin();
  while (at != records.end() && ((*at)->clock < record->clock ||
                                 ((*at)->clock == record->clock && (*at)->priority <= record->priority)))
    ++at;
  records.insert(at, record);
}

/// One event inserted before or behind a thousand others and taken out again.
void InsertAt(benchmark::State& state, int clock) {
  Simulation simulation;
  pCurrentSim = &simulation;
  Records records;
  for (int i = 0; i < pending; ++i) {
    simulation.InsertInAgendaEvents(new Event("waiting"), 50, 1000 + i);
    Insert(records, new Record{1000 + i, 50});
  }
  Event event("moving");
  Record record{clock, 50};
  MeasurePair(
      state, 1,
      [&] {
        simulation.InsertInAgendaEvents(&event, 50, clock);
        simulation.RemoveFromAgendaEvents(&event);
      },
      [&] {
        Insert(records, &record);
        records.erase(std::find(records.begin(), records.end(), &record));
      });
  for (Record* r : records) delete r;
}

void AgendaInsertAtHead(benchmark::State& state) { InsertAt(state, 1); }
void AgendaInsertAtTail(benchmark::State& state) { InsertAt(state, 100000); }
BENCHMARK(AgendaInsertAtHead)->UseManualTime();
BENCHMARK(AgendaInsertAtTail)->UseManualTime();

/// A thousand events, made, inserted in reverse order, popped and freed.
void AgendaPopAndDispose(benchmark::State& state) {
  Simulation simulation;
  pCurrentSim = &simulation;
  MeasurePair(
      state, pending,
      [&] {
        for (int clock = pending; clock > 0; --clock)
          simulation.InsertInAgendaEvents(new Event("passing"), 50, clock);
        for (int iteration = 0; !simulation.IsEmptyAgendaEvents();) simulation.RunCore(iteration);
      },
      [] {
        Records records;
        for (int clock = pending; clock > 0; --clock) Insert(records, new Record{clock, 50});
        for (; !records.empty(); records.pop_front()) delete records.front();
      });
}
BENCHMARK(AgendaPopAndDispose)->UseManualTime();

}  // namespace
