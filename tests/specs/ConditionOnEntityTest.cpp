// Value specifications at work on an entity.
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/specs/DescValueSpec.h"
#include "tests/model/DescribedTest.h"

namespace {

using ConditionOnEntityTest = DescribedTest;

int gAsked = 0;
int CountReads(MonitorMethod* /*method*/) { return ++gAsked; }
int Forty(MonitorMethod* /*method*/) { return 40; }

/// What the condition answers, by its own class and by its tag.
template <class Spec>
int Answer(Spec spec, DescriptedEntity* entity) {
  const int answer = spec.IsInDomain(entity);
  EXPECT_EQ(static_cast<DescValueSpec&>(spec).IsInDomain(entity), answer);
  return answer;
}

TEST_F(ConditionOnEntityTest, EachTypeIsHeldAgainstItsDomain) {
  for (const bool isVariable : {false, true}) {
    const auto id = [&](ValueTypeId type) { return isVariable ? VariableId(type) : ConstantId(type); };
    cow->SetIntValue(id(INT), 4);
    cow->SetFloatValue(id(FLOAT), 5.0000005F);
    cow->SetDoubleValue(id(DOUBLE), 5.1);
    cow->SetStringValue(id(STRING), "brune");
    const std::string output = OutputOf([&] {
      EXPECT_TRUE(Answer(DescIntValueSpec(id(INT), IN, 3, 5), cow));
      EXPECT_FALSE(Answer(DescIntValueSpec(id(INT), NOT_IN, 3, 5), cow));
      EXPECT_TRUE(Answer(DescIntValueSpec(id(INT), NOT_IN), cow));
      EXPECT_TRUE(Answer(DescFloatValueSpec(id(FLOAT), IN, 3, 5), cow));
      EXPECT_FALSE(Answer(DescDoubleValueSpec(id(DOUBLE), IN, 3, 5), cow));
      EXPECT_TRUE(Answer(DescStringValueSpec(id(STRING), IN, "brune"), cow));
      EXPECT_FALSE(Answer(DescStringValueSpec(id(STRING), IN, "brun"), cow));
      EXPECT_FALSE(Answer(DescEntityValueSpec(id(P_ENTITY), IN, cow), cow));
      EXPECT_FALSE(Answer(DescEntityValueSpec(id(P_ENTITY), IN, ANIMAL), cow));
      EXPECT_TRUE(Answer(DescEntityValueSpec(id(P_ENTITY), NOT_IN, ANIMAL), cow));
      cow->SetEntityValue(id(P_ENTITY), cow);
      EXPECT_TRUE(Answer(DescEntityValueSpec(id(P_ENTITY), IN, cow), cow));
      EXPECT_TRUE(Answer(DescEntityValueSpec(id(P_ENTITY), IN, ANIMAL), cow));
      EXPECT_FALSE(Answer(DescEntityValueSpec(id(P_ENTITY), IN, BULL), cow));
      Thing* const dead = NewBull();
      cow->SetEntityValue(id(P_ENTITY), dead);
      DeleteEntity(dead);
      EXPECT_FALSE(Answer(DescEntityValueSpec(id(P_ENTITY), IN, BULL), cow));
      if (HasFailure()) std::printf("failed");
    });
    EXPECT_EQ(output, "");  // no warning of a constant either
  }
}

TEST_F(ConditionOnEntityTest, TagsThatNameNoClassAnswerThemselves) {
  DescIntValueSpec spec(VariableId(INT), IN);
  DescValueSpec& base = spec;
  for (const int tag : {0, 1, 7, 13}) {
    base.SetValueType(ValueTypeId(tag));
    EXPECT_EQ(base.IsInDomain(cow), tag < 2 ? 0 : tag);
    base.DrawInto(cow);
  }
}

TEST_F(ConditionOnEntityTest, TestsReadPastTheMonitorAndDrawsWriteThroughIt) {
  IntDescValueMonitor monitored("watch");
  monitored.AssignWhenGetIntMethod(CountReads);
  monitored.AttachToDescriptor(cow, VariableId(INT));
  EXPECT_FALSE(Answer(DescIntValueSpec(VariableId(INT), IN, 1, 9), cow));
  EXPECT_EQ(gAsked, 0);
  monitored.AssignWhenSetIntMethod(Forty);
  DescIntValueSpec(VariableId(INT), IN, 7).DrawInto(cow);
  EXPECT_EQ(cow->GetIntValue(VariableId(INT), 0), 40);
}

TEST_F(ConditionOnEntityTest, DrawsReachTheDescriptor) {
  DescIntValueSpec(ConstantId(INT), IN, 7).DrawInto(cow);
  DescFloatValueSpec(ConstantId(FLOAT), IN, 1.5F).DrawInto(cow);
  DescDoubleValueSpec(VariableId(DOUBLE), IN, 2.5).DrawInto(cow);
  DescStringValueSpec(VariableId(STRING), IN, "brune").DrawInto(cow);
  DescStringValueSpec(VariableId(STRING), NOT_IN, "brune").DrawInto(cow);  // null: nothing is written
  DescEntityValueSpec(VariableId(P_ENTITY), IN, cow).DrawInto(cow);
  EXPECT_EQ(cow->GetIntValue(ConstantId(INT)), 7);
  EXPECT_EQ(cow->GetFloatValue(ConstantId(FLOAT)), 1.5F);
  EXPECT_EQ(cow->GetDoubleValue(VariableId(DOUBLE)), 2.5);
  EXPECT_STREQ(cow->GetStringValue(VariableId(STRING)), "brune");
  EXPECT_EQ(cow->GetEntityValue(VariableId(P_ENTITY)), cow);
  DescEntityValueSpec(VariableId(P_ENTITY), NOT_IN, cow).DrawInto(cow);
  EXPECT_EQ(cow->GetEntityValue(VariableId(P_ENTITY)), nullptr);
}

TEST_F(ConditionOnEntityTest, AWrongDescriptorEndsTheRun) {
  EXPECT_NE(FailureOf([&] { Answer(DescIntValueSpec(999, IN, 1), cow); }).find(" InexistantDescriptor "),
            std::string::npos);
  EXPECT_NE(
      FailureOf([&] { Answer(DescIntValueSpec(VariableId(FLOAT), IN, 1), cow); }).find("'get int value'"),
      std::string::npos);
  BasicEntity basic;
  EXPECT_NE(FailureOf([&] {
              DescIntValueSpec spec(VariableId(INT), IN, 1);
              static_cast<DescValueSpec&>(spec).IsInDomain(static_cast<DescriptedEntity*>(&basic));
            }).find(" InexistantDescriptor "),
            std::string::npos);
}

}  // namespace
