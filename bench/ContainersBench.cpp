// Tableau against std::vector, Liste against a plain linked list.
#include <vector>

#include "bench/Pair.h"
#include "kalve/foundations/Liste.h"
#include "kalve/foundations/Tableau.h"

namespace {

constexpr int itemCount = 100000;

void TableauAppend(benchmark::State& state) {
  MeasurePair(
      state, itemCount,
      [] {
        Tableau<int> table;
        for (int i = 0; i < itemCount; ++i) table.push_back(i);
        benchmark::DoNotOptimize(table.front());
      },
      [] {
        std::vector<int> vector;
        for (int i = 0; i < itemCount; ++i) vector.push_back(i);
        benchmark::DoNotOptimize(vector.data());
      });
}
BENCHMARK(TableauAppend)->UseManualTime();

void TableauIndexedRead(benchmark::State& state) {
  Tableau<int> table;
  std::vector<int> vector;
  for (int i = 0; i < itemCount; ++i) {
    table.push_back(i);
    vector.push_back(i);
  }
  MeasurePair(
      state, itemCount,
      [&] {
        long sum = 0;
        for (int i = 0; i < table.size(); ++i) sum += table[i];
        benchmark::DoNotOptimize(sum);
      },
      [&] {
        long sum = 0;
        for (std::size_t i = 0; i < vector.size(); ++i) sum += vector.at(i);
        benchmark::DoNotOptimize(sum);
      });
}
BENCHMARK(TableauIndexedRead)->UseManualTime();

struct Node {
  int item;
  Node* next;
};

void ListeWalk(benchmark::State& state) {
  Liste<int> list;
  Node* nodes = nullptr;
  for (int i = 0; i < itemCount; ++i) list.push_back(i);
  for (int i = itemCount - 1; i >= 0; --i) nodes = new Node{i, nodes};
  MeasurePair(
      state, itemCount,
      [&] {
        long sum = 0;
        for (list.go_head(); list.is_current_in(); list.go_next()) sum += list.current();
        benchmark::DoNotOptimize(sum);
      },
      [&] {
        long sum = 0;
        for (Node* node = nodes; node != nullptr; node = node->next) sum += node->item;
        benchmark::DoNotOptimize(sum);
      });
  for (Node* node = nodes; node != nullptr;) {
    Node* next = node->next;
    delete node;
    node = next;
  }
}
BENCHMARK(ListeWalk)->UseManualTime();

}  // namespace
