// File and its family: a stdio stream with the kernel's rules of names and its table of instances.
//
// Nothing is virtual: ClassType() tells the class. Every file enters File::mpInstanceTab when it is built
// and leaves it when it is destroyed; GetFile searches that table by symbol.
//
// Names: a full name, or a path and a simple name that are put together without anything between them, so
// that a path ends with its own separator.
#pragma once

#include <cstdio>
#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"

class File {
 public:
  // Life
  File();
  /// An access that is neither read nor write is BadFileOpenMode.
  File(int symbol, AccesTypeId access, OutputMode mode);
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  /// Closes the file; the table of instances may have been emptied before.
  ~File();

  // Stream
  /// Opens the full name: "r" to read; "a+" in the mode OM_APPEND and "w+" in any other to write.
  /// BadFileName when that fails. On an open file the new stream replaces the old one, which stays open.
  void Open();
  /// Does nothing to a closed file.
  void Close();
  /// 1 open, 2 closed.
  int GetState() const { return mState; }
  /// Null until the first opening.
  FILE* GetPhysicalFile() const { return mPhysicalFile; }

  // Identity
  /// The file among those of the application.
  int ClassSymbol() const { return mClassSymbol; }
  void ClassSymbol(int symbol) { mClassSymbol = symbol; }
  /// 0 in a plain File.
  FileClassType ClassType() const { return mClassType; }

  // Names
  void AssignFullName(const char* name) { mFullName = name; }
  /// Path and simple name make the full name as soon as both are there.
  void AssignPhysicalPath(const char* path);
  void AssignSimpleName(const char* name);
  const char* GetFullName() const { return mFullName.c_str(); }
  const char* GetPhysicalPath() const { return mPhysicalPath.c_str(); }
  const char* GetSimpleName() const { return mSimpleName.c_str(); }
  int FullNameSpecified() const { return !mFullName.empty(); }
  int PathSpecified() const { return !mPhysicalPath.empty(); }
  int SimpleNameSpecified() const { return !mSimpleName.empty(); }
  /// A full name, or path and simple name.
  int FileNameSpecified() const;
  /// The full name, else path and simple name, else null; the caller frees it.
  char* GetFileName() const;

  // Displays
  void DisplayNames() const;
  void Display() const;

  // Instances
  /// The oldest file with the symbol; BadSearchByFileId when there is none.
  static File* GetFile(int symbol);
  /// The same, which must be sequential or factual, else BadFileType: SerialDataFile.cpp
  static SerialDataFile* GetSerialDataFile(int symbol);
  static void AddInstance(File* file);
  /// InexistantInstance when the file is not in the table.
  static void RemoveInstance(File* file);
  static File* GetInstance(int rank);
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

  static int mInstanceNumber;
  static Tableau<File*> mpInstanceTab;

 protected:
  /// What a subclass says once it has built itself.
  void Become(FileClassType type, const char* className);
  /// Name, mode and state, as in every display.
  void DisplayState() const;
  static void DisplayFrame();

 private:
  FILE* mPhysicalFile = nullptr;
  int mClassSymbol = K_INT_UNSIGNIFICANT;
  FileClassType mClassType = static_cast<FileClassType>(0);
  std::string mPhysicalPath;
  std::string mFullName;
  std::string mSimpleName;
  AccesTypeId mAccesType = READ_ACCESS;
  OutputMode mOutputMode = static_cast<OutputMode>(0);
  int mState = 2;

  static int _nbConst;
  static int _nbDest;
};

/// A text file that a parser reads. It lives for one reading.
class LexicalInputFile : public File {
 public:
  LexicalInputFile();

  /// Line that is being read, from 1.
  int GetCurrentRecordIndex() const { return mCurrentRecordIndex; }
  void SetCurrentRecordIndex(int index) { mCurrentRecordIndex = index; }
  /// The file that includes this one, null for the first; not owned.
  LexicalInputFile* GetFileFrom() const { return mFileFrom; }
  void SetFileFrom(LexicalInputFile* file) { mFileFrom = file; }

 private:
  int mCurrentRecordIndex = 1;
  LexicalInputFile* mFileFrom = nullptr;
};
