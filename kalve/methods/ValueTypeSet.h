// A set of value types: which arguments an assignment accepts, which methods a copy keeps.
#pragma once

#include <initializer_list>

#include "kalve/foundations/Enumerations.h"

struct ValueTypeSet {
  unsigned bits = 0;

  constexpr ValueTypeSet() = default;
  constexpr ValueTypeSet(std::initializer_list<ValueTypeId> types) {
    for (ValueTypeId type : types) bits |= 1U << static_cast<unsigned>(type);
  }
  constexpr bool Has(ValueTypeId type) const {
    return static_cast<unsigned>(type) < 32U && ((bits >> static_cast<unsigned>(type)) & 1U) != 0;
  }
};
