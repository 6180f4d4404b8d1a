#include "kalve/inputs/DataFiles.h"

#include <cstring>

#include "kalve/designs/DesignOfExperiment.h"
#include "kalve/foundations/DeleteAs.h"
#include "kalve/inputs/FactualDataFile.h"
#include "kalve/inputs/OutputFile.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/model/ApplicationHooks.h"

SerialDataFile* GetSerialDataFile(int symbol) { return File::GetSerialDataFile(symbol); }

int ReadNextEnrgt(int symbol) {
  SerialDataFile* file = GetSerialDataFile(symbol);
  if (file->ClassType() == SEQUENTIAL_DATA_FILE)
    return static_cast<SequentialDataFile*>(file)->ReadNextEnrgt();
  return static_cast<FactualDataFile*>(file)->ReadNextEnrgt();
}

int GetIntFieldValue(int symbol, int field) { return GetSerialDataFile(symbol)->GetIntFieldValue(field); }
float GetFloatFieldValue(int symbol, int field) {
  return GetSerialDataFile(symbol)->GetFloatFieldValue(field);
}
double GetDoubleFieldValue(int symbol, int field) {
  return GetSerialDataFile(symbol)->GetDoubleFieldValue(field);
}
const char* GetStringFieldValue(int symbol, int field) {
  return GetSerialDataFile(symbol)->GetStringFieldValue(field);
}

namespace {

SerialDataFile* AsSerialDataFile(File* file) {
  const FileClassType type = file->ClassType();
  return type >= SERIAL_DATA_FILE && type <= FACTUAL_DATA_FILE ? static_cast<SerialDataFile*>(file) : nullptr;
}

}  // namespace

SerialDataFile* GetClassNamedSDF(int symbol) {
  for (File* file : OutputFile::mpInstanceTab)
    if (file->ClassSymbol() == symbol) return AsSerialDataFile(file);
  return nullptr;
}

SerialDataFile* GetClassNamedSDF(const char* name) {
  return GetClassNamedSDF(pApp_SerialDataFileIdFromString != nullptr ? pApp_SerialDataFileIdFromString(name)
                                                                     : K_SerialDataFileIdFromString(name));
}

SerialDataFile* GetPathNamedSDF(const char* path) {
  for (File* file : File::mpInstanceTab)
    if (AsSerialDataFile(file) != nullptr && std::strcmp(file->GetFullName(), path) == 0)
      return AsSerialDataFile(file);
  return nullptr;
}

void DeleteFileInstances() {
  for (int i = File::mpInstanceTab.size() - 1; i >= 0; --i) {
    File* file = File::mpInstanceTab[i];
    switch (file->ClassType()) {
      case SEQUENTIAL_DATA_FILE:
        DeleteAs(static_cast<SequentialDataFile*>(file));
        break;
      case FACTUAL_DATA_FILE:
        DeleteAs(static_cast<FactualDataFile*>(file));
        break;
      case OUTPUT_FILE:
        DeleteAs(static_cast<OutputFile*>(file));
        break;
      case LEXICAL_INPUT_FILE:
      case SERIAL_DATA_FILE:
        break;
    }
  }
  DeleteExpeSpecifications();
}
