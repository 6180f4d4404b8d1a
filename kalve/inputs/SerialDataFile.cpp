#include "kalve/inputs/SerialDataFile.h"

#include <cstring>

#include "kalve/foundations/CoreException.h"

StructField::StructField(ValueTypeId type) : mValue{}, mType(type) {
  std::memset(&mValue, 0, sizeof mValue);
  if (type == STRING) mValue.stringValue = new char[gFieldMaxSize]();
}

StructField::~StructField() {
  if (mType == STRING) delete[] mValue.stringValue;
}

SerialDataFile::SerialDataFile(int symbol, AccesTypeId access, OutputMode mode) : File(symbol, access, mode) {
  Become(SERIAL_DATA_FILE, "SerialDataFile");
}

SerialDataFile::~SerialDataFile() { DeleteFields(mFields); }

void SerialDataFile::DeleteFields(Tableau<StructField*>& fields) {
  for (StructField* field : fields) delete field;
  fields.erase();
}

void SerialDataFile::AddField(int /*number*/, ValueTypeId type) {
  mFields.push_back(new StructField(type));
  ++mNbFields;
}

UnifiedValue SerialDataFile::FieldValue(const Tableau<StructField*>& fields, int i, ValueTypeId type) {
  if (i < 0 || i >= fields.size()) {
    TabIndexOutOfRange(i, "SerialDataFile::FieldValue", &fields, i, true);
    exitOnException(0);
  }
  if (fields[i]->mType != type) BadFieldValueType(this, i);
  return fields[i]->mValue;
}

int SerialDataFile::GetIntFieldValue(int i) { return FieldValue(mFields, i, INT).intValue; }
float SerialDataFile::GetFloatFieldValue(int i) { return FieldValue(mFields, i, FLOAT).floatValue; }
double SerialDataFile::GetDoubleFieldValue(int i) { return FieldValue(mFields, i, DOUBLE).doubleValue; }
const char* SerialDataFile::GetStringFieldValue(int i) { return FieldValue(mFields, i, STRING).stringValue; }

void SerialDataFile::AssignFormat(const char* key, const char* data) {
  mFormatKey = key;
  mFormatData = data;
  mFormat = mFormatKey + " " + mFormatData;
}

void SerialDataFile::Skip(int n) {
  if (n > 0 && GetState() != 1) BadFileRead(this);
  char line[100];
  for (int i = 0; i < n; ++i)
    if (std::fgets(line, sizeof line, GetPhysicalFile()) == nullptr) return;
}

int SerialDataFile::CheckedCount(int count) {
  const bool isReadingError = GetState() == 1 && std::ferror(GetPhysicalFile()) != 0;
  if (isReadingError || (count != -1 && count < mNbFields)) BadFileRead(this);
  return count;
}

void SerialDataFile::Display() const {
  DisplayFrame();
  DisplayState();
  for (int i = 0; i < mFields.size(); ++i) {
    const UnifiedValue& value = mFields[i]->mValue;
    const ValueTypeId type = mFields[i]->mType;
    if (type == INT) std::printf("\n  .Champ (Entier) %d : %13d.  ", i, value.intValue);
    if (type == FLOAT)
      std::printf("\n  .Champ (Float)  %d : %13.5f.", i, static_cast<double>(value.floatValue));
    if (type == DOUBLE) std::printf("\n  .Champ (Double) %d : %13.5f.", i, value.doubleValue);
    if (type == STRING) std::printf("\n  .Champ (String) %d : %s.", i, value.stringValue);
  }
  DisplayFrame();
}

SerialDataFile* File::GetSerialDataFile(int symbol) {
  File* file = GetFile(symbol);
  const FileClassType type = file->ClassType();
  if (type != SEQUENTIAL_DATA_FILE && type != FACTUAL_DATA_FILE) BadFileType(file, type);
  return static_cast<SerialDataFile*>(file);
}
