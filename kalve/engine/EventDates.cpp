// Dates of events, which need the calendar and the simulation.
#include <ctime>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/CoreTime.h"

void Event::SetOccurrenceDate(int day, int month, int year) { SetOccurrenceDate(day, month, year, 0, 0, 0); }

void Event::SetOccurrenceDate(int day, int month, int year, int hour, int minute, int second) {
  if (year < 0) year = ClockValueToDate(pCurrentSim->Clock()).year;
  const long date = DateToAbsoluteTime(day, month, year, hour, minute, second);
  SetOccurrenceClockTime(TimeIntervalToClockNumber(date - pCurrentSim->AbsoluteBeginningTime()));
}

void Event::SetThisDayOccurrenceDate(int hour, int minute, int second) {
  const std::time_t now = std::time(nullptr);
  std::tm today{};
  localtime_r(&now, &today);
  SetOccurrenceDate(today.tm_mday, today.tm_mon + 1, today.tm_year + 1900, hour, minute, second);
}
