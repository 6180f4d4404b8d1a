#include "kalve/foundations/NameTables.h"

#include "kalve/foundations/Tableau.h"

Tableau<const char*> ClassIdToCharTab;
Tableau<const char*> DescIdToCharTab;
Tableau<const char*> MethodIdToCharTab;
Tableau<const char*> ArgumentIdToCharTab;

int gClassIdToCharTabSize = 0;
int gDescIdToCharTabSize = 0;
int gMethodIdToCharTabSize = 0;
int gArgumentIdToCharTabSize = 0;
