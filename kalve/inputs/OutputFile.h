// OutputFile: a text file of results. It is opened for the time of a dump only.
#pragma once

#include "kalve/inputs/File.h"

class OutputFile : public File {
 public:
  /// The name is a simple name within the output directory of pCurrentSim; without a simulation it is the
  /// full name as well. While that directory is not set the file has no full name, and its opening is
  /// BadFileName: the simulation file is read before the output specifications.
  OutputFile(const char* name, OutputMode mode);
  /// The table of instances may have been emptied before.
  ~OutputFile();

  static Tableau<OutputFile*>* InstanceTab() { return &mpInstanceTab; }
  static void AddInstance(OutputFile* file) { mpInstanceTab.push_back(file); }
  /// InexistantInstance when the file is not in the table.
  static void RemoveInstance(OutputFile* file);
  static OutputFile* GetInstance(int rank);

  /// Output files stand here as well as in File::mpInstanceTab.
  static Tableau<OutputFile*> mpInstanceTab;
};

/// The oldest output file with the simple name, or null.
OutputFile* GetOutputFile(const char* simpleName);
