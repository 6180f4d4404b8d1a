#include "kalve/parsers/ParseState.h"

#include <unordered_set>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"

ParseState::ParseState(LexicalInputFile* file, const ParserTrace& trace, FaultEnding ending)
    : mTrace(trace), mScanner(file, ending) {
  mTrace.dashes();
}

const Lexeme& ParseState::Next() {
  const Lexeme& lexeme = mScanner.Next();
  if (*mTrace.isOn == 0) return lexeme;
  const bool isText = lexeme.kind == Lexeme::Kind::text;
  std::string shown;
  for (const char byte : isText ? '"' + lexeme.text + '"' : lexeme.text)
    shown += byte == '%' ? "%%" : std::string(1, byte);  // the trace takes its text as a format
  const bool isLast = lexeme.IsSign(';') || lexeme.IsSign('{') || lexeme.IsSign('}');
  mTrace.text((shown + (isLast ? "\n" : " ")).c_str());
  return lexeme;
}

LexicalInputFile* NeedingSimulation(LexicalInputFile* file) {
  if (pCurrentSim == nullptr) SimulationNotYetCreated();
  return file;
}

const char* Interned(const std::string& text) {
  static std::unordered_set<std::string> texts;
  return texts.insert(text).first->c_str();
}
