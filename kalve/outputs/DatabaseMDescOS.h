// DatabaseMDescOS: series in a table of a database, one record for each clock of an instance:
//
//   sim_idn   number of the simulation, only with SetIsNumIdentified
//   instanceName
//   T         clock, or date in ISO_8601
//   ...       one column for each descriptor, under its whole name
//
// A column repeats its last value; it has none before its first. The walk over the series is here. How a
// record goes into the database is left to the classes below, through six operations, called in this order:
//
//   BeginSQLInsertion (BeginRecord NextValue... EndRecord)... FinishSQLInsertion
//
// The table must exist. Dates are CLOCK or ISO_8601: SetTimeType and SetAllOrFinal follow the constructor.
#pragma once

#include <string>
#include <vector>

#include "kalve/outputs/MultipleDescriptorOS.h"

class DatabaseMDescOS : public MultipleDescriptorOS {
 public:
  DatabaseMDescOS(int isPlotted, int isRecorded, int isSaved);

  /// Sends all that there is as one insertion; a second dump sends it again. Without an instance only
  /// standard output hears of it, and nothing is connected.
  void DisplayTimeSeries() override;

  // How records go into the database
  /// Connects, or ends the run; `columns` are the names of the values of each record.
  virtual void BeginSQLInsertion(std::vector<std::string> columns) = 0;
  /// Sends the rest and disconnects.
  virtual void FinishSQLInsertion() = 0;
  /// A further value of the record, as SQL writes it: "''" stands for none, and is not quoted again.
  virtual void NextValue(std::string value) = 0;
  virtual void BeginRecord() = 0;
  virtual void EndRecord() = 0;
  /// A text, a name or a date of ISO_8601 as NextValue takes it.
  virtual std::string FormatTextValue(std::string value) = 0;

  /// Whom and where the records go to. The table name "default" stands for the class of the specification. An
  /// empty password is not sent.
  void ConfigureDatabase(const char* user, const char* databaseName, const char* tableName,
                         const char* password);
  const std::string& GetUser() const { return mUser; }
  const std::string& GetPassword() const { return mPassword; }
  const std::string& GetDatabaseName() const { return mDatabaseName; }
  const std::string& GetTableName() const { return mTableName; }

 protected:
  /// The name that stands in statements.
  std::string TargetTable() const;

 private:
  void AddRecords(SeriesWalk& walk, const EntityInstanceOS& instance);

  std::string mUser;
  std::string mPassword;
  std::string mDatabaseName;
  std::string mTableName;
};
