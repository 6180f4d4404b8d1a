// What the output specification in charge of an entity wants of its descriptors. An entity without a record
// has no series.
#include "kalve/descriptors/Descriptor.h"
#include "kalve/model/DescriptedEntity.h"

void DescriptedEntity::AddDTS2EntityInstOSIfNew(Descriptor* /*descriptor*/) {}

// Descriptors may have come before the entity knew its final class, which decides on its record.
void DescriptedEntity::AddInstanceToClass() {
  BasicEntity::AddInstanceToClass();
  if (GetEntityInstanceOS() == nullptr) return;
  for (ConstantDescriptor* descriptor : mConstantDescriptorTab) AddDTS2EntityInstOSIfNew(descriptor);
  for (VariableDescriptor* descriptor : mVariableDescriptorTab) AddDTS2EntityInstOSIfNew(descriptor);
}

void DescriptedEntity::AddInstanceToClass(int) { BasicEntity::AddInstanceToClass(0); }
