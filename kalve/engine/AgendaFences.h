// AgendaFences: the couples (bound, cell) of an agenda's index, by rising bound, the last one infinite.
//
// They stand in chunks of flat arrays, bounds apart from cells, so that a search reads few cache lines. A
// place is good until the next Insert or Erase, each of which answers the new one.
//
// A fence is exact when the event in its cell is known to have the bound as its key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "kalve/foundations/BlockPool.h"
#include "kalve/foundations/Forward.h"
#include "kalve/foundations/Liste.h"

class AgendaFences {
 public:
  using Key = std::int64_t;
  using AgendaCell = Cell<Event*>;
  static constexpr Key lowest = std::numeric_limits<Key>::min();
  static constexpr Key infinite = std::numeric_limits<Key>::max();

  struct Place {
    std::size_t chunk = 0;
    int slot = 0;
    bool operator==(const Place&) const = default;
  };

  AgendaFences() { Clear(); }
  /// Leaves (infinite, null) alone.
  void Clear();
  std::size_t size() const { return mSize; }

  Place First() const { return {mFront, mChunks[mFront]->begin}; }
  Place Last() const { return {mChunks.size() - 1, mChunks.back()->end - 1}; }
  Place Next(Place place) const;
  Place Previous(Place place) const;
  /// The first fence whose bound is not below the key.
  Place LowerBound(Key key) const;

  Key Bound(Place place) const { return mChunks[place.chunk]->bounds[place.slot]; }
  AgendaCell* CellAt(Place place) const {
    return reinterpret_cast<AgendaCell*>(mChunks[place.chunk]->cells[place.slot] & ~exact);
  }
  bool IsExact(Place place) const { return (mChunks[place.chunk]->cells[place.slot] & exact) != 0; }
  void SetCell(Place place, AgendaCell* cell, bool isExact) {
    mChunks[place.chunk]->cells[place.slot] = reinterpret_cast<std::uintptr_t>(cell) | (isExact ? exact : 0U);
  }

  /// In front of `place`, whose bound is above; answers the new fence's place. It has no cell yet.
  Place Insert(Place place, Key bound);
  /// Any fence but the last; answers the place of the one behind.
  Place Erase(Place place);
  /// The first fence, when it is not the last.
  void EraseFirst();

  /// Grows with each Insert and Erase.
  std::uint64_t Changes() const { return mChanges; }

 private:
  static constexpr std::uintptr_t exact = 1;  // the bit of a cell's address that tells

  struct Chunk {
    static constexpr int most = 64;
    int begin;
    int end;
    Key bounds[most];  // lowest before `begin`, infinite from `end` on, so that a search needs neither
    std::uintptr_t cells[most];

    Chunk(int first, int count);
    static void* operator new(std::size_t size) { return pool.Take(size); }
    static void operator delete(void* block) { pool.Give(block); }
    static BlockPool pool;
    int CountBelow(Key key) const;
    void Move(int from, int to, int count);
    int Open(int slot);
    int Close(int slot);
  };

  Place Split(Place place);

  std::vector<std::unique_ptr<Chunk>> mChunks;
  std::vector<Key> mTops;  // the last bound of each chunk
  std::size_t mFront = 0;  // the chunks before are gone
  std::size_t mSize = 0;
  std::uint64_t mChanges = 0;
};

// What is called for every event.

inline void AgendaFences::EraseFirst() {
  ++mChanges;
  --mSize;
  Chunk& chunk = *mChunks[mFront];
  chunk.bounds[chunk.begin++] = lowest;
  if (chunk.begin == chunk.end) mChunks[mFront++].reset();
}

inline AgendaFences::Place AgendaFences::Next(Place place) const {
  if (place.slot + 1 < mChunks[place.chunk]->end) return {place.chunk, place.slot + 1};
  return {place.chunk + 1, mChunks[place.chunk + 1]->begin};
}

inline AgendaFences::Place AgendaFences::Previous(Place place) const {
  if (place.slot > mChunks[place.chunk]->begin) return {place.chunk, place.slot - 1};
  return {place.chunk - 1, mChunks[place.chunk - 1]->end - 1};
}
