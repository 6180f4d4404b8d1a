// How the typed accessors find a descriptor: by id, checked against the class that its value must have.
#pragma once

#include <iostream>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/model/DescriptedEntity.h"

/// The descriptor as its value class; BadDescriptorValueType with `words` when it is of another type.
template <class ValueClass>
ValueClass& Checked(const DescriptedEntity& entity, Descriptor* descriptor, const char* words) {
  if (descriptor->ClassType() != ValueClass::type)
    BadDescriptorValueType(&entity, descriptor->ClassName(), words);
  return *static_cast<ValueClass*>(descriptor);
}

/// The constant descriptor of an id that no variable has; InexistantDescriptor.
inline ConstantDescriptor* ConstantOrFail(const DescriptedEntity& entity, int id) {
  ConstantDescriptor* const constant = entity.FindConstantDescriptor(id);
  if (constant == nullptr) InexistantDescriptor(&entity, id, "");
  return constant;
}

/// Calls one of the two with the descriptor of the id as its value class. The words are those of a
/// descriptor of another type.
template <class Row, class OnVariable, class OnConstant>
decltype(auto) Access(const DescriptedEntity& entity, int id, const char* words, OnVariable onVariable,
                      OnConstant onConstant) {
  if (VariableDescriptor* const variable = entity.FindVariableDescriptor(id))
    return onVariable(Checked<typename Row::Variable>(entity, variable, words));
  return onConstant(Checked<typename Row::Constant>(entity, ConstantOrFail(entity, id), words));
}

template <class Row, class OnEither>
decltype(auto) Access(const DescriptedEntity& entity, int id, const char* words, OnEither onEither) {
  return Access<Row>(entity, id, words, onEither, onEither);
}

// What prints, with or without "-Warn", when a trigger is given for a constant, which has none.

/// `member` takes an id, a value of type `type`, and the trigger.
inline void TellUselessTriggerOfChange(int id, const char* member, const char* type) {
  std::cout << "\n!!! attention !!! Affectation de valeur à un descripteur constant (id=" << id << "), avec "
            << member << "(DescriptorId, " << type << ", Boolean) : le troisième argument n'a pas de sens.";
}
inline void TellUselessTriggerOfRead(int id, const char* getter) {
  std::cout << "\n!!! attention !!! Accès à la valeur à un descripteur constant (id=" << id << "), avec "
            << getter << "(DescriptorId, Boolean) : le second argument n'a pas de sens.";
}
