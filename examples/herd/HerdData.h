// What the herd reads while it runs: the weather, a record a day, and the treatments, dated facts.
#pragma once

#include "kalve/kalve.h"

/// Makes a data file by the name that the simulation file uses; null for another name.
SerialDataFile* NewHerdDataFile(const char* name);
/// Number of the file of that name, -9 for another name.
int HerdDataFileId(const char* name);
/// Makes a process that reads one of them; null for another name.
Process* NewHerdReader(const char* className);
/// Deletes the data files that stand; a new run declares them anew.
void DeleteHerdDataFiles();
