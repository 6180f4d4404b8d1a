#include "kalve/specs/DescValueSpec.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iostream>
#include <limits>
#include <type_traits>
#include <unordered_set>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/DeleteAs.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Rng.h"
#include "kalve/foundations/TraceSwitches.h"

namespace {

void TraceLine(const char* what, const char* className, const void* object) {
  if (g_KV_TraceNewDelMode != 0) std::cout << what << className << " " << object;
}

constexpr const char* construction = "+Construction de la ";
constexpr const char* copyConstruction = "++ Copy construction de la ";
constexpr const char* destruction = "-Destruction de la ";

template <class T>
[[noreturn]] void FailToDraw(const char* className, const Tableau<T>& domain) {
  TabIndexOutOfRange(0, (std::string(className) + "::GetValueInDomain").c_str(), &domain, 0, true);
  exitOnException(0);
}

// An integer from 0 to n - 1. The generator can answer n, once in some millions of draws.
int DrawBelow(long n) {
  if (n <= 0) return 0;
  const auto limit = static_cast<int>(std::min<long>(n, K_INTMAX));
  return std::min(RandomInteger(limit), limit - 1);
}

// One of the entries of a list.
template <class T>
T DrawEntry(const Tableau<T>& domain, const char* className) {
  if (domain.empty()) FailToDraw(className, domain);
  return domain[DrawBelow(domain.size())];
}

// How integers are tested and drawn. Sums that leave the range of int end at its bounds.
struct Integers {
  static bool Lies(const IntInterval& interval, int value) {
    return interval.low <= value && interval.high >= value;
  }
  static int Within(int low, int high) { return Sum(low, DrawBelow(static_cast<long>(high) - low + 1)); }
  static int Between(int before, int behind) {
    return Sum(before, 1L + DrawBelow(static_cast<long>(behind) - before - 1));
  }
  static int Below(int low) { return Sum(low, -1L - RandomInteger(K_INTMAX)); }
  static int Above(int high) { return Sum(high, 1L + RandomInteger(K_INTMAX)); }

 private:
  static int Sum(long a, long b) {
    return static_cast<int>(std::clamp<long>(a + b, std::numeric_limits<int>::min(), K_INTMAX));
  }
};

// How reals are tested and drawn.
template <class Real>
struct Reals {
  template <class Interval>
  static bool Lies(const Interval& interval, Real value) {
    constexpr double tolerance = 1e-6;
    return static_cast<double>(value) >= static_cast<double>(interval.low) - tolerance &&
           static_cast<double>(interval.high) + tolerance >= static_cast<double>(value);
  }
  static Real Within(Real low, Real high) {
    const Grid grid(high - low);
    if (grid.steps == 0) return low;
    const int step = std::min(RandomInteger(grid.steps + 1), grid.steps);
    return std::min(low + grid.Width(step), high);
  }
  /// The low bound is left out.
  static Real Between(Real before, Real behind) {
    const Grid grid(behind - before);
    if (grid.steps == 0) return before;
    const int step = std::min(RandomInteger(grid.steps) + 1, grid.steps);
    return before + grid.Width(step);
  }
  static Real Below(Real low) {
    return low - std::numeric_limits<Real>::min() - static_cast<Real>(RandomInteger(K_INTMAX));
  }
  static Real Above(Real high) {
    return static_cast<Real>(RandomInteger(K_INTMAX)) + (high + std::numeric_limits<Real>::min());
  }

 private:
  // A range cut in steps of a power of ten, a hundred or more of them; no step for a range of no width.
  struct Grid {
    int steps = 0;
    int decimals = 0;

    explicit Grid(Real width) {
      if (!(width > 0)) return;
      for (; width < 100; ++decimals) width *= 10;
      steps = static_cast<int>(std::min<double>(static_cast<double>(width), K_INTMAX - 1));
    }
    Real Width(int count) const {
      Real width = static_cast<Real>(count);
      for (int i = 0; i < decimals; ++i) width /= 10;
      return width;
    }
  };
};

template <class Value>
using Numbers = std::conditional_t<std::is_same_v<Value, int>, Integers, Reals<Value>>;

}  // namespace

// The base ---------------------------------------------------------------------------------------------

int DescValueSpec::_nbConst = 0;
int DescValueSpec::_nbDest = 0;

DescValueSpec::DescValueSpec() : DescValueSpec(VOID, K_INT_UNSIGNIFICANT, IN) {}

DescValueSpec::DescValueSpec(ValueTypeId type, int descriptorId, RelationalOperator relation)
    : mDescId(descriptorId), mRelationalOperator(relation), mValueType(type) {
  ++_nbConst;
  TraceLine("\n+Construction de la ", "DescValueSpec", this);
}

DescValueSpec::DescValueSpec(const DescValueSpec& other)
    : mClassName(other.mClassName),
      mDescId(other.mDescId),
      mRelationalOperator(other.mRelationalOperator),
      mValueType(other.mValueType) {
  ++_nbConst;
  TraceLine("\n++ Copy construction de la ", "DescValueSpec", this);
}

DescValueSpec::~DescValueSpec() {
  ++_nbDest;
  TraceLine("\n-Destruction de la ", "DescValueSpec", this);
}

void DescValueSpec::DeleteByType(DescValueSpec* spec) {
  if (spec == nullptr) return;
  switch (static_cast<int>(spec->mValueType)) {
    case INT:
      return DeleteAs(static_cast<DescIntValueSpec*>(spec));
    case FLOAT:
      return DeleteAs(static_cast<DescFloatValueSpec*>(spec));
    case DOUBLE:
      return DeleteAs(static_cast<DescDoubleValueSpec*>(spec));
    case STRING:
      return DeleteAs(static_cast<DescStringValueSpec*>(spec));
    case P_ENTITY:
      return DeleteAs(static_cast<DescEntityValueSpec*>(spec));
    default:
      return;
  }
}

void DescValueSpec::ClassName(const char* name) { mClassName = OrEmpty(name); }

// Intervals of numbers ---------------------------------------------------------------------------------

template <class Kind>
IntervalValueSpec<Kind>::IntervalValueSpec() : IntervalValueSpec(K_INT_UNSIGNIFICANT, IN) {}

template <class Kind>
IntervalValueSpec<Kind>::IntervalValueSpec(RelationalOperator relation)
    : IntervalValueSpec(K_INT_UNSIGNIFICANT, relation) {}

template <class Kind>
IntervalValueSpec<Kind>::IntervalValueSpec(int descriptorId, RelationalOperator relation)
    : DescValueSpec(Kind::type, descriptorId, relation), mpDomain(std::make_unique<Tableau<Interval*>>()) {
  Trace(construction);
}

template <class Kind>
IntervalValueSpec<Kind>::IntervalValueSpec(int descriptorId, RelationalOperator relation, Value value)
    : IntervalValueSpec(descriptorId, relation, value, value) {}

template <class Kind>
IntervalValueSpec<Kind>::IntervalValueSpec(int descriptorId, RelationalOperator relation, Value low,
                                           Value high)
    : IntervalValueSpec(descriptorId, relation) {
  AddSubDomain(low, high);
}

template <class Kind>
IntervalValueSpec<Kind>::IntervalValueSpec(const IntervalValueSpec& other)
    : DescValueSpec(other), mpDomain(Duplicate(*other.mpDomain)) {
  Trace(copyConstruction);
}

template <class Kind>
IntervalValueSpec<Kind>& IntervalValueSpec<Kind>::operator=(const IntervalValueSpec& other) {
  auto intervals = Duplicate(*other.mpDomain);
  DescValueSpec::operator=(other);
  FreeIntervals();
  mpDomain = std::move(intervals);
  return *this;
}

template <class Kind>
IntervalValueSpec<Kind>::~IntervalValueSpec() {
  Trace(destruction);
  FreeIntervals();
}

template <class Kind>
void IntervalValueSpec<Kind>::AddSubDomain(Value low, Value high) {
  mpDomain->push_back(new Interval(low, high));
}

template <class Kind>
void IntervalValueSpec<Kind>::InsertSubDomain(Value low, Value high) {
  int rank = 0;
  while (rank < mpDomain->size() && mpDomain->get_nth(rank)->low <= low) ++rank;
  mpDomain->insert(rank, new Interval(low, high));
}

template <class Kind>
void IntervalValueSpec<Kind>::SortOnLowBound() {
  mpDomain->quick_sort(0, mpDomain->size() - 1);
}

template <class Kind>
void IntervalValueSpec<Kind>::ReduceToDisjunction() {
  SortOnLowBound();
  const Tableau<Interval*> before = *mpDomain;
  mpDomain->reduce_to_disjunction();
  const std::unordered_set<Interval*> kept(mpDomain->begin(), mpDomain->end());
  for (Interval* interval : before)
    if (!kept.contains(interval)) delete interval;
}

template <class Kind>
bool IntervalValueSpec<Kind>::Holds(Value value) const {
  return std::any_of(mpDomain->begin(), mpDomain->end(),
                     [value](const Interval* interval) { return Numbers<Value>::Lies(*interval, value); });
}

template <class Kind>
typename Kind::Value IntervalValueSpec<Kind>::GetValueInDomain() const {
  const RelationalOperator relation = GetRelationalOperator();
  if (relation != IN && relation != NOT_IN) return 0;
  const Tableau<Interval*>& domain = *mpDomain;
  const int size = domain.size();
  if (size == 0) FailToDraw(Kind::name, domain);
  if (relation == IN) {
    const Interval& interval = *domain[DrawBelow(size)];
    return Numbers<Value>::Within(interval.low, interval.high);
  }
  const int gap = DrawBelow(size + 1L);
  if (gap == 0) return Numbers<Value>::Below(domain[0]->low);
  if (gap == size) return Numbers<Value>::Above(domain[size - 1]->high);
  return Numbers<Value>::Between(domain[gap - 1]->high, domain[gap]->low);
}

template <class Kind>
void IntervalValueSpec<Kind>::Trace(const char* what) const {
  TraceLine(what, Kind::name, this);
}

template <class Kind>
void IntervalValueSpec<Kind>::FreeIntervals() {
  for (Interval* interval : *mpDomain) delete interval;
}

template <class Kind>
std::unique_ptr<Tableau<typename Kind::Interval*>> IntervalValueSpec<Kind>::Duplicate(
    const Tableau<Interval*>& intervals) {
  auto copies = std::make_unique<Tableau<Interval*>>(intervals.size());
  for (const Interval* interval : intervals) copies->push_back(new Interval(*interval));
  return copies;
}

template class IntervalValueSpec<IntSpecKind>;
template class IntervalValueSpec<FloatSpecKind>;
template class IntervalValueSpec<DoubleSpecKind>;

// Lists of texts ---------------------------------------------------------------------------------------

namespace {

constexpr const char* stringSpec = "DescStringValueSpec";
constexpr const char* entitySpec = "DescEntityValueSpec";

// The operator of a list that is built with its first value.
RelationalOperator Checked(int descriptorId, RelationalOperator relation) {
  if (static_cast<int>(relation) >= 2) BadRelationalOperator(descriptorId, relation);
  return relation;
}

}  // namespace

DescStringValueSpec::DescStringValueSpec() : DescStringValueSpec(K_INT_UNSIGNIFICANT, IN) {}

DescStringValueSpec::DescStringValueSpec(RelationalOperator relation)
    : DescStringValueSpec(K_INT_UNSIGNIFICANT, relation) {}

DescStringValueSpec::DescStringValueSpec(int descriptorId, RelationalOperator relation)
    : DescValueSpec(STRING, descriptorId, relation) {
  TraceLine(construction, stringSpec, this);
}

DescStringValueSpec::DescStringValueSpec(int descriptorId, RelationalOperator relation, const char* value)
    : DescStringValueSpec(descriptorId, Checked(descriptorId, relation)) {
  AddSubDomain(value);
}

DescStringValueSpec::DescStringValueSpec(const DescStringValueSpec& other)
    : DescValueSpec(other), mStringDomain(other.mStringDomain) {
  TraceLine(copyConstruction, stringSpec, this);
}

bool DescStringValueSpec::Holds(const char* value) const {
  return std::any_of(mStringDomain.begin(), mStringDomain.end(),
                     [value](const char* text) { return std::strcmp(OrEmpty(text), OrEmpty(value)) == 0; });
}

const char* DescStringValueSpec::GetValueInDomain() const {
  return GetRelationalOperator() == IN ? DrawEntry(mStringDomain, stringSpec) : nullptr;
}

// Lists of entities or classes -------------------------------------------------------------------------

DescEntityValueSpec::DescEntityValueSpec() : DescEntityValueSpec(K_INT_UNSIGNIFICANT, IN) {}

DescEntityValueSpec::DescEntityValueSpec(RelationalOperator relation)
    : DescEntityValueSpec(K_INT_UNSIGNIFICANT, relation) {}

DescEntityValueSpec::DescEntityValueSpec(int descriptorId, RelationalOperator relation)
    : DescValueSpec(P_ENTITY, descriptorId, relation) {
  TraceLine(construction, entitySpec, this);
}

DescEntityValueSpec::DescEntityValueSpec(int descriptorId, RelationalOperator relation, BasicEntity* entity)
    : DescEntityValueSpec(descriptorId, Checked(descriptorId, relation)) {
  mEntityDomain.push_back(entity);
}

DescEntityValueSpec::DescEntityValueSpec(int descriptorId, RelationalOperator relation, int classSymbol)
    : DescEntityValueSpec(descriptorId, Checked(descriptorId, relation)) {
  mIsDomainAClass = 1;
  if (classSymbol >= 0) mClassDomain.push_back(classSymbol);
}

DescEntityValueSpec::DescEntityValueSpec(const DescEntityValueSpec& other)
    : DescValueSpec(other),
      mIsDomainAClass(other.mIsDomainAClass),
      mEntityDomain(other.mEntityDomain),
      mClassDomain(other.mClassDomain) {
  TraceLine(copyConstruction, entitySpec, this);
}

void DescEntityValueSpec::AddSubDomain(BasicEntity* entity) {
  if (mIsDomainAClass != 0) UnAuthorizedEntitySubDomain(this, entity);
  mEntityDomain.push_back(entity);
}

void DescEntityValueSpec::AddSubDomain(int classSymbol) {
  if (mIsDomainAClass == 0) UnAuthorizedEntitySubDomain(this, classSymbol);
  mClassDomain.push_back(classSymbol);
}

BasicEntity* DescEntityValueSpec::GetValueInDomain() const {
  return GetRelationalOperator() == IN ? DrawEntry(mEntityDomain, entitySpec) : nullptr;
}
