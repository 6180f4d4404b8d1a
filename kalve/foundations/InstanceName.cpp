#include "kalve/foundations/InstanceName.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "kalve/foundations/SharedConstants.h"

const char* ComposeInstanceName(const char* className, int number) {
  char digits[16];
  const char* const digitsEnd = std::to_chars(digits, digits + sizeof digits, number).ptr;
  char* out = gInstanceNameString;
  char* const end = gInstanceNameString + gInstanceNameStringSize - 1;
  const auto append = [&](const char* text, std::size_t length) {
    out = std::copy_n(text, std::min(length, static_cast<std::size_t>(end - out)), out);
  };
  append(className, std::strlen(className));
  append(gUnderscore, std::strlen(gUnderscore));
  append(digits, static_cast<std::size_t>(digitsEnd - digits));
  *out = '\0';
  return gInstanceNameString;
}
