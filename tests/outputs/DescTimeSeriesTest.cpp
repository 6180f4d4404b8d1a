#include "kalve/outputs/DescTimeSeries.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "tests/model/ModelTest.h"
#include "tests/support/AllocationCount.h"

namespace {

// A series beside a vector of points and a position in it.
struct Shadow {
  struct Point {
    int clock;
    ValueTypeId type;
    double number;
    std::string text;
    const ClockValueItem* address;
  };
  DescTimeSeries series{nullptr};
  std::vector<Point> points;
  std::size_t cursor = 0;  // the size of `points` is off
  bool isOff = true;

  void Record(int clock, int type, int value) {
    const Point point{clock, static_cast<ValueTypeId>(type), value / 4.0, "v" + std::to_string(value),
                      nullptr};
    if (type == INT) series.AddClockIntValueItem(clock, static_cast<int>(point.number));
    if (type == FLOAT) series.AddClockFloatValueItem(clock, static_cast<float>(point.number));
    if (type == DOUBLE) series.AddClockDoubleValueItem(clock, point.number);
    if (type == STRING) series.AddClockStringValueItem(clock, point.text.c_str());
    if (!points.empty()) {
      cursor = points.size() - 1;
      isOff = false;
    }
    if (points.empty() || points.back().clock != clock) points.push_back(point);
    const ClockValueItem* address = points.back().address;
    points.back() = point;
    points.back().address = address;
  }

  void CheckCurrent() {
    ASSERT_EQ(series.IsCurrentIn(), !isOff);
    if (isOff) {
      EXPECT_THROW(series.GetCurrent(), int);
      return;
    }
    const ClockValueItem* item = series.GetCurrent();
    Point& point = points[cursor];
    if (point.address == nullptr) point.address = item;
    ASSERT_EQ(item, point.address);
    ASSERT_EQ(item->GetClock(), point.clock);
    ASSERT_EQ(item->GetValueType(), point.type);
    const UnifiedValue value = item->GetValue();
    if (point.type == INT) {
      ASSERT_EQ(value.intValue, static_cast<int>(point.number));
    } else if (point.type == FLOAT) {
      ASSERT_EQ(value.floatValue, static_cast<float>(point.number));
    } else if (point.type == DOUBLE) {
      ASSERT_EQ(value.doubleValue, point.number);
    } else {
      ASSERT_EQ(value.stringValue, point.text);
    }
  }

  void Next(bool stays) {
    if (isOff || (stays && cursor + 1 == points.size())) return;
    isOff = ++cursor == points.size();
  }
};

TEST(TimeSeries, FollowsAVectorThroughRandomOperations) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    std::mt19937 random(seed);
    Shadow pair;
    int clock = 0;
    for (int turn = 0; turn < 4000; ++turn) {
      const int draw = static_cast<int>(random() % 12);
      if (draw < 4) {
        clock += static_cast<int>(random() % 3);
        pair.Record(clock, INT + static_cast<int>(random() % 4), static_cast<int>(random() % 1000));
      } else if (draw < 9) {
        pair.series.GoNext();
        pair.Next(false);
      } else if (draw == 9) {
        const bool stays = random() % 2 != 0;
        pair.series.GoNext2(stays);
        pair.Next(stays);
      } else if (random() % 8 == 0) {
        const bool head = random() % 2 != 0;
        head ? pair.series.GoHead() : pair.series.GoTail();
        pair.isOff = pair.points.empty();
        pair.cursor = head || pair.isOff ? 0 : pair.points.size() - 1;
      }
      ASSERT_NO_FATAL_FAILURE(pair.CheckCurrent()) << seed << " " << turn;
    }
    pair.series.GoHead();
    pair.isOff = pair.points.empty();
    for (pair.cursor = 0; !pair.isOff; pair.series.GoNext(), pair.Next(false))
      ASSERT_NO_FATAL_FAILURE(pair.CheckCurrent());
    EXPECT_FALSE(pair.series.IsCurrentIn());
  }
}

TEST(TimeSeries, ATextIsReplacedByItself) {
  DescTimeSeries series(nullptr);
  series.AddClockStringValueItem(3, nullptr);
  series.AddClockStringValueItem(3, "Pré Haut");
  series.GoHead();
  series.AddClockStringValueItem(3, series.GetCurrent()->GetValue().stringValue);
  EXPECT_STREQ(series.GetCurrent()->GetValue().stringValue, "Pré Haut");
  series.GoNext2(false);
  EXPECT_FALSE(series.IsCurrentIn());
}

TEST(TimeSeries, DisplaysItsClocks) {
  DescTimeSeries series(nullptr);
  EXPECT_EQ(OutputOf([&] { series.MyDisplay(); }), "");
  std::string clocks;
  for (int clock = 0; clock < 30; ++clock) {
    series.AddClockIntValueItem(clock * 2, 0);
    clocks += (clock != 0 ? " -> " : "") + std::to_string(clock * 2);
  }
  EXPECT_EQ(OutputOf([&] { series.MyDisplay(); }), clocks);
}

// A year of hours costs at most 32 bytes a number, a short series less than one heap cell a point.
TEST(TimeSeries, MemoryPerPointStaysSmallAndChangesWithinAClockCostNone) {
  struct Case {
    int points;
    double bytesPerPoint;
    std::size_t allocations;
  };
  for (const Case& c :
       {Case{1, 96, 1}, Case{24, 48, 3}, Case{365, 32, 7}, Case{8760, 18, 41}, Case{1000000, 17, 3920}}) {
    gAllocations = {};
    DescTimeSeries series(nullptr);
    for (int clock = 0; clock < c.points; ++clock)
      for (int change = 0; change < 3; ++change) series.AddClockDoubleValueItem(clock, change);
    EXPECT_LE(static_cast<double>(gAllocations.bytes) / c.points, c.bytesPerPoint) << c.points;
    EXPECT_LE(gAllocations.calls, c.allocations) << c.points;
  }
}

// Items and texts --------------------------------------------------------------------------------------

TEST(ClockValueItem, IsEqualByClockTypeAndValue) {
  const std::string text = "a";
  const ClockValueItem items[] = {
      {4, 1, INT},      {5, 1, INT},      {4, 2, INT},      {4, 1.0F, FLOAT},
      {4, 1.0, DOUBLE}, {4, "a", STRING}, {4, "b", STRING},
  };
  const ClockValueItem copies[] = {
      {4, 1, INT},      {5, 1, INT},      {4, 2, INT},
      {4, 1.0F, FLOAT}, {4, 1.0, DOUBLE}, {4, text.c_str(), STRING},
      {4, "b", STRING},
  };
  for (std::size_t i = 0; i < std::size(items); ++i)
    for (std::size_t j = 0; j < std::size(copies); ++j) {
      EXPECT_EQ(items[i] == copies[j], i == j) << i << " " << j;
      EXPECT_EQ(items[i] != copies[j], i != j) << i << " " << j;
    }
  const ClockValueItem none(4, UnifiedValue{-9999});
  EXPECT_FALSE(none == none);
}

struct TextCase {
  ClockValueItem item;
  int precision;
  const char* withPrecision;
  const char* without;
};

TEST(ClockValueItem, ValuesAsTexts) {
  const TextCase cases[] = {
      {{0, -12, INT}, 3, "-12", "-12"},
      {{0, 12.5F, FLOAT}, 2, "12.50", "12.5"},
      {{0, 0.125F, FLOAT}, 2, "0.12", "0.125"},
      {{0, 1234567.0F, FLOAT}, 0, "1234567", "1.23457e+06"},
      {{0, 0.1, DOUBLE}, 10, "0.1000000015", "0.1"},  // through single precision
      {{0, 123456789.0, DOUBLE}, 1, "123456792.0", "1.23457e+08"},
      {{0, 1e300, DOUBLE}, 1, "inf", "inf"},
      {{0, -0.0, DOUBLE}, 1, "-0.0", "-0"},
      {{0, "Pré Haut", STRING}, 1, "Pré Haut", "Pré Haut"},
      {{0, UnifiedValue{-9999}}, 1, "_", "_"},
      {{0, 1, BOOLEAN}, 1, "", ""},
  };
  for (const TextCase& c : cases) {
    char buffer[500] = "kept";
    const bool keeps = c.item.GetValueType() == BOOLEAN;
    EXPECT_EQ(UnifiedValueToString(&c.item, c.precision), c.withPrecision);
    EXPECT_EQ(UnifiedValueToString(&c.item), c.without);
    UnifiedValueToString(&c.item, c.precision, buffer);
    EXPECT_STREQ(buffer, keeps ? "kept" : c.withPrecision);
    UnifiedValueToString(&c.item, buffer);
    EXPECT_STREQ(buffer, keeps ? "kept" : c.without);
    const bool shows = c.item.GetValueType() != NO_VALUE && !keeps;
    EXPECT_EQ(OutputOf([&] { c.item.display(); }), shows ? std::string("0 -> ") + c.without : "");
  }
}

class EntityItem : public ModelTest {};

TEST_F(EntityItem, ShowsTheNameOfALivingEntity) {
  Thing* const cow = NewCow();
  UnifiedValue value;
  value.entityValue = cow;
  ClockValueItem item(3, value);
  ClockValueItem other(3, value);
  for (ClockValueItem* entityItem : {&item, &other}) entityItem->SetValueType(P_ENTITY);
  EXPECT_EQ(item, other);
  EXPECT_EQ(UnifiedValueToString(&item, 2), "Cow_1");
  DeleteEntity(cow);
  EXPECT_EQ(UnifiedValueToString(&item), "");
}

TEST(ClockValueItem, TextsOfAnyLengthAreCutInBuffersOnly) {
  const std::string longText(2000, 'x');
  const ClockValueItem text(0, longText.c_str(), STRING);
  const ClockValueItem number(0, 1.0F, FLOAT);
  EXPECT_EQ(UnifiedValueToString(&text), longText);
  EXPECT_EQ(UnifiedValueToString(&number, 600), "1." + std::string(600, '0'));
  std::vector<char> buffer(500, '?');  // the sanitizer watches its end
  UnifiedValueToString(&text, buffer.data());
  EXPECT_EQ(std::string(buffer.data()), longText.substr(0, 499));
  UnifiedValueToString(&number, 600, buffer.data());
  EXPECT_EQ(std::string(buffer.data()), "1." + std::string(497, '0'));
}

}  // namespace
