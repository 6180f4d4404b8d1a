#include "kalve/foundations/CoreException.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/NameTables.h"
#include "kalve/foundations/Tableau.h"

int g_KV_TraceWarnings = 0;

void exitOnException(int code) {
  std::cout << "ERROR " << std::endl;
  std::fflush(stdout);
  std::exit(code);
}

namespace {

FailureContext* innermostContext = nullptr;

}  // namespace

FailureContext::FailureContext(std::function<void()> announce)
    : mAnnounce(std::move(announce)), mOuter(innermostContext) {
  innermostContext = this;
}

FailureContext::~FailureContext() { innermostContext = mOuter; }

/// A failure within the announcement itself finds no context.
void AnnounceFailureContext() {
  const FailureContext* context = std::exchange(innermostContext, nullptr);
  if (context != nullptr) context->mAnnounce();
}

void ReportFailure(const char* banner, const char* format, ...) {
  AnnounceFailureContext();
  std::fputs(banner, stdout);
  va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
  std::putchar('\n');
  exitOnException(0);
}

void ReportWarning(const char* format, ...) {
  if (g_KV_TraceWarnings != 1) return;
  va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
}

void FailOnIndex(const char* where, int size, int index) {
  AnnounceFailureContext();
  ReportTabIndexOutOfRange(where, size, index);
  exitOnException(0);
}

std::string Text(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  std::string text(static_cast<std::size_t>(length > 0 ? length : 0), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  va_end(arguments);
  return text;
}

namespace {

bool HasName(const Tableau<const char*>& names, int id) { return id >= 0 && id < names.size(); }

std::string NameOrNumber(const Tableau<const char*>& names, int id) {
  return HasName(names, id) ? OrEmpty(names[id]) : std::to_string(id);
}

}  // namespace

bool HasClassSymbolName(int classSymbol) { return HasName(ClassIdToCharTab, classSymbol); }

bool HaveClassSymbolNames(int first, int second) {
  return HasClassSymbolName(first) && HasClassSymbolName(second);
}

std::string ClassSymbolText(int classSymbol) { return NameOrNumber(ClassIdToCharTab, classSymbol); }
std::string DescriptorIdText(int descriptorId) { return NameOrNumber(DescIdToCharTab, descriptorId); }
std::string MethodIdText(int methodId) { return NameOrNumber(MethodIdToCharTab, methodId); }
std::string ArgumentIdText(int argumentId) { return NameOrNumber(ArgumentIdToCharTab, argumentId); }
