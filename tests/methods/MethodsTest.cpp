// The leaves against a table of what each is; arguments of methods; bodies.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/MethodTable.h"
#include "tests/methods/Arguments.h"
#include "tests/support/ChildProcess.h"

namespace {

const std::set<int> plain = {2, 3, 4, 5, 6, 18};
const std::set<int> monitor = {2, 3, 4, 5, 6, 7};
const std::set<int> spec = {2, 6};

struct LeafRow {
  const char* name;
  int objectClass;
  int classType;
  std::set<int> accepted;
  std::function<Method*()> make;
  std::function<void(Method&, const Method&)> assign;
  ValueTypeSet accepts;
};

template <class Leaf>
LeafRow Row(const char* name, int objectClass, int classType, const std::set<int>& accepted) {
  return {name,
          objectClass,
          classType,
          accepted,
          [] { return new Leaf(70, "leaf"); },
          [](Method& target, const Method& source) {
            EXPECT_EQ(&(static_cast<Leaf&>(target) = static_cast<const Leaf&>(source)), &source);
          },
          Leaf::accepted};
}

const LeafRow leaves[] = {
    Row<VoidEntityMethod>("VoidEntityMethod", 2, 0, plain),
    Row<EntityPredicate>("EntityPredicate", 2, 1, plain),
    Row<IntEntityMethod>("IntEntityMethod", 2, 2, plain),
    Row<FloatEntityMethod>("FloatEntityMethod", 2, 3, plain),
    Row<DoubleEntityMethod>("DoubleEntityMethod", 2, 4, plain),
    Row<StringEntityMethod>("StringEntityMethod", 2, 5, plain),
    Row<EntityEntityMethod>("EntityEntityMethod", 2, 6, plain),
    Row<EntityTabEntityMethod>("EntityTabEntityMethod", 2, 7, plain),
    Row<IntTabEntityMethod>("IntTabEntityMethod", 2, 15, {2, 15}),
    Row<FloatTabEntityMethod>("FloatTabEntityMethod", 2, 16, {2, 16}),
    Row<DoubleTabEntityMethod>("DoubleTabEntityMethod", 2, 17, {2, 17}),
    Row<VoidProcessMethod>("VoidProcessMethod", 6, 0, plain),
    Row<IntProcessMethod>("IntProcessMethod", 6, 2, plain),
    Row<FloatProcessMethod>("FloatProcessMethod", 6, 3, plain),
    Row<DoubleProcessMethod>("DoubleProcessMethod", 6, 4, plain),
    Row<VoidEventMethod>("VoidEventMethod", 4, 0, plain),
    Row<EventPredicate>("EventPredicate", 4, 1, plain),
    Row<IntEventMethod>("IntEventMethod", 4, 2, plain),
    Row<VoidMonitorMethod>("VoidMonitorMethod", 5, 0, monitor),
    Row<IntMonitorMethod>("IntMonitorMethod", 5, 2, monitor),
    Row<FloatMonitorMethod>("FloatMonitorMethod", 5, 3, monitor),
    Row<DoubleMonitorMethod>("DoubleMonitorMethod", 5, 4, monitor),
    Row<StringMonitorMethod>("StringMonitorMethod", 5, 5, monitor),
    Row<EntityMonitorMethod>("EntityMonitorMethod", 5, 6, monitor),
    Row<EntityTabMonitorMethod>("EntityTabMonitorMethod", 5, 7, monitor),
    Row<DescValueSpecMonitorMethod>("DescValueSpecMonitorMethod", 5, 12, {12, 13}),
    Row<DescValueSpecTabMonitorMethod>("DescValueSpecTabMonitorMethod", 5, 13, {2, 3, 4, 5, 6, 7, 12, 13}),
    Row<EntitySpecPredicate>("EntitySpecPredicate", 3, 1, spec),
    Row<IntEntitySpecMethod>("IntEntitySpecMethod", 3, 2, spec),
    Row<EntityEntitySpecMethod>("EntityEntitySpecMethod", 3, 6, spec),
    Row<EntityTabEntitySpecMethod>("EntityTabEntitySpecMethod", 3, 7, spec),
};

struct MethodDeleter {
  void operator()(Method* method) const { DestroyMethod(method); }
};
using Owned = std::unique_ptr<Method, MethodDeleter>;

constexpr ValueTypeSet everyType = {
    VOID,       BOOLEAN,         INT,     FLOAT,     DOUBLE,     STRING,           P_ENTITY,
    ENTITY_TAB, P_DESCVALUESPEC, INT_TAB, FLOAT_TAB, DOUBLE_TAB, DESCVALUESPEC_TAB};

TEST(MethodLeaf, HasItsTagsAndSurvivesCopying) {
  for (const LeafRow& row : leaves) {
    const Owned method(row.make());
    EXPECT_EQ(method->ObjectClass(), row.objectClass) << row.name;
    EXPECT_EQ(method->ClassType(), row.classType) << row.name;
    EXPECT_FALSE(method->HasBodyAssigned()) << row.name;
    const Owned copy(NewMethodCopy(*method, everyType));
    ASSERT_NE(copy, nullptr) << row.name;
    EXPECT_EQ(copy->ObjectClass(), row.objectClass) << row.name;
    EXPECT_EQ(copy->ClassType(), row.classType) << row.name;
    EXPECT_EQ(copy->ClassSymbol(), 70) << row.name;
    EXPECT_EQ(copy->StoredClassName(), method->StoredClassName()) << row.name;
  }
}

TEST(MethodLeaf, AssignsTheArgumentTypesOfItsRow) {
  for (const LeafRow& row : leaves) {
    ForEachArgumentClass([&]<class Class>() {
      const bool accepted = row.accepted.count(Class::type) != 0;
      EXPECT_EQ(row.accepts.Has(Class::type), accepted) << row.name << " " << Class::type;
      if (!accepted) return;
      const Owned target(row.make());
      const Owned source(row.make());
      target->AddArg(new Class(1, "kept"));
      source->AddArg(new Class(2, "given"));
      row.assign(*target, *source);
      EXPECT_STREQ(target->GetArg(1)->ClassName(), "kept");
    });
  }
}

TEST(MethodLeaf, RefusesOtherArgumentTypesInItsName) {
  for (const LeafRow& row : leaves) {
    const Owned target(row.make());
    const Owned source(row.make());
    for (Method* method : {target.get(), source.get()})
      method->AddArg(new DescriptorArgument(14, "monitoredDescriptorArgument"));
    EXPECT_EQ(
        FailureOf([&] { row.assign(*target, *source); }),
        std::string("\n!!!============== UnsupportedArgumentType ==============") +
            "\n!!! Assignation d'une méthode '" + row.name +
            "' :\n    le type de valeur (P_DESCRIPTOR) de l'argument 'monitoredDescriptorArgument' n'est "
            "pas géré pour cette méthode.\n");
  }
}

TEST(Method, AssignmentMovesValuesAndBodyButNoIdentity) {
  IntEventMethod target(80, "target");
  IntEventMethod source(81, "source");
  for (IntEventMethod* method : {&target, &source}) {
    method->AddArg(new IntArgument(method->ClassSymbol(), "first"));
    method->AddArg(new StringArgument(3, "second"));
  }
  source.SetArgValue(81, 12);
  source.SetArgValue(3, "fauche");
  source.AssignBody([](EventMethod*) { return 4; });
  target = source;
  EXPECT_EQ(target.GetIntArgValue(80), 12);
  EXPECT_STREQ(target.GetStringArgValue(3), "fauche");
  EXPECT_NE(target.GetStringArgValue(3), source.GetStringArgValue(3));
  EXPECT_EQ(target.Call<int>(), 4);
  EXPECT_EQ(target.ClassSymbol(), 80);
  EXPECT_STREQ(target.StoredClassName(), "target");
}

TEST(Method, AssignmentNeedsTheSameArgumentsAtTheSameRanks) {
  IntEventMethod target(80, "target");
  IntEventMethod source(81, "source");
  source.AddArg(new IntArgument(1, "first"));
  EXPECT_NE(RunInChild([&] {
              target = source;
            }).output.find("Indice hors tableau dans 'IntEventMethod' : indice 0, taille du tableau 0."),
            std::string::npos);
  target.AddArg(new FloatArgument(1, "first"));
  EXPECT_NE(FailureOf([&] { target = source; }).find("UnsupportedArgumentType"), std::string::npos);
}

TEST(Method, CopyLacksNumberTablesAndKeepsTheRest) {
  const int born = Argument::getNbConst() - Argument::getNbDest();
  {
    VoidEntityMethod method(70, "method");
    int id = 0;
    ForEachArgumentClass([&]<class Class>() { method.AddArg(new Class(++id, "argument")); });
    method.SetArgValue(4, "herbe");
    method.SetArgValue(10, new Tableau<int>);
    const auto entity = reinterpret_cast<Entity*>(&method);
    method.DescribedEntity(entity);
    VoidEntityMethod copy(method);
    std::string types;
    for (const Argument* argument : copy.ArgumentTab()) types += std::to_string(argument->ClassType()) + " ";
    EXPECT_EQ(types, "2 3 4 5 6 7 9 12 13 18 19 ");
    EXPECT_STREQ(copy.GetStringArgValue(4), "herbe");
    EXPECT_EQ(copy.DescribedEntity(), entity);
    EXPECT_NE(FailureOf([&] { copy.GetArg(10); }).find("InexistantArgument"), std::string::npos);
  }
  EXPECT_EQ(Argument::getNbConst() - Argument::getNbDest(), born);
}

TEST(Method, ReportsMissingArgumentsByNameAndIndex) {
  MakeMethodIdToCharTab();
  MakeArgumentIdToCharTab();
  VoidMonitorMethod method(45, "whenAdd");
  method.AddArg(new IntArgument(43, "argument"));
  EXPECT_EQ(FailureOf([&] { method.GetArg(40); }),
            "\n!!!============== InexistantArgument =============="
            "\n!!! Tentative d'accès à un argument de classe : CURRENTENTITYCONTAINER_ARGUMENT"
            "\n    sur la méthode 'whenAdd' de classe : WHEN_ADD_ELEMENT"
            "\n!!! Un tel argument n'existe pas pour cette méthode.\n");
  for (int id : {44, -1}) {
    const ChildOutcome outcome = RunInChild([&] { method.GetArg(id); });
    EXPECT_EQ(outcome.output, "\n!!! Indice hors tableau dans 'Method::GetArg' : indice " +
                                  std::to_string(id) + ", taille du tableau 44.\nERROR \n");
    EXPECT_EQ(outcome.exitStatus, 0);
  }
}

struct WordsRow {
  ValueTypeId type;
  std::function<void(Method&)> set;
  const char* setWords;
  std::function<void(Method&)> get;
  const char* getWords;
};

template <class T>
std::function<void(Method&)> Set(T value) {
  return [value](Method& method) { method.SetArgValue(100, value); };
}
template <class T>
std::function<void(Method&)> Get(T (Method::*getter)(int)) {
  return [getter](Method& method) { (method.*getter)(100); };
}

const WordsRow words[] = {
    {INT, Set(1), "set arg value int", Get(&Method::GetIntArgValue), "get arg value int"},
    {FLOAT, Set(1.0F), "set arg value float", Get(&Method::GetFloatArgValue), "get arg value float"},
    {DOUBLE, Set(1.0), "set arg value double", Get(&Method::GetDoubleArgValue), "get arg value double"},
    {STRING, Set("a"), "set arg value string", Get(&Method::GetStringArgValue), "get arg value string"},
    {P_ENTITY, Set<BasicEntity*>(nullptr), "set arg value entity", Get(&Method::GetBasicEntityArgValue),
     "get arg value entity"},
    {ENTITY_TAB, Set<Tableau<BasicEntity*>*>(nullptr), "set arg value entitytab",
     Get(&Method::GetEntityTabArgValue), "get arg value entitytab"},
    {INTDOMAIN, Set<Tableau<IntInterval*>*>(nullptr), "set arg value int domain",
     Get(&Method::GetIntDomainArgValue), "get arg value int domain"},
    {P_DESCVALUESPEC, Set<DescValueSpec*>(nullptr), "set arg value DescValueSpec",
     Get(&Method::GetDescValueSpecArgValue), "get arg value DVS"},
    {DESCVALUESPEC_TAB, Set<Tableau<DescValueSpec*>*>(nullptr), "set arg value DescValueSpectab",
     Get(&Method::GetDescValueSpecTabArgValue), "get arg value DVSTab"},
    {INT_TAB, Set<Tableau<int>*>(nullptr), "set arg value intTab", Get(&Method::GetIntTabArgValue),
     "get arg value IntTab"},
    {FLOAT_TAB, Set<Tableau<float>*>(nullptr), "set arg value floatTab", Get(&Method::GetFloatTabArgValue),
     "get arg value FloatTab"},
    {DOUBLE_TAB, Set<Tableau<double>*>(nullptr), "set arg value doubleTab",
     Get(&Method::GetDoubleTabArgValue), "get arg value DoubleTab"},
    {P_EVENT, Set<Event*>(nullptr), "set arg value event", Get(&Method::GetEventArgValue),
     "get arg value event"},
    {P_DESCRIPTOR, Set<Descriptor*>(nullptr), "set arg value descriptor", Get(&Method::GetDescriptorArgValue),
     "get arg value descriptor"},
};

TEST(Method, TellsTheOperationOnAnArgumentOfAnotherType) {
  for (const WordsRow& row : words) {
    VoidEntityMethod right(300, "right");
    right.AddArg(NewArgument(row.type, 100));
    row.set(right);
    row.get(right);
    VoidEntityMethod wrong(300, "wrong");
    wrong.AddArg(NewArgument(row.type == INT ? FLOAT : INT, 100));
    const std::string start =
        "\n!!!============== BadArgumentType =============="
        "\n!!! Le type de valeur de l'argument de classe : 100\n    de la méthode de classe : 300"
        "\n    ne convient pas à l'opération '";
    EXPECT_EQ(FailureOf([&] { row.set(wrong); }), start + row.setWords + "'.\n");
    EXPECT_EQ(FailureOf([&] { row.get(wrong); }), start + row.getWords + "'.\n");
  }
}

TEST(Method, ArgumentsKeepTheirValuesBetweenCalls) {
  IntEntityMethod sum(70, "sum");
  sum.AddArg(new IntArgument(61, "a"));
  sum.AddArg(new IntArgument(62, "b"));
  sum.AssignBody([](EntityMethod* m) { return m->GetIntArgValue(61) + m->GetIntArgValue(62); });
  sum.SetArgValue(61, 3);
  sum.SetArgValue(62, 4);
  EXPECT_EQ(sum.Call<int>(), 7);
  sum.SetArgValue(62, 10);
  EXPECT_EQ(sum.Call<int>(), 13);
}

TEST(Method, BodyMayBeMissingTakenAwayOrOfAnotherResult) {
  VoidMonitorMethod method(49, "whenRemoveElement");
  EXPECT_EQ(method.Call<BasicEntity*>(), nullptr);
  static BasicEntity* const answer = reinterpret_cast<BasicEntity*>(&method);
  method.SetBody<BasicEntity*>([](MonitorMethod*) { return answer; });
  EXPECT_TRUE(method.HasBodyAssigned());
  EXPECT_EQ(VoidMonitorMethod(method).Call<BasicEntity*>(), answer);
  method.AssignBody(nullptr);
  EXPECT_FALSE(method.HasBodyAssigned());
  method.Call<void>();
}

TEST(Method, NameIsHandedOutAsANewText) {
  const IntEntityMethod method(70, "weight");
  char* name = method.ClassName();
  EXPECT_STREQ(name, "weight");
  EXPECT_NE(name, method.StoredClassName());
  std::free(name);
}

}  // namespace
