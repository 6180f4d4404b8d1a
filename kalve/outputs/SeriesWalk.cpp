#include "kalve/outputs/SeriesWalk.h"

#include <algorithm>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/outputs/MultipleDescriptorOS.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

int RankOfSeries(const Tableau<DescTimeSeries*>& series, const DescriptorOS* descriptor) {
  for (int rank = 0; rank < series.size(); ++rank)
    if (series[rank]->GetDescriptorOS() == descriptor) return rank;
  return K_INT_UNSIGNIFICANT;
}

}  // namespace

SeriesWalk::SeriesWalk(const MultipleDescriptorOS& writer) : mMarker(0, UnifiedValue{.intValue = -9999}) {
  const auto& first = writer.GetEntityOutputSpec()->GetInstancesData().front()->GetDescTimeSeriesTab();
  std::vector<int> precisions;
  for (const DescriptorOS* descriptor : writer.GetDescriptorsData()) {
    const int rank = RankOfSeries(first, descriptor);
    if (rank >= 0) mColumns.push_back({descriptor, rank, 0});
    precisions.push_back(descriptor->ParticipationIn(&writer)->GetPrecisionInMDescOS());
  }
  for (std::size_t column = 0; column < mColumns.size(); ++column)
    mColumns[column].precision = precisions[column];
  mPlaces.resize(mColumns.size());
}

void SeriesWalk::Enter(const EntityInstanceOS& instance) {
  const Tableau<DescTimeSeries*>& series = instance.GetDescTimeSeriesTab();
  for (std::size_t column = 0; column < mColumns.size(); ++column) {
    const int rank = mColumns[column].series;
    if (!series.empty() && rank >= series.size())
      FailOnIndex("MultipleDescriptorOS::DisplayTimeSeries", series.size(), rank);
    mPlaces[column] = {series.empty() ? nullptr : series[rank], &mMarker, &mMarker, false};
    if (mPlaces[column].series != nullptr) mPlaces[column].series->GoHead();
  }
}

// A column whose point is still to come keeps it as `next`. The marker stands at clock 0, so that a column
// without a point is due on the row of that clock: it then shows the marker, as before.
bool SeriesWalk::NextRow() {
  bool isActive = false;
  int clock = K_INTMAX;
  for (Place& place : mPlaces) {
    if (place.series == nullptr || !place.series->IsCurrentIn()) continue;
    isActive = true;
    if (place.next == &mMarker) place.next = place.series->GetCurrent();
    clock = std::min(clock, place.next->GetClock());
  }
  if (!isActive) return false;
  mClock = clock;
  for (Place& place : mPlaces) {
    place.isNew = place.next->GetClock() == clock;
    if (!place.isNew) continue;
    place.last = place.next;
    place.next = &mMarker;
    if (place.series != nullptr) place.series->GoNext2(false);
  }
  return true;
}
