// Construction, copies and destruction of entities.
#include "kalve/foundations/TraceSwitches.h"
#include "tests/model/ModelTest.h"

namespace {

using LifeTest = ModelTest;

BasicEntity* RefuseAll(MonitorMethod* /*method*/) { return nullptr; }

TEST_F(LifeTest, NamesAnEntityAfterItsFinalClass) {
  EXPECT_STREQ(NewCow()->InstanceName(), "Cow_1");
  const Entity entity;
  EXPECT_STREQ(entity.InstanceName(), "entity_2");
  EXPECT_EQ(entity.EntityType(), KV_ENTITY);
  const DescriptedEntity described;
  EXPECT_STREQ(described.InstanceName(), "descriptedEntity_3");
  EXPECT_EQ(described.EntityType(), KV_DESCRIPTED_ENTITY);
  simulation.Clock(12);
  BasicEntity basic;
  EXPECT_STREQ(basic.InstanceName(), "basicEntity_4");
  EXPECT_EQ(basic.EntityType() + basic.ClassId(), 0);
  EXPECT_EQ(basic.CreationClock(), 12);
  basic.SetInstanceName(std::string(100, 'x').c_str(), 7);
  EXPECT_EQ(std::string(basic.InstanceName()).size(), gInstanceNameStringSize - 1U);
  GetMetaClass(COW)->ClassName("Vache");
  EXPECT_STREQ(NewCow()->InstanceName(), "Vache_5");
}

TEST_F(LifeTest, KnowsItsClassAndTheOnesAbove) {
  const Thing& cow = *NewCow();
  for (const int id : {0, 1, 2, static_cast<int>(ANIMAL), static_cast<int>(COW)})
    EXPECT_TRUE(cow.IsInstanceOf(id));
  EXPECT_FALSE(cow.IsInstanceOf(BULL));
  EXPECT_TRUE(cow.IsDirectInstanceOf(COW) && !cow.IsDirectInstanceOf(ANIMAL));
  EXPECT_EQ(Numbers(cow.ParentIds()), std::vector<int>{ANIMAL});
}

// Copies
// ------------------------------------------------------------------------------------------------------

/// A farm with a cow as component, which holds two bulls as elements.
class CopyTest : public ModelTest {
 protected:
  CopyTest() {
    cow->ElementClassId(ANIMAL);
    cow->AddElement(NewBull());
    cow->AddElement(NewBull());
    farm->AddComponent(cow);
    herd->ElementClassId(FARM);
    herd->AddElement(farm);
  }

  /// Classes and layers of an entity and all below it; "-" is an empty slot.
  static std::string Shape(const BasicEntity* entity) {
    if (entity == nullptr) return "-";
    std::string shape = std::string(entity->ClassName()) + std::to_string(entity->EntityType());
    const bool isSet = entity->HasElements();
    for (const BasicEntity* part : isSet ? entity->BareElementTab() : entity->BareComponentTab())
      shape += " (" + Shape(part) + ")";
    return shape;
  }

  Thing* const farm = NewFarm();
  Thing* const cow = NewCow();
  Thing* const herd = new Thing{HERD};
};

constexpr const char* deepShape = "Farm2 (Cow2 (Bull2) (Bull2)) (-)";

TEST_F(CopyTest, FourFormsDifferInDepth) {
  const int cows = GetNumberOfEntities(COW);
  EXPECT_EQ(Shape(new Entity(*farm)), deepShape);
  EXPECT_EQ(Shape(new Entity(*farm, true)), deepShape);
  EXPECT_EQ(Shape(new Entity(*farm, true, 1)), deepShape);
  EXPECT_EQ(Shape(new Entity(*farm, 0)), "Farm2 (-) (-)");
  EXPECT_EQ(Shape(new Entity(*farm, false, 0)), "Farm2 (-) (-)");
  EXPECT_EQ(GetNumberOfEntities(COW), cows + 3);
  EXPECT_EQ(GetNumberOfEntities(FARM), 6);
  EXPECT_EQ(GetEntityCreations(KV_DESCRIPTED_ENTITY), 5 + 3 * 4 + 2);
}

TEST_F(CopyTest, ACopyIsAnInstanceOfItsOwnInNoStructure) {
  simulation.Clock(9);
  const Entity& copy = *new Entity(*farm);
  EXPECT_STREQ(copy.InstanceName(), Text("Farm_%d", copy.InstanceNumber()).c_str());
  EXPECT_EQ(copy.InstanceNumber(), 6);  // before those of its parts
  EXPECT_EQ(copy.CreationClock(), 9);
  EXPECT_FALSE(copy.HasSuperSets());
  const Entity& part = *copy.GetComponent(ANIMAL);
  EXPECT_NE(&part, cow);
  EXPECT_EQ(part.GetSuperEntity(), &copy);
  EXPECT_EQ(part.GetElement()->GetSuperSet(), &part);
  EXPECT_EQ(Numbers(copy.ComponentClassIdTab()), (std::vector<int>{ANIMAL, UDDER}));
  EXPECT_EQ(farm->GetComponent(ANIMAL), cow);
}

TEST_F(CopyTest, MonitorsAreSharedAndPassedOverOnDemand) {
  monitor->AttachToEntity(cow);
  monitor->AssignWhenAddElementMethod(RefuseAll);
  EXPECT_EQ(Shape(new Entity(*cow)), "Cow2");
  EXPECT_EQ(Shape(new Entity(*cow, true)), "Cow2");
  const Entity& copy = *new Entity(*cow, false);
  EXPECT_EQ(Shape(&copy), "Cow2 (Bull2) (Bull2)");
  EXPECT_EQ(copy.GetMonitor(), monitor.get());
}

TEST_F(CopyTest, TheFormWithDepthPrintsItsSteps) {
  const auto address = [&](int rank) { return Address32(cow->GetElement(rank)); };
  EXPECT_EQ(OutputOf([&] { new Entity(*cow, 1); }),
            Latin1(Text("\n\t étape 2 Elements\n"
                        "\n\t étape elements 0 : %x KV_ENTITY\n\n\t étape elements 1 : %x KV_ENTITY\n",
                        address(0), address(1))));
  EXPECT_EQ(OutputOf([&] { new Entity(*cow, true, 1); }), "");
  EXPECT_EQ(OutputOf([&] { new Entity(*cow, 0); }), "");
  const std::string slot =
      Text("\n!!! L'entité %x (Farm_1) n'est pas munie de son composant de symbole de classe 15. !!!\n",
           Address32(farm));
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              new Entity(*farm);
            }),
            slot);
}

TEST_F(CopyTest, EachLayerCopiesAsWhatItIs) {
  cow->RemoveElements();
  auto* const described = new DescriptedEntity();
  described->AddSuperSetClassId(COW);
  cow->ElementClassId(KV_DESCRIPTED_ENTITY);
  cow->AddElement(described);
  BasicEntity* const copy = CopyEntity(cow);
  EXPECT_EQ(Shape(copy), "Cow2 (descriptedEntity1)");
  EXPECT_EQ(Shape(CopyEntity(cow, false)), "Cow2 (descriptedEntity1)");
  auto* const sliced = new BasicEntity(*cow, 0);  // cut down to the lowest layer
  EXPECT_EQ(sliced->EntityType(), KV_BASIC_ENTITY);
  EXPECT_EQ(CopyEntity(sliced)->EntityType(), KV_BASIC_ENTITY);
  copy->DeleteInDepth();
  cow->DeleteInDepth();
  EXPECT_EQ(GetMetaClass(KV_DESCRIPTED_ENTITY)->InstanceDeletion(), 4);
}

// Destruction
// ---------------------------------------------------------------------------------------------------

TEST_F(LifeTest, DyingUnlinksBothWaysAndTellsTheSets) {
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  Thing* const farm = NewFarm();
  farm->AddComponent(cow);
  herd->AddElement(cow);
  EXPECT_EQ(OutputOf([&] {
              SimulationProbe::TellStructure(simulation);
              DeleteEntity(cow);
              EXPECT_FALSE(IsLivingEntity(cow));
              EXPECT_FALSE(herd->HasElements());
              EXPECT_EQ(farm->GetComponent(ANIMAL, 0), nullptr);
            }),
            "\nANSWER PERMSTRUCTURE ELEMREM {Herd_1 ; Cow_2 | }\n"
            "\nANSWER PERMSTRUCTURE COMPREM {Farm_3 ; Cow_2 | }\n");
  DeleteEntity(herd);
  DeleteEntity(farm);
  EXPECT_FALSE(cow->HasSuperSets());
  EXPECT_EQ(cow->GetSuperEntity(), nullptr);
  EXPECT_EQ(GetNumberOfEntities(COW), 1);
}

TEST_F(LifeTest, ADeadElementHeldByAMonitorIsPassedOver) {
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  herd->AddElements(Tab({cow, bull}));
  monitor->AttachToEntity(herd);
  monitor->AssignWhenRemoveElementMethod(RefuseAll);
  const std::string report = OutputOf([&] {
    g_KV_TraceWarnings = 1;
    DeleteEntity(cow);
  });
  EXPECT_NE(report.find("'Cow_2'"), std::string::npos);
  Bury(cow);
  EXPECT_EQ(herd->GetNumberOfElements(), 2);
  EXPECT_EQ(herd->GetNamedElement("Cow_2"), nullptr);
  EXPECT_EQ(herd->GetClassNamedElement("Bull"), bull);
  EXPECT_EQ(GetPosition(herd->BareElementTab(), BULL), 1);
  EXPECT_EQ(CopyEntity(herd, false)->GetNumberOfElements(), 1);
  EXPECT_EQ(herd->RemoveElement(0), nullptr);  // a dead one leaves unasked
  EXPECT_EQ(herd->GetNumberOfElements(), 1);
  EXPECT_EQ(herd->RemoveElements(), bull);
}

TEST_F(LifeTest, LinksOfOneSideOutliveTheirPartnersUnharmed) {
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  herd->AddElement(cow, 0);
  herd->AddElement(cow, 0);  // two links on the cow's side
  DeleteEntity(herd);
  EXPECT_EQ(cow->GetNumberOfSuperSets(), 1);
  const std::unique_ptr<Tableau<BasicEntity*>> free(GetFreeEntityList(COW));
  EXPECT_EQ(Names(*free), "Cow_2");
  Thing* const left = NewFarm();
  Thing* const right = NewFarm();
  left->AddComponent(cow);
  cow->SetSuperEntity(right);  // the left farm keeps its slot
  Bury(cow);
  EXPECT_EQ(left->GetComponent(ANIMAL, 0), nullptr);
  left->AddComponent(NewCow());
  left->DeleteInDepth();
  EXPECT_EQ(GetNumberOfEntities(COW), 0);
}

TEST_F(LifeTest, DeletingInDepthTakesTheTreeAndSharedElementsOnce) {
  Thing* const herd = NewHerd();
  Thing* const other = NewHerd();
  Thing* const cow = NewCow();
  cow->ElementClassId(UDDER);
  cow->AddElement(NewUdder());
  for (Thing* set : {herd, other}) set->AddElements(Tab({cow, NewBull()}));
  herd->AddElementNoCheckIfNew(cow);
  herd->DeleteInDepth();
  EXPECT_EQ(Names(other->GetElementTab()), "Bull_6");
  EXPECT_EQ(GetNumberOfEntities(COW) + GetNumberOfEntities(UDDER), 0);
  EXPECT_EQ(GetNumberOfEntities(BULL), 1);
}

TEST_F(LifeTest, ConstructionAndDestructionAreTracedLayerByLayer) {
  const std::string text = OutputOf([] {
    g_KV_TraceNewDelMode = 1;
    auto* const cow = new Entity();
    cow->DeleteInDepth();
  });
  std::size_t at = 0;
  for (const char* line :
       {"\n+Construction de l'entité de base ", " avec mThisInstanceNumber = 1",
        "\n+FIN Construction de l'entité de base ", "\n+Construction de l'entité avec descripteurs ",
        "\n+ FIN Construction de l'entité avec descripteurs ", "\n+Construction de l'entité 0x",
        "\n+ FIN Construction de l'entité 0x", "\n-Destruction profonde de 0x",
        " (avec ses 0 elements ou composants)\n\t", "\n-Destruction de l'entité 0x", " (pas de ses éléments)",
        "\n-Destruction de l'entité à descripteurs ", "\n-Destruction de l'entité basique entity_1 0x",
        " (pas de ses éléments)", ")::RemoveInstance 0x", "(descriptedEntity)::RemoveInstance",
        "(basicEntity)::RemoveInstance", "(entity)::RemoveInstance"}) {
    const std::size_t found = text.find(line, at);
    EXPECT_NE(found, std::string::npos) << line << " after " << text.substr(at);
    if (found != std::string::npos) at = found;
  }
}

TEST_F(LifeTest, AnEntityOfAnUnknownLayerIsNotFreed) {
  class Strange : public Entity {
   public:
    Strange() { SetEntityType(7); }
  };
  EXPECT_NE(FailureOf([] { DeleteEntity(new Strange()); }).find("!!! DeleteEntity"), std::string::npos);
  EXPECT_NE(FailureOf([] {
              CreateMetaClass(50, "loose");
              CopyEntity(new Thing{50});
            }).find(" StrangeEntity "),
            std::string::npos);
}

}  // namespace
