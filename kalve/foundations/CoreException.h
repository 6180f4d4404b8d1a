// The failures of the kernel: one function for each kind of fault, named after it.
//
// A fatal one prints to standard output what was attempted and on which object, then "ERROR ", and ends the
// process with status 0: the last line of the output is the only mark of the failure. No destructor of
// objects in flight runs. A warning prints only while g_KV_TraceWarnings is 1, and returns.
//
// Each function is defined beside what it speaks of, in the file named above its group; a reader who
// searches for a banner finds that one function. Null objects and symbols out of range are printed as such.
#pragma once

#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Forward.h"

/// 1 (option "-Warn") lets the warnings print.
extern int g_KV_TraceWarnings;

/// Prints "ERROR " and a line end and ends the process with `code`. The kernel passes 0.
[[noreturn]] void exitOnException(int code);

// Values and domains: descriptors/DescriptorFailures.cpp
[[noreturn]] void OutOfIntDomain(VariableDescriptor* descriptor, int value);
[[noreturn]] void OutOfIntDomain(ConstantDescriptor* descriptor, int value);
[[noreturn]] void OutOfFloatDomain(VariableDescriptor* descriptor, float value);
[[noreturn]] void OutOfFloatDomain(ConstantDescriptor* descriptor, float value);
[[noreturn]] void OutOfDoubleDomain(VariableDescriptor* descriptor, double value);
[[noreturn]] void OutOfDoubleDomain(ConstantDescriptor* descriptor, double value);
[[noreturn]] void OutOfEntityDomain(VariableDescriptor* descriptor, BasicEntity* value);
[[noreturn]] void OutOfEntityDomain(ConstantDescriptor* descriptor, BasicEntity* value);
[[noreturn]] void OutOfStringDomain(VariableDescriptor* descriptor, const char* value);
[[noreturn]] void OutOfStringDomain(ConstantDescriptor* descriptor, const char* value);
[[noreturn]] void MisuseValueClassId(Descriptor* descriptor, int classSymbol);
[[noreturn]] void MisuseAddValueClassId(Descriptor* descriptor, int classSymbol);
[[noreturn]] void DefaultValueNotSupported(DescriptedEntity const* entity, int descriptorId,
                                           ValueTypeId type);
[[noreturn]] void DoNotHaveMonitorAttached(VariableDescriptor const* descriptor);
void MonitorNotSupportedForEraseEntityTabDescriptor(Descriptor* descriptor);
void MonitorNotSupportedForEraseDescValueSpecTabDescriptor(Descriptor* descriptor);

// Monitor attachment and descriptor assignment: descriptors/DescriptorFailures.cpp
[[noreturn]] void AttachmentFailed(VariableDescriptor* descriptor, DescriptedEntity* entity);
[[noreturn]] void DirectAttachmentFailed(VariableDescriptor* descriptor);
[[noreturn]] void AttachmentTypeError(VariableDescriptor* descriptor, DescriptedEntity* entity,
                                      const char* monitorName);
[[noreturn]] void UnAuthorizedAssignment(Descriptor const* left, Descriptor const* right);

// Entity structure: model/StructureFailures.cpp
[[noreturn]] void ComponentCannotCoexistWithElement(BasicEntity* entity, int componentClass);
[[noreturn]] void UnAuthorizedAccessToElement(BasicEntity const* entity, const char* operation);
[[noreturn]] void ComponentAlreadyPlugged(BasicEntity* entity, BasicEntity* occupant, BasicEntity* candidate);
[[noreturn]] void ComponentPluggedElsewhere(BasicEntity* entity, BasicEntity* other, BasicEntity* candidate);
[[noreturn]] void BadComponentClassId(BasicEntity* entity, int componentClass);
[[noreturn]] void NotYetPluggedComponent(BasicEntity* entity, int componentClass);
[[noreturn]] void BadComponentName(BasicEntity* entity, const char* className);
[[noreturn]] void DoNotHaveSuperEntity(BasicEntity* entity, int superEntityClass);
[[noreturn]] void SuperEntityAlreadyEquippedWithClass(BasicEntity* superEntity, int componentClass,
                                                      BasicEntity* occupant, BasicEntity* candidate);
[[noreturn]] void BadEntityTypeInOrderToSort(Tableau<BasicEntity*> entities);
[[noreturn]] void ElementCannotCoexistWithComponent(BasicEntity* entity, int elementClass);
[[noreturn]] void UnAuthorizedAccessToComponent(BasicEntity const* entity, const char* operation);
[[noreturn]] void UnAuthorizedAccessToComponent(BasicEntity const* entity, const char* operation,
                                                int componentClass);
[[noreturn]] void BadSubEntityClass(BasicEntity* entity, int partClass, BasicEntity* part);
void AddElementFailed(BasicEntity* set, BasicEntity* element);
void RemoveElementFailed(BasicEntity* set, BasicEntity* element);
void ReplaceElementFailed(BasicEntity* set, BasicEntity* element);
[[noreturn]] void BadSuperSetClass(BasicEntity* element, int superSetClass, BasicEntity* superSet);
void NoElement(BasicEntity const* entity);
void NoRankedElement(BasicEntity const* entity, int rank);
void NoNamedElement(BasicEntity const* entity, const char* name);
void NoClassNamedElement(BasicEntity const* entity, int elementClass);
void NoSuperSet(BasicEntity const* entity);
[[noreturn]] void StructAttachmentFailed(BasicEntity* entity);
[[noreturn]] void DoNotHaveMonitorAttached(BasicEntity const* entity);

// Descriptor and method lookup: model/LookupFailures.cpp; for events and processes engine/EventFailures.cpp
[[noreturn]] void InexistantVariableDescriptor(DescriptedEntity const* entity, int descriptorId);
[[noreturn]] void InexistantConstantDescriptor(DescriptedEntity const* entity, int descriptorId);
[[noreturn]] void BadDescriptorValueType(DescriptedEntity const* entity, const char* descriptorName,
                                         const char* operation);
[[noreturn]] void InexistantDescriptor(DescriptedEntity const* entity, int descriptorId, const char* name);
[[noreturn]] void BadDescriptorTypeWhenAdd(DescriptedEntity* entity, Descriptor* descriptor);
[[noreturn]] void BadMethodValueType(Entity* entity, Method* method, const char* operation);
[[noreturn]] void BadMethodValueType(Event* event, Method* method, const char* operation);
[[noreturn]] void InexistantMethod(Entity* entity, int methodId, const char* name);
[[noreturn]] void BadMethodTypeWhenAdd(Entity* entity, Method* method);

// Classes and instances: model/ClassFailures.cpp
[[noreturn]] void UnknownEntityClass(int classSymbol, const char* service);
[[noreturn]] void UnknownEntityClass(int classSymbol, const char* service, BasicEntity const* entity);
[[noreturn]] void BadEntityClassSpecification(const char* service);
[[noreturn]] void BadEntityClassSpecification(const char* service, BasicEntity const* entity);
[[noreturn]] void UnfoundEntityBasedOnInstanceName(const char* service, const char* name);
void EmptyInstanceListForMetaClass(int classSymbol);
[[noreturn]] void EmptyInstanceListForMetaClass(int classSymbol, int rank);
[[noreturn]] void SimulationNotYetCreated();
[[noreturn]] void UnknownClassName(const char* service, const char* className);
[[noreturn]] void ReservedUserClassId(int classSymbol);
[[noreturn]] void UnAuthorizedMultipleInheritance(BasicEntity const* entity);
[[noreturn]] void MetaClassNotYetCreated(int classSymbol, const char* operation);

// Events, processes and their actions: engine/EventFailures.cpp, engine/ProcessFailures.cpp
[[noreturn]] void UnspecifiedProcess(Event* event);
/// For predicates of the agenda that an application assigns: the kernel's own order never warns.
void TwoEventsWithSameDateAndPriority(Event* first, Event* second, int date);
[[noreturn]] void UnexpectedProbability(Event* event, float probability);
[[noreturn]] void UnexpectedPriorityDegree(Event* event, short degree);
[[noreturn]] void UnauthorizedMaxOccurenceClockTime(Event* event, int clock);
[[noreturn]] void UnexpectedDelayNextEvent(Event* event, int delay);
[[noreturn]] void UnspecifiedPredefinedMethod(const char* method, Event* event);
void DoNotHaveProcessedEntity(Process const* process);
[[noreturn]] void BadProcessedEntityClass(Process* process, BasicEntity* entity);
[[noreturn]] void BadProcessedEntitySpec(Process* process, int classSymbol);
[[noreturn]] void EntitySpecForProcessedEntityYieldsNone(Process* process, EntitySpec* spec);
[[noreturn]] void BadMethodValueType(Process* process, Method* method, const char* operation);
[[noreturn]] void InexistantInitializationMethod(ContinuousProcess* process);
[[noreturn]] void InexistantProceedMethod(ContinuousProcess* process);
[[noreturn]] void InexistantStopMethod(ContinuousProcess* process);
[[noreturn]] void UnexpectedAddToListProcessAction(Event* event, Process* process, ActionType action);
[[noreturn]] void UnexpectedInsertInListProcessAction(Event* event, Process* process, ActionType action);
void UnexpectedVoidListProcessAction(Event* event);
void UnfoundProcessForAddingToEvent(const char* processClassName, ActionType action);
[[noreturn]] void UnfoundProcessInEvent(Event* event, int processClass);
[[noreturn]] void UnAuthorizedDirective(Process* process, const char* directive);

// Arguments: methods/MethodFailures.cpp
[[noreturn]] void InexistantArgument(Method* method, int argumentId);
[[noreturn]] void BadArgumentType(int argumentId, int methodId, const char* operation);
[[noreturn]] void UnsupportedArgumentType(const char* methodName, Argument* argument);

// Time and dates: foundations/FoundationFailures.cpp
[[noreturn]] void BadClockValueForTm(int clock);
[[noreturn]] void BadClockTimeUnit(TimeUnit unit);
/// The six numbers print in the order in which they are passed; conversions pass day, month, year, hour,
/// minute, second.
void BadDate(const char* where, int a, int b, int c, int d, int e, int f);

// Specifications: specs/SpecFailures.cpp; NoSimulatedEntity: engine/EventFailures.cpp
[[noreturn]] void NoSimulatedEntity();
[[noreturn]] void NoInformationForReferenceClass(EntitySpec* spec);
[[noreturn]] void NoInformationForReferenceClass(EntitySpec* spec, const char* className);
[[noreturn]] void NoInformationForReferenceClass(EntitySpec* spec, Entity* entity);
[[noreturn]] void BadQuantitySpecification(int classSymbol, QuantificatorId quantificator, int quantity);
[[noreturn]] void NoReturnInstanceProcedure(const char* specName, int classSymbol);
[[noreturn]] void NoInstantiationProcedure(const char* specName, int classSymbol);
[[noreturn]] void BadRelationalOperator(int descriptorId, RelationalOperator relation);
[[noreturn]] void UnAuthorizedEntitySubDomain(DescValueSpec* spec, BasicEntity* entity);
[[noreturn]] void UnAuthorizedEntitySubDomain(DescValueSpec* spec, int classSymbol);

// Parameters and the files they come from: inputs/InputFailures.cpp
[[noreturn]] void InexistantTypedParameter(const char* className, const char* name, const char* type,
                                           const char* operation);
[[noreturn]] void InexistantParameter(const char* className, const char* name);
[[noreturn]] void BadDateParameterValue(const char* className, const char* name);

// Files and data: inputs/InputFailures.cpp
[[noreturn]] void UnknownFileClassSymbol(const char* fileClass, int symbol);
[[noreturn]] void UnknownClassSymbol(const char* className, int symbol);
[[noreturn]] void BadFileOpenMode(File* file, int mode);
[[noreturn]] void BadFieldValueType(File* file, int field);
[[noreturn]] void BadFileName(File* file, const char* name);
[[noreturn]] void BadFileType(File* file, FileClassType type);
[[noreturn]] void BadSearchByFileId(int symbol);
[[noreturn]] void BadFileRead(File* file);
[[noreturn]] void BadReadFile(File* file);
[[noreturn]] void VoidRecordInFactualDataFile(const char* fileName);
[[noreturn]] void UnexpectedEndInclude(const char* fileName);
[[noreturn]] void UnspecifiedInPath(const char* fileName);
[[noreturn]] void UnspecifiedPath(int fileSymbol);

// Outputs, chronometer, numbers and others: foundations/FoundationFailures.cpp; StrangeEntity:
// model/StructureFailures.cpp; the two about the output-specification file: inputs/InputFailures.cpp
[[noreturn]] void ConnexionFailedToDataBase(std::string baseName, std::string userName);
[[noreturn]] void BadChronometerHandling(const char* operation);
[[noreturn]] void BadIntervalBounds(int low, int high);
[[noreturn]] void BadIntervalBounds(float low, float high);
[[noreturn]] void BadIntervalBounds(double low, double high);
[[noreturn]] void BadSyntaxInOSFile(const char* read, const char* expected);
void BadSyntaxInDBOSFile();
[[noreturn]] void Obsolescence(const char* what, const char* since);
[[noreturn]] void OverSpecificationOnParentClass(const char* className, const char* relatedClassName);
[[noreturn]] void NonPositiveStandardDeviation(const char* function, double deviation);
[[noreturn]] void StrangeEntity(const char* operation, BasicEntity* entity);
[[noreturn]] void InexistantInstance(const char* operation);
