#include "kalve/model/Entity.h"

#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Method.h"

// Life ----------------------------------------------------------------------------------------------------

Entity::Entity() {
  const void* const address = this;
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n+Construction de l'entité " << address;
  SetMetaClass(KV_ENTITY);
  AddInstanceToClass(0);
  SetEntityType(KV_ENTITY);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n+ FIN Construction de l'entité " << address;
}

Entity::Entity(const Entity& source) : DescriptedEntity(source) { BecomeCopyOf(source); }

Entity::Entity(const Entity& source, int depth) : DescriptedEntity(source, depth) { BecomeCopyOf(source); }

Entity::Entity(const Entity& source, bool withMonitors) : DescriptedEntity(source, withMonitors) {
  BecomeCopyOf(source);
}

Entity::Entity(const Entity& source, bool withMonitors, int depth)
    : DescriptedEntity(source, withMonitors, depth) {
  BecomeCopyOf(source);
}

void Entity::BecomeCopyOf(const Entity& source) {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n++copy construction de " << ClassName() << " " << static_cast<const void*>(this) << " <- "
              << static_cast<const void*>(&source);
  SetEntityType(KV_ENTITY);
  MethodTable::CopyMethods(source.mMethods, {VOID, BOOLEAN, INT, FLOAT, DOUBLE, STRING, P_ENTITY, ENTITY_TAB},
                           *this);
}

Entity::~Entity() {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n-Destruction de l'entité " << static_cast<const void*>(this) << " (pas de ses éléments)";
  mMethods.DestroyMethods();
}

// Table of methods ----------------------------------------------------------------------------------------

void Entity::AddMethod(Method* method) {
  if (method->ObjectClass() != KV_ENTITY) BadMethodTypeWhenAdd(this, method);
  mMethods.Add(method, "Entity::AddMethod");
  static_cast<EntityMethod*>(method)->DescribedEntity(this);
}

/// Negative for an id without method.
int Entity::RankOf(int id, const char* caller) const {
  const Tableau<int>& ranks = mMethods.Ranks();
  if (id < 0 || id >= ranks.size()) FailOnIndex(caller, ranks.size(), id);
  return ranks.begin()[id];
}

Method* Entity::GetMethod(int id) const {
  const int rank = RankOf(id, "Entity::GetMethod");
  if (rank < 0) InexistantMethod(const_cast<Entity*>(this), id, "");
  return mMethods.Methods().begin()[rank];
}

Method* Entity::GetMethod(const char* name) const {
  Method* const method = mMethods.Named(name);
  if (method == nullptr) InexistantMethod(const_cast<Entity*>(this), K_INT_UNSIGNIFICANT, name);
  return method;
}

bool Entity::HasBody(int id) const {
  const int rank = RankOf(id, "Entity::HasBody");
  return rank >= 0 && mMethods.Methods()[rank]->HasBodyAssigned();
}

Method* Entity::GetMethodWithBody(int id) const {
  const int rank = RankOf(id, "Entity::GetMethodWithBody");
  Method* const method = rank >= 0 ? mMethods.Methods()[rank] : nullptr;
  return method != nullptr && method->HasBodyAssigned() ? method : nullptr;
}

// Families ------------------------------------------------------------------------------------------------

EntityMethod& Entity::TypedMethod(int id, ValueTypeId type, const char* operation) {
  Method* const method = GetMethod(id);
  if (method->ClassType() != type) BadMethodValueType(this, method, operation);
  return static_cast<EntityMethod&>(*method);  // AddMethod lets no other in
}

// One row per type of body: its result, the tag of the methods that take it, the words of the failure.
#define KALVE_BODY(Result, type, words)                            \
  void Entity::AssignBody(int id, Result (*body)(EntityMethod*)) { \
    TypedMethod(id, type, words).SetBody(body);                    \
  }
KALVE_BODY(void, VOID, "assign void body")
KALVE_BODY(bool, BOOLEAN, "assign boolean body")
KALVE_BODY(int, INT, "assign int body")
KALVE_BODY(float, FLOAT, "assign float body")
KALVE_BODY(double, DOUBLE, "assign double body")
KALVE_BODY(const char*, STRING, "assign string body")
KALVE_BODY(BasicEntity*, P_ENTITY, "assign entity body")
KALVE_BODY(Tableau<BasicEntity*>*, ENTITY_TAB, "assign entity tab body")
#undef KALVE_BODY

// One row per type of argument: what stands between Set and ArgValue, and the value.
#define KALVE_ARGUMENT(Name, Value)                                             \
  void Entity::Set##Name##ArgValue(int methodId, int argumentId, Value value) { \
    GetMethod(methodId)->SetArgValue(argumentId, value);                        \
  }
KALVE_ARGUMENT(Int, int)
KALVE_ARGUMENT(Float, float)
KALVE_ARGUMENT(Double, double)
KALVE_ARGUMENT(Entity, BasicEntity*)
KALVE_ARGUMENT(EntityTab, Tableau<BasicEntity*>*)
KALVE_ARGUMENT(String, const char*)
KALVE_ARGUMENT(IntTab, Tableau<int>*)
KALVE_ARGUMENT(FloatTab, Tableau<float>*)
KALVE_ARGUMENT(DoubleTab, Tableau<double>*)
#undef KALVE_ARGUMENT

// One row per type of result: what follows Exec, the result, the tag, the words of the failure.
#define KALVE_EXECUTION(Name, Result, type, words) \
  Result Entity::Exec##Name(int id) { return TypedMethod(id, type, words).Call<Result>(); }
KALVE_EXECUTION(VoidMethod, void, VOID, "exec void method")
KALVE_EXECUTION(Predicate, bool, BOOLEAN, "exec predicate")
KALVE_EXECUTION(IntMethod, int, INT, "exec int method")
KALVE_EXECUTION(FloatMethod, float, FLOAT, "exec float method")
KALVE_EXECUTION(DoubleMethod, double, DOUBLE, "exec double method")
KALVE_EXECUTION(StringMethod, const char*, STRING, "exec string method")
KALVE_EXECUTION(EntityMethod, BasicEntity*, P_ENTITY, "exec entity method")
KALVE_EXECUTION(EntityTabMethod, Tableau<BasicEntity*>*, ENTITY_TAB, "exec entityTab method")
KALVE_EXECUTION(IntTabMethod, Tableau<int>*, INT_TAB, "exec intTab method")
KALVE_EXECUTION(FloatTabMethod, Tableau<float>*, FLOAT_TAB, "exec floatTab method")
#undef KALVE_EXECUTION
