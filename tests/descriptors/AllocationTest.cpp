// Reads and changes of numbers that nobody records allocate nothing, with a monitor or without.
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "tests/model/ModelTest.h"
#include "tests/support/AllocationCount.h"

namespace {

class Allocation : public ModelTest {
 protected:
  enum Id : int { INT_CONSTANT = 20, FLOAT_CONSTANT, DOUBLE_CONSTANT, INT_VALUE, FLOAT_VALUE, DOUBLE_VALUE };

  template <class Descriptor>
  void Give(Id id) {
    auto* const descriptor = new Descriptor(id, "attribute");
    descriptor->AddSubDomain(-10, -5);
    descriptor->AddSubDomain(0, 200);
    if constexpr (std::is_base_of_v<ConstantDescriptor, Descriptor>)
      cow.AddConstantDescriptor(descriptor);
    else
      cow.AddVariableDescriptor(descriptor);
  }
  Allocation() {
    Give<IntConstantDescriptor>(INT_CONSTANT);
    Give<FloatConstantDescriptor>(FLOAT_CONSTANT);
    Give<DoubleConstantDescriptor>(DOUBLE_CONSTANT);
    Give<IntVariableDescriptor>(INT_VALUE);
    Give<FloatVariableDescriptor>(FLOAT_VALUE);
    Give<DoubleVariableDescriptor>(DOUBLE_VALUE);
  }

  /// Of every form of access to the six numbers, through the entity as the body of a process has them.
  std::size_t AllocationsOfAllForms() {
    const std::size_t before = gAllocations.calls;
    for (int i = 1; i < 100; ++i) {
      const auto real = static_cast<float>(i);
      cow.SetIntConstValue(INT_CONSTANT, i);
      cow.SetIntValue(INT_VALUE, cow.GetIntValue(INT_CONSTANT));
      cow.SetIntVarValue(INT_VALUE, cow.GetIntVarValue(INT_VALUE, 0), 0);
      cow.IncrValue(INT_VALUE);
      cow.DecrValue(INT_VALUE, 0);
      cow.IncreaseIntValue(INT_VALUE, 2);
      cow.DecreaseIntValue(INT_VALUE, 2);
      cow.SetFloatValue(FLOAT_CONSTANT, real);
      cow.SetFloatVarValue(FLOAT_VALUE, cow.GetFloatConstValue(FLOAT_CONSTANT));
      cow.SetFloatValue(FLOAT_VALUE, cow.GetFloatValue(FLOAT_VALUE), 0);
      cow.SetDoubleConstValue(DOUBLE_CONSTANT, i);
      cow.SetDoubleValue(DOUBLE_VALUE, cow.GetDoubleConstValue(DOUBLE_CONSTANT));
      cow.SetDoubleVarValue(DOUBLE_VALUE, cow.GetDoubleValue(DOUBLE_VALUE), 0);
      cow.SetDoubleCastValue(INT_VALUE, i);
      cow.SetIntCastValue(FLOAT_VALUE, i);
      cow.SetFloatCastValue(DOUBLE_VALUE, real);
    }
    return gAllocations.calls - before;
  }

  Thing cow{ANIMAL, COW};
};

TEST_F(Allocation, NumbersNeedNone) {
  EXPECT_EQ(AllocationsOfAllForms(), 0U);
  EXPECT_EQ(cow.GetIntValue(INT_VALUE) + static_cast<int>(cow.GetDoubleValue(DOUBLE_VALUE)), 198);
  const std::size_t before = gAllocations.calls;
  ::operator delete(::operator new(sizeof(int)));  // which no compiler leaves out
  EXPECT_EQ(gAllocations.calls - before, 1U) << "the count counts";
}

TEST_F(Allocation, MonitoredNumbersNeedNone) {
  static int asked;
  asked = 0;
  IntDescValueMonitor ints("ints");
  ints.AssignWhenSetIntMethod([](MonitorMethod* m) { return ++asked, m->GetIntArgValue(31); });
  ints.AssignWhenGetIntMethod([](MonitorMethod* m) { return ++asked, m->GetIntArgValue(21); });
  FloatDescValueMonitor floats("floats");
  floats.AssignWhenSetFloatMethod([](MonitorMethod* m) { return ++asked, m->GetFloatArgValue(32); });
  floats.AssignWhenGetFloatMethod([](MonitorMethod* m) { return ++asked, m->GetFloatArgValue(22); });
  DoubleDescValueMonitor doubles("doubles");
  doubles.AssignWhenSetDoubleMethod([](MonitorMethod* m) { return ++asked, m->GetDoubleArgValue(33); });
  doubles.AssignWhenGetDoubleMethod([](MonitorMethod* m) { return ++asked, m->GetDoubleArgValue(23); });
  ints.AttachToDescriptor(&cow, INT_VALUE);
  floats.AttachToDescriptor(&cow, FLOAT_VALUE);
  doubles.AttachToDescriptor(&cow, DOUBLE_VALUE);
  EXPECT_EQ(AllocationsOfAllForms(), 0U);
  EXPECT_EQ(asked, 99 * 11);
}

}  // namespace
