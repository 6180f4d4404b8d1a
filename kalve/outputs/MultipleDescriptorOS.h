// MultipleDescriptorOS: the base of the series writers, the one family of the kernel with virtual operations.
//
// A writer dumps the series of some descriptors, its columns, of all instances of one class. It stands in
// that class's EntityOutputSpec, which owns it: DeleteOutputSpecs destroys it as what GetSubClass says, since
// the destructor is not virtual. What is declared in this order is complete: RegisterEntityOS,
// AddDescriptorOS for each column, SetIsNumIdentified, and what the writer's own class asks for.
#pragma once

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Liste.h"

class MultipleDescriptorOS {
 public:
  /// Values of GetSubClass.
  static constexpr int plain = 0;
  static constexpr int textFile = 1;
  static constexpr int database = 2;

  MultipleDescriptorOS(TimeType timeType, int isPlotted, int isRecorded, int isSaved, AllOrEnd allOrFinal);
  /// Dates as clocks, all values, until it is said otherwise.
  MultipleDescriptorOS(int isPlotted, int isRecorded, int isSaved);
  MultipleDescriptorOS(const MultipleDescriptorOS&) = delete;
  MultipleDescriptorOS& operator=(const MultipleDescriptorOS&) = delete;

  /// Writes all series; called at a dump for a writer that saves.
  virtual void DisplayTimeSeries() = 0;

  // Declaration
  /// Puts the writer under the specification of the class, which is made if there is none. On the way to it,
  /// a specification of an ancestor or a descendant is OverSpecificationOnParentClass.
  void RegisterEntityOS(const char* className);
  /// A further column, after RegisterEntityOS; its reals have `precision` decimals.
  void AddDescriptorOS(const char* name, int precision);
  /// The columns, in order of their declaration.
  const Liste<DescriptorOS*>& GetDescriptorsData() const { return mDescriptorsData; }

  int GetSubClass() const { return mSubClass; }
  /// Non-zero: each line carries the number of the simulation.
  int GetIsNumIdentified() const { return mIsNumIdentified; }
  void SetIsNumIdentified(int flag) { mIsNumIdentified = flag; }
  /// Form of the dates.
  TimeType GetTimeType() const { return mTimeType; }
  void SetTimeType(TimeType type) { mTimeType = type; }
  /// Whether every change makes a point, or only the end of the run or of the entity.
  AllOrEnd GetAllOrFinal() const { return mAllOrFinal; }
  void SetAllOrFinal(AllOrEnd allOrFinal) { mAllOrFinal = allOrFinal; }
  /// The user interface draws the series; every change is kept; the dump writes.
  int IsPlotted() const { return mIsPlotted; }
  int IsRecorded() const { return mIsRecorded; }
  int IsSaved() const { return mIsSaved; }
  /// Null before RegisterEntityOS; not owned.
  EntityOutputSpec* GetEntityOutputSpec() const { return mEntityOutputSpec; }
  void SetEntityOutputSpec(EntityOutputSpec* spec) { mEntityOutputSpec = spec; }

 protected:
  void SetSubClass(int subClass) { mSubClass = subClass; }
  /// Whether there is an instance to write; when there is none, standard output says what may be wrong.
  bool HasInstances() const;

 private:
  int mSubClass = plain;
  int mIsNumIdentified = 0;
  TimeType mTimeType = CLOCK;
  AllOrEnd mAllOrFinal = AOE_ALL;
  int mIsPlotted;
  int mIsRecorded;
  int mIsSaved;
  Liste<DescriptorOS*> mDescriptorsData;
  EntityOutputSpec* mEntityOutputSpec = nullptr;
};
