#include "kalve/inputs/File.h"

#include <cstring>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/Registry.h"
#include "kalve/foundations/TraceSwitches.h"

int File::mInstanceNumber = 0;
Tableau<File*> File::mpInstanceTab;
int File::_nbConst = 0;
int File::_nbDest = 0;

File::File() {
  ++_nbConst;
  AddInstance(this);
  if (g_KV_TraceNewDelMode != 0) std::printf("\nConstruction d'une instance de 'File' : %x", Address32(this));
}

File::File(int symbol, AccesTypeId access, OutputMode mode)
    : mClassSymbol(symbol), mAccesType(access), mOutputMode(mode) {
  if (access != READ_ACCESS && access != WRITE_ACCESS) BadFileOpenMode(this, access);
  ++_nbConst;
  AddInstance(this);
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\nConstruction d'une instance de 'File' : %x de classe %d", Address32(this), mClassSymbol);
}

File::~File() {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\nDestruction d'une instance de 'File' : %x de classe %d", Address32(this), mClassSymbol);
  Close();
  mpInstanceTab.remove_first(this);
  --mInstanceNumber;
  ++_nbDest;
}

void File::Become(FileClassType type, const char* className) {
  mClassType = type;
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n... particularisation en '%s' : %x", className, Address32(this));
}

void File::Open() {
  const char* mode = "w+";
  if (mAccesType == READ_ACCESS)
    mode = "r";
  else if (mOutputMode == OM_APPEND)
    mode = "a+";
  FILE* opened = std::fopen(mFullName.c_str(), mode);
  if (opened == nullptr) BadFileName(this, mFullName.c_str());
  mPhysicalFile = opened;
  mState = 1;
}

void File::Close() {
  if (mState == 1) std::fclose(mPhysicalFile);
  mState = 2;
}

void File::AssignPhysicalPath(const char* path) {
  mPhysicalPath = path;
  if (SimpleNameSpecified() != 0) mFullName = mPhysicalPath + mSimpleName;
}

void File::AssignSimpleName(const char* name) {
  mSimpleName = name;
  if (PathSpecified() != 0) mFullName = mPhysicalPath + mSimpleName;
}

int File::FileNameSpecified() const {
  return FullNameSpecified() != 0 || (PathSpecified() != 0 && SimpleNameSpecified() != 0);
}

char* File::GetFileName() const {
  if (FullNameSpecified() != 0) return strdup(mFullName.c_str());
  return FileNameSpecified() != 0 ? strdup((mPhysicalPath + mSimpleName).c_str()) : nullptr;
}

void File::DisplayNames() const {
  std::printf("\nFile '%x :\n\tpath       : %s\n\tsimpleName : %s\n\tfullName   : %s\n", Address32(this),
              GetPhysicalPath(), GetSimpleName(), GetFullName());
}

void File::Display() const {
  DisplayFrame();
  DisplayState();
  DisplayFrame();
}

void File::DisplayFrame() { std::printf("\n   -------------------------------"); }

void File::DisplayState() const {
  const char* mode = mOutputMode == OM_APPEND ? "écriture en fin" : "écriture";
  std::printf("\n  .Nom fichier  : %s\n  .Mode ouvert. : %s\n  .Etat fichier : %s", GetFullName(),
              mAccesType == READ_ACCESS ? "lecture" : mode, mState == 1 ? "ouvert" : "fermé");
}

File* File::GetFile(int symbol) {
  for (File* file : mpInstanceTab)
    if (file->mClassSymbol == symbol) return file;
  BadSearchByFileId(symbol);
}

void File::AddInstance(File* file) {
  mpInstanceTab.push_back(file);
  ++mInstanceNumber;
}

void File::RemoveInstance(File* file) {
  TakeOut(mpInstanceTab, file, "File::RemoveInstance");
  --mInstanceNumber;
}

File* File::GetInstance(int rank) { return InstanceAt(mpInstanceTab, rank, "File::GetInstance"); }

LexicalInputFile::LexicalInputFile() : File(1, READ_ACCESS, static_cast<OutputMode>(0)) {
  Become(LEXICAL_INPUT_FILE, "LexicalInputFile");
}
