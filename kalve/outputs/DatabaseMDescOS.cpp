#include "kalve/outputs/DatabaseMDescOS.h"

#include <sstream>
#include <utility>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/outputs/OutputSpec.h"
#include "kalve/outputs/SeriesWalk.h"

DatabaseMDescOS::DatabaseMDescOS(int isPlotted, int isRecorded, int isSaved)
    : MultipleDescriptorOS(isPlotted, isRecorded, isSaved) {
  SetSubClass(database);
}

void DatabaseMDescOS::ConfigureDatabase(const char* user, const char* databaseName, const char* tableName,
                                        const char* password) {
  mUser = user;
  mDatabaseName = databaseName;
  mTableName = tableName;
  mPassword = password;
}

std::string DatabaseMDescOS::TargetTable() const {
  return mTableName == "default" ? GetEntityOutputSpec()->TargetClassName() : mTableName;
}

void DatabaseMDescOS::DisplayTimeSeries() {
  if (!HasInstances()) return;
  std::vector<std::string> columns;
  if (GetIsNumIdentified() != 0) columns.emplace_back("sim_idn");
  columns.emplace_back("instanceName");
  columns.emplace_back("T");
  SeriesWalk walk(*this);
  for (const SeriesWalk::Column& column : walk.Columns())
    columns.emplace_back(column.descriptor->GetDescName());
  BeginSQLInsertion(std::move(columns));
  for (const EntityInstanceOS* instance : GetEntityOutputSpec()->GetInstancesData())
    AddRecords(walk, *instance);
  FinishSQLInsertion();
}

namespace {

const char* const noValue = "''";

std::string ValueText(DatabaseMDescOS& writer, const ClockValueItem* item, int precision) {
  if (item->GetValueType() == NO_VALUE) return noValue;
  std::string text = UnifiedValueToString(item, precision);
  return item->GetValueType() == STRING ? writer.FormatTextValue(std::move(text)) : text;
}

}  // namespace

/// The texts of the columns are kept from record to record: most columns of a record repeat theirs.
void DatabaseMDescOS::AddRecords(SeriesWalk& walk, const EntityInstanceOS& instance) {
  const bool isNumbered = GetIsNumIdentified() != 0;
  const std::string number = isNumbered ? std::to_string(pCurrentSim->GetNumId()) : "";
  const std::string name = FormatTextValue(instance.GetEntityInstanceName());
  std::vector<std::string> shown(walk.Columns().size(), noValue);
  std::ostringstream date;
  walk.Enter(instance);
  while (walk.NextRow()) {
    BeginRecord();
    if (isNumbered) NextValue(number);
    NextValue(name);
    date.str({});
    OutputDateFromClock(walk.Clock(), GetTimeType(), date);
    NextValue(GetTimeType() == CLOCK ? date.str() : FormatTextValue(date.str()));
    for (std::size_t column = 0; column < shown.size(); ++column) {
      if (walk.IsNew(column))
        shown[column] = ValueText(*this, walk.Item(column), walk.Columns()[column].precision);
      NextValue(shown[column]);
    }
    EndRecord();
  }
}
