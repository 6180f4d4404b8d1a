// Domains of entities: what looks at an entity's class or finds an entity by its name.
#include <algorithm>

#include "kalve/foundations/CoreException.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/specs/DescValueSpec.h"

void DescEntityValueSpec::AddSubDomain(const char* instanceName) {
  Entity* const entity = GetNamedEntity(instanceName);
  if (entity == nullptr) UnfoundEntityBasedOnInstanceName("addSubDomain", instanceName);
  AddSubDomain(static_cast<BasicEntity*>(entity));
}

bool DescEntityValueSpec::Holds(BasicEntity* entity) const {
  if (mIsDomainAClass == 0) return mEntityDomain.position(entity) >= 0;
  return IsLivingEntity(entity) && std::any_of(mClassDomain.begin(), mClassDomain.end(),
                                               [entity](int symbol) { return entity->IsInstanceOf(symbol); });
}

int DescEntityValueSpec::IsOutOfDomain(BasicEntity* entity) const {
  return entity == nullptr || !Holds(entity);
}
