// Faults in an input file: where they stand, and how they end the run.
#pragma once

#include <string>

#include "kalve/foundations/Forward.h"

/// Ends the run when a file is wrong; what was read and what was expected have been printed already.
using FaultEnding = void (*)(File* file, const char* read, const char* expected);

/// A file being read, and the inclusion that led to it.
struct Origin {
  LexicalInputFile* file = nullptr;
  const Origin* from = nullptr;  ///< null for the first file
  int fromLine = 0;              ///< line of the inclusion
  bool isUtf8 = false;           ///< its lexemes were converted from it
  FaultEnding ending = nullptr;
};

/// Where a lexeme stands.
struct Position {
  const Origin* origin = nullptr;
  int line = 1;
};

/// A piece of the file as messages show it: in single quotes, control characters by their code, cut when
/// long.
std::string Quoted(const std::string& piece);

/// Prints file, line and `what`, and a line for each file that led there. For failures that have a function
/// of their own, which the caller calls next.
void AnnounceFault(const Position& where, const std::string& what);

/// The same, then ends the run.
[[noreturn]] void FaultInFile(const Position& where, const std::string& what);

/// A fault of syntax: what was read and what could have stood there, both in French.
[[noreturn]] void SyntaxFault(const Position& where, const std::string& read, const std::string& expected);

// Endings.
void EndAsBadFile(File* file, const char* read, const char* expected);
void EndAsBadOutputSpecification(File* file, const char* read, const char* expected);
