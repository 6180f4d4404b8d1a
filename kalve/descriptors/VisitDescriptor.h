// From the tags of a descriptor to its value class: the only place that goes there. Copying, destruction, the
// text of a value and whatever else depends on the class ask here.
#pragma once

#include <type_traits>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"

/// Calls `visit` with the descriptor as its value class, const if it came so. False when its tags name no
/// class; all that is not CONSTANT counts as variable.
template <class Visited, class Visit>
bool VisitDescriptor(Visited& descriptor, Visit&& visit) {
  const auto as = [&]<class Class>(std::type_identity<Class>) {
    using Target = std::conditional_t<std::is_const_v<Visited>, const Class, Class>;
    visit(static_cast<Target&>(descriptor));
    return true;
  };
  const auto either = [&]<class Constant, class Variable>(std::type_identity<Constant> constant,
                                                          std::type_identity<Variable> variable) {
    return descriptor.IsConstant() ? as(constant) : as(variable);
  };
  const auto constantOnly = [&]<class Constant>(std::type_identity<Constant> constant) {
    return descriptor.IsConstant() && as(constant);
  };
  using std::type_identity;
  switch (descriptor.ClassType()) {
    case INT:
      return either(type_identity<IntConstantDescriptor>(), type_identity<IntVariableDescriptor>());
    case FLOAT:
      return either(type_identity<FloatConstantDescriptor>(), type_identity<FloatVariableDescriptor>());
    case DOUBLE:
      return either(type_identity<DoubleConstantDescriptor>(), type_identity<DoubleVariableDescriptor>());
    case STRING:
      return either(type_identity<StringConstantDescriptor>(), type_identity<StringVariableDescriptor>());
    case P_ENTITY:
      return either(type_identity<EntityConstantDescriptor>(), type_identity<EntityVariableDescriptor>());
    case ENTITY_TAB:
      return either(type_identity<EntityTabConstantDescriptor>(),
                    type_identity<EntityTabVariableDescriptor>());
    case P_ENTITYSPEC:
      return either(type_identity<EntitySpecConstantDescriptor>(),
                    type_identity<EntitySpecVariableDescriptor>());
    case INTDOMAIN:
      return either(type_identity<IntDomainConstantDescriptor>(),
                    type_identity<IntDomainVariableDescriptor>());
    case FLOATDOMAIN:
      return either(type_identity<FloatDomainConstantDescriptor>(),
                    type_identity<FloatDomainVariableDescriptor>());
    case DOUBLEDOMAIN:
      return either(type_identity<DoubleDomainConstantDescriptor>(),
                    type_identity<DoubleDomainVariableDescriptor>());
    case DESCVALUESPEC_TAB:
      return either(type_identity<DescValueSpecTabConstantDescriptor>(),
                    type_identity<DescValueSpecTabVariableDescriptor>());
    case STRING_TAB:
      return either(type_identity<StringTabConstantDescriptor>(),
                    type_identity<StringTabVariableDescriptor>());
    case INT_TAB:
      return constantOnly(type_identity<IntTabConstantDescriptor>());
    case FLOAT_TAB:
      return constantOnly(type_identity<FloatTabConstantDescriptor>());
    case DOUBLE_TAB:
      return constantOnly(type_identity<DoubleTabConstantDescriptor>());
    case VOID:
    case BOOLEAN:
    case P_DESCVALUESPEC:
    case P_EVENT:
    case P_DESCRIPTOR:
    case NO_VALUE:
      return false;
  }
  return false;
}
