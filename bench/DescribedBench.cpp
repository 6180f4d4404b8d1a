// Access to values by id on an entity with twenty descriptors, against a struct field behind two indexed
// reads; entities with descriptors, made and freed.
#include <memory>
#include <string>
#include <vector>

#include "bench/Pair.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/engine/Simulation.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

constexpr int firstId = 20;
constexpr int accesses = 1000;

/// Descriptors 20 to 39, by turns of int, double, float and text; the last five are constants.
class Animal : public Entity {
 public:
  Animal() {
    SetMetaClass(10);
    for (int id = firstId; id < firstId + 15; id += 3) {
      AddVariableDescriptor(new IntVariableDescriptor(id, "int"));
      AddVariableDescriptor(new DoubleVariableDescriptor(id + 1, "double"));
      AddVariableDescriptor(new StringVariableDescriptor(id + 2, "text"));
    }
    for (int id = firstId + 15; id < firstId + 20; ++id)
      AddConstantDescriptor(new IntConstantDescriptor(id, "constant"));
    AddInstanceToClass();
  }
};

struct World {
  World() {
    pCurrentSim = &simulation;
    K_InstallMetaClasses();
    CreateMetaClass(10, "Animal")->SetParentClassId(KV_ENTITY);
    SetHierarchy();
  }
  Simulation simulation;
};

/// The plain way: a field of an object, found through a table of positions.
struct Field {
  int number = 0;
  double real = 0.0;
  std::string text;
};
struct PlainAnimal {
  std::vector<int> positions;
  std::vector<std::unique_ptr<Field>> fields;
  PlainAnimal() {
    positions.assign(firstId + 20, -9);
    for (int id = firstId; id < firstId + 20; ++id) {
      positions[static_cast<std::size_t>(id)] = static_cast<int>(fields.size());
      fields.push_back(std::make_unique<Field>());
    }
  }
  Field& At(int id) { return *fields[static_cast<std::size_t>(positions[static_cast<std::size_t>(id)])]; }
};

template <class Kernel, class Plain>
void MeasureAccess(benchmark::State& state, Kernel kernel, Plain plain) {
  const World world;
  auto* const animal = new Animal();
  PlainAnimal plainAnimal;
  MeasurePair(
      state, accesses,
      [&] {
        for (int i = 0; i < accesses; ++i) kernel(*animal, i);
      },
      [&] {
        for (int i = 0; i < accesses; ++i) plain(plainAnimal, i);
      });
  DeleteEntity(animal);
}

constexpr int intId = firstId + 12;
constexpr int doubleId = firstId + 13;
constexpr int textId = firstId + 14;
constexpr int constantId = firstId + 18;

void SetInt(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int i) { a.SetIntValue(intId, i); },
      [](PlainAnimal& a, int i) { benchmark::DoNotOptimize(a.At(intId).number = i); });
}
void GetInt(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int) { benchmark::DoNotOptimize(a.GetIntValue(intId)); },
      [](PlainAnimal& a, int) { benchmark::DoNotOptimize(a.At(intId).number); });
}
void GetIntConstant(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int) { benchmark::DoNotOptimize(a.GetIntValue(constantId)); },
      [](PlainAnimal& a, int) { benchmark::DoNotOptimize(a.At(constantId).number); });
}
void SetDouble(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int i) { a.SetDoubleValue(doubleId, i); },
      [](PlainAnimal& a, int i) { benchmark::DoNotOptimize(a.At(doubleId).real = i); });
}
void GetDouble(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int) { benchmark::DoNotOptimize(a.GetDoubleValue(doubleId)); },
      [](PlainAnimal& a, int) { benchmark::DoNotOptimize(a.At(doubleId).real); });
}
void SetText(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int) { a.SetStringValue(textId, "a text of no great length"); },
      [](PlainAnimal& a, int) { a.At(textId).text = "a text of no great length"; });
}
void GetText(benchmark::State& state) {
  MeasureAccess(
      state, [](Animal& a, int) { benchmark::DoNotOptimize(a.GetStringValue(textId)); },
      [](PlainAnimal& a, int) { benchmark::DoNotOptimize(a.At(textId).text.c_str()); });
}
BENCHMARK(SetInt)->UseManualTime();
BENCHMARK(GetInt)->UseManualTime();
BENCHMARK(GetIntConstant)->UseManualTime();
BENCHMARK(SetDouble)->UseManualTime();
BENCHMARK(GetDouble)->UseManualTime();
BENCHMARK(SetText)->UseManualTime();
BENCHMARK(GetText)->UseManualTime();

void MakeAndFree(benchmark::State& state) {
  constexpr int count = 100000;
  const World world;
  MeasurePair(
      state, count,
      [] {
        std::vector<Animal*> animals;
        for (int i = 0; i < count; ++i) animals.push_back(new Animal());
        for (Animal* animal : animals) DeleteEntity(animal);
      },
      [] {
        std::vector<std::unique_ptr<PlainAnimal>> animals;
        for (int i = 0; i < count; ++i) animals.push_back(std::make_unique<PlainAnimal>());
      });
}
BENCHMARK(MakeAndFree)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
