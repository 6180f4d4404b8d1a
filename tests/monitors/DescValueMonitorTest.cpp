// Monitors of values: bodies and flags, attachment and its failures, instances and copies.
#include <gtest/gtest.h>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "tests/model/ModelTest.h"

namespace {

class ValueMonitor : public ModelTest {
 protected:
  /// An entity with an attribute of each kind that the tests attach to.
  class Described : public Thing {
   public:
    Described() : Thing{ANIMAL, COW} {
      AddVariableDescriptor(new IntVariableDescriptor(30, "count"));
      AddVariableDescriptor(new FloatVariableDescriptor(31, "weight"));
      AddVariableDescriptor(new EntityTabVariableDescriptor(32, "herd"));
      AddVariableDescriptor(new IntDomainVariableDescriptor(33, "days"));
      AddConstantDescriptor(new IntConstantDescriptor(29, "year"));
    }
  };
  Described cow;
};

int Doubled(MonitorMethod* m) { return 2 * m->GetIntArgValue(31); }

TEST_F(ValueMonitor, FlagAndBodyTogetherLetAMethodAct) {
  IntDescValueMonitor watch("watch");
  IntVariableDescriptor count;
  watch.AttachToDescriptor(&count);
  const auto after = [&](int value) {
    count.SetValue(value);
    return count.GetIntValue();
  };
  EXPECT_EQ(after(3), 3);
  watch.AssignWhenSetIntMethod(Doubled);
  EXPECT_EQ(after(3), 6);
  watch.UnassignWhenSetIntMethod();
  EXPECT_EQ(watch.HasSetIntMethod(), 0);
  EXPECT_EQ(after(3), 3);
  watch.HasSetIntMethod(1);
  EXPECT_EQ(after(3), 6);
  watch.AssignWhenSetIntMethod(nullptr);
  EXPECT_EQ(watch.HasSetIntMethod(), 1);
  EXPECT_EQ(after(3), 3) << "without a body";
}

// Each assignment reaches its own method and flag.
TEST_F(ValueMonitor, EveryMethodHasItsIdAndFlag) {
  const auto expect = [](DescValueMonitor& watch, ValueTypeId type, std::initializer_list<int> ids) {
    EXPECT_EQ(watch.DescriptorType(), type);
    EXPECT_EQ(watch.MethodTab().size(), static_cast<int>(ids.size()));
    int slot = 0;
    for (int id : ids) {
      EXPECT_TRUE(watch.GetMethod(id)->HasBodyAssigned()) << id;
      EXPECT_EQ(watch.HasMethodIn(slot++), 1) << id;
      EXPECT_EQ(static_cast<MonitorMethod*>(watch.GetMethod(id))->DescribedDescValueMonitor(), &watch);
    }
  };
  IntDescValueMonitor ints("ints");
  ints.AssignWhenSetIntMethod([](MonitorMethod*) { return 1; });
  EXPECT_FALSE(ints.GetMethod(31)->HasBodyAssigned());
  ints.AssignWhenGetIntMethod([](MonitorMethod*) { return 1; });
  expect(ints, INT, {21, 31});
  FloatDescValueMonitor floats("floats");
  floats.AssignWhenSetFloatMethod([](MonitorMethod*) { return 1.0F; });
  floats.AssignWhenGetFloatMethod([](MonitorMethod*) { return 1.0F; });
  expect(floats, FLOAT, {22, 32});
  DoubleDescValueMonitor doubles("doubles");
  doubles.AssignWhenSetDoubleMethod([](MonitorMethod*) { return 1.0; });
  doubles.AssignWhenGetDoubleMethod([](MonitorMethod*) { return 1.0; });
  expect(doubles, DOUBLE, {23, 33});
  StringDescValueMonitor strings("strings");
  strings.AssignWhenSetStringMethod([](MonitorMethod*) { return "a"; });
  strings.AssignWhenGetStringMethod([](MonitorMethod*) { return "a"; });
  expect(strings, STRING, {26, 36});
  const auto none = [](MonitorMethod*) -> BasicEntity* { return nullptr; };
  const auto noTable = [](MonitorMethod*) -> Tableau<BasicEntity*>* { return nullptr; };
  EntityDescValueMonitor entities("entities");
  entities.AssignWhenSetEntityMethod(none);
  entities.AssignWhenGetEntityMethod(none);
  expect(entities, P_ENTITY, {24, 34});
  EntityTabDescValueMonitor tables("tables");
  tables.AssignWhenSetEntityTabMethod(noTable);
  tables.AssignWhenAddEntityMethod(none);
  tables.AssignWhenRemoveEntityMethod(none);
  tables.AssignWhenGetEntityTabMethod(noTable);
  expect(tables, ENTITY_TAB, {25, 41, 43, 35});
  const auto noSpec = [](MonitorMethod*) -> DescValueSpec* { return nullptr; };
  const auto noSpecs = [](MonitorMethod*) -> Tableau<DescValueSpec*>* { return nullptr; };
  DescValueSpecTabDescValueMonitor specs("specs");
  specs.AssignWhenSetDescValueSpecTabMethod(noSpecs);
  specs.AssignWhenAddDescValueSpecMethod(noSpec);
  specs.AssignWhenRemoveDescValueSpecMethod(noSpec);
  specs.AssignWhenGetDescValueSpecTabMethod(noSpecs);
  expect(specs, DESCVALUESPEC_TAB, {27, 42, 44, 37});
}

TEST_F(ValueMonitor, AttachmentThroughTheEntityLooksAtTheType) {
  IntDescValueMonitor ints("ints");
  FloatDescValueMonitor floats("floats");
  DescValueMonitor* none = nullptr;
  ints.AttachToDescriptor(&cow, 30);
  EXPECT_EQ(cow.GetVariableDescriptor(30)->GetMonitor(), &ints);
  floats.AttachToDescriptor(&cow, 33);                     // a type without monitors: any goes
  ints.AttachToDescriptor(cow.GetVariableDescriptor(31));  // directly: any goes
  const struct {
    std::function<void()> call;
    std::string failure;
  } rows[] = {
      {[&] { floats.AttachToDescriptor(&cow, 30); },
       "\n!!!============== AttachmentTypeError =============="
       "\n!!! Tentative d'attachement d'un moniteur de type inadapté"
       "\n!!! au descripteur 'count' d'une entité de classe 'Cow'"
       "\n!!! type de valeur du descripteur : int\n"},
      {[&] { DescValueMonitor::AttachToDescriptor(none, &cow, 30); },
       "\n!!!============== AttachmentFailed =============="
       "\n!!! Tentative d'attachement d'un moniteur non alloué. "
       "\n!!! (au descripteur 'count' d'une entité de classe 'Cow')"
       "\n!!! Réaliser cette allocation au début du programme, par un appel"
       "\n!!! à une fonction telle que DefineUserMonitors (voir le manuel KALVE).\n"},
      {[&] { DescValueMonitor::AttachToDescriptor(none, cow.GetVariableDescriptor(30)); },
       "\n!!!============== DirectAttachmentFailed =============="
       "\n!!! Tentative d'attachement d'un moniteur non alloué. \n!!! (au descripteur 'count')"
       "\n!!! Réaliser cette allocation au début du programme, par un appel"
       "\n!!! à une fonction telle que DefineUserMonitors (voir le manuel KALVE).\n"},
      {[&] {
         ints.DetachFromDescriptor(&cow, 30);
         cow.GetVariableDescriptor(30)->GetMonitor();  // its pointer is still there
       },
       "\n!!!============== DoNotHaveMonitorAttached =============="
       "\n!!! Tentative d'accès au moniteur sur la la valeur de 'count'"
       "\n    alors qu'aucun moniteur n'est attaché à ce descripteur.\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(FailureOf(row.call), row.failure);
  EXPECT_NE(FailureOf([&] {
              DescValueMonitor::AttachToDescriptor(none, &cow, 29);
            }).find("InexistantVariableDescriptor"),
            std::string::npos)
      << "the descriptor is looked up first";
  EXPECT_NE(FailureOf([&] { ints.AttachToDescriptor(&cow, 32); }).find("descripteur : entityTab"),
            std::string::npos);
}

TEST_F(ValueMonitor, MonitorOfAnotherTypeEndsInItsIndexFailure) {
  FloatDescValueMonitor floats("floats");
  floats.AssignWhenSetFloatMethod([](MonitorMethod*) { return 1.0F; });
  EntityTabDescValueMonitor tables("tables");
  tables.AssignWhenAddEntityMethod([](MonitorMethod*) -> BasicEntity* { return nullptr; });
  IntVariableDescriptor count;
  floats.AttachToDescriptor(&count);
  const ChildOutcome onSet = RunInChild([&] { count.SetValue(1); });
  EXPECT_NE(onSet.output.find("DescValueMonitor::GetMethod"), std::string::npos);
  tables.AttachToDescriptor(&count);
  count.SetValue(1);
  const ChildOutcome onGet = RunInChild([&] { count.GetIntValue(); });
  EXPECT_NE(onGet.output.find("DescValueMonitor::GetMethod"), std::string::npos);
}

TEST_F(ValueMonitor, BodiesRunByTheirIds) {
  IntDescValueMonitor watch("watch");
  watch.AssignWhenSetIntMethod(Doubled);
  watch.GetMethod(21)->SetArgValue(31, 21);
  EXPECT_EQ(watch.ExecIntCoreMethod(21), 42);
  EXPECT_EQ(watch.ExecIntCoreMethod(31), 0) << "without a body";
  EXPECT_EQ(watch.GetMethod("whenGetInt"), watch.GetMethod(31));
  EXPECT_EQ(watch.GetMethod("unknown"), nullptr);
  const ChildOutcome outcome = RunInChild([&] { watch.ExecDoubleCoreMethod(22); });
  EXPECT_NE(outcome.output.find("DescValueMonitor::ExecDoubleCoreMethod"), std::string::npos);
  VoidEntityMethod stranger(99, "stranger");
  watch.AddMethod(&stranger);  // no method of a watch
  EXPECT_EQ(watch.MethodTab().size(), 2);
}

TEST_F(ValueMonitor, CopiesAreInNoTable) {
  const int instances = DescValueMonitor::mInstanceNumber;
  const int constructions = DescValueMonitor::getNbConst();
  {
    DescValueSpecTabDescValueMonitor watch("watch");
    EXPECT_EQ(DescValueMonitor::mInstanceNumber, instances + 1);
    const int last = DescValueMonitor::mpInstanceTab.size() - 1;
    EXPECT_EQ(DescValueMonitor::GetInstance(last), &watch);
    EXPECT_NE(RunInChild([last] {
                DescValueMonitor::GetInstance(last + 1);
              }).output.find("'DescValueMonitor::GetInstance'"),
              std::string::npos);
    EXPECT_NE(FailureOf([&] {
                watch.HasGetDescValueSpecTabMethod(1);
                DescValueSpecTabDescValueMonitor copy(watch);
                // Methods of type P_DESCVALUESPEC are left behind.
                std::cout << "copied " << copy.MethodTab().size() << copy.HasGetDescValueSpecTabMethod()
                          << std::endl;
                if (copy.MethodTab().size() != 2 || DescValueMonitor::getNbConst() != constructions + 1)
                  std::abort();
              }).find("DescValueMonitor::RemoveInstance"),
              std::string::npos);
  }
  EXPECT_EQ(DescValueMonitor::mInstanceNumber, instances);
}

}  // namespace
