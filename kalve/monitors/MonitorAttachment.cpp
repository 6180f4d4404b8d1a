// The attachment of monitors to descriptors, and what they fail at.
#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/monitors/DescValueMonitor.h"

namespace {

/// The name of a type that has monitors; null for the others.
const char* MonitoredTypeName(ValueTypeId type) {
  switch (type) {
    case INT:
      return "int";
    case FLOAT:
      return "float";
    case DOUBLE:
      return "double";
    case STRING:
      return "string";
    case P_ENTITY:
      return "entity";
    case ENTITY_TAB:
      return "entityTab";
    case DESCVALUESPEC_TAB:
      return "descValueSpecTab";
    case VOID:
    case BOOLEAN:
    case P_ENTITYSPEC:
    case INTDOMAIN:
    case FLOATDOMAIN:
    case DOUBLEDOMAIN:
    case P_DESCVALUESPEC:
    case STRING_TAB:
    case INT_TAB:
    case FLOAT_TAB:
    case DOUBLE_TAB:
    case P_EVENT:
    case P_DESCRIPTOR:
    case NO_VALUE:
      return nullptr;
  }
  return nullptr;
}

void Attach(DescValueMonitor* monitor, VariableDescriptor* descriptor) {
  descriptor->SetMonitor(monitor);
  descriptor->HasMonitor(1);
}

}  // namespace

void DescValueMonitor::AttachToDescriptor(DescValueMonitor* monitor, DescriptedEntity* entity,
                                          int classSymbol) {
  VariableDescriptor* descriptor = entity->GetVariableDescriptor(classSymbol);
  if (monitor == nullptr) AttachmentFailed(descriptor, entity);
  const char* typeName = MonitoredTypeName(descriptor->ClassType());
  if (typeName != nullptr && descriptor->ClassType() != monitor->DescriptorType())
    AttachmentTypeError(descriptor, entity, typeName);
  Attach(monitor, descriptor);
}

void DescValueMonitor::AttachToDescriptor(DescValueMonitor* monitor, VariableDescriptor* descriptor) {
  if (monitor == nullptr) DirectAttachmentFailed(descriptor);
  Attach(monitor, descriptor);
}

void DescValueMonitor::DetachFromDescriptor(DescriptedEntity* entity, int classSymbol) {
  DetachFromDescriptor(entity->GetVariableDescriptor(classSymbol));
}

void DescValueMonitor::DetachFromDescriptor(VariableDescriptor* descriptor) { descriptor->HasMonitor(0); }
