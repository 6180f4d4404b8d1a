#include "tests/support/PostgresServer.h"

#include <fcntl.h>
#include <libpq-fe.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace {

using Connection = std::unique_ptr<PGconn, decltype(&PQfinish)>;
using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

void Pause() { usleep(2000); }

/// Up to a line end or the end of what comes.
std::string ReadLine(int end) {
  std::string line;
  for (char c; read(end, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

std::string TextOf(const PGresult* result) {
  std::string text;
  for (int row = 0; row < PQntuples(result); ++row) {
    for (int column = 0; column < PQnfields(result); ++column) {
      if (column > 0) text += '|';
      text += PQgetisnull(result, row, column) != 0 ? "NULL" : PQgetvalue(result, row, column);
    }
    text += '\n';
  }
  return text;
}

}  // namespace

// Both pipes close on exec, so that no other program keeps the server alive.
PostgresServer::PostgresServer() : mOwner(getpid()) {
  int in[2];
  int out[2];
  if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  mScript = fork();
  if (mScript == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    setsid();  // Ctrl-C ends the tests, and these the server
    execl(KALVE_POSTGRES_SERVER, KALVE_POSTGRES_SERVER, static_cast<char*>(nullptr));
    _exit(1);
  }
  close(in[0]);
  close(out[1]);
  mLifeLine = in[1];
  mFolder = ReadLine(out[0]);
  close(out[0]);
  if (mFolder.empty()) {
    close(mLifeLine);
    waitpid(mScript, nullptr, 0);
    throw std::runtime_error("the PostgreSQL server does not start");
  }
  const char* const outer = std::getenv("PGHOST");
  mOuterHost = outer != nullptr ? outer : "";
  setenv("PGHOST", mFolder.c_str(), 1);
  setenv("PGPORT", "5432", 1);
}

PostgresServer::~PostgresServer() {
  if (getpid() != mOwner) return;
  setenv("PGHOST", mOuterHost.c_str(), 1);
  close(mLifeLine);
  waitpid(mScript, nullptr, 0);
}

std::string PostgresServer::Run(const std::string& database, const std::string& user,
                                const std::string& statements) const {
  const std::string settings = "host=" + mFolder + " dbname=" + database + " user=" + user;
  const Connection connection(PQconnectdb(settings.c_str()), &PQfinish);
  if (PQstatus(connection.get()) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(connection.get()));
  PQsetNoticeProcessor(
      connection.get(), [](void*, const char*) {}, nullptr);
  const Result result(PQexec(connection.get(), statements.c_str()), &PQclear);
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
    throw std::runtime_error(PQerrorMessage(connection.get()));
  return TextOf(result.get());
}

void PostgresServer::AwaitTheOthers(const std::string& database) const {
  while (Run("postgres", "postgres",
             "SELECT count(*) FROM pg_stat_activity WHERE datname = '" + database + "'") != "0\n")
    Pause();
}

void PostgresServer::Kill() {
  pid_t server = 0;
  std::ifstream(mFolder + "/data/postmaster.pid") >> server;
  if (server <= 1) throw std::runtime_error("no number of the server's process");
  kill(server, SIGQUIT);
  while (PQping(("host=" + mFolder).c_str()) != PQPING_NO_RESPONSE) Pause();
}
