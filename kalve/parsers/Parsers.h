// The six parsers. Each opens the closed file that it is given, reads it with all that it includes, and hands
// what it finds to the kernel. A fault in a file ends the run after a line that names the file, the line,
// what was read and what was expected.
#pragma once

#include "kalve/foundations/Forward.h"

/// Simulation parameters: clock unit, dates, directories of pCurrentSim (SimulationNotYetCreated without
/// one); data files.
void Simu_Parser(LexicalInputFile* file);
/// System parameters, each made as soon as it is read (BadDateParameterValue for a date that does not exist).
void Param_Parser(LexicalInputFile* file);
/// Entities with their links, values and bodies, and selections (SimulationNotYetCreated without
/// pCurrentSim).
void Structure_Parser(LexicalInputFile* file);
/// What a run keeps of entities, events and processes; to be read before any of them is made.
void OutputSpec_Parser(LexicalInputFile* file);
/// Directives: events and their processes for the agenda of pCurrentSim (SimulationNotYetCreated without
/// one), processes that read data files, and selections.
void Directive_Parser(LexicalInputFile* file);
/// A design of experiments, which becomes g_KV_DOE.
void Expe_Parser(LexicalInputFile* file);
