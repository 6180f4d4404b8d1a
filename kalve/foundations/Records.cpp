#include "kalve/foundations/Records.h"

#include <cstdint>
#include <cstdio>

#include "kalve/foundations/CoreException.h"

IntInterval::IntInterval(int lowBound, int highBound) : low(lowBound), high(highBound) {
  if (low > high) BadIntervalBounds(low, high);
}

FloatInterval::FloatInterval(float lowBound, float highBound) : low(lowBound), high(highBound) {
  if (low > high) BadIntervalBounds(low, high);
}

DoubleInterval::DoubleInterval(double lowBound, double highBound) : low(lowBound), high(highBound) {
  if (low > high) BadIntervalBounds(low, high);
}

void StructProcessAction::display() const { std::printf("{%x, %d}", Address32(process), action); }

unsigned Address32(const void* address) {
  return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(address));
}
