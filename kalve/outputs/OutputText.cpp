#include "kalve/outputs/OutputText.h"

#include <algorithm>
#include <cstdlib>

#include "kalve/foundations/CoreException.h"
#include "kalve/inputs/OutputFile.h"

OutputFile* NewOutputFile(const char* name, OutputMode mode) {
  auto* const file = new OutputFile(name, mode);
  if (mode != OM_OVERWRITE) return file;
  file->Open();
  file->Close();
  return file;
}

OutputFile* NewOutputFileIfNamed(const char* name, OutputMode mode) {
  return name != nullptr && *name != '\0' ? NewOutputFile(name, mode) : nullptr;
}

namespace {

std::FILE* Opened(OutputFile* file) {
  if (file == nullptr) BadFileName(nullptr, "");
  file->Open();
  return file->GetPhysicalFile();
}

}  // namespace

OutputText* OutputText::sFirst = nullptr;

OutputText::OutputText(OutputFile* file) : mFile(file), mNext(sFirst) {
  Opened(file);
  static const int registered = std::atexit(WriteAll);
  static_cast<void>(registered);
  sFirst = this;
}

OutputText::~OutputText() {
  sFirst = mNext;
  Write();
  mFile->Close();
}

void OutputText::WriteAll() {
  for (OutputText* text = sFirst; text != nullptr; text = text->mNext) text->Write();
}

void OutputText::Write() {
  std::fwrite(mText.data(), 1, mText.size(), mFile->GetPhysicalFile());
  mText.clear();
}

void WriteAtProcessEnd(OutputFile* file, const std::string& text) {
  std::FILE* const stream = Opened(file);
  // Larger than the text, and than what the library writes through; the stream keeps it to the end.
  const std::size_t size = std::max<std::size_t>(text.size() + 1, BUFSIZ);
  std::setvbuf(stream, static_cast<char*>(std::malloc(size)), _IOFBF, size);
  std::fwrite(text.data(), 1, text.size(), stream);
  file->Open();
}
