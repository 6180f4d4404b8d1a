// The expansion of an entity specification over a hundred thousand instances, against a loop written by hand
// over the same entities.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "bench/Pair.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/engine/Simulation.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"

namespace {

constexpr int cow = 10;
constexpr int age = 20;
constexpr int weight = 21;
constexpr int instances = 100000;

class Cow : public Entity {
 public:
  Cow() {
    SetMetaClass(cow);
    AddConstantDescriptor(new IntConstantDescriptor(age, "age"));
    AddVariableDescriptor(new DoubleVariableDescriptor(weight, "weight"));
    AddInstanceToClass();
  }
};

/// A simulation with its cows.
class Herd {
 public:
  Herd() {
    pCurrentSim = &mSimulation;
    K_InstallMetaClasses();
    CreateMetaClass(cow, "Cow")->SetParentClassId(KV_ENTITY);
    SetHierarchy();
    for (int i = 0; i < instances; ++i) {
      mCows.push_back(new Cow);
      mCows.back()->SetIntValue(age, i % 10);
      mCows.back()->SetDoubleValue(weight, 300.0 + i % 400);
    }
  }
  Herd(const Herd&) = delete;
  Herd& operator=(const Herd&) = delete;
  ~Herd() {
    for (Cow* animal : mCows) DeleteEntity(animal);
    for (MetaClass* metaClass : gMetaClassTab) delete metaClass;
    gMetaClassTab.erase();
    gMetaClassIdTab.erase();
    pCurrentSim = nullptr;
  }
  const std::vector<Cow*>& Cows() const { return mCows; }

 private:
  Simulation mSimulation;
  std::vector<Cow*> mCows;
};

bool IsEven(const BasicEntity& entity) { return entity.InstanceNumber() % 2 == 0; }

bool SelectsEven(EntitySpecMethod* method) {
  return IsEven(*method->GetBasicEntityArgValue(CANDIDATEENTITY_ARGUMENT));
}

void ExpandByPredicate(benchmark::State& state) {
  const Herd herd;
  EntitySpec spec(cow);
  spec.AssignSelectorPredicate(SelectsEven);
  std::vector<Cow*> found;
  MeasurePair(
      state, instances, [&] { spec.Expand(); },
      [&] {
        found.clear();
        for (Cow* animal : herd.Cows())
          if (IsEven(*animal)) found.push_back(animal);
        benchmark::DoNotOptimize(found.data());
      });
}

/// Most cows meet the first condition and come to the second.
void ExpandByTwoConditionsAndPredicate(benchmark::State& state) {
  const Herd herd;
  EntitySpec spec(cow);
  spec.AssignSelectorPredicate(SelectsEven);
  spec.AddDescValueSpec(new DescIntValueSpec(age, IN, 0, 8));
  spec.AddDescValueSpec(new DescDoubleValueSpec(weight, NOT_IN, 300.0, 320.0));
  std::vector<Cow*> found;
  MeasurePair(
      state, instances, [&] { spec.Expand(); },
      [&] {
        found.clear();
        for (Cow* animal : herd.Cows()) {
          const int years = static_cast<IntConstantDescriptor*>(animal->GetDescriptor(age))->GetIntValue();
          if (years < 0 || years > 8) continue;
          auto* const kilos = static_cast<DoubleVariableDescriptor*>(animal->GetDescriptor(weight));
          if (kilos->GetDoubleValue(0) >= 300.0 && kilos->GetDoubleValue(0) <= 320.0) continue;
          if (IsEven(*animal)) found.push_back(animal);
        }
        benchmark::DoNotOptimize(found.data());
      });
}

/// What a caller reads: the expansion without dead entities and those of the engine.
void ReadExpansion(benchmark::State& state) {
  const Herd herd;
  EntitySpec spec(cow);
  spec.AssignSelectorPredicate(SelectsEven);
  spec.Expand();
  std::vector<Cow*> found;
  for (Cow* animal : herd.Cows())
    if (IsEven(*animal)) found.push_back(animal);
  constexpr int evenOnes = instances / 2;
  MeasurePair(
      state, evenOnes, [&] { benchmark::DoNotOptimize(spec.GetExpansion()->size()); },
      [&] {
        std::size_t kept = 0;
        for (Cow* animal : found)
          if (animal->IsEngineManaged() == 0) found[kept++] = animal;
        found.resize(kept);
        benchmark::DoNotOptimize(found.data());
      });
}

/// By a described value, as a selection does it, against std::stable_sort on the same values.
void SortByValue(benchmark::State& state) {
  const Herd herd;
  std::vector<double> shuffled;
  for (int i = 0; i < instances; ++i)
    shuffled.push_back(300.0 + 0.01 * static_cast<int>((i * 7919LL) % instances));
  Tableau<DescriptedEntity*> table;
  const auto refill = [&] {
    table.erase();
    for (std::size_t i = 0; i < shuffled.size(); ++i) {
      herd.Cows()[i]->SetDoubleValue(weight, shuffled[i]);
      table.push_back(herd.Cows()[i]);
    }
  };
  struct Plain {
    double weight;
  };
  std::vector<Plain> plain(shuffled.size());
  std::vector<Plain*> order(shuffled.size());
  MeasurePair(
      state, instances,
      [&] {
        refill();
        SortUp(&table, weight);
      },
      [&] {
        for (std::size_t i = 0; i < shuffled.size(); ++i) {
          plain[i].weight = shuffled[i];
          order[i] = &plain[i];
        }
        std::stable_sort(order.begin(), order.end(),
                         [](const Plain* a, const Plain* b) { return a->weight < b->weight; });
        benchmark::DoNotOptimize(order.data());
      });
}

/// A value drawn from a domain of three intervals, against two draws of rand().
void DrawFromDomain(benchmark::State& state) {
  constexpr int draws = 1000;
  DescIntValueSpec domain(IN);
  domain.AddSubDomain(1, 100);
  domain.AddSubDomain(201, 300);
  domain.AddSubDomain(401, 500);
  MeasurePair(
      state, draws,
      [&] {
        for (int i = 0; i < draws; ++i) benchmark::DoNotOptimize(domain.GetValueInDomain());
      },
      [] {
        for (int i = 0; i < draws; ++i)
          benchmark::DoNotOptimize(1 + 200 * (std::rand() % 3) + std::rand() % 100);
      });
}

BENCHMARK(SortByValue)->UseManualTime();
BENCHMARK(DrawFromDomain)->UseManualTime();
BENCHMARK(ExpandByPredicate)->UseManualTime();
BENCHMARK(ExpandByTwoConditionsAndPredicate)->UseManualTime();
BENCHMARK(ReadExpansion)->UseManualTime();

}  // namespace
