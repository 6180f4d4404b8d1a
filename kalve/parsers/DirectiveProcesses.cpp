// The processes of the directive file: couples of process and action in the block of an event, and the
// processes that read data files, which stand by themselves.
#include <algorithm>

#include "kalve/engine/DataReading.h"
#include "kalve/engine/EngineLookups.h"
#include "kalve/engine/Event.h"
#include "kalve/engine/PredefinedEvents.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/inputs/File.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/parsers/DirectiveFile.h"
#include "kalve/parsers/Selections.h"

void DirectiveFile::BeginProcess(const Position& where, const std::string& className) {
  process = ProcessDirective{.where = where, .className = className};
}

// Couples ----------------------------------------------------------------------------------------------

void DirectiveFile::TakeProcess() {
  MadeProcess* made = FindMade();
  if (made == nullptr) {
    mMade.push_back({process.className, process.name ? *process.name : "", NewProcess(), false});
    made = &mMade.back();
  }
  if (process.on && made->isBound)
    FaultInFile(process.on.Where(),
                Text("le processus %s du bloc a déjà son entité (ON) : en nommer un second (NAME)",
                     Quoted(process.className).c_str()));
  made->isBound = made->isBound || process.on;
  mProcess = made->process;
  Bind(mProcess);
  GiveDurations(mProcess);
}

/// Without a name it is the last one of its class.
DirectiveFile::MadeProcess* DirectiveFile::FindMade() {
  const auto isMeant = [this](const MadeProcess& made) {
    return made.className == process.className && (!process.name || made.name == *process.name);
  };
  const auto found = std::find_if(mMade.rbegin(), mMade.rend(), isMeant);
  return found != mMade.rend() ? &*found : nullptr;
}

void DirectiveFile::TakeLivingProcess(const Position& where, const std::string& name) {
  mProcess = GetNamedProcess(name.c_str());
  if (mProcess == nullptr) mProcess = GetClassNamedProcess(name.c_str());
  if (mProcess == nullptr)
    FaultInFile(where, "PROCESS REF " + Quoted(name) + " : aucun processus ne porte ce nom");
  if (mProcess->Subclass() != CONTINUOUS_PROCESS)
    FaultInFile(where, "PROCESS REF " + Quoted(name) + " : ce processus n'est pas continu");
}

void DirectiveFile::AddCouple(const Position& where, ActionType action) {
  const FailureContext context([&] {
    AnnounceFault(where, Text("%s %s", StringActionType(action), Quoted(mProcess->ClassName()).c_str()));
  });
  if (mProcess->Subclass() == DISCRETE_PROCESS && (action == STOP || action == PROCEED))
    UnAuthorizedDirective(mProcess, StringActionType(action));
  mEvent->AddProcessAction(mProcess, action);
}

// Parts of a process -----------------------------------------------------------------------------------

Process* DirectiveFile::NewProcess() const {
  const char* className = Interned(process.className);
  Process* made = K_NewProcessFromString(className);
  if (made == nullptr && pApp_NewProcessFromString != nullptr) made = pApp_NewProcessFromString(className);
  if (made == nullptr) {
    AnnounceFault(process.where, "classe de processus inconnue : " + Quoted(process.className));
    UnknownClassName("K_NewProcessFromString", className);
  }
  if (process.name) made->SetInstanceName(process.name->c_str());
  return made;
}

void DirectiveFile::Bind(Process* made) const {
  if (!process.on) return;
  const std::string& name = process.on->name;
  const Position& where = process.on.Where();
  const std::string shown = (process.on->isSelection ? "ON SPEC " : "ON ") + Quoted(name);
  EntitySpec* spec = process.on->isSelection ? NamedSelection(where, name) : nullptr;
  const FailureContext context([&] { AnnounceFault(where, shown); });
  if (spec != nullptr) return made->ProcessedEntitySpec(spec);
  Entity* entity = GetNamedEntity(name.c_str());
  if (entity == nullptr) UnfoundEntityBasedOnInstanceName("Directive_Parser", name.c_str());
  made->ProcessedEntity(entity);
}

void DirectiveFile::GiveDurations(Process* made) const {
  if (process.delay) made->PostponementDelay(TicksOf(*process.delay, "DELAY"));
  if (!process.step) return;
  if (made->Subclass() != CONTINUOUS_PROCESS)
    FaultInFile(process.step.Where(), "STEP demande un processus continu");
  static_cast<ContinuousProcess*>(made)->Step(TicksOf(*process.step, "STEP"));
}

// Readings ---------------------------------------------------------------------------------------------

void DirectiveFile::PostReading() {
  if (!process.moment) FaultInFile(process.where, "la lecture n'a pas de date (AT)");
  const int clock = ClockOf(*process.moment);
  Process* made = NewProcess();
  Bind(made);
  GiveDurations(made);
  if (PostFirstReading(made, clock) != 0) return;
  ReportWarning("\n!!! %s, ligne %d : la lecture '%s' n'est pas entrée dans l'agenda.",
                process.where.origin->file->GetFullName(), process.where.line, made->InstanceName());
  DeleteProcess(made);
}

/// Non-zero when the agenda took it. The priority is that of the kernel's own postings unless it is given.
int DirectiveFile::PostFirstReading(Process* made, int clock) const {
  const short priority = process.priority ? AnnouncedPriority(process.priority) : 0;
  if (made->Subclass() == CONTINUOUS_PROCESS && static_cast<ContinuousProcess*>(made)->IsReadSDF() != 0) {
    auto* reader = static_cast<ReadSequentialDataFileProcess*>(made);
    NameFile(*reader);
    return reader->PostInitAndProceedEvent(clock, priority);
  }
  if (made->Subclass() == DISCRETE_PROCESS && static_cast<DiscreteProcess*>(made)->IsInitSDRec() != 0) {
    auto* opener = static_cast<InitFactualDataFileReadingProcess*>(made);
    NameFile(*opener);
    auto* execution = new DiscreteExecution(clock, opener);
    execution->SetPriorityDegree(priority);
    const int inserted = pCurrentSim->InsertInAgendaEvents(execution);
    if (inserted == 0) execution->DeleteInDepth();
    return inserted;
  }
  FaultInFile(process.where,
              Text("READS : le processus %s ne lit pas de fichier", Quoted(process.className).c_str()));
}

void DirectiveFile::NameFile(DataFileNames& reader) const {
  if (process.fullName && (process.path || process.simpleName))
    FaultInFile(process.fullName.Where(), "FULL_NAME ne se donne pas avec PATH ou NAME");
  reader.FileClassId(FileSymbol());
  if (process.path) reader.SetFilePath(process.path->c_str());
  if (process.simpleName) reader.SetFileSimpleName(process.simpleName->c_str());
  if (process.fullName) reader.SetFileFullName(process.fullName->c_str());
}

int DirectiveFile::FileSymbol() const {
  if (process.reads->symbol) return *process.reads->symbol;
  const char* name = Interned(process.reads->name);
  int symbol = K_SerialDataFileIdFromString(name);
  if (symbol == K_INT_UNSIGNIFICANT && pApp_SerialDataFileIdFromString != nullptr)
    symbol = pApp_SerialDataFileIdFromString(name);
  if (symbol != K_INT_UNSIGNIFICANT) return symbol;
  AnnounceFault(process.reads.Where(), "classe de fichier inconnue : " + Quoted(name));
  UnknownClassName("K_SerialDataFileIdFromString", name);
}
