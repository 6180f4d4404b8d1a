#include "kalve/monitors/StructureMonitor.h"

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Registry.h"
#include "kalve/methods/PredefinedMethods.h"
#include "kalve/model/BasicEntity.h"

int StructureMonitor::mInstanceNumber = 0;
// Never destroyed: an application may keep its monitors to the very end.
Tableau<StructureMonitor*>& StructureMonitor::mpInstanceTab = *new Tableau<StructureMonitor*>();
int StructureMonitor::_nbConst = 0;
int StructureMonitor::_nbDest = 0;

StructureMonitor::StructureMonitor(const char* name) : mClassName(name) {
  ++_nbConst;
  AddInstance(this);
  AddMethod(new WhenAddElement);
  AddMethod(new WhenRemoveElement);
}

StructureMonitor::StructureMonitor(const StructureMonitor& other)
    : mClassName(other.mClassName),
      mHasAddElementMethod(other.mHasAddElementMethod),
      mHasRemoveElementMethod(other.mHasRemoveElementMethod) {
  ++_nbConst;
  MethodTable::CopyMethods(other.mMethods, {VOID, P_ENTITY}, *this);
}

StructureMonitor::~StructureMonitor() {
  mMethods.DestroyMethods();
  RemoveInstance(this);
  ++_nbDest;
}

void StructureMonitor::AssignWhenAddElementMethod(Body body) {
  FoundMethod(WHEN_ADD_ELEMENT, "StructureMonitor::AssignWhenAddElementMethod")->SetBody(body);
  mHasAddElementMethod = 1;
}

// The leaf is a VOID one, but its body answers an entity.
void StructureMonitor::AssignWhenRemoveElementMethod(Body body) {
  FoundMethod(WHEN_REMOVE_ELEMENT, "StructureMonitor::AssignWhenRemoveElementMethod")->SetBody(body);
  mHasRemoveElementMethod = 1;
}

void StructureMonitor::AttachToEntity(StructureMonitor* monitor, BasicEntity* entity) {
  if (monitor == nullptr) StructAttachmentFailed(entity);
  entity->SetMonitor(monitor);
  entity->HasMonitor(1);
}

void StructureMonitor::DetachFromEntity(BasicEntity* entity) {
  if (entity->GetMonitor() != nullptr) entity->HasMonitor(0);
}

MonitorMethod* StructureMonitor::FoundMethod(int id, const char* where) const {
  const Tableau<int>& ranks = mMethods.Ranks();
  if (id < 0 || id >= ranks.size() || ranks[id] < 0) FailOnIndex(where, ranks.size(), id);
  return static_cast<MonitorMethod*>(mMethods[id]);
}

Method* StructureMonitor::GetMethod(int id) const { return FoundMethod(id, "StructureMonitor::GetMethod"); }

void StructureMonitor::AddMethod(Method* method) {
  if (method->ObjectClass() != KV_MONITOR) return;
  mMethods.Add(method, "StructureMonitor::AddMethod");
  static_cast<MonitorMethod*>(method)->DescribedMonitor(this);
}

void StructureMonitor::ExecVoidCoreMethod(int id) {
  FoundMethod(id, "StructureMonitor::ExecVoidCoreMethod")->Call<void>();
}

BasicEntity* StructureMonitor::ExecEntityCoreMethod(int id) {
  return FoundMethod(id, "StructureMonitor::ExecEntityCoreMethod")->Call<BasicEntity*>();
}

void StructureMonitor::AddInstance(StructureMonitor* monitor) {
  mpInstanceTab.push_back(monitor);
  ++mInstanceNumber;
}

void StructureMonitor::RemoveInstance(StructureMonitor* monitor) {
  TakeOut(mpInstanceTab, monitor, "StructureMonitor::RemoveInstance");
  ++mInstanceNumber;
}

StructureMonitor* StructureMonitor::GetInstance(int rank) {
  return InstanceAt(mpInstanceTab, rank, "StructureMonitor::GetInstance");
}
