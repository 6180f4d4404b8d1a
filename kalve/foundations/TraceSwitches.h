// The switches that the start-up options set. 0 is off.
#pragma once

/// -V: the agenda's history is asked for.
extern int g_KV_TraceActionMode;
/// -M: constructors, copies and destructors print a line each.
extern int g_KV_TraceNewDelMode;
/// -MR: the report of constructions and destructions at the end.
extern int g_KV_MemoryReportMode;
/// -T and -L. Nothing in the kernel reads them.
extern int g_KV_TraceTableauMode;
extern int g_KV_TraceListeMode;

/// Traces of the parsers: directives, simulation, parameters, structure, experiments, outputs.
extern int g_KV_TraceParsingD;
extern int g_KV_TraceParsingI;
extern int g_KV_TraceParsingP;
extern int g_KV_TraceParsingS;
extern int g_KV_TraceParsingE;
extern int g_KV_TraceParsingO;
