#include "kalve/foundations/TraceSwitches.h"

int g_KV_TraceActionMode = 0;
int g_KV_TraceNewDelMode = 0;
int g_KV_MemoryReportMode = 0;
int g_KV_TraceTableauMode = 0;
int g_KV_TraceListeMode = 0;

int g_KV_TraceParsingD = 0;
int g_KV_TraceParsingI = 0;
int g_KV_TraceParsingP = 0;
int g_KV_TraceParsingS = 0;
int g_KV_TraceParsingE = 0;
int g_KV_TraceParsingO = 0;
