#include "kalve/inputs/Parameter.h"

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Registry.h"
#include "kalve/foundations/TraceSwitches.h"

int Parameter::mInstanceNumber = 0;
Tableau<Parameter*> Parameter::mpInstanceTab;
int Parameter::_nbConst = 0;
int Parameter::_nbDest = 0;

// The base --------------------------------------------------------------------------------------------

Parameter::Parameter(ValueTypeId type, char* className, char* name, char* group, const char* trace)
    : mValueType(type), mEntityClassName(OrEmpty(className)), mDescriptorName(OrEmpty(name)) {
  ++_nbConst;
  Group(group);
  std::free(className);
  std::free(name);
  std::free(group);
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n-Construction du paramètre " << this << trace << this;
}

Parameter::~Parameter() {
  if (g_KV_TraceNewDelMode != 0) std::cout << "-Destruction du paramètre " << this;
  ++_nbDest;
  mpInstanceTab.remove_first(this);
}

void Parameter::Group(const char* group) {
  if (group != nullptr)
    mGroup = group;
  else
    mGroup.reset();
}

void Parameter::AddInstance(Parameter* parameter) {
  mpInstanceTab.push_back(parameter);
  ++mInstanceNumber;
}

void Parameter::RemoveInstance(Parameter* parameter) {
  TakeOut(mpInstanceTab, parameter, "Parameter::RemoveInstance");
  --mInstanceNumber;
}

Parameter* Parameter::GetInstance(int rank) {
  return InstanceAt(mpInstanceTab, rank, "Parameter::GetInstance");
}

// Values ----------------------------------------------------------------------------------------------

void StringParameter::SetValue(const char* value) { mValue = std::string(OrEmpty(value)); }

Date* DateParameter::CheckedDate() const {
  if (mValue == nullptr) BadDateParameterValue(EntityClassName(), DescriptorName());
  return mValue;
}

std::tm* DateParameter::GetTmValue() const { return StructDateToTm(CheckedDate()); }

int DateParameter::GetClockValue() const {
  const Date& date = *CheckedDate();
  const int clock = DateToClockValue(date.day, date.month, date.year, date.hour, date.minute, date.second);
  if (clock >= 0) return clock;
  BadDate("Parameter::GetClockValue", date.day, date.month, date.year, date.hour, date.minute, date.second);
  return K_INT_UNSIGNIFICANT;
}

int DateParameter::GetJulianDayValue() const {
  const std::unique_ptr<std::tm> time(GetTmValue());
  return time->tm_yday + 1;
}

// Creation and deletion -------------------------------------------------------------------------------

namespace {

template <class Kind, class Value>
void Create(const char* className, const char* name, const char* group, Value value) {
  auto* parameter = new Kind(strdup(className), strdup(name), group != nullptr ? strdup(group) : nullptr);
  parameter->SetValue(value);
  Parameter::AddInstance(parameter);
}

void Delete(Parameter* parameter) {
  if (parameter->ValueType() == STRING) return delete static_cast<StringParameter*>(parameter);
  if (parameter->ValueType() == VOID) return delete static_cast<DateParameter*>(parameter);
  if (parameter->ValueType() == DOUBLE) return delete static_cast<RealParameter*>(parameter);
  delete static_cast<IntParameter*>(parameter);
}

}  // namespace

void CreateParameter(ValueTypeId type, const char* className, const char* name, UnifiedValue value) {
  CreateParameter(type, className, name, value, nullptr);
}

void CreateParameter(ValueTypeId type, const char* className, const char* name, UnifiedValue value,
                     const char* group) {
  if (type == INT) Create<IntParameter>(className, name, group, value.intValue);
  if (type == DOUBLE) Create<RealParameter>(className, name, group, value.doubleValue);
  if (type == STRING) Create<StringParameter>(className, name, group, value.stringValue);
  if (type == VOID) Create<DateParameter>(className, name, group, reinterpret_cast<Date*>(value.entityValue));
}

void DeleteParameters() {
  const Tableau<Parameter*> parameters(Parameter::mpInstanceTab);
  Parameter::mpInstanceTab.erase();
  for (Parameter* parameter : parameters) Delete(parameter);
}

// Look-up ---------------------------------------------------------------------------------------------

namespace {

bool HasNames(const Parameter* parameter, const char* className, const char* name) {
  return std::strcmp(parameter->EntityClassName(), className) == 0 &&
         std::strcmp(parameter->DescriptorName(), name) == 0;
}

/// The oldest of a class; the words are those of the failure.
template <class Kind>
Kind* Find(const char* className, const char* name, const char* type, const char* operation) {
  for (Parameter* parameter : Parameter::mpInstanceTab)
    if (parameter->ValueType() == Kind::type && HasNames(parameter, className, name))
      return static_cast<Kind*>(parameter);
  InexistantTypedParameter(className, name, type, operation);
}

}  // namespace

Parameter* GetParameter(const char* className, const char* name) {
  for (Parameter* parameter : Parameter::mpInstanceTab)
    if (HasNames(parameter, className, name)) return parameter;
  InexistantParameter(className, name);
}

int GetIntParameterValue(const char* className, const char* name) {
  return Find<IntParameter>(className, name, "entier", "get value")->GetIntValue();
}
void SetIntParameterValue(const char* className, const char* name, int value) {
  Find<IntParameter>(className, name, "entier", "set value")->SetValue(value);
}
double GetRealParameterValue(const char* className, const char* name) {
  return Find<RealParameter>(className, name, "réel", "get value")->GetRealValue();
}
void SetRealParameterValue(const char* className, const char* name, double value) {
  Find<RealParameter>(className, name, "réel", "set value")->SetValue(value);
}
const char* GetStringParameterValue(const char* className, const char* name) {
  return Find<StringParameter>(className, name, "chaîne de caractères", "get value")->GetStringValue();
}
void SetStringParameterValue(const char* className, const char* name, const char* value) {
  Find<StringParameter>(className, name, "chaîne de caractères", "set value")->SetValue(value);
}
Date* GetDateParameterValue(const char* className, const char* name) {
  return Find<DateParameter>(className, name, "date", "get value")->GetDateValue();
}
std::tm* GetTmParameterValue(const char* className, const char* name) {
  return Find<DateParameter>(className, name, "date", "get value")->GetTmValue();
}
int GetClockParameterValue(const char* className, const char* name) {
  return Find<DateParameter>(className, name, "Date", "get clock")->GetClockValue();
}
int GetJulianDayParameterValue(const char* className, const char* name) {
  return Find<DateParameter>(className, name, "Date", "get jDay")->GetJulianDayValue();
}
