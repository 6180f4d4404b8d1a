// EntitySpec: a set of entities, described. Expand() turns the description into a table.
//
// A specification says which class it refers to, how many entities it wants, whether they are found among the
// living instances or made anew, which values their descriptors have, and which functions of the model
// select, make or count them. A condition filters instances that are found and initialises entities that are
// made. Processes find the entity that they work on by a specification; descriptors hold one as their value.
//
// It is no entity, but it has methods as entities have: four fixed ones carry the functions of the model.
//
// A specification owns its methods and the table of its expansion, and owns its conditions together with its
// copies. The entities belong to nobody: those made by one expansion outlive the next.
#pragma once

#include <memory>
#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/methods/MethodTable.h"

class EntitySpec {
 public:
  using Selector = bool (*)(EntitySpecMethod*);
  using Instantiator = BasicEntity* (*)(EntitySpecMethod*);
  using ListInstantiator = Tableau<BasicEntity*>* (*)(EntitySpecMethod*);
  using Evaluator = int (*)(EntitySpecMethod*);

  // Life. Every specification is in the registry from its construction to its end.
  /// Named "entitySpec", all other constructors giving no name; of no class, returning all instances.
  EntitySpec();
  explicit EntitySpec(int classId);
  /// Selects: BadQuantitySpecification for NFIRST with neither an evaluator nor a quantity of 1 or more. A
  /// null function counts as assigned, here and below.
  EntitySpec(int classId, QuantificatorId quantificator, int quantity, Selector selector, Evaluator evaluator,
             BasicEntity* referent);
  /// Make entities, one by one or all at once: BadQuantitySpecification unless for NFIRST, with an evaluator
  /// or a quantity of 1 or more.
  EntitySpec(int classId, QuantificatorId quantificator, int quantity, Instantiator instantiator,
             Evaluator evaluator, BasicEntity* referent);
  EntitySpec(int classId, QuantificatorId quantificator, int quantity, ListInstantiator instantiator,
             Evaluator evaluator, BasicEntity* referent);
  /// Shares the conditions, and starts with an empty expansion.
  EntitySpec(const EntitySpec& other);
  EntitySpec& operator=(const EntitySpec&) = delete;
  ~EntitySpec();

  // Description
  const char* ClassName() const { return mSpecName.c_str(); }
  void ClassName(const char* name);
  /// -9 until known.
  int ReferenceClassId() const { return mReferenceClassId; }
  void ReferenceClassId(int classId) { mReferenceClassId = classId; }
  /// The same, looked up by the name when it is not known, and kept. NoInformationForReferenceClass without
  /// a name, and for the name of no class.
  int GetReferenceClassId();
  const char* ReferenceClassName() const { return mReferenceClassName.c_str(); }
  void ReferenceClassName(const char* name);
  EntitySpecMode GetMode() const { return mMode; }
  void SetMode(EntitySpecMode mode) { mMode = mode; }
  QuantificatorId GetQuantificatorId() const { return mQuantificatorId; }
  void SetQuantificatorId(QuantificatorId quantificator) { mQuantificatorId = quantificator; }
  /// The n of NFIRST; below 1 the evaluator counts, and without one there is no limit.
  int IntQuantity() const { return mIntQuantity; }
  void IntQuantity(int quantity) { mIntQuantity = quantity; }
  /// The entity that the functions of the model judge by; not owned.
  BasicEntity* ReferentEntity() const { return mpReferentEntity; }
  void ReferentEntity(BasicEntity* entity) { mpReferentEntity = entity; }
  /// Appends a condition and takes part in its ownership; null is ignored.
  void AddDescValueSpec(DescValueSpec* condition);

  // Functions of the model. Each finds the referent as REFERENCEENTITY_ARGUMENT.
  /// Whether CANDIDATEENTITY_ARGUMENT qualifies.
  void AssignSelectorPredicate(Selector body);
  /// Makes an entity of class CLASSID_ARGUMENT; null leaves one out.
  void AssignEntityInstantiator(Instantiator body);
  /// Makes a table, which the specification will delete, of LISTSIZE_ARGUMENT entities of class
  /// CLASSID_ARGUMENT.
  void AssignEntityListInstantiator(ListInstantiator body);
  void AssignQuantityEvaluator(Evaluator body);

  // Evaluation: Expansion.cpp
  /// Makes the table anew. NFIRST limits it by quantity or evaluator; otherwise only the functions do, so
  /// that a specification that makes entities one by one must be for NFIRST. A list instantiator goes before
  /// all else: its table becomes the expansion as it is, and the table held so far is no longer the
  /// specification's. NoReturnInstanceProcedure without any predicate, even where conditions suffice;
  /// NoInstantiationProcedure without instantiator or application hook.
  void Expand();
  /// The last expansion without the entities that are managed by the engine or dead by now: they leave the
  /// table, which stays the specification's. For classes of described entities.
  Tableau<BasicEntity*>* GetExpansion();
  /// Size of that table as it stands.
  int ExpandedTabSize() const { return mpExpansion->size(); }

  // Methods. An id without a method is an index failure.
  /// Takes ownership of a specification's method; ignores any other.
  void AddMethod(Method* method);
  Method* GetMethod(int id) const;
  /// Null for an unknown name.
  Method* GetMethod(const char* name) const { return mMethods.Named(name); }
  Tableau<Method*> MethodTab() const { return mMethods.Methods(); }
  Tableau<int> DualMethodTab() const { return mMethods.Ranks(); }
  /// Run the body whatever its type; without a body false, 0 or null.
  bool ExecCorePredicate(int id);
  int ExecIntCoreMethod(int id);
  BasicEntity* ExecEntityCoreMethod(int id);
  Tableau<BasicEntity*>* ExecEntityTabCoreMethod(int id);

  // Registry, in order of construction
  static void AddInstance(EntitySpec* spec);
  /// InexistantInstance for a specification that is not there.
  static void RemoveInstance(EntitySpec* spec);
  /// An index failure out of range.
  static EntitySpec* GetInstance(int rank);
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }
  /// Specifications alive.
  static int mInstanceNumber;
  static Tableau<EntitySpec*>& mpInstanceTab;

 private:
  /// A specification before it has methods.
  EntitySpec(const char* name, int classId, EntitySpecMode mode, QuantificatorId quantificator, int quantity,
             BasicEntity* referent);
  void AddModelFunctions();
  void CheckMadeQuantity(bool hasEvaluator) const;
  EntitySpecMethod* FoundMethod(int id, const char* where) const;
  /// One of the four of the model, which are always there.
  EntitySpecMethod& Function(int id) const;

  // Expansion.cpp
  EntitySpecMethod& FunctionOfReferent(int id) const;
  int Limit() const;
  void SelectInstances(int classId, int limit);
  bool MeetsConditions(BasicEntity* entity) const;
  void MakeInstances(int classId, int limit);
  BasicEntity* NewInstance(int classId) const;
  void Initialise(BasicEntity* entity) const;
  void TakeListOfModel(int classId, int limit);

  int mReferenceClassId;
  std::string mReferenceClassName;
  EntitySpecMode mMode;
  QuantificatorId mQuantificatorId;
  int mIntQuantity;
  BasicEntity* mpReferentEntity;
  Tableau<DescValueSpec*> mDescValueSpecTab;
  std::unique_ptr<Tableau<BasicEntity*>> mpExpansion = std::make_unique<Tableau<BasicEntity*>>();
  MethodTable mMethods;
  std::string mSpecName;
  int mHasSelectorPredicate = 0;
  int mHasEntityInstantiator = 0;
  int mHasEntityListInstantiator = 0;
  int mHasQuantityEvaluator = 0;

  static int _nbConst;
  static int _nbDest;
};
