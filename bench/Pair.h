// A pair of measures: the kernel's way and the plain way, by turns in the same loop.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

/// Times `kernel` and `plain`, each doing `operations` operations a call. Counters: nanoseconds per operation
/// of both (kalve_ns, plain_ns) and their ratio.
template <class Kernel, class Plain>
void MeasurePair(benchmark::State& state, double operations, Kernel kernel, Plain plain) {
  using Clock = std::chrono::steady_clock;
  using Seconds = std::chrono::duration<double>;
  kernel();
  plain();
  double kernelTime = 0.0;
  double plainTime = 0.0;
  for ([[maybe_unused]] auto turn : state) {
    const auto start = Clock::now();
    kernel();
    const auto middle = Clock::now();
    plain();
    const auto end = Clock::now();
    kernelTime += Seconds(middle - start).count();
    plainTime += Seconds(end - middle).count();
    state.SetIterationTime(Seconds(middle - start).count());
  }
  const double scale = 1e9 / (static_cast<double>(state.iterations()) * operations);
  state.counters["kalve_ns"] = kernelTime * scale;
  state.counters["plain_ns"] = plainTime * scale;
  state.counters["ratio"] = kernelTime / plainTime;
}
