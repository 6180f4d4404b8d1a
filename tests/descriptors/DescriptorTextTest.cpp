// Values as texts, plotting, names and traces.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "kalve/descriptors/PredefinedAttributes.h"
#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Method.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "tests/model/ModelTest.h"

namespace {

class DescriptorText : public ModelTest {};

template <class Item>
Tableau<Item>* NewTable(std::initializer_list<Item> items) {
  auto* table = new Tableau<Item>;
  for (const Item& item : items) table->push_back(item);
  return table;
}

template <class Class, class Value>
std::string TextOf(Value value) {
  Class descriptor;
  descriptor.SetValue(value);
  char buffer[500];
  std::memset(buffer, '?', sizeof buffer);
  static_cast<Descriptor&>(descriptor).ValueToString(buffer);
  EXPECT_EQ(descriptor.ValueToString(), buffer);
  return buffer;
}

TEST_F(DescriptorText, EveryClassHasItsText) {
  auto cow = std::make_unique<Thing>(std::initializer_list<int>{ANIMAL, COW});
  BasicEntity* entity = cow.get();
  entity->SetInstanceName("Marguerite");
  EXPECT_EQ((TextOf<IntConstantDescriptor>(-3)), "-3");
  EXPECT_EQ((TextOf<IntVariableDescriptor>(42)), "42");
  EXPECT_EQ((TextOf<FloatConstantDescriptor>(0.1F)), "0.1");
  EXPECT_EQ((TextOf<FloatVariableDescriptor>(1.0F / 3.0F)), "0.333333");
  EXPECT_EQ((TextOf<DoubleVariableDescriptor>(1e10)), "1e+10");
  EXPECT_EQ((TextOf<StringConstantDescriptor>("texte")), "texte");
  EXPECT_EQ((TextOf<EntityConstantDescriptor>(entity)), "Marguerite");
  EXPECT_EQ((TextOf<EntityVariableDescriptor>(static_cast<BasicEntity*>(nullptr))), "no_name");
  EXPECT_EQ((TextOf<EntityTabVariableDescriptor>(NewTable<BasicEntity*>({entity, nullptr}))),
            "Marguerite no_name ");
  EXPECT_EQ((TextOf<EntityTabConstantDescriptor>(NewTable<BasicEntity*>({}))), "no_name");
  EXPECT_EQ((TextOf<IntTabConstantDescriptor>(NewTable<int>({1, -20}))), "         1        -20 ");
  EXPECT_EQ((TextOf<FloatTabConstantDescriptor>(NewTable<float>({0.5F}))), "   0.50000 ");
  EXPECT_EQ((TextOf<DoubleTabConstantDescriptor>(NewTable<double>({-2.25}))), "  -2.25000 ");
  EXPECT_EQ((TextOf<DoubleTabConstantDescriptor>(static_cast<Tableau<double>*>(nullptr))), "no_value");
  EXPECT_EQ((TextOf<IntDomainVariableDescriptor>(NewTable<IntInterval*>({}))), "");
  EXPECT_EQ((TextOf<StringTabConstantDescriptor>(NewTable<char*>({strdup("a")}))), "");
  EntityVariableDescriptor mother;
  mother.SetValue(entity);
  cow.reset();
  EXPECT_EQ(mother.ValueToString(), "no_name") << "of an entity that has died";
}

TEST_F(DescriptorText, LongTextsAreCutInBuffersOnly) {
  StringVariableDescriptor text;
  text.SetValue(std::string(700, 'x').c_str());
  char buffer[501];
  buffer[500] = '?';
  text.ValueToString(buffer);
  EXPECT_EQ(std::string(buffer), std::string(499, 'x'));
  EXPECT_EQ(buffer[500], '?');
  EXPECT_EQ(text.ValueToString(), std::string(700, 'x'));
}

TEST_F(DescriptorText, WrongBranchSaysSoAndLeavesTheBuffer) {
  IntConstantDescriptor constant;
  IntVariableDescriptor variable;
  char buffer[500] = "before";
  constant.Subclass(VARIABLE);
  variable.Subclass(CONSTANT);
  EXPECT_EQ(OutputOf([&] {
              constant.ConstantDescriptor::ValueToString(buffer);
              variable.VariableDescriptor::ValueToString(buffer);
              EXPECT_STREQ(buffer, "before");
            }),
            "\nsituation inattendue : appel ConstantDescriptor::ValueToString sur descripteur variable\n"
            "\nsituation inattendue : appel VariableDescriptor::ValueToString sur descripteur constant\n");
  static_cast<Descriptor&>(constant).Subclass(static_cast<DescriptorSubclassId>(3));
  static_cast<Descriptor&>(constant).ValueToString(buffer);
  EXPECT_STREQ(buffer, "before");
}

TEST_F(DescriptorText, PlotsTheFirstChangeAndOneInEveryStep) {
  Thing cow{ANIMAL, COW};
  cow.SetInstanceName("Marguerite");
  IntDescValueMonitor watch("watch");
  watch.AssignWhenGetIntMethod([](MonitorMethod* m) { return -m->GetIntArgValue(21); });
  IntVariableDescriptor weight(20, "weight");
  weight.DescribedEntity(&cow);
  weight.SetSamplingStep(3);
  weight.SetSamplingStep(0);  // refused
  watch.AttachToDescriptor(&weight);
  StringVariableDescriptor note(21, "note");
  note.DescribedEntity(&cow);
  note.IsPlotted(1);
  const std::string plotted = OutputOf([&] {
    weight.IsPlotted(1);
    for (int clock = 1; clock <= 7; ++clock) {
      simulation.Clock(clock);
      weight.SetValue(10 * clock);
      note.SetValue("never");
    }
  });
  EXPECT_EQ(plotted,
            "\nUPDATE GRAPH Marguerite weight 1 -10\n\nUPDATE GRAPH Marguerite weight 4 -40\n"
            "\nUPDATE GRAPH Marguerite weight 7 -70\n");
  EXPECT_EQ(OutputOf([] {
              FloatVariableDescriptor loose;
              loose.IsPlotted(1);
              loose.SetValue(1.0F);
            }),
            "");
}

// By the tags ----------------------------------------------------------------------------------------------

template <class... Classes>
void ExpectCopiesOf() {
  const int alive = Descriptor::getNbConst() - Descriptor::getNbDest();
  const auto check = []<class Class>(std::type_identity<Class>) {
    Descriptor* source = new Class(20, "attribute");
    Descriptor* copy = NewDescriptorCopy(*source);
    ASSERT_NE(copy, nullptr);
    bool isOfTheClass = false;
    VisitDescriptor(*copy, [&]<class Found>(Found&) { isOfTheClass = std::is_same_v<Found, Class>; });
    EXPECT_TRUE(isOfTheClass) << copy->Subclass() << " " << copy->ClassType();
    EXPECT_EQ(copy->ClassSymbol(), 20);
    DestroyDescriptor(source);
    DestroyDescriptor(copy);
  };
  (check(std::type_identity<Classes>()), ...);
  EXPECT_EQ(Descriptor::getNbConst() - Descriptor::getNbDest(), alive);
}

TEST_F(DescriptorText, AllClassesAreFoundByTheirTags) {
  ExpectCopiesOf<IntConstantDescriptor, IntVariableDescriptor, FloatConstantDescriptor,
                 FloatVariableDescriptor, DoubleConstantDescriptor, DoubleVariableDescriptor,
                 StringConstantDescriptor, StringVariableDescriptor, EntityConstantDescriptor,
                 EntityVariableDescriptor, EntityTabConstantDescriptor, EntityTabVariableDescriptor,
                 EntitySpecConstantDescriptor, EntitySpecVariableDescriptor,
                 DescValueSpecTabConstantDescriptor, DescValueSpecTabVariableDescriptor,
                 IntDomainConstantDescriptor, IntDomainVariableDescriptor, FloatDomainConstantDescriptor,
                 FloatDomainVariableDescriptor, DoubleDomainConstantDescriptor,
                 DoubleDomainVariableDescriptor, StringTabConstantDescriptor, StringTabVariableDescriptor,
                 IntTabConstantDescriptor, FloatTabConstantDescriptor, DoubleTabConstantDescriptor>();
  IntVariableDescriptor odd;
  odd.ClassType(INT_TAB);
  EXPECT_EQ(NewDescriptorCopy(odd), nullptr);
}

// Predefined attributes ------------------------------------------------------------------------------------

TEST_F(DescriptorText, PredefinedAttributesHaveTheirNames) {
  EXPECT_STREQ(TypeAttribute().ClassName(), "typeAttribute");
  EXPECT_STREQ(AnonymousEntityAttribute().ClassName(), "anonymousEntityAttribute");
  EXPECT_EQ(CurrentElementIndex().ClassSymbol(), 12);
  EXPECT_STREQ(DescIdToString(12), "CURRENT_ELEMENT_INDEX");
  EXPECT_STREQ(DescIdToString(17), "ANONYMOUS_ENTITY_ATTRIBUTE");
  EXPECT_STREQ(DescIdToString(10), "@");
  EXPECT_EQ(gDescIdToCharTabSize, 18);
  const ChildOutcome beyond = RunInChild([] { DescIdToString(18); });
  EXPECT_NE(beyond.output.find("DescIdToString"), std::string::npos);
  EXPECT_EQ(beyond.exitStatus, 0);
}

TEST_F(DescriptorText, TracesNameTheClasses) {
  const std::string traced = OutputOf([] {
    g_KV_TraceNewDelMode = 1;
    {
      const DescriptorNameAttribute name;
      const FloatVariableDescriptor weight;
      // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): copies are traced too.
      const FloatVariableDescriptor copy(weight);
      const DescValueSpecTabVariableDescriptor specs;
    }
    g_KV_TraceNewDelMode = 0;
  });
  std::string shown;
  for (std::size_t i = 0; i < traced.size(); ++i)
    if (traced.compare(i, 2, "0x") == 0) {
      while (i + 1 < traced.size() &&
             std::isxdigit(static_cast<unsigned char>(traced[i + 1])) + (traced[i + 1] == 'x'))
        ++i;
      shown += '@';
    } else {
      shown += traced[i];
    }
  EXPECT_EQ(shown,
            "\n+Construction de -SCD- @\n+Construction de -DescriptorNameAttribute- (I-constant) @"
            "\n+Construction de -MonoDimNumVD- @\n+Construction de -FVD- @"
            "\n++copy construction de -MonoDimNumVD- @ <- @\n++copy construction de -FVD- @ <- @"
            "\n+Construction de -DVSTVD- @"
            "\n-Destruction du descripteur @\n-Destruction du descripteur @"
            "\n-Destruction du descripteur @\n-Destruction du descripteur @");
}

}  // namespace
