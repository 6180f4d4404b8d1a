// Reads and changes of a descriptor's value, plain, through a monitor and recorded, against a field of a
// struct behind a pointer.
#include "bench/Pair.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/outputs/DescTimeSeries.h"

namespace {

constexpr int operations = 10000;

enum class Way { Plain, Monitored, Recorded };

struct Ints {
  using Descriptor = IntVariableDescriptor;
  using Monitor = IntDescValueMonitor;
  using Field = int;
  static int Value(int i) { return i; }
  static void Accept(Monitor& monitor) {
    monitor.AssignWhenSetIntMethod([](MonitorMethod* m) { return m->GetIntArgValue(31); });
    monitor.AssignWhenGetIntMethod([](MonitorMethod* m) { return m->GetIntArgValue(21); });
  }
};
struct Doubles {
  using Descriptor = DoubleVariableDescriptor;
  using Monitor = DoubleDescValueMonitor;
  using Field = double;
  static double Value(int i) { return i * 0.5; }
  static void Accept(Monitor& monitor) {
    monitor.AssignWhenSetDoubleMethod([](MonitorMethod* m) { return m->GetDoubleArgValue(33); });
    monitor.AssignWhenGetDoubleMethod([](MonitorMethod* m) { return m->GetDoubleArgValue(23); });
  }
};
struct Strings {
  using Descriptor = StringVariableDescriptor;
  using Monitor = StringDescValueMonitor;
  using Field = std::string;
  static const char* Value(int i) { return i % 2 == 0 ? "Salers" : "Aubrac"; }
  static void Accept(Monitor& monitor) {
    monitor.AssignWhenSetStringMethod([](MonitorMethod* m) { return m->GetStringArgValue(34); });
    monitor.AssignWhenGetStringMethod([](MonitorMethod* m) { return m->GetStringArgValue(24); });
  }
};

template <class Row, Way way>
struct Prepared {
  typename Row::Descriptor descriptor{20, "attribute"};
  typename Row::Monitor monitor{"monitor"};
  DescTimeSeries series{nullptr};
  typename Row::Field field{};

  Prepared() {
    if constexpr (way == Way::Monitored) {
      Row::Accept(monitor);
      monitor.AttachToDescriptor(&descriptor);
    } else if constexpr (way == Way::Recorded) {
      descriptor.SetDescTimeSeries(&series);
      descriptor.IsRecorded(1);
    }
  }
};

/// A recorded change falls on the clock of the last point, which it replaces: no memory is measured.
template <class Row, Way way>
void Set(benchmark::State& state) {
  Prepared<Row, way> prepared;
  auto* descriptor = &prepared.descriptor;
  auto* field = &prepared.field;
  MeasurePair(
      state, operations,
      [&] {
        for (int i = 0; i < operations; ++i) {
          benchmark::DoNotOptimize(descriptor);
          descriptor->SetValue(Row::Value(i));
        }
      },
      [&] {
        for (int i = 0; i < operations; ++i) {
          benchmark::DoNotOptimize(field);
          *field = Row::Value(i);
        }
      });
}

template <class Row, Way way>
void Get(benchmark::State& state) {
  Prepared<Row, way> prepared;
  auto* descriptor = &prepared.descriptor;
  auto* field = &prepared.field;
  MeasurePair(
      state, operations,
      [&] {
        for (int i = 0; i < operations; ++i) {
          benchmark::DoNotOptimize(descriptor);
          benchmark::DoNotOptimize(descriptor->GetValue());
        }
      },
      [&] {
        for (int i = 0; i < operations; ++i) {
          benchmark::DoNotOptimize(field);
          benchmark::DoNotOptimize(*field);
        }
      });
}

}  // namespace

BENCHMARK(Set<Ints, Way::Plain>)->UseManualTime();
BENCHMARK(Set<Ints, Way::Monitored>)->UseManualTime();
BENCHMARK(Set<Ints, Way::Recorded>)->UseManualTime();
BENCHMARK(Get<Ints, Way::Plain>)->UseManualTime();
BENCHMARK(Get<Ints, Way::Monitored>)->UseManualTime();
BENCHMARK(Set<Doubles, Way::Plain>)->UseManualTime();
BENCHMARK(Set<Doubles, Way::Monitored>)->UseManualTime();
BENCHMARK(Set<Doubles, Way::Recorded>)->UseManualTime();
BENCHMARK(Get<Doubles, Way::Plain>)->UseManualTime();
BENCHMARK(Get<Doubles, Way::Monitored>)->UseManualTime();
BENCHMARK(Set<Strings, Way::Plain>)->UseManualTime();
BENCHMARK(Set<Strings, Way::Monitored>)->UseManualTime();
BENCHMARK(Set<Strings, Way::Recorded>)->UseManualTime();
BENCHMARK(Get<Strings, Way::Plain>)->UseManualTime();
BENCHMARK(Get<Strings, Way::Monitored>)->UseManualTime();
