#include "kalve/parsers/Selections.h"

#include <algorithm>
#include <iterator>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/model/ApplicationHooks.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"

EntitySpec* NamedSelection(const Position& where, const std::string& name) {
  EntitySpec* spec = GetNamedEntitySpec(name.c_str());
  if (spec != nullptr) return spec;
  AnnounceFault(where, "SPEC " + Quoted(name) + " : aucune sélection ne porte ce nom");
  UnknownClassName("GetNamedEntitySpec", name.c_str());
}

namespace {

/// Whoever makes the selection may keep the name.
EntitySpec* MadeByName(const char* name) {
  EntitySpec* spec = K_NewEntitySpecFromString(name);
  if (spec == nullptr && pApp_NewEntitySpecFromString != nullptr) spec = pApp_NewEntitySpecFromString(name);
  return spec;
}

/// The number of an enumerated name, the application's before the kernel's; negative without one.
int NumberOf(const std::string& name) {
  const int number = EnumToInt != nullptr ? EnumToInt(name.c_str()) : K_INT_UNSIGNIFICANT;
  return number >= 0 ? number : K_EnumToInt(name.c_str());
}

}  // namespace

// Parts ------------------------------------------------------------------------------------------------

void Selection::Begin(const Position& where, const std::string& name, const std::string& className) {
  mWhere = where;
  mName = name;
  if (GetNamedEntitySpec(name.c_str()) != nullptr)
    FaultInFile(where, "SPEC " + Quoted(name) + " : une autre sélection porte déjà ce nom");
  mSpec = MadeByName(Interned(name));
  if (mSpec == nullptr) {
    if (className.empty()) {
      AnnounceFault(where, "sélection inconnue : " + Quoted(name) + " (une sélection nouvelle demande OF)");
      UnknownClassName("K_NewEntitySpecFromString", name.c_str());
    }
    mSpec = new EntitySpec;
  }
  mSpec->ClassName(name.c_str());
  if (!className.empty()) {
    mSpec->ReferenceClassId(K_INT_UNSIGNIFICANT);
    mSpec->ReferenceClassName(className.c_str());
  }
  const FailureContext context([&] { AnnounceFault(where, "SPEC " + Quoted(name)); });
  mSpec->GetReferenceClassId();
}

void Selection::RefuseSecond(bool& isGiven, const Position& where, const char* words) const {
  if (isGiven) FaultInFile(where, Text("%s : un seul dans la sélection %s", words, Quoted(mName).c_str()));
  isGiven = true;
}

void Selection::SetMode(const Position& where, EntitySpecMode mode) {
  RefuseSecond(mHasMode, where, "RETURN_INSTANCES ou INSTANTIATE");
  mSpec->SetMode(mode);
}

void Selection::TakeFirst(const Position& where, int n) {
  RefuseSecond(mHasQuantity, where, "NFIRST ou ALLENT");
  if (n < 1) {
    AnnounceFault(where, "NFIRST demande un entier d'au moins 1");
    BadQuantitySpecification(mSpec->GetReferenceClassId(), NFIRST, n);
  }
  mSpec->SetQuantificatorId(NFIRST);
  mSpec->IntQuantity(n);
}

void Selection::TakeAll(const Position& where) {
  RefuseSecond(mHasQuantity, where, "NFIRST ou ALLENT");
  mSpec->SetQuantificatorId(ALLENT);
}

void Selection::SetReferent(const Position& where, const std::string& name) {
  RefuseSecond(mHasReferent, where, "REFERENT");
  BasicEntity* entity = GetNamedEntity(name.c_str());
  if (entity == nullptr) {
    AnnounceFault(where, "REFERENT " + Quoted(name) + " : aucune entité ne porte ce nom");
    UnfoundEntityBasedOnInstanceName("REFERENT", name.c_str());
  }
  mSpec->ReferentEntity(entity);
}

void Selection::AddCondition(const Position& where, const std::string& name) {
  const char* const kept = Interned(name);
  DescValueSpec* condition = K_NewDescValueSpecFromString(kept);
  if (condition == nullptr && pApp_NewDescValueSpecFromString != nullptr)
    condition = pApp_NewDescValueSpecFromString(kept);
  if (condition == nullptr) {
    AnnounceFault(where, "condition inconnue : " + Quoted(name));
    UnknownClassName("K_NewDescValueSpecFromString", kept);
  }
  mSpec->AddDescValueSpec(condition);
}

/// Conditions alone do not select: the expansion asks for a predicate.
void Selection::End() {
  if (!mSpec->GetMethod(SELECTOR_PREDICATE)->HasBodyAssigned()) mSpec->AssignSelectorPredicate(gAlwaysTrue);
  if (mSpec->GetMode() != INSTANTIATE) return;
  if (mClassCondition)
    FaultInFile(*mClassCondition, "CLASS ne donne pas de valeur à une entité nouvelle (INSTANTIATE)");
  if (mSpec->GetQuantificatorId() == NFIRST) return;
  AnnounceFault(mWhere, "SPEC " + Quoted(mName) + " : INSTANTIATE demande NFIRST");
  BadQuantitySpecification(mSpec->GetReferenceClassId(), mSpec->GetQuantificatorId(), mSpec->IntQuantity());
}

// Conditions on values ---------------------------------------------------------------------------------

namespace {

using Kind = SelectedValue::Kind;

constexpr const char* typeWords = "INT, FLOAT, DOUBLE, STRING ou ENTITY";

/// As the file writes it.
const char* TypeWord(ValueTypeId type) { return type == P_ENTITY ? "ENTITY" : ValueTypeToChar(type); }

// Each type of value has a check of what the file gives, and a function that hands it to the kernel.

/// Nothing but numbers, and for ints nothing but integers.
void CheckNumbers(const ValueCondition& condition, ValueTypeId type) {
  const auto isWrong = [type](const GivenValue& value) {
    return !value.IsNumber() || (type == INT && value.type != INT);
  };
  for (const SelectedValue& value : condition.values)
    if (value.kind == Kind::classOfEntities || isWrong(value.low) ||
        (value.kind == Kind::interval && isWrong(value.high)))
      FaultInFile(value.where,
                  Text("le descripteur %s, de type %s, demande %s", Quoted(condition.descriptor).c_str(),
                       TypeWord(type), type == INT ? "des entiers" : "des nombres"));
}

/// The intervals in order, then those that overlap made one.
template <class Spec>
DescValueSpec* Intervals(const ValueCondition& condition, int id) {
  auto* spec = new Spec(id, condition.relation);
  for (const SelectedValue& value : condition.values) {
    const GivenValue& high = value.kind == Kind::interval ? value.high : value.low;
    using Value = typename Spec::Value;
    spec->InsertSubDomain(static_cast<Value>(value.low.Number()), static_cast<Value>(high.Number()));
  }
  spec->ReduceToDisjunction();
  return spec;
}

int SymbolOf(const std::string& className) {
  const int registered = GetClassSymbol(className.c_str());
  return registered >= 0 ? registered : NumberOf(className);
}

/// Nothing but texts, which are names where entities stand, and classes that there are.
void CheckTexts(const ValueCondition& condition, ValueTypeId type) {
  for (const SelectedValue& value : condition.values) {
    const bool isClass = value.kind == Kind::classOfEntities;
    if (value.kind == Kind::interval || value.low.type != STRING || (isClass && type != P_ENTITY))
      FaultInFile(value.where,
                  Text("le descripteur %s, de type %s, demande des %s", Quoted(condition.descriptor).c_str(),
                       TypeWord(type), type == P_ENTITY ? "noms d'entités, ou CLASS et un nom" : "textes"));
    if (!isClass || GetMetaClass(SymbolOf(value.low.text)) != nullptr) continue;
    AnnounceFault(value.where, "CLASS " + Quoted(value.low.text) + " : classe d'entité inconnue");
    UnknownClassName("GetClassSymbol", value.low.text.c_str());
  }
}

DescValueSpec* Texts(const ValueCondition& condition, int id) {
  auto* spec = new DescStringValueSpec(id, condition.relation);
  for (const SelectedValue& value : condition.values) spec->AddSubDomain(Interned(value.low.text));
  return spec;
}

/// Entities or classes, as the first value is; the kernel refuses a mixture.
DescValueSpec* Entities(const ValueCondition& condition, int id) {
  const bool isOfClasses = condition.values.front().kind == Kind::classOfEntities;
  auto* spec = isOfClasses ? new DescEntityValueSpec(id, condition.relation, K_INT_UNSIGNIFICANT)
                           : new DescEntityValueSpec(id, condition.relation);
  for (const SelectedValue& value : condition.values) {
    if (value.kind == Kind::classOfEntities)
      spec->AddSubDomain(SymbolOf(value.low.text));
    else
      spec->AddSubDomain(value.low.text.c_str());
  }
  return spec;
}

struct ConditionRow {
  ValueTypeId type;
  void (*check)(const ValueCondition& condition, ValueTypeId type);
  DescValueSpec* (*make)(const ValueCondition& condition, int id);
};

constexpr ConditionRow conditionRows[] = {
    {INT, CheckNumbers, Intervals<DescIntValueSpec>},
    {FLOAT, CheckNumbers, Intervals<DescFloatValueSpec>},
    {DOUBLE, CheckNumbers, Intervals<DescDoubleValueSpec>},
    {STRING, CheckTexts, Texts},
    {P_ENTITY, CheckTexts, Entities},
};

}  // namespace

void Selection::AddCondition(const ValueCondition& condition) {
  const std::string shown = "WHERE " + Quoted(condition.descriptor);
  const DescriptorKey key = KeyOf(condition);
  const auto* row = std::ranges::find(conditionRows, key.type, &ConditionRow::type);
  if (row == std::end(conditionRows))
    FaultInFile(condition.where,
                Text("%s : un descripteur de type %s ne se compare pas", shown.c_str(), TypeWord(key.type)));
  row->check(condition, key.type);
  const SelectedValue& first = condition.values.front();
  if (first.kind == Kind::classOfEntities && condition.relation == IN) mClassCondition = first.where;
  const FailureContext context([&] { AnnounceFault(condition.where, shown); });
  mSpec->AddDescValueSpec(row->make(condition, key.id));
}

/// A living instance tells id and type of its descriptors. Without one, the id is an enumerated name's, and
/// the type has to be written.
Selection::DescriptorKey Selection::KeyOf(const ValueCondition& condition) const {
  const char* name = condition.descriptor.c_str();
  const std::string shown = "WHERE " + Quoted(condition.descriptor);
  const int classId = mSpec->GetReferenceClassId();
  if (const int type = GetDescriptorType(classId, name); type >= 0) {
    if (condition.type != VOID && condition.type != type)
      FaultInFile(condition.where,
                  Text("%s : le descripteur est de type %s", shown.c_str(), TypeWord(ValueTypeId{type})));
    return {GetDescriptorSymbol(classId, name), ValueTypeId{type}};
  }
  const MetaClass* const metaClass = GetMetaClass(classId);
  const BasicEntity* const instance =
      metaClass != nullptr && metaClass->InstanceNumber() > 0 ? metaClass->GetInstance(0) : nullptr;
  if (condition.type == VOID && instance == nullptr)
    FaultInFile(condition.where, Text("%s : la classe n'a pas d'instance, le type doit être écrit (%s)",
                                      shown.c_str(), typeWords));
  const int id = condition.type != VOID ? NumberOf(condition.descriptor) : K_INT_UNSIGNIFICANT;
  if (id >= 0) return {id, condition.type};
  AnnounceFault(condition.where, shown + " : descripteur inconnu");
  if (instance == nullptr || instance->EntityType() < KV_DESCRIPTED_ENTITY)
    UnknownClassName("K_EnumToInt", name);
  InexistantDescriptor(static_cast<const DescriptedEntity*>(instance), K_INT_UNSIGNIFICANT, name);
}
