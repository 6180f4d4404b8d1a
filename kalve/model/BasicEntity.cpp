// Identity, declarations and reads of a BasicEntity.
#include "kalve/model/BasicEntity.h"

#include <cstdio>
#include <unordered_set>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/MetaClass.h"

int BasicEntity::mInstanceNumber = 0;

namespace {

// Never destroyed: an entity may die after the globals.
std::unordered_set<const BasicEntity*>& LivingEntities() {
  static auto& entities = *new std::unordered_set<const BasicEntity*>();
  return entities;
}

}  // namespace

bool IsLivingEntity(const BasicEntity* entity) {
  return entity != nullptr && LivingEntities().contains(entity);
}

void EnterLivingEntity(const BasicEntity* entity) { LivingEntities().insert(entity); }
void LeaveLivingEntity(const BasicEntity* entity) { LivingEntities().erase(entity); }

// Class and identity --------------------------------------------------------------------------------------

void BasicEntity::SetMetaClass(int id) {
  MetaClass* const metaClass = ::GetMetaClass(id);
  if (metaClass == nullptr) UnknownEntityClass(id, "SetMetaClass", this);
  mpMetaClass = metaClass;
}

void BasicEntity::AddInstanceToClass() {
  mpMetaClass->AddInstance(this);
  EquipForOSAccount();
  SetInstanceName(ClassName(), mThisInstanceNumber);
}

void BasicEntity::AddInstanceToClass(int /*unread*/) {
  mpMetaClass->AddInstance(this);
  SetInstanceName(ClassName(), mThisInstanceNumber);
}

void BasicEntity::RemoveInstanceFromClass(int id) {
  if (id < 0) BadEntityClassSpecification("RemoveInstanceFromClass", this);
  MetaClass* const metaClass = ::GetMetaClass(id);
  if (metaClass == nullptr) UnknownEntityClass(id, "RemoveInstanceFromClass", this);
  metaClass->RemoveInstance(this);
}

void BasicEntity::SetInstanceName(const char* name) {
  mInstanceName = name;
  TellNameToOutputs();
}

void BasicEntity::SetInstanceName(const char* name, int number) {
  std::snprintf(gInstanceNameString, sizeof gInstanceNameString, "%s%s%d", name, gUnderscore, number);
  SetInstanceName(gInstanceNameString);
}

int BasicEntity::ClassId() const {
  return mpMetaClass != nullptr ? mpMetaClass->ClassId() : K_INT_UNSIGNIFICANT;
}

const char* BasicEntity::ClassName() const { return mpMetaClass != nullptr ? mpMetaClass->ClassName() : ""; }
void BasicEntity::ClassName(const char* name) { mpMetaClass->ClassName(name); }

void BasicEntity::ClassSymbol(int id) {
  if (id < 0) BadEntityClassSpecification("ClassSymbol", this);
  mpMetaClass->ClassId(id);
}

Tableau<int> BasicEntity::ParentIds() const { return mpMetaClass->ParentIds(); }
Tableau<int> BasicEntity::AncestorIds() const { return mpMetaClass->AncestorIds(); }
void BasicEntity::AncestorIds(Tableau<int>& ids) const { mpMetaClass->AncestorIds(ids); }

bool BasicEntity::IsInstanceOf(int id) const {
  if (ClassId() == id) return true;
  const MetaClass* const metaClass = ::GetMetaClass(id);
  if (metaClass == nullptr) UnknownEntityClass(id, "IsInstanceOf", this);
  return metaClass->IsAncestorOf(ClassId());
}

int BasicEntity::RankIn(const MetaClass* metaClass) const {
  for (const InstanceRank& kept : mInstanceRanks)
    if (kept.metaClass == metaClass) return kept.rank;
  return K_INT_UNSIGNIFICANT;
}

void BasicEntity::KeepRankIn(const MetaClass* metaClass, int from, int to) {
  for (InstanceRank& kept : mInstanceRanks) {
    if (kept.metaClass != metaClass || kept.rank != from) continue;
    kept.rank = to;
    return;
  }
  mInstanceRanks.push_back({metaClass, to});
}

void BasicEntity::ForgetRankIn(const MetaClass* metaClass, int rank) {
  mInstanceRanks.remove_first({metaClass, rank});
}

// Declarations --------------------------------------------------------------------------------------------

void BasicEntity::ElementClassId(int id) {
  if (!mComponentClassIds.empty()) ElementCannotCoexistWithComponent(this, id);
  mElementClassId = id;
}

void BasicEntity::AddComponentClassId(int id) {
  if (mElementClassId >= 0) ComponentCannotCoexistWithElement(this, id);
  mComponentClassIds.push_back(id);
  mComponentTab.push_back(nullptr);
}

void BasicEntity::SuperSetClassIds(int first, int second) {
  AddSuperSetClassId(first);
  AddSuperSetClassId(second);
}

int BasicEntity::SuperSetClassId() const {
  if (!HasSuperSets()) NoSuperSet(this);
  return mSuperSetClassIds.empty() ? K_INT_UNSIGNIFICANT : mSuperSetClassIds[0];
}

// Reading components --------------------------------------------------------------------------------------

void BasicEntity::CheckIsNoSet(const char* operation) const {
  if (mElementClassId >= -8) UnAuthorizedAccessToComponent(this, operation);
}

void BasicEntity::CheckIsNoSet(const char* operation, int id) const {
  if (mElementClassId >= -8) UnAuthorizedAccessToComponent(this, operation, id);
}

BasicEntity* BasicEntity::PluggedIn(int slot) const {
  return IsLivingEntity(mComponentTab[slot]) ? mComponentTab[slot] : nullptr;
}

/// The slot that a part of the class fills: plugging goes from the special class to the general slot.
int BasicEntity::SlotFor(int id) const {
  const int exact = mComponentClassIds.position(id);
  return exact >= 0 ? exact : GetPositionAncestor(mComponentClassIds, id);
}

/// The slot that a question for the class means: asking goes from the general class to the special slot.
int BasicEntity::SlotOfOrBelow(int id) const {
  const int exact = mComponentClassIds.position(id);
  if (exact >= 0) return exact;
  for (int slot = 0; slot < mComponentClassIds.size(); ++slot) {
    const MetaClass* const declared = ::GetMetaClass(mComponentClassIds[slot]);
    if (declared != nullptr && declared->IsDescendantOf(id)) return slot;
  }
  return K_INT_UNSIGNIFICANT;
}

Tableau<BasicEntity*> BasicEntity::GetComponentTab() const {
  CheckIsNoSet("BasicEntity::GetComponentTab()");
  return mComponentTab;
}

void BasicEntity::GetComponentTab(Tableau<BasicEntity*>& components) const {
  CheckIsNoSet("BasicEntity::GetComponentTab(tab)");
  components = mComponentTab;
}

BasicEntity* BasicEntity::GetBasicComponent(int id) const { return GetBasicComponent(id, 1); }

BasicEntity* BasicEntity::GetBasicComponent(int id, int strict) const {
  CheckIsNoSet("BasicEntity::GetBasicComponent(id)", id);
  auto* const self = const_cast<BasicEntity*>(this);  // the failures take the entity as one to act on
  const int slot = SlotOfOrBelow(id);
  if (slot < 0 && strict != 0) BadComponentClassId(self, id);
  BasicEntity* const component = slot >= 0 ? PluggedIn(slot) : nullptr;
  if (component == nullptr && strict != 0) NotYetPluggedComponent(self, id);
  return component;
}

BasicEntity* BasicEntity::GetBasicComponent(const char* className) const {
  CheckIsNoSet("BasicEntity::GetComponentTab(nom)");
  const int slot = SlotFor(GetClassSymbol(className));
  if (slot < 0) BadComponentName(const_cast<BasicEntity*>(this), className);
  return PluggedIn(slot);
}

// Reading elements ----------------------------------------------------------------------------------------

void BasicEntity::CheckTakesElements(const char* operation) const {
  if (!mComponentClassIds.empty()) UnAuthorizedAccessToElement(this, operation);
}

Tableau<BasicEntity*> BasicEntity::GetElementTab() const {
  CheckTakesElements("BasicEntity::GetElementTab()");
  return mElementTab.Entries();
}

void BasicEntity::GetElementTab(Tableau<BasicEntity*>& elements) const {
  CheckTakesElements("BasicEntity::GetElementTab(tab)");
  elements = mElementTab.Entries();
}

void BasicEntity::SetElementTab(Tableau<BasicEntity*>& elements) {
  CheckTakesElements("BasicEntity::SetElementTab(tab)");
  mElementTab = elements;
}

void BasicEntity::SetElementTabIncrement(int step) {
  CheckTakesElements("BasicEntity::SetElementTabIncrement(n)");
  mElementTab.SizeIncrement(step);
}

BasicEntity* BasicEntity::GetBasicElement() const {
  CheckTakesElements("BasicEntity::GetElement()");
  if (!mElementTab.empty()) return mElementTab[0];
  NoElement(this);
  return nullptr;
}

BasicEntity* BasicEntity::GetBasicElement(int rank) const {
  CheckTakesElements("BasicEntity::GetElement(i)");
  if (rank >= 0 && rank < mElementTab.size()) return mElementTab[rank];
  NoRankedElement(this, rank);
  return nullptr;
}

int BasicEntity::GetElementPosition(BasicEntity* element) const {
  CheckTakesElements("BasicEntity::GetElementPosition(e)");
  return mElementTab.RankOf(element);
}

// Reading super-sets and the monitor ----------------------------------------------------------------------

BasicEntity* BasicEntity::GetBasicSuperSet() const {
  if (!mSuperSetTab.empty()) return mSuperSetTab[0];
  NoSuperSet(this);
  return nullptr;
}

BasicEntity* BasicEntity::GetBasicSuperSet(int rank) const {
  if (rank < 0 || rank >= mSuperSetTab.size())
    FailOnIndex("BasicEntity::GetSuperSet", mSuperSetTab.size(), rank);
  return mSuperSetTab[rank];
}

StructureMonitor* BasicEntity::GetMonitor() const {
  if (mHasMonitor == 0) DoNotHaveMonitorAttached(this);
  return mpMonitor;
}
