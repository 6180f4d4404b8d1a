#include "kalve/model/MetaClass.h"

#include <cstring>
#include <iostream>
#include <memory>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/NameTables.h"

// Never destroyed: entities that an application keeps to the very end still leave their classes.
Tableau<MetaClass*>& gMetaClassTab = *new Tableau<MetaClass*>();
Tableau<int>& gMetaClassIdTab = *new Tableau<int>();

int g_KV_ReservedUserClassId = 0;
int g_KV_ReservedUserDescriptorId = 0;
int g_KV_ReservedUserMethodId = 0;
int g_KV_ReservedUserArgumentId = 0;
int g_KV_ReservedUserEventId = 0;
int g_KV_ReservedUserProcessId = 0;
int g_KV_ReservedUserFileId = 0;

namespace {

MetaClass& Known(int id, const char* service) {
  MetaClass* const metaClass = GetMetaClass(id);
  if (metaClass == nullptr) UnknownEntityClass(id, service);
  return *metaClass;
}

MetaClass& Created(int id, const char* operation) {
  MetaClass* const metaClass = GetMetaClass(id);
  if (metaClass == nullptr) MetaClassNotYetCreated(id, operation);
  return *metaClass;
}

MetaClass& KnownByName(const char* className) {
  const int id = GetClassSymbol(className);
  return Known(id, Text("%s(%s)", "DescendantIdTab", OrEmpty(className)).substr(0, 99).c_str());
}

/// The sizes of all kinship tables, to see whether one grew.
int KinshipSize() {
  int size = 0;
  for (const MetaClass* metaClass : gMetaClassTab)
    if (metaClass != nullptr) size += metaClass->AncestorIds().size() + metaClass->DescendantIds().size();
  return size;
}

Tableau<int> AncestorsAboveLayers(int id) {
  Tableau<int> ids = AncestorIdTab(id);
  for (int layer : {KV_BASIC_ENTITY, KV_DESCRIPTED_ENTITY, KV_ENTITY}) ids.remove_first(layer);
  return ids;
}

void DisplayNamesAndSymbols(const Tableau<int>& ids) {
  for (int id : ids) std::cout << GetClassName(id) << " (" << id << ") ";
}

}  // namespace

// Kinship -----------------------------------------------------------------------------------------------

void MetaClass::SetParentClassId(int id) {
  mParentIds.erase();
  mParentIds.push_back(id);
}

void MetaClass::SetParentClassIds(int first, int second) {
  SetParentClassId(first);
  mParentIds.push_back(second);
}

void MetaClass::TerminalDescendantIds(Tableau<int>& ids) const {
  for (int child : mChildIds) {
    const MetaClass& childClass = Created(child, "TerminalDescendantIds");
    if (childClass.mChildIds.empty())
      ids.push_back(child);
    else
      childClass.TerminalDescendantIds(ids);
  }
}

Tableau<int>* MetaClass::GetUpperMultipleParents() const {
  auto* upper = new Tableau<int>();
  const int count = mParentIds.size() < 2 ? mParentIds.size() : 2;
  for (int i = 0; i < count; ++i) {
    const int parent = mParentIds[i];
    const std::unique_ptr<Tableau<int>> above(
        Created(parent, "GetUpperMultipleParents").GetUpperMultipleParents());
    if (!above->empty())
      upper->push_back(*above);
    else
      upper->push_back(count == 1 ? mClassId : parent);
  }
  return upper;
}

void MetaClass::SetOneLevelHierarchy() {
  for (int parent : mParentIds)
    Created(parent, "MetaClass::SetOneLevelHierarchy").mChildIds.push_back_ifnew(mClassId);
}

void MetaClass::SetTotalHierarchy() {
  mHierarchyIsSet = true;
  for (int parent : mParentIds) {
    mAncestorIds.push_back_ifnew(parent);
    MetaClass& parentClass = Created(parent, "SetTotalHierarchy");
    if (!parentClass.mHierarchyIsSet) parentClass.SetTotalHierarchy();
    mAncestorIds.push_back_ifnew(parentClass.mAncestorIds);
  }
  for (int child : mChildIds) {
    mDescendantIds.push_back_ifnew(child);
    MetaClass& childClass = Created(child, "SetTotalHierarchy");
    if (!childClass.mHierarchyIsSet) childClass.SetTotalHierarchy();
    mDescendantIds.push_back_ifnew(childClass.mDescendantIds);
  }
}

// Registration --------------------------------------------------------------------------------------------

MetaClass* CreateMetaClass(int id, const char* name) { return CreateMetaClass(id, name, 1, 1); }

MetaClass* CreateMetaClass(int id, const char* name, int userInstantiable) {
  return CreateMetaClass(id, name, userInstantiable, 1);
}

MetaClass* CreateMetaClass(int id, const char* name, int userInstantiable, int existsInstanceTab) {
  if (id < 0) BadEntityClassSpecification("CreateMetaClass");
  if (MetaClass* const known = GetMetaClass(id)) return known;
  while (gMetaClassTab.size() <= id) gMetaClassTab.push_back(nullptr);
  while (gMetaClassIdTab.size() <= id) gMetaClassIdTab.push_back(K_INT_UNSIGNIFICANT);
  auto* const metaClass = new MetaClass(id, name);
  metaClass->UserInstantiable(userInstantiable);
  metaClass->ExistsInstanceTab(existsInstanceTab);
  gMetaClassTab[id] = metaClass;
  gMetaClassIdTab[id] = id;
  return metaClass;
}

// One pass over the classes follows the described order of relatives, but in a lattice it can visit a class
// before a relative of a relative is complete; further passes only append what is missing.
void SetHierarchy() {
  for (MetaClass* metaClass : gMetaClassTab)
    if (metaClass != nullptr) metaClass->SetOneLevelHierarchy();
  for (int before = -1, size = 0; size != before;) {
    before = size;
    for (MetaClass* metaClass : gMetaClassTab)
      if (metaClass != nullptr) metaClass->SetTotalHierarchy();
    size = KinshipSize();
  }
}

// Questions -----------------------------------------------------------------------------------------------

const char* GetClassName(int id) { return Known(id, "GetClassName").ClassName(); }

Tableau<int> ParentIdTab(int id) { return Known(id, "ParentIdTab").ParentIds(); }
Tableau<int> ChildIdTab(int id) { return Known(id, "ChildIdTab").ChildIds(); }
Tableau<int> AncestorIdTab(int id) { return Known(id, "AncestorIdTab").AncestorIds(); }
void AncestorIdTab(int id, Tableau<int>& ids) { Known(id, "AncestorIdTab").AncestorIds(ids); }
Tableau<int> DescendantIdTab(int id) { return Known(id, "DescendantIdTab").DescendantIds(); }
void DescendantIdTab(int id, Tableau<int>& ids) { Known(id, "DescendantIdTab").DescendantIds(ids); }
Tableau<int> DescendantIdTab(const char* className) { return KnownByName(className).DescendantIds(); }
void DescendantIdTab(const char* className, Tableau<int>& ids) { KnownByName(className).DescendantIds(ids); }

void TerminalDescendantIdTab(int id, Tableau<int>& ids) {
  Known(id, "TerminalDescendantIds").TerminalDescendantIds(ids);
}

bool IsTerminalClass(int id) { return ChildIdTab(id).empty() != 0; }

bool IsParentOf(int id, int other) { return Known(id, "IsParentOf").IsParentOf(other); }
bool IsAncestorOf(int id, int other) { return Known(id, "IsAncestorOf").IsAncestorOf(other); }
bool IsChildOf(int id, int other) { return Known(id, "IsChildOf").IsChildOf(other); }
bool IsDescendantOf(int id, int other) { return Known(id, "IsDescendantOf").IsDescendantOf(other); }

bool HaveCommonAncestor(int id, int other) {
  return AncestorsAboveLayers(id).commonElement(AncestorsAboveLayers(other)) != 0;
}

int GetPositionAncestor(const Tableau<int>& ids, int id) {
  for (int i = 0; i < ids.size(); ++i)
    if (ids[i] == id || IsAncestorOf(ids[i], id)) return i;
  return K_INT_UNSIGNIFICANT;
}

int GetClassSymbol(const char* name) {
  if (name == nullptr) return K_INT_UNSIGNIFICANT;
  if (std::strcmp(name, "entity") == 0) return KV_ENTITY;
  if (std::strcmp(name, "descriptedEntity") == 0) return KV_DESCRIPTED_ENTITY;
  if (std::strcmp(name, "basicEntity") == 0) return KV_BASIC_ENTITY;
  for (int id : gMetaClassIdTab) {
    const MetaClass* const metaClass = GetMetaClass(id);
    if (metaClass != nullptr && std::strcmp(metaClass->ClassName(), name) == 0) return id;
  }
  return K_INT_UNSIGNIFICANT;
}

int GetPosition(const Tableau<int>& values, int value) { return values.position(value); }

// Names ---------------------------------------------------------------------------------------------------

const char* ClassIdToString(int id) {
  if (!HasClassSymbolName(id)) FailOnIndex("ClassIdToString", ClassIdToCharTab.size(), id);
  return ClassIdToCharTab[id];
}

void MakeClassIdToCharTab() {
  ClassIdToCharTab.erase(100);
  for (const char* name : {"KV_BASIC_ENTITY", "KV_DESCRIPTED_ENTITY", "KV_ENTITY", "KV_ENTITYSPEC",
                           "KV_EVENT", "KV_MONITOR", "KV_PROCESS"})
    ClassIdToCharTab.push_back(name);
  gClassIdToCharTabSize = ClassIdToCharTab.size();
}

void DisplayClasses() {
  for (int i = 1; i < gMetaClassIdTab.size(); ++i) {
    const MetaClass* const metaClass = GetMetaClass(gMetaClassIdTab[i]);
    if (metaClass == nullptr) continue;
    std::cout << "\n-------------------------------------"
              << "\nsymbole de classe                : " << metaClass->ClassId()
              << "\nnom de classe                    : " << metaClass->ClassName()
              << "\nnombre d'instances               : " << metaClass->InstanceNumber()
              << "\nnom (symbole) des classes mère   : ";
    DisplayNamesAndSymbols(metaClass->ParentIds());
    std::cout << "\nnom (symbole) des classes fille  : ";
    DisplayNamesAndSymbols(metaClass->ChildIds());
  }
}
