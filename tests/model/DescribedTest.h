// Entities with a constant and a variable descriptor of every type of value, for the tests.
#pragma once

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/PredefinedAttributes.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"
#include "kalve/foundations/Records.h"
#include "tests/model/ModelTest.h"

constexpr int ConstantId(ValueTypeId type) { return 20 + type; }
constexpr int VariableId(ValueTypeId type) { return 40 + type; }

class DescribedTest : public ModelTest {
 protected:
  template <class Class>
  static Class& Give(DescriptedEntity& entity, int id, const char* name) {
    auto* const descriptor = new Class(id, name);
    if constexpr (std::is_base_of_v<ConstantDescriptor, Class>)
      entity.AddConstantDescriptor(descriptor);
    else
      entity.AddVariableDescriptor(descriptor);
    return *descriptor;
  }
  template <class Constant, class Variable>
  static void GiveBoth(DescriptedEntity& entity) {
    Give<Constant>(entity, ConstantId(Constant::type), "constant");
    Give<Variable>(entity, VariableId(Variable::type), "variable");
  }
  /// A cow with descriptors of all types.
  static Thing* NewDescribed() {
    Thing* const cow = NewCow();
    GiveBoth<IntConstantDescriptor, IntVariableDescriptor>(*cow);
    GiveBoth<FloatConstantDescriptor, FloatVariableDescriptor>(*cow);
    GiveBoth<DoubleConstantDescriptor, DoubleVariableDescriptor>(*cow);
    GiveBoth<StringConstantDescriptor, StringVariableDescriptor>(*cow);
    GiveBoth<EntityConstantDescriptor, EntityVariableDescriptor>(*cow);
    GiveBoth<EntityTabConstantDescriptor, EntityTabVariableDescriptor>(*cow);
    GiveBoth<EntitySpecConstantDescriptor, EntitySpecVariableDescriptor>(*cow);
    GiveBoth<IntDomainConstantDescriptor, IntDomainVariableDescriptor>(*cow);
    GiveBoth<FloatDomainConstantDescriptor, FloatDomainVariableDescriptor>(*cow);
    GiveBoth<DoubleDomainConstantDescriptor, DoubleDomainVariableDescriptor>(*cow);
    GiveBoth<DescValueSpecTabConstantDescriptor, DescValueSpecTabVariableDescriptor>(*cow);
    GiveBoth<StringTabConstantDescriptor, StringTabVariableDescriptor>(*cow);
    Give<IntTabConstantDescriptor>(*cow, ConstantId(INT_TAB), "constant");
    Give<FloatTabConstantDescriptor>(*cow, ConstantId(FLOAT_TAB), "constant");
    Give<DoubleTabConstantDescriptor>(*cow, ConstantId(DOUBLE_TAB), "constant");
    return cow;
  }
  /// The same ids, each now of another type: all hold an entity specification, that of specifications an int.
  static Thing* NewMistyped() {
    Thing* const cow = NewCow();
    for (int type = INT; type <= DOUBLE_TAB; ++type) {
      if (type == P_ENTITYSPEC || type == P_DESCVALUESPEC) continue;
      Give<EntitySpecConstantDescriptor>(*cow, ConstantId(ValueTypeId(type)), "constant");
      Give<EntitySpecVariableDescriptor>(*cow, VariableId(ValueTypeId(type)), "variable");
    }
    Give<IntConstantDescriptor>(*cow, ConstantId(P_ENTITYSPEC), "constant");
    Give<IntVariableDescriptor>(*cow, VariableId(P_ENTITYSPEC), "variable");
    return cow;
  }

  Thing* const cow = NewDescribed();
};

/// Intervals of domain descriptors belong to nobody.
template <class Interval>
void FreeIntervals(Tableau<Interval*>* domain) {
  for (Interval* interval : *domain) delete interval;
  domain->erase();
}
