// What the output specification in charge of an entity wants of its descriptors. An entity without a record
// has no series.
#include <cstring>

#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "kalve/outputs/MultipleDescriptorOS.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

/// The writer that comes last decides whether changes are recorded.
void Equip(Descriptor& descriptor, EntityInstanceOS& record, DescriptorOS& named) {
  for (const MDescOSParticipation* participation : named.GetParticipations()) {
    const MultipleDescriptorOS& writer = *participation->GetMDescOS();
    if (writer.IsSaved() == 0 && writer.IsRecorded() == 0) continue;
    if (!record.ExistsDTS(named.GetDescName())) {
      record.AddDescTimeSeries(new DescTimeSeries(&named));
      descriptor.SetDescTimeSeries(record.GetDescTimeSeriesTab().back());
    }
    descriptor.IsRecorded(writer.IsRecorded() != 0 || writer.GetAllOrFinal() == AOE_ALL ? 1 : 0);
  }
}

}  // namespace

void DescriptedEntity::AddDTS2EntityInstOSIfNew(Descriptor* descriptor) {
  EntityInstanceOS* const record = GetEntityInstanceOS();
  if (record == nullptr) return;
  for (DescriptorOS* named : record->GetEntityOutputSpec()->GetDescriptorsData()) {
    if (std::strcmp(named->GetDescName(), OrEmpty(descriptor->ClassName())) == 0)
      Equip(*descriptor, *record, *named);
    named->SetDescType(descriptor->ClassType());
  }
}

// Descriptors may have come before the entity knew its final class, which decides on its record.
void DescriptedEntity::AddInstanceToClass() {
  BasicEntity::AddInstanceToClass();
  if (GetEntityInstanceOS() == nullptr) return;
  for (ConstantDescriptor* descriptor : mConstantDescriptorTab) AddDTS2EntityInstOSIfNew(descriptor);
  for (VariableDescriptor* descriptor : mVariableDescriptorTab) AddDTS2EntityInstOSIfNew(descriptor);
}

void DescriptedEntity::AddInstanceToClass(int) { BasicEntity::AddInstanceToClass(0); }
