// StructureMonitor: intercepts the elements that enter and leave the entities that it is attached to, and
// can refuse them. An application allocates it at the start and keeps it; one may watch many entities.
//
// A body reaches the set by the argument CURRENTENTITYCONTAINER_ARGUMENT and the element by
// CANDIDATEENTITYELEMENT_ARGUMENT; argument MONITOREDDESCRIPTOR_ARGUMENT stays unset. Answering null refuses.
// On adding, what it answers is what enters.
#pragma once

#include "kalve/foundations/Tableau.h"
#include "kalve/methods/MethodTable.h"

class StructureMonitor {
 public:
  /// Keeps the name's pointer.
  explicit StructureMonitor(const char* name);
  /// Copies methods and flags. The copy is in no instance table: destroying it ends the run
  /// (InexistantInstance).
  StructureMonitor(const StructureMonitor& other);
  StructureMonitor& operator=(const StructureMonitor&) = delete;
  /// Destroys the methods.
  ~StructureMonitor();

  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name) { mClassName = name; }

  using Body = BasicEntity* (*)(MonitorMethod*);
  void AssignWhenAddElementMethod(Body body);
  void AssignWhenRemoveElementMethod(Body body);
  /// Let everything pass; the body stays.
  void UnassignWhenAddElementMethod() { mHasAddElementMethod = 0; }
  void UnassignWhenRemoveElementMethod() { mHasRemoveElementMethod = 0; }
  int HasAddElementMethod() const { return mHasAddElementMethod; }
  int HasRemoveElementMethod() const { return mHasRemoveElementMethod; }
  void HasAddElementMethod(int flag) { mHasAddElementMethod = flag; }
  void HasRemoveElementMethod(int flag) { mHasRemoveElementMethod = flag; }

  void AttachToEntity(BasicEntity* entity) { AttachToEntity(this, entity); }
  /// StructAttachmentFailed for a null monitor.
  static void AttachToEntity(StructureMonitor* monitor, BasicEntity* entity);
  /// DoNotHaveMonitorAttached for an entity without a monitor.
  void DetachFromEntity(BasicEntity* entity);

  // Methods. An id without a method is an index failure.
  Method* GetMethod(int id) const;
  /// Null for an unknown name.
  Method* GetMethod(const char* name) const { return mMethods.Named(name); }
  Tableau<Method*> MethodTab() const { return mMethods.Methods(); }
  Tableau<int> DualMethodTab() const { return mMethods.Ranks(); }
  /// Takes ownership of a monitor method; ignores any other.
  void AddMethod(Method* method);
  /// Run the body whatever its type; without a body nothing, or null.
  void ExecVoidCoreMethod(int id);
  BasicEntity* ExecEntityCoreMethod(int id);

  // Instances
  static void AddInstance(StructureMonitor* monitor);
  /// InexistantInstance for a monitor that is not in the table.
  static void RemoveInstance(StructureMonitor* monitor);
  /// An index failure out of range.
  static StructureMonitor* GetInstance(int rank);
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }
  /// Constructions plus destructions.
  static int mInstanceNumber;
  static Tableau<StructureMonitor*>& mpInstanceTab;

 private:
  MonitorMethod* FoundMethod(int id, const char* where) const;

  const char* mClassName;
  int mHasAddElementMethod = 0;
  int mHasRemoveElementMethod = 0;
  MethodTable mMethods;

  static int _nbConst;
  static int _nbDest;
};
