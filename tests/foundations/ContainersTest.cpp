// Tableau and Liste against naive shadows, and the rules that a shadow does not show.
#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <random>
#include <vector>

#include "kalve/foundations/Liste.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/Tableau.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Throws.h"

namespace {

std::vector<int> Items(const Tableau<int>& table) { return {table.begin(), table.end()}; }

Tableau<int> Table(std::initializer_list<int> items) {
  Tableau<int> table;
  for (int item : items) table.push_back(item);
  return table;
}

TEST(Tableau, FollowsAVectorThroughRandomOperations) {
  std::mt19937 random(1);
  Tableau<int> table;
  std::vector<int> shadow;
  for (int turn = 0; turn < 20000; ++turn) {
    const int value = static_cast<int>(random() % 50);
    const int size = static_cast<int>(shadow.size());
    const int at = size > 0 ? static_cast<int>(random() % shadow.size()) : 0;
    switch (random() % 9) {
      case 0:
        table.push_back(value);
        shadow.push_back(value);
        break;
      case 1:
        table.push_back_ifnew(value);
        if (std::count(shadow.begin(), shadow.end(), value) == 0) shadow.push_back(value);
        break;
      case 2:
        table.insert(at, value);
        shadow.insert(shadow.begin() + at, value);
        break;
      case 3:
        if (size == 0) break;
        table.remove(at);
        shadow.erase(shadow.begin() + at);
        break;
      case 4: {
        table.remove_first(value);
        const auto found = std::find(shadow.begin(), shadow.end(), value);
        if (found != shadow.end()) shadow.erase(found);
        break;
      }
      case 5:
        if (size == 0) break;
        table.set_nth(at, value);
        shadow[static_cast<std::size_t>(at)] = value;
        break;
      case 6: {
        const auto found = std::find(shadow.begin(), shadow.end(), value);
        ASSERT_EQ(table.position(value), found == shadow.end() ? -9 : found - shadow.begin());
        break;
      }
      case 7:
        if (size == 0) break;
        table.pop_front();
        shadow.erase(shadow.begin());
        break;
      default:
        if (size > 200) {
          table.erase();
          shadow.clear();
        } else {
          table.push_back(table);
          shadow.insert(shadow.end(), shadow.begin(), shadow.begin() + size);
        }
    }
    ASSERT_EQ(Items(table), shadow);
  }
}

TEST(Tableau, ThrowsAnIntOutOfRangeAndChangesNothing) {
  Tableau<int> table = Table({1, 2});
  EXPECT_TRUE(Throws([&] { table[2] = 0; }));
  EXPECT_TRUE(Throws([&] { table.get_nth(-1); }));
  EXPECT_TRUE(Throws([&] { table.set_nth(2, 0); }));
  EXPECT_TRUE(Throws([&] { table.insert(3, 0); }));
  EXPECT_TRUE(Throws([&] { table.remove(2); }));
  EXPECT_TRUE(Throws([&] { set_nth_num(table, -1, 0); }));
  EXPECT_EQ(Items(table), (std::vector<int>{1, 2}));
  Tableau<int> none;
  EXPECT_TRUE(Throws([&] { none.front(); }));
  EXPECT_TRUE(Throws([&] { none.back(); }));
  EXPECT_TRUE(Throws([&] { none.pop_front(); }));
}

TEST(Tableau, FillsGapsOfIdTablesWithMinusNine) {
  Tableau<int> table;
  set_nth_num(table, 5, 7);
  EXPECT_EQ(Items(table), (std::vector<int>{-9, -9, -9, -9, -9, 7}));
}

TEST(Tableau, FindsTextsByTextButRemovesThemByAddress) {
  const std::string other = "vache";  // same text, another address
  Tableau<const char*> names;
  names.push_back("taureau");
  names.push_back("vache");
  EXPECT_EQ(names.position(other.c_str()), 1);
  EXPECT_EQ(names.position("veau"), -9);
  names.remove_first(other.c_str());
  names.push_back_ifnew(other.c_str());
  EXPECT_EQ(names.size(), 3);
}

TEST(Tableau, CopiesAreIndependent) {
  Tableau<int> source = Table({1, 2, 3});
  Tableau<int> copy = source;
  copy.push_back(4);
  source[0] = 9;
  EXPECT_EQ(Items(copy), (std::vector<int>{1, 2, 3, 4}));
  copy = source;
  EXPECT_EQ(Items(copy), (std::vector<int>{9, 2, 3}));
}

TEST(Tableau, CommonTailAndCommonElement) {
  const auto tail = [](const Tableau<int>& a, const Tableau<int>& b) {
    const std::unique_ptr<Tableau<int>> common(a.commonTail(b));
    return Items(*common);
  };
  EXPECT_EQ(tail(Table({5, 3, 1}), Table({7, 3, 1})), (std::vector<int>{3, 1}));
  EXPECT_EQ(tail(Table({5, 3}), Table({7, 4})), (std::vector<int>{}));
  EXPECT_EQ(tail(Table({3, 1}), Table({2, 3, 1})), (std::vector<int>{3, 1}));
  EXPECT_TRUE(Table({5, 3}).commonElement(Table({1, 5})));
  EXPECT_FALSE(Table({5, 3}).commonElement(Table({})));
}

TEST(Tableau, RowsAreMadeAsNeededAndFreedWithTheirTexts) {
  Tableau<Tableau<UnifiedValue*>*> rows;
  auto* text = new UnifiedValue;
  text->stringValue = strdup("Salers");
  push_back_in_row(rows, 1, text);
  push_back_in_row(rows, 0, new UnifiedValue{3});
  EXPECT_EQ(get_nth_elem(rows, 1, 0), text);
  Tableau<int> types = Table({INT, STRING});
  depth_delete(rows, &types);  // the leak checker sees what it forgets
  EXPECT_TRUE(rows.empty());
}

struct IntervalTable {
  Tableau<IntInterval*> table;
  std::vector<std::unique_ptr<IntInterval>> owned;
  void Add(int low, int high) {
    owned.push_back(std::make_unique<IntInterval>(low, high));
    table.push_back(owned.back().get());
  }
  std::string Reduced() {
    table.quick_sort(0, table.size() - 1);
    table.reduce_to_disjunction();
    std::string text;
    for (IntInterval* interval : table) {
      text += "[" + std::to_string(interval->low) + "," + std::to_string(interval->high) + "]";
      const bool isNew =
          std::none_of(owned.begin(), owned.end(), [&](const auto& o) { return o.get() == interval; });
      if (isNew) owned.emplace_back(interval);
    }
    return text;
  }
};

TEST(Tableau, ReducesIntervalsToADisjunctionWithoutTouchingThem) {
  IntervalTable intervals;
  intervals.Add(3, 4);
  intervals.Add(1, 2);
  intervals.Add(10, 12);
  intervals.Add(12, 20);
  intervals.Add(11, 15);
  intervals.Add(4, 4);
  EXPECT_EQ(intervals.Reduced(), "[1,2][3,4][10,20]");
  EXPECT_EQ(intervals.owned[2]->high, 12);
  EXPECT_EQ(IntervalTable().Reduced(), "");
}

// "At least" in place of "above", as the order of described entities has it.
struct Weight {
  int weight;
  int rank;
};
bool operator<(const Weight& a, const Weight& b) { return a.weight < b.weight; }
bool operator>(const Weight& a, const Weight& b) { return a.weight >= b.weight; }

TEST(Tableau, SortsWhateverTheOperatorsAnswer) {
  std::mt19937 random(7);
  for (int size : {0, 1, 2, 3, 17, 1000}) {
    std::vector<Weight> weights;
    for (int i = 0; i < size; ++i) weights.push_back({static_cast<int>(random() % 10), i});
    Tableau<Weight*> table;
    for (Weight& weight : weights) table.push_back(&weight);
    table.quick_sort(0, size - 1);
    const auto up = [](Weight* a, Weight* b) {
      return a->weight < b->weight || (a->weight == b->weight && a->rank < b->rank);
    };
    EXPECT_TRUE(std::is_sorted(table.begin(), table.end(), up)) << size;
    table.quick_sort_inverse(0, size - 1);
    EXPECT_TRUE(std::is_sorted(table.begin(), table.end(), [](Weight* a, Weight* b) { return *b < *a; }));
  }
}

// A Liste of T beside a std::list and a cursor into it.
struct ListShadow {
  Liste<int> list;
  std::list<int> shadow;
  std::list<int>::iterator cursor = shadow.end();

  void Check() {
    ASSERT_EQ(list.size(), static_cast<int>(shadow.size()));
    ASSERT_EQ(list.is_current_off(), cursor == shadow.end());
    if (cursor != shadow.end()) {
      ASSERT_EQ(list.current(), *cursor);
    }
    std::vector<int> items;
    Cell<int>* kept = list.get_currentCell();
    for (list.go_head(); list.is_current_in(); list.go_next()) items.push_back(list.current());
    list.set_currentCell(kept);
    ASSERT_EQ(items, std::vector<int>(shadow.begin(), shadow.end()));
  }
};

TEST(Liste, FollowsAShadowThroughRandomOperations) {
  std::mt19937 random(3);
  ListShadow pair;
  auto& [list, shadow, cursor] = pair;
  for (int turn = 0; turn < 20000; ++turn) {
    const int value = static_cast<int>(random() % 30);
    switch (random() % 13) {
      case 0:
        list.push_back(value);
        shadow.push_back(value);
        break;
      case 1:
        list.push_front(value);
        shadow.push_front(value);
        break;
      case 2:
        list.go_head();
        cursor = shadow.begin();
        break;
      case 3:
        list.go_last();
        cursor = shadow.empty() ? shadow.end() : std::prev(shadow.end());
        break;
      case 4:
      case 5:
        list.go_next();
        if (cursor != shadow.end()) ++cursor;
        break;
      case 6:
        list.go_next2(true);
        if (cursor != shadow.end() && std::next(cursor) != shadow.end()) ++cursor;
        break;
      case 7:
      case 8:
        list.insert_after_current(value);
        shadow.insert(cursor == shadow.end() ? cursor : std::next(cursor), value);
        break;
      case 9:
        if (cursor == shadow.end()) break;
        list.replace_current_by_item(value);
        *cursor = value;
        break;
      case 10:
        if (cursor == shadow.end()) break;
        list.remove_current();
        shadow.erase(cursor);
        cursor = shadow.end();
        break;
      case 11: {
        list.remove_first(value);
        const auto found = std::find(shadow.begin(), shadow.end(), value);
        if (found == shadow.end()) break;
        if (found == cursor) cursor = shadow.end();
        shadow.erase(found);
        break;
      }
      default:
        if (shadow.empty()) break;
        if (cursor == shadow.begin()) cursor = shadow.end();
        list.pop_front();
        shadow.pop_front();
    }
    ASSERT_NO_FATAL_FAILURE(pair.Check());
  }
}

TEST(Liste, CopiesHaveCellsAndCursorOfTheirOwn) {
  Liste<int> source;
  for (int i = 0; i < 9; ++i) source.push_back(i);
  source.go_last();
  Liste<int> copy = source;
  EXPECT_TRUE(copy.is_current_off());
  copy.go_head();
  copy.replace_current_by_item(50);
  source.pop_front();
  EXPECT_EQ(source.front(), 1);
  EXPECT_EQ(source.current(), 8);
  EXPECT_EQ(copy.front(), 50);
  source.erase();
  EXPECT_EQ(copy.size(), 9);
}

TEST(Liste, ThrowsAnIntWhereNothingIs) {
  Liste<int> list;
  EXPECT_TRUE(Throws([&] { list.front(); }));
  EXPECT_TRUE(Throws([&] { list.pop_front(); }));
  list.push_back(1);
  EXPECT_TRUE(Throws([&] { list.current(); }));
  EXPECT_TRUE(Throws([&] { list.remove_current(); }));
  EXPECT_TRUE(Throws([&] { list.replace_current_by_item(2); }));
}

TEST(Reports, NameTheCallerTheIndexAndReturn) {
  EXPECT_EQ(OutputOf([] {
              const Tableau<int> table = Table({4, 5});
              TabIndexOutOfRange(9, "Event::GetMethod", &table, 9, true);
              VoidArray(0, "Event::InsertProcessAction", &table, true);
            }),
            "\n!!! Indice hors tableau dans 'Event::GetMethod' : indice 9, taille du tableau 2.\n"
            "\n!!! Tableau vide dans 'Event::InsertProcessAction'.\n");
}

}  // namespace
