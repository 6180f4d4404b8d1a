// Members of Simulation that need the calendar, its default constructor among them.
#include <ctime>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/Rng.h"

namespace {

std::tm LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

/// Offset from UTC on 1 January 2000.
long OffsetFromUtc() {
  const std::unique_ptr<std::tm> newYear(DateToTm(1, 1, 2000, 0, 0, 0));
  std::mktime(newYear.get());
  return newYear->tm_gmtoff;
}

int FullYear(int year) { return year <= 99 ? year + 2000 : year; }

}  // namespace

Simulation::Simulation()
    : mNumId(gCurrentSimNumId),
      mBeforeInAgenda(BeforeByDatePriority),
      mRandomGenerator(std::make_unique<RNG>()) {
  g_KV_gmtoff = OffsetFromUtc();
  std::tm now = LocalNow();
  // The month as the system counts it, from 0: SetThisDayBeginningDate counts from 1.
  mBeginningDate = std::make_unique<Date>(now.tm_year + 1900, now.tm_mon, now.tm_mday, now.tm_hour,
                                          now.tm_min, now.tm_sec);
  mEndDate = std::make_unique<Date>(*mBeginningDate);
  mSpareDate = std::make_unique<Date>(*mBeginningDate);
  mAbsoluteBeginningTime = std::mktime(&now);
  mAbsoluteEndTime = mAbsoluteBeginningTime;
}

void Simulation::BeginAt(int day, int month, int year, int hour, int minute, int second) {
  *mBeginningDate = Date(year, month, day, hour, minute, second);
  mClock = 0;
  mAbsoluteBeginningTime = DateToAbsoluteTime(day, month, year, hour, minute, second);
}

void Simulation::SetBeginningDate(int day, int month, int year) {
  SetBeginningDate(day, month, year, 0, 0, 0);
}

void Simulation::SetBeginningDate(int day, int month, int year, int hour, int minute, int second) {
  BeginAt(day, month, FullYear(year), hour, minute, second);
}

void Simulation::SetThisDayBeginningDate(int hour, int minute, int second) {
  const std::tm now = LocalNow();
  BeginAt(now.tm_mday, now.tm_mon + 1, now.tm_year + 1900, hour, minute, second);
}

void Simulation::SetEndDate(int day, int month, int year) { SetEndDate(day, month, year, 0, 0, 0); }

void Simulation::SetEndDate(int day, int month, int year, int hour, int minute, int second) {
  const int fullYear = FullYear(year);
  *mEndDate = Date(fullYear, month, day, hour, minute, second);
  mAbsoluteEndTime = DateToAbsoluteTime(day, month, fullYear, hour, minute, second);
  mEndTime = mAbsoluteEndTime - mAbsoluteBeginningTime;
  mEndClock = TimeIntervalToClockNumber(mEndTime);
}

std::tm* Simulation::CurrentTmDate() const { return ClockValueToTm(mClock); }
