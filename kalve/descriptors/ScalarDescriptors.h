// Descriptors of one number or one text. What they share is in ScalarDescriptor.h.
#pragma once

#include "kalve/descriptors/ScalarDescriptor.h"
#include "kalve/descriptors/ValueClass.h"

/// Integers may have a converse: the text that stands for a coded value in the series.
template <class Layer>
class ConverseLayer : public Layer {
 public:
  using Converse = const char* (*)(int value);
  /// Null takes it away.
  void AssignConverse(Converse converse) { mpConverse = converse; }
  bool HasConverseAssigned() const { return mpConverse != nullptr; }

 protected:
  using Layer::Layer;
  void TakeConverse(const ConverseLayer& source) { mpConverse = source.mpConverse; }

  Converse mpConverse = nullptr;
};

// Rows ---------------------------------------------------------------------------------------------------

struct IntKind {
  using Value = int;
  using Stored = int;
  using Spec = DescIntValueSpec;
  using ConstantLayer = ConverseLayer<MonoDimensionalNumericalConstantDescriptor>;
  using VariableLayer = ConverseLayer<MonoDimensionalNumericalVariableDescriptor>;
  static constexpr ValueTypeId type = INT;
  static constexpr const char* initials = "I";
};
struct FloatKind {
  using Value = float;
  using Stored = float;
  using Spec = DescFloatValueSpec;
  using ConstantLayer = MonoDimensionalNumericalConstantDescriptor;
  using VariableLayer = MonoDimensionalNumericalVariableDescriptor;
  static constexpr ValueTypeId type = FLOAT;
  static constexpr const char* initials = "F";
};
struct DoubleKind {
  using Value = double;
  using Stored = double;
  using Spec = DescDoubleValueSpec;
  using ConstantLayer = MonoDimensionalNumericalConstantDescriptor;
  using VariableLayer = MonoDimensionalNumericalVariableDescriptor;
  static constexpr ValueTypeId type = DOUBLE;
  static constexpr const char* initials = "D";
};
/// Texts are copied; null counts as empty. They are never plotted.
struct StringKind {
  using Value = const char*;
  using Stored = std::string;
  using Spec = DescStringValueSpec;
  using ConstantLayer = ConstantDescriptor;
  using VariableLayer = VariableDescriptor;
  static constexpr ValueTypeId type = STRING;
  static constexpr const char* initials = "S";
};

// Domains made in place ------------------------------------------------------------------------------------

/// A domain of intervals. The class symbol is that of the descriptor.
template <class Scalar>
class IntervalDomained : public Scalar {
 public:
  using Value = typename Scalar::Value;
  using Scalar::Scalar;
  /// Puts a domain of one interval in place of the present one.
  void SetSubDomain(Value low, Value high);
  /// Adds an interval; makes the domain when there is none.
  void AddSubDomain(Value low, Value high);
};

/// A domain of intervals of integers, in which a single value is the interval from itself to itself.
template <class Scalar>
class IntDomained : public IntervalDomained<Scalar> {
 public:
  using IntervalDomained<Scalar>::IntervalDomained;
  using IntervalDomained<Scalar>::SetSubDomain;
  using IntervalDomained<Scalar>::AddSubDomain;
  void SetSubDomain(int value) { SetSubDomain(value, value); }
  void AddSubDomain(int value) { AddSubDomain(value, value); }
};

/// A domain of texts. Their pointers are kept: they must outlive the descriptor and its copies.
template <class Scalar>
class TextDomained : public Scalar {
 public:
  using Scalar::Scalar;
  void SetSubDomain(const char* text);
  void AddSubDomain(const char* text);
};

extern template class ScalarDescriptor<IntKind::ConstantLayer, IntKind>;
extern template class ScalarDescriptor<IntKind::VariableLayer, IntKind>;
extern template class ScalarDescriptor<FloatKind::ConstantLayer, FloatKind>;
extern template class ScalarDescriptor<FloatKind::VariableLayer, FloatKind>;
extern template class ScalarDescriptor<DoubleKind::ConstantLayer, DoubleKind>;
extern template class ScalarDescriptor<DoubleKind::VariableLayer, DoubleKind>;
extern template class ScalarDescriptor<StringKind::ConstantLayer, StringKind>;
extern template class ScalarDescriptor<StringKind::VariableLayer, StringKind>;
extern template class ScalarConstant<IntKind>;
extern template class ScalarVariable<IntKind>;
extern template class ScalarConstant<FloatKind>;
extern template class ScalarVariable<FloatKind>;
extern template class ScalarConstant<DoubleKind>;
extern template class ScalarVariable<DoubleKind>;
extern template class ScalarConstant<StringKind>;
extern template class ScalarVariable<StringKind>;
extern template class IntervalDomained<ScalarConstant<IntKind>>;
extern template class IntervalDomained<ScalarVariable<IntKind>>;
extern template class IntervalDomained<ScalarConstant<FloatKind>>;
extern template class IntervalDomained<ScalarVariable<FloatKind>>;
extern template class IntervalDomained<ScalarConstant<DoubleKind>>;
extern template class IntervalDomained<ScalarVariable<DoubleKind>>;
extern template class TextDomained<ScalarConstant<StringKind>>;
extern template class TextDomained<ScalarVariable<StringKind>>;

// The classes ----------------------------------------------------------------------------------------------

class IntConstantDescriptor : public IntDomained<ScalarConstant<IntKind>> {
  KALVE_DESCRIPTOR(IntConstantDescriptor, IntDomained)
  DescIntValueSpec* GetIntDomain() const { return GetDomain(); }
  int GetIntValue() const { return mValue; }
};

class IntVariableDescriptor : public IntDomained<ScalarVariable<IntKind>> {
  KALVE_DESCRIPTOR(IntVariableDescriptor, IntDomained)
  DescIntValueSpec* GetIntDomain() const { return GetDomain(); }
  int GetIntValue() { return GetValue(); }
  int GetIntValue(int withMonitor) { return GetValue(withMonitor); }
  // By steps, with wrap-around. Here the domain looks at the candidate, and not at what the monitor answers.
  void IncrValue() { IncreaseValue(1); }
  void IncrValue(int withMonitor) { IncreaseValue(1, withMonitor); }
  void DecrValue() { DecreaseValue(1); }
  void DecrValue(int withMonitor) { DecreaseValue(1, withMonitor); }
  void IncreaseValue(int delta) { IncreaseValue(delta, 1); }
  void IncreaseValue(int delta, int withMonitor) { Step(static_cast<unsigned>(delta), withMonitor); }
  void DecreaseValue(int delta) { DecreaseValue(delta, 1); }
  void DecreaseValue(int delta, int withMonitor) { Step(0U - static_cast<unsigned>(delta), withMonitor); }

 private:
  void Step(unsigned delta, int withMonitor) {
    Change(static_cast<int>(static_cast<unsigned>(mValue) + delta), withMonitor, Checked::Candidate);
  }
};

class FloatConstantDescriptor : public IntervalDomained<ScalarConstant<FloatKind>> {
  KALVE_DESCRIPTOR(FloatConstantDescriptor, IntervalDomained)
  DescFloatValueSpec* GetFloatDomain() const { return GetDomain(); }
  float GetFloatValue() const { return mValue; }
};

class FloatVariableDescriptor : public IntervalDomained<ScalarVariable<FloatKind>> {
  KALVE_DESCRIPTOR(FloatVariableDescriptor, IntervalDomained)
  DescFloatValueSpec* GetFloatDomain() const { return GetDomain(); }
  float GetFloatValue() { return GetValue(); }
  float GetFloatValue(int withMonitor) { return GetValue(withMonitor); }
};

class DoubleConstantDescriptor : public IntervalDomained<ScalarConstant<DoubleKind>> {
  KALVE_DESCRIPTOR(DoubleConstantDescriptor, IntervalDomained)
  DescDoubleValueSpec* GetDoubleDomain() const { return GetDomain(); }
  double GetDoubleValue() const { return mValue; }
};

class DoubleVariableDescriptor : public IntervalDomained<ScalarVariable<DoubleKind>> {
  KALVE_DESCRIPTOR(DoubleVariableDescriptor, IntervalDomained)
  DescDoubleValueSpec* GetDoubleDomain() const { return GetDomain(); }
  double GetDoubleValue() { return GetValue(); }
  double GetDoubleValue(int withMonitor) { return GetValue(withMonitor); }
};

class StringConstantDescriptor : public TextDomained<ScalarConstant<StringKind>> {
  KALVE_DESCRIPTOR(StringConstantDescriptor, TextDomained)
  DescStringValueSpec* GetStringDomain() const { return GetDomain(); }
  const char* GetStringValue() const { return mValue.c_str(); }
};

class StringVariableDescriptor : public TextDomained<ScalarVariable<StringKind>> {
  KALVE_DESCRIPTOR(StringVariableDescriptor, TextDomained)
  DescStringValueSpec* GetStringDomain() const { return GetDomain(); }
  const char* GetStringValue() { return GetValue(); }
  const char* GetStringValue(int withMonitor) { return GetValue(withMonitor); }
};
