// Walks through a structure, and its dumps byte by byte.
#include "kalve/foundations/Records.h"
#include "tests/model/ModelTest.h"

namespace {

BasicEntity* RefuseAll(MonitorMethod* /*method*/) { return nullptr; }

/// all (1) holds the sets north (2) and south (3), and farms (4). north holds a cow (5) and a bull (6), south
/// the cow. farms holds a farm (7) with a stud (8), which holds an udder (9); its own udder slot is empty.
class WalksTest : public ModelTest {
 protected:
  WalksTest() {
    all->ElementClassId(HERD);
    farms->ElementClassId(FARM);
    stud->ElementClassId(UDDER);
    all->AddElements(Tab({north, south, farms}));
    north->AddElements(Tab({cow, bull}));
    south->AddElement(cow);
    farms->AddElement(farm);
    farm->AddComponent(stud);
    stud->AddElement(udder);
  }

  static std::string Owned(Tableau<BasicEntity*>* tab) {
    const std::unique_ptr<Tableau<BasicEntity*>> owned(tab);
    return Names(*owned);
  }
  static const void* Pointer(const BasicEntity* entity) { return entity; }
  /// The entity's death leaves a dead element in the set.
  void DieIn(BasicEntity* set, BasicEntity* element) {
    monitor->AttachToEntity(set);
    monitor->AssignWhenRemoveElementMethod(RefuseAll);
    DeleteEntity(element);
  }

  Thing* const all = NewHerd();
  Thing* const north = NewHerd();
  Thing* const south = NewHerd();
  Thing* const farms = NewHerd();
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  Thing* const farm = NewFarm();
  Thing* const stud = NewBull();
  Thing* const udder = NewUdder();
};

TEST_F(WalksTest, ElementsBelowStandOnceBeforeTheirOwn) {
  EXPECT_EQ(Names(all->GetDepthElementTab(KV_BASIC_ENTITY)),
            "Herd_2 Cow_5 Bull_6 Herd_3 Herd_4 Farm_7 Udder_9");
  EXPECT_EQ(Names(all->GetDepthElementTab(ANIMAL)), "Cow_5 Bull_6");
  EXPECT_EQ(Names(farm->GetDepthElementTab(UDDER)), "Udder_9");
  EXPECT_EQ(Names(all->GetDepthElementTab(99)), "");
  farm->ForceElement(cow);  // from now on its components are passed over
  Tableau<BasicEntity*> result = Tab({all});
  all->GetDepthElementTab(UDDER, result);
  EXPECT_EQ(Names(result), "");
  EXPECT_EQ(Names(all->GetDepthElementTab(ANIMAL)), "Cow_5 Bull_6");
}

TEST_F(WalksTest, TheFirstComponentOfTheClassClosesItsTable) {
  Thing* const first = new Thing{FARM};
  Thing* const second = new Thing{FARM};
  for (const int id : {static_cast<int>(COW), static_cast<int>(FARM)}) first->AddComponentClassId(id);
  for (const int id : {static_cast<int>(FARM), static_cast<int>(COW)}) second->AddComponentClassId(id);
  for (Thing* const outer : {first, second}) {
    Thing* const inner = NewFarm();
    inner->AddComponent(NewCow());
    outer->AddComponent(NewCow());
    outer->AddComponent(inner);
    farms->AddElement(outer);
  }
  EXPECT_EQ(Names(first->GetDepthComponentTab(COW)), "Cow_14");
  EXPECT_EQ(Names(second->GetDepthComponentTab(COW)), "Cow_16 Cow_17");
  EXPECT_EQ(Names(all->GetDepthComponentTab(COW)), "Cow_14 Cow_16 Cow_17");
  EXPECT_EQ(Names(all->GetDepthComponentTab(ANIMAL)), "");
  Thing* const other = NewFarm();
  other->AddComponent(NewBull());
  farm->ForceElement(other);  // elements are entered whatever the slots hold
  north->ForceElement(farm);  // and a farm reached twice counts twice
  Tableau<BasicEntity*> result = Tab({all});
  all->GetDepthComponentTab(BULL, result);
  EXPECT_EQ(Names(result), "Bull_8 Bull_19 Bull_8 Bull_19");
}

TEST_F(WalksTest, SearchesBelowTakeDirectElementsFirst) {
  EXPECT_TRUE(all->HasAsElement(ANIMAL) && all->HasAsElement(bull));
  EXPECT_FALSE(all->HasAsElement(UDDER) || all->HasAsElement(udder));  // components are not entered
  EXPECT_FALSE(cow->HasAsElement(cow));
  EXPECT_NE(FailureOf([&] { all->HasAsElement(99); }).find("'IsInstanceOf'"), std::string::npos);
  cow->SetInstanceName("x");
  south->SetInstanceName("x");
  EXPECT_EQ(all->GetDepthNamedElement("x"), south);
  EXPECT_EQ(all->GetDepthNamedElement("Udder_9"), udder);
  EXPECT_EQ(all->GetDepthClassNamedElement("Bull"), bull);
  EXPECT_EQ(all->GetDepthClassNamedElement(UDDER), udder);
  EXPECT_EQ(all->GetDepthClassNamedElement(HERD), north);
  const std::string reports = OutputOf([&] {
    g_KV_TraceWarnings = 1;
    EXPECT_EQ(all->GetDepthNamedElement("nobody"), nullptr);
    EXPECT_EQ(all->GetDepthClassNamedElement("Animal"), nullptr);
    EXPECT_EQ(all->GetDepthClassNamedElement(ANIMAL), nullptr);
  });
  EXPECT_EQ(reports, OutputOf([&] {
              g_KV_TraceWarnings = 1;
              NoNamedElement(all, "nobody");
              NoNamedElement(all, "Animal");
              NoClassNamedElement(all, ANIMAL);
            }));
}

TEST_F(WalksTest, ContainersAboveByEveryWay) {
  EXPECT_EQ(Owned(cow->GetContainerTab(HERD)), "Herd_2 Herd_1 Herd_3 Herd_1");
  EXPECT_EQ(Owned(cow->GetContainerTab(HERD, 1)), "Herd_2 Herd_3");
  EXPECT_EQ(Owned(udder->GetContainerTab(ANIMAL)), "Bull_8");
  EXPECT_EQ(Owned(udder->GetContainerTab(ANIMAL, 0)), "Bull_8");
  EXPECT_EQ(Owned(udder->GetContainerTab(ANIMAL, 1)), "");
  EXPECT_EQ(Owned(udder->GetContainerTab(KV_BASIC_ENTITY)), "Bull_8 Farm_7 Herd_4 Herd_1");
  EXPECT_EQ(Owned(all->GetContainerTab(HERD)), "");
  south->AddElement(stud);  // super-sets hide the super-entity
  EXPECT_EQ(Owned(udder->GetContainerTab(FARM)), "");
  EXPECT_EQ(udder->GetFirstContainer(FARM, 1), nullptr);
  south->RemoveElement(stud);
  EXPECT_EQ(udder->GetFirstContainer(FARM, 0), farm);
  farm->RemoveComponent(stud);  // and one that has gone is none
  EXPECT_EQ(Owned(udder->GetContainerTab(FARM)), "");
}

TEST_F(WalksTest, TheLastSuperSetDecides) {
  EXPECT_EQ(cow->GetFirstContainer(HERD, 1), south);
  EXPECT_EQ(cow->GetFirstContainer(KV_ENTITY, 1), nullptr);
  EXPECT_EQ(all->GetFirstContainer(HERD, 0), nullptr);
  Thing* const byproduct = NewFarm();
  byproduct->ForceSuperSet(north);
  byproduct->ForceSuperSet(stud);
  EXPECT_EQ(byproduct->GetFirstContainer(ANIMAL, 0), stud);
  byproduct->ForceSuperSet(all);
  EXPECT_EQ(byproduct->GetFirstContainer(ANIMAL, 0), nullptr);
  EXPECT_EQ(udder->GetSimulatedContainerEntity(), nullptr);
  udder->SetSimulation(&simulation);
  EXPECT_EQ(udder->GetSimulatedContainerEntity(), nullptr);
  all->SetSimulation(&simulation);
  EXPECT_EQ(udder->GetSimulatedContainerEntity(), all);
  farm->SetSimulation(&simulation);
  EXPECT_EQ(udder->GetSimulatedContainerEntity(), farm);
  EXPECT_EQ(byproduct->GetSimulatedContainerEntity(), all);
}

TEST_F(WalksTest, DeadPartnersArePassedOver) {
  stud->ForceSuperSet(south);
  udder->ForceSuperSet(south);
  DieIn(all, south);
  EXPECT_EQ(all->GetNumberOfElements(), 3);
  EXPECT_EQ(Names(all->GetDepthElementTab(KV_BASIC_ENTITY)), "Herd_2 Cow_5 Bull_6 Herd_4 Farm_7 Udder_9");
  EXPECT_FALSE(all->HasAsElement(south));
  EXPECT_EQ(Owned(stud->GetContainerTab(FARM)), "Farm_7");
  EXPECT_EQ(udder->GetFirstContainer(KV_BASIC_ENTITY, 0), stud);
  EXPECT_EQ(OutputOf([&] { all->DisplayElementNames(); }), "\n(Herd_2 Herd_4 )\n");
  DeleteEntity(north);
  DieIn(all, farms);
  EXPECT_EQ(OutputOf([&] { all->DisplayShortInDepth(); }),
            Text("\n---------------------\nEntité : Herd_1 (%x)\n---------------------", Address32(all)));
}

// Dumps
// ------------------------------------------------------------------------------------------------------

TEST_F(WalksTest, DisplayShowsOneEntityWithWholeAddresses) {
  for (Thing* const set : {north, south}) farm->ForceSuperSet(set);
  EXPECT_EQ(OutputOf([&] { farm->Display(); }),
            Text("\n---------------------\nEntité : %p, classe : Farm"
                 "\n   classes des composants : (Bull, )\n   composants : (%p, )"
                 "\n   classe des ensembles : Herd\n   ensembles : (%p, )%p, )%p)"
                 "\n---------------------\n",
                 Pointer(farm), Pointer(stud), Pointer(farms), Pointer(north), Pointer(south)));
  EXPECT_EQ(OutputOf([&] { south->Display(); }),
            Text("\n---------------------\nEntité : %p, classe : Herd"
                 "\n   classe des ensembles : Herd\n   ensembles : (%p)"
                 "\n   classe des éléments : Cow\n   éléments : (%p)\n---------------------\n",
                 Pointer(south), Pointer(all), Pointer(cow)));
  EXPECT_EQ(OutputOf([&] { stud->Display(); }),
            Text("\n---------------------\nEntité : %p, classe : Bull"
                 "\n   classe de la super-entité : Farm\n   super-entité : %p"
                 "\n   classe des éléments : Udder\n   éléments : (%p)\n---------------------\n",
                 Pointer(stud), Pointer(farm), Pointer(udder)));
}

TEST_F(WalksTest, DisplayWarnsOfAnEmptySlot) {
  Thing* const empty = NewFarm();
  const std::string shown = Text(
      "\n---------------------\nEntité : %p, classe : Farm"
      "\n   classes des composants : (",
      Pointer(empty));
  const char* const end = ")\n   composants : ()\n---------------------\n";
  EXPECT_EQ(OutputOf([&] { empty->Display(); }), shown + end);
  std::string warnings;
  for (const int slot : {ANIMAL, UDDER})
    warnings +=
        Text("\n!!! L'entité %x (Farm_10) n'est pas munie de son composant de symbole de classe %d. !!!\n",
             Address32(empty), slot);
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              empty->Display();
            }),
            shown + warnings + end);
}

TEST_F(WalksTest, DisplayInDepthMovesInAtEachLevel) {
  while (ClassIdToCharTab.size() <= UDDER) ClassIdToCharTab.push_back("THE_CLASS");
  farm->ForceSuperSet(all);
  EXPECT_EQ(OutputOf([&] { farm->DisplayInDepth(); }),
            Text("\n---------------------\nEntité : %x, nom : Farm_7"
                 "\n    classes des composants : (\n      Bull, \n"
                 "      !!! composant de symbole de classe THE_CLASS non présent. !!!\n    )"
                 "\n    composants : (.."
                 "\n    ---------------------\n    Entité : %x, nom : Bull_8"
                 "\n        classe de la super-entité : Farm\n        super-entité : %x"
                 "\n        classe des éléments : Udder\n        éléments : (.."
                 "\n        ---------------------\n        Entité : %x, nom : Udder_9"
                 "\n            classe des sur-ensembles : Bull\n            sur-ensembles : (%x)"
                 "\n        ---------------------"
                 "\n        ..)\n    ---------------------\n    ..)"
                 "\n    classe des sur-ensembles : Herd\n    sur-ensembles : (%x, %x)"
                 "\n---------------------",
                 Address32(farm), Address32(stud), Address32(farm), Address32(udder), Address32(stud),
                 Address32(farms), Address32(all)));
  EXPECT_EQ(OutputOf([&] { farm->DisplayShortInDepth(); }),
            Text("\n---------------------\nEntité : Farm_7 (%x)\n    composants : (.."
                 "\n    ---------------------\n    Entité : Bull_8 (%x)\n        éléments : (.."
                 "\n        ---------------------\n        Entité : Udder_9 (%x)"
                 "\n        ---------------------\n        ..)"
                 "\n    ---------------------\n    ..)\n---------------------",
                 Address32(farm), Address32(stud), Address32(udder)));
  const std::string deep = OutputOf([&] { cow->DisplayShortInDepth(25); });
  EXPECT_EQ(deep.find('-'), 80U);  // 79 blanks at most
}

TEST_F(WalksTest, DisplayAttributesShowsOneLevel) {
  EXPECT_EQ(OutputOf([&] { farm->BasicEntity::DisplayAttributes(); }),
            Text("\n---------------------\nEntité : %x, nom : Farm_7"
                 "\n    \tclasse : Farm\n    \tclasses parentes : (entity)"
                 "\n    classes des composants : (Bull, "
                 "\n      !!! composant de symbole de classe 15 non présent. !!!\n)"
                 "\n    composants : (Bull_8(%x), )"
                 "\n    classe des sur-ensembles : Herd\n    sur-ensembles : (%x)"
                 "\nDE avant HasElements ?\n---------------------",
                 Address32(farm), Address32(stud), Address32(farms)));
  GetMetaClass(BULL)->AddParentClassId(FARM);
  EXPECT_EQ(OutputOf([&] { stud->BasicEntity::DisplayAttributes(); }),
            Text("\n---------------------\nEntité : %x, nom : Bull_8"
                 "\n    \tclasse : Bull\n    \tclasses parentes : (Animal, Farm)"
                 "\n    classe de la super-entité : Farm\n    super-entité : %x"
                 "\nDE avant HasElements ?\n    classe des éléments : Udder"
                 "\n    éléments : (..    Udder_9 (%x))\n    ..)\n---------------------",
                 Address32(stud), Address32(farm), Address32(udder)));
}

TEST_F(WalksTest, ElementsAreListedByAddressAndName) {
  EXPECT_EQ(OutputOf([&] { north->DisplayElementNames(); }), "\n(Cow_5 Bull_6 )\n");
  const std::string table = OutputOf([&] { north->DisplayElementTab(); });
  const std::string start = Text("\ntableau des éléments de %x à l'adresse ", Address32(north));
  const std::string end = Text("  : (%x\t%x\t)\n", Address32(cow), Address32(bull));
  EXPECT_EQ(table.find(start), 0U) << table;
  EXPECT_EQ(table.find(end), table.size() - end.size()) << table;
}

}  // namespace
