// The methods that the kernel itself calls: one class a row, whose default constructor fixes leaf, id, name,
// arguments and default body. An owner's constructor allocates them, and the application assigns bodies.
#pragma once

#include <type_traits>

#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/PredefinedArguments.h"
#include "kalve/methods/PredefinedIds.h"

template <class Leaf, int id, FixedText className, typename Leaf::Body defaultBody, class... Arguments>
class PredefinedMethod : public Leaf {
 public:
  static constexpr int predefinedId = id;
  static constexpr const char* predefinedName = className.text;
  static constexpr int argumentCount = sizeof...(Arguments);
  // By types: under the sanitizers an address is no constant to compare.
  template <typename Leaf::Body body>
  using BodyType = std::integral_constant<typename Leaf::Body, body>;
  static constexpr bool hasDefaultBody = !std::is_same_v<BodyType<defaultBody>, BodyType<nullptr>>;

  PredefinedMethod() : Leaf(id, className.text) {
    (this->AddArg(new Arguments), ...);
    this->AssignBody(defaultBody);
  }
};

// Processes
class ProcessPrecondition
    : public PredefinedMethod<IntProcessMethod, PROCESS_PRECONDITION, "processPrecondition", nullptr> {};
class ProcessPostponementDelay : public PredefinedMethod<IntProcessMethod, PROCESS_POSTPONEMENT_DELAY,
                                                         "processPostponementDelay", nullptr> {};
class ExecProcess : public PredefinedMethod<VoidProcessMethod, EXEC_PROCESS, "execProcess", nullptr> {};
class InitializeProcess
    : public PredefinedMethod<VoidProcessMethod, INITIALIZE_PROCESS, "initializeProcess", nullptr> {};
class GoOneStepForwardProcess : public PredefinedMethod<VoidProcessMethod, GOONESTEPFORWARD_PROCESS,
                                                        "goOneStepForwardProcess", nullptr> {};
class StopProcess : public PredefinedMethod<VoidProcessMethod, STOP_PROCESS, "stopProcess", nullptr> {};
class PostRead : public PredefinedMethod<VoidProcessMethod, POST_READ, "postRead", nullptr> {};

// Events
class EventPostConsequence
    : public PredefinedMethod<VoidEventMethod, EVENT_POSTCONSEQUENCE, "eventPostConsequence", nullptr> {};
class GenerateNextEvent : public PredefinedMethod<EventPredicate, GENERATE_NEXTEVENT, "generateNextEvent",
                                                  standardEvent_generateNextEvent_Body> {};
class UpdateNextEvent : public PredefinedMethod<VoidEventMethod, UPDATE_NEXTEVENT, "updateNextEvent", nullptr,
                                                PreviousEventArgument> {};
class DefineNextEventClockTime
    : public PredefinedMethod<IntEventMethod, DEFINE_NEXTEVENTCLOCKTIME, "defineNextEventClockTime", nullptr,
                              PreviousEventArgument> {};
class RandomizeThisEventClockTime
    : public PredefinedMethod<IntEventMethod, RANDOMIZE_THISEVENTCLOCKTIME, "randomizeThisEventClockTime",
                              Sampling_Uniform, IntLowBoundArgument, IntUpperBoundArgument> {};
class RandomizeNextEventClockTime
    : public PredefinedMethod<IntEventMethod, RANDOMIZE_NEXTEVENTCLOCKTIME, "randomizeNextEventClockTime",
                              Sampling_Uniform, IntLowBoundArgument, IntUpperBoundArgument> {};
class IsPoppingToSuspend
    : public PredefinedMethod<EventPredicate, IS_POPPING_TO_SUSPEND, "isPoppingToSuspend", gAlwaysFalse> {};

// Monitors of values: setting
class WhenSetInt : public PredefinedMethod<IntMonitorMethod, WHEN_SET_INT, "whenSetInt", nullptr,
                                           MonitoredDescriptorArgument, CurrentIntValueArgument,
                                           CandidateIntValueArgument> {};
class WhenSetFloat : public PredefinedMethod<FloatMonitorMethod, WHEN_SET_FLOAT, "whenSetFloat", nullptr,
                                             MonitoredDescriptorArgument, CurrentFloatValueArgument,
                                             CandidateFloatValueArgument> {};
class WhenSetDouble : public PredefinedMethod<DoubleMonitorMethod, WHEN_SET_DOUBLE, "whenSetDouble", nullptr,
                                              MonitoredDescriptorArgument, CurrentDoubleValueArgument,
                                              CandidateDoubleValueArgument> {};
class WhenSetEntity : public PredefinedMethod<EntityMonitorMethod, WHEN_SET_ENTITY, "whenSetEntity", nullptr,
                                              MonitoredDescriptorArgument, CurrentEntityValueArgument,
                                              CandidateEntityValueArgument> {};
class WhenSetEntityTab
    : public PredefinedMethod<EntityTabMonitorMethod, WHEN_SET_ENTITYTAB, "whenSetEntityTab", nullptr,
                              MonitoredDescriptorArgument, CurrentEntityTabValueArgument,
                              CandidateEntityTabValueArgument> {};
class WhenSetString : public PredefinedMethod<StringMonitorMethod, WHEN_SET_STRING, "whenSetString", nullptr,
                                              MonitoredDescriptorArgument, CurrentStringValueArgument,
                                              CandidateStringValueArgument> {};
class WhenSetDescValueSpecTab
    : public PredefinedMethod<DescValueSpecTabMonitorMethod, WHEN_SET_DESCVALUESPECTAB,
                              "whenSetDescValueSpecTab", nullptr, MonitoredDescriptorArgument,
                              CurrentDescValueSpecTabValueArgument, CandidateDescValueSpecTabValueArgument> {
};

// Monitors of values: reading
class WhenGetInt : public PredefinedMethod<IntMonitorMethod, WHEN_GET_INT, "whenGetInt", nullptr,
                                           MonitoredDescriptorArgument, CurrentIntValueArgument> {};
class WhenGetFloat : public PredefinedMethod<FloatMonitorMethod, WHEN_GET_FLOAT, "whenGetFloat", nullptr,
                                             MonitoredDescriptorArgument, CurrentFloatValueArgument> {};
class WhenGetDouble : public PredefinedMethod<DoubleMonitorMethod, WHEN_GET_DOUBLE, "whenGetDouble", nullptr,
                                              MonitoredDescriptorArgument, CurrentDoubleValueArgument> {};
class WhenGetEntity : public PredefinedMethod<EntityMonitorMethod, WHEN_GET_ENTITY, "whenGetEntity", nullptr,
                                              MonitoredDescriptorArgument, CurrentEntityValueArgument> {};
class WhenGetEntityTab
    : public PredefinedMethod<EntityTabMonitorMethod, WHEN_GET_ENTITYTAB, "whenGetEntityTab", nullptr,
                              MonitoredDescriptorArgument, CurrentEntityTabValueArgument> {};
class WhenGetString : public PredefinedMethod<StringMonitorMethod, WHEN_GET_STRING, "whenGetString", nullptr,
                                              MonitoredDescriptorArgument, CurrentStringValueArgument> {};
class WhenGetDescValueSpecTab
    : public PredefinedMethod<DescValueSpecTabMonitorMethod, WHEN_GET_DESCVALUESPECTAB,
                              "whenGetDescValueSpecTab", nullptr, MonitoredDescriptorArgument,
                              CurrentDescValueSpecTabValueArgument> {};

// Monitors of entity and specification tables: adding and removing
class WhenAddEntity : public PredefinedMethod<EntityMonitorMethod, WHEN_ADD_ENTITY, "whenAddEntity", nullptr,
                                              MonitoredDescriptorArgument, CurrentEntityTabValueArgument,
                                              CandidateEntityValueArgument> {};
class WhenAddDescValueSpec
    : public PredefinedMethod<DescValueSpecMonitorMethod, WHEN_ADD_DESCVALUESPEC, "whenAddDescValueSpec",
                              nullptr, MonitoredDescriptorArgument, CurrentDescValueSpecTabValueArgument,
                              CandidateDescValueSpecValueArgument> {};
class WhenRemoveEntity
    : public PredefinedMethod<EntityMonitorMethod, WHEN_REMOVE_ENTITY, "whenRemoveEntity", nullptr,
                              MonitoredDescriptorArgument, CurrentEntityTabValueArgument,
                              CandidateEntityValueArgument> {};
class WhenRemoveDescValueSpec
    : public PredefinedMethod<DescValueSpecMonitorMethod, WHEN_REMOVE_DESCVALUESPEC,
                              "whenRemoveDescValueSpec", nullptr, MonitoredDescriptorArgument,
                              CurrentDescValueSpecTabValueArgument, CandidateDescValueSpecValueArgument> {};

// Monitors of structure: argument 14 stays unset
class WhenAddElement
    : public PredefinedMethod<EntityMonitorMethod, WHEN_ADD_ELEMENT, "whenAddElement", nullptr,
                              MonitoredDescriptorArgument, CurrentEntityContainerArgument,
                              CandidateEntityElementArgument> {};
class WhenRemoveElement
    : public PredefinedMethod<VoidMonitorMethod, WHEN_REMOVE_ELEMENT, "whenRemoveElement", nullptr,
                              MonitoredDescriptorArgument, CurrentEntityContainerArgument,
                              CandidateEntityElementArgument> {};

// Entity specifications
class EntitySelector : public PredefinedMethod<EntitySpecPredicate, SELECTOR_PREDICATE, "selectorPredicate",
                                               nullptr, CandidateEntityArgument, ReferenceEntityArgument> {};
class EntityInstantiator
    : public PredefinedMethod<EntityEntitySpecMethod, ENTITY_INSTANTIATOR, "entityInstantiator", nullptr,
                              ClassIdArgument, ReferenceEntityArgument> {};
class EntityListInstantiator
    : public PredefinedMethod<EntityTabEntitySpecMethod, ENTITYLIST_INSTANTIATOR, "entityListInstantiator",
                              nullptr, ClassIdArgument, ListSizeArgument, ReferenceEntityArgument> {};
class QuantityEvaluator : public PredefinedMethod<IntEntitySpecMethod, QUANTITY_EVALUATOR,
                                                  "quantityEvaluator", nullptr, ReferenceEntityArgument> {};
