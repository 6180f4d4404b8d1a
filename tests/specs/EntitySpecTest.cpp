#include "kalve/specs/EntitySpec.h"

#include <cstdlib>
#include <random>

#include "kalve/engine/DiscreteProcess.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/methods/PredefinedMethods.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/specs/DescValueSpec.h"
#include "tests/model/ModelTest.h"

namespace {

class EntitySpecTest : public ModelTest {
 protected:
  ~EntitySpecTest() override {
    DeleteEntitySpecs();
    Assign_App_NewEntityFromIdFunction(nullptr);
    Assign_App_NewEntityFromStringFunction(nullptr);
  }

  static std::string ExpansionOf(EntitySpec& spec) {
    spec.Expand();
    return Names(*spec.GetExpansion());
  }
  static void MakeCows(int count) {
    for (int i = 0; i < count; ++i) NewCow();
  }
};

BasicEntity* Candidate(EntitySpecMethod* method) {
  return method->GetBasicEntityArgValue(CANDIDATEENTITY_ARGUMENT);
}
BasicEntity* Referent(EntitySpecMethod* method) {
  return method->GetBasicEntityArgValue(REFERENCEENTITY_ARGUMENT);
}

/// The 2nd, 5th, 6th and 9th entity of the run.
bool IsChosen(EntitySpecMethod* method) {
  switch (Candidate(method)->InstanceNumber()) {
    case 2:
    case 5:
    case 6:
    case 9:
      return true;
    default:
      return false;
  }
}

// A choice and a number that a test sets.
int gModulus = 1;
int gRest = 0;
int gNumber = 0;
bool IsInRestClass(EntitySpecMethod* method) {
  return Candidate(method)->InstanceNumber() % gModulus == gRest;
}
int Number(EntitySpecMethod* /*method*/) { return gNumber; }

// Selection --------------------------------------------------------------------------------------------

TEST_F(EntitySpecTest, SelectsTheOldestThatQualifyUpToTheLimit) {
  MakeCows(10);
  enum { WithoutEvaluator, NullEvaluator, WithEvaluator };
  struct Case {
    QuantificatorId quantificator;
    int quantity;
    int evaluator;
    int number;
    const char* expected;
  };

  const Case cases[] = {
      {NFIRST, 3, WithoutEvaluator, 0, "Cow_2 Cow_5 Cow_6"},
      {NFIRST, 99, WithoutEvaluator, 0, "Cow_2 Cow_5 Cow_6 Cow_9"},
      {NFIRST, 0, WithoutEvaluator, 0, "Cow_2 Cow_5 Cow_6 Cow_9"},
      {NFIRST, -9, NullEvaluator, 0, "Cow_2 Cow_5 Cow_6 Cow_9"},
      {NFIRST, 0, WithEvaluator, 2, "Cow_2 Cow_5"},
      {NFIRST, -9, WithEvaluator, 0, ""},
      {NFIRST, -9, WithEvaluator, -1, ""},
      {NFIRST, 1, WithEvaluator, 3, "Cow_2"},
      {ALLENT, 1, WithEvaluator, 1, "Cow_2 Cow_5 Cow_6 Cow_9"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.quantificator << " " << c.quantity << " " << c.evaluator);
    EntitySpec spec(COW);
    spec.SetQuantificatorId(c.quantificator);
    spec.IntQuantity(c.quantity);
    spec.AssignSelectorPredicate(IsChosen);
    gNumber = c.number;
    if (c.evaluator != WithoutEvaluator)
      spec.AssignQuantityEvaluator(c.evaluator == WithEvaluator ? Number : nullptr);
    EXPECT_EQ(ExpansionOf(spec), c.expected);
    EXPECT_EQ(ExpansionOf(spec), c.expected);
  }
}

TEST_F(EntitySpecTest, ThePredicateCountsOnceItIsAssigned) {
  MakeCows(2);
  EntitySpec spec(COW);
  static_cast<EntitySelector*>(spec.GetMethod(SELECTOR_PREDICATE))->AssignBody(gAlwaysFalse);
  EXPECT_EQ(ExpansionOf(spec), "Cow_1 Cow_2");
  spec.AssignSelectorPredicate(gAlwaysFalse);
  EXPECT_EQ(ExpansionOf(spec), "");
}

TEST_F(EntitySpecTest, TheReferenceClassIsFoundByItsName) {
  MakeCows(1);
  NewBull();
  struct Case {
    int id;
    const char* name;
    int found;
    const char* expected;
  };
  const Case cases[] = {
      {-9, "Animal", ANIMAL, "Cow_1 Bull_2"},
      {BULL, "Animal", BULL, "Bull_2"},
      {UDDER, "", UDDER, ""},
      {KV_ENTITY, "", KV_ENTITY, ""},
      {99, "", 99, ""},
      {HERD - 1, "", HERD - 1, ""},
  };
  for (const Case& c : cases) {
    EntitySpec spec(c.id);
    spec.ReferenceClassName(c.name);
    spec.AssignSelectorPredicate(gAlwaysTrue);
    EXPECT_EQ(spec.ReferenceClassId(), c.id);
    EXPECT_EQ(ExpansionOf(spec), c.expected);
    EXPECT_EQ(spec.ReferenceClassId(), c.found);
  }
}

TEST_F(EntitySpecTest, TheFunctionsOfTheModelKnowTheReferent) {
  MakeCows(3);
  Thing* const referent = NewBull();
  EntitySpec spec(
      ANIMAL, NFIRST, -9, [](EntitySpecMethod* method) { return Candidate(method) != Referent(method); },
      [](EntitySpecMethod* method) { return Referent(method)->InstanceNumber(); }, referent);
  EXPECT_EQ(ExpansionOf(spec), "Cow_1 Cow_2 Cow_3");
  spec.ReferentEntity(GetFirstBasicEntity(COW));
  EXPECT_EQ(ExpansionOf(spec), "Cow_2");
}

TEST_F(EntitySpecTest, InstancesComeAndGoUnderThePredicate) {
  MakeCows(4);
  EntitySpec spec(COW);
  spec.AssignSelectorPredicate([](EntitySpecMethod* method) {
    const int number = Candidate(method)->InstanceNumber();
    if (number == 2) DeleteEntity(GetNamedEntity("Cow_4"));
    if (number == 3) NewCow();
    if (number == 5) DeleteEntity(GetNamedEntity("Cow_1"));
    return true;
  });
  spec.Expand();
  EXPECT_EQ(spec.ExpandedTabSize(), 4);
  EXPECT_EQ(Names(*spec.GetExpansion()), "Cow_2 Cow_3 Cow_5");
}

TEST_F(EntitySpecTest, TheExpansionIsGivenWithoutEntitiesOfTheEngine) {
  MakeCows(5);
  EntitySpec spec(COW);
  spec.AssignSelectorPredicate(gAlwaysTrue);
  for (const char* name : {"Cow_1", "Cow_4", "Cow_5"}) GetNamedEntity(name)->IsEngineManaged(1);
  spec.Expand();
  EXPECT_EQ(spec.ExpandedTabSize(), 5);
  EXPECT_EQ(Names(*spec.GetExpansion()), "Cow_2 Cow_3");
  EXPECT_EQ(spec.ExpandedTabSize(), 2);
}

// Classes that come and go at random, asked at random.
TEST_F(EntitySpecTest, SelectsWhatAPlainFilterSelects) {
  std::mt19937 random(20);
  const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  std::vector<Entity*> living;
  for (int turn = 0; turn < 2000; ++turn) {
    if (living.empty() || below(5) < 3) {
      living.push_back(below(2) == 0 ? NewCow() : NewBull());
    } else {
      const int rank = below(static_cast<int>(living.size()));
      DeleteEntity(living[static_cast<std::size_t>(rank)]);
      living.erase(living.begin() + rank);
    }
    if (below(10) != 0) continue;
    constexpr int classes[] = {ANIMAL, COW, BULL};
    EntitySpec spec(classes[below(3)], below(2) == 0 ? NFIRST : ALLENT, 1 + below(30), IsInRestClass, nullptr,
                    nullptr);
    gModulus = 1 + below(4);
    gRest = below(gModulus);
    Tableau<BasicEntity*> expected;
    for (Entity* entity : living)
      if (entity->IsInstanceOf(spec.GetReferenceClassId()) && entity->InstanceNumber() % gModulus == gRest &&
          (spec.GetQuantificatorId() == ALLENT || expected.size() < spec.IntQuantity()))
        expected.push_back(entity);
    ASSERT_EQ(ExpansionOf(spec), Names(expected)) << turn;
  }
}

// New instances ----------------------------------------------------------------------------------------

BasicEntity* MakeOfClass(EntitySpecMethod* method) {
  switch (method->GetIntArgValue(CLASSID_ARGUMENT)) {
    case COW:
      return new Thing{ANIMAL, COW};
    case BULL:
      return new Thing{ANIMAL, BULL};
    default:
      return nullptr;
  }
}

Tableau<BasicEntity*>* MakeList(EntitySpecMethod* method) {
  auto* const list = new Tableau<BasicEntity*>();
  for (int i = 0; i < method->GetIntArgValue(LISTSIZE_ARGUMENT); ++i) list->push_back(MakeOfClass(method));
  return list;
}

Entity* FromId(int id) { return id == COW ? new Thing{ANIMAL, COW} : nullptr; }
Entity* FromString(const char* name) {
  return std::strcmp(name, "Bull") == 0 ? new Thing{ANIMAL, BULL} : nullptr;
}

TEST_F(EntitySpecTest, MakesAsManyAsAskedFor) {
  EntitySpec spec(BULL, NFIRST, 2, MakeOfClass, nullptr, nullptr);
  EXPECT_EQ(ExpansionOf(spec), "Bull_1 Bull_2");
  EXPECT_EQ(ExpansionOf(spec), "Bull_3 Bull_4");
  EXPECT_EQ(GetNumberOfEntities(BULL), 4);
  gNumber = 1;
  EntitySpec counted(COW, NFIRST, -9, MakeOfClass, Number, nullptr);
  EXPECT_EQ(ExpansionOf(counted), "Cow_5");
  gNumber = 0;
  EXPECT_EQ(ExpansionOf(counted), "");
  EntitySpec none(UDDER, NFIRST, 3, MakeOfClass, nullptr, nullptr);
  EXPECT_EQ(ExpansionOf(none), "");
}

TEST_F(EntitySpecTest, ATurnThatMakesNothingCounts) {
  gNumber = 0;
  EntitySpec spec(
      COW, NFIRST, 5,
      [](EntitySpecMethod* method) { return ++gNumber % 2 == 0 ? nullptr : MakeOfClass(method); }, nullptr,
      nullptr);
  EXPECT_EQ(ExpansionOf(spec), "Cow_1 Cow_2 Cow_3");
  EXPECT_EQ(gNumber, 5);
}

TEST_F(EntitySpecTest, TheApplicationMakesWhatTheModelDoesNot) {
  Assign_App_NewEntityFromIdFunction(FromId);
  Assign_App_NewEntityFromStringFunction(FromString);
  EntitySpec spec(COW);
  spec.SetMode(INSTANTIATE);
  spec.SetQuantificatorId(NFIRST);
  spec.IntQuantity(2);
  EXPECT_EQ(ExpansionOf(spec), "Cow_1 Cow_2");
  spec.ReferenceClassName("Bull");
  EXPECT_EQ(ExpansionOf(spec), "Bull_3 Bull_4");
  spec.ReferenceClassName("Udder");
  EXPECT_EQ(ExpansionOf(spec), "");
}

TEST_F(EntitySpecTest, AListOfTheModelIsTheExpansionInBothModes) {
  for (const EntitySpecMode mode : {INSTANTIATE, RETURN_INSTANCES}) {
    EntitySpec spec(COW, NFIRST, 2, MakeList, nullptr, nullptr);
    spec.SetMode(mode);
    const std::unique_ptr<Tableau<BasicEntity*>> givenUp(spec.GetExpansion());
    spec.Expand();
    EXPECT_NE(spec.GetExpansion(), givenUp.get());
    EXPECT_EQ(spec.ExpandedTabSize(), 2);
    const std::unique_ptr<Tableau<BasicEntity*>> givenUpToo(spec.GetExpansion());
    EXPECT_EQ(givenUpToo->get_nth(1)->ClassId(), COW);
    spec.Expand();
    EXPECT_EQ(GetNumberOfEntities(COW), mode == INSTANTIATE ? 4 : 8);

    Tableau<BasicEntity*>* const held = spec.GetExpansion();
    spec.AssignEntityListInstantiator([](EntitySpecMethod*) -> Tableau<BasicEntity*>* { return nullptr; });
    EXPECT_EQ(ExpansionOf(spec), "");
    EXPECT_EQ(spec.GetExpansion(), held);
    spec.AssignEntityListInstantiator(
        [](EntitySpecMethod* method) { return method->DescribedEntitySpec()->GetExpansion(); });
    EXPECT_EQ(ExpansionOf(spec), "");
  }
}

// Life -------------------------------------------------------------------------------------------------

TEST_F(EntitySpecTest, ACopySelectsLikeItsSource) {
  MakeCows(10);
  EntitySpec source(-9, NFIRST, 3, IsChosen, nullptr, GetFirstBasicEntity(COW));
  source.ClassName("chosen");
  source.ReferenceClassName("Cow");
  source.AddMethod(new IntEntitySpecMethod(60, "own"));
  source.Expand();
  EntitySpec copy(source);
  EXPECT_EQ(copy.ExpandedTabSize(), 0);
  EXPECT_STREQ(copy.ClassName(), "chosen");
  EXPECT_STREQ(copy.ReferenceClassName(), "Cow");
  EXPECT_EQ(copy.ReferentEntity(), source.ReferentEntity());
  EXPECT_EQ(copy.MethodTab().size(), 5);
  EXPECT_NE(copy.GetMethod("own"), nullptr);
  for (Method* method : copy.MethodTab())
    EXPECT_EQ(static_cast<EntitySpecMethod*>(method)->DescribedEntitySpec(), &copy);
  source.AssignSelectorPredicate(gAlwaysFalse);
  EXPECT_EQ(ExpansionOf(copy), "Cow_2 Cow_5 Cow_6");

  const EntitySpec maker(COW, NFIRST, 2, MakeOfClass, nullptr, nullptr);
  EntitySpec secondMaker(maker);
  EXPECT_EQ(ExpansionOf(secondMaker), "Cow_11 Cow_12");
}

TEST_F(EntitySpecTest, AConditionDiesWithTheLastThatListsIt) {
  for (const bool sourceFirst : {true, false}) {
    const int freed = DescValueSpec::getNbDest();
    auto source = std::make_unique<EntitySpec>(COW);
    for (int type = 0; type < 2; ++type) {
      source->AddDescValueSpec(new DescIntValueSpec(20, IN, 1, 2));
      source->AddDescValueSpec(new DescFloatValueSpec(20, IN, 1.0F, 2.0F));
      source->AddDescValueSpec(new DescDoubleValueSpec(20, IN, 1.0, 2.0));
      source->AddDescValueSpec(new DescStringValueSpec(20, IN, "a"));
      source->AddDescValueSpec(new DescEntityValueSpec(20, IN, COW));
    }
    source->AddDescValueSpec(nullptr);
    auto copy = std::make_unique<EntitySpec>(*source);
    auto* const shared = new DescIntValueSpec(21, NOT_IN);
    source->AddDescValueSpec(shared);
    copy->AddDescValueSpec(shared);
    const DescIntValueSpec unlisted(*shared);
    auto& first = sourceFirst ? source : copy;
    auto& second = sourceFirst ? copy : source;
    first->AddDescValueSpec(new DescIntValueSpec(unlisted));
    first.reset();
    EXPECT_EQ(DescValueSpec::getNbDest() - freed, 1);
    second.reset();
    EXPECT_EQ(DescValueSpec::getNbDest() - freed, 12);
  }
}

TEST_F(EntitySpecTest, TheRegistryHoldsTheLiving) {
  const int made = EntitySpec::getNbConst();
  const int gone = EntitySpec::getNbDest();
  const int before = EntitySpec::mInstanceNumber;
  auto* const first = new EntitySpec();
  auto* const second = new EntitySpec(*first);
  auto* const third = new EntitySpec(COW);
  EXPECT_STREQ(first->ClassName(), "entitySpec");
  EXPECT_STREQ(third->ClassName(), "");
  first->ReferenceClassId(ANIMAL);
  second->ReferenceClassName("Cow");
  EXPECT_EQ(GetNamedEntitySpec("entitySpec"), first);
  EXPECT_EQ(GetNamedEntitySpec("nobody"), nullptr);
  EXPECT_EQ(GetFirstEntitySpec(COW), second);
  EXPECT_EQ(GetFirstEntitySpec(BULL), nullptr);
  EXPECT_EQ(EntitySpec::GetInstance(2), third);
  delete second;
  EXPECT_EQ(EntitySpec::GetInstance(1), third);
  EXPECT_EQ(EntitySpec::mInstanceNumber, before + 2);
  DeleteEntitySpecs();
  EXPECT_EQ(EntitySpec::mpInstanceTab.size(), 0);
  EXPECT_EQ(EntitySpec::getNbConst() - made, 3);
  EXPECT_EQ(EntitySpec::getNbDest() - gone, 3);
}

TEST_F(EntitySpecTest, MethodsAreFoundByIdAndName) {
  EntitySpec spec(COW);
  const char* const names[] = {"selectorPredicate", "entityInstantiator", "entityListInstantiator",
                               "quantityEvaluator"};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(spec.MethodTab()[i], spec.GetMethod(names[i]));
    EXPECT_EQ(spec.GetMethod(SELECTOR_PREDICATE + i), spec.GetMethod(names[i]));
    EXPECT_EQ(spec.DualMethodTab()[SELECTOR_PREDICATE + i], i);
  }
  EXPECT_EQ(spec.GetMethod("nobody"), nullptr);
  WhenAddElement ofOthers;
  spec.AddMethod(&ofOthers);
  EXPECT_EQ(spec.MethodTab().size(), 4);
  EntitySpecPredicate withoutId;
  EXPECT_NE(
      RunInChild([&] { spec.AddMethod(&withoutId); }).output.find("'EntitySpec::AddMethod' : indice -9"),
      std::string::npos);

  EXPECT_FALSE(spec.ExecCorePredicate(SELECTOR_PREDICATE));
  EXPECT_EQ(spec.ExecIntCoreMethod(QUANTITY_EVALUATOR), 0);
  EXPECT_EQ(spec.ExecEntityCoreMethod(ENTITY_INSTANTIATOR), nullptr);
  EXPECT_EQ(spec.ExecEntityTabCoreMethod(ENTITYLIST_INSTANTIATOR), nullptr);
  spec.AssignSelectorPredicate(gAlwaysTrue);
  EXPECT_TRUE(spec.ExecCorePredicate(SELECTOR_PREDICATE));
  gNumber = 42;
  spec.AssignQuantityEvaluator(Number);
  EXPECT_EQ(spec.ExecIntCoreMethod(QUANTITY_EVALUATOR), 42);
}

TEST_F(EntitySpecTest, TracesItsLife) {
  const std::string output = OutputOf([] {
    g_KV_TraceNewDelMode = 1;
    const EntitySpec spec;
  });
  EXPECT_EQ(output.find("\n+Construction de la EntitySpec "), 0U);
  EXPECT_NE(output.find("\n-Destruction de la EntitySpec "), std::string::npos);
}

// Processes --------------------------------------------------------------------------------------------

struct SpecifiedProcess : DiscreteProcess {
  SpecifiedProcess() : DiscreteProcess(1, "milking") { ProcessedEntityClassId(ANIMAL); }
  ~SpecifiedProcess() { mMethods.DestroyMethods(); }
};

TEST_F(EntitySpecTest, AProcessWorksOnTheFirstOfTheExpansion) {
  MakeCows(10);
  SpecifiedProcess process;
  EntitySpec spec(COW, ALLENT, -9, IsChosen, nullptr, nullptr);
  process.ProcessedEntitySpec(&spec);
  EXPECT_EQ(process.HasProcessedEntitySpec(), 1);
  EXPECT_STREQ(process.ProcessedBasicEntity()->InstanceName(), "Cow_2");
  DeleteEntity(process.SpecifiedProcessedBasicEntity());
  EXPECT_STREQ(process.ProcessedEntity()->InstanceName(), "Cow_5");
  EntitySpec maker(BULL, NFIRST, 1, MakeOfClass, nullptr, nullptr);
  process.ProcessedEntitySpec(&maker);
  EXPECT_STREQ(process.SpecifiedProcessedEntity()->InstanceName(), "Bull_11");
  EXPECT_STREQ(process.ProcessedEntity()->InstanceName(), "Bull_12");
  process.ProcessedEntity(GetNamedEntity("Cow_1"));
  EXPECT_STREQ(process.ProcessedEntity()->InstanceName(), "Cow_1");
  process.ProcessedEntity(static_cast<BasicEntity*>(nullptr));
  process.ProcessedEntitySpec(static_cast<EntitySpec*>(nullptr));
  EXPECT_EQ(process.HasProcessedEntitySpec(), 1);
  EXPECT_STREQ(process.ProcessedEntity()->InstanceName(), "Cow_1");
}

// Failures ---------------------------------------------------------------------------------------------

struct FailureCase {
  const char* text;
  std::function<void()> fault;
};

void ExpectFailures(const std::string& function, const std::vector<FailureCase>& cases) {
  for (const auto& [text, fault] : cases)
    EXPECT_EQ(FailureOf(fault), "\n!!!============== " + function + " ==============" + text + "\n");
}

TEST_F(EntitySpecTest, AReferenceClassIsNeeded) {
  ExpectFailures(
      "NoInformationForReferenceClass",
      {{"\n!!! La classe de référence de la spécification d'entités 'entitySpec' n'est pas définie."
        "\n    Ni le symbole ni le nom de cette classe n'ont été donnés.",
        [] { EntitySpec().Expand(); }},
       {"\n!!! La classe de référence 'Horse' de la spécification d'entités 's' est inconnue :"
        "\n    aucune instance de cette classe n'a encore été créée.",
        [] {
          EntitySpec spec(-9);
          spec.ClassName("s");
          spec.ReferenceClassName("Horse");
          spec.GetReferenceClassId();
        }},
       {"\n!!! La classe de référence de la spécification d'entités 'entitySpec' n'est pas définie."
        "\n    entité : 'Cow_1' (classe 'Cow')",
        [] {
          EntitySpec spec;
          NoInformationForReferenceClass(&spec, NewCow());
        }}});
}

TEST_F(EntitySpecTest, SomeQuantitiesAreRefused) {
  struct Case {
    QuantificatorId quantificator;
    int quantity;
    bool hasEvaluator;
    bool selects;
    bool makes;
  };
  const Case cases[] = {
      {NFIRST, 1, false, true, true},    {NFIRST, 0, false, false, false}, {NFIRST, 0, true, true, true},
      {ALLENT, 1, false, true, false},   {ALLENT, 1, true, true, false},   {ALLENT, -9, false, true, false},
      {NFIRST, -9, false, false, false},
  };
  for (const Case& c : cases) {
    const auto evaluator = c.hasEvaluator ? Number : nullptr;
    const auto expect = [&c](bool accepted, const std::function<void()>& build) {
      if (accepted) {
        EXPECT_EQ(OutputOf(build), "");
        return;
      }
      EXPECT_EQ(FailureOf(build),
                "\n!!!============== BadQuantitySpecification =============="
                "\n!!! La quantité d'une spécification d'entités de classe 12 est incorrecte."
                "\n    quantificateur : " +
                    std::to_string(c.quantificator) + "\n    quantité : " + std::to_string(c.quantity) +
                    "\n");
    };
    expect(c.selects, [&] { EntitySpec(COW, c.quantificator, c.quantity, IsChosen, evaluator, nullptr); });
    expect(c.makes, [&] { EntitySpec(COW, c.quantificator, c.quantity, MakeOfClass, evaluator, nullptr); });
    expect(c.makes, [&] { EntitySpec(COW, c.quantificator, c.quantity, MakeList, evaluator, nullptr); });
  }
}

TEST_F(EntitySpecTest, AnExpansionNeedsAFunction) {
  const char* const selection =
      "\n!!! La spécification d'entités '' (classe 12)"
      "\n    n'a été dotée ni d'un prédicat de sélection ni d'une fonction qui crée une liste d'entité.";
  ExpectFailures("NoReturnInstanceProcedure", {{selection, [] { EntitySpec(COW).Expand(); }},
                                               {selection,
                                                [] {
                                                  EntitySpec spec(COW);
                                                  spec.AddDescValueSpec(new DescIntValueSpec(20, IN));
                                                  spec.AssignSelectorPredicate(nullptr);
                                                  spec.Expand();
                                                }},
                                               {selection, [] {
                                                  EntitySpec spec(COW);
                                                  spec.AssignSelectorPredicate(gAlwaysTrue);
                                                  spec.AssignEntityListInstantiator(nullptr);
                                                  spec.Expand();
                                                }}});
  const char* const creation =
      "\n!!! La spécification d'entités '' (classe 12)"
      "\n    n'a pas été dotée d'une fonction qui crée une entité ou une liste d'entités.";
  const auto expandMaker = [](const std::function<void(EntitySpec&)>& prepare) {
    return [prepare] {
      EntitySpec spec(COW);
      spec.SetMode(INSTANTIATE);
      spec.SetQuantificatorId(NFIRST);
      spec.IntQuantity(1);
      prepare(spec);
      spec.Expand();
    };
  };
  ExpectFailures(
      "NoInstantiationProcedure",
      {{creation, expandMaker([](EntitySpec& spec) { spec.AssignEntityInstantiator(nullptr); })},
       {creation, expandMaker([](EntitySpec& spec) { spec.AssignEntityListInstantiator(nullptr); })},
       {creation, expandMaker([](EntitySpec&) {})},
       {creation, expandMaker([](EntitySpec& spec) { spec.ReferenceClassName("Cow"); })}});
}

TEST_F(EntitySpecTest, WrongIndexesAndInstancesEndTheRun) {
  const std::vector<FailureCase> cases = {
      {"'EntitySpec::GetMethod'", [] { EntitySpec().GetMethod(50); }},
      {"'EntitySpec::GetMethod'", [] { EntitySpec().GetMethod(-9); }},
      {"'EntitySpec::ExecCorePredicate'", [] { EntitySpec().ExecCorePredicate(55); }},
      {"'EntitySpec::ExecIntCoreMethod'", [] { EntitySpec().ExecIntCoreMethod(0); }},
      {"'EntitySpec::ExecEntityCoreMethod'", [] { EntitySpec().ExecEntityCoreMethod(55); }},
      {"'EntitySpec::ExecEntityTabCoreMethod'", [] { EntitySpec().ExecEntityTabCoreMethod(55); }},
      {"'EntitySpec::AddMethod'", [] { EntitySpec().AddMethod(new IntEntitySpecMethod()); }},
      {"'EntitySpec::GetInstance'", [] { EntitySpec::GetInstance(0); }},
      {"InexistantInstance",
       [] {
         EntitySpec spec;
         DeleteEntityClasses();
         K_InstallMetaClasses();  // forgets the registry
       }},
      {"'EntitySpec::RemoveInstance'",
       [] {
         EntitySpec spec;
         EntitySpec::RemoveInstance(&spec);
         EntitySpec::RemoveInstance(&spec);
       }},
  };
  for (const auto& [text, fault] : cases) {
    const ChildOutcome outcome = RunInChild(fault);
    EXPECT_EQ(outcome.exitStatus, 0) << text;
    EXPECT_NE(outcome.output.find(text), std::string::npos) << text << outcome.output;
  }
}

TEST_F(EntitySpecTest, AProcessTakesASpecificationOfItsClassForOneEntity) {
  const char* const wrongClass =
      "\n!!! Une spécification d'entités de classe 14 ne convient pas au processus 'milking'."
      "\n    Classe attendue : 11. Un processus gère une seule entité : la spécification"
      "\n    retourne des instances, ou en crée une (quantité 1).";
  const char* const tooMany =
      "\n!!! Une spécification d'entités de classe 12 ne convient pas au processus 'milking'."
      "\n    Classe attendue : 11. Un processus gère une seule entité : la spécification"
      "\n    retourne des instances, ou en crée une (quantité 1).";
  const auto bind = [](EntitySpec&& spec) { SpecifiedProcess().ProcessedEntitySpec(&spec); };
  ExpectFailures("BadProcessedEntitySpec",
                 {{wrongClass, [&] { bind(EntitySpec(FARM)); }},
                  {tooMany, [&] { bind(EntitySpec(COW, NFIRST, 2, MakeOfClass, nullptr, nullptr)); }},
                  {tooMany, [&] { bind(EntitySpec(COW, NFIRST, -9, MakeOfClass, Number, nullptr)); }}});
  ExpectFailures(
      "EntitySpecForProcessedEntityYieldsNone",
      {{"\n!!! La spécification 'entitySpec' (classe 12) de l'entité gérée par le processus 'milking'"
        "\n    ne donne aucune entité.",
        [] {
          EntitySpec spec;
          spec.ReferenceClassId(COW);
          spec.AssignSelectorPredicate(gAlwaysTrue);
          SpecifiedProcess process;
          process.ProcessedEntitySpec(&spec);
          process.ProcessedBasicEntity();
        }}});
}

}  // namespace
