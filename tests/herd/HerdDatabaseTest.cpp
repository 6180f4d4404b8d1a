// The herd before a real server: tables made from its output specifications, and filled by a run.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/PostgresServer.h"
#include "tests/support/TemporaryFolder.h"

namespace {

TEST(HerdDatabaseTest, OneCommandMakesTheTablesAndFillsThem) {
  const PostgresServer server;
  server.Run("postgres", "postgres", "CREATE ROLE farm LOGIN");
  server.Run("postgres", "postgres", "CREATE DATABASE herd OWNER farm");
  const TemporaryFolder folder;
  for (const auto& entry : std::filesystem::directory_iterator(HERD_FOLDER))
    if (entry.is_regular_file()) std::filesystem::copy(entry.path(), folder.Path(entry.path().filename()));
  const std::string command =
      "cd '" + folder.Path("") + "' && ./database '" HERD_PROGRAM "' -IDN 7 >printed 2>errors";
  for (int run = 0; run < 2; ++run) ASSERT_EQ(std::system(command.c_str()), 0);  // tables that are there stay
  server.AwaitTheOthers("herd");

  const auto rows = [&](const std::string& query) { return server.Run("herd", "farm", "SELECT " + query); };
  EXPECT_EQ(rows("count(*), min(sim_idn), max(sim_idn) FROM sward"), "16|7|7\n");
  EXPECT_EQ(rows("count(DISTINCT instanceName), min(T)::date FROM Cow"), "42|2008-04-01\n");
  // The milk of the heifers that have not calved yet, and of the whole herd in May.
  EXPECT_EQ(rows("count(*) FROM Cow WHERE instanceName LIKE 'heifer%' AND T < '2008-04-20' AND milk > 0"),
            "0\n");
  EXPECT_EQ(rows("bool_and(milk BETWEEN 15 AND 40) FROM Cow WHERE instanceName = 'cow1' "
                 "AND T BETWEEN '2008-05-01' AND '2008-05-31'"),
            "t\n");
}

}  // namespace
