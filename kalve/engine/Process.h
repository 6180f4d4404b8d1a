// Process: what an event acts on. A named activity, usually bound to one entity, with a precondition, a
// delay for when the precondition asks to wait, and methods. Two derived classes are used: DiscreteProcess
// runs once, ContinuousProcess steps. Nothing is virtual: Subclass() and the marks of the readers tell which
// class a process is, and copying and deleting go by them (ProcessDispatch.h).
//
// A process owns its methods, unless a raw copy shares them: the destructor leaves them alone, DeleteInDepth
// of the derived classes destroys them. All living processes stand in mpInstanceTab, where the end of a
// simulation finds what is left. Class names are kept as pointers.
#pragma once

#include <new>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/InstanceTable.h"
#include "kalve/foundations/RareText.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/LazyMethods.h"

class Process {
 public:
  using VoidBody = void (*)(ProcessMethod*);
  using IntBody = int (*)(ProcessMethod*);

  // Life
  /// Precondition and postponement delay among its methods; registers nothing.
  Process();
  /// A shell for raw copies, without methods; false is reported and goes on.
  explicit Process(bool withoutMethod) {
    if (!withoutMethod) RefuseMethods();
  }
  Process(const Process& other);
  Process& operator=(const Process&) = delete;
  /// Leaves the methods alone. An event that still waits with the process goes on without it.
  ~Process() {
    if (g_KV_TraceNewDelMode != 0) TraceDestruction();
    if (mAgendaCouples > 0) LeaveAgendas();
    RemoveInstance(this);
  }
  /// Destroys the process as a Class and frees it; the allocation knows the size of what an application has
  /// derived from it.
  template <class Class>
  static void Free(Class* process) {
    process->~Class();
    if constexpr (requires(void* block) { Class::operator delete(block); })
      Class::operator delete(process);
    else
      ::operator delete(static_cast<void*>(process));
  }

  // Identity
  ProcessSubclassId Subclass() const { return mBinding.subclass; }
  void Subclass(ProcessSubclassId subclass) { mBinding.subclass = subclass; }
  int ClassSymbol() const { return mClassSymbol; }
  void ClassSymbol(int symbol) { mClassSymbol = symbol; }
  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name);
  /// Rank of the process among those alive when it was made, from 1: it can recur within a run.
  int ProcessInstanceNumber() const { return mThisInstanceNumber; }
  const char* InstanceName() const;
  void SetInstanceName(const char* name);
  /// "name_number".
  void SetInstanceName(const char* name, int number);
  /// Enters the table of living processes and gives number, class and name.
  void AddInstance(int classSymbol, const char* className);
  /// InexistantInstance when it is not in the table.
  static void RemoveInstance(Process* process);
  /// The index failure is reported, and null goes back.
  static Process* GetInstance(int rank);

  // Processed entity: ProcessBinding.cpp
  /// The class of which the entity must be an instance.
  int ProcessedEntityClassId() const { return mBinding.entityClass; }
  void ProcessedEntityClassId(int classSymbol) { mBinding.entityClass = classSymbol; }
  int HasProcessedEntity() const { return mBinding.hasEntity; }
  void HasProcessedEntity(int flag) { mBinding.hasEntity = flag; }
  int HasProcessedEntitySpec() const { return mBinding.hasSpec; }
  void HasProcessedEntitySpec(int flag) { mBinding.hasSpec = flag; }
  EntitySpec* ProcessedEntitySpec() const { return mBinding.spec; }
  /// The specification, not owned, that finds or makes the entity anew at each question. Its class must be
  /// the process's or a descendant, and it must select or else make one entity: BadProcessedEntitySpec. Null
  /// clears the pointer and leaves the flag.
  void ProcessedEntitySpec(EntitySpec* spec);
  /// BadProcessedEntityClass for an entity of another class; null clears the pointer and leaves the flag.
  void ProcessedEntity(BasicEntity* entity);
  /// The bound entity, else the one that SpecifiedProcessedBasicEntity finds. Null, with a warning, for a
  /// process bound to nothing; null for one whose entity is dead.
  BasicEntity* ProcessedBasicEntity();
  /// The same, but a process with a class counts as bound to its first instance.
  Entity* ProcessedEntity();
  /// The first entity of the specification's expansion (EntitySpecForProcessedEntityYieldsNone), else the
  /// first instance of the class.
  BasicEntity* SpecifiedProcessedBasicEntity();
  Entity* SpecifiedProcessedEntity();

  // Precondition and delay
  int HasPrecondition() const { return mHasPrecondition; }
  void HasPrecondition(int flag) { mHasPrecondition = flag; }
  /// At least 1 lets the process go, 0 postpones its event, a negative answer gives it up.
  void SetPrecondition(IntBody body);
  int HasPostponementDelay() const { return mHasPostponementDelay; }
  void HasPostponementDelay(int flag) { mHasPostponementDelay = flag; }
  void SetPostponementDelay(IntBody body);
  /// Clock ticks.
  int PostponementDelay() const { return mBinding.postponementDelay; }
  void PostponementDelay(int delay) { mBinding.postponementDelay = delay; }
  /// Whether the disposal of its event frees it.
  int ToBeDeleted() const { return mBinding.toBeDeleted; }
  void ToBeDeleted(int flag) { mBinding.toBeDeleted = flag; }
  int IsRecorded() const { return mBinding.isRecorded; }
  void IsRecorded(int flag) { mBinding.isRecorded = flag; }
  // EventOutputs.cpp
  /// The specification in charge of the class, found when the process got its class name; null without one.
  ProcessOutputSpec* GetOutputSpec() const { return mOutputSpec; }
  /// Notes a start there, with the processed entity, whose name is empty when there is none; nothing without
  /// a specification.
  void RecordStart(int clock);

  // Methods. An id without method is reported (TabIndexOutOfRange), and null, 0 or nothing follows.
  /// Ignores methods that are not for processes.
  void AddMethod(Method* method);
  Method* GetMethod(int id);
  /// The same, and null for a method without body.
  Method* GetMethodWithBody(int id);
  /// The first of that name, or null.
  Method* GetMethod(const char* name) const { return mMethods.Named(name); }
  Tableau<Method*> MethodTab() const { return mMethods.Methods(); }
  Tableau<int> DualMethodTab() const { return mMethods.Ranks(); }
  void AssignBody(int id, VoidBody body);
  void AssignBody(int id, IntBody body);
  void SetIntArgValue(int methodId, int argumentId, int value);
  void SetEntityArgValue(int methodId, int argumentId, BasicEntity* value);
  /// Run the body without a look at the method's type.
  void ExecVoidCoreMethod(int id);
  int ExecIntCoreMethod(int id);
  /// BadMethodValueType for a method of another type.
  void ExecVoidMethod(int id);
  int ExecIntMethod(int id);

  struct Ranks {
    int RankOf(const Process* process) const { return process->mRank; }
    void Keep(Process* process, int /*from*/, int to) const { process->mRank = to; }
    void Forget(Process* /*process*/, int /*rank*/) const {}
  };
  static InstanceTable<Process, Ranks> mpInstanceTab;
  static int mInstanceNumber;

 protected:
  void TakeBinding(const Process& other) { mBinding = other.mBinding; }
  /// The predefined methods of a derived class, those of this one first.
  void BeginMethods(const PredefinedSet& set) { mMethods.Begin(set, this); }
  void ReportAbsent(int id, const char* caller) const;
  Method* MethodOr(int id, const char* caller);
  Method* MethodWithBody(int id, const char* caller);
  template <class Body>
  void Assign(int id, Body body);
  BasicEntity* BoundOrSpecifiedEntity();

  LazyMethods mMethods;

 private:
  friend class Event;
  friend struct Ranks;
  void LeaveAgendas();  // EventDisposal.cpp
  static void RefuseMethods();
  void TraceDestruction() const;

  /// What every copy and assignment takes.
  struct Binding {
    BasicEntity* entity = nullptr;
    EntitySpec* spec = nullptr;
    int entityClass = 0;
    int hasEntity = 0;
    int hasSpec = 0;
    int postponementDelay = 1;
    int toBeDeleted = 0;
    int isRecorded = 0;
    ProcessSubclassId subclass = DISCRETE_PROCESS;
  };

  int mClassSymbol = K_INT_UNSIGNIFICANT;
  int mThisInstanceNumber = 0;
  int mRank = K_INT_UNSIGNIFICANT;  // in mpInstanceTab
  const char* mClassName = "";
  mutable RareText mInstanceName;
  mutable const char* mNameStem = nullptr;  // of a name that is composed when it is first read
  Binding mBinding;
  int mHasPrecondition = 0;
  int mHasPostponementDelay = 0;
  ProcessOutputSpec* mOutputSpec = nullptr;
  int mAgendaCouples = 0;  // couples of events in an agenda that hold this process
};
