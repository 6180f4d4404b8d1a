// Copies and destruction of described entities, their order, and the services that read values.
#include <cstring>

#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "tests/model/DescribedTest.h"

namespace {

int AddHundred(MonitorMethod* method) { return method->GetIntArgValue(CANDIDATEINTVALUE_ARGUMENT) + 100; }

/// The points of a series as "clock:value clock:value".
std::string Points(DescTimeSeries& series) {
  std::string points;
  for (series.GoHead(); series.IsCurrentIn(); series.GoNext())
    points += Text("%s%d:", points.empty() ? "" : " ", series.GetCurrent()->GetClock()) +
              UnifiedValueToString(series.GetCurrent());
  return points;
}

class DescribedLifeTest : public DescribedTest {
 protected:
  /// Values in all tables, domains included; the texts and intervals are new ones.
  static void Fill(Thing& entity, int seed) {
    for (const bool isVariable : {false, true}) {
      const auto id = [&](ValueTypeId type) { return isVariable ? VariableId(type) : ConstantId(type); };
      entity.SetIntValue(id(INT), seed);
      entity.SetFloatValue(id(FLOAT), static_cast<float>(seed) + 0.5F);
      entity.SetDoubleValue(id(DOUBLE), seed + 0.25);
      entity.SetStringValue(id(STRING), Text("text %d", seed).c_str());
      entity.SetEntityValue(id(P_ENTITY), &entity);
      entity.AddEntityValueElement(id(ENTITY_TAB), &entity);
      entity.AddIntDomainValueElement(id(INTDOMAIN), seed, seed + 1);
      entity.AddDoubleDomainValueElement(id(DOUBLEDOMAIN), seed, seed + 1);
      entity.AddStringValueElement(id(STRING_TAB), strdup(Text("word %d", seed).c_str()));
    }
    entity.AddIntValueElement(ConstantId(INT_TAB), seed);
    entity.AddFloatValueElement(ConstantId(FLOAT_TAB), static_cast<float>(seed));
  }
  static void FreeAllIntervals(const DescriptedEntity& entity) {
    for (const bool isVariable : {false, true}) {
      const auto id = [&](ValueTypeId type) { return isVariable ? VariableId(type) : ConstantId(type); };
      FreeIntervals(entity.GetIntDomainValue(id(INTDOMAIN)));
      FreeIntervals(entity.GetDoubleDomainValue(id(DOUBLEDOMAIN)));
    }
  }
  /// All values of all descriptors as texts, in the order of the tables.
  static std::string Values(const DescriptedEntity& entity) {
    std::string values;
    for (ConstantDescriptor* d : entity.ConstantDescriptorTab())
      values += Text("%d=%s;", d->ClassSymbol(), d->ValueToString().c_str());
    for (VariableDescriptor* d : entity.VariableDescriptorTab())
      values += Text("%d=%s;", d->ClassSymbol(), d->ValueToString().c_str());
    for (const int id : {ConstantId(STRING_TAB), VariableId(STRING_TAB)})
      if (const Tableau<char*>* texts = entity.GetStringTabValue(id))
        for (const char* text : *texts) values += text;
    return values;
  }
};

// Copies --------------------------------------------------------------------------------------------------

TEST_F(DescribedLifeTest, FourFormsCopyEveryDescriptorAsItsOwn) {
  Fill(*cow, 7);
  const std::string values = Values(*cow);
  const int living = Descriptor::getNbConst() - Descriptor::getNbDest();
  const int each = cow->ConstantDescriptorTab().size() + cow->VariableDescriptorTab().size();
  EXPECT_EQ(each, 29);
  std::vector<Entity*> copies = {new Entity(*cow), new Entity(*cow, 0), new Entity(*cow, true),
                                 new Entity(*cow, false, 0)};
  EXPECT_EQ(Descriptor::getNbConst() - Descriptor::getNbDest(), living + 4 * each);
  for (Entity* copy : copies) {
    EXPECT_EQ(Values(*copy), values);
    copy->SetIntValue(VariableId(INT), 8);
    copy->SetStringValue(ConstantId(STRING), "other");
    copy->ClearEntityTabValues(VariableId(ENTITY_TAB));
    copy->GetStringTabValue(VariableId(STRING_TAB))->front()[0] = 'W';
    copy->GetFloatTabValue(ConstantId(FLOAT_TAB))->set_nth(0, 9);
    EXPECT_EQ(copy->GetDescriptor(VariableId(INT))->DescribedEntity(), copy);
    EXPECT_EQ(copy->GetIntValue(CURRENT_ELEMENT_INDEX), 0);
  }
  EXPECT_EQ(Values(*cow), values);
  for (Entity* copy : copies) DeleteEntity(copy);
  EXPECT_EQ(Descriptor::getNbConst() - Descriptor::getNbDest(), living);
  EXPECT_EQ(Values(*cow), values);
  FreeAllIntervals(*cow);
}

TEST_F(DescribedLifeTest, CopiesShareMonitorsAndStartUnflagged) {
  IntDescValueMonitor monitored("watch");
  monitored.AssignWhenSetIntMethod(AddHundred);
  monitored.AttachToDescriptor(cow, VariableId(INT));
  cow->IsEngineManaged(1);
  cow->SetDescIdForSorting(VariableId(INT));
  cow->GetDescriptor(VariableId(INT))->SetIsPrivate(1);
  auto* const copy = static_cast<Entity*>(CopyEntity(cow));
  copy->SetIntValue(VariableId(INT), 1);
  EXPECT_EQ(copy->GetIntValue(VariableId(INT)), 101);
  EXPECT_EQ(copy->IsEngineManaged(), 0);
  EXPECT_EQ(copy->GetDescIdForSorting(), -9);
  EXPECT_EQ(copy->GetDescriptor(VariableId(INT))->IsPrivate(), 1);
}

TEST_F(DescribedLifeTest, ASlicedCopyOfTheLayerKeepsItsDescriptors) {
  auto* const described = new DescriptedEntity(*cow);
  EXPECT_EQ(described->EntityType(), KV_DESCRIPTED_ENTITY);
  EXPECT_EQ(described->ConstantDescriptorTab().size(), cow->ConstantDescriptorTab().size());
  DeleteEntity(described);
}

// Values of another entity --------------------------------------------------------------------------------

TEST_F(DescribedLifeTest, SharedIdsGetTheValuesOfTheSource) {
  Thing* const target = NewDescribed();
  Fill(*cow, 7);
  target->AddIntValueElement(ConstantId(INT_TAB), 3);
  IntDescValueMonitor monitored("watch");
  monitored.AssignWhenSetIntMethod(AddHundred);
  monitored.AttachToDescriptor(target, VariableId(INT));
  Give<IntVariableDescriptor>(*cow, 90, "only here");
  target->CopyDescriptorValuesFrom(cow);
  EXPECT_EQ(target->GetIntConstValue(ConstantId(INT)), 7);
  EXPECT_EQ(target->GetIntVarValue(VariableId(INT)), 107);
  EXPECT_EQ(target->GetIntValueElement(ConstantId(INT_TAB), 0), 3);  // no case for tables of ints
  EXPECT_EQ(target->GetVariableDescriptorPosition(90), -9);
  for (const bool isVariable : {false, true}) {
    const auto id = [&](ValueTypeId type) { return isVariable ? VariableId(type) : ConstantId(type); };
    EXPECT_EQ(target->GetFloatValue(id(FLOAT)), 7.5F);
    EXPECT_EQ(target->GetDoubleValue(id(DOUBLE)), 7.25);
    EXPECT_STREQ(target->GetStringValue(id(STRING)), "text 7");
    EXPECT_EQ(target->GetEntityValue(id(P_ENTITY)), cow);
    EXPECT_EQ(target->GetEntityTabValue(id(ENTITY_TAB))->front(), cow);
    EXPECT_NE(target->GetEntityTabValue(id(ENTITY_TAB)), cow->GetEntityTabValue(id(ENTITY_TAB)));
    EXPECT_EQ(target->GetIntDomainValueElement(id(INTDOMAIN), 0)->high, 8);
    EXPECT_NE(target->GetIntDomainValueElement(id(INTDOMAIN), 0),
              cow->GetIntDomainValueElement(id(INTDOMAIN), 0));
    EXPECT_STREQ(target->GetStringTabValue(id(STRING_TAB))->front(), "word 7");
    EXPECT_NE(target->GetStringTabValue(id(STRING_TAB))->front(),
              cow->GetStringTabValue(id(STRING_TAB))->front());
  }
  EXPECT_EQ(target->GetFloatValueElement(ConstantId(FLOAT_TAB), 0), 7.0F);
  FreeAllIntervals(*cow);
  FreeAllIntervals(*target);
}

TEST_F(DescribedLifeTest, ASharedIdOfAnotherTypeEndsTheRun) {
  Thing& bull = *NewBull();
  Give<FloatVariableDescriptor>(bull, VariableId(INT), "poids");
  EXPECT_NE(FailureOf([&] { bull.CopyDescriptorValuesFrom(cow); }).find("'set int value'"),
            std::string::npos);
  const std::string trace = OutputOf([&] {
    g_KV_TraceNewDelMode = 1;
    NewBull()->CopyDescriptorValuesFrom(cow);
  });
  EXPECT_NE(trace.find("\n'Bull_3'::CopyDescriptorValuesFrom('Cow_1')"), std::string::npos);
}

TEST_F(DescribedLifeTest, DefaultsAreComparedForSingleValues) {
  for (const bool isVariable : {false, true}) {
    const auto id = [&](ValueTypeId type) { return isVariable ? VariableId(type) : ConstantId(type); };
    for (const ValueTypeId type : {INT, FLOAT, DOUBLE, STRING})
      EXPECT_TRUE(cow->DefaultValueIsAssigned(id(type))) << type;
    cow->SetIntValue(id(INT), 1);
    cow->SetStringValue(id(STRING), "x");
    EXPECT_FALSE(cow->DefaultValueIsAssigned(id(INT)));
    EXPECT_FALSE(cow->DefaultValueIsAssigned(id(STRING)));
    EXPECT_FALSE(cow->DefaultValueIsAssigned(id(P_ENTITY)));
    EXPECT_FALSE(cow->DefaultValueIsAssigned(id(P_ENTITYSPEC)));
    for (const ValueTypeId type :
         {ENTITY_TAB, INTDOMAIN, FLOATDOMAIN, DOUBLEDOMAIN, DESCVALUESPEC_TAB, STRING_TAB})
      EXPECT_NE(FailureOf([&] { cow->DefaultValueIsAssigned(id(type)); }).find(" DefaultValueNotSupported "),
                std::string::npos);
  }
  EXPECT_FALSE(cow->DefaultValueIsAssigned(ConstantId(FLOAT_TAB)));
}

// Death ---------------------------------------------------------------------------------------------------

TEST_F(DescribedLifeTest, RecordedDescriptorsLeaveTheirLastValues) {
  DescTimeSeries number(nullptr);
  DescTimeSeries text(nullptr);
  DescTimeSeries none(nullptr);
  DescTimeSeries names(nullptr);
  DescTimeSeries changed(nullptr);
  DescTimeSeries holder(nullptr);
  DescTimeSeries dead(nullptr);
  simulation.Clock(5);
  Thing* const born = NewDescribed();
  simulation.Clock(30);
  const auto record = [&](int id, DescTimeSeries& series) {
    born->GetDescriptor(id)->SetDescTimeSeries(&series);
    born->GetDescriptor(id)->IsRecorded(1);
  };
  record(ConstantId(INT), number);
  record(ConstantId(STRING), text);
  record(ConstantId(P_ENTITY), none);
  record(ConstantId(ENTITY_TAB), names);
  record(VariableId(INT), changed);
  record(VariableId(P_ENTITY), holder);
  record(VariableId(ENTITY_TAB), dead);
  born->SetIntValue(ConstantId(INT), 4);
  born->SetStringValue(ConstantId(STRING), "brune");
  Tableau<BasicEntity*> both = Tab({cow, born});
  born->AddEntityValueElements(ConstantId(ENTITY_TAB), &both);
  born->SetIntValue(VariableId(INT), 6);
  born->SetEntityValue(VariableId(P_ENTITY), born);
  Thing* const mortal = NewBull();
  Tableau<BasicEntity*> mixed = Tab({mortal, cow});
  born->AddEntityValueElements(VariableId(ENTITY_TAB), &mixed);
  DeleteEntity(mortal);
  simulation.Clock(50);
  DeleteEntity(born);
  EXPECT_EQ(Points(number), "5:4");
  EXPECT_EQ(Points(text), "5:brune");
  EXPECT_EQ(Points(none), "5:");
  EXPECT_EQ(Points(names), "5:\"Cow_1 Cow_2\"");
  EXPECT_EQ(Points(changed), "30:6");  // not for its flag alone
  EXPECT_EQ(Points(holder), "30:Cow_2 50:Cow_2");
  EXPECT_EQ(Points(dead), "30:\"Bull_3 Cow_1\" 50:\"Cow_1\"");
}

// Order and searches --------------------------------------------------------------------------------------

class OrderTest : public DescribedTest {
 protected:
  Thing* NewWeighed(int weight) {
    Thing* const bull = NewBull();
    Give<IntVariableDescriptor>(*bull, 60, "poids").SetValue(weight);
    Give<FloatConstantDescriptor>(*bull, 61, "taille").SetValue(static_cast<float>(weight) / 2);
    Give<StringConstantDescriptor>(*bull, 62, "race").SetValue("x");
    table.push_back(bull);
    return bull;
  }
  std::string Order() const {
    std::string names;
    for (const DescriptedEntity* entity : table) names += Text("%s ", entity->InstanceName());
    return names;
  }
  Tableau<DescriptedEntity*> table;
};

TEST_F(OrderTest, GreaterMeansAtLeast) {
  DescriptedEntity& light = *NewWeighed(1);
  DescriptedEntity& heavy = *NewWeighed(2);
  DescriptedEntity& same = *NewWeighed(2);
  for (const int id : {60, 61}) {
    for (DescriptedEntity* entity : table) entity->SetDescIdForSorting(id);
    EXPECT_TRUE(light < heavy && !(heavy < light) && !(heavy < same));
    EXPECT_TRUE(heavy > same && same > heavy && heavy > light && !(light > heavy));
  }
  light.SetDescIdForSorting(62);
  EXPECT_TRUE(light < heavy && light > heavy);  // a text has no order
  EXPECT_NE(FailureOf([&] {
              light.SetDescIdForSorting(-9);
              static_cast<void>(light < heavy);
            }).find(" InexistantDescriptor "),
            std::string::npos);
}

TEST_F(OrderTest, SortsKeepOrSwapEqualsAndPassTheDead) {
  for (const int weight : {3, 1, 2, 3, 1}) NewWeighed(weight);  // Bull_2 to Bull_6
  SortUp(&table, 60);
  EXPECT_EQ(Order(), "Bull_3 Bull_6 Bull_4 Bull_2 Bull_5 ");
  SortDown(&table, 61);
  EXPECT_EQ(Order(), "Bull_5 Bull_2 Bull_4 Bull_6 Bull_3 ");
  EXPECT_STREQ(MinValued(&table, 60)->InstanceName(), "Bull_6");
  EXPECT_STREQ(MaxValued(&table, 61)->InstanceName(), "Bull_5");
  EXPECT_EQ(MaxValued(&table, 62), nullptr);
  DescriptedEntity* const dead = table[0];
  DeleteEntity(dead);
  SortUp(&table, 60);
  EXPECT_EQ(table.back(), dead);
  EXPECT_STREQ(MaxValued(&table, 60)->InstanceName(), "Bull_2");
  Tableau<DescriptedEntity*> none;
  EXPECT_NE(RunInChild([&] { MaxValued(&none, 60); }).output.find("MaxValued"), std::string::npos);
}

TEST_F(OrderTest, ValuesAtTheLimitOfTheTypeAreNoExtremes) {
  NewWeighed(K_INTMIN);
  EXPECT_EQ(MaxValued(&table, 60), nullptr);
  table[0]->SetIntValue(60, K_INTMAX);
  EXPECT_EQ(MinValued(&table, 60), nullptr);
  EXPECT_EQ(MaxValued(&table, 60), table[0]);
}

TEST_F(OrderTest, FirstOfAValueAndDescriptorsByName) {
  NewWeighed(3);
  Thing* const second = NewWeighed(5);
  Give<IntConstantDescriptor>(*table[0], 63, "mere").SetValue(1);
  Give<IntConstantDescriptor>(*second, 63, "mere").SetValue(2);
  EXPECT_EQ(GetFirstEntityOnDescIntVarValue(BULL, 60, 5), second);
  EXPECT_EQ(GetFirstEntityOnDescIntValue(BULL, 60, 4), nullptr);
  EXPECT_EQ(GetFirstEntityOnDescIntConstValue(BULL, 63, 2), second);
  EXPECT_EQ(GetFirstEntityOnDescIntValue(BULL, 63, 1), table[0]);
  EXPECT_EQ(GetFirstEntityOnDescIntValue(UDDER, 60, 1), nullptr);
  EXPECT_NE(FailureOf([] { GetFirstEntityOnDescIntValue(BULL, 64, 1); }).find(" InexistantDescriptor "),
            std::string::npos);
  EXPECT_NE(FailureOf([] { GetFirstEntityOnDescIntVarValue(-9, 60, 1); }).find("'GetEntityList'"),
            std::string::npos);
  EXPECT_EQ(GetDescriptorSymbol(BULL, "taille"), 61);
  EXPECT_EQ(GetDescriptorType(BULL, "taille"), FLOAT);
  EXPECT_EQ(GetDescriptorType(BULL, "poids"), INT);
  EXPECT_EQ(GetDescriptorSymbol(BULL, "lait"), -9);
  for (const int without : {static_cast<int>(UDDER), 99, -9}) {
    EXPECT_EQ(GetDescriptorSymbol(without, "poids"), -9);
    EXPECT_EQ(GetDescriptorType(without, "poids"), -9);
  }
  const DescriptedEntity& first = *table[0];
  EXPECT_EQ(GetPosition(first.VariableDescriptorTab(), 60), 1);
  EXPECT_EQ(GetPosition(first.ConstantDescriptorTab(), 60), -9);
  EXPECT_EQ(GetPosition(first.ConstantDescriptorTab(), first.ConstantDescriptorTab()[2]), 2);
}

TEST_F(OrderTest, DumpShowsARowPerDescriptor) {
  NewWeighed(3);
  const Thing& bull = static_cast<const Thing&>(*table[0]);
  Give<EntityConstantDescriptor>(*table[0], 64, "mere").SetValue(cow);
  Give<EntityVariableDescriptor>(*table[0], 65, "voisin");
  Give<StringTabConstantDescriptor>(*table[0], 66, "mots").AddValueElement(strdup("a"));
  Give<FloatTabConstantDescriptor>(*table[0], 67, "lactation").AddValueElement(1.5F);
  Give<IntTabConstantDescriptor>(*table[0], 68, "vide");
  Give<EntityTabVariableDescriptor>(*table[0], 69, "suite").AddValueElement(cow);
  const std::string text = OutputOf([&] { bull.DisplayAttributes(); });
  const std::string expected = Text(
      "\n    instantAttribute = 0\n    taille =    1.50000\n    race = x\n    mere %x = Cow_1"
      "\n    mots =(a, )\n    lactation = (1.500000, )\n    vide = ()"
      "\n    currentElementIndex = 0\n    poids = 3\n    voisin = inconnu\n    suite =(%x, )",
      Address32(cow), Address32(cow));
  ASSERT_GE(text.size(), expected.size());
  EXPECT_EQ(text.substr(text.size() - expected.size()), expected);
}

}  // namespace
