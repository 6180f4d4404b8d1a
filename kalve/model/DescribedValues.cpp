// The operations on values, for every row.
#include <cstdio>

#include "kalve/model/DescribedAccess.h"

template <class Row>
void ConstantAccess<Row>::SetConstant(const DescriptedEntity& entity, int id, Value value) {
  using Constant = typename Row::Constant;
  Checked<Constant>(entity, entity.GetConstantDescriptor(id), Row::setWords).SetValue(value);
}

template <class Row>
auto ConstantAccess<Row>::GetConstant(const DescriptedEntity& entity, int id) -> Value {
  using Constant = typename Row::Constant;
  return Checked<Constant>(entity, entity.GetConstantDescriptor(id), Row::getWords).GetValue();
}

// Either kind

template <class Row>
void PlainAccess<Row>::Set(const DescriptedEntity& entity, int id, Value value) {
  Access<Row>(entity, id, Row::setWords, [&](auto& descriptor) { descriptor.SetValue(value); });
}

template <class Row>
void PlainAccess<Row>::SetVariable(const DescriptedEntity& entity, int id, Value value) {
  using Variable = typename Row::Variable;
  Checked<Variable>(entity, entity.GetVariableDescriptor(id), Row::setWords).SetValue(value);
}

template <class Row>
auto PlainAccess<Row>::Get(const DescriptedEntity& entity, int id) -> Value {
  return Access<Row>(entity, id, Row::getWords, [](auto& descriptor) { return descriptor.GetValue(); });
}

template <class Row>
auto PlainAccess<Row>::GetVariable(const DescriptedEntity& entity, int id) -> Value {
  using Variable = typename Row::Variable;
  return Checked<Variable>(entity, entity.GetVariableDescriptor(id), Row::getWords).GetValue();
}

// With a trigger

template <class Row>
void TriggeredAccess<Row>::Set(const DescriptedEntity& entity, int id, Value value, Boolean trigger) {
  Access<Row>(
      entity, id, Row::setWords, [&](auto& variable) { variable.SetValue(value, trigger); },
      [&](auto& constant) {
        TellUselessTriggerOfChange(id, "SetValue", Row::spelling);
        constant.SetValue(value);
      });
}

template <class Row>
void TriggeredAccess<Row>::SetVariable(const DescriptedEntity& entity, int id, Value value, Boolean trigger) {
  using Variable = typename Row::Variable;
  Checked<Variable>(entity, entity.GetVariableDescriptor(id), Row::setWords).SetValue(value, trigger);
}

template <class Row>
auto TriggeredAccess<Row>::Get(const DescriptedEntity& entity, int id, Boolean trigger, const char* getter)
    -> Value {
  return Access<Row>(
      entity, id, Row::getWords, [&](auto& variable) { return variable.GetValue(trigger); },
      [&](auto& constant) {
        TellUselessTriggerOfRead(id, getter);
        return constant.GetValue();
      });
}

template <class Row>
auto TriggeredAccess<Row>::GetVariable(const DescriptedEntity& entity, int id, Boolean trigger) -> Value {
  using Variable = typename Row::Variable;
  return Checked<Variable>(entity, entity.GetVariableDescriptor(id), Row::getWords).GetValue(trigger);
}

template <class Row>
auto TriggeredAccess<Row>::Peek(const DescriptedEntity& entity, int id) -> Value {
  return Access<Row>(
      entity, id, Row::getWords, [](auto& variable) { return variable.GetValue(0); },
      [](auto& constant) { return constant.GetValue(); });
}

// Tables of numbers

template <class Row>
void NumberTabAccess<Row>::SetElement(const DescriptedEntity& entity, int id, int rank, Item value) {
  using Constant = typename Row::Constant;
  Checked<Constant>(entity, entity.GetConstantDescriptor(id), Row::setWords).SetValueElement(rank, value);
}

template <class Row>
auto NumberTabAccess<Row>::GetElement(const DescriptedEntity& entity, int id, int rank) -> Item {
  using Constant = typename Row::Constant;
  return Checked<Constant>(entity, entity.GetConstantDescriptor(id), Row::getWords).GetValueElement(rank);
}

template <class Row>
void NumberTabAccess<Row>::AddElement(const DescriptedEntity& entity, int id, Item value) {
  using Constant = typename Row::Constant;
  if (entity.FindVariableDescriptor(id) != nullptr)
    std::printf("!!! Tentative %s sur descripteur variable : \n    classe %s non encore implémentée",
                Row::adder, Row::className);
  else
    Checked<Constant>(entity, ConstantOrFail(entity, id), Row::addWords).AddValueElement(value);
}

// A new row needs a line here. Naming the last class of the family leaves those below it out.
#define KALVE_CONSTANT_ROW(Row) template class ConstantAccess<Row>;
#define KALVE_NUMBER_TAB_ROW(Row) \
  KALVE_CONSTANT_ROW(Row)         \
  template class NumberTabAccess<Row>;
#define KALVE_PLAIN_ROW(Row) \
  KALVE_CONSTANT_ROW(Row)    \
  template class PlainAccess<Row>;
#define KALVE_TRIGGERED_ROW(Row) \
  KALVE_PLAIN_ROW(Row)           \
  template class TriggeredAccess<Row>;

KALVE_TRIGGERED_ROW(IntRow)
KALVE_TRIGGERED_ROW(FloatRow)
KALVE_TRIGGERED_ROW(DoubleRow)
KALVE_TRIGGERED_ROW(StringRow)
KALVE_TRIGGERED_ROW(EntityRow)
KALVE_TRIGGERED_ROW(IntDomainRow)
KALVE_TRIGGERED_ROW(FloatDomainRow)
KALVE_TRIGGERED_ROW(DoubleDomainRow)
KALVE_TRIGGERED_ROW(StringTabRow)
KALVE_TRIGGERED_ROW(EntityTabRow)
KALVE_TRIGGERED_ROW(DescValueSpecTabRow)
KALVE_PLAIN_ROW(EntitySpecRow)
KALVE_NUMBER_TAB_ROW(IntTabRow)
KALVE_NUMBER_TAB_ROW(FloatTabRow)
KALVE_NUMBER_TAB_ROW(DoubleTabRow)
