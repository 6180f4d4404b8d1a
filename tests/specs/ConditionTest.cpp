// Conditions of entity specifications at work on descriptors: as a filter, and as an initialisation.
#include <cstdlib>
#include <functional>
#include <random>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"
#include "tests/model/ModelTest.h"

namespace {

enum Attribute : int { AGE = 20, HEIGHT = 21, WEIGHT = 22, COLOR = 23, MOTHER = 24, RANK = 25 };

/// A cow with an attribute of each type that conditions can look at; the age is constant.
Thing* NewDescribedCow(int age, float height, double weight, const char* color, BasicEntity* mother) {
  auto* const cow = new Thing{ANIMAL, COW};
  cow->AddConstantDescriptor(new IntConstantDescriptor(AGE, "age"));
  cow->AddVariableDescriptor(new FloatVariableDescriptor(HEIGHT, "height"));
  cow->AddVariableDescriptor(new DoubleVariableDescriptor(WEIGHT, "weight"));
  cow->AddVariableDescriptor(new StringVariableDescriptor(COLOR, "color"));
  cow->AddVariableDescriptor(new EntityVariableDescriptor(MOTHER, "mother"));
  cow->AddVariableDescriptor(new IntVariableDescriptor(RANK, "rank"));
  cow->SetIntValue(AGE, age);
  cow->SetFloatValue(HEIGHT, height);
  cow->SetDoubleValue(WEIGHT, weight);
  cow->SetStringValue(COLOR, color);
  cow->SetEntityValue(MOTHER, mother);
  return cow;
}

Thing* NewPlainCow() { return NewDescribedCow(0, 0.0F, 0.0, "", nullptr); }

BasicEntity* MakeCow(EntitySpecMethod* /*method*/) { return NewPlainCow(); }

int gCalls = 0;
bool Counts(EntitySpecMethod* /*method*/) {
  ++gCalls;
  return true;
}

class ConditionTest : public ModelTest {
 protected:
  ~ConditionTest() override { DeleteEntitySpecs(); }

  static std::string ExpansionOf(EntitySpec& spec) {
    spec.Expand();
    return Names(*spec.GetExpansion());
  }
  static DescriptedEntity* Made(EntitySpec& spec) {
    spec.Expand();
    return static_cast<DescriptedEntity*>(spec.GetExpansion()->front());
  }
};

TEST_F(ConditionTest, EachTypeFilters) {
  Thing* const old = NewDescribedCow(9, 1.5F, 700.0, "black", nullptr);
  NewDescribedCow(2, 1.1F, 300.0, "white", old);
  NewDescribedCow(4, 1.3F, 500.0, "black", old);
  Thing* const bull = NewBull();
  EXPECT_EQ(old->GetIntValue(AGE), 9);
  const auto texts = [](RelationalOperator relation, std::initializer_list<const char*> domain) {
    auto* const spec = new DescStringValueSpec(COLOR, relation);
    for (const char* text : domain) spec->AddSubDomain(text);
    return spec;
  };
  const auto entities = [](RelationalOperator relation, std::initializer_list<BasicEntity*> domain) {
    auto* const spec = new DescEntityValueSpec(MOTHER, relation);
    for (BasicEntity* entity : domain) spec->AddSubDomain(entity);
    return spec;
  };
  const auto tagged = [](int type) {
    auto* const spec = new DescIntValueSpec(AGE, IN, 99);
    spec->SetValueType(static_cast<ValueTypeId>(type));
    return spec;
  };
  struct Case {
    DescValueSpec* condition;
    const char* expected;
  };
  const Case cases[] = {
      {new DescIntValueSpec(AGE, IN, 2, 4), "Cow_2 Cow_3"},
      {new DescIntValueSpec(AGE, NOT_IN, 2, 4), "Cow_1"},
      {new DescIntValueSpec(AGE, NOT_IN), "Cow_1 Cow_2 Cow_3"},
      {new DescFloatValueSpec(HEIGHT, IN, 1.3000005F, 2.0F), "Cow_1 Cow_3"},
      {new DescDoubleValueSpec(WEIGHT, NOT_IN, 400.0, 500.0), "Cow_1 Cow_2"},
      {texts(IN, {"red", "black"}), "Cow_1 Cow_3"},
      {texts(NOT_IN, {"black"}), "Cow_2"},
      {entities(IN, {old}), "Cow_2 Cow_3"},
      {entities(NOT_IN, {old, bull}), "Cow_1"},
      {entities(IN, {nullptr}), "Cow_1"},
      {new DescEntityValueSpec(MOTHER, IN, ANIMAL), "Cow_2 Cow_3"},
      {new DescEntityValueSpec(MOTHER, NOT_IN, COW), "Cow_1"},
      {new DescEntityValueSpec(MOTHER, IN, BULL), ""},
      {tagged(BOOLEAN), ""},
      {tagged(ENTITY_TAB), "Cow_1 Cow_2 Cow_3"},
  };
  for (const Case& c : cases) {
    EntitySpec spec(COW);
    spec.AssignSelectorPredicate(gAlwaysTrue);
    spec.AddDescValueSpec(c.condition);
    EXPECT_EQ(ExpansionOf(spec), c.expected) << &c - cases;
    if (c.condition->GetValueType() == BOOLEAN || c.condition->GetValueType() == ENTITY_TAB)
      c.condition->SetValueType(INT);
  }
}

TEST_F(ConditionTest, TheFirstThatFailsEndsTheTest) {
  for (const int age : {1, 5, 6}) NewDescribedCow(age, 0.0F, 0.0, "", nullptr);
  EntitySpec spec(COW, NFIRST, 1, Counts, nullptr, nullptr);
  spec.AddDescValueSpec(new DescIntValueSpec(AGE, IN, 5, 6));
  gCalls = 0;
  EXPECT_EQ(ExpansionOf(spec), "Cow_2");
  EXPECT_EQ(gCalls, 1);
  spec.AddDescValueSpec(new DescIntValueSpec(AGE, NOT_IN, 0, 9));
  spec.AddDescValueSpec(new DescIntValueSpec(99, IN, 1));
  EXPECT_EQ(ExpansionOf(spec), "");
  EXPECT_EQ(gCalls, 1);
}

TEST_F(ConditionTest, MonitorsSeeInitialisationsAndNoFilter) {
  static int asked = 0;
  asked = 0;
  IntDescValueMonitor onRank("rank");
  onRank.AssignWhenGetIntMethod([](MonitorMethod*) { return ++asked; });
  onRank.AssignWhenSetIntMethod(
      [](MonitorMethod* method) { return method->GetIntArgValue(CANDIDATEINTVALUE_ARGUMENT) + 100; });
  Thing* const cow = NewPlainCow();
  onRank.AttachToDescriptor(cow, RANK);
  EntitySpec selects(COW);
  selects.AssignSelectorPredicate(gAlwaysTrue);
  selects.AddDescValueSpec(new DescIntValueSpec(RANK, IN, 0));
  EXPECT_EQ(ExpansionOf(selects), "Cow_1");
  EXPECT_EQ(asked, 0);

  DescIntValueSpec(RANK, IN, 7).DrawInto(cow);
  EXPECT_EQ(cow->GetIntValue(RANK, 0), 107);
  DeleteEntity(cow);
}

TEST_F(ConditionTest, NewEntitiesGetValuesOfTheDomains) {
  std::srand(8);
  Thing* const mother = NewPlainCow();
  EntitySpec spec(COW, NFIRST, 1, MakeCow, nullptr, nullptr);
  auto* const age = new DescIntValueSpec(AGE, IN, 3, 5);
  age->AddSubDomain(8);
  spec.AddDescValueSpec(age);
  spec.AddDescValueSpec(new DescFloatValueSpec(HEIGHT, IN, 1.0F, 2.0F));
  spec.AddDescValueSpec(new DescDoubleValueSpec(WEIGHT, NOT_IN, -10.0, 10.0));
  spec.AddDescValueSpec(new DescStringValueSpec(COLOR, IN, "brown"));
  spec.AddDescValueSpec(new DescEntityValueSpec(MOTHER, IN, mother));
  std::string ages;
  for (int turn = 0; turn < 50; ++turn) {
    DescriptedEntity* const calf = Made(spec);
    ages += std::to_string(calf->GetIntValue(AGE));
    EXPECT_GE(calf->GetFloatValue(HEIGHT), 1.0F);
    EXPECT_LE(calf->GetFloatValue(HEIGHT), 2.0F);
    EXPECT_GE(std::abs(calf->GetDoubleValue(WEIGHT)), 10.0);
    EXPECT_STREQ(calf->GetStringValue(COLOR), "brown");
    EXPECT_EQ(calf->GetBasicEntityValue(MOTHER), mother);
  }
  EXPECT_EQ(ages.find_first_not_of("3458"), std::string::npos);
  for (const char value : std::string("3458")) EXPECT_NE(ages.find(value), std::string::npos) << value;
  EXPECT_EQ(mother->GetIntValue(AGE), 0);
}

// Values that no draw gives, and conditions that say nothing about a value.
TEST_F(ConditionTest, ADrawnNullEntityIsWrittenAndANullTextIsNot) {
  Thing* const cow = NewDescribedCow(4, 0.0F, 0.0, "black", NewBull());
  DescStringValueSpec(COLOR, NOT_IN, "red").DrawInto(cow);
  EXPECT_STREQ(cow->GetStringValue(COLOR), "black");
  DescEntityValueSpec(MOTHER, NOT_IN, cow).DrawInto(cow);
  EXPECT_EQ(cow->GetBasicEntityValue(MOTHER), nullptr);
  for (const ValueTypeId type : {VOID, BOOLEAN, ENTITY_TAB}) {
    DescIntValueSpec spec(AGE, IN, 9);
    spec.SetValueType(type);
    spec.DrawInto(cow);
    EXPECT_EQ(cow->GetIntValue(AGE), 4);
  }
}

TEST_F(ConditionTest, AListOfTheModelIsInitialisedOnlyWhenItIsMade) {
  for (const EntitySpecMode mode : {INSTANTIATE, RETURN_INSTANCES}) {
    EntitySpec spec(
        COW, NFIRST, 1,
        [](EntitySpecMethod*) {
          auto* const list = new Tableau<BasicEntity*>();
          list->push_back(NewPlainCow());
          list->push_back(nullptr);
          return list;
        },
        nullptr, nullptr);
    const std::unique_ptr<Tableau<BasicEntity*>> givenUp(spec.GetExpansion());
    spec.SetMode(mode);
    spec.AddDescValueSpec(new DescIntValueSpec(AGE, IN, 7));
    EXPECT_EQ(Made(spec)->GetIntValue(AGE), mode == INSTANTIATE ? 7 : 0);
    EXPECT_EQ(spec.ExpandedTabSize(), 1);
  }
}

int gModulus = 1;

TEST_F(ConditionTest, SelectsWhatAPlainFilterSelects) {
  std::mt19937 random(81);
  const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  std::vector<DescriptedEntity*> cows;
  for (int i = 0; i < 200; ++i) cows.push_back(NewDescribedCow(below(10), 0.0F, below(10), "", nullptr));
  for (int turn = 0; turn < 200; ++turn) {
    const RelationalOperator first = below(2) == 0 ? IN : NOT_IN;
    const RelationalOperator second = below(2) == 0 ? IN : NOT_IN;
    const int age = below(10);
    const int weight = below(10);
    gModulus = 1 + below(3);
    EntitySpec spec(
        COW, NFIRST, 1 + below(40),
        [](EntitySpecMethod* method) {
          return method->GetBasicEntityArgValue(CANDIDATEENTITY_ARGUMENT)->InstanceNumber() % gModulus == 0;
        },
        nullptr, nullptr);
    spec.AddDescValueSpec(new DescIntValueSpec(AGE, first, age, age + 3));
    spec.AddDescValueSpec(new DescDoubleValueSpec(WEIGHT, second, weight, weight + 4));
    Tableau<BasicEntity*> expected;
    for (DescriptedEntity* cow : cows) {
      const int years = cow->GetIntValue(AGE);
      const double kilos = cow->GetDoubleValue(WEIGHT);
      if (expected.size() < spec.IntQuantity() && (years >= age && years <= age + 3) == (first == IN) &&
          (kilos >= weight && kilos <= weight + 4) == (second == IN) && cow->InstanceNumber() % gModulus == 0)
        expected.push_back(cow);
    }
    ASSERT_EQ(ExpansionOf(spec), Names(expected)) << turn;
  }
}

TEST_F(ConditionTest, AConditionMustFitTheEntity) {
  NewPlainCow();
  const auto expand = [](EntitySpecMode mode, DescValueSpec* condition) {
    EntitySpec spec(COW, NFIRST, 1, MakeCow, nullptr, nullptr);
    spec.AssignSelectorPredicate(gAlwaysTrue);
    spec.SetMode(mode);
    spec.AddDescValueSpec(condition);
    spec.Expand();
  };
  for (const EntitySpecMode mode : {RETURN_INSTANCES, INSTANTIATE}) {
    const std::string absent = FailureOf([&] { expand(mode, new DescIntValueSpec(99, IN, 1)); });
    EXPECT_EQ(absent.find("\n!!!============== InexistantDescriptor =============="), 0U) << absent;
    const std::string other = FailureOf([&] { expand(mode, new DescIntValueSpec(WEIGHT, IN, 1)); });
    EXPECT_EQ(other.find("\n!!!============== BadDescriptorValueType =============="), 0U) << other;
    EXPECT_NE(other.find("'weight'"), std::string::npos) << other;
  }
}

TEST_F(ConditionTest, ReadsConstantsSilentlyAndTakesTheDeadForNoInstance) {
  Thing* const mother = NewBull();
  Thing* const cow = NewDescribedCow(4, 0.0F, 0.0, "", mother);
  DescIntValueSpec ofAge(AGE, IN, 4);
  EXPECT_EQ(OutputOf([&] {
              if (ofAge.IsInDomain(cow) == 0) std::printf("not met");
            }),
            "");
  DescEntityValueSpec ofClass(MOTHER, IN, BULL);
  EXPECT_TRUE(ofClass.IsInDomain(cow));
  DeleteEntity(mother);
  EXPECT_FALSE(ofClass.IsInDomain(cow));
  BasicEntity basic;  // the lowest layer has no descriptors
  auto* const described = static_cast<DescriptedEntity*>(&basic);
  for (const std::function<void()>& call : {std::function<void()>([&] { ofAge.IsInDomain(described); }),
                                            std::function<void()>([&] { ofAge.DrawInto(described); })})
    EXPECT_EQ(FailureOf(call).find("\n!!!============== InexistantDescriptor "), 0U);
}

}  // namespace
