// Typed access to the values of an entity's descriptors: one row per type of value, and the operations that
// the accessors of DescriptedEntity are made of. Bodies: DescribedValues.cpp
//
// Every access finds the descriptor by its id and checks its type: a value is never converted. A variable
// descriptor wins over a constant one of the same id.
#pragma once

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/FixedText.h"
#include "kalve/foundations/Forward.h"

/// What tells the types apart: the value, the two classes of descriptors, the words of the failures of a
/// change and of a read, and how the warnings spell the type and its getter.
template <class ValueOf, class ConstantOf, class VariableOf, FixedText change, FixedText read,
          FixedText spelledType, FixedText spelledGetter>
struct ValueRow {
  using Value = ValueOf;
  using Constant = ConstantOf;
  using Variable = VariableOf;
  static constexpr const char* setWords = change.text;
  static constexpr const char* getWords = read.text;
  static constexpr const char* spelling = spelledType.text;
  static constexpr const char* getter = spelledGetter.text;
};

struct IntRow : ValueRow<int, IntConstantDescriptor, IntVariableDescriptor, "set int value", "get int value",
                         "int", "GetIntValue"> {};
struct FloatRow : ValueRow<float, FloatConstantDescriptor, FloatVariableDescriptor, "set float value",
                           "get float value", "float", "GetFloatValue"> {};
struct DoubleRow : ValueRow<double, DoubleConstantDescriptor, DoubleVariableDescriptor, "set double value",
                            "get double value", "double", "GetDoubleValue"> {};
struct StringRow : ValueRow<const char*, StringConstantDescriptor, StringVariableDescriptor,
                            "set string value", "get String value", "char*", "GetStringValue"> {};
struct EntityRow : ValueRow<BasicEntity*, EntityConstantDescriptor, EntityVariableDescriptor,
                            "set Entity value", "get Entity value", "Entity*", "GetBasicEntityValue"> {};
struct EntitySpecRow
    : ValueRow<EntitySpec*, EntitySpecConstantDescriptor, EntitySpecVariableDescriptor,
               "set EntitySpec value", "get EntitySpec value", "EntitySpec*", "GetEntitySpecValue"> {};
struct IntDomainRow
    : ValueRow<Tableau<IntInterval*>*, IntDomainConstantDescriptor, IntDomainVariableDescriptor,
               "set intdomain value", "get intdomain value", "pIntIntervalTab*", "GetIntDomainValue"> {};
struct FloatDomainRow : ValueRow<Tableau<FloatInterval*>*, FloatDomainConstantDescriptor,
                                 FloatDomainVariableDescriptor, "set floatdomain value",
                                 "get floatdomain value", "pFloatIntervalTab*", "GetFloatDomainValue"> {};
struct DoubleDomainRow : ValueRow<Tableau<DoubleInterval*>*, DoubleDomainConstantDescriptor,
                                  DoubleDomainVariableDescriptor, "set doubledomain value",
                                  "get doubledomain value", "pDoubleIntervalTab*", "GetDoubleDomainValue"> {};
struct StringTabRow
    : ValueRow<Tableau<char*>*, StringTabConstantDescriptor, StringTabVariableDescriptor,
               "set StringTab value", "get StringTab value", "pCharTab*", "GetStringTabValue"> {};
struct EntityTabRow
    : ValueRow<Tableau<BasicEntity*>*, EntityTabConstantDescriptor, EntityTabVariableDescriptor,
               "set entitytab value", "get entitytab value", "pEntityTab*", "GetEntityTabValue"> {};
struct DescValueSpecTabRow
    : ValueRow<Tableau<DescValueSpec*>*, DescValueSpecTabConstantDescriptor,
               DescValueSpecTabVariableDescriptor, "set descValueSpecTab value", "get descValueSpecTab value",
               "pDescValueSpecTab*", "GetDescValueSpecTabValue"> {};

/// Tables of numbers, which only constants hold. What an addition prints on a variable names the adder and
/// the class.
template <class ItemOf, class ConstantOf, FixedText change, FixedText read, FixedText addition,
          FixedText constantClass, FixedText adderName>
struct NumberTabRow {
  using Item = ItemOf;
  using Value = Tableau<Item>*;
  using Constant = ConstantOf;
  static constexpr const char* setWords = change.text;
  static constexpr const char* getWords = read.text;
  static constexpr const char* addWords = addition.text;
  static constexpr const char* className = constantClass.text;
  static constexpr const char* adder = adderName.text;
};
struct IntTabRow : NumberTabRow<int, IntTabConstantDescriptor, "set inttab value", "get inttab value",
                                "add int value", "IntTabConstantDescriptor", "AddIntValueElement"> {};
struct FloatTabRow
    : NumberTabRow<float, FloatTabConstantDescriptor, "set floattab value", "get floattab value",
                   "add float value", "FloatTabConstantDescriptor", "AddFloatValueElement"> {};
struct DoubleTabRow
    : NumberTabRow<double, DoubleTabConstantDescriptor, "set doubletab value", "get doubletab value",
                   "add double value", "DoubleTabConstantDescriptor", "AddDoubleValueElement"> {};

/// On the constant descriptor of the id.
template <class Row>
class ConstantAccess {
 public:
  using Value = typename Row::Value;
  static void SetConstant(const DescriptedEntity& entity, int id, Value value);
  static Value GetConstant(const DescriptedEntity& entity, int id);
};

/// The elements of a table of numbers. To add looks for a variable descriptor too, and then prints that
/// there is no such class.
template <class Row>
class NumberTabAccess : public ConstantAccess<Row> {
 public:
  using Item = typename Row::Item;
  static void SetElement(const DescriptedEntity& entity, int id, int rank, Item value);
  static Item GetElement(const DescriptedEntity& entity, int id, int rank);
  static void AddElement(const DescriptedEntity& entity, int id, Item value);
};

/// On either kind, and on the variable one alone.
template <class Row>
class PlainAccess : public ConstantAccess<Row> {
 public:
  using Value = typename Row::Value;
  static void Set(const DescriptedEntity& entity, int id, Value value);
  static void SetVariable(const DescriptedEntity& entity, int id, Value value);
  static Value Get(const DescriptedEntity& entity, int id);
  static Value GetVariable(const DescriptedEntity& entity, int id);
};

/// With `trigger` 0 a variable goes past its monitor; a constant prints that the trigger means nothing.
template <class Row>
class TriggeredAccess : public PlainAccess<Row> {
 public:
  using Value = typename Row::Value;
  using PlainAccess<Row>::Set;
  using PlainAccess<Row>::SetVariable;
  using PlainAccess<Row>::Get;
  using PlainAccess<Row>::GetVariable;
  static void Set(const DescriptedEntity& entity, int id, Value value, Boolean trigger);
  static void SetVariable(const DescriptedEntity& entity, int id, Value value, Boolean trigger);
  /// `getter` is the name of the member that the caller has called.
  static Value Get(const DescriptedEntity& entity, int id, Boolean trigger, const char* getter = Row::getter);
  static Value GetVariable(const DescriptedEntity& entity, int id, Boolean trigger);
  /// Past the monitor, and no warning on a constant: for the kernel's own looks.
  static Value Peek(const DescriptedEntity& entity, int id);
};
