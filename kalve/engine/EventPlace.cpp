// Date and priority of an event, which the index of the agenda rests on; what its turn will need.
#include "kalve/engine/AgendaIndex.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/foundations/Prefetch.h"

void Event::TellAgendas(int clock, short priority) const {
  AgendaIndex::KeyChanges(mTerms.clock, mTerms.priority, clock, priority);
}

void Event::FetchBehind(const Cell<Event*>* head) {
  const Cell<Event*>* const second = head->GetNextCell();
  const Cell<Event*>* const third = second->GetNextCell();
  const Cell<Event*>* const fourth = third->GetNextCell();
  const Cell<Event*>* const fifth = fourth->GetNextCell();
  Prefetch(fifth->GetNextCell());
  Prefetch(fifth->GetItem());

  const Event* event = fourth->GetItem();
  event->mMethods.FetchBlock();
  if (const Process* const process = event->mListpProcessAction.FirstProcess())
    Prefetch(static_cast<const DiscreteProcess*>(process));

  event = third->GetItem();
  event->mMethods.FetchMethods();
  if (const Process* const process = event->mListpProcessAction.FirstProcess()) {
    process->mMethods.FetchBlock();
    Process::mpInstanceTab.Fetch(process);
  }

  event = second->GetItem();
  event->mMethods.FetchArguments();
  if (const Process* const process = event->mListpProcessAction.FirstProcess())
    process->mMethods.FetchMethods();
}
