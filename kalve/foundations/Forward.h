// Every class of the kernel, named once, so that a header can speak of a class without including it.
#pragma once

// Containers.
template <class T>
class Tableau;
template <class T>
class Liste;
template <class T>
class Cell;

// Value records.
struct IntInterval;
struct FloatInterval;
struct DoubleInterval;
struct Date;
struct StructProcessAction;
union UnifiedValue;

class RNG;

// Classes and entities.
class MetaClass;
class BasicEntity;
class DescriptedEntity;
class Entity;
class ChangeStructureItem;

// Descriptors.
class Descriptor;
class ConstantDescriptor;
class VariableDescriptor;
class MonoDimensionalNumericalConstantDescriptor;
class MonoDimensionalNumericalVariableDescriptor;
class IntConstantDescriptor;
class IntVariableDescriptor;
class FloatConstantDescriptor;
class FloatVariableDescriptor;
class DoubleConstantDescriptor;
class DoubleVariableDescriptor;
class StringConstantDescriptor;
class StringVariableDescriptor;
class EntityConstantDescriptor;
class EntityVariableDescriptor;
class EntityTabConstantDescriptor;
class EntityTabVariableDescriptor;
class EntitySpecConstantDescriptor;
class EntitySpecVariableDescriptor;
class DescValueSpecTabConstantDescriptor;
class DescValueSpecTabVariableDescriptor;
class IntDomainConstantDescriptor;
class IntDomainVariableDescriptor;
class FloatDomainConstantDescriptor;
class FloatDomainVariableDescriptor;
class DoubleDomainConstantDescriptor;
class DoubleDomainVariableDescriptor;
class StringTabConstantDescriptor;
class StringTabVariableDescriptor;
class IntTabConstantDescriptor;
class FloatTabConstantDescriptor;
class DoubleTabConstantDescriptor;
class TypeAttribute;
class InstantAttribute;
class DescriptorIdAttribute;
class DescriptorNameAttribute;
class EntityIdAttribute;
class EntityNameAttribute;
class TimeDomainAttribute;
class AnonymousIntTabAttribute;
class AnonymousFloatTabAttribute;
class CurrentElementIndex;
class AnonymousIntAttribute;
class AnonymousFloatAttribute;
class AnonymousDoubleAttribute;
class AnonymousStringAttribute;
class AnonymousEntityAttribute;

// Methods and arguments.
class Method;
class EntityMethod;
class ProcessMethod;
class EventMethod;
class MonitorMethod;
class EntitySpecMethod;
class MethodTable;
class LazyMethods;
struct PredefinedRow;
struct PredefinedSet;
class VoidEntityMethod;
class EntityPredicate;
class IntEntityMethod;
class FloatEntityMethod;
class DoubleEntityMethod;
class StringEntityMethod;
class EntityEntityMethod;
class EntityTabEntityMethod;
class IntTabEntityMethod;
class FloatTabEntityMethod;
class DoubleTabEntityMethod;
class VoidProcessMethod;
class IntProcessMethod;
class FloatProcessMethod;
class DoubleProcessMethod;
class VoidEventMethod;
class EventPredicate;
class IntEventMethod;
class VoidMonitorMethod;
class IntMonitorMethod;
class FloatMonitorMethod;
class DoubleMonitorMethod;
class StringMonitorMethod;
class EntityMonitorMethod;
class EntityTabMonitorMethod;
class DescValueSpecMonitorMethod;
class DescValueSpecTabMonitorMethod;
class EntitySpecPredicate;
class IntEntitySpecMethod;
class EntityEntitySpecMethod;
class EntityTabEntitySpecMethod;
class Argument;
class IntArgument;
class FloatArgument;
class DoubleArgument;
class StringArgument;
class EntityArgument;
class EntityTabArgument;
class IntDomainArgument;
class DescValueSpecArgument;
class DescValueSpecTabArgument;
class IntTabArgument;
class FloatTabArgument;
class DoubleTabArgument;
class EventArgument;
class DescriptorArgument;

// Monitors and specifications.
class DescValueMonitor;
class IntDescValueMonitor;
class FloatDescValueMonitor;
class DoubleDescValueMonitor;
class StringDescValueMonitor;
class EntityDescValueMonitor;
class EntityTabDescValueMonitor;
class DescValueSpecTabDescValueMonitor;
class StructureMonitor;
class EntitySpec;
class DescValueSpec;
class DescIntValueSpec;
class DescFloatValueSpec;
class DescDoubleValueSpec;
class DescStringValueSpec;
class DescEntityValueSpec;

// The engine.
class Simulation;
class Event;
class AgendaFences;
class Process;
class DiscreteProcess;
class ContinuousProcess;
class ReadSequentialDataFileProcess;
class ReadFactualDataRecordProcess;
class InitFactualDataFileReadingProcess;

// Inputs.
class File;
class LexicalInputFile;
class SerialDataFile;
class SequentialDataFile;
class FactualDataFile;
class OutputFile;
struct StructField;
class Parameter;
class IntParameter;
class RealParameter;
class StringParameter;
class DateParameter;
class ExternEntityIteratedActionSpec;
class ExternEntityAdditionSpec;
class ExternEntityDescAffectationSpec;
class ExternBodyAffectationSpec;
class ExternEntityPlugSpec;
class ExternEndEntityAdditionSpec;
class ExternEntityIterationSpec;

// Outputs.
class OutputSpec;
class EntityOutputSpec;
class EventOutputSpec;
class ProcessOutputSpec;
class EntityInstanceOS;
class DescriptorOS;
class MultipleDescriptorOS;
class MDescOSParticipation;
class ParameterOS;
class DatabaseMDescOS;
class PostgresqlMDescOS;
class AltPostgresqlMDescOS;
class SeriesWalk;
class DescTimeSeries;
class ClockValueItem;
struct StructEventData;
struct StructProcessData;

// Designs of experiments.
class SerialDesignOfExperiment;
class FactorialDesignOfExperiment;
