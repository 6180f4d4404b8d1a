#include "kalve/monitors/StructureMonitor.h"

#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "tests/model/ModelTest.h"

namespace {

std::vector<std::string> gSeen;

std::string SeenBy(MonitorMethod* method) {
  return std::string(method->DescribedStructureMonitor()->ClassName()) + " " +
         method->GetEntityArgValue(CURRENTENTITYCONTAINER_ARGUMENT)->InstanceName() + " " +
         method->GetEntityArgValue(CANDIDATEENTITYELEMENT_ARGUMENT)->InstanceName();
}

BasicEntity* Accept(MonitorMethod* method) {
  gSeen.push_back(SeenBy(method));
  return method->GetBasicEntityArgValue(CANDIDATEENTITYELEMENT_ARGUMENT);
}

BasicEntity* Refuse(MonitorMethod* method) {
  gSeen.push_back(SeenBy(method));
  return nullptr;
}

BasicEntity* TakeOutFirst(MonitorMethod* method) {
  BasicEntity* const element = method->GetBasicEntityArgValue(CANDIDATEENTITYELEMENT_ARGUMENT);
  method->GetBasicEntityArgValue(CURRENTENTITYCONTAINER_ARGUMENT)->RemoveElement(element, 0);
  return element;
}

class StructureMonitorTest : public ModelTest {
 protected:
  StructureMonitorTest() { gSeen.clear(); }
};

TEST_F(StructureMonitorTest, SeesSetAndElementWhileItsMethodIsAssigned) {
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  Thing* const other = NewCow();
  monitor->AttachToEntity(herd);
  EXPECT_EQ(herd->AddElement(cow), nullptr);  // nothing assigned
  monitor->AssignWhenAddElementMethod(Accept);
  monitor->AssignWhenRemoveElementMethod(Refuse);
  EXPECT_EQ(OutputOf([&] {
              EXPECT_EQ(herd->AddElement(other), nullptr);
              EXPECT_EQ(herd->RemoveElement(cow), cow);
            }),
            "");
  EXPECT_EQ(herd->RemoveElement(cow), cow);
  EXPECT_EQ(herd->AddElement(other), nullptr);
  EXPECT_EQ(gSeen, (std::vector<std::string>{"watch Herd_1 Cow_2", "watch Herd_1 Cow_3"}));
  monitor->UnassignWhenAddElementMethod();
  monitor->UnassignWhenRemoveElementMethod();
  EXPECT_EQ(monitor->HasAddElementMethod() + monitor->HasRemoveElementMethod(), 0);
  EXPECT_EQ(herd->RemoveElements(), nullptr);
  EXPECT_EQ(herd->AddElement(cow), nullptr);
  EXPECT_EQ(gSeen.size(), 2U);
  monitor->HasAddElementMethod(1);  // the body is still there
  EXPECT_EQ(herd->AddElement(other), nullptr);
  EXPECT_EQ(gSeen.back(), "watch Herd_1 Cow_3");
  monitor->AssignWhenAddElementMethod(nullptr);  // no body counts as off
  EXPECT_EQ(herd->AddElement(NewBull()), nullptr);
  EXPECT_EQ(gSeen.size(), 3U);
  monitor->DetachFromEntity(herd);
  EXPECT_NE(FailureOf([&] { monitor->DetachFromEntity(herd); }).find(" DoNotHaveMonitorAttached "),
            std::string::npos);
  EXPECT_NE(
      FailureOf([&] { StructureMonitor::AttachToEntity(nullptr, herd); }).find(" StructAttachmentFailed "),
      std::string::npos);
}

TEST_F(StructureMonitorTest, ABodyMayChangeTheSetItWatches) {
  Thing* const herd = NewHerd();
  Thing* const cow = NewCow();
  herd->AddElements(Tab({NewBull(), cow, NewBull()}));
  monitor->AttachToEntity(herd);
  monitor->AssignWhenRemoveElementMethod(TakeOutFirst);
  EXPECT_EQ(herd->RemoveElement(cow), nullptr);
  EXPECT_EQ(herd->GetNumberOfElements(), 2);
  EXPECT_EQ(Names(herd->GetElementTab()), "Bull_3 Bull_4");
}

TEST_F(StructureMonitorTest, HoldsTwoPredefinedMethodsByIdAndName) {
  EXPECT_EQ(monitor->MethodTab().size(), 2);
  Method* const add = monitor->GetMethod(WHEN_ADD_ELEMENT);
  EXPECT_EQ(add, monitor->GetMethod("whenAddElement"));
  EXPECT_EQ(add->ClassType(), P_ENTITY);
  EXPECT_EQ(monitor->GetMethod(WHEN_REMOVE_ELEMENT)->ClassType(), VOID);
  for (const int id : {WHEN_ADD_ELEMENT, WHEN_REMOVE_ELEMENT})
    EXPECT_EQ(monitor->GetMethod(id)->ArgumentTab().size(), 3);
  EXPECT_EQ(monitor->GetMethod("execProcess"), nullptr);
  auto* const foreign = new VoidEntityMethod(48, "foreign");
  monitor->AddMethod(foreign);
  EXPECT_EQ(monitor->MethodTab().size(), 2);
  delete foreign;
  VoidMonitorMethod withoutId;
  EXPECT_NE(RunInChild([&] {
              monitor->AddMethod(&withoutId);
            }).output.find("'StructureMonitor::AddMethod' : indice -9"),
            std::string::npos);
  for (const int id : {-9, 7, 50})
    EXPECT_NE(RunInChild([&] { monitor->GetMethod(id); }).output.find("'StructureMonitor::GetMethod'"),
              std::string::npos);
}

TEST_F(StructureMonitorTest, CountsUpwardOnDestructionToo) {
  const int before = StructureMonitor::mInstanceNumber;
  const int built = StructureMonitor::getNbConst();
  const int destroyed = StructureMonitor::getNbDest();
  std::vector<std::unique_ptr<StructureMonitor>> five(5);
  for (auto& one : five) one = std::make_unique<StructureMonitor>("five");
  EXPECT_EQ(StructureMonitor::mpInstanceTab.size(), 6);
  EXPECT_EQ(StructureMonitor::GetInstance(5), five[4].get());
  five.resize(3);
  EXPECT_EQ(StructureMonitor::mInstanceNumber - before, 7);
  EXPECT_EQ(StructureMonitor::getNbConst() - built, 5);
  EXPECT_EQ(StructureMonitor::getNbDest() - destroyed, 2);
}

TEST_F(StructureMonitorTest, ACopyWorksButStandsInNoTable) {
  const std::string text = FailureOf([&] {
    monitor->AssignWhenAddElementMethod(Accept);
    const auto copy = std::make_unique<StructureMonitor>(*monitor);
    Thing* const herd = NewHerd();
    copy->AttachToEntity(herd);
    herd->AddElement(NewCow());
    if (gSeen == std::vector<std::string>{"watch Herd_1 Cow_2"} && copy->MethodTab().size() == 2)
      copy->AssignWhenRemoveElementMethod(Refuse);
    // A destructor then ends the run.
    if (copy->HasRemoveElementMethod() == 0) std::abort();
  });
  EXPECT_NE(text.find("'StructureMonitor::RemoveInstance'"), std::string::npos);
}

}  // namespace
