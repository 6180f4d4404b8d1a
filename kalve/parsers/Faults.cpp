#include "kalve/parsers/Faults.h"

#include <cstdio>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/inputs/File.h"

std::string Quoted(const std::string& piece) {
  constexpr std::size_t longest = 60;
  std::string shown = "'";
  for (const char byte : piece.substr(0, longest)) {
    const auto code = static_cast<unsigned char>(byte);
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    shown += isControl ? Text("\\x%02X", code) : std::string(1, byte);
  }
  return shown + (piece.size() > longest ? "...'" : "'");
}

void AnnounceFault(const Position& where, const std::string& what) {
  const Origin* origin = where.origin;
  std::printf("\n!!! %s, ligne %d : %s", origin->file->GetFullName(), where.line, what.c_str());
  for (; origin->from != nullptr; origin = origin->from)
    std::printf("\n    inclus par %s, ligne %d", origin->from->file->GetFullName(), origin->fromLine);
}

namespace {

[[noreturn]] void End(const Position& where, const std::string& read, const std::string& expected) {
  where.origin->ending(where.origin->file, read.c_str(), expected.c_str());
  exitOnException(0);
}

}  // namespace

void FaultInFile(const Position& where, const std::string& what) {
  AnnounceFault(where, what);
  End(where, what, "");
}

void SyntaxFault(const Position& where, const std::string& read, const std::string& expected) {
  AnnounceFault(where, Text("lu : %s ; attendu : %s", read.c_str(), expected.c_str()));
  End(where, read, expected);
}

void EndAsBadFile(File* file, const char* /*read*/, const char* /*expected*/) { BadReadFile(file); }

void EndAsBadOutputSpecification(File* /*file*/, const char* read, const char* expected) {
  BadSyntaxInOSFile(read, expected);
}
