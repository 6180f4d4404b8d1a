// A small model for the tests: a simulation, the kernel's classes, and a few of an application.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/NameTables.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/monitors/StructureMonitor.h"
#include "tests/support/ChildProcess.h"

struct SimulationProbe {
  static void TellStructure(Simulation& simulation) { simulation.mPermanentStructure = 1; }
};

// Cow and Bull are Animals; a Farm, a Herd, an Udder stand by themselves.
enum TestClass : int { HERD = 10, ANIMAL = 11, COW = 12, BULL = 13, FARM = 14, UDDER = 15 };

/// An instance of an application class: the chain of its classes, the final one last.
class Thing : public Entity {
 public:
  Thing(std::initializer_list<int> chain) {
    for (int id : chain) {
      SetMetaClass(id);
      if (id == *(chain.end() - 1))
        AddInstanceToClass();
      else
        AddInstanceToClass(0);
    }
  }
};

class ModelTest : public testing::Test {
 protected:
  ModelTest() {
    pCurrentSim = &simulation;
    BasicEntity::mInstanceNumber = 0;
    K_InstallMetaClasses();
    monitor = std::make_unique<StructureMonitor>("watch");
    CreateMetaClass(HERD, "Herd")->SetParentClassId(KV_ENTITY);
    CreateMetaClass(ANIMAL, "Animal")->SetParentClassId(KV_ENTITY);
    CreateMetaClass(COW, "Cow")->SetParentClassId(ANIMAL);
    CreateMetaClass(BULL, "Bull")->SetParentClassId(ANIMAL);
    CreateMetaClass(FARM, "Farm")->SetParentClassId(KV_ENTITY);
    CreateMetaClass(UDDER, "Udder")->SetParentClassId(KV_ENTITY);
    SetHierarchy();
  }
  ~ModelTest() override {
    for (int id = gMetaClassTab.size(); id-- > KV_PROCESS;)
      while (GetNumberOfEntities(id) > 0) DeleteEntity(GetMetaClass(id)->GetInstance(0));
    for (MetaClass* metaClass : gMetaClassTab) delete metaClass;
    gMetaClassTab.erase();
    gMetaClassIdTab.erase();
    for (void* grave : graves) ::operator delete(grave);
    pCurrentSim = nullptr;
    g_KV_TraceWarnings = 0;
  }

  // Entities that nobody deletes go with the test.
  static Thing* NewCow() { return new Thing{ANIMAL, COW}; }
  static Thing* NewBull() { return new Thing{ANIMAL, BULL}; }
  static Thing* NewHerd() {
    auto* herd = new Thing{HERD};
    herd->ElementClassId(ANIMAL);
    return herd;
  }
  static Thing* NewUdder() { return new Thing{UDDER}; }
  /// With a slot for an animal and one for an udder.
  static Thing* NewFarm() {
    auto* farm = new Thing{FARM};
    farm->AddComponentClassId(ANIMAL);
    farm->AddComponentClassId(UDDER);
    return farm;
  }

  /// Destroys the entity and keeps its memory taken to the end of the test: at a dead entity's address a new
  /// one would answer to the links that were left.
  void Bury(Thing* entity) {
    static_cast<Entity*>(entity)->~Entity();
    graves.push_back(entity);
  }

  static Tableau<BasicEntity*> Tab(std::initializer_list<BasicEntity*> entities) {
    Tableau<BasicEntity*> tab;
    for (BasicEntity* entity : entities) tab.push_back(entity);
    return tab;
  }
  static std::string Names(const Tableau<BasicEntity*>& entities) {
    std::string names;
    for (const BasicEntity* entity : entities)
      names += (names.empty() ? "" : " ") + std::string(entity != nullptr ? entity->InstanceName() : "-");
    return names;
  }
  static std::vector<int> Numbers(const Tableau<int>& numbers) { return {numbers.begin(), numbers.end()}; }

  std::vector<void*> graves;
  Simulation simulation;
  std::unique_ptr<StructureMonitor> monitor;  // outlives the entities
};
