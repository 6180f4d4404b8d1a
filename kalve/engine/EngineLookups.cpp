#include "kalve/engine/EngineLookups.h"

#include <cstring>

#include "kalve/engine/Event.h"
#include "kalve/engine/Process.h"
#include "kalve/engine/Simulation.h"

namespace {

template <class Name>
Process* FirstProcessWith(Name name, const char* wanted) {
  for (Process* process : Process::mpInstanceTab.Items())
    if (std::strcmp(name(process), wanted) == 0) return process;
  return nullptr;
}

template <class Name>
Event* FirstEventWith(Name name, const char* wanted) {
  if (pCurrentSim == nullptr) return nullptr;
  Event* inHand = pCurrentSim->EventInHand();
  if (inHand != nullptr && std::strcmp(name(inHand), wanted) == 0) return inHand;
  Liste<Event*> agenda = pCurrentSim->AgendaEvents();
  for (agenda.go_head(); agenda.is_current_in(); agenda.go_next())
    if (std::strcmp(name(agenda.current()), wanted) == 0) return agenda.current();
  return nullptr;
}

constexpr auto instanceName = [](const auto* item) { return item->InstanceName(); };
constexpr auto className = [](const auto* item) { return item->ClassName(); };

}  // namespace

Process* GetNamedProcess(const char* name) { return FirstProcessWith(instanceName, name); }

Process* GetClassNamedProcess(const char* name) { return FirstProcessWith(className, name); }

Event* GetNamedEvent(const char* name) { return FirstEventWith(instanceName, name); }

Event* GetClassNamedEvent(const char* name) { return FirstEventWith(className, name); }

Tableau<Event*>* GetClassNamedEventTab(const char* name) {
  auto* events = new Tableau<Event*>();
  events->sizeIncrement(5);
  if (pCurrentSim == nullptr) return events;
  Liste<Event*> agenda = pCurrentSim->AgendaEvents();
  for (agenda.go_head(); agenda.is_current_in(); agenda.go_next())
    if (std::strcmp(agenda.current()->ClassName(), name) == 0) events->push_back(agenda.current());
  return events;
}
