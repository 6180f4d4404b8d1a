// DescriptedEntity: the second layer of entities, which has attributes.
//
// An attribute is a descriptor, constant or variable, that the entity owns; its class symbol is its id. The
// entity keeps the two kinds apart, each in order of addition, with the position of each id: an access by id
// is two indexed reads. A constant and a variable may have the same id; the variable then wins, except where
// a name says Const.
//
// Accessors of values are a family: SetIntValue, GetFloatVarValue, and so on, one shape for many types. All
// fail alike. An id that the entity has not is InexistantDescriptor; in the Var and Const forms
// InexistantVariableDescriptor and InexistantConstantDescriptor, except for one beyond all the entity's ids.
// A descriptor of another type is BadDescriptorValueType: values are never converted, except by the forms
// named Cast.
//
// A variable is read and changed through its monitor. A last `trigger` of 0 goes past it; on a constant it
// means nothing, which a line on standard output says. Tables that are set change hands; tables that are read
// stay the descriptor's. What else a change does is told by the descriptors themselves.
#pragma once

#include "kalve/model/BasicEntity.h"
#include "kalve/model/ValueRows.h"

class DescriptedEntity : public BasicEntity {
 public:
  // Life: DescribedLife.cpp
  /// With two predefined descriptors: InstantAttribute and CurrentElementIndex.
  DescriptedEntity();
  /// The four forms of BasicEntity, each with copies of all descriptors.
  DescriptedEntity(const DescriptedEntity& source);
  DescriptedEntity(const DescriptedEntity& source, int depth);
  DescriptedEntity(const DescriptedEntity& source, bool withMonitors);
  DescriptedEntity(const DescriptedEntity& source, bool withMonitors, int depth);
  DescriptedEntity& operator=(const DescriptedEntity&) = delete;
  /// Records the final values, then destroys the descriptors.
  ~DescriptedEntity();

  // Descriptors: DescriptedEntity.cpp
  /// Takes the descriptor over; one that is there already is not added again. BadDescriptorTypeWhenAdd for
  /// the other kind; an index failure for a descriptor without class symbol.
  void AddConstantDescriptor(Descriptor* descriptor);
  void AddConstantDescriptor(Descriptor* descriptor, int isPrivate);
  void AddVariableDescriptor(Descriptor* descriptor);
  void AddVariableDescriptor(Descriptor* descriptor, int isPrivate);
  /// -9 for none.
  int GetConstantDescriptorPosition(int id) const { return PositionIn(mConstantDescriptorPositions, id); }
  int GetVariableDescriptorPosition(int id) const { return PositionIn(mVariableDescriptorPositions, id); }
  ConstantDescriptor* GetConstantDescriptor(int id) const;
  VariableDescriptor* GetVariableDescriptor(int id) const;
  Descriptor* GetDescriptor(int id) const;
  /// The first of that class name, variables before constants; InexistantDescriptor.
  Descriptor* GetDescriptor(const char* name) const;
  const Tableau<ConstantDescriptor*>& ConstantDescriptorTab() const { return mConstantDescriptorTab; }
  const Tableau<VariableDescriptor*>& VariableDescriptorTab() const { return mVariableDescriptorTab; }
  bool HasConstantDescriptors() const { return mConstantDescriptorTab.empty() == 0; }
  bool HasVariableDescriptors() const { return mVariableDescriptorTab.empty() == 0; }
  /// The descriptor of an id, null for none.
  ConstantDescriptor* FindConstantDescriptor(int id) const {
    const int position = GetConstantDescriptorPosition(id);
    return position >= 0 ? mConstantDescriptorTab[position] : nullptr;
  }
  VariableDescriptor* FindVariableDescriptor(int id) const {
    const int position = GetVariableDescriptorPosition(id);
    return position >= 0 ? mVariableDescriptorTab[position] : nullptr;
  }

  // Outputs: DescribedOutputs.cpp
  /// Ties the descriptor to the series that the output specification in charge wants of it.
  void AddDTS2EntityInstOSIfNew(Descriptor* descriptor);
  /// As BasicEntity does; descriptors that were there before the entity knew its class get their series.
  void AddInstanceToClass();
  void AddInstanceToClass(int);

  // Whole entities: DescribedCopies.cpp
  /// Whether the stored value of an int, float, double or text is its default; false for other single values
  /// and tables of numbers. DefaultValueNotSupported for any other table and for domains.
  bool DefaultValueIsAssigned(int id) const;
  /// Gives each descriptor that both entities have, by id and kind, the source's value: tables as copies,
  /// variables through the monitors of both. Entity specifications, tables of value specifications, and
  /// tables of ints and doubles are passed over.
  void CopyDescriptorValuesFrom(const DescriptedEntity* source);
  /// Order by the numeric descriptor of GetDescIdForSorting() of the left side. `>` means at least; both are
  /// true for a descriptor of another type.
  bool operator<(const DescriptedEntity& right) const;
  bool operator>(const DescriptedEntity& right) const;
  int GetDescIdForSorting() const { return mDescIdForSorting; }
  void SetDescIdForSorting(int id) { mDescIdForSorting = id; }
  /// Expansions of entity specifications leave out entities with this flag.
  int IsEngineManaged() const { return mIsEngineManaged; }
  void IsEngineManaged(int flag) { mIsEngineManaged = flag; }
  /// Prints what BasicEntity prints, then a line per descriptor, for debugging. DescribedDump.cpp
  void DisplayAttributes() const;

// The family of the values. A row of ValueRows.h says what the types differ in.
//
// Changes, of either kind, of a variable, of a constant.
#define KALVE_SETTERS(T)                                                                                     \
  void Set##T##Value(int id, T##Row::Value value) { PlainAccess<T##Row>::Set(*this, id, value); }            \
  void Set##T##VarValue(int id, T##Row::Value value) { PlainAccess<T##Row>::SetVariable(*this, id, value); } \
  void Set##T##ConstValue(int id, T##Row::Value value) {                                                     \
    ConstantAccess<T##Row>::SetConstant(*this, id, value);                                                   \
  }
// Changes that may go past the monitor.
#define KALVE_TRIGGERED_SETTERS(T)                                      \
  void Set##T##Value(int id, T##Row::Value value, Boolean trigger) {    \
    TriggeredAccess<T##Row>::Set(*this, id, value, trigger);            \
  }                                                                     \
  void Set##T##VarValue(int id, T##Row::Value value, Boolean trigger) { \
    TriggeredAccess<T##Row>::SetVariable(*this, id, value, trigger);    \
  }
// Reads, of either kind, of a variable, of a constant.
#define KALVE_GETTERS(Name, T)                                                                            \
  T##Row::Value Get##Name##Value(int id) const { return PlainAccess<T##Row>::Get(*this, id); }            \
  T##Row::Value Get##Name##VarValue(int id) const { return PlainAccess<T##Row>::GetVariable(*this, id); } \
  T##Row::Value Get##Name##ConstValue(int id) const { return ConstantAccess<T##Row>::GetConstant(*this, id); }
// Reads that may go past the monitor.
#define KALVE_TRIGGERED_GETTERS(Name, T)                             \
  T##Row::Value Get##Name##Value(int id, Boolean trigger) const {    \
    return TriggeredAccess<T##Row>::Get(*this, id, trigger);         \
  }                                                                  \
  T##Row::Value Get##Name##VarValue(int id, Boolean trigger) const { \
    return TriggeredAccess<T##Row>::GetVariable(*this, id, trigger); \
  }
#define KALVE_VALUE(T)       \
  KALVE_SETTERS(T)           \
  KALVE_TRIGGERED_SETTERS(T) \
  KALVE_GETTERS(T, T)        \
  KALVE_TRIGGERED_GETTERS(T, T)

  KALVE_VALUE(Int)
  KALVE_VALUE(Float)
  KALVE_VALUE(Double)
  KALVE_VALUE(String)
  KALVE_VALUE(IntDomain)
  KALVE_VALUE(FloatDomain)
  KALVE_VALUE(DoubleDomain)
  KALVE_VALUE(StringTab)
  KALVE_VALUE(EntityTab)
  KALVE_VALUE(DescValueSpecTab)
  KALVE_SETTERS(Entity)
  KALVE_TRIGGERED_SETTERS(Entity)
  KALVE_GETTERS(BasicEntity, Entity)
  KALVE_TRIGGERED_GETTERS(BasicEntity, Entity)
  KALVE_SETTERS(EntitySpec)
  KALVE_GETTERS(EntitySpec, EntitySpec)
#undef KALVE_VALUE
#undef KALVE_TRIGGERED_GETTERS
#undef KALVE_GETTERS
#undef KALVE_TRIGGERED_SETTERS
#undef KALVE_SETTERS

// Tables of numbers, which only constants hold: an index failure for a rank that is not there, but a change
// makes the table grow. An addition to a variable of the id prints that there is no such descriptor.
#define KALVE_NUMBER_TAB(T)                                                                        \
  void Set##T##TabValue(int id, Tableau<T##TabRow::Item>* tab) {                                   \
    ConstantAccess<T##TabRow>::SetConstant(*this, id, tab);                                        \
  }                                                                                                \
  void Set##T##TabConstValue(int id, Tableau<T##TabRow::Item>* tab) { Set##T##TabValue(id, tab); } \
  void Set##T##ValueElement(int id, int rank, T##TabRow::Item value) {                             \
    NumberTabAccess<T##TabRow>::SetElement(*this, id, rank, value);                                \
  }                                                                                                \
  void Set##T##ConstValueElement(int id, int rank, T##TabRow::Item value) {                        \
    Set##T##ValueElement(id, rank, value);                                                         \
  }                                                                                                \
  Tableau<T##TabRow::Item>* Get##T##TabValue(int id) const {                                       \
    return ConstantAccess<T##TabRow>::GetConstant(*this, id);                                      \
  }                                                                                                \
  Tableau<T##TabRow::Item>* Get##T##TabConstValue(int id) const { return Get##T##TabValue(id); }   \
  T##TabRow::Item Get##T##ValueElement(int id, int rank) const {                                   \
    return NumberTabAccess<T##TabRow>::GetElement(*this, id, rank);                                \
  }                                                                                                \
  T##TabRow::Item Get##T##ConstValueElement(int id, int rank) const {                              \
    return Get##T##ValueElement(id, rank);                                                         \
  }                                                                                                \
  void Add##T##ValueElement(int id, T##TabRow::Item value) {                                       \
    NumberTabAccess<T##TabRow>::AddElement(*this, id, value);                                      \
  }

  KALVE_NUMBER_TAB(Int)
  KALVE_NUMBER_TAB(Float)
  KALVE_NUMBER_TAB(Double)
#undef KALVE_NUMBER_TAB
  void ClearFloatTabValues(int id);

// Intervals of domains: one more, and the one at a rank, null when it is not there.
#define KALVE_INTERVALS(T, Bound, Interval)                       \
  void Add##T##DomainValueElement(int id, Bound low, Bound high); \
  Interval* Get##T##DomainValueElement(int id, int rank) const;   \
  Interval* Get##T##DomainValueElement(int id, int rank, Boolean trigger) const;

  KALVE_INTERVALS(Int, int, IntInterval)
  KALVE_INTERVALS(Float, float, FloatInterval)
  KALVE_INTERVALS(Double, double, DoubleInterval)
#undef KALVE_INTERVALS

  // What single types have besides: DescribedElements.cpp
  /// On any of the three numeric types, with the conversions of the language.
  void SetIntCastValue(int id, int value);
  void SetFloatCastValue(int id, float value);
  void SetDoubleCastValue(int id, double value);
  // Steps of an int variable.
  void IncrValue(int id) { IncreaseIntValue(id, 1); }
  void IncrValue(int id, Boolean trigger) { IncreaseIntValue(id, 1, trigger); }
  void DecrValue(int id) { DecreaseIntValue(id, 1); }
  void DecrValue(int id, Boolean trigger) { DecreaseIntValue(id, 1, trigger); }
  void IncreaseIntValue(int id, int n) { IncreaseIntValue(id, n, 1); }
  void IncreaseIntValue(int id, int n, Boolean trigger);
  void DecreaseIntValue(int id, int n) { DecreaseIntValue(id, n, 1); }
  void DecreaseIntValue(int id, int n, Boolean trigger);
  /// The text, from `malloc`, changes hands.
  void AddStringValueElement(int id, char* text);
  /// Frees the table and its texts.
  void DepthDeleteStringTabValue(int id);
  // Entries of tables. Tables given here stay the caller's.
  void AddEntityValueElement(int id, BasicEntity* entity);
  void AddEntityValueElement(int id, BasicEntity* entity, Boolean trigger);
  void AddEntityValueElements(int id, Tableau<BasicEntity*>* entities);
  void RemoveEntityValueElement(int id, BasicEntity* entity);
  void ClearEntityTabValues(int id);
  void AddDescValueSpecValueElement(int id, DescValueSpec* spec);
  void AddDescValueSpecValueElements(int id, Tableau<DescValueSpec*>* specs);
  void RemoveDescValueSpecValueElement(int id, DescValueSpec* spec);
  void ClearDescValueSpecTabValues(int id);

  // The same as the forms named BasicEntity: EntityCasts.cpp
  Entity* GetEntityValue(int id) const;
  Entity* GetEntityValue(int id, Boolean trigger) const;
  Entity* GetEntityVarValue(int id) const;
  Entity* GetEntityVarValue(int id, Boolean trigger) const;
  Entity* GetEntityConstValue(int id) const;

 private:
  static int PositionIn(const Tableau<int>& positions, int id) {
    return static_cast<unsigned>(id) < static_cast<unsigned>(positions.size()) ? positions.begin()[id]
                                                                               : K_INT_UNSIGNIFICANT;
  }
  void BecomeCopyOf(const DescriptedEntity& source);
  void RecordFinalValues();
  void DestroyDescriptors();
  template <class Branch>
  void Add(Tableau<Branch*>& tab, Tableau<int>& positions, Descriptor* descriptor, const char* operation);
  template <class Compare>
  bool Compares(const DescriptedEntity& right, Compare compare) const;

  Tableau<ConstantDescriptor*> mConstantDescriptorTab;
  Tableau<int> mConstantDescriptorPositions;  // by class symbol, negative for none
  Tableau<VariableDescriptor*> mVariableDescriptorTab;
  Tableau<int> mVariableDescriptorPositions;
  int mIsEngineManaged = 0;
  int mDescIdForSorting = K_INT_UNSIGNIFICANT;
};
