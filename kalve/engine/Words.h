// The words that a user interface writes to standard input: pieces of text between blanks, which may come in
// any number of writes.
//
// They are read character by character through the buffer of std::cin, so that nothing gets lost that an
// application has read ahead, and a redirected stream works. A word is handed over once the blank behind it,
// or the end of the input, has been seen; half a word waits for its rest, whichever function asks for it
// next. Blanks are space, tabulations, line end, page end and carriage return.
//
// Standard input should be non-blocking, as it is during a run: on a blocking one CheckForWord waits too.
#pragma once

#include <string>

/// Bytes of a word, final zero included: of a longer one the rest is dropped.
inline constexpr int wordSize = 50;

/// Waits for a word, at full speed and without end, even behind the end of the input. `word` has at least
/// `wordSize` bytes.
void WaitForWord(char* word);
/// The word that is there, "" for none.
void CheckForWord(char* word);
/// Waits for a word and drops it.
void SkipWord();
/// Does nothing.
void CheckInputFromIHM();

/// WaitForWord and CheckForWord.
std::string AwaitedWord();
std::string WordIfAny();
