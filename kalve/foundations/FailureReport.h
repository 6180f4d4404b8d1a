// The shape that all failures share, for the files that define them: banner, body, end; the switch of the
// warnings; the guards of symbols that may have no name.
#pragma once

#include <cstdarg>
#include <functional>
#include <string>

/// Prints banner and body and ends the run. `banner` is the whole literal
/// "\n!!!============== Name ==============", so that a search for it finds the failure.
[[noreturn, gnu::format(printf, 2, 3)]] void ReportFailure(const char* banner, const char* format, ...);

/// While it stands, a fatal failure begins with what `announce` prints: where the kernel is at work on behalf
/// of an input file. Only the innermost one speaks.
class FailureContext {
 public:
  explicit FailureContext(std::function<void()> announce);
  FailureContext(const FailureContext&) = delete;
  FailureContext& operator=(const FailureContext&) = delete;
  ~FailureContext();

 private:
  std::function<void()> mAnnounce;
  FailureContext* mOuter;

  friend void AnnounceFailureContext();
};

/// Prints a warning if g_KV_TraceWarnings is 1.
[[gnu::format(printf, 1, 2)]] void ReportWarning(const char* format, ...);

/// The index report of `where`, and the end of the run: for callers without a right answer.
[[noreturn]] void FailOnIndex(const char* where, int size, int index);

/// Text of printf's arguments, of any length.
[[gnu::format(printf, 1, 2)]] std::string Text(const char* format, ...);

/// A class symbol as messages show it: its name, or the number where the table has none.
std::string ClassSymbolText(int classSymbol);
/// The same for two symbols that print alike: both names, or both numbers.
bool HaveClassSymbolNames(int first, int second);
bool HasClassSymbolName(int classSymbol);

/// Descriptor and method ids under the same guard.
std::string DescriptorIdText(int descriptorId);
std::string MethodIdText(int methodId);
std::string ArgumentIdText(int argumentId);

/// Text or "" for null, so that a message never ends the run for a reason of its own.
inline const char* OrEmpty(const char* text) { return text != nullptr ? text : ""; }
