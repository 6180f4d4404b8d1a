#include "tests/support/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

Allocations allocations;

}  // namespace

Allocations AllocationsSoFar() { return allocations; }

void* operator new(std::size_t size) {
  ++allocations.count;
  allocations.bytes += size;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
