#include "kalve/parsers/Latin1.h"

#include <cstdint>

namespace {

/// Reads the character at `i` and moves behind it; -1 when there is none.
std::int32_t NextCharacter(const std::string& bytes, std::size_t& i) {
  const auto first = static_cast<unsigned char>(bytes[i++]);
  if (first < 0x80) return first;
  const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4) return -1;
  std::int32_t character = first & (0x3F >> following);
  for (int k = 0; k < following; ++k) {
    if (i >= bytes.size() || (static_cast<unsigned char>(bytes[i]) & 0xC0) != 0x80) return -1;
    character = character * 64 + (static_cast<unsigned char>(bytes[i++]) & 0x3F);
  }
  constexpr std::int32_t least[] = {0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = character >= 0xD800 && character < 0xE000;
  return character < least[following] || character > 0x10FFFF || isSurrogate ? -1 : character;
}

}  // namespace

bool IsUtf8BeyondAscii(const std::string& bytes) {
  bool beyond = false;
  for (std::size_t i = 0; i < bytes.size();) {
    const std::int32_t character = NextCharacter(bytes, i);
    if (character < 0) return false;
    beyond = beyond || character >= 0x80;
  }
  return beyond;
}

std::string Utf8ToLatin1(const std::string& utf8) {
  std::string latin1;
  std::size_t i = utf8.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
  while (i < utf8.size()) {
    const std::int32_t character = NextCharacter(utf8, i);
    latin1 += character <= 0xFF ? static_cast<char>(character) : foreignCharacter;
  }
  return latin1;
}

std::string Latin1ToUtf8(const std::string& latin1) {
  std::string utf8;
  for (const char byte : latin1) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x80) {
      utf8 += byte;
    } else {
      utf8 += static_cast<char>(0xC0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}
