// The methods of an entity: families by type, strict and quiet lookups, copies, failures.
#include <functional>

#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"
#include "tests/model/ModelTest.h"

namespace {

// Ids by the type that the method answers; the ids between are free.
constexpr int firstId = 70;
constexpr int IdOf(ValueTypeId type) { return firstId + 2 * type; }

Tableau<BasicEntity*> entityTab;
Tableau<int> intTab;
Tableau<float> floatTab;

class EntityMethodsTest : public ModelTest {
 protected:
  EntityMethodsTest() {
    entity->AddMethod(new VoidEntityMethod(IdOf(VOID), "void"));
    entity->AddMethod(new EntityPredicate(IdOf(BOOLEAN), "boolean"));
    entity->AddMethod(new IntEntityMethod(IdOf(INT), "int"));
    entity->AddMethod(new FloatEntityMethod(IdOf(FLOAT), "float"));
    entity->AddMethod(new DoubleEntityMethod(IdOf(DOUBLE), "double"));
    entity->AddMethod(new StringEntityMethod(IdOf(STRING), "string"));
    entity->AddMethod(new EntityEntityMethod(IdOf(P_ENTITY), "entity"));
    entity->AddMethod(new EntityTabEntityMethod(IdOf(ENTITY_TAB), "entityTab"));
    entity->AddMethod(ints);
    entity->AddMethod(floats);
  }

  void AssignAllBodies() {
    entity->AssignBody(IdOf(VOID), [](EntityMethod* m) { m->DescribedEntity()->SetInstanceName("touched"); });
    entity->AssignBody(IdOf(BOOLEAN), [](EntityMethod*) { return true; });
    entity->AssignBody(IdOf(INT), [](EntityMethod* m) { return m->DescribedEntity()->InstanceNumber(); });
    entity->AssignBody(IdOf(FLOAT), [](EntityMethod*) { return 0.5F; });
    entity->AssignBody(IdOf(DOUBLE), [](EntityMethod*) { return 0.25; });
    entity->AssignBody(IdOf(STRING), [](EntityMethod*) { return "text"; });
    entity->AssignBody(IdOf(P_ENTITY), [](EntityMethod* m) -> BasicEntity* { return m->DescribedEntity(); });
    entity->AssignBody(IdOf(ENTITY_TAB), [](EntityMethod*) { return &entityTab; });
    ints->AssignBody([](EntityMethod*) { return &intTab; });
    floats->AssignBody([](EntityMethod*) { return &floatTab; });
  }

  Thing* const entity = NewCow();
  IntTabEntityMethod* const ints = new IntTabEntityMethod(IdOf(INT_TAB), "intTab");
  FloatTabEntityMethod* const floats = new FloatTabEntityMethod(IdOf(FLOAT_TAB), "floatTab");
};

TEST_F(EntityMethodsTest, ExecutionAnswersWhatTheBodyAnswers) {
  EXPECT_EQ(entity->ExecIntMethod(IdOf(INT)), 0);
  EXPECT_EQ(entity->ExecStringMethod(IdOf(STRING)), nullptr);
  AssignAllBodies();
  entity->ExecVoidMethod(IdOf(VOID));
  EXPECT_STREQ(entity->InstanceName(), "touched");
  EXPECT_TRUE(entity->ExecPredicate(IdOf(BOOLEAN)));
  EXPECT_EQ(entity->ExecIntMethod(IdOf(INT)), 1);
  EXPECT_EQ(entity->ExecFloatMethod(IdOf(FLOAT)), 0.5F);
  EXPECT_EQ(entity->ExecDoubleMethod(IdOf(DOUBLE)), 0.25);
  EXPECT_STREQ(entity->ExecStringMethod(IdOf(STRING)), "text");
  EXPECT_EQ(entity->ExecEntityMethod(IdOf(P_ENTITY)), entity);
  EXPECT_EQ(entity->ExecEntityTabMethod(IdOf(ENTITY_TAB)), &entityTab);
  EXPECT_EQ(entity->ExecIntTabMethod(IdOf(INT_TAB)), &intTab);
  EXPECT_EQ(entity->ExecFloatTabMethod(IdOf(FLOAT_TAB)), &floatTab);
}

TEST_F(EntityMethodsTest, AnotherTypeEndsTheRun) {
  struct Row {
    const char* words;
    ValueTypeId type;
    std::function<void(Entity*, int)> call;
  };
  const std::vector<Row> rows = {
      {"assign void body", VOID, [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) {}); }},
      {"assign boolean body", BOOLEAN,
       [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) { return true; }); }},
      {"assign int body", INT, [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) { return 1; }); }},
      {"assign float body", FLOAT,
       [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) { return 1.0F; }); }},
      {"assign double body", DOUBLE,
       [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) { return 1.0; }); }},
      {"assign string body", STRING,
       [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) { return ""; }); }},
      {"assign entity body", P_ENTITY,
       [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) -> BasicEntity* { return nullptr; }); }},
      {"assign entity tab body", ENTITY_TAB,
       [](Entity* e, int id) { e->AssignBody(id, [](EntityMethod*) { return &entityTab; }); }},
      {"exec void method", VOID, &Entity::ExecVoidMethod},
      {"exec predicate", BOOLEAN, &Entity::ExecPredicate},
      {"exec int method", INT, &Entity::ExecIntMethod},
      {"exec float method", FLOAT, &Entity::ExecFloatMethod},
      {"exec double method", DOUBLE, &Entity::ExecDoubleMethod},
      {"exec string method", STRING, &Entity::ExecStringMethod},
      {"exec entity method", P_ENTITY, &Entity::ExecEntityMethod},
      {"exec entityTab method", ENTITY_TAB, &Entity::ExecEntityTabMethod},
      {"exec intTab method", INT_TAB, &Entity::ExecIntTabMethod},
      {"exec floatTab method", FLOAT_TAB, &Entity::ExecFloatTabMethod},
  };
  for (const Row& row : rows) {
    const ValueTypeId other = row.type == INT ? FLOAT : INT;
    EXPECT_EQ(OutputOf([&] { row.call(entity, IdOf(row.type)); }), "");
    EXPECT_EQ(FailureOf([&] { row.call(entity, IdOf(other)); }),
              Text("\n!!!============== BadMethodValueType =============="
                   "\n!!! L'opération '%s' ne respecte pas le type de valeur de la méthode '%s'"
                   "\n    sur l'entité 'Cow_1' de classe 'Cow'.\n",
                   row.words, entity->GetMethod(IdOf(other))->StoredClassName()));
  }
}

TEST_F(EntityMethodsTest, ArgumentsAreWrittenByMethodAndId) {
  auto* const method = new IntEntityMethod(60, "sum");
  entity->AddMethod(method);
  method->AddArg(new IntArgument(61, "int"));
  method->AddArg(new FloatArgument(62, "float"));
  method->AddArg(new DoubleArgument(63, "double"));
  method->AddArg(new EntityArgument(64, "entity"));
  method->AddArg(new EntityTabArgument(65, "entityTab"));
  method->AddArg(new StringArgument(66, "string"));
  method->AddArg(new IntTabArgument(67, "intTab"));
  method->AddArg(new FloatTabArgument(68, "floatTab"));
  method->AddArg(new DoubleTabArgument(69, "doubleTab"));
  entity->SetIntArgValue(60, 61, 4);
  entity->SetFloatArgValue(60, 62, 0.5F);
  entity->SetDoubleArgValue(60, 63, 0.25);
  entity->SetEntityArgValue(60, 64, entity);
  entity->SetEntityTabArgValue(60, 65, &entityTab);
  entity->SetStringArgValue(60, 66, "text");
  entity->SetIntTabArgValue(60, 67, new Tableau<int>());
  entity->SetFloatTabArgValue(60, 68, new Tableau<float>());
  auto* const doubles = new Tableau<double>();
  entity->SetDoubleTabArgValue(60, 69, doubles);
  EXPECT_EQ(method->GetIntArgValue(61), 4);
  EXPECT_EQ(method->GetFloatArgValue(62), 0.5F);
  EXPECT_EQ(method->GetDoubleArgValue(63), 0.25);
  EXPECT_EQ(method->GetEntityArgValue(64), entity);
  EXPECT_EQ(method->GetEntityTabArgValue(65), &entityTab);
  EXPECT_STREQ(method->GetStringArgValue(66), "text");
  EXPECT_NE(method->GetIntTabArgValue(67), nullptr);
  EXPECT_NE(method->GetFloatTabArgValue(68), nullptr);
  EXPECT_EQ(method->GetDoubleTabArgValue(69), doubles);
}

TEST_F(EntityMethodsTest, QuietLookupsTakeAMethodAsOptional) {
  const int unused = IdOf(INT) + 1;
  AssignAllBodies();
  EXPECT_TRUE(entity->HasBody(IdOf(INT)));
  EXPECT_EQ(entity->GetMethodWithBody(IdOf(INT)), entity->GetMethod("int"));
  EXPECT_FALSE(entity->HasBody(unused));
  EXPECT_EQ(entity->GetMethodWithBody(unused), nullptr);
  entity->AssignBody(IdOf(INT), static_cast<int (*)(EntityMethod*)>(nullptr));
  EXPECT_FALSE(entity->HasBody(IdOf(INT)));
  EXPECT_EQ(entity->GetMethodWithBody(IdOf(INT)), nullptr);
}

TEST_F(EntityMethodsTest, AnIdBeyondTheTableIsAnIndexFailureEverywhere) {
  const int beyond = IdOf(FLOAT_TAB) + 1;
  const std::vector<std::pair<const char*, std::function<void(int)>>> lookups = {
      {"Entity::GetMethod", [&](int id) { entity->GetMethod(id); }},
      {"Entity::GetMethod", [&](int id) { entity->ExecVoidMethod(id); }},
      {"Entity::GetMethod", [&](int id) { entity->SetIntArgValue(id, 1, 1); }},
      {"Entity::HasBody", [&](int id) { entity->HasBody(id); }},
      {"Entity::GetMethodWithBody", [&](int id) { entity->GetMethodWithBody(id); }},
  };
  for (const auto& lookup : lookups)
    for (const int id : {beyond, -9})
      EXPECT_EQ(RunInChild([&, id] { lookup.second(id); }).output,
                RunInChild([&, id] { FailOnIndex(lookup.first, beyond, id); }).output);
}

TEST_F(EntityMethodsTest, AMissingMethodEndsTheRun) {
  EXPECT_EQ(FailureOf([&] { entity->ExecIntMethod(IdOf(INT) + 1); }),
            "\n!!!============== InexistantMethod =============="
            "\n!!! Tentative d'accès à une méthode de classe 75"
            "\n    sur l'entité 'Cow_1' de classe 'Cow'."
            "\n!!! Une telle méthode n'existe pas pour cette classe.\n");
  EXPECT_NE(FailureOf([&] { entity->GetMethod("milk"); }).find("de classe inconnue"), std::string::npos);
  EXPECT_NE(FailureOf([&] { entity->AddMethod(new VoidProcessMethod(60, "go")); }).find("'go'"),
            std::string::npos);
  EXPECT_EQ(RunInChild([&] { entity->AddMethod(new VoidEntityMethod()); }).output,
            RunInChild([] { FailOnIndex("Entity::AddMethod", IdOf(FLOAT_TAB) + 1, -9); }).output);
}

TEST_F(EntityMethodsTest, ALaterMethodHidesTheEarlierOfItsId) {
  auto* const later = new IntEntityMethod(IdOf(INT), "int");
  Method* const first = entity->GetMethod("int");
  entity->AddMethod(later);
  EXPECT_EQ(entity->GetMethod(IdOf(INT)), later);
  EXPECT_EQ(entity->GetMethod("int"), first);
  entity->AddMethod(first);
  EXPECT_EQ(entity->MethodTab().size(), 11);
  EXPECT_EQ(entity->GetMethod(IdOf(INT)), later);  // the last rank, whichever came again
}

TEST_F(EntityMethodsTest, ACopyHasMethodsOfItsOwnWithoutThoseOfNumberTables) {
  AssignAllBodies();
  const int constructions = Method::getNbConst();
  const int destructions = Method::getNbDest();
  auto* const copy = new Entity(*entity);
  EXPECT_EQ(Method::getNbConst() - constructions, 8);
  EXPECT_EQ(copy->MethodTab().size(), 8);
  EXPECT_EQ(copy->ExecIntMethod(IdOf(INT)), copy->InstanceNumber());
  EXPECT_EQ(copy->ExecEntityMethod(IdOf(P_ENTITY)), copy);
  EXPECT_NE(
      FailureOf([&] { copy->AssignBody(IdOf(INT) + 1, [](EntityMethod*) {}); }).find("InexistantMethod"),
      std::string::npos);
  EXPECT_EQ(RunInChild([&] { copy->ExecIntTabMethod(IdOf(INT_TAB)); }).output,
            RunInChild([] { FailOnIndex("Entity::GetMethod", IdOf(ENTITY_TAB) + 1, IdOf(INT_TAB)); }).output);
  for (Entity* const other :
       {new Entity(*entity, 1), new Entity(*entity, true), new Entity(*entity, false, 0)}) {
    EXPECT_TRUE(other->ExecPredicate(IdOf(BOOLEAN)));
    DeleteEntity(other);
  }
  DeleteEntity(copy);
  EXPECT_EQ(Method::getNbDest() - destructions, 4 * 8);
}

}  // namespace
