// The arguments of a method by rank and by id. Up to three lie in the method itself, which is what the
// predefined methods have.
#pragma once

#include <memory>

#include "kalve/foundations/Tableau.h"

class ArgumentSlots {
 public:
  int size() const { return mMany != nullptr ? mMany->arguments.size() : mCount; }
  Argument* const* begin() const { return mMany != nullptr ? mMany->arguments.begin() : mFew; }
  Argument* const* end() const { return begin() + size(); }
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

  Argument* mFew[few];
  int mIds[few];
  int mCount = 0;
  std::unique_ptr<Many> mMany;  // all of them, where an id or an argument comes twice or they are many
};

inline int ArgumentSlots::Rank(int id) const {
  if (mMany != nullptr) return id >= 0 && id < mMany->ranks.size() ? mMany->ranks[id] : K_INT_UNSIGNIFICANT;
  for (int rank = 0; rank < mCount; ++rank)
    if (mIds[rank] == id) return rank;
  return K_INT_UNSIGNIFICANT;
}
