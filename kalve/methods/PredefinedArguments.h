// The slots of the predefined methods: one class a row, whose default constructor fixes id and name.
#pragma once

#include "kalve/foundations/FixedText.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/PredefinedIds.h"

template <class Base, int id, FixedText className>
class PredefinedArgument : public Base {
 public:
  PredefinedArgument() : Base(id, className.text) {}
};

class DescriptorIdArgument
    : public PredefinedArgument<IntArgument, DESCRIPTORID_ARGUMENT, "descriptorIdArgument"> {};
class ClockValueArgument : public PredefinedArgument<IntArgument, CLOCKVALUE_ARGUMENT, "clockValueArgument"> {
};
class IntLowBoundArgument
    : public PredefinedArgument<IntArgument, INT_LOW_BOUND_ARGUMENT, "intLowBoundArgument"> {};
class IntUpperBoundArgument
    : public PredefinedArgument<IntArgument, INT_UPPER_BOUND_ARGUMENT, "intUpperBoundArgument"> {};
class PreviousEventArgument
    : public PredefinedArgument<EventArgument, PREVIOUS_EVENT_ARGUMENT, "previousEventArgument"> {};
class MonitoredDescriptorArgument
    : public PredefinedArgument<DescriptorArgument, MONITOREDDESCRIPTOR_ARGUMENT,
                                "monitoredDescriptorArgument"> {};
class CurrentIntValueArgument
    : public PredefinedArgument<IntArgument, CURRENTINTVALUE_ARGUMENT, "currentIntValueArgument"> {};
class CurrentFloatValueArgument
    : public PredefinedArgument<FloatArgument, CURRENTFLOATVALUE_ARGUMENT, "currentFloatValueArgument"> {};
class CurrentDoubleValueArgument
    : public PredefinedArgument<DoubleArgument, CURRENTDOUBLEVALUE_ARGUMENT, "currentDoubleValueArgument"> {};
class CurrentStringValueArgument
    : public PredefinedArgument<StringArgument, CURRENTSTRINGVALUE_ARGUMENT, "currentStringValueArgument"> {};
class CurrentEntityValueArgument
    : public PredefinedArgument<EntityArgument, CURRENTENTITYVALUE_ARGUMENT, "currentEntityValueArgument"> {};
class CurrentEntityTabValueArgument
    : public PredefinedArgument<EntityTabArgument, CURRENTENTITYTABVALUE_ARGUMENT,
                                "currentEntityTabValueArgument"> {};
class CurrentDescValueSpecTabValueArgument
    : public PredefinedArgument<DescValueSpecTabArgument, CURRENTDESCVALUESPECTABVALUE_ARGUMENT,
                                "currentDescValueSpecTabValueArgument"> {};
class CandidateIntValueArgument
    : public PredefinedArgument<IntArgument, CANDIDATEINTVALUE_ARGUMENT, "candidateIntValueArgument"> {};
class CandidateFloatValueArgument
    : public PredefinedArgument<FloatArgument, CANDIDATEFLOATVALUE_ARGUMENT, "candidateFloatValueArgument"> {
};
class CandidateDoubleValueArgument : public PredefinedArgument<DoubleArgument, CANDIDATEDOUBLEVALUE_ARGUMENT,
                                                               "candidateDoubleValueArgument"> {};
class CandidateStringValueArgument : public PredefinedArgument<StringArgument, CANDIDATESTRINGVALUE_ARGUMENT,
                                                               "candidateStringValueArgument"> {};
class CandidateEntityValueArgument : public PredefinedArgument<EntityArgument, CANDIDATEENTITYVALUE_ARGUMENT,
                                                               "candidateEntityValueArgument"> {};
class CandidateEntityTabValueArgument
    : public PredefinedArgument<EntityTabArgument, CANDIDATEENTITYTABVALUE_ARGUMENT,
                                "candidateEntityTabValueArgument"> {};
class CandidateDescValueSpecValueArgument
    : public PredefinedArgument<DescValueSpecArgument, CANDIDATEDESCVALUESPECVALUE_ARGUMENT,
                                "candidateDescValueSpecValueArgument"> {};
class CandidateDescValueSpecTabValueArgument
    : public PredefinedArgument<DescValueSpecTabArgument, CANDIDATEDESCVALUESPECTABVALUE_ARGUMENT,
                                "candidateDescValueSpecTabValueArgument"> {};
class CurrentEntityContainerArgument
    : public PredefinedArgument<EntityArgument, CURRENTENTITYCONTAINER_ARGUMENT,
                                "currentEntityContainerArgument"> {};
class CandidateEntityElementArgument
    : public PredefinedArgument<EntityArgument, CANDIDATEENTITYELEMENT_ARGUMENT,
                                "candidateEntityElementArgument"> {};
class CandidateEntityArgument
    : public PredefinedArgument<EntityArgument, CANDIDATEENTITY_ARGUMENT, "candidateEntityArgument"> {};
class ReferenceEntityArgument
    : public PredefinedArgument<EntityArgument, REFERENCEENTITY_ARGUMENT, "referenceEntityArgument"> {};
class ClassIdArgument : public PredefinedArgument<IntArgument, CLASSID_ARGUMENT, "classIdArgument"> {};
class ListSizeArgument : public PredefinedArgument<IntArgument, LISTSIZE_ARGUMENT, "listSizeArgument"> {};
