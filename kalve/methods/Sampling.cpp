#include <algorithm>

#include "kalve/foundations/Rng.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"

namespace {

int Clamped(long value) {
  return static_cast<int>(std::clamp(value, static_cast<long>(K_INTMIN), static_cast<long>(K_INTMAX)));
}

}  // namespace

int Sampling_Uniform(EventMethod* method) {
  const long low = method->GetIntArgValue(INT_LOW_BOUND_ARGUMENT);
  const long up = method->GetIntArgValue(INT_UPPER_BOUND_ARGUMENT);
  const long drawn = low + RandomInteger(Clamped(up - low + 1));
  return Clamped(low <= up ? std::min(drawn, up) : drawn);  // a draw may reach its own limit
}
