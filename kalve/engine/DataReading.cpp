#include "kalve/engine/DataReading.h"

#include <cstdio>
#include <iostream>

#include "kalve/engine/PredefinedEvents.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/FactualDataFile.h"
#include "kalve/inputs/SequentialDataFile.h"
#include "kalve/methods/PredefinedMethods.h"
#include "kalve/model/ApplicationHooks.h"

// Names ------------------------------------------------------------------------------------------------

int DataFileNames::FileNameSpecified() const {
  return FullNameSpecified() != 0 || (PathSpecified() != 0 && SimpleNameSpecified() != 0);
}

void DataFileNames::SetNamesFromFile(const File* file) {
  if (PathSpecified() == 0) SetFilePath(file->GetPhysicalPath());
  if (SimpleNameSpecified() == 0) SetFileSimpleName(file->GetSimpleName());
  if (FullNameSpecified() == 0) SetFileFullName(file->GetFullName());
}

void DataFileNames::AssignFullNameToFile(File* file) const {
  if (FileNameSpecified() == 0) UnspecifiedPath(mFileClassId);
  file->AssignFullName((FullNameSpecified() != 0 ? mFileFullName : mFilePath + mFileSimpleName).c_str());
}

void DataFileNames::SettleName(File* file) {
  const bool hasNameOfItsOwn = PathSpecified() != 0 || SimpleNameSpecified() != 0;
  if (FullNameSpecified() == 0 && hasNameOfItsOwn && file->FullNameSpecified() != 0) {
    const std::string path = PathSpecified() != 0 ? mFilePath : file->GetPhysicalPath();
    const std::string name = SimpleNameSpecified() != 0 ? mFileSimpleName : file->GetSimpleName();
    if (!path.empty() && !name.empty()) mFileFullName = path + name;
  }
  SetNamesFromFile(file);
  AssignFullNameToFile(file);
}

void DataFileNames::DisplayNames(const char* typeName, const Process* process) const {
  std::printf("\n%s '%x' :\n\tpath       : %s\n\tsimpleName : %s\n\tfullName   : %s\n", typeName,
              Address32(process), GetFilePath(), GetFileSimpleName(), GetFileFullName());
}

// What the classes share -------------------------------------------------------------------------------

namespace {

/// What tells them apart.
struct Row {
  const char* typeName;
  const char* deepDeletion;
  const char* fileTypeName;
  FileClassType fileType;
};

template <class Reader>
constexpr Row row{};
template <>
constexpr Row row<ReadSequentialDataFileProcess>{"ReadSequentialDataFileProcess",
                                                 "\n-Destruction profonde du processus ReadSDF ",
                                                 "SequentialDataFile", SEQUENTIAL_DATA_FILE};
template <>
constexpr Row row<ReadFactualDataRecordProcess>{"ReadFactualDataRecordProcess",
                                                "\n-Destruction profonde du processus ReadSDRec ",
                                                "FactualDataFile", FACTUAL_DATA_FILE};
template <>
constexpr Row row<InitFactualDataFileReadingProcess>{"InitFactualDataFileReadingProcess",
                                                     "\n-Destruction profonde du processus InitSDFReading ",
                                                     "FactualDataFile", FACTUAL_DATA_FILE};

}  // namespace

template <class Reader, class Base, class DataFile>
DataReading<Reader, Base, DataFile>::DataReading(int classSymbol, const char* className)
    : Base(classSymbol, className) {
  this->AddMethod(new PostRead());
}

template <class Reader, class Base, class DataFile>
void DataReading<Reader, Base, DataFile>::TakeReading(const DataReading& other) {
  DataFileNames::operator=(other);
  mFile = other.mFile;
  mHasPostRead = other.mHasPostRead;
}

template <class Reader, class Base, class DataFile>
void DataReading<Reader, Base, DataFile>::DeleteInDepth() {
  if (g_KV_TraceNewDelMode != 0) std::cout << row<Reader>.deepDeletion << this;
  this->mMethods.DestroyMethods();
  Process::Free(static_cast<Reader*>(this));
}

template <class Reader, class Base, class DataFile>
void DataReading<Reader, Base, DataFile>::DisplayNames() const {
  DataFileNames::DisplayNames(row<Reader>.typeName, this);
}

template <class Reader, class Base, class DataFile>
void DataReading<Reader, Base, DataFile>::SetPostRead(Process::VoidBody body) {
  mHasPostRead = 1;
  this->AssignBody(POST_READ, body);
}

template <class Reader, class Base, class DataFile>
DataFile* DataReading<Reader, Base, DataFile>::OpenFile() {
  const int symbol = FileClassId();
  SerialDataFile* file =
      pApp_NewSerialDataFileFromId != nullptr ? pApp_NewSerialDataFileFromId(symbol) : nullptr;
  if (file == nullptr || file->ClassType() != row<Reader>.fileType)
    UnknownFileClassSymbol(row<Reader>.fileTypeName, symbol);
  mFile = static_cast<DataFile*>(file);
  SettleName(mFile);
  mFile->Open();
  mFile->Skip(mFile->GetNbTopCommentLines());
  return mFile;
}

template <class Reader, class Base, class DataFile>
DataFile* DataReading<Reader, Base, DataFile>::FileInHand() const {
  const bool isOver = mFile == nullptr || (mFile->GetState() != 1 && mFile->GetPhysicalFile() != nullptr);
  if (isOver) BadFileRead(mFile);
  return mFile;
}

template <class Reader, class Base, class DataFile>
void DataReading<Reader, Base, DataFile>::UseRecord() {
  if (mHasPostRead != 0) this->ExecVoidMethod(POST_READ);
}

template class DataReading<ReadSequentialDataFileProcess, ContinuousProcess, SequentialDataFile>;
template class DataReading<ReadFactualDataRecordProcess, DiscreteProcess, FactualDataFile>;
template class DataReading<InitFactualDataFileReadingProcess, DiscreteProcess, FactualDataFile>;

// ReadSequentialDataFileProcess ------------------------------------------------------------------------

ReadSequentialDataFileProcess::ReadSequentialDataFileProcess()
    : ReadSequentialDataFileProcess(0, "readSequentialDataFileProcess") {}

ReadSequentialDataFileProcess::ReadSequentialDataFileProcess(int classSymbol, const char* className)
    : DataReading(classSymbol, className) {
  IsReadSDF(1);
  SetInitialize(readSequentialDataFileProcess_initializeProcess_Body);
  SetGoOneStepForward(readSequentialDataFileProcess_goOneStepForwardProcess_Body);
  SetStop(readSequentialDataFileProcess_stopProcess_Body);
}

namespace {

ReadSequentialDataFileProcess* SequentialReader(const ProcessMethod* method) {
  return static_cast<ReadSequentialDataFileProcess*>(method->DescribedContinuousProcess());
}

}  // namespace

void readSequentialDataFileProcess_initializeProcess_Body(ProcessMethod* method) {
  SequentialReader(method)->OpenFile();
}

void readSequentialDataFileProcess_goOneStepForwardProcess_Body(ProcessMethod* method) {
  ReadSequentialDataFileProcess* reader = SequentialReader(method);
  if (reader->FileInHand()->ReadNextEnrgt() != -1)
    reader->UseRecord();
  else
    reader->ExecVoidMethod(STOP_PROCESS);
}

void readSequentialDataFileProcess_stopProcess_Body(ProcessMethod* method) {
  ReadSequentialDataFileProcess* reader = SequentialReader(method);
  if (reader->GetFile() != nullptr) reader->GetFile()->Close();  // null: stopped before it began
  reader->ToBeStopped(1);
}

// InitFactualDataFileReadingProcess --------------------------------------------------------------------

InitFactualDataFileReadingProcess::InitFactualDataFileReadingProcess()
    : InitFactualDataFileReadingProcess(0, "initFactualDataFileReadingProcess") {}

InitFactualDataFileReadingProcess::InitFactualDataFileReadingProcess(int classSymbol, const char* className)
    : DataReading(classSymbol, className) {
  IsInitSDRec(1);
  SetExec(initFactualDataFileReadingProcess_execProcess_Body);
}

InitFactualDataFileReadingProcess::InitFactualDataFileReadingProcess(
    const InitFactualDataFileReadingProcess& other)
    : DataReading(other) {
  HasPostRead(0);
}

namespace {

/// The starter's post-reading, body and flag.
void TakePostRead(ReadFactualDataRecordProcess& reader, InitFactualDataFileReadingProcess& starter) {
  const auto postRead = [](Process& process) {
    return static_cast<VoidProcessMethod*>(process.GetMethod(POST_READ));
  };
  *postRead(reader) = *postRead(starter);
  reader.HasPostRead(starter.HasPostRead());
}

}  // namespace

void initFactualDataFileReadingProcess_execProcess_Body(ProcessMethod* method) {
  auto* starter = static_cast<InitFactualDataFileReadingProcess*>(method->DescribedDiscreteProcess());
  FactualDataFile* file = starter->OpenFile();
  auto* reader = new ReadFactualDataRecordProcess();
  file->SetReaderProcess(reader);
  TakePostRead(*reader, *starter);
  reader->ProcessedEntity(starter->ProcessedBasicEntity());
  reader->SetFile(file);
  reader->SetNamesFromFile(file);
  reader->AssignFullNameToFile(file);
  auto* execution = new DiscreteExecution(pCurrentSim->Clock(), reader);
  execution->SetPriorityDegree(0);
  pCurrentSim->InsertInAgendaEvents(execution);
}

// ReadFactualDataRecordProcess -------------------------------------------------------------------------

ReadFactualDataRecordProcess::ReadFactualDataRecordProcess()
    : ReadFactualDataRecordProcess(0, "readFactualDataRecordProcess") {}

ReadFactualDataRecordProcess::ReadFactualDataRecordProcess(int classSymbol, const char* className)
    : DataReading(classSymbol, className) {
  IsReadSDRec(1);
  SetExec(readFactualDataRecordProcess_execProcess_Body);
}

ReadFactualDataRecordProcess::~ReadFactualDataRecordProcess() { HandFileOver(this, nullptr); }

void ReadFactualDataRecordProcess::TakePlaceOf(const ReadFactualDataRecordProcess& source) {
  TakeReading(source);
  HandFileOver(&source, this);
}

/// The file may have been deleted: its table tells.
void ReadFactualDataRecordProcess::HandFileOver(const Process* from, Process* to) const {
  FactualDataFile* file = GetFile();
  if (file == nullptr || File::mpInstanceTab.position(file) < 0) return;
  if (file->GetReaderProcess() == from) file->SetReaderProcess(to);
}

void readFactualDataRecordProcess_execProcess_Body(ProcessMethod* method) {
  auto* reader = static_cast<ReadFactualDataRecordProcess*>(method->DescribedDiscreteProcess());
  FactualDataFile* file = reader->FileInHand();
  const bool isRecord = file->ReadNextEnrgt() != -1;
  if (isRecord && file->IsDataEmpty() != 0) VoidRecordInFactualDataFile(reader->GetFileFullName());
  reader->UseRecord();
  if (!isRecord) file->Close();
}
