// Bodies of ScalarDescriptor.h, for the sources that instantiate them. What tells the types apart is a
// ChangeRow<Kind>:
//   whenSet, whenGet      ids of the monitor's methods
//   current, candidate    ids of their arguments
//   isPlotted             whether a change takes the plot step
//   OutOfDomain(d, v)     the failure
//   Record(s, clock, v)   adds a point to a series
#pragma once

#include <utility>

#include "kalve/descriptors/ScalarDescriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedIds.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "kalve/specs/DescValueSpec.h"

template <class Kind>
struct ChangeRow;

template <class Layer, class Kind>
ScalarDescriptor<Layer, Kind>::ScalarDescriptor(int classSymbol, const char* className)
    : Layer(Kind::type, classSymbol, className) {
  this->TraceNew(Kind::initials);
}

template <class Layer, class Kind>
ScalarDescriptor<Layer, Kind>::ScalarDescriptor(const ScalarDescriptor& other)
    : Layer(other), mValue(other.mValue), mDefaultValue(other.mDefaultValue), mDomain(other.mDomain) {
  this->TraceCopy(Kind::initials, other);
}

// Domain -------------------------------------------------------------------------------------------------

template <class Layer, class Kind>
bool ScalarDescriptor<Layer, Kind>::IsInDomain(Value value) const {
  Spec* domain = mDomain.Get();
  if constexpr (Kind::type == P_ENTITY) {
    if (value == nullptr || domain == nullptr) return this->Admits(value);
    return domain->GetDomain()->position(value) >= 0;
  } else if constexpr (Kind::type == STRING) {
    return domain != nullptr && domain->Holds(value);
  } else {
    if (domain == nullptr) return false;
    for (const auto* interval : *domain->GetDomain())
      if (interval->low <= value && value <= interval->high) return true;
    return false;
  }
}

template <class Layer, class Kind>
bool ScalarDescriptor<Layer, Kind>::IsOutOfDomain(Value value) const {
  Spec* domain = mDomain.Get();
  if constexpr (Kind::type == P_ENTITY)
    if (value == nullptr || domain == nullptr) return !this->Admits(value);
  return domain != nullptr && domain->IsOutOfDomain(value) != 0;
}

template <class Layer, class Kind>
void ScalarDescriptor<Layer, Kind>::CheckDomain(Value value) {
  if (IsOutOfDomain(value)) ChangeRow<Kind>::OutOfDomain(this, value);
}

// Default and assignment ---------------------------------------------------------------------------------

template <class Layer, class Kind>
void ScalarDescriptor<Layer, Kind>::SetDefaultValue(Value value) {
  mDefaultValue = Kept(value);
}

template <class Layer, class Kind>
void ScalarDescriptor<Layer, Kind>::SetToDefaultValue() {
  mValue = mDefaultValue;
}

template <class Layer, class Kind>
void ScalarDescriptor<Layer, Kind>::SetToDefaultValue(Value value) {
  SetDefaultValue(value);
  SetToDefaultValue();
}

template <class Layer, class Kind>
void ScalarDescriptor<Layer, Kind>::TakeValues(const ScalarDescriptor& source) {
  mValue = source.mValue;
  mDefaultValue = source.mDefaultValue;
  mDomain.Share(source.mDomain);
  if constexpr (Kind::type == INT) this->TakeConverse(source);
}

template <class Layer, class Kind>
bool ScalarDescriptor<Layer, Kind>::RecordNone(int clock) {
  if constexpr (Kind::type == P_ENTITY)
    if (mValue == nullptr) {
      if (DescTimeSeries* series = this->GetDescTimeSeries()) series->AddClockStringValueItem(clock, "");
      return true;
    }
  return false;
}

// Constants ----------------------------------------------------------------------------------------------

template <class Kind>
void ScalarConstant<Kind>::SetValue(Value value) {
  this->CheckDomain(value);
  this->mValue = this->Kept(value);
}

template <class Kind>
void ScalarConstant<Kind>::RecordValue(int clock, Value value) {
  if (DescTimeSeries* series = this->GetDescTimeSeries()) ChangeRow<Kind>::Record(*series, clock, value);
}

template <class Kind>
void ScalarConstant<Kind>::RecordPresentValue(int clock) {
  if (!this->RecordNone(clock)) RecordValue(clock, GetValue());
}

// Variables ----------------------------------------------------------------------------------------------

template <class Kind>
void ScalarVariable<Kind>::Change(Value candidate, int withMonitor, Checked checked) {
  using Row = ChangeRow<Kind>;
  auto kept = this->Kept(candidate);  // a copy: a text may be the value itself, or change under the body
  if (checked == Checked::Candidate) this->CheckDomain(this->Shown(kept));
  MonitorMethod* asked =
      withMonitor != 0 ? this->AskedMethod(DescValueMonitor::setSlot, Row::whenSet) : nullptr;
  if (asked != nullptr) {
    asked->SetArgValue(Row::current, this->Shown(this->mValue));
    asked->SetArgValue(Row::candidate, this->Shown(kept));
    if constexpr (Kind::type == STRING) this->mValue.clear();
    kept = this->Kept(asked->template Call<Value>());
  }
  this->mValue = std::move(kept);
  if (checked == Checked::Result) this->CheckDomain(this->Shown(this->mValue));
  if (this->IsRecorded() != 0) RecordValue(this->Shown(this->mValue));
  if constexpr (Row::isPlotted) this->PlotStep();
}

template <class Kind>
typename ScalarVariable<Kind>::Value ScalarVariable<Kind>::ShownByMonitor() {
  using Row = ChangeRow<Kind>;
  MonitorMethod* asked = this->AskedMethod(DescValueMonitor::getSlot, Row::whenGet);
  if (asked == nullptr) return this->Shown(this->mValue);
  asked->SetArgValue(Row::current, this->Shown(this->mValue));
  return asked->template Call<Value>();
}

template <class Kind>
void ScalarVariable<Kind>::RecordValue(Value value) {
  DescTimeSeries* series = this->GetDescTimeSeries();
  if (series == nullptr) return;
  if constexpr (Kind::type == INT)
    if (this->HasConverseAssigned())
      return series->AddClockStringValueItem(this->PresentClock(), this->mpConverse(value));
  ChangeRow<Kind>::Record(*series, this->PresentClock(), value);
}

template <class Kind>
void ScalarVariable<Kind>::RecordPresentValue() {
  if (!this->RecordNone(this->PresentClock())) RecordValue(this->Shown(this->mValue));
}
