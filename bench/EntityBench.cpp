// Entities against plain structures: a method call, sets that grow and shrink, a tree copied and deleted, a
// lookup by name.
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/Pair.h"
#include "kalve/engine/Simulation.h"
#include "kalve/methods/Method.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

enum BenchClass : int { ANIMAL = 10, HERD = 11 };

/// A simulation and two classes; gone at the end of a benchmark with all their instances.
class Model {
 public:
  Model() {
    pCurrentSim = new Simulation();
    K_InstallMetaClasses();
    CreateMetaClass(ANIMAL, "animal")->SetParentClassId(KV_ENTITY);
    CreateMetaClass(HERD, "herd")->SetParentClassId(KV_ENTITY);
    SetHierarchy();
  }
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;
  ~Model() { DeleteAll(); }
};

Entity* NewEntity(int classId, int elementClassId) {
  auto* const entity = new Entity();
  entity->SetMetaClass(classId);
  entity->AddInstanceToClass();
  entity->ElementClassId(elementClassId);
  return entity;
}

// Methods -------------------------------------------------------------------------------------------------

constexpr int methodId = 70;
constexpr int callCount = 100000;

int Body(EntityMethod* method) { return method->ClassSymbol(); }

void MethodCall(benchmark::State& state) {
  const Model model;
  Entity* const entity = NewEntity(ANIMAL, ANIMAL);
  auto* const method = new IntEntityMethod(methodId, "grow");
  entity->AddMethod(method);
  entity->AssignBody(methodId, Body);
  int (*function)(EntityMethod*) = Body;
  benchmark::DoNotOptimize(function);
  MeasurePair(
      state, callCount,
      [&] {
        long sum = 0;
        for (int i = 0; i < callCount; ++i) sum += entity->ExecIntMethod(methodId);
        benchmark::DoNotOptimize(sum);
      },
      [&] {
        long sum = 0;
        for (int i = 0; i < callCount; ++i) sum += function(method);
        benchmark::DoNotOptimize(sum);
      });
}
BENCHMARK(MethodCall)->UseManualTime();

// Sets ----------------------------------------------------------------------------------------------------

/// An element added to a set of a given size and taken out again, at the end of both tables.
void AddAndRemoveElement(benchmark::State& state) {
  const Model model;
  const int size = static_cast<int>(state.range(0));
  Entity* const herd = NewEntity(HERD, ANIMAL);
  herd->SetElementTabIncrement(size);
  std::vector<Entity*> plain;
  for (int i = 0; i < size; ++i) {
    Entity* const animal = NewEntity(ANIMAL, ANIMAL);
    herd->AddElementNoCheckIfNew(animal);
    plain.push_back(animal);
  }
  Entity* const moving = NewEntity(ANIMAL, ANIMAL);
  const int turns = std::max(1, 10000 / size);
  MeasurePair(
      state, turns,
      [&] {
        for (int i = 0; i < turns; ++i) {
          herd->AddElement(moving);
          herd->RemoveElement(moving);
        }
      },
      [&] {
        for (int i = 0; i < turns; ++i) {
          if (std::find(plain.begin(), plain.end(), moving) == plain.end()) plain.push_back(moving);
          benchmark::ClobberMemory();
          plain.erase(std::find(plain.begin(), plain.end(), moving));
        }
      });
}
BENCHMARK(AddAndRemoveElement)->Arg(10)->Arg(1000)->Arg(100000)->UseManualTime();

/// A set filled without the test for duplicates and emptied from its end.
void FillAndEmptySet(benchmark::State& state) {
  const Model model;
  const int size = static_cast<int>(state.range(0));
  Entity* const herd = NewEntity(HERD, ANIMAL);
  herd->SetElementTabIncrement(size);
  std::vector<Entity*> animals;
  for (int i = 0; i < size; ++i) animals.push_back(NewEntity(ANIMAL, ANIMAL));
  std::vector<Entity*> plain;
  MeasurePair(
      state, size,
      [&] {
        for (Entity* animal : animals) herd->AddElementNoCheckIfNew(animal);
        for (int i = size; i-- > 0;) herd->RemoveElement(i);
      },
      [&] {
        for (Entity* animal : animals) plain.push_back(animal);
        benchmark::ClobberMemory();
        while (!plain.empty()) plain.pop_back();
      });
}
BENCHMARK(FillAndEmptySet)->Arg(10)->Arg(1000)->Arg(100000)->UseManualTime();

// Trees ---------------------------------------------------------------------------------------------------

struct Node {
  explicit Node(std::string itsName, Node* itsSet = nullptr) : name(std::move(itsName)), set(itsSet) {}

  std::string name;
  Node* set;
  std::vector<std::unique_ptr<Node>> elements;
};

std::unique_ptr<Node> Copy(const Node& source, Node* set) {
  auto copy = std::make_unique<Node>(source.name, set);
  for (const auto& element : source.elements) copy->elements.push_back(Copy(*element, copy.get()));
  return copy;
}

/// 100 herds of 99 animals below one.
void CopyAndDeleteTree(benchmark::State& state) {
  const Model model;
  constexpr int herds = 100;
  constexpr int animals = 99;
  Entity* const root = NewEntity(HERD, HERD);
  Node plain("herd_1");
  for (int i = 0; i < herds; ++i) {
    Entity* const herd = NewEntity(HERD, ANIMAL);
    root->AddElement(herd);
    Node& node = *plain.elements.emplace_back(std::make_unique<Node>(herd->InstanceName(), &plain));
    for (int j = 0; j < animals; ++j) {
      Entity* const animal = NewEntity(ANIMAL, ANIMAL);
      herd->AddElement(animal);
      node.elements.push_back(std::make_unique<Node>(animal->InstanceName(), &node));
    }
  }
  MeasurePair(
      state, 1 + herds * (1 + animals), [&] { CopyEntity(root)->DeleteInDepth(); },
      [&] { benchmark::DoNotOptimize(Copy(plain, nullptr).get()); });
}
BENCHMARK(CopyAndDeleteTree)->UseManualTime();

// Lookups -------------------------------------------------------------------------------------------------

void LookupByName(benchmark::State& state) {
  const Model model;
  constexpr int instances = 10000;
  std::vector<Node> plain;
  for (int i = 0; i < instances; ++i) plain.emplace_back(NewEntity(ANIMAL, ANIMAL)->InstanceName());
  const std::string last = plain.back().name;
  MeasurePair(
      state, instances, [&] { benchmark::DoNotOptimize(GetNamedEntity(last.c_str())); },
      [&] {
        const char* const name = last.c_str();
        benchmark::DoNotOptimize(
            std::find_if(plain.begin(), plain.end(), [=](const Node& node) { return node.name == name; }));
      });
}
BENCHMARK(LookupByName)->UseManualTime();

}  // namespace
