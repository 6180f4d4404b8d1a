// The way of a change: domain, watch, record, plot, in their order.
#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/specs/DescValueSpec.h"
#include "tests/descriptors/Points.h"
#include "tests/model/ModelTest.h"

namespace {

class Change : public ModelTest {};

using Int = IntVariableDescriptor;

int Accept(MonitorMethod* m) { return m->GetIntArgValue(31); }
int To15(MonitorMethod*) { return 15; }
int Refuse(MonitorMethod* m) { return m->GetIntArgValue(21); }
int To99(MonitorMethod*) { return 99; }
int Twice(MonitorMethod* m) { return 2 * m->GetIntArgValue(21); }

/// "fails", or the value that an operation leaves in a descriptor of value 10 and domain 0 to 20.
std::string Left(int (*body)(MonitorMethod*), void (*operation)(Int&, int), int argument) {
  const ChildOutcome outcome = RunInChild([&] {
    IntDescValueMonitor watch("watch");
    Int count(20, "count");
    count.SetValue(10);
    count.SetSubDomain(0, 20);
    if (body != nullptr) {
      watch.AssignWhenSetIntMethod(body);
      watch.AttachToDescriptor(&count);
    }
    operation(count, argument);
    std::cout << count.GetIntValue() << std::flush;
  });
  return outcome.exitStatus == bodyReturned                           ? outcome.output
         : outcome.output.find("OutOfIntDomain") != std::string::npos ? "fails"
                                                                      : "dies";
}

TEST_F(Change, DomainLooksAtACandidateOfStepsBeforeTheMonitor) {
  using Body = int (*)(MonitorMethod*);
  constexpr Body bodies[] = {nullptr, Accept, To15, Refuse, To99};
  const struct {
    const char* name;
    void (*operation)(Int&, int);
    int inside;
    int outside;
    // For no watch, one that accepts, changes, refuses, strays out of the domain.
    std::vector<std::string> leftInside;
    std::vector<std::string> leftOutside;
  } rows[] = {
      {"IncreaseValue(d)",
       [](Int& d, int v) { d.IncreaseValue(v); },
       2,
       15,
       {"12", "12", "15", "10", "99"},
       {"fails", "fails", "fails", "fails", "fails"}},
      {"DecreaseValue(d, 1)",
       [](Int& d, int v) { d.DecreaseValue(v, 1); },
       2,
       15,
       {"8", "8", "15", "10", "99"},
       {"fails", "fails", "fails", "fails", "fails"}},
      {"DecreaseValue(d, 0)",
       [](Int& d, int v) { d.DecreaseValue(v, 0); },
       2,
       15,
       {"8", "8", "8", "8", "8"},
       {"fails", "fails", "fails", "fails", "fails"}},
  };
  for (const auto& row : rows)
    for (std::size_t i = 0; i < std::size(bodies); ++i) {
      EXPECT_EQ(Left(bodies[i], row.operation, row.inside), row.leftInside[i]) << row.name << " inside " << i;
      EXPECT_EQ(Left(bodies[i], row.operation, row.outside), row.leftOutside[i])
          << row.name << " outside " << i;
    }
}

// SetValue of every scalar: what is left of the current value, a candidate inside or outside of the domain,
// and what a monitor answers, itself inside (other) or outside (stray).
enum Answer { Unwatched, Accepting, Changing, Refusing, Straying };

struct IntWay {
  using Descriptor = IntVariableDescriptor;
  using Monitor = IntDescValueMonitor;
  static constexpr int current = 10, inside = 12, other = 15, outside = 25, stray = 99;
  static constexpr auto assign = &Monitor::AssignWhenSetIntMethod;
  static int Accepted(MonitorMethod* m) { return m->GetIntArgValue(31); }
  static int Refused(MonitorMethod* m) { return m->GetIntArgValue(21); }
};
struct FloatWay {
  using Descriptor = FloatVariableDescriptor;
  using Monitor = FloatDescValueMonitor;
  static constexpr float current = 10, inside = 12, other = 15, outside = 25, stray = 99;
  static constexpr auto assign = &Monitor::AssignWhenSetFloatMethod;
  static float Accepted(MonitorMethod* m) { return m->GetFloatArgValue(32); }
  static float Refused(MonitorMethod* m) { return m->GetFloatArgValue(22); }
};
struct DoubleWay {
  using Descriptor = DoubleVariableDescriptor;
  using Monitor = DoubleDescValueMonitor;
  static constexpr double current = 10, inside = 12, other = 15, outside = 25, stray = 99;
  static constexpr auto assign = &Monitor::AssignWhenSetDoubleMethod;
  static double Accepted(MonitorMethod* m) { return m->GetDoubleArgValue(33); }
  static double Refused(MonitorMethod* m) { return m->GetDoubleArgValue(23); }
};
struct StringWay {
  using Descriptor = StringVariableDescriptor;
  using Monitor = StringDescValueMonitor;
  static constexpr const char* current = "current";
  static constexpr const char* inside = "inside";
  static constexpr const char* other = "other";
  static constexpr const char* outside = "outside";
  static constexpr const char* stray = "stray";
  static constexpr auto assign = &Monitor::AssignWhenSetStringMethod;
  static const char* Accepted(MonitorMethod* m) { return m->GetStringArgValue(34); }
  static const char* Refused(MonitorMethod* m) { return m->GetStringArgValue(24); }
};

template <class Way>
void ExpectTable(const std::string& failure) {
  using Descriptor = typename Way::Descriptor;
  using Value = decltype(Way::Accepted(nullptr));
  using Body = Value (*)(MonitorMethod*);
  const Body bodies[] = {nullptr, Way::Accepted, [](MonitorMethod*) -> Value { return Way::other; },
                         Way::Refused, [](MonitorMethod*) -> Value { return Way::stray; }};
  const struct {
    const char* name;
    void (*set)(Descriptor&, Value);
    std::vector<std::string> leftInside;  // by Answer
    std::vector<std::string> leftOutside;
  } rows[] = {
      {"SetValue(v)",
       [](Descriptor& d, Value v) { d.SetValue(v); },
       {"candidate", "candidate", "other", "current", "fails"},
       {"fails", "fails", "other", "current", "fails"}},
      {"SetValue(v, 2)",
       [](Descriptor& d, Value v) { d.SetValue(v, 2); },
       {"candidate", "candidate", "other", "current", "fails"},
       {"fails", "fails", "other", "current", "fails"}},
      {"SetValue(v, 0)", [](Descriptor& d, Value v) { d.SetValue(v, 0); },
       std::vector<std::string>(5, "candidate"), std::vector<std::string>(5, "fails")},
  };
  for (const auto& row : rows)
    for (const bool isInside : {true, false})
      for (std::size_t answer = Unwatched; answer <= Straying; ++answer) {
        typename Way::Monitor watch("watch");
        Descriptor descriptor(20, "attribute");
        const auto admit = [&descriptor](auto... bounds) { descriptor.AddSubDomain(bounds...); };
        if constexpr (std::is_same_v<Value, const char*>)
          for (const char* text : {Way::current, Way::inside, Way::other}) admit(text);
        else
          admit(Value(0), Value(20));
        descriptor.SetValue(Way::current);
        if (answer != Unwatched) {
          (watch.*Way::assign)(bodies[answer]);
          watch.AttachToDescriptor(&descriptor);
        }
        const Value candidate = isInside ? Way::inside : Way::outside;
        const std::string& left = (isInside ? row.leftInside : row.leftOutside)[answer];
        const auto set = [&] { row.set(descriptor, candidate); };
        SCOPED_TRACE(testing::Message() << row.name << " " << candidate << " " << answer);
        if (left == "fails") {
          EXPECT_EQ(FailureOf(set).find("\n!!!============== " + failure + " ==="), 0U);
          continue;
        }
        set();
        const Value expected = left == "candidate" ? candidate : left == "other" ? Way::other : Way::current;
        if constexpr (std::is_same_v<Value, const char*>)
          EXPECT_STREQ(descriptor.GetValue(0), expected);
        else
          EXPECT_EQ(descriptor.GetValue(0), expected);
      }
}

TEST_F(Change, DomainLooksAtWhatTheMonitorMakesOfAValue) {
  ExpectTable<IntWay>("OutOfIntDomain");
  ExpectTable<FloatWay>("OutOfFloatDomain");
  ExpectTable<DoubleWay>("OutOfDoubleDomain");
  ExpectTable<StringWay>("OutOfStringDomain");
}

TEST_F(Change, StepsOfOneAndWrapAround) {
  Int count;
  count.IncrValue();
  count.IncrValue(0);
  count.DecrValue();
  count.DecrValue(0);
  count.DecrValue();
  EXPECT_EQ(count.GetIntValue(), -1);
  count.SetValue(std::numeric_limits<int>::max());
  count.IncrValue();
  EXPECT_EQ(count.GetIntValue(), std::numeric_limits<int>::min());
}

TEST_F(Change, ReadsGoThroughTheMonitorAndLeaveTheValue) {
  IntDescValueMonitor watch("watch");
  watch.AssignWhenGetIntMethod(Twice);
  Int count(20, "count");
  count.SetValue(4);
  watch.AttachToDescriptor(&count);
  EXPECT_EQ(count.GetIntValue(), 8);
  EXPECT_EQ(count.GetIntValue(1), 8);
  EXPECT_EQ(count.GetIntValue(0), 4);
  EXPECT_EQ(Int(count).GetIntValue(), 8) << "a copy keeps the watch";
  watch.DetachFromDescriptor(&count);
  EXPECT_EQ(count.GetIntValue(), 4);
}

TEST_F(Change, BodySeesDescriptorCurrentAndCandidate) {
  IntDescValueMonitor watch("watch");
  watch.AssignWhenSetIntMethod([](MonitorMethod* m) {
    auto* count = static_cast<Int*>(m->GetDescriptorArgValue(14));
    count->SetValue(100 * m->GetIntArgValue(21) + m->GetIntArgValue(31), 0);  // goes past the watch
    return count->GetIntValue(0) + 1;
  });
  Int first;
  Int second;
  watch.AttachToDescriptor(&first);
  watch.AttachToDescriptor(&second);
  first.SetValue(3);
  second.SetValue(5);
  first.SetValue(7);
  EXPECT_EQ(first.GetIntValue(), 408);
  EXPECT_EQ(second.GetIntValue(), 6);
}

TEST_F(Change, EveryChangeIsRecordedEvenARefusedOne) {
  DescTimeSeries series(nullptr);
  IntDescValueMonitor watch("watch");
  watch.AssignWhenSetIntMethod(Refuse);
  Int count;
  count.IsRecorded(1);
  count.SetValue(1);  // without a series: nothing
  count.SetDescTimeSeries(&series);
  const auto at = [&](int clock) { simulation.Clock(clock); };
  at(2);
  count.SetValue(5);
  at(3);
  count.SetValue(6, 0);
  at(4);
  count.IncrValue();
  watch.AttachToDescriptor(&count);
  at(5);
  count.SetValue(9);
  at(6);
  count.AssignConverse([](int code) { return code == 7 ? "sept" : "autre"; });
  count.DecrValue();
  at(7);
  count.AssignConverse(nullptr);
  count.SetToDefaultValue(1);  // no change
  count.RecordPresentValue();
  EXPECT_EQ(PointsOf(series), "2=5;3=6;4=7;5=7;6=sept;7=1;");
  IntConstantDescriptor constant;
  DescTimeSeries constants(nullptr);
  constant.SetDescTimeSeries(&constants);
  constant.IsRecorded(1);
  constant.SetValue(3);
  constant.RecordValue(1, 4);
  constant.RecordPresentValue(2);
  EXPECT_EQ(PointsOf(constants), "1=4;2=3;");
}

TEST_F(Change, RecordingSwitchesBetweenZeroAndOneOnly) {
  Int count;
  count.IsRecorded(2);
  count.DisableRecording();
  count.EnableRecording();
  EXPECT_EQ(count.IsRecorded(), 2);
  count.IsRecorded(0);
  count.EnableRecording();
  EXPECT_EQ(count.IsRecorded(), 1);
  count.DisableRecording();
  EXPECT_EQ(count.IsRecorded(), 0);
}

// The other scalars go the same way, each with its own ids, domain and point.
template <class Descriptor, class Monitor, class Value>
void ExpectSameWay(Simulation& simulation, Monitor& watch, Value inside, Value outside, Value shown,
                   const char* failure, const std::string& points) {
  Descriptor descriptor(20, "attribute");
  DescTimeSeries series(nullptr);
  descriptor.SetDescTimeSeries(&series);
  descriptor.IsRecorded(1);
  EXPECT_FALSE(descriptor.IsInDomain(inside));
  EXPECT_FALSE(descriptor.IsOutOfDomain(inside));
  if constexpr (std::is_same_v<Value, const char*>)
    descriptor.AddSubDomain(inside);
  else
    descriptor.AddSubDomain(Value(0), inside);
  EXPECT_TRUE(descriptor.IsInDomain(inside) && !descriptor.IsOutOfDomain(inside));
  EXPECT_TRUE(!descriptor.IsInDomain(outside) && descriptor.IsOutOfDomain(outside));
  simulation.Clock(1);
  descriptor.SetValue(inside);
  const std::string banner = std::string("\n!!!============== ") + failure;
  EXPECT_EQ(FailureOf([&] { descriptor.SetValue(outside); }).compare(0, banner.size(), banner), 0);
  watch.AttachToDescriptor(&descriptor);
  simulation.Clock(2);
  descriptor.SetValue(outside);  // the watch brings it back
  EXPECT_EQ(FailureOf([&] { descriptor.SetValue(outside, 0); }).compare(0, banner.size(), banner), 0);
  EXPECT_EQ(PointsOf(series), points);
  EXPECT_TRUE(descriptor.GetValue() == shown);
}

float FloatBack(MonitorMethod* m) { return m->GetFloatArgValue(22); }
double DoubleBack(MonitorMethod* m) { return m->GetDoubleArgValue(23); }
const char* StringBack(MonitorMethod* m) { return m->GetStringArgValue(24); }

TEST_F(Change, AllScalarsGoTheSameWay) {
  FloatDescValueMonitor floats("floats");
  floats.AssignWhenSetFloatMethod(FloatBack);
  floats.AssignWhenGetFloatMethod([](MonitorMethod*) { return 7.5F; });
  ExpectSameWay<FloatVariableDescriptor>(simulation, floats, 2.5F, 3.0F, 7.5F, "OutOfFloatDomain",
                                         "1=2.5;2=2.5;");
  DoubleDescValueMonitor doubles("doubles");
  doubles.AssignWhenSetDoubleMethod(DoubleBack);
  doubles.AssignWhenGetDoubleMethod([](MonitorMethod*) { return 7.5; });
  ExpectSameWay<DoubleVariableDescriptor>(simulation, doubles, 2.5, 3.0, 7.5, "OutOfDoubleDomain",
                                          "1=2.5;2=2.5;");
  StringDescValueMonitor strings("strings");
  strings.AssignWhenSetStringMethod(StringBack);
  static const char* const shown = "montré";
  strings.AssignWhenGetStringMethod([](MonitorMethod*) { return shown; });
  ExpectSameWay<StringVariableDescriptor>(simulation, strings, "Salers", "Aubrac", shown, "OutOfStringDomain",
                                          "1=Salers;2=Salers;");
}

TEST_F(Change, RealBoundsAreExactInAndTolerantOut) {
  FloatVariableDescriptor weight;
  weight.SetSubDomain(1.0F, 5.0F);
  weight.AddSubDomain(8.0F, 9.0F);
  EXPECT_FALSE(weight.IsInDomain(5.0000005F));
  EXPECT_FALSE(weight.IsOutOfDomain(5.0000005F));
  EXPECT_TRUE(weight.IsInDomain(8.5F));
  EXPECT_TRUE(weight.IsOutOfDomain(7.9F));
}

TEST_F(Change, ConstantsCheckAndStore) {
  IntConstantDescriptor number(20, "number");
  number.AddSubDomain(3);
  number.SetSubDomain(5);
  number.AddSubDomain(7, 9);
  number.SetValue(8);
  EXPECT_EQ(number.GetIntValue(), 8);
  EXPECT_EQ(FailureOf([&] { number.SetValue(3); }),
            "\n!!!============== OutOfIntDomain =============="
            "\n!!! Affectation de valeur entière hors domaine, "
            "\n!!! pour le descripteur constant 'number'\n!!! valeur : 3\n!!! domaine : [5, 5] [7, 9] \n");
  StringConstantDescriptor breed(21, "breed");
  breed.SetSubDomain("Salers");
  breed.AddSubDomain("Aubrac");
  breed.SetValue("Aubrac");
  EXPECT_STREQ(breed.GetStringValue(), "Aubrac");
  EXPECT_EQ(FailureOf([&] { breed.SetValue("Charolaise"); }),
            "\n!!!============== OutOfStringDomain =============="
            "\n!!! Affectation de chaîne de caractères hors domaine, "
            "\n!!! pour le descripteur constant 'breed'\n!!! valeur : 'Charolaise'"
            "\n!!! domaine : 'Salers\" 'Aubrac\" \n");
  DoubleVariableDescriptor area(22, "area");
  area.SetSubDomain(0.5, 2.0);
  EXPECT_EQ(FailureOf([&] { area.SetValue(1.0 / 3.0); }),
            "\n!!!============== OutOfDoubleDomain =============="
            "\n!!! Affectation de valeur réelle (double précision) hors domaine, "
            "\n!!! pour le descripteur variable 'area'\n!!! valeur : 0.3333333333"
            "\n!!! domaine : [0.5, 2] \n");
}

// Texts: the address sanitizer sees what is freed too early, twice or never.
TEST_F(Change, TextsAreTheirOwn) {
  StringVariableDescriptor note(20, "note");
  char text[] = "une remarque assez longue pour son propre bloc";
  note.SetValue(text);
  text[0] = 'X';
  note.SetValue(note.GetStringValue());
  note.SetValue(note.GetStringValue() + 4, 0);
  EXPECT_STREQ(note.GetStringValue(), "remarque assez longue pour son propre bloc");
  note.SetDefaultValue(note.GetStringValue());
  note.SetValue(nullptr);
  EXPECT_STREQ(note.GetStringValue(), "");
  note.SetToDefaultValue();
  EXPECT_STREQ(note.GetStringValue(), note.GetDefaultValue());
  note.SetToDefaultValue(note.GetStringValue() + 9);
  EXPECT_STREQ(note.GetDefaultValue(), "assez longue pour son propre bloc");
}

TEST_F(Change, TextMonitorMayAnswerAnyText) {
  using Body = const char* (*)(MonitorMethod*);
  const struct {
    Body body;
    const char* left;
  } rows[] = {
      {[](MonitorMethod* m) { return m->GetStringArgValue(34); }, "une nouvelle valeur, longue elle aussi"},
      {[](MonitorMethod* m) { return m->GetStringArgValue(24); }, "la valeur du début, tout aussi longue"},
      {[](MonitorMethod* m) {
         return static_cast<StringVariableDescriptor*>(m->GetDescriptorArgValue(14))->GetStringValue(0);
       },
       ""},  // the value is empty while the body runs
      {[](MonitorMethod* m) {
         auto* own = static_cast<StringVariableDescriptor*>(m->GetDescriptorArgValue(14));
         own->SetValue("posé par la procédure, au passage", 0);
         return own->GetStringValue(0);
       },
       "posé par la procédure, au passage"},
      {[](MonitorMethod*) -> const char* { return nullptr; }, ""},
  };
  for (const auto& row : rows) {
    StringDescValueMonitor watch("watch");
    watch.AssignWhenSetStringMethod(row.body);
    StringVariableDescriptor note(20, "note");
    note.SetValue("la valeur du début, tout aussi longue");
    watch.AttachToDescriptor(&note);
    note.SetValue("une nouvelle valeur, longue elle aussi");
    EXPECT_STREQ(note.GetStringValue(), row.left);
  }
}

// Copies and assignment ------------------------------------------------------------------------------------

TEST_F(Change, CopyStandsOnItsOwn) {
  IntDescValueMonitor watch("watch");
  DescTimeSeries series(nullptr);
  Int source(20, "count");
  source.ClassUnity("kg");
  source.ClassComment("comment");
  source.SetIsPrivate(1);
  source.SetSubDomain(0, 20);
  source.SetToDefaultValue(3);
  source.SetValue(4);
  source.AssignConverse([](int) { return "texte"; });
  watch.AttachToDescriptor(&source);
  source.IsRecorded(1);
  source.SetDescTimeSeries(&series);
  source.IsPlotted(1);
  source.SetSamplingStep(3);
  Int copy(source);
  EXPECT_EQ(copy.ClassSymbol(), 20);
  EXPECT_STREQ(copy.ClassName(), "count");
  EXPECT_STREQ(copy.ClassUnity(), "kg");
  EXPECT_STREQ(copy.ClassComment(), "");
  EXPECT_EQ(copy.IsPrivate(), 1);
  EXPECT_EQ(copy.GetIntValue(), 4);
  EXPECT_EQ(copy.GetDefaultValue(), 3);
  EXPECT_EQ(copy.GetMonitor(), &watch);
  EXPECT_TRUE(copy.HasConverseAssigned());
  EXPECT_NE(copy.GetIntDomain(), source.GetIntDomain());
  source.SetSubDomain(0, 1);
  EXPECT_TRUE(copy.IsInDomain(20));
  EXPECT_EQ(copy.IsRecorded() + copy.IsPlotted(), 0);
  EXPECT_EQ(copy.GetDescTimeSeries(), nullptr);
  EXPECT_EQ(copy.GetSamplingStep(), 1);
}

TEST_F(Change, AssignmentSharesTheDomainWhichDiesLast) {
  StringVariableDescriptor target(21, "target");
  target.SetSubDomain("replaced");
  {
    StringVariableDescriptor source(20, "source");
    source.SetSubDomain("a");
    source.SetValue("a");
    EXPECT_EQ(&(target = source), &source);
    const StringVariableDescriptor& same = target;
    target = same;
    EXPECT_EQ(target.GetStringDomain(), source.GetStringDomain());
  }
  EXPECT_STREQ(target.ClassName(), "target");
  EXPECT_STREQ(target.GetStringValue(), "a");
  EXPECT_TRUE(target.IsOutOfDomain("b"));
}

TEST_F(Change, DomainsComeAndGo) {
  Int count;
  auto* winter = new DescIntValueSpec(20, IN, 0, 5);
  auto* summer = new DescIntValueSpec(20, IN, 0, 50);
  count.SetDomain(winter);
  count.SetDomain(summer);
  count.SetDomain(winter);
  EXPECT_TRUE(count.IsOutOfDomain(9));
  EXPECT_EQ(summer->IsOutOfDomain(9), 0) << "replaced, and alive";
  count.SetDomain(nullptr);
  count.SetValue(1000);
  count.SetSubDomain(0, 1);
  count.SetToDefaultValue(7);  // asks no domain
  EXPECT_EQ(count.GetIntValue(), 7);
}

TEST_F(Change, DescriptorsAreNotAssignedThroughTheirBases) {
  Thing cow{ANIMAL, COW};
  Int first(20, "first");
  Int second(21, "second");
  const std::string head =
      "\n!!!============== UnAuthorizedAssignment =============="
      "\n!!! Opération interdite d'assignation directe entre descripteurs.";
  const std::string tail = "\n--> Utiliser les fonctions de type SetValue(value) et Get..Value().\n";
  EXPECT_EQ(FailureOf([&] { static_cast<Descriptor&>(first) = second; }), head + tail);
  first.DescribedEntity(&cow);
  second.DescribedEntity(&cow);
  EXPECT_EQ(
      FailureOf([&] { static_cast<MonoDimensionalNumericalVariableDescriptor&>(first) = second; }),
      head + Text("\n    %p:first = %p:second", static_cast<void*>(&cow), static_cast<void*>(&cow)) + tail);
}

TEST_F(Change, EachKindIsCountedInItsBranch) {
  const int all = Descriptor::getNbConst() - Descriptor::getNbDest();
  const int constants = ConstantDescriptor::getNbConstC();
  const int variables = VariableDescriptor::getNbConstV();
  {
    IntConstantDescriptor constant;
    StringVariableDescriptor variable;
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): copies count too.
    const StringVariableDescriptor copy(variable);
    EXPECT_EQ(Descriptor::getNbConst() - Descriptor::getNbDest(), all + 3);
  }
  EXPECT_EQ(ConstantDescriptor::getNbConstC(), constants + 1);
  EXPECT_EQ(VariableDescriptor::getNbConstV(), variables + 2);
  EXPECT_EQ(Descriptor::getNbConst() - Descriptor::getNbDest(), all);
}

}  // namespace
