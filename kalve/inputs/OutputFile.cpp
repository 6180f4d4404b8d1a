#include "kalve/inputs/OutputFile.h"

#include <cstring>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Registry.h"

Tableau<OutputFile*> OutputFile::mpInstanceTab;

namespace {

constexpr int outputFileSymbol = -2;

}  // namespace

OutputFile::OutputFile(const char* name, OutputMode mode) : File(outputFileSymbol, WRITE_ACCESS, mode) {
  Become(OUTPUT_FILE, "OutputFile");
  AddInstance(this);
  if (pCurrentSim == nullptr)
    AssignFullName(name);
  else if (*pCurrentSim->GetOutDir() != '\0')
    AssignFullName((std::string(pCurrentSim->GetOutDir()) + name).c_str());
  AssignSimpleName(name);
}

OutputFile::~OutputFile() { mpInstanceTab.remove_first(this); }

void OutputFile::RemoveInstance(OutputFile* file) {
  TakeOut(mpInstanceTab, file, "OutputFile::RemoveInstance");
}

OutputFile* OutputFile::GetInstance(int rank) {
  return InstanceAt(mpInstanceTab, rank, "OutputFile::GetInstance");
}

OutputFile* GetOutputFile(const char* simpleName) {
  for (OutputFile* file : OutputFile::mpInstanceTab)
    if (std::strcmp(file->GetSimpleName(), simpleName) == 0) return file;
  return nullptr;
}
