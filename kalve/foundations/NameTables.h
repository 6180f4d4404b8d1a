// The four tables of names by id, bare: the guards of the failures read them. They are filled by
// MakeClassIdToCharTab and its kin, and are public: an application adds its own names to them.
// "@" marks an id without a name. The texts are not owned.
#pragma once

#include "kalve/foundations/Forward.h"

extern Tableau<const char*> ClassIdToCharTab;
extern Tableau<const char*> DescIdToCharTab;
extern Tableau<const char*> MethodIdToCharTab;
extern Tableau<const char*> ArgumentIdToCharTab;

/// Sizes of the tables as the kernel filled them.
extern int gClassIdToCharTabSize;
extern int gDescIdToCharTabSize;
extern int gMethodIdToCharTabSize;
extern int gArgumentIdToCharTabSize;
