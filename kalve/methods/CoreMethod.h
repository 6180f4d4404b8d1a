// Free functions of methods: names of ids, and standard bodies.
#pragma once

#include "kalve/foundations/Forward.h"

/// Fill MethodIdToCharTab and ArgumentIdToCharTab with the kernel's own names; whatever was there goes.
void MakeMethodIdToCharTab();
void MakeArgumentIdToCharTab();

/// Name of an id in its table, "@" where it has none; the index failure beyond the table.
const char* MethodIdToString(int id);
const char* ArgumentIdToString(int id);

// Standard bodies
bool gAlwaysTrue(EntityMethod* method);
bool gAlwaysTrue(EntitySpecMethod* method);
bool gAlwaysTrue(EventMethod* method);
bool gAlwaysFalse(EntityMethod* method);
bool gAlwaysFalse(EntitySpecMethod* method);
bool gAlwaysFalse(EventMethod* method);

// Sampling.cpp
/// A uniform integer between the arguments INT_LOW_BOUND_ARGUMENT and INT_UPPER_BOUND_ARGUMENT, both
/// included; one draw.
int Sampling_Uniform(EventMethod* method);

// engine/EventConsequences.cpp
/// The default autogeneration: a raw copy of the event becomes its successor, after a delay that method
/// RANDOMIZE_THISEVENTCLOCKTIME draws between the event's two delays, or after their common value. True.
bool standardEvent_generateNextEvent_Body(EventMethod* method);
