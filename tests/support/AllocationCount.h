// Counts what a test binary and the kernel ask of operator new, for a binary that lists AllocationCount.cpp
// among its sources.
#pragma once

#include <cstddef>

struct AllocationCount {
  std::size_t calls = 0;
  std::size_t bytes = 0;
};
extern AllocationCount gAllocations;
