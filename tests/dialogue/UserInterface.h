// The other end of a dialogue: starts the model program with pipes on its standard input and output, as a
// user interface does.
#pragma once

#include <sys/types.h>

#include <initializer_list>
#include <string>

class UserInterface {
 public:
  /// Options of the model program.
  explicit UserInterface(std::initializer_list<const char*> options = {});
  UserInterface(const UserInterface&) = delete;
  UserInterface& operator=(const UserInterface&) = delete;
  /// Kills the program if it still runs.
  ~UserInterface();

  /// What the program wrote before its run.
  const std::string& Opening() const { return mOpening; }

  void Send(const std::string& bytes) const;
  /// Sends, and waits until the program has taken all of it.
  void SendAndSettle(const std::string& bytes) const;
  /// The end of the program's input.
  void Close();

  /// What comes, up to `end` and with it. What has come by then is the answer when nothing more comes.
  std::string ReadUntil(const std::string& end);
  /// What comes while the program runs.
  std::string ReadAll();
  /// What comes within a twentieth of a second.
  std::string ReadShortly();
  /// What comes until nothing more comes for a tenth of a second.
  std::string ReadUntilQuiet();
  std::string Ask(const std::string& words, const std::string& end) {
    Send(words);
    return ReadUntil(end);
  }
  /// Everything that the waiting program writes on the words.
  std::string Answer(const std::string& words);

  /// Exit status, -1 when a signal ended the program. To be called behind ReadAll.
  int Status();
  bool IsRunning();

 private:
  bool ReadMore(int milliseconds);

  pid_t mChild;
  int mInput;   // of the program, -1 when closed
  int mOutput;  // of the program
  std::string mCome;
  std::string mOpening;
  bool mIsOver = false;
};
