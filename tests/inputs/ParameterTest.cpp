// Parameters: creation, look-up by names and type, dates, teardown.
#include "kalve/inputs/Parameter.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "tests/support/ChildProcess.h"

namespace {

/// "Herd size" as an integer and, younger, as a real; a text, a date, and an integer in a group.
class ParameterTest : public testing::Test {
 protected:
  ParameterTest() {
    CreateParameter(INT, "Herd", "size", {.intValue = 40});
    CreateParameter(DOUBLE, "Herd", "size", {.doubleValue = 41.5});
    char breed[] = "salers";
    CreateParameter(STRING, "Herd", "breed", {.stringValue = breed});
    CreateParameter(VOID, "Herd", "turnout",
                    {.entityValue = reinterpret_cast<BasicEntity*>(new Date(2024, 3, 1, 8, 0, 0))});
    CreateParameter(INT, "Cow", "ration", {.intValue = 12}, "feeding");
    kept = Parameter::mpInstanceTab;
  }
  ~ParameterTest() override { DeleteParameters(); }

  Tableau<Parameter*> kept;  // reached from here, they are no leak where a failure ends a child
};

TEST_F(ParameterTest, IsFoundByNamesAndType) {
  EXPECT_EQ(GetIntParameterValue("Herd", "size"), 40);
  EXPECT_EQ(GetRealParameterValue("Herd", "size"), 41.5);
  EXPECT_STREQ(GetStringParameterValue("Herd", "breed"), "salers");
  EXPECT_EQ(*GetDateParameterValue("Herd", "turnout"), Date(2024, 3, 1, 8, 0, 0));
  EXPECT_EQ(GetParameter("Herd", "size")->ValueType(), INT);
  EXPECT_EQ(GetParameter("Herd", "size")->Group(), nullptr);
  EXPECT_STREQ(GetParameter("Cow", "ration")->Group(), "feeding");
}

TEST_F(ParameterTest, IsSetInPlaceAndTheOldestOfItsNames) {
  CreateParameter(INT, "Herd", "size", {.intValue = 1});
  SetIntParameterValue("Herd", "size", 44);
  SetRealParameterValue("Herd", "size", 0.25);
  SetStringParameterValue("Herd", "breed", "");
  EXPECT_EQ(GetIntParameterValue("Herd", "size"), 44);
  EXPECT_EQ(static_cast<IntParameter*>(Parameter::mpInstanceTab.back())->GetIntValue(), 1);
  EXPECT_EQ(GetRealParameterValue("Herd", "size"), 0.25);
  EXPECT_STREQ(GetStringParameterValue("Herd", "breed"), "");
}

TEST_F(ParameterTest, OfAnotherTypeIsNotCreated) {
  const int before = Parameter::mInstanceNumber;
  for (const ValueTypeId type : {FLOAT, BOOLEAN, P_ENTITY, NO_VALUE})
    CreateParameter(type, "Herd", "weight", {.doubleValue = 1.0}, "g");
  EXPECT_EQ(Parameter::mpInstanceTab.size(), 5);
  EXPECT_EQ(Parameter::mInstanceNumber, before);
}

TEST_F(ParameterTest, FailsInTheWordsOfItsAccessor) {
  struct Case {
    void (*access)(const char*, const char*);
    const char* type;
    const char* operation;
  };
  const Case cases[] = {
      {[](auto a, auto b) { GetIntParameterValue(a, b); }, "entier", "get value"},
      {[](auto a, auto b) { SetIntParameterValue(a, b, 1); }, "entier", "set value"},
      {[](auto a, auto b) { GetRealParameterValue(a, b); }, "réel", "get value"},
      {[](auto a, auto b) { SetRealParameterValue(a, b, 1.0); }, "réel", "set value"},
      {[](auto a, auto b) { GetStringParameterValue(a, b); }, "chaîne de caractères", "get value"},
      {[](auto a, auto b) { SetStringParameterValue(a, b, "x"); }, "chaîne de caractères", "set value"},
      {[](auto a, auto b) { GetDateParameterValue(a, b); }, "date", "get value"},
      {[](auto a, auto b) { GetTmParameterValue(a, b); }, "date", "get value"},
      {[](auto a, auto b) { GetClockParameterValue(a, b); }, "Date", "get clock"},
      {[](auto a, auto b) { GetJulianDayParameterValue(a, b); }, "Date", "get jDay"},
  };
  for (const Case& c : cases) {
    const bool wantsDate = std::tolower(*c.type) == 'd';
    const char* name = wantsDate ? "breed" : "turnout";  // which has another type
    EXPECT_EQ(FailureOf([&] { c.access("Herd", name); }),
              std::string("\n!!!============== InexistantTypedParameter =============="
                          "\n!!! Il n'existe pas de paramètre 'Herd ") +
                  name + "' de type " + c.type + ".\n    Opération en cours : '" + c.operation + "'.\n");
  }
  EXPECT_EQ(FailureOf([] { GetParameter("Herd", "age"); }),
            "\n!!!============== InexistantParameter =============="
            "\n!!! Il n'existe pas de paramètre 'Herd age'.\n");
  EXPECT_NE(FailureOf([] {
              DateParameter dateless(strdup("Herd"), strdup("sale"));
              dateless.GetClockValue();
            }).find("BadDateParameterValue"),
            std::string::npos);
}

TEST_F(ParameterTest, AnswersItsDateAsClockTmAndDayOfTheYear) {
  setenv("TZ", "UTC0", 1);
  tzset();
  Simulation simulation;
  pCurrentSim = &simulation;
  simulation.ClockTimeUnit(HOUR);
  simulation.ClockTimeUnitQuantity(1);
  simulation.SetBeginningDate(28, 2, 2024);
  EXPECT_EQ(GetClockParameterValue("Herd", "turnout"), 56);
  EXPECT_EQ(GetJulianDayParameterValue("Herd", "turnout"), 61);
  const std::unique_ptr<std::tm> time(GetTmParameterValue("Herd", "turnout"));
  EXPECT_EQ(time->tm_mday * 100 + time->tm_hour, 108);
  const std::string warning =
      "(1 3 2024 8 0 0) :\n    la date est antérieure à la date de début de la simulation.";
  EXPECT_EQ(OutputOf([&] {
              g_KV_TraceWarnings = 1;
              simulation.SetBeginningDate(2, 3, 2024);
              std::printf("%d", GetClockParameterValue("Herd", "turnout"));
            }),
            "\n!!! Erreur dans 'DateToClockValue' : " + warning +
                "\n!!! Erreur dans 'Parameter::GetClockValue' : " + warning + "-9");
  pCurrentSim = nullptr;
}

TEST(Parameter, TakesOverNamesAndDatesAndNeverDeletesAReplacedDate) {
  const int alive = Parameter::getNbConst() - Parameter::getNbDest();
  Date first(2024, 1, 1, 0, 0, 0);
  {
    DateParameter date(strdup("Herd"), strdup("birth"), strdup("calendar"));
    EXPECT_STREQ(date.Group(), "calendar");
    date.SetValue(&first);
    date.SetValue(new Date(2025, 1, 1, 0, 0, 0));
    EXPECT_EQ(first.year, 2024);
    Parameter::AddInstance(&date);
  }
  EXPECT_EQ(Parameter::mpInstanceTab.size(), 0) << "a dead parameter is still listed";
  for (const ValueTypeId type : {INT, DOUBLE, STRING, VOID}) CreateParameter(type, "a", "b", {}, "g");
  EXPECT_EQ(Parameter::getNbConst() - Parameter::getNbDest(), alive + 4);
  const int number = Parameter::mInstanceNumber;
  DeleteParameters();
  EXPECT_EQ(Parameter::getNbConst() - Parameter::getNbDest(), alive);
  EXPECT_EQ(Parameter::mpInstanceTab.size(), 0);
  EXPECT_EQ(Parameter::mInstanceNumber, number);
}

TEST(Parameter, TracesItsLife) {
  const std::string output = OutputOf([] {
    g_KV_TraceNewDelMode = 1;
    auto* real = new RealParameter(strdup("a"), strdup("b"));
    std::printf("|%p|", static_cast<void*>(real));
    delete real;
  });
  const std::string address = output.substr(output.find('|') + 1, output.rfind('|') - output.find('|') - 1);
  EXPECT_EQ(output, "\n-Construction du paramètre " + address + "\n+Construction de -RParam- " + address +
                        "|" + address + "|-Destruction du paramètre " + address);
}

}  // namespace
