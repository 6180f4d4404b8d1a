#include "kalve/specs/DescValueSpec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include "tests/model/ModelTest.h"

namespace {

template <class Spec>
std::string Intervals(const Spec& spec) {
  std::string text;
  for (const auto* interval : *spec.GetDomain())
    text += "[" + std::to_string(interval->low) + "," + std::to_string(interval->high) + "]";
  return text;
}

// Tests of values --------------------------------------------------------------------------------------

TEST(ValueSpec, IntegersAreOutExactlyBehindTheBounds) {
  for (RelationalOperator relation : {IN, NOT_IN}) {
    DescIntValueSpec spec(7, relation, 3, 5);
    spec.AddSubDomain(9);
    EXPECT_EQ(spec.GetDescId(), 7);
    EXPECT_EQ(spec.GetRelationalOperator(), relation);
    std::string in;
    for (int value = 0; value < 12; ++value)
      if (!spec.IsOutOfDomain(value)) in += std::to_string(value) + " ";
    EXPECT_EQ(in, "3 4 5 9 ");
  }
  EXPECT_TRUE(DescIntValueSpec(7, NOT_IN).IsOutOfDomain(0));
}

TEST(ValueSpec, RealsHaveATolerance) {
  struct Case {
    double value;
    bool isOutOfDouble;
    bool isOutOfFloat;
  };
  // In single precision the neighbours of 5 are 4.8e-7 away.
  for (const Case& c : {Case{3.0, false, false}, Case{2.9999995, false, false}, Case{2.99999, true, true},
                        Case{5.0, false, false}, Case{5.0000005, false, false}, Case{5.00001, true, true},
                        Case{5.0000010001, true, false}, Case{-3.0, true, true}, Case{NAN, true, true}}) {
    EXPECT_EQ(DescDoubleValueSpec(1, IN, 3.0, 5.0).IsOutOfDomain(c.value), c.isOutOfDouble) << c.value;
    EXPECT_EQ(DescFloatValueSpec(1, IN, 3.0F, 5.0F).IsOutOfDomain(static_cast<float>(c.value)),
              c.isOutOfFloat)
        << c.value;
  }
  EXPECT_FALSE(DescDoubleValueSpec(1, IN, 4.5).IsOutOfDomain(4.5));
}

TEST(ValueSpec, TextsCompareByText) {
  DescStringValueSpec spec(1, NOT_IN, "Salers");
  spec.AddSubDomain("Aubrac");
  const std::string other = "Aubrac";
  EXPECT_FALSE(spec.IsOutOfDomain(other.c_str()));
  EXPECT_TRUE(spec.IsOutOfDomain("aubrac"));
  EXPECT_TRUE(spec.IsOutOfDomain(nullptr));
  spec.AddSubDomain(nullptr);
  EXPECT_FALSE(spec.IsOutOfDomain(""));
}

class EntityValueSpec : public ModelTest {};

TEST_F(EntityValueSpec, AnEntityIsInByAddressOrByClass) {
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  Thing* const farm = NewFarm();
  DescEntityValueSpec entities(1, NOT_IN, cow);
  entities.AddSubDomain(static_cast<BasicEntity*>(nullptr));
  entities.AddSubDomain(farm->InstanceName());
  DescEntityValueSpec classes(1, NOT_IN, BULL);
  classes.AddSubDomain(UDDER);
  DescEntityValueSpec animals(1, IN, ANIMAL);
  const DescEntityValueSpec none(1, IN, -9);
  struct Case {
    BasicEntity* entity;
    const char* in;  // of the four
  };
  for (const Case& c : {Case{cow, "1010"}, Case{bull, "0110"}, Case{farm, "1000"}, Case{nullptr, "0000"}}) {
    std::string in;
    for (const DescEntityValueSpec& spec : {entities, classes, animals, none})
      in += spec.IsOutOfDomain(c.entity) != 0 ? "0" : "1";
    EXPECT_EQ(in, c.in);
  }
  EXPECT_TRUE(entities.Holds(nullptr));  // in the list, though no value for a descriptor
  EXPECT_FALSE(classes.Holds(nullptr));
  EXPECT_TRUE(none.IsDomainAClass());
  DeleteEntity(bull);
  EXPECT_TRUE(classes.IsOutOfDomain(bull)) << "the dead are of no class";
}

TEST_F(EntityValueSpec, FailuresOfDomains) {
  Thing* const cow = NewCow();
  EXPECT_EQ(FailureOf([&] { DescEntityValueSpec(20, IN, COW).AddSubDomain(cow); }),
            "\n!!!============== UnAuthorizedEntitySubDomain =============="
            "\n!!! Ajout d'une entité (Cow_1) à un domaine constitué de classes.\n    descripteur : 20\n");
  EXPECT_NE(FailureOf([] { DescEntityValueSpec(20, IN).AddSubDomain("Cow_7"); }).find("addSubDomain"),
            std::string::npos);
  EXPECT_NE(FailureOf([&] { DescEntityValueSpec(20, IN, 99).IsOutOfDomain(cow); }).find("UnknownEntityClass"),
            std::string::npos);
}

// Building of domains ----------------------------------------------------------------------------------

TEST(ValueSpec, InsertionSortsAndAdditionDoesNot) {
  DescIntValueSpec added;
  DescIntValueSpec inserted;
  for (auto [low, high] : {std::pair(7, 9), std::pair(1, 2), std::pair(7, 7), std::pair(3, 3)}) {
    added.AddSubDomain(low, high);
    inserted.InsertSubDomain(low, high);
  }
  inserted.InsertSubDomain(2);
  EXPECT_EQ(Intervals(added), "[7,9][1,2][7,7][3,3]");
  EXPECT_EQ(Intervals(inserted), "[1,2][2,2][3,3][7,9][7,7]");
  added.SortOnLowBound();
  EXPECT_EQ(Intervals(added), "[1,2][3,3][7,9][7,7]");
}

// Intervals of integers beside the set of their numbers.
TEST(ValueSpec, RandomInsertionsAndReductionsFollowASet) {
  constexpr int range = 60;
  std::mt19937 random(5);
  for (int turn = 0; turn < 300; ++turn) {
    DescIntValueSpec spec(1, IN);
    std::vector<bool> set(range, false);
    for (int i = static_cast<int>(random() % 12); i > 0; --i) {
      const int low = static_cast<int>(random() % range);
      const int high = std::min(range - 1, low + static_cast<int>(random() % 8));
      for (int value = low; value <= high; ++value) set[static_cast<std::size_t>(value)] = true;
      if (turn % 2 == 0)
        spec.InsertSubDomain(low, high);
      else
        spec.AddSubDomain(low, high);
    }
    const Tableau<IntInterval*>& domain = *spec.GetDomain();
    const auto isAbove = [](const IntInterval* a, const IntInterval* b) { return a->low < b->low; };
    if (turn % 2 == 0) {
      ASSERT_TRUE(std::is_sorted(domain.begin(), domain.end(), isAbove));
    }
    spec.ReduceToDisjunction();
    for (int i = 1; i < domain.size(); ++i) ASSERT_LT(domain[i - 1]->high, domain[i]->low);
    for (int value = 0; value < range; ++value)
      ASSERT_EQ(spec.IsOutOfDomain(value), !set[static_cast<std::size_t>(value)]) << turn << " " << value;
  }
}

template <class Spec>
void CopiesStandAlone() {
  auto* source = new Spec(4, NOT_IN, 1, 2);
  source->ClassName("condition");
  source->AddSubDomain(5, 6);
  Spec copy(*source);
  Spec assigned(9, IN, 8, 8);
  assigned = *source;
  source->GetDomain()->front()->high = 3;
  assigned.AddSubDomain(9, 9);
  assigned = *&assigned;
  const std::string kept = Intervals(copy);
  DescValueSpec::DeleteByType(source);
  EXPECT_EQ(Intervals(copy), kept);
  EXPECT_EQ(copy.GetDomain()->front()->high, 2);
  EXPECT_EQ(assigned.GetDomain()->size(), 3);
  EXPECT_STREQ(copy.ClassName(), "condition");
  EXPECT_EQ(assigned.GetDescId(), 4);
  EXPECT_EQ(assigned.GetRelationalOperator(), NOT_IN);
}

TEST(ValueSpec, CopiesHaveIntervalsOfTheirOwn) {
  const int alive = DescValueSpec::getNbConst() - DescValueSpec::getNbDest();
  CopiesStandAlone<DescIntValueSpec>();
  CopiesStandAlone<DescFloatValueSpec>();
  CopiesStandAlone<DescDoubleValueSpec>();
  EXPECT_EQ(DescValueSpec::getNbConst() - DescValueSpec::getNbDest(), alive);
}

// Whatever the constructor, the tag is that of the class: the holder of a base goes by it.
TEST(ValueSpec, DefaultsAndTags) {
  const auto expect = [](const DescValueSpec& spec, ValueTypeId type) {
    EXPECT_EQ(spec.GetValueType(), type);
    EXPECT_EQ(spec.GetDescId(), -9);
    EXPECT_STREQ(spec.ClassName(), "descValueSpec");
  };
  expect(DescIntValueSpec(), INT);
  expect(DescFloatValueSpec(NOT_IN), FLOAT);
  expect(DescDoubleValueSpec(), DOUBLE);
  expect(DescStringValueSpec(NOT_IN), STRING);
  expect(DescEntityValueSpec(), P_ENTITY);
  EXPECT_EQ(DescFloatValueSpec().GetRelationalOperator(), IN);
  EXPECT_EQ(DescStringValueSpec(NOT_IN).GetRelationalOperator(), NOT_IN);
}

// Draws ------------------------------------------------------------------------------------------------

int Draw(int n) {
  if (n == 0) return 0;
  const float product = static_cast<float>(std::rand()) * static_cast<float>(n);
  return static_cast<int>(static_cast<double>(product) / 2147483648.0);
}

using Bounds = std::vector<std::pair<double, double>>;

int ExpectedIn(int low, int high) { return low + Draw(high - low + 1); }
int ExpectedBetween(int before, int behind) { return before + 1 + Draw(behind - before - 1); }
int ExpectedBelow(int low) { return low - 1 - Draw(2147483647); }
int ExpectedAbove(int high) { return high + 1 + Draw(2147483647); }

template <class Real>
Real Scaled(Real width, bool leavesOutTheLowBound) {
  if (width <= 0) return 0;
  int times = 0;
  for (; width < 100; ++times) width *= 10;
  const int whole = static_cast<int>(width);
  Real step = static_cast<Real>(leavesOutTheLowBound ? Draw(whole) + 1 : Draw(whole + 1));
  for (; times > 0; --times) step /= 10;
  return step;
}
template <class Real>
Real ExpectedIn(Real low, Real high) {
  return low + Scaled(high - low, false);
}
template <class Real>
Real ExpectedBetween(Real before, Real behind) {
  return before + Scaled(behind - before, true);
}
template <class Real>
Real ExpectedBelow(Real low) {
  return low - std::numeric_limits<Real>::min() - static_cast<Real>(Draw(2147483647));
}
template <class Real>
Real ExpectedAbove(Real high) {
  return static_cast<Real>(Draw(2147483647)) + (high + std::numeric_limits<Real>::min());
}

template <class Value>
Value Expected(RelationalOperator relation, const Bounds& bounds) {
  const auto low = [&](int i) { return static_cast<Value>(bounds[static_cast<std::size_t>(i)].first); };
  const auto high = [&](int i) { return static_cast<Value>(bounds[static_cast<std::size_t>(i)].second); };
  const int size = static_cast<int>(bounds.size());
  if (relation == IN) {
    const int i = Draw(size);
    return ExpectedIn(low(i), high(i));
  }
  const int gap = Draw(size + 1);
  if (gap == 0) return ExpectedBelow(low(0));
  return gap == size ? ExpectedAbove(high(size - 1)) : ExpectedBetween(high(gap - 1), low(gap));
}

// The same values as the second computation, from as many numbers of rand(), and in the domain or out of it.
template <class Spec, class Value>
void CompareDraws(const Bounds& bounds) {
  for (RelationalOperator relation : {IN, NOT_IN}) {
    Spec spec(3, relation);
    for (auto [low, high] : bounds) spec.InsertSubDomain(static_cast<Value>(low), static_cast<Value>(high));
    for (unsigned seed = 0; seed < 300; ++seed) {
      std::srand(seed);
      const Value drawn = spec.GetValueInDomain();
      const int next = std::rand();
      std::srand(seed);
      const Value expected = Expected<Value>(relation, bounds);
      ASSERT_EQ(drawn, expected) << relation << " " << seed;
      ASSERT_EQ(next, std::rand()) << relation << " " << seed;
      if (relation == IN) {
        ASSERT_FALSE(spec.IsOutOfDomain(drawn));
      }
    }
  }
}

TEST(ValueSpec, DrawsByTheRulesFromTheLibrarysNumbers) {
  for (const Bounds& bounds : {Bounds{{3, 5}}, Bounds{{-20, -10}, {0, 0}, {7, 300}, {1000, 5000}}}) {
    CompareDraws<DescIntValueSpec, int>(bounds);
    CompareDraws<DescFloatValueSpec, float>(bounds);
    CompareDraws<DescDoubleValueSpec, double>(bounds);
  }
  for (const Bounds& bounds :
       {Bounds{{0.25, 0.75}}, Bounds{{-1.5, -1.5}, {0.001, 0.0012}, {3.25, 1e6}, {2e6, 2e6}}}) {
    CompareDraws<DescFloatValueSpec, float>(bounds);
    CompareDraws<DescDoubleValueSpec, double>(bounds);
  }
}

TEST(ValueSpec, AWidthOfNothingGivesItsBound) {
  std::srand(1);
  EXPECT_EQ(DescFloatValueSpec(1, IN, 2.5F).GetValueInDomain(), 2.5F);
  EXPECT_EQ(DescDoubleValueSpec(1, IN, -2.5).GetValueInDomain(), -2.5);
  DescIntValueSpec integers(1, NOT_IN, 1, 2);
  integers.AddSubDomain(3, 4);
  DescDoubleValueSpec reals(1, NOT_IN, 1.0, 2.0);
  reals.AddSubDomain(1.5, 4.0);
  int gapsOfNothing = 0;
  for (int i = 0; i < 200; ++i) {
    const int drawn = integers.GetValueInDomain();
    EXPECT_TRUE(integers.IsOutOfDomain(drawn) || drawn == 3) << drawn;
    gapsOfNothing += drawn == 3;
    const double real = reals.GetValueInDomain();
    EXPECT_TRUE(reals.IsOutOfDomain(real) || real == 2.0 || std::abs(real - 1.0) < 1e-5) << real;
  }
  EXPECT_GT(gapsOfNothing, 20);
}

// Domains as wide as their type neither overflow nor leave it.
TEST(ValueSpec, WideDomainsStayInRange) {
  DescIntValueSpec integers(1, IN, -2147483647, 2147483647);
  DescIntValueSpec outside(1, NOT_IN, -2147483647, 2147483647);
  DescDoubleValueSpec reals(1, IN, -K_DOUBLEMAX, K_DOUBLEMAX);
  DescFloatValueSpec narrow(1, IN, 1.0F, 1.0F + 1e-6F);
  for (unsigned seed = 0; seed < 100; ++seed) {
    std::srand(seed);
    EXPECT_FALSE(integers.IsOutOfDomain(integers.GetValueInDomain()));
    const int end = outside.GetValueInDomain();
    EXPECT_TRUE(end == 2147483647 || end == -2147483647 - 1) << end;
    EXPECT_FALSE(reals.IsOutOfDomain(reals.GetValueInDomain()));
    EXPECT_FALSE(narrow.IsOutOfDomain(narrow.GetValueInDomain()));
  }
}

// Sets the library's generator, in its form of 8 bytes of state, so that its n-th next number is the highest.
class HighestNumber {
 public:
  explicit HighestNumber(int nth) : mKept(initstate(1, mState, sizeof mState)) {
    unsigned inverse = 1;
    for (int i = 0; i < 5; ++i) inverse *= 2 - factor * inverse;
    unsigned state = 2147483647;
    for (; nth > 0; --nth) state = (state - 12345) * inverse & 2147483647;
    srandom(state);
  }
  ~HighestNumber() { setstate(mKept); }

 private:
  static constexpr unsigned factor = 1103515245;
  char mState[8] = {};
  char* mKept;
};

// There RandomInteger answers its bound.
TEST(ValueSpec, TheHighestNumberStaysInTheDomain) {
  {
    const HighestNumber highest(2);
    std::rand();
    ASSERT_EQ(std::rand(), RAND_MAX);
  }
  for (int nth : {1, 2}) {
    const auto draw = [nth](const auto& spec) {
      const HighestNumber highest(nth);
      return spec.GetValueInDomain();
    };
    DescIntValueSpec integers(1, IN, 3, 5);
    DescDoubleValueSpec reals(1, IN, 3.0, 5.0);
    EXPECT_FALSE(integers.IsOutOfDomain(draw(integers)));
    EXPECT_FALSE(reals.IsOutOfDomain(draw(reals)));
    integers.SetRelationalOperator(NOT_IN);
    integers.AddSubDomain(8, 9);
    EXPECT_TRUE(integers.IsOutOfDomain(draw(integers)));
    EXPECT_STREQ(draw(DescStringValueSpec(1, IN, "a")), "a");
  }
}

TEST(ValueSpec, ListsDrawAnEntryOrNothing) {
  const char* const names[] = {"a", "b", "c"};
  DescStringValueSpec texts(1, IN);
  for (const char* name : names) texts.AddSubDomain(name);
  auto* const first = reinterpret_cast<BasicEntity*>(&texts);
  DescEntityValueSpec entities(1, IN, first);
  entities.AddSubDomain(static_cast<BasicEntity*>(nullptr));
  for (unsigned seed = 0; seed < 50; ++seed) {
    std::srand(seed);
    const char* text = texts.GetValueInDomain();
    BasicEntity* const entity = entities.GetValueInDomain();
    std::srand(seed);
    EXPECT_STREQ(text, names[Draw(3)]);
    EXPECT_EQ(entity, Draw(2) == 0 ? first : nullptr);
  }
  texts.SetRelationalOperator(NOT_IN);
  entities.SetRelationalOperator(NOT_IN);
  EXPECT_EQ(texts.GetValueInDomain(), nullptr);
  EXPECT_EQ(entities.GetValueInDomain(), nullptr);
  const auto other = static_cast<RelationalOperator>(5);
  EXPECT_EQ(DescIntValueSpec(1, other, 3, 5).GetValueInDomain(), 0);
  EXPECT_EQ(DescFloatValueSpec(1, other, 3, 5).GetValueInDomain(), 0.0F);
}

// Failures ---------------------------------------------------------------------------------------------

TEST(ValueSpecFailure, OfConstructorsAndSubDomains) {
  struct Case {
    std::function<void()> body;
    const char* text;
  };
  const auto other = static_cast<RelationalOperator>(2);
  const Case cases[] = {
      {[&] { DescStringValueSpec spec(20, other, "a"); },
       "\n!!!============== BadRelationalOperator =============="
       "\n!!! L'opérateur relationnel (2) de la spécification de valeur n'est pas géré par le système."
       "\n    Les opérateurs valides sont : IN NOT_IN.\n    descripteur : 20\n"},
      {[] {
         DescEntityValueSpec spec(20, IN, 8);
         spec.AddSubDomain(static_cast<BasicEntity*>(nullptr));
       },
       "\n!!!============== UnAuthorizedEntitySubDomain =============="
       "\n!!! Ajout d'une entité (NULL) à un domaine constitué de classes.\n    descripteur : 20\n"},
      {[] { DescEntityValueSpec(20, IN).AddSubDomain(500); },
       "\n!!!============== UnAuthorizedEntitySubDomain =============="
       "\n!!! Ajout d'une classe (500) à un domaine constitué d'entités.\n    descripteur : 20\n"},
      {[] { DescIntValueSpec(1, IN).InsertSubDomain(2, 1); },
       "\n!!!============== BadIntervalBounds =============="
       "\n!!! La borne inférieure d'un intervalle d'entiers est supérieure à sa borne supérieure."
       "\n!!! intervalle : [2, 1]\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(FailureOf(c.body), c.text);
  EXPECT_NE(FailureOf([&] { DescEntityValueSpec spec(20, other, 8); }), "");
  EXPECT_NE(FailureOf([&] { DescEntityValueSpec spec(20, other, static_cast<BasicEntity*>(nullptr)); }), "");
}

TEST(ValueSpecFailure, DrawingFromNothingIsAnIndexFailure) {
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[] { DescIntValueSpec(1, IN).GetValueInDomain(); }, "DescIntValueSpec::GetValueInDomain"},
      {[] { DescFloatValueSpec(1, NOT_IN).GetValueInDomain(); }, "DescFloatValueSpec::GetValueInDomain"},
      {[] { DescStringValueSpec(1, IN).GetValueInDomain(); }, "DescStringValueSpec::GetValueInDomain"},
      {[] { DescEntityValueSpec(1, IN, 8).GetValueInDomain(); }, "DescEntityValueSpec::GetValueInDomain"},
  };
  for (const auto& [body, where] : cases) {
    const ChildOutcome outcome = RunInChild(body);
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_NE(outcome.output.find(where), std::string::npos) << outcome.output;
    EXPECT_TRUE(outcome.output.ends_with("ERROR \n")) << outcome.output;
  }
}

}  // namespace
