// The points of a series, as one text.
#pragma once

#include <string>

#include "kalve/outputs/DescTimeSeries.h"

inline std::string PointsOf(DescTimeSeries& series) {
  std::string text;
  for (series.GoHead(); series.IsCurrentIn(); series.GoNext())
    text += std::to_string(series.GetCurrent()->GetClock()) + "=" +
            UnifiedValueToString(series.GetCurrent()) + ";";
  return text;
}
