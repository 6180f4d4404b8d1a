// The interpreter of the actions of a structure file.
#include "kalve/inputs/ParserSpec.h"

#include <cstdio>
#include <string>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/methods/Method.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/specs/EntitySpec.h"
#include "tests/model/ModelTest.h"
#include "tests/support/AllValues.h"

namespace {

using Action = ExternEntityIteratedActionSpec;
using Loop = ExternEntityIterationSpec;

class ParserSpecTest : public ModelTest {
 protected:
  ParserSpecTest() {
    gErrorString[0] = '\0';
    Assign_App_NewEntityFromStringFunction([](const char* name) -> Entity* {
      const std::string className = name;
      if (className == "Cow") return NewCow();
      if (className == "Herd") return NewHerd();
      if (className == "Farm") return NewFarm();
      if (className == "Udder") return NewUdder();
      if (className == "Bull") {
        Thing* const bull = NewBull();
        AddAllValues(*bull);
        return bull;
      }
      return nullptr;
    });
  }
  ~ParserSpecTest() override {
    Assign_App_NewEntityFromStringFunction(nullptr);
    g_KV_TraceParsingS = 0;
  }

  enum Naming : bool { PLAIN, ITERATED };
  static Action* New(Action::Kind kind, const char* className, const char* name, Naming naming = PLAIN) {
    auto* addition = new ExternEntityAdditionSpec;
    addition->mKind = kind;
    addition->SetClassName(className);
    addition->SetInstanceName(name);
    addition->mIsIteratedName = naming == ITERATED;
    return addition;
  }
  static Action* End() {
    auto* end = new ExternEndEntityAdditionSpec;
    end->mKind = Action::END_ENTITY;
    return end;
  }
  static ExternEntityDescAffectationSpec* Assign(const char* descriptor, int type) {
    auto* affectation = new ExternEntityDescAffectationSpec;
    affectation->mKind = Action::ASSIGN_VALUE;
    affectation->mValueType = type;
    affectation->SetDescriptorName(descriptor);
    affectation->mIntValue = 12;
    affectation->mIntHighValue = 15;
    affectation->mDoubleValue = 7.75;
    affectation->SetStringValue("Bob");
    affectation->mEntityClassName = "Cow";
    return affectation;
  }
  static void Fill(Loop& loop, std::initializer_list<Action*> actions) {
    for (Action* action : actions) loop.addAction(action);
  }
  static Loop* NewLoop(int level, int rank, int first, int last, std::initializer_list<Action*> actions) {
    auto* loop = new Loop(level, rank, first, last);
    Fill(*loop, actions);
    return loop;
  }
  void Run(Loop& loop) { loop.execActionList(&containers, &iterators); }
  static std::string NamesOf(int classId) { return Names(*GetEntityList(classId)); }
  /// As DisplayContainerEntityList shows one.
  static std::string Shown(int number, const char* className, const Entity* entity) {
    char line[80];
    std::snprintf(line, sizeof line, "\t%d : %s (%x)\n", number, className, Address32(entity));
    return line;
  }

  static std::string WithoutAddresses(std::string text) {
    for (std::size_t at = 0; (at = text.find('(', at)) != std::string::npos; ++at) {
      const std::size_t end = text.find_first_not_of("0123456789abcdef", at + 1);
      if (end != std::string::npos && text[end] == ')') text.replace(at + 1, end - at - 1, "#");
    }
    return text;
  }

  Liste<Entity*> containers;
  Tableau<int> iterators;
};

TEST_F(ParserSpecTest, BuildsSetsInNestedLoops) {
  Loop loop(1, 0, 1, 2);
  Fill(loop, {New(Action::CREATE_ENTITY, "Herd", "herd", ITERATED),
              NewLoop(2, 1, 8, 10, {New(Action::ADD_ELEMENT, "Cow", "", ITERATED), End()}),
              New(Action::ADD_ELEMENT, "Cow", "old", ITERATED), End(), New(Action::ADD_ELEMENT, "Cow", ""),
              End(), End()});
  Run(loop);
  EXPECT_STREQ(gErrorString, "");
  EXPECT_EQ(loop.ActionInProgress(), nullptr);
  EXPECT_TRUE(containers.empty());
  EXPECT_EQ(iterators.size(), 2);
  EXPECT_EQ(iterators[0], 2);
  EXPECT_EQ(iterators[1], 10);
  EXPECT_EQ(NamesOf(HERD), "herd1 herd2");
  EXPECT_EQ(Names(GetNamedEntity("herd1")->GetElementTab()), "8 9 10 old1 Cow_6");
  EXPECT_EQ(Names(GetNamedEntity("herd2")->GetElementTab()), "8 9 10 old2 Cow_12");
}

TEST_F(ParserSpecTest, PlugsComponentsIntoWhatIsOnTheStack) {
  Thing* const farm = NewFarm();
  containers.push_front(farm);
  Loop loop(0, 0, 1, 1);
  Fill(loop, {New(Action::ADD_COMPONENT, "Cow", "cow"), End(), New(Action::ADD_COMPONENT, "Udder", "udder")});
  Run(loop);
  EXPECT_EQ(Names(farm->GetComponentTab()), "cow udder");
  EXPECT_EQ(containers.size(), 2);
  EXPECT_STREQ(containers.front()->InstanceName(), "udder");
}

TEST_F(ParserSpecTest, TracesEachStep) {
  g_KV_TraceParsingS = 1;
  const std::string output = OutputOf([&] {
    Loop loop(1, 0, 4, 4);
    Fill(loop, {New(Action::CREATE_ENTITY, "Herd", "herd"),
                NewLoop(2, 1, 1, 1, {New(Action::ADD_ELEMENT, "Cow", "cow", ITERATED), End()}), End()});
    Run(loop);
    Run(*std::make_unique<Loop>(3, 0, 5, 3));
    const Entity* const herd = GetNamedEntity("herd");
    const std::string pile = "PILE DES ENTITES (classes) :";
    const std::string expected =
        "DEBUT TRAITEMENT BOUCLE FOR niveau 1\tnombre d'iterations = 1 \n"
        "--> FOR niveau 1 ITERATION n° 1\titérateur = 4 \n"
        "\taction : CREATE INSTANCE DANS FOR niveau 1 Herd\therd\n" +
        pile + Shown(0, "Herd", herd) +
        "\tFOR IMBRIQUE DANS FOR niveau 1\n"
        "DEBUT TRAITEMENT BOUCLE FOR niveau 2\tnombre d'iterations = 1 \n"
        "--> FOR niveau 2 ITERATION n° 1\titérateur = 1 \n"
        "\taction : AJOUT ELEMENT DANS FOR niveau 2 classe Cow\n"
        "\t\tentite mere = herd\n\t\tentite fille = cow1\n" +
        pile + Shown(1, "Cow", GetNamedEntity("cow1")) + Shown(0, "Herd", herd) +
        "\taction : FIN_AJOUT_ENTITY DANS FOR niveau 2\n" + pile + Shown(0, "Herd", herd) +
        "--> FIN FOR niveau 2 ITERATION n° 2\titérateur = 1 \n"
        "FIN TRAITEMENT BOUCLE FOR\n"
        "\taction : FIN_AJOUT_ENTITY DANS FOR niveau 1\n"
        "\tLa liste est vide\tLa liste devient vide\n"
        "--> FIN FOR niveau 1 ITERATION n° 2\titérateur = 4 \n"
        "FIN TRAITEMENT BOUCLE FOR\n"
        "DEBUT TRAITEMENT BOUCLE FOR niveau 3\tnombre d'iterations = -1 \n"
        "FIN TRAITEMENT BOUCLE FOR\n";
    std::printf("=== %s", expected.c_str());
  });
  const std::size_t middle = output.find("=== ");
  EXPECT_EQ(output.substr(0, middle), output.substr(middle + 4));
}

TEST_F(ParserSpecTest, CountsTracedLinesAndTracesComponents) {
  containers.push_front(NewFarm());
  g_KV_TraceParsingS = 1;
  const std::string output = OutputOf([&] {
    Loop loop(1, 0, 1, 2);
    Run(loop);
    loop.addAction(New(Action::ADD_COMPONENT, "Cow", "cow"));
    loop.mLast = 1;
    Run(loop);
  });
  EXPECT_NE(output.find("--> FIN FOR niveau 1 ITERATION n° 4\titérateur = 2 \n"), std::string::npos)
      << output;
  EXPECT_NE(output.find("\taction : AJOUT COMPOSANT DANS FOR niveau 1 classe Cow\n"
                        "\t\tentite mere = Farm_1\n\t\tentite fille = cow\n"),
            std::string::npos)
      << output;
}

TEST_F(ParserSpecTest, StopsAtAFailureOnAllLevels) {
  struct Case {
    Action* action;
    bool hasCurrent;
    const char* text;
  };
  const char* const noCurrent = "\n!!! Action sans entité courante !!!\n";
  const char* const unknown = gUnknownEntityClass;
  const Case cases[] = {{New(Action::ADD_COMPONENT, "Cow", ""), false, noCurrent},
                        {New(Action::ADD_ELEMENT, "Cow", ""), false, noCurrent},
                        {Assign("anInt", INT), false, noCurrent},
                        {New(Action::CREATE_ENTITY, "Goat", ""), false, unknown},
                        {New(Action::ADD_ELEMENT, "Goat", ""), true, unknown}};
  for (const Case& c : cases) {
    gErrorString[0] = '\0';
    containers.erase();
    if (c.hasCurrent) containers.push_front(NewHerd());
    const int before = GetEntityCreations(COW);
    Loop loop(1, 0, 3, 7);
    Fill(loop, {NewLoop(2, 1, 1, 2, {c.action}), New(Action::CREATE_ENTITY, "Cow", "never")});
    Run(loop);
    EXPECT_STREQ(gErrorString, c.text);
    EXPECT_EQ(loop.ActionInProgress(), c.action);
    EXPECT_EQ(iterators[0], 3);
    EXPECT_EQ(containers.size(), c.hasCurrent ? 1 : 0);
    EXPECT_EQ(GetEntityCreations(COW), before);
  }
  Assign_App_NewEntityFromStringFunction(nullptr);
  gErrorString[0] = '\0';
  Loop loop(0, 0, 1, 1);
  loop.addAction(New(Action::CREATE_ENTITY, "Cow", ""));
  Run(loop);
  EXPECT_STREQ(gErrorString, unknown);
}

struct ValueCase {
  const char* descriptor;
  int type;
  bool isDynamic;
  std::string text;   ///< value of the descriptor, or error
  std::string trace;  ///< of the value
};

TEST_F(ParserSpecTest, AssignsEachTypeOfValue) {
  Entity* const bull = pApp_NewEntityFromString("Bull");
  bull->SetInstanceName("bull");
  containers.push_front(bull);
  const std::string described = "\t\tentité décrite : bull (#)\n";
  const ValueCase cases[] = {
      {"anInt", INT, false, "12", "\t\tvaleur : 12\n"},
      {"anInt", INT, true, "3", "\t\tvaleur : 3\n"},
      {"anInt", DOUBLE, false, "7", "\t\tvaleur : 7\n"},
      {"aFloat", INT, false, "12", "\tvaleur : 12.000000\n"},
      {"aFloat", DOUBLE, true, "3", "\t\tvaleur : 3.000000\n"},
      {"aDouble", INT, true, "3", "\tvaleur : 3.000000\n"},
      {"aDouble", DOUBLE, false, "7.75", "\t\tvaleur : 7.750000\n"},
      {"aText", STRING, false, "Bob", "\t\tvaleur : Bob\n"},
      {"aText", STRING, true, "Bob3", "\t\tvaleur : Bob3\n"},
      {"anEntity", P_ENTITY, false, "Cow_2", "\t\tvaleur : Cow_2 (#)\n"},
      {"someEntities", ENTITY_TAB, false, "Cow_3 ", described + "\t\tvaleur : Cow_3 (#)\n"},
      {"someEntities", ENTITY_TAB, false, "Cow_3 Cow_4 ", described + "\t\tvaleur : Cow_4 (#)\n"},
      {"aDomain", INTDOMAIN, false, "", "\t\tintervalle : (12 15)\n"},
      {"someInts", INT_TAB, false, "        12 ", described + "\t\tvaleur : 12 \n"},
      {"someFloats", FLOAT_TAB, false, "   7.75000 ", described + "\t\tvaleur : 7.750000 \n"},
      {"someDoubles", FLOAT_TAB, false, "   7.75000 ", described + "\t\tvaleur : 7.750000 \n"},
      {"anInt", BOOLEAN, false, "7", ""},  // does nothing
  };
  for (const ValueCase& c : cases) {
    Loop loop(2, 0, 3, 3);
    auto* affectation = Assign(c.descriptor, c.type);
    affectation->mIsDynamic = c.isDynamic ? 1 : 0;
    loop.addAction(affectation);
    g_KV_TraceParsingS = 1;
    std::string trace = OutputOf([&] { Run(loop); });
    g_KV_TraceParsingS = 0;
    Run(loop);
    EXPECT_STREQ(gErrorString, "");
    EXPECT_EQ(ValueText(*bull, c.descriptor), c.text) << c.descriptor;
    const std::string before =
        std::string("\taction : AFFECTATION VALEUR DANS FOR niveau 2\n\t\tinstance : bull\n") +
        "\t\tdescripteur : " + c.descriptor + "\n";
    const std::size_t from = trace.find(before);
    ASSERT_NE(from, std::string::npos) << trace;
    trace = trace.substr(from + before.size());
    EXPECT_EQ(WithoutAddresses(trace.substr(0, trace.find("--> FIN"))), c.trace) << c.descriptor;
  }
  Tableau<IntInterval*>* const domain =
      bull->GetIntDomainValue(bull->GetDescriptor("aDomain")->ClassSymbol());
  ASSERT_EQ(domain->size(), 1);
  EXPECT_EQ(domain->front()->low, 12);
  EXPECT_EQ(domain->front()->high, 15);
  delete domain->front();  // an application's, as the domain owns its table only
}

TEST_F(ParserSpecTest, AssignsASpecification) {
  EntitySpec spec(COW);
  Entity* const bull = pApp_NewEntityFromString("Bull");
  containers.push_front(bull);
  auto* affectation = Assign("aSpec", P_ENTITYSPEC);
  affectation->mEntitySpec = &spec;
  Loop loop(1, 0, 1, 1);
  loop.addAction(affectation);
  Run(loop);
  EXPECT_EQ(static_cast<EntitySpecConstantDescriptor*>(bull->GetDescriptor("aSpec"))->GetValue(), &spec);
}

TEST_F(ParserSpecTest, AssignsPredicatesOnly) {
  Entity* const cow = NewCow();
  cow->SetInstanceName("cow");
  cow->AddMethod(new EntityPredicate(70, "isReady"));
  containers.push_front(cow);
  const auto newBody = [](int type, PredicateBody body) {
    auto* affectation = new ExternBodyAffectationSpec;
    affectation->mKind = Action::ASSIGN_BODY;
    affectation->mBodyType = type;
    affectation->SetMethodName("isReady");
    affectation->mBody = body;
    return affectation;
  };
  Loop loop(2, 0, 1, 1);
  Fill(loop, {newBody(BOOLEAN, GetPredicateBody("TRUE")), newBody(INT, GetPredicateBody("FALSE"))});
  g_KV_TraceParsingS = 1;
  EXPECT_NE(
      OutputOf([&] {
        Run(loop);
      }).find("\taction : AFFECTATION CORPS DANS FOR niveau 2\n\t\tinstance : cow\n\t\tméthode : isReady\n"),
      std::string::npos);
  g_KV_TraceParsingS = 0;
  Run(loop);
  EXPECT_STREQ(gErrorString, "");
  EXPECT_TRUE(cow->ExecPredicate(70));
  EXPECT_EQ(GetPredicateBody("isReady"), nullptr);
  RegisterPredicateBody("isReady", [](EntityMethod*) { return false; });
  cow->AssignBody(70, GetPredicateBody("isReady"));
  EXPECT_FALSE(cow->ExecPredicate(70));
}

TEST_F(ParserSpecTest, CutsAnIteratedTextAndClosesOnTheNearestInt) {
  Entity* const bull = pApp_NewEntityFromString("Bull");
  containers.push_front(bull);
  auto* text = Assign("aText", STRING);
  text->SetStringValue(std::string(48, 'x').c_str());
  text->mIsDynamic = 1;
  auto* number = Assign("anInt", DOUBLE);
  number->mDoubleValue = -1e300;
  Loop loop(1, 0, 78, 78);
  Fill(loop, {text, number});
  Run(loop);
  EXPECT_EQ(ValueText(*bull, "aText"), std::string(48, 'x') + "7");
  EXPECT_EQ(ValueText(*bull, "anInt"), "-2147483648");
}

TEST_F(ParserSpecTest, SaysWhyAValueDoesNotFit) {
  containers.push_front(pApp_NewEntityFromString("Bull"));
  const ValueCase cases[] = {
      {"aText", INT, false,
       "Affectation d'une valeur entière à un descripteur non numérique\n    ou qui n'existe pas", ""},
      {"none", DOUBLE, true,
       "Affectation d'une valeur réelle à un descripteur non numérique\n    ou qui n'existe pas", ""},
      {"anInt", STRING, true, "Affectation d'une chaîne à un descripteur non String", ""},
      {"anInt", P_ENTITY, false, "Affectation d'une valeur 'entité' à un descripteur d'un autre type", ""},
      {"anEntity", P_ENTITY, true, "Affectation dynamique d'une valeur 'entité' : doit être statique", ""},
      {"anEntity", ENTITY_TAB, false, "Ajout d'une valeur 'entité' à un descripteur d'un autre type", ""},
      {"none", ENTITY_TAB, true, "Ajout dynamique d'un élément valeur 'entité' : doit être statique", ""},
      {"anEntity", P_ENTITYSPEC, false,
       "Affectation d'une valeur 'spécification d'entités' à un descripteur d'un autre type", ""},
      {"aSpec", P_ENTITYSPEC, true,
       "Affectation dynamique d'une valeur 'spécification d'entités' : doit être statique", ""},
      {"someInts", INTDOMAIN, false,
       "Ajout d'une valeur intervalle d'entiers à un descripteur d'un autre type", ""},
      {"aDomain", INTDOMAIN, true,
       "Affectation dynamique d'une valeur intervalle d'entiers : doit être statique", ""},
      {"someFloats", INT_TAB, false,
       "Ajout d'une valeur entière à un descripteur d'un autre type que INT_TAB", ""},
      {"someInts", INT_TAB, true, "Ajout dynamique d'un élément valeur entière : doit être statique", ""},
      {"someInts", FLOAT_TAB, false,
       "Ajout d'une valeur réelle à un descripteur d'un autre type que FLOAT_TAB ou DOUBLE_TAB", ""},
      {"someFloats", FLOAT_TAB, true, "Ajout dynamique d'un élément valeur flottante : doit être statique",
       ""},
  };
  for (const ValueCase& c : cases) {
    gErrorString[0] = '\0';
    const int before = GetEntityCreations(COW);
    auto* affectation = Assign(c.descriptor, c.type);
    affectation->mIsDynamic = c.isDynamic ? 1 : 0;
    Loop loop(1, 0, 1, 2);
    Fill(loop, {NewLoop(2, 1, 1, 2, {affectation}), New(Action::CREATE_ENTITY, "Cow", "never")});
    Run(loop);
    EXPECT_EQ(gErrorString, "\n!!! " + c.text + " !!!\n");
    EXPECT_EQ(loop.ActionInProgress(), affectation);
    EXPECT_EQ(GetEntityCreations(COW), before);
  }
  auto* unknown = Assign("anEntity", P_ENTITY);
  unknown->mEntityClassName = "Goat";
  Loop loop(1, 0, 1, 1);
  loop.addAction(unknown);
  Run(loop);
  EXPECT_STREQ(gErrorString, gUnknownEntityClass);
}

TEST_F(ParserSpecTest, PassesOverPlugsAndUnknownKinds) {
  auto* plug = new ExternEntityPlugSpec;
  plug->mKind = Action::PLUG_ELEMENT;
  Action strange;
  strange.mKind = 12;
  Loop loop(1, 0, 1, 2);
  Fill(loop, {plug, &strange, End(), New(Action::CREATE_ENTITY, "Cow", "cow", ITERATED), End()});
  Run(loop);
  EXPECT_STREQ(gErrorString, "");
  EXPECT_EQ(NamesOf(COW), "cow1 cow2");
}

TEST_F(ParserSpecTest, KeepsCountingWhenANestedLoopTakesItsRank) {
  Loop loop(1, 0, K_INTMAX - 1, K_INTMAX);
  Fill(loop, {NewLoop(2, 0, -1, 0, {New(Action::CREATE_ENTITY, "Cow", "", ITERATED), End()}),
              New(Action::CREATE_ENTITY, "Cow", "c", ITERATED), End()});
  Run(loop);
  EXPECT_EQ(NamesOf(COW), "-1 0 c2147483646 -1 0 c2147483647");
  EXPECT_EQ(iterators[0], 0);
}

TEST_F(ParserSpecTest, RecordsDieWithTheirLoop) {
  const int alive = Action::getNbConst() - Action::getNbDest();
  {
    Loop loop(1, 0, 1, 2);
    Fill(loop, {New(Action::CREATE_ENTITY, "Cow", "a name that is too long for a small text"),
                NewLoop(2, 1, 1, 2, {NewLoop(3, 2, 1, 1, {End(), End()})}), End()});
    EXPECT_EQ(Action::getNbConst() - Action::getNbDest(), alive + 7);
  }
  EXPECT_EQ(Action::getNbConst() - Action::getNbDest(), alive);
  g_KV_TraceNewDelMode = 1;
  EXPECT_EQ(OutputOf([] { ExternEntityPlugSpec plug; }),
            "\n-Construction de la ExternEntityIteratedActionSpec "
            "\n-Destruction de la ExternEntityIteratedActionSpec ");
  g_KV_TraceNewDelMode = 0;
}

}  // namespace
