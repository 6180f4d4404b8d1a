// What is to be kept of structure, events and processes, as files of output specifications say it.
#include "kalve/outputs/OutputSpec.h"
#include "kalve/outputs/OutputText.h"

EntityOutputSpec* SetEntityStructureOS(const char* className, TimeType timeType, int isCreationSaved,
                                       int isChangeComponentSaved, int isChangeElementSaved,
                                       const char* creationFile, const char* changeComponentFile,
                                       const char* changeElementFile, OutputMode mode) {
  EntityOutputSpec* const spec = EntityOutputSpec::OfClass(className);
  if (spec == nullptr) {
    OutputFile* const creation = NewOutputFileIfNamed(creationFile, mode);
    OutputFile* const component = NewOutputFileIfNamed(changeComponentFile, mode);
    OutputFile* const element = NewOutputFileIfNamed(changeElementFile, mode);
    return new EntityOutputSpec(className, timeType, isCreationSaved, isChangeComponentSaved,
                                isChangeElementSaved, creation, component, element);
  }
  if (isCreationSaved != 0) {
    spec->IsCreationSaved(isCreationSaved);
    spec->SetCreationOutputFile(NewOutputFile(creationFile, mode));
  }
  if (isChangeComponentSaved != 0) {
    spec->IsChangeComponentSaved(isChangeComponentSaved);
    spec->SetChangeComponentOutputFile(NewOutputFile(changeComponentFile, mode));
  }
  if (isChangeElementSaved != 0) {
    spec->IsChangeElementSaved(isChangeElementSaved);
    spec->SetChangeElementOutputFile(NewOutputFile(changeElementFile, mode));
  }
  if (isCreationSaved != 0 || isChangeComponentSaved != 0 || isChangeElementSaved != 0)
    spec->SetTimeType(timeType);
  return spec;
}

void SetEventOutputSpec(const char* className, TimeType timeType, const char* file, OutputMode mode) {
  new EventOutputSpec(className, timeType, NewOutputFileIfNamed(file, mode));  // in the list
}

void SetProcessOutputSpec(OutputSpecType type, const char* className, TimeType timeType, const char* file,
                          OutputMode mode) {
  new ProcessOutputSpec(type, className, timeType, NewOutputFileIfNamed(file, mode));
}

void SetProcessOutputSpec(const char* className, TimeType timeType, const char* file, OutputMode mode) {
  SetProcessOutputSpec(OS_PROCESS, className, timeType, file, mode);
}
