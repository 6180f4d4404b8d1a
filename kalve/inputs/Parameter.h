// Parameters: the named constants of a model, read from the parameter file and changed by the designs of
// experiments.
//
// A parameter is known by two names and reads as a property of a class of the model: "Herd size". Several
// may form a group. Parameter::mpInstanceTab lists them in order of creation and owns those that
// CreateParameter made. The same names may be there twice: the oldest is found.
//
// A look-up compares texts along the whole table: model code that reads a parameter often keeps its value and
// refreshes it in the hook of inputs/ParserFunction.h.
#pragma once

#include <ctime>
#include <optional>
#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/FixedText.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/Tableau.h"

/// What all parameters share. The type tells the class: INT, DOUBLE, STRING, and VOID for a date.
class Parameter {
 public:
  Parameter(const Parameter&) = delete;
  Parameter& operator=(const Parameter&) = delete;

  ValueTypeId ValueType() const { return mValueType; }
  void ValueType(ValueTypeId type) { mValueType = type; }

  // The names; the setters copy.
  const char* EntityClassName() const { return mEntityClassName.c_str(); }
  void EntityClassName(const char* name) { mEntityClassName = name; }
  const char* DescriptorName() const { return mDescriptorName.c_str(); }
  void DescriptorName(const char* name) { mDescriptorName = name; }
  /// Null when the parameter has no group.
  const char* Group() const { return mGroup ? mGroup->c_str() : nullptr; }
  void Group(const char* group);

  // Instances
  static void AddInstance(Parameter* parameter);
  /// InexistantInstance when the parameter is not in the table.
  static void RemoveInstance(Parameter* parameter);
  static Parameter* GetInstance(int rank);
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

  /// Raised with each addition; DeleteParameters leaves it as it stands.
  static int mInstanceNumber;
  static Tableau<Parameter*> mpInstanceTab;

 protected:
  /// Takes over the three texts, which come from `malloc`; `trace` opens the line of the subclass.
  Parameter(ValueTypeId type, char* className, char* name, char* group, const char* trace);
  /// A parameter that dies leaves the table.
  ~Parameter();

 private:
  ValueTypeId mValueType;
  std::string mEntityClassName;
  std::string mDescriptorName;
  std::optional<std::string> mGroup;

  static int _nbConst;
  static int _nbDest;
};

/// The part that a family member differs in: the held value, the type, and the line of its construction.
template <class Value, ValueTypeId valueType, FixedText constructionTrace>
class TypedParameter : public Parameter {
 public:
  static constexpr ValueTypeId type = valueType;

  /// Take over the texts, which come from `malloc`.
  TypedParameter(char* className, char* name) : TypedParameter(className, name, nullptr) {}
  TypedParameter(char* className, char* name, char* group)
      : Parameter(type, className, name, group, constructionTrace.text) {}

 protected:
  Value mValue{};
};

class IntParameter : public TypedParameter<int, INT, "+Construction de -IParam- "> {
 public:
  using TypedParameter::TypedParameter;
  void SetValue(int value) { mValue = value; }
  int GetIntValue() const { return mValue; }
};

class RealParameter : public TypedParameter<double, DOUBLE, "\n+Construction de -RParam- "> {
 public:
  using TypedParameter::TypedParameter;
  void SetValue(double value) { mValue = value; }
  double GetRealValue() const { return mValue; }
};

class StringParameter : public TypedParameter<std::string, STRING, "+Construction de -SParam- "> {
 public:
  using TypedParameter::TypedParameter;
  /// Copies; null counts as "".
  void SetValue(const char* value);
  /// The parameter's own text, valid until it is set again; "" at first.
  const char* GetStringValue() const { return mValue.c_str(); }
};

class DateParameter : public TypedParameter<Date*, VOID, "+Construction de -DParam- "> {
 public:
  using TypedParameter::TypedParameter;
  ~DateParameter() { delete mValue; }
  /// Takes over the date. The one held before is not deleted: whoever got it may still hold it.
  void SetValue(Date* value) { mValue = value; }
  /// The parameter's own date, null until one is set.
  Date* GetDateValue() const { return mValue; }
  // Without a date each of these is BadDateParameterValue.
  /// A new tm, which the caller deletes.
  std::tm* GetTmValue() const;
  /// -9, after the warning BadDate, before the beginning of the simulation.
  int GetClockValue() const;
  /// Day of the year, from 1.
  int GetJulianDayValue() const;

 private:
  Date* CheckedDate() const;
};

/// Makes a parameter and enters it in the table; the texts are copied, a date (in `entityValue`) changes
/// hands. Another type than INT, DOUBLE, STRING and VOID creates nothing.
void CreateParameter(ValueTypeId type, const char* className, const char* name, UnifiedValue value);
/// The same in a group.
void CreateParameter(ValueTypeId type, const char* className, const char* name, UnifiedValue value,
                     const char* group);
/// Deletes all parameters of the table.
void DeleteParameters();

/// The oldest parameter with the two names, whatever its type; InexistantParameter when there is none.
Parameter* GetParameter(const char* className, const char* name);

// Values by name: of the oldest parameter with the two names and the type; InexistantTypedParameter when
// there is none. The setters do not call the hook. What is handed out is as in the classes above.
int GetIntParameterValue(const char* className, const char* name);
void SetIntParameterValue(const char* className, const char* name, int value);
double GetRealParameterValue(const char* className, const char* name);
void SetRealParameterValue(const char* className, const char* name, double value);
const char* GetStringParameterValue(const char* className, const char* name);
void SetStringParameterValue(const char* className, const char* name, const char* value);
Date* GetDateParameterValue(const char* className, const char* name);
std::tm* GetTmParameterValue(const char* className, const char* name);
int GetClockParameterValue(const char* className, const char* name);
int GetJulianDayParameterValue(const char* className, const char* name);
