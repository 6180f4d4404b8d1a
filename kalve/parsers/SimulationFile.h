// The simulation file: its settings are collected, then given to pCurrentSim in one fixed order; its data
// files come last, as they need the directories.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kalve/parsers/DataFileDeclaration.h"
#include "kalve/parsers/Moments.h"
#include "kalve/parsers/ParseState.h"

class SimulationFile : public ParseState {
 public:
  /// SimulationNotYetCreated without pCurrentSim.
  explicit SimulationFile(LexicalInputFile* file);

  // Each setting holds until the file gives it again.
  /// A quantity of at least 1.
  void SetUnit(const Position& where, int quantity, const std::string& unit);
  void SetBeginning(const Date& date) { mBeginning = {Moment::Kind::date, 0, date}; }
  void SetBeginningToday(const TimeOfDay& time);
  void SetEnd(const Position& where, const Date& date) { mEnd = {Moment::Kind::date, 0, date, where}; }
  void SetEndClock(const Position& where, int clock);
  void SetInDir(const std::string& path) { mInDir = path; }
  void SetOutDir(const std::string& path) { mOutDir = path; }

  /// What is said of the data file until the next one begins. A file that has been declared before is a
  /// fault.
  void BeginDataFile(const DataFileDeclaration& declaration);
  DataFileDeclaration& DataFileInHand() { return mDataFiles.back(); }

  /// Unit, beginning, end, directories, data files.
  void Apply() const;

 private:
  void ApplyBeginning() const;
  void ApplyEnd() const;

  struct Unit {
    int quantity;
    TimeUnit unit;
  };
  std::optional<Unit> mUnit;
  std::optional<Moment> mBeginning;
  std::optional<Moment> mEnd;
  std::optional<std::string> mInDir;
  std::optional<std::string> mOutDir;
  std::vector<DataFileDeclaration> mDataFiles;
};
