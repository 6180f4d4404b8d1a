// The example herd, run as its users run it: from its files, in a folder of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace {

std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

class HerdTest : public ::testing::Test {
 protected:
  HerdTest() {
    for (const auto& entry : std::filesystem::directory_iterator(HERD_FOLDER))
      if (entry.is_regular_file()) std::filesystem::copy(entry.path(), mFolder.Path(entry.path().filename()));
  }

  std::string File(const char* name) const { return ReadAll(mFolder.Path(name)); }
  /// What the herd prints.
  std::string Run(const std::string& options) const {
    const std::string command = "cd '" + mFolder.Path("") +
                                "' && '" HERD_PROGRAM
                                "' season.prm season.sim season.out season.str season.dir " +
                                options + " </dev/null >printed 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << options;
    return File("printed");
  }

 private:
  TemporaryFolder mFolder;
};

// The numbers of a whole season, as they were when the model was last changed: what reaches them are all
// parts of the kernel, and a change that shifts one of them is seen here.
TEST_F(HerdTest, LivesTheSeasonThatIsKnown) {
  EXPECT_EQ(Run("-BATCH"), ReadAll(HERD_GOLDEN));
}

TEST_F(HerdTest, RepeatsARunByItsNumber) {
  const std::string third = Run("-BATCH -IDN 3");
  EXPECT_EQ(Run("-BATCH -IDN 3"), third);
  EXPECT_NE(Run("-BATCH -IDN 4"), third);
}

TEST_F(HerdTest, NamesTheEventThatTheAgendaRefuses) {
  EXPECT_NE(Run("-BATCH -Warn").find("n'est pas entr\xe9 dans l'agenda"), std::string::npos);
}

TEST_F(HerdTest, ExportsItsClasses) {
  Run("-EXPORT");
  EXPECT_NE(File("herd_classes.cls").find("\nEntity Cow {\n\tClassSymbol\t\t: Cow\n\tClassName\t\t: Cow"
                                          "\n\tSetParentClassId\t: KV_ENTITY"),
            std::string::npos)
      << File("herd_classes.cls");
  EXPECT_NE(File("herd_descriptors.cls").find("\nDescriptor SeasonMilk {"), std::string::npos);
  EXPECT_EQ(File("herd_classes.cls").find("FarmUnit {"), std::string::npos);  // has no instances of its own
}

}  // namespace
