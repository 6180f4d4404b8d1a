// Methods: behaviour as data. A method is a record in a table of its owner that carries an id, a declared
// result type, typed arguments and a plain function, the body, which an application assigns, replaces or
// takes away at run time. The body receives the method itself: it reaches its owner through Described...()
// and its inputs through Get...ArgValue(id). Arguments stay set between calls.
//
// Five branches, one for each kind of owner, add the pointer back to it; the leaves fix the result type.
// Nothing is virtual: ObjectClass() tells the branch, and with ClassType() the leaf. The body is stored in
// the base under no type, so that its signature is the caller's word: a VOID leaf of a structure monitor
// holds a body that answers an entity.
//
// A method belongs to one owner and owns its arguments.
#pragma once

#include <cstdint>

#include "kalve/foundations/BlockPool.h"
#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Prefetch.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/methods/ArgumentSlots.h"
#include "kalve/methods/ValueTypeSet.h"

class Method {
 public:
  Method& operator=(const Method&) = delete;
  ~Method();
  static void* operator new(std::size_t size) { return pool.Take(size); }
  static void operator delete(void* block) { pool.Give(block); }

  // Identity
  int ObjectClass() const { return mObjectClass; }
  ValueTypeId ClassType() const { return static_cast<ValueTypeId>(mClassType); }
  void ClassType(ValueTypeId type) { mClassType = static_cast<std::uint8_t>(type); }
  /// The id: key of the owner's table and index of MethodIdToCharTab.
  int ClassSymbol() const { return mClassSymbol; }
  void ClassSymbol(int id) { mClassSymbol = id; }
  /// A new text, which the caller frees.
  char* ClassName() const;
  /// Keeps the pointer, not the text; copies share it.
  void ClassName(const char* name) { mClassName = name; }
  /// The pointer itself, for searches.
  const char* StoredClassName() const { return mClassName; }
  const char* ClassShortComment() const;
  void ClassShortComment(const char* comment);

  // Body
  bool HasBodyAssigned() const { return mBody != nullptr; }

  // Arguments
  /// Takes ownership. A second argument of the same id hides the first.
  void AddArg(Argument* argument);
  /// InexistantArgument for an id without argument, the index failure beyond the table.
  Argument* GetArg(int id);
  Tableau<Argument*> ArgumentTab() const { return mArgumentTab.Table(); }
  /// Asks for the memory of the first one.
  void FetchArgument() const { PrefetchLine(mArgumentTab.First()); }

  /// Writes the argument of an id; BadArgumentType when its type is another. Texts are duplicated, number
  /// tables and domains change hands, all other pointers are borrowed.
  void SetArgValue(int id, int value);
  void SetArgValue(int id, float value);
  void SetArgValue(int id, double value);
  void SetArgValue(int id, const char* value);
  void SetArgValue(int id, BasicEntity* value);
  void SetArgValue(int id, Tableau<BasicEntity*>* value);
  void SetArgValue(int id, Tableau<IntInterval*>* value);
  void SetArgValue(int id, DescValueSpec* value);
  void SetArgValue(int id, Tableau<DescValueSpec*>* value);
  void SetArgValue(int id, Tableau<int>* value);
  void SetArgValue(int id, Tableau<float>* value);
  void SetArgValue(int id, Tableau<double>* value);
  void SetArgValue(int id, Event* value);
  void SetArgValue(int id, Descriptor* value);

  /// Read the argument of an id, with the same failures. What a pointer shows stays the argument's.
  int GetIntArgValue(int id);
  float GetFloatArgValue(int id);
  double GetDoubleArgValue(int id);
  const char* GetStringArgValue(int id);
  BasicEntity* GetBasicEntityArgValue(int id);
  Tableau<BasicEntity*>* GetEntityTabArgValue(int id);
  Tableau<IntInterval*>* GetIntDomainArgValue(int id);
  DescValueSpec* GetDescValueSpecArgValue(int id);
  Tableau<DescValueSpec*>* GetDescValueSpecTabArgValue(int id);
  Tableau<int>* GetIntTabArgValue(int id);
  Tableau<float>* GetFloatTabArgValue(int id);
  Tableau<double>* GetDoubleTabArgValue(int id);
  Event* GetEventArgValue(int id);
  Descriptor* GetDescriptorArgValue(int id);
  // model/EntityCasts.cpp
  Entity* GetEntityArgValue(int id);

  // Counters
  /// Constructions, copies included, and destructions.
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }
  /// Takes one off mInstanceNumber. Nothing adds to it: it runs below zero as methods die.
  static void RemoveInstance(Method* method);
  /// Methods that count without an object of their own (LazyMethods).
  static void CountUnmade(int constructions, int destructions) {
    _nbConst += constructions;
    _nbDest += destructions;
    mInstanceNumber -= destructions;
  }
  static int mInstanceNumber;

 protected:
  Method(ObjectClassId branch, ValueTypeId type, int id, const char* name);
  /// Copies arguments but those of number tables.
  Method(const Method& other);

  using ErasedBody = void (*)();
  void StoreBody(ErasedBody body) { mBody = body; }
  ErasedBody StoredBody() const { return mBody; }

  /// The assignment of every leaf: values rank by rank, then the body. Own id, name and owner stay. A type
  /// outside `accepted`, or another at the same rank here, is UnsupportedArgumentType.
  void TakeValues(const Method& source, const char* leafName, ValueTypeSet accepted);

 private:
  friend void AssignMethod(Method& target, const Method& source);
  template <class Class>
  Class& TypedArg(int id, const char* operation);

  // With a leaf's pointer to its owner this is a cache line.
  std::uint8_t mObjectClass;
  std::uint8_t mClassType;
  bool mHasComment = false;
  int mClassSymbol;
  const char* mClassName;
  ArgumentSlots mArgumentTab;
  ErasedBody mBody = nullptr;

  static BlockPool pool;  // for leaves of that size
  static int _nbConst;
  static int _nbDest;
};

// Branches ---------------------------------------------------------------------------------------------

/// What a branch shares: its tag, and bodies that take `Branch*`. These two ask nothing about the leaf.
template <class Branch, ObjectClassId kind>
class MethodBranch : public Method {
 public:
  using BranchType = Branch;
  static constexpr ObjectClassId branch = kind;

  /// Null takes the body away.
  template <class Result>
  void SetBody(Result (*body)(Branch*)) {
    StoreBody(reinterpret_cast<ErasedBody>(body));
  }
  /// Runs the body as one that answers a Result; without a body answers 0, false or null.
  template <class Result>
  Result Call() {
    const auto body = reinterpret_cast<Result (*)(Branch*)>(StoredBody());
    return body != nullptr ? body(static_cast<Branch*>(this)) : Result();
  }

 protected:
  MethodBranch(ValueTypeId type, int id, const char* name) : Method(kind, type, id, name) {}
};

/// The owner of a method is set by its AddMethod; a copy shows the old owner until then.
class EntityMethod : public MethodBranch<EntityMethod, KV_ENTITY> {
 public:
  void DescribedEntity(Entity* entity) { mpDescribedEntity = entity; }
  Entity* DescribedEntity() const { return mpDescribedEntity; }

 protected:
  using MethodBranch::MethodBranch;

 private:
  Entity* mpDescribedEntity = nullptr;
};

class ProcessMethod : public MethodBranch<ProcessMethod, KV_PROCESS> {
 public:
  void DescribedProcess(Process* process) { mpDescribedProcess = process; }
  // engine/ProcessMethods.cpp
  /// Null unless the process is discrete or continuous.
  Process* DescribedProcess() const;
  /// Null unless the process is of that kind.
  ContinuousProcess* DescribedContinuousProcess() const;
  DiscreteProcess* DescribedDiscreteProcess() const;

 protected:
  using MethodBranch::MethodBranch;

 private:
  Process* mpDescribedProcess = nullptr;
};

class EventMethod : public MethodBranch<EventMethod, KV_EVENT> {
 public:
  void DescribedEvent(Event* event) { mpDescribedEvent = event; }
  Event* DescribedEvent() const { return mpDescribedEvent; }

 protected:
  using MethodBranch::MethodBranch;

 private:
  Event* mpDescribedEvent = nullptr;
};

class MonitorMethod : public MethodBranch<MonitorMethod, KV_MONITOR> {
 public:
  void DescribedMonitor(DescValueMonitor* monitor) { mpDescribedDescValueMonitor = monitor; }
  DescValueMonitor* DescribedDescValueMonitor() const { return mpDescribedDescValueMonitor; }
  void DescribedMonitor(StructureMonitor* monitor) { mpDescribedStructureMonitor = monitor; }
  StructureMonitor* DescribedStructureMonitor() const { return mpDescribedStructureMonitor; }

 protected:
  using MethodBranch::MethodBranch;

 private:
  DescValueMonitor* mpDescribedDescValueMonitor = nullptr;
  StructureMonitor* mpDescribedStructureMonitor = nullptr;
};

class EntitySpecMethod : public MethodBranch<EntitySpecMethod, KV_ENTITYSPEC> {
 public:
  void DescribedEntitySpec(EntitySpec* spec) { mpDescribedEntitySpec = spec; }
  EntitySpec* DescribedEntitySpec() const { return mpDescribedEntitySpec; }

 protected:
  using MethodBranch::MethodBranch;

 private:
  EntitySpec* mpDescribedEntitySpec = nullptr;
};

// Leaves -----------------------------------------------------------------------------------------------

/// One row: branch, result of the body, tag, argument types that its assignment accepts.
template <class Branch, class Result, ValueTypeId valueType, ValueTypeSet acceptedTypes>
class MethodLeaf : public Branch {
 public:
  using Body = Result (*)(Branch*);
  static constexpr ValueTypeId type = valueType;
  static constexpr ValueTypeSet accepted = acceptedTypes;

  /// Without id and name, for those who set them later.
  MethodLeaf() : Branch(type, K_INT_UNSIGNIFICANT, "") {}
  MethodLeaf(int id, const char* className) : Branch(type, id, className) {}

  /// Null takes the body away.
  void AssignBody(Body body) { this->SetBody(body); }
};

inline constexpr ValueTypeSet plainArguments = {INT, FLOAT, DOUBLE, STRING, P_ENTITY, P_EVENT};
inline constexpr ValueTypeSet monitorArguments = {INT, FLOAT, DOUBLE, STRING, P_ENTITY, ENTITY_TAB};
inline constexpr ValueTypeSet valueSpecArguments = {P_DESCVALUESPEC, DESCVALUESPEC_TAB};
inline constexpr ValueTypeSet monitorOrValueSpecArguments = {
    INT, FLOAT, DOUBLE, STRING, P_ENTITY, ENTITY_TAB, P_DESCVALUESPEC, DESCVALUESPEC_TAB};
inline constexpr ValueTypeSet specArguments = {INT, P_ENTITY};

// What each leaf adds: its own name, constructors, an assignment that answers its right-hand side.
#define KALVE_METHOD(Name)                       \
 public:                                         \
  static constexpr const char* leafName = #Name; \
  using MethodLeaf::MethodLeaf;                  \
  Name() = default;                              \
  Name(const Name&) = default;                   \
  const Name& operator=(const Name& source) {    \
    TakeValues(source, leafName, accepted);      \
    return source;                               \
  }

class VoidEntityMethod : public MethodLeaf<EntityMethod, void, VOID, plainArguments> {
  KALVE_METHOD(VoidEntityMethod)
};
class EntityPredicate : public MethodLeaf<EntityMethod, bool, BOOLEAN, plainArguments> {
  KALVE_METHOD(EntityPredicate)
};
class IntEntityMethod : public MethodLeaf<EntityMethod, int, INT, plainArguments> {
  KALVE_METHOD(IntEntityMethod)
};
class FloatEntityMethod : public MethodLeaf<EntityMethod, float, FLOAT, plainArguments> {
  KALVE_METHOD(FloatEntityMethod)
};
class DoubleEntityMethod : public MethodLeaf<EntityMethod, double, DOUBLE, plainArguments> {
  KALVE_METHOD(DoubleEntityMethod)
};
class StringEntityMethod : public MethodLeaf<EntityMethod, const char*, STRING, plainArguments> {
  KALVE_METHOD(StringEntityMethod)
};
class EntityEntityMethod : public MethodLeaf<EntityMethod, BasicEntity*, P_ENTITY, plainArguments> {
  KALVE_METHOD(EntityEntityMethod)
};
class EntityTabEntityMethod
    : public MethodLeaf<EntityMethod, Tableau<BasicEntity*>*, ENTITY_TAB, plainArguments> {
  KALVE_METHOD(EntityTabEntityMethod)
};
class IntTabEntityMethod
    : public MethodLeaf<EntityMethod, Tableau<int>*, INT_TAB, ValueTypeSet{INT, INT_TAB}> {
  KALVE_METHOD(IntTabEntityMethod)
};
class FloatTabEntityMethod
    : public MethodLeaf<EntityMethod, Tableau<float>*, FLOAT_TAB, ValueTypeSet{INT, FLOAT_TAB}> {
  KALVE_METHOD(FloatTabEntityMethod)
};
class DoubleTabEntityMethod
    : public MethodLeaf<EntityMethod, Tableau<double>*, DOUBLE_TAB, ValueTypeSet{INT, DOUBLE_TAB}> {
  KALVE_METHOD(DoubleTabEntityMethod)
};

class VoidProcessMethod : public MethodLeaf<ProcessMethod, void, VOID, plainArguments> {
  KALVE_METHOD(VoidProcessMethod)
};
class IntProcessMethod : public MethodLeaf<ProcessMethod, int, INT, plainArguments> {
  KALVE_METHOD(IntProcessMethod)
};
class FloatProcessMethod : public MethodLeaf<ProcessMethod, float, FLOAT, plainArguments> {
  KALVE_METHOD(FloatProcessMethod)
};
class DoubleProcessMethod : public MethodLeaf<ProcessMethod, double, DOUBLE, plainArguments> {
  KALVE_METHOD(DoubleProcessMethod)
};

class VoidEventMethod : public MethodLeaf<EventMethod, void, VOID, plainArguments> {
  KALVE_METHOD(VoidEventMethod)
};
class EventPredicate : public MethodLeaf<EventMethod, bool, BOOLEAN, plainArguments> {
  KALVE_METHOD(EventPredicate)
};
class IntEventMethod : public MethodLeaf<EventMethod, int, INT, plainArguments> {
  KALVE_METHOD(IntEventMethod)
};

class VoidMonitorMethod : public MethodLeaf<MonitorMethod, void, VOID, monitorArguments> {
  KALVE_METHOD(VoidMonitorMethod)
};
class IntMonitorMethod : public MethodLeaf<MonitorMethod, int, INT, monitorArguments> {
  KALVE_METHOD(IntMonitorMethod)
};
class FloatMonitorMethod : public MethodLeaf<MonitorMethod, float, FLOAT, monitorArguments> {
  KALVE_METHOD(FloatMonitorMethod)
};
class DoubleMonitorMethod : public MethodLeaf<MonitorMethod, double, DOUBLE, monitorArguments> {
  KALVE_METHOD(DoubleMonitorMethod)
};
class StringMonitorMethod : public MethodLeaf<MonitorMethod, const char*, STRING, monitorArguments> {
  KALVE_METHOD(StringMonitorMethod)
};
class EntityMonitorMethod : public MethodLeaf<MonitorMethod, BasicEntity*, P_ENTITY, monitorArguments> {
  KALVE_METHOD(EntityMonitorMethod)
};
class EntityTabMonitorMethod
    : public MethodLeaf<MonitorMethod, Tableau<BasicEntity*>*, ENTITY_TAB, monitorArguments> {
  KALVE_METHOD(EntityTabMonitorMethod)
};
class DescValueSpecMonitorMethod
    : public MethodLeaf<MonitorMethod, DescValueSpec*, P_DESCVALUESPEC, valueSpecArguments> {
  KALVE_METHOD(DescValueSpecMonitorMethod)
};
class DescValueSpecTabMonitorMethod : public MethodLeaf<MonitorMethod, Tableau<DescValueSpec*>*,
                                                        DESCVALUESPEC_TAB, monitorOrValueSpecArguments> {
  KALVE_METHOD(DescValueSpecTabMonitorMethod)
};

class EntitySpecPredicate : public MethodLeaf<EntitySpecMethod, bool, BOOLEAN, specArguments> {
  KALVE_METHOD(EntitySpecPredicate)
};
class IntEntitySpecMethod : public MethodLeaf<EntitySpecMethod, int, INT, specArguments> {
  KALVE_METHOD(IntEntitySpecMethod)
};
class EntityEntitySpecMethod : public MethodLeaf<EntitySpecMethod, BasicEntity*, P_ENTITY, specArguments> {
  KALVE_METHOD(EntityEntitySpecMethod)
};
class EntityTabEntitySpecMethod
    : public MethodLeaf<EntitySpecMethod, Tableau<BasicEntity*>*, ENTITY_TAB, specArguments> {
  KALVE_METHOD(EntityTabEntitySpecMethod)
};
#undef KALVE_METHOD

// By the tags ------------------------------------------------------------------------------------------

template <class... Leaves>
struct MethodLeafList {
  /// Calls `visit` with the method as its tagged leaf; false when no leaf has its tags.
  template <class Visit>
  static bool VisitLeaf(const Method& method, Visit visit) {
    const auto tried = [&]<class Leaf>(const Leaf*) {
      if (method.ObjectClass() != Leaf::branch || method.ClassType() != Leaf::type) return false;
      visit(static_cast<const Leaf&>(method));
      return true;
    };
    return (tried(static_cast<const Leaves*>(nullptr)) || ...);
  }
};

/// All leaves: the way from the tags to the class.
using MethodLeaves =
    MethodLeafList<VoidEntityMethod, EntityPredicate, IntEntityMethod, FloatEntityMethod, DoubleEntityMethod,
                   StringEntityMethod, EntityEntityMethod, EntityTabEntityMethod, IntTabEntityMethod,
                   FloatTabEntityMethod, DoubleTabEntityMethod,                                   //
                   VoidProcessMethod, IntProcessMethod, FloatProcessMethod, DoubleProcessMethod,  //
                   VoidEventMethod, EventPredicate, IntEventMethod,                               //
                   VoidMonitorMethod, IntMonitorMethod, FloatMonitorMethod, DoubleMonitorMethod,  //
                   StringMonitorMethod, EntityMonitorMethod, EntityTabMonitorMethod,              //
                   DescValueSpecMonitorMethod, DescValueSpecTabMonitorMethod,                     //
                   EntitySpecPredicate, IntEntitySpecMethod, EntityEntitySpecMethod,
                   EntityTabEntitySpecMethod>;

/// The assignment of the source's leaf.
void AssignMethod(Method& target, const Method& source);
