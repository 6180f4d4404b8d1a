// Processes: instances and numbers, methods, binding to entities, couples of events, copies.
#include <gtest/gtest.h>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/EngineLookups.h"
#include "kalve/engine/Event.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "tests/model/ModelTest.h"
#include "tests/support/Owned.h"

namespace {

class ProcessTest : public ModelTest {
 protected:
  ~ProcessTest() override {
    for (Process* process : Tableau<Process*>(Process::mpInstanceTab.Items())) DeleteProcess(process);
  }
  static void DeleteProcess(Process* process) {
    if (process->Subclass() == DISCRETE_PROCESS)
      static_cast<DiscreteProcess*>(process)->DeleteInDepth();
    else
      static_cast<ContinuousProcess*>(process)->DeleteInDepth();
  }
  static std::string Couples(const Event& event) {
    std::string text;
    for (StructProcessAction* couple : event.ListpProcessAction())
      text += std::string(couple->process->ClassName()) + ":" + StringActionType(couple->action) + " ";
    return text;
  }
};

TEST_F(ProcessTest, NumbersGoDownAgainAndRecur) {
  auto* first = new DiscreteProcess(20, "traite");
  auto* second = new DiscreteProcess(20, "traite");
  auto* third = new DiscreteProcess(20, "traite");
  EXPECT_STREQ(third->InstanceName(), "traite_3");
  second->DeleteInDepth();
  EXPECT_EQ((new DiscreteProcess(20))->ProcessInstanceNumber(), 3);
  EXPECT_EQ(Process::GetInstance(1), third);
  EXPECT_EQ(GetClassNamedProcess("traite"), first);
  EXPECT_EQ(GetNamedProcess("DiscreteProcess_3"), Process::GetInstance(2));
  EXPECT_EQ(GetNamedProcess("traite_2"), nullptr);
  EXPECT_EQ(OutputOf([] { EXPECT_EQ(Process::GetInstance(3), nullptr); }),
            "\n!!! Indice hors tableau dans 'Process::GetInstance' : indice 3, taille du tableau 3.\n");
}

TEST_F(ProcessTest, MethodsAreFoundRunAndCheckedByType) {
  auto* process = new ContinuousProcess(20, "pâturage");
  std::string ids;
  for (Method* method : process->MethodTab()) ids += std::to_string(method->ClassSymbol()) + " ";
  EXPECT_EQ(ids, "1 2 5 4 6 ");
  process->AssignBody(PROCESS_PRECONDITION,
                      [](ProcessMethod* m) { return m->DescribedProcess()->PostponementDelay(); });
  process->PostponementDelay(5);
  EXPECT_EQ(process->ExecIntMethod(PROCESS_PRECONDITION), 5);
  EXPECT_EQ(process->ExecIntCoreMethod(PROCESS_PRECONDITION), 5);
  EXPECT_EQ(process->GetMethod("stopProcess"), process->GetMethod(STOP_PROCESS));
  EXPECT_EQ(process->GetMethod("absente"), nullptr);
  IntProcessMethod withoutId;
  EXPECT_EQ(OutputOf([&] {
              EXPECT_EQ(process->GetMethod(EXEC_PROCESS), nullptr);
              EXPECT_EQ(process->ExecIntMethod(99), 0);
              process->AddMethod(&withoutId);
              EXPECT_EQ(process->MethodTab().size(), 5);
            }),
            "\n!!! Indice hors tableau dans 'Process::GetMethod' : indice 3, taille du tableau 7.\n"
            "\n!!! Indice hors tableau dans 'Process::ExecIntMethod' : indice 99, taille du tableau 7.\n"
            "\n!!! Indice hors tableau dans 'Process::AddMethod' : indice -9, taille du tableau 7.\n");
  EXPECT_EQ(
      FailureOf([&] { process->ExecVoidMethod(PROCESS_PRECONDITION); }),
      "\n!!!============== BadMethodValueType =============="
      "\n!!! L'opération 'exec void method' ne respecte pas le type de la méthode 'processPrecondition' (INT)."
      "\n    processus : pâturage\n");
}

TEST_F(ProcessTest, TheEntityMustBeOfTheClassAndMayDie) {
  auto* process = new DiscreteProcess(20, "traite");
  process->ProcessedEntityClassId(COW);
  Thing* cow = NewCow();
  EXPECT_EQ(process->ProcessedBasicEntity(), nullptr);                    // bound by nothing
  EXPECT_EQ(static_cast<BasicEntity*>(process->ProcessedEntity()), cow);  // the first of the class
  Thing* second = NewCow();
  process->ProcessedEntity(second);
  EXPECT_EQ(process->ProcessedBasicEntity(), second);
  EXPECT_NE(FailureOf([&] { process->ProcessedEntity(NewHerd()); }).find(" BadProcessedEntityClass "),
            std::string::npos);
  DeleteEntity(second);
  EXPECT_EQ(process->ProcessedBasicEntity(), nullptr);
}

TEST_F(ProcessTest, EventsNameTheirProcessesInFailures) {
  auto* milking = new DiscreteProcess(20, "traite");
  milking->ProcessedEntityClassId(COW);
  Thing* cow = NewCow();
  const OwnedEvent morning = MakeEvent(short{7}, "matin");
  EXPECT_EQ(FailureOf([&] { morning->ProcessedEntity(KV_PROCESS, cow); }),
            "\n!!!============== UnfoundProcessInEvent =============="
            "\n!!! L'événement 'matin' ne comporte pas de processus de classe KV_PROCESS.\n");
  EXPECT_NE(FailureOf([&] { morning->ProcessedEntity(500, cow); }).find(" de classe 500.\n"),
            std::string::npos);

  morning->AddProcessAction(milking, EXEC);
  milking->ProcessedEntity(cow);
  const OwnedEvent evening = MakeEvent(short{7}, "soir");
  evening->AddProcessAction(new DiscreteProcess(21, "soin"), EXEC);
  const auto warn = [&] { TwoEventsWithSameDateAndPriority(morning.get(), evening.get(), 12); };
  EXPECT_EQ(OutputOf(warn), "");
  g_KV_TraceWarnings = 1;
  EXPECT_EQ(OutputOf(warn),
            "\n!!!! Attention : les deux événements suivants :"
            "\n'soir' ('soin' sur <non spécifié>)\net\n'matin' ('traite' sur 'Cow_1')"
            "\n... ont la même priorité (7) et peuvent intervenir à la même date (12)."
            "\nArbitrairement, le premier (matin) est supposé intervenir avant le second (soir).");
}

TEST_F(ProcessTest, CouplesKeepTheirOrder) {
  auto* grass = new ContinuousProcess(20, "herbe");
  auto* cows = new ContinuousProcess(21, "vaches");
  cows->Step(3);
  const OwnedEvent event = MakeEvent("saison");
  event->AddProcessAction(cows, INIT);
  event->AddProcessAction(cows, PROCEED);
  event->AddProcessAction(grass, INIT);  // lower, but on another process
  EXPECT_EQ(Couples(*event), "vaches:INIT vaches:PROCEED herbe:INIT ");
  const auto refused = [&](Process* process, ActionType action) {
    return FailureOf([&] {
             event->AddProcessAction(process, action);
           }).find("UnexpectedAddToListProcessAction") != std::string::npos;
  };
  event->AddProcessAction(cows, PROCEED);
  EXPECT_TRUE(refused(cows, PROCEED));
  EXPECT_TRUE(refused(cows, INIT));
  EXPECT_TRUE(refused(grass, PROCEED));  // a lower step
  event->ClearListProcessAction();
  event->AddProcessAction(cows, PROCEED);
  event->InsertProcessAction(grass, STOP);
  event->InsertProcessAction(cows, INIT);
  EXPECT_EQ(Couples(*event), "vaches:INIT herbe:STOP vaches:PROCEED ");
  EXPECT_NE(FailureOf([&] {
              event->InsertProcessAction(grass, PROCEED);
            }).find("UnexpectedInsertInListProcessAction"),
            std::string::npos);
}

TEST_F(ProcessTest, CopiesOfEventsKeepOneProcessForItsCouplesAndRawCopiesShareMethods) {
  auto* grass = new ContinuousProcess(20, "herbe");
  auto* milking = new DiscreteProcess(21, "traite");
  const OwnedEvent event = MakeEvent(7, "saison");
  event->AddProcessAction(grass, INIT);
  event->AddProcessAction(milking, EXEC);
  event->AddProcessAction(grass, PROCEED);
  const OwnedEvent copy(new Event(*event));
  EXPECT_EQ(Couples(*copy), Couples(*event));
  EXPECT_EQ(copy->ListpProcessAction()[0]->process, copy->ListpProcessAction()[2]->process);
  EXPECT_NE(copy->FirstProcess(), grass);
  EXPECT_NE(copy->GetMethod(GENERATE_NEXTEVENT), event->GetMethod(GENERATE_NEXTEVENT));

  Event* raw = event->RawCopy();
  EXPECT_EQ(raw->GetMethod(GENERATE_NEXTEVENT), event->GetMethod(GENERATE_NEXTEVENT));
  EXPECT_EQ(static_cast<EventMethod*>(raw->GetMethod(GENERATE_NEXTEVENT))->DescribedEvent(), raw);
  Process* rawMilking = raw->ListpProcessAction()[1]->process;
  EXPECT_NE(rawMilking, milking);
  EXPECT_EQ(rawMilking->GetMethod(EXEC_PROCESS), milking->GetMethod(EXEC_PROCESS));
  EXPECT_NE(raw->FirstProcess()->GetMethod(STOP_PROCESS), grass->GetMethod(STOP_PROCESS));
  delete static_cast<DiscreteProcess*>(rawMilking);
  delete raw;
}

}  // namespace
