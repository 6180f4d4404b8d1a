#include "kalve/foundations/Chronometer.h"

#include <sys/time.h>

#include <cstdint>
#include <cstdio>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/SharedConstants.h"

timeval* mytp = nullptr;
long gSecDeb = 0;
long gUSecDeb = 0;
long gMicrocumul = 0;

namespace {

/// CloseChrono leaves mytp as it was, so this tells whether it points to something.
bool isInitialized = false;

timeval Now() {
  timeval now{};
  gettimeofday(&now, nullptr);
  return now;
}

}  // namespace

void InitChrono() {
  if (isInitialized) delete mytp;
  mytp = new timeval{};
  isInitialized = true;
  gMicrocumul = 0;
}

void StartChrono() {
  if (!isInitialized) BadChronometerHandling("StartChrono");
  *mytp = Now();
  gSecDeb = mytp->tv_sec;
  gUSecDeb = mytp->tv_usec;
}

void PauseChrono() {
  if (!IsChronometerActive()) BadChronometerHandling("PauseChrono");
  const timeval now = Now();
  gMicrocumul += (now.tv_sec - gSecDeb) * 1000000 + (now.tv_usec - gUSecDeb);
}

void CloseChrono() {
  if (!isInitialized) BadChronometerHandling("CloseChrono");
  delete mytp;
  isInitialized = false;
}

bool IsChronometerActive() { return isInitialized && (gSecDeb != 0 || gUSecDeb != 0); }

void MicroPrintChrono() {
  const long ms = gMicrocumul / 1000;
  std::snprintf(gTimeString, gTimeStringSize, "%lds %03ldms %03ld", ms / 1000, ms % 1000, gMicrocumul % 1000);
}

void MilliPrintChrono() {
  const long ms = gMicrocumul / 1000;
  std::snprintf(gTimeString, gTimeStringSize, "%ld''%03ld", ms / 1000, ms % 1000);
}

void PrintChrono() {
  const long ms = gMicrocumul / 1000;
  const long seconds = ms / 1000 + (ms >= 500 ? 1 : 0);
  std::snprintf(gTimeString, gTimeStringSize, "%ldh%02ld'%02ld", seconds / 3600, seconds / 60 % 60,
                seconds % 60);
}

void Kalve_millisleep(int ms) {
  const timeval start = Now();
  const long target = ms * 1000L + start.tv_usec;
  long elapsed = 0;
  do {
    const timeval now = Now();
    const auto seconds = static_cast<std::uint32_t>(now.tv_sec - start.tv_sec);
    elapsed = static_cast<std::int32_t>(seconds * 1000000U) + now.tv_usec;
  } while (elapsed <= target);
}
