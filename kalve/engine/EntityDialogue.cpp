#include "kalve/engine/EntityDialogue.h"

#include <cstdlib>
#include <iostream>
#include <utility>

#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/engine/Simulation.h"
#include "kalve/engine/Words.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "kalve/outputs/OutputSpec.h"

namespace {

/// The entity as one that has descriptors; null for one of the lowest layer.
DescriptedEntity* Described(BasicEntity* entity) {
  const bool isDescribed = entity != nullptr && entity->EntityType() != KV_BASIC_ENTITY;
  return isDescribed ? static_cast<DescriptedEntity*>(entity) : nullptr;
}

bool IsNamed(const Descriptor& descriptor, const std::string& name) {
  return name == OrEmpty(descriptor.ClassName());
}

/// Of a query: null for none.
VariableDescriptor* NamedVariable(const DescriptedEntity* entity, const std::string& name) {
  if (entity == nullptr) return nullptr;
  for (VariableDescriptor* variable : entity->VariableDescriptorTab())
    if (IsNamed(*variable, name)) return variable;
  return nullptr;
}

/// Of a change: null only without variables.
VariableDescriptor* NamedOrLastVariable(const DescriptedEntity* entity, const std::string& name) {
  if (entity == nullptr || !entity->HasVariableDescriptors()) return nullptr;
  VariableDescriptor* const named = NamedVariable(entity, name);
  const auto& variables = entity->VariableDescriptorTab();
  return named != nullptr ? named : variables[variables.size() - 1];
}

std::ostream& Error() { return std::cout << "ERROR" << majSep; }

// All values of an entity -----------------------------------------------------------------------------------

/// Null for a type that the user interface does not know; of the tables of numbers it knows only those of
/// floats among the variables.
const char* TypeWord(ValueTypeId type, bool isConstant) {
  switch (type) {
    case BOOLEAN:
      return "BOOL";
    case INT:
      return "INT";
    case FLOAT:
      return "FLOAT";
    case DOUBLE:
      return "DOUBLE";
    case STRING:
      return "STRING";
    case P_ENTITY:
      return "ENTITY";
    case ENTITY_TAB:
      return "ENTITY_TAB";
    case P_ENTITYSPEC:
      return "ENTITY_SPEC";
    case INTDOMAIN:
      return "INTDOMAIN";
    case FLOATDOMAIN:
      return "FLOATDOMAIN";
    case DOUBLEDOMAIN:
      return "DOUBLEDOMAIN";
    case P_DESCVALUESPEC:
      return "DESCVALUE_SPEC";
    case STRING_TAB:
      return "STRING_TAB";
    case INT_TAB:
      return isConstant ? "INT_TAB" : nullptr;
    case FLOAT_TAB:
      return "FLOAT_TAB";
    case DOUBLE_TAB:
      return isConstant ? "DOUBLE_TAB" : nullptr;
    case VOID:
    case DESCVALUESPEC_TAB:
    case P_EVENT:
    case P_DESCRIPTOR:
    case NO_VALUE:
      return nullptr;
  }
  return nullptr;
}

/// By index: reading a variable runs its monitor, which may add descriptors.
template <class Branch>
void WritePublic(const Tableau<Branch*>& descriptors) {
  constexpr bool isConstant = Branch::branch == CONSTANT;
  for (int i = 0; i < descriptors.size(); ++i) {
    Descriptor& descriptor = *descriptors[i];
    if (descriptor.IsPrivate() != 0) continue;
    const std::string value = descriptor.ValueToString();
    std::cout << '"' << OrEmpty(descriptor.ClassName()) << '"' << minSep << value << minSep;
    if (const char* const type = TypeWord(descriptor.ClassType(), isConstant))
      std::cout << (isConstant ? "C" : "V") << minSep << type;
    std::cout << majSep;
  }
}

}  // namespace

void AnswerDescriptors() {
  const std::string name = AwaitedWord();
  std::cout << "ANSWER DESCRIPTORS " << name << " {";
  if (const DescriptedEntity* const entity = Described(GetNamedEntity(name.c_str()))) {
    WritePublic(entity->ConstantDescriptorTab());
    WritePublic(entity->VariableDescriptorTab());
  }
  std::cout << "} " << std::endl;
}

// One value -------------------------------------------------------------------------------------------------

namespace {

/// Answers about one variable descriptor of one entity.
class VariableAnswer {
 public:
  VariableAnswer(const Simulation& simulation, std::string entity, std::string variable)
      : mSimulation(simulation), mEntity(std::move(entity)), mVariable(std::move(variable)) {}

  /// Of each descriptor of the name: an entity may have several.
  void WritePresentValues(const DescriptedEntity* entity) const {
    for (int i = 0; entity != nullptr && i < entity->VariableDescriptorTab().size(); ++i) {
      Descriptor& variable = *entity->VariableDescriptorTab()[i];
      if (!IsAskedFor(variable)) continue;
      WriteHead(variable);
      std::cout << mSimulation.Clock() << minSep << variable.ValueToString() << majSep;
    }
    std::cout << "}" << std::endl;
  }

  void WriteRecorded(const DescriptedEntity* entity, bool isHistory) const {
    const Descriptor* const variable = FirstAskedFor(entity);
    DescTimeSeries* const series = variable != nullptr ? variable->GetDescTimeSeries() : nullptr;
    if (series == nullptr) {
      Error() << "le descripteur n'a pas fait l'objet d'une spécification d'enregistrement" << std::endl;
      return;
    }
    WriteHead(*variable);
    if (isHistory)
      WriteHistory(*series);
    else
      WriteLast(*series);
    std::cout << std::endl;
  }

 private:
  bool IsAskedFor(const Descriptor& variable) const {
    return variable.IsPrivate() == 0 && IsNamed(variable, mVariable);
  }

  const Descriptor* FirstAskedFor(const DescriptedEntity* entity) const {
    if (entity == nullptr) return nullptr;
    for (const VariableDescriptor* variable : entity->VariableDescriptorTab())
      if (IsAskedFor(*variable)) return variable;
    return nullptr;
  }

  void WriteHead(const Descriptor& variable) const {
    const bool isReal = variable.IsFloat() || variable.IsDouble();
    const bool isNumber = isReal || variable.IsInteger();
    if (!isNumber) Error() << "le descripteur n'est ni entier ni réel." << std::endl;
    const char* const type = variable.IsInteger() ? "I" : isReal ? "F" : "";
    std::cout << "ANSWER DESCRIPTOR " << mEntity << " " << mVariable << " " << type << " 0 "
              << mSimulation.EndClock() << " -9 -9 " << mSimulation.ClockTimeUnitQuantity() << " "
              << mSimulation.ClockTimeUnit() << " {";
  }

  static void WritePoint(const ClockValueItem& point) {
    std::cout << point.GetClock() << minSep << UnifiedValueToString(&point) << majSep;
  }

  static void WriteHistory(DescTimeSeries& series) {
    for (series.GoHead(); series.IsCurrentIn(); series.GoNext()) WritePoint(*series.GetCurrent());
    std::cout << "} ";
  }

  static void WriteLast(DescTimeSeries& series) {
    series.GoTail();
    if (series.IsCurrentIn()) WritePoint(*series.GetCurrent());
    std::cout << "-}";
  }

  const Simulation& mSimulation;
  std::string mEntity;
  std::string mVariable;
};

}  // namespace

void AnswerDescriptor(const Simulation& simulation) {
  const std::string name = AwaitedWord();
  const std::string variable = AwaitedWord();
  const std::string kind = AwaitedWord();
  BasicEntity* const entity = GetNamedEntity(name.c_str());
  if (entity == nullptr) return;
  const VariableAnswer answer(simulation, name, variable);
  if (kind == "CURRENTVALUE")
    answer.WritePresentValues(Described(entity));
  else
    answer.WriteRecorded(Described(entity), kind == "HISTORY");
}

void AnswerGraph() {
  const std::string name = AwaitedWord();
  const std::string descriptor = AwaitedWord();
  BasicEntity* const entity = GetNamedEntity(name.c_str());
  if (entity == nullptr) return;
  if (VariableDescriptor* const variable = NamedVariable(Described(entity), descriptor))
    variable->IsPlotted(1);
  else
    Error() << "le descripteur " << descriptor << " n'a pas été attaché à la classe " << entity->ClassName()
            << std::endl;
}

// Instances -------------------------------------------------------------------------------------------------

namespace {

void WriteInstanceName(const char* name) { std::cout << '"' << name << '"' << majSep; }

void WriteLiving(const std::string& className) {
  const MetaClass* const metaClass = GetMetaClass(GetClassSymbol(className.c_str()));
  if (metaClass == nullptr) return;
  for (const BasicEntity* instance : metaClass->Instances()) WriteInstanceName(instance->InstanceName());
}

void WriteRecordedInstances(const std::string& className, bool onlyDead) {
  const EntityOutputSpec* const spec = EntityOutputSpec::GetCreationDateOS(className.c_str());
  if (spec == nullptr) {
    Error() << "la classe n'a pas fait l'objet d'une spécification d'enregistrement de création des instances"
            << std::endl;
    return;
  }
  for (const EntityInstanceOS* instance : spec->GetInstancesData())
    if (!onlyDead || instance->GetDeletionClock() >= 0) WriteInstanceName(instance->GetEntityInstanceName());
}

}  // namespace

void AnswerInstances(const BasicEntity* simulated) {
  std::cout << "ANSWER INSTANCES ";
  const std::string kind = AwaitedWord();
  const bool isKnown = kind == "ALL" || kind == "DEAD" || kind == "LIVE";
  if (isKnown) std::cout << kind << " ";
  std::string className = AwaitedWord();
  if (className == "ROOT") className = IsLivingEntity(simulated) ? simulated->ClassName() : "";
  if (isKnown) std::cout << className << " {";
  if (kind == "LIVE")
    WriteLiving(className);
  else if (isKnown)
    WriteRecordedInstances(className, kind == "DEAD");
  std::cout << "} " << std::endl;
}

// Changes ---------------------------------------------------------------------------------------------------

namespace {

void Assign(VariableDescriptor& variable, const std::string& value) {
  switch (static_cast<int>(variable.ClassType())) {
    case INT:
      return static_cast<IntVariableDescriptor&>(variable).SetValue(std::atoi(value.c_str()));
    case FLOAT:
      return static_cast<FloatVariableDescriptor&>(variable).SetValue(
          static_cast<float>(std::atof(value.c_str())));
    case DOUBLE:
      return static_cast<DoubleVariableDescriptor&>(variable).SetValue(std::atof(value.c_str()));
    case STRING:
      return static_cast<StringVariableDescriptor&>(variable).SetValue(value.c_str());
    case P_ENTITY:
      Error() << "le descripteur est un descripteur variable de type Entity" << std::endl;
      return;
    default:
      return;
  }
}

}  // namespace

void ModifyDescriptor() {
  AwaitedWord();
  const std::string name = AwaitedWord();
  const std::string descriptor = AwaitedWord();
  BasicEntity* const entity = GetNamedEntity(name.c_str());
  if (entity == nullptr) return;
  const std::string value = AwaitedWord();
  VariableDescriptor* const variable = NamedOrLastVariable(Described(entity), descriptor);
  if (variable == nullptr) return;
  if (variable->IsVariable())
    Assign(*variable, value);
  else
    Error() << "le descripteur n'est pas un descripteur variable" << std::endl;
}

void SetSampling() {
  const std::string name = AwaitedWord();
  const std::string descriptor = AwaitedWord();
  const int step = std::atoi(AwaitedWord().c_str());
  BasicEntity* const entity = GetNamedEntity(name.c_str());
  if (VariableDescriptor* const variable = NamedOrLastVariable(Described(entity), descriptor))
    variable->SetSamplingStep(step);
}

void StopPlotting(BasicEntity* entity, const std::string& descriptor) {
  if (VariableDescriptor* const variable = NamedOrLastVariable(Described(entity), descriptor))
    variable->IsPlotted(0);
}
