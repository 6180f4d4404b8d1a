// Outputs: a recorded change of a number against the append of a point to a vector, and the text of a dump
// against a plain loop of fprintf over the same columns.
// Counters of the change: bytes of the heap per point of both (kalve_bytes, plain_bytes).
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench/Heap.h"
#include "bench/Pair.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/engine/Simulation.h"
#include "kalve/inputs/OutputFile.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "kalve/outputs/OutputFileMDescOS.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

void RecordChanges(benchmark::State& state) {
  constexpr int count = 1000000;
  Simulation simulation;
  pCurrentSim = &simulation;
  FloatVariableDescriptor descriptor(20, "weight");
  descriptor.IsRecorded(1);
  std::unique_ptr<DescTimeSeries> series;
  std::vector<PlainPoint> plain;
  const auto record = [&] {
    series = std::make_unique<DescTimeSeries>(nullptr);
    descriptor.SetDescTimeSeries(series.get());
    for (int clock = 0; clock < count; ++clock) {
      simulation.Clock(clock);
      descriptor.SetValue(static_cast<float>(clock));
    }
  };
  const auto append = [&] {
    plain = {};
    for (int clock = 0; clock < count; ++clock) plain.push_back({clock, FLOAT, static_cast<double>(clock)});
  };
  double before = HeapBytes();
  record();
  state.counters["kalve_bytes"] = (HeapBytes() - before) / count;
  before = HeapBytes();
  append();
  state.counters["plain_bytes"] = (HeapBytes() - before) / count;
  MeasurePair(state, count, record, append);
  pCurrentSim = nullptr;
}
BENCHMARK(RecordChanges)->UseManualTime()->Unit(benchmark::kMillisecond);

constexpr int columns = 6;
constexpr int instances = 100;
constexpr int clocks = 5000;

/// Column `column` has a point at every `step`th clock, with an offset of its own.
bool HasPoint(int clock, int column, int step) { return clock == 0 || (clock + column) % step == 0; }

float ValueAt(int instance, int clock, int column) {
  return static_cast<float>(instance) + static_cast<float>(clock * (column + 1)) / 64.0F;
}

std::string Temporary(const char* name) {
  return "/tmp/kalve-output-bench-" + std::to_string(getpid()) + "-" + name;
}

/// Its series are filled by hand: no entities stand behind them.
void FillSeries(EntityOutputSpec& spec, int step) {
  for (int i = 0; i < instances; ++i) {
    auto* const record = new EntityInstanceOS(0, &spec);
    record->SetEntityInstanceName(("Cow_" + std::to_string(i)).c_str());
    int column = 0;
    for (DescriptorOS* descriptor : spec.GetDescriptorsData()) {
      auto* const series = new DescTimeSeries(descriptor);
      for (int clock = 0; clock < clocks; ++clock)
        if (HasPoint(clock, column, step)) series->AddClockFloatValueItem(clock, ValueAt(i, clock, column));
      record->AddDescTimeSeries(series);
      ++column;
    }
    spec.AddInstanceData(record);
  }
}

/// The values of the rows stand ready.
void WritePlainly(const std::string& path, const std::vector<float>& values) {
  std::FILE* const file = std::fopen(path.c_str(), "w+");
  const float* value = values.data();
  for (int i = 0; i < instances; ++i) {
    const std::string name = "Cow_" + std::to_string(i);
    for (int clock = 0; clock < clocks; ++clock) {
      std::fprintf(file, "%-6s", name.c_str());
      std::fprintf(file, "\t%d", clock);
      for (int column = 0; column < columns; ++column)
        std::fprintf(file, "\t%.2f", static_cast<double>(*value++));
      std::fprintf(file, "\n");
    }
    std::fprintf(file, "\n");
  }
  std::fclose(file);
}

/// Nanoseconds per line; the argument says how many clocks lie between two points of a column.
void DumpText(benchmark::State& state) {
  const int step = static_cast<int>(state.range(0));
  const std::string path = Temporary("kalve");
  const std::string plainPath = Temporary("plain");
  auto* const writer = new OutputFileMDescOS(CLOCK, 0, 0, 1, GRAPH_LINE, AOE_ALL);
  writer->RegisterEntityOS("Cow");
  for (int column = 0; column < columns; ++column)
    writer->AddDescriptorOS(("column" + std::to_string(column)).c_str(), 2);
  writer->ConfigureOutputFile(path.c_str(), OM_OVERWRITE);
  FillSeries(*writer->GetEntityOutputSpec(), step);
  std::vector<float> values;
  for (int i = 0; i < instances; ++i)
    for (int clock = 0; clock < clocks; ++clock)
      for (int column = 0; column < columns; ++column) {
        int last = clock;
        while (!HasPoint(last, column, step)) --last;
        values.push_back(ValueAt(i, last, column));
      }
  MeasurePair(
      state, static_cast<double>(instances) * clocks, [&] { writer->DisplayTimeSeries(); },
      [&] { WritePlainly(plainPath, values); });
  DeleteOutputSpecs();
  while (OutputFile::InstanceTab()->empty() == 0) delete OutputFile::InstanceTab()->front();
  std::remove(path.c_str());
  std::remove(plainPath.c_str());
}
BENCHMARK(DumpText)->Arg(1)->Arg(6)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
