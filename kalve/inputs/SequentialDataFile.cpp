#include "kalve/inputs/SequentialDataFile.h"

#include "kalve/foundations/CoreException.h"

SequentialDataFile::SequentialDataFile(int symbol, AccesTypeId access, OutputMode mode)
    : SerialDataFile(symbol, access, mode) {
  Become(SEQUENTIAL_DATA_FILE, "SequentialDataFile");
}

int SequentialDataFile::ReadNextEnrgt() {
  if (mReadNextEnrgt == nullptr) BadFileRead(this);
  return CheckedCount(mReadNextEnrgt(this));
}
