#include "kalve/inputs/ParserSpec.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"

char gErrorString[gErrorStringSize] = "";

int ExternEntityIteratedActionSpec::_nbConst = 0;
int ExternEntityIteratedActionSpec::_nbDest = 0;

ExternEntityIteratedActionSpec::ExternEntityIteratedActionSpec() {
  ++_nbConst;
  if (g_KV_TraceNewDelMode != 0) std::printf("\n-Construction de la ExternEntityIteratedActionSpec ");
}

ExternEntityIteratedActionSpec::~ExternEntityIteratedActionSpec() {
  ++_nbDest;
  if (g_KV_TraceNewDelMode != 0) std::printf("\n-Destruction de la ExternEntityIteratedActionSpec ");
}

// Actions ----------------------------------------------------------------------------------------------

namespace {

using Action = ExternEntityIteratedActionSpec;

/// One pass of a loop.
struct Pass {
  const ExternEntityIterationSpec* loop;
  Liste<Entity*>* containers;
  Tableau<int>* iterators;
  int iterator;
  Entity* current;  ///< null without any
};

[[gnu::format(printf, 1, 2)]] void Trace(const char* format, ...) {
  if (g_KV_TraceParsingS == 0) return;
  va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
}

void TraceContainers(const Pass& pass) {
  if (g_KV_TraceParsingS != 0) DisplayContainerEntityList(pass.containers);
}

/// Leaves the text for the caller of the interpreter; false, which ends all levels.
bool Fails(const char* text) {
  std::snprintf(gErrorString, sizeof gErrorString, "%s", text);
  return false;
}

bool NeedsCurrent() { return Fails("\n!!! Action sans entité courante !!!\n"); }

Entity* HeadOf(const Liste<Entity*>* containers) {
  return containers->empty() != 0 ? nullptr : containers->front();
}

void GiveInstanceName(Entity* entity, const ExternEntityAdditionSpec& addition, int iterator) {
  char number[12];
  std::string name = addition.mInstanceName;
  if (addition.mIsIteratedName) name += itoc(iterator, number);
  if (addition.mIsIteratedName || !name.empty()) entity->SetInstanceName(name.c_str());
}

/// Creates the entity, names it and puts it on the stack; null, and the error text, when there is no such
/// class.
Entity* PushNewEntity(const Pass& pass, const ExternEntityAdditionSpec& addition) {
  Entity* entity =
      pApp_NewEntityFromString != nullptr ? pApp_NewEntityFromString(addition.mClassName.c_str()) : nullptr;
  if (entity == nullptr) {
    Fails("\n!!! Création d'une entité d'une classe inconnue de l'application !!!\n");
    return nullptr;
  }
  GiveInstanceName(entity, addition, pass.iterator);
  pass.containers->push_front(entity);
  return entity;
}

bool CreateEntity(Pass& pass, Action* action) {
  const auto& addition = *static_cast<ExternEntityAdditionSpec*>(action);
  Trace("\taction : CREATE INSTANCE DANS FOR niveau %d %s", pass.loop->mLevel, addition.mClassName.c_str());
  Entity* entity = PushNewEntity(pass, addition);
  if (entity == nullptr) return false;
  Trace("\t%s\n", entity->InstanceName());
  pass.current = entity;
  TraceContainers(pass);
  return true;
}

/// Creates the entity and gives it to the current one with `add`.
template <class Add>
bool AddNewEntity(Pass& pass, const ExternEntityAdditionSpec& addition, Add add) {
  if (pass.current == nullptr) return NeedsCurrent();
  Entity* entity = PushNewEntity(pass, addition);
  if (entity == nullptr) return false;
  add(pass.current, entity);
  Trace("\t\tentite mere = %s\n\t\tentite fille = %s\n", pass.current->InstanceName(),
        entity->InstanceName());
  pass.current = entity;
  TraceContainers(pass);
  return true;
}

bool AddComponent(Pass& pass, Action* action) {
  const auto& addition = *static_cast<ExternEntityAdditionSpec*>(action);
  Trace("\taction : AJOUT COMPOSANT DANS FOR niveau %d classe %s\n", pass.loop->mLevel,
        addition.mClassName.c_str());
  return AddNewEntity(pass, addition, [](Entity* mother, Entity* child) { mother->AddComponent(child); });
}

bool AddElement(Pass& pass, Action* action) {
  const auto& addition = *static_cast<ExternEntityAdditionSpec*>(action);
  Trace("\taction : AJOUT ELEMENT DANS FOR niveau %d classe %s\n", pass.loop->mLevel,
        addition.mClassName.c_str());
  return AddNewEntity(pass, addition, [](Entity* mother, Entity* child) { mother->AddElement(child); });
}

bool EndEntity(Pass& pass, Action* /*action*/) {
  Trace("\taction : FIN_AJOUT_ENTITY DANS FOR niveau %d\n", pass.loop->mLevel);
  if (pass.containers->empty() == 0) {
    pass.containers->pop_front();
    TraceContainers(pass);
  }
  pass.current = HeadOf(pass.containers);
  if (pass.current == nullptr) Trace("\tLa liste devient vide\n");
  return true;
}

bool RunNestedLoop(Pass& pass, Action* action) {
  Trace("\tFOR IMBRIQUE DANS FOR niveau %d\n", pass.loop->mLevel);
  static_cast<ExternEntityIterationSpec*>(action)->execActionList(pass.containers, pass.iterators);
  return gErrorString[0] == '\0';
}

bool DoNothing(Pass& /*pass*/, Action* /*action*/) { return true; }

template <class TrueRecord>
void Destroy(Action* action) {
  delete static_cast<TrueRecord*>(action);
}

/// What a kind does, and how its records die.
struct KindRow {
  int kind;
  bool (*act)(Pass& pass, Action* action);  ///< false stops the interpreter, with an error text
  void (*destroy)(Action* action);
};

constexpr KindRow kindRows[] = {
    {Action::CREATE_ENTITY, CreateEntity, Destroy<ExternEntityAdditionSpec>},
    {Action::END_ENTITY, EndEntity, Destroy<ExternEndEntityAdditionSpec>},
    {Action::ADD_COMPONENT, AddComponent, Destroy<ExternEntityAdditionSpec>},
    {Action::ADD_ELEMENT, AddElement, Destroy<ExternEntityAdditionSpec>},
    {Action::ITERATION, RunNestedLoop, Destroy<ExternEntityIterationSpec>},
    {Action::PLUG_COMPONENT, DoNothing, Destroy<ExternEntityPlugSpec>},
    {Action::PLUG_ELEMENT, DoNothing, Destroy<ExternEntityPlugSpec>},
};

/// Null for a kind that does not exist.
const KindRow* RowOf(const Action* action) {
  for (const KindRow& row : kindRows)
    if (row.kind == action->mKind) return &row;
  return nullptr;
}

}  // namespace

// Loops ------------------------------------------------------------------------------------------------

ExternEntityIterationSpec::ExternEntityIterationSpec(int level, int iteratorRank, int first, int last)
    : mLevel(level), mIteratorRank(iteratorRank), mFirst(first), mLast(last) {
  mKind = ITERATION;
}

ExternEntityIterationSpec::~ExternEntityIterationSpec() {
  for (mActions.go_head(); mActions.is_current_in(); mActions.go_next())
    if (const KindRow* row = RowOf(mActions.current())) row->destroy(mActions.current());
}

void ExternEntityIterationSpec::execActionList(Liste<Entity*>* containers, Tableau<int>* iterators) {
  Pass pass{this, containers, iterators, mFirst, HeadOf(containers)};
  Trace("DEBUT TRAITEMENT BOUCLE FOR niveau %d\tnombre d'iterations = %ld \n", mLevel,
        static_cast<long>(mLast) - mFirst + 1);
  long traced = 0;  // counts both lines of an iteration
  for (long i = mFirst; i <= mLast; ++i) {
    pass.iterator = static_cast<int>(i);
    Trace("--> FOR niveau %d ITERATION n° %ld\titérateur = %d \n", mLevel, ++traced, pass.iterator);
    set_nth_num(*iterators, mIteratorRank, pass.iterator);
    for (mActions.go_head(); mActions.is_current_in(); mActions.go_next()) {
      const KindRow* row = RowOf(mActions.current());
      if (row != nullptr && !row->act(pass, mActions.current())) return;
    }
    Trace("--> FIN FOR niveau %d ITERATION n° %ld\titérateur = %d \n", mLevel, ++traced, pass.iterator);
  }
  Trace("FIN TRAITEMENT BOUCLE FOR\n");
}

const ExternEntityIteratedActionSpec* ExternEntityIterationSpec::ActionInProgress() const {
  if (mActions.is_current_off()) return nullptr;
  const Action* action = mActions.current();
  if (action->mKind != ITERATION) return action;
  const Action* inner = static_cast<const ExternEntityIterationSpec*>(action)->ActionInProgress();
  return inner != nullptr ? inner : action;
}
