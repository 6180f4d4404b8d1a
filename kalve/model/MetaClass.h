// MetaClass: the record of one modelled class, and the registry of all of them.
//
// A class is known by its symbol, an int that is its index in gMetaClassTab. An application installs the
// kernel's classes with K_InstallMetaClasses, creates its own with CreateMetaClass, declares their parents,
// and calls SetHierarchy once, which computes children, ancestors and descendants. Kinship gives an
// instance nothing but membership: what an instance has, its constructors gave it.
//
// An instance is counted in every class of its constructor chain. The registry owns its records, the
// records own no instance.
#pragma once

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/InstanceTable.h"
#include "kalve/foundations/Tableau.h"

/// Where an entity keeps its rank in the instance table of a class. ClassInstances.cpp
struct EntityRanks {
  const MetaClass* metaClass;

  int RankOf(const BasicEntity* entity) const;
  void Keep(BasicEntity* entity, int from, int to) const;
  void Forget(BasicEntity* entity, int rank) const;
};

class MetaClass {
 public:
  MetaClass() = default;
  /// Keeps the name's pointer.
  MetaClass(int id, const char* name) : mClassId(id), mClassName(name) {}
  MetaClass(const MetaClass&) = delete;
  /// Takes symbol, counts, instance table and flags; name and kinship stay. Answers `other`.
  const MetaClass& operator=(const MetaClass& other);

  // Instances: ClassInstances.cpp
  /// Counts a creation, and enters the instance if the class keeps a table.
  void AddInstance(BasicEntity* entity);
  /// Counts a deletion. A class with a table ends the run (InexistantInstance) on an entity not in it.
  void RemoveInstance(BasicEntity* entity);
  /// The instance at a rank: EmptyInstanceListForMetaClass without any, an index failure out of range.
  BasicEntity* GetInstance(int rank) const;
  /// A copy of the table, in order of creation.
  Tableau<BasicEntity*> InstanceTab() const;
  /// The same without the copy, until an instance comes or goes.
  const Tableau<BasicEntity*>& Instances() const;
  /// The table itself, in which the caller sees instances come and go.
  Tableau<BasicEntity*>* SharedInstanceTab();
  /// Instances alive in the table; 0 for a class without one.
  int InstanceNumber() const { return mInstanceNumber; }
  void InstanceNumber(int number) { mInstanceNumber = number; }
  /// Counts since the start, with or without a table.
  int InstanceCreation() const { return mInstanceCreation; }
  int InstanceDeletion() const { return mInstanceDeletion; }

  // Identity
  int ClassId() const { return mClassId; }
  void ClassId(int id) { mClassId = id; }
  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name) { mClassName = name; }

  // Declaration of kinship
  void SetParentClassId(int id);
  void SetParentClassIds(int first, int second);
  /// Plain appends, without a test for presence.
  void AddParentClassId(int id) { mParentIds.push_back(id); }
  void AddChildClassId(int id) { mChildIds.push_back(id); }

  // Kinship; all but the parents are known after SetHierarchy
  Tableau<int> ParentIds() const { return mParentIds; }
  Tableau<int> ChildIds() const { return mChildIds; }
  /// Depth first: a parent, its ancestors, the next parent and its further ones; the root last.
  Tableau<int> AncestorIds() const { return mAncestorIds; }
  void AncestorIds(Tableau<int>& ids) const { ids = mAncestorIds; }
  Tableau<int> DescendantIds() const { return mDescendantIds; }
  void DescendantIds(Tableau<int>& ids) const { ids = mDescendantIds; }
  /// Appends the leaves below this class, one reached by two paths twice.
  void TerminalDescendantIds(Tableau<int>& ids) const;
  /// Where lines of descent meet: the answers of the first two parents, and for an empty one the parent's
  /// symbol (this class's, when it has a single parent). The caller deletes the table.
  Tableau<int>* GetUpperMultipleParents() const;
  /// No class is a relative of itself.
  bool IsAncestorOf(int id) const { return Holds(mDescendantIds, id); }
  bool IsDescendantOf(int id) const { return Holds(mAncestorIds, id); }
  bool IsParentOf(int id) const { return Holds(mChildIds, id); }
  bool IsChildOf(int id) const { return Holds(mParentIds, id); }

  // Flags
  /// 1 for a class whose instances are shown to the user.
  void UserInstantiable(int flag) { mUserInstantiable = flag; }
  int IsUserInstantiable() const { return mUserInstantiable; }
  /// 1 for a class that keeps its instances in a table.
  void ExistsInstanceTab(int flag) { mExistsInstanceTab = flag; }
  int ExistsInstanceTab() const { return mExistsInstanceTab; }

  // Hierarchy, step by step; SetHierarchy does it for all classes. MetaClassNotYetCreated ends the run for
  // a relative without a record.
  void SetOneLevelHierarchy();
  void SetTotalHierarchy();

 private:
  static bool Holds(const Tableau<int>& ids, int id) { return ids.position(id) >= 0; }

  int mClassId = K_INT_UNSIGNIFICANT;
  const char* mClassName = "";
  Tableau<int> mParentIds;
  Tableau<int> mAncestorIds;
  Tableau<int> mChildIds;
  Tableau<int> mDescendantIds;
  bool mHierarchyIsSet = false;
  int mInstanceNumber = 0;
  int mInstanceCreation = 0;
  int mInstanceDeletion = 0;
  InstanceTable<BasicEntity, EntityRanks> mInstanceTab{EntityRanks{this}};
  int mUserInstantiable = 0;
  int mExistsInstanceTab = 0;
};

// The registry. Both tables are indexed by class symbol; an empty slot holds null and -9.
extern Tableau<MetaClass*>& gMetaClassTab;
extern Tableau<int>& gMetaClassIdTab;

/// The last identifier of each kind that the kernel keeps for itself, -9 for none; applications number
/// theirs from there. The kernel does not read them.
extern int g_KV_ReservedUserClassId;
extern int g_KV_ReservedUserDescriptorId;
extern int g_KV_ReservedUserMethodId;
extern int g_KV_ReservedUserArgumentId;
extern int g_KV_ReservedUserEventId;
extern int g_KV_ReservedUserProcessId;
extern int g_KV_ReservedUserFileId;

/// Makes a class, shown to the user and with an instance table unless told otherwise, and keeps the name's
/// pointer. A symbol that has a class already gives that class, unchanged.
MetaClass* CreateMetaClass(int id, const char* name);
MetaClass* CreateMetaClass(int id, const char* name, int userInstantiable);
MetaClass* CreateMetaClass(int id, const char* name, int userInstantiable, int existsInstanceTab);

/// Prepares the kernel's global tables and installs the classes of the three layers of entities, which count
/// their instances without keeping a table. To be called first. InstallMetaClasses.cpp
void K_InstallMetaClasses();

/// Computes children, ancestors and descendants of all classes from their parents; it can be called again
/// after more classes have come.
void SetHierarchy();

/// Null for a symbol without a class.
inline MetaClass* GetMetaClass(int id) {
  return id >= 0 && id < gMetaClassTab.size() ? gMetaClassTab.begin()[id] : nullptr;
}

// Each of these ends the run (UnknownEntityClass) on a symbol without a class.
const char* GetClassName(int id);
Tableau<int> ParentIdTab(int id);
Tableau<int> ChildIdTab(int id);
Tableau<int> AncestorIdTab(int id);
void AncestorIdTab(int id, Tableau<int>& ids);
Tableau<int> DescendantIdTab(int id);
void DescendantIdTab(int id, Tableau<int>& ids);
Tableau<int> DescendantIdTab(const char* className);
void DescendantIdTab(const char* className, Tableau<int>& ids);
void TerminalDescendantIdTab(int id, Tableau<int>& ids);
bool IsTerminalClass(int id);
/// The first class is a parent (an ancestor, a child, a descendant) of the second.
bool IsParentOf(int id, int other);
bool IsAncestorOf(int id, int other);
bool IsChildOf(int id, int other);
bool IsDescendantOf(int id, int other);
/// The three layers of entities do not count.
bool HaveCommonAncestor(int id, int other);
/// The first index whose class is the given one or an ancestor of it; -9 for none.
int GetPositionAncestor(const Tableau<int>& ids, int id);

/// -9 for a name without a class. The names of the three layers are known before any installation.
int GetClassSymbol(const char* name);
/// First index of the value; -9 for none.
int GetPosition(const Tableau<int>& values, int value);

/// The nearest ancestor that the classes of all entities share, 0 for none: of one entity its own class, but
/// of two of one class that class's first ancestor. ClassInstances.cpp
int FirstCommonAncestorId(const Tableau<BasicEntity*>& entities);

/// Entry of ClassIdToCharTab; an index failure out of range.
const char* ClassIdToString(int id);
/// Fills ClassIdToCharTab with the reserved symbols.
void MakeClassIdToCharTab();

/// Prints the classes from symbol 1 on.
void DisplayClasses();
