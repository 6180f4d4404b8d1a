// Reads and changes of numbers allocate nothing, with a monitor or without.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"

namespace {

int allocations = 0;

template <class Descriptor, class Monitor>
int AllocationsOf(Descriptor& descriptor, Monitor* monitor) {
  if (monitor != nullptr) monitor->AttachToDescriptor(&descriptor);
  descriptor.SetSubDomain(0, 100);
  const int before = allocations;
  for (int i = 0; i < 100; ++i) {
    descriptor.SetValue(static_cast<decltype(descriptor.GetValue())>(i));
    descriptor.SetValue(descriptor.GetValue(), 0);
    static_cast<void>(descriptor.GetValue(0));
  }
  return allocations - before;
}

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

TEST(Allocation, NumbersNeedNone) {
  IntVariableDescriptor count;
  FloatVariableDescriptor weight;
  DoubleVariableDescriptor area;
  EXPECT_EQ(AllocationsOf(count, static_cast<DescValueMonitor*>(nullptr)), 0);
  EXPECT_EQ(AllocationsOf(weight, static_cast<DescValueMonitor*>(nullptr)), 0);
  EXPECT_EQ(AllocationsOf(area, static_cast<DescValueMonitor*>(nullptr)), 0);
}

TEST(Allocation, MonitoredNumbersNeedNone) {
  IntDescValueMonitor counts("counts");
  counts.AssignWhenSetIntMethod([](MonitorMethod* m) { return m->GetIntArgValue(31); });
  counts.AssignWhenGetIntMethod([](MonitorMethod* m) { return m->GetIntArgValue(21); });
  IntVariableDescriptor count;
  EXPECT_EQ(AllocationsOf(count, &counts), 0);
  DoubleDescValueMonitor areas("areas");
  areas.AssignWhenSetDoubleMethod([](MonitorMethod* m) { return m->GetDoubleArgValue(33); });
  DoubleVariableDescriptor area;
  EXPECT_EQ(AllocationsOf(area, &areas), 0);
  const int before = allocations;
  delete new int;
  EXPECT_EQ(allocations - before, 1) << "the count counts";
}
