// Domains, tables of numbers, tables of texts: what they hold, and who frees it.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "kalve/descriptors/TableDescriptors.h"
#include "kalve/foundations/TraceSwitches.h"
#include "tests/support/ChildProcess.h"

namespace {

// The intervals of a domain belong to nobody: a test frees those that it made.
template <class Interval>
void FreeIntervals(Tableau<Interval*>* table) {
  for (Interval* interval : *table) delete interval;
  table->erase();
}

template <class Descriptor>
std::string LowsAndHighs(const Descriptor& domain) {
  std::string text;
  for (const auto* interval : *domain.GetValue())
    text += std::to_string(static_cast<int>(interval->low)) + "-" +
            std::to_string(static_cast<int>(interval->high)) + " ";
  return text;
}

TEST(DomainDescriptors, InsertionKeepsTheOrderOfLowBounds) {
  IntDomainConstantDescriptor days(20, "days");
  EXPECT_FALSE(days.IsInValue(3));
  days.AddValueElement(1, 2);
  days.AddValueElement(5, 6);
  days.AddValueElement(7, 8);
  days.InsertValueElement(5, 9);
  days.InsertValueElement(0, 0);
  days.InsertValueElement(10, 11);
  days.AddValueElement(3);
  EXPECT_EQ(LowsAndHighs(days), "0-0 1-2 5-6 5-9 7-8 10-11 3-3 ");
  EXPECT_TRUE(days.IsInValue(3) && days.IsInValue(9) && days.IsInValue(5));
  EXPECT_FALSE(days.IsInValue(4));
  EXPECT_NE(FailureOf([&] { days.AddValueElement(4, 3); }).find("BadIntervalBounds"), std::string::npos);
  FreeIntervals(days.GetIntDomainValue());
}

TEST(DomainDescriptors, RealsCompareExactly) {
  FloatDomainVariableDescriptor floats;
  floats.AddValueElement(0.5F, 1.5F);
  EXPECT_TRUE(floats.IsInValue(1.5F));
  EXPECT_FALSE(floats.IsInValue(1.5000002F));
  DoubleDomainVariableDescriptor doubles;
  doubles.SetValue(nullptr, 0);
  EXPECT_FALSE(doubles.IsInValue(1.0));
  doubles.InsertValueElement(0.5, 1.5);
  EXPECT_EQ(doubles.GetDoubleDomainValue(0), doubles.GetDoubleDomainValue());
  EXPECT_TRUE(doubles.IsInValue(0.5));
  FreeIntervals(floats.GetFloatDomainValue());
  FreeIntervals(doubles.GetDoubleDomainValue());
}

TEST(DomainDescriptors, TablesAreOwnedAndIntervalsShared) {
  IntInterval spring(60, 150);
  IntInterval autumn(240, 330);
  IntDomainVariableDescriptor target;
  {
    IntDomainVariableDescriptor days;
    days.SetDefaultValue(new Tableau<IntInterval*>);
    days.GetDefaultValue()->push_back(&spring);
    days.SetToDefaultValue();
    days.GetIntDomainValue()->push_back(&autumn);
    EXPECT_EQ(days.GetDefaultValue()->size(), 1);
    const IntDomainVariableDescriptor copy(days);
    EXPECT_NE(copy.GetIntDomainValue(), days.GetIntDomainValue());
    EXPECT_EQ(copy.GetIntDomainValue()->back(), &autumn);
    EXPECT_EQ(&(target = days), &days);
    EXPECT_EQ(target.GetIntDomainValue(), days.GetIntDomainValue());
    days.SetValue(days.GetIntDomainValue(), 1);
    days.SetValue(new Tableau<IntInterval*>, 0);
  }
  EXPECT_EQ(LowsAndHighs(target), "60-150 240-330 ");
  target.SetToDefaultValue(new Tableau<IntInterval*>);
  EXPECT_EQ(target.GetIntDomainValue()->size(), 0);
}

template <class Descriptor, class Item>
void ExpectNumberTable(Item gap, const std::string& getter, const std::string& setter) {
  Descriptor numbers(20, "numbers");
  EXPECT_EQ(numbers.GetValue(), nullptr);
  EXPECT_EQ(numbers.GetDefaultValue()->size(), 0);
  numbers.ClearValues();
  numbers.SetValueElement(2, Item(5));
  EXPECT_EQ(numbers.GetValueElement(0), gap);
  EXPECT_EQ(numbers.GetValueElement(2), Item(5));
  numbers.AddValueElement(Item(6));
  EXPECT_EQ(numbers.GetValue()->size(), 4);
  numbers.SetValue(numbers.GetValue());
  const Descriptor copy(numbers);
  numbers.ClearValues();
  EXPECT_EQ(copy.GetValueElement(3), Item(6));
  EXPECT_TRUE(copy.IsInDomain(Item(1)) && !copy.IsOutOfDomain(Item(1)));
  numbers = copy;
  EXPECT_NE(RunInChild([&] { numbers.GetValueElement(4); }).output.find(getter), std::string::npos);
  EXPECT_NE(RunInChild([&] { numbers.SetValueElement(-1, Item(0)); }).output.find(setter), std::string::npos);
}

TEST(NumberTables, GrowToTheRankWithGaps) {
  ExpectNumberTable<IntTabConstantDescriptor>(-9, "IntTabConstantDescriptor::GetIntValueElement",
                                              "IntTabConstantDescriptor::SetValueElement");
  ExpectNumberTable<FloatTabConstantDescriptor>(-9999.0F, "FloatTabConstantDescriptor::GetFloatValueElement",
                                                "FloatTabConstantDescriptor::SetValueElement");
  ExpectNumberTable<DoubleTabConstantDescriptor>(-9999.0,
                                                 "DoubleTabConstantDescriptor::GetDoubleValueElement",
                                                 "DoubleTabConstantDescriptor::SetValueElement");
}

// The address sanitizer sees texts that are freed twice or never.
TEST(StringTables, TextsChangeHands) {
  StringTabVariableDescriptor names(20, "names");
  EXPECT_EQ(names.GetStringTabValue(), nullptr);
  names.AddValueElement(strdup("Marguerite"));
  names.AddValueElement(strdup("Marguerite"));
  names.AddValueElement(nullptr);
  EXPECT_EQ(names.GetStringTabValue()->size(), 3);
  names.RemoveValue(names.GetStringTabValue()->get_nth(0));
  names.RemoveValue(strdup("Marguerite"));  // another pointer: freed, and nothing else
  EXPECT_EQ(names.GetStringTabValue()->size(), 2);
  const StringTabVariableDescriptor copy(names);
  EXPECT_STREQ(copy.GetStringTabValue()->get_nth(0), "Marguerite");
  EXPECT_NE(copy.GetStringTabValue()->get_nth(0), names.GetStringTabValue()->get_nth(0));
  auto* others = new Tableau<char*>;
  others->push_back(strdup("Blanchette"));
  names.SetValue(others, 0);
  names.SetValue(names.GetStringTabValue(1));
  EXPECT_STREQ(names.GetStringTabValue()->front(), "Blanchette");
  char* taken = names.GetStringTabValue()->front();
  names.ClearValues();
  std::free(taken);
}

TEST(StringTables, ValueAndDefaultMayBeOneTable) {
  const std::function<void(StringTabConstantDescriptor&)> ways[] = {
      [](auto&) {},
      [](auto& names) { names.DepthDeleteValue(); },
      [](auto& names) {
        names.DepthDeleteDefaultValue();
        names.DepthDeleteValue();
      },
      [](auto& names) { names.SetValue(new Tableau<char*>); },
      [](auto& names) { names.SetDefaultValue(nullptr); },
      [](auto& names) { names.SetToDefaultValue(names.GetValue()); },
      [](auto& names) { names.SetToDefaultValue(new Tableau<char*>); },
      [](auto& names) { static_cast<void>(StringTabConstantDescriptor(names)); },
      [](auto& names) {
        StringTabConstantDescriptor other;
        other.AddValueElement(strdup("perdu"));
        other = names;
      },
  };
  for (const auto& way : ways) {
    StringTabConstantDescriptor names;
    names.SetDefaultValue(new Tableau<char*>);
    names.AddValueElement(strdup("remplacé"));
    names.SetToDefaultValue();
    names.AddValueElement(strdup("Marguerite"));
    EXPECT_STREQ(names.GetDefaultValue()->front(), "Marguerite");
    way(names);
  }
}

}  // namespace
