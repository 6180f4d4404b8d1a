#include "kalve/model/LinkTable.h"

#include <algorithm>

namespace {

const char holeMark = '\0';
/// Stands in a hole; null may be an entry.
BasicEntity* Hole() { return reinterpret_cast<BasicEntity*>(const_cast<char*>(&holeMark)); }

}  // namespace

LinkTable& LinkTable::operator=(const Tableau<BasicEntity*>& entries) {
  mItems = entries;
  mIndex.reset();
  return *this;
}

const Tableau<BasicEntity*>& LinkTable::Entries() const {
  Squeeze();
  return mItems;
}

// Finding -------------------------------------------------------------------------------------------------

int LinkTable::IndexedPlaceOf(BasicEntity* entity) const {
  if (mIndex == nullptr) MakeIndex();
  const auto found = mIndex->entities.find(entity);
  if (found == mIndex->entities.end()) return K_INT_UNSIGNIFICANT;
  Presence& presence = found->second;
  if (presence.count > 1) return mItems.position(entity);
  return presence.near = NearestPlace(entity, presence.near);
}

void LinkTable::MakeIndex() const {
  mIndex = std::make_unique<Index>();
  mIndex->entities.reserve(static_cast<std::size_t>(mItems.size()));
  for (int place = 0; place < mItems.size(); ++place) {
    Presence& presence = mIndex->entities[mItems[place]];
    ++presence.count;
    presence.near = place;
  }
}

/// Looks outward from `near`, on both sides; the entity must be there.
int LinkTable::NearestPlace(const BasicEntity* entity, int near) const {
  const int last = mItems.size() - 1;
  const int from = std::min(near, last);
  for (int distance = 0;; ++distance) {
    if (distance <= from && mItems[from - distance] == entity) return from - distance;
    if (distance <= last - from && mItems[from + distance] == entity) return from + distance;
  }
}

int LinkTable::RankOf(BasicEntity* entity) const {
  Squeeze();
  return PlaceOf(entity);
}

int LinkTable::PlaceAt(int rank) const {
  if (mIndex == nullptr || mIndex->holes == 0) return rank;
  if (rank == size() - 1) return mItems.size() - 1;
  if (rank == 0) {
    while (mItems[mIndex->firstEntry] == Hole()) ++mIndex->firstEntry;
    return mIndex->firstEntry;
  }
  Squeeze();
  return rank;
}

// Changing ------------------------------------------------------------------------------------------------

void LinkTable::Note(const BasicEntity* entity, int place) {
  Presence& presence = mIndex->entities[entity];
  ++presence.count;
  presence.near = place;
}

void LinkTable::Insert(int rank, BasicEntity* entity) {
  if (mIndex != nullptr) {
    Squeeze();
    Note(entity, rank);
    ++mIndex->drift;
  }
  mItems.insert(rank, entity);
}

void LinkTable::LeaveHoleAt(int place) {
  const auto removed = mIndex->entities.find(mItems[place]);
  if (--removed->second.count == 0) mIndex->entities.erase(removed);
  mItems[place] = Hole();
  mIndex->firstHole = mIndex->holes++ > 0 ? std::min(mIndex->firstHole, place) : place;
  DropHolesAtEnd();
  if (mItems.empty())
    mIndex.reset();
  else if (2 * mIndex->holes > mItems.size())
    Squeeze();
}

void LinkTable::Clear() {
  mItems.erase();
  mIndex.reset();
}

void LinkTable::DropHolesAtEnd() {
  while (!mItems.empty() && mItems.back() == Hole()) {
    mItems.remove(mItems.size() - 1);
    --mIndex->holes;
  }
}

/// Places are noted anew once they may have moved far: a search then stays short, and the work is spread over
/// the removals that made it necessary.
void LinkTable::Squeeze() const {
  if (mIndex == nullptr) return;
  mIndex->drift += mIndex->holes;
  if (mIndex->holes == 1) {
    mItems.remove(mIndex->firstHole);
  } else if (mIndex->holes > 1) {
    const auto kept = std::remove(mItems.begin() + mIndex->firstHole, mItems.end(), Hole()) - mItems.begin();
    while (mItems.size() > kept) mItems.remove(mItems.size() - 1);
  }
  mIndex->holes = mIndex->firstEntry = 0;
  if (mIndex->drift <= mItems.size() / 4) return;
  mIndex->drift = 0;
  for (int place = 0; place < mItems.size(); ++place)
    mIndex->entities.find(mItems[place])->second.near = place;
}
