// The attributes that the kernel defines itself: one class a row, whose default constructor fixes id and
// name.
#pragma once

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/descriptors/TableDescriptors.h"
#include "kalve/foundations/FixedText.h"

enum PredefinedDescriptorId : int {
  TYPE_ATTRIBUTE = 1,
  INSTANT_ATTRIBUTE = 2,
  DESCRIPTOR_ID_ATTRIBUTE = 3,
  DESCRIPTOR_NAME_ATTRIBUTE = 4,
  ENTITY_ID_ATTRIBUTE = 5,
  ENTITY_NAME_ATTRIBUTE = 6,
  TIME_DOMAIN_ATTRIBUTE = 7,
  ANONYMOUS_INT_TAB_ATTRIBUTE = 8,
  ANONYMOUS_FLOAT_TAB_ATTRIBUTE = 9,
  CURRENT_ELEMENT_INDEX = 12,
  ANONYMOUS_INT_ATTRIBUTE = 13,
  ANONYMOUS_FLOAT_ATTRIBUTE = 14,
  ANONYMOUS_DOUBLE_ATTRIBUTE = 15,
  ANONYMOUS_STRING_ATTRIBUTE = 16,
  ANONYMOUS_ENTITY_ATTRIBUTE = 17,
};

/// Fills DescIdToCharTab with the names of these ids, for messages; an application appends its own.
void MakeDescIdToCharTab();
/// Entry of DescIdToCharTab; an index failure out of range.
const char* DescIdToString(int id);

template <class Base, int id, FixedText className, FixedText traced>
class PredefinedAttribute : public Base {
 public:
  PredefinedAttribute() : Base(id, className.text) { this->TraceWords(traced.text); }
};

class TypeAttribute : public PredefinedAttribute<IntConstantDescriptor, TYPE_ATTRIBUTE, "typeAttribute",
                                                 "-TypeAttribute- (I-constant) "> {};
class InstantAttribute : public PredefinedAttribute<IntConstantDescriptor, INSTANT_ATTRIBUTE,
                                                    "instantAttribute", "-InstantAttribute- (I-constant) "> {
};
class DescriptorIdAttribute
    : public PredefinedAttribute<IntConstantDescriptor, DESCRIPTOR_ID_ATTRIBUTE, "descriptorIdAttribute",
                                 "-DescriptorIdAttribute- (I-constant) "> {};
// The traces of the next two name each other's kind: whoever reads them knows them so.
class DescriptorNameAttribute
    : public PredefinedAttribute<StringConstantDescriptor, DESCRIPTOR_NAME_ATTRIBUTE,
                                 "descriptorNameAttribute", "-DescriptorNameAttribute- (I-constant) "> {};
class EntityIdAttribute
    : public PredefinedAttribute<IntConstantDescriptor, ENTITY_ID_ATTRIBUTE, "entityIdAttribute",
                                 "-EntityIdAttribute- (Str-constant) "> {};
class EntityNameAttribute
    : public PredefinedAttribute<StringConstantDescriptor, ENTITY_NAME_ATTRIBUTE, "entityNameAttribute",
                                 "-EntityNameAttribute- (Str-constant) "> {};
class TimeDomainAttribute
    : public PredefinedAttribute<IntDomainConstantDescriptor, TIME_DOMAIN_ATTRIBUTE, "timeDomainAttribute",
                                 "-TimeDomainAttribute- (IntDom-constant) "> {};
class AnonymousIntTabAttribute
    : public PredefinedAttribute<IntTabConstantDescriptor, ANONYMOUS_INT_TAB_ATTRIBUTE,
                                 "anonymousIntTabAttribute",
                                 "-AnonymousIntTabAttribute- (IntTab-constant) "> {};
class AnonymousFloatTabAttribute
    : public PredefinedAttribute<FloatTabConstantDescriptor, ANONYMOUS_FLOAT_TAB_ATTRIBUTE,
                                 "anonymousFloatTabAttribute",
                                 "-AnonymousFloatTabAttribute- (FloatTab-constant) "> {};
class CurrentElementIndex
    : public PredefinedAttribute<IntVariableDescriptor, CURRENT_ELEMENT_INDEX, "currentElementIndex",
                                 "-CurrentElementIndex- (Int-variable) "> {
 public:
  CurrentElementIndex() { SetToDefaultValue(0); }
};
class AnonymousIntAttribute
    : public PredefinedAttribute<IntVariableDescriptor, ANONYMOUS_INT_ATTRIBUTE, "anonymousIntAttribute",
                                 "-AnonymousIntAttribute- (Int-variable) "> {};
class AnonymousFloatAttribute
    : public PredefinedAttribute<FloatVariableDescriptor, ANONYMOUS_FLOAT_ATTRIBUTE,
                                 "anonymousFloatAttribute", "-AnonymousFloatAttribute- (Float-variable) "> {};
class AnonymousDoubleAttribute
    : public PredefinedAttribute<DoubleVariableDescriptor, ANONYMOUS_DOUBLE_ATTRIBUTE,
                                 "anonymousDoubleAttribute",
                                 "-AnonymousDoubleAttribute- (Double-variable) "> {};
class AnonymousStringAttribute
    : public PredefinedAttribute<StringVariableDescriptor, ANONYMOUS_STRING_ATTRIBUTE,
                                 "anonymousStringAttribute", "-AnonymousStringAttribute- (Str-variable) "> {};
class AnonymousEntityAttribute
    : public PredefinedAttribute<EntityVariableDescriptor, ANONYMOUS_ENTITY_ATTRIBUTE,
                                 "anonymousEntityAttribute",
                                 "-AnonymousEntityAttribute- (Entity-variable) "> {};
