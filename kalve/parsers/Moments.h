// Dates, times and units as input files write them, checked.
#pragma once

#include <optional>
#include <string>

#include "kalve/foundations/Records.h"
#include "kalve/parsers/Faults.h"

struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// A point of simulated time as written.
struct Moment {
  enum class Kind { clock, date, today };
  Kind kind = Kind::clock;
  int clock = 0;
  Date date = Date(0, 0, 0, 0, 0, 0);  ///< a negative year is the current one; of today, the time alone
  Position where = {};
};

/// A number of ticks of the clock or, with a unit, of units.
struct Duration {
  int number = 0;
  std::optional<TimeUnit> unit = {};
  Position where = {};
};

/// Years of two digits are of this century.
inline int FullYear(int written) { return written <= 99 ? written + 2000 : written; }

/// What is wrong with a time or a day, in French; "" when it exists.
std::string TimeFault(const TimeOfDay& time);
std::string DateFault(int day, const std::string& month, std::optional<int> year);

/// From 00:00:00 to 23:59:59.
TimeOfDay CheckedTime(const Position& where, int hour, int minute, int second);
/// A day of the calendar. The year is from 0 to 9999, and up to 99 has 2000 added; -9 without one.
Date CheckedDate(const Position& where, int day, const std::string& month, std::optional<int> year,
                 const TimeOfDay& time);
TimeUnit CheckedUnit(const Position& where, const std::string& unit);

// The following need pCurrentSim.

/// Clock of a local date that is not before the beginning; the simulation must have a clock unit.
int ClockOfDate(const Position& where, const Date& date);
/// Clock of any moment, under the same conditions.
int ClockOf(const Moment& moment);
/// Ticks of a duration of at least 1, which must be whole; `word` introduces it in the file. A unit asks the
/// simulation for a clock unit.
int TicksOf(const Duration& duration, const char* word);
