#include <cstring>
#include <functional>

#include "tests/model/ModelTest.h"

namespace {

using LookupTest = ModelTest;

TEST_F(LookupTest, ANameIsThatOfTheHighestClass) {
  EXPECT_EQ(GetNamedEntity("Cow_1"), nullptr);
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  Thing* const farm = NewFarm();
  for (Thing* entity : {farm, herd, cow}) entity->SetInstanceName("x");
  EXPECT_EQ(GetNamedEntity("x"), farm);
  EXPECT_EQ(GetNamedEntity("", "x"), farm);
  EXPECT_EQ(GetNamedEntity("Animal", "x"), cow);
  EXPECT_EQ(GetNamedEntity(HERD, "x"), herd);
  EXPECT_EQ(GetNamedEntity(BULL, "x"), nullptr);
  const Entity layer;
  EXPECT_EQ(GetNamedEntity(layer.InstanceName()), nullptr);
}

TEST_F(LookupTest, CountsAndListsByClass) {
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  herd->AddElement(cow);
  EXPECT_EQ(Names(*GetEntityList(ANIMAL)), "Cow_2 Bull_3");
  const auto freeOnes = [](Tableau<BasicEntity*>* tab) {
    const std::unique_ptr<Tableau<BasicEntity*>> owned(tab);
    return Names(*owned);
  };
  EXPECT_EQ(freeOnes(GetFreeEntityList(ANIMAL)), "Bull_3");
  EXPECT_EQ(freeOnes(GetFreeEntityList()), "Herd_1 Bull_3");
  EXPECT_EQ(GetNumberOfFreeEntities(ANIMAL), 1);
  EXPECT_EQ(GetFirstBasicEntity(ANIMAL), cow);
  EXPECT_EQ(GetFirstEntity(BULL), bull);
  NewFarm()->AddComponent(bull);
  EXPECT_EQ(freeOnes(GetFreeEntityList(ANIMAL)), "");
  EXPECT_EQ(GetEntityList(99), nullptr);
  EXPECT_EQ(GetEntityList(9), nullptr);
  EXPECT_EQ(GetFreeEntityList(99), nullptr);
  for (const int none : {-9, 9, 99}) EXPECT_EQ(GetNumberOfEntities(none), -9);
  EXPECT_EQ(GetNumberOfFreeEntities(-1), -9);
  EXPECT_EQ(GetEntityCreations(9), -9);
  EXPECT_EQ(OutputOf([] {
              g_KV_TraceWarnings = 1;
              EXPECT_EQ(GetFirstDescriptedEntity(UDDER), nullptr);
            }).find("\n!!! Attention : "),
            0U);
}

TEST_F(LookupTest, UnknownClassesEndTheRun) {
  const std::vector<std::pair<std::string, std::function<void()>>> lookups = {
      {"'GetEntityList'", [] { GetEntityList(-9); }},
      {"'GetFreeEntityList'", [] { GetFreeEntityList(-9); }},
      {"'GetFreeEntityList'", [] { GetFreeEntityList(9); }},
      {"'GetFirstBasicEntity'", [] { GetFirstEntity(9); }},
      {"'GetNamedEntity(nobody)'", [] { GetNamedEntity("nobody", "x"); }},
      {"'GetNamedEntity(x)'", [] { GetNamedEntity(9, "x"); }},
      {"BadEntityClassSpecification", [] { GetNamedEntity(-9, "x"); }},
      {"' GetEntityCreations'", [] { GetEntityCreations(99); }},
      {"' GetEntityDeletions'", [] { GetEntityDeletions(-9); }},
  };
  for (const auto& [text, lookup] : lookups) {
    const ChildOutcome outcome = RunInChild(lookup);
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_NE(outcome.output.find(text), std::string::npos) << text << outcome.output;
  }
}

TEST_F(LookupTest, PositionsAreThoseOfTheFirstMatch) {
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  const Tableau<BasicEntity*> entities = Tab({bull, cow, bull, nullptr});
  EXPECT_EQ(GetPosition(entities, cow), 1);
  EXPECT_EQ(GetPosition(entities, NewHerd()), -9);
  EXPECT_EQ(GetPosition(entities, BULL), 0);
  EXPECT_EQ(GetPosition(entities, ANIMAL), -9);
  EXPECT_EQ(GetPosition(entities, "Cow_1"), 1);
  Tableau<const char*> texts;
  texts.push_back("a");
  texts.push_back("b");
  EXPECT_EQ(GetPosition(texts, std::string("b").c_str()), 1);
  EXPECT_EQ(GetPosition(StructureMonitor::mpInstanceTab, monitor.get()), 0);
}

TEST(Texts, AreWrittenIntoTheCallersBuffer) {
  char buffer[20];
  EXPECT_STREQ(itoc(0, buffer), "0");
  EXPECT_STREQ(itoc(K_INTMAX, buffer), "2147483647");
  EXPECT_STREQ(itoc(1050, buffer), "1050");
  EXPECT_STREQ(fillLeft(6, 42, buffer), "    42");
  EXPECT_STREQ(fillLeft(1, 42, buffer), "42");
  FirstToUpper("vache", buffer);
  EXPECT_STREQ(buffer, "Vache");
  FirstToUpper("", buffer);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(my_strdup1(nullptr), nullptr);
}

}  // namespace
