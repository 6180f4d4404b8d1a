// The agenda: placement, removal and display of its events.
//
// The order rests on the cursor of the list. Inserting before the cursor's cell is done by putting the new
// event into that cell and the old one into a new cell behind it.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/Rng.h"
#include "kalve/model/BasicEntity.h"

int BeforeByDatePriority(Event* a, Event* b) {
  gEquallyPlacedEventFlag = 0;
  const int dateA = a->OccurrenceClockTime();
  const int dateB = b->OccurrenceClockTime();
  if (dateA != dateB) return dateA < dateB ? 1 : 0;
  const short degreeA = a->PriorityDegree();
  const short degreeB = b->PriorityDegree();
  if (degreeA != degreeB) return degreeA < degreeB ? 1 : 0;
  gEquallyPlacedEventFlag = 1;
  return 0;
}

int Simulation::InsertInAgendaEvents(Event* event) {
  if (AgendaRefuses(event)) return 0;
  if (!mAgendaEvents.empty() && event->FirstProcess() == nullptr) UnspecifiedProcess(event);
  return PlaceInAgenda(event);
}

int Simulation::InsertInAgendaEvents(Event* event, int priority, int clock) {
  event->SetPriorityDegree(static_cast<short>(priority));
  event->SetOccurrenceClockTime(clock);
  if (AgendaRefuses(event)) return 0;
  if (!mAgendaEvents.empty()) event->FirstProcess();  // warns when there is none
  return PlaceInAgenda(event);
}

/// The end clock and the draw of the probability, which come before any look at the agenda.
bool Simulation::AgendaRefuses(Event* event) const {
  if (mEndClock < event->OccurrenceClockTime()) return true;
  const float probability = event->GetOccurrenceProbability();
  if (probability >= 1.0F) return false;
  const int threshold = static_cast<int>(static_cast<double>(probability) * 100.0);
  return RandomInteger(100) >= threshold;
}

namespace {

/// The entity of a process that says it has one; null, silently, of any other.
BasicEntity* BoundEntity(Process* process) {
  const bool isBound = process->HasProcessedEntity() != 0 || process->HasProcessedEntitySpec() != 0;
  return isBound ? process->ProcessedBasicEntity() : nullptr;
}

Process* FirstOf(Event* event) {
  return event->LengthListProcessAction() > 0 ? event->FirstProcess() : nullptr;
}

}  // namespace

/// Two equally placed events are one when their first processes have one class name and one entity.
bool Simulation::IsDuplicate(Event* event, Event* current) const {
  Process* own = FirstOf(event);
  Process* other = current->FirstProcess();
  return own != nullptr && other != nullptr && std::strcmp(own->ClassName(), other->ClassName()) == 0 &&
         BoundEntity(own) == BoundEntity(other);
}

int Simulation::PlaceInAgenda(Event* event) {
  mAgendaEvents.go_head();
  if (mAgendaIndex.IsOn() && mAgendaEvents.is_current_in()) {
    const AgendaIndex::Start start = mAgendaIndex.FindStart(event);
    mAgendaEvents.set_currentCell(start.cell);
    // Where no predicate is called, the flag is what its answers would have left.
    if (start.cell == nullptr || start.standsBefore) gEquallyPlacedEventFlag = 0;
    if (start.standsBefore) {
      PutBefore(event);
      mAgendaIndex.InsertedAt(start);
      return 1;
    }
  }
  Cell<Event*>* const start = mAgendaEvents.get_currentCell();
  for (; mAgendaEvents.is_current_in(); mAgendaEvents.go_next()) {
    Event* current = mAgendaEvents.current();
    const int before = mBeforeInAgenda(event, current);
    const bool isEquallyPlaced = gEquallyPlacedEventFlag != 0;
    if (isEquallyPlaced && IsDuplicate(event, current)) return 0;
    if (before != 0) return PlaceBefore(event, start);
    if (isEquallyPlaced) {
      mAgendaEvents.insert_after_current(event);
      event->EnterAgenda();
      mAgendaIndex.InsertedBehindEqual(start, mAgendaEvents.get_currentCell());
      return 1;
    }
  }
  Append(event);
  mAgendaIndex.InsertedAtTail(start);
  return 1;
}

/// After a walk that began at `start`.
int Simulation::PlaceBefore(Event* event, Cell<Event*>* start) {
  PutBefore(event);
  mAgendaIndex.InsertedBefore(start, mAgendaEvents.get_currentCell());
  return 1;
}

/// The event takes the cursor's cell, and the current one moves into a new cell behind it.
int Simulation::PutBefore(Event* event) {
  Event* const current = mAgendaEvents.current();
  mAgendaEvents.replace_current_by_item(event);
  mAgendaEvents.insert_after_current(current);
  event->EnterAgenda();
  return 1;
}

void Simulation::Append(Event* event) {
  mAgendaEvents.push_back(event);
  event->EnterAgenda();
}

int Simulation::DelayInAgendaEvents(Event* event, int delay) {
  mAgendaEvents.go_head();
  if (!mAgendaEvents.is_current_in()) return 0;
  // The search does not step: it is meant for the head. Volatile, or the compiler may leave out a loop that
  // changes nothing, and this one would end.
  Event* volatile found;
  do found = mAgendaEvents.current();
  while (found != event);
  Cell<Event*>* next = mAgendaEvents.get_currentCell()->GetNextCell();
  RemoveCurrentInAgenda();
  mAgendaIndex.Forget();
  const long clock = static_cast<long>(event->OccurrenceClockTime()) + delay;
  event->SetOccurrenceClockTime(static_cast<int>(std::clamp(clock, long{K_INTMIN}, long{K_INTMAX})));
  for (mAgendaEvents.set_currentCell(next); mAgendaEvents.is_current_in(); mAgendaEvents.go_next()) {
    Event* current = mAgendaEvents.current();
    if (mBeforeInAgenda(event, current) != 0) return PutBefore(event);
  }
  Append(event);
  return 1;
}

namespace {

/// From here on the memory of the events is far, and on its way while others run.
constexpr int largeAgenda = 300;

}  // namespace

Event* Simulation::DepileAgendaEvents() {
  mCurrentlyPoppedEvent = mAgendaEvents.front();
  if (mAgendaEvents.size() > largeAgenda) Event::FetchBehind(mAgendaEvents.HeadCell());
  FreeCell(mAgendaEvents.HeadCell());
  mCurrentlyPoppedEvent->RecordPop();
  return mCurrentlyPoppedEvent;
}

/// Frees a cell; its event leaves the agenda. The cursor stays, unless it stood there.
void Simulation::FreeCell(Cell<Event*>* cell) {
  mAgendaIndex.Removing(cell);
  cell->GetItem()->LeaveAgenda();
  Cell<Event*>* const kept = mAgendaEvents.get_currentCell();
  mAgendaEvents.set_currentCell(cell);
  mAgendaEvents.remove_current();
  if (kept != cell) mAgendaEvents.set_currentCell(kept);
}

void Simulation::RemoveFromAgendaEvents(Event* event) {
  if (event == nullptr) return;
  // In front of the cell where a walk would begin, every event is earlier than this one.
  Cell<Event*>* cell = mAgendaIndex.IsOn() ? mAgendaIndex.StartFor(event) : mAgendaEvents.HeadCell();
  while (cell != nullptr && cell->GetItem() != event) cell = cell->GetNextCell();
  if (cell != nullptr) FreeCell(cell);
}

void Simulation::RemoveFromAgendaEvents(Event* event, int deleteIt) {
  RemoveFromAgendaEvents(event);
  if (deleteIt == 0 || event == nullptr) return;
  event->DeleteProcesses();
  event->DeleteInDepth();
}

void Simulation::RemoveCurrentInAgenda() {
  if (!mAgendaEvents.is_current_in()) ThrowIndex(0);
  FreeCell(mAgendaEvents.get_currentCell());
}

void Simulation::PushBackToAgendaEvents(Event* event) {
  Append(event);
  mAgendaIndex.Appended();
}

void Simulation::AssignBeforeInAgendaMethod(BeforeInAgenda before) {
  mBeforeInAgenda = before;
  mAgendaIndex.SwitchOn(before == BeforeByDatePriority);
}

namespace {

int DigitCount(int number) { return number < 1 ? 1 : static_cast<int>(std::log10(number)) + 1; }

/// "tbs" for a continuous process that is to be stopped.
const char* Marker(Process* process) {
  const bool isStopped = process != nullptr && process->Subclass() == CONTINUOUS_PROCESS &&
                         static_cast<ContinuousProcess*>(process)->ToBeStopped() != 0;
  return isStopped ? "tbs" : "   ";
}

void DisplayAgendaEvent(int rank, Event* event) {
  const int clock = event->OccurrenceClockTime();
  const int priority = event->PriorityDegree();
  const int padding = std::max(1, 9 - DigitCount(clock) - DigitCount(priority));
  Process* process = event->FirstProcess();
  BasicEntity* entity = process != nullptr ? BoundEntity(process) : nullptr;
  std::printf("\nev %d(%x) t = %d p = %d%s%s (%x),...  %s,... ", rank, Address32(event), clock, priority,
              std::string(static_cast<std::size_t>(padding), ' ').c_str(),
              process != nullptr ? process->ClassName() : "", Address32(process),
              StringActionType(event->FirstActionLabel()));
  if (entity != nullptr)
    std::printf("sur '%s' %s", entity->InstanceName(), Marker(process));
  else
    std::printf("'%s'", Marker(process));
}

}  // namespace

void Simulation::DisplayAgendaEvents() {
  std::printf("\n état de l'agenda d'événements (avec le 1er processus seulement):");
  int rank = 0;
  for (GoHeadInAgenda(); IsCurrentInAgenda(); GoNextInAgenda())
    DisplayAgendaEvent(++rank, GetCurrentInAgenda());
  std::printf("\n");
}
