// FactualDataFile: a serial data file of dated facts, read ahead of the clock.
//
// A record passes through three tables of the same fields: mReadTab, which the reader function fills,
// mBufferTab, where it keeps a record until its date has come, and mFields, the data that the application
// sees. The reader function moves them, with the three operations below; nobody else does.
#pragma once

#include "kalve/inputs/SerialDataFile.h"

class FactualDataFile : public SerialDataFile {
 public:
  FactualDataFile(int symbol, AccesTypeId access, OutputMode mode);
  ~FactualDataFile();

  // Reading
  /// The application's reader: it answers how many fields it filled, -1 at the end, -9 for a record that is
  /// not due yet.
  void AssignReadNextEnrgtMethod(int (*reader)(FactualDataFile*)) { mReadNextEnrgt = reader; }
  /// Reads a record and gives the reader's answer back. Fewer fields than there are, or no reader at all, is
  /// BadFileRead.
  int ReadNextEnrgt();
  /// The application's date of the record in mReadTab, for the use of its reader.
  void AssignGetRecordClockValueMethod(int (*clock)(FactualDataFile*)) { mGetRecordClockValue = clock; }
  /// What that function answers; -9 without one.
  int GetRecordClockValue();

  // Fields
  /// Appends a field to each of the three tables.
  void AddField(int number, ValueTypeId type);
  // As Get...FieldValue, of the record that was read last.
  int GetIntFieldReadValue(int i);
  float GetFloatFieldReadValue(int i);
  double GetDoubleFieldReadValue(int i);
  const char* GetStringFieldReadValue(int i);

  // The three tables. A copy says that its target is not empty; that it is empty again, the reader says.
  void ReadTabToBufferTab();
  void BufferTabToDataTab();
  void ReadTabToDataTab();
  int IsBufferEmpty() const { return mIsBufferEmpty; }
  void IsBufferEmpty(int isEmpty) { mIsBufferEmpty = isEmpty; }
  int IsDataEmpty() const { return mIsDataEmpty; }
  void IsDataEmpty(int isEmpty) { mIsDataEmpty = isEmpty; }

  /// The process that reads this file, null without one; not owned.
  Process* GetReaderProcess() const { return mReaderProcess; }
  void SetReaderProcess(Process* process) { mReaderProcess = process; }

  /// The record read last, for the reader function.
  Tableau<StructField*> mReadTab;

 private:
  Tableau<StructField*> mBufferTab;
  int (*mGetRecordClockValue)(FactualDataFile*) = nullptr;
  int (*mReadNextEnrgt)(FactualDataFile*) = nullptr;
  int mIsBufferEmpty = 1;
  int mIsDataEmpty = 1;
  Process* mReaderProcess = nullptr;
};
