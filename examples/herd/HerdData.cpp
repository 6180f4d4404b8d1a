#include "examples/herd/HerdData.h"

#include <cstring>

#include "examples/herd/HerdClasses.h"

namespace {

enum HerdDataFile : int { WEATHER_FILE = 1, TREATMENT_FILE };

// The weather: day of the year, mean temperature, rain in mm.

int ReadWeather(SequentialDataFile* file) {
  auto& fields = file->mFields;
  return std::fscanf(file->GetPhysicalFile(), "%d %f %f", &fields[0]->mValue.intValue,
                     &fields[1]->mValue.floatValue, &fields[2]->mValue.floatValue);
}

SerialDataFile* NewWeatherFile() {
  auto* const file = new SequentialDataFile(WEATHER_FILE, READ_ACCESS, OM_APPEND);
  file->AddField(0, INT);
  file->AddField(1, FLOAT);
  file->AddField(2, FLOAT);
  file->AssignReadNextEnrgtMethod(ReadWeather);
  return file;
}

void UseWeather(ProcessMethod* /*method*/) {
  Entity& farm = *pCurrentSim->SimulatedEntity();
  farm.SetDoubleValue(TEMPERATURE, GetFloatFieldValue(WEATHER_FILE, 1));
  farm.SetDoubleValue(RAIN, GetFloatFieldValue(WEATHER_FILE, 2));
}

Process* NewWeatherReader() {
  auto* const reader = new ReadSequentialDataFileProcess();
  reader->SetPostRead(UseWeather);
  return reader;
}

// The treatments: day, month, year, cow, and for how many milkings her milk is withheld. Each is given at
// noon; the file reads ahead to the next one.

int NoonOf(FactualDataFile* file) {
  return DateToClockValue(file->GetIntFieldReadValue(0), file->GetIntFieldReadValue(1),
                          file->GetIntFieldReadValue(2), 12, 0, 0);
}

int ReadTreatment(FactualDataFile* file) {
  if (file->IsBufferEmpty() != 0) {
    auto& read = file->mReadTab;
    const int count = std::fscanf(file->GetPhysicalFile(), "%d/%d/%d %49s %d", &read[0]->mValue.intValue,
                                  &read[1]->mValue.intValue, &read[2]->mValue.intValue,
                                  read[3]->mValue.stringValue, &read[4]->mValue.intValue);
    if (count == -1) file->IsDataEmpty(1);
    if (count < read.size()) return count;
    file->ReadTabToBufferTab();
  }
  if (file->GetRecordClockValue() > pCurrentSim->Clock()) return -9;
  file->BufferTabToDataTab();
  file->IsBufferEmpty(1);
  return file->mFields.size();
}

SerialDataFile* NewTreatmentFile() {
  auto* const file = new FactualDataFile(TREATMENT_FILE, READ_ACCESS, OM_APPEND);
  for (ValueTypeId type : {INT, INT, INT, STRING, INT}) file->AddField(file->mFields.size(), type);
  file->AssignReadNextEnrgtMethod(ReadTreatment);
  file->AssignGetRecordClockValueMethod(NoonOf);
  return file;
}

/// Reads on at once after a treatment, and otherwise when the one that is kept is due.
void UseTreatment(ProcessMethod* method) {
  auto* const reader = static_cast<ReadFactualDataRecordProcess*>(method->DescribedDiscreteProcess());
  FactualDataFile* file = reader->GetFile();
  if (file->IsDataEmpty() != 0) return;  // the end
  int next = pCurrentSim->Clock();
  if (file->IsBufferEmpty() != 0) {
    // A cow that has been sold is treated no more.
    if (Entity* cow = GetNamedEntity("Cow", file->GetStringFieldValue(3)))
      cow->SetIntValue(WITHHELD, file->GetIntFieldValue(4));
  } else {
    next = file->GetRecordClockValue();
  }
  auto* const reading = new DiscreteExecution(next, reader);
  reading->SetPriorityDegree(0);
  if (pCurrentSim->InsertInAgendaEvents(reading) == 0) reading->DeleteInDepth();
}

Process* NewTreatmentStarter() {
  auto* const starter = new InitFactualDataFileReadingProcess();
  starter->SetPostRead(UseTreatment);
  return starter;
}

struct FileRow {
  const char* name;
  HerdDataFile id;
  SerialDataFile* (*make)();
};
constexpr FileRow fileRows[] = {{"Weather", WEATHER_FILE, NewWeatherFile},
                                {"Treatments", TREATMENT_FILE, NewTreatmentFile}};

}  // namespace

SerialDataFile* NewHerdDataFile(const char* name) {
  for (const FileRow& row : fileRows)
    if (std::strcmp(row.name, name) == 0) return row.make();
  return nullptr;
}

int HerdDataFileId(const char* name) {
  for (const FileRow& row : fileRows)
    if (std::strcmp(row.name, name) == 0) return row.id;
  return K_INT_UNSIGNIFICANT;
}

Process* NewHerdReader(const char* className) {
  if (std::strcmp(className, "weatherReading") == 0) return NewWeatherReader();
  if (std::strcmp(className, "treatmentReading") == 0) return NewTreatmentStarter();
  return nullptr;
}

void DeleteHerdDataFiles() {
  delete static_cast<SequentialDataFile*>(GetSerialDataFile(WEATHER_FILE));
  delete static_cast<FactualDataFile*>(GetSerialDataFile(TREATMENT_FILE));
}
