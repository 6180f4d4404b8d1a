#include "kalve/monitors/DescValueMonitor.h"

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Registry.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/PredefinedMethods.h"

int DescValueMonitor::mInstanceNumber = 0;
// Never destroyed: an application may keep its monitors to the very end.
Tableau<DescValueMonitor*>& DescValueMonitor::mpInstanceTab = *new Tableau<DescValueMonitor*>();
int DescValueMonitor::_nbConst = 0;
int DescValueMonitor::_nbDest = 0;

DescValueMonitor::DescValueMonitor(const char* name) : mClassName(name) {
  AddInstance(this);
  ++_nbConst;
}

DescValueMonitor::DescValueMonitor(const char* name, ValueTypeId type) : DescValueMonitor(name) {
  mDescriptorType = type;
}

DescValueMonitor::DescValueMonitor(const DescValueMonitor& other)
    : mClassName(other.mClassName), mDescriptorType(other.mDescriptorType), mFlags(other.mFlags) {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n++copy construction de %p <- %p", static_cast<const void*>(this),
                static_cast<const void*>(&other));
  constexpr ValueTypeSet kept = {VOID, INT, FLOAT, DOUBLE, STRING, P_ENTITY, ENTITY_TAB, DESCVALUESPEC_TAB};
  MethodTable::CopyMethods(other.mMethods, kept, *this);
}

DescValueMonitor::~DescValueMonitor() {
  if (g_KV_TraceNewDelMode != 0) std::printf("\n-Destruction de %p", static_cast<const void*>(this));
  mMethods.DestroyMethods();
  RemoveInstance(this);
  ++_nbDest;
}

// The seven classes, their methods in the order of the slots
// -------------------------------------------------

IntDescValueMonitor::IntDescValueMonitor(const char* name) : DescValueMonitor(name, INT) {
  AddMethod(new WhenSetInt);
  AddMethod(new WhenGetInt);
}

FloatDescValueMonitor::FloatDescValueMonitor(const char* name) : DescValueMonitor(name, FLOAT) {
  AddMethod(new WhenSetFloat);
  AddMethod(new WhenGetFloat);
}

DoubleDescValueMonitor::DoubleDescValueMonitor(const char* name) : DescValueMonitor(name, DOUBLE) {
  AddMethod(new WhenSetDouble);
  AddMethod(new WhenGetDouble);
}

StringDescValueMonitor::StringDescValueMonitor(const char* name) : DescValueMonitor(name, STRING) {
  AddMethod(new WhenSetString);
  AddMethod(new WhenGetString);
}

EntityDescValueMonitor::EntityDescValueMonitor(const char* name) : DescValueMonitor(name, P_ENTITY) {
  AddMethod(new WhenSetEntity);
  AddMethod(new WhenGetEntity);
}

EntityTabDescValueMonitor::EntityTabDescValueMonitor(const char* name) : DescValueMonitor(name, ENTITY_TAB) {
  AddMethod(new WhenSetEntityTab);
  AddMethod(new WhenAddEntity);
  AddMethod(new WhenRemoveEntity);
  AddMethod(new WhenGetEntityTab);
}

DescValueSpecTabDescValueMonitor::DescValueSpecTabDescValueMonitor(const char* name)
    : DescValueMonitor(name, DESCVALUESPEC_TAB) {
  AddMethod(new WhenSetDescValueSpecTab);
  AddMethod(new WhenAddDescValueSpec);
  AddMethod(new WhenRemoveDescValueSpec);
  AddMethod(new WhenGetDescValueSpecTab);
}

// Methods
// ----------------------------------------------------------------------------------------------------

template <class Result>
void DescValueMonitor::AssignIn(int methodId, int slot, Result (*body)(MonitorMethod*)) {
  FoundMethod(methodId, "DescValueMonitor::GetMethod")->SetBody(body);
  mFlags[static_cast<std::size_t>(slot)] = 1;
}

template void DescValueMonitor::AssignIn(int, int, int (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, float (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, double (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, const char* (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, BasicEntity* (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, Tableau<BasicEntity*>* (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, DescValueSpec* (*)(MonitorMethod*));
template void DescValueMonitor::AssignIn(int, int, Tableau<DescValueSpec*>* (*)(MonitorMethod*));

MonitorMethod* DescValueMonitor::FoundMethod(int id, const char* where) const {
  const Tableau<int>& ranks = mMethods.Ranks();
  if (id < 0 || id >= ranks.size() || ranks[id] < 0) FailOnIndex(where, ranks.size(), id);
  return static_cast<MonitorMethod*>(mMethods[id]);
}

MonitorMethod* DescValueMonitor::AskedMethod(int slot, int id) const {
  if (HasMethodIn(slot) == 0) return nullptr;
  MonitorMethod* method = FoundMethod(id, "DescValueMonitor::GetMethod");
  return method->HasBodyAssigned() ? method : nullptr;
}

Method* DescValueMonitor::GetMethod(int id) const { return FoundMethod(id, "DescValueMonitor::GetMethod"); }

void DescValueMonitor::AddMethod(Method* method) {
  if (method->ObjectClass() != KV_MONITOR) return;
  mMethods.Add(method, "DescValueMonitor::AddMethod");
  static_cast<MonitorMethod*>(method)->DescribedMonitor(this);
}

template <class Result>
Result DescValueMonitor::Exec(int id, const char* where) {
  return FoundMethod(id, where)->Call<Result>();
}

void DescValueMonitor::ExecVoidCoreMethod(int id) { Exec<void>(id, "DescValueMonitor::ExecVoidCoreMethod"); }
int DescValueMonitor::ExecIntCoreMethod(int id) {
  return Exec<int>(id, "DescValueMonitor::ExecIntCoreMethod");
}
float DescValueMonitor::ExecFloatCoreMethod(int id) {
  return Exec<float>(id, "DescValueMonitor::ExecFloatCoreMethod");
}
double DescValueMonitor::ExecDoubleCoreMethod(int id) {
  return Exec<double>(id, "DescValueMonitor::ExecDoubleCoreMethod");
}
const char* DescValueMonitor::ExecStringCoreMethod(int id) {
  return Exec<const char*>(id, "DescValueMonitor::ExecStringCoreMethod");
}
BasicEntity* DescValueMonitor::ExecEntityCoreMethod(int id) {
  return Exec<BasicEntity*>(id, "DescValueMonitor::ExecEntityCoreMethod");
}
Tableau<BasicEntity*>* DescValueMonitor::ExecEntityTabCoreMethod(int id) {
  return Exec<Tableau<BasicEntity*>*>(id, "DescValueMonitor::ExecEntityTabCoreMethod");
}
DescValueSpec* DescValueMonitor::ExecDescValueSpecCoreMethod(int id) {
  return Exec<DescValueSpec*>(id, "DescValueMonitor::ExecDescValueSpecCoreMethod");
}
Tableau<DescValueSpec*>* DescValueMonitor::ExecDescValueSpecTabCoreMethod(int id) {
  return Exec<Tableau<DescValueSpec*>*>(id, "DescValueMonitor::ExecDescValueSpecTabCoreMethod");
}

// Instances
// --------------------------------------------------------------------------------------------------

void DescValueMonitor::AddInstance(DescValueMonitor* monitor) {
  mpInstanceTab.push_back(monitor);
  ++mInstanceNumber;
}

DescValueMonitor* DescValueMonitor::GetInstance(int rank) {
  return InstanceAt(mpInstanceTab, rank, "DescValueMonitor::GetInstance");
}

int DescValueMonitor::GetPosition(DescValueMonitor* monitor) { return mpInstanceTab.position(monitor); }

void DescValueMonitor::RemoveInstance(DescValueMonitor* monitor) {
  TakeOut(mpInstanceTab, monitor, "DescValueMonitor::RemoveInstance");
  --mInstanceNumber;
}
