#include "tests/support/AllocationCount.h"

#include <cstdlib>
#include <new>

AllocationCount gAllocations;

void* operator new(std::size_t size) {
  ++gAllocations.calls;
  gAllocations.bytes += size;
  void* const memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
