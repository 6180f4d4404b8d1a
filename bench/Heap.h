// What recording is measured against: a point as a plain program keeps it, and the bytes in use on the heap.
#pragma once

#include <malloc.h>

#include "kalve/foundations/Enumerations.h"

struct PlainPoint {
  int clock;
  ValueTypeId type;
  double value;
};

inline double HeapBytes() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}
