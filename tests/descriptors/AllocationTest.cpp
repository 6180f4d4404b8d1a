// Reads and changes of numbers allocate nothing, with a monitor or without.
#include <gtest/gtest.h>

#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "tests/support/AllocationCount.h"

namespace {

template <class Descriptor, class Monitor>
std::size_t AllocationsOf(Descriptor& descriptor, Monitor* monitor) {
  if (monitor != nullptr) monitor->AttachToDescriptor(&descriptor);
  descriptor.SetSubDomain(0, 100);
  const std::size_t before = gAllocations.calls;
  for (int i = 0; i < 100; ++i) {
    descriptor.SetValue(static_cast<decltype(descriptor.GetValue())>(i));
    descriptor.SetValue(descriptor.GetValue(), 0);
    static_cast<void>(descriptor.GetValue(0));
  }
  return gAllocations.calls - before;
}

}  // namespace

TEST(Allocation, NumbersNeedNone) {
  IntVariableDescriptor count;
  FloatVariableDescriptor weight;
  DoubleVariableDescriptor area;
  EXPECT_EQ(AllocationsOf(count, static_cast<DescValueMonitor*>(nullptr)), 0U);
  EXPECT_EQ(AllocationsOf(weight, static_cast<DescValueMonitor*>(nullptr)), 0U);
  EXPECT_EQ(AllocationsOf(area, static_cast<DescValueMonitor*>(nullptr)), 0U);
}

TEST(Allocation, MonitoredNumbersNeedNone) {
  IntDescValueMonitor counts("counts");
  counts.AssignWhenSetIntMethod([](MonitorMethod* m) { return m->GetIntArgValue(31); });
  counts.AssignWhenGetIntMethod([](MonitorMethod* m) { return m->GetIntArgValue(21); });
  IntVariableDescriptor count;
  EXPECT_EQ(AllocationsOf(count, &counts), 0U);
  DoubleDescValueMonitor areas("areas");
  areas.AssignWhenSetDoubleMethod([](MonitorMethod* m) { return m->GetDoubleArgValue(33); });
  DoubleVariableDescriptor area;
  EXPECT_EQ(AllocationsOf(area, &areas), 0U);
  const std::size_t before = gAllocations.calls;
  ::operator delete(::operator new(sizeof(int)));  // which no compiler leaves out
  EXPECT_EQ(gAllocations.calls - before, 1U) << "the count counts";
}
