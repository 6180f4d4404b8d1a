// The file of a design of experiments: factors take shape as they are read; the design is the kernel's once
// the file has ended.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "kalve/foundations/Enumerations.h"
#include "kalve/parsers/ParseState.h"

/// A parameter of a factor, with the type that its values must have.
struct FactorVariable {
  std::string className = {};
  std::string name = {};
  ValueTypeId type = VOID;
};

/// A value of a modality.
struct GivenModalityValue {
  Position where = {};
  std::variant<int, double, std::string> value = {};
};

class DesignFile : public ParseState {
 public:
  explicit DesignFile(LexicalInputFile* file);
  ~DesignFile();

  /// At least 1.
  void SetReplications(const Position& where, int number);
  /// The variables are those of all modalities until EndFactor.
  void BeginFactor(const std::string& name, const std::vector<FactorVariable>& variables);
  /// A value for each variable, in their order.
  void AddModality(const Position& where, const std::vector<GivenModalityValue>& values);
  /// At least one modality has been added.
  void EndFactor(const Position& where);
  /// At the end of the file: makes g_KV_DOE of the factors, of which there must be one at least.
  void EndDesign();

 private:
  std::unique_ptr<FactorialDesignOfExperiment> mDesign;
  SerialDesignOfExperiment* mFactor = nullptr;  ///< the one being read; the table of factors owns it
  std::vector<FactorVariable> mVariables;
  int mNbFactors = 0;
  int mNbModalities = 0;
};
