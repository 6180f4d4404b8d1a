// The two writers of series into PostgreSQL. They send the same values in the same order:
//
//                          PostgresqlMDescOS            AltPostgresqlMDescOS
//   statement              COPY, record by record       one INSERT at the end
//   in memory              one record                   the whole dump
//   no value               NULL                         the empty text
//   texts, ISO_8601 dates  as they are                  between apostrophes
//
// Nothing is escaped: a copy takes tabs, line ends and backslashes of a text for its own, an insertion
// apostrophes. A dump opens a connection of its own to database and user, through "dbname=... user=..." and
// the password if there is one; libpq's own environment (PGHOST, PGCLIENTENCODING...) tells the rest. Without
// a connection standard output says so and the process ends with status 0. All else that the server refuses
// is told on standard error, and the run goes on.
#pragma once

#include <string>
#include <vector>

#include "kalve/outputs/DatabaseMDescOS.h"

struct pg_conn;
using PGconn = pg_conn;

// DeleteOutputSpecs destroys a writer as DatabaseMDescOS: between two dumps the texts below hold no memory.

class PostgresqlMDescOS : public DatabaseMDescOS {
 public:
  PostgresqlMDescOS(int isPlotted, int isRecorded, int isSaved);

  /// Where the server refuses the copy, every record is refused later on.
  void BeginSQLInsertion(std::vector<std::string> columns) override;
  /// Does not wait for what the server makes of the records: one that it cannot read goes unseen, and the
  /// table then gets nothing of the dump. Rows may show a moment later.
  void FinishSQLInsertion() override;
  void NextValue(std::string value) override;
  void BeginRecord() override {}
  void EndRecord() override;
  std::string FormatTextValue(std::string value) override { return value; }

 private:
  PGconn* mConnection = nullptr;
  bool mCopyIsOpen = false;
  std::string mRecordBuffer;
};

class AltPostgresqlMDescOS : public DatabaseMDescOS {
 public:
  AltPostgresqlMDescOS(int isPlotted, int isRecorded, int isSaved);

  void BeginSQLInsertion(std::vector<std::string> columns) override;
  /// The statement is refused or accepted whole.
  void FinishSQLInsertion() override;
  void NextValue(std::string value) override;
  void BeginRecord() override;
  void EndRecord() override;
  std::string FormatTextValue(std::string value) override { return "'" + value + "'"; }

  /// Sends the statement, then empties it.
  void ProcessSQLQuery();

 private:
  PGconn* mConnection = nullptr;
  std::string mQuery;
  bool mIsFirstValue = true;
  bool mIsFirstRecord = true;
};
