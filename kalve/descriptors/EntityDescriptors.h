// Descriptors that refer into the model: an entity, a table of entities, an entity specification, a table of
// value specifications. What they refer to is not owned; tables are (TableValue.h).
#pragma once

#include "kalve/descriptors/ScalarDescriptor.h"
#include "kalve/descriptors/TableValue.h"
#include "kalve/descriptors/ValueClass.h"
#include "kalve/foundations/FixedText.h"

/// The classes whose instances the descriptor accepts. An empty list admits any entity.
template <class Layer, FixedText family>
class ClassListed : public Layer {
 public:
  ClassListed& operator=(const ClassListed&) = delete;
  /// The first class: MisuseValueClassId when there is one already.
  void ValueClassId(int classSymbol);
  /// A further class, which must have an ancestor above the layers of the kernel in common with each of the
  /// list: MisuseAddValueClassId.
  void AddValueClassId(int classSymbol);
  /// The first class; an index failure on an empty list.
  int GetValueClassId() const;
  Tableau<int> ValueClassIdTab() const { return mValueClassIdTab; }

 protected:
  using Layer::Layer;
  ClassListed(const ClassListed&) = default;
  /// Whether the entity is an instance of a class of the list. Null and dead entities are of no class.
  bool Lists(const BasicEntity* entity) const;
  /// The same for a value: null is acceptable, and so is everything with an empty list.
  bool Admits(const BasicEntity* entity) const;

  Tableau<int> mValueClassIdTab;
};

// One entity -----------------------------------------------------------------------------------------------

struct EntityKind {
  using Value = BasicEntity*;
  using Stored = BasicEntity*;
  using Spec = DescEntityValueSpec;
  using ConstantLayer = ClassListed<ConstantDescriptor, "Entity">;
  using VariableLayer = ClassListed<VariableDescriptor, "Entity">;
  static constexpr ValueTypeId type = P_ENTITY;
  static constexpr const char* initials = "E";
};

/// Without a domain of its own, the class list decides; null is always acceptable.
template <class Scalar>
class EntityDomained : public Scalar {
 public:
  using Scalar::Scalar;
  // Make and extend the domain. The entity must be an instance of a class of the list, which an empty list
  // has none of.
  void SetSubDomain(BasicEntity* entity);
  void AddSubDomain(BasicEntity* entity);
};

extern template class ClassListed<ConstantDescriptor, "Entity">;
extern template class ClassListed<VariableDescriptor, "Entity">;
extern template class ScalarDescriptor<EntityKind::ConstantLayer, EntityKind>;
extern template class ScalarDescriptor<EntityKind::VariableLayer, EntityKind>;
extern template class ScalarConstant<EntityKind>;
extern template class ScalarVariable<EntityKind>;
extern template class EntityDomained<ScalarConstant<EntityKind>>;
extern template class EntityDomained<ScalarVariable<EntityKind>>;

class EntityConstantDescriptor : public EntityDomained<ScalarConstant<EntityKind>> {
  KALVE_DESCRIPTOR(EntityConstantDescriptor, EntityDomained)
  DescEntityValueSpec* GetEntityDomain() const { return GetDomain(); }
  BasicEntity* GetEntityValue() const { return mValue; }
};

class EntityVariableDescriptor : public EntityDomained<ScalarVariable<EntityKind>> {
  KALVE_DESCRIPTOR(EntityVariableDescriptor, EntityDomained)
  DescEntityValueSpec* GetEntityDomain() const { return GetDomain(); }
  BasicEntity* GetEntityValue() { return GetValue(); }
  BasicEntity* GetEntityValue(int withMonitor) { return GetValue(withMonitor); }
};

// A table of entities --------------------------------------------------------------------------------------

struct EntityTabKind {
  using Item = BasicEntity*;
  static constexpr ValueTypeId type = ENTITY_TAB;
  static constexpr const char* initials = "ET";
};

/// Both tables are empty at first.
template <class Branch>
class EntityTabDescriptor : public TableValue<ClassListed<Branch, "EntityTab">, EntityTabKind> {
 public:
  using Base = TableValue<ClassListed<Branch, "EntityTab">, EntityTabKind>;
  using Table = typename Base::Table;
  explicit EntityTabDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "");

  bool IsInDomain(BasicEntity* entity) const { return this->Admits(entity); }
  bool IsOutOfDomain(BasicEntity* entity) const { return !this->Admits(entity); }

 protected:
  void CheckDomain(BasicEntity* entity);
  void CheckFirst(const Table* table);
  /// Adds a point that holds `text`, without one nothing.
  void AddPoint(int clock, const char* text);
};

extern template class ClassListed<ConstantDescriptor, "EntityTab">;
extern template class ClassListed<VariableDescriptor, "EntityTab">;
extern template class EntityTabDescriptor<ConstantDescriptor>;
extern template class EntityTabDescriptor<VariableDescriptor>;

/// The names of a table's entities between double quotes, separated by one blank, as a series keeps them.
/// Null and dead entities are left out.
std::string RecordedNames(const Tableau<BasicEntity*>* table);

class EntityTabConstantDescriptor : public EntityTabDescriptor<ConstantDescriptor> {
  KALVE_DESCRIPTOR(EntityTabConstantDescriptor, EntityTabDescriptor)
  /// With room for `capacity` entities in the value.
  EntityTabConstantDescriptor(bool, int capacity);

  void ClearValues();
  /// Takes the table over and destroys the one held. The domain looks at the first entity alone.
  void SetValue(Table* table);
  /// Replaces an entry; an index failure out of range.
  void SetValueElement(BasicEntity* entity, int rank);
  /// Additions are checked; an entity that is there already is not added again.
  void AddValueElement(BasicEntity* entity);
  void AddValueElements(Table* entities);
  void RemoveValue(BasicEntity* entity);
  Table* GetEntityTabValue() const { return mValue.Get(); }
  Table* GetValue() const { return mValue.Get(); }
  /// An index failure out of range.
  BasicEntity* GetValueElement(int rank) const;
  void RecordValue(int clock, const char* text) { AddPoint(clock, text); }
  void RecordPresentValue(int clock);
};

/// Changes are recorded and never plotted. Forms without `withMonitor` go through the monitor; with 0 they
/// go past it, with any other number they are the same as without.
class EntityTabVariableDescriptor : public EntityTabDescriptor<VariableDescriptor> {
  KALVE_DESCRIPTOR(EntityTabVariableDescriptor, EntityTabDescriptor)

  /// Asks no monitor (a warning says so when there is one for changes) and records nothing.
  void ClearValues() { ClearValues(1); }
  void ClearValues(int withMonitor);
  /// Takes the table over and destroys the one held. The domain looks at the first entity alone; past the
  /// monitor it looks at all. A body may answer the current table, but must not read it; with any other
  /// answer than the candidate, the candidate is the body's.
  void SetValue(Table* table) { SetValue(table, 1); }
  void SetValue(Table* table, int withMonitor);
  /// Replaces an entry; an index failure out of range. The monitor sees a new table with the new entry, which
  /// changes hands as in SetValue; its answer counts for nothing. Null is acceptable.
  void SetValueElement(BasicEntity* entity, int rank) { SetValueElement(entity, rank, 1); }
  void SetValueElement(BasicEntity* entity, int rank, int withMonitor);
  /// The domain looks at the candidate, and what the monitor answers is added unless it is there.
  void AddValueElement(BasicEntity* entity) { AddValueElement(entity, 1); }
  void AddValueElement(BasicEntity* entity, int withMonitor);
  void AddValueElements(Table* entities) { AddValueElements(entities, 1); }
  void AddValueElements(Table* entities, int withMonitor);
  /// What the monitor answers is removed.
  void RemoveValue(BasicEntity* entity) { RemoveValue(entity, 1); }
  void RemoveValue(BasicEntity* entity, int withMonitor);
  Table* GetEntityTabValue() { return GetEntityTabValue(1); }
  Table* GetEntityTabValue(int withMonitor);
  Table* GetValue() { return GetEntityTabValue(1); }
  Table* GetValue(int withMonitor) { return GetEntityTabValue(withMonitor); }
  /// An index failure out of range.
  BasicEntity* GetValueElement(int rank) { return GetValueElement(rank, 1); }
  BasicEntity* GetValueElement(int rank, int withMonitor);
  /// Adds a point that holds `text` at the present clock.
  void RecordValue(const char* text) { AddPoint(PresentClock(), text); }
  /// The names of the present value, past the monitor.
  void RecordPresentValue();

 private:
  BasicEntity* Answered(int slot, int methodId, BasicEntity* candidate, int withMonitor);
  void RecordIfAsked();
};

// An entity specification ----------------------------------------------------------------------------------

/// Plain stores and reads, in both branches: no domain, monitor or recording. The specification is shared
/// with copies.
template <class Branch>
class EntitySpecDescriptor : public Branch {
 public:
  static constexpr ValueTypeId type = P_ENTITYSPEC;

  explicit EntitySpecDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "")
      : Branch(type, classSymbol, className) {
    this->TraceNew("ES");
  }
  EntitySpecDescriptor(const EntitySpecDescriptor& other)
      : Branch(other), mValue(other.mValue), mDefaultValue(other.mDefaultValue) {
    this->TraceCopy("ES", other);
  }
  EntitySpecDescriptor& operator=(const EntitySpecDescriptor&) = delete;

  void SetValue(EntitySpec* spec) { mValue = spec; }
  EntitySpec* GetEntitySpecValue() const { return mValue; }
  EntitySpec* GetValue() const { return mValue; }
  void SetDefaultValue(EntitySpec* spec) { mDefaultValue = spec; }
  EntitySpec* GetDefaultValue() const { return mDefaultValue; }
  void SetToDefaultValue() { mValue = mDefaultValue; }
  void SetToDefaultValue(EntitySpec* spec) { mValue = mDefaultValue = spec; }

 protected:
  void TakeValues(const EntitySpecDescriptor& source) {
    mValue = source.mValue;
    mDefaultValue = source.mDefaultValue;
  }

 private:
  EntitySpec* mValue = nullptr;
  EntitySpec* mDefaultValue = nullptr;
};

class EntitySpecConstantDescriptor : public EntitySpecDescriptor<ConstantDescriptor> {
  KALVE_DESCRIPTOR(EntitySpecConstantDescriptor, EntitySpecDescriptor)
};
class EntitySpecVariableDescriptor : public EntitySpecDescriptor<VariableDescriptor> {
  KALVE_DESCRIPTOR(EntitySpecVariableDescriptor, EntitySpecDescriptor)
};

// A table of value specifications --------------------------------------------------------------------------

struct DescValueSpecTabKind {
  using Item = DescValueSpec*;
  static constexpr ValueTypeId type = DESCVALUESPEC_TAB;
  static constexpr const char* initials = "DVST";
};

/// The table is owned, the specifications in it are not. There is no domain and no recording. Both tables
/// are null at first.
template <class Branch>
class DescValueSpecTabDescriptor : public TableValue<Branch, DescValueSpecTabKind> {
 public:
  using Base = TableValue<Branch, DescValueSpecTabKind>;
  using Table = typename Base::Table;
  explicit DescValueSpecTabDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "")
      : Base(classSymbol, className) {}

  bool IsInDomain(DescValueSpec* /*spec*/) const { return true; }
  bool IsOutOfDomain(DescValueSpec* /*spec*/) const { return false; }

 protected:
  /// Takes the table; the one held goes back to the caller, who frees it.
  void Replace(Table* table);
  void Add(DescValueSpec* spec);
  void Remove(DescValueSpec* spec);
  void Clear();
};

extern template class DescValueSpecTabDescriptor<ConstantDescriptor>;
extern template class DescValueSpecTabDescriptor<VariableDescriptor>;

class DescValueSpecTabConstantDescriptor : public DescValueSpecTabDescriptor<ConstantDescriptor> {
  KALVE_DESCRIPTOR(DescValueSpecTabConstantDescriptor, DescValueSpecTabDescriptor)
  void ClearValues() { Clear(); }
  /// Takes the table over; the one held is not destroyed: it goes back to the caller.
  void SetValue(Table* table) { Replace(table); }
  void AddValueElement(DescValueSpec* spec) { Add(spec); }
  void RemoveValue(DescValueSpec* spec) { Remove(spec); }
  Table* GetDescValueSpecTabValue() const { return mValue.Get(); }
  Table* GetValue() const { return mValue.Get(); }
};

/// Forms without `withMonitor` go through the monitor; with 0 they go past it, with any other number they are
/// the same as without.
class DescValueSpecTabVariableDescriptor : public DescValueSpecTabDescriptor<VariableDescriptor> {
  KALVE_DESCRIPTOR(DescValueSpecTabVariableDescriptor, DescValueSpecTabDescriptor)
  /// Asks no monitor; a warning says so when there is one for changes, and a table to clear.
  void ClearValues() { ClearValues(1); }
  void ClearValues(int withMonitor);
  /// Takes over what the monitor answers; the table held is not destroyed: it goes back to the caller.
  void SetValue(Table* table) { SetValue(table, 1); }
  void SetValue(Table* table, int withMonitor);
  /// What the monitor answers is added unless it is there.
  void AddValueElement(DescValueSpec* spec) { AddValueElement(spec, 1); }
  void AddValueElement(DescValueSpec* spec, int withMonitor);
  /// What the monitor answers is removed.
  void RemoveValue(DescValueSpec* spec) { RemoveValue(spec, 1); }
  void RemoveValue(DescValueSpec* spec, int withMonitor);
  Table* GetDescValueSpecTabValue() { return GetDescValueSpecTabValue(1); }
  Table* GetDescValueSpecTabValue(int withMonitor);
  Table* GetValue() { return GetDescValueSpecTabValue(1); }
  Table* GetValue(int withMonitor) { return GetDescValueSpecTabValue(withMonitor); }

 private:
  DescValueSpec* Answered(int slot, int methodId, DescValueSpec* candidate, int withMonitor);
};
