#include "tests/parsers/FarmClasses.h"

#include <cstring>

namespace {

/// An entity joins its class when all that it has is there.
Entity* Joined(Entity* entity, FarmClass id) {
  entity->SetMetaClass(id);
  entity->AddInstanceToClass();
  return entity;
}

class FarmUnit : public Entity {
 public:
  FarmUnit() {
    SuperSetClassId(FARM);
    SetMetaClass(FARM_UNIT);
    AddInstanceToClass(0);  // the entity belongs to a more special class, which names it
  }
};

Entity* NewFarm() {
  auto* farm = new Entity;
  farm->ElementClassId(FARM_UNIT);
  return Joined(farm, FARM);
}

Entity* NewHerd() {
  auto* herd = new FarmUnit;
  herd->ElementClassId(COW);
  return Joined(herd, HERD);
}

Entity* NewPaddock() {
  auto* paddock = new FarmUnit;
  paddock->AddConstantDescriptor(new DoubleConstantDescriptor(AREA, "area"));
  return Joined(paddock, PADDOCK);
}

Entity* NewCow() {
  auto* cow = new Entity;
  cow->SuperSetClassId(HERD);
  cow->AddComponentClassId(UDDER);
  cow->AddVariableDescriptor(new IntVariableDescriptor(CALVINGS, "calvings"));
  cow->AddVariableDescriptor(new DoubleVariableDescriptor(WEIGHT, "weight"));
  return Joined(cow, COW);
}

Entity* NewUdder() {
  auto* udder = new Entity;
  udder->AddConstantDescriptor(new DoubleConstantDescriptor(CAPACITY, "capacity"));
  return Joined(udder, UDDER);
}

struct ClassRow {
  FarmClass id;
  const char* name;
  int parentId;
  Entity* (*make)();  ///< null for a class without instances of its own
};

constexpr ClassRow classRows[] = {
    {FARM, "Farm", KV_ENTITY, NewFarm}, {FARM_UNIT, "FarmUnit", KV_ENTITY, nullptr},
    {HERD, "Herd", FARM_UNIT, NewHerd}, {PADDOCK, "Paddock", FARM_UNIT, NewPaddock},
    {COW, "Cow", KV_ENTITY, NewCow},    {UDDER, "Udder", KV_ENTITY, NewUdder},
};

}  // namespace

void InstallFarmClasses() {
  K_InstallMetaClasses();
  for (const ClassRow& row : classRows) CreateMetaClass(row.id, row.name)->SetParentClassId(row.parentId);
  SetHierarchy();
}

Entity* NewFarmEntity(const char* className) {
  for (const ClassRow& row : classRows)
    if (row.make != nullptr && std::strcmp(row.name, className) == 0) return row.make();
  return nullptr;
}
