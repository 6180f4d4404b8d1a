// The dialogue between two events: a user interface writes words to standard input and reads the answers on
// standard output. Once the first word of a sequence has come, the run stands still until its last.
#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "kalve/engine/EntityDialogue.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/engine/Words.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"

namespace {

constexpr const char* agendaHead = "ANSWER AGENDA {";

int AwaitedNumber() { return std::atoi(AwaitedWord().c_str()); }

}  // namespace

int Simulation::InteractWithUser(int& iteration) {
  for (;;) {
    const std::string word = NextCommand(iteration);
    if (word == "EXEC") {
      if (ChangeMode()) return 1;
    } else if (word == "PAUSE") {
      mMode = WAITING_MODE;
    } else if (word == "EXIT") {
      return -1;
    } else if (word == "STOP") {
      return 0;
    } else if (word == "QUERY") {
      Answer();
    } else if (word == "UNQUERY") {
      EndSubscription();
    } else if (word == "MODIFY") {
      ModifyDescriptor();
    } else if (word == "SET") {
      if (AwaitedWord() == "SAMPLING") SetSampling();
    } else {
      return 1;
    }
  }
}

/// A running simulation looks for a word, and "" lets it go on; a waiting one waits.
std::string Simulation::NextCommand(int iteration) {
  if (mMode != WAITING_MODE) {
    if (!IsPauseDue()) return WordIfAny();
    Pause(iteration);
  }
  return AwaitedWord();
}

bool Simulation::IsPauseDue() const {
  return mMode == EVENTSTEP ||
         (mMode == USERSTEP && mClock >= static_cast<long>(mUserStep) + mLastPauseClock);
}

void Simulation::Pause(int iteration) {
  SendDateToIHM(iteration);
  if (mPermanentAgenda != 0) {
    std::cout << agendaHead;
    SendEvents();
  }
  std::cout << "WAIT MESSAGE" << std::endl;
  mLastPauseClock = mClock;
  mMode = WAITING_MODE;
}

/// EXEC. False for a word that is no mode: the dialogue goes on.
bool Simulation::ChangeMode() {
  const std::string mode = AwaitedWord();
  const bool isFree = mode == "CONTINU";
  const bool isByUserStep = mode == "USERSTEP";
  const bool isByEvent = mode == "EVENTSTEP";
  if (isFree || isByUserStep) mSleepMilliseconds = AwaitedNumber();
  if (isByUserStep) mUserStep = AwaitedNumber();
  if (isFree) mMode = CONTINU;
  if (isByUserStep) mMode = USERSTEP;
  if (isByEvent) mMode = EVENTSTEP;
  std::cout << std::endl;
  return isFree || isByUserStep || isByEvent;
}

/// QUERY.
void Simulation::Answer() {
  const std::string what = AwaitedWord();
  if (what == "STRUCTURE" || what == "STRUCTURE_D")
    AnswerStructure(what == "STRUCTURE");
  else if (what == "PERMANENTSTRUCTURE")
    mPermanentStructure = 1;
  else if (what == "DESCRIPTORS")
    AnswerDescriptors();
  else if (what == "DESCRIPTOR")
    AnswerDescriptor(*this);
  else if (what == "GRAPH")
    AnswerGraph();
  else if (what == "AGENDA")
    AnswerAgenda();
  else if (what == "PERMANENTAGENDA")
    SubscribeToAgenda();
  else if (what == "INSTANCES")
    AnswerInstances(mSimulatedEntity);
  std::cout << std::endl;
}

void Simulation::AnswerStructure(bool isOneLevel) {
  std::cout << "ANSWER STRUCTURE ";
  const std::string name = AwaitedWord();
  if (isOneLevel)
    SendStringForWord(name.c_str(), 1);
  else
    SendStringForWord(name.c_str());
  std::cout << std::endl;
}

/// The number is read, but all events are sent.
void Simulation::AnswerAgenda() {
  mPermanentAgenda = 0;
  std::cout << agendaHead;
  AwaitedWord();
  SendEvents();
}

void Simulation::SubscribeToAgenda() {
  mPermanentAgenda = 1;
  mPermanentAgendaSize = AwaitedNumber();
}

/// UNQUERY. A subscription to the whole run is ended by its name in the place of a descriptor, behind the
/// name of an entity that does not exist.
void Simulation::EndSubscription() {
  if (AwaitedWord() != "GRAPH") return;
  const std::string name = AwaitedWord();
  const std::string what = AwaitedWord();
  if (Entity* const entity = GetNamedEntity(name.c_str())) {
    StopPlotting(entity, what);
  } else if (what == "PERMANENTAGENDA") {
    mPermanentAgenda = 0;
    mPermanentAgendaSize = 0;
  } else if (what == "PERMANENTSTRUCTURE") {
    mPermanentStructure = 0;
  }
}

void Simulation::SendEvents() const {
  CoutDateFromClock(mClock, YEARDAY_HOUR_MIN);
  std::cout << "UT ";
  CoutDateFromClock(mClock, CLOCK);
  std::cout << majSep;
  for (const Event* event : mAgendaEvents)
    std::cout << '"' << OrEmpty(event->ClassName()) << '"' << minSep << event->OccurrenceClockTime() << minSep
              << event->PriorityDegree() << majSep;
  std::cout << "} " << std::endl;
}

void Simulation::SendDateToIHM(int iteration) {
  std::cout << "\nUPDATE DATE {";
  CoutDateFromClock(mClock, YEARDAY_HOUR_MIN);
  std::cout << "UT ";
  CoutDateFromClock(mClock, CLOCK);
  const bool isLimited = mIterationLimit != K_INTMAX && mIterationLimit >= 1;
  if (mEndTime >= 1)
    SendProgress(mClock, mEndClock);
  else if (isLimited && mProgressThreshold < iteration)
    SendProgress(iteration, mIterationLimit);
  std::cout << "}" << std::endl;
}

void Simulation::SendProgress(int done, int whole) {
  const double percent = whole != 0 ? done * 100.0 / whole : 100.0;
  std::cout << majSep << static_cast<long>(percent) << "%";
  const long threshold = static_cast<long>(mProgressThreshold) + mProgressStep;
  mProgressThreshold = static_cast<int>(std::clamp<long>(threshold, K_INTMIN, K_INTMAX));
}
