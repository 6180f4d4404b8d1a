// Runs a case in a process of its own, for what a test can only see from outside: a failure that ends the
// process, and everything that goes to standard output.
#pragma once

#include <functional>
#include <string>

struct ChildOutcome {
  std::string output;   ///< all of standard output, as bytes
  int exitStatus = -1;  ///< -1 when a signal ended the child
  int signal = 0;
};

/// Forks, calls `body` with standard output captured and `input` on standard input, and waits. The child is
/// killed after a minute. A body that returns ends its child with status 7, so that a test can tell a return
/// from a failure, whose status is 0.
ChildOutcome RunInChild(const std::function<void()>& body, const std::string& input = "");

/// True in a child of RunInChild, which may end as it likes.
bool IsChildProcess();

inline constexpr int bodyReturned = 7;

/// What `body` printed, with `input` to read; the calling test fails when it did not return.
std::string OutputOf(const std::function<void()>& body, const std::string& input = "");

/// What `body` printed until a failure ended it, from the last "\n!!!====" on and without "ERROR \n"; the
/// calling test fails when it ended in another way.
std::string FailureOf(const std::function<void()>& body);

/// ISO-8859-1 as the kernel writes it, from UTF-8, for literals that come from a file.
std::string Latin1(const std::string& utf8);
