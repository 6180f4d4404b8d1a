#include "kalve/foundations/CoreTime.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"

long g_KV_gmtoff = 0;

namespace {

void SetCalendarFields(std::tm& time, const Date& date) {
  time.tm_year = date.year - 1900;
  time.tm_mon = date.month - 1;
  time.tm_mday = date.day;
  time.tm_hour = date.hour;
  time.tm_min = date.minute;
  time.tm_sec = date.second;
}

/// Not normalised; the system library finds out about daylight-saving time.
std::tm TmOf(const Date& date) {
  std::tm time{};
  SetCalendarFields(time, date);
  time.tm_isdst = -1;
  return time;
}

std::tm LocalTime(long absoluteTime) {
  const std::time_t moment = absoluteTime;
  std::tm time{};
  localtime_r(&moment, &time);
  return time;
}

[[gnu::format(printf, 1, 2)]] void WriteTimeString(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(gTimeString, gTimeStringSize, format, arguments);
  va_end(arguments);
}

}  // namespace

// Absolute times ---------------------------------------------------------------------------------------

long DateToAbsoluteTime(int day, int month, int year, int hour, int minute, int second) {
  Date date(year, month, day, hour, minute, second);
  return StructDateToAbsoluteTime(&date);
}

long StructDateToAbsoluteTime(Date* date) {
  std::tm time = TmOf(*date);
  return std::mktime(&time);
}

long UTCDateToAbsoluteTime(int day, int month, int year, int hour, int minute, int second) {
  Date date(year, month, day, hour, minute, second);
  return StructUTCDateToAbsoluteTime(&date);
}

long StructUTCDateToAbsoluteTime(Date* date) {
  const int winterOffset = static_cast<int>(g_KV_gmtoff / 3600);
  std::tm time = TmOf(*date);
  time.tm_hour = winterOffset + date->hour - 1;
  std::mktime(&time);
  time.tm_hour = date->hour + winterOffset + time.tm_isdst;
  std::mktime(&time);
  const int offset = static_cast<int>(time.tm_gmtoff / 3600);  // in force near that moment

  SetCalendarFields(time, *date);
  if (time.tm_hour == (offset >= 1 ? 24 : 0) - offset) {
    time.tm_hour = 0;
    ++time.tm_mday;
  } else {
    time.tm_hour += offset;
  }
  return std::mktime(&time);
}

// Broken-down times ------------------------------------------------------------------------------------

std::tm* DateToTm(int day, int month, int year, int hour, int minute, int second) {
  Date date(year, month, day, hour, minute, second);
  return StructDateToTm(&date);
}

std::tm* StructDateToTm(Date* date) {
  auto* time = new std::tm(TmOf(*date));
  std::mktime(time);
  return time;
}

std::tm* UTCDateToTm(int day, int month, int year, int hour, int minute, int second) {
  Date date(year, month, day, hour, minute, second);
  return StructUTCDateToTm(&date);
}

std::tm* StructUTCDateToTm(Date* date) {
  std::tm* time = StructDateToTm(date);
  time->tm_gmtoff = 0;
  return time;
}

Date* StructTmToDate(std::tm* time) {
  return new Date(time->tm_year + 1900, time->tm_mon + 1, time->tm_mday, time->tm_hour, time->tm_min,
                  time->tm_sec);
}

std::tm* CurrentRealDateToTm() { return new std::tm(LocalTime(std::time(nullptr))); }

namespace {

/// The number at the head of a piece of text, 0 without one; kept where calendar sums stay exact.
int PieceToInt(const char* piece) {
  if (piece == nullptr) return 0;
  return static_cast<int>(std::clamp(std::strtol(piece, nullptr, 10), -100'000'000L, 100'000'000L));
}

}  // namespace

std::tm* StringISOToTm(const char* text) {
  char buffer[gTimeStringSize];
  std::snprintf(buffer, sizeof buffer, "%s", text);
  char* rest = nullptr;
  char* const day = strtok_r(buffer, "T", &rest);
  char* const hour = strtok_r(nullptr, "+", &rest);
  const int offset = PieceToInt(strtok_r(nullptr, ":", &rest));

  Date date(0, 0, 0, 0, 0, 0);
  if (day != nullptr) {
    date.year = PieceToInt(strtok_r(day, "-", &rest));
    date.month = PieceToInt(strtok_r(nullptr, "-", &rest));
    date.day = PieceToInt(strtok_r(nullptr, "-", &rest));
  }
  if (hour != nullptr) {
    date.hour = PieceToInt(strtok_r(hour, ":", &rest));
    date.minute = PieceToInt(strtok_r(nullptr, ":", &rest));
    date.second = PieceToInt(strtok_r(nullptr, "+", &rest));
  }
  std::tm* time = StructDateToTm(&date);
  time->tm_hour = date.hour;  // the change to summer may have moved it
  time->tm_gmtoff = offset * 3600L;
  return time;
}

// Texts ------------------------------------------------------------------------------------------------

void StructTmToChar(std::tm* time) { StructTmToChar(time, 0); }

void StructTmToChar(std::tm* time, int withDst) {
  const int month = time->tm_mon + 1;
  WriteTimeString("%s%d/%s%d/%d %s%dh%s%d'%s%d''%s", TwoDigitPadding(time->tm_mday), time->tm_mday,
                  TwoDigitPadding(month), month, time->tm_year + 1900, TwoDigitPadding(time->tm_hour),
                  time->tm_hour, TwoDigitPadding(time->tm_min), time->tm_min, TwoDigitPadding(time->tm_sec),
                  time->tm_sec, withDst != 0 && time->tm_isdst == 1 ? " (heure d'été)" : "");
}

void StructDateToChar(Date* date) {
  WriteTimeString("%d/%s%d/%d %dh%d'%d''", date->day, TwoDigitPadding(date->month), date->month, date->year,
                  date->hour, date->minute, date->second);
}

void StructTmToStringISO(std::tm* time) {
  const int month = time->tm_mon + 1;
  const int offset = static_cast<int>(time->tm_gmtoff / 3600);
  WriteTimeString("%d-%s%d-%s%dT%s%d:%s%d:%s%d%s%s%d%s", time->tm_year + 1900, TwoDigitPadding(month), month,
                  TwoDigitPadding(time->tm_mday), time->tm_mday, TwoDigitPadding(time->tm_hour),
                  time->tm_hour, TwoDigitPadding(time->tm_min), time->tm_min, TwoDigitPadding(time->tm_sec),
                  time->tm_sec, offset < 0 ? "-" : "+", TwoDigitPadding(offset), offset, ":00");
}

char* StringISOFromStructTm(std::tm* time) {
  StructTmToStringISO(time);
  return strdup(gTimeString);
}

void StructLocalTmToUTCStringISO(std::tm* time) {
  const std::time_t moment = std::mktime(time);
  std::tm utc{};
  gmtime_r(&moment, &utc);
  StructTmToStringISO(&utc);
}

void UTCDateToLocalStringISO(int day, int month, int year, int hour, int minute, int second) {
  std::tm time = LocalTime(UTCDateToAbsoluteTime(day, month, year, hour, minute, second));
  StructTmToStringISO(&time);
}

// Names of days and months -----------------------------------------------------------------------------

Tableau<const char*> ShortWeekDayNameToCharTab;
Tableau<const char*> ShortWeekDayNameToCharTab2;
Tableau<const char*> ShortMonthNameToCharTab;
Tableau<const char*> ShortMonthNameToCharTab2;

namespace {

constexpr const char* monthNames[] = {"JAN", "FEV", "MRS", "AVR", "MAI", "JUN",
                                      "JUL", "AOU", "SEP", "OCT", "NOV", "DEC"};

template <class... Names>
void Refill(Tableau<const char*>& table, Names... names) {
  table.erase(10);
  (table.push_back(names), ...);
}

}  // namespace

int IndexMonth(const char* name) {
  int difference = 0;
  int month = 0;
  for (const char* monthName : monthNames) {
    ++month;
    difference = std::strcmp(name, monthName);
    if (difference == 0) return month;
  }
  return difference;
}

const char* MonthToChar(int month) { return month >= 1 && month <= 12 ? monthNames[month - 1] : nullptr; }

void K_MakeShortWeekDayNameToCharTab() {
  Refill(ShortWeekDayNameToCharTab, "DIM", "LUN", "MAR", "MER", "JEU", "VEN", "SAM");
}

void K_MakeShortWeekDayNameToCharTab2() {
  Refill(ShortWeekDayNameToCharTab2, "SUN", "MON", "THU", "WED", "TUE", "FRI", "SAT");
}

void K_MakeShortMonthNameToCharTab() {
  Refill(ShortMonthNameToCharTab, "JAN", "FEV", "NRS", "AVR", "MAI", "JUN", "JUI", "AOU", "SEP", "OCT", "NOV",
         "DEC");
}

void K_MakeShortMonthNameToCharTab2() {
  Refill(ShortMonthNameToCharTab2, "JAN", "FEB", "NRS", "APR", "MAI", "JUN", "JUI", "AUG", "SEP", "OCT",
         "NOV", "DEC");
}
