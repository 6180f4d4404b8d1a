#include "tests/dialogue/UserInterface.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr int patience = 20000;  // milliseconds

}  // namespace

UserInterface::UserInterface(std::initializer_list<const char*> options) {
  std::signal(SIGPIPE, SIG_IGN);
  std::vector<char*> arguments{const_cast<char*>("dialogue_model")};
  for (const char* option : options) arguments.push_back(const_cast<char*>(option));
  arguments.push_back(nullptr);
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) std::abort();
  mChild = fork();
  if (mChild == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    std::signal(SIGPIPE, SIG_DFL);
    execv(KALVE_DIALOGUE_MODEL, arguments.data());
    _exit(99);
  }
  close(in[0]);
  close(out[1]);
  mInput = in[1];
  mOutput = out[0];
  mOpening = ReadUntil("Ready\n");
}

UserInterface::~UserInterface() {
  if (IsRunning()) {
    kill(mChild, SIGKILL);
    waitpid(mChild, nullptr, 0);
  }
  Close();
  close(mOutput);
}

void UserInterface::Send(const std::string& bytes) const {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const ssize_t n = write(mInput, bytes.data() + sent, bytes.size() - sent);
    if (n <= 0) return;  // the program is gone
    sent += static_cast<std::size_t>(n);
  }
}

void UserInterface::SendAndSettle(const std::string& bytes) const {
  Send(bytes);
  for (int left = 1, turns = 0; left > 0 && turns < patience; ++turns) {
    ioctl(mInput, FIONREAD, &left);
    if (left > 0) std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
}

void UserInterface::Close() {
  if (mInput != -1) close(mInput);
  mInput = -1;
}

bool UserInterface::ReadMore(int milliseconds) {
  pollfd waited{mOutput, POLLIN, 0};
  if (poll(&waited, 1, milliseconds) <= 0) return false;
  std::array<char, 65536> buffer{};
  const ssize_t n = read(mOutput, buffer.data(), buffer.size());
  if (n <= 0) return false;
  mCome.append(buffer.data(), static_cast<std::size_t>(n));
  return true;
}

std::string UserInterface::ReadUntil(const std::string& end) {
  std::size_t found;
  while ((found = mCome.find(end)) == std::string::npos)
    if (!ReadMore(patience)) return std::exchange(mCome, "");
  std::string answer = mCome.substr(0, found + end.size());
  mCome.erase(0, answer.size());
  return answer;
}

std::string UserInterface::Answer(const std::string& words) {
  const std::string last = "ANSWER STRUCTURE # VOID {} \n\n";
  const std::string answer = Ask(words + " QUERY STRUCTURE # ", last);
  return answer.ends_with(last) ? answer.substr(0, answer.size() - last.size()) : answer + "(no end)";
}

std::string UserInterface::ReadAll() {
  while (ReadMore(patience)) {
  }
  return std::exchange(mCome, "");
}

std::string UserInterface::ReadShortly() {
  ReadMore(50);
  return std::exchange(mCome, "");
}

std::string UserInterface::ReadUntilQuiet() {
  while (ReadMore(100)) {
  }
  return std::exchange(mCome, "");
}

int UserInterface::Status() {
  if (mIsOver) return -1;
  int status = 0;
  waitpid(mChild, &status, 0);
  mIsOver = true;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool UserInterface::IsRunning() {
  if (!mIsOver) mIsOver = waitpid(mChild, nullptr, WNOHANG) == mChild;
  return !mIsOver;
}
