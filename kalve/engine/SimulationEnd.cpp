// Copy and end of a simulation: they copy and free the events of the agenda.
#include "kalve/engine/Event.h"
#include "kalve/engine/Process.h"
#include "kalve/engine/ProcessDispatch.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Rng.h"

Simulation::Simulation(Simulation& other)
    : mNumId(other.mNumId),
      mIterationCounter(other.mIterationCounter),
      mClockTimeUnit(other.mClockTimeUnit),
      mClockTimeUnitQuantity(other.mClockTimeUnitQuantity),
      mClock(other.mClock),
      mEndClock(other.mEndClock),
      mEndTime(other.mEndTime),
      mAbsoluteBeginningTime(other.mAbsoluteBeginningTime),
      mAbsoluteEndTime(other.mAbsoluteEndTime),
      mBeginningDate(std::make_unique<Date>(*other.mBeginningDate)),
      mEndDate(std::make_unique<Date>(*other.mEndDate)),
      mSpareDate(std::make_unique<Date>(*other.mSpareDate)),
      mToBeStopped(other.mToBeStopped),
      mCurrentlyPoppedEvent(other.mCurrentlyPoppedEvent),
      mBeforeInAgenda(other.mBeforeInAgenda),
      mIterationLimit(other.mIterationLimit),
      mMode(other.mMode),
      mSleepMilliseconds(other.mSleepMilliseconds),
      mUserStep(other.mUserStep),
      mLastPauseClock(other.mLastPauseClock),
      mProgressStep(other.mProgressStep),
      mProgressThreshold(other.mProgressThreshold),
      mPermanentAgenda(other.mPermanentAgenda),
      mPermanentAgendaSize(other.mPermanentAgendaSize),
      mPermanentStructure(other.mPermanentStructure) {
  mAgendaIndex.SwitchOn(other.mAgendaIndex.IsOn());
  for (other.GoHeadInAgenda(); other.IsCurrentInAgenda(); other.GoNextInAgenda())
    PushBackToAgendaEvents(new Event(*other.GetCurrentInAgenda()));
}

Simulation::~Simulation() {
  gFinalClock = mClock;
  while (!mAgendaEvents.empty()) {
    Event* event = mAgendaEvents.front();
    FreeCell(mAgendaEvents.HeadCell());
    event->DeleteInDepth();
  }
  while (Process* const process = Process::mpInstanceTab.First()) DeleteProcessInDepth(process);
}
