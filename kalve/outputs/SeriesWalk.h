// SeriesWalk: how every writer reads the series that it dumps. The columns of one instance are merged on one
// axis of clocks; each clock at which a column has a point makes one row, in which the other columns repeat
// their last point. Nothing is interpolated, and instances do not mix:
//
//   SeriesWalk walk(*this);
//   for (const EntityInstanceOS* instance : instances) {
//     walk.Enter(*instance);
//     while (walk.NextRow()) use(walk.Clock(), walk.Item(0), walk.Item(1)...);
//   }
//
// The walk moves the cursors of the series. It points into them: nothing may be recorded meanwhile.
#pragma once

#include <cstddef>
#include <vector>

#include "kalve/outputs/DescTimeSeries.h"

class SeriesWalk {
 public:
  struct Column {
    const DescriptorOS* descriptor;
    /// Rank of the series in the table of every instance.
    int series;
    int precision;
  };

  /// The specification must have an instance. Its first one decides on the columns: a descriptor of the
  /// writer without a series there has none, but takes its precision, so that those of the columns behind it
  /// shift by one.
  explicit SeriesWalk(const MultipleDescriptorOS& writer);

  const std::vector<Column>& Columns() const { return mColumns; }

  /// In front of the first row of an instance. One with some series, but fewer than the first instance has,
  /// is an index failure.
  void Enter(const EntityInstanceOS& instance);
  /// False behind the last row.
  bool NextRow();
  /// Clock of the row.
  int Clock() const { return mClock; }
  /// The point that a column shows, of type NO_VALUE while it has none.
  const ClockValueItem* Item(std::size_t column) const { return mPlaces[column].last; }
  /// Whether the point is of this row.
  bool IsNew(std::size_t column) const { return mPlaces[column].isNew; }

 private:
  struct Place {
    DescTimeSeries* series;
    const ClockValueItem* last;
    const ClockValueItem* next;
    bool isNew;
  };

  std::vector<Column> mColumns;
  std::vector<Place> mPlaces;
  int mClock = 0;
  ClockValueItem mMarker;  // stands for no point
};
