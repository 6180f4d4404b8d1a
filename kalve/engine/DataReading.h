// The processes that feed a model from data files, so that reading is scheduled like any other activity.
//
// ReadSequentialDataFileProcess is continuous: INIT opens the file, each step of PROCEED reads a record, the
// end of the file stops it. InitFactualDataFileReadingProcess is discrete: it opens a file of dated facts and
// starts its reader, a ReadFactualDataRecordProcess, which reads one record each time it is executed. The
// body given to SetPostRead is where the application uses the record; that of a reader of facts also
// schedules the next reading, by a DiscreteExecution on its own process.
//
// The file is the one that the application's hook answers for FileClassId(). It is not owned. As nothing is
// virtual, a mark of the base tells which of these classes a process is (ProcessDispatch.h).
#pragma once

#include <concepts>
#include <string>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"

/// Which file a process reads: a class among those of the application, and names that go before the file's
/// own. A path ends with its own separator. All names are empty at first.
class DataFileNames {
 public:
  /// Symbol by which the application's hook finds or makes the file; -9 at first.
  int FileClassId() const { return mFileClassId; }
  void FileClassId(int symbol) { mFileClassId = symbol; }

  const char* GetFilePath() const { return mFilePath.c_str(); }
  void SetFilePath(const char* path) { mFilePath = path; }
  const char* GetFileSimpleName() const { return mFileSimpleName.c_str(); }
  void SetFileSimpleName(const char* name) { mFileSimpleName = name; }
  const char* GetFileFullName() const { return mFileFullName.c_str(); }
  void SetFileFullName(const char* name) { mFileFullName = name; }
  int PathSpecified() const { return !mFilePath.empty(); }
  int SimpleNameSpecified() const { return !mFileSimpleName.empty(); }
  int FullNameSpecified() const { return !mFileFullName.empty(); }
  /// A full name, or path and simple name.
  int FileNameSpecified() const;

  /// Takes each name that the file has and the process lacks.
  void SetNamesFromFile(const File* file);
  /// Gives the file the full name, else path and simple name put together; UnspecifiedPath without them.
  void AssignFullNameToFile(File* file) const;

 protected:
  /// Both of the above. A path or simple name of the process's own goes before a full name of the file's.
  void SettleName(File* file);
  void DisplayNames(const char* typeName, const Process* process) const;

 private:
  int mFileClassId = K_INT_UNSIGNIFICANT;
  std::string mFilePath;
  std::string mFileSimpleName;
  std::string mFileFullName;
};

/// What the three classes share.
template <class Reader, class Base, class DataFile>
class DataReading : public Base, public DataFileNames {
 public:
  DataReading& operator=(const DataReading&) = default;
  /// Destroys the methods, then destroys and frees the process.
  void DeleteInDepth();

  /// Null until the file is opened.
  DataFile* GetFile() const { return mFile; }
  void SetFile(DataFile* file) { mFile = file; }
  void DisplayNames() const;

  /// The body that uses the record in hand. It also sets the flag.
  void SetPostRead(Process::VoidBody body);
  int HasPostRead() const { return mHasPostRead; }
  void HasPostRead(int flag) { mHasPostRead = flag; }

  // For the bodies below.
  /// Asks the hook for the file, settles its name, opens it and reads past its header lines.
  /// UnknownFileClassSymbol without a file of the right kind.
  DataFile* OpenFile();
  /// The file; BadFileRead when there is none or it has been closed.
  DataFile* FileInHand() const;
  /// Runs the body of SetPostRead, if the flag is set.
  void UseRecord();

 protected:
  DataReading(int classSymbol, const char* className);
  /// The copy reads the same open file.
  DataReading(const DataReading& other) = default;
  /// A shell for raw copies.
  explicit DataReading(bool withoutMethod) requires(std::same_as<Base, DiscreteProcess>)
      : Base(withoutMethod) {}
  ~DataReading() = default;

  void TakeReading(const DataReading& other);

 private:
  DataFile* mFile = nullptr;
  int mHasPostRead = 0;
};

/// Reads a sequential data file, one record each step.
class ReadSequentialDataFileProcess
    : public DataReading<ReadSequentialDataFileProcess, ContinuousProcess, SequentialDataFile> {
 public:
  /// Class symbol 0, class name "readSequentialDataFileProcess".
  ReadSequentialDataFileProcess();
  ReadSequentialDataFileProcess(int classSymbol, const char* className);
};

/// Reads one record of a factual data file each time it is executed.
class ReadFactualDataRecordProcess
    : public DataReading<ReadFactualDataRecordProcess, DiscreteProcess, FactualDataFile> {
 public:
  /// Class symbol 0, class name "readFactualDataRecordProcess".
  ReadFactualDataRecordProcess();
  ReadFactualDataRecordProcess(int classSymbol, const char* className);
  ReadFactualDataRecordProcess(const ReadFactualDataRecordProcess&) = default;
  ReadFactualDataRecordProcess& operator=(const ReadFactualDataRecordProcess&) = default;
  /// A file that still lives forgets this reader.
  ~ReadFactualDataRecordProcess();

 private:
  friend class DiscreteProcess;
  explicit ReadFactualDataRecordProcess(bool withoutMethod) : DataReading(withoutMethod) {}
  /// For a raw copy, which becomes the reader of the file in the source's place.
  void TakePlaceOf(const ReadFactualDataRecordProcess& source);
  void HandFileOver(const Process* from, Process* to) const;
};

/// Opens a factual data file and executes a new reader for it at once, with its own entity and post-reading.
class InitFactualDataFileReadingProcess
    : public DataReading<InitFactualDataFileReadingProcess, DiscreteProcess, FactualDataFile> {
 public:
  /// Class symbol 0, class name "initFactualDataFileReadingProcess".
  InitFactualDataFileReadingProcess();
  InitFactualDataFileReadingProcess(int classSymbol, const char* className);
  /// The flag of the post-reading stays behind.
  InitFactualDataFileReadingProcess(const InitFactualDataFileReadingProcess& other);
  InitFactualDataFileReadingProcess& operator=(const InitFactualDataFileReadingProcess&) = default;

 private:
  friend class DiscreteProcess;
  explicit InitFactualDataFileReadingProcess(bool withoutMethod) : DataReading(withoutMethod) {}
  void TakePlaceOf(const InitFactualDataFileReadingProcess& source) { TakeReading(source); }
};

extern template class DataReading<ReadSequentialDataFileProcess, ContinuousProcess, SequentialDataFile>;
extern template class DataReading<ReadFactualDataRecordProcess, DiscreteProcess, FactualDataFile>;
extern template class DataReading<InitFactualDataFileReadingProcess, DiscreteProcess, FactualDataFile>;

// The bodies that the constructors install.

/// Opens the file.
void readSequentialDataFileProcess_initializeProcess_Body(ProcessMethod* method);
/// Reads a record and has it used; at the end of the file runs the stop method.
void readSequentialDataFileProcess_goOneStepForwardProcess_Body(ProcessMethod* method);
/// Closes the file and stops the process.
void readSequentialDataFileProcess_stopProcess_Body(ProcessMethod* method);
/// Opens the file and posts the first execution of its reader, at the present clock, with priority 0.
void initFactualDataFileReadingProcess_execProcess_Body(ProcessMethod* method);
/// Reads a record and has it used; VoidRecordInFactualDataFile when the file has no data to show then. At the
/// end of the file the post-reading runs once more, and the file is closed.
void readFactualDataRecordProcess_execProcess_Body(ProcessMethod* method);
