// Construction, copies and end of events: they make and share methods and processes.
#include <cstdio>
#include <cstring>
#include <iostream>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/ProcessDispatch.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/PredefinedMethods.h"

namespace {

constexpr const PredefinedSet& allMethods =
    predefinedSet<GenerateNextEvent, EventPostConsequence, UpdateNextEvent, DefineNextEventClockTime,
                  RandomizeThisEventClockTime, RandomizeNextEventClockTime, IsPoppingToSuspend>;

/// What two flags ask for, in front of the methods that every event has.
template <class... Asked>
constexpr const PredefinedSet& askedMethods =
    predefinedSet<Asked..., RandomizeThisEventClockTime, RandomizeNextEventClockTime, IsPoppingToSuspend>;

const PredefinedSet& MethodsFor(bool autoGenerate, bool postConsequence) {
  if (autoGenerate && postConsequence)
    return askedMethods<EventPostConsequence, GenerateNextEvent, UpdateNextEvent, DefineNextEventClockTime>;
  if (autoGenerate) return askedMethods<GenerateNextEvent, UpdateNextEvent, DefineNextEventClockTime>;
  return postConsequence ? askedMethods<EventPostConsequence> : askedMethods<>;
}

}  // namespace

Event::Event() : Event(K_INT_UNSIGNIFICANT, "") {}

Event::Event(const char* className) : Event(K_INT_UNSIGNIFICANT, className) {}

Event::Event(int classSymbol, const char* className) {
  ++_nbConst;
  AddInstance(classSymbol, className);
  TraceConstruction();
  mMethods.Begin(allMethods, this);
}

Event::Event(short priority, const char* className) {
  ++_nbConst;
  SetPriorityDegree(priority);
  AddInstance(K_INT_UNSIGNIFICANT, className);
  TraceConstruction();
  mMethods.Begin(allMethods, this);
}

Event::Event(const char* className, int autoGenerate, int postConsequence) {
  ++_nbConst;
  mMarks.isAutoGenerate = autoGenerate;
  mMarks.hasPostConsequence = postConsequence;
  AddInstance(K_INT_UNSIGNIFICANT, className);
  TraceConstruction();
  mMethods.Begin(MethodsFor(autoGenerate != 0, postConsequence != 0), this);
}

Event::Event(bool withoutMethod) {
  if (!withoutMethod) std::printf("\nappel interdit du constructeur Event(withoutMethod)\n");
}

void Event::TraceConstruction() const {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n+Construction de l'event " << this << " \"" << mClassName << "\"";
}

void Event::TakeTerms(const Event& other) {
  if (mAgendas != 0) Place(other.mTerms.clock, other.mTerms.priority);
  mTerms = other.mTerms;
  mNextEventClassName = other.mNextEventClassName;
}

namespace {

/// The entity by which two processes of one class name are told apart.
Entity* BoundEntity(Process* process) {
  const bool isBound = process->HasProcessedEntity() != 0 || process->HasProcessedEntitySpec() != 0 ||
                       process->ProcessedEntityClassId() != 0;
  return isBound ? process->ProcessedEntity() : nullptr;
}

bool AreAlike(Process* a, Process* b) {
  return std::strcmp(a->ClassName(), b->ClassName()) == 0 && BoundEntity(a) == BoundEntity(b);
}

}  // namespace

/// Couples over new processes; couples over processes that are alike share one.
template <class NewDiscrete>
void Event::CopyCouples(const Event& other, NewDiscrete newDiscrete) {
  for (StructProcessAction* couple : other.mListpProcessAction) {
    Process* source = couple->process;
    if (source == nullptr) continue;
    Process* copy = nullptr;
    for (StructProcessAction* own : mListpProcessAction)
      if (copy == nullptr && AreAlike(own->process, source)) copy = own->process;
    if (copy == nullptr)
      copy = source->Subclass() == DISCRETE_PROCESS ? newDiscrete(source) : CopyProcess(source);
    if (copy == nullptr) continue;
    if (mListpProcessAction.empty())
      mListpProcessAction.Insert(0, copy, couple->action);  // no agenda knows this event yet
    else
      AddProcessAction(copy, couple->action);
  }
}

Event::Event(const Event& other) : mNextEvent(other.mNextEvent) {
  ++_nbConst;
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n++copy construction de l'event " << this << " <- " << &other;
  TakeTerms(other);
  AddInstance(other.mClassSymbol, other.mClassName);
  mMarks = other.mMarks;
  mMarks.isAutoGenerate = mMarks.hasPostConsequence = 0;
  mIsPoppingToSuspend = other.mIsPoppingToSuspend;
  mIsPoppingToResume = other.mIsPoppingToResume;
  CopyCouples(other, CopyProcess);
  LazyMethods::CopyMethods(other.mMethods, {VOID, BOOLEAN, INT}, *this);
  mMarks.isAutoGenerate = other.mMarks.isAutoGenerate;
  mMarks.hasPostConsequence = other.mMarks.hasPostConsequence;
}

Event::Event(const Event& source, Raw)
    : mClassSymbol(source.mClassSymbol),
      mThisInstanceNumber(++mInstanceNumber),
      mClassName(source.mClassName),
      mNameStem(source.mClassName),
      mTerms(source.mTerms),
      mMarks(source.mMarks),
      mNextEventClassName(source.mNextEventClassName) {
  ++_nbConst;
  CopyCouples(source,
              [](Process* process) -> Process* { return static_cast<DiscreteProcess*>(process)->RawCopy(); });
  mMethods.Share(source.mMethods, this);
}

Event* Event::RawCopy() { return new Event(*this, Raw()); }

const Event& Event::operator=(const Event& other) {
  if (g_KV_TraceNewDelMode != 0) std::cout << "=assignation de " << this << " avec " << &other;
  if (this == &other) return other;
  TakeTerms(other);
  mClassName = other.mClassName;
  ClearListProcessAction();
  for (StructProcessAction* couple : other.mListpProcessAction)
    AddProcessAction(couple->process, couple->action);
  try {
    mMethods.AssignMethods(other.mMethods);
  } catch (int index) {
    const Tableau<Method*> methods = mMethods.Methods();
    TabIndexOutOfRange(index, "Event::operator=", &methods, index, true);
  }
  mMarks = other.mMarks;
  return other;
}

Event::~Event() {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n-Destruction superficielle de l'event " << mClassName << this;
  ++_nbDest;
  LetGoOfCouples();
}

void Event::DeleteInDepth() {
  if (g_KV_TraceNewDelMode != 0) std::printf("\n-Destruction profonde de l'event %x\n", Address32(this));
  mMethods.DestroyMethods();
  delete this;
}
