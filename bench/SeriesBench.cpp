// Recording of a number in a time series against std::vector: one long series, and many that grow in turn.
// Counters: bytes of the heap per point of both (kalve_bytes, plain_bytes).
#include <memory>
#include <vector>

#include "bench/Heap.h"
#include "bench/Pair.h"
#include "kalve/outputs/DescTimeSeries.h"

namespace {

// Bytes per point that `record` leaves on the heap.
template <class Record, class Series>
double BytesPerPoint(int points, std::vector<Series>& series, Record record) {
  const double before = HeapBytes();
  record(series);
  return (HeapBytes() - before) / points;
}

void Record(std::vector<std::unique_ptr<DescTimeSeries>>& series, int clocks) {
  for (auto& one : series) one = std::make_unique<DescTimeSeries>(nullptr);
  for (int clock = 0; clock < clocks; ++clock)
    for (auto& one : series) one->AddClockDoubleValueItem(clock, clock * 0.5);
}

void Record(std::vector<std::vector<PlainPoint>>& series, int clocks) {
  for (auto& one : series) one = {};
  for (int clock = 0; clock < clocks; ++clock)
    for (auto& one : series) one.push_back({clock, DOUBLE, clock * 0.5});
}

void RecordNumbers(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const int clocks = static_cast<int>(state.range(1));
  const int points = static_cast<int>(count) * clocks;
  std::vector<std::unique_ptr<DescTimeSeries>> series(count);
  std::vector<std::vector<PlainPoint>> plain(count);
  state.counters["kalve_bytes"] = BytesPerPoint(points, series, [&](auto& s) { Record(s, clocks); });
  state.counters["plain_bytes"] = BytesPerPoint(points, plain, [&](auto& s) { Record(s, clocks); });
  MeasurePair(
      state, points, [&] { Record(series, clocks); }, [&] { Record(plain, clocks); });
}
BENCHMARK(RecordNumbers)
    ->Args({1, 1000000})
    ->Args({200, 5000})
    ->Args({20000, 50})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Another value at the clock of the last point.
void ReplaceNumber(benchmark::State& state) {
  constexpr int count = 100000;
  DescTimeSeries series(nullptr);
  std::vector<PlainPoint> plain{{1, DOUBLE, 0.0}};
  MeasurePair(
      state, count,
      [&] {
        for (int i = 0; i < count; ++i) {
          series.AddClockDoubleValueItem(1, i);
          benchmark::ClobberMemory();
        }
      },
      [&] {
        for (int i = 0; i < count; ++i) {
          if (plain.back().clock == 1) plain.back().value = i;
          benchmark::DoNotOptimize(plain.data());
          benchmark::ClobberMemory();
        }
      });
}
BENCHMARK(ReplaceNumber)->UseManualTime();

}  // namespace
