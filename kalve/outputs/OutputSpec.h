// Output specifications: what a run keeps, and the records that it leaves.
//
// They are declared before the entities, events and processes that they watch are made: these look for
// their specification when they get their class. During the run everything stays in memory; the Display...
// functions write the files, normally at its end.
//
//   EntityOutputSpec    the instances of a class: creation, changes of structure, and series of descriptors,
//                       which the writers of MultipleDescriptorOS.h dump
//   EventOutputSpec     the occurrences of a class of events
//   ProcessOutputSpec   the occurrences of a class of processes, with their start and stop
//
// Each kind has a list of its specifications, which stand in it from construction to destruction. Files stay
// those of OutputFile's table. DeleteOutputSpecs ends all specifications with what they hold.
#pragma once

#include <string>
#include <unordered_map>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Liste.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"

// Records -------------------------------------------------------------------------------------------------

/// A popped event. The class name's pointer is kept.
struct StructEventData {
  const char* mClassName;
  int mPopClock;
};

/// A process that was initialised or executed. The class name's pointer is kept.
struct StructProcessData {
  ProcessSubclassId mClassType;
  const char* mClassName;
  int mInstanceNumber;
  int mInitOrExecClock;
  int mStopOrVoidClock = K_INT_UNSIGNIFICANT;  ///< -9 until it is stopped
  std::string mProcessedEntityInstanceName;
};

/// What a descriptor is to one series writer, which gives it a number of decimals. Nothing is owned.
class MDescOSParticipation {
 public:
  MDescOSParticipation(MultipleDescriptorOS* writer, int precision)
      : mMDescOS(writer), mPrecisionInMDescOS(precision) {}

  MultipleDescriptorOS* GetMDescOS() const { return mMDescOS; }
  int GetPrecisionInMDescOS() const { return mPrecisionInMDescOS; }

 private:
  MultipleDescriptorOS* mMDescOS;
  int mPrecisionInMDescOS;
};

/// A descriptor that a specification names. Its participations are deleted by DeleteOutputSpecs.
class DescriptorOS {
 public:
  explicit DescriptorOS(const char* name) : mDescName(name) {}

  const char* GetDescName() const { return mDescName.c_str(); }
  /// Type of the descriptor that any entity of the specification got last: nothing rests on it.
  ValueTypeId GetDescType() const { return mDescType; }
  void SetDescType(ValueTypeId type) { mDescType = type; }
  void AddParticipation(MDescOSParticipation* participation) { mParticipations.push_back(participation); }
  const Liste<MDescOSParticipation*>& GetParticipations() const { return mParticipations; }
  /// The first participation in the writer, or null.
  const MDescOSParticipation* ParticipationIn(const MultipleDescriptorOS* writer) const;

 private:
  std::string mDescName;
  ValueTypeId mDescType = NO_VALUE;
  Liste<MDescOSParticipation*> mParticipations;
};

/// The record of one entity. It outlives the entity, and belongs to its specification.
class EntityInstanceOS {
 public:
  EntityInstanceOS(int creationClock, EntityOutputSpec* spec)
      : mCreationClock(creationClock), mEntityOutputSpec(spec) {}
  EntityInstanceOS(const EntityInstanceOS&) = delete;
  EntityInstanceOS& operator=(const EntityInstanceOS&) = delete;
  /// Deletes the series; the changes are left to DeleteChanges.
  ~EntityInstanceOS();
  void DeleteChanges();

  /// "" at first.
  const char* GetEntityInstanceName() const { return mEntityInstanceName.c_str(); }
  void SetEntityInstanceName(const char* name) { mEntityInstanceName = name; }
  int GetCreationClock() const { return mCreationClock; }
  /// -9 while the entity lives.
  int GetDeletionClock() const { return mDeletionClock; }
  void SetDeletionClock(int clock) { mDeletionClock = clock; }
  EntityOutputSpec* GetEntityOutputSpec() const { return mEntityOutputSpec; }

  // Changes of structure, in their order; the items change hands.
  void AddChangeComponentData(ChangeStructureItem* item) { mChangeComponentList.push_back(item); }
  void AddChangeElementData(ChangeStructureItem* item) { mChangeElementList.push_back(item); }
  const Liste<ChangeStructureItem*>& GetChangeComponentList() const { return mChangeComponentList; }
  const Liste<ChangeStructureItem*>& GetChangeElementList() const { return mChangeElementList; }

  // Series; they change hands.
  void AddDescTimeSeries(DescTimeSeries* series) { mDescTimeSeriesTab.push_back(series); }
  const Tableau<DescTimeSeries*>& GetDescTimeSeriesTab() const { return mDescTimeSeriesTab; }
  /// Whether a series of a descriptor of that name is there.
  bool ExistsDTS(const char* name) const;

  /// The living entity that points here, null once it is dead.
  BasicEntity* GetEntity() const { return mEntity; }
  void SetEntity(BasicEntity* entity) { mEntity = entity; }

 private:
  std::string mEntityInstanceName;
  int mCreationClock;
  int mDeletionClock = K_INT_UNSIGNIFICANT;
  Liste<ChangeStructureItem*> mChangeComponentList;
  Liste<ChangeStructureItem*> mChangeElementList;
  Tableau<DescTimeSeries*> mDescTimeSeriesTab;
  EntityOutputSpec* mEntityOutputSpec;
  BasicEntity* mEntity = nullptr;
};

// Specifications ------------------------------------------------------------------------------------------

class OutputSpec {
 public:
  OutputSpec(const OutputSpec&) = delete;
  OutputSpec& operator=(const OutputSpec&) = delete;

  /// Form of the dates in the dumps of structure, events and processes.
  TimeType GetTimeType() const { return mTimeType; }
  void SetTimeType(TimeType type) { mTimeType = type; }
  const char* TargetClassName() const { return mTargetClassName.c_str(); }
  /// "all_processClasses" also makes it a specification of all processes, of tag OS_PROCESS.
  void TargetClassName(const char* name);
  OutputSpecType GetOutputSpecType() const { return mOutputSpecType; }

  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }
  /// Specifications so far.
  static int mInstanceNumber;

 protected:
  OutputSpec(OutputSpecType type, const char* targetClassName, TimeType timeType);
  ~OutputSpec() { ++_nbDest; }

 private:
  TimeType mTimeType;
  std::string mTargetClassName;
  OutputSpecType mOutputSpecType;

  static int _nbConst;
  static int _nbDest;
};

/// The list of one kind of specifications, in the order of their declaration.
template <class Spec>
class ListedOutputSpec : public OutputSpec {
 public:
  static Liste<OutputSpec*> InstanceList() { return mpInstanceList; }
  static void EraseInstanceList() { mpInstanceList.erase(); }
  /// Nothing when the specification stands there, as it does from its construction on.
  static void PushBackInstanceList(OutputSpec* spec);
  static void RemoveFirstInstanceList(OutputSpec* spec) { mpInstanceList.remove_first(spec); }
  static bool AreOutputSpec() { return mpInstanceList.empty() == 0; }
  /// Target classes, and addresses, on standard output, for debugging.
  static void DisplayInstanceList();
  static void DisplayInstanceListAddress() { mpInstanceList.display(); }

  static Liste<OutputSpec*> mpInstanceList;

 protected:
  ListedOutputSpec(OutputSpecType type, const char* targetClassName, TimeType timeType)
      : OutputSpec(type, targetClassName, timeType) {
    PushBackInstanceList(this);
  }
  ~ListedOutputSpec() { RemoveFirstInstanceList(this); }
};

template <>
Liste<OutputSpec*> ListedOutputSpec<EntityOutputSpec>::mpInstanceList;
template <>
Liste<OutputSpec*> ListedOutputSpec<EventOutputSpec>::mpInstanceList;
template <>
Liste<OutputSpec*> ListedOutputSpec<ProcessOutputSpec>::mpInstanceList;
extern template class ListedOutputSpec<EntityOutputSpec>;
extern template class ListedOutputSpec<EventOutputSpec>;
extern template class ListedOutputSpec<ProcessOutputSpec>;

/// Of a class of entities and its descendants. Files may be null where their flag is not set.
class EntityOutputSpec : public ListedOutputSpec<EntityOutputSpec> {
 public:
  EntityOutputSpec(const char* targetClassName, TimeType timeType, int isCreationSaved,
                   int isChangeComponentSaved, int isChangeElementSaved, OutputFile* creationFile,
                   OutputFile* changeComponentFile, OutputFile* changeElementFile);
  ~EntityOutputSpec() = default;

  /// Symbol that the class had when the specification was made; -9 for none.
  int TargetClassId() const { return mTargetClassId; }
  int IsCreationSaved() const { return mIsCreationSaved; }
  void IsCreationSaved(int flag) { mIsCreationSaved = flag; }
  int IsChangeComponentSaved() const { return mIsChangeComponentSaved; }
  void IsChangeComponentSaved(int flag) { mIsChangeComponentSaved = flag; }
  int IsChangeElementSaved() const { return mIsChangeElementSaved; }
  void IsChangeElementSaved(int flag) { mIsChangeElementSaved = flag; }
  OutputFile* GetCreationOutputFile() const { return mCreationOutputFile; }
  void SetCreationOutputFile(OutputFile* file) { mCreationOutputFile = file; }
  OutputFile* GetChangeComponentOutputFile() const { return mChangeComponentOutputFile; }
  void SetChangeComponentOutputFile(OutputFile* file) { mChangeComponentOutputFile = file; }
  OutputFile* GetChangeElementOutputFile() const { return mChangeElementOutputFile; }
  void SetChangeElementOutputFile(OutputFile* file) { mChangeElementOutputFile = file; }

  // The records of the instances, in order of creation; they change hands.
  void AddInstanceData(EntityInstanceOS* instance) { mInstancesData.push_back(instance); }
  /// Gives the record back; false when it is not there.
  bool RemoveInstanceData(EntityInstanceOS* instance);
  const Liste<EntityInstanceOS*>& GetInstancesData() const { return mInstancesData; }
  // The descriptors named, each once, and the writers.
  /// The descriptor of that name, or null.
  DescriptorOS* GetDescriptorOS(const char* name) const;
  /// Nothing when one of that name is there.
  void AddDescriptorOSIfNew(DescriptorOS* descriptor);
  const Liste<DescriptorOS*>& GetDescriptorsData() const { return mDescriptorsData; }
  void AddMultipleDescriptorOS(MultipleDescriptorOS* writer) { mMultipleDescriptorsData.push_back(writer); }
  const Liste<MultipleDescriptorOS*>& GetMultipleDescriptorsData() const { return mMultipleDescriptorsData; }

  /// The first specification of exactly that class that saves creations, or null.
  static EntityOutputSpec* GetCreationDateOS(const char* className);
  /// The first specification of exactly that class, or null.
  static EntityOutputSpec* OfClass(const char* className);

  // Dumps: OutputDumps.cpp
  /// Writes the lines of the flags that are set. Each file is then opened a second time, and stays open: on
  /// disk the text of the dump stands at the end of the process.
  void DisplayStructureChangesOneOS();
  /// Gives the series of living entities that keep final values only their point, at the present clock; then
  /// has the writers that save write.
  void DisplayDescValueChangesOneOS();

 private:
  int mTargetClassId;
  int mIsCreationSaved;
  int mIsChangeComponentSaved;
  int mIsChangeElementSaved;
  OutputFile* mCreationOutputFile;
  OutputFile* mChangeComponentOutputFile;
  OutputFile* mChangeElementOutputFile;
  Liste<EntityInstanceOS*> mInstancesData;
  Liste<DescriptorOS*> mDescriptorsData;
  Liste<MultipleDescriptorOS*> mMultipleDescriptorsData;
};

/// Of a class of events, or of all, "all_eventClasses".
class EventOutputSpec : public ListedOutputSpec<EventOutputSpec> {
 public:
  EventOutputSpec(const char* targetClassName, TimeType timeType, OutputFile* file);
  /// Deletes the occurrences.
  ~EventOutputSpec();

  int IsSaved() const { return mIsSaved; }
  void IsSaved(int flag) { mIsSaved = flag; }
  OutputFile* GetOutputFile() const { return mOutputFile; }
  const Liste<StructEventData*>& GetOccurrences() const { return mOccurrences; }
  void AddOccurrenceData(const char* className, int clock);

  /// The specification in charge of a class: the last one of that class, up to the first of all classes,
  /// which goes before. Null for none.
  static EventOutputSpec* InChargeOf(const char* className);
  /// A line for each occurrence: OutputDumps.cpp
  void DisplayOneOS();

 private:
  int mIsSaved = 1;
  OutputFile* mOutputFile;
  Liste<StructEventData*> mOccurrences;
};

/// Of a class of processes, or of all, "all_processClasses".
class ProcessOutputSpec : public ListedOutputSpec<ProcessOutputSpec> {
 public:
  ProcessOutputSpec(OutputSpecType type, const char* targetClassName, TimeType timeType, OutputFile* file);
  /// Of tag OS_PROCESS.
  ProcessOutputSpec(const char* targetClassName, TimeType timeType, OutputFile* file);
  /// Deletes the occurrences.
  ~ProcessOutputSpec();

  bool IsPOutputSpec() const { return GetOutputSpecType() == OS_PROCESS; }
  bool IsCPOutputSpec() const { return GetOutputSpecType() == OS_CONTINUOUS_PROCESS; }
  bool IsDPOutputSpec() const { return GetOutputSpecType() == OS_DISCRETE_PROCESS; }
  int IsSaved() const { return mIsSaved; }
  void IsSaved(int flag) { mIsSaved = flag; }
  OutputFile* GetOutputFile() const { return mOutputFile; }
  const Liste<StructProcessData*>& GetOccurrences() const { return mOccurrences; }
  /// A start, whatever the subclass: the dumps sort them. A null name counts as empty.
  void AddOccurrenceData(ProcessSubclassId subclass, const char* className, int instanceNumber, int clock,
                         const char* entityName);
  /// A stop at the present clock of the first occurrence with that instance number; nothing without one. The
  /// second argument is not read.
  void AddOccurrenceData(int instanceNumber, int clock);

  /// As for events.
  static ProcessOutputSpec* InChargeOf(const char* className);
  // A line for each occurrence: for OS_PROCESS, OS_CONTINUOUS_PROCESS, OS_DISCRETE_PROCESS. OutputDumps.cpp
  void DisplayOneOS();
  void DisplayOneCPOS();
  void DisplayOneDPOS();

 private:
  int mIsSaved = 1;
  OutputFile* mOutputFile;
  Liste<StructProcessData*> mOccurrences;
  std::unordered_map<int, StructProcessData*> mFirstOccurrences;  // by instance number
};

// Declarations: OutputDeclarations.cpp. The texts are copied. A file of mode OM_OVERWRITE is emptied at once.
/// What is kept of the structure of a class, in the specification that the class has or in a new one. In one
/// that is there, only what a flag asks for changes.
EntityOutputSpec* SetEntityStructureOS(const char* className, TimeType timeType, int isCreationSaved,
                                       int isChangeComponentSaved, int isChangeElementSaved,
                                       const char* creationFile, const char* changeComponentFile,
                                       const char* changeElementFile, OutputMode mode);
/// Always a new one; with an empty file name its dump fails.
void SetEventOutputSpec(const char* className, TimeType timeType, const char* file, OutputMode mode);
void SetProcessOutputSpec(OutputSpecType type, const char* className, TimeType timeType, const char* file,
                          OutputMode mode);
void SetProcessOutputSpec(const char* className, TimeType timeType, const char* file, OutputMode mode);

// Dumps: OutputDumps.cpp
/// All of the following, entities first.
void DisplayAllOutputSpecs();
/// The specifications of the strict descendants of a class; all for a symbol below 3.
void DisplayEntityOutputSpecs(int classId);
/// Those of the three tags.
void DisplayProcessOutputSpecs();
void DisplayCProcessOutputSpecs();
void DisplayDProcessOutputSpecs();
void DisplayEventOutputSpecs();

/// Deletes all specifications, with records, series and writers; living entities are no longer recorded. An
/// event or process that is recorded must not be applied any more. OutputTeardown.cpp
void DeleteOutputSpecs();
