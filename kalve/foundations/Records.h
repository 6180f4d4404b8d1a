// Plain value records that every subsystem shares.
#pragma once

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/SharedConstants.h"

/// A closed interval. Low above high is the failure BadIntervalBounds; equal bounds are fine, and so is a
/// bound that is not a number. Comparison is by the low bound alone.
struct IntInterval {
  int low;
  int high;
  IntInterval(int lowBound, int highBound);
};
struct FloatInterval {
  float low;
  float high;
  FloatInterval(float lowBound, float highBound);
};
struct DoubleInterval {
  double low;
  double high;
  DoubleInterval(double lowBound, double highBound);
};

inline bool operator<(const IntInterval& a, const IntInterval& b) { return a.low < b.low; }
inline bool operator>(const IntInterval& a, const IntInterval& b) { return a.low > b.low; }
inline bool operator<(const FloatInterval& a, const FloatInterval& b) { return a.low < b.low; }
inline bool operator>(const FloatInterval& a, const FloatInterval& b) { return a.low > b.low; }
inline bool operator<(const DoubleInterval& a, const DoubleInterval& b) { return a.low < b.low; }
inline bool operator>(const DoubleInterval& a, const DoubleInterval& b) { return a.low > b.low; }

/// A calendar date: the year in full, the month from 1 to 12. An absent date has all six at -9.
struct Date {
  int year;
  int month;
  int day;
  int hour;
  int minute;
  int second;

  Date() {}  // NOLINT: the six numbers are unset on purpose
  Date(int y, int m, int d, int h, int mi, int s)
      : year(y), month(m), day(d), hour(h), minute(mi), second(s) {}
  bool operator==(const Date&) const = default;
};

/// A couple of an event: what to do to which process. It owns nothing.
struct StructProcessAction {
  Process* process;
  ActionType action;

  StructProcessAction(Process* p, ActionType a) : process(p), action(a) {}
  bool operator==(const StructProcessAction&) const = default;
  /// Prints "{address, number}", the address by its low 32 bits.
  void display() const;
};

/// A value of any type; a ValueTypeId beside it says which member is live. It owns nothing by itself: the
/// holder frees the text of a STRING. A date travels in `entityValue`.
union UnifiedValue {
  int intValue;
  float floatValue;
  double doubleValue;
  char* stringValue;
  BasicEntity* entityValue;
};

/// An address as every text of the system shows it with %x: its low 32 bits.
unsigned Address32(const void* address);
