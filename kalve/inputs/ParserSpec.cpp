#include "kalve/inputs/ParserSpec.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <map>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/specs/EntitySpec.h"

char gErrorString[gErrorStringSize] = "";
char gIterString[50] = "";
const char* const gUnknownEntityClass =
    "\n!!! Création d'une entité d'une classe inconnue de l'application !!!\n";

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

/// Null, and the error text, when the application has no such class.
Entity* NewEntity(const char* className) {
  Entity* entity = pApp_NewEntityFromString != nullptr ? pApp_NewEntityFromString(className) : nullptr;
  if (entity == nullptr) Fails(gUnknownEntityClass);
  return entity;
}

/// Creates the entity, names it and puts it on the stack; null when it cannot be made.
Entity* PushNewEntity(const Pass& pass, const ExternEntityAdditionSpec& addition) {
  Entity* entity = NewEntity(addition.mClassName.c_str());
  if (entity == nullptr) return nullptr;
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

// Values

/// A value on its way to a descriptor.
struct Assignment {
  const ExternEntityDescAffectationSpec& spec;
  Entity* entity;
  int iterator;
  int id;    ///< of the descriptor, -9 for none of that name
  int type;  ///< its type, likewise

  bool IsDynamic() const { return spec.mIsDynamic != 0; }
};

/// Without its fraction, and no further than an int goes.
int ToInt(double value) {
  return static_cast<int>(std::clamp(value, static_cast<double>(INT_MIN), static_cast<double>(INT_MAX)));
}

// One function for each type of value, for the types of descriptor that its row names: false, with an error
// text, when it fails.

bool AssignInt(const Assignment& a) {
  const int value = a.IsDynamic() ? a.iterator : a.spec.mIntValue;
  switch (a.type) {
    case INT:
      Trace("\t\tvaleur : %d\n", value);
      a.entity->SetIntValue(a.id, value);
      break;
    case FLOAT:
      Trace("\tvaleur : %f\n", static_cast<double>(static_cast<float>(value)));
      a.entity->SetFloatValue(a.id, static_cast<float>(value));
      break;
    default:
      Trace("\tvaleur : %f\n", static_cast<double>(value));
      a.entity->SetDoubleValue(a.id, static_cast<double>(value));
  }
  return true;
}

bool AssignDouble(const Assignment& a) {
  const double value = a.IsDynamic() ? static_cast<double>(a.iterator) : a.spec.mDoubleValue;
  switch (a.type) {
    case INT:
      Trace("\t\tvaleur : %d\n", ToInt(value));
      a.entity->SetIntValue(a.id, ToInt(value));
      break;
    case FLOAT:
      Trace("\t\tvaleur : %f\n", static_cast<double>(static_cast<float>(value)));
      a.entity->SetFloatValue(a.id, static_cast<float>(value));
      break;
    default:
      Trace("\t\tvaleur : %f\n", value);
      a.entity->SetDoubleValue(a.id, value);
  }
  return true;
}

bool AssignString(const Assignment& a) {
  const char* value = a.spec.mStringValue.c_str();
  if (a.IsDynamic()) {
    std::snprintf(gIterString, sizeof gIterString, "%s%d", value, a.iterator);
    value = gIterString;
  }
  Trace("\t\tvaleur : %s\n", value);
  a.entity->SetStringValue(a.id, value);
  return true;
}

bool AssignEntity(const Assignment& a) {
  Entity* value = NewEntity(a.spec.mEntityClassName);
  if (value == nullptr) return false;
  Trace("\t\tvaleur : %s (%x)\n", value->InstanceName(), Address32(value));
  a.entity->SetEntityValue(a.id, value);
  return true;
}

void TraceDescribedEntity(const Assignment& a) {
  Trace("\t\tentité décrite : %s (%x)\n", a.entity->InstanceName(), Address32(a.entity));
}

bool AddEntity(const Assignment& a) {
  Entity* value = NewEntity(a.spec.mEntityClassName);
  if (value == nullptr) return false;
  TraceDescribedEntity(a);
  Trace("\t\tvaleur : %s (%x)\n", value->InstanceName(), Address32(value));
  a.entity->AddEntityValueElement(a.id, value);
  return true;
}

bool AssignEntitySpec(const Assignment& a) {
  EntitySpec* value = a.spec.mEntitySpec;
  Trace("\t\tvaleur : %s (%x)\n", value != nullptr ? value->ClassName() : "", Address32(value));
  a.entity->SetEntitySpecValue(a.id, value);
  return true;
}

bool AddIntInterval(const Assignment& a) {
  Trace("\t\tintervalle : (%d %d)\n", a.spec.mIntValue, a.spec.mIntHighValue);
  a.entity->AddIntDomainValueElement(a.id, a.spec.mIntValue, a.spec.mIntHighValue);
  return true;
}

bool AddInt(const Assignment& a) {
  TraceDescribedEntity(a);
  Trace("\t\tvaleur : %d \n", a.spec.mIntValue);
  a.entity->AddIntValueElement(a.id, a.spec.mIntValue);
  return true;
}

bool AddReal(const Assignment& a) {
  TraceDescribedEntity(a);
  Trace("\t\tvaleur : %f \n", a.spec.mDoubleValue);
  if (a.type == FLOAT_TAB)
    a.entity->AddFloatValueElement(a.id, static_cast<float>(a.spec.mDoubleValue));
  else
    a.entity->AddDoubleValueElement(a.id, a.spec.mDoubleValue);
  return true;
}

/// What is done with a type of value, and the error texts.
struct ValueTypeRow {
  int type;
  std::array<int, 3> descriptorTypes;  ///< that take it
  bool (*assign)(const Assignment& assignment);
  const char* whenOtherType;
  const char* whenDynamic;  ///< null for a type that can be dynamic

  bool Takes(int descriptorType) const {
    return descriptorType > 0 && std::ranges::count(descriptorTypes, descriptorType) > 0;
  }
};

constexpr ValueTypeRow valueTypeRows[] = {
    {INT,
     {INT, FLOAT, DOUBLE},
     AssignInt,
     "\n!!! Affectation d'une valeur entière à un descripteur non numérique\n    ou qui n'existe pas !!!\n",
     nullptr},
    {DOUBLE,
     {INT, FLOAT, DOUBLE},
     AssignDouble,
     "\n!!! Affectation d'une valeur réelle à un descripteur non numérique\n    ou qui n'existe pas !!!\n",
     nullptr},
    {STRING,
     {STRING},
     AssignString,
     "\n!!! Affectation d'une chaîne à un descripteur non String !!!\n",
     nullptr},
    {P_ENTITY,
     {P_ENTITY},
     AssignEntity,
     "\n!!! Affectation d'une valeur 'entité' à un descripteur d'un autre type !!!\n",
     "\n!!! Affectation dynamique d'une valeur 'entité' : doit être statique !!!\n"},
    {ENTITY_TAB,
     {ENTITY_TAB},
     AddEntity,
     "\n!!! Ajout d'une valeur 'entité' à un descripteur d'un autre type !!!\n",
     "\n!!! Ajout dynamique d'un élément valeur 'entité' : doit être statique !!!\n"},
    {P_ENTITYSPEC,
     {P_ENTITYSPEC},
     AssignEntitySpec,
     "\n!!! Affectation d'une valeur 'spécification d'entités' à un descripteur d'un autre type !!!\n",
     "\n!!! Affectation dynamique d'une valeur 'spécification d'entités' : doit être statique !!!\n"},
    {INTDOMAIN,
     {INTDOMAIN},
     AddIntInterval,
     "\n!!! Ajout d'une valeur intervalle d'entiers à un descripteur d'un autre type !!!\n",
     "\n!!! Affectation dynamique d'une valeur intervalle d'entiers : doit être statique !!!\n"},
    {INT_TAB,
     {INT_TAB},
     AddInt,
     "\n!!! Ajout d'une valeur entière à un descripteur d'un autre type que INT_TAB !!!\n",
     "\n!!! Ajout dynamique d'un élément valeur entière : doit être statique !!!\n"},
    {FLOAT_TAB,
     {FLOAT_TAB, DOUBLE_TAB},
     AddReal,
     "\n!!! Ajout d'une valeur réelle à un descripteur d'un autre type que FLOAT_TAB ou DOUBLE_TAB !!!\n",
     "\n!!! Ajout dynamique d'un élément valeur flottante : doit être statique !!!\n"},
};

bool AssignValue(Pass& pass, Action* action) {
  const auto& spec = *static_cast<ExternEntityDescAffectationSpec*>(action);
  Trace("\taction : AFFECTATION VALEUR DANS FOR niveau %d\n", pass.loop->mLevel);
  if (pass.current == nullptr) return NeedsCurrent();
  const int classId = pass.current->ClassSymbol();
  const char* name = spec.mDescriptorName.c_str();
  const Assignment assignment{spec, pass.current, pass.iterator, GetDescriptorSymbol(classId, name),
                              GetDescriptorType(classId, name)};
  Trace("\t\tinstance : %s\n\t\tdescripteur : %s\n", pass.current->InstanceName(), name);
  for (const ValueTypeRow& row : valueTypeRows) {
    if (row.type != spec.mValueType) continue;
    if (assignment.IsDynamic() && row.whenDynamic != nullptr) return Fails(row.whenDynamic);
    return row.Takes(assignment.type) ? row.assign(assignment) : Fails(row.whenOtherType);
  }
  return true;
}

// Bodies, loops, plugs

bool AssignBody(Pass& pass, Action* action) {
  const auto& spec = *static_cast<ExternBodyAffectationSpec*>(action);
  Trace("\taction : AFFECTATION CORPS DANS FOR niveau %d\n", pass.loop->mLevel);
  if (pass.current == nullptr) return NeedsCurrent();
  const int id = GetMethodSymbol(pass.current->ClassSymbol(), spec.mMethodName.c_str());
  Trace("\t\tinstance : %s\n\t\tméthode : %s\n", pass.current->InstanceName(), spec.mMethodName.c_str());
  if (spec.mBodyType == BOOLEAN) pass.current->AssignBody(id, spec.mBody);
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
    {Action::ASSIGN_VALUE, AssignValue, Destroy<ExternEntityDescAffectationSpec>},
    {Action::ITERATION, RunNestedLoop, Destroy<ExternEntityIterationSpec>},
    {Action::PLUG_COMPONENT, DoNothing, Destroy<ExternEntityPlugSpec>},
    {Action::PLUG_ELEMENT, DoNothing, Destroy<ExternEntityPlugSpec>},
    {Action::ASSIGN_BODY, AssignBody, Destroy<ExternBodyAffectationSpec>},
};

/// Null for a kind that does not exist.
const KindRow* RowOf(const Action* action) {
  for (const KindRow& row : kindRows)
    if (row.kind == action->mKind) return &row;
  return nullptr;
}

}  // namespace

// Named bodies -----------------------------------------------------------------------------------------

namespace {

std::map<std::string, PredicateBody>& PredicateBodies() {
  static std::map<std::string, PredicateBody> bodies{{"TRUE", gAlwaysTrue}, {"FALSE", gAlwaysFalse}};
  return bodies;
}

}  // namespace

void RegisterPredicateBody(const char* name, PredicateBody body) { PredicateBodies()[name] = body; }

PredicateBody GetPredicateBody(const char* name) {
  const auto found = PredicateBodies().find(name);
  return found != PredicateBodies().end() ? found->second : nullptr;
}

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
    if (g_KV_TraceParsingS != 0) ++traced;
    Trace("--> FOR niveau %d ITERATION n° %ld\titérateur = %d \n", mLevel, traced, pass.iterator);
    set_nth_num(*iterators, mIteratorRank, pass.iterator);
    for (mActions.go_head(); mActions.is_current_in(); mActions.go_next()) {
      const KindRow* row = RowOf(mActions.current());
      if (row != nullptr && !row->act(pass, mActions.current())) return;
    }
    if (g_KV_TraceParsingS != 0) ++traced;
    Trace("--> FIN FOR niveau %d ITERATION n° %ld\titérateur = %d \n", mLevel, traced, pass.iterator);
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
