#include "tests/support/ChildProcess.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace {

bool isChild = false;

[[noreturn]] void BeTheChild(const std::function<void()>& body, const int (&in)[2], const int (&out)[2]) {
  isChild = true;
  dup2(in[0], STDIN_FILENO);
  dup2(out[1], STDOUT_FILENO);
  for (int end : {in[0], in[1], out[0], out[1]}) close(end);
  alarm(60);
  body();
  std::cout.flush();
  std::fflush(stdout);
  _exit(bodyReturned);
}

void Feed(int end, const std::string& input) {
  std::size_t written = 0;
  while (written < input.size()) {
    const ssize_t n = write(end, input.data() + written, input.size() - written);
    if (n <= 0) break;
    written += static_cast<std::size_t>(n);
  }
  close(end);
}

}  // namespace

bool IsChildProcess() { return isChild; }

ChildOutcome RunInChild(const std::function<void()>& body, const std::string& input) {
  std::cout.flush();
  std::fflush(nullptr);
  int in[2];
  int out[2];
  if (pipe(in) != 0 || pipe(out) != 0) std::abort();
  const pid_t child = fork();
  if (child == 0) BeTheChild(body, in, out);
  close(in[0]);
  close(out[1]);
  Feed(in[1], input);
  ChildOutcome outcome;
  char buffer[4096];
  for (ssize_t n; (n = read(out[0], buffer, sizeof buffer)) > 0;)
    outcome.output.append(buffer, static_cast<std::size_t>(n));
  close(out[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFEXITED(status)) outcome.exitStatus = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) outcome.signal = WTERMSIG(status);
  return outcome;
}

std::string OutputOf(const std::function<void()>& body, const std::string& input) {
  const ChildOutcome outcome = RunInChild(body, input);
  EXPECT_EQ(outcome.exitStatus, bodyReturned) << outcome.output;
  return outcome.output;
}

std::string FailureOf(const std::function<void()>& body) {
  const ChildOutcome outcome = RunInChild(body);
  EXPECT_EQ(outcome.exitStatus, 0) << outcome.output;
  const std::string end = "ERROR \n";
  const std::size_t banner = outcome.output.rfind("\n!!!====");
  const bool isFailure = banner != std::string::npos && outcome.output.size() >= end.size() &&
                         outcome.output.compare(outcome.output.size() - end.size(), end.size(), end) == 0;
  EXPECT_TRUE(isFailure) << outcome.output;
  if (!isFailure) return outcome.output;
  return outcome.output.substr(banner, outcome.output.size() - end.size() - banner);
}

std::string Latin1(const std::string& utf8) {
  std::string text;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte >= 0xC2 && byte <= 0xC3 && i + 1 < utf8.size())
      text += static_cast<char>(((byte & 3U) << 6U) | (static_cast<unsigned char>(utf8[++i]) & 0x3FU));
    else
      text += utf8[i];
  }
  return text;
}
