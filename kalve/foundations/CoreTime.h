// The calendar: dates, absolute times and the system library's broken-down times, and their texts.
//
// All calendar work is done in the machine's local time zone. An absolute time is a `time_t` held in a long.
// What also needs the simulated clock stands in CoreSimTime.h.
//
// Objects handed out as pointers come from `new` and belong to the caller. An operation on a tm normalises
// what it reads where it says so. The texts are left in gTimeString, to be read before the next call.
#pragma once

#include <ctime>

#include "kalve/foundations/Forward.h"

/// Offset of local time from UTC in seconds on 1 January 2000. The constructor of Simulation sets it.
extern long g_KV_gmtoff;

// Absolute times ---------------------------------------------------------------------------------------

/// Absolute time of a local date; the year in full, the month from 1 to 12.
long DateToAbsoluteTime(int day, int month, int year, int hour, int minute, int second);
long StructDateToAbsoluteTime(Date* date);
/// Another name of StructDateToAbsoluteTime.
inline long DateToAbsoluteTime2(Date* date) { return StructDateToAbsoluteTime(date); }

/// Absolute time of a date read as UTC, in whole hours of offset. g_KV_gmtoff must be set. Where the local
/// offset is zero or west, the hour that is local midnight answers one day too late.
long UTCDateToAbsoluteTime(int day, int month, int year, int hour, int minute, int second);
long StructUTCDateToAbsoluteTime(Date* date);

// Broken-down times ------------------------------------------------------------------------------------

/// A new normalised tm of a local date.
std::tm* DateToTm(int day, int month, int year, int hour, int minute, int second);
std::tm* StructDateToTm(Date* date);
/// Another name of StructDateToTm.
inline std::tm* DateToTm2(Date* date) { return StructDateToTm(date); }

/// The same with an offset from UTC of 0.
std::tm* UTCDateToTm(int day, int month, int year, int hour, int minute, int second);
std::tm* StructUTCDateToTm(Date* date);

/// A new Date with the fields of the tm as they stand.
Date* StructTmToDate(std::tm* time);

/// A new tm of the present moment.
std::tm* CurrentRealDateToTm();

/// A new tm from "2008-09-05T08:03:09+01:00". The hour is kept as written, and the offset, whole hours
/// behind a "+", is only noted in tm_gmtoff. Missing pieces count as 0; text beyond 49 characters is not
/// read.
std::tm* StringISOToTm(const char* text);

// Texts ------------------------------------------------------------------------------------------------

/// "05/09/2008 08h03'09''"; with `withDst` daylight-saving time is told behind it.
void StructTmToChar(std::tm* time, int withDst);
void StructTmToChar(std::tm* time);

/// "5/09/2008 8h3'9''".
void StructDateToChar(Date* date);

/// "2008-09-05T08:03:09+01:00". West of Greenwich the sign stands twice: "-0-5:00".
void StructTmToStringISO(std::tm* time);
/// The same as a text of its own, which the caller frees.
char* StringISOFromStructTm(std::tm* time);
/// The UTC text of a local time, which is normalised.
void StructLocalTmToUTCStringISO(std::tm* time);
/// The local text of a date read as UTC.
void UTCDateToLocalStringISO(int day, int month, int year, int hour, int minute, int second);

/// What stands before a number that is written with two digits: "0" up to 9.
inline const char* TwoDigitPadding(int number) { return number <= 9 ? "0" : ""; }

// Names of days and months -----------------------------------------------------------------------------

/// 1 to 12 for "JAN", "FEV", "MRS", "AVR", "MAI", "JUN", "JUL", "AOU", "SEP", "OCT", "NOV", "DEC". For
/// another text the answer is the difference that `strcmp` found last: ask MonthToChar to be sure.
int IndexMonth(const char* name);
/// The name for 1 to 12; null for any other number.
const char* MonthToChar(int month);

/// Names for applications and parsers, Sunday and January first: French, and English beside it. Some
/// spellings differ from those of IndexMonth, and two English days stand swapped; files rely on them.
extern Tableau<const char*> ShortWeekDayNameToCharTab;
extern Tableau<const char*> ShortWeekDayNameToCharTab2;
extern Tableau<const char*> ShortMonthNameToCharTab;
extern Tableau<const char*> ShortMonthNameToCharTab2;

/// Each fills its table anew.
void K_MakeShortWeekDayNameToCharTab();
void K_MakeShortWeekDayNameToCharTab2();
void K_MakeShortMonthNameToCharTab();
void K_MakeShortMonthNameToCharTab2();
