// What every parser carries while it reads: the scanner and the trace of its letter.
#pragma once

#include <string>

#include "kalve/parsers/Scanner.h"

/// The trace of a letter: its switch and its two functions.
struct ParserTrace {
  const int* isOn;
  void (*dashes)();
  void (*text)(const char*);
};

class ParseState {
 public:
  ParseState(LexicalInputFile* file, const ParserTrace& trace, FaultEnding ending = EndAsBadFile);
  ParseState(const ParseState&) = delete;
  ParseState& operator=(const ParseState&) = delete;
  ~ParseState() { mTrace.dashes(); }

  /// The scanner's next lexeme, which the trace shows, a statement a line.
  const Lexeme& Next();
  Scanner& GetScanner() { return mScanner; }

 private:
  ParserTrace mTrace;
  Scanner mScanner;
};

/// The same file; SimulationNotYetCreated without pCurrentSim.
LexicalInputFile* NeedingSimulation(LexicalInputFile* file);

/// The same text in memory that lasts until the end of the process, for objects that keep the pointer.
const char* Interned(const std::string& text);
