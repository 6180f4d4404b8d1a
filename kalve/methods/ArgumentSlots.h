// The arguments of a method by rank and by id. Up to three lie in the method itself, which is what the
// predefined methods have.
#pragma once

#include <cstdint>

#include "kalve/foundations/Tableau.h"

class ArgumentSlots {
 public:
  ArgumentSlots() : mFew{} {}
  ArgumentSlots(const ArgumentSlots&) = delete;
  ArgumentSlots& operator=(const ArgumentSlots&) = delete;
  ~ArgumentSlots() {
    if (AreMany()) delete mMany;
  }

  int size() const { return AreMany() ? mMany->arguments.size() : mCount; }
  Argument* const* begin() const { return AreMany() ? mMany->arguments.begin() : mFew; }
  Argument* const* end() const { return begin() + size(); }
  /// Null when there is none.
  const Argument* First() const { return mFew[0]; }
  Tableau<Argument*> Table() const;

  /// Appends an argument that is not there yet; its id leads to the last rank from now on.
  void Add(Argument* argument, int id);
  /// Negative for an id without argument.
  int Rank(int id) const;
  /// The ids lie below.
  int IdLimit() const;

 private:
  static constexpr int few = 3;
  struct Many {
    Tableau<Argument*> arguments;
    Tableau<int> ranks;
  };

  bool AreMany() const { return mCount < 0; }

  union {
    Argument* mFew[few];
    Many* mMany;  // all of them, where an id or an argument comes twice, an id is large or they are many
  };
  std::int16_t mIds[few];
  std::int16_t mCount = 0;  // -1 when they are many
};

inline int ArgumentSlots::Rank(int id) const {
  if (AreMany()) return id >= 0 && id < mMany->ranks.size() ? mMany->ranks[id] : K_INT_UNSIGNIFICANT;
  for (int rank = 0; rank < mCount; ++rank)
    if (mIds[rank] == id) return rank;
  return K_INT_UNSIGNIFICANT;
}
