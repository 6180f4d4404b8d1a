#include "kalve/model/ApplicationHooks.h"

#include <cstring>
#include <initializer_list>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/NameTables.h"
#include "kalve/foundations/Tableau.h"

#define KALVE_DEFINE_HOOK(Name, Result, Argument) \
  Result (*pApp_##Name)(Argument) = nullptr;      \
  void Assign_App_##Name##Function(Result (*function)(Argument)) { pApp_##Name = function; }
KALVE_APPLICATION_HOOKS(KALVE_DEFINE_HOOK)
#undef KALVE_DEFINE_HOOK

Entity* K_NewEntityFromString(const char* /*name*/) { return nullptr; }
Process* K_NewProcessFromString(const char* /*name*/) { return nullptr; }
EntitySpec* K_NewEntitySpecFromString(const char* /*name*/) { return nullptr; }
DescValueSpec* K_NewDescValueSpecFromString(const char* /*name*/) { return nullptr; }
SerialDataFile* K_NewSerialDataFileFromString(const char* /*name*/) { return nullptr; }
SerialDataFile* K_NewSerialDataFileFromId(int /*symbol*/) { return nullptr; }
int K_SerialDataFileIdFromString(const char* /*name*/) { return K_INT_UNSIGNIFICANT; }

int (*EnumToInt)(const char*) = nullptr;

void AssignEnumToInt(int (*function)(const char*)) { EnumToInt = function; }

int K_EnumToInt(const char* name) {
  struct Word {
    const char* text;
    int number;
  };
  constexpr Word words[] = {
      {"NFIRST", NFIRST},           {"ALLENT", ALLENT}, {"RETURN_INSTANCES", RETURN_INSTANCES},
      {"INSTANTIATE", INSTANTIATE}, {"NOT_IN", NOT_IN}, {"IN", IN}};
  for (const auto* table : {&ClassIdToCharTab, &DescIdToCharTab, &MethodIdToCharTab, &ArgumentIdToCharTab})
    if (const int position = table->position(name); position >= 0) return position;
  for (const Word& word : words)
    if (std::strcmp(name, word.text) == 0) return word.number;
  return K_INT_UNSIGNIFICANT;
}
