// Value specifications at work on an entity: the test of a descriptor's value, and the draw of one.
#include "kalve/foundations/CoreException.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/specs/DescValueSpec.h"

int DescValueSpec::IsInDomain(DescriptedEntity* entity) {
  if (mValueType < INT) return 0;
  if (mValueType > P_ENTITY) return mValueType;
  InexistantDescriptor(entity, mDescId, "");
}

void DescValueSpec::DrawInto(DescriptedEntity* entity) const {
  if (mValueType < INT || mValueType > P_ENTITY) return;
  InexistantDescriptor(entity, mDescId, "");
}
