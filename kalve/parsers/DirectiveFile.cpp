#include "kalve/parsers/DirectiveFile.h"

#include <algorithm>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/ApplicationHooks.h"

DirectiveFile::DirectiveFile(LexicalInputFile* file)
    : ParseState(NeedingSimulation(file), {&g_KV_TraceParsingD, NLd, TLd}) {}

// Parts of an event ------------------------------------------------------------------------------------

template <class Value>
void DirectiveFile::Set(Optional<Value>& part, const Position& where, const Value& value, const char* word) {
  if (part) FaultInFile(where, Text("%s est donné deux fois pour l'événement", word));
  part = {where, value};
}

void DirectiveFile::BeginEvent(const Position& where, const std::string& className) {
  mEvent = EventDirective{};
  mEvent.where = where;
  mEvent.className = className;
}

void DirectiveFile::SetMoment(const Position& where, const Moment& moment) {
  Set(mEvent.from, where, moment, "la date");
}

void DirectiveFile::SetBounds(const Position& where, const Moment& low, const Moment& high) {
  Set(mEvent.from, where, low, "la date");
  Set(mEvent.to, where, high, "la date");
}

void DirectiveFile::SetPriority(const Position& where, int priority) {
  Set(mEvent.priority, where, priority, "PRIORITY");
}

void DirectiveFile::SetProbability(const Position& where, double probability) {
  Set(mEvent.probability, where, probability, "PROBABILITY");
}

void DirectiveFile::SetPercent(const Position& where, int percent) {
  Set(mEvent.percent, where, percent, "PERCENT");
}

void DirectiveFile::SetName(const Position& where, const std::string& name) {
  Set(mEvent.name, where, name, "NAME");
}

// The whole event --------------------------------------------------------------------------------------

void DirectiveFile::EndEvent() {
  if (!mEvent.from) FaultInFile(mEvent.where, "l'événement n'a pas de date (AT ou BETWEEN)");
  Event* event = NewEvent();
  GiveName(event);
  GiveProbability(event);
  const int clock = DrawnClock(event);
  if (pCurrentSim->InsertInAgendaEvents(event, CheckedPriority(event), clock) != 0) return;
  ReportWarning("\n!!! %s, ligne %d : l'événement '%s' n'est pas entré dans l'agenda.",
                mEvent.where.origin->file->GetFullName(), mEvent.where.line, event->InstanceName());
  event->DeleteInDepth();
}

Event* DirectiveFile::NewEvent() const {
  const char* className = Interned(mEvent.className);
  Event* event = K_NewEventFromString(className);
  if (event == nullptr && pApp_NewEventFromString != nullptr) event = pApp_NewEventFromString(className);
  if (event != nullptr) return event;
  AnnounceFault(mEvent.where, "classe d'événement inconnue : " + Quoted(mEvent.className));
  UnknownClassName("K_NewEventFromString", className);
}

/// A plain event takes the name as its class name too, so that an application without classes of events can
/// tell its events apart.
void DirectiveFile::GiveName(Event* event) const {
  if (!mEvent.name) return;
  const std::string& name = mEvent.name->value;
  if (mEvent.className == "event") event->ClassName(Interned(name));
  event->SetInstanceName(name.c_str());
}

void DirectiveFile::GiveProbability(Event* event) const {
  if (mEvent.probability && mEvent.percent)
    FaultInFile(mEvent.percent->where, "PROBABILITY et PERCENT sont donnés pour le même événement");
  if (mEvent.probability) {
    const double probability = mEvent.probability->value;
    if (!(probability >= 0.0 && probability <= 1.0)) {
      AnnounceFault(mEvent.probability->where, "PROBABILITY demande un nombre de 0 à 1");
      UnexpectedProbability(event, static_cast<float>(probability));  // which may round to one in bounds
    }
    event->SetOccurrenceProbability(static_cast<float>(probability));
  }
  if (mEvent.percent) {
    const int percent = mEvent.percent->value;
    if (percent < 0 || percent > 100)
      AnnounceFault(mEvent.percent->where, "PERCENT demande un entier de 0 à 100");
    event->SetOccurrenceProbability(percent);
  }
}

int DirectiveFile::DrawnClock(Event* event) const {
  const int low = ClockOf(mEvent.from->value);
  if (!mEvent.to) return low;
  const int high = ClockOf(mEvent.to->value);
  if (high < low) FaultInFile(mEvent.to->where, "la seconde date de BETWEEN est antérieure à la première");
  event->SetMinOccurrenceClockTime(low);
  event->SetMaxOccurrenceClockTime(high);  // draws
  return event->OccurrenceClockTime();
}

int DirectiveFile::CheckedPriority(Event* event) const {
  if (!mEvent.priority) return event->PriorityDegree();
  const int priority = mEvent.priority->value;
  if (priority >= 0 && priority <= 99) return priority;
  AnnounceFault(mEvent.priority->where, "PRIORITY demande un entier de 0 à 99");
  UnexpectedPriorityDegree(event, static_cast<short>(std::clamp(priority, -32768, 32767)));
}
