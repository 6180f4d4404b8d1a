#include "kalve/inputs/FactualDataFile.h"

#include "kalve/foundations/CoreException.h"

FactualDataFile::FactualDataFile(int symbol, AccesTypeId access, OutputMode mode)
    : SerialDataFile(symbol, access, mode) {
  Become(FACTUAL_DATA_FILE, "FactualDataFile");
}

FactualDataFile::~FactualDataFile() {
  DeleteFields(mReadTab);
  DeleteFields(mBufferTab);
}

int FactualDataFile::ReadNextEnrgt() {
  if (mReadNextEnrgt == nullptr) BadFileRead(this);
  const int count = mReadNextEnrgt(this);
  return count == K_INT_UNSIGNIFICANT ? count : CheckedCount(count);
}

int FactualDataFile::GetRecordClockValue() {
  return mGetRecordClockValue != nullptr ? mGetRecordClockValue(this) : K_INT_UNSIGNIFICANT;
}

void FactualDataFile::AddField(int number, ValueTypeId type) {
  mReadTab.push_back(new StructField(type));
  mBufferTab.push_back(new StructField(type));
  SerialDataFile::AddField(number, type);
}

int FactualDataFile::GetIntFieldReadValue(int i) { return FieldValue(mReadTab, i, INT).intValue; }
float FactualDataFile::GetFloatFieldReadValue(int i) { return FieldValue(mReadTab, i, FLOAT).floatValue; }
double FactualDataFile::GetDoubleFieldReadValue(int i) { return FieldValue(mReadTab, i, DOUBLE).doubleValue; }
const char* FactualDataFile::GetStringFieldReadValue(int i) {
  return FieldValue(mReadTab, i, STRING).stringValue;
}

namespace {

/// Field by field; a text that its reader left without an end is cut.
void CopyFields(const Tableau<StructField*>& from, Tableau<StructField*>& to) {
  for (int i = 0; i < from.size(); ++i) {
    if (from[i]->mType == STRING)
      std::snprintf(to[i]->mValue.stringValue, gFieldMaxSize, "%.*s", gFieldMaxSize - 1,
                    from[i]->mValue.stringValue);
    else
      to[i]->mValue = from[i]->mValue;
  }
}

}  // namespace

void FactualDataFile::ReadTabToBufferTab() {
  CopyFields(mReadTab, mBufferTab);
  mIsBufferEmpty = 0;
}

void FactualDataFile::BufferTabToDataTab() {
  CopyFields(mBufferTab, mFields);
  mIsDataEmpty = 0;
}

void FactualDataFile::ReadTabToDataTab() {
  CopyFields(mReadTab, mFields);
  mIsDataEmpty = 0;
}
