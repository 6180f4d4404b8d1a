// What single types of values have besides the family: conversions, steps, entries of tables and domains.
#include "kalve/model/DescribedAccess.h"

namespace {

/// Gives a numeric descriptor the value, converted to its type; false for another type.
template <class Row, class Number>
bool Casts(const DescriptedEntity& entity, const Descriptor& descriptor, Number value) {
  if (descriptor.ClassType() != Row::Variable::type) return false;
  PlainAccess<Row>::Set(entity, descriptor.ClassSymbol(), static_cast<typename Row::Value>(value));
  return true;
}

template <class Number>
void SetCastValue(const DescriptedEntity& entity, int id, Number value) {
  const Descriptor& descriptor = *entity.GetDescriptor(id);
  if (!Casts<IntRow>(entity, descriptor, value) && !Casts<FloatRow>(entity, descriptor, value) &&
      !Casts<DoubleRow>(entity, descriptor, value))
    BadDescriptorValueType(&entity, descriptor.ClassName(), "set cast value");
}

IntVariableDescriptor& IntVariable(const DescriptedEntity& entity, int id, const char* words) {
  return Checked<IntVariableDescriptor>(entity, entity.GetVariableDescriptor(id), words);
}

template <class Interval>
Interval* IntervalAt(const Tableau<Interval*>* domain, int rank) {
  return domain != nullptr && rank >= 0 && rank < domain->size() ? domain->get_nth(rank) : nullptr;
}

}  // namespace

// Numbers

void DescriptedEntity::SetIntCastValue(int id, int value) { SetCastValue(*this, id, value); }
void DescriptedEntity::SetFloatCastValue(int id, float value) { SetCastValue(*this, id, value); }
void DescriptedEntity::SetDoubleCastValue(int id, double value) { SetCastValue(*this, id, value); }

void DescriptedEntity::IncreaseIntValue(int id, int n, Boolean trigger) {
  IntVariable(*this, id, "incr int value").IncreaseValue(n, trigger);
}

void DescriptedEntity::DecreaseIntValue(int id, int n, Boolean trigger) {
  IntVariable(*this, id, "decr int value").DecreaseValue(n, trigger);
}

void DescriptedEntity::ClearFloatTabValues(int id) {
  Checked<FloatTabConstantDescriptor>(*this, GetConstantDescriptor(id), "clear float value").ClearValues();
}

// Domains: a row per type of bound.
#define KALVE_INTERVALS(T, Bound, Interval, words)                                                    \
  void DescriptedEntity::Add##T##DomainValueElement(int id, Bound low, Bound high) {                  \
    Access<T##DomainRow>(*this, id, words, [&](auto& domain) { domain.AddValueElement(low, high); }); \
  }                                                                                                   \
  Interval* DescriptedEntity::Get##T##DomainValueElement(int id, int rank) const {                    \
    return IntervalAt(Get##T##DomainValue(id), rank);                                                 \
  }                                                                                                   \
  Interval* DescriptedEntity::Get##T##DomainValueElement(int id, int rank, Boolean trigger) const {   \
    return IntervalAt(Get##T##DomainValue(id, trigger), rank);                                        \
  }

KALVE_INTERVALS(Int, int, IntInterval, "add intdomain value")
KALVE_INTERVALS(Float, float, FloatInterval, "add floatdomain value")
KALVE_INTERVALS(Double, double, DoubleInterval, "add doubledomain value")
#undef KALVE_INTERVALS

// Tables of texts

void DescriptedEntity::AddStringValueElement(int id, char* text) {
  Access<StringTabRow>(*this, id, "add string value", [&](auto& tab) { tab.AddValueElement(text); });
}

void DescriptedEntity::DepthDeleteStringTabValue(int id) {
  Access<StringTabRow>(*this, id, "depth delete StringTab value", [](auto& tab) { tab.DepthDeleteValue(); });
}

// Tables of entities

void DescriptedEntity::AddEntityValueElement(int id, BasicEntity* entity) {
  Access<EntityTabRow>(*this, id, "add entity value tab", [&](auto& tab) { tab.AddValueElement(entity); });
}

void DescriptedEntity::AddEntityValueElement(int id, BasicEntity* entity, Boolean trigger) {
  Access<EntityTabRow>(
      *this, id, "add entity value tab", [&](auto& tab) { tab.AddValueElement(entity, trigger); },
      [&](auto& tab) {
        TellUselessTriggerOfChange(id, "AddEntityValueElement", EntityRow::spelling);
        tab.AddValueElement(entity);
      });
}

void DescriptedEntity::AddEntityValueElements(int id, Tableau<BasicEntity*>* entities) {
  Access<EntityTabRow>(*this, id, "add entity value tab", [&](auto& tab) { tab.AddValueElements(entities); });
}

void DescriptedEntity::RemoveEntityValueElement(int id, BasicEntity* entity) {
  Access<EntityTabRow>(*this, id, "rem entity value", [&](auto& tab) { tab.RemoveValue(entity); });
}

void DescriptedEntity::ClearEntityTabValues(int id) {
  const bool isVariable = FindVariableDescriptor(id) != nullptr;
  Access<EntityTabRow>(*this, id, isVariable ? "clea entity value" : "clear entity value",
                       [](auto& tab) { tab.ClearValues(); });
}

// Tables of value specifications

void DescriptedEntity::AddDescValueSpecValueElement(int id, DescValueSpec* spec) {
  Access<DescValueSpecTabRow>(*this, id, "add descValueSpec value",
                              [&](auto& tab) { tab.AddValueElement(spec); });
}

void DescriptedEntity::AddDescValueSpecValueElements(int id, Tableau<DescValueSpec*>* specs) {
  Access<DescValueSpecTabRow>(*this, id, "add descValueSpec value tab", [&](auto& tab) {
    for (int i = 0; specs != nullptr && i < specs->size(); ++i) tab.AddValueElement(specs->get_nth(i));
  });
}

void DescriptedEntity::RemoveDescValueSpecValueElement(int id, DescValueSpec* spec) {
  Access<DescValueSpecTabRow>(*this, id, "rem descValueSpec value",
                              [&](auto& tab) { tab.RemoveValue(spec); });
}

void DescriptedEntity::ClearDescValueSpecTabValues(int id) {
  Access<DescValueSpecTabRow>(*this, id, "clear descValueSpec value", [](auto& tab) { tab.ClearValues(); });
}
