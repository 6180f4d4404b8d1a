// Descriptors that refer into the model: class lists, domains of entities, tables of entities and of value
// specifications.
#include <gtest/gtest.h>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/specs/DescValueSpec.h"
#include "tests/descriptors/Points.h"
#include "tests/model/ModelTest.h"

namespace {

using Entities = Tableau<BasicEntity*>;

Entities* NewEntities(std::initializer_list<BasicEntity*> entities) {
  auto* table = new Entities;
  for (BasicEntity* entity : entities) table->push_back(entity);
  return table;
}

/// Whether the body ends in the failure of that banner.
bool Fails(const char* failure, const std::function<void()>& body) {
  return FailureOf(body).find(std::string("============== ") + failure + " ==") != std::string::npos;
}

class EntityDescriptors : public ModelTest {
 protected:
  EntityDescriptors() {
    cow.SetInstanceName("a");
    bull.SetInstanceName("b");
    farm.SetInstanceName("f");
  }

  Thing cow{ANIMAL, COW};
  Thing bull{ANIMAL, BULL};
  Thing farm{FARM};
};

// Class list and domain ------------------------------------------------------------------------------------

TEST_F(EntityDescriptors, ClassListHasOneFirstClassAndKinOfIt) {
  EntityConstantDescriptor mother(20, "mother");
  mother.AddValueClassId(COW);
  mother.AddValueClassId(BULL);
  EXPECT_EQ(mother.GetValueClassId(), COW);
  EXPECT_EQ(mother.ValueClassIdTab().size(), 2);
  EXPECT_EQ(
      FailureOf([&] { mother.ValueClassId(FARM); }),
      "\n!!!============== MisuseValueClassId =============="
      "\n!!! Déclaration de la classe de valeur 14 (par ValueClassId)\n    pour le descripteur 'mother', "
      "qui en possède déjà une."
      "\n!!! Pour déclarer une classe de valeur supplémentaire, utiliser AddValueClassId.\n");
  EXPECT_TRUE(Fails("MisuseAddValueClassId", [&] { mother.AddValueClassId(FARM); }));
  EntityTabVariableDescriptor herd;
  const ChildOutcome empty = RunInChild([&] { herd.GetValueClassId(); });
  EXPECT_NE(empty.output.find("EntityTabVariableDescriptor::GetValueClassId"), std::string::npos);
}

TEST_F(EntityDescriptors, ListAdmitsInstancesAndNull) {
  EntityVariableDescriptor mother(20, "mother");
  EXPECT_TRUE(mother.IsInDomain(&farm));
  mother.ValueClassId(ANIMAL);
  const struct {
    BasicEntity* entity;
    bool isIn;
  } rows[] = {{&cow, true}, {&bull, true}, {&farm, false}, {nullptr, true}};
  for (const auto& row : rows) {
    EXPECT_EQ(mother.IsInDomain(row.entity), row.isIn);
    EXPECT_NE(mother.IsOutOfDomain(row.entity), row.isIn);
  }
  mother.SetValue(&cow);
  mother.SetValue(nullptr);
  EXPECT_EQ(FailureOf([&] { mother.SetValue(&farm); }),
            "\n!!!============== OutOfEntityDomain =============="
            "\n!!! Affectation d'entité hors domaine, \n!!! pour le descripteur variable 'mother'"
            "\n!!! valeur : 'f' de classe 'Farm'\n!!! domaine : NULL\n");
}

TEST_F(EntityDescriptors, DomainOfEntitiesIsMadeFromTheList) {
  EntityVariableDescriptor mother(20, "mother");
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { mother.SetSubDomain(&cow); })) << "the list is empty";
  mother.ValueClassId(ANIMAL);
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { mother.SetSubDomain(&farm); }));
  mother.AddSubDomain(&cow);
  EXPECT_TRUE(mother.IsInDomain(&cow) && !mother.IsOutOfDomain(&cow));
  EXPECT_TRUE(!mother.IsInDomain(&bull) && mother.IsOutOfDomain(&bull));
  EXPECT_TRUE(mother.IsInDomain(nullptr) && !mother.IsOutOfDomain(nullptr));
  EntityVariableDescriptor copy(mother);
  mother.AddSubDomain(&bull);
  EXPECT_TRUE(mother.IsInDomain(&bull));
  EXPECT_FALSE(copy.IsInDomain(&bull));
  EXPECT_EQ(copy.ValueClassIdTab().size(), 1);
  EXPECT_EQ(FailureOf([&] { copy.SetValue(&bull); }),
            Text("\n!!!============== OutOfEntityDomain =============="
                 "\n!!! Affectation d'entité hors domaine, \n!!! pour le descripteur variable 'mother'"
                 "\n!!! valeur : 'b' de classe 'Bull'\n!!! domaine : (%p) \n",
                 static_cast<void*>(&cow)));
}

TEST_F(EntityDescriptors, EntityGoesThroughMonitorDomainAndRecord) {
  static BasicEntity* answer;
  EntityDescValueMonitor watch("watch");
  watch.AssignWhenSetEntityMethod([](MonitorMethod*) { return answer; });
  DescTimeSeries series(nullptr);
  EntityVariableDescriptor mother(20, "mother");
  mother.ValueClassId(ANIMAL);
  mother.SetDescTimeSeries(&series);
  mother.IsRecorded(1);
  watch.AttachToDescriptor(&mother);
  const auto at = [&](int clock) { simulation.Clock(clock); };
  at(1);
  answer = &bull;
  mother.SetValue(&farm);
  at(2);
  mother.SetValue(nullptr, 0);  // adds no point
  mother.RecordPresentValue();
  at(3);
  {
    Thing calf{ANIMAL, COW};
    calf.SetInstanceName("calf");
    mother.SetValue(&calf, 0);
  }
  at(4);
  mother.RecordPresentValue();
  EXPECT_EQ(PointsOf(series), "1=b;2=;3=calf;4=;") << "the dead have an empty name";
  answer = &farm;
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { mother.SetValue(&cow); }));
}

// Tables of entities ---------------------------------------------------------------------------------------

TEST_F(EntityDescriptors, WholeTablesAreHeldAgainstTheListByTheirFirstOrByAll) {
  EntityTabVariableDescriptor herd(20, "herd");
  herd.ValueClassId(ANIMAL);
  herd.SetValue(NewEntities({&cow, &farm}));
  EXPECT_EQ(herd.GetEntityTabValue()->size(), 2);
  Entities mixed(*herd.GetEntityTabValue());
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { herd.SetValue(&mixed, 0); }));
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { herd.SetValue(NewEntities({&farm, &cow})); }));
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { herd.AddValueElement(&farm, 0); }));
  EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { herd.SetValueElement(&farm, 0); }));
  herd.SetValue(herd.GetEntityTabValue());  // does nothing
  herd.SetValue(nullptr);
  EXPECT_EQ(herd.ValueToString(), "no_name");
  herd.AddValueElement(nullptr);
  herd.AddValueElements(nullptr);
  EXPECT_EQ(herd.GetValueElement(0), nullptr);
}

TEST_F(EntityDescriptors, EveryTouchOfATableIsRecorded) {
  DescTimeSeries series(nullptr);
  EntityTabVariableDescriptor herd(20, "herd");
  herd.SetDescTimeSeries(&series);
  herd.IsRecorded(1);
  const auto at = [&](int clock) { simulation.Clock(clock); };
  at(1);
  herd.SetValue(NewEntities({}));
  at(2);
  herd.AddValueElement(&cow);
  at(3);
  Entities both;
  both.push_back(&cow);
  both.push_back(&bull);
  both.push_back(nullptr);
  herd.AddValueElements(&both);
  at(4);
  herd.AddValueElement(&bull);  // there already
  at(5);
  herd.SetValueElement(&farm, 0);
  at(6);
  herd.RemoveValue(&farm);
  at(7);
  herd.ClearValues();
  EXPECT_EQ(PointsOf(series), "1=\"\";2=\"a\";3=\"a b\";4=\"a b\";5=\"f b\";6=\"b\";");
  std::string names;
  std::vector<std::unique_ptr<Thing>> crowd;
  for (int i = 0; i < 200; ++i) {
    crowd.push_back(std::make_unique<Thing>(std::initializer_list<int>{ANIMAL, COW}));
    herd.AddValueElement(crowd.back().get(), 0);
    names += (i > 0 ? " " : "") + std::string(crowd.back()->InstanceName());
  }
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), '"' + names + '"');
  crowd.clear();
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"\"") << "the dead are left out";
}

TEST_F(EntityDescriptors, MonitorOfATableAnswersForElementsAndForTheWhole) {
  static BasicEntity* other;
  other = &bull;
  EntityTabDescValueMonitor watch("watch");
  watch.AssignWhenAddEntityMethod([](MonitorMethod*) { return other; });
  watch.AssignWhenRemoveEntityMethod([](MonitorMethod*) { return other; });
  EntityTabVariableDescriptor herd(20, "herd");
  herd.ValueClassId(COW);
  watch.AttachToDescriptor(&herd);
  herd.AddValueElement(&cow);  // the list looks at the candidate, and not at the answer
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"b\"");
  herd.AddValueElement(&cow, 0);
  herd.RemoveValue(&cow);
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"a\"");

  // Accepting, refusing, changing the whole.
  watch.AssignWhenSetEntityTabMethod([](MonitorMethod* m) { return m->GetEntityTabArgValue(36); });
  herd.SetValue(NewEntities({&cow, &bull}));
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"a b\"");
  watch.AssignWhenSetEntityTabMethod([](MonitorMethod* m) {
    delete m->GetEntityTabArgValue(36);  // another answer makes the candidate the body's
    return m->GetEntityTabArgValue(26);
  });
  herd.SetValue(NewEntities({&cow}));
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"a b\"");
  watch.AssignWhenSetEntityTabMethod([](MonitorMethod* m) {
    delete m->GetEntityTabArgValue(36);
    return NewEntities({other});
  });
  herd.SetValue(NewEntities({&cow}));
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"b\"");

  // An element set: the watch sees the table as it would be, its answer counts for nothing.
  static int seen;
  watch.AssignWhenSetEntityTabMethod([](MonitorMethod* m) -> Entities* {
    seen =
        m->GetEntityTabArgValue(36)->position(other) < 0 && m->GetEntityTabArgValue(26)->position(other) == 0;
    delete m->GetEntityTabArgValue(36);
    return nullptr;
  });
  herd.SetValueElement(&cow, 0);
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"a\"");

  static Entities shown;
  shown.erase();
  shown.push_back(other);
  watch.AssignWhenGetEntityTabMethod([](MonitorMethod*) { return &shown; });
  EXPECT_EQ(herd.GetEntityTabValue(), &shown);
  EXPECT_EQ(herd.GetValueElement(0), &bull);
  EXPECT_EQ(herd.GetValueElement(0, 0), &cow);
  EXPECT_EQ(
      OutputOf([&] {
        g_KV_TraceWarnings = 1;
        herd.ClearValues(0);
        herd.ClearValues();
      }),
      "\n!!! Il n'est pas possible d'attacher un moniteur au descripteur 'herd' de type 'tableau d'entités'"
      "\nlorsque la simulation amène à effacer (par ClearValues) le tableau de valeurs.");
}

enum Answer { Unwatched, Accepting, Changing, Refusing };
Answer gAnswer;
BasicEntity* gOther;  // what a changing monitor brings in, out of the class list

Entities* AnswerTable(MonitorMethod* m) {
  if (gAnswer == Accepting) return m->GetEntityTabArgValue(36);
  delete m->GetEntityTabArgValue(36);
  return gAnswer == Refusing ? m->GetEntityTabArgValue(26) : NewEntities({gOther});
}
BasicEntity* AnswerAddition(MonitorMethod* m) {
  if (gAnswer == Refusing) return m->GetEntityTabArgValue(26)->front();  // which is there already
  return gAnswer == Accepting ? m->GetBasicEntityArgValue(35) : gOther;
}
BasicEntity* AnswerRemoval(MonitorMethod* m) {
  if (gAnswer == Refusing) return nullptr;  // which is not there
  BasicEntity* const candidate = m->GetBasicEntityArgValue(35);
  const Entities& table = *m->GetEntityTabArgValue(26);
  return gAnswer == Accepting || table.front() != candidate ? candidate : table.back();
}
BasicEntity* AnswerEntity(MonitorMethod* m) {
  if (gAnswer == Refusing) return m->GetBasicEntityArgValue(25);
  return gAnswer == Accepting ? m->GetBasicEntityArgValue(35) : gOther;
}

using Herd = EntityTabVariableDescriptor;

/// What the operation leaves of a table of a and b with the list Cow, b being a Bull: "fails", or the names.
void ExpectLeft(const std::string& left, Answer answer, Tableau<BasicEntity*>* cowAndBull,
                const std::function<void(Herd&)>& operation) {
  EntityTabDescValueMonitor watch("watch");
  watch.AssignWhenSetEntityTabMethod(AnswerTable);
  watch.AssignWhenAddEntityMethod(AnswerAddition);
  watch.AssignWhenRemoveEntityMethod(AnswerRemoval);
  Herd herd(20, "herd");
  herd.ValueClassId(COW);
  herd.SetValue(cowAndBull);
  if (answer != Unwatched) watch.AttachToDescriptor(&herd);
  gAnswer = answer;
  if (left == "fails") {
    EXPECT_TRUE(Fails("OutOfEntityDomain", [&] { operation(herd); }));
    return;
  }
  operation(herd);
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), '"' + left + '"');
}

TEST_F(EntityDescriptors, ListLooksAtACandidateAndTheMonitorHasTheLastWord) {
  Thing heifer{ANIMAL, COW};
  heifer.SetInstanceName("c");
  gOther = &farm;
  const std::vector<std::string> allFail(4, "fails");
  const struct {
    const char* name;
    void (*operation)(Herd&, BasicEntity*);
    BasicEntity* inside;
    BasicEntity* outside;
    std::vector<std::string> leftInside;  // by Answer
    std::vector<std::string> leftOutside;
  } rows[] = {
      {"SetValue(t)",
       [](Herd& d, BasicEntity* e) { d.SetValue(NewEntities({e})); },
       &heifer,
       &farm,
       {"c", "c", "f", "a b"},
       allFail},
      {"SetValue(t, 2)",
       [](Herd& d, BasicEntity* e) { d.SetValue(NewEntities({e}), 2); },
       &heifer,
       &farm,
       {"c", "c", "f", "a b"},
       allFail},
      {"SetValue(t, 0)",
       [](Herd& d, BasicEntity* e) { d.SetValue(NewEntities({e}), 0); },
       &heifer,
       &farm,
       {"c", "c", "c", "c"},
       allFail},
      {"SetValueElement(e, 1)",
       [](Herd& d, BasicEntity* e) { d.SetValueElement(e, 1); },
       &heifer,
       &farm,
       {"a c", "a c", "a c", "a c"},
       allFail},
      {"SetValueElement(e, 1, 0)",
       [](Herd& d, BasicEntity* e) { d.SetValueElement(e, 1, 0); },
       &heifer,
       &farm,
       {"a c", "a c", "a c", "a c"},
       allFail},
      {"AddValueElement(e)",
       [](Herd& d, BasicEntity* e) { d.AddValueElement(e); },
       &heifer,
       &farm,
       {"a b c", "a b c", "a b f", "a b"},
       allFail},
      {"AddValueElement(e, 0)",
       [](Herd& d, BasicEntity* e) { d.AddValueElement(e, 0); },
       &heifer,
       &farm,
       {"a b c", "a b c", "a b c", "a b c"},
       allFail},
      {"RemoveValue(e)",
       [](Herd& d, BasicEntity* e) { d.RemoveValue(e); },
       &cow,
       &bull,
       {"b", "b", "a", "a b"},
       {"a", "a", "a", "a b"}},
      {"RemoveValue(e, 0)",
       [](Herd& d, BasicEntity* e) { d.RemoveValue(e, 0); },
       &cow,
       &bull,
       {"b", "b", "b", "b"},
       {"a", "a", "a", "a"}},
  };
  for (const auto& row : rows)
    for (const bool isInside : {true, false})
      for (const Answer answer : {Unwatched, Accepting, Changing, Refusing}) {
        SCOPED_TRACE(testing::Message() << row.name << " " << isInside << " " << answer);
        ExpectLeft((isInside ? row.leftInside : row.leftOutside)[answer], answer, NewEntities({&cow, &bull}),
                   [&](Herd& herd) { row.operation(herd, isInside ? row.inside : row.outside); });
      }
}

// A single entity is held against the list after the monitor, and past it before.
TEST_F(EntityDescriptors, ListLooksAtWhatTheMonitorMakesOfAnEntity) {
  Thing heifer{ANIMAL, COW};
  Thing other{ANIMAL, COW};
  gOther = &other;
  const struct {
    int withMonitor;
    BasicEntity* candidate;
    std::vector<BasicEntity*> left;  // by Answer; the farm stands for a failure
  } rows[] = {
      {1, &heifer, {&heifer, &heifer, &other, &cow}},
      {1, &farm, {&farm, &farm, &other, &cow}},
      {0, &heifer, {&heifer, &heifer, &heifer, &heifer}},
      {0, &farm, {&farm, &farm, &farm, &farm}},
  };
  for (const auto& row : rows)
    for (const Answer answer : {Unwatched, Accepting, Changing, Refusing}) {
      EntityDescValueMonitor watch("watch");
      watch.AssignWhenSetEntityMethod(AnswerEntity);
      EntityVariableDescriptor mother(20, "mother");
      mother.ValueClassId(COW);
      mother.SetValue(&cow);
      if (answer != Unwatched) watch.AttachToDescriptor(&mother);
      gAnswer = answer;
      const auto set = [&] { mother.SetValue(row.candidate, row.withMonitor); };
      SCOPED_TRACE(testing::Message() << row.withMonitor << " " << row.candidate << " " << answer);
      if (row.left[answer] == &farm) {
        EXPECT_TRUE(Fails("OutOfEntityDomain", set));
        continue;
      }
      set();
      EXPECT_EQ(mother.GetEntityValue(), row.left[answer]);
    }
}

TEST_F(EntityDescriptors, RanksOutOfTheTableAreIndexFailures) {
  EntityTabConstantDescriptor constant(true, 10);
  constant.AddValueElement(&cow);
  EntityTabVariableDescriptor variable;
  const struct {
    std::function<void()> call;
    const char* where;
  } rows[] = {
      {[&] { constant.GetValueElement(1); }, "EntityTabConstantDescriptor::GetValueElement"},
      {[&] { constant.SetValueElement(&cow, -1); }, "EntityTabConstantDescriptor::SetValueElement"},
      {[&] { variable.GetValueElement(0); }, "EntityTabVariableDescriptor::GetValueElement"},
      {[&] { variable.SetValueElement(&cow, 0); }, "EntityTabVariableDescriptor::SetValueElement"},
  };
  for (const auto& row : rows) {
    const ChildOutcome outcome = RunInChild(row.call);
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_NE(outcome.output.find(row.where), std::string::npos) << outcome.output;
  }
}

TEST_F(EntityDescriptors, DefaultsCopiesAndAssignmentsOfTablesDieOnce) {
  EntityTabConstantDescriptor herd;
  EXPECT_EQ(herd.GetEntityTabValue()->size(), 0);
  herd.SetDefaultValue(NewEntities({&cow}));
  herd.SetToDefaultValue();
  herd.AddValueElement(&bull);
  EXPECT_EQ(herd.GetDefaultValue()->size(), 1);
  herd.SetDefaultValue(herd.GetEntityTabValue());  // one table for both
  herd.SetToDefaultValue(NewEntities({&farm}));
  EXPECT_NE(herd.GetEntityTabValue(), herd.GetDefaultValue());
  EntityTabConstantDescriptor shared;
  {
    EntityTabConstantDescriptor copy(herd);
    copy.AddValueElement(&cow);
    EXPECT_EQ(&(shared = copy), &copy);
    EXPECT_EQ(shared.GetEntityTabValue(), copy.GetEntityTabValue());
  }
  EXPECT_EQ(RecordedNames(shared.GetEntityTabValue()), "\"f a\"");
  EXPECT_EQ(RecordedNames(herd.GetEntityTabValue()), "\"f\"");
}

// Value specifications and entity specifications -----------------------------------------------------------

TEST_F(EntityDescriptors, TableOfSpecificationsIsOwnedAndReplacedOnesGoBack) {
  DescIntValueSpec first(1, IN, 3);
  DescStringValueSpec second(2, IN, "x");
  DescValueSpecTabVariableDescriptor conditions(20, "conditions");
  EXPECT_EQ(conditions.GetDescValueSpecTabValue(), nullptr);
  conditions.ClearValues();
  conditions.RemoveValue(&first);
  conditions.AddValueElement(&first);
  conditions.AddValueElement(&first);
  conditions.AddValueElement(&second, 0);
  Tableau<DescValueSpec*>* made = conditions.GetDescValueSpecTabValue();
  EXPECT_EQ(made->size(), 2);
  conditions.SetValue(made);
  conditions.SetValue(new Tableau<DescValueSpec*>(*made));
  delete made;
  DescValueSpecTabVariableDescriptor copy(conditions);
  copy.RemoveValue(&second);
  EXPECT_EQ(conditions.GetDescValueSpecTabValue()->size(), 2);

  static DescValueSpec* answer;
  answer = &second;
  DescValueSpecTabDescValueMonitor watch("watch");
  watch.AssignWhenAddDescValueSpecMethod([](MonitorMethod*) { return answer; });
  watch.AssignWhenRemoveDescValueSpecMethod([](MonitorMethod* m) { return m->GetDescValueSpecArgValue(37); });
  watch.AssignWhenSetDescValueSpecTabMethod(
      [](MonitorMethod* m) { return m->GetDescValueSpecTabArgValue(27); });
  watch.AttachToDescriptor(&copy);
  copy.AddValueElement(&first);
  EXPECT_EQ(copy.GetDescValueSpecTabValue()->position(&second), 1);
  copy.RemoveValue(&first);
  EXPECT_EQ(copy.GetDescValueSpecTabValue()->size(), 1);
  Tableau<DescValueSpec*> refused;
  copy.SetValue(&refused);
  EXPECT_EQ(copy.GetDescValueSpecTabValue()->size(), 1);
  EXPECT_NE(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              copy.ClearValues();
            }).find("tableau de spécifications de valeurs"),
            std::string::npos);
}

TEST_F(EntityDescriptors, EntitySpecificationIsAPlainPointer) {
  auto* spec = reinterpret_cast<EntitySpec*>(&cow);
  EntitySpecVariableDescriptor choice(20, "choice");
  EXPECT_EQ(choice.GetEntitySpecValue(), nullptr);
  choice.SetDefaultValue(spec);
  choice.SetToDefaultValue();
  const EntitySpecVariableDescriptor copy(choice);
  choice.SetToDefaultValue(nullptr);
  EXPECT_EQ(choice.GetEntitySpecValue(), nullptr);
  EXPECT_EQ(copy.GetEntitySpecValue(), spec);
}

}  // namespace
