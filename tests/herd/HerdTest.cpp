// The example herd, run as its users run it: from its files, in a folder of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
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

std::string Replaced(std::string text, const std::string& old, const std::string& replacement) {
  return text.replace(text.find(old), old.size(), replacement);
}

class HerdTest : public ::testing::Test {
 protected:
  HerdTest() {
    for (const auto& entry : std::filesystem::directory_iterator(HERD_FOLDER))
      if (entry.is_regular_file()) std::filesystem::copy(entry.path(), mFolder.Path(entry.path().filename()));
    Write("words", "");
  }

  std::string File(const char* name) const { return ReadAll(mFolder.Path(name)); }
  /// What the herd prints.
  std::string Run(const std::string& options, const std::string& outputs = "season.out") const {
    const std::string command = "cd '" + mFolder.Path("") + "' && '" HERD_PROGRAM "' season.prm season.sim " +
                                outputs + " season.str season.dir " + options + " <words >printed 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << options;
    return File("printed");
  }

  void Remove(const char* name) const { std::filesystem::remove(mFolder.Path(name)); }
  void Write(const char* name, const std::string& bytes) const { mFolder.Write(name, bytes); }

 private:
  TemporaryFolder mFolder;
};

// The numbers of a whole season, as they were when the model was last changed: what reaches them are all
// parts of the kernel, and a change that shifts one of them is seen here.
TEST_F(HerdTest, LivesTheSeasonThatIsKnown) { EXPECT_EQ(Run("-BATCH"), ReadAll(HERD_GOLDEN)); }

TEST_F(HerdTest, RepeatsARunByItsNumber) {
  const std::string third = Run("-BATCH -IDN 3");
  EXPECT_EQ(Run("-BATCH -IDN 3"), third);
  EXPECT_NE(Run("-BATCH -IDN 4"), third);
}

/// The lines of a file of series that begin with the number of a run.
std::string LinesOfRun(int number, const std::string& text) {
  std::istringstream lines(text);
  std::string found;
  for (std::string line; std::getline(lines, line);)
    if (std::atoi(line.c_str()) == number) found += line + "\n";
  return found;
}

TEST_F(HerdTest, ARunOfADesignGivesWhatItGivesAlone) {
  constexpr int run = 5;  // the second setting: no fertiliser
  const char* const series[] = {"runs_paddocks.txt", "runs_cows.txt", "runs_tank.txt"};
  Run("-EXPE stocking.exp", "stocking.out");
  std::map<std::string, std::string> inDesign;
  for (const char* name : series) inDesign[name] = LinesOfRun(run, File(name));
  for (const char* name : series) Remove(name);
  Write("season.prm", Replaced(File("season.prm"), "Paddock nitrogen = 60.0", "Paddock nitrogen = 0.0"));
  Run("-BATCH -IDN 5", "stocking.out");
  for (const char* name : series) {
    EXPECT_EQ(inDesign[name], LinesOfRun(run, File(name))) << name;
    EXPECT_NE(inDesign[name], "") << name;
  }
}

TEST_F(HerdTest, AnswersItsUserInterface) {
  Write("words",
        "EXEC EVENTSTEP MODIFY - hortense weight 700 QUERY DESCRIPTOR hortense weight CURRENTVALUE "
        "QUERY STRUCTURE hortense EXEC CONTINU 0 EXIT ");
  setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // EXIT leaves the run as it stands
  const std::string dialogue = Run("");
  unsetenv("ASAN_OPTIONS");
  const char* const answers[] = {
      "\n\nUPDATE DATE {jour 92 ; 0h0' | UT 0 | 0%}\nWAIT MESSAGE\n",
      "ANSWER DESCRIPTOR hortense weight F 0 5472 -9 -9 1 1 {0 ; 700 | }\n",
      "ANSWER STRUCTURE hortense COMP {Udder_92 VOID {} } \n",
  };
  std::size_t place = 0;
  for (const char* answer : answers) {
    place = dialogue.find(answer, place);
    ASSERT_NE(place, std::string::npos) << answer << "in" << dialogue;
  }
  EXPECT_EQ(dialogue.find("FIN RUN"), std::string::npos);  // EXIT came first
}

TEST_F(HerdTest, NamesTheEventThatTheAgendaRefuses) {
  EXPECT_NE(Run("-BATCH -Warn").find("n'est pas entr\xe9 dans l'agenda"), std::string::npos);
}

TEST_F(HerdTest, ExportsItsClasses) {
  Run("-EXPORT");
  EXPECT_NE(File("herd_classes.cls")
                .find("\nEntity Cow {\n\tClassSymbol\t\t: Cow\n\tClassName\t\t: Cow"
                      "\n\tSetParentClassId\t: KV_ENTITY"),
            std::string::npos)
      << File("herd_classes.cls");
  EXPECT_NE(File("herd_descriptors.cls").find("\nDescriptor SeasonMilk {"), std::string::npos);
  EXPECT_EQ(File("herd_classes.cls").find("FarmUnit {"), std::string::npos);  // has no instances of its own
}

}  // namespace
