// Designs of experiments: one model run over a grid of parameter settings.
//
// A FactorialDesignOfExperiment crosses its factors. A factor is a SerialDesignOfExperiment: modalities in
// order, each of which gives values to all parameters of the factor at once. The experiment file builds the
// design into g_KV_DOE; the application asks for NextSimulationSettings() before each simulation.
//
// The last factor turns fastest. Any other factor applies a modality only when the one behind it wraps, so
// its modality 0 is first applied at its own wrap: the first pass runs with the values of the parameter file,
// which must be those of modality 0 for the crossing to be complete.
//
// Indexes live from simulation to simulation: a design is deleted at the very end.
#pragma once

#include <string>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/Tableau.h"

class SerialDesignOfExperiment {
 public:
  // Life
  /// Enters the table of instances.
  SerialDesignOfExperiment();
  SerialDesignOfExperiment(const SerialDesignOfExperiment&) = delete;
  SerialDesignOfExperiment& operator=(const SerialDesignOfExperiment&) = delete;
  /// Frees the names of the parameters and all values.
  ~SerialDesignOfExperiment();

  // Building. Parameters stand in rows, modalities in columns; the counts are set, not counted.
  const char* GetName() const { return mName.c_str(); }
  void SetName(const char* name) { mName = name; }
  void SetNbVariables(int number) { mNbVariables = number; }
  void SetNbModalities(int number) { mNbModalities = number; }
  /// The two names of each parameter: texts from `malloc`, which become the factor's.
  Tableau<char*>* GetParamIds1() { return &mParamIds1; }
  Tableau<char*>* GetParamIds2() { return &mParamIds2; }
  /// The ValueTypeId of each parameter: INT, DOUBLE or STRING.
  Tableau<int>* GetParamTypes() { return &mParamTypes; }
  void AddRow() { mValues.push_back(new Tableau<UnifiedValue*>()); }
  /// Appends a modality to a parameter's row. The value, and the text in it, become the factor's.
  void AddUnifiedValue(int row, UnifiedValue* value);

  // Running
  int GetCurrentModalityIndex() const { return mCurrentModalityIndex; }
  void SetCurrentModalityIndex(int index) { mCurrentModalityIndex = index; }
  void IncrCurrentModalityIndex() { ++mCurrentModalityIndex; }
  /// Gives the parameters the values of the current modality and calls pInitParameterGlobalVariables after
  /// each. Behind the last modality it goes back to 0, applies that and answers 1, otherwise 0. The index is
  /// not advanced. InexistantParameter without such a parameter; InexistantTypedParameter when its type is
  /// another.
  int NextSimulationSettings();

  // Displays
  /// The modalities: "[1 + 'a'] -> [2 + 'b']".
  void Display() const;
  /// The parameters: "['Herd' 'size' + 'Herd' 'breed']".
  void DisplayIds() const;

  // Instances
  /// Does nothing to a factor that is there already.
  static void AddInstance(SerialDesignOfExperiment* design);
  /// InexistantInstance when the factor is not in the table.
  static void RemoveInstance(SerialDesignOfExperiment* design);
  static SerialDesignOfExperiment* GetInstance(int rank);

  static int mInstanceNumber;
  /// Owns the factors.
  static Tableau<SerialDesignOfExperiment*> mpInstanceTab;

 private:
  void ApplyVariable(int variable) const;
  void DisplayValue(int variable, int modality) const;
  const UnifiedValue& ValueAt(int variable, int modality) const {
    return *mValues[variable]->get_nth(modality);
  }

  std::string mName;
  Tableau<char*> mParamIds1;
  Tableau<char*> mParamIds2;
  Tableau<int> mParamTypes;
  int mNbVariables = 0;
  int mNbModalities = 0;
  int mCurrentModalityIndex = 0;
  Tableau<Tableau<UnifiedValue*>*> mValues;
};

class FactorialDesignOfExperiment {
 public:
  FactorialDesignOfExperiment();
  FactorialDesignOfExperiment(const FactorialDesignOfExperiment&) = delete;
  FactorialDesignOfExperiment& operator=(const FactorialDesignOfExperiment&) = delete;
  /// Deletes all factors of the table of instances.
  ~FactorialDesignOfExperiment();

  // Building: the factors from the slowest to the fastest, their number, and that number less one as the
  // current index.
  void AddElement(SerialDesignOfExperiment* factor) { mSerialDesigns.push_back(factor); }
  void SetNbFactors(int number) { mNbFactors = number; }
  void SetCurrentSerialExpeDesignIndex(int index) { mCurrentSerialExpeDesignIndex = index; }
  /// How often each setting is simulated; 1 at first.
  int GetNbReplications() const { return mNbReplications; }
  void SetNbReplications(int number) { mNbReplications = number; }

  /// Puts the next settings in place. Answers how many simulations to run with them, -9 when the design is
  /// over or has no factor; there is no second pass.
  int NextSimulationSettings();

  void Display() const;

 private:
  bool Advance();
  bool CarryOver();

  int mNbFactors = 0;
  int mNbReplications = 1;
  int mCurrentSerialExpeDesignIndex = K_INT_UNSIGNIFICANT;  // the factor that is being moved
  Tableau<SerialDesignOfExperiment*> mSerialDesigns;
};

/// Deletes every factor.
void DeleteSerialExpeSpecifications();
/// Deletes the design of g_KV_DOE without clearing that. DeleteFileInstances does it too: call one of them.
void DeleteExpeSpecifications();
