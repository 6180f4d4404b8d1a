// How an application gives the kernel its own classes by name or number: functions that it assigns, null
// until then. The parsers ask the kernel's function (K_New...) first, then the application's; null from both
// means that the name is unknown. Objects that a function answers belong to whoever asked.
#pragma once

#include "kalve/foundations/Forward.h"

// The hook that makes X from a text or a number is pApp_NewX..., assigned with Assign_App_NewX...Function.
#define KALVE_APPLICATION_HOOKS(HOOK)                             \
  HOOK(NewEntityFromString, Entity*, const char*)                 \
  HOOK(NewEntityFromId, Entity*, int)                             \
  HOOK(NewProcessFromString, Process*, const char*)               \
  HOOK(NewEventFromString, Event*, const char*)                   \
  HOOK(NewEntitySpecFromString, EntitySpec*, const char*)         \
  HOOK(NewDescValueSpecFromString, DescValueSpec*, const char*)   \
  HOOK(NewSerialDataFileFromString, SerialDataFile*, const char*) \
  HOOK(NewSerialDataFileFromId, SerialDataFile*, int)             \
  HOOK(SerialDataFileIdFromString, int, const char*)

#define KALVE_DECLARE_HOOK(Name, Result, Argument) \
  extern Result (*pApp_##Name)(Argument);          \
  void Assign_App_##Name##Function(Result (*function)(Argument));
KALVE_APPLICATION_HOOKS(KALVE_DECLARE_HOOK)
#undef KALVE_DECLARE_HOOK

// What the kernel can make by itself: a plain event from "event", and nothing else.
Entity* K_NewEntityFromString(const char* name);
Process* K_NewProcessFromString(const char* name);
/// The event's class name is "event".
Event* K_NewEventFromString(const char* name);
EntitySpec* K_NewEntitySpecFromString(const char* name);
DescValueSpec* K_NewDescValueSpecFromString(const char* name);
SerialDataFile* K_NewSerialDataFileFromString(const char* name);
SerialDataFile* K_NewSerialDataFileFromId(int symbol);
/// -9.
int K_SerialDataFileIdFromString(const char* name);

/// The application's numbers of enumerated names, asked before the kernel's; null until assigned.
extern int (*EnumToInt)(const char* name);
void AssignEnumToInt(int (*function)(const char*));
/// Position of the name in the tables of classes, descriptors, methods or arguments, or number of a word of
/// the specifications (NFIRST, ALLENT, RETURN_INSTANCES, INSTANTIATE, NOT_IN, IN); -9 for another name.
int K_EnumToInt(const char* name);
