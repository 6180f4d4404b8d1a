// Services over all instances: methods by name, selections, reports, teardown.
#include <unistd.h>

#include <cstdlib>

#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/EngineLookups.h"
#include "kalve/engine/Event.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"
#include "tests/model/ModelTest.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using ServicesTest = ModelTest;

// Methods by name -----------------------------------------------------------------------------------------

TEST_F(ServicesTest, MethodsAreFoundByTheNamesOfOwnerAndMethod) {
  Thing* const cow = NewCow();
  auto* const moo = new VoidEntityMethod(70, "moo");
  cow->AddMethod(moo);
  EXPECT_EQ(GetNamedMethod(KV_ENTITY, "Cow_1", "moo"), moo);
  EXPECT_NE(FailureOf([] { GetNamedMethod(KV_ENTITY, "Cow_1", "low"); }).find("InexistantMethod"),
            std::string::npos);
  EXPECT_NE(FailureOf([] { GetNamedMethod(KV_ENTITY, "Cow_9", "moo"); }).find("'Cow_9'"), std::string::npos);

  auto* const process = new DiscreteProcess(20, "graze");
  auto* const event = new Event("dawn");
  event->AddProcessAction(process, EXEC);
  simulation.InsertInAgendaEvents(event);
  EXPECT_EQ(GetNamedMethod(KV_EVENT, event->InstanceName(),
                           event->GetMethod(GENERATE_NEXTEVENT)->StoredClassName()),
            event->GetMethod(GENERATE_NEXTEVENT));
  EXPECT_EQ(GetNamedMethod(KV_PROCESS, process->InstanceName(),
                           process->GetMethod(EXEC_PROCESS)->StoredClassName()),
            process->GetMethod(EXEC_PROCESS));
  EXPECT_EQ(GetNamedMethod(KV_EVENT, event->InstanceName(), "moo"), nullptr);
  EXPECT_EQ(GetNamedMethod(KV_EVENT, "dusk", "moo"), nullptr);
  EXPECT_EQ(GetNamedMethod(KV_PROCESS, "dusk", "moo"), nullptr);
  EXPECT_EQ(GetNamedMethod(KV_MONITOR, "watch", "moo"), nullptr);
  simulation.RemoveFromAgendaEvents(event);
  event->DeleteInDepth();
  const int methods = Method::getNbDest();
  DeleteProcess(process);
  EXPECT_EQ(Method::getNbDest() - methods, 3);

  EXPECT_EQ(GetMethodSymbol(COW, "moo"), 70);
  EXPECT_EQ(GetMethodSymbol(ANIMAL, "moo"), 70);
  EXPECT_EQ(GetMethodSymbol(COW, "low"), -9);
  for (const int id : {static_cast<int>(BULL), static_cast<int>(KV_ENTITY), 9, 99, -9})
    EXPECT_EQ(GetMethodSymbol(id, "moo"), -9) << id;
}

// Selections ----------------------------------------------------------------------------------------------

TEST_F(ServicesTest, SelectionGoesByClassOrByKin) {
  Thing* const herd = NewHerd();
  auto* const animal = new Thing{ANIMAL};
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  const Tableau<BasicEntity*> tab = Tab({nullptr, herd, animal, bull, cow, bull});
  EXPECT_EQ(SelectBasicEntity(tab, COW, "itself"), cow);
  EXPECT_EQ(SelectBasicEntity(tab, COW, "parent"), animal);  // an ancestor of the class comes first
  EXPECT_EQ(SelectBasicEntity(tab, FARM, nullptr), nullptr);
  EXPECT_EQ(SelectBasicEntity(Tab({}), COW, "itself"), nullptr);
  const auto selected = [&](int classId, const char* scope) {
    const std::unique_ptr<Tableau<BasicEntity*>> owned(SelectBasicEntities(tab, classId, scope));
    return Names(*owned);
  };
  EXPECT_EQ(selected(ANIMAL, "itself"), "Animal_2");
  EXPECT_EQ(selected(ANIMAL, "descendants"), "Animal_2 Bull_4 Cow_3 Bull_4");
  EXPECT_EQ(selected(99, "itself"), "");
  EXPECT_NE(FailureOf([&] { selected(99, ""); }).find("'IsInstanceOf'"), std::string::npos);
}

TEST_F(ServicesTest, TheCommonElementIsTheLastOfTheFirstTableThatHasOne) {
  Thing* const first = NewHerd();
  Thing* const second = NewHerd();
  Thing* const third = NewHerd();
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  first->AddElements(Tab({cow, bull, NewCow()}));
  second->AddElements(Tab({NewCow(), cow, bull, NewCow()}));
  third->AddElements(Tab({bull, cow}));
  Tableau<BasicEntity*> herds = Tab({first, second, third});
  EXPECT_EQ(CommonElementInSeveralEntities(&herds), bull);
  herds = Tab({third, first});
  EXPECT_EQ(CommonElementInSeveralEntities(&herds), bull);
  herds = Tab({first, cow, nullptr});
  EXPECT_EQ(CommonElementInSeveralEntities(&herds), nullptr);
}

TEST_F(ServicesTest, OnlyEntitiesWithDescriptorsAreSorted) {
  Thing* const cow = NewCow();
  DescriptedEntity described;
  BasicEntity basic;
  const std::unique_ptr<Tableau<DescriptedEntity*>> tab(
      EntityTabToDescriptedEntityTab(Tab({cow, &described})));
  EXPECT_EQ(tab->size(), 2);
  EXPECT_EQ(tab->front(), cow);
  EXPECT_NE(FailureOf([&] {
              EntityTabToDescriptedEntityTab(Tab({cow, &basic}));
            }).find("basicEntity_3"),
            std::string::npos);
}

// Reports -------------------------------------------------------------------------------------------------

TEST_F(ServicesTest, EntitiesAreListedByAddressAndByName) {
  Thing* const cow = NewCow();
  Thing* const bull = NewBull();
  const Tableau<BasicEntity*> tab = Tab({cow, bull});
  EXPECT_EQ(
      OutputOf([] { DisplayEntities(ANIMAL); }),
      Text("\n2 instances de la classe Animal : %p %p ", static_cast<void*>(cow), static_cast<void*>(bull)));
  EXPECT_EQ(OutputOf([] { DisplayEntities(FARM); }), "\n!!! Aucune instances de la classe Farm");
  EXPECT_EQ(OutputOf([] { DisplayEntities(99); }), "\n!!! Aucune instances de la classe 99");
  EXPECT_EQ(OutputOf([&] {
              DisplayEntityNames(tab);
              DisplayEntityNames(tab, 1);
              DisplayEntityNames(tab, 0);
              DisplayEntityNames(Tab({}), 3);
              Tableau<DescriptedEntity*> described;
              described.push_back(cow);
              DisplayEntityNames(described);
              DisplayEntityNames(described, 2);
            }),
            "(Cow_1 Bull_2 )(Cow_1 )()tableau de taille nulle (Cow_1 )(Cow_1 )");
  EXPECT_EQ(OutputOf([] {
              std::snprintf(gGlobalString, gGlobalStringSize, " now");
              ForceToStdout();
            }),
            "STDOUT now");
}

TEST_F(ServicesTest, TheLogGrowsInTheWorkingDirectory) {
  const TemporaryFolder folder;
  folder.Write("K_logFile", "before ");
  NewCow();
  EXPECT_EQ(OutputOf([&] {
              LogEntityNames(*GetEntityList(COW));  // no log yet
              if (chdir(folder.Path("").c_str()) != 0) std::abort();
              OpenLogFile();
              LogEntityNames(*GetEntityList(COW));
              LogEntityNames(Tab({}));
              std::fclose(pLogFile);
            }),
            "");
  std::ifstream log(folder.Path("K_logFile"));
  std::string line;
  std::getline(log, line);
  EXPECT_EQ(line, "before (Cow_1 )tableau de taille nulle ");
}

TEST_F(ServicesTest, TheReportCountsEachClass) {
  DeleteEntity(NewCow());
  NewCow();
  NewCow();
  const std::string report = OutputOf([] { MemoryReport(); });
  EXPECT_EQ(report.find("\nnb const/dest Entity            :     3 1\nnb const/dest "), 0U) << report;
  const std::string methods =
      Text("\nnb const/dest Method            : %5d %d\nnb const/dest Argument          : %5d %d\n",
           Method::getNbConst(), Method::getNbDest(), Argument::getNbConst(), Argument::getNbDest());
  EXPECT_NE(report.find(methods), std::string::npos) << report;
  EXPECT_EQ(report.find("\n\n"), std::string::npos);
  EXPECT_EQ(report.back(), '\n');
  EXPECT_EQ(OutputOf([] { MemoryReport(2); }), "");
  EXPECT_EQ(OutputOf([] { MemoryReport(1); }), report);
  EXPECT_EQ(OutputOf([] {
              g_KV_MemoryReportMode = 1;
              MemoryReport(0);
            }),
            report);
  DeleteEntityInstances();
  DeleteEntityClasses();
  EXPECT_EQ(OutputOf([] { MemoryReport(1); }).find("\nnb const/dest Entity            :     0 0"), 0U);
}

// Teardown ------------------------------------------------------------------------------------------------

TEST_F(ServicesTest, InstancesOfAClassTakeThoseOfItsParentsAlong) {
  NewCow();
  NewBull();
  Thing* const herd = NewHerd();
  herd->AddElement(NewCow());
  DeleteEntityInstances(COW);
  EXPECT_EQ(GetNumberOfEntities(ANIMAL), 0);
  EXPECT_FALSE(herd->HasElements());
  EXPECT_EQ(OutputOf([] { DeleteEntityInstances(9); }), "");
  for (const int id : {99, -9})
    EXPECT_EQ(
        OutputOf([id] { DeleteEntityInstances(id); }),
        Text("\n!!! Tentative de suppression des instances d'une classe (%d) pour laquelle la liste des "
             "instances n'a pas été créée (par AddInstanceToClass))\n",
             id));
}

TEST_F(ServicesTest, AClassLeavesBothTablesOfTheRegistry) {
  DeleteEntityClasses(UDDER);
  EXPECT_EQ(GetMetaClass(UDDER), nullptr);
  EXPECT_EQ(gMetaClassIdTab[UDDER], -9);
  EXPECT_EQ(GetClassSymbol("Udder"), -9);
  NewCow();
  DeleteEntityInstances();
  EXPECT_EQ(GetNumberOfEntities(COW), 0);
  for (const int id : {static_cast<int>(UDDER), 99, -9})
    EXPECT_EQ(OutputOf([id] { DeleteEntityClasses(id); }),
              Text("\n!!! Tentative de suppression d'une classe inconnue de symbole %d.\n", id));
}

BasicEntity* KeepAll(MonitorMethod* /*method*/) { return nullptr; }

/// Classes of an application, with something of their own.
class Choice : public EntitySpec {
 public:
  Choice() : EntitySpec(COW) {}
  double mWeights[4] = {};
};
class Limits : public DescIntValueSpec {
 public:
  Limits() : DescIntValueSpec(20, IN, 1, 2) {}
  double mTolerances[4] = {};
};

/// Everything that dies with a run, linked in every way, under a monitor that lets nothing go.
class TeardownTest : public ModelTest {
 protected:
  TeardownTest() {
    monitor.reset();
    before = Alive(OutputOf([] { MemoryReport(); }));
    (new StructureMonitor("first"))->AssignWhenRemoveElementMethod(KeepAll);
    pCurrentSim = new Simulation();
    Thing* const farm = NewFarm();
    Thing* const herd = NewHerd();
    Thing* const other = NewHerd();
    Thing* const cow = NewCow();
    cow->AddMethod(new VoidEntityMethod(70, "moo"));
    farm->AddComponent(cow);
    for (Thing* const set : {herd, other}) set->AddElements(Tab({cow, NewBull()}));
    StructureMonitor::mpInstanceTab.back()->AttachToEntity(herd);
    CopyEntity(farm);
    CopyEntity(other);
    auto* const event = new Event("dawn");
    event->AddProcessAction(new DiscreteProcess(20, "graze"), EXEC);
    pCurrentSim->InsertInAgendaEvents(event);
    new DiscreteProcess(21, "idle");
    (new Choice)->AddDescValueSpec(new Limits);
    pCurrentSim->Clock(12);
    StructureMonitor::mpInstanceTab.push_back(nullptr);
  }

  /// Constructions less destructions in each line of a report.
  static std::vector<int> Alive(const std::string& report) {
    std::vector<int> alive;
    for (std::size_t at = 0; (at = report.find(" : ", at)) != std::string::npos; at += 3) {
      int constructions = 0;
      int destructions = -1;
      std::sscanf(report.c_str() + at + 3, "%d %d", &constructions, &destructions);
      alive.push_back(constructions - destructions);
    }
    return alive;
  }

  std::vector<int> before;  // other tests may have left something
};

TEST_F(TeardownTest, NothingIsLeftAndTheCountersAgree) {
  DeleteAll();
  EXPECT_EQ(pCurrentSim, nullptr);
  EXPECT_EQ(gFinalClock, 12);
  EXPECT_EQ(gMetaClassTab.size(), 0);
  EXPECT_GT(gMetaClassIdTab.size(), 0);
  EXPECT_EQ(StructureMonitor::getNbConst(), StructureMonitor::getNbDest());
  EXPECT_EQ(Event::getNbConst(), Event::getNbDest());
  EXPECT_EQ(DiscreteProcess::getNbConst(), DiscreteProcess::getNbDest());
  EXPECT_EQ(Method::getNbConst(), Method::getNbDest());
  EXPECT_EQ(Argument::getNbConst(), Argument::getNbDest());
  EXPECT_EQ(DescValueSpec::getNbConst(), DescValueSpec::getNbDest());
  EXPECT_EQ(GetNamedEvent("dawn"), nullptr);
  const std::unique_ptr<Tableau<Event*>> events(GetClassNamedEventTab("dawn"));
  EXPECT_EQ(events->size(), 0);
  DeleteAll();  // a second teardown finds nothing
}

TEST_F(TeardownTest, TheReportComesOnceEverythingButTheClassesIsGone) {
  const std::string report = OutputOf([] {
    g_KV_MemoryReportMode = 1;
    DeleteAll();
  });
  EXPECT_EQ(before.size(), 16U);
  EXPECT_EQ(Alive(report), before) << report;
  EXPECT_EQ(report.find("\nnb const/dest Entity            :    11 11\n"), 0U) << report;
  DeleteAll();
}

}  // namespace
