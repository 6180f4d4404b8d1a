// The predefined methods of a kind of owner, by rank and by id, as a constant table.
#pragma once

#include "kalve/foundations/Forward.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"

struct PredefinedRow {
  int id;
  const char* name;
  int arguments;  ///< how many
  bool hasBody;   ///< a default one
  Method* (*make)();
};

struct PredefinedSet {
  static constexpr int most = 7;
  static const PredefinedSet none;

  template <class... Rows>
  constexpr explicit PredefinedSet(const Rows&... predefined) : size(sizeof...(Rows)), rows{predefined...} {
    for (int& rank : rankOf) rank = K_INT_UNSIGNIFICANT;
    for (int rank = 0; rank < size; ++rank) {
      const int id = rows[rank].id;
      rankOf[id] = rank;
      if (rows[rank].hasBody) ranksWithBody |= 1U << rank;
      arguments += rows[rank].arguments;
      if (id >= ids) ids = id + 1;
    }
  }

  /// Negative for an id without a method; throws an `int` beyond the table.
  int Rank(int id) const {
    if (static_cast<unsigned>(id) >= static_cast<unsigned>(ids)) ThrowIndex(id);
    return rankOf[id];
  }

  int size;
  PredefinedRow rows[most];
  int ids = 0;
  int arguments = 0;           ///< of all methods
  unsigned ranksWithBody = 0;  ///< a bit for each default body
  int rankOf[18] = {};
};

template <class Predefined>
inline constexpr PredefinedRow predefinedRow{Predefined::predefinedId, Predefined::predefinedName,
                                             Predefined::argumentCount, Predefined::hasDefaultBody,
                                             []() -> Method* { return new Predefined; }};

/// The methods of the classes, in their order.
template <class... Predefined>
inline constexpr PredefinedSet predefinedSet{predefinedRow<Predefined>...};
