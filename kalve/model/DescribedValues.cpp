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

// A new row needs a line here.
#define KALVE_CONSTANTS(Row) template class ConstantAccess<Row>;
#define KALVE_PLAIN(Row) KALVE_CONSTANTS(Row) template class PlainAccess<Row>;
#define KALVE_TRIGGERED(Row) KALVE_PLAIN(Row) template class TriggeredAccess<Row>;
#define KALVE_NUMBERS(Row) KALVE_CONSTANTS(Row) template class NumberTabAccess<Row>;

KALVE_TRIGGERED(IntRow)
KALVE_TRIGGERED(FloatRow)
KALVE_TRIGGERED(DoubleRow)
KALVE_TRIGGERED(StringRow)
KALVE_TRIGGERED(EntityRow)
KALVE_TRIGGERED(IntDomainRow)
KALVE_TRIGGERED(FloatDomainRow)
KALVE_TRIGGERED(DoubleDomainRow)
KALVE_TRIGGERED(StringTabRow)
KALVE_TRIGGERED(EntityTabRow)
KALVE_TRIGGERED(DescValueSpecTabRow)
KALVE_PLAIN(EntitySpecRow)
KALVE_NUMBERS(IntTabRow)
KALVE_NUMBERS(FloatTabRow)
KALVE_NUMBERS(DoubleTabRow)
#undef KALVE_NUMBERS
#undef KALVE_TRIGGERED
#undef KALVE_PLAIN
#undef KALVE_CONSTANTS
