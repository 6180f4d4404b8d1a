// Descriptors: the attributes of described entities. A descriptor is one attribute of one entity: a typed
// value, the class symbol that says which attribute it is, and a name. What instances of one class share is
// the symbol, the text of the name, and the monitor.
//
// A constant is set and read plainly. A variable goes a longer way: a change passes its monitor, which may
// put another value in place of the candidate, and its domain, is recorded in a time series, and drawn by
// the user interface.
//
// Nothing is virtual. Subclass() and ClassType() tell the value class; copying, destroying and whatever else
// depends on it goes by them (VisitDescriptor.h). An entity owns the descriptors that it has been given; it
// frees them as their value class, so that a class derived from one must add no member that needs a
// destructor.
#pragma once

#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/SharedConstants.h"

class Descriptor {
 public:
  /// UnAuthorizedAssignment: values are moved by SetValue and the getters.
  Descriptor& operator=(const Descriptor& right);
  ~Descriptor();

  // Identity
  DescriptorSubclassId Subclass() const { return mSubclass; }
  void Subclass(DescriptorSubclassId subclass) { mSubclass = subclass; }
  ValueTypeId ClassType() const { return mClassType; }
  void ClassType(ValueTypeId type) { mClassType = type; }
  /// The key in the entity's tables; -9 when unset.
  int ClassSymbol() const { return mClassSymbol; }
  void ClassSymbol(int symbol) { mClassSymbol = symbol; }
  /// Name and comment: the pointer is kept, not the text.
  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name) { mClassName = name; }
  const char* ClassComment() const { return mClassComment; }
  void ClassComment(const char* comment) { mClassComment = comment; }
  bool IsConstant() const { return mSubclass == CONSTANT; }
  bool IsVariable() const { return mSubclass != CONSTANT; }
  bool IsInteger() const { return mClassType == INT; }
  bool IsFloat() const { return mClassType == FLOAT; }
  bool IsDouble() const { return mClassType == DOUBLE; }
  int IsPrivate() const { return mIsPrivate; }
  void SetIsPrivate(int flag) { mIsPrivate = flag; }
  /// The entity that holds the descriptor; null until one does.
  DescriptedEntity* DescribedEntity() const { return mpDescribedEntity; }
  DescriptedEntity* DescribedDescriptedEntity() const { return mpDescribedEntity; }
  void DescribedEntity(DescriptedEntity* entity) { mpDescribedEntity = entity; }

  // Recording. Without a series a recorded descriptor records nothing.
  int IsRecorded() const { return mIsRecorded; }
  void IsRecorded(int flag) { mIsRecorded = flag; }
  /// Between 0 and 1 only: another flag stays.
  void DisableRecording();
  void EnableRecording();
  /// The series is not owned.
  void SetDescTimeSeries(DescTimeSeries* series) { mpDescTimeSeries = series; }
  DescTimeSeries* GetDescTimeSeries() const { return mpDescTimeSeries; }

  // Text: DescriptorText.cpp. A variable is read through its monitor.
  /// The value as users see it: numbers, texts, names; empty for domains, specifications and tables of texts.
  std::string ValueToString();
  /// The same into a buffer of at least 500 bytes: the text is cut at 499 characters. A descriptor that is
  /// neither constant nor variable leaves the buffer as it is.
  void ValueToString(char* buffer);
  /// Sends the present value to the user interface; nothing without an entity.
  void PlotValue();

  /// Constructions, copies included, and destructions.
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

 protected:
  Descriptor(DescriptorSubclassId subclass, ValueTypeId type, int symbol, const char* name);
  /// Takes the tags, symbol, name and privacy; a copy stands on its own, neither held nor recorded.
  Descriptor(const Descriptor& other);

  /// Traces of the constructors: "-ICD-" for the class of initial "I", constant.
  void TraceNew(const char* initials) const;
  void TraceCopy(const char* initials, const Descriptor& source) const;
  void TraceWords(const char* words) const;
  /// Clock of the simulation, of the last one when there is none.
  static int PresentClock();

 private:
  DescriptorSubclassId mSubclass;
  ValueTypeId mClassType;
  int mClassSymbol;
  const char* mClassName;
  DescriptedEntity* mpDescribedEntity = nullptr;
  const char* mClassComment = "";
  int mIsPrivate = 0;
  int mIsRecorded = 0;
  DescTimeSeries* mpDescTimeSeries = nullptr;

  static int _nbConst;
  static int _nbDest;
};

class ConstantDescriptor : public Descriptor {
 public:
  static constexpr DescriptorSubclassId branch = CONSTANT;

  // DescriptorText.cpp. Reached on a variable they print that they were, and give no text.
  std::string ValueToString();
  void ValueToString(char* buffer);

  static int getNbConstC() { return _nbConstC; }
  static int getNbDestC() { return _nbDestC; }

 protected:
  ConstantDescriptor(ValueTypeId type, int symbol, const char* name);
  ConstantDescriptor(const ConstantDescriptor& other);
  ConstantDescriptor& operator=(const ConstantDescriptor&) = default;
  ~ConstantDescriptor() { ++_nbDestC; }

 private:
  static int _nbConstC;
  static int _nbDestC;
};

class VariableDescriptor : public Descriptor {
 public:
  static constexpr DescriptorSubclassId branch = VARIABLE;

  // Monitor: not owned, and shared with copies.
  void SetMonitor(DescValueMonitor* monitor) { mpMonitor = monitor; }
  int HasMonitor() const { return mHasMonitor; }
  void HasMonitor(int flag) { mHasMonitor = flag; }
  /// DoNotHaveMonitorAttached without the flag, whatever the pointer.
  DescValueMonitor* GetMonitor() const;

  // Plotting of numbers: the first change, and then one in every sampling step.
  int IsPlotted() const { return mIsPlotted; }
  void IsPlotted(int flag) { mIsPlotted = flag; }
  int GetPrecisionForPlotting() const { return mPrecisionForPlotting; }
  void SetPrecisionForPlotting(int precision) { mPrecisionForPlotting = precision; }
  int GetSamplingStep() const { return mSamplingStep; }
  /// A step below 1 is ignored.
  void SetSamplingStep(int step);

  // DescriptorText.cpp. Reached on a constant they print that they were, and give no text.
  std::string ValueToString();
  void ValueToString(char* buffer);

  static int getNbConstV() { return _nbConstV; }
  static int getNbDestV() { return _nbDestV; }

 protected:
  VariableDescriptor(ValueTypeId type, int symbol, const char* name);
  /// Takes the monitor along; sampling and plotting start afresh.
  VariableDescriptor(const VariableDescriptor& other);
  VariableDescriptor& operator=(const VariableDescriptor&) = default;
  ~VariableDescriptor() { ++_nbDestV; }

  /// The monitor's method in a slot of flags, ready to be asked: null without a monitor, with the flag of
  /// the slot clear, or without a body. Argument 14 is set to this descriptor.
  MonitorMethod* AskedMethod(int slot, int methodId) {
    return mHasMonitor != 0 ? FoundMethod(slot, methodId) : nullptr;
  }
  /// Whether a monitor is attached whose flag of the slot is set.
  bool HasFlagIn(int slot) const;
  /// Counts a change, and plots it when its turn has come.
  void PlotStep() {
    if (mIsPlotted != 0 && mPlotCounter % static_cast<unsigned>(mSamplingStep) == 0) PlotValue();
    ++mPlotCounter;
  }

 private:
  MonitorMethod* FoundMethod(int slot, int methodId);

  DescValueMonitor* mpMonitor = nullptr;
  int mHasMonitor = 0;
  int mIsPlotted = 0;
  int mPrecisionForPlotting = 0;
  int mSamplingStep = 1;
  unsigned mPlotCounter = 0;

  static int _nbConstV;
  static int _nbDestV;
};

/// The layer of the numbers: a unit, shown to the user.
template <class Branch>
class MonoDimensionalNumericalDescriptor : public Branch {
 public:
  MonoDimensionalNumericalDescriptor& operator=(const MonoDimensionalNumericalDescriptor&) = default;
  const char* ClassUnity() const { return mClassUnity.c_str(); }
  /// Keeps a copy; null counts as empty.
  void ClassUnity(const char* unit) { mClassUnity = std::string(unit != nullptr ? unit : ""); }

 protected:
  MonoDimensionalNumericalDescriptor(ValueTypeId type, int symbol, const char* name)
      : Branch(type, symbol, name) {
    this->TraceNew("MonoDimNum");
  }
  MonoDimensionalNumericalDescriptor(const MonoDimensionalNumericalDescriptor& other)
      : Branch(other), mClassUnity(other.mClassUnity) {
    this->TraceCopy("MonoDimNum", other);
  }

 private:
  std::string mClassUnity;
};

class MonoDimensionalNumericalConstantDescriptor
    : public MonoDimensionalNumericalDescriptor<ConstantDescriptor> {
 protected:
  using MonoDimensionalNumericalDescriptor::MonoDimensionalNumericalDescriptor;
};

class MonoDimensionalNumericalVariableDescriptor
    : public MonoDimensionalNumericalDescriptor<VariableDescriptor> {
 protected:
  using MonoDimensionalNumericalDescriptor::MonoDimensionalNumericalDescriptor;
};

// By the tags: DescriptorDispatch.cpp
/// A copy of the descriptor's value class; null when the tags name none.
Descriptor* NewDescriptorCopy(const Descriptor& source);
/// Destroys and frees, as the value class; one of no value class, or null, is left alone.
void DestroyDescriptor(Descriptor* descriptor);
