#include "kalve/foundations/Enumerations.h"

#include <array>
#include <cstring>

namespace {

constexpr std::array<const char*, 20> valueTypeNames = {"VOID",
                                                        "BOOLEAN",
                                                        "INT",
                                                        "FLOAT",
                                                        "DOUBLE",
                                                        "STRING",
                                                        "P_ENTITY",
                                                        "ENTITY_TAB",
                                                        "P_ENTITYSPEC",
                                                        "INTDOMAIN",
                                                        "FLOATDOMAIN",
                                                        "DOUBLEDOMAIN",
                                                        "P_DESCVALUESPEC",
                                                        "DESCVALUESPEC_TAB",
                                                        "STRING_TAB",
                                                        "INT_TAB",
                                                        "FLOAT_TAB",
                                                        "DOUBLE_TAB",
                                                        "P_EVENT",
                                                        "P_DESCRIPTOR"};
static_assert(valueTypeNames.size() == NO_VALUE);

// KV_ENTITYSPEC has no text here, though the table of class symbols names it.
constexpr std::array<const char*, 7> objectClassNames = {
    "KV_BASIC_ENTITY", "KV_DESCRIPTED_ENTITY", "KV_ENTITY", nullptr, "KV_EVENT", "KV_MONITOR", "KV_PROCESS"};
static_assert(objectClassNames.size() == KV_PROCESS + 1);

constexpr std::array<const char*, 4> actionNames = {"INIT", "EXEC", "STOP", "PROCEED"};
static_assert(actionNames.size() == UNSPECIFIED_ACTION);

constexpr std::array<const char*, 3> subclassNames = {nullptr, "CONSTANT", "VARIABLE"};
constexpr std::array<const char*, 4> unitNames = {"DAY", "HOUR", "MINUTE", "SECOND"};

template <std::size_t size>
const char* Name(const std::array<const char*, size>& names, int number, const char* otherwise) {
  return number >= 0 && number < static_cast<int>(size) ? names[static_cast<std::size_t>(number)] : otherwise;
}

}  // namespace

const char* ValueTypeToChar(ValueTypeId type) { return Name(valueTypeNames, type, "UNSPECIFIED_VALUETYPE"); }

const char* ObjectClassToChar(ObjectClassId kind) { return Name(objectClassNames, kind, nullptr); }

const char* StringActionType(ActionType action) { return Name(actionNames, action, "UNSPECIFIED ACTION"); }

const char* DescriptorSubclassToChar(int subclass) { return Name(subclassNames, subclass, nullptr); }

const char* TimeUnitToChar(TimeUnit unit) { return Name(unitNames, unit, nullptr); }

int IndexUnite(const char* name) {
  int difference = 0;
  for (TimeUnit unit : {SECOND, MINUTE, HOUR, DAY}) {
    difference = std::strcmp(name, TimeUnitToChar(unit));
    if (difference == 0) return unit;
  }
  return difference;
}
