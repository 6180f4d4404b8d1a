// The directive file: each directive takes effect when it has been read.
//
// The grammar fills the parts of `event` and `process`, then has the event or the process made. A process
// that a block names again is the one that the block has made.
#pragma once

#include <string>
#include <vector>

#include "kalve/foundations/Enumerations.h"
#include "kalve/parsers/DirectiveParts.h"
#include "kalve/parsers/ParseState.h"

class DataFileNames;

class DirectiveFile : public ParseState {
 public:
  /// SimulationNotYetCreated without pCurrentSim.
  explicit DirectiveFile(LexicalInputFile* file);

  // Events
  EventDirective event;
  void BeginEvent(const Position& where, const std::string& className);
  /// Its parts have been read, its couples follow.
  void MakeEvent();
  /// Hands the event to the agenda; a refused one is freed, with the processes that its block has made.
  void PostEvent();

  // Processes: DirectiveProcesses.cpp
  ProcessDirective process;
  void BeginProcess(const Position& where, const std::string& className);
  /// The parts have been read: the process of the couples that follow is made, or found in the block.
  void TakeProcess();
  /// A living continuous process, by instance name or else by class name, is the one of the couples.
  void TakeLivingProcess(const Position& where, const std::string& name);
  void AddCouple(const Position& where, ActionType action);
  /// A process that reads a data file has been read: posts what starts it.
  void PostReading();

 private:
  /// A process that the block of the event has made.
  struct MadeProcess {
    std::string className;
    std::string name;
    Process* process;
    bool isBound;
  };

  Event* NewEvent() const;
  void GiveName() const;
  void GiveChances() const;
  void GiveSuccessor() const;
  void GiveDate() const;
  void SetDate(const Moment& moment) const;

  Process* NewProcess() const;
  MadeProcess* FindMade();
  void Bind(Process* process) const;
  void GiveDurations(Process* process) const;
  int FileSymbol() const;
  void NameFile(DataFileNames& reader) const;
  int PostFirstReading(Process* process, int clock) const;

  /// One out of range is announced, for the failure that follows.
  static short AnnouncedPriority(const Part<int>& priority);

  Event* mEvent = nullptr;
  Process* mProcess = nullptr;
  std::vector<MadeProcess> mMade;
};
