// The scanner that all six grammars share: lexemes over a chain of files.
//
// INCLUDE "file"; and END INCLUDE; at the start of a statement are its own work, and no grammar sees them. It
// keeps pCurrentFile, pFatherFile and pTmpFile, the record index of each file, and the balance of braces.
#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

#include "kalve/parsers/Lexeme.h"

class Scanner {
 public:
  /// Opens the file (BadFileName). It stays the caller's and must outlive the scanner, as the scanner must
  /// outlive the positions that it gives.
  Scanner(LexicalInputFile* file, FaultEnding ending);
  Scanner(const Scanner&) = delete;
  Scanner& operator=(const Scanner&) = delete;
  ~Scanner();

  /// The next lexeme, never a fault; the end when the first file ends, or when another ends within a
  /// statement.
  const Lexeme& Next();
  /// The one that Next gave last.
  const Lexeme& Last() const { return mLexeme; }
  /// The next lexeme is to be read as a path.
  void ExpectPath() { mPathIsNext = true; }

 private:
  /// A file of the chain. Closed ones are kept: positions point to their origin.
  struct Source {
    Origin origin;
    std::unique_ptr<LexicalInputFile> included;  ///< null for the first file
    std::unique_ptr<LexemeReader> reader;
    Source* from = nullptr;
    std::vector<int> braces;  ///< lines of those that are open
    dev_t device = 0;
    ino_t node = 0;
  };

  Lexeme Take();
  bool PeekIsWord(const char* word);
  Lexeme Read();
  void Include(const Position& where);
  void EndInclude(const Position& where);
  void Enter(std::unique_ptr<Source> source);
  void Leave();
  void RefuseCircle(const Position& where, const std::string& path, const Source& candidate) const;
  void CheckAllBracesClosed(const Position& where) const;
  void FollowStatement();

  std::vector<std::unique_ptr<Source>> mSources;
  Source* mCurrent = nullptr;
  Lexeme mLexeme;
  Lexeme mPeeked;
  bool mHasPeeked = false;
  bool mPathIsNext = false;
  bool mAtStart = true;  ///< of a statement
};
