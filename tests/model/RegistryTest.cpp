#include <functional>
#include <memory>
#include <random>
#include <set>

#include "kalve/foundations/NameTables.h"
#include "kalve/foundations/TraceSwitches.h"
#include "tests/model/ModelTest.h"

namespace {

using RegistryTest = ModelTest;
using Ids = std::vector<int>;

TEST_F(RegistryTest, PadsTheTablesAndKeepsTheFirstRegistration) {
  EXPECT_EQ(gMetaClassTab.size(), UDDER + 1);
  for (int id : {3, 6, 9}) {
    EXPECT_EQ(gMetaClassTab[id], nullptr);
    EXPECT_EQ(gMetaClassIdTab[id], -9);
  }
  MetaClass* const late = CreateMetaClass(8, "late", 0, 0);
  EXPECT_EQ(gMetaClassTab.size(), UDDER + 1);
  EXPECT_EQ(gMetaClassIdTab[8], 8);
  EXPECT_EQ(CreateMetaClass(8, "later", 1, 1), late);
  EXPECT_STREQ(late->ClassName(), "late");
  EXPECT_EQ(late->IsUserInstantiable() + late->ExistsInstanceTab(), 0);
  EXPECT_EQ(CreateMetaClass(20, "x")->IsUserInstantiable(), 1);
  EXPECT_EQ(CreateMetaClass(21, "y", 0)->ExistsInstanceTab(), 1);
}

TEST_F(RegistryTest, InstallsTheLayersWithoutInstanceTables) {
  for (int id : {0, 1, 2}) {
    EXPECT_EQ(GetMetaClass(id)->IsUserInstantiable(), 1);
    EXPECT_EQ(GetMetaClass(id)->ExistsInstanceTab(), 0);
  }
  EXPECT_EQ(Numbers(AncestorIdTab(KV_ENTITY)), (Ids{1, 0}));
  EXPECT_EQ(g_KV_ReservedUserClassId, 6);
  EXPECT_EQ(g_KV_ReservedUserDescriptorId, 13);
  EXPECT_EQ(g_KV_ReservedUserFileId, -9);
  EXPECT_EQ(gClassIdToCharTabSize, 7);
  EXPECT_STREQ(ClassIdToString(3), "KV_ENTITYSPEC");
  EXPECT_NE(RunInChild([] { ClassIdToString(7); }).output.find("'ClassIdToString'"), std::string::npos);
}

TEST_F(RegistryTest, FindsSymbolsByName) {
  EXPECT_EQ(GetClassSymbol("Cow"), COW);
  EXPECT_EQ(GetClassSymbol("cow"), -9);
  EXPECT_EQ(GetClassSymbol("inconnu"), -9);
  CreateMetaClass(30, "Cow");
  EXPECT_EQ(GetClassSymbol("Cow"), COW);
  CreateMetaClass(9, "entity");
  EXPECT_EQ(GetClassSymbol("entity"), KV_ENTITY);
  EXPECT_EQ(GetClassSymbol("descriptedEntity"), KV_DESCRIPTED_ENTITY);
  EXPECT_EQ(GetClassSymbol("basicEntity"), KV_BASIC_ENTITY);
  EXPECT_EQ(GetMetaClass(-9), nullptr);
  EXPECT_EQ(GetMetaClass(9999), nullptr);
}

/// 20 over 21 and 22, both over 23; 21 under entity, 22 under farm.
void MakeDiamond() {
  CreateMetaClass(23, "bottom")->SetParentClassIds(21, 22);
  CreateMetaClass(21, "left")->SetParentClassId(20);
  CreateMetaClass(22, "right")->SetParentClassIds(20, FARM);
  CreateMetaClass(20, "top")->SetParentClassId(KV_ENTITY);
  SetHierarchy();
}

TEST_F(RegistryTest, OrdersRelativesDepthFirst) {
  MakeDiamond();
  EXPECT_EQ(Numbers(AncestorIdTab(COW)), (Ids{ANIMAL, 2, 1, 0}));
  EXPECT_EQ(Numbers(ChildIdTab(ANIMAL)), (Ids{COW, BULL}));
  EXPECT_EQ(Numbers(AncestorIdTab(23)), (Ids{21, 20, 2, 1, 0, 22, FARM}));
  EXPECT_EQ(Numbers(ParentIdTab(22)), (Ids{20, FARM}));
  Tableau<int> ids;
  DescendantIdTab("top", ids);
  EXPECT_EQ((std::set<int>(ids.begin(), ids.end())), (std::set<int>{21, 22, 23}));
  TerminalDescendantIdTab(20, ids);  // appends, and counts the bottom once for each way
  EXPECT_EQ((Ids{ids.end() - 2, ids.end()}), (Ids{23, 23}));
  EXPECT_TRUE(IsTerminalClass(23));
  EXPECT_FALSE(IsTerminalClass(21));
  EXPECT_TRUE(IsParentOf(20, 22) && IsChildOf(22, 20) && IsAncestorOf(20, 23) && IsDescendantOf(23, FARM));
  EXPECT_FALSE(IsParentOf(20, 23) || IsChildOf(23, 20) || IsAncestorOf(20, 20) || IsDescendantOf(20, 20));
  EXPECT_TRUE(HaveCommonAncestor(21, 23));
  EXPECT_FALSE(HaveCommonAncestor(COW, FARM));
  const Tableau<int> sets = ParentIdTab(22);  // top, farm
  EXPECT_EQ(GetPositionAncestor(sets, 23), 0);
  EXPECT_EQ(GetPositionAncestor(sets, FARM), 1);
  EXPECT_EQ(GetPositionAncestor(sets, COW), -9);
}

TEST_F(RegistryTest, FindsTheUpperMultipleParents) {
  MakeDiamond();
  CreateMetaClass(24, "below")->SetParentClassId(23);
  const auto upper = [](int id) {
    const std::unique_ptr<Tableau<int>> ids(GetMetaClass(id)->GetUpperMultipleParents());
    return Numbers(*ids);
  };
  EXPECT_EQ(upper(0), Ids{});
  EXPECT_EQ(upper(1), Ids{1});  // one parent without a result of its own
  EXPECT_EQ(upper(2), Ids{1});
  EXPECT_EQ(upper(23), (Ids{1, 1, 1}));  // the right parent brings two
  EXPECT_EQ(upper(24), upper(23));
  EXPECT_EQ(FailureOf([] {
              CreateMetaClass(25, "orphan")->SetParentClassId(99);
              delete GetMetaClass(25)->GetUpperMultipleParents();
            }),
            Latin1("\n!!!============== MetaClassNotYetCreated =============="
                   "\n!!! Recherche d'informations sur une classe (de symbole 99) qui n'a pas encore reçu "
                   "d'instances.\n!!! Opération en cours : GetUpperMultipleParents !!!"
                   "\n!!! Piste possible : [App_]InstallMetaClasses non invoquée !!!\n"));
}

TEST_F(RegistryTest, IsCompleteInRandomLattices) {
  std::mt19937 random(5);
  for (int round = 0; round < 30; ++round) {
    const int first = 100 * (round + 1);
    std::vector<std::set<int>> ancestors(12);
    Ids order(12);
    for (int i = 0; i < 12; ++i) order[static_cast<std::size_t>(i)] = first + i;
    std::shuffle(order.begin(), order.end(), random);  // symbols rise in another order than kinship
    for (std::size_t i = 0; i < order.size(); ++i) {
      MetaClass* const metaClass = CreateMetaClass(order[i], "x");
      for (std::size_t n = i == 0 ? 0 : random() % 3; n > 0; --n) {
        const std::size_t parent = random() % i;
        metaClass->AddParentClassId(order[parent]);
        ancestors[i].insert(order[parent]);
        ancestors[i].insert(ancestors[parent].begin(), ancestors[parent].end());
      }
    }
    SetHierarchy();
    for (std::size_t i = 0; i < order.size(); ++i) {
      const Ids found = Numbers(AncestorIdTab(order[i]));
      EXPECT_EQ(std::set<int>(found.begin(), found.end()), ancestors[i]);
      EXPECT_EQ(found.size(), ancestors[i].size());
      for (std::size_t other = 0; other < order.size(); ++other)
        EXPECT_EQ(IsAncestorOf(order[i], order[other]), ancestors[other].contains(order[i]));
    }
  }
}

TEST_F(RegistryTest, EndsTheRunOnUnknownClasses) {
  const std::vector<std::pair<std::string, std::function<void()>>> services = {
      {"GetClassName", [] { GetClassName(-9); }},
      {"ParentIdTab", [] { ParentIdTab(9); }},
      {"ChildIdTab", [] { ChildIdTab(9); }},
      {"ChildIdTab", [] { IsTerminalClass(500); }},
      {"AncestorIdTab", [] { AncestorIdTab(9); }},
      {"AncestorIdTab", [] { HaveCommonAncestor(COW, 9); }},
      {"DescendantIdTab", [] { DescendantIdTab(9); }},
      {"DescendantIdTab(none)", [] { DescendantIdTab("none"); }},
      {"TerminalDescendantIds",
       [] {
         Tableau<int> ids;
         TerminalDescendantIdTab(9, ids);
       }},
      {"IsParentOf", [] { IsParentOf(9, COW); }},
      {"IsAncestorOf", [] { IsAncestorOf(9, COW); }},
      {"IsChildOf", [] { IsChildOf(9, COW); }},
      {"IsDescendantOf", [] { IsDescendantOf(9, COW); }},
  };
  for (const auto& [name, service] : services) {
    const std::string text = FailureOf(service);
    EXPECT_EQ(text.find("\n!!!============== UnknownEntityClass =============="), 0U) << name;
    EXPECT_NE(text.find("Le service qui effectue cette tentative est '" + name + "'.\nCauses typiques : "),
              std::string::npos)
        << text;
  }
  // A symbol that has a printable name shows it, any other its number.
  EXPECT_NE(FailureOf([] { GetClassName(4); }).find("du symbole KV_EVENT\n"), std::string::npos);
  EXPECT_NE(FailureOf([] { GetClassName(500); }).find("du symbole 500\n"), std::string::npos);
}

TEST_F(RegistryTest, CountsInstancesInEveryClassOfTheChain) {
  Thing* const cow = NewCow();
  NewBull();
  EXPECT_EQ(GetMetaClass(COW)->InstanceNumber(), 1);
  EXPECT_EQ(GetMetaClass(ANIMAL)->InstanceNumber(), 2);
  for (int layer : {0, 1, 2}) {
    EXPECT_EQ(GetMetaClass(layer)->InstanceNumber(), 0);
    EXPECT_EQ(GetEntityCreations(layer), 2);
  }
  EXPECT_TRUE(GetMetaClass(KV_ENTITY)->InstanceTab().empty());
  DeleteEntity(cow);
  for (int id : {0, 1, 2, static_cast<int>(ANIMAL), static_cast<int>(COW)})
    EXPECT_EQ(GetEntityDeletions(id), 1) << id;
  EXPECT_EQ(GetEntityDeletions(BULL), 0);
  EXPECT_EQ(Names(GetMetaClass(ANIMAL)->InstanceTab()), "Bull_2");
  EXPECT_NE(FailureOf([] {
              GetMetaClass(KV_ENTITY)->GetInstance(0);
            }).find("\n    Survient notamment pour la classe Entity et ses ascendantes."),
            std::string::npos);
  EXPECT_NE(RunInChild([] { GetMetaClass(BULL)->GetInstance(1); }).output.find("'MetaClass::GetInstance'"),
            std::string::npos);
  EXPECT_NE(FailureOf([] {
              const Entity stranger;
              GetMetaClass(COW)->RemoveInstance(const_cast<Entity*>(&stranger));
            }).find("'MetaClass::RemoveInstance'"),
            std::string::npos);
}

TEST_F(RegistryTest, InstanceTableFollowsANaiveOneThroughRandomLives) {
  std::mt19937 random(3);
  std::vector<BasicEntity*> naive;
  const MetaClass& animals = *GetMetaClass(ANIMAL);
  for (int step = 0; step < 3000; ++step) {
    if (naive.empty() || random() % 100 < 49) {
      naive.push_back(random() % 2 == 0 ? NewCow() : NewBull());
    } else {
      const std::size_t at = random() % naive.size();
      DeleteEntity(naive[at]);
      naive.erase(naive.begin() + static_cast<std::ptrdiff_t>(at));
    }
    ASSERT_EQ(animals.InstanceNumber(), static_cast<int>(naive.size()));
    ASSERT_TRUE(naive.empty() || animals.GetInstance(0) == naive.front());
    if (step % 50 == 0 || step >= 2000) {
      const Tableau<BasicEntity*> tab = step >= 2000 ? *GetEntityList(ANIMAL) : animals.InstanceTab();
      ASSERT_EQ((std::vector<BasicEntity*>(tab.begin(), tab.end())), naive);
    }
  }
}

TEST_F(RegistryTest, AHeldEntityListFollowsEveryDeath) {
  for (int i = 0; i < 4; ++i) NewCow();
  Tableau<BasicEntity*>* const cows = GetEntityList(COW);
  DeleteEntity(cows->get_nth(1));
  EXPECT_EQ(Names(*cows), "Cow_1 Cow_3 Cow_4");
  while (!cows->empty()) DeleteEntity(cows->front());
  NewCow();
  EXPECT_EQ(Names(*cows), "Cow_5");
}

TEST_F(RegistryTest, AnAssignedClassKeepsItsNameAndTakesTheInstances) {
  Thing* const cow = NewCow();
  MetaClass other(40, "other");
  EXPECT_EQ(&(other = *GetMetaClass(COW)), GetMetaClass(COW));
  EXPECT_STREQ(other.ClassName(), "other");
  EXPECT_EQ(other.ClassId(), COW);
  EXPECT_TRUE(other.ParentIds().empty());
  other.RemoveInstance(cow);
  EXPECT_EQ(other.InstanceNumber(), 0);
  EXPECT_EQ(GetMetaClass(COW)->InstanceNumber(), 1);
}

TEST_F(RegistryTest, FindsTheFirstCommonAncestorOfInstances) {
  Thing* const cow = NewCow();
  Thing* const otherCow = NewCow();
  Thing* const bull = NewBull();
  Thing* const herd = NewHerd();
  EXPECT_EQ(FirstCommonAncestorId(Tab({})), 0);
  EXPECT_EQ(FirstCommonAncestorId(Tab({cow})), COW);
  EXPECT_EQ(FirstCommonAncestorId(Tab({cow, otherCow})), ANIMAL);
  EXPECT_EQ(FirstCommonAncestorId(Tab({herd, herd})), KV_ENTITY);
  EXPECT_EQ(FirstCommonAncestorId(Tab({cow, bull, herd, cow})), KV_ENTITY);
  const BasicEntity one;
  EXPECT_EQ(FirstCommonAncestorId(Tab({const_cast<BasicEntity*>(&one), cow, bull})), 0);
}

TEST_F(RegistryTest, ShowsAllClassesButTheFirst) {
  NewCow();
  const std::string text = OutputOf(DisplayClasses);
  EXPECT_EQ(text.find("\n-------------------------------------"
                      "\nsymbole de classe                : 1"
                      "\nnom de classe                    : descriptedEntity"
                      "\nnombre d'instances               : 0"
                      "\nnom (symbole) des classes m\xE8re   : basicEntity (0) "
                      "\nnom (symbole) des classes fille  : entity (2) "
                      "\n-------------------------------------"),
            0U);
  EXPECT_NE(text.find("\nsymbole de classe                : 11"
                      "\nnom de classe                    : Animal"
                      "\nnombre d'instances               : 1"
                      "\nnom (symbole) des classes m\xE8re   : entity (2) "
                      "\nnom (symbole) des classes fille  : Cow (12) Bull (13) "),
            std::string::npos);
}

TEST_F(RegistryTest, TracesARemovalOnBothSides) {
  Thing* const cow = NewCow();
  const std::string address = Text("%p", static_cast<void*>(cow));
  const std::string meta = Text("%p", static_cast<void*>(GetMetaClass(COW)));
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceNewDelMode = 1;
              GetMetaClass(COW)->RemoveInstance(cow);
            }),
            "\nMetaClass " + meta + " (Cow)::RemoveInstance " + address +
                " \nsortie MetaClass(Cow)::RemoveInstance " + address + " ");
}

}  // namespace
