// Simulation: the clock, the agenda and the main loop of a run.
//
// An application builds one, stores it in pCurrentSim, gives it a clock unit, dates and events, and calls
// Run. All kernel code reaches the clock and the agenda through pCurrentSim; nothing in the kernel assigns
// that global but DeleteAll, which clears it. One thread.
//
// The simulated clock is an int that counts ticks of ClockTimeUnitQuantity() times ClockTimeUnit() from the
// beginning date, which is clock 0.
//
// The agenda owns its events: Run frees each one after it has been applied, the destructor those that are
// left. It is kept in the order of its placement predicate, head first. It has one cursor, which every
// insertion moves.
#pragma once

#include <ctime>
#include <memory>
#include <string>

#include "kalve/engine/AgendaIndex.h"
#include "kalve/foundations/Liste.h"
#include "kalve/foundations/Records.h"

/// Non-zero when `a` must stand before `b` in the agenda. A predicate sets gEquallyPlacedEventFlag to 1 when
/// the two are equally placed, and to 0 when they are not.
using BeforeInAgenda = int (*)(Event* a, Event* b);

class Simulation {
 public:
  // Life: SimulationDates.cpp, SimulationEnd.cpp
  /// Begins now, at clock 0, without clock unit and without end.
  Simulation();
  /// Duplicates dates and agenda; directories, simulated entity and generator are not carried over.
  explicit Simulation(Simulation& other);
  Simulation& operator=(const Simulation&) = delete;
  /// Frees the events left in the agenda; gFinalClock takes the clock.
  ~Simulation();

  // Agenda: Agenda.cpp
  /// Places the event by its own date and priority. 0 when it is refused: behind the end clock, by its
  /// probability (one draw of rand() if that is below 1), or as a duplicate of the first equally placed
  /// event; a refused event stays with the caller. In a non-empty agenda an event without process ends
  /// the run (UnspecifiedProcess).
  int InsertInAgendaEvents(Event* event);
  /// Sets priority (0 to 99) and clock first, and asks for no process.
  int InsertInAgendaEvents(Event* event, int priority, int clock);
  /// Moves the head event `delay` ticks later, behind all events equally placed. 0 on an empty agenda. The
  /// search looks at the head alone: with another event in a non-empty agenda the call does not return.
  int DelayInAgendaEvents(Event* event, int delay);
  /// Pops the head; the caller owns it. The agenda must not be empty.
  Event* DepileAgendaEvents();
  /// Takes the event out, if it is there, without freeing it.
  void RemoveFromAgendaEvents(Event* event);
  /// The same; `deleteIt` non-zero frees the event too.
  void RemoveFromAgendaEvents(Event* event, int deleteIt);
  /// Appends without any test.
  void PushBackToAgendaEvents(Event* event);
  void AssignBeforeInAgendaMethod(BeforeInAgenda before);
  void DisplayAgendaEvents();
  /// The head, null in an empty agenda.
  Event* FrontEvent() const { return mAgendaEvents.empty() != 0 ? nullptr : mAgendaEvents.front(); }
  /// Whether `a` must stand before `b`, by the placement predicate.
  bool IsPlacedBefore(Event* a, Event* b) const { return mBeforeInAgenda(a, b) != 0; }
  bool HasDefaultPlacement() const { return mAgendaIndex.IsOn(); }
  /// The event that is being applied, null between two events.
  Event* EventInHand() const { return mEventInHand; }
  /// The event popped last, null before the first; it is freed once it has been applied.
  Event* CurrentlyPoppedEvent() const { return mCurrentlyPoppedEvent; }
  int IsEmptyAgendaEvents() const { return mAgendaEvents.empty(); }
  int AgendaEventSize() const { return mAgendaEvents.size(); }
  /// A copy of the list; the events stay the agenda's.
  Liste<Event*> AgendaEvents() const { return mAgendaEvents; }

  // Cursor of the agenda
  void GoHeadInAgenda() { mAgendaEvents.go_head(); }
  void GoNextInAgenda() { mAgendaEvents.go_next(); }
  bool IsCurrentInAgenda() const { return mAgendaEvents.is_current_in(); }
  Event* GetCurrentInAgenda() const { return mAgendaEvents.current(); }
  void RemoveCurrentInAgenda();

  // Run: RunLoop.cpp
  /// Run(K_INTMAX).
  void Run();
  /// Pops and applies events until the agenda is empty, the clock is past the end clock, `iterationLimit`
  /// events have been popped, Stop was called or the user interface stops it. Nothing happens before the
  /// interface's first word; each event is followed by a wait of at least a millisecond; a last dialogue
  /// follows a normal end. EXIT ends the process with status 0, except in the last dialogue. Standard input
  /// is non-blocking meanwhile, and then as it was.
  void Run(int iterationLimit);
  /// The loop of Run without dialogue, wait or text: for designs of experiments and tests. Answers the
  /// number of events popped.
  int RunBatch(int iterationLimit);
  /// Pops and applies one event; `iteration` is increased first.
  void RunCore(int& iteration);
  void Stop() { mToBeStopped = 1; }
  int ToBeStopped() const { return mToBeStopped; }

  // Clock and dates
  int Clock() const { return mClock; }
  void Clock(int clock) { mClock = clock; }
  /// The last clock at which events are applied; K_INTMAX for no end.
  int EndClock() const { return mEndClock; }
  void SetEndClock(int clock) { mEndClock = clock; }
  /// Seconds from beginning to end date; 0 when no end date was given.
  long EndTime() const { return mEndTime; }
  long AbsoluteBeginningTime() const { return mAbsoluteBeginningTime; }
  long AbsoluteEndTime() const { return mAbsoluteEndTime; }
  /// The dates belong to the simulation.
  Date* BeginningDate() const { return mBeginningDate.get(); }
  Date* EndDate() const { return mEndDate.get(); }
  TimeUnit ClockTimeUnit() const { return mClockTimeUnit; }
  void ClockTimeUnit(TimeUnit unit) { mClockTimeUnit = unit; }
  int ClockTimeUnitQuantity() const { return mClockTimeUnitQuantity; }
  void ClockTimeUnitQuantity(int quantity) { mClockTimeUnitQuantity = quantity; }
  // SimulationDates.cpp
  /// Local date of clock 0; a year of 99 or less has 2000 added. The clock becomes 0; the end stays.
  void SetBeginningDate(int day, int month, int year);
  void SetBeginningDate(int day, int month, int year, int hour, int minute, int second);
  /// Today at the given time.
  void SetThisDayBeginningDate(int hour, int minute, int second);
  /// Clock unit and beginning must have been set: the end clock is computed from them.
  void SetEndDate(int day, int month, int year);
  void SetEndDate(int day, int month, int year, int hour, int minute, int second);
  /// Date of the present clock; the caller deletes it.
  std::tm* CurrentTmDate() const;

  // Others
  /// The root entity of the model; not owned.
  void SimulatedEntity(BasicEntity* entity) { mSimulatedEntity = entity; }
  /// NoSimulatedEntity ends the run when there is none.
  BasicEntity* SimulatedBasicEntity() const;
  /// model/EntityCasts.cpp
  Entity* SimulatedEntity() const;
  /// Directories with their last separator; "" when not set.
  void SetInDir(const char* directory) { mInDir = directory; }
  const char* GetInDir() const { return mInDir.c_str(); }
  void SetOutDir(const char* directory) { mOutDir = directory; }
  const char* GetOutDir() const { return mOutDir.c_str(); }
  /// For applications; the kernel draws nothing from it.
  RNG* GetRandomGenerator() const { return mRandomGenerator.get(); }
  int GetNumId() const { return mNumId; }
  void SetNumId(int number) { mNumId = number; }
  /// Number of the event popped last in this run, from 1.
  int GetIterationCounter() const { return mIterationCounter; }
  /// Non-zero when the user interface wants to hear of structure changes.
  int IsStructureUpdated() const { return mPermanentStructure; }

  // Dialogue: Dialogue.cpp; docs/dialogue.md tells all words.
  /// Reads words and obeys them until one lets the next event pass, which is 1; 0 for STOP, -1 for EXIT.
  int InteractWithUser(int& iteration);
  /// Writes date, clock and, when an end is known, the percentage of the run that is done.
  void SendDateToIHM(int iteration);
  // StructureAnswers.cpp
  /// Writes the structure below the entity of that name, or below all free ones for "ROOT". With a depth of
  /// 0 nothing below the word itself is written, with any other depth its direct parts.
  void SendStringForWord(const char* word);
  void SendStringForWord(const char* word, int depth);

 private:
  friend struct SimulationProbe;  // tests
  friend struct AgendaProbe;
  bool AgendaRefuses(Event* event) const;
  int PlaceInAgenda(Event* event);
  int PlaceBefore(Event* event, Cell<Event*>* start);
  int PutBefore(Event* event);
  void Append(Event* event);
  void FreeCell(Cell<Event*>* cell);
  bool IsDuplicate(Event* event, Event* current) const;
  void DisposeOf(Event* event, Event* result);
  void DisposeOfGenerating(Event* event);
  bool GoesOn(int iteration) const;
  void PrepareProgress();
  bool RunInDialogue();
  void EndNormally(int& iteration);
  static void EndStopped();
  std::string NextCommand(int iteration);
  bool IsPauseDue() const;
  void Pause(int iteration);
  bool ChangeMode();
  void Answer();
  void AnswerStructure(bool isOneLevel);
  void AnswerAgenda();
  void SubscribeToAgenda();
  void EndSubscription();
  void SendEvents() const;
  void SendProgress(int done, int whole);
  void BeginAt(int day, int month, int year, int hour, int minute, int second);

  int mNumId;
  int mIterationCounter = 0;
  TimeUnit mClockTimeUnit = static_cast<TimeUnit>(-1);
  int mClockTimeUnitQuantity = -1;
  int mClock = 0;
  int mEndClock = K_INTMAX;
  long mEndTime = 0;
  long mAbsoluteBeginningTime = 0;
  long mAbsoluteEndTime = 0;
  std::unique_ptr<Date> mBeginningDate;
  std::unique_ptr<Date> mEndDate;
  std::unique_ptr<Date> mSpareDate;
  BasicEntity* mSimulatedEntity = nullptr;
  std::string mInDir;
  std::string mOutDir;
  int mToBeStopped = 0;
  Liste<Event*> mAgendaEvents;
  AgendaIndex mAgendaIndex{mAgendaEvents};
  Event* mCurrentlyPoppedEvent = nullptr;
  Event* mEventInHand = nullptr;
  BeforeInAgenda mBeforeInAgenda;
  int mIterationLimit = 0;
  std::unique_ptr<RNG> mRandomGenerator;
  int mMode = WAITING_MODE;    // of DialogueMode
  int mSleepMilliseconds = 0;  // after each event
  int mUserStep = 10;          // in clock ticks
  int mLastPauseClock = 0;
  int mProgressStep = 0;       // one hundredth of the run's extent
  int mProgressThreshold = 0;  // a limited run tells its percentage behind this iteration
  int mPermanentAgenda = 0;    // the agenda is sent at each pause
  int mPermanentAgendaSize = 0;
  int mPermanentStructure = 0;  // changes of structure are told
};

/// The running simulation, null before the application assigns it.
extern Simulation* pCurrentSim;

/// Number given to the next simulation (option -IDN), -9 when unset.
extern int gCurrentSimNumId;
/// Autogenerated events so far.
extern int gNbGenInsert;
/// Clock of the simulation destroyed last.
extern int gFinalClock;
/// Result of the placement predicate beside its answer: 1 when the two events are equally placed.
extern int gEquallyPlacedEventFlag;

/// Action trace: on while the clock lies in [begClock, endClock]; off at the start.
extern int g_KV_actionLog;
extern int g_KV_actionLog_begClock;
extern int g_KV_actionLog_endClock;
/// Non-zero prints the agenda at every iteration.
extern int gTraceActionMode;

/// Sets g_KV_actionLog for a clock and answers it.
inline int UpdateActionLog(int clock) {
  g_KV_actionLog = clock >= g_KV_actionLog_begClock && clock <= g_KV_actionLog_endClock ? 1 : 0;
  return g_KV_actionLog;
}

/// Order of the agenda: the smaller date first, then the smaller priority number. Equal events are not
/// before each other: gEquallyPlacedEventFlag tells.
int BeforeByDatePriority(Event* a, Event* b);
