#include "kalve/parsers/StructureFile.h"

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/parsers/Selections.h"

namespace {

using Action = ExternEntityIteratedActionSpec;

/// Loops run and die by recursion.
constexpr int deepestLoop = 100;

const char* WordOf(int kind) {
  switch (kind) {
    case Action::ADD_COMPONENT:
      return "COMPONENT";
    case Action::ADD_ELEMENT:
      return "ELEMENT";
    default:
      return "ENTITY";
  }
}

/// As the file has it.
std::string Statement(Action::Kind kind, const std::string& className, const InstanceNaming& naming) {
  std::string statement = Text("%s %s", WordOf(kind), Quoted(className).c_str());
  if (!naming.text.empty()) statement += " " + Quoted(naming.text);
  if (!naming.iterator.empty()) statement += "[" + naming.iterator + "]";
  return statement;
}

/// The class of the entity that the action makes.
const char* ClassNameIn(const Action* action) {
  if (action->mKind == Action::ASSIGN_VALUE)
    return static_cast<const ExternEntityDescAffectationSpec*>(action)->mEntityClassName;
  return static_cast<const ExternEntityAdditionSpec*>(action)->mClassName.c_str();
}

}  // namespace

StructureFile::StructureFile(LexicalInputFile* file)
    : ParseState(NeedingSimulation(file), {&g_KV_TraceParsingS, NLs, TLs}) {}

// Entities ---------------------------------------------------------------------------------------------

void StructureFile::BeginEntity(const Position& where, Action::Kind kind, const std::string& className,
                                const InstanceNaming& naming) {
  if (kind != Action::CREATE_ENTITY) CheckHasCurrent(where, WordOf(kind));
  if (!naming.iterator.empty()) {
    CheckIterator(naming.where, naming.iterator);
    CheckNoSign(naming);
  }
  auto* addition = new ExternEntityAdditionSpec;
  addition->mKind = kind;
  addition->SetClassName(className.c_str());
  addition->SetInstanceName(naming.text.c_str());
  addition->mIsIteratedName = !naming.iterator.empty();
  Take(addition, {where, Statement(kind, className, naming), {}});
  ++mOpenEntities;
}

void StructureFile::EndEntity(const Position& where) {
  auto* end = new ExternEndEntityAdditionSpec;
  end->mKind = Action::END_ENTITY;
  Take(end, {where, "}", {}});
  --mOpenEntities;
}

void StructureFile::BeginReference(const Position& where, Action::Kind kind, const std::string& name) {
  CheckNotInLoop(where, "REF");
  if (kind != Action::CREATE_ENTITY) CheckHasCurrent(where, WordOf(kind));
  Entity* entity = GetNamedEntity(name.c_str());
  if (entity == nullptr) {
    AnnounceFault(where, "REF " + Quoted(name) + " : aucune entité ne porte ce nom");
    UnfoundEntityBasedOnInstanceName("Structure_Parser", name.c_str());
  }
  {
    const FailureContext context(
        [&] { AnnounceFault(where, Text("%s REF %s", WordOf(kind), Quoted(name).c_str())); });
    if (kind == Action::ADD_COMPONENT) mContainers.front()->AddComponent(entity);
    if (kind == Action::ADD_ELEMENT) mContainers.front()->AddElement(entity);
  }
  mContainers.push_front(entity);
  ++mOpenEntities;
}

void StructureFile::MarkSimulated(const Position& where) {
  CheckNotInLoop(where, "SIMULATED");
  if (mHasSimulated) FaultInFile(where, "une autre entité est déjà l'entité simulée (SIMULATED)");
  mHasSimulated = true;
  pCurrentSim->SimulatedEntity(mContainers.front());
  mContainers.front()->SetSimulation(pCurrentSim);
}

// Values -----------------------------------------------------------------------------------------------

void StructureFile::Assign(const Position& where, const std::string& descriptor, const GivenValue& value) {
  CheckHasCurrent(where, Quoted(descriptor).c_str());
  if (!value.iterator.empty()) CheckIterator(where, value.iterator);
  auto* affectation = new ExternEntityDescAffectationSpec;
  affectation->mKind = Action::ASSIGN_VALUE;
  affectation->mIsDynamic = value.iterator.empty() ? 0 : 1;
  affectation->mValueType = value.type;
  affectation->SetDescriptorName(descriptor.c_str());
  affectation->mIntValue = value.low;
  affectation->mIntHighValue = value.high;
  affectation->mDoubleValue = value.real;
  affectation->SetStringValue(value.text.c_str());
  affectation->mEntityClassName = Interned(value.text);
  affectation->mEntitySpec = value.selection;
  Take(affectation, {where, "descripteur " + Quoted(descriptor), {}});
}

void StructureFile::AddValue(const Position& where, const std::string& descriptor, GivenValue value) {
  switch (value.type) {
    case INT:
      value.type = INT_TAB;
      break;
    case DOUBLE:
      value.type = FLOAT_TAB;
      break;
    case P_ENTITY:
      value.type = ENTITY_TAB;
      break;
    case STRING:
      FaultInFile(where, "+= n'ajoute pas de texte (descripteur " + Quoted(descriptor) + ")");
    default:
      break;
  }
  Assign(where, descriptor, value);
}

void StructureFile::AssignBody(const Position& where, const std::string& method, const std::string& body) {
  CheckHasCurrent(where, "BODY");
  const PredicateBody predicate = GetPredicateBody(body.c_str());
  if (predicate == nullptr)
    FaultInFile(where, "BODY " + Quoted(method) + " : prédicat inconnu " + Quoted(body));
  auto* affectation = new ExternBodyAffectationSpec;
  affectation->mKind = Action::ASSIGN_BODY;
  affectation->mBodyType = BOOLEAN;
  affectation->SetMethodName(method.c_str());
  affectation->mBody = predicate;
  Take(affectation, {where, "BODY " + Quoted(method), {}});
}

void StructureFile::TakeSelection(const Position& where) {
  CheckNotInLoop(where, "SPEC");
  ReadSelection(*this);
}

// Checks -----------------------------------------------------------------------------------------------

void StructureFile::CheckNotInLoop(const Position& where, const char* word) const {
  if (!mLoops.empty()) FaultInFile(where, Text("%s ne peut pas se trouver dans une boucle FOR", word));
}

void StructureFile::CheckHasCurrent(const Position& where, const char* word) const {
  if (mOpenEntities == 0) FaultInFile(where, Text("%s doit se trouver dans le bloc d'une entité", word));
}

/// The records know the iterator of their own loop only.
void StructureFile::CheckIterator(const Position& where, const std::string& iterator) const {
  if (mLoops.empty()) FaultInFile(where, "itérateur " + Quoted(iterator) + " hors d'une boucle FOR");
  const Loop& loop = mLoops.back();
  if (iterator != loop.iterator)
    FaultInFile(where, Text("itérateur %s : seul %s, celui de la boucle la plus proche, est permis",
                            Quoted(iterator).c_str(), Quoted(loop.iterator).c_str()));
}

void StructureFile::CheckNoSign(const InstanceNaming& naming) const {
  const Loop& loop = mLoops.back();
  if (loop.actions->mFirst < 0 && loop.actions->mFirst <= loop.actions->mLast)
    FaultInFile(naming.where, Text("itérateur négatif dans un nom : %s part de %d", loop.iterator.c_str(),
                                   loop.actions->mFirst));
}

// Loops ------------------------------------------------------------------------------------------------

void StructureFile::BeginLoop(const Position& where, const std::string& iterator, int first, int last) {
  const int depth = static_cast<int>(mLoops.size());
  if (depth == deepestLoop) FaultInFile(where, Text("plus de %d boucles FOR imbriquées", deepestLoop));
  auto loop = std::make_unique<ExternEntityIterationSpec>(depth + 1, depth, first, last);
  ExternEntityIterationSpec* actions = loop.get();
  if (depth == 0)
    mOutermost = std::move(loop);
  else
    Take(loop.release(), {where, "FOR", {}});
  mLoops.push_back({where, iterator, actions});
}

void StructureFile::EndLoop() {
  mLoops.pop_back();
  if (!mLoops.empty()) return;
  Run(*mOutermost);
  mOutermost.reset();
  mSources.clear();
}

/// Into the loop being read; outside of loops the action runs at once, as the only one of a loop of one pass.
void StructureFile::Take(Action* action, const Source& source) {
  Source& kept = mSources[action] = source;
  if (!mLoops.empty()) {
    kept.loop = mLoops.back();
    mLoops.back().actions->addAction(action);
    return;
  }
  ExternEntityIterationSpec onePass(0, 0, 1, 1);
  onePass.addAction(action);
  Run(onePass);
  mSources.clear();
}

// Running ----------------------------------------------------------------------------------------------

void StructureFile::Run(ExternEntityIterationSpec& loop) {
  gErrorString[0] = '\0';
  {
    const FailureContext context([&] {
      const Source& source = SourceOf(loop);
      AnnounceFault(source.where, Shown(source));
    });
    loop.execActionList(&mContainers, &mIterators);
  }
  if (gErrorString[0] != '\0') EndInError(loop);
}

void StructureFile::EndInError(const ExternEntityIterationSpec& loop) {
  const Source& source = SourceOf(loop);
  const Action* action = loop.ActionInProgress();
  const std::string text = gErrorString;
  if (text != gUnknownEntityClass)
    FaultInFile(source.where, Shown(source) + text.substr(0, text.find_last_not_of('\n') + 1));
  AnnounceFault(source.where, Shown(source) + " : classe d'entité inconnue");
  UnknownClassName("pApp_NewEntityFromString", ClassNameIn(action));
}

const StructureFile::Source& StructureFile::SourceOf(const ExternEntityIterationSpec& loop) const {
  return mSources.at(loop.ActionInProgress());
}

std::string StructureFile::Shown(const Source& source) {
  if (!source.loop) return source.statement;
  const Loop& loop = *source.loop;
  return source.statement + Text(" (boucle FOR de la ligne %d, %s = %d)", loop.where.line,
                                 loop.iterator.c_str(), mIterators[loop.actions->mIteratorRank]);
}
