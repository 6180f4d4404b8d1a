#include "kalve/descriptors/Descriptor.h"

#include <cstdio>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/monitors/DescValueMonitor.h"

int Descriptor::_nbConst = 0;
int Descriptor::_nbDest = 0;
int ConstantDescriptor::_nbConstC = 0;
int ConstantDescriptor::_nbDestC = 0;
int VariableDescriptor::_nbConstV = 0;
int VariableDescriptor::_nbDestV = 0;

// Descriptor ---------------------------------------------------------------------------------------------

Descriptor::Descriptor(DescriptorSubclassId subclass, ValueTypeId type, int symbol, const char* name)
    : mSubclass(subclass), mClassType(type), mClassSymbol(symbol), mClassName(name) {
  ++_nbConst;
}

Descriptor::Descriptor(const Descriptor& other)
    : mSubclass(other.mSubclass),
      mClassType(other.mClassType),
      mClassSymbol(other.mClassSymbol),
      mClassName(other.mClassName),
      mIsPrivate(other.mIsPrivate) {
  ++_nbConst;
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): no assignment gets past the failure.
Descriptor& Descriptor::operator=(const Descriptor& right) { UnAuthorizedAssignment(this, &right); }

Descriptor::~Descriptor() {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n-Destruction du descripteur %p", static_cast<const void*>(this));
  ++_nbDest;
}

void Descriptor::DisableRecording() {
  if (mIsRecorded == 1) mIsRecorded = 0;
}

void Descriptor::EnableRecording() {
  if (mIsRecorded == 0) mIsRecorded = 1;
}

int Descriptor::PresentClock() { return pCurrentSim != nullptr ? pCurrentSim->Clock() : gFinalClock; }

void Descriptor::TraceNew(const char* initials) const {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n+Construction de -%s%s- %p", initials, IsConstant() ? "CD" : "VD",
                static_cast<const void*>(this));
}

void Descriptor::TraceCopy(const char* initials, const Descriptor& source) const {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n++copy construction de -%s%s- %p <- %p", initials, IsConstant() ? "CD" : "VD",
                static_cast<const void*>(this), static_cast<const void*>(&source));
}

void Descriptor::TraceWords(const char* words) const {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n+Construction de %s%p", words, static_cast<const void*>(this));
}

// Branches -----------------------------------------------------------------------------------------------

ConstantDescriptor::ConstantDescriptor(ValueTypeId type, int symbol, const char* name)
    : Descriptor(CONSTANT, type, symbol, name) {
  ++_nbConstC;
}

ConstantDescriptor::ConstantDescriptor(const ConstantDescriptor& other) : Descriptor(other) { ++_nbConstC; }

VariableDescriptor::VariableDescriptor(ValueTypeId type, int symbol, const char* name)
    : Descriptor(VARIABLE, type, symbol, name) {
  ++_nbConstV;
}

VariableDescriptor::VariableDescriptor(const VariableDescriptor& other)
    : Descriptor(other),
      mpMonitor(other.mHasMonitor != 0 ? other.mpMonitor : nullptr),
      mHasMonitor(other.mHasMonitor) {
  ++_nbConstV;
}

DescValueMonitor* VariableDescriptor::GetMonitor() const {
  if (mHasMonitor == 0) DoNotHaveMonitorAttached(this);
  return mpMonitor;
}

void VariableDescriptor::SetSamplingStep(int step) {
  if (step >= 1) mSamplingStep = step;
}

MonitorMethod* VariableDescriptor::FoundMethod(int slot, int methodId) {
  MonitorMethod* method = mpMonitor != nullptr ? mpMonitor->AskedMethod(slot, methodId) : nullptr;
  if (method != nullptr) method->SetArgValue(MONITOREDDESCRIPTOR_ARGUMENT, this);
  return method;
}

bool VariableDescriptor::HasFlagIn(int slot) const {
  return mHasMonitor != 0 && mpMonitor != nullptr && mpMonitor->HasMethodIn(slot) != 0;
}
