#include "kalve/foundations/CoreSimTime.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <limits>
#include <memory>
#include <string>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/SharedConstants.h"

// Clock from date --------------------------------------------------------------------------------------

namespace {

/// Seconds from the beginning to a local date, -9 before it.
long SecondsSinceBeginning(const char* where, int day, int month, int year, int hour, int minute,
                           int second) {
  const long seconds =
      DateToAbsoluteTime(day, month, year, hour, minute, second) - pCurrentSim->AbsoluteBeginningTime();
  if (seconds >= 0) return seconds;
  BadDate(where, day, month, year, hour, minute, second);
  return K_INT_UNSIGNIFICANT;
}

}  // namespace

int DateToClockValue(int day, int month, int year, int hour, int minute, int second) {
  const long seconds = SecondsSinceBeginning("DateToClockValue", day, month, year, hour, minute, second);
  return seconds >= 0 ? TimeIntervalToClockNumber(seconds) : K_INT_UNSIGNIFICANT;
}

int DateToClockValue(int day, int month, int year) { return DateToClockValue(day, month, year, 0, 0, 0); }

int StructTmToClockValue(std::tm* time) {
  const long seconds = std::mktime(time) - pCurrentSim->AbsoluteBeginningTime();
  if (seconds >= 0) return TimeIntervalToClockNumber(seconds);
  BadDate("StructTmToClockValue", time->tm_mday, time->tm_mon + 1, time->tm_year + 1900, time->tm_hour,
          time->tm_min, time->tm_sec);
  return K_INT_UNSIGNIFICANT;
}

long DateToRelativeTime(int day, int month, int year, int hour, int minute, int second) {
  return SecondsSinceBeginning("DateToRelativeTime", day, month, year, hour, minute, second);
}

int TimeIntervalToClockNumber(long seconds) {
  const long quantity = pCurrentSim->ClockTimeUnitQuantity();
  if (quantity == 0) return 0;
  long ticks = 0;
  switch (pCurrentSim->ClockTimeUnit()) {
    case HOUR:
      ticks = seconds / quantity / 3600;
      break;
    case DAY:
      ticks = seconds / quantity / 86400 + (seconds % 86400 == 82800 ? 1 : 0);
      break;
    case MINUTE:
      ticks = seconds / quantity / 60;
      break;
    case SECOND:
      ticks = seconds / quantity;
      break;
  }
  using Clock = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<long>(ticks, Clock::min(), Clock::max()));
}

namespace {

long UnitsOfClock(int ticks) { return static_cast<long>(pCurrentSim->ClockTimeUnitQuantity()) * ticks; }

/// Saturated where a sum of two would no longer fit.
long Seconds(long units, long secondsPerUnit) {
  const long most = std::numeric_limits<long>::max() / 2 / secondsPerUnit;
  return std::clamp(units, -most, most) * secondsPerUnit;
}

}  // namespace

long ClockNumberToTimeInterval(int ticks) {
  const long units = UnitsOfClock(ticks);
  switch (pCurrentSim->ClockTimeUnit()) {
    case HOUR:
      return Seconds(units, 3600);
    case DAY:
      return Seconds(units, 86400);
    case MINUTE:
      return Seconds(units, 60);
    case SECOND:
      return units;
  }
  return pCurrentSim->ClockTimeUnit();
}

long ClockNumberToTimeInterval(int ticks, int dstBegin, int dstEnd) {
  const long seconds = ClockNumberToTimeInterval(ticks);
  if (pCurrentSim->ClockTimeUnit() != DAY || dstBegin == dstEnd) return seconds;
  return dstBegin > dstEnd ? seconds - 3600 : seconds + 3600;
}

// Date from clock --------------------------------------------------------------------------------------

namespace {

std::tm TmOfClock(int clock) {
  const long units = UnitsOfClock(clock);
  std::time_t moment = pCurrentSim->AbsoluteBeginningTime();
  const TimeUnit unit = pCurrentSim->ClockTimeUnit();
  switch (unit) {
    case HOUR:
      moment += Seconds(units, 3600);
      break;
    case MINUTE:
      moment += Seconds(units, 60);
      break;
    case SECOND:
      moment += Seconds(units, 1);
      break;
    case DAY:
      break;
    default:
      BadClockTimeUnit(unit);
  }
  std::tm time{};
  localtime_r(&moment, &time);
  if (unit == DAY) {
    time.tm_mday = static_cast<int>(std::clamp<long>(time.tm_mday + units, K_INTMIN, K_INTMAX));
    time.tm_isdst = -1;
    std::mktime(&time);
  }
  return time;
}

int LastDayOf(int year) {
  const std::unique_ptr<std::tm> time(DateToTm(31, 12, year, 0, 0, 0));
  return time->tm_yday + 1;
}

}  // namespace

std::tm* ClockValueToTm(int clock) {
  if (clock < 0) BadClockValueForTm(clock);
  return new std::tm(TmOfClock(clock));
}

Date ClockValueToDate(int clock) {
  if (clock < 0) return {-9, -9, -9, -9, -9, -9};
  const std::tm time = TmOfClock(clock);
  return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

int ClockValueToDays(int clock) {
  if (clock < 0) return K_INT_UNSIGNIFICANT;
  const std::tm begin = TmOfClock(0);
  const std::tm now = TmOfClock(clock);
  int days = now.tm_yday - begin.tm_yday + 1;
  for (int year = begin.tm_year; year < now.tm_year; ++year) days += LastDayOf(year + 1900);
  return days;
}

char* ClockValueToStringISO(int clock) {
  const std::unique_ptr<std::tm> time(ClockValueToTm(clock));
  return StringISOFromStructTm(time.get());
}

// Printed dates ----------------------------------------------------------------------------------------

namespace {

/// "2008-09-05 08:03:09"; the month is padded up to `lastPaddedMonth`.
std::string IsoText(const std::tm& time, int lastPaddedMonth) {
  const int month = time.tm_mon + 1;
  return Text("%d-%s%d-%s%d %s%d:%s%d:%s%d", time.tm_year + 1900, month <= lastPaddedMonth ? "0" : "", month,
              TwoDigitPadding(time.tm_mday), time.tm_mday, TwoDigitPadding(time.tm_hour), time.tm_hour,
              TwoDigitPadding(time.tm_min), time.tm_min, TwoDigitPadding(time.tm_sec), time.tm_sec);
}

constexpr int lastPaddedInFiles = 8;
constexpr int lastPaddedInTraces = 9;

bool IsCalendarFormat(TimeType format) { return format >= MIN_HOUR_YEARDAY && format <= ISO_8601; }

/// A tm for the formats that need one: the others print even before the clock has a unit.
std::tm TmForFormat(int clock, TimeType format) {
  return IsCalendarFormat(format) ? TmOfClock(clock) : std::tm{};
}

std::string Padded(int number) { return TwoDigitPadding(number) + std::to_string(number); }

}  // namespace

void PrintDateFromClock(FILE* file, int clock, TimeType format) {
  std::string text;
  AppendDateFromClock(text, clock, format);
  std::fputs(text.c_str(), file);
}

void AppendDateFromClock(std::string& text, int clock, TimeType format) {
  if (clock < 0) {
    text += "\tNot a Date";
    return;
  }
  const std::tm time = TmForFormat(clock, format);
  const auto column = [&text](int number) {
    char digits[12];
    text += '\t';
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
  };
  const auto columns = [&column](int a, int b, int c) {
    column(a);
    column(b);
    column(c);
  };
  switch (format) {
    case CLOCK:
      return column(clock);
    case MIN_HOUR_YEARDAY:
      return columns(time.tm_min, time.tm_hour, time.tm_yday + 1);
    case YEARDAY_HOUR_MIN:
      return columns(time.tm_yday + 1, time.tm_hour, time.tm_min);
    case SIMDAY_HOUR_MIN:
      return columns(ClockValueToDays(clock), time.tm_hour, time.tm_min);
    case HOUR_DAY_MONTH:
      return columns(time.tm_hour, time.tm_mday, time.tm_mon + 1);
    case DAY_MONTH_YEAR:
      return columns(time.tm_mday, time.tm_mon + 1, time.tm_year + 1900);
    case ISO_8601:
      text += '\t' + IsoText(time, lastPaddedInFiles);
      return;
  }
  std::fputs("\n!!! PrintDate : format de date inconnu\n", stdout);
}

void OutputDateFromClock(int clock, TimeType format, std::ostream& stream) {
  if (clock < 0) {
    stream << "\tNot a Date" << majSep;
    return;
  }
  const std::tm time = TmForFormat(clock, format);
  const int month = time.tm_mon + 1;
  switch (format) {
    case CLOCK:
      stream << clock;
      return;
    case MIN_HOUR_YEARDAY:
      stream << "min :" << minSep << time.tm_min << minSep << "h :" << minSep << time.tm_hour << minSep
             << "jour :" << minSep << time.tm_yday + 1 << majSep;
      return;
    case YEARDAY_HOUR_MIN:
      stream << "jour " << time.tm_yday + 1 << minSep << time.tm_hour << "h" << time.tm_min << "'" << majSep;
      return;
    case SIMDAY_HOUR_MIN:
      stream << "jour " << ClockValueToDays(clock) << minSep << time.tm_hour << "h" << time.tm_min << "'"
             << majSep;
      return;
    case HOUR_DAY_MONTH:
      stream << "h :" << minSep << time.tm_hour << minSep << "j :" << minSep << time.tm_mday << minSep
             << "m :" << minSep << month << majSep;
      return;
    case DAY_MONTH_YEAR:
      stream << "j :" << minSep << time.tm_mday << minSep << "m :" << minSep << month << minSep
             << "a :" << minSep << time.tm_year + 1900 << minSep << majSep;
      return;
    case ISO_8601:
      stream << IsoText(time, lastPaddedInFiles);
      return;
  }
  std::cerr << "\n!!! OutputDate : format de date inconnu\n";
  stream << majSep;
}

void CoutDateFromClock(int clock, TimeType format) { OutputDateFromClock(clock, format, std::cout); }

void TraceDateFromClock(int clock, TimeType format) {
  if (clock < 0) {
    std::cout << "\tNot a Date\n";
    return;
  }
  const std::tm time = TmForFormat(clock, format);
  const int yearDay = time.tm_yday + 1;
  const int month = time.tm_mon + 1;
  const std::string hour = Padded(time.tm_hour);
  const std::string minute = Padded(time.tm_min);
  switch (format) {
    case CLOCK:
      std::cout << clock;
      return;
    case MIN_HOUR_YEARDAY:
      std::cout << minute << "min " << hour << "h "
                << "j : " << yearDay;
      return;
    case YEARDAY_HOUR_MIN:
      std::cout << "j : " << yearDay << " " << minute << "min " << hour << "h";
      return;
    case SIMDAY_HOUR_MIN:
      std::cout << "jour " << ClockValueToDays(clock) << " " << hour << "h " << minute << "min";
      return;
    case HOUR_DAY_MONTH:
      std::cout << hour << "H " << time.tm_mday << "/" << month;
      return;
    case DAY_MONTH_YEAR:
      std::cout << time.tm_mday << "/" << month << "/" << time.tm_year + 1900;
      return;
    case ISO_8601:
      std::cout << IsoText(time, lastPaddedInTraces);
      return;
  }
  std::cout << "\n!!! OutputDate : format de date inconnu\n";
}
