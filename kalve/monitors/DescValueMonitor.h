// DescValueMonitor: intercepts the changes and reads of the variable descriptors that it is attached to. An
// application allocates it at the start and keeps it; one may serve any number of descriptors, and a copied
// descriptor keeps it.
//
// A body reaches the descriptor by the argument MONITOREDDESCRIPTOR_ARGUMENT, and by the arguments of its
// type the current value and, on a change, the candidate. What it answers on a change is what is stored: the
// candidate to accept, the current value to refuse; either way it counts as a change. What it answers on a
// read is what the reader gets. Nothing guards against re-entry: forms with `withMonitor` 0 go past the
// monitor. A body that triggers the same monitor on another descriptor reads its own arguments first.
//
// Seven classes, one for each type that can be monitored, have two or four predefined methods. A method is
// asked while its flag is set and it has a body.
#pragma once

#include <array>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/methods/MethodTable.h"
#include "kalve/methods/PredefinedIds.h"

class DescValueMonitor {
 public:
  /// Keeps the name's pointer. Without methods.
  explicit DescValueMonitor(const char* name);
  /// Copies flags and methods, but those of type P_DESCVALUESPEC. The copy is in no instance table:
  /// destroying it ends the run (InexistantInstance).
  DescValueMonitor(const DescValueMonitor& other);
  DescValueMonitor& operator=(const DescValueMonitor&) = delete;
  /// Destroys the methods.
  ~DescValueMonitor();

  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name) { mClassName = name; }
  ValueTypeId DescriptorType() const { return mDescriptorType; }
  void DescriptorType(ValueTypeId type) { mDescriptorType = type; }

  // Attachment: MonitorAttachment.cpp. A monitor that is attached already is replaced. The static forms take
  // a null monitor too, which is a failure.
  /// Through the entity: the descriptor must exist (InexistantVariableDescriptor) and be of this type
  /// (AttachmentTypeError) if it is of a type that has monitors; null is AttachmentFailed.
  void AttachToDescriptor(DescriptedEntity* entity, int classSymbol) {
    AttachToDescriptor(this, entity, classSymbol);
  }
  static void AttachToDescriptor(DescValueMonitor* monitor, DescriptedEntity* entity, int classSymbol);
  /// Directly, without a look at the types; null is DirectAttachmentFailed.
  void AttachToDescriptor(VariableDescriptor* descriptor) { AttachToDescriptor(this, descriptor); }
  static void AttachToDescriptor(DescValueMonitor* monitor, VariableDescriptor* descriptor);
  /// Take any monitor off.
  void DetachFromDescriptor(DescriptedEntity* entity, int classSymbol);
  void DetachFromDescriptor(VariableDescriptor* descriptor);

  // Methods. An id without a method is an index failure.
  Method* GetMethod(int id) const;
  /// Null for an unknown name.
  Method* GetMethod(const char* name) const { return mMethods.Named(name); }
  Tableau<Method*> MethodTab() const { return mMethods.Methods(); }
  Tableau<int> DualMethodTab() const { return mMethods.Ranks(); }
  /// Takes ownership of a monitor method; ignores any other.
  void AddMethod(Method* method);
  /// Run the body whatever its type; without a body nothing, 0 or null.
  void ExecVoidCoreMethod(int id);
  int ExecIntCoreMethod(int id);
  float ExecFloatCoreMethod(int id);
  double ExecDoubleCoreMethod(int id);
  const char* ExecStringCoreMethod(int id);
  BasicEntity* ExecEntityCoreMethod(int id);
  Tableau<BasicEntity*>* ExecEntityTabCoreMethod(int id);
  DescValueSpec* ExecDescValueSpecCoreMethod(int id);
  Tableau<DescValueSpec*>* ExecDescValueSpecTabCoreMethod(int id);

  // Flags by slot, in the order of the methods of a class: a monitor that serves a descriptor of another
  // type is asked by slot, and then fails for want of the method.
  static constexpr int setSlot = 0;
  static constexpr int getSlot = 1;
  static constexpr int tabAddSlot = 1;
  static constexpr int tabRemoveSlot = 2;
  static constexpr int tabGetSlot = 3;
  int HasMethodIn(int slot) const { return mFlags[static_cast<std::size_t>(slot)]; }
  /// The method of the id, if the flag of the slot is set and it has a body; null otherwise.
  MonitorMethod* AskedMethod(int slot, int id) const;

  // Instances
  static void AddInstance(DescValueMonitor* monitor);
  /// InexistantInstance for a monitor that is not in the table.
  static void RemoveInstance(DescValueMonitor* monitor);
  /// An index failure out of range.
  static DescValueMonitor* GetInstance(int rank);
  /// Its rank in the table, -9 for none.
  static int GetPosition(DescValueMonitor* monitor);
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }
  static int mInstanceNumber;
  static Tableau<DescValueMonitor*>& mpInstanceTab;

 protected:
  DescValueMonitor(const char* name, ValueTypeId type);
  /// Assigns the body of a method and sets the flag of its slot, for a null body too.
  template <class Result>
  void AssignIn(int methodId, int slot, Result (*body)(MonitorMethod*));
  void FlagIn(int slot, int flag) { mFlags[static_cast<std::size_t>(slot)] = flag; }

 private:
  MonitorMethod* FoundMethod(int id, const char* where) const;
  template <class Result>
  Result Exec(int id, const char* where);

  const char* mClassName;
  ValueTypeId mDescriptorType = VOID;
  MethodTable mMethods;
  std::array<int, 4> mFlags{};

  static int _nbConst;
  static int _nbDest;
};

// One row for each method of a class: its name, what its body answers, its id, its slot. Assigning a body
// sets the flag; unassigning clears the flag and leaves the body, which the flag brings back.
#define KALVE_MONITORED(Name, Result, id, slot)                                                       \
  void AssignWhen##Name##Method(Result (*body)(MonitorMethod*)) { AssignIn<Result>(id, slot, body); } \
  void UnassignWhen##Name##Method() { FlagIn(slot, 0); }                                              \
  int Has##Name##Method() const { return HasMethodIn(slot); }                                         \
  void Has##Name##Method(int flag) { FlagIn(slot, flag); }

class IntDescValueMonitor : public DescValueMonitor {
 public:
  explicit IntDescValueMonitor(const char* name);
  KALVE_MONITORED(SetInt, int, WHEN_SET_INT, setSlot)
  KALVE_MONITORED(GetInt, int, WHEN_GET_INT, getSlot)
};

class FloatDescValueMonitor : public DescValueMonitor {
 public:
  explicit FloatDescValueMonitor(const char* name);
  KALVE_MONITORED(SetFloat, float, WHEN_SET_FLOAT, setSlot)
  KALVE_MONITORED(GetFloat, float, WHEN_GET_FLOAT, getSlot)
};

class DoubleDescValueMonitor : public DescValueMonitor {
 public:
  explicit DoubleDescValueMonitor(const char* name);
  KALVE_MONITORED(SetDouble, double, WHEN_SET_DOUBLE, setSlot)
  KALVE_MONITORED(GetDouble, double, WHEN_GET_DOUBLE, getSlot)
};

class StringDescValueMonitor : public DescValueMonitor {
 public:
  explicit StringDescValueMonitor(const char* name);
  KALVE_MONITORED(SetString, const char*, WHEN_SET_STRING, setSlot)
  KALVE_MONITORED(GetString, const char*, WHEN_GET_STRING, getSlot)
};

class EntityDescValueMonitor : public DescValueMonitor {
 public:
  explicit EntityDescValueMonitor(const char* name);
  KALVE_MONITORED(SetEntity, BasicEntity*, WHEN_SET_ENTITY, setSlot)
  KALVE_MONITORED(GetEntity, BasicEntity*, WHEN_GET_ENTITY, getSlot)
};

class EntityTabDescValueMonitor : public DescValueMonitor {
 public:
  explicit EntityTabDescValueMonitor(const char* name);
  KALVE_MONITORED(SetEntityTab, Tableau<BasicEntity*>*, WHEN_SET_ENTITYTAB, setSlot)
  KALVE_MONITORED(AddEntity, BasicEntity*, WHEN_ADD_ENTITY, tabAddSlot)
  KALVE_MONITORED(RemoveEntity, BasicEntity*, WHEN_REMOVE_ENTITY, tabRemoveSlot)
  KALVE_MONITORED(GetEntityTab, Tableau<BasicEntity*>*, WHEN_GET_ENTITYTAB, tabGetSlot)
};

class DescValueSpecTabDescValueMonitor : public DescValueMonitor {
 public:
  explicit DescValueSpecTabDescValueMonitor(const char* name);
  KALVE_MONITORED(SetDescValueSpecTab, Tableau<DescValueSpec*>*, WHEN_SET_DESCVALUESPECTAB, setSlot)
  KALVE_MONITORED(AddDescValueSpec, DescValueSpec*, WHEN_ADD_DESCVALUESPEC, tabAddSlot)
  KALVE_MONITORED(RemoveDescValueSpec, DescValueSpec*, WHEN_REMOVE_DESCVALUESPEC, tabRemoveSlot)
  KALVE_MONITORED(GetDescValueSpecTab, Tableau<DescValueSpec*>*, WHEN_GET_DESCVALUESPECTAB, tabGetSlot)
};
#undef KALVE_MONITORED
