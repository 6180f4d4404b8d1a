// The methods of an owner (entity, event, process, monitor, entity specification) by rank and by id.
//
// The table says where a method is, not whose: an owner destroys its methods with DestroyMethods, or drops
// the pointers with Forget. What an absent id means is the owner's affair:
// the reads throw an `int`, as a Tableau does.
#pragma once

#include "kalve/foundations/Tableau.h"
#include "kalve/methods/ValueTypeSet.h"

/// A copy of the method's own leaf, still describing the source's owner; null when its result type is not in
/// `kept`. Number-table arguments are left out of the copy.
Method* NewMethodCopy(const Method& source, ValueTypeSet kept);
/// Destroys and frees a method with its arguments.
void DestroyMethod(Method* method);

class MethodTable {
 public:
  MethodTable() = default;
  MethodTable(const MethodTable&) = delete;
  MethodTable& operator=(const MethodTable&) = delete;

  /// Appends a method that is not there yet; its id leads to the last rank from now on. The owner has
  /// checked the method's kind, and tells it whom it describes. A negative id is an index failure of `where`.
  void Add(Method* method, const char* where);

  /// The method of an id. Throws an `int` for an id beyond the table, and for one without a method.
  Method* operator[](int id) const { return mMethodTab[mDualMethodTab[id]]; }
  /// Its rank, negative for none; throws an `int` for an id beyond the table.
  int Rank(int id) const { return mDualMethodTab[id]; }
  /// The method of lowest rank that has the name, or null.
  Method* Named(const char* name) const;

  const Tableau<Method*>& Methods() const { return mMethodTab; }
  const Tableau<int>& Ranks() const { return mDualMethodTab; }

  /// Copies the methods of `source` whose result type is in `kept`, in rank order, through owner.AddMethod.
  template <class Owner>
  static void CopyMethods(const MethodTable& source, ValueTypeSet kept, Owner& owner) {
    for (Method* method : source.mMethodTab)
      if (Method* copy = NewMethodCopy(*method, kept)) owner.AddMethod(copy);
  }
  /// Empties the table; the methods live on.
  void Forget();
  /// Destroys the methods and empties the table.
  void DestroyMethods();

 private:
  Tableau<Method*> mMethodTab;
  Tableau<int> mDualMethodTab;
};
