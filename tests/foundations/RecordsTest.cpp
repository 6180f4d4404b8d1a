#include "kalve/foundations/Records.h"

#include <gtest/gtest.h>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Tableau.h"
#include "tests/support/ChildProcess.h"

namespace {

TEST(Intervals, RejectLowAboveHighAlone) {
  EXPECT_EQ(FailureOf([] { IntInterval(2, 1); }),
            "\n!!!============== BadIntervalBounds =============="
            "\n!!! La borne inférieure d'un intervalle d'entiers est supérieure à sa borne supérieure."
            "\n!!! intervalle : [2, 1]\n");
  EXPECT_NE(FailureOf([] { FloatInterval(1.5F, 1.25F); }).find("[1.5, 1.25]"), std::string::npos);
  EXPECT_NE(FailureOf([] { DoubleInterval(0.5, -0.5); }).find("[0.5, -0.5]"), std::string::npos);
  EXPECT_EQ(FloatInterval(1.0F, 1.0F).high, 1.0F);
  const double none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(DoubleInterval(none, 1.0).high, 1.0);
}

TEST(Failures, EndWithStatusZeroAndErrorAsLastLine) {
  const ChildOutcome outcome = RunInChild([] { BadClockTimeUnit(static_cast<TimeUnit>(8)); });
  EXPECT_EQ(outcome.exitStatus, 0);
  EXPECT_EQ(outcome.output,
            "\n!!!============== BadClockTimeUnit =============="
            "\n!!! L'unité de temps déclarée (8) n'est pas gérée par le système."
            "\n    Les unités valides sont : SECOND MINUTE HOUR DAY.\nERROR \n");
}

TEST(Failures, SayWhatWasAttempted) {
  EXPECT_EQ(FailureOf([] { OverSpecificationOnParentClass("Cow", "Animal"); }),
            "\n!!!============== OverSpecificationOnParentClass =============="
            "\n!!! Tentative de spécification de sortie sur la classe 'Cow'"
            "\n    alors qu'une spécification sur la classe aparentée 'Animal'"
            "\n    a déjà été faite.!!!\n");
  EXPECT_EQ(
      FailureOf([] { ConnexionFailedToDataBase("herd", "farm"); }),
      "\n!!!============== ConnexionFailedToDataBase =============="
      "Postgresql: Impossible d'établir la connexion\n    data base : 'herd'\n    user name : 'farm'\n");
  EXPECT_EQ(FailureOf([] { Obsolescence("Run", "2007"); }),
            "\n!!!============== Obsolescence =============="
            "\n!!! 'Run' est une obsolescence depuis 2007.\n");
}

TEST(Failures, WarningsPrintOnlyUnderTheirOption) {
  for (int option : {0, 2}) {
    EXPECT_EQ(OutputOf([option] {
                g_KV_TraceWarnings = option;
                BadDate("DateToClockValue", 1, 2, 2008, 4, 5, 6);
              }),
              "");
  }
  EXPECT_EQ(OutputOf([] {
              g_KV_TraceWarnings = 1;
              BadDate("DateToClockValue", 1, 2, 2008, 4, 5, 6);
            }),
            "\n!!! Erreur dans 'DateToClockValue' : (1 2 2008 4 5 6) :"
            "\n    la date est antérieure à la date de début de la simulation.");
}

TEST(Enumerations, TextsOfValueTypesAndTheirGaps) {
  EXPECT_STREQ(ValueTypeToChar(P_DESCVALUESPEC), "P_DESCVALUESPEC");
  EXPECT_STREQ(ValueTypeToChar(P_DESCRIPTOR), "P_DESCRIPTOR");
  EXPECT_STREQ(ValueTypeToChar(NO_VALUE), "UNSPECIFIED_VALUETYPE");
  EXPECT_STREQ(ValueTypeToChar(static_cast<ValueTypeId>(-9)), "UNSPECIFIED_VALUETYPE");
  EXPECT_STREQ(ObjectClassToChar(KV_PROCESS), "KV_PROCESS");
  EXPECT_EQ(ObjectClassToChar(KV_ENTITYSPEC), nullptr);
  EXPECT_EQ(ObjectClassToChar(static_cast<ObjectClassId>(7)), nullptr);
  EXPECT_STREQ(StringActionType(PROCEED), "PROCEED");
  EXPECT_STREQ(StringActionType(UNSPECIFIED_ACTION), "UNSPECIFIED ACTION");
  EXPECT_STREQ(DescriptorSubclassToChar(2), "VARIABLE");
  EXPECT_EQ(DescriptorSubclassToChar(3), nullptr);
  for (TimeUnit unit : {DAY, HOUR, MINUTE, SECOND}) EXPECT_EQ(IndexUnite(TimeUnitToChar(unit)), unit);
  EXPECT_NE(IndexUnite("JOUR"), 0);
}

}  // namespace
