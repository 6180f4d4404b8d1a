#include "kalve/descriptors/EntityDescriptors.h"

#include "kalve/descriptors/ScalarBodies.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/MetaClass.h"

// Class list -----------------------------------------------------------------------------------------------

template <class Layer, FixedText family>
void ClassListed<Layer, family>::ValueClassId(int classSymbol) {
  if (!mValueClassIdTab.empty()) MisuseValueClassId(this, classSymbol);
  mValueClassIdTab.push_back(classSymbol);
}

template <class Layer, FixedText family>
void ClassListed<Layer, family>::AddValueClassId(int classSymbol) {
  for (int listed : mValueClassIdTab)
    if (!HaveCommonAncestor(listed, classSymbol)) MisuseAddValueClassId(this, classSymbol);
  mValueClassIdTab.push_back(classSymbol);
}

template <class Layer, FixedText family>
int ClassListed<Layer, family>::GetValueClassId() const {
  if (mValueClassIdTab.empty())
    FailOnIndex(Text("%s%sDescriptor::GetValueClassId", family.text,
                     Layer::branch == CONSTANT ? "Constant" : "Variable")
                    .c_str(),
                0, 0);
  return mValueClassIdTab[0];
}

template <class Layer, FixedText family>
bool ClassListed<Layer, family>::Lists(const BasicEntity* entity) const {
  if (!IsLivingEntity(entity)) return false;
  for (int listed : mValueClassIdTab)
    if (entity->IsInstanceOf(listed)) return true;
  return false;
}

template <class Layer, FixedText family>
bool ClassListed<Layer, family>::Admits(const BasicEntity* entity) const {
  return entity == nullptr || mValueClassIdTab.empty() || Lists(entity);
}

template class ClassListed<ConstantDescriptor, "Entity">;
template class ClassListed<VariableDescriptor, "Entity">;
template class ClassListed<ConstantDescriptor, "EntityTab">;
template class ClassListed<VariableDescriptor, "EntityTab">;

// One entity -----------------------------------------------------------------------------------------------

template <>
struct ChangeRow<EntityKind> {
  static constexpr int whenSet = WHEN_SET_ENTITY;
  static constexpr int whenGet = WHEN_GET_ENTITY;
  static constexpr int current = CURRENTENTITYVALUE_ARGUMENT;
  static constexpr int candidate = CANDIDATEENTITYVALUE_ARGUMENT;
  static constexpr bool isPlotted = false;
  [[noreturn]] static void OutOfDomain(auto* descriptor, BasicEntity* value) {
    OutOfEntityDomain(descriptor, value);
  }
  static void Record(DescTimeSeries& series, int clock, BasicEntity* value) {
    if (value == nullptr) return;
    series.AddClockStringValueItem(clock, IsLivingEntity(value) ? value->InstanceName() : "");
  }
};

template <class Scalar>
void EntityDomained<Scalar>::SetSubDomain(BasicEntity* entity) {
  if (!this->Lists(entity)) OutOfEntityDomain(this, entity);
  this->SetDomain(new DescEntityValueSpec(this->ClassSymbol(), IN, entity));
}

template <class Scalar>
void EntityDomained<Scalar>::AddSubDomain(BasicEntity* entity) {
  DescEntityValueSpec* domain = this->mDomain.Get();
  if (domain == nullptr) return SetSubDomain(entity);
  if (!this->Lists(entity)) OutOfEntityDomain(this, entity);
  domain->AddSubDomain(entity);
}

template class ScalarDescriptor<EntityKind::ConstantLayer, EntityKind>;
template class ScalarDescriptor<EntityKind::VariableLayer, EntityKind>;
template class ScalarConstant<EntityKind>;
template class ScalarVariable<EntityKind>;
template class EntityDomained<ScalarConstant<EntityKind>>;
template class EntityDomained<ScalarVariable<EntityKind>>;

// A table of entities: what both branches share ------------------------------------------------------------

std::string RecordedNames(const Tableau<BasicEntity*>* table) {
  std::string names;
  if (table != nullptr)
    for (const BasicEntity* entity : *table)
      if (IsLivingEntity(entity)) names += (names.empty() ? "" : " ") + std::string(entity->InstanceName());
  return '"' + names + '"';
}

template <class Branch>
EntityTabDescriptor<Branch>::EntityTabDescriptor(int classSymbol, const char* className)
    : Base(classSymbol, className) {
  this->mValue.Made();
  this->mDefaultValue.Made();
}

template <class Branch>
void EntityTabDescriptor<Branch>::CheckDomain(BasicEntity* entity) {
  if (IsOutOfDomain(entity)) OutOfEntityDomain(this, entity);
}

template <class Branch>
void EntityTabDescriptor<Branch>::CheckFirst(const Table* table) {
  if (table != nullptr && !table->empty()) CheckDomain(table->front());
}

template <class Branch>
void EntityTabDescriptor<Branch>::AddPoint(int clock, const char* text) {
  if (DescTimeSeries* series = this->GetDescTimeSeries()) series->AddClockStringValueItem(clock, text);
}

template class EntityTabDescriptor<ConstantDescriptor>;
template class EntityTabDescriptor<VariableDescriptor>;

// The constant table ---------------------------------------------------------------------------------------

EntityTabConstantDescriptor::EntityTabConstantDescriptor(bool /*unused*/, int capacity) {
  mValue.Take(new Table(capacity));
}

void EntityTabConstantDescriptor::ClearValues() { mValue.Made().erase(); }

void EntityTabConstantDescriptor::SetValue(Table* table) {
  CheckFirst(table);
  TakeValue(table);
}

void EntityTabConstantDescriptor::SetValueElement(BasicEntity* entity, int rank) {
  CheckDomain(entity);
  CheckRank("EntityTabConstantDescriptor::SetValueElement", mValue.Get(), rank);
  mValue.Get()->set_nth(rank, entity);
}

void EntityTabConstantDescriptor::AddValueElement(BasicEntity* entity) {
  CheckDomain(entity);
  mValue.Made().push_back_ifnew(entity);
}

void EntityTabConstantDescriptor::AddValueElements(Table* entities) {
  if (entities == nullptr) return;
  for (BasicEntity* entity : Table(*entities)) AddValueElement(entity);
}

void EntityTabConstantDescriptor::RemoveValue(BasicEntity* entity) { mValue.Made().remove_first(entity); }

BasicEntity* EntityTabConstantDescriptor::GetValueElement(int rank) const {
  return ItemAt("EntityTabConstantDescriptor::GetValueElement", mValue.Get(), rank);
}

void EntityTabConstantDescriptor::RecordPresentValue(int clock) {
  AddPoint(clock, RecordedNames(mValue.Get()).c_str());
}

// The variable table ---------------------------------------------------------------------------------------

void EntityTabVariableDescriptor::ClearValues(int withMonitor) {
  if (withMonitor != 0 &&
      (HasFlagIn(DescValueMonitor::setSlot) || HasFlagIn(DescValueMonitor::tabRemoveSlot)))
    MonitorNotSupportedForEraseEntityTabDescriptor(this);
  mValue.Made().erase();
}

void EntityTabVariableDescriptor::SetValue(Table* table, int withMonitor) {
  if (withMonitor != 0)
    CheckFirst(table);
  else if (table != nullptr)
    for (BasicEntity* entity : *table) CheckDomain(entity);
  MonitorMethod* asked =
      withMonitor != 0 ? AskedMethod(DescValueMonitor::setSlot, WHEN_SET_ENTITYTAB) : nullptr;
  if (asked != nullptr) {
    asked->SetArgValue(CURRENTENTITYTABVALUE_ARGUMENT, mValue.Get());
    asked->SetArgValue(CANDIDATEENTITYTABVALUE_ARGUMENT, table);
    table = asked->Call<Table*>();
    asked->SetArgValue(CURRENTENTITYTABVALUE_ARGUMENT, static_cast<Table*>(nullptr));  // about to die
  }
  TakeValue(table);
  RecordIfAsked();
}

void EntityTabVariableDescriptor::SetValueElement(BasicEntity* entity, int rank, int withMonitor) {
  constexpr const char* where = "EntityTabVariableDescriptor::SetValueElement";
  CheckDomain(entity);
  CheckRank(where, mValue.Get(), rank);
  MonitorMethod* asked =
      withMonitor != 0 ? AskedMethod(DescValueMonitor::setSlot, WHEN_SET_ENTITYTAB) : nullptr;
  if (asked != nullptr) {
    auto* const candidate = new Table(*mValue.Get());
    candidate->set_nth(rank, entity);
    asked->SetArgValue(CURRENTENTITYTABVALUE_ARGUMENT, mValue.Get());
    asked->SetArgValue(CANDIDATEENTITYTABVALUE_ARGUMENT, candidate);
    Table* const answered = asked->Call<Table*>();
    asked->SetArgValue(CANDIDATEENTITYTABVALUE_ARGUMENT, static_cast<Table*>(nullptr));  // about to die
    if (answered != mValue.Get() && answered != mDefaultValue.Get()) delete answered;
    CheckRank(where, mValue.Get(), rank);
  }
  mValue.Get()->set_nth(rank, entity);
  RecordIfAsked();
}

void EntityTabVariableDescriptor::AddValueElement(BasicEntity* entity, int withMonitor) {
  CheckDomain(entity);
  BasicEntity* answered = Answered(DescValueMonitor::tabAddSlot, WHEN_ADD_ENTITY, entity, withMonitor);
  mValue.Made().push_back_ifnew(answered);
  RecordIfAsked();
}

void EntityTabVariableDescriptor::AddValueElements(Table* entities, int withMonitor) {
  if (entities == nullptr) return;
  for (BasicEntity* entity : Table(*entities)) AddValueElement(entity, withMonitor);  // may be the value
}

void EntityTabVariableDescriptor::RemoveValue(BasicEntity* entity, int withMonitor) {
  BasicEntity* answered = Answered(DescValueMonitor::tabRemoveSlot, WHEN_REMOVE_ENTITY, entity, withMonitor);
  mValue.Made().remove_first(answered);
  RecordIfAsked();
}

EntityTabVariableDescriptor::Table* EntityTabVariableDescriptor::GetEntityTabValue(int withMonitor) {
  MonitorMethod* asked =
      withMonitor != 0 ? AskedMethod(DescValueMonitor::tabGetSlot, WHEN_GET_ENTITYTAB) : nullptr;
  if (asked == nullptr) return mValue.Get();
  asked->SetArgValue(CURRENTENTITYTABVALUE_ARGUMENT, mValue.Get());
  return asked->Call<Table*>();
}

BasicEntity* EntityTabVariableDescriptor::GetValueElement(int rank, int withMonitor) {
  return ItemAt("EntityTabVariableDescriptor::GetValueElement", GetEntityTabValue(withMonitor), rank);
}

void EntityTabVariableDescriptor::RecordPresentValue() {
  AddPoint(PresentClock(), RecordedNames(mValue.Get()).c_str());
}

BasicEntity* EntityTabVariableDescriptor::Answered(int slot, int methodId, BasicEntity* candidate,
                                                   int withMonitor) {
  MonitorMethod* asked = withMonitor != 0 ? AskedMethod(slot, methodId) : nullptr;
  if (asked == nullptr) return candidate;
  asked->SetArgValue(CURRENTENTITYTABVALUE_ARGUMENT, mValue.Get());
  asked->SetArgValue(CANDIDATEENTITYVALUE_ARGUMENT, candidate);
  return asked->Call<BasicEntity*>();
}

void EntityTabVariableDescriptor::RecordIfAsked() {
  if (IsRecorded() != 0 && GetDescTimeSeries() != nullptr)
    AddPoint(PresentClock(), RecordedNames(GetEntityTabValue()).c_str());
}

// A table of value specifications --------------------------------------------------------------------------

template <class Branch>
void DescValueSpecTabDescriptor<Branch>::Replace(Table* table) {
  if (table == this->mValue.Get()) return;
  this->mValue.Release();
  this->TakeValue(table);
}

template <class Branch>
void DescValueSpecTabDescriptor<Branch>::Add(DescValueSpec* spec) {
  this->mValue.Made().push_back_ifnew(spec);
}

template <class Branch>
void DescValueSpecTabDescriptor<Branch>::Remove(DescValueSpec* spec) {
  if (Table* table = this->mValue.Get()) table->remove_first(spec);
}

template <class Branch>
void DescValueSpecTabDescriptor<Branch>::Clear() {
  if (Table* table = this->mValue.Get()) table->erase();
}

template class DescValueSpecTabDescriptor<ConstantDescriptor>;
template class DescValueSpecTabDescriptor<VariableDescriptor>;

void DescValueSpecTabVariableDescriptor::ClearValues(int withMonitor) {
  const bool isWatched = HasFlagIn(DescValueMonitor::setSlot) || HasFlagIn(DescValueMonitor::tabRemoveSlot);
  if (withMonitor != 0 && mValue.Get() != nullptr && isWatched)
    MonitorNotSupportedForEraseDescValueSpecTabDescriptor(this);
  Clear();
}

void DescValueSpecTabVariableDescriptor::SetValue(Table* table, int withMonitor) {
  MonitorMethod* asked =
      withMonitor != 0 ? AskedMethod(DescValueMonitor::setSlot, WHEN_SET_DESCVALUESPECTAB) : nullptr;
  if (asked != nullptr) {
    asked->SetArgValue(CURRENTDESCVALUESPECTABVALUE_ARGUMENT, mValue.Get());
    asked->SetArgValue(CANDIDATEDESCVALUESPECTABVALUE_ARGUMENT, table);
    table = asked->Call<Table*>();
  }
  Replace(table);
}

void DescValueSpecTabVariableDescriptor::AddValueElement(DescValueSpec* spec, int withMonitor) {
  Add(Answered(DescValueMonitor::tabAddSlot, WHEN_ADD_DESCVALUESPEC, spec, withMonitor));
}

void DescValueSpecTabVariableDescriptor::RemoveValue(DescValueSpec* spec, int withMonitor) {
  Remove(Answered(DescValueMonitor::tabRemoveSlot, WHEN_REMOVE_DESCVALUESPEC, spec, withMonitor));
}

DescValueSpecTabVariableDescriptor::Table* DescValueSpecTabVariableDescriptor::GetDescValueSpecTabValue(
    int withMonitor) {
  MonitorMethod* asked =
      withMonitor != 0 ? AskedMethod(DescValueMonitor::tabGetSlot, WHEN_GET_DESCVALUESPECTAB) : nullptr;
  if (asked == nullptr) return mValue.Get();
  asked->SetArgValue(CURRENTDESCVALUESPECTABVALUE_ARGUMENT, mValue.Get());
  return asked->Call<Table*>();
}

DescValueSpec* DescValueSpecTabVariableDescriptor::Answered(int slot, int methodId, DescValueSpec* candidate,
                                                            int withMonitor) {
  MonitorMethod* asked = withMonitor != 0 ? AskedMethod(slot, methodId) : nullptr;
  if (asked == nullptr) return candidate;
  asked->SetArgValue(CURRENTDESCVALUESPECTABVALUE_ARGUMENT, mValue.Get());
  asked->SetArgValue(CANDIDATEDESCVALUESPECVALUE_ARGUMENT, candidate);
  return asked->Call<DescValueSpec*>();
}
