// From the tags of a descriptor to its value class: the only place that goes there. Copying, destruction, the
// text of a value and whatever else depends on the class ask here.
#pragma once

#include <type_traits>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"

/// Stands for a class that there is not.
struct NoClass {};

template <class Class, class Visited, class Visit>
bool VisitAs(Visited& descriptor, Visit& visit) {
  if constexpr (!std::is_same_v<Class, NoClass>) {
    using Target = std::conditional_t<std::is_const_v<Visited>, const Class, Class>;
    visit(static_cast<Target&>(descriptor));
  }
  return !std::is_same_v<Class, NoClass>;
}

template <class Constant, class Variable, class Visited, class Visit>
bool VisitEither(Visited& descriptor, Visit& visit) {
  return descriptor.IsConstant() ? VisitAs<Constant>(descriptor, visit)
                                 : VisitAs<Variable>(descriptor, visit);
}

/// Calls `visit` with the descriptor as its value class, const if it came so. False when its tags name no
/// class; all that is not CONSTANT counts as variable.
template <class Visited, class Visit>
bool VisitDescriptor(Visited& descriptor, Visit&& visit) {
  switch (descriptor.ClassType()) {
    case INT:
      return VisitEither<IntConstantDescriptor, IntVariableDescriptor>(descriptor, visit);
    case FLOAT:
      return VisitEither<FloatConstantDescriptor, FloatVariableDescriptor>(descriptor, visit);
    case DOUBLE:
      return VisitEither<DoubleConstantDescriptor, DoubleVariableDescriptor>(descriptor, visit);
    case STRING:
      return VisitEither<StringConstantDescriptor, StringVariableDescriptor>(descriptor, visit);
    case P_ENTITY:
      return VisitEither<EntityConstantDescriptor, EntityVariableDescriptor>(descriptor, visit);
    case ENTITY_TAB:
      return VisitEither<EntityTabConstantDescriptor, EntityTabVariableDescriptor>(descriptor, visit);
    case P_ENTITYSPEC:
      return VisitEither<EntitySpecConstantDescriptor, EntitySpecVariableDescriptor>(descriptor, visit);
    case INTDOMAIN:
      return VisitEither<IntDomainConstantDescriptor, IntDomainVariableDescriptor>(descriptor, visit);
    case FLOATDOMAIN:
      return VisitEither<FloatDomainConstantDescriptor, FloatDomainVariableDescriptor>(descriptor, visit);
    case DOUBLEDOMAIN:
      return VisitEither<DoubleDomainConstantDescriptor, DoubleDomainVariableDescriptor>(descriptor, visit);
    case DESCVALUESPEC_TAB:
      return VisitEither<DescValueSpecTabConstantDescriptor, DescValueSpecTabVariableDescriptor>(descriptor,
                                                                                                 visit);
    case STRING_TAB:
      return VisitEither<StringTabConstantDescriptor, StringTabVariableDescriptor>(descriptor, visit);
    case INT_TAB:
      return VisitEither<IntTabConstantDescriptor, NoClass>(descriptor, visit);
    case FLOAT_TAB:
      return VisitEither<FloatTabConstantDescriptor, NoClass>(descriptor, visit);
    case DOUBLE_TAB:
      return VisitEither<DoubleTabConstantDescriptor, NoClass>(descriptor, visit);
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
