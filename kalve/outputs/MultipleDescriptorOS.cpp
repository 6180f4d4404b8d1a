#include "kalve/outputs/MultipleDescriptorOS.h"

#include <cstdio>
#include <cstring>

#include "kalve/foundations/CoreException.h"
#include "kalve/model/MetaClass.h"
#include "kalve/outputs/OutputSpec.h"

MultipleDescriptorOS::MultipleDescriptorOS(TimeType timeType, int isPlotted, int isRecorded, int isSaved,
                                           AllOrEnd allOrFinal)
    : MultipleDescriptorOS(isPlotted, isRecorded, isSaved) {
  mTimeType = timeType;
  mAllOrFinal = allOrFinal;
}

MultipleDescriptorOS::MultipleDescriptorOS(int isPlotted, int isRecorded, int isSaved)
    : mIsPlotted(isPlotted), mIsRecorded(isRecorded), mIsSaved(isSaved) {}

namespace {

/// One is a descendant of the other; a class that is not registered has no relatives.
bool AreRelated(const char* className, const char* otherName) {
  const MetaClass* const metaClass = GetMetaClass(GetClassSymbol(className));
  const MetaClass* const other = GetMetaClass(GetClassSymbol(otherName));
  if (metaClass == nullptr || other == nullptr) return false;
  return metaClass->IsDescendantOf(other->ClassId()) || other->IsDescendantOf(metaClass->ClassId());
}

}  // namespace

void MultipleDescriptorOS::RegisterEntityOS(const char* className) {
  OutputSpec* found = nullptr;
  for (OutputSpec* spec : EntityOutputSpec::mpInstanceList) {
    if (std::strcmp(spec->TargetClassName(), className) == 0) {
      found = spec;
      break;
    }
    if (AreRelated(className, spec->TargetClassName()))
      OverSpecificationOnParentClass(className, spec->TargetClassName());
  }
  mEntityOutputSpec = found != nullptr
                          ? static_cast<EntityOutputSpec*>(found)
                          : new EntityOutputSpec(className, CLOCK, 0, 0, 0, nullptr, nullptr, nullptr);
  mEntityOutputSpec->AddMultipleDescriptorOS(this);
}

void MultipleDescriptorOS::AddDescriptorOS(const char* name, int precision) {
  DescriptorOS* descriptor = mEntityOutputSpec->GetDescriptorOS(name);
  if (descriptor == nullptr) {
    descriptor = new DescriptorOS(name);
    mEntityOutputSpec->AddDescriptorOSIfNew(descriptor);
  }
  descriptor->AddParticipation(new MDescOSParticipation(this, precision));
  mDescriptorsData.push_back(descriptor);
}

bool MultipleDescriptorOS::HasInstances() const {
  if (mEntityOutputSpec->GetInstancesData().empty() == 0) return true;
  const char* const className = mEntityOutputSpec->TargetClassName();
  std::printf(
      "\n!!! Sauvegarde série temporelle : pas d'information pour la classe \"%s\"."
      "\n!!! Vérifier le nom de classe dans le fichier de spécification des sorties."
      "\n!!! Vérifier que les spécifications de sortie ont été lues avant la création "
      "\n!!! des instances de \"%s\".\n",
      className, className);
  return false;
}
