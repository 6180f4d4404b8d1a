// Construction, copies and destruction of a DescriptedEntity; the values that an entity leaves behind.
#include <cstring>
#include <iostream>

#include "kalve/descriptors/PredefinedAttributes.h"
#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/outputs/MultipleDescriptorOS.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

void Trace(const char* text, const DescriptedEntity* entity) {
  if (g_KV_TraceNewDelMode != 0) std::cout << text << static_cast<const void*>(entity);
}

/// Whether a writer of the record's specification keeps the final values of the descriptor only.
bool IsKeptAtTheEnd(const VariableDescriptor& descriptor, const EntityInstanceOS* record) {
  if (record == nullptr) return false;
  for (const MultipleDescriptorOS* writer : record->GetEntityOutputSpec()->GetMultipleDescriptorsData()) {
    if (writer->GetAllOrFinal() != AOE_END) continue;
    for (const DescriptorOS* named : writer->GetDescriptorsData())
      if (std::strcmp(named->GetDescName(), OrEmpty(descriptor.ClassName())) == 0) return true;
  }
  return false;
}

/// An entity, or a table of entities, leaves its names for its flag alone.
bool LeavesFinalValue(const VariableDescriptor& descriptor, const EntityInstanceOS* record) {
  if (descriptor.GetDescTimeSeries() == nullptr) return false;
  if (descriptor.ClassType() == P_ENTITY || descriptor.ClassType() == ENTITY_TAB)
    return descriptor.IsRecorded() != 0;
  return IsKeptAtTheEnd(descriptor, record);
}

}  // namespace

DescriptedEntity::DescriptedEntity() {
  Trace("\n+Construction de l'entité avec descripteurs ", this);
  SetMetaClass(KV_DESCRIPTED_ENTITY);
  AddInstanceToClass(0);
  SetEntityType(KV_DESCRIPTED_ENTITY);
  AddConstantDescriptor(new InstantAttribute(), 0);
  AddVariableDescriptor(new CurrentElementIndex(), 0);
  Trace("\n+ FIN Construction de l'entité avec descripteurs ", this);
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source) : BasicEntity(source) {
  BecomeCopyOf(source);
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source, int depth) : BasicEntity(source, depth) {
  BecomeCopyOf(source);
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source, bool withMonitors)
    : BasicEntity(source, withMonitors) {
  BecomeCopyOf(source);
}

DescriptedEntity::DescriptedEntity(const DescriptedEntity& source, bool withMonitors, int depth)
    : BasicEntity(source, withMonitors, depth) {
  BecomeCopyOf(source);
}

void DescriptedEntity::BecomeCopyOf(const DescriptedEntity& source) {
  Trace("\n++copy construction de DescriptedEntity ", this);
  SetEntityType(KV_DESCRIPTED_ENTITY);
  for (const ConstantDescriptor* descriptor : source.mConstantDescriptorTab)
    if (Descriptor* const copy = NewDescriptorCopy(*descriptor)) AddConstantDescriptor(copy);
  for (const VariableDescriptor* descriptor : source.mVariableDescriptorTab)
    if (Descriptor* const copy = NewDescriptorCopy(*descriptor)) AddVariableDescriptor(copy);
}

DescriptedEntity::~DescriptedEntity() {
  Trace("\n-Destruction de l'entité à descripteurs ", this);
  RecordFinalValues();
  DestroyDescriptors();
}

// All are taken before the first descriptor goes. A constant has held its value since the entity was born.
void DescriptedEntity::RecordFinalValues() {
  for (ConstantDescriptor* descriptor : mConstantDescriptorTab)
    if (descriptor->IsRecorded() != 0)
      VisitDescriptor(static_cast<Descriptor&>(*descriptor), [this](auto& constant) {
        if constexpr (requires { constant.RecordPresentValue(0); })
          constant.RecordPresentValue(CreationClock());
      });
  for (VariableDescriptor* descriptor : mVariableDescriptorTab)
    if (LeavesFinalValue(*descriptor, GetEntityInstanceOS()))
      VisitDescriptor(static_cast<Descriptor&>(*descriptor), [](auto& variable) {
        if constexpr (requires { variable.RecordPresentValue(); }) variable.RecordPresentValue();
      });
}

// The tables are left empty for what still runs in the layers below.
void DescriptedEntity::DestroyDescriptors() {
  mConstantDescriptorPositions.erase();
  mVariableDescriptorPositions.erase();
  const Tableau<ConstantDescriptor*> constants(mConstantDescriptorTab);
  const Tableau<VariableDescriptor*> variables(mVariableDescriptorTab);
  mConstantDescriptorTab.erase();
  mVariableDescriptorTab.erase();
  for (ConstantDescriptor* descriptor : constants) DestroyDescriptor(descriptor);
  for (VariableDescriptor* descriptor : variables) DestroyDescriptor(descriptor);
}
