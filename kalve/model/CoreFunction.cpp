// Positions and texts.
#include "kalve/model/CoreFunction.h"

#include <cctype>
#include <charconv>
#include <cstring>

#include "kalve/model/BasicEntity.h"

int GetPosition(const Tableau<const char*>& texts, const char* text) { return texts.position(text); }
int GetPosition(const Tableau<char*>& texts, const char* text) {
  return texts.position(const_cast<char*>(text));
}

int GetPosition(const Tableau<BasicEntity*>& entities, int classId) {
  for (int i = 0; i < entities.size(); ++i)
    if (IsLivingEntity(entities[i]) && entities[i]->ClassId() == classId) return i;
  return K_INT_UNSIGNIFICANT;
}

int GetPosition(const Tableau<BasicEntity*>& entities, const char* name) {
  for (int i = 0; i < entities.size(); ++i)
    if (IsLivingEntity(entities[i]) && std::strcmp(entities[i]->InstanceName(), name) == 0) return i;
  return K_INT_UNSIGNIFICANT;
}

char* itoc(int n, char* buffer) {
  *std::to_chars(buffer, buffer + 11, n).ptr = '\0';
  return buffer;
}

char* fillLeft(int width, int n, char* buffer) {
  char digits[12];
  itoc(n, digits);
  const int blanks = width - static_cast<int>(std::strlen(digits));
  char* out = buffer;
  for (int i = 0; i < blanks; ++i) *out++ = ' ';
  std::strcpy(out, digits);  // NOLINT: the caller's buffer takes the width or the digits
  return buffer;
}

void FirstToUpper(const char* in, char* out) {
  std::memmove(out, in, std::strlen(in) + 1);  // both may be one text
  out[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(out[0])));
}

char* my_strdup(const char* text) { return text != nullptr ? strdup(text) : nullptr; }
char* my_strdup1(const char* text) { return my_strdup(text); }
char* my_strdup2(const char* text) { return my_strdup(text); }
