// Value specifications: a condition on the value of one descriptor.
//
// A specification names a descriptor by its id, holds a domain made of sub-domains, and says by its operator
// whether it asks for values inside (IN) or outside (NOT_IN) that domain. It serves to select entities
// (IsInDomain), to draw a value for a new entity (GetValueInDomain), and as the set of values that a
// descriptor accepts (IsOutOfDomain, which looks at the domain alone and not at the operator).
//
// There are five, told apart by the type of the value; nothing is virtual, and whoever holds the base goes
// by the tag. Three hold closed intervals and differ by a row; a text and an entity domain list values.
//
// A specification given to an entity specification belongs to it and to its copies: the last of those that
// list it frees it.
//
// Members that read or write a descriptor of an entity stand in ConditionOnEntity.cpp, those that ask an
// entity for its class or look it up by name in EntityDomains.cpp.
#pragma once

#include <memory>
#include <string>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/Tableau.h"

class DescValueSpec {
 public:
  /// Without descriptor (-9), operator IN.
  DescValueSpec();
  DescValueSpec(const DescValueSpec& other);
  DescValueSpec& operator=(const DescValueSpec& other) = default;
  ~DescValueSpec();
  /// Frees a specification as the class that its tag names; one of another tag, or null, is left alone.
  static void DeleteByType(DescValueSpec* spec);

  /// "descValueSpec" unless renamed.
  const char* ClassName() const { return mClassName.c_str(); }
  void ClassName(const char* name);
  int GetDescId() const { return mDescId; }
  void SetDescId(int id) { mDescId = id; }
  RelationalOperator GetRelationalOperator() const { return mRelationalOperator; }
  void SetRelationalOperator(RelationalOperator relation) { mRelationalOperator = relation; }
  /// INT, FLOAT, DOUBLE, STRING or P_ENTITY.
  ValueTypeId GetValueType() const { return mValueType; }
  void SetValueType(ValueTypeId type) { mValueType = type; }

  /// Whether the entity meets the condition, by the tag. An entity without the descriptor is
  /// InexistantDescriptor, one of another type BadDescriptorValueType. A tag below INT is never met; one
  /// above P_ENTITY answers its own number. ConditionOnEntity.cpp
  int IsInDomain(DescriptedEntity* entity);
  /// Gives the entity's descriptor a value drawn by GetValueInDomain, by the tag and with the plain setter,
  /// so that monitors run. A null text is not written; another tag than INT to P_ENTITY writes nothing.
  /// ConditionOnEntity.cpp
  void DrawInto(DescriptedEntity* entity) const;

  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

 protected:
  DescValueSpec(ValueTypeId type, int descriptorId, RelationalOperator relation);
  /// What the operator makes of a value that lies (or not) in the domain.
  int Meets(bool found) const { return mRelationalOperator == IN ? found : !found; }

 private:
  friend class EntitySpec;
  /// How often entity specifications list this object. No copy is listed with its source.
  struct Listings {
    int count = 0;
    Listings() = default;
    Listings(const Listings& /*source*/) {}
    Listings& operator=(const Listings& /*source*/) { return *this; }
  };

  std::string mClassName = "descValueSpec";
  int mDescId = K_INT_UNSIGNIFICANT;
  RelationalOperator mRelationalOperator = IN;
  ValueTypeId mValueType = VOID;
  Listings mListings;

  static int _nbConst;
  static int _nbDest;
};

// Intervals of numbers ---------------------------------------------------------------------------------

// What tells the three classes of intervals apart.
struct IntSpecKind {
  using Value = int;
  using Interval = IntInterval;
  static constexpr ValueTypeId type = INT;
  static constexpr const char* name = "DescIntValueSpec";
};
struct FloatSpecKind {
  using Value = float;
  using Interval = FloatInterval;
  static constexpr ValueTypeId type = FLOAT;
  static constexpr const char* name = "DescFloatValueSpec";
};
struct DoubleSpecKind {
  using Value = double;
  using Interval = DoubleInterval;
  static constexpr ValueTypeId type = DOUBLE;
  static constexpr const char* name = "DescDoubleValueSpec";
};

/// A domain of closed intervals. The specification owns them; a copy has intervals of its own. A low bound
/// above the high one is BadIntervalBounds.
template <class Kind>
class IntervalValueSpec : public DescValueSpec {
 public:
  using Value = typename Kind::Value;
  using Interval = typename Kind::Interval;

  IntervalValueSpec();
  explicit IntervalValueSpec(RelationalOperator relation);
  IntervalValueSpec(int descriptorId, RelationalOperator relation);
  /// The interval from the value to itself.
  IntervalValueSpec(int descriptorId, RelationalOperator relation, Value value);
  IntervalValueSpec(int descriptorId, RelationalOperator relation, Value low, Value high);
  IntervalValueSpec(const IntervalValueSpec& other);
  IntervalValueSpec& operator=(const IntervalValueSpec& other);
  ~IntervalValueSpec();

  /// Appends an interval.
  void AddSubDomain(Value low, Value high);
  /// Keeps the table sorted by low bound, the new interval behind those of an equal one.
  void InsertSubDomain(Value low, Value high);
  /// By low bound; equal ones keep their order.
  void SortOnLowBound();
  /// Sorts the intervals and merges those that overlap or share a bound. Intervals that are merged are freed.
  void ReduceToDisjunction();
  /// The intervals; the table and what it points to stay the specification's.
  Tableau<Interval*>* GetDomain() const { return mpDomain.get(); }

  /// Whether the value lies in an interval: exactly for integers, within 1e-6 of the bounds, in double
  /// precision, for reals.
  bool Holds(Value value) const;
  int IsOutOfDomain(Value value) const { return !Holds(value); }
  /// ConditionOnEntity.cpp
  int IsInDomain(DescriptedEntity* entity);
  /// Draws a value from rand(): with IN an interval, then a value in it; with NOT_IN a gap around the
  /// intervals, then a value in it, for which they must be sorted and disjoint. Reals are drawn on a grid of
  /// a hundred to a thousand steps; an interval or gap of no width gives the bound before it and draws
  /// nothing. Any other operator gives 0, an empty domain an index failure.
  Value GetValueInDomain() const;

 private:
  void Trace(const char* what) const;
  void FreeIntervals();
  static std::unique_ptr<Tableau<Interval*>> Duplicate(const Tableau<Interval*>& intervals);

  std::unique_ptr<Tableau<Interval*>> mpDomain;
};

extern template class IntervalValueSpec<IntSpecKind>;
extern template class IntervalValueSpec<FloatSpecKind>;
extern template class IntervalValueSpec<DoubleSpecKind>;

class DescIntValueSpec : public IntervalValueSpec<IntSpecKind> {
 public:
  using IntervalValueSpec::AddSubDomain;
  using IntervalValueSpec::InsertSubDomain;
  using IntervalValueSpec::IntervalValueSpec;
  void AddSubDomain(int value) { AddSubDomain(value, value); }
  void InsertSubDomain(int value) { InsertSubDomain(value, value); }
};

class DescFloatValueSpec : public IntervalValueSpec<FloatSpecKind> {
 public:
  using IntervalValueSpec::IntervalValueSpec;
};

class DescDoubleValueSpec : public IntervalValueSpec<DoubleSpecKind> {
 public:
  using IntervalValueSpec::IntervalValueSpec;
};

// Lists of values --------------------------------------------------------------------------------------

/// A domain of texts, kept as pointers: they must outlive the specification and its copies. A null text
/// counts as empty.
class DescStringValueSpec : public DescValueSpec {
 public:
  DescStringValueSpec();
  explicit DescStringValueSpec(RelationalOperator relation);
  DescStringValueSpec(int descriptorId, RelationalOperator relation);
  /// An operator of 2 or more is BadRelationalOperator.
  DescStringValueSpec(int descriptorId, RelationalOperator relation, const char* value);
  DescStringValueSpec(const DescStringValueSpec& other);
  DescStringValueSpec& operator=(const DescStringValueSpec& other) = default;

  void AddSubDomain(const char* value) { mStringDomain.push_back(value); }
  Tableau<const char*>* GetDomain() { return &mStringDomain; }

  /// Whether the text equals one of the domain's.
  bool Holds(const char* value) const;
  int IsOutOfDomain(const char* value) const { return !Holds(value); }
  /// ConditionOnEntity.cpp
  int IsInDomain(DescriptedEntity* entity);
  /// One of the texts, drawn from rand(); an empty domain is an index failure. Null unless the operator is
  /// IN.
  const char* GetValueInDomain() const;

 private:
  Tableau<const char*> mStringDomain;
};

/// A domain of entities, or of classes of entities, as the constructor decides. The entities are not owned.
class DescEntityValueSpec : public DescValueSpec {
 public:
  // A domain of entities, empty.
  DescEntityValueSpec();
  explicit DescEntityValueSpec(RelationalOperator relation);
  DescEntityValueSpec(int descriptorId, RelationalOperator relation);
  /// A domain of entities. An operator of 2 or more is BadRelationalOperator, here and for classes.
  DescEntityValueSpec(int descriptorId, RelationalOperator relation, BasicEntity* entity);
  /// A domain of classes; a negative class symbol leaves it empty.
  DescEntityValueSpec(int descriptorId, RelationalOperator relation, int classSymbol);
  DescEntityValueSpec(const DescEntityValueSpec& other);
  DescEntityValueSpec& operator=(const DescEntityValueSpec& other) = default;

  int IsDomainAClass() const { return mIsDomainAClass; }
  /// A class in a domain of entities, or an entity in one of classes, is UnAuthorizedEntitySubDomain.
  void AddSubDomain(BasicEntity* entity);
  void AddSubDomain(int classSymbol);
  /// The living entity of that name, else UnfoundEntityBasedOnInstanceName. EntityDomains.cpp
  void AddSubDomain(const char* instanceName);
  Tableau<BasicEntity*>* GetDomain() { return &mEntityDomain; }
  Tableau<int>* GetClassDomain() { return &mClassDomain; }

  /// Whether the entity is one of the domain's, or an instance of one of its classes. Null and the dead are
  /// in no class. EntityDomains.cpp
  bool Holds(BasicEntity* entity) const;
  /// As Holds says, but null is always out. EntityDomains.cpp
  int IsOutOfDomain(BasicEntity* entity) const;
  /// ConditionOnEntity.cpp
  int IsInDomain(DescriptedEntity* entity);
  /// One of the entities, drawn from rand(); an empty domain, hence one of classes, is an index failure.
  /// Null unless the operator is IN.
  BasicEntity* GetValueInDomain() const;

 private:
  int mIsDomainAClass = 0;
  Tableau<BasicEntity*> mEntityDomain;
  Tableau<int> mClassDomain;
};
