// Declarations of outputs, the equipment of entities and descriptors, and what reaches the files.
#include <filesystem>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "tests/outputs/OutputTest.h"
#include "tests/support/Owned.h"

namespace {

using OutputSpecTest = OutputTest;

/// The points of a series as "clock:value clock:value".
std::string Points(DescTimeSeries* series) {
  if (series == nullptr) return "none";
  std::string points;
  for (series->GoHead(); series->IsCurrentIn(); series->GoNext())
    points += Text("%s%d:", points.empty() ? "" : " ", series->GetCurrent()->GetClock()) +
              UnifiedValueToString(series->GetCurrent());
  return points;
}

// Declarations --------------------------------------------------------------------------------------------

TEST_F(OutputSpecTest, RelatedClassesAreRefusedInBothOrders) {
  struct Case {
    const char* first;
    const char* second;
    const char* third;  // null for none
    const char* refusing;
  };
  CreateMetaClass(30, "Heifer")->SetParentClassId(COW);
  SetHierarchy();
  const Case cases[] = {
      {"Animal", "Cow", nullptr, "Animal"},
      {"Cow", "Animal", nullptr, "Cow"},
      {"Animal", "Heifer", nullptr, "Animal"},
      {"Cow", "Bull", "Animal", "Cow"},
  };
  for (const Case& c : cases) {
    const char* const last = c.third != nullptr ? c.third : c.second;
    EXPECT_EQ(FailureOf([&] {
                NewWriter(c.first);
                NewWriter(c.second);
                if (c.third != nullptr) NewWriter(c.third);
              }),
              Text("\n!!!============== OverSpecificationOnParentClass =============="
                   "\n!!! Tentative de spécification de sortie sur la classe '%s'"
                   "\n    alors qu'une spécification sur la classe aparentée '%s'"
                   "\n    a déjà été faite.!!!\n",
                   last, c.refusing));
  }
  NewWriter("Bull");
  NewWriter("Cow");
  EntityOutputSpec* const cows = NewWriter("Cow")->GetEntityOutputSpec();
  NewWriter("Ghost");  // not registered: without relatives
  EXPECT_EQ(EntityOutputSpec::InstanceList().size(), 3);
  EXPECT_EQ(cows->GetMultipleDescriptorsData().size(), 2);
  // A declaration of structure looks for no relatives; a writer meets it before its own class.
  const EntityOutputSpec* const heifers =
      SetEntityStructureOS("Heifer", CLOCK, 0, 0, 0, "", "", "", OM_APPEND);
  NewWriter("Cow");
  EXPECT_NE(FailureOf([] { NewWriter("Heifer"); }).find("'Cow'"), std::string::npos);
  EXPECT_EQ(heifers->GetMultipleDescriptorsData().size(), 0);
}

TEST_F(OutputSpecTest, ADescriptorOfTwoWritersHasAPrecisionInEach) {
  OutputFileMDescOS* const first = NewWriter("Cow");
  OutputFileMDescOS* const second = NewWriter("Cow");
  first->AddDescriptorOS("weight", 2);
  second->AddDescriptorOS("age", 0);
  second->AddDescriptorOS("weight", 4);
  EXPECT_EQ(first->GetEntityOutputSpec()->GetDescriptorsData().size(), 2);
  const DescriptorOS* const weight = first->GetDescriptorsData().front();
  EXPECT_EQ(second->GetDescriptorsData().TailCell()->GetItem(), weight);
  EXPECT_EQ(weight->ParticipationIn(first)->GetPrecisionInMDescOS(), 2);
  EXPECT_EQ(weight->ParticipationIn(second)->GetPrecisionInMDescOS(), 4);
}

TEST_F(OutputSpecTest, ASecondDeclarationChangesWhatItAsksFor) {
  for (const char* name : {"new", "old", "elements", "log"}) folder.Write(name, "text");
  EntityOutputSpec* const spec =
      SetEntityStructureOS("Cow", CLOCK, 1, 0, 0, "old", "", "elements", OM_OVERWRITE);
  EXPECT_EQ(Content("old") + Content("elements"), "");
  OutputFile* const elements = spec->GetChangeElementOutputFile();
  EXPECT_EQ(SetEntityStructureOS("Cow", ISO_8601, 0, 1, 0, "unread", "new", "unread", OM_OVERWRITE), spec);
  EXPECT_STREQ(spec->GetCreationOutputFile()->GetSimpleName(), "old");
  EXPECT_STREQ(spec->GetChangeComponentOutputFile()->GetSimpleName(), "new");
  EXPECT_EQ(spec->GetChangeElementOutputFile(), elements);
  EXPECT_EQ(spec->IsCreationSaved() + 2 * spec->IsChangeComponentSaved() + 4 * spec->IsChangeElementSaved(),
            3);
  EXPECT_EQ(spec->GetTimeType(), ISO_8601);
  EXPECT_EQ(SetEntityStructureOS("Cow", DAY_MONTH_YEAR, 0, 0, 0, "", "", "", OM_APPEND)->GetTimeType(),
            ISO_8601);
  EXPECT_FALSE(std::filesystem::exists(folder.Path("unread")));
  EXPECT_EQ(Content("new"), "");
  SetEventOutputSpec("dawn", CLOCK, "log", OM_APPEND);
  EXPECT_EQ(Content("log"), "text");
  SetProcessOutputSpec("graze", CLOCK, "log", OM_OVERWRITE);
  EXPECT_EQ(Content("log"), "");
  EXPECT_EQ(EntityOutputSpec::GetCreationDateOS("Cow"), spec);
  EXPECT_EQ(EntityOutputSpec::GetCreationDateOS("Animal"), nullptr);
}

// Equipment -----------------------------------------------------------------------------------------------

TEST_F(OutputSpecTest, OneClockHasOnePointOfTheLastValue) {
  OutputFileMDescOS* const writer = NewWriter("Animal");
  writer->AddDescriptorOS("weight", 1);
  Thing* const cow = NewCow();
  auto& weight = Give<IntVariableDescriptor>(cow, 20, "weight");
  SetAt(4, weight, 1);
  SetAt(4, weight, 2);
  SetAt(6, weight, 2);
  EXPECT_EQ(Points(weight.GetDescTimeSeries()), "4:2 6:2");
  EXPECT_EQ(writer->GetDescriptorsData().front()->GetDescType(), INT);
  auto* const copy = static_cast<Entity*>(CopyEntity(cow));
  copy->SetIntValue(20, 9);
  EXPECT_EQ(Points(copy->GetDescriptor(20)->GetDescTimeSeries()), "6:9");
  EXPECT_EQ(Points(weight.GetDescTimeSeries()), "4:2 6:2");
}

TEST_F(OutputSpecTest, DescriptorsThatCameBeforeTheClassGetTheirSeries) {
  NewWriter("Farm")->AddDescriptorOS("area", 1);
  struct Estate : Entity {
    Estate() {
      SetMetaClass(FARM);
      AddVariableDescriptor(new FloatVariableDescriptor(20, "area"));
      SetFloatValue(20, 1.0F);  // nobody records it yet
      AddInstanceToClass();
    }
  };
  auto* const estate = new Estate();
  simulation.Clock(3);
  estate->SetFloatValue(20, 2.5F);
  EXPECT_EQ(Points(estate->GetDescriptor(20)->GetDescTimeSeries()), "3:2.5");
  EXPECT_STREQ(estate->GetEntityInstanceOS()->GetEntityInstanceName(), "Farm_1");
}

TEST_F(OutputSpecTest, TheWriterNamedLastDecidesOnTheRecord) {
  struct Case {
    int recorded;
    AllOrEnd allOrEnd;
    int saved;
    int recordFlag;
  };
  for (const Case& c : {Case{0, AOE_ALL, 1, 1}, Case{0, AOE_END, 1, 0}, Case{1, AOE_END, 0, 1},
                        Case{0, AOE_END, 0, 1}}) {  // without saving or recording it has no say
    NewWriter("Cow")->AddDescriptorOS("weight", 0);
    auto* const last = new OutputFileMDescOS(CLOCK, 0, c.recorded, c.saved, GRAPH_POINT, c.allOrEnd);
    last->RegisterEntityOS("Cow");
    last->AddDescriptorOS("weight", 0);
    Thing* const cow = NewCow();
    auto& weight = Give<IntVariableDescriptor>(cow, 20, "weight");
    EXPECT_EQ(weight.IsRecorded(), c.recordFlag);
    EXPECT_EQ(cow->GetEntityInstanceOS()->GetDescTimeSeriesTab().size(), 1);
    DeleteOutputSpecs();
    EXPECT_EQ(weight.IsRecorded(), 0);
    weight.SetValue(3);  // its series is gone
    EXPECT_EQ(cow->GetEntityInstanceOS(), nullptr);
  }
}

TEST_F(OutputSpecTest, OfSeveralSpecificationsTheLastOneHasTheEntity) {
  OutputFileMDescOS* const writer = NewWriter("Cow");
  writer->AddDescriptorOS("weight", 0);
  EntityOutputSpec* const animals =
      SetEntityStructureOS("Animal", CLOCK, 1, 0, 1, "a", "", "a", OM_OVERWRITE);
  const EntityOutputSpec* const cows = writer->GetEntityOutputSpec();
  simulation.Clock(8);
  Thing* const cow = NewCow();
  auto& weight = Give<IntVariableDescriptor>(cow, 20, "weight");
  weight.SetValue(1);
  EXPECT_EQ(cow->GetEntityInstanceOS()->GetEntityOutputSpec(), animals);
  EXPECT_EQ(cows->GetInstancesData().size(), 0);
  EXPECT_EQ(weight.GetDescTimeSeries(), nullptr);
  // Joining anew under the order turned round: what the record before held goes with it.
  EntityOutputSpec::RemoveFirstInstanceList(animals);
  EntityOutputSpec::PushBackInstanceList(animals);
  EntityOutputSpec::RemoveFirstInstanceList(const_cast<EntityOutputSpec*>(cows));
  EntityOutputSpec::PushBackInstanceList(const_cast<EntityOutputSpec*>(cows));
  cow->AddInstanceToClass();
  EXPECT_EQ(cow->GetEntityInstanceOS()->GetEntityOutputSpec(), cows);
  EXPECT_EQ(animals->GetInstancesData().size(), 0);
  weight.SetValue(2);
  EXPECT_EQ(Points(weight.GetDescTimeSeries()), "8:2");
  cow->AddInstanceToClass();  // the same specification starts a new record
  EXPECT_EQ(Points(weight.GetDescTimeSeries()), "");
  GetMetaClass(COW)->RemoveInstance(cow);  // it had joined its class three times
  GetMetaClass(COW)->RemoveInstance(cow);
}

TEST_F(OutputSpecTest, PlottedDescriptorsAreAnnouncedUnderTheNameOfTheLayer) {
  const auto announce = [](GraphType type) {
    auto* const writer = new OutputFileMDescOS(CLOCK, 1, 1, 0, type, AOE_ALL);
    writer->RegisterEntityOS("Cow");
    writer->AddDescriptorOS("weight", 3);
    writer->AddDescriptorOS("age", 0);
    return OutputOf([] { NewCow(); });
  };
  EXPECT_EQ(announce(GRAPH_POINT), "DRAW GRAPH Animal_1 weight 3 POINT\nDRAW GRAPH Animal_1 age 0 POINT\n");
  DeleteOutputSpecs();
  EXPECT_EQ(announce(GRAPH_LINE), "DRAW GRAPH Animal_1 weight 3 LINE\nDRAW GRAPH Animal_1 age 0 LINE\n");
}

// The end of entities and of the run ----------------------------------------------------------------------

int AddHundred(MonitorMethod* method) { return method->GetIntArgValue(CANDIDATEINTVALUE_ARGUMENT) + 100; }

TEST_F(OutputSpecTest, FinalValuesComeFromTheDyingAndFromTheDump) {
  OutputFileMDescOS* const writer = NewWriter("Cow", AOE_END);
  for (const char* name : {"weight", "owner", "breed"}) writer->AddDescriptorOS(name, 1);
  for (int i = 0; i < 2; ++i) {
    Thing* const cow = NewCow();
    auto& weight = Give<FloatVariableDescriptor>(cow, 20, "weight");
    Give<StringVariableDescriptor>(cow, 21, "owner").SetValue(i == 0 ? "Ada" : "Bob");
    Give<StringConstantDescriptor>(cow, 22, "breed").SetValue("Angus");
    SetAt(10 * i, weight, 1.0F);
    SetAt(10 * i + 5, weight, 1.5F);
  }
  simulation.Clock(40);
  DeleteEntity(GetNamedEntity("Cow_1"));
  EXPECT_EQ(writer->GetEntityOutputSpec()->GetInstancesData().front()->GetDeletionClock(), 40);
  simulation.Clock(60);
  NewBull();
  DisplayAllOutputSpecs();
  EXPECT_EQ(Content("series.txt"),
            "#Cow  \tclock\tweight\towner\tbreed\n"
            "Cow_1\t40\t1.5\tAda\t_\n\n"
            "Cow_2\t60\t1.5\tBob\tAngus\n\n");
}

TEST_F(OutputSpecTest, TheFinalPointOfADumpReadsPastTheMonitorAndSetsThroughIt) {
  NewWriter("Cow", AOE_END)->AddDescriptorOS("weight", 0);
  Thing* const cow = NewCow();
  auto& weight = Give<IntVariableDescriptor>(cow, 20, "weight");
  weight.SetValue(1);
  IntDescValueMonitor watch("watch");
  watch.AssignWhenSetIntMethod(AddHundred);
  watch.AttachToDescriptor(cow, 20);
  simulation.Clock(9);
  DisplayAllOutputSpecs();
  EXPECT_EQ(Points(weight.GetDescTimeSeries()), "9:101");
  DeleteEntity(cow);  // from here the changes were recorded: one point at this clock
  EXPECT_EQ(Points(EntityOutputSpec::OfClass("Cow")->GetInstancesData().front()->GetDescTimeSeriesTab()[0]),
            "9:101");
  NewCow();
  EXPECT_NE(FailureOf([] { DisplayAllOutputSpecs(); }).find("de nom de classe : 'weight"), std::string::npos);
}

TEST_F(OutputSpecTest, AnEntityThatDiesAfterTheSimulationBearsItsLastClock) {
  SetEntityStructureOS("Cow", CLOCK, 1, 0, 0, "births", "", "", OM_OVERWRITE);
  Thing* const cow = NewCow();
  const EntityInstanceOS* const record = cow->GetEntityInstanceOS();
  pCurrentSim = nullptr;
  gFinalClock = 77;
  DeleteEntity(cow);
  EXPECT_EQ(record->GetDeletionClock(), 77);
  pCurrentSim = &simulation;
}

// Structure -----------------------------------------------------------------------------------------------

TEST_F(OutputSpecTest, ChangesOfStructureAreDatedAndStandInTheFilesInTheEnd) {
  SetEntityStructureOS("Herd", CLOCK, 1, 1, 1, "births", "parts", "members", OM_OVERWRITE);
  SetEntityStructureOS("Farm", CLOCK, 1, 1, 1, "births2", "parts2", "members2", OM_OVERWRITE);
  simulation.Clock(1);
  Thing* const herd = NewHerd();
  Thing* const farm = NewFarm();
  Thing* const cow = NewCow();
  simulation.Clock(2);
  herd->AddElement(cow);
  herd->AddElement(NewBull());
  Thing* const udder = NewUdder();
  farm->AddComponent(udder);
  simulation.Clock(3);
  herd->RemoveElement(cow);
  farm->RemoveComponent(udder);
  farm->AddComponent(cow);
  herd->SetInstanceName("Elite");
  EXPECT_EQ(OutputOf([&] {
              DisplayEntityOutputSpecs(0);
              std::printf("%zu", Content("births").size() + Content("parts2").size());
              std::fflush(nullptr);  // as the end of the process does
            }),
            "0");
  EXPECT_EQ(Content("births"), "Elite création à la date \t1\n");
  EXPECT_EQ(Content("members"),
            "Eliteajout/retrait élément Cow_3 (classe Cow) date : \t2 (-> 1)\n"
            "Eliteajout/retrait élément Bull_4 (classe Bull) date : \t2 (-> 2)\n");
  EXPECT_EQ(Content("parts2"),
            "Farm_2 ajout   composant Udder_5 (classe Udder) date : \t2\n"
            "Farm_2 retrait composant Udder_5 (classe Udder) date : \t3\n"
            "Farm_2 ajout   composant Cow_3 (classe Cow) date : \t3\n");
  EXPECT_EQ(Content("parts") + Content("members2"), "");
}

TEST_F(OutputSpecTest, ALongDumpOfStructureIsNotTorn) {
  SetEntityStructureOS("Cow", CLOCK, 1, 0, 0, "births", "", "", OM_OVERWRITE);
  std::string expected;
  for (int i = 1; i <= 6000; ++i) {
    NewCow();
    expected += Text("Cow_%d création à la date \t0\n", i);
  }
  OutputOf([] {
    DisplayAllOutputSpecs();
    DisplayAllOutputSpecs();
    std::fflush(nullptr);
  });
  EXPECT_TRUE(Content("births") == expected);
}

TEST_F(OutputSpecTest, ADumpTakesTheStrictDescendantsOfAClassOrAll) {
  for (const char* name : {"Cow", "Bull", "Herd"})
    SetEntityStructureOS(name, CLOCK, 1, 0, 0, name, "", "", OM_APPEND);
  NewCow();
  NewBull();
  NewHerd();
  const auto written = [&](int classId) {
    OutputOf([&] {
      DisplayEntityOutputSpecs(classId);
      std::fflush(nullptr);
    });
    std::string names;
    for (const char* name : {"Cow", "Bull", "Herd"}) {
      if (!Content(name).empty()) names += std::string(name) + " ";
      folder.Write(name, "");
    }
    return names;
  };
  EXPECT_EQ(written(ANIMAL), "Cow Bull ");
  EXPECT_EQ(written(COW), "");
  EXPECT_EQ(written(KV_ENTITY), "Cow Bull Herd ");
  EXPECT_EQ(written(-9), "Cow Bull Herd ");
  EXPECT_EQ(written(KV_ENTITYSPEC), "");
}

// Events and processes ------------------------------------------------------------------------------------

class OccurrenceTest : public OutputTest {
 protected:
  Event* Post(const char* name, int clock, Process* process = nullptr, ActionType action = EXEC) {
    auto* const event = new Event(name);
    if (process != nullptr) event->AddProcessAction(process, action);
    EXPECT_NE(simulation.InsertInAgendaEvents(event, 10, clock), 0);
    return event;
  }
};

TEST_F(OccurrenceTest, PoppedEventsAreNotedWithTheSpecificationInCharge) {
  SetEventOutputSpec("dawn", CLOCK, "first", OM_OVERWRITE);
  SetEventOutputSpec("dawn", CLOCK, "last", OM_OVERWRITE);
  Post("dawn", 3);
  Post("dusk", 5, new DiscreteProcess(20, "graze"));
  SetEventOutputSpec("all_eventClasses", CLOCK, "all", OM_OVERWRITE);
  SetEventOutputSpec("noon", CLOCK, "noon", OM_OVERWRITE);
  Post("dawn", 7, new DiscreteProcess(20, "graze"));
  const OwnedEvent popped(Post("noon", 8, new DiscreteProcess(20, "graze")));
  simulation.SetEndClock(7);
  simulation.RunBatch(99);
  DisplayAllOutputSpecs();
  EXPECT_EQ(Content("first"), "");
  EXPECT_EQ(Content("last"), "dawn \t3\n");
  EXPECT_EQ(Content("all"), "dawn \t7\nnoon \t8\n");  // the last was popped, neither applied nor freed
  EXPECT_EQ(Content("noon"), "");
}

TEST_F(OccurrenceTest, ProcessesAreNotedWithStartStopAndEntity) {
  SetProcessOutputSpec(OS_CONTINUOUS_PROCESS, "grow", CLOCK, "continuous", OM_OVERWRITE);
  SetProcessOutputSpec(OS_DISCRETE_PROCESS, "graze", CLOCK, "discrete", OM_OVERWRITE);
  SetProcessOutputSpec("all_processClasses", CLOCK, "all", OM_OVERWRITE);
  const auto run = [&] {
    Thing* const cow = NewCow();
    auto* const grow = new ContinuousProcess(21, "grow");
    grow->Step(10);
    grow->ProcessedEntityClassId(COW);
    grow->ProcessedEntity(cow);
    grow->HasProcessedEntity(1);
    grow->PostInitAndProceedEvent(5);
    auto* const graze = new DiscreteProcess(20, "graze");
    graze->ProcessedEntityClassId(COW);
    graze->ProcessedEntity(cow);
    graze->HasProcessedEntity(1);
    Post("meal", 12, graze);
    Post("sleep", 13, new DiscreteProcess(20, "graze"));
    Post("end", 27, grow, STOP);
    (new ContinuousProcess(21, "grow"))->PostInitAndProceedEvent(30);
    simulation.SetEndClock(50);
    simulation.RunBatch(99);
    DeleteEntity(cow);
    DisplayAllOutputSpecs();
  };
  run();
  EXPECT_EQ(Content("all"),
            "cont grow \t5 \t27 Cow_1\n"
            "disc graze -9 -9 \t12 Cow_1\n"
            "disc graze -9 -9 \t13 \n"
            "cont grow \t30 \tNot a Date \n");
  EXPECT_EQ(Content("continuous") + Content("discrete"), "");
  delete static_cast<ProcessOutputSpec*>(ProcessOutputSpec::mpInstanceList.TailCell()->GetItem());
  simulation.Clock(0);
  run();
  EXPECT_EQ(Content("continuous"), "cont grow \t5 \t27 Cow_2\ncont grow \t30 \tNot a Date \n");
  EXPECT_EQ(Content("discrete"), "disc graze \t12 Cow_2\ndisc graze \t13 \n");
}

TEST_F(OccurrenceTest, TheFirstOccurrenceOfANumberIsStopped) {
  SetProcessOutputSpec("grow", CLOCK, "all", OM_OVERWRITE);
  auto* const spec = static_cast<ProcessOutputSpec*>(ProcessOutputSpec::mpInstanceList.front());
  for (const int clock : {1, 2}) spec->AddOccurrenceData(CONTINUOUS_PROCESS, "grow", 7, clock, nullptr);
  simulation.Clock(9);
  spec->AddOccurrenceData(7, -1);
  spec->AddOccurrenceData(8, -1);
  DisplayProcessOutputSpecs();
  EXPECT_EQ(Content("all"), "cont grow \t1 \t9 \ncont grow \t2 \tNot a Date \n");
  spec->IsSaved(0);
  folder.Write("all", "kept");
  DisplayProcessOutputSpecs();
  EXPECT_EQ(Content("all"), "kept");
}

TEST_F(OccurrenceTest, ASpecificationWithoutAFileEndsTheRunAtTheDump) {
  SetEventOutputSpec("dawn", CLOCK, "", OM_OVERWRITE);
  EXPECT_NE(FailureOf([] { DisplayEventOutputSpecs(); }).find(" BadFileName "), std::string::npos);
}

// Teardown ------------------------------------------------------------------------------------------------

TEST_F(OccurrenceTest, NothingIsLeftBehindAndTheLivingAreFree) {
  const int alive = OutputSpec::getNbConst() - OutputSpec::getNbDest();
  OutputFileMDescOS* const writer = NewWriter("Cow");
  EntityOutputSpec::PushBackInstanceList(writer->GetEntityOutputSpec());  // where it stands already
  writer->AddDescriptorOS("weight", 0);
  writer->AddParameterOS("ALL", "");
  SetEntityStructureOS("Herd", CLOCK, 1, 1, 1, "h", "h", "h", OM_OVERWRITE);
  SetEventOutputSpec("all_eventClasses", CLOCK, "e", OM_OVERWRITE);
  SetProcessOutputSpec("graze", CLOCK, "p", OM_OVERWRITE);
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  auto& weight = Give<IntVariableDescriptor>(cow, 20, "weight");
  weight.SetValue(4);
  herd->AddElement(cow);
  Post("dawn", 3, new DiscreteProcess(20, "graze"));
  simulation.RunBatch(99);
  DeleteOutputSpecs();
  EXPECT_EQ(OutputSpec::getNbConst() - OutputSpec::getNbDest(), alive);
  EXPECT_FALSE(EntityOutputSpec::AreOutputSpec() || EventOutputSpec::AreOutputSpec() ||
               ProcessOutputSpec::AreOutputSpec());
  weight.SetValue(5);
  herd->RemoveElement(cow);
  herd->AddElement(cow);
  herd->SetInstanceName("free");
  DeleteOutputSpecs();
}

}  // namespace
