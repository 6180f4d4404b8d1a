// Entity specifications by name or class, and their common end.
#include <cstring>

#include "kalve/foundations/DeleteAs.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/specs/EntitySpec.h"

EntitySpec* GetNamedEntitySpec(const char* name) {
  for (EntitySpec* spec : EntitySpec::mpInstanceTab)
    if (std::strcmp(spec->ClassName(), name) == 0) return spec;
  return nullptr;
}

EntitySpec* GetFirstEntitySpec(int classId) {
  for (EntitySpec* spec : EntitySpec::mpInstanceTab)
    if (spec->GetReferenceClassId() == classId) return spec;
  return nullptr;
}

void DeleteEntitySpecs() {
  const Tableau<EntitySpec*> specs = EntitySpec::mpInstanceTab;
  for (EntitySpec* spec : specs)
    if (spec != nullptr) DeleteAs(spec);
}
