#include "kalve/parsers/DataFileDeclaration.h"

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/inputs/SerialDataFile.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/parsers/ParseState.h"

namespace {

/// The words of the parts, in their order.
constexpr const char* words[] = {"FILE", "PATH", "NAME", "FORMAT", "KEY", "DATA"};
static_assert(std::size(words) == DataFileDeclaration::PART_COUNT);

struct Contradiction {
  DataFileDeclaration::Part whole;
  DataFileDeclaration::Part piece;
};
constexpr Contradiction contradictions[] = {
    {DataFileDeclaration::FULL_NAME, DataFileDeclaration::PATH},
    {DataFileDeclaration::FULL_NAME, DataFileDeclaration::SIMPLE_NAME},
    {DataFileDeclaration::FORMAT, DataFileDeclaration::KEY_FORMAT},
    {DataFileDeclaration::FORMAT, DataFileDeclaration::DATA_FORMAT},
};

}  // namespace

std::string DataFileDeclaration::ShownClass() const {
  return mSymbol ? std::to_string(*mSymbol) : Quoted(mClassName);
}

void DataFileDeclaration::Set(const Position& where, Part part, const std::string& text) {
  if (mParts[part])
    FaultInFile(where, Text("%s est donné deux fois pour le fichier de données", words[part]));
  if (part <= SIMPLE_NAME && text.empty())
    FaultInFile(where, Text("%s demande un nom non vide", words[part]));
  mParts[part] = text;
  for (const Contradiction& pair : contradictions)
    if (mParts[pair.whole] && mParts[pair.piece])
      FaultInFile(where, Text("%s et %s sont donnés pour le même fichier de données", words[pair.whole],
                              words[pair.piece]));
}

void DataFileDeclaration::SetCommentLines(const Position& where, int number) {
  if (mCommentLines) FaultInFile(where, "COMMENTS est donné deux fois pour le fichier de données");
  if (number < 0) FaultInFile(where, "COMMENTS demande un nombre de lignes d'au moins 0");
  mCommentLines = number;
}

void DataFileDeclaration::Apply() const {
  const FailureContext context([this] { AnnounceFault(mWhere, "DATA_FILE " + ShownClass()); });
  SerialDataFile* file = NewFile();
  GiveNames(file);
  GiveFormats(file);
  if (mCommentLines) file->SetNbTopCommentLines(*mCommentLines);
}

namespace {

/// The kernel first, then the application.
template <class Key>
SerialDataFile* Made(SerialDataFile* (*kernel)(Key), SerialDataFile* (*application)(Key), Key key) {
  SerialDataFile* file = kernel(key);
  return file != nullptr || application == nullptr ? file : application(key);
}

}  // namespace

SerialDataFile* DataFileDeclaration::NewFile() const {
  const char* name = Interned(mClassName);
  SerialDataFile* file = mSymbol
                             ? Made(K_NewSerialDataFileFromId, pApp_NewSerialDataFileFromId, *mSymbol)
                             : Made(K_NewSerialDataFileFromString, pApp_NewSerialDataFileFromString, name);
  if (file == nullptr && mSymbol) UnknownClassSymbol("SerialDataFile", *mSymbol);
  if (file == nullptr) UnknownClassName("K_NewSerialDataFileFromString", name);
  const FileClassType type = file->ClassType();
  if (type != SEQUENTIAL_DATA_FILE && type != FACTUAL_DATA_FILE) BadFileType(file, type);
  return file;
}

void DataFileDeclaration::GiveNames(SerialDataFile* file) const {
  if (const auto& fullName = mParts[FULL_NAME]) file->AssignFullName(fullName->c_str());
  if (const auto& path = mParts[PATH]) file->AssignPhysicalPath(path->c_str());
  const auto& simpleName = mParts[SIMPLE_NAME];
  if (!simpleName) return;
  if (file->PathSpecified() == 0) {
    if (*pCurrentSim->GetInDir() == '\0') UnspecifiedInPath(simpleName->c_str());
    file->AssignPhysicalPath(pCurrentSim->GetInDir());
  }
  file->AssignSimpleName(simpleName->c_str());
}

void DataFileDeclaration::GiveFormats(SerialDataFile* file) const {
  if (const auto& format = mParts[FORMAT]) file->AssignFormat(format->c_str());
  if (const auto& key = mParts[KEY_FORMAT]) file->AssignKeyFormat(key->c_str());
  if (const auto& data = mParts[DATA_FORMAT]) file->AssignDataFormat(data->c_str());
}
