// Value specifications at work on an entity: the test of a descriptor's value, past the monitors, and the
// draw of one.
#include "kalve/foundations/CoreException.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/specs/DescValueSpec.h"

namespace {

template <class Kind>
struct RowOf;
template <>
struct RowOf<IntSpecKind> {
  using Row = IntRow;
};
template <>
struct RowOf<FloatSpecKind> {
  using Row = FloatRow;
};
template <>
struct RowOf<DoubleSpecKind> {
  using Row = DoubleRow;
};

/// An entity of the lowest layer has no descriptor.
void CheckIsDescribed(const DescriptedEntity* entity, int descriptorId) {
  if (entity->EntityType() < KV_DESCRIPTED_ENTITY) InexistantDescriptor(entity, descriptorId, "");
}

/// The value now, as it is stored.
template <class Row>
typename Row::Value Stored(const DescriptedEntity* entity, int descriptorId) {
  CheckIsDescribed(entity, descriptorId);
  return TriggeredAccess<Row>::Peek(*entity, descriptorId);
}

template <class Spec>
int IsMet(DescValueSpec& spec, DescriptedEntity* entity) {
  return static_cast<Spec&>(spec).IsInDomain(entity);
}

template <class Spec>
auto Drawn(const DescValueSpec& spec) {
  return static_cast<const Spec&>(spec).GetValueInDomain();
}

}  // namespace

// Tests

int DescValueSpec::IsInDomain(DescriptedEntity* entity) {
  if (mValueType < INT) return 0;
  switch (mValueType) {
    case INT:
      return IsMet<DescIntValueSpec>(*this, entity);
    case FLOAT:
      return IsMet<DescFloatValueSpec>(*this, entity);
    case DOUBLE:
      return IsMet<DescDoubleValueSpec>(*this, entity);
    case STRING:
      return IsMet<DescStringValueSpec>(*this, entity);
    case P_ENTITY:
      return IsMet<DescEntityValueSpec>(*this, entity);
    default:
      return mValueType;
  }
}

template <class Kind>
int IntervalValueSpec<Kind>::IsInDomain(DescriptedEntity* entity) {
  return Meets(Holds(Stored<typename RowOf<Kind>::Row>(entity, GetDescId())));
}
template int IntervalValueSpec<IntSpecKind>::IsInDomain(DescriptedEntity* entity);
template int IntervalValueSpec<FloatSpecKind>::IsInDomain(DescriptedEntity* entity);
template int IntervalValueSpec<DoubleSpecKind>::IsInDomain(DescriptedEntity* entity);

int DescStringValueSpec::IsInDomain(DescriptedEntity* entity) {
  return Meets(Holds(Stored<StringRow>(entity, GetDescId())));
}

int DescEntityValueSpec::IsInDomain(DescriptedEntity* entity) {
  return Meets(Holds(Stored<EntityRow>(entity, GetDescId())));
}

// Draws

void DescValueSpec::DrawInto(DescriptedEntity* entity) const {
  if (mValueType < INT || mValueType > P_ENTITY) return;
  CheckIsDescribed(entity, mDescId);
  switch (mValueType) {
    case INT:
      return entity->SetIntValue(mDescId, Drawn<DescIntValueSpec>(*this));
    case FLOAT:
      return entity->SetFloatValue(mDescId, Drawn<DescFloatValueSpec>(*this));
    case DOUBLE:
      return entity->SetDoubleValue(mDescId, Drawn<DescDoubleValueSpec>(*this));
    case STRING:
      if (const char* const text = Drawn<DescStringValueSpec>(*this)) entity->SetStringValue(mDescId, text);
      return;
    case P_ENTITY:
      return entity->SetEntityValue(mDescId, Drawn<DescEntityValueSpec>(*this));
    default:
      return;
  }
}
