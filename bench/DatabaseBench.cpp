// The copy of series into a table against a bare loop over libpq that sends the same rows. Both are timed
// until the server has them all, and have emptied the table again. The numbers of the bare loop stand ready.
#include <libpq-fe.h>

#include <cstdio>
#include <string>
#include <vector>

#include "bench/Pair.h"
#include "kalve/engine/Simulation.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "kalve/outputs/OutputSpec.h"
#include "kalve/outputs/PostgresqlMDescOS.h"
#include "tests/support/PostgresServer.h"

namespace {

constexpr int columns = 6;
constexpr int instances = 100;
constexpr int clocks = 3000;

float ValueAt(int instance, int clock, int column) {
  return static_cast<float>(instance) + static_cast<float>(clock * (column + 1)) / 64.0F;
}

std::string NameOf(int instance) { return "Cow_" + std::to_string(instance); }

/// Series without entities behind them; each column has a point at each clock.
void FillSeries(EntityOutputSpec& spec) {
  for (int i = 0; i < instances; ++i) {
    auto* const record = new EntityInstanceOS(0, &spec);
    record->SetEntityInstanceName(NameOf(i).c_str());
    int column = 0;
    for (DescriptorOS* descriptor : spec.GetDescriptorsData()) {
      auto* const series = new DescTimeSeries(descriptor);
      for (int clock = 0; clock < clocks; ++clock)
        series->AddClockFloatValueItem(clock, ValueAt(i, clock, column));
      record->AddDescTimeSeries(series);
      ++column;
    }
    spec.AddInstanceData(record);
  }
}

void CopyPlainly(const std::vector<float>& values) {
  PGconn* const connection = PQconnectdb("dbname=herd user=postgres");
  PQclear(PQexec(connection, "COPY Cow(instanceName, T, c0, c1, c2, c3, c4, c5) FROM STDIN"));
  const float* value = values.data();
  char row[500];
  for (int i = 0; i < instances; ++i) {
    const std::string name = NameOf(i);
    for (int clock = 0; clock < clocks; ++clock) {
      int length = std::snprintf(row, sizeof row, "%s\t%d", name.c_str(), clock);
      for (int column = 0; column < columns; ++column)
        length += std::snprintf(row + length, sizeof row - static_cast<std::size_t>(length), "\t%.2f",
                                static_cast<double>(*value++));
      row[length++] = '\n';
      PQputCopyData(connection, row, length);
    }
  }
  PQputCopyEnd(connection, nullptr);
  PQfinish(connection);
}

/// Nanoseconds per row.
void CopyToTable(benchmark::State& state) {
  PostgresServer server;
  server.Run("postgres", "postgres", "CREATE DATABASE herd");
  server.Run("herd", "postgres",
             "CREATE TABLE Cow (instanceName text, T integer, c0 float8, c1 float8, c2 float8, c3 float8, "
             "c4 float8, c5 float8)");
  Simulation simulation;
  pCurrentSim = &simulation;
  auto* const writer = new PostgresqlMDescOS(0, 0, 1);
  writer->RegisterEntityOS("Cow");
  for (int column = 0; column < columns; ++column)
    writer->AddDescriptorOS(("c" + std::to_string(column)).c_str(), 2);
  writer->ConfigureDatabase("postgres", "herd", "default", "");
  FillSeries(*writer->GetEntityOutputSpec());
  std::vector<float> values;
  for (int i = 0; i < instances; ++i)
    for (int clock = 0; clock < clocks; ++clock)
      for (int column = 0; column < columns; ++column) values.push_back(ValueAt(i, clock, column));
  const std::string all = std::to_string(instances * clocks) + "\n";
  const auto empty = [&] {
    server.AwaitTheOthers("herd");
    if (server.Run("herd", "postgres", "SELECT count(*) FROM Cow") != all)
      state.SkipWithError("rows are missing");
    server.Run("herd", "postgres", "TRUNCATE Cow");
  };
  MeasurePair(
      state, static_cast<double>(instances) * clocks,
      [&] {
        writer->DisplayTimeSeries();
        empty();
      },
      [&] {
        CopyPlainly(values);
        empty();
      });
  state.counters["rows_per_second"] = 1e9 / state.counters["kalve_ns"];
  DeleteOutputSpecs();
  pCurrentSim = nullptr;
}
BENCHMARK(CopyToTable)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
