// Components, elements and super-sets: what each operation checks, links, counts, tells and answers.
#include <functional>
#include <map>
#include <random>

#include "tests/model/ModelTest.h"

namespace {

BasicEntity* gSubstitute = nullptr;
BasicEntity* RefuseAll(MonitorMethod* /*method*/) { return nullptr; }
BasicEntity* AnswerSubstitute(MonitorMethod* /*method*/) { return gSubstitute; }

int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

class StructureTest : public ModelTest {
 protected:
  StructureTest() {
    herd->SetInstanceName("herd");
    a->SetInstanceName("a");
    b->SetInstanceName("b");
    c->SetInstanceName("c");
  }

  /// What an operation answers, as text: "-" for null, the name, or the number.
  static std::string Shown(BasicEntity* entity) { return entity != nullptr ? entity->InstanceName() : "-"; }
  static std::string Shown(int number) { return std::to_string(number); }

  /// "told answer [elements] links of a, count" after `operation`, told being "+" for each ELEMADD and "x"
  /// for each ELEMREM.
  std::string Outcome(const std::function<std::string()>& operation) {
    const std::string output = OutputOf([&] {
      SimulationProbe::TellStructure(simulation);
      const std::string answer = operation();
      std::cout << "\n#" << answer << " [" << Names(herd->BareElementTab()) << "] "
                << a->GetNumberOfSuperSets() << "," << herd->GetNumberOfElements();
    });
    return std::string(static_cast<std::size_t>(Count(output, "PERMSTRUCTURE ELEMADD")), '+') +
           std::string(static_cast<std::size_t>(Count(output, "PERMSTRUCTURE ELEMREM")), 'x') + " " +
           output.substr(output.rfind('#') + 1);
  }

  Thing* const herd = NewHerd();
  Thing* const a = NewCow();
  Thing* const b = NewCow();
  Thing* const c = NewBull();
};

struct Variant {
  const char* name;
  std::function<std::string()> operation;
  std::vector<const char*> outcomes;
};

TEST_F(StructureTest, AdditionsDifferInMonitorDuplicateAndLink) {
  const auto nothing = [](auto&& act) {
    act();
    return std::string("-");
  };
  // Columns: a new element, one that is there, one that the monitor refuses, one that it replaces by c.
  const std::vector<Variant> variants = {
      {"AddElement",
       [&] { return Shown(herd->AddElement(a)); },
       {"+ - [b a] 1,2", " a [a b] 1,2", " a [b] 0,1", "+ - [b c] 1,2"}},
      {"AddElement with monitor",
       [&] { return Shown(herd->AddElement(a, 1)); },
       {"+ - [b a] 1,2", " a [a b] 1,2", " a [b] 0,1", "+ - [b c] 1,2"}},
      {"AddElement without monitor",
       [&] { return Shown(herd->AddElement(a, 0)); },
       {"+ - [b a] 1,2", " - [a b] 2,2", "+ - [b a] 1,2", "+ - [b a] 1,2"}},
      {"AddElementNoCheckIfNew",
       [&] { return Shown(herd->AddElementNoCheckIfNew(a)); },
       {"+ - [b a] 1,2", "+ - [a b a] 2,3", " a [b] 0,1", "+ - [b c] 1,2"}},
      {"InsertElement",
       [&] { return Shown(herd->InsertElement(0, a)); },
       {"+ - [a b] 1,2", "+ - [a a b] 2,3", " a [b] 0,1", "+ - [c b] 1,2"}},
      {"ForceElement",
       [&] { return nothing([&] { herd->ForceElement(a); }); },
       {"+ - [b a] 0,2", "+ - [a b a] 1,3", " - [b] 0,1", "+ - [b c] 0,2"}},
      {"AddSuperSet",
       [&] { return nothing([&] { a->AddSuperSet(herd); }); },
       {"+ - [b a] 0,2", "+ - [a b a] 1,3", " - [b] 0,1", "+ - [b c] 0,2"}},
  };
  gSubstitute = c;
  herd->AddElement(b);
  for (const Variant& variant : variants) {
    SCOPED_TRACE(variant.name);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[0]);
    herd->InsertElement(0, a);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[1]);
    herd->RemoveElement(a);
    monitor->AttachToEntity(herd);
    monitor->AssignWhenAddElementMethod(RefuseAll);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[2]);
    monitor->AssignWhenAddElementMethod(AnswerSubstitute);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[3]);
    monitor->DetachFromEntity(herd);
  }
}

TEST_F(StructureTest, RemovalsDifferInMonitorLinkAndNotification) {
  const auto rank = [&] { return herd->BareElementTab().position(a) == 0 ? 0 : 5; };
  // Columns: an element, an absent one, one that the monitor holds back, one that it lets go.
  const std::vector<Variant> variants = {
      {"RemoveElement",
       [&] { return Shown(herd->RemoveElement(a)); },
       {"x - [b] 0,1", " a [b] 0,1", " a [a b] 1,2", "x - [b] 1,1"}},
      {"RemoveElement with monitor",
       [&] { return Shown(herd->RemoveElement(a, 1)); },
       {"x - [b] 0,1", " a [b] 0,1", " a [a b] 1,2", "x - [b] 1,1"}},
      {"RemoveElement without monitor",
       [&] { return Shown(herd->RemoveElement(a, 0)); },
       {" - [b] 0,1", " a [b] 0,1", " - [b] 0,1", " - [b] 0,1"}},
      {"RemoveElement by index",
       [&] { return Shown(herd->RemoveElement(rank())); },
       {"x - [b] 0,1", " - [b] 0,1", " - [a b] 1,2", "x - [b] 0,1"}},
      {"RemoveElement by index without monitor",
       [&] { return Shown(herd->RemoveElement(rank(), 0)); },
       {" - [b] 0,1", " - [b] 0,1", " - [b] 0,1", " - [b] 0,1"}},
      {"RemoveElementNoPropagate",
       [&] { return Shown(herd->RemoveElementNoPropagate(a)); },
       {"x - [b] 1,1", " a [b] 0,1", " a [a b] 1,2", "x - [b] 1,1"}},
      {"RemoveElements",
       [&] { return Shown(herd->RemoveElements()); },
       {"xx - [] 0,0", "x - [] 0,0", " b [a b] 1,2", "xx - [] 1,0"}},
      {"RemoveSuperSet",
       [&] { return Shown(a->RemoveSuperSet(herd)); },
       {"x 1 [b] 0,1", " 0 [b] 0,1", " 1 [a b] 0,2", "x 1 [b] 0,1"}},
      {"RemoveSuperSetNoPropagate",
       [&] { return Shown(a->RemoveSuperSetNoPropagate(herd)); },
       {" 1 [a b] 0,2", " 0 [b] 0,1", " 1 [a b] 0,2", " 1 [a b] 0,2"}},
      {"ReplaceElement",
       [&] {
         c->AddSuperSetClassId(HERD);
         return Shown(herd->ReplaceElement(a, Tab({c, c})));
       },
       {"xxx 1 [c c b] 0,3", " 0 [b] 0,1", " 0 [] 1,0", "xxx 1 [c c b] 0,3"}},
  };
  gSubstitute = c;
  herd->AddElement(b);
  for (const Variant& variant : variants) {
    SCOPED_TRACE(variant.name);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[1]);
    herd->InsertElement(0, a);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[0]);
    monitor->AttachToEntity(herd);
    monitor->AssignWhenRemoveElementMethod(RefuseAll);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[2]);
    monitor->AssignWhenRemoveElementMethod(AnswerSubstitute);
    EXPECT_EQ(Outcome(variant.operation), variant.outcomes[3]);
    monitor->DetachFromEntity(herd);
    herd->RemoveElement(a);
  }
}

TEST_F(StructureTest, ReplacementUnlinksAllButTheNewcomers) {
  for (Thing* entity : {a, b, c}) entity->AddSuperSetClassId(HERD);
  Thing* const d = NewCow();
  herd->AddElements(Tab({a, b, d}));
  EXPECT_EQ(herd->ReplaceElement(b, Tab({c})), 1);
  EXPECT_EQ(Names(herd->GetElementTab()), "a c Cow_5");
  EXPECT_EQ(herd->GetNumberOfElements(), 3);
  EXPECT_EQ(c->GetNumberOfSuperSets(), 1);
  for (const Thing* entity : {a, b, d}) EXPECT_FALSE(entity->HasSuperSets());
  EXPECT_NE(FailureOf([&] { herd->ReplaceElement(c, Tab({d})); }).find(" BadSuperSetClass "),
            std::string::npos);
  EXPECT_NE(FailureOf([&] { herd->ReplaceElement(c, Tab({NewUdder()})); }).find(" BadSubEntityClass "),
            std::string::npos);
}

TEST_F(StructureTest, RefusalsAreReportedUnderTheWarnOption) {
  herd->AddElement(a);
  EXPECT_EQ(OutputOf([&] { herd->AddElement(a); }), "");
  const std::string names = " 'a' de classe 'Cow' n'a pas été ";
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              herd->AddElement(a);
              monitor->AttachToEntity(herd);
              monitor->AssignWhenRemoveElementMethod(RefuseAll);
              herd->RemoveElement(0);
              herd->ReplaceElement(a, Tab({}));
            }),
            Latin1("\n!!! L'élément" + names + "ajouté à l'entité 'herd' de classe 'Herd'.\n" +  //
                   "\n!!! L'élément" + names + "retiré de l'entité 'herd' de classe 'Herd'.\n" +
                   "\n!!! L'élément" + names + "retiré de l'entité 'herd' de classe 'Herd'.\n" +
                   "\n!!! L'élément" + names + "remplacé dans l'entité 'herd' de classe 'Herd'.\n"));
}

TEST_F(StructureTest, ListsOfElementsStopAtARefusalOrPassItOver) {
  herd->AddElement(b);
  EXPECT_EQ(herd->AddElements(Tab({a, b, c})), b);
  EXPECT_EQ(Names(herd->GetElementTab()), "b a");
  herd->AddElementsIfNew(Tab({a, nullptr, b, c}));
  EXPECT_EQ(Names(herd->GetElementTab()), "b a c");
  EXPECT_EQ(herd->AddElements(Tab({a, b}), 0), nullptr);
  EXPECT_EQ(a->GetNumberOfSuperSets(), 2);
  EXPECT_EQ(herd->AddElement(nullptr), nullptr);
  EXPECT_EQ(herd->RemoveElement(static_cast<BasicEntity*>(nullptr)), nullptr);
  EXPECT_EQ(herd->GetNumberOfElements(), 3);
}

// Both sides of the links, as a naive model keeps them
// -------------------------------------------------------

class NaiveLinks {
 public:
  std::map<int, std::vector<int>> elements;   // of a set
  std::map<int, std::vector<int>> superSets;  // of an element

  static bool Drop(std::vector<int>& from, int what) {
    const auto at = std::find(from.begin(), from.end(), what);
    if (at == from.end()) return false;
    from.erase(at);
    return true;
  }
  bool Holds(int set, int element) {
    return std::find(elements[set].begin(), elements[set].end(), element) != elements[set].end();
  }
  void Remove(int set, int element) {
    if (Drop(elements[set], element)) RemoveSuperSet(element, set);
  }
  void RemoveSuperSet(int element, int set) {
    if (Drop(superSets[element], set)) Remove(set, element);
  }
  void Add(int set, int element, int at) {
    elements[set].insert(elements[set].begin() + at, element);
    superSets[element].push_back(set);
  }
};

class LinksTest : public StructureTest, public testing::WithParamInterface<int> {
 protected:
  int Below(std::size_t n) { return static_cast<int>(random() % n); }
  Thing& Set(int s) { return *sets[static_cast<std::size_t>(s)]; }
  Thing& CowOf(int e) { return *cows[static_cast<std::size_t>(e)]; }
  void Fill(int count);
  /// One operation on both, for a set, an element and a place in the set.
  void Step(int s, int e, int at);
  void BuryOne(int e);
  void Empty(int s);
  void Check();

  std::mt19937 random{17};
  std::vector<Thing*> sets;
  std::vector<Thing*> cows;
  NaiveLinks naive;
};

/// All but the first six stand in the first two sets.
void LinksTest::Fill(int count) {
  for (int i = 0; i < 4; ++i) sets.push_back(NewHerd());
  for (int i = 0; i < count; ++i) {
    cows.push_back(NewCow());
    if (i < 6) continue;
    naive.Add(i % 2, i, static_cast<int>(naive.elements[i % 2].size()));
    Set(i % 2).AddElement(cows.back());
  }
}

void LinksTest::BuryOne(int e) {
  Bury(&CowOf(e));
  for (const int held : std::vector<int>(naive.superSets[e])) NaiveLinks::Drop(naive.elements[held], e);
  naive.superSets[e].clear();
  // Links that only a set knows stay there, and mean nothing.
  for (auto& [number, elements] : naive.elements) std::replace(elements.begin(), elements.end(), e, -1);
  cows[static_cast<std::size_t>(e)] = NewCow();
}

void LinksTest::Empty(int s) {
  Set(s).RemoveElements();
  for (int i = static_cast<int>(naive.elements[s].size()); i-- > 0;)
    if (i < static_cast<int>(naive.elements[s].size()))
      naive.Remove(s, naive.elements[s][static_cast<std::size_t>(i)]);
}

void LinksTest::Step(int s, int e, int at) {
  Thing& set = Set(s);
  Thing& cow = CowOf(e);
  const int size = static_cast<int>(naive.elements[s].size());
  switch (Below(12)) {
    case 0:
    case 1:
      set.AddElement(&cow);
      if (!naive.Holds(s, e)) naive.Add(s, e, size);
      break;
    case 2:
      set.AddElement(&cow, 0);
      if (!naive.Holds(s, e)) naive.elements[s].push_back(e);
      naive.superSets[e].push_back(s);
      break;
    case 3:
      set.AddElementNoCheckIfNew(&cow);
      naive.Add(s, e, size);
      break;
    case 4:
      set.InsertElement(at, &cow);
      naive.Add(s, e, at);
      break;
    case 5:
      cow.AddSuperSet(&set);
      naive.elements[s].push_back(e);
      break;
    case 6:
      set.RemoveElement(&cow);
      naive.Remove(s, e);
      break;
    case 7:
      cow.RemoveSuperSet(&set);
      naive.RemoveSuperSet(e, s);
      break;
    case 8:
      set.RemoveElement(at, Below(2));
      if (at < size) {
        const int taken = naive.elements[s][static_cast<std::size_t>(at)];
        naive.elements[s].erase(naive.elements[s].begin() + at);
        naive.RemoveSuperSet(taken, s);
      }
      break;
    case 9:
      set.RemoveElementNoPropagate(&cow);
      NaiveLinks::Drop(naive.elements[s], e);
      break;
    case 10:
      BuryOne(e);
      break;
    default:
      if (Below(4) == 0) Empty(s);
  }
}

void LinksTest::Check() {
  for (int i = 0; i < static_cast<int>(sets.size()); ++i) {
    ASSERT_EQ(Set(i).GetNumberOfElements(), static_cast<int>(naive.elements[i].size()));
    for (int k = 0; k < Set(i).GetNumberOfElements(); ++k) {
      const int expected = naive.elements[i][static_cast<std::size_t>(k)];
      if (expected < 0) continue;
      ASSERT_EQ(Set(i).BareElementTab()[k], &CowOf(expected));
    }
  }
  for (int i = 0; i < static_cast<int>(cows.size()); ++i) {
    const Tableau<BasicEntity*> held = CowOf(i).GetSuperSetTab();
    ASSERT_EQ(held.size(), static_cast<int>(naive.superSets[i].size()));
    for (int k = 0; k < held.size(); ++k)
      ASSERT_EQ(held[k], &Set(naive.superSets[i][static_cast<std::size_t>(k)]));
  }
}

/// Small tables and large ones, which are kept in another way.
INSTANTIATE_TEST_SUITE_P(Sizes, LinksTest, testing::Values(6, 700));

TEST_P(LinksTest, FollowANaiveModelThroughRandomOperations) {
  Fill(GetParam());
  for (int step = 0; step < 4000; ++step) {
    const int s = Below(sets.size());
    const int e = Below(cows.size());
    Step(s, e, Below(naive.elements[s].size() + 1));
    if (step % 5 != 0) continue;
    ASSERT_NO_FATAL_FAILURE(Check()) << step;
  }
}

// Components
// --------------------------------------------------------------------------------------------------

TEST_F(StructureTest, PluggingGoesUpAndAskingGoesDown) {
  Thing* const farm = NewFarm();
  farm->AddComponent(a);  // a cow in the slot of animals
  EXPECT_EQ(farm->GetBasicComponent(ANIMAL), a);
  EXPECT_EQ(farm->GetBasicComponent(KV_ENTITY), a);  // the first slot below
  EXPECT_EQ(farm->GetComponent("Bull"), a);
  EXPECT_EQ(farm->GetComponent("Udder"), nullptr);
  EXPECT_EQ(farm->GetBasicComponent(COW, 0), nullptr);
  EXPECT_EQ(farm->GetBasicComponent(UDDER, 0), nullptr);
  EXPECT_EQ(farm->GetBasicComponent(99, 0), nullptr);
  EXPECT_EQ(a->GetSuperEntity(), farm);
  farm->ReplaceComponent(c);
  EXPECT_EQ(a->GetBasicSuperEntity(), nullptr);
  EXPECT_EQ(Names(farm->GetComponentTab()), "c -");
  a->SetSuperEntity(NewFarm());
  NewUdder()->SetSuperEntity(farm);
  EXPECT_EQ(Names(farm->GetComponentTab()), "c Udder_7");
  farm->SetComponentTab(Tab({b, nullptr}));
  EXPECT_EQ(Names(farm->GetComponentTab()), "b -");
  EXPECT_EQ(c->GetSuperEntity(), nullptr);
}

TEST_F(StructureTest, EveryFaultEndsInItsFailure) {
  Thing* const farm = NewFarm();
  Thing* const other = NewFarm();
  Thing* const open = new Thing{HERD};  // declares nothing
  farm->AddComponent(a);
  herd->AddElement(b);
  Tableau<BasicEntity*> tab;
  const std::vector<std::pair<std::string, std::function<void()>>> faults = {
      {"ComponentCannotCoexistWithElement", [&] { herd->AddComponentClassId(UDDER); }},
      {"ElementCannotCoexistWithComponent", [&] { farm->ElementClassId(UDDER); }},
      {"BadSubEntityClass", [&] { farm->AddComponent(herd); }},
      {"ComponentAlreadyPlugged", [&] { farm->AddComponent(b); }},
      {"ComponentPluggedElsewhere", [&] { other->AddComponent(a); }},
      {"SuperEntityAlreadyEquippedWithClass", [&] { b->SetSuperEntity(farm); }},
      {"BadSubEntityClass", [&] { farm->ReplaceComponent(herd); }},
      {"NotYetPluggedComponent", [&] { farm->ReplaceComponent(NewUdder()); }},
      {"BadSubEntityClass", [&] { farm->RemoveComponent(b); }},
      {"BadComponentClassId", [&] { farm->GetBasicComponent(HERD); }},
      {"NotYetPluggedComponent", [&] { farm->GetComponent(UDDER); }},
      {"BadComponentName", [&] { farm->GetComponent("Herd"); }},
      {"BadComponentName", [&] { farm->GetComponent("nobody"); }},
      {"UnAuthorizedAccessToComponent", [&] { herd->GetBasicComponent(COW); }},
      {"UnAuthorizedAccessToComponent", [&] { herd->GetComponent("Cow"); }},
      {"UnAuthorizedAccessToComponent", [&] { herd->GetComponentTab(); }},
      {"UnAuthorizedAccessToComponent", [&] { herd->GetComponentTab(tab); }},
      {"BadSubEntityClass", [&] { herd->AddElement(farm); }},
      {"BadSubEntityClass", [&] { open->AddElement(a); }},
      {"BadSubEntityClass", [&] { open->AddElement(a, 0); }},
      {"BadSuperSetClass", [&] { b->AddSuperSet(open); }},
      {"BadSuperSetClass", [&] { farm->AddSuperSet(herd); }},
      {"BadSuperSetClass", [&] { (a->SuperSetClassIds(FARM, COW), herd->AddElement(a)); }},
      {"BadSuperSetClass", [&] { (a->SuperSetClassIds(FARM, COW), herd->AddElementNoCheckIfNew(a)); }},
      {"BadSuperSetClass", [&] { (a->SuperSetClassIds(FARM, COW), a->AddSuperSet(herd)); }},
      {"BadSubEntityClass", [&] { (a->SuperSetClassIds(FARM, COW), herd->InsertElement(0, a)); }},
      {"BadSubEntityClass", [&] { (a->SuperSetClassIds(FARM, COW), herd->AddElement(a, 0)); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetElementTab(); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetElementTab(tab); }},
      {"UnAuthorizedAccessToElement", [&] { farm->SetElementTab(tab); }},
      {"UnAuthorizedAccessToElement", [&] { farm->SetElementTabIncrement(5); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetElement(); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetElement(0); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetNamedElement("a"); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetClassNamedElement("Cow"); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetClassNamedElement(COW); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetLastElement(); }},
      {"UnAuthorizedAccessToElement", [&] { farm->GetElementPosition(a); }},
      {"DoNotHaveMonitorAttached", [&] { herd->GetMonitor(); }},
      {"UnknownEntityClass", [&] { herd->IsInstanceOf(99); }},
      {"UnknownEntityClass", [&] { herd->SetMetaClass(99); }},
      {"UnknownEntityClass", [&] { herd->RemoveInstanceFromClass(99); }},
      {"BadEntityClassSpecification", [&] { herd->RemoveInstanceFromClass(-9); }},
      {"BadEntityClassSpecification", [&] { herd->ClassSymbol(-1); }},
      {"SimulationNotYetCreated", [&] { (pCurrentSim = nullptr, NewCow()); }},
  };
  for (std::size_t i = 0; i < faults.size(); ++i) {
    const std::string text = FailureOf(faults[i].second);
    EXPECT_EQ(text.find("\n!!!============== " + faults[i].first + " =============="), 0U)
        << "fault " << i << ": " << text;
  }
  EXPECT_NE(FailureOf([&] {
              farm->GetElement();
            }).find("'\n    alors qu'elle est construite pour recevoir des composants."),
            std::string::npos);
  for (const int position : {-1, 2})
    EXPECT_NE(RunInChild([&] {
                herd->InsertElement(position, a);
              }).output.find(Text("'BasicEntity::InsertElement'")),
              std::string::npos);
}

TEST_F(StructureTest, BothSymbolsPrintAsNumbersUnlessBothHaveNames) {
  Thing* const farm = NewFarm();
  EXPECT_NE(FailureOf([&] { farm->GetBasicComponent(KV_EVENT); }).find("de classe 4 "), std::string::npos);
  BasicEntity* const part = new BasicEntity();
  part->AddComponentClassId(UDDER);
  const std::string text = FailureOf([&] { part->GetBasicComponent(KV_EVENT); });
  EXPECT_NE(text.find("KV_EVENT"), std::string::npos);
  EXPECT_NE(text.find("KV_BASIC_ENTITY"), std::string::npos);
  DeleteEntity(part);
}

// Reading
// -----------------------------------------------------------------------------------------------------

TEST_F(StructureTest, ReadsElementsAndReportsWhatIsMissing) {
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              EXPECT_EQ(herd->GetElement(), nullptr);
              EXPECT_EQ(herd->GetLastElement(), nullptr);
            }),
            Latin1("\n!!! On cherche un élément pour herd (classe 10) alors qu'elle n'en a pas.\n"
                   "\n!!! On cherche un élément pour herd (classe 10) alors qu'elle n'en a pas.\n"));
  ClassIdToCharTab.push_back("seven");
  while (ClassIdToCharTab.size() <= HERD) ClassIdToCharTab.push_back("HERD");
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              herd->GetBasicElement();
            }),
            Latin1("\n!!! On cherche un élément pour herd (HERD) alors qu'elle n'en a pas.\n"));
  herd->AddElements(Tab({a, c, b}));
  EXPECT_EQ(herd->GetElement(), a);
  EXPECT_EQ(herd->GetElement(1), c);
  EXPECT_EQ(herd->GetLastElement(), b);
  EXPECT_EQ(herd->GetNamedElement("b"), b);
  EXPECT_EQ(herd->GetClassNamedElement("Bull"), c);
  EXPECT_EQ(herd->GetClassNamedElement(COW), a);
  EXPECT_EQ(herd->GetElementPosition(b), 2);
  EXPECT_EQ(herd->GetElementPosition(herd), -9);
  const std::string silent = OutputOf([&] {
    EXPECT_EQ(herd->GetElement(-1), nullptr);
    EXPECT_EQ(herd->GetClassNamedElement(ANIMAL), nullptr);
  });
  EXPECT_EQ(silent, "");
  EXPECT_EQ(Count(OutputOf([&] {
                    g_KV_TraceWarnings = 1;
                    herd->GetElement(3);
                    herd->GetNamedElement("x");
                    herd->GetClassNamedElement("x");
                    herd->GetClassNamedElement(ANIMAL);
                    herd->GetSuperSet();
                    EXPECT_EQ(herd->SuperSetClassId(), -9);
                  }),
                  "alors qu'elle n'en a pas.\n"),
            6);
  Tableau<BasicEntity*> one = Tab({c});
  herd->SetElementTab(one);
  EXPECT_EQ(herd->GetNumberOfElements(), 3);  // adjusts nothing
  EXPECT_EQ(a->GetNumberOfSuperSets(), 1);
  EXPECT_EQ(herd->RemoveElement(2), nullptr);
}

TEST_F(StructureTest, TheFirstSuperSetDoesNotCountAsHeld) {
  Thing* const other = NewHerd();
  herd->AddElement(a);
  other->AddElement(a);
  EXPECT_FALSE(a->HasInSuperSets(herd));
  EXPECT_TRUE(a->HasInSuperSets(other));
  EXPECT_EQ(a->GetSuperSet(), herd);
  EXPECT_EQ(a->GetBasicSuperSet(1), other);
  EXPECT_NE(RunInChild([&] { a->GetSuperSet(2); }).output.find("'BasicEntity::GetSuperSet'"),
            std::string::npos);
}

// The user interface
// ------------------------------------------------------------------------------------------

TEST_F(StructureTest, TellsChangesByteForByte) {
  Thing* const farm = NewFarm();
  farm->SetInstanceName("farm");
  EXPECT_EQ(OutputOf([&] {
              herd->AddElement(b);
              SimulationProbe::TellStructure(simulation);
              herd->AddElement(a);
              herd->RemoveElement(a);
              farm->AddComponent(herd->GetNamedElement("b"));
              farm->ReplaceComponent(c);
              farm->RemoveComponent(c);
            }),
            "\nANSWER PERMSTRUCTURE ELEMADD {herd ; a | }\n"
            "ANSWER STRUCTURE a VOID {} \n"
            "\nANSWER PERMSTRUCTURE ELEMREM {herd ; a | }\n"
            "\nANSWER PERMSTRUCTURE COMPADD {farm ; b | }\n"
            "ANSWER STRUCTURE b VOID {} \n"
            "\nANSWER PERMSTRUCTURE COMPREM {farm ; b | }\n"
            "\nANSWER PERMSTRUCTURE COMPADD {farm ; c | }\n"
            "ANSWER STRUCTURE c VOID {} \n"
            "\nANSWER PERMSTRUCTURE COMPREM {farm ; c | }\n");
  // The user interface hears of a component even when plugging it then fails.
  farm->AddComponent(a);
  const std::string elsewhere = RunInChild([&] {
                                  SimulationProbe::TellStructure(simulation);
                                  NewFarm()->AddComponent(a);
                                }).output;
  EXPECT_LT(elsewhere.find("COMPADD"), elsewhere.find("ComponentPluggedElsewhere"));
}

TEST_F(StructureTest, WritesStructuresOfAnyShape) {
  const auto answer = [&](const char* word) { return OutputOf([&] { simulation.SendStringForWord(word); }); };
  const auto shallow = [&](const char* word, int depth) {
    return OutputOf([&] { simulation.SendStringForWord(word, depth); });
  };
  Thing* const farm = NewFarm();
  farm->SetInstanceName("farm");
  farm->AddComponent(a);
  a->ElementClassId(ANIMAL);
  a->AddElement(c);
  herd->AddElement(b);
  EXPECT_EQ(answer("farm"), "farm COMP {a ELEM {c VOID {} } missing_component VOID {} } ");
  EXPECT_EQ(shallow("farm", 1), "farm COMP {a VOID {} missing_component VOID {} } ");
  EXPECT_EQ(shallow("farm", 0), "farm VOID {} ");
  EXPECT_EQ(answer("nobody"), "nobody VOID {} ");
  EXPECT_EQ(answer("ROOT"),
            "ROOT FREE {herd ELEM {b VOID {} } "
            "farm COMP {a ELEM {c VOID {} } missing_component VOID {} } } ");
  EXPECT_EQ(shallow("ROOT", 1), "ROOT FREE {herd VOID {} farm VOID {} } ");
  GetMetaClass(HERD)->UserInstantiable(0);
  EXPECT_EQ(shallow("ROOT", 1), "ROOT FREE {farm VOID {} } ");
  // A structure that holds itself comes to an end; a dead element is missing; an entity with both kinds of
  // parts shows its elements.
  c->ElementClassId(ANIMAL);
  c->AddElement(a);
  EXPECT_EQ(answer("a"), "a ELEM {c ELEM {a VOID {} } } ");
  herd->ForceElement(b);
  b->RemoveSuperSetNoPropagate(herd);
  DeleteEntity(b);
  EXPECT_EQ(answer("herd"), "herd ELEM {missing_element VOID {} missing_element VOID {} } ");
  farm->ForceElement(herd);
  EXPECT_EQ(shallow("farm", 1), "farm ELEM {herd VOID {} } ");
}

}  // namespace
