#include "kalve/descriptors/PredefinedAttributes.h"

#include <array>

#include "kalve/foundations/NameTables.h"

namespace {

// By id; "@" marks a free one.
constexpr std::array descriptorNames = {
    "@",
    "TYPE_ATTRIBUTE",
    "INSTANT_ATTRIBUTE",
    "DESCRIPTOR_ID_ATTRIBUTE",
    "DESCRIPTOR_NAME_ATTRIBUTE",
    "ENTITY_ID_ATTRIBUTE",
    "ENTITY_NAME_ATTRIBUTE",
    "TIME_DOMAIN_ATTRIBUTE",
    "ANONYMOUS_INT_TAB_ATTRIBUTE",
    "ANONYMOUS_FLOAT_TAB_ATTRIBUTE",
    "@",
    "@",
    "CURRENT_ELEMENT_INDEX",
    "ANONYMOUS_INT_ATTRIBUTE",
    "ANONYMOUS_FLOAT_ATTRIBUTE",
    "ANONYMOUS_DOUBLE_ATTRIBUTE",
    "ANONYMOUS_STRING_ATTRIBUTE",
    "ANONYMOUS_ENTITY_ATTRIBUTE",
};
static_assert(descriptorNames.size() == ANONYMOUS_ENTITY_ATTRIBUTE + 1);

}  // namespace

void MakeDescIdToCharTab() {
  DescIdToCharTab.erase(100);
  for (const char* name : descriptorNames) DescIdToCharTab.push_back(name);
  gDescIdToCharTabSize = DescIdToCharTab.size();
}

const char* DescIdToString(int id) {
  if (id < 0 || id >= DescIdToCharTab.size()) FailOnIndex("DescIdToString", DescIdToCharTab.size(), id);
  return DescIdToCharTab[id];
}
