// How declarations and dumps handle output files.
#pragma once

#include <string>

#include "kalve/foundations/Enumerations.h"

/// A new output file of the table, emptied at once in the mode OM_OVERWRITE.
OutputFile* NewOutputFile(const char* name, OutputMode mode);
/// The same, or null for an empty name.
OutputFile* NewOutputFileIfNamed(const char* name, OutputMode mode);

/// A file that is open as long as the object stands. Its text is gathered and written in large pieces; a
/// failure that ends the process leaves in the file what came before it. Objects on the stack only.
class OutputText {
 public:
  /// BadFileName for null as for a file that cannot be opened.
  explicit OutputText(OutputFile* file);
  OutputText(const OutputText&) = delete;
  OutputText& operator=(const OutputText&) = delete;
  /// Writes the rest and closes the file.
  ~OutputText();

  /// The line at work, behind what is not yet written.
  std::string& Line() { return mText; }
  void EndLine() {
    mText += '\n';
    if (mText.size() >= pieceSize) Write();
  }

 private:
  static constexpr std::size_t pieceSize = 65536;

  void Write();
  static void WriteAll();

  OutputFile* mFile;
  std::string mText;
  OutputText* mNext;
  static OutputText* sFirst;  // of all that stand, the last one first
};

/// Opens the file, and leaves the text in the buffer of its stream, which is written when the process ends;
/// then opens the file again and leaves it open. An overwritten file is thus empty until then. BadFileName as
/// above.
void WriteAtProcessEnd(OutputFile* file, const std::string& text);
