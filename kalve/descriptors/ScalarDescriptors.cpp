#include "kalve/descriptors/ScalarDescriptors.h"

#include "kalve/descriptors/ScalarBodies.h"

template <>
struct ChangeRow<IntKind> {
  static constexpr int whenSet = WHEN_SET_INT;
  static constexpr int whenGet = WHEN_GET_INT;
  static constexpr int current = CURRENTINTVALUE_ARGUMENT;
  static constexpr int candidate = CANDIDATEINTVALUE_ARGUMENT;
  static constexpr bool isPlotted = true;
  [[noreturn]] static void OutOfDomain(auto* descriptor, int value) { OutOfIntDomain(descriptor, value); }
  static void Record(DescTimeSeries& series, int clock, int value) {
    series.AddClockIntValueItem(clock, value);
  }
};

template <>
struct ChangeRow<FloatKind> {
  static constexpr int whenSet = WHEN_SET_FLOAT;
  static constexpr int whenGet = WHEN_GET_FLOAT;
  static constexpr int current = CURRENTFLOATVALUE_ARGUMENT;
  static constexpr int candidate = CANDIDATEFLOATVALUE_ARGUMENT;
  static constexpr bool isPlotted = true;
  [[noreturn]] static void OutOfDomain(auto* descriptor, float value) { OutOfFloatDomain(descriptor, value); }
  static void Record(DescTimeSeries& series, int clock, float value) {
    series.AddClockFloatValueItem(clock, value);
  }
};

template <>
struct ChangeRow<DoubleKind> {
  static constexpr int whenSet = WHEN_SET_DOUBLE;
  static constexpr int whenGet = WHEN_GET_DOUBLE;
  static constexpr int current = CURRENTDOUBLEVALUE_ARGUMENT;
  static constexpr int candidate = CANDIDATEDOUBLEVALUE_ARGUMENT;
  static constexpr bool isPlotted = true;
  [[noreturn]] static void OutOfDomain(auto* descriptor, double value) {
    OutOfDoubleDomain(descriptor, value);
  }
  static void Record(DescTimeSeries& series, int clock, double value) {
    series.AddClockDoubleValueItem(clock, value);
  }
};

template <>
struct ChangeRow<StringKind> {
  static constexpr int whenSet = WHEN_SET_STRING;
  static constexpr int whenGet = WHEN_GET_STRING;
  static constexpr int current = CURRENTSTRINGVALUE_ARGUMENT;
  static constexpr int candidate = CANDIDATESTRINGVALUE_ARGUMENT;
  static constexpr bool isPlotted = false;
  [[noreturn]] static void OutOfDomain(auto* descriptor, const char* value) {
    OutOfStringDomain(descriptor, value);
  }
  static void Record(DescTimeSeries& series, int clock, const char* value) {
    series.AddClockStringValueItem(clock, value);
  }
};

// Domains made in place ------------------------------------------------------------------------------------

template <class Scalar>
void IntervalDomained<Scalar>::SetSubDomain(Value low, Value high) {
  this->SetDomain(new typename Scalar::Base::Spec(this->ClassSymbol(), IN, low, high));
}

template <class Scalar>
void IntervalDomained<Scalar>::AddSubDomain(Value low, Value high) {
  if (auto* domain = this->mDomain.Get())
    domain->AddSubDomain(low, high);
  else
    SetSubDomain(low, high);
}

template <class Scalar>
void TextDomained<Scalar>::SetSubDomain(const char* text) {
  this->SetDomain(new DescStringValueSpec(this->ClassSymbol(), IN, text));
}

template <class Scalar>
void TextDomained<Scalar>::AddSubDomain(const char* text) {
  if (auto* domain = this->mDomain.Get())
    domain->AddSubDomain(text);
  else
    SetSubDomain(text);
}

template class ScalarDescriptor<IntKind::ConstantLayer, IntKind>;
template class ScalarDescriptor<IntKind::VariableLayer, IntKind>;
template class ScalarDescriptor<FloatKind::ConstantLayer, FloatKind>;
template class ScalarDescriptor<FloatKind::VariableLayer, FloatKind>;
template class ScalarDescriptor<DoubleKind::ConstantLayer, DoubleKind>;
template class ScalarDescriptor<DoubleKind::VariableLayer, DoubleKind>;
template class ScalarDescriptor<StringKind::ConstantLayer, StringKind>;
template class ScalarDescriptor<StringKind::VariableLayer, StringKind>;
template class ScalarConstant<IntKind>;
template class ScalarVariable<IntKind>;
template class ScalarConstant<FloatKind>;
template class ScalarVariable<FloatKind>;
template class ScalarConstant<DoubleKind>;
template class ScalarVariable<DoubleKind>;
template class ScalarConstant<StringKind>;
template class ScalarVariable<StringKind>;
template class IntervalDomained<ScalarConstant<IntKind>>;
template class IntervalDomained<ScalarVariable<IntKind>>;
template class IntervalDomained<ScalarConstant<FloatKind>>;
template class IntervalDomained<ScalarVariable<FloatKind>>;
template class IntervalDomained<ScalarConstant<DoubleKind>>;
template class IntervalDomained<ScalarVariable<DoubleKind>>;
template class TextDomained<ScalarConstant<StringKind>>;
template class TextDomained<ScalarVariable<StringKind>>;
