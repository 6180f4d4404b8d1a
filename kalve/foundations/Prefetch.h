// Asks for memory that will be needed soon. Null and freed memory do no harm.
#pragma once

#include <cstddef>

inline void Prefetch(const void* start, std::size_t size) {
  constexpr std::size_t cacheLine = 64;
  for (std::size_t at = 0; at < size; at += cacheLine)
    __builtin_prefetch(static_cast<const char*>(start) + at, 1);
}
