// An entity with a descriptor of each type of value that a structure file gives.
#pragma once

#include <string>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"
#include "kalve/model/Entity.h"

/// "anInt", "aFloat" and so on.
inline void AddAllValues(Entity& entity) {
  int id = 20;
  entity.AddVariableDescriptor(new IntVariableDescriptor(id++, "anInt"));
  entity.AddConstantDescriptor(new FloatConstantDescriptor(id++, "aFloat"));
  entity.AddVariableDescriptor(new DoubleVariableDescriptor(id++, "aDouble"));
  entity.AddVariableDescriptor(new StringVariableDescriptor(id++, "aText"));
  entity.AddConstantDescriptor(new EntityConstantDescriptor(id++, "anEntity"));
  entity.AddVariableDescriptor(new EntityTabVariableDescriptor(id++, "someEntities"));
  entity.AddConstantDescriptor(new EntitySpecConstantDescriptor(id++, "aSpec"));
  entity.AddConstantDescriptor(new IntDomainConstantDescriptor(id++, "aDomain"));
  entity.AddConstantDescriptor(new IntTabConstantDescriptor(id++, "someInts"));
  entity.AddConstantDescriptor(new FloatTabConstantDescriptor(id++, "someFloats"));
  entity.AddConstantDescriptor(new DoubleTabConstantDescriptor(id++, "someDoubles"));
}

inline std::string ValueText(const Entity& entity, const char* descriptor) {
  return entity.GetDescriptor(descriptor)->ValueToString();
}
