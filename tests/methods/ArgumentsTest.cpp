// Who owns what an argument holds. The address sanitizer sees what is freed twice or never.
#include <gtest/gtest.h>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"
#include "tests/support/ChildProcess.h"

namespace {

/// Every object that the scope made has died in it.
struct Balance {
  int born = Argument::getNbConst();
  int dead = Argument::getNbDest();
  ~Balance() { EXPECT_EQ(Argument::getNbConst() - born, Argument::getNbDest() - dead); }
};

template <class Item>
Tableau<Item>* NewTable(std::initializer_list<Item> items) {
  auto* table = new Tableau<Item>;
  for (const Item& item : items) table->push_back(item);
  return table;
}

TEST(Argument, TextIsItsOwn) {
  const Balance balance;
  StringArgument name(24, "name");
  EXPECT_STREQ(name.GetValue(), "");
  char text[] = "Salers";
  name.SetValue(text);
  text[0] = 's';
  EXPECT_STREQ(name.GetValue(), "Salers");
  name.SetValue(name.GetValue());
  EXPECT_STREQ(name.GetValue(), "Salers");
  StringArgument copy(name);
  copy.SetValue("Aubrac");
  EXPECT_STREQ(name.GetValue(), "Salers");
  name.SetValue(nullptr);
  EXPECT_STREQ(name.GetValue(), "");
}

TEST(Argument, AssignmentMovesTheValueAloneAndAnswersItsSource) {
  IntArgument target(21, "current");
  IntArgument source(31, "candidate");
  source.SetValue(5);
  EXPECT_EQ(&(target = source), &source);
  EXPECT_EQ(target.GetValue(), 5);
  EXPECT_EQ(target.ClassSymbol(), 21);
  EXPECT_STREQ(target.ClassName(), "current");
}

TEST(Argument, NumberTableDiesWithItsLastHolder) {
  const Balance balance;
  IntTabArgument unset(1, "unset");
  EXPECT_EQ(unset.GetValue(), nullptr);
  EXPECT_EQ(IntTabArgument(unset).GetValue(), nullptr);
  DoubleTabArgument first(1, "first");
  Tableau<double>* table = NewTable<double>({1.5, 2.5});
  first.SetValue(table);
  {
    DoubleTabArgument second(2, "second");
    DoubleTabArgument third(3, "third");
    third = second = first;
    third = first;
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is what is tested.
    DoubleTabArgument copy(first);
    EXPECT_EQ(second.GetValue(), table);
    EXPECT_NE(copy.GetValue(), table);
    copy.GetValue()->push_back(3.5);
  }
  EXPECT_EQ(table->size(), 2);
  Tableau<double>* other = NewTable<double>({});
  first.SetValue(other);
  delete table;  // a replaced number table goes back to the caller
}

TEST(Argument, ReplacedDomainIsFreedUnlessAnotherHoldsIt) {
  const Balance balance;
  IntInterval interval(1, 4);
  IntDomainArgument domain(1, "domain");
  domain.AddValue(&interval);
  IntDomainArgument copy(domain);
  EXPECT_EQ(copy.GetValue(), domain.GetValue());
  domain.SetValue(NewTable<IntInterval*>({}));
  EXPECT_EQ(copy.GetValue()->front(), &interval);
  domain.SetValue(NewTable<IntInterval*>({&interval}));
  domain.SetValue(domain.GetValue());
  copy = domain;
  const IntDomainArgument& itself = copy;
  copy = itself;
  EXPECT_EQ(copy.GetValue()->size(), 1);
}

TEST(Argument, EntityTablesAreBorrowedAndCopied) {
  const Balance balance;
  Tableau<BasicEntity*> herd;
  herd.push_back(nullptr);
  EntityTabArgument cows(26, "cows");
  cows.SetValue(&herd);
  const EntityTabArgument copy(cows);
  herd.push_back(nullptr);
  EXPECT_EQ(copy.GetValue()->size(), 1);
  EntityTabArgument assigned(36, "assigned");
  assigned = cows;
  EXPECT_EQ(assigned.GetValue(), &herd);
  delete copy.GetValue();  // the copy's table belongs to nobody
  Tableau<DescValueSpec*> specs;
  DescValueSpecTabArgument conditions(27, "conditions");
  conditions.SetValue(&specs);
  EXPECT_EQ(DescValueSpecTabArgument(conditions).GetValue(), &specs);
}

TEST(Argument, TracesItsLifeOnDemand) {
  const auto address = [](const void* p) {
    char text[32];
    std::snprintf(text, sizeof text, "%p", p);
    return std::string(text);
  };
  alignas(EventArgument) char room[sizeof(EventArgument)] = {};
  EXPECT_EQ(OutputOf([&room] {
              g_KV_TraceNewDelMode = 1;
              (::new (room) EventArgument(13, "previousEventArgument"))->~EventArgument();
            }),
            "+Construction de l'argument EVENT previousEventArgument\" " + address(room) +
                "\n-Destruction de l'argument " + address(room) + "\n");
}

}  // namespace
