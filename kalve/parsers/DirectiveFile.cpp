#include "kalve/parsers/DirectiveFile.h"

#include <algorithm>

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/model/CoreFunction.h"

DirectiveFile::DirectiveFile(LexicalInputFile* file)
    : ParseState(NeedingSimulation(file), {&g_KV_TraceParsingD, NLd, TLd}) {}

void DirectiveFile::BeginEvent(const Position& where, const std::string& className) {
  event = EventDirective{.where = where, .className = className};
}

void DirectiveFile::MakeEvent() {
  if (!event.occurrence) FaultInFile(event.where, "l'événement n'a pas de date (AT ou BETWEEN)");
  mEvent = NewEvent();
  mMade.clear();
  GiveName();
  GiveChances();
  if (event.priority) mEvent->SetPriorityDegree(AnnouncedPriority(event.priority));
  GiveSuccessor();
  GiveDate();
}

void DirectiveFile::PostEvent() {
  if (mEvent->LengthListProcessAction() == 0) {
    AnnounceFault(event.where, "l'événement n'a pas de processus");
    UnspecifiedProcess(mEvent);
  }
  if (pCurrentSim->InsertInAgendaEvents(mEvent) != 0) return;
  ReportWarning("\n!!! %s, ligne %d : l'événement '%s' n'est pas entré dans l'agenda.",
                event.where.origin->file->GetFullName(), event.where.line, mEvent->InstanceName());
  mEvent->DeleteInDepth();
  for (const MadeProcess& made : mMade) DeleteProcess(made.process);
}

// Parts of an event ------------------------------------------------------------------------------------

Event* DirectiveFile::NewEvent() const {
  const char* className = Interned(event.className);
  Event* made = K_NewEventFromString(className);
  if (made == nullptr && pApp_NewEventFromString != nullptr) made = pApp_NewEventFromString(className);
  if (made != nullptr) return made;
  AnnounceFault(event.where, "classe d'événement inconnue : " + Quoted(event.className));
  UnknownClassName("K_NewEventFromString", className);
}

/// A plain event takes the name as its class name too, so that an application without classes of events can
/// tell its events apart.
void DirectiveFile::GiveName() const {
  if (!event.name) return;
  if (event.className == "event") mEvent->ClassName(Interned(*event.name));
  mEvent->SetInstanceName(event.name->c_str());
}

short DirectiveFile::AnnouncedPriority(const Part<int>& priority) {
  if (*priority < 0 || *priority > 99)
    AnnounceFault(priority.Where(), "PRIORITY demande un entier de 0 à 99");
  return static_cast<short>(std::clamp(*priority, -32768, 32767));
}

namespace {

/// The one of the two that is given, to a setter that takes both.
template <class Setter>
void GiveChance(Event* event, const Part<double>& probability, const Part<int>& percent, Setter set) {
  if (probability && percent)
    FaultInFile(percent.Where(),
                Text("%s et %s sont donnés pour le même événement", probability.Word(), percent.Word()));
  if (probability) {
    const auto chance = static_cast<float>(*probability);
    if (!(*probability >= 0.0 && *probability <= 1.0)) {
      AnnounceFault(probability.Where(), Text("%s demande un nombre de 0 à 1", probability.Word()));
      UnexpectedProbability(event, chance);  // which may have been rounded to a good one
    }
    set(chance);
  }
  if (percent) {
    if (*percent < 0 || *percent > 100)
      AnnounceFault(percent.Where(), Text("%s demande un entier de 0 à 100", percent.Word()));
    set(*percent);
  }
}

}  // namespace

void DirectiveFile::GiveChances() const {
  GiveChance(mEvent, event.probability, event.percent,
             [this](auto chance) { mEvent->SetOccurrenceProbability(chance); });
  GiveChance(mEvent, event.nextProbability, event.nextPercent,
             [this](auto chance) { mEvent->SetNextEventOccurrenceProbability(chance); });
}

void DirectiveFile::GiveSuccessor() const {
  if (event.next) mEvent->SetNextEventClassName(event.next->c_str());
  if (!event.every) return;
  const int shortest = TicksOf(event.every->shortest, "EVERY");
  const int longest = TicksOf(event.every->longest, "EVERY");
  if (longest < shortest)
    FaultInFile(event.every->longest.where, "le second délai de EVERY est inférieur au premier");
  mEvent->IsAutoGenerate(1);
  mEvent->SetMinDelayNextEvent(shortest);
  mEvent->SetMaxDelayNextEvent(longest);
}

/// The clocks are checked before the event takes the date in its own way.
void DirectiveFile::GiveDate() const {
  const Moment& from = event.occurrence->from;
  const int low = ClockOf(from);
  if (!event.occurrence->to) return SetDate(from);
  const int high = ClockOf(*event.occurrence->to);
  if (high < low)
    FaultInFile(event.occurrence->to->where, "la seconde date de BETWEEN est antérieure à la première");
  mEvent->SetMinOccurrenceClockTime(low);
  mEvent->SetMaxOccurrenceClockTime(high);  // draws
}

void DirectiveFile::SetDate(const Moment& moment) const {
  const Date& date = moment.date;
  switch (moment.kind) {
    case Moment::Kind::clock:
      return mEvent->SetOccurrenceClockTime(moment.clock);
    case Moment::Kind::today:
      return mEvent->SetThisDayOccurrenceDate(date.hour, date.minute, date.second);
    case Moment::Kind::date:
      return mEvent->SetOccurrenceDate(date.day, date.month, date.year, date.hour, date.minute, date.second);
  }
}
