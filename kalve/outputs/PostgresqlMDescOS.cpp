#include "kalve/outputs/PostgresqlMDescOS.h"

#include <libpq-fe.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

Result Execute(PGconn* connection, const std::string& statement) {
  return {PQexec(connection, statement.c_str()), &PQclear};
}

PGconn* Connect(const DatabaseMDescOS& writer) {
  std::string settings = "dbname=" + writer.GetDatabaseName() + " user=" + writer.GetUser();
  if (!writer.GetPassword().empty()) settings += " password=" + writer.GetPassword();
  PGconn* const connection = PQconnectdb(settings.c_str());
  if (PQstatus(connection) == CONNECTION_OK) return connection;
  PQfinish(connection);
  std::printf("Postgresql: Impossible d'établir la connexion!!!");
  std::exit(0);
}

void ReportRefusal(const char* what, const PGconn* connection) {
  std::fprintf(stderr, "%s%s", what, PQerrorMessage(connection));
}

/// "table(a, b)"
std::string TableWithColumns(const std::string& table, const std::vector<std::string>& columns) {
  std::string text = table + "(";
  for (const std::string& column : columns) text += (&column == &columns.front() ? "" : ", ") + column;
  return text + ")";
}

void Disconnect(PGconn*& connection) {
  PQfinish(connection);
  connection = nullptr;
}

void FreeText(std::string& text) { std::string().swap(text); }

}  // namespace

// Copies --------------------------------------------------------------------------------------------------

PostgresqlMDescOS::PostgresqlMDescOS(int isPlotted, int isRecorded, int isSaved)
    : DatabaseMDescOS(isPlotted, isRecorded, isSaved) {}

void PostgresqlMDescOS::BeginSQLInsertion(
    std::vector<std::string> columns) {  // NOLINT: by value, as declared
  mConnection = Connect(*this);
  const Result result =
      Execute(mConnection, "COPY " + TableWithColumns(TargetTable(), columns) + " FROM STDIN");
  mCopyIsOpen = PQresultStatus(result.get()) == PGRES_COPY_IN;
  if (!mCopyIsOpen) ReportRefusal("Echec POSTGRES: requête COPY (ouverture)\n", mConnection);
}

void PostgresqlMDescOS::FinishSQLInsertion() {
  if (PQputCopyEnd(mConnection, nullptr) == -1)
    ReportRefusal("Echec POSTGRES: requête COPY (fermeture)\n", mConnection);
  else
    mCopyIsOpen = false;
  Disconnect(mConnection);
  FreeText(mRecordBuffer);
}

void PostgresqlMDescOS::NextValue(std::string value) {  // NOLINT: by value, as declared
  if (!mRecordBuffer.empty()) mRecordBuffer += '\t';
  mRecordBuffer += value == "''" ? "\\N" : value;
}

void PostgresqlMDescOS::EndRecord() {
  mRecordBuffer += '\n';
  if (mCopyIsOpen)
    PQputCopyData(mConnection, mRecordBuffer.data(), static_cast<int>(mRecordBuffer.size()));
  else
    std::fputs("Copie vers Postgresql impossible!!", stderr);
  mRecordBuffer.clear();
}

// Insertions ----------------------------------------------------------------------------------------------

AltPostgresqlMDescOS::AltPostgresqlMDescOS(int isPlotted, int isRecorded, int isSaved)
    : DatabaseMDescOS(isPlotted, isRecorded, isSaved) {}

void AltPostgresqlMDescOS::BeginSQLInsertion(
    std::vector<std::string> columns) {  // NOLINT: by value, as declared
  mConnection = Connect(*this);
  mQuery = "INSERT INTO " + TableWithColumns(TargetTable(), columns) + " VALUES ";
  mIsFirstValue = true;
  mIsFirstRecord = true;
}

void AltPostgresqlMDescOS::FinishSQLInsertion() {
  ProcessSQLQuery();
  Disconnect(mConnection);
}

void AltPostgresqlMDescOS::NextValue(std::string value) {  // NOLINT: by value, as declared
  if (!mIsFirstValue) mQuery += ", ";
  mQuery += value;
  mIsFirstValue = false;
}

void AltPostgresqlMDescOS::BeginRecord() {
  if (!mIsFirstRecord) mQuery += ", ";
  mQuery += '(';
  mIsFirstValue = true;
}

void AltPostgresqlMDescOS::EndRecord() {
  mQuery += ')';
  mIsFirstRecord = false;
}

void AltPostgresqlMDescOS::ProcessSQLQuery() {
  const Result result = Execute(mConnection, mQuery);
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
    ReportRefusal("Echec POSTGRES : ", mConnection);
  FreeText(mQuery);
}
