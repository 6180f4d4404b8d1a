// The tables of descriptors: additions and lookups.
#include "kalve/model/DescriptedEntity.h"

#include <cstring>

#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"

namespace {

template <class Branch>
Branch* Named(const Tableau<Branch*>& tab, const char* name) {
  for (Branch* descriptor : tab)
    if (std::strcmp(OrEmpty(descriptor->ClassName()), name) == 0) return descriptor;
  return nullptr;
}

bool IsBeyond(const Tableau<int>& positions, int id) { return id < 0 || id >= positions.size(); }

}  // namespace

template <class Branch>
void DescriptedEntity::Add(Tableau<Branch*>& tab, Tableau<int>& positions, Descriptor* descriptor,
                           const char* operation) {
  if (descriptor == nullptr || descriptor->Subclass() != Branch::branch)
    BadDescriptorTypeWhenAdd(this, descriptor);
  const int id = descriptor->ClassSymbol();
  if (id < 0) FailOnIndex(operation, positions.size(), id);
  tab.push_back_ifnew(static_cast<Branch*>(descriptor));
  set_nth_num(positions, id, tab.size() - 1);
  AddDTS2EntityInstOSIfNew(descriptor);
  if (descriptor->DescribedDescriptedEntity() != this) descriptor->DescribedEntity(this);
}

void DescriptedEntity::AddConstantDescriptor(Descriptor* descriptor) {
  Add(mConstantDescriptorTab, mConstantDescriptorPositions, descriptor,
      "DescriptedEntity::AddConstantDescriptor");
}

void DescriptedEntity::AddConstantDescriptor(Descriptor* descriptor, int isPrivate) {
  if (descriptor != nullptr) descriptor->SetIsPrivate(isPrivate);
  AddConstantDescriptor(descriptor);
}

void DescriptedEntity::AddVariableDescriptor(Descriptor* descriptor) {
  Add(mVariableDescriptorTab, mVariableDescriptorPositions, descriptor,
      "DescriptedEntity::AddVariableDescriptor");
}

void DescriptedEntity::AddVariableDescriptor(Descriptor* descriptor, int isPrivate) {
  if (descriptor != nullptr) descriptor->SetIsPrivate(isPrivate);
  AddVariableDescriptor(descriptor);
}

ConstantDescriptor* DescriptedEntity::GetConstantDescriptor(int id) const {
  if (ConstantDescriptor* const constant = FindConstantDescriptor(id)) return constant;
  if (IsBeyond(mConstantDescriptorPositions, id)) InexistantDescriptor(this, id, "");
  InexistantConstantDescriptor(this, id);
}

VariableDescriptor* DescriptedEntity::GetVariableDescriptor(int id) const {
  if (VariableDescriptor* const variable = FindVariableDescriptor(id)) return variable;
  if (IsBeyond(mVariableDescriptorPositions, id)) InexistantDescriptor(this, id, "");
  InexistantVariableDescriptor(this, id);
}

Descriptor* DescriptedEntity::GetDescriptor(int id) const {
  if (VariableDescriptor* const variable = FindVariableDescriptor(id)) return variable;
  if (ConstantDescriptor* const constant = FindConstantDescriptor(id)) return constant;
  InexistantDescriptor(this, id, "");
}

Descriptor* DescriptedEntity::GetDescriptor(const char* name) const {
  if (VariableDescriptor* const variable = Named(mVariableDescriptorTab, OrEmpty(name))) return variable;
  if (ConstantDescriptor* const constant = Named(mConstantDescriptorTab, OrEmpty(name))) return constant;
  InexistantDescriptor(this, K_INT_UNSIGNIFICANT, name);
}
