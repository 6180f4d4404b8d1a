// How words are taken from standard input.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <iostream>
#include <sstream>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/engine/Words.h"
#include "tests/support/ChildProcess.h"

namespace {

/// What `body` printed with `input` to read.
std::string OutputOn(const std::string& input, const std::function<void()>& body) {
  const ChildOutcome outcome = RunInChild(body, input);
  EXPECT_EQ(outcome.exitStatus, bodyReturned) << outcome.output;
  return outcome.output;
}

void PrintAllWords() {
  char word[wordSize];
  for (CheckForWord(word); word[0] != '\0'; CheckForWord(word)) std::printf("[%s]", word);
}

TEST(Words, EndAtBlanksAndAtTheEndOfTheInput) {
  EXPECT_EQ(OutputOn("", PrintAllWords), "");
  EXPECT_EQ(OutputOn(" \t\r\n\v\f", PrintAllWords), "");
  EXPECT_EQ(OutputOn("  un\tdeux\n\ntrois\fquatre\vcinq\rsix", PrintAllWords),
            "[un][deux][trois][quatre][cinq][six]");
  EXPECT_EQ(OutputOn("\xE9t\xE9\xA0\xFF \x01", PrintAllWords), "[\xE9t\xE9\xA0\xFF][\x01]");
  // A word that is empty as a text counts as none.
  EXPECT_EQ(OutputOn(std::string("\0 a\0b c", 7),
                     [] {
                       PrintAllWords();
                       PrintAllWords();
                     }),
            "[a][c]");
}

TEST(Words, OfMoreThan49CharactersLoseTheirRest) {
  for (const std::size_t length : {48U, 49U, 50U, 51U, 100000U}) {
    const std::string kept(std::min<std::size_t>(length, 49), 'm');
    EXPECT_EQ(OutputOn(std::string(length, 'm') + " n", PrintAllWords), "[" + kept + "][n]") << length;
  }
}

TEST(Words, CanBeSkippedOneByOne) {
  EXPECT_EQ(OutputOn("un deux trois ",
                     [] {
                       SkipWord();
                       CheckInputFromIHM();
                       char word[wordSize];
                       WaitForWord(word);
                       std::printf("%s", word);
                     }),
            "deux");
}

TEST(Words, BeginBehindWhatTheApplicationHasRead) {
  EXPECT_EQ(OutputOn("un 12 trois quatre ",
                     [] {
                       std::string text;
                       int number = 0;
                       std::cin >> text >> number;
                       std::cin >> number;  // fails: the error state does not matter
                       PrintAllWords();
                     }),
            "[trois][quatre]");
  EXPECT_EQ(OutputOn("not this",
                     [] {
                       std::istringstream other("but this");
                       std::cin.rdbuf(other.rdbuf());
                       PrintAllWords();
                       std::cin.rdbuf(nullptr);
                       PrintAllWords();
                     }),
            "[but][this]");
}

TEST(Words, LeaveStandardInputAsTheRunFoundIt) {
  EXPECT_EQ(OutputOn("STOP ",
                     [] {
                       Simulation simulation;
                       pCurrentSim = &simulation;
                       simulation.InsertInAgendaEvents(new Event("e"), 1, 1);
                       fcntl(STDIN_FILENO, F_SETFL, O_APPEND);
                       const int before = fcntl(STDIN_FILENO, F_GETFL);
                       simulation.Run();
                       std::printf("%d", fcntl(STDIN_FILENO, F_GETFL) == before);
                     }),
            "FIN RUN\n1");
}

}  // namespace
