// The table of an entity's links against a plain vector.
#include "kalve/model/LinkTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

/// Sixteen thousand different addresses that nobody may follow.
BasicEntity* Address(int number) {
  static char bytes[16384];
  return reinterpret_cast<BasicEntity*>(bytes + number);
}

using Plain = std::vector<BasicEntity*>;

/// Answers the ranks that both tables give alike.
class LinkTableTest : public testing::Test {
 protected:
  void Add(int number) {
    table.Add(Address(number));
    plain.push_back(Address(number));
  }
  void Insert(int rank, int number) {
    table.Insert(rank, Address(number));
    plain.insert(plain.begin() + rank, Address(number));
  }
  void RemoveRank(int rank) {
    table.RemoveAt(table.PlaceAt(rank));
    plain.erase(plain.begin() + rank);
  }
  /// The first of the number, if it is there.
  void Remove(int number) {
    const int place = table.PlaceOf(Address(number));
    const auto found = std::find(plain.begin(), plain.end(), Address(number));
    ASSERT_EQ(place >= 0, found != plain.end());
    if (place < 0) return;
    table.RemoveAt(place);
    plain.erase(found);
  }
  void Check() {
    const Tableau<BasicEntity*>& entries = table.Entries();
    ASSERT_EQ(Plain(entries.begin(), entries.end()), plain);
  }
  int Size() const { return static_cast<int>(plain.size()); }

  LinkTable table;
  Plain plain;
};

TEST_F(LinkTableTest, FollowsAPlainVectorThroughRandomOperations) {
  std::mt19937 random(5);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (int step = 0; step < 40000; ++step) {
    const int target = step / 8000 % 2 == 0 ? 2000 : 0;  // grows, shrinks to nothing, and again
    const int rank = Size() > 0 ? below(Size()) : 0;
    const int kind = below(Size() < target ? 12 : 20);
    if (kind < 5)
      Add(below(3000));  // some twice
    else if (kind < 7)
      Insert(Size() > 0 ? below(Size() + 1) : 0, below(3000));
    else if (kind == 7)
      ASSERT_EQ(table.RankOf(Address(rank)) >= 0, std::count(plain.begin(), plain.end(), Address(rank)) > 0);
    else if (kind < 10)
      Remove(below(3000));
    else if (Size() == 0)
      continue;
    else if (kind < 16)
      RemoveRank(kind % 3 == 0 ? 0 : kind % 3 == 1 ? Size() - 1 : rank);
    else
      Remove(static_cast<int>(reinterpret_cast<char*>(plain[static_cast<std::size_t>(rank)]) -
                              reinterpret_cast<char*>(Address(0))));
    ASSERT_EQ(table.size(), Size()) << step;
    if (Size() > 0) {
      ASSERT_EQ(table[0], plain.front()) << step;
      ASSERT_EQ(table[Size() - 1], plain.back()) << step;
    }
    if (step % 97 == 0) {
      Check();
      if (Size() == 0) continue;
      const int now = below(Size());
      const auto first = std::find(plain.begin(), plain.end(), plain[static_cast<std::size_t>(now)]);
      ASSERT_EQ(table.RankOf(plain[static_cast<std::size_t>(now)]), first - plain.begin()) << step;
    }
  }
}

TEST_F(LinkTableTest, KeepsNullEntriesAndStartsAnew) {
  Tableau<BasicEntity*> entries;
  for (int i = 0; i < 2 * LinkTable::indexedFrom; ++i) entries.push_back(i % 2 == 0 ? nullptr : Address(i));
  table = entries;
  plain.assign(entries.begin(), entries.end());
  EXPECT_EQ(table.PlaceOf(nullptr), 0);
  for (int i = 1; i < 300; i += 2) Remove(i);
  EXPECT_EQ(table[0], nullptr);
  EXPECT_TRUE(table.Has(nullptr));
  Check();
  Remove(301);
  table = entries;
  EXPECT_EQ(table.size(), entries.size());
  EXPECT_EQ(table.RankOf(Address(301)), 301);
  table.Clear();
  EXPECT_TRUE(table.empty());
  EXPECT_FALSE(table.Has(Address(301)));
  EXPECT_THROW(table[0], int);
}

}  // namespace
