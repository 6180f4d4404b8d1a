// Events and processes by name. Linear searches, for start-up and for the dialogue. Without a simulation
// there are no events.
#pragma once

#include "kalve/foundations/Forward.h"

/// By instance name; null for none.
Process* GetNamedProcess(const char* name);
/// The first living process of that class name; null for none.
Process* GetClassNamedProcess(const char* className);
/// The event that is being applied, then those of the agenda; null for none.
Event* GetNamedEvent(const char* name);
Event* GetClassNamedEvent(const char* className);
/// All events of that class name in the agenda, as a new table that the caller owns.
Tableau<Event*>* GetClassNamedEventTab(const char* className);
