// Date and priority of an event, which the index of the agenda rests on.
#include "kalve/engine/AgendaIndex.h"
#include "kalve/engine/Event.h"

void Event::TellAgendas(int clock, short priority) const {
  AgendaIndex::KeyChanges(mOccurrenceClockTime, mPriorityDegree, clock, priority);
}
