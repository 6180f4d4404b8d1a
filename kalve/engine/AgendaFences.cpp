#include "kalve/engine/AgendaFences.h"

#include <algorithm>
#include <cstring>

#include "kalve/foundations/Prefetch.h"

constinit BlockPool AgendaFences::Chunk::pool{sizeof(AgendaFences::Chunk)};

namespace {

/// How many of the rising keys are below `key`, given that the last one is not. Without a branch on a
/// comparison, whose outcome cannot be foreseen.
std::ptrdiff_t CountBelow(const AgendaFences::Key* keys, std::ptrdiff_t count, AgendaFences::Key key) {
  const AgendaFences::Key* base = keys;
  while (count > 1) {
    const std::ptrdiff_t half = count / 2;
    const AgendaFences::Key* const upper = base + half;
    base = __builtin_expect_with_probability(upper[-1] < key, 1, 0.5) ? upper : base;
    count -= half;
  }
  return base - keys;
}

}  // namespace

/// The same, in steps that the compiler knows.
inline int AgendaFences::Chunk::CountBelow(Key key) const {
  static_assert((most & (most - 1)) == 0);
  int slot = 0;
  for (int half = most / 2; half > 0; half /= 2)
    slot += static_cast<int>(bounds[slot + half - 1] < key) * half;
  return slot;
}

void AgendaFences::Clear() {
  mChunks.clear();
  mTops.clear();
  mFront = 0;
  mChunks.push_back(std::make_unique<Chunk>(0, 1));
  mChunks.front()->cells[0] = 0;
  mTops.push_back(infinite);
  mSize = 1;
  ++mChanges;
}

AgendaFences::Place AgendaFences::LowerBound(Key key) const {
  const auto front = static_cast<std::ptrdiff_t>(mFront);
  const std::ptrdiff_t chunks = static_cast<std::ptrdiff_t>(mTops.size()) - front;
  const auto at = static_cast<std::size_t>(front + CountBelow(mTops.data() + front, chunks, key));
  const Chunk& chunk = *mChunks[at];
  if (chunks > Chunk::most) Prefetch(&chunk.bounds);  // else they are near
  return {at, chunk.CountBelow(key)};
}

// Slots ------------------------------------------------------------------------------------------------

AgendaFences::Chunk::Chunk(int first, int count) : begin(first), end(first + count) {
  std::fill(bounds, bounds + begin, lowest);
  std::fill(bounds + begin, bounds + most, infinite);
}

void AgendaFences::Chunk::Move(int from, int to, int count) {
  if (count == 0) return;
  std::memmove(bounds + to, bounds + from, static_cast<std::size_t>(count) * sizeof(Key));
  std::memmove(cells + to, cells + from, static_cast<std::size_t>(count) * sizeof cells[0]);
}

/// Makes room in front of a slot, on the shorter side; answers where.
int AgendaFences::Chunk::Open(int slot) {
  if (begin > 0 && (end == most || slot - begin < end - slot)) {
    Move(begin, begin - 1, slot - begin);
    --begin;
    return slot - 1;
  }
  Move(slot, slot + 1, end - slot);
  ++end;
  return slot;
}

/// Takes a slot out; answers where the one behind stands then.
int AgendaFences::Chunk::Close(int slot) {
  if (slot - begin < end - slot) {
    Move(begin, begin + 1, slot - begin);
    bounds[begin++] = lowest;
    return slot + 1;
  }
  Move(slot + 1, slot, end - slot - 1);
  bounds[--end] = infinite;
  return slot;
}

AgendaFences::Place AgendaFences::Insert(Place place, Key bound) {
  ++mChanges;
  ++mSize;
  if (mChunks[place.chunk]->end - mChunks[place.chunk]->begin == Chunk::most) place = Split(place);
  Chunk& chunk = *mChunks[place.chunk];
  place.slot = chunk.Open(place.slot);
  chunk.bounds[place.slot] = bound;
  chunk.cells[place.slot] = 0;
  return place;
}

/// Halves a full chunk; one that grows at its end keeps all but the last fence, which will stay the last.
AgendaFences::Place AgendaFences::Split(Place place) {
  if (2 * mFront > mChunks.size()) {
    const auto gone = static_cast<std::ptrdiff_t>(mFront);
    mChunks.erase(mChunks.begin(), mChunks.begin() + gone);
    mTops.erase(mTops.begin(), mTops.begin() + gone);
    place.chunk -= mFront;
    mFront = 0;
  }
  Chunk& low = *mChunks[place.chunk];
  const int kept = place.slot == Chunk::most - 1 ? Chunk::most - 1 : Chunk::most / 2;
  const int moved = Chunk::most - kept;
  auto high = std::make_unique<Chunk>(moved > 1 ? kept / 2 : 0, moved);
  std::memcpy(high->bounds + high->begin, low.bounds + kept, static_cast<std::size_t>(moved) * sizeof(Key));
  std::memcpy(high->cells + high->begin, low.cells + kept,
              static_cast<std::size_t>(moved) * sizeof low.cells[0]);
  std::fill(low.bounds + kept, low.bounds + Chunk::most, infinite);
  low.end = kept;
  const Place split = place.slot < kept ? place : Place{place.chunk + 1, high->begin + place.slot - kept};
  const auto behind = static_cast<std::ptrdiff_t>(place.chunk);
  mTops.insert(mTops.begin() + behind, low.bounds[kept - 1]);
  mChunks.insert(mChunks.begin() + behind + 1, std::move(high));
  return split;
}

AgendaFences::Place AgendaFences::Erase(Place place) {
  ++mChanges;
  --mSize;
  Chunk& chunk = *mChunks[place.chunk];
  const int behind = chunk.Close(place.slot);
  if (chunk.begin < chunk.end) {
    mTops[place.chunk] = chunk.bounds[chunk.end - 1];
    return behind < chunk.end ? Place{place.chunk, behind} : Next({place.chunk, chunk.end - 1});
  }
  if (place.chunk == mFront) {
    mChunks[mFront++].reset();
    return First();
  }
  mChunks.erase(mChunks.begin() + static_cast<std::ptrdiff_t>(place.chunk));
  mTops.erase(mTops.begin() + static_cast<std::ptrdiff_t>(place.chunk));
  return {place.chunk, mChunks[place.chunk]->begin};
}
