// What the descriptors of one value share, whatever its type: a number, a text, an entity.
//
// The classes themselves stand in ScalarDescriptors.h and EntityDescriptors.h: each is a row (the Kind), the
// layer below, and the members that carry its type in their names. The bodies are in ScalarBodies.h.
//
// A Kind says: Value (what callers pass), Stored (what is kept), Spec (the class of the domain), type, and
// the initials of the class in traces.
#pragma once

#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/Holders.h"

template <class Layer, class ValueKind>
class ScalarDescriptor : public Layer {
 public:
  using Kind = ValueKind;
  using Value = typename Kind::Value;
  using Spec = typename Kind::Spec;
  static constexpr ValueTypeId type = Kind::type;

  /// Keeps the name's pointer. The value starts at zero, empty or null, without a domain.
  explicit ScalarDescriptor(int classSymbol = K_INT_UNSIGNIFICANT, const char* className = "");
  ScalarDescriptor(const ScalarDescriptor& other);
  ScalarDescriptor& operator=(const ScalarDescriptor&) = delete;

  // Domain: the values that a change may bring. One that is replaced lives until the descriptor dies.
  /// Takes ownership; null for no domain.
  void SetDomain(Spec* domain) { mDomain.Take(domain); }
  Spec* GetDomain() const { return mDomain.Get(); }
  /// Both answer false without a domain. IsInDomain compares reals exactly; IsOutOfDomain, on which all
  /// changes rest, has the tolerance of the domain.
  bool IsInDomain(Value value) const;
  bool IsOutOfDomain(Value value) const;

  // Default: no domain, monitor, recording or plotting applies.
  void SetDefaultValue(Value value);
  Value GetDefaultValue() const { return Shown(mDefaultValue); }
  void SetToDefaultValue();
  /// Sets both.
  void SetToDefaultValue(Value value);

 protected:
  using Stored = typename Kind::Stored;

  /// The assignment of the value classes: value and default; domain and converse, shared.
  void TakeValues(const ScalarDescriptor& source);
  /// The failure of a value out of the domain.
  void CheckDomain(Value value);
  /// Records the empty name of a null entity; false for any other value.
  bool RecordNone(int clock);

  static Value Shown(const Stored& stored) {
    if constexpr (Kind::type == STRING)
      return stored.c_str();
    else
      return stored;
  }
  static Stored Kept(Value value) {
    if constexpr (Kind::type == STRING)
      return value != nullptr ? Stored(value) : Stored();
    else
      return value;
  }

  Stored mValue{};
  Stored mDefaultValue{};
  HeldDomain<Spec> mDomain;
};

template <class ValueKind>
class ScalarConstant : public ScalarDescriptor<typename ValueKind::ConstantLayer, ValueKind> {
 public:
  using Base = ScalarDescriptor<typename ValueKind::ConstantLayer, ValueKind>;
  using Value = typename Base::Value;
  using Base::Base;

  /// Out of the domain is a failure. Nothing is recorded.
  void SetValue(Value value);
  /// A text lives until the next change.
  Value GetValue() const { return this->Shown(this->mValue); }
  /// Adds a point to the series. A null entity adds none, one that has died an empty name.
  void RecordValue(int clock, Value value);
  /// The same with the present value, except that a null entity counts as an empty name.
  void RecordPresentValue(int clock);
};

/// A change: the domain looks at the candidate or at what the monitor makes of it, the value is stored,
/// recorded, and for numbers plotted. Forms without `withMonitor` go through the monitor; with 0 they go
/// past it, with any other number they are the same as without.
template <class ValueKind>
class ScalarVariable : public ScalarDescriptor<typename ValueKind::VariableLayer, ValueKind> {
 public:
  using Base = ScalarDescriptor<typename ValueKind::VariableLayer, ValueKind>;
  using Value = typename Base::Value;
  using Base::Base;

  /// The domain looks at what the monitor answers.
  void SetValue(Value value) { Change(value, 1, Checked::Result); }
  void SetValue(Value value, int withMonitor) {
    Change(value, withMonitor, withMonitor != 0 ? Checked::Result : Checked::Candidate);
  }
  /// What the monitor shows; the value itself does not change. A text lives until the next change.
  Value GetValue() { return GetValue(1); }
  Value GetValue(int withMonitor) {
    return withMonitor != 0 && this->HasMonitor() != 0 ? ShownByMonitor() : this->Shown(this->mValue);
  }
  /// Adds a point at the present clock. A null entity adds none, one that has died an empty name.
  void RecordValue(Value value);
  /// The same with the present value, past the monitor, except that a null entity counts as an empty name.
  void RecordPresentValue();

 protected:
  enum class Checked { Candidate, Result };
  void Change(Value candidate, int withMonitor, Checked checked);
  Value ShownByMonitor();
};
