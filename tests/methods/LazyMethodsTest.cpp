// Methods that are made when they are looked at: nobody can tell, by counters, traces, names or copies, when
// their objects were made.
#include "kalve/methods/LazyMethods.h"

#include <gtest/gtest.h>

#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedMethods.h"
#include "tests/support/ChildProcess.h"

namespace {

constexpr const PredefinedSet& drawing =
    predefinedSet<UpdateNextEvent, RandomizeThisEventClockTime, IsPoppingToSuspend>;

/// Stands for an event; the methods only keep its address.
struct Owner {
  Owner() { methods.Begin(drawing, Address()); }
  explicit Owner(const Owner& other) { methods.Share(other.methods, Address()); }
  void AddMethod(Method* method) {
    methods.Add(method, "Owner::AddMethod");
    static_cast<EventMethod*>(method)->DescribedEvent(Address());
  }
  Event* Address() { return reinterpret_cast<Event*>(this); }
  Event* DescribedBy(int id) const { return static_cast<EventMethod*>(methods[id])->DescribedEvent(); }
  LazyMethods methods;
};

/// What the report of memory and the instance number tell since a moment.
struct Counts {
  int born = Method::getNbConst();
  int dead = Method::getNbDest();
  int instances = Method::mInstanceNumber;
  int argumentsBorn = Argument::getNbConst();
  int argumentsDead = Argument::getNbDest();
  void Expect(int births, int deaths, int argumentBirths, int argumentDeaths) const {
    EXPECT_EQ(Method::getNbConst() - born, births);
    EXPECT_EQ(Method::getNbDest() - dead, deaths);
    EXPECT_EQ(Method::mInstanceNumber - instances, -deaths);
    EXPECT_EQ(Argument::getNbConst() - argumentsBorn, argumentBirths);
    EXPECT_EQ(Argument::getNbDest() - argumentsDead, argumentDeaths);
  }
};

template <class Operation>
bool Throws(Operation operation) {
  try {
    operation();
  } catch (int) {
    return true;
  }
  return false;
}

TEST(LazyMethods, CountFromTheStartAndDieOnceMadeOrNot) {
  const Counts counts;
  Owner owner;
  counts.Expect(3, 0, 3, 0);
  EXPECT_EQ(owner.methods[RANDOMIZE_THISEVENTCLOCKTIME]->ArgumentTab().size(), 2);
  EXPECT_EQ(owner.DescribedBy(RANDOMIZE_THISEVENTCLOCKTIME), owner.Address());
  counts.Expect(3, 0, 3, 0);
  owner.methods.DestroyMethods();
  counts.Expect(3, 3, 3, 3);
  EXPECT_TRUE(Throws([&] { owner.methods[UPDATE_NEXTEVENT]; }));
  { const Owner shallow; }
  counts.Expect(6, 3, 6, 3);
}

TEST(LazyMethods, AreFoundByIdAndNameWithRanksAsIfAllWereThere) {
  Owner owner;
  EXPECT_EQ(owner.methods.Rank(IS_POPPING_TO_SUSPEND), 2);
  EXPECT_LT(owner.methods.Rank(GENERATE_NEXTEVENT), 0);
  EXPECT_EQ(owner.methods.Ranks().size(), IS_POPPING_TO_SUSPEND + 1);
  EXPECT_TRUE(Throws([&] { owner.methods[GENERATE_NEXTEVENT]; }));
  EXPECT_TRUE(Throws([&] { owner.methods.WithBody(IS_POPPING_TO_SUSPEND + 1); }));
  EXPECT_EQ(owner.methods.WithBody(UPDATE_NEXTEVENT), nullptr);
  EXPECT_TRUE(owner.methods.WithBody(IS_POPPING_TO_SUSPEND)->HasBodyAssigned());
  Method* const update = owner.methods.Named("updateNextEvent");
  EXPECT_EQ(update, owner.methods[UPDATE_NEXTEVENT]);
  update->ClassName("autre");
  EXPECT_EQ(owner.methods.Named("updateNextEvent"), nullptr);
  auto* const own = new IntEventMethod(UPDATE_NEXTEVENT, "autre");
  owner.AddMethod(own);
  EXPECT_EQ(owner.methods[UPDATE_NEXTEVENT], own);
  EXPECT_EQ(owner.methods.Named("autre"), update);
  owner.AddMethod(owner.methods[IS_POPPING_TO_SUSPEND]);
  EXPECT_EQ(owner.methods.Methods().size(), 4);
  EXPECT_EQ(owner.methods.Rank(IS_POPPING_TO_SUSPEND), 3);  // a second addition points at the last rank
  EXPECT_EQ(owner.methods.Methods()[1]->ClassSymbol(), RANDOMIZE_THISEVENTCLOCKTIME);
  owner.methods.DestroyMethods();
}

TEST(LazyMethods, SharingKeepsOneObjectWhoeverLooksFirst) {
  const Counts counts;
  Owner source;
  Method* const made = source.methods[UPDATE_NEXTEVENT];
  Owner copy(source);
  counts.Expect(3, 0, 3, 0);
  EXPECT_EQ(copy.methods[UPDATE_NEXTEVENT], made);
  EXPECT_EQ(source.DescribedBy(UPDATE_NEXTEVENT), copy.Address());
  EXPECT_EQ(source.DescribedBy(IS_POPPING_TO_SUSPEND), copy.Address());  // made after the copy
  EXPECT_EQ(copy.methods[IS_POPPING_TO_SUSPEND], source.methods[IS_POPPING_TO_SUSPEND]);
  source.methods.Describe(source.Address());
  EXPECT_EQ(copy.DescribedBy(UPDATE_NEXTEVENT), source.Address());
  EXPECT_EQ(copy.DescribedBy(RANDOMIZE_THISEVENTCLOCKTIME), source.Address());
  copy.AddMethod(new VoidEventMethod(70, "de plus"));
  EXPECT_EQ(copy.methods.Methods().size(), 4);
  EXPECT_EQ(source.methods.Methods().size(), 3);
  EXPECT_EQ(copy.methods[UPDATE_NEXTEVENT], made);
  source.methods.Forget();
  copy.methods.DestroyMethods();
  counts.Expect(4, 4, 3, 3);
}

TEST(LazyMethods, CopiesAndAssignmentsSeeDefaultBodies) {
  const Counts counts;
  Owner source;
  Owner copy;
  copy.methods.DestroyMethods();
  LazyMethods::CopyMethods(source.methods, {VOID, BOOLEAN}, copy);
  counts.Expect(8, 3, 7, 3);
  EXPECT_EQ(copy.methods.Methods().size(), 2);
  EXPECT_TRUE(copy.methods[IS_POPPING_TO_SUSPEND]->HasBodyAssigned());
  EXPECT_EQ(copy.DescribedBy(IS_POPPING_TO_SUSPEND), copy.Address());
  EXPECT_TRUE(Throws([&] { LazyMethods().AssignMethods(source.methods); }));
  Owner target;
  static_cast<EventMethod*>(target.methods[RANDOMIZE_THISEVENTCLOCKTIME])->SetBody<int>(nullptr);
  target.methods.AssignMethods(source.methods);
  EXPECT_TRUE(target.methods[RANDOMIZE_THISEVENTCLOCKTIME]->HasBodyAssigned());
  for (Owner* owner : {&source, &copy, &target}) owner->methods.DestroyMethods();
}

/// Only what tells which lines there are: addresses differ.
int Lines(const std::string& text, const std::string& start) {
  int count = 0;
  for (std::size_t at = 0; (at = text.find(start, at)) != std::string::npos; at += start.size()) ++count;
  return count;
}

TEST(LazyMethods, TracesTellOfEachConstructionAndDestructionAtItsTime) {
  const auto traced = [](int whileBuilt, int whileUsed, int whileDestroyed) {
    return OutputOf([=] {
      g_KV_TraceNewDelMode = whileBuilt;
      Owner owner;
      g_KV_TraceNewDelMode = whileUsed;
      owner.methods[UPDATE_NEXTEVENT]->HasBodyAssigned();
      g_KV_TraceNewDelMode = whileDestroyed;
      owner.methods.DestroyMethods();
    });
  };
  const char* const constructions = "+Construction de la méthode ";
  const char* const argumentConstructions = "+Construction de l'argument ";
  const char* const destructions = "-Destruction de la méthode ";
  const char* const argumentDestructions = "-Destruction de l'argument ";
  const std::string built = traced(1, 0, 0);
  EXPECT_EQ(Lines(built, constructions), 3);
  EXPECT_EQ(Lines(built, argumentConstructions), 3);
  EXPECT_EQ(traced(0, 1, 0), "");
  const std::string destroyed = traced(0, 0, 1);
  EXPECT_EQ(Lines(destroyed, destructions), 3);
  EXPECT_EQ(Lines(destroyed, argumentDestructions), 3);
  EXPECT_EQ(Lines(destroyed, "+"), 0);
}

}  // namespace
