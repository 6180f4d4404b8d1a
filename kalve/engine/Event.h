// Event: one entry of the agenda, a dated and prioritised list of couples (process, action).
//
// An event is built by constructor and owned by its maker until the agenda accepts it; from then on the
// agenda owns it. It owns its couples, never their processes. It owns its methods unless a raw copy shares
// them: the destructor leaves them alone, DeleteInDepth destroys them. Class names are kept as pointers: the
// text must outlive the event.
#pragma once

#include "kalve/engine/Couples.h"
#include "kalve/engine/Process.h"
#include "kalve/foundations/BlockPool.h"
#include "kalve/foundations/RareText.h"
#include "kalve/methods/LazyMethods.h"

class Event {
 public:
  using VoidBody = void (*)(EventMethod*);
  using BoolBody = bool (*)(EventMethod*);
  using IntBody = int (*)(EventMethod*);

  // Life: EventLife.cpp
  /// With the seven predefined methods.
  Event();
  explicit Event(const char* className);
  Event(int classSymbol, const char* className);
  /// Priority from 0 to 99 (UnexpectedPriorityDegree).
  Event(short priority, const char* className);
  /// With the methods that the two flags ask for, beside those that draw dates.
  Event(const char* className, int autoGenerate, int postConsequence);
  /// A shell for raw copies: no method, no instance, not counted; false is reported and goes on.
  explicit Event(bool withoutMethod);
  /// Number and name of its own, copies of the methods, and new processes for the couples; two couples over
  /// one process stay so.
  Event(const Event& other);
  /// A successor of the same class that shares methods with this event, which may then only be destroyed
  /// shallowly. Discrete processes are raw-copied, continuous ones copied. The caller owns it.
  Event* RawCopy();
  /// Takes all but number and instance name; shares the processes, assigns the methods rank by rank.
  /// Answers `other`.
  const Event& operator=(const Event& other);
  /// Methods and processes live on.
  ~Event();
  /// Destroys the methods, then destroys and frees the event; the pointer is dead afterwards.
  void DeleteInDepth();
  // EventDisposal.cpp
  /// Frees the processes of the couples, each once.
  void DeleteProcesses();
  /// Frees what the event is done with: discrete processes (their methods too if `inDepth`) and continuous
  /// ones that are to be deleted; processes that another event of an agenda holds are spared.
  void DeleteProcessesIfNeeded(bool inDepth);
  static void* operator new(std::size_t size) { return pool.Take(size); }
  static void operator delete(void* block) { pool.Give(block); }

  // Identity
  int ClassSymbol() const { return mClassSymbol; }
  void ClassSymbol(int symbol) { mClassSymbol = symbol; }
  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name);
  const char* InstanceName() const;
  void SetInstanceName(const char* name);
  /// "name_number".
  void SetInstanceName(const char* name, int number);
  /// Gives the next instance number, class and name; numbers are never used again.
  void AddInstance(int classSymbol, const char* className);
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

  // Date and place in the agenda
  int OccurrenceClockTime() const { return mTerms.clock; }
  void SetOccurrenceClockTime(int clock) { Place(clock, mTerms.priority); }
  /// Bounds of a drawn date; -9 when not given.
  int MinOccurrenceClockTime() const { return mTerms.minClock; }
  int MaxOccurrenceClockTime() const { return mTerms.maxClock; }
  void SetMinOccurrenceClockTime(int clock) { mTerms.minClock = clock; }
  /// Draws the date, once, by method RANDOMIZE_THISEVENTCLOCKTIME between the two bounds; equal bounds draw
  /// nothing. UnauthorizedMaxOccurenceClockTime when the minimum is not set.
  void SetMaxOccurrenceClockTime(int clock);
  /// Local calendar dates; a negative year is that of the present clock. pCurrentSim must have a clock unit.
  void SetOccurrenceDate(int day, int month, int year);
  void SetOccurrenceDate(int day, int month, int year, int hour, int minute, int second);
  /// On the real present day.
  void SetThisDayOccurrenceDate(int hour, int minute, int second);
  /// From 0 to 99, smaller first; 99 unless set.
  short PriorityDegree() const { return mTerms.priority; }
  void SetPriorityDegree(short degree);
  /// Chance of entering the agenda, from 0 to 1 (or 0 to 100 percent): UnexpectedProbability outside.
  float GetOccurrenceProbability() const { return mTerms.probability; }
  void SetOccurrenceProbability(float probability);
  void SetOccurrenceProbability(int percent);

  // Successor
  int IsAutoGenerate() const { return mMarks.isAutoGenerate; }
  void IsAutoGenerate(int flag) { mMarks.isAutoGenerate = flag; }
  const char* NextEventClassName() const { return mNextEventClassName.Get(); }
  void SetNextEventClassName(const char* name) { mNextEventClassName.Set(name); }
  Event* NextEvent() const { return mNextEvent; }
  void SetNextEvent(Event* event) { mNextEvent = event; }
  /// Clock ticks to the successor; they can be set on an autogenerated event only
  /// (UnexpectedDelayNextEvent).
  int MinDelayNextEvent() const { return mTerms.minDelay; }
  int MaxDelayNextEvent() const { return mTerms.maxDelay; }
  void SetMinDelayNextEvent(int delay);
  void SetMaxDelayNextEvent(int delay);
  /// Kept for applications; the successor enters the agenda by its own probability.
  float NextEventOccurrenceProbability() const { return mTerms.nextProbability; }
  void SetNextEventOccurrenceProbability(float probability);
  void SetNextEventOccurrenceProbability(int percent);
  int HasPostConsequence() const { return mMarks.hasPostConsequence; }
  void HasPostConsequence(int flag) { mMarks.hasPostConsequence = flag; }

  // Couples
  Tableau<StructProcessAction*> ListpProcessAction() const { return mListpProcessAction.Table(); }
  int LengthListProcessAction() const { return mListpProcessAction.size(); }
  /// Adds a couple behind the others: actions of one process by rising number, at most one PROCEED, steps of
  /// continuous processes rising within an action (UnexpectedAddToListProcessAction).
  void AddProcessAction(Process* process, ActionType action);
  /// By class name: a living process, else one of the application's making, after a warning.
  void AddProcessAction(const char* processClassName, ActionType action);
  /// Inserts a couple by action and step; one PROCEED at most (UnexpectedInsertInListProcessAction).
  void InsertProcessAction(Process* process, ActionType action);
  void InsertProcessAction(const char* processClassName, ActionType action);
  void DisplayListProcessAction() const;
  /// Process and action of the first couple; null and UNSPECIFIED_ACTION, with a warning, without couples.
  Process* FirstProcess();
  ActionType FirstActionLabel();
  /// Frees the couples; the processes stay.
  void ClearListProcessAction();
  // EventProcessedEntity.cpp
  /// Entity of the process of that class, else of the last process; null when it is bound to none.
  /// UnfoundProcessInEvent without couples.
  BasicEntity* ProcessedBasicEntity(int processClass);
  Entity* ProcessedEntity(int processClass);
  /// Binds the process of that class (UnfoundProcessInEvent, BadProcessedEntityClass).
  void ProcessedEntity(int processClass, BasicEntity* entity);

  // Behaviour: EventMethods.cpp
  void SetPostConsequence(VoidBody body);
  void SetGenerateNextEvent(BoolBody body);
  /// This one and the next exclude each other: the last call wins.
  void SetUpdateNextEvent(VoidBody body);
  void SetDefineNextEventClockTime(IntBody body);
  void SetRandomizeThisEventClockTime(IntBody body);
  void SetRandomizeNextEventClockTime(IntBody body);
  void SetIsPoppingToSuspendMethod(BoolBody body);

  // Methods. An id without method is reported (TabIndexOutOfRange), and null, 0, false or nothing follows.
  /// Ignores methods that are not for events.
  void AddMethod(Method* method);
  Method* GetMethod(int id);
  /// The same, and null for a method without body.
  Method* GetMethodWithBody(int id);
  /// The first of that name, or null.
  Method* GetMethod(const char* name) const { return mMethods.Named(name); }
  Tableau<Method*> MethodTab() const { return mMethods.Methods(); }
  Tableau<int> DualMethodTab() const { return mMethods.Ranks(); }
  void AssignBody(int id, VoidBody body);
  void AssignBody(int id, BoolBody body);
  void AssignBody(int id, IntBody body);
  void SetIntArgValue(int methodId, int argumentId, int value);
  void SetEventArgValue(int methodId, int argumentId, Event* value);
  /// Run the body without a look at the method's type.
  void ExecVoidCoreMethod(int id);
  bool ExecCorePredicate(int id);
  int ExecIntCoreMethod(int id);
  /// BadMethodValueType for a method of another type.
  void ExecVoidMethod(int id);
  bool ExecPredicate(int id);
  int ExecIntMethod(int id);

  /// Whether a method that makes or dates a successor has a body.
  bool HasGeneration();

  // Consequences: EventConsequences.cpp
  /// Acts on each couple in turn. Answers this event, a postponed copy that stands in the agenda already, or
  /// null when that copy was refused.
  Event* ApplyConsequences();
  /// Non-zero when a successor was made (NextEvent).
  int GenerateNextEventCore();

  // Recording: EventOutputs.cpp
  int IsRecorded() const { return mMarks.isRecorded; }
  /// The specification in charge of the class, found when the event got its class name; null without one.
  EventOutputSpec* GetOutputSpec() const { return mMarks.outputSpec; }
  /// Notes an occurrence at the event's own date there; nothing when there is none.
  void RecordPop() const;

  // Suspension marks
  int GetIsPoppingToSuspend() const { return mIsPoppingToSuspend; }
  void SetIsPoppingToSuspend(int flag) { mIsPoppingToSuspend = flag; }
  int GetIsPoppingToResume() const { return mIsPoppingToResume; }
  void SetIsPoppingToResume(int flag) { mIsPoppingToResume = flag; }

  static int mInstanceNumber;

  /// Asks for memory that the events behind the head will need when they are popped: of the fourth, the event
  /// itself, and of those before it what each turn found to be needed next. EventPlace.cpp
  static void FetchBehind(const Cell<Event*>* head);
  /// The agenda says that the event joins or leaves it: processes count the pending events that hold them.
  void EnterAgenda() { StandInAgendas(1); }
  void LeaveAgenda() { StandInAgendas(-1); }
  /// The process is about to die: its couples are passed over from now on.
  void ForgetProcess(const Process* process);

 private:
  friend class AgendaIndex;
  friend struct AgendaProbe;

  struct Raw {};
  Event(const Event& source, Raw);

  /// Every write of date and priority passes here.
  void Place(int clock, short priority) {
    if (mAgendas != 0) TellAgendas(clock, priority);
    mTerms.clock = clock;
    mTerms.priority = priority;
  }
  /// EventPlace.cpp
  void TellAgendas(int clock, short priority) const;
  void TakeTerms(const Event& other);
  void TraceConstruction() const;
  void StandInAgendas(int change) {
    mAgendas += change;
    CountCouples(change);
  }
  void CountCouples(int change) {
    for (StructProcessAction* couple : mListpProcessAction)
      if (couple->process != nullptr) couple->process->mAgendaCouples += change;
  }
  void Append(Process* process, ActionType action, int rank);
  void LetGoOfCouples() {
    // Outside of an agenda the processes may be gone already.
    if (mAgendas != 0) CountCouples(-mAgendas);
    mListpProcessAction.Clear();
  }
  template <class NewDiscrete>
  void CopyCouples(const Event& other, NewDiscrete newDiscrete);
  Process* ProcessOfClass(int processClass);
  Tableau<Process*> DistinctProcesses() const;
  template <class Act>
  void ForEachProcess(Act act) const;
  void ReportAbsent(int id, const char* caller) const;
  Method* MethodOr(int id, const char* caller);
  Method* MethodWithBody(int id, const char* caller);
  template <class Result>
  Result Exec(int id, const char* caller);
  template <class Result>
  Result ExecTyped(int id, ValueTypeId type, const char* caller, const char* operation);
  template <class Body>
  void Assign(int id, Body body);
  void ApplyExec(Process* process, int clock, Event*& result, int& inserted);
  void ApplyInit(Process* process, int clock, Event*& result, int& inserted);
  void ApplyStop(Process* process);
  void ApplyProceed(Process* process);
  void DescribeByMethods();
  void Postpone(Process* process, int clock, Event*& result, int& inserted);

  /// When the event occurs, and what is said of its successor.
  struct Terms {
    int minClock = K_INT_UNSIGNIFICANT;
    int maxClock = K_INT_UNSIGNIFICANT;
    int clock = 0;
    float probability = 1.0F;
    int minDelay = 1;
    int maxDelay = 1;
    float nextProbability = 1.0F;
    short priority = 99;
  };
  struct Marks {
    EventOutputSpec* outputSpec = nullptr;
    int isRecorded = 0;
    int isAutoGenerate = 0;
    int hasPostConsequence = 0;
  };

  int mClassSymbol = K_INT_UNSIGNIFICANT;
  int mThisInstanceNumber = 0;
  const char* mClassName = "";
  mutable RareText mInstanceName;
  mutable const char* mNameStem = nullptr;  // of a name that is composed when it is first read
  Terms mTerms;
  Marks mMarks;
  RareText mNextEventClassName;
  Event* mNextEvent = nullptr;
  Couples mListpProcessAction;
  int mIsPoppingToSuspend = 0;
  int mIsPoppingToResume = 0;
  LazyMethods mMethods;
  int mAgendas = 0;  // how often it stands in an agenda
  int mFences = 0;   // how many fences of the agenda's index stand on its cells

  static BlockPool pool;
  static int _nbConst;
  static int _nbDest;
};

/// Each process of the couples once; it may die in the act.
template <class Act>
void Event::ForEachProcess(Act act) const {
  if (mListpProcessAction.size() > 1) {
    for (Process* process : DistinctProcesses()) act(process);
  } else if (!mListpProcessAction.empty() && mListpProcessAction[0]->process != nullptr) {
    act(mListpProcessAction[0]->process);
  }
}

/// By date alone.
inline bool operator<(const Event& a, const Event& b) {
  return a.OccurrenceClockTime() < b.OccurrenceClockTime();
}
inline bool operator>(const Event& a, const Event& b) {
  return a.OccurrenceClockTime() > b.OccurrenceClockTime();
}
