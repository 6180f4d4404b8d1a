#include "kalve/foundations/SharedConstants.h"

char gTimeString[gTimeStringSize] = "";
char gInstanceNameString[gInstanceNameStringSize] = "";
char gGlobalString[gGlobalStringSize] = "";
