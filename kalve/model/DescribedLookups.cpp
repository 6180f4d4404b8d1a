// Services over the values of described entities: searches by value, descriptors by name, order, extremes.
#include <cstring>

#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

// Both look at the registry past GetEntityList, which would bind the class to the table that it hands out.

/// The instances of a class that may have descriptors; fails as GetEntityList does.
Tableau<DescriptedEntity*> DescribedInstances(int classId) {
  if (classId < 0) BadEntityClassSpecification("GetEntityList");
  Tableau<DescriptedEntity*> described;
  if (const MetaClass* const metaClass = GetMetaClass(classId))
    for (BasicEntity* entity : metaClass->Instances())
      if (entity->EntityType() >= KV_DESCRIPTED_ENTITY)
        described.push_back(static_cast<DescriptedEntity*>(entity));
  return described;
}

using IntGetter = int (DescriptedEntity::*)(int id) const;

Entity* FirstOfValue(const Tableau<DescriptedEntity*>& entities, IntGetter getter, int descId, int value) {
  for (DescriptedEntity* entity : entities)
    if ((entity->*getter)(descId) == value) return static_cast<Entity*>(entity);
  return nullptr;
}

/// The descriptor of that name on the first instance of the class, or null.
const Descriptor* NamedDescriptor(int classId, const char* name) {
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr || metaClass->InstanceNumber() < 1) return nullptr;
  const BasicEntity* const instance = metaClass->GetInstance(0);
  if (instance->EntityType() < KV_DESCRIPTED_ENTITY) return nullptr;
  const auto& first = static_cast<const DescriptedEntity&>(*instance);
  const auto isNamed = [name](const Descriptor* descriptor) {
    return std::strcmp(OrEmpty(descriptor->ClassName()), OrEmpty(name)) == 0;
  };
  for (const ConstantDescriptor* descriptor : first.ConstantDescriptorTab())
    if (isNamed(descriptor)) return descriptor;
  for (const VariableDescriptor* descriptor : first.VariableDescriptorTab())
    if (isNamed(descriptor)) return descriptor;
  return nullptr;
}

template <class Branch>
int PositionOfSymbol(const Tableau<Branch*>& descriptors, int symbol) {
  for (int i = 0; i < descriptors.size(); ++i)
    if (descriptors[i] != nullptr && descriptors[i]->ClassSymbol() == symbol) return i;
  return K_INT_UNSIGNIFICANT;
}

// Entities that have died since they were put in the table go behind the others, unread.
void Sort(Tableau<DescriptedEntity*>* entities, int descId,
          void (Tableau<DescriptedEntity*>::*sort)(int first, int last)) {
  if (entities == nullptr) return;
  Tableau<DescriptedEntity*> living;
  Tableau<DescriptedEntity*> dead;
  for (DescriptedEntity* entity : *entities) (IsLivingEntity(entity) ? living : dead).push_back(entity);
  for (DescriptedEntity* entity : living) entity->SetDescIdForSorting(descId);
  (living.*sort)(0, living.size() - 1);
  living.push_back(dead);
  *entities = living;
}

/// The first entity whose value is better than that of all before it, and than `start`.
template <class Row, class IsBetter>
DescriptedEntity* Extreme(const Tableau<DescriptedEntity*>& living, int descId, bool isConstant,
                          typename Row::Value start, IsBetter isBetter) {
  DescriptedEntity* best = nullptr;
  for (DescriptedEntity* entity : living) {
    const auto value = isConstant ? ConstantAccess<Row>::GetConstant(*entity, descId)
                                  : PlainAccess<Row>::GetVariable(*entity, descId);
    if (!isBetter(value, start)) continue;
    start = value;
    best = entity;
  }
  return best;
}

struct Starts {
  int ofInt;
  float ofFloat;
  double ofDouble;
};

template <class IsBetter>
DescriptedEntity* Extreme(const char* where, const Tableau<DescriptedEntity*>* entities, int descId,
                          const Starts& starts, IsBetter isBetter) {
  Tableau<DescriptedEntity*> living;
  if (entities != nullptr)
    for (DescriptedEntity* entity : *entities)
      if (IsLivingEntity(entity)) living.push_back(entity);
  if (living.empty()) FailOnIndex(where, 0, 0);
  const Descriptor& descriptor = *living.front()->GetDescriptor(descId);
  const bool isConstant = descriptor.IsConstant();
  if (descriptor.IsInteger()) return Extreme<IntRow>(living, descId, isConstant, starts.ofInt, isBetter);
  if (descriptor.IsFloat()) return Extreme<FloatRow>(living, descId, isConstant, starts.ofFloat, isBetter);
  if (descriptor.IsDouble()) return Extreme<DoubleRow>(living, descId, isConstant, starts.ofDouble, isBetter);
  return nullptr;
}

}  // namespace

Entity* GetFirstEntityOnDescIntConstValue(int classId, int descId, int value) {
  return FirstOfValue(DescribedInstances(classId), &DescriptedEntity::GetIntConstValue, descId, value);
}

Entity* GetFirstEntityOnDescIntVarValue(int classId, int descId, int value) {
  return FirstOfValue(DescribedInstances(classId), &DescriptedEntity::GetIntVarValue, descId, value);
}

Entity* GetFirstEntityOnDescIntValue(int classId, int descId, int value) {
  const Tableau<DescriptedEntity*> entities = DescribedInstances(classId);
  if (entities.empty()) return nullptr;
  const DescriptedEntity* const first = entities.front();
  const bool isConstant = first->GetConstantDescriptorPosition(descId) >= 0;
  if (!isConstant && first->GetVariableDescriptorPosition(descId) < 0)
    InexistantDescriptor(first, descId, "");
  const IntGetter ofConstant = &DescriptedEntity::GetIntConstValue;
  const IntGetter ofVariable = &DescriptedEntity::GetIntVarValue;
  return FirstOfValue(entities, isConstant ? ofConstant : ofVariable, descId, value);
}

int GetDescriptorSymbol(int classId, const char* name) {
  const Descriptor* const descriptor = NamedDescriptor(classId, name);
  return descriptor != nullptr ? descriptor->ClassSymbol() : K_INT_UNSIGNIFICANT;
}

int GetDescriptorType(int classId, const char* name) {
  const Descriptor* const descriptor = NamedDescriptor(classId, name);
  return descriptor != nullptr ? descriptor->ClassType() : K_INT_UNSIGNIFICANT;
}

int GetPosition(const Tableau<ConstantDescriptor*>& descriptors, int classSymbol) {
  return PositionOfSymbol(descriptors, classSymbol);
}

int GetPosition(const Tableau<VariableDescriptor*>& descriptors, int classSymbol) {
  return PositionOfSymbol(descriptors, classSymbol);
}

void SortUp(Tableau<DescriptedEntity*>* entities, int descId) {
  Sort(entities, descId, &Tableau<DescriptedEntity*>::quick_sort);
}

void SortDown(Tableau<DescriptedEntity*>* entities, int descId) {
  Sort(entities, descId, &Tableau<DescriptedEntity*>::quick_sort_inverse);
}

DescriptedEntity* MaxValued(Tableau<DescriptedEntity*>* entities, int descId) {
  return Extreme("MaxValued", entities, descId, {K_INTMIN, K_FLOATMIN, K_DOUBLEMIN},
                 [](auto value, auto best) { return value > best; });
}

DescriptedEntity* MinValued(Tableau<DescriptedEntity*>* entities, int descId) {
  return Extreme("MinValued", entities, descId, {K_INTMAX, K_FLOATMAX, K_DOUBLEMAX},
                 [](auto value, auto best) { return value < best; });
}
