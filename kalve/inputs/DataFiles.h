// Data files reached by symbol, name or path, and the end of all files.
#pragma once

#include "kalve/foundations/Forward.h"

// By symbol: of the oldest file with it. BadSearchByFileId without one, BadFileType when it is neither
// sequential nor factual; then as the members of that file.
SerialDataFile* GetSerialDataFile(int symbol);
int ReadNextEnrgt(int symbol);
int GetIntFieldValue(int symbol, int field);
float GetFloatFieldValue(int symbol, int field);
double GetDoubleFieldValue(int symbol, int field);
const char* GetStringFieldValue(int symbol, int field);

/// The first serial data file with the symbol among the output files: null, as these are none.
SerialDataFile* GetClassNamedSDF(int symbol);
/// The same, with the symbol that the application's hook gives to the name.
SerialDataFile* GetClassNamedSDF(const char* name);
/// The oldest serial data file with the full name, or null.
SerialDataFile* GetPathNamedSDF(const char* path);

/// Deletes sequential, factual and output files, the newest first, then the design of g_KV_DOE, which is not
/// cleared: call this or DeleteExpeSpecifications, not both. Other files stay.
void DeleteFileInstances();
