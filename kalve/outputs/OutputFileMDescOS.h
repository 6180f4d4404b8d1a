// OutputFileMDescOS: series in a text file, for plotting tools.
//
//   #"Herd" "breed" = 'Angus'          parameters of the run that were asked for
//   #Cow   <tab>clock<tab>weight       one line of names, cut to 7 characters
//   Cow_1  <tab>0<tab>12.50            a line for each clock of an instance,
//   Cow_1  <tab>10<tab>13.00
//                                      and an empty one behind it
//
// A column repeats its last value, "_" before the first. With dates in ISO_8601 the line of names begins with
// its first column. All instances of the specification stand in their order of creation.
#pragma once

#include <string>

#include "kalve/outputs/MultipleDescriptorOS.h"

/// Which parameters of the run a file shows: "ALL", "GROUP" and the name of a group, or the two names of one.
class ParameterOS {
 public:
  ParameterOS(const char* ident1, const char* ident2) : mIdent1(ident1), mIdent2(ident2) {}

  const char* GetIdent1() const { return mIdent1.c_str(); }
  const char* GetIdent2() const { return mIdent2.c_str(); }

 private:
  std::string mIdent1;
  std::string mIdent2;
};

class OutputFileMDescOS : public MultipleDescriptorOS {
 public:
  OutputFileMDescOS(TimeType timeType, int isPlotted, int isRecorded, int isSaved, GraphType graphType,
                    AllOrEnd allOrFinal);
  ~OutputFileMDescOS();

  /// Opens the file, writes all that there is, and closes it: a second dump of mode OM_APPEND adds to the
  /// first. Without an instance only standard output hears of it. InexistantParameter for a parameter that
  /// is not there, BadFileName without a file.
  void DisplayTimeSeries() override;

  /// Null for an empty name.
  void ConfigureOutputFile(const char* name, OutputMode mode);
  OutputFile* GetOutputFile() const { return mOutputFile; }
  /// How the user interface draws the series.
  GraphType GetGraphType() const { return mGraphType; }
  /// Copies the names; the same couple counts once.
  void AddParameterOS(const char* ident1, const char* ident2);
  Liste<ParameterOS*> GetParametersData() const { return mParametersData; }

 private:
  OutputFile* mOutputFile = nullptr;
  GraphType mGraphType;
  Liste<ParameterOS*> mParametersData;
};
