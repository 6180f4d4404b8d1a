// Construction, copies and destruction of a BasicEntity.
#include <cstdio>
#include <iostream>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

int ClockNow() {
  if (pCurrentSim == nullptr) SimulationNotYetCreated();
  return pCurrentSim->Clock();
}

/// A copy of a part by the constructor of its layer.
template <class... Form>
BasicEntity* CopyOfPart(const BasicEntity& part, Form... form) {
  switch (part.EntityType()) {
    case KV_ENTITY:
      return new Entity(static_cast<const Entity&>(part), form...);
    case KV_DESCRIPTED_ENTITY:
      return new DescriptedEntity(static_cast<const DescriptedEntity&>(part), form...);
    default:
      return new BasicEntity(part, form...);
  }
}

const char* LayerSymbol(int entityType) {
  switch (entityType) {
    case KV_ENTITY:
      return "KV_ENTITY";
    case KV_DESCRIPTED_ENTITY:
      return "KV_DESCRIPTED_ENTITY";
    default:
      return "KV_BASIC_ENTITY";
  }
}

}  // namespace

BasicEntity::BasicEntity() : mThisInstanceNumber(++mInstanceNumber) {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n+Construction de l'entité de base %x avec mThisInstanceNumber = %d", Address32(this),
                mThisInstanceNumber);
  EnterLivingEntity(this);
  SetMetaClass(KV_BASIC_ENTITY);
  mCreationClock = ClockNow();
  AddInstanceToClass(0);
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n+FIN Construction de l'entité de base " << static_cast<const void*>(this);
}

BasicEntity::BasicEntity(const BasicEntity& source) : BasicEntity(source, PartCopy::Plain, true) {}

BasicEntity::BasicEntity(const BasicEntity& source, int depth)
    : BasicEntity(source, depth != 0 ? PartCopy::PlainWithSteps : PartCopy::None, true) {}

BasicEntity::BasicEntity(const BasicEntity& source, bool withMonitors)
    : BasicEntity(source, PartCopy::Flagged, withMonitors) {}

BasicEntity::BasicEntity(const BasicEntity& source, bool withMonitors, int depth)
    : BasicEntity(source, depth != 0 ? PartCopy::Flagged : PartCopy::None, withMonitors) {}

// The type of a copy is that of the layer that makes it, whatever the source was, so that it is destroyed
// as what it is.
BasicEntity::BasicEntity(const BasicEntity& source, PartCopy parts, bool withMonitors)
    : mpMetaClass(source.mpMetaClass),
      mThisInstanceNumber(++mInstanceNumber),
      mElementClassId(source.mElementClassId),
      mSuperSetClassIds(source.mSuperSetClassIds) {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n++copy construction de BasicEntity " << static_cast<const void*>(this);
  EnterLivingEntity(this);
  mCreationClock = ClockNow();
  HasMonitor(source.mHasMonitor);
  if (mHasMonitor != 0) SetMonitor(source.GetMonitor());
  for (int id : source.mComponentClassIds) AddComponentClassId(id);
  JoinAllClasses();
  EquipForOSAccount();
  SetInstanceName(ClassName(), mThisInstanceNumber);
  if (parts == PartCopy::None) return;
  CopyComponentsOf(source, parts, withMonitors);
  CopyElementsOf(source, parts, withMonitors);
}

void BasicEntity::JoinAllClasses() {
  for (int ancestor : AncestorIds()) {
    MetaClass* const metaClass = ::GetMetaClass(ancestor);
    if (metaClass == nullptr) UnknownEntityClass(ancestor, "AddInstanceToClass", this);
    metaClass->AddInstance(this);
  }
  mpMetaClass->AddInstance(this);
}

void BasicEntity::CopyComponentsOf(const BasicEntity& source, PartCopy parts, bool withMonitors) {
  for (int slot = 0; slot < source.mComponentTab.size(); ++slot) {
    const BasicEntity* const component = source.PluggedIn(slot);
    if (component == nullptr)
      source.WarnOfEmptySlot(slot);
    else
      AddComponent(parts == PartCopy::Flagged ? CopyOfPart(*component, withMonitors)
                                              : CopyOfPart(*component));
  }
}

void BasicEntity::CopyElementsOf(const BasicEntity& source, PartCopy parts, bool withMonitors) {
  const bool printsSteps = parts == PartCopy::PlainWithSteps;
  if (printsSteps) std::printf("\n\t étape %d Elements\n", source.mNumberOfElements);
  const Tableau<BasicEntity*> elements = source.mElementTab.Entries();
  for (int i = 0; i < elements.size(); ++i) {
    if (!IsLivingEntity(elements[i])) continue;
    const BasicEntity& element = *elements[i];
    if (printsSteps)
      std::printf("\n\t étape elements %d : %x %s\n", i, Address32(&element),
                  LayerSymbol(element.EntityType()));
    if (parts == PartCopy::Flagged)
      AddElement(CopyOfPart(element, withMonitors), withMonitors ? 1 : 0);
    else
      AddElement(CopyOfPart(element));
  }
}

BasicEntity::~BasicEntity() {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n-Destruction de l'entité basique " << mInstanceName << " "
              << static_cast<const void*>(this) << " "
              << "(pas de ses éléments)";
  TellDeletionToOutputs();
  for (BasicEntity* element : Tableau<BasicEntity*>(mElementTab.Entries()))
    if (IsLivingEntity(element)) element->RemoveSuperSetNoPropagate(this);
  for (BasicEntity* set : Tableau<BasicEntity*>(mSuperSetTab.Entries()))
    if (IsLivingEntity(set)) set->RemoveElementNoPropagate(this);
  if (IsLivingEntity(mpSuperEntity)) mpSuperEntity->RemoveComponent(this);
  for (BasicEntity* component : Tableau<BasicEntity*>(mComponentTab))
    if (IsLivingEntity(component)) component->mpSuperEntity = nullptr;
  for (int ancestor : AncestorIds()) RemoveInstanceFromClass(ancestor);
  RemoveInstanceFromClass(ClassId());
  LeaveLivingEntity(this);
}

void BasicEntity::WarnOfEmptySlot(int slot) const {
  ReportWarning("\n!!! L'entité %x (%s) n'est pas munie de son composant de symbole de classe %d. !!!\n",
                Address32(this), InstanceName(), mComponentClassIds[slot]);
}

void BasicEntity::DeleteInDepth() {
  if (g_KV_TraceNewDelMode != 0)
    std::cout << "\n-Destruction profonde de " << static_cast<const void*>(this) << " (avec ses "
              << (mNumberOfElements > mComponentTab.size() ? mNumberOfElements : mComponentTab.size())
              << " elements ou composants)\n\t";
  for (int slot = 0; slot < mComponentTab.size(); ++slot) {
    BasicEntity* const component = PluggedIn(slot);
    if (component != nullptr)
      component->DeleteInDepth();
    else
      WarnOfEmptySlot(slot);
  }
  for (int i = mElementTab.size(); i-- > 0;)
    if (i < mElementTab.size() && IsLivingEntity(mElementTab[i])) mElementTab[i]->DeleteInDepth();
  DeleteEntity(this);
}
