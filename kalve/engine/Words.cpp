#include "kalve/engine/Words.h"

#include <cerrno>
#include <cstdio>
#include <iostream>

namespace {

/// In place of a character.
enum Lack : int { nothingYet = -1, endOfInput = -2 };

/// A read that finds nothing and the end of the input look alike to a stream: errno tells them apart. An
/// unsynchronised stream throws where it finds nothing.
int NextCharacter() {
  std::streambuf* const input = std::cin.rdbuf();
  if (input == nullptr) return endOfInput;
  errno = 0;
  try {
    const int character = input->sbumpc();
    if (character != std::streambuf::traits_type::eof()) return character;
  } catch (...) {  // NOLINT(bugprone-empty-catch): errno says which of the two it is
  }
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR ? nothingYet : endOfInput;
}

bool IsBlank(int character) { return character == ' ' || (character >= '\t' && character <= '\r'); }

/// What has come of a word that is still without its end.
std::string gBegun;

void HandOver(char* word) {
  word[gBegun.copy(word, wordSize - 1)] = '\0';
  gBegun.clear();
}

}  // namespace

void CheckForWord(char* word) {
  word[0] = '\0';
  std::cin.clear();
  std::clearerr(stdin);
  for (;;) {
    const int character = NextCharacter();
    if (character == nothingYet) return;
    if (character == endOfInput || IsBlank(character)) {
      if (!gBegun.empty()) return HandOver(word);
      if (character == endOfInput) return;
    } else if (gBegun.size() < wordSize - 1) {
      gBegun += static_cast<char>(character);
    }
  }
}

void WaitForWord(char* word) {
  do CheckForWord(word);
  while (word[0] == '\0');
}

void SkipWord() { AwaitedWord(); }

void CheckInputFromIHM() {}

std::string AwaitedWord() {
  char word[wordSize];
  WaitForWord(word);
  return word;
}

std::string WordIfAny() {
  char word[wordSize];
  CheckForWord(word);
  return word;
}
