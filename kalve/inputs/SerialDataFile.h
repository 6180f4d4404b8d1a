// SerialDataFile: a file of records, each of which is read into the same typed fields.
//
// The file does not know its own syntax: a function of the application reads a record and writes it into the
// fields, in place. Fields are numbered from 0 in the order in which they were added. Applications build the
// two subclasses, SequentialDataFile and FactualDataFile.
#pragma once

#include <string>

#include "kalve/foundations/Records.h"
#include "kalve/inputs/File.h"

/// One field. A text stands in a buffer of gFieldMaxSize bytes, which the field owns: 49 characters and the
/// final zero.
struct StructField {
  UnifiedValue mValue;
  ValueTypeId mType;

  /// 0, or an empty text.
  explicit StructField(ValueTypeId type);
  StructField(const StructField&) = delete;
  StructField& operator=(const StructField&) = delete;
  ~StructField();
};

class SerialDataFile : public File {
 public:
  SerialDataFile(int symbol, AccesTypeId access, OutputMode mode);
  ~SerialDataFile();

  // Fields
  /// Appends a field of type INT, FLOAT, DOUBLE or STRING; the number is not used.
  void AddField(int number, ValueTypeId type);
  // Field i of the record in hand; BadFieldValueType when it is of another type. The text is valid until the
  // next record.
  int GetIntFieldValue(int i);
  float GetFloatFieldValue(int i);
  double GetDoubleFieldValue(int i);
  const char* GetStringFieldValue(int i);

  // A format of the stdio family, kept as text for the reader function: as a whole, or as key and data, with
  // a blank between. A change of a part makes the whole anew from both parts.
  void AssignFormat(const char* format) { mFormat = format; }
  void AssignFormat(const char* key, const char* data);
  void AssignKeyFormat(const char* key) { AssignFormat(key, mFormatData.c_str()); }
  void AssignDataFormat(const char* data) { AssignFormat(mFormatKey.c_str(), data); }
  const char* GetFormat() const { return mFormat.c_str(); }
  const char* GetFormatKey() const { return mFormatKey.c_str(); }
  const char* GetFormatData() const { return mFormatData.c_str(); }

  // Header lines
  /// How many lines stand before the records.
  int GetNbTopCommentLines() const { return mNbTopCommentLines; }
  void SetNbTopCommentLines(int number) { mNbTopCommentLines = number; }
  /// Reads past n lines of the open file; one of more than 99 characters counts as several. BadFileRead when
  /// the file is closed.
  void Skip(int n);

  void Display() const;

  /// The fields of the record in hand, for the reader function.
  Tableau<StructField*> mFields;

 protected:
  /// What a reader function's answer means: -1, the end, and a count of fields that is enough are given back;
  /// fewer are BadFileRead, and so is a stream that cannot be read, which the function takes for the end.
  int CheckedCount(int count);
  /// Field i of one of the file's tables, which must be of the type.
  UnifiedValue FieldValue(const Tableau<StructField*>& fields, int i, ValueTypeId type);
  static void DeleteFields(Tableau<StructField*>& fields);

  int mNbFields = 0;

 private:
  std::string mFormatKey;
  std::string mFormatData;
  std::string mFormat;
  int mNbTopCommentLines = 0;
};
