// The pieces of an input file, the same for all six grammars.
#pragma once

#include <string>

#include "kalve/parsers/Faults.h"

struct Lexeme {
  enum class Kind {
    end,   ///< of the file
    word,  ///< a name; each grammar picks its keywords out of these
    text,  ///< in double quotes; `text` has the escapes resolved
    path,  ///< read up to a blank, ";" or "#", or in double quotes
    integer,
    real,
    sign,        ///< one of ;{}[](),=: or "+="
    unreadable,  ///< begins nothing; the grammar tells what it expected
    fault,       ///< nearly a lexeme; `expected` tells what lacks
  };
  Kind kind = Kind::end;
  std::string text = {};
  int integer = 0;
  double real = 0.0;
  const char* expected = "";
  Position where = {};

  bool IsWord(const char* word) const { return kind == Kind::word && text == word; }
  bool IsSign(char sign) const { return kind == Kind::sign && text.size() == 1 && text[0] == sign; }
  /// As messages show it.
  std::string Shown() const { return kind == Kind::end ? "la fin du fichier" : Quoted(text); }
};

/// The lexemes of one file, one after the other.
class LexemeReader {
 public:
  /// `bytes` in ISO-8859-1, without zero bytes.
  explicit LexemeReader(const std::string& bytes);
  LexemeReader(const LexemeReader&) = delete;
  LexemeReader& operator=(const LexemeReader&) = delete;
  ~LexemeReader();

  /// The next one, `where.line` included. With `asPath`, anything but a sign or a quoted text is a path.
  Lexeme Read(bool asPath);
  /// Line that has been reached, from 1.
  int Line() const { return mLine; }

 private:
  void* mFlex = nullptr;
  int mLine = 1;
};
