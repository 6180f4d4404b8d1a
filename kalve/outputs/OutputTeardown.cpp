// The end of all output specifications.
#include <new>

#include "kalve/model/BasicEntity.h"
#include "kalve/outputs/DatabaseMDescOS.h"
#include "kalve/outputs/OutputFileMDescOS.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

template <class Writer>
void DestroyAs(MultipleDescriptorOS* writer) {
  static_cast<Writer*>(writer)->Writer::~Writer();
  ::operator delete(static_cast<void*>(writer));
}

void DeleteWriter(MultipleDescriptorOS* writer) {
  if (writer->GetSubClass() == MultipleDescriptorOS::textFile)
    DestroyAs<OutputFileMDescOS>(writer);
  else if (writer->GetSubClass() == MultipleDescriptorOS::database)
    DestroyAs<DatabaseMDescOS>(writer);
  else
    DestroyAs<MultipleDescriptorOS>(writer);
}

void DeleteContent(const EntityOutputSpec& spec) {
  for (EntityInstanceOS* instance : spec.GetInstancesData()) {
    if (BasicEntity* const entity = instance->GetEntity()) entity->LeaveOutputs();
    instance->DeleteChanges();
    delete instance;
  }
  for (DescriptorOS* descriptor : spec.GetDescriptorsData()) {
    for (MDescOSParticipation* participation : descriptor->GetParticipations()) delete participation;
    delete descriptor;
  }
  for (MultipleDescriptorOS* writer : spec.GetMultipleDescriptorsData()) DeleteWriter(writer);
}

/// Walks a copy of the list, which the destructors edit.
template <class Spec>
void DeleteSpecs() {
  for (OutputSpec* spec : Spec::InstanceList()) delete static_cast<Spec*>(spec);
  Spec::EraseInstanceList();
}

}  // namespace

void DeleteOutputSpecs() {
  DeleteSpecs<EventOutputSpec>();
  DeleteSpecs<ProcessOutputSpec>();
  for (OutputSpec* spec : EntityOutputSpec::mpInstanceList)
    DeleteContent(*static_cast<EntityOutputSpec*>(spec));
  DeleteSpecs<EntityOutputSpec>();
}
