// Counts what a test binary allocates with operator new; link kalve_test_allocations to use it.
#pragma once

#include <cstddef>

struct Allocations {
  std::size_t count = 0;
  std::size_t bytes = 0;
};

/// All allocations since the start of the process.
Allocations AllocationsSoFar();
