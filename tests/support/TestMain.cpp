// The main of every test binary. A failure of the kernel ends its process with status 0: without this, a test
// that it cuts short would count as passed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "tests/support/ChildProcess.h"

namespace {

bool isOver = false;

void RefuseToEndEarly() {
  if (isOver || IsChildProcess()) return;
  std::fputs("\n[  FAILED  ] a test ended its process\n", stdout);
  std::fflush(stdout);
  _exit(3);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::atexit(RefuseToEndEarly);
  const int status = RUN_ALL_TESTS();
  isOver = true;
  return status;
}
