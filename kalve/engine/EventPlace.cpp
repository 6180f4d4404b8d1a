// Date and priority of an event, which the index of the agenda rests on.
#include "kalve/engine/AgendaIndex.h"
#include "kalve/engine/Event.h"

void Event::Place(int clock, short priority) {
  if (mAgendas != 0) AgendaIndex::KeyChanges(mOccurrenceClockTime, mPriorityDegree, clock, priority);
  mOccurrenceClockTime = clock;
  mPriorityDegree = priority;
}
