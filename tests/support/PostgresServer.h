// A PostgreSQL server that lives as long as the object, in a temporary folder and on a private socket. While
// it stands, libpq finds it through PGHOST. It ends with this process, however that one ends.
#pragma once

#include <sys/types.h>

#include <string>

class PostgresServer {
 public:
  /// Takes a second or two. Throws std::runtime_error when there is no server to start.
  PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;
  /// Nothing in a child of the process that made it.
  ~PostgresServer();

  /// What the statements, run in the database for the user, answer: a line for each row, with "|" between its
  /// values and "NULL" for none. Throws std::runtime_error with the server's words.
  std::string Run(const std::string& database, const std::string& user, const std::string& statements) const;
  /// Waits until nobody is connected to the database: a copy whose end nobody awaits lasts longer than its
  /// client.
  void AwaitTheOthers(const std::string& database) const;
  /// Ends the server as a crash would, with all connections.
  void Kill();

 private:
  pid_t mOwner;
  pid_t mScript = -1;
  int mLifeLine = -1;  // the script ends when it is closed
  std::string mFolder;
  std::string mOuterHost;
};
