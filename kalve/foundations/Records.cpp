#include "kalve/foundations/Records.h"

#include <cstdint>
#include <cstdio>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Tableau.h"

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

template <>
void depth_delete<UnifiedValue*>(Tableau<Tableau<UnifiedValue*>*>& t, Tableau<int>* valueTypes) {
  for (int row = 0; row < t.size(); ++row) {
    const bool ownsTexts =
        valueTypes != nullptr && row < valueTypes->size() && valueTypes->get_nth(row) == STRING;
    for (UnifiedValue* value : *t[row]) {
      if (ownsTexts && value != nullptr) std::free(value->stringValue);
      delete value;
    }
    delete t[row];
  }
  t.erase();
}
