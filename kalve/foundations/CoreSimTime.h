// The simulated clock in calendar terms: conversions between clock, dates and durations, and printed dates.
//
// The clock counts ticks of ClockTimeUnitQuantity() times ClockTimeUnit() since the beginning date. Every
// conversion reads the three from pCurrentSim, which must exist and have them set. Objects handed out as
// pointers belong to the caller.
#pragma once

#include <cstdio>
#include <ctime>
#include <iosfwd>
#include <string>

#include "kalve/foundations/Records.h"

// Clock from date --------------------------------------------------------------------------------------

/// Clock of a local date; -9, after the warning BadDate, before the beginning.
int DateToClockValue(int day, int month, int year, int hour, int minute, int second);
/// The same at midnight.
int DateToClockValue(int day, int month, int year);
/// The same of a tm, which is normalised.
int StructTmToClockValue(std::tm* time);
/// Seconds from the beginning to a local date; -9, after the warning BadDate, before the beginning.
long DateToRelativeTime(int day, int month, int year, int hour, int minute, int second);

/// Whole ticks in an interval of seconds, saturated to int; 0 without a valid unit. A day of 23 hours, where
/// summer time begins, is a whole day.
int TimeIntervalToClockNumber(long seconds);
/// Seconds in a number of ticks; without a valid unit the number of the unit.
long ClockNumberToTimeInterval(int ticks);
/// The same between two moments with the given tm_isdst: in days, a change of summer time counts.
long ClockNumberToTimeInterval(int ticks, int dstBegin, int dstEnd);

// Date from clock --------------------------------------------------------------------------------------

/// A new tm of a clock. In days the hour stays that of the beginning across changes of summer time. A
/// negative clock is BadClockValueForTm, an invalid unit BadClockTimeUnit.
std::tm* ClockValueToTm(int clock);
/// The same as a Date; a negative clock gives -9 in all six fields.
Date ClockValueToDate(int clock);
/// Number of the day since the beginning, which is day 1; -9 for a negative clock.
int ClockValueToDays(int clock);
/// Text of StringISOFromStructTm, which the caller frees.
char* ClockValueToStringISO(int clock);

// Printed dates ----------------------------------------------------------------------------------------
//
// In ISO_8601 the month is padded up to August on files and streams, so that September is a lone 9; readers
// of the files know it.

/// To a file, each number behind a tab: the columns of a table.
void PrintDateFromClock(FILE* file, int clock, TimeType format);
/// The same behind a text.
void AppendDateFromClock(std::string& text, int clock, TimeType format);
/// To a stream, with the separators of the control protocol.
void OutputDateFromClock(int clock, TimeType format, std::ostream& stream);
/// OutputDateFromClock on standard output.
void CoutDateFromClock(int clock, TimeType format);
/// A denser form on standard output.
void TraceDateFromClock(int clock, TimeType format);

// Second names of some of the above --------------------------------------------------------------------

inline int DateToClock(int day, int month, int year, int hour, int minute, int second) {
  return DateToClockValue(day, month, year, hour, minute, second);
}
inline int TimeIntervalToClockInterval(long seconds) { return TimeIntervalToClockNumber(seconds); }
inline long ClockIntervalToTimeInterval(int ticks) { return ClockNumberToTimeInterval(ticks); }
inline long ClockIntervalToTimeInterval(int ticks, int dstBegin, int dstEnd) {
  return ClockNumberToTimeInterval(ticks, dstBegin, dstEnd);
}
inline std::tm* ClockToTm(int clock) { return ClockValueToTm(clock); }
inline Date ClockToDate(int clock) { return ClockValueToDate(clock); }
inline int ClockToDays(int clock) { return ClockValueToDays(clock); }
inline void PrintDate(FILE* file, int clock, TimeType format) { PrintDateFromClock(file, clock, format); }
inline void CoutDate(int clock, TimeType format) { CoutDateFromClock(clock, format); }
