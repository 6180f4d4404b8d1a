// The character sets of input files: UTF-8 is recognised and converted, anything else is ISO-8859-1.
#pragma once

#include <string>

/// Stands in converted text for a character that ISO-8859-1 does not have.
inline constexpr char foreignCharacter = '\x1A';

/// Whether the bytes are UTF-8 and hold more than ASCII.
bool IsUtf8BeyondAscii(const std::string& bytes);
/// From valid UTF-8; a byte order mark in front is dropped.
std::string Utf8ToLatin1(const std::string& utf8);
std::string Latin1ToUtf8(const std::string& latin1);
