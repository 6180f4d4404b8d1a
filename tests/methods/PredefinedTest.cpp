// The predefined methods and arguments, each against one line of text; the name tables; standard bodies.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "kalve/foundations/NameTables.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/MethodTable.h"
#include "kalve/methods/PredefinedMethods.h"
#include "tests/support/ChildProcess.h"

namespace {

// Id, name, branch and type, "body" with a default body, ids of the arguments in order.
template <class Class>
std::string LineOfMethod() {
  Class method;
  std::string line = std::to_string(method.ClassSymbol()) + " " + method.StoredClassName() + " " +
                     std::to_string(method.ObjectClass()) + "/" + std::to_string(method.ClassType());
  if (method.HasBodyAssigned()) line += " body";
  for (const Argument* argument : method.ArgumentTab()) line += " " + std::to_string(argument->ClassSymbol());
  return line;
}

// Id, name, type.
template <class Class>
std::string LineOfArgument() {
  const Class argument;
  return std::to_string(argument.ClassSymbol()) + " " + argument.ClassName() + " " +
         std::to_string(argument.ClassType());
}

TEST(PredefinedMethods, AreAsListed) {
  EXPECT_EQ(LineOfMethod<ProcessPrecondition>(), "1 processPrecondition 6/2");
  EXPECT_EQ(LineOfMethod<ProcessPostponementDelay>(), "2 processPostponementDelay 6/2");
  EXPECT_EQ(LineOfMethod<ExecProcess>(), "3 execProcess 6/0");
  EXPECT_EQ(LineOfMethod<InitializeProcess>(), "4 initializeProcess 6/0");
  EXPECT_EQ(LineOfMethod<GoOneStepForwardProcess>(), "5 goOneStepForwardProcess 6/0");
  EXPECT_EQ(LineOfMethod<StopProcess>(), "6 stopProcess 6/0");
  EXPECT_EQ(LineOfMethod<PostRead>(), "7 postRead 6/0");
  EXPECT_EQ(LineOfMethod<EventPostConsequence>(), "11 eventPostConsequence 4/0");
  EXPECT_EQ(LineOfMethod<GenerateNextEvent>(), "12 generateNextEvent 4/1 body");
  EXPECT_EQ(LineOfMethod<UpdateNextEvent>(), "13 updateNextEvent 4/0 13");
  EXPECT_EQ(LineOfMethod<DefineNextEventClockTime>(), "14 defineNextEventClockTime 4/2 13");
  EXPECT_EQ(LineOfMethod<RandomizeThisEventClockTime>(), "15 randomizeThisEventClockTime 4/2 body 11 12");
  EXPECT_EQ(LineOfMethod<RandomizeNextEventClockTime>(), "16 randomizeNextEventClockTime 4/2 body 11 12");
  EXPECT_EQ(LineOfMethod<IsPoppingToSuspend>(), "17 isPoppingToSuspend 4/1 body");
  EXPECT_EQ(LineOfMethod<WhenSetInt>(), "21 whenSetInt 5/2 14 21 31");
  EXPECT_EQ(LineOfMethod<WhenSetFloat>(), "22 whenSetFloat 5/3 14 22 32");
  EXPECT_EQ(LineOfMethod<WhenSetDouble>(), "23 whenSetDouble 5/4 14 23 33");
  EXPECT_EQ(LineOfMethod<WhenSetEntity>(), "24 whenSetEntity 5/6 14 25 35");
  EXPECT_EQ(LineOfMethod<WhenSetEntityTab>(), "25 whenSetEntityTab 5/7 14 26 36");
  EXPECT_EQ(LineOfMethod<WhenSetString>(), "26 whenSetString 5/5 14 24 34");
  EXPECT_EQ(LineOfMethod<WhenSetDescValueSpecTab>(), "27 whenSetDescValueSpecTab 5/13 14 27 38");
  EXPECT_EQ(LineOfMethod<WhenGetInt>(), "31 whenGetInt 5/2 14 21");
  EXPECT_EQ(LineOfMethod<WhenGetFloat>(), "32 whenGetFloat 5/3 14 22");
  EXPECT_EQ(LineOfMethod<WhenGetDouble>(), "33 whenGetDouble 5/4 14 23");
  EXPECT_EQ(LineOfMethod<WhenGetEntity>(), "34 whenGetEntity 5/6 14 25");
  EXPECT_EQ(LineOfMethod<WhenGetEntityTab>(), "35 whenGetEntityTab 5/7 14 26");
  EXPECT_EQ(LineOfMethod<WhenGetString>(), "36 whenGetString 5/5 14 24");
  EXPECT_EQ(LineOfMethod<WhenGetDescValueSpecTab>(), "37 whenGetDescValueSpecTab 5/13 14 27");
  EXPECT_EQ(LineOfMethod<WhenAddEntity>(), "41 whenAddEntity 5/6 14 26 35");
  EXPECT_EQ(LineOfMethod<WhenAddDescValueSpec>(), "42 whenAddDescValueSpec 5/12 14 27 37");
  EXPECT_EQ(LineOfMethod<WhenRemoveEntity>(), "43 whenRemoveEntity 5/6 14 26 35");
  EXPECT_EQ(LineOfMethod<WhenRemoveDescValueSpec>(), "44 whenRemoveDescValueSpec 5/12 14 27 37");
  EXPECT_EQ(LineOfMethod<WhenAddElement>(), "48 whenAddElement 5/6 14 39 40");
  EXPECT_EQ(LineOfMethod<WhenRemoveElement>(), "49 whenRemoveElement 5/0 14 39 40");
  EXPECT_EQ(LineOfMethod<EntitySelector>(), "51 selectorPredicate 3/1 41 42");
  EXPECT_EQ(LineOfMethod<EntityInstantiator>(), "52 entityInstantiator 3/6 43 42");
  EXPECT_EQ(LineOfMethod<EntityListInstantiator>(), "53 entityListInstantiator 3/7 43 44 42");
  EXPECT_EQ(LineOfMethod<QuantityEvaluator>(), "54 quantityEvaluator 3/2 42");
}

TEST(PredefinedArguments, AreAsListed) {
  EXPECT_EQ(LineOfArgument<DescriptorIdArgument>(), "1 descriptorIdArgument 2");
  EXPECT_EQ(LineOfArgument<ClockValueArgument>(), "2 clockValueArgument 2");
  EXPECT_EQ(LineOfArgument<IntLowBoundArgument>(), "11 intLowBoundArgument 2");
  EXPECT_EQ(LineOfArgument<IntUpperBoundArgument>(), "12 intUpperBoundArgument 2");
  EXPECT_EQ(LineOfArgument<PreviousEventArgument>(), "13 previousEventArgument 18");
  EXPECT_EQ(LineOfArgument<MonitoredDescriptorArgument>(), "14 monitoredDescriptorArgument 19");
  EXPECT_EQ(LineOfArgument<CurrentIntValueArgument>(), "21 currentIntValueArgument 2");
  EXPECT_EQ(LineOfArgument<CurrentFloatValueArgument>(), "22 currentFloatValueArgument 3");
  EXPECT_EQ(LineOfArgument<CurrentDoubleValueArgument>(), "23 currentDoubleValueArgument 4");
  EXPECT_EQ(LineOfArgument<CurrentStringValueArgument>(), "24 currentStringValueArgument 5");
  EXPECT_EQ(LineOfArgument<CurrentEntityValueArgument>(), "25 currentEntityValueArgument 6");
  EXPECT_EQ(LineOfArgument<CurrentEntityTabValueArgument>(), "26 currentEntityTabValueArgument 7");
  EXPECT_EQ(LineOfArgument<CurrentDescValueSpecTabValueArgument>(),
            "27 currentDescValueSpecTabValueArgument 13");
  EXPECT_EQ(LineOfArgument<CandidateIntValueArgument>(), "31 candidateIntValueArgument 2");
  EXPECT_EQ(LineOfArgument<CandidateFloatValueArgument>(), "32 candidateFloatValueArgument 3");
  EXPECT_EQ(LineOfArgument<CandidateDoubleValueArgument>(), "33 candidateDoubleValueArgument 4");
  EXPECT_EQ(LineOfArgument<CandidateStringValueArgument>(), "34 candidateStringValueArgument 5");
  EXPECT_EQ(LineOfArgument<CandidateEntityValueArgument>(), "35 candidateEntityValueArgument 6");
  EXPECT_EQ(LineOfArgument<CandidateEntityTabValueArgument>(), "36 candidateEntityTabValueArgument 7");
  EXPECT_EQ(LineOfArgument<CandidateDescValueSpecValueArgument>(),
            "37 candidateDescValueSpecValueArgument 12");
  EXPECT_EQ(LineOfArgument<CandidateDescValueSpecTabValueArgument>(),
            "38 candidateDescValueSpecTabValueArgument 13");
  EXPECT_EQ(LineOfArgument<CurrentEntityContainerArgument>(), "39 currentEntityContainerArgument 6");
  EXPECT_EQ(LineOfArgument<CandidateEntityElementArgument>(), "40 candidateEntityElementArgument 6");
  EXPECT_EQ(LineOfArgument<CandidateEntityArgument>(), "41 candidateEntityArgument 6");
  EXPECT_EQ(LineOfArgument<ReferenceEntityArgument>(), "42 referenceEntityArgument 6");
  EXPECT_EQ(LineOfArgument<ClassIdArgument>(), "43 classIdArgument 2");
  EXPECT_EQ(LineOfArgument<ListSizeArgument>(), "44 listSizeArgument 2");
}

TEST(NameTables, KeepTheirOwnPlaces) {
  for (int times = 0; times < 2; ++times) {
    MakeMethodIdToCharTab();
    MakeArgumentIdToCharTab();
  }
  EXPECT_EQ(gMethodIdToCharTabSize, 61);
  EXPECT_EQ(MethodIdToCharTab.size(), 61);
  EXPECT_EQ(gArgumentIdToCharTabSize, 50);
  EXPECT_EQ(ArgumentIdToCharTab.size(), 50);
  struct Entry {
    int id;
    const char* name;
  };
  for (const Entry& e :
       {Entry{0, "@"}, Entry{3, "EXEC_PROCESS"}, Entry{7, "@"}, Entry{11, "EVENT_POSTCONSEQUENCE"},
        Entry{17, "IS_POPPING_TO_SUSPEND"}, Entry{26, "WHEN_SET_STRING"},
        Entry{27, "WHEN_SET_DESCVALUESPECTAB"}, Entry{36, "WHEN_GET_STRING"},
        Entry{44, "WHEN_REMOVE_DESCVALUESPEC"}, Entry{45, "WHEN_ADD_ELEMENT"},
        Entry{46, "WHEN_REMOVE_ELEMENT"}, Entry{48, "@"}, Entry{49, "@"}, Entry{54, "QUANTITY_EVALUATOR"},
        Entry{57, "SPEC_SATISFIED"}, Entry{60, "@"}})
    EXPECT_STREQ(MethodIdToString(e.id), e.name) << e.id;
  for (const Entry& e :
       {Entry{2, "LISTSIZE_ARGUMENT"}, Entry{13, "PREVIOUS_EVENT_ARGUMENT"}, Entry{14, "@"},
        Entry{15, "MONITOREDDESCRIPTOR_ARGUMENT"}, Entry{21, "CURRENTINTVALUE_ARGUMENT"},
        Entry{27, "CURRENTDESCVALUESPECTABVALUE_ARGUMENT"},
        Entry{38, "CANDIDATEDESCVALUESPECTABVALUE_ARGUMENT"}, Entry{39, "@"},
        Entry{40, "CURRENTENTITYCONTAINER_ARGUMENT"}, Entry{41, "CANDIDATEENTITYELEMENT_ARGUMENT"},
        Entry{42, "@"}, Entry{43, "CANDIDATEENTITY_ARGUMENT"}, Entry{46, "LISTSIZE_ARGUMENT"},
        Entry{49, "@"}})
    EXPECT_STREQ(ArgumentIdToString(e.id), e.name) << e.id;
  EXPECT_EQ(RunInChild([] { MethodIdToString(61); }).output,
            "\n!!! Indice hors tableau dans 'MethodIdToString' : indice 61, taille du tableau 61.\nERROR \n");
  EXPECT_EQ(
      RunInChild([] { ArgumentIdToString(-9); }).output,
      "\n!!! Indice hors tableau dans 'ArgumentIdToString' : indice -9, taille du tableau 50.\nERROR \n");
}

TEST(PredefinedMethods, DrawDelaysBetweenTheirBounds) {
  RandomizeThisEventClockTime method;
  method.SetArgValue(INT_LOW_BOUND_ARGUMENT, -2);
  method.SetArgValue(INT_UPPER_BOUND_ARGUMENT, 3);
  std::srand(5);
  int seen = 0;
  for (int draw = 0; draw < 500; ++draw) {
    const int delay = method.Call<int>();
    ASSERT_GE(delay, -2);
    ASSERT_LE(delay, 3);
    seen |= 1 << (delay + 2);
  }
  EXPECT_EQ(seen, 63);
  method.SetArgValue(INT_LOW_BOUND_ARGUMENT, 3);
  EXPECT_EQ(method.Call<int>(), 3);
  EXPECT_FALSE(IsPoppingToSuspend().Call<bool>());
}

}  // namespace
