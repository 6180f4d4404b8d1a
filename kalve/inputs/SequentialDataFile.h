// SequentialDataFile: a serial data file that is read record after record, one whenever it is asked for.
#pragma once

#include "kalve/inputs/SerialDataFile.h"

class SequentialDataFile : public SerialDataFile {
 public:
  SequentialDataFile(int symbol, AccesTypeId access, OutputMode mode);

  /// The application's reader: it fills mFields and answers how many fields it filled, -1 at the end.
  void AssignReadNextEnrgtMethod(int (*reader)(SequentialDataFile*)) { mReadNextEnrgt = reader; }
  /// Reads a record and gives the reader's answer back. Fewer fields than there are, or no reader at all, is
  /// BadFileRead.
  int ReadNextEnrgt();

 private:
  int (*mReadNextEnrgt)(SequentialDataFile*) = nullptr;
};
