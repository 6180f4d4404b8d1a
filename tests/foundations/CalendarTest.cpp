#include <gtest/gtest.h>
#include <sys/time.h>

#include <cstdlib>
#include <ctime>
#include <iostream>
#include <sstream>
#include <string>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Chronometer.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/Tableau.h"
#include "tests/support/ChildProcess.h"

namespace {

constexpr const char* paris = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr const char* newYork = "EST5EDT,M3.2.0,M11.1.0";
constexpr const char* utc = "UTC0";

/// A simulation in a time zone of its own.
class SimulationIn {
 public:
  explicit SimulationIn(const char* zone, TimeUnit unit = SECOND, int quantity = 1) {
    setenv("TZ", zone, 1);
    tzset();
    pCurrentSim = new Simulation;
    pCurrentSim->ClockTimeUnit(unit);
    pCurrentSim->ClockTimeUnitQuantity(quantity);
  }
  SimulationIn(const SimulationIn&) = delete;
  SimulationIn& operator=(const SimulationIn&) = delete;
  ~SimulationIn() {
    delete pCurrentSim;
    pCurrentSim = nullptr;
  }
};

/// The text of a tm that the call gave away.
std::string Iso(std::tm* time) {
  StructTmToStringISO(time);
  delete time;
  return gTimeString;
}

std::string DayAndHour(int clock) {
  const Date date = ClockValueToDate(clock);
  return std::to_string(date.day) + "/" + std::to_string(date.month) + " " + std::to_string(date.hour) + "h";
}

// Clock and dates --------------------------------------------------------------------------------------

TEST(Clock, CountsWholeTicksOfItsUnit) {
  struct Case {
    TimeUnit unit;
    int quantity;
    long seconds;
    int ticks;
    long secondsBack;
  };
  const auto noUnit = static_cast<TimeUnit>(-1);
  for (const Case& c :
       {Case{SECOND, 10, 25, 2, 20}, Case{MINUTE, 5, 899, 2, 600}, Case{HOUR, 2, 7199, 0, 0},
        Case{HOUR, 1, 36000, 10, 36000}, Case{DAY, 1, 90000, 1, 86400}, Case{DAY, 1, 82800, 1, 86400},
        Case{DAY, 7, 86400L * 20, 2, 86400L * 14}, Case{DAY, 7, 86400L * 7 - 3600, 1, 86400L * 7},
        Case{DAY, 1, 82799, 0, 0}, Case{SECOND, 0, 25, 0, 0}, Case{noUnit, 1, 25, 0, -1},
        Case{DAY, 1, 86400L * 100000, 100000, 86400L * 100000},
        Case{SECOND, 1, 1L << 33, K_INTMAX, K_INTMAX}}) {
    const SimulationIn simulation(utc, c.unit, c.quantity);
    EXPECT_EQ(TimeIntervalToClockNumber(c.seconds), c.ticks) << c.unit << " " << c.seconds;
    EXPECT_EQ(ClockNumberToTimeInterval(c.ticks), c.secondsBack) << c.unit << " " << c.seconds;
  }
}

TEST(Clock, TicksBeyondTheCalendarStayAhead) {
  for (TimeUnit unit : {SECOND, MINUTE, HOUR, DAY}) {
    const SimulationIn simulation(utc, unit, K_INTMAX);
    EXPECT_GT(ClockNumberToTimeInterval(K_INTMAX), 1L << 61) << unit;
    EXPECT_LT(ClockNumberToTimeInterval(-K_INTMAX), -(1L << 61)) << unit;
    ClockValueToDate(K_INTMAX);
  }
}

TEST(Clock, DaysKeepTheirHourAcrossSummerTimeAndHoursDoNot) {
  SimulationIn simulation(paris, DAY);
  pCurrentSim->SetBeginningDate(29, 3, 2008, 8, 0, 0);
  EXPECT_EQ(DayAndHour(1), "30/3 8h");
  EXPECT_EQ(DateToClockValue(30, 3, 2008, 8, 0, 0), 1);
  EXPECT_EQ(DayAndHour(211), "26/10 8h");
  EXPECT_EQ(DateToClockValue(26, 10, 2008, 8, 0, 0), 211);
  pCurrentSim->ClockTimeUnit(HOUR);
  EXPECT_EQ(DayAndHour(24), "30/3 9h");
  EXPECT_EQ(DateToClockValue(30, 3, 2008, 8, 0, 0), 23);
}

TEST(Clock, AChangeOfSummerTimeCorrectsIntervalsInDaysAlone) {
  SimulationIn simulation(paris, DAY, 2);
  EXPECT_EQ(ClockIntervalToTimeInterval(3, 0, 0), 518400);
  EXPECT_EQ(ClockIntervalToTimeInterval(3, 0, 1), 522000);
  EXPECT_EQ(ClockIntervalToTimeInterval(3, 1, 0), 514800);
  pCurrentSim->ClockTimeUnit(HOUR);
  EXPECT_EQ(ClockIntervalToTimeInterval(3, 0, 1), 21600);
}

TEST(Clock, EveryUnitAnswersTheDatesItWasGiven) {
  for (const char* zone : {paris, newYork, utc}) {
    for (TimeUnit unit : {SECOND, MINUTE, HOUR, DAY}) {
      SimulationIn simulation(zone, unit, 3);
      pCurrentSim->SetBeginningDate(10, 2, 2008, 5, 30, 20);
      for (int clock : {0, 1, 17, 60}) {
        std::tm* const time = ClockToTm(clock);
        EXPECT_EQ(StructTmToClockValue(time), clock) << zone << unit;
        const Date date = ClockToDate(clock);
        EXPECT_EQ(DateToClock(date.day, date.month, date.year, date.hour, date.minute, date.second), clock);
        Date* const copy = StructTmToDate(time);
        EXPECT_EQ(*copy, date);
        delete copy;
        delete time;
      }
    }
  }
}

TEST(Clock, DaysAreNumberedAcrossYears) {
  SimulationIn simulation(paris, DAY);
  pCurrentSim->SetBeginningDate(30, 12, 2007, 0, 0, 0);
  EXPECT_EQ(ClockValueToDays(-1), -9);
  for (int clock : {0, 1, 2, 91, 367, 368, 2000}) EXPECT_EQ(ClockToDays(clock), clock + 1);
  pCurrentSim->ClockTimeUnit(HOUR);
  EXPECT_EQ(ClockToDays(23), 1);
  EXPECT_EQ(ClockToDays(48), 3);
}

TEST(Clock, DatesBeforeTheBeginningAreMinusNineAndWarned) {
  SimulationIn simulation(paris, HOUR);
  pCurrentSim->SetBeginningDate(2, 5, 2008, 8, 0, 0);
  EXPECT_EQ(DateToRelativeTime(2, 5, 2008, 9, 0, 1), 3601);
  EXPECT_EQ(DateToClockValue(3, 5, 2008), 16);
  const auto warning = [](const char* where, const char* date) {
    return std::string("\n!!! Erreur dans '") + where + "' : (" + date +
           ") :\n    la date est antérieure à la date de début de la simulation.";
  };
  EXPECT_EQ(OutputOf([] {
              g_KV_TraceWarnings = 1;
              if (DateToClockValue(2, 5, 2008, 7, 59, 58) != -9) std::cout << "clock";
              if (DateToRelativeTime(1, 5, 2008, 1, 2, 3) != -9) std::cout << "seconds";
              std::tm* const time = DateToTm(31, 1, 2007, 4, 5, 6);
              if (StructTmToClockValue(time) != -9) std::cout << "tm";
              delete time;
            }),
            warning("DateToClockValue", "2 5 2008 7 59 58") +
                warning("DateToRelativeTime", "1 5 2008 1 2 3") +
                warning("StructTmToClockValue", "31 1 2007 4 5 6"));
  EXPECT_EQ(OutputOf([] {
              if (DateToClockValue(2, 5, 2008) != -9) std::cout << "clock";
            }),
            "");
}

TEST(Clock, NegativeClocksAndUnknownUnits) {
  SimulationIn simulation(paris, HOUR);
  EXPECT_EQ(ClockValueToDate(-1), Date(-9, -9, -9, -9, -9, -9));
  EXPECT_EQ(FailureOf([] { delete ClockValueToTm(-3); }),
            "\n!!!============== BadClockValueForTm =============="
            "\n!!! On cherche à établir une date calendaire,\n    avec une valeur d'horloge négative : -3\n");
  pCurrentSim->ClockTimeUnit(static_cast<TimeUnit>(4));
  EXPECT_NE(FailureOf([] { ClockValueToDate(0); }).find("BadClockTimeUnit"), std::string::npos);
}

// Absolute times and tm --------------------------------------------------------------------------------

TEST(Calendar, ReadsDatesAsUtc) {
  struct Case {
    const char* zone;
    const char* local;  // of the UTC date below
    int month;
    int day;
    int hour;
  };
  for (const Case& c : {Case{paris, "2008-01-15T13:30:00+01:00", 1, 15, 12},
                        Case{paris, "2008-07-15T14:30:00+02:00", 7, 15, 12},
                        Case{paris, "2008-03-30T01:30:00+01:00", 3, 30, 0},
                        Case{paris, "2008-03-30T03:30:00+02:00", 3, 30, 1},
                        Case{paris, "2008-10-26T02:30:00+02:00", 10, 26, 0},
                        Case{paris, "2008-10-26T02:30:00+01:00", 10, 26, 1},
                        Case{paris, "2008-02-01T00:30:00+01:00", 1, 31, 23},
                        Case{paris, "2008-07-01T00:30:00+02:00", 6, 30, 22},
                        Case{paris, "2008-07-01T01:30:00+02:00", 6, 30, 23},
                        Case{newYork, "2008-01-15T07:30:00-0-5:00", 1, 15, 12},
                        Case{newYork, "2008-01-14T22:30:00-0-5:00", 1, 15, 3},
                        Case{utc, "2008-01-15T12:30:00+00:00", 1, 15, 12}}) {
    const SimulationIn simulation(c.zone);
    UTCDateToLocalStringISO(c.day, c.month, 2008, c.hour, 30, 0);
    EXPECT_STREQ(gTimeString, c.local);
  }
  // The hour that is local midnight counts a day too many unless the zone lies east.
  for (const auto& [zone, hour] : {std::pair{utc, 0}, std::pair{newYork, 5}}) {
    const SimulationIn simulation(zone);
    std::tm wanted{};
    wanted.tm_year = 108;
    wanted.tm_mday = 15;
    wanted.tm_hour = hour;
    EXPECT_EQ(UTCDateToAbsoluteTime(15, 1, 2008, hour, 0, 0), timegm(&wanted) + 86400) << zone;
  }
}

TEST(Calendar, MakesBrokenDownTimes) {
  SimulationIn simulation(paris);
  EXPECT_EQ(g_KV_gmtoff, 3600);
  EXPECT_EQ(Iso(DateToTm(31, 2, 2008, 25, 61, 61)), "2008-03-03T02:02:01+01:00");
  EXPECT_EQ(Iso(DateToTm(5, 9, 2008, 8, 3, 9)), "2008-09-05T08:03:09+02:00");
  EXPECT_EQ(Iso(UTCDateToTm(5, 9, 2008, 8, 3, 9)), "2008-09-05T08:03:09+00:00");
  Date date(2008, 12, 31, 23, 59, 58);
  EXPECT_EQ(Iso(DateToTm2(&date)), "2008-12-31T23:59:58+01:00");
  EXPECT_EQ(DateToAbsoluteTime2(&date), 1230764398);
  EXPECT_EQ(DateToAbsoluteTime(31, 12, 2008, 23, 59, 58), 1230764398);
  std::tm* const now = CurrentRealDateToTm();
  EXPECT_LE(std::time(nullptr) - std::mktime(now), 2);
  delete now;
}

TEST(Calendar, ReadsIsoTexts) {
  struct Case {
    const char* text;
    const char* read;
  };
  SimulationIn simulation(paris);
  for (const Case& c :
       {Case{"2008-09-05T08:03:09+01:00", "2008-09-05T08:03:09+01:00"},
        Case{"2008-9-5T8:3:9+11:00", "2008-09-05T08:03:09+11:00"},
        Case{"2008-03-30T02:30:00+01:00", "2008-03-30T02:30:00+01:00"},  // an hour that local time skips
        Case{"2008-09-05T08:03:09-0-5:00", "2008-09-05T08:03:09+00:00"},
        Case{"2008-09-05T08:03", "2008-09-05T08:03:00+00:00"},
        Case{"2008-09-05", "2008-09-05T00:00:00+00:00"},
        Case{"2008-09-05T08:03:09+01:00 and a tail that no buffer holds", "2008-09-05T08:03:09+01:00"}})
    EXPECT_EQ(Iso(StringISOToTm(c.text)), c.read);
  delete StringISOToTm("");
  delete StringISOToTm("99999999999999999999-99999999999T:::+999999999");
}

TEST(Calendar, WritesTexts) {
  SimulationIn simulation(paris, DAY);
  pCurrentSim->SetBeginningDate(5, 9, 2008, 8, 3, 9);
  std::tm* const summer = ClockValueToTm(0);
  StructTmToChar(summer);
  EXPECT_STREQ(gTimeString, "05/09/2008 08h03'09''");
  StructTmToChar(summer, 1);
  EXPECT_STREQ(gTimeString, "05/09/2008 08h03'09'' (heure d'été)");
  StructLocalTmToUTCStringISO(summer);
  EXPECT_STREQ(gTimeString, "2008-09-05T06:03:09+00:00");
  delete summer;
  std::tm* const winter = ClockValueToTm(100);
  StructTmToChar(winter, 1);
  EXPECT_STREQ(gTimeString, "14/12/2008 08h03'09''");
  delete winter;
  char* const iso = ClockValueToStringISO(100);
  EXPECT_STREQ(iso, "2008-12-14T08:03:09+01:00");
  std::free(iso);
  for (const auto& [month, text] : {std::pair{9, "5/09/2008 8h3'9''"}, std::pair{10, "5/10/2008 8h3'9''"}}) {
    Date date(2008, month, 5, 8, 3, 9);
    StructDateToChar(&date);
    EXPECT_STREQ(gTimeString, text);
  }
}

TEST(Calendar, NamesOfDaysAndMonths) {
  for (int month = 1; month <= 12; ++month) EXPECT_EQ(IndexMonth(MonthToChar(month)), month);
  EXPECT_EQ(IndexMonth("MRS"), 3);
  EXPECT_NE(IndexMonth("NRS"), 0);
  EXPECT_EQ(MonthToChar(0), nullptr);
  EXPECT_EQ(MonthToChar(13), nullptr);
  const auto joined = [](const Tableau<const char*>& table) {
    std::string names;
    for (const char* name : table) names += std::string(name) + " ";
    return names;
  };
  for (int time = 0; time < 2; ++time) {
    K_MakeShortWeekDayNameToCharTab();
    K_MakeShortWeekDayNameToCharTab2();
    K_MakeShortMonthNameToCharTab();
    K_MakeShortMonthNameToCharTab2();
  }
  EXPECT_EQ(joined(ShortWeekDayNameToCharTab), "DIM LUN MAR MER JEU VEN SAM ");
  EXPECT_EQ(joined(ShortWeekDayNameToCharTab2), "SUN MON THU WED TUE FRI SAT ");
  EXPECT_EQ(joined(ShortMonthNameToCharTab), "JAN FEV NRS AVR MAI JUN JUI AOU SEP OCT NOV DEC ");
  EXPECT_EQ(joined(ShortMonthNameToCharTab2), "JAN FEB NRS APR MAI JUN JUI AUG SEP OCT NOV DEC ");
}

// Printed dates ----------------------------------------------------------------------------------------

std::string Printed(int clock, TimeType format) {
  char* text = nullptr;
  std::size_t size = 0;
  FILE* const file = open_memstream(&text, &size);
  PrintDate(file, clock, format);
  std::fclose(file);
  std::string printed(text, size);
  std::free(text);
  return printed;
}

std::string Streamed(int clock, TimeType format) {
  std::ostringstream stream;
  OutputDateFromClock(clock, format, stream);
  return stream.str();
}

std::string Traced(int clock, TimeType format) {
  testing::internal::CaptureStdout();
  TraceDateFromClock(clock, format);
  std::cout.flush();
  return testing::internal::GetCapturedStdout();
}

constexpr auto unknownFormat = static_cast<TimeType>(7);

TEST(PrintedDates, InEveryFormat) {
  struct Case {
    TimeType format;
    int clock;
    const char* printed;
    const char* streamed;
    const char* traced;
  };
  SimulationIn simulation(paris, DAY);
  pCurrentSim->SetBeginningDate(5, 8, 2008, 8, 3, 9);
  for (const Case& c :
       {Case{CLOCK, 31, "\t31", "31", "31"},
        Case{MIN_HOUR_YEARDAY, 31, "\t3\t8\t249", "min : ; 3 ; h : ; 8 ; jour : ; 249 | ",
             "03min 08h j : 249"},
        Case{YEARDAY_HOUR_MIN, 31, "\t249\t8\t3", "jour 249 ; 8h3' | ", "j : 249 03min 08h"},
        Case{SIMDAY_HOUR_MIN, 31, "\t32\t8\t3", "jour 32 ; 8h3' | ", "jour 32 08h 03min"},
        Case{HOUR_DAY_MONTH, 31, "\t8\t5\t9", "h : ; 8 ; j : ; 5 ; m : ; 9 | ", "08H 5/9"},
        Case{DAY_MONTH_YEAR, 31, "\t5\t9\t2008", "j : ; 5 ; m : ; 9 ; a : ; 2008 ;  | ", "5/9/2008"},
        Case{ISO_8601, 0, "\t2008-08-05 08:03:09", "2008-08-05 08:03:09", "2008-08-05 08:03:09"},
        Case{ISO_8601, 31, "\t2008-9-05 08:03:09", "2008-9-05 08:03:09", "2008-09-05 08:03:09"},
        Case{ISO_8601, 71, "\t2008-10-15 08:03:09", "2008-10-15 08:03:09", "2008-10-15 08:03:09"},
        Case{CLOCK, -1, "\tNot a Date", "\tNot a Date | ", "\tNot a Date\n"},
        Case{ISO_8601, -9, "\tNot a Date", "\tNot a Date | ", "\tNot a Date\n"},
        Case{unknownFormat, -9, "\tNot a Date", "\tNot a Date | ", "\tNot a Date\n"}}) {
    EXPECT_EQ(Printed(c.clock, c.format), c.printed);
    EXPECT_EQ(Streamed(c.clock, c.format), c.streamed);
    EXPECT_EQ(Traced(c.clock, c.format), c.traced);
  }
  EXPECT_EQ(OutputOf([] { CoutDate(31, DAY_MONTH_YEAR); }), "j : ; 5 ; m : ; 9 ; a : ; 2008 ;  | ");
}

TEST(PrintedDates, UnknownFormatsAreToldBesideTheText) {
  SimulationIn simulation(paris);
  EXPECT_EQ(OutputOf([] { EXPECT_EQ(Printed(0, unknownFormat), ""); }),
            "\n!!! PrintDate : format de date inconnu\n");
  EXPECT_EQ(Traced(0, unknownFormat), "\n!!! OutputDate : format de date inconnu\n");
  testing::internal::CaptureStderr();
  EXPECT_EQ(Streamed(0, unknownFormat), " | ");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "\n!!! OutputDate : format de date inconnu\n");
}

TEST(PrintedDates, TheClockAloneNeedsNoUnit) {
  SimulationIn simulation(utc, static_cast<TimeUnit>(-1), -1);
  EXPECT_EQ(Printed(4, CLOCK) + Streamed(4, CLOCK) + Traced(4, CLOCK), "\t444");
}

// Real time --------------------------------------------------------------------------------------------

TEST(Chronometer, WritesWhatItAccumulated) {
  struct Case {
    long micro;
    const char* byMicro;
    const char* byMilli;
    const char* byHour;
  };
  for (const Case& c :
       {Case{499999, "0s 499ms 999", "0''499", "0h00'00"}, Case{7, "0s 000ms 007", "0''000", "0h00'00"},
        Case{1200000, "1s 200ms 000", "1''200", "0h00'02"},
        Case{3723045067, "3723s 045ms 067", "3723''045", "1h02'04"}}) {
    gMicrocumul = c.micro;
    MicroPrintChrono();
    EXPECT_STREQ(gTimeString, c.byMicro);
    MilliPrintChrono();
    EXPECT_STREQ(gTimeString, c.byMilli);
    PrintChrono();
    EXPECT_STREQ(gTimeString, c.byHour);
  }
}

TEST(Chronometer, AccumulatesFromTheLastStart) {
  InitChrono();
  StartChrono();
  EXPECT_TRUE(IsChronometerActive());
  gSecDeb -= 10;
  PauseChrono();
  EXPECT_EQ(gMicrocumul / 1000000, 10);
  PauseChrono();  // the same ten seconds again
  EXPECT_EQ(gMicrocumul / 1000000, 20);
  CloseChrono();
  EXPECT_NE(mytp, nullptr);
  EXPECT_FALSE(IsChronometerActive());
  InitChrono();
  EXPECT_EQ(gMicrocumul, 0);
  CloseChrono();
}

TEST(Chronometer, FailsOutsideItsOrder) {
  const std::string text = " : le chronomètre n'a pas été initialisé par InitChrono()";
  const std::string banner = "\n!!!============== BadChronometerHandling ==============\n!!! ";
  EXPECT_EQ(FailureOf(StartChrono), banner + "StartChrono" + text + ".\n");
  EXPECT_EQ(FailureOf(CloseChrono), banner + "CloseChrono" + text + ".\n");
  EXPECT_EQ(FailureOf(PauseChrono),
            banner + "PauseChrono" + text + " ou n'a pas été lancé par StarChrono().\n");
  const auto closed = [] {
    InitChrono();
    CloseChrono();
    StartChrono();
  };
  EXPECT_EQ(FailureOf(closed), banner + "StartChrono" + text + ".\n");
  const auto notStarted = [] {
    gSecDeb = gUSecDeb = 0;
    InitChrono();
    PauseChrono();
  };
  EXPECT_NE(FailureOf(notStarted).find("StarChrono"), std::string::npos);
}

TEST(Wait, LastsAtLeastItsMilliseconds) {
  for (int ms : {0, 3}) {
    timeval before{};
    timeval after{};
    gettimeofday(&before, nullptr);
    Kalve_millisleep(ms);
    gettimeofday(&after, nullptr);
    const long micro = (after.tv_sec - before.tv_sec) * 1000000 + after.tv_usec - before.tv_usec;
    EXPECT_GT(micro, ms * 1000);
    EXPECT_LT(micro, ms * 1000 + 2000000);
  }
}

}  // namespace
