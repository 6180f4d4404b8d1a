#include "kalve/parsers/Scanner.h"

#include <sys/stat.h>

#include <climits>
#include <cstdio>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/parsers/Latin1.h"

namespace {

constexpr int deepestInclusion = 20;

/// All bytes of an open file. What is no text is a fault of its line.
std::string Contents(const Origin& origin) {
  std::string bytes;
  char buffer[1 << 16];
  FILE* file = origin.file->GetPhysicalFile();
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0 && bytes.size() < INT_MAX / 2;)
    bytes.append(buffer, n);
  if (std::ferror(file) != 0 || bytes.size() >= INT_MAX / 2)
    FaultInFile({&origin, 1}, "le fichier ne peut pas être lu");
  if (const std::size_t zero = bytes.find('\0'); zero != std::string::npos) {
    int line = 1;
    for (std::size_t i = 0; i < zero; ++i) line += bytes[i] == '\n';
    FaultInFile({&origin, line}, "octet nul : ce fichier n'est pas un texte");
  }
  return bytes;
}

/// Paths are relative to the folder of the file that names them.
std::string PathFrom(const std::string& includer, const std::string& path) {
  if (!path.empty() && path[0] == '/') return path;
  return includer.substr(0, includer.rfind('/') + 1) + path;
}

}  // namespace

Scanner::Scanner(LexicalInputFile* file, FaultEnding ending) {
  auto source = std::make_unique<Source>();
  source->origin = {.file = file, .ending = ending};
  pTmpFile = file;
  file->Open();
  Enter(std::move(source));
}

Scanner::~Scanner() {
  while (mCurrent != nullptr) Leave();
}

const Lexeme& Scanner::Next() {
  for (mLexeme = Take(); mAtStart; mLexeme = Take()) {
    if (mLexeme.IsWord("INCLUDE")) {
      Include(mLexeme.where);
    } else if (mLexeme.IsWord("END") && PeekIsWord("INCLUDE")) {
      EndInclude(mLexeme.where);
    } else if (mLexeme.kind == Lexeme::Kind::end && mCurrent->from != nullptr) {
      CheckAllBracesClosed(mLexeme.where);
      Leave();
    } else {
      break;
    }
  }
  FollowStatement();
  return mLexeme;
}

Lexeme Scanner::Take() {
  if (!mHasPeeked) return Read();
  mHasPeeked = false;
  return std::move(mPeeked);
}

bool Scanner::PeekIsWord(const char* word) {
  mPeeked = Take();
  mHasPeeked = true;
  return mPeeked.IsWord(word);
}

Lexeme Scanner::Read() {
  Lexeme lexeme = mCurrent->reader->Read(mPathIsNext);
  mPathIsNext = false;
  mCurrent->origin.file->SetCurrentRecordIndex(mCurrent->reader->Line());
  lexeme.where.origin = &mCurrent->origin;
  if (lexeme.kind == Lexeme::Kind::fault) SyntaxFault(lexeme.where, Quoted(lexeme.text), lexeme.expected);
  // Names of files are the system's own bytes: those of the file that names them.
  if (lexeme.kind == Lexeme::Kind::path && mCurrent->origin.isUtf8) lexeme.text = Latin1ToUtf8(lexeme.text);
  return lexeme;
}

void Scanner::FollowStatement() {
  std::vector<int>& braces = mCurrent->braces;
  if (mLexeme.kind == Lexeme::Kind::end) CheckAllBracesClosed(mLexeme.where);
  if (mLexeme.IsSign('{')) braces.push_back(mLexeme.where.line);
  if (mLexeme.IsSign('}')) {
    if (braces.empty())
      SyntaxFault(mLexeme.where, "'}'", "une instruction (aucune accolade n'est ouverte dans ce fichier)");
    braces.pop_back();
  }
  mAtStart = mLexeme.IsSign(';') || mLexeme.IsSign('{') || mLexeme.IsSign('}');
}

void Scanner::CheckAllBracesClosed(const Position& where) const {
  if (mCurrent->braces.empty()) return;
  SyntaxFault(where, mLexeme.Shown(), Text("'}' (accolade ouverte à la ligne %d)", mCurrent->braces.back()));
}

// Inclusion --------------------------------------------------------------------------------------------

void Scanner::Include(const Position& where) {
  const Lexeme name = Take();
  if (name.kind != Lexeme::Kind::text)
    SyntaxFault(name.where, name.Shown(), "le nom du fichier à inclure, entre guillemets");
  const Lexeme end = Take();
  if (!end.IsSign(';')) SyntaxFault(end.where, end.Shown(), "';'");

  auto source = std::make_unique<Source>();
  source->included = std::make_unique<LexicalInputFile>();
  source->origin = {.file = source->included.get(),
                    .from = where.origin,
                    .fromLine = where.line,
                    .ending = where.origin->ending};
  source->from = mCurrent;
  pTmpFile = source->origin.file;
  pTmpFile->SetFileFrom(pCurrentFile);
  const std::string path =
      PathFrom(pCurrentFile->GetFullName(), mCurrent->origin.isUtf8 ? Latin1ToUtf8(name.text) : name.text);
  pTmpFile->AssignFullName(path.c_str());
  int depth = 0;
  for (const Source* from = mCurrent; from != nullptr; from = from->from) ++depth;
  if (depth > deepestInclusion)
    FaultInFile(where, Text("plus de %d inclusions imbriquées", deepestInclusion));
  pTmpFile->Open();
  RefuseCircle(where, path, *source);
  Enter(std::move(source));
}

void Scanner::RefuseCircle(const Position& where, const std::string& path, const Source& candidate) const {
  struct stat status {};
  fstat(fileno(candidate.origin.file->GetPhysicalFile()), &status);
  for (const Source* source = mCurrent; source != nullptr; source = source->from)
    if (source->device == status.st_dev && source->node == status.st_ino)
      FaultInFile(where, Text("le fichier '%s' s'inclut lui-même", path.c_str()));
}

void Scanner::EndInclude(const Position& where) {
  Take();
  const Lexeme end = Take();
  if (!end.IsSign(';')) SyntaxFault(end.where, end.Shown(), "';'");
  if (mCurrent->from == nullptr) {
    AnnounceFault(where, "END INCLUDE dans un fichier qui n'est pas inclus");
    UnexpectedEndInclude(mCurrent->origin.file->GetFullName());
  }
  mLexeme.text = "END INCLUDE";
  CheckAllBracesClosed(where);
  Leave();
}

void Scanner::Enter(std::unique_ptr<Source> source) {
  struct stat status {};
  fstat(fileno(source->origin.file->GetPhysicalFile()), &status);
  source->device = status.st_dev;
  source->node = status.st_ino;
  const std::string bytes = Contents(source->origin);
  source->origin.isUtf8 = IsUtf8BeyondAscii(bytes);
  source->reader = std::make_unique<LexemeReader>(source->origin.isUtf8 ? Utf8ToLatin1(bytes) : bytes);
  mCurrent = source.get();
  mSources.push_back(std::move(source));
  pFatherFile = pCurrentFile;
  pCurrentFile = pTmpFile;
  pTmpFile = nullptr;
}

void Scanner::Leave() {
  mCurrent->origin.file->Close();
  mCurrent->reader.reset();
  mCurrent = mCurrent->from;
  pCurrentFile = pFatherFile;
  pFatherFile = pCurrentFile != nullptr ? pCurrentFile->GetFileFrom() : nullptr;
}
