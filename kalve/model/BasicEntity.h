// BasicEntity: the lowest of the three layers of entities. It gives an object an identity (class, number,
// name) and a place in a structure.
//
// Entities hold one another in two independent ways. A component is a part: it fills the slot that its
// super-entity declares for its class, and a slot holds one. An element is a member of a set: the set holds
// its elements in order of addition, and an element may stand in several sets, its super-sets. An entity
// takes components or elements, not both: declarations and reads enforce it.
//
// An entity owns none of its components, elements and super-sets. Its destructor only unlinks them;
// DeleteInDepth and the copies treat the structure below an entity as a tree. Some operations leave links
// that only one side knows, so that a partner may have died: whoever follows a link asks IsLivingEntity.
//
// Nothing is virtual: EntityType tells the layers apart, and CopyEntity and DeleteEntity act by it. An
// application class derives from Entity, and its constructor ends with SetMetaClass and AddInstanceToClass.
//
// A change of structure has three observers: a structure monitor may refuse or replace an element, the user
// interface hears of it when it has asked to, and the output specification in charge records it.
#pragma once

#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/model/LinkTable.h"

class BasicEntity {
 public:
  // Life: BasicEntityLife.cpp
  /// Joins class 0 at the present clock (SimulationNotYetCreated without a simulation).
  BasicEntity();
  /// Copies the entity and, as a tree, what it holds; the copy stands nowhere itself. `depth` 0 leaves the
  /// parts out (and the form without `withMonitors` prints its steps); `withMonitors` false takes elements
  /// in past the monitors.
  BasicEntity(const BasicEntity& source);
  BasicEntity(const BasicEntity& source, int depth);
  BasicEntity(const BasicEntity& source, bool withMonitors);
  BasicEntity(const BasicEntity& source, bool withMonitors, int depth);
  BasicEntity& operator=(const BasicEntity&) = delete;
  /// Unlinks the entity; its parts live on.
  ~BasicEntity();
  /// Deletes components, elements and the entity itself; the pointer is dead afterwards.
  void DeleteInDepth();

  // Class and identity: BasicEntity.cpp
  MetaClass* GetMetaClassInstance() const { return mpMetaClass; }
  /// UnknownEntityClass for a symbol without a class.
  void SetMetaClass(int id);
  /// What the constructor of the final class calls: joins the class, is equipped for outputs, and gets the
  /// name "class_number".
  void AddInstanceToClass();
  /// What the layers call: joins and names only. The argument is not read.
  void AddInstanceToClass(int);
  /// BadEntityClassSpecification for a negative symbol, UnknownEntityClass for one without a class.
  void RemoveInstanceFromClass(int id);
  /// From 1 on, in order of construction; numbers are never used again.
  int InstanceNumber() const { return mThisInstanceNumber; }
  /// "" until it is set.
  const char* InstanceName() const { return mInstanceName.c_str(); }
  void SetInstanceName(const char* name);
  /// "name_number".
  void SetInstanceName(const char* name, int number);
  /// 0 for this layer, 1 for DescriptedEntity, 2 for Entity.
  int EntityType() const { return mEntityType; }
  /// -9 (and "") before the entity has a class.
  int ClassId() const;
  int ClassSymbol() const { return ClassId(); }
  const char* ClassName() const;
  /// These two write into the class, for all its instances.
  void ClassName(const char* name);
  void ClassSymbol(int id);
  Tableau<int> ParentIds() const;
  Tableau<int> AncestorIds() const;
  void AncestorIds(Tableau<int>& ids) const;
  bool IsDirectInstanceOf(int id) const { return ClassId() == id; }
  /// Of the class or of a descendant of it; UnknownEntityClass for a symbol without a class.
  bool IsInstanceOf(int id) const;
  /// Clock of the construction.
  int CreationClock() const { return mCreationClock; }

  // Declarations: BasicEntity.cpp. -9 is no class.
  /// The class of the elements; ElementCannotCoexistWithComponent.
  void ElementClassId(int id);
  int ElementClassId() const { return mElementClassId; }
  /// Adds an empty slot for a component of the class; ComponentCannotCoexistWithElement.
  void AddComponentClassId(int id);
  Tableau<int> ComponentClassIdTab() const { return mComponentClassIds; }
  /// Classes of the sets that may take this entity in; each call adds.
  void SuperSetClassId(int id) { mSuperSetClassIds.push_back(id); }
  void AddSuperSetClassId(int id) { mSuperSetClassIds.push_back(id); }
  void SuperSetClassIds(int first, int second);
  /// The first declared class; reports NoSuperSet when the entity stands in no set.
  int SuperSetClassId() const;
  Tableau<int> SuperSetClassIdTab() const { return mSuperSetClassIds; }

  // Components: BasicEntityStructure.cpp. A part fills the slot of its class or else the first of an
  // ancestor class (BadSubEntityClass); null is ignored.
  /// Plugs this entity into `super`; SuperEntityAlreadyEquippedWithClass.
  void SetSuperEntity(BasicEntity* super);
  /// Unplugs what is there, then plugs each entry.
  void SetComponentTab(Tableau<BasicEntity*> components);
  /// ComponentAlreadyPlugged; ComponentPluggedElsewhere, once the user interface has been told.
  void AddComponent(BasicEntity* component);
  /// The slot must not be empty: NotYetPluggedComponent.
  void ReplaceComponent(BasicEntity* component);
  void RemoveComponent(BasicEntity* component);
  // Reads: BasicEntity.cpp, and EntityCasts.cpp for those that answer Entity*. An entity with a declared
  // element class has no components to read: UnAuthorizedAccessToComponent.
  Tableau<BasicEntity*> GetComponentTab() const;
  void GetComponentTab(Tableau<BasicEntity*>& components) const;
  /// The component in the slot of the class, or else in the first slot of a descendant class:
  /// BadComponentClassId without such a slot, NotYetPluggedComponent when it is empty. With `strict` 0 the
  /// answer is null instead.
  BasicEntity* GetBasicComponent(int id) const;
  BasicEntity* GetBasicComponent(int id, int strict) const;
  Entity* GetComponent(int id) const;
  Entity* GetComponent(int id, int strict) const;
  /// In the slot that would take a part of the named class (BadComponentName); null when it is empty.
  BasicEntity* GetBasicComponent(const char* className) const;
  Entity* GetComponent(const char* className) const;
  BasicEntity* GetBasicSuperEntity() const { return mpSuperEntity; }
  Entity* GetSuperEntity() const;
  bool HasComponents() const { return mComponentTab.empty() == 0; }

  // Elements: BasicEntityStructure.cpp. Additions check the element's class against the declared one
  // (BadSubEntityClass) and this class against the super-sets that the element declares
  // (BadSuperSetClass); one of the two must be declared. They answer null, or the element when it was
  // refused (AddElementFailed), by a monitor or as a duplicate. Null is ignored.
  BasicEntity* AddElement(BasicEntity* element);
  /// `withMonitor` 0 goes past the monitor, and links even a duplicate; always null.
  BasicEntity* AddElement(BasicEntity* element, int withMonitor);
  /// Without the test for a duplicate.
  BasicEntity* AddElementNoCheckIfNew(BasicEntity* element);
  /// The same, in front of the element at `position`; an index failure out of range.
  BasicEntity* InsertElement(int position, BasicEntity* element);
  /// Checks no class and makes no link on the element's side; a monitor's answer goes in if it is new.
  void ForceElement(BasicEntity* element);
  /// Stop at the first refusal and answer it.
  BasicEntity* AddElements(Tableau<BasicEntity*> elements);
  BasicEntity* AddElements(Tableau<BasicEntity*> elements, int withMonitor);
  /// Pass refusals over.
  void AddElementsIfNew(Tableau<BasicEntity*> elements);
  void AddElementsIfNew(Tableau<BasicEntity*> elements, int withMonitor);
  /// Answers null, or the element when it is not there or the monitor refuses (RemoveElementFailed). A
  /// monitor that lets it go leaves the element's link to this set.
  BasicEntity* RemoveElement(BasicEntity* element);
  /// `withMonitor` 0 goes past monitor and user interface.
  BasicEntity* RemoveElement(BasicEntity* element, int withMonitor);
  /// By index; nothing out of range. Always null, and always unlinks.
  BasicEntity* RemoveElement(int position);
  BasicEntity* RemoveElement(int position, int withMonitor);
  /// Leaves the element's links alone.
  BasicEntity* RemoveElementNoPropagate(BasicEntity* element);
  /// From the last to the first; stops at the first refusal and answers it.
  BasicEntity* RemoveElements();
  /// Puts `news` in the place of `old`. Answers 0 when `old` is not there, or when the monitor refuses its
  /// removal (ReplaceElementFailed), which leaves the elements in front of it. All others lose their link to
  /// this set; the new ones get theirs.
  int ReplaceElement(BasicEntity* old, Tableau<BasicEntity*> news);
  /// Replaces the table and nothing else: count, links and observers stay as they were.
  void SetElementTab(Tableau<BasicEntity*>& elements);
  /// The least growth of the table, for sets that grow large.
  void SetElementTabIncrement(int step);
  // Reads: BasicEntity.cpp, and EntityCasts.cpp. An entity with component slots has no elements to read:
  // UnAuthorizedAccessToElement. A search that fails reports it and answers null.
  Tableau<BasicEntity*> GetElementTab() const;
  void GetElementTab(Tableau<BasicEntity*>& elements) const;
  BasicEntity* GetBasicElement() const;
  Entity* GetElement() const;
  BasicEntity* GetBasicElement(int rank) const;
  Entity* GetElement(int rank) const;
  Entity* GetNamedElement(const char* name) const;
  Entity* GetClassNamedElement(const char* className) const;
  /// Of exactly the class.
  Entity* GetClassNamedElement(int id) const;
  Entity* GetLastElement() const;
  int GetElementPosition(BasicEntity* element) const;
  int GetNumberOfElements() const { return mNumberOfElements; }
  bool HasElements() const { return mNumberOfElements > 0; }

  // Super-sets: BasicEntityStructure.cpp
  /// Checks the classes as seen from the element (BadSuperSetClass), then forces it into the set: the
  /// element's own table stays as it was.
  void AddSuperSet(BasicEntity* set);
  /// Links without any test.
  void ForceSuperSet(BasicEntity* set);
  /// Answers 0 when the set is not there.
  int RemoveSuperSet(BasicEntity* set);
  int RemoveSuperSetNoPropagate(BasicEntity* set);
  // Reads: BasicEntity.cpp, EntityCasts.cpp
  Tableau<BasicEntity*> GetSuperSetTab() const { return mSuperSetTab.Entries(); }
  /// False for the first super-set of the table.
  bool HasInSuperSets(BasicEntity* set) const { return mSuperSetTab.RankOf(set) > 0; }
  /// NoSuperSet and null without any.
  BasicEntity* GetBasicSuperSet() const;
  Entity* GetSuperSet() const;
  /// An index failure out of range.
  BasicEntity* GetBasicSuperSet(int rank) const;
  Entity* GetSuperSet(int rank) const;
  int GetNumberOfSuperSets() const { return mNumberOfSuperSets; }
  bool HasSuperSets() const { return mNumberOfSuperSets > 0; }

  // Walks: Walks.cpp. They read what is linked, whatever the entity is built for, and pass over partners that
  // have died. The structure must hold no circle. A class matches its descendants too, unless it says
  // exactly.
  /// Components below, of exactly the class: of one entity at most the first, and behind it no further slot
  /// is entered; elements are always entered. An entity reached twice stands there twice.
  Tableau<BasicEntity*> GetDepthComponentTab(int classId) const;
  void GetDepthComponentTab(int classId, Tableau<BasicEntity*>& result) const;
  /// Elements below, each once, each before what it holds. Components are entered only where there are no
  /// elements.
  Tableau<BasicEntity*> GetDepthElementTab(int classId) const;
  void GetDepthElementTab(int classId, Tableau<BasicEntity*>& result) const;
  /// Among the elements, their elements and so on; UnknownEntityClass for a symbol without a class.
  bool HasAsElement(int classId) const;
  bool HasAsElement(BasicEntity* element) const;
  /// Direct elements first, then those below. A search that fails reports it and answers null.
  Entity* GetDepthNamedElement(const char* name) const;
  Entity* GetDepthClassNamedElement(const char* className) const;
  /// Of exactly the class.
  Entity* GetDepthClassNamedElement(int id) const;
  /// A new table of all entities above that match; the caller deletes it. Super-sets hide the super-entity.
  /// An entity reached twice stands there twice.
  Tableau<BasicEntity*>* GetContainerTab(int classId) const;
  /// The same without what is above a match; `exact` non-zero asks for exactly the class.
  Tableau<BasicEntity*>* GetContainerTab(int classId, int exact) const;
  /// A match, or else what its own containers answer, of the last super-set; null at the top.
  Entity* GetFirstContainer(int classId, int exact) const;
  /// The same for the entity that has a simulation.
  Entity* GetSimulatedContainerEntity() const;

  // Dumps to standard output: Dumps.cpp
  void Display() const;
  /// With all that is below, four blanks further in at each level.
  void DisplayInDepth() const { DisplayInDepth(0); }
  void DisplayInDepth(int level) const;
  /// Names and addresses alone.
  void DisplayShortInDepth() const { DisplayShortInDepth(0); }
  void DisplayShortInDepth(int level) const;
  void DisplayAttributes() const;
  void DisplayElementTab() const;
  void DisplayElementNames() const;

  // Observers: BasicEntity.cpp
  void SetMonitor(StructureMonitor* monitor) { mpMonitor = monitor; }
  /// DoNotHaveMonitorAttached without one.
  StructureMonitor* GetMonitor() const;
  void HasMonitor(int flag) { mHasMonitor = flag; }
  /// The record of this entity in an output specification, which owns it; null without one.
  EntityInstanceOS* GetEntityInstanceOS() const { return mpEntityInstanceOS; }
  /// Puts the entity under the output specifications of its class. BasicEntityOutputs.cpp
  void EquipForOSAccount();
  /// Takes the entity and its descriptors from their record, which is about to go. BasicEntityOutputs.cpp
  void LeaveOutputs();
  /// For applications; the kernel does not read it.
  void SetOutputFile(OutputFile* file) { mpOutputFile = file; }
  OutputFile* GetOutputFile() const { return mpOutputFile; }
  /// Marks the entity that is the simulated system.
  void SetSimulation(Simulation* simulation) { mpSimulation = simulation; }
  Simulation* GetSimulation() const { return mpSimulation; }

  // For the kernel: the bare tables, which may hold dead partners, whatever the entity is built for.
  const Tableau<BasicEntity*>& BareElementTab() const { return mElementTab.Entries(); }
  const Tableau<BasicEntity*>& BareComponentTab() const { return mComponentTab; }
  // Its rank in the instance table of a class, -9 for none.
  int RankIn(const MetaClass* metaClass) const;
  void KeepRankIn(const MetaClass* metaClass, int from, int to);
  void ForgetRankIn(const MetaClass* metaClass, int rank);

  /// The number of the entity built last.
  static int mInstanceNumber;

 protected:
  /// For the constructors of the layers.
  void SetEntityType(int type) { mEntityType = type; }

 private:
  struct InstanceRank {
    const MetaClass* metaClass;
    int rank;
    bool operator==(const InstanceRank&) const = default;
  };
  /// What a copy does with the parts of its source.
  enum class PartCopy { None, Plain, PlainWithSteps, Flagged };

  BasicEntity(const BasicEntity& source, PartCopy parts, bool withMonitors);
  void JoinAllClasses();
  void CopyComponentsOf(const BasicEntity& source, PartCopy parts, bool withMonitors);
  void CopyElementsOf(const BasicEntity& source, PartCopy parts, bool withMonitors);

  MetaClass& KnownClass() const;
  void CheckIsNoSet(const char* operation) const;
  void CheckIsNoSet(const char* operation, int id) const;
  void CheckTakesElements(const char* operation) const;
  BasicEntity* FirstElement(const char* operation) const;
  int SlotOfOrBelow(int id) const;
  int SlotFor(int id) const;
  void WarnOfEmptySlot(int slot) const;

  // Partners that are alive, and walks over them: Walks.cpp
  Tableau<BasicEntity*> LivingElements() const;
  Tableau<BasicEntity*> LivingComponents() const;
  Tableau<BasicEntity*> LivingSuperSets() const;
  BasicEntity* LivingSuperEntity() const;
  Tableau<BasicEntity*> LivingContainers() const;
  void GatherComponents(int classId, Tableau<BasicEntity*>& result) const;
  template <class Matches>
  void GatherContainers(Matches matches, bool goesOnAboveMatches, Tableau<BasicEntity*>& result) const;
  template <class Matches>
  BasicEntity* LastContainer(Matches matches) const;

  // Additions and removals: BasicEntityStructure.cpp
  using ElementFailure = void (*)(BasicEntity* set, BasicEntity* element);
  int SlotOf(BasicEntity* part);
  BasicEntity* PluggedIn(int slot) const;
  void LeaveSuperEntity(BasicEntity* component, int slot);
  void BelongTo(BasicEntity* super);
  void CheckNewElement(BasicEntity* element, ElementFailure refusedByElement);
  bool MonitorAnswers(int methodId) const;
  BasicEntity* AskMonitor(int methodId, BasicEntity* element);
  BasicEntity* EnteringFor(BasicEntity* element);
  BasicEntity* Linked(BasicEntity* element);
  BasicEntity* RefusedToAdd(BasicEntity* element);
  void CountNewElement(BasicEntity* element);
  bool HasElementAt(int position) const;
  bool MayLeave(BasicEntity* element);
  void TakeOut(int place);
  void TakeNewElement(BasicEntity* element);

  // Records of outputs: BasicEntityOutputs.cpp
  void ComeUnder(EntityOutputSpec& spec);
  void GiveElementItem(BasicEntity* element);
  void GiveComponentItem(BasicEntity* component, int number);
  void TellNameToOutputs();
  void TellDeletionToOutputs();

  MetaClass* mpMetaClass = nullptr;
  int mEntityType = 0;
  int mThisInstanceNumber;
  std::string mInstanceName;
  int mElementClassId = K_INT_UNSIGNIFICANT;
  Tableau<int> mComponentClassIds;
  Tableau<BasicEntity*> mComponentTab;  // same ranks as mComponentClassIds
  Tableau<int> mSuperSetClassIds;
  LinkTable mSuperSetTab;
  int mNumberOfSuperSets = 0;
  LinkTable mElementTab;
  int mNumberOfElements = 0;  // the size of mElementTab, except after SetElementTab
  BasicEntity* mpSuperEntity = nullptr;
  int mHasSuperEntity = 0;  // stays 1 when the super-entity goes
  StructureMonitor* mpMonitor = nullptr;
  int mHasMonitor = 0;
  int mCreationClock = 0;
  EntityInstanceOS* mpEntityInstanceOS = nullptr;
  int mCreationSaved = 0;
  int mChangeComponentSaved = 0;
  int mChangeElementSaved = 0;
  OutputFile* mpOutputFile = nullptr;
  Simulation* mpSimulation = nullptr;
  Tableau<InstanceRank> mInstanceRanks;
};

/// Whether the pointer is that of an entity now alive; null is not. It does not look at the entity.
bool IsLivingEntity(const BasicEntity* entity);
/// Called by constructors and destructor of BasicEntity.
void EnterLivingEntity(const BasicEntity* entity);
void LeaveLivingEntity(const BasicEntity* entity);
