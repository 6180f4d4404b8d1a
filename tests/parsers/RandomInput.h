// Files with faults at random, and what is expected of their reading.
#pragma once

#include <random>
#include <string>

#include "tests/parsers/ParserTest.h"

class RandomInput : public ParserTest {
 protected:
  std::size_t Below(std::size_t n) { return random() % n; }
  char Byte() { return static_cast<char>(Below(256)); }

  std::string Mutated(std::string bytes) {
    for (std::size_t changes = 1 + Below(3); changes > 0; --changes) {
      const std::size_t at = Below(bytes.size());
      const std::size_t length = Below(12);
      switch (Below(5)) {
        case 0:
          bytes[at] = Byte();
          break;
        case 1:
          bytes.erase(at, length);
          break;
        case 2:
          bytes.insert(Below(bytes.size()), bytes.substr(at, length));
          break;
        case 3:
          bytes.insert(at, 1, ";{}\"\\#-0"[Below(8)]);
          break;
        default:
          bytes.resize(at + 1);
      }
      if (bytes.empty()) bytes = ";";
    }
    return bytes;
  }

  void ExpectOrderlyEnd(void (*parse)(const char*), const std::string& bytes) {
    folder.Write("f", bytes);
    const ChildOutcome outcome = RunInChild([&] {
      leaksDoNotMatter = 1;
      parse(path.c_str());
    });
    if (outcome.exitStatus == bodyReturned) return;
    EXPECT_EQ(outcome.exitStatus, 0) << bytes;
    EXPECT_NE(outcome.output.find(path + ", ligne "), std::string::npos) << bytes << outcome.output;
    EXPECT_TRUE(outcome.output.ends_with("\nERROR \n")) << bytes << outcome.output;
    ++faults;
  }

  std::mt19937 random{5};
  int faults = 0;
};
