#include "kalve/parsers/Moments.h"

#include <ctime>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/FailureReport.h"

namespace {

int DaysOfMonth(int month, int year) {
  constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return month == 2 && isLeap ? 29 : days[month - 1];
}

/// A 29 February without a year waits for the year.
std::string DayFault(int day, int month, std::optional<int> year) {
  constexpr int leapYear = 2000;
  if (day >= 1 && day <= DaysOfMonth(month, year.value_or(leapYear))) return "";
  const std::string shownYear = year ? Text(" %d", *year) : std::string();
  return Text("le jour %d %s%s n'existe pas", day, MonthToChar(month), shownYear.c_str());
}

/// 0 for none. The inverse is asked too: for an unknown word IndexMonth may answer the number of a month.
int MonthNumber(const std::string& month) {
  const int number = IndexMonth(month.c_str());
  const char* name = number >= 1 && number <= 12 ? MonthToChar(number) : nullptr;
  return name != nullptr && month == name ? number : 0;
}

long SecondsOf(TimeUnit unit) {
  constexpr long seconds[] = {86400, 3600, 60, 1};
  return seconds[unit];
}

long SecondsPerTick() {
  return SecondsOf(pCurrentSim->ClockTimeUnit()) * pCurrentSim->ClockTimeUnitQuantity();
}

void CheckHasClockUnit(const Position& where, const char* asking = "une date") {
  if (pCurrentSim->ClockTimeUnitQuantity() < 1 || TimeUnitToChar(pCurrentSim->ClockTimeUnit()) == nullptr)
    FaultInFile(where,
                Text("%s demande une unité d'horloge (CLOCK dans le fichier de la simulation)", asking));
}

Date Today(const Date& time) {
  const std::time_t now = std::time(nullptr);
  std::tm today{};
  localtime_r(&now, &today);
  return {today.tm_year + 1900, today.tm_mon + 1, today.tm_mday, time.hour, time.minute, time.second};
}

}  // namespace

std::string TimeFault(const TimeOfDay& time) {
  const auto [hour, minute, second] = time;
  if (hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59) return "";
  return Text("l'heure %02d:%02d:%02d n'existe pas", hour, minute, second);
}

std::string DateFault(int day, const std::string& month, std::optional<int> year) {
  const int number = MonthNumber(month);
  if (number == 0)
    return Text("lu : %s ; attendu : JAN, FEV, MRS, AVR, MAI, JUN, JUL, AOU, SEP, OCT, NOV ou DEC",
                Quoted(month).c_str());
  if (year && (*year < 0 || *year > 9999))
    return Text("l'année %d n'est pas comprise entre 0 et 9999", *year);
  if (year) year = FullYear(*year);
  return DayFault(day, number, year);
}

TimeOfDay CheckedTime(const Position& where, int hour, int minute, int second) {
  const TimeOfDay time = {hour, minute, second};
  if (const std::string fault = TimeFault(time); !fault.empty()) FaultInFile(where, fault);
  return time;
}

Date CheckedDate(const Position& where, int day, const std::string& month, std::optional<int> year,
                 const TimeOfDay& time) {
  if (const std::string fault = DateFault(day, month, year); !fault.empty()) FaultInFile(where, fault);
  const int fullYear = year ? FullYear(*year) : K_INT_UNSIGNIFICANT;
  return {fullYear, MonthNumber(month), day, time.hour, time.minute, time.second};
}

TimeUnit CheckedUnit(const Position& where, const std::string& unit) {
  const auto number = static_cast<TimeUnit>(IndexUnite(unit.c_str()));
  const char* name = TimeUnitToChar(number);
  if (name == nullptr || unit != name) SyntaxFault(where, Quoted(unit), "DAY, HOUR, MINUTE ou SECOND");
  return number;
}

int ClockOfDate(const Position& where, const Date& date) {
  CheckHasClockUnit(where);
  const long time = DateToAbsoluteTime(date.day, date.month, date.year, date.hour, date.minute, date.second);
  const long interval = time - pCurrentSim->AbsoluteBeginningTime();
  if (interval < 0) FaultInFile(where, "date antérieure au début de la simulation");
  if (interval / SecondsPerTick() >= K_INTMAX)
    FaultInFile(where, "date trop lointaine pour l'unité d'horloge de la simulation");
  return TimeIntervalToClockNumber(interval);
}

int ClockOf(const Moment& moment) {
  if (moment.kind == Moment::Kind::clock) {
    if (moment.clock < 0) FaultInFile(moment.where, "date antérieure au début de la simulation");
    return moment.clock;
  }
  if (moment.kind == Moment::Kind::today) return ClockOfDate(moment.where, Today(moment.date));
  Date date = moment.date;
  if (date.year < 0) {
    CheckHasClockUnit(moment.where);
    date.year = ClockValueToDate(pCurrentSim->Clock()).year;
    const std::string fault = DayFault(date.day, date.month, date.year);
    if (!fault.empty()) FaultInFile(moment.where, fault);
  }
  return ClockOfDate(moment.where, date);
}

int TicksOf(const Duration& duration, const char* word) {
  if (duration.number < 1) FaultInFile(duration.where, Text("%s demande une durée d'au moins 1", word));
  if (!duration.unit) return duration.number;
  CheckHasClockUnit(duration.where, "une durée en unités de temps");
  const long seconds = duration.number * SecondsOf(*duration.unit);
  if (seconds % SecondsPerTick() != 0)
    FaultInFile(duration.where, Text("%s %d %s : l'unité d'horloge est %d %s", word, duration.number,
                                     TimeUnitToChar(*duration.unit), pCurrentSim->ClockTimeUnitQuantity(),
                                     TimeUnitToChar(pCurrentSim->ClockTimeUnit())));
  if (seconds / SecondsPerTick() > K_INTMAX)
    FaultInFile(duration.where, Text("%s demande une durée moindre", word));
  return TimeIntervalToClockNumber(seconds);
}
