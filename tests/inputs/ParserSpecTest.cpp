// The interpreter of the actions of a structure file.
#include "kalve/inputs/ParserSpec.h"

#include <cstdio>
#include <string>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/ApplicationHooks.h"
#include "tests/model/ModelTest.h"

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
