#include "examples/herd/HerdClasses.h"

#include <cstring>

// A constructor says what the entity may hold, where it may stand and what describes it, and joins its class
// at the end.

Farm::Farm() {
  ElementClassId(FARM_UNIT);
  SetMetaClass(FARM);
  AddInstanceToClass();
}

FarmUnit::FarmUnit() {
  SuperSetClassId(FARM);
  SetMetaClass(FARM_UNIT);
  AddInstanceToClass(0);  // the entity belongs to a more special class, which names it
}

Herd::Herd() {
  ElementClassId(COW);
  SetMetaClass(HERD);
  AddInstanceToClass();
}

Paddock::Paddock() {
  AddConstantDescriptor(new DoubleConstantDescriptor(AREA, "area"));
  SetMetaClass(PADDOCK);
  AddInstanceToClass();
}

Cow::Cow() {
  SuperSetClassId(HERD);
  AddComponentClassId(UDDER);
  AddVariableDescriptor(new IntVariableDescriptor(CALVINGS, "calvings"));
  AddVariableDescriptor(new DoubleVariableDescriptor(WEIGHT, "weight"));
  SetMetaClass(COW);
  AddInstanceToClass();
}

Udder::Udder() {
  AddConstantDescriptor(new DoubleConstantDescriptor(CAPACITY, "capacity"));
  SetMetaClass(UDDER);
  AddInstanceToClass();
}

namespace {

struct ClassRow {
  HerdClass id;
  const char* name;
  int parentId;
  Entity* (*make)();  ///< null for a class without instances of its own
};

template <class Made>
Entity* Make() {
  return new Made;
}

constexpr ClassRow classRows[] = {
    {FARM, "Farm", KV_ENTITY, Make<Farm>}, {FARM_UNIT, "FarmUnit", KV_ENTITY, nullptr},
    {HERD, "Herd", FARM_UNIT, Make<Herd>}, {PADDOCK, "Paddock", FARM_UNIT, Make<Paddock>},
    {COW, "Cow", KV_ENTITY, Make<Cow>},    {UDDER, "Udder", KV_ENTITY, Make<Udder>},
};

}  // namespace

void InstallHerdClasses() {
  K_InstallMetaClasses();
  for (const ClassRow& row : classRows) CreateMetaClass(row.id, row.name)->SetParentClassId(row.parentId);
  SetHierarchy();
}

Entity* NewHerdEntity(const char* className) {
  for (const ClassRow& row : classRows)
    if (row.make != nullptr && std::strcmp(row.name, className) == 0) return row.make();
  return nullptr;
}
