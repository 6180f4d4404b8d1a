// The end of instances, classes and of everything.
#include <iostream>

#include "kalve/engine/ProcessDispatch.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/DeleteAs.h"
#include "kalve/inputs/DataFiles.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/MetaClass.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/monitors/StructureMonitor.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

/// Walks a copy of the registry, which the destructors edit.
template <class Class>
void DeleteInstances(Tableau<Class*> instances) {
  for (Class* instance : instances)
    if (instance != nullptr) DeleteAs(instance);
}

/// A deletion may bring other instances down: the count is read again each time.
void DeleteInstancesOf(const MetaClass& metaClass) {
  while (metaClass.InstanceNumber() >= 1) DeleteEntity(metaClass.GetInstance(0));
}

}  // namespace

void DeleteProcess(Process* process) { DeleteProcessInDepth(process); }

void DeleteEntityInstances() {
  for (int id = 0; id < gMetaClassTab.size(); ++id)
    if (const MetaClass* const metaClass = GetMetaClass(id)) DeleteInstancesOf(*metaClass);
}

void DeleteEntityInstances(int classId) {
  if (classId < 0 || classId >= gMetaClassTab.size()) {
    std::cout << "\n!!! Tentative de suppression des instances d'une classe (" << classId
              << ") pour laquelle la liste des instances n'a pas été créée (par AddInstanceToClass))\n";
    return;
  }
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr) return;
  DeleteInstancesOf(*metaClass);
  for (int parent : metaClass->ParentIds()) DeleteEntityInstances(parent);
}

void DeleteEntityClasses() {
  for (; gMetaClassTab.empty() == 0; gMetaClassTab.pop_front()) delete gMetaClassTab.front();
}

void DeleteEntityClasses(int classId) {
  MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr) {
    std::cout << "\n!!! Tentative de suppression d'une classe inconnue de symbole " << classId << ".\n";
    return;
  }
  delete metaClass;
  gMetaClassTab[classId] = nullptr;
  gMetaClassIdTab[classId] = K_INT_UNSIGNIFICANT;
}

void DeleteMonitors() {
  DeleteInstances(StructureMonitor::mpInstanceTab);
  DeleteInstances(DescValueMonitor::mpInstanceTab);
}

// Monitors outlive the entities, whose destructors ask them; outputs outlive the entities, whose last values
// they take; everything needs the classes.
void DeleteAll() {
  DeleteEntitySpecs();
  DeleteEntityInstances();
  DeleteMonitors();
  DeleteParameters();
  DeleteFileInstances();
  DeleteOutputSpecs();
  if (pCurrentSim != nullptr) DeleteAs(pCurrentSim);
  pCurrentSim = nullptr;
  MemoryReport(0);
  DeleteEntityClasses();
}
