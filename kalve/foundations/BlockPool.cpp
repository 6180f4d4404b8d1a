#include "kalve/foundations/BlockPool.h"

#include <sys/mman.h>

constinit std::uintptr_t BlockPool::sBegin = BlockPool::nowhere;
constinit std::size_t BlockPool::sUsed = 0;

namespace {

constexpr std::size_t slab = std::size_t{1} << 16;
constexpr std::size_t hugePage = std::size_t{1} << 21;

/// Null when the system refuses.
char* Reserve(std::size_t bytes) {
  void* const memory =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) return nullptr;
  auto* const begin = static_cast<char*>(memory);
  madvise(begin + hugePage, bytes - hugePage, MADV_HUGEPAGE);  // where there are none, nothing is lost
  return begin;
}

}  // namespace

void* BlockPool::Cut() {
  if (static_cast<std::size_t>(mSlabEnd - mUncut) < mSize) {
    if (sUsed == 0) {
      char* const begin = Reserve(addressSpace);
      if (begin != nullptr) sBegin = reinterpret_cast<std::uintptr_t>(begin);
      if (begin == nullptr) sUsed = addressSpace;
    }
    if (sUsed + slab > addressSpace) return ::operator new(mSize);
    mUncut = reinterpret_cast<char*>(sBegin + sUsed);
    mSlabEnd = mUncut + slab;
    sUsed += slab;
  }
  char* const block = mUncut;
  mUncut += mSize;
  return block;
}
