// The start of an application: its command line, and the six input files with the parser of each.
//
// Order of a start: ParseMainArguments, which may read the design of experiments already; then the files of
// parameters, simulation, output specifications, structure and directives.
#pragma once

#include "kalve/foundations/Forward.h"

/// Sets the switches of the command line and prints it if `printCommandLine` is not 0. Non-zero when the line
/// is usable: five files at least, and no "-h" in front; otherwise the usage is printed. The five files are
/// not read. Words that are no option are ignored. The option -EXPE reads its file at once.
int ParseMainArguments(int argc, char** argv, int printCommandLine);
/// The same with 1.
int ParseMainArguments(int argc, char** argv);
/// The working directory, if PWD tells it, then all arguments.
void PrintCommandLine(int argc, char** argv);

// Each reads one file with its parser. A fault in the file ends the run with its line.
/// Forgets the files and parameters known before, without deleting them; then calls the hook, which
/// InitParameterGlobalVariables has become.
void ParseParameterFile(const char* path);
void ParseSimulationFile(const char* path);
void ParseOutputSpecFile(const char* path);
void ParseStructureFile(const char* path);
void ParseDirectiveFile(const char* path);
void ParseExpeFile(const char* path);

/// The design that the experiment file describes, null without one.
extern FactorialDesignOfExperiment* g_KV_DOE;
FactorialDesignOfExperiment* GetDesignOfExperiment();

/// Called when parameters have changed, so that an application can refresh what it keeps of them. Never null.
/// An application assigns its own after ParseParameterFile, which assigns the kernel's.
extern void (*pInitParameterGlobalVariables)();
void Assign_InitParameterGlobalVariablesFunction(void (*function)());
/// Does nothing: the kernel keeps no parameter.
void InitParameterGlobalVariables();

/// Files in hand while a parser reads: the one being read, the one that includes it, the one being opened.
extern LexicalInputFile* pCurrentFile;
extern LexicalInputFile* pFatherFile;
extern LexicalInputFile* pTmpFile;

/// The stack of entities in progress of a structure file, the current one first.
void DisplayContainerEntityList(Liste<Entity*>* containers);

/// Letters of the parsers, with their trace switch: d directives, i simulation, p parameters, s structure,
/// e experiments, o outputs.
#define KALVE_PARSER_LETTERS(LETTER) \
  LETTER(d, D) LETTER(i, I) LETTER(p, P) LETTER(s, S) LETTER(e, E) LETTER(o, O)

// While the switch of the letter is on, NL prints a line of dashes and TL prints its text, as a format.
#define KALVE_DECLARE_TRACE(letter, LETTER) \
  void NL##letter();                        \
  void TL##letter(const char* text);
KALVE_PARSER_LETTERS(KALVE_DECLARE_TRACE)
#undef KALVE_DECLARE_TRACE
