// Changes of structure: components, elements, super-sets, with monitors, notifications and records.
//
// The variants of an operation differ in what they check, ask, link and tell. What one of them leaves out
// is meant: models rely on an element that keeps a link, or on a duplicate that enters.
#include <iostream>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/monitors/StructureMonitor.h"

// Notifications of the user interface -----------------------------------------------------------------------

namespace {

bool IsStructureTold() { return pCurrentSim != nullptr && pCurrentSim->IsStructureUpdated() != 0; }

void Tell(const char* change, const BasicEntity& whole, const BasicEntity& part) {
  if (!IsStructureTold()) return;
  std::cout << std::endl
            << "ANSWER PERMSTRUCTURE " << change << " {" << whole.InstanceName() << minSep
            << part.InstanceName() << majSep << "}\n"
            << std::flush;
}

/// What has come is told with all that stands below it.
void TellWithStructure(const char* change, const BasicEntity& whole, const BasicEntity& part) {
  if (!IsStructureTold()) return;
  Tell(change, whole, part);
  std::cout << "ANSWER "
            << "STRUCTURE ";
  pCurrentSim->SendStringForWord(part.InstanceName());
  std::cout << std::endl;
}

bool IsOfClassOrBelow(const BasicEntity& entity, int id) {
  return entity.ClassId() == id || entity.GetMetaClassInstance()->IsDescendantOf(id);
}

void FailAsPart(BasicEntity* set, BasicEntity* element) {
  BadSubEntityClass(set, element->ClassId(), element);
}

void FailAsSuperSet(BasicEntity* set, BasicEntity* element) {
  BadSuperSetClass(element, set->ClassId(), set);
}

}  // namespace

// Components ------------------------------------------------------------------------------------------------

int BasicEntity::SlotOf(BasicEntity* part) {
  const int slot = SlotFor(part->ClassId());
  if (slot < 0) BadSubEntityClass(this, part->ClassId(), part);
  return slot;
}

void BasicEntity::BelongTo(BasicEntity* super) {
  mpSuperEntity = super;
  mHasSuperEntity = 1;
}

void BasicEntity::LeaveSuperEntity(BasicEntity* component, int slot) {
  mComponentTab[slot] = nullptr;
  component->mpSuperEntity = nullptr;
  Tell("COMPREM", *this, *component);
}

void BasicEntity::AddComponent(BasicEntity* component) {
  if (component == nullptr) return;
  const int slot = SlotOf(component);
  if (BasicEntity* const occupant = PluggedIn(slot)) ComponentAlreadyPlugged(this, occupant, component);
  mComponentTab[slot] = component;
  TellWithStructure("COMPADD", *this, *component);
  BasicEntity* const other = component->mpSuperEntity;
  if (other != this && IsLivingEntity(other)) ComponentPluggedElsewhere(this, other, component);
  component->BelongTo(this);
  GiveComponentItem(component, 1);
}

void BasicEntity::SetSuperEntity(BasicEntity* super) {
  if (super == nullptr) return;
  for (int slot = 0; slot < super->mComponentTab.size(); ++slot) {
    BasicEntity* const occupant = super->PluggedIn(slot);
    if (occupant != nullptr && occupant->ClassId() == ClassId())
      SuperEntityAlreadyEquippedWithClass(super, ClassId(), occupant, this);
  }
  BelongTo(super);
  super->AddComponent(this);
}

void BasicEntity::ReplaceComponent(BasicEntity* component) {
  if (component == nullptr) return;
  const int slot = SlotOf(component);
  BasicEntity* const occupant = PluggedIn(slot);
  if (occupant == nullptr) NotYetPluggedComponent(this, mComponentClassIds[slot]);
  LeaveSuperEntity(occupant, slot);
  mComponentTab[slot] = component;
  TellWithStructure("COMPADD", *this, *component);
  GiveComponentItem(occupant, 0);
  GiveComponentItem(component, 1);
  component->BelongTo(this);
}

void BasicEntity::RemoveComponent(BasicEntity* component) {
  if (component == nullptr) return;
  const int slot = SlotOf(component);
  if (mComponentTab[slot] != component) BadSubEntityClass(this, component->ClassId(), component);
  LeaveSuperEntity(component, slot);
  GiveComponentItem(component, 0);
}

void BasicEntity::SetComponentTab(Tableau<BasicEntity*> components) {  // NOLINT: may be a view of this table
  for (int slot = 0; slot < mComponentTab.size(); ++slot) {
    if (PluggedIn(slot) != nullptr) RemoveComponent(mComponentTab[slot]);
    mComponentTab[slot] = nullptr;
  }
  for (BasicEntity* component : components) AddComponent(component);
}

// Monitors --------------------------------------------------------------------------------------------------

/// Whether a monitor is attached that has a body for the method.
bool BasicEntity::MonitorAnswers(int methodId) const {
  if (mHasMonitor == 0 || mpMonitor == nullptr) return false;
  const int isAssigned =
      methodId == WHEN_ADD_ELEMENT ? mpMonitor->HasAddElementMethod() : mpMonitor->HasRemoveElementMethod();
  return isAssigned != 0 && mpMonitor->GetMethod(methodId)->HasBodyAssigned();
}

/// Null is a refusal.
BasicEntity* BasicEntity::AskMonitor(int methodId, BasicEntity* element) {
  Method* const method = mpMonitor->GetMethod(methodId);
  method->SetArgValue(CURRENTENTITYCONTAINER_ARGUMENT, this);
  method->SetArgValue(CANDIDATEENTITYELEMENT_ARGUMENT, element);
  return mpMonitor->ExecEntityCoreMethod(methodId);
}

// Adding elements -------------------------------------------------------------------------------------------

void BasicEntity::CheckNewElement(BasicEntity* element, ElementFailure refusedByElement) {
  const bool isClassDeclared = mElementClassId >= 0;
  const bool areSetsDeclared = !element->mSuperSetClassIds.empty();
  if (isClassDeclared && !IsOfClassOrBelow(*element, mElementClassId)) FailAsPart(this, element);
  if (areSetsDeclared && GetPositionAncestor(element->mSuperSetClassIds, ClassId()) < 0)
    refusedByElement(this, element);
  if (!isClassDeclared && !areSetsDeclared) FailAsPart(this, element);
}

/// What goes into the table when `element` comes: the monitor's answer, or else the element.
BasicEntity* BasicEntity::EnteringFor(BasicEntity* element) {
  return MonitorAnswers(WHEN_ADD_ELEMENT) ? AskMonitor(WHEN_ADD_ELEMENT, element) : element;
}

BasicEntity* BasicEntity::RefusedToAdd(BasicEntity* element) {
  AddElementFailed(this, element);
  return element;
}

void BasicEntity::CountNewElement(BasicEntity* element) {
  ++mNumberOfElements;
  TellWithStructure("ELEMADD", *this, *element);
}

/// The end of an addition: the one who is linked and told about is the candidate, whoever entered for it.
BasicEntity* BasicEntity::Linked(BasicEntity* element) {
  CountNewElement(element);
  element->ForceSuperSet(this);
  GiveElementItem(element);
  return nullptr;
}

BasicEntity* BasicEntity::AddElement(BasicEntity* element) {
  if (element == nullptr) return nullptr;
  CheckNewElement(element, FailAsSuperSet);
  BasicEntity* const entering = EnteringFor(element);
  if (entering == nullptr || mElementTab.Has(entering)) return RefusedToAdd(element);
  mElementTab.Add(entering);
  return Linked(element);
}

BasicEntity* BasicEntity::AddElement(BasicEntity* element, int withMonitor) {
  if (withMonitor != 0) return AddElement(element);
  if (element == nullptr) return nullptr;
  CheckNewElement(element, FailAsPart);
  if (!mElementTab.Has(element)) {
    mElementTab.Add(element);
    CountNewElement(element);
  }
  element->ForceSuperSet(this);
  GiveElementItem(element);
  return nullptr;
}

BasicEntity* BasicEntity::AddElementNoCheckIfNew(BasicEntity* element) {
  if (element == nullptr) return nullptr;
  CheckNewElement(element, FailAsSuperSet);
  BasicEntity* const entering = EnteringFor(element);
  if (entering == nullptr) return RefusedToAdd(element);
  mElementTab.Add(entering);
  return Linked(element);
}

BasicEntity* BasicEntity::InsertElement(int position, BasicEntity* element) {
  if (element == nullptr) return nullptr;
  CheckNewElement(element, FailAsPart);
  BasicEntity* const entering = EnteringFor(element);
  if (entering == nullptr) return RefusedToAdd(element);
  if (position < 0 || position > mElementTab.size())
    FailOnIndex("BasicEntity::InsertElement", mElementTab.size(), position);
  mElementTab.Insert(position, entering);
  return Linked(element);
}

void BasicEntity::ForceElement(BasicEntity* element) {
  if (element == nullptr) return;
  const bool isMonitored = MonitorAnswers(WHEN_ADD_ELEMENT);
  BasicEntity* const entering = EnteringFor(element);
  if (entering == nullptr || (isMonitored && mElementTab.Has(entering))) {
    RefusedToAdd(element);
    return;
  }
  mElementTab.Add(entering);
  CountNewElement(element);
  GiveElementItem(element);
}

// By value: a caller may pass the table that it changes.
// NOLINTBEGIN(performance-unnecessary-value-param)
BasicEntity* BasicEntity::AddElements(Tableau<BasicEntity*> elements) { return AddElements(elements, 1); }

BasicEntity* BasicEntity::AddElements(Tableau<BasicEntity*> elements, int withMonitor) {
  for (BasicEntity* element : elements)
    if (BasicEntity* const refused = AddElement(element, withMonitor)) return refused;
  return nullptr;
}

void BasicEntity::AddElementsIfNew(Tableau<BasicEntity*> elements) { AddElementsIfNew(elements, 1); }

void BasicEntity::AddElementsIfNew(Tableau<BasicEntity*> elements, int withMonitor) {
  for (BasicEntity* element : elements) AddElement(element, withMonitor);
}
// NOLINTEND(performance-unnecessary-value-param)

// Removing elements -----------------------------------------------------------------------------------------

/// Asks the monitor, if one answers; a dead element leaves unasked.
bool BasicEntity::MayLeave(BasicEntity* element) {
  if (!IsLivingEntity(element) || !MonitorAnswers(WHEN_REMOVE_ELEMENT)) return true;
  if (AskMonitor(WHEN_REMOVE_ELEMENT, element) != nullptr) return true;
  RemoveElementFailed(this, element);
  return false;
}

/// Nothing at -9: the monitor may have taken the element out already.
void BasicEntity::TakeOut(int place) {
  if (place < 0) return;
  mElementTab.RemoveAt(place);
  --mNumberOfElements;
}

BasicEntity* BasicEntity::RemoveElement(BasicEntity* element) {
  if (element == nullptr) return nullptr;
  const int place = mElementTab.PlaceOf(element);
  if (place < 0) return element;
  const bool isMonitored = MonitorAnswers(WHEN_REMOVE_ELEMENT);
  if (!MayLeave(element)) return element;
  TakeOut(isMonitored ? mElementTab.PlaceOf(element) : place);
  if (!IsLivingEntity(element)) return nullptr;
  if (!isMonitored) element->RemoveSuperSet(this);
  Tell("ELEMREM", *this, *element);
  return nullptr;
}

BasicEntity* BasicEntity::RemoveElement(BasicEntity* element, int withMonitor) {
  if (withMonitor != 0) return RemoveElement(element);
  if (element == nullptr) return nullptr;
  const int place = mElementTab.PlaceOf(element);
  if (place < 0) return element;
  TakeOut(place);
  if (IsLivingEntity(element)) element->RemoveSuperSet(this);
  return nullptr;
}

bool BasicEntity::HasElementAt(int position) const {
  return position >= 0 && position < mNumberOfElements && position < mElementTab.size();
}

BasicEntity* BasicEntity::RemoveElement(int position) {
  if (!HasElementAt(position)) return nullptr;
  BasicEntity* const element = mElementTab[position];
  if (!MayLeave(element)) return nullptr;
  // The monitor may have moved it.
  const bool isThere = position < mElementTab.size() && mElementTab[position] == element;
  TakeOut(isThere ? mElementTab.PlaceAt(position) : mElementTab.PlaceOf(element));
  if (!IsLivingEntity(element)) return nullptr;
  element->RemoveSuperSet(this);
  Tell("ELEMREM", *this, *element);
  return nullptr;
}

BasicEntity* BasicEntity::RemoveElement(int position, int withMonitor) {
  if (withMonitor != 0) return RemoveElement(position);
  if (!HasElementAt(position)) return nullptr;
  BasicEntity* const element = mElementTab[position];
  TakeOut(mElementTab.PlaceAt(position));
  if (IsLivingEntity(element)) element->RemoveSuperSet(this);
  return nullptr;
}

BasicEntity* BasicEntity::RemoveElementNoPropagate(BasicEntity* element) {
  if (element == nullptr) return nullptr;
  const int place = mElementTab.PlaceOf(element);
  if (place < 0) return element;
  const bool isMonitored = MonitorAnswers(WHEN_REMOVE_ELEMENT);
  if (!MayLeave(element)) return element;
  TakeOut(isMonitored ? mElementTab.PlaceOf(element) : place);
  if (IsLivingEntity(element)) Tell("ELEMREM", *this, *element);
  return nullptr;
}

BasicEntity* BasicEntity::RemoveElements() {
  for (int i = mElementTab.size(); i-- > 0;) {
    if (i >= mElementTab.size()) continue;
    if (BasicEntity* const refused = RemoveElement(mElementTab[i])) return refused;
  }
  return nullptr;
}

/// A new element of ReplaceElement: entered first, and checked against its first declared super-set alone.
void BasicEntity::TakeNewElement(BasicEntity* element) {
  if (!IsOfClassOrBelow(*element, mElementClassId)) FailAsPart(this, element);
  mElementTab.Add(element);
  if (element->mSuperSetClassIds.empty() || !IsOfClassOrBelow(*this, element->mSuperSetClassIds[0]))
    FailAsSuperSet(this, element);
  element->ForceSuperSet(this);
}

int BasicEntity::ReplaceElement(BasicEntity* old, Tableau<BasicEntity*> news) {  // NOLINT: may be this table
  const int position = mElementTab.RankOf(old);
  if (position < 0) return 0;
  const Tableau<BasicEntity*> before = mElementTab.Entries();
  RemoveElements();
  mElementTab.Clear();
  for (int i = 0; i < position; ++i) mElementTab.Add(before[i]);
  mNumberOfElements = position;
  if (IsLivingEntity(old)) {
    if (MonitorAnswers(WHEN_REMOVE_ELEMENT)) {
      if (AskMonitor(WHEN_REMOVE_ELEMENT, old) == nullptr) {
        ReplaceElementFailed(this, old);
        return 0;
      }
      old->RemoveSuperSet(this);
    }
    Tell("ELEMREM", *this, *old);
  }
  for (BasicEntity* element : news)
    if (element != nullptr) TakeNewElement(element);
  for (int i = position + 1; i < before.size(); ++i) mElementTab.Add(before[i]);
  mNumberOfElements = mElementTab.size();
  return 1;
}

// Super-sets ------------------------------------------------------------------------------------------------

void BasicEntity::AddSuperSet(BasicEntity* set) {
  if (set == nullptr) return;
  const bool isClassDeclared = set->mElementClassId >= 0;
  const bool areSetsDeclared = !mSuperSetClassIds.empty();
  if ((isClassDeclared && !IsOfClassOrBelow(*this, set->mElementClassId)) ||
      (areSetsDeclared && GetPositionAncestor(mSuperSetClassIds, set->ClassId()) < 0) ||
      (!isClassDeclared && !areSetsDeclared))
    FailAsSuperSet(set, this);
  set->ForceElement(this);
}

void BasicEntity::ForceSuperSet(BasicEntity* set) {
  mSuperSetTab.Add(set);
  ++mNumberOfSuperSets;
}

int BasicEntity::RemoveSuperSet(BasicEntity* set) {
  if (RemoveSuperSetNoPropagate(set) == 0) return 0;
  if (IsLivingEntity(set)) set->RemoveElement(this);
  return 1;
}

int BasicEntity::RemoveSuperSetNoPropagate(BasicEntity* set) {
  const int place = mSuperSetTab.PlaceOf(set);
  if (place < 0) return 0;
  mSuperSetTab.RemoveAt(place);
  --mNumberOfSuperSets;
  return 1;
}
