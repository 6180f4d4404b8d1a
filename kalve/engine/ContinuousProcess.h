// ContinuousProcess: an activity that goes forward in steps. Within one event it advances the clock itself,
// step after step, as long as no other event of the agenda is due before its next step; when one is, it
// posts an event that resumes it.
//
// It is initialised by an INIT couple, steps in PROCEED couples, and is stopped by a STOP couple, by the end
// clock, or by itself; the disposal of its event then frees it.
#pragma once

#include "kalve/engine/Process.h"

class ContinuousProcess : public Process {
 public:
  /// For derived classes: enters no table of instances.
  ContinuousProcess();
  explicit ContinuousProcess(int classSymbol);
  ContinuousProcess(int classSymbol, const char* className);
  /// With copies of the methods.
  ContinuousProcess(const ContinuousProcess& other);
  /// Takes all but number and instance name; assigns the methods rank by rank. Answers `other`.
  const ContinuousProcess& operator=(const ContinuousProcess& other);
  /// Leaves the methods alone.
  ~ContinuousProcess();
  /// Destroys the methods, then destroys and frees the process as its true class. ProcessDispatch.cpp
  void DeleteInDepth();

  void SetInitialize(VoidBody body);
  void SetGoOneStepForward(VoidBody body);
  void SetStop(VoidBody body);
  /// Clock ticks of a step; Pas is another name for it.
  int Step() const { return mStep; }
  void Step(int step) { mStep = step; }
  int Pas() const { return mStep; }
  void Pas(int step) { mStep = step; }
  int IsReadSDF() const { return mIsReadSDF; }
  void IsReadSDF(int flag) { mIsReadSDF = flag; }

  // Postings: Postings.cpp. Each posts an event at a clock, with priority 0 unless given, and answers
  // whether the agenda took it; a refused event is freed.
  int PostInitialisationEvent(int clock);
  int PostInitialisationEvent(int clock, int priority);
  int PostInitAndProceedEvent(int clock);
  int PostInitAndProceedEvent(int clock, int priority);
  int PostProceedEvent(int clock);
  int PostProceedEvent(int clock, int priority);
  /// Two events, both or neither.
  int PostInitThenProceedEvent(int initClock, int proceedClock);
  int PostInitThenProceedEvent(int initClock, int proceedClock, int priority);

  // Stepping: Stepping.cpp
  /// Steps from the present clock until another event is due; the simulated clock advances.
  void Proceed(Event* event);
  /// Non-zero when the stepping must leave before a step at `nextClock`.
  int CheckForInterruption(int nextClock, Event* event);
  int ToBeStopped() const { return mToBeStopped; }
  /// 1 also marks the process for deletion and records its end.
  void ToBeStopped(int flag);
  /// Notes the end at the present clock in the output specification, if there is one. EventOutputs.cpp
  void RecordStop();

  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

 private:
  int MustLeave(int nextClock, Event* event);
  void Resume(int nextClock, Event* event);
  void TakeFlags(const ContinuousProcess& other);

  int mStep = 1;
  int mToBeStopped = 0;
  int mIsReadSDF = 0;

  static int _nbConst;
  static int _nbDest;
};

/// Resuming events posted while the action trace was on.
extern int gNbProgReprise;
