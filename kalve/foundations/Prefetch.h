// Asks for memory that will be needed soon. Null and freed memory do no harm.
#pragma once

#include <cstddef>

inline void PrefetchLine(const void* address) {
  __builtin_prefetch(address, 1);
  asm volatile("");  // or the compiler finds that a loop of prefetches does nothing, and drops it
}

/// The cache lines of an object that begins with one; all but perhaps the last of any other.
template <class T>
inline void Prefetch(const T* object) {
  constexpr std::size_t cacheLine = 64;
  for (std::size_t at = 0; at < sizeof(T); at += cacheLine)
    PrefetchLine(reinterpret_cast<const char*>(object) + at);
}
