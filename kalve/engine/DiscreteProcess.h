// DiscreteProcess: a process that runs once, at its event's date.
#pragma once

#include "kalve/engine/Process.h"
#include "kalve/foundations/BlockPool.h"

class DiscreteProcess : public Process {
 public:
  DiscreteProcess();
  /// A shell for raw copies.
  explicit DiscreteProcess(bool withoutMethod) : Process(withoutMethod) { Subclass(DISCRETE_PROCESS); }
  explicit DiscreteProcess(int classSymbol);
  DiscreteProcess(int classSymbol, const char* className);
  /// With copies of the methods.
  DiscreteProcess(const DiscreteProcess& other);
  /// A copy of the true class that shares the methods, which describe it from now on; the caller owns it.
  /// This process may then only be destroyed shallowly. ProcessDispatch.cpp
  DiscreteProcess* RawCopy();
  /// Takes all but number and instance name; assigns the methods rank by rank. Answers `other`.
  const DiscreteProcess& operator=(const DiscreteProcess& other);
  /// Leaves the methods alone.
  ~DiscreteProcess() {
    if (g_KV_TraceNewDelMode != 0) TraceDestruction();
    ++_nbDest;
  }
  /// Destroys the methods, then destroys and frees the process as its true class. ProcessDispatch.cpp
  void DeleteInDepth();
  static void* operator new(std::size_t size) { return pool.Take(size); }
  static void operator delete(void* block) { pool.Give(block); }
  /// Replaces methods that describe another process by now with copies that describe this one.
  void TakeMethodsOfItsOwn();

  /// Runs at the event's date.
  void SetExec(VoidBody body);
  /// Marks of the processes that read factual files.
  int IsReadSDRec() const { return mIsReadSDRec; }
  void IsReadSDRec(int flag) { mIsReadSDRec = flag != 0; }
  int IsInitSDRec() const { return mIsInitSDRec; }
  void IsInitSDRec(int flag) { mIsInitSDRec = flag != 0; }

  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

 private:
  void ShareWith(const DiscreteProcess& other);
  void TakeFlags(const DiscreteProcess& other) {
    HasPrecondition(other.HasPrecondition());
    HasPostponementDelay(other.HasPostponementDelay());
  }
  void TraceDestruction() const;

  bool mIsReadSDRec = false;
  bool mIsInitSDRec = false;

  static BlockPool pool;
  static int _nbConst;
  static int _nbDest;
};
