// The couples of an event, by rank. Most events have a single one, which lies in the event itself.
#pragma once

#include "kalve/foundations/Records.h"
#include "kalve/foundations/Tableau.h"

class Couples {
 public:
  Couples() = default;
  Couples(const Couples&) = delete;
  Couples& operator=(const Couples&) = delete;
  ~Couples() { Clear(); }

  int size() const { return mMany.empty() ? mOnly != nullptr : mMany.size(); }
  bool empty() const { return mOnly == nullptr; }
  /// Throw an `int` for a rank without a couple.
  StructProcessAction* operator[](int rank) const {
    if (rank < 0 || rank >= size()) ThrowIndex(rank);
    return begin()[rank];
  }
  /// Of the couple that came first; null when there is none.
  Process* FirstProcess() const { return mFirst.process; }
  StructProcessAction* back() const { return (*this)[size() - 1]; }
  StructProcessAction* const* begin() const { return mMany.empty() ? &mOnly : mMany.begin(); }
  StructProcessAction* const* end() const { return begin() + size(); }
  Tableau<StructProcessAction*> Table() const;

  void Insert(int rank, Process* process, ActionType action);
  void Clear();

 private:
  StructProcessAction mFirst{nullptr, UNSPECIFIED_ACTION};  // the couple that came first
  StructProcessAction* mOnly = nullptr;                     // it, if there is any
  Tableau<StructProcessAction*> mMany;                      // all of them, if there are several
};

inline Tableau<StructProcessAction*> Couples::Table() const {
  Tableau<StructProcessAction*> table(size());
  for (StructProcessAction* couple : *this) table.push_back(couple);
  return table;
}

inline void Couples::Insert(int rank, Process* process, ActionType action) {
  if (empty()) {
    mFirst = StructProcessAction(process, action);
    mOnly = &mFirst;
    return;
  }
  if (mMany.empty()) mMany.push_back(mOnly);
  mMany.insert(rank, new StructProcessAction(process, action));
}

inline void Couples::Clear() {
  mOnly = nullptr;
  mFirst.process = nullptr;
  if (mMany.empty()) return;
  for (StructProcessAction* couple : mMany)
    if (couple != &mFirst) delete couple;
  mMany.erase();
}
