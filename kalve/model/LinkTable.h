// LinkTable: the elements of a set, or the super-sets of an element, in order.
//
// An entity may stand in it more than once, and may have died: the table compares pointers and never follows
// one. A small table is a plain Tableau. Once an entity is looked for in a large one, an index keeps how
// often each entity stands there and about where, and a removal leaves a hole, so that finding and removing
// cost the same at any size. The holes are squeezed out when they are half, and before the table is read as a
// whole: readers see a dense Tableau.
//
// An entry has a rank, counted without the holes, and a place, counted with them. Ranks and places hold until
// the table next changes, places only until it is next read as a whole.
#pragma once

#include <memory>
#include <unordered_map>

#include "kalve/foundations/Tableau.h"

class LinkTable {
 public:
  /// The size below which a scan is faster than an index.
  static constexpr int indexedFrom = 256;

  LinkTable() = default;
  LinkTable(const LinkTable&) = delete;
  /// Takes the entries, null ones too.
  LinkTable& operator=(const Tableau<BasicEntity*>& entries);

  int size() const { return mItems.size() - (mIndex != nullptr ? mIndex->holes : 0); }
  bool empty() const { return size() == 0; }
  /// All of it; the reference shows the entries until the table next changes.
  const Tableau<BasicEntity*>& Entries() const;
  /// Throws the rank as an `int` when it is out of range.
  BasicEntity* operator[](int rank) const { return mItems[PlaceAt(rank)]; }

  /// The first place (rank) of the entity, -9 when it is not there.
  int PlaceOf(BasicEntity* entity) const {
    return IsScanned() ? mItems.position(entity) : IndexedPlaceOf(entity);
  }
  int RankOf(BasicEntity* entity) const;
  bool Has(BasicEntity* entity) const { return PlaceOf(entity) >= 0; }
  /// The place of a rank, which must be in range for the answer to be of use.
  int PlaceAt(int rank) const;

  void Add(BasicEntity* entity) {
    if (mIndex != nullptr) Note(entity, mItems.size());
    mItems.push_back(entity);
  }
  /// In front of the entry of a rank; the size appends.
  void Insert(int rank, BasicEntity* entity);
  void RemoveAt(int place) {
    if (mIndex == nullptr)
      mItems.remove(place);
    else
      LeaveHoleAt(place);
  }
  void Clear();
  /// The least number of entries that the table grows by.
  void SizeIncrement(int step) { mItems.sizeIncrement(step); }

 private:
  struct Presence {
    int count = 0;
    int near = 0;  ///< where it stood when it was last seen: its place has not moved far since
  };
  struct Index {
    std::unordered_map<const BasicEntity*, Presence> entities;
    int holes = 0;
    int firstHole = 0;   ///< no hole stands below
    int firstEntry = 0;  ///< no entry stands below
    int drift = 0;       ///< how far places may have moved
  };

  bool IsScanned() const { return mIndex == nullptr && mItems.size() < indexedFrom; }
  int IndexedPlaceOf(BasicEntity* entity) const;
  void MakeIndex() const;
  int NearestPlace(const BasicEntity* entity, int near) const;
  void LeaveHoleAt(int place);
  void Note(const BasicEntity* entity, int place);
  void Squeeze() const;
  void DropHolesAtEnd();

  mutable Tableau<BasicEntity*> mItems;  // with the holes
  mutable std::unique_ptr<Index> mIndex;
};
