// The parameter file: each statement makes a parameter as soon as it is read.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "kalve/parsers/Moments.h"
#include "kalve/parsers/ParseState.h"

/// A date as written, not yet checked.
struct WrittenDate {
  Position where = {};
  int day = 0;
  std::string month = {};
  int year = 0;
  TimeOfDay time = {};
};

using GivenParameter = std::variant<int, double, std::string, WrittenDate>;

class ParameterFile : public ParseState {
 public:
  explicit ParameterFile(LexicalInputFile* file);

  // The parameters between the two stand in the group.
  void BeginGroup(const std::string& group) { mGroup = group; }
  void EndGroup() { mGroup.reset(); }

  /// A date that does not exist is BadDateParameterValue.
  void Create(const std::string& className, const std::string& name, const GivenParameter& value) const;

 private:
  std::optional<std::string> mGroup;
};
