// Selections: what stands behind SPEC, in the structure file and in the directive file alike. A grammar of
// its own reads it, so that its words are reserved nowhere else.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kalve/parsers/GivenValues.h"
#include "kalve/parsers/ParseState.h"

/// A value of a condition: one that stands alone, an interval, or a class of entities.
struct SelectedValue {
  enum class Kind { single, interval, classOfEntities };
  Position where = {};
  Kind kind = Kind::single;
  GivenValue low = {};   ///< the value, or the name of the class, too
  GivenValue high = {};  ///< of an interval
};

/// WHERE: the values that a descriptor may have.
struct ValueCondition {
  Position where = {};
  ValueTypeId type = VOID;  ///< as written, else VOID
  std::string descriptor = {};
  RelationalOperator relation = IN;
  std::vector<SelectedValue> values = {};
};

/// A selection being read. The kernel or the application may know more about it by its name; what the file
/// says comes on top.
class Selection {
 public:
  /// `className` may be empty for a selection that the application makes. UnknownClassName when nobody makes
  /// it; NoInformationForReferenceClass for an unknown class. A second one of that name is a fault.
  void Begin(const Position& where, const std::string& name, const std::string& className);
  void SetMode(const Position& where, EntitySpecMode mode);
  /// The first n; BadQuantitySpecification below 1.
  void TakeFirst(const Position& where, int n);
  void TakeAll(const Position& where);
  /// UnfoundEntityBasedOnInstanceName.
  void SetReferent(const Position& where, const std::string& name);
  /// InexistantDescriptor for a descriptor that the living instances do not have, UnknownClassName for one
  /// that nobody knows.
  void AddCondition(const ValueCondition& condition);
  /// One that the application makes; UnknownClassName.
  void AddCondition(const Position& where, const std::string& name);
  /// BadQuantitySpecification for one that makes entities without end; one that cannot initialise them is a
  /// fault.
  void End();

 private:
  struct DescriptorKey {
    int id;
    ValueTypeId type;
  };
  void RefuseSecond(bool& isGiven, const Position& where, const char* words) const;
  DescriptorKey KeyOf(const ValueCondition& condition) const;

  Position mWhere;
  std::string mName;
  EntitySpec* mSpec = nullptr;
  bool mHasMode = false;
  bool mHasQuantity = false;
  bool mHasReferent = false;
  std::optional<Position> mClassCondition;  ///< one that a new entity cannot draw a value from
};

/// Reads the rest of a selection, its SPEC having been read.
void ReadSelection(ParseState& file);

/// The selection of that name; UnknownClassName without one.
EntitySpec* NamedSelection(const Position& where, const std::string& name);
