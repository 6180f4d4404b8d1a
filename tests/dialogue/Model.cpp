// A small model that a user interface drives: a barn of two cows and what happens to them in sixty hours.
//
//   dialogue_model [end] [endless] [limit] [clock] [loose] [bare]
//
// end: the run has an end date; endless: it goes on by itself; limit: it pops three events at most; clock:
// the chronometer is on; loose: the streams are not tied to those of C; bare: standard output has no buffer.
// The program never outlives a minute.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iostream>
#include <string>

#include "kalve/kalve.h"

namespace {

enum ModelClass : int { BARN = KV_PROCESS + 1, COW, UDDER, STORE, STONE };
enum ModelDescriptor : int { BREED = 20, CALVINGS, WEIGHT, FEED, NOTE, MOTHER, TEMPER };

class Part : public Entity {
 public:
  explicit Part(int classId) { SetMetaClass(classId); }
  /// The end of a construction: only now the entity joins its class.
  void Join(const char* name) {
    AddInstanceToClass();
    SetInstanceName(name);
  }
};

Part* NewCow(const char* name, Entity* mother) {
  auto* cow = new Part(COW);
  cow->AddComponentClassId(UDDER);
  cow->AddConstantDescriptor(new StringConstantDescriptor(BREED, "breed"));
  cow->SetStringConstValue(BREED, "Normande");
  auto* calvings = new IntVariableDescriptor(CALVINGS, "calvings");
  calvings->SetSubDomain(0, 20);
  cow->AddVariableDescriptor(calvings);
  cow->AddVariableDescriptor(new DoubleVariableDescriptor(WEIGHT, "weight"));
  cow->AddVariableDescriptor(new FloatVariableDescriptor(FEED, "feed"));
  cow->AddVariableDescriptor(new StringVariableDescriptor(NOTE, "note"));
  cow->AddVariableDescriptor(new EntityVariableDescriptor(MOTHER, "mother"));
  cow->SetEntityVarValue(MOTHER, mother);
  cow->AddVariableDescriptor(new IntVariableDescriptor(TEMPER, "temper"), 1);
  cow->Join(name);
  return cow;
}

const char* const spareUdder = "spare-udder-of-a-cow-that-has-not-yet-been-born-1";  // of 49 characters

Part* NewUdder(const char* name) {
  auto* udder = new Part(UDDER);
  udder->Join(name);
  return udder;
}

/// With descriptors of all types, and some of types that no class has. "fixed" has lost its nature.
void MakeStore() {
  auto* store = new Part(STORE);
  int id = 40;
  const auto addConstant = [&](auto* descriptor) { store->AddConstantDescriptor(descriptor); };
  const auto addVariable = [&](auto* descriptor) { store->AddVariableDescriptor(descriptor); };
  const auto addAs = [&](ValueTypeId type, const char* name) {
    auto* const constant = new IntConstantDescriptor(id++, name);
    auto* const variable = new IntVariableDescriptor(id++, name);
    addConstant(constant);
    addVariable(variable);
    constant->ClassType(type);
    variable->ClassType(type);
  };
  addConstant(new IntConstantDescriptor(id++, "c_int"));
  addConstant(new FloatConstantDescriptor(id++, "c_float"));
  addConstant(new DoubleConstantDescriptor(id++, "c_double"));
  addConstant(new EntityConstantDescriptor(id++, "c_entity"));
  addConstant(new EntityTabConstantDescriptor(id++, "c_entities"));
  addConstant(new EntitySpecConstantDescriptor(id++, "c_spec"));
  addConstant(new IntDomainConstantDescriptor(id++, "c_ints"));
  addConstant(new FloatDomainConstantDescriptor(id++, "c_floats"));
  addConstant(new DoubleDomainConstantDescriptor(id++, "c_doubles"));
  addConstant(new DescValueSpecTabConstantDescriptor(id++, "c_conditions"));
  addConstant(new StringTabConstantDescriptor(id++, "c_texts"));
  addConstant(new FloatTabConstantDescriptor(id++, "c_floatTab"));
  addVariable(new EntityTabVariableDescriptor(id++, "entities"));
  addVariable(new EntitySpecVariableDescriptor(id++, "spec"));
  addVariable(new IntDomainVariableDescriptor(id++, "ints"));
  addVariable(new FloatDomainVariableDescriptor(id++, "floats"));
  addVariable(new DoubleDomainVariableDescriptor(id++, "doubles"));
  addVariable(new DescValueSpecTabVariableDescriptor(id++, "conditions"));
  addVariable(new StringTabVariableDescriptor(id++, "texts"));
  addAs(BOOLEAN, "asBoolean");
  addAs(P_DESCVALUESPEC, "asCondition");
  addAs(P_EVENT, "asEvent");
  addConstant(new IntTabConstantDescriptor(id++, "c_intTab"));
  addConstant(new DoubleTabConstantDescriptor(id++, "c_doubleTab"));
  for (const auto& [type, name] :
       {std::pair(INT_TAB, "asIntTab"), {FLOAT_TAB, "asFloatTab"}, {DOUBLE_TAB, "asDoubleTab"}}) {
    auto* const variable = new IntVariableDescriptor(id++, name);
    addVariable(variable);
    variable->ClassType(type);
  }
  auto* fixed = new IntVariableDescriptor(id++, "fixed");
  addVariable(fixed);
  fixed->Subclass(CONSTANT);
  addVariable(new StringVariableDescriptor(id++, "last"));
  store->Join("store");
}

Part* Named(const char* name) { return static_cast<Part*>(GetNamedEntity(name)); }

void Post(const char* name, int clock, int priority, void (*body)(EventMethod*)) {
  auto* event = new Event(name);
  event->HasPostConsequence(1);
  event->SetPostConsequence(body);
  if (pCurrentSim->InsertInAgendaEvents(event, priority, clock) == 0) event->DeleteInDepth();
}

void Weigh(EventMethod*) {
  auto* cow = Named("marguerite");
  cow->SetDoubleVarValue(WEIGHT, cow->GetDoubleVarValue(WEIGHT) + 5.25);
}

void Calve(EventMethod*) {
  auto* mother = Named("marguerite");
  mother->SetIntVarValue(CALVINGS, mother->GetIntVarValue(CALVINGS) + 1);
  Named("barn")->AddElement(NewCow("violette", mother));
  Named("violette")->AddComponent(NewUdder("udder_3"));
}

void Sell(EventMethod*) {
  Named("barn")->RemoveElement(Named("blanchette"));
  DeleteEntity(Named(spareUdder));
}

void Tick(EventMethod*) { Post("tick", pCurrentSim->Clock() + 1, 50, Tick); }

/// The weight of cows is recorded and drawn, of their feed only the last value is, and udders are listed.
void DeclareOutputs() {
  auto* changes = new OutputFileMDescOS(CLOCK, 1, 1, 0, GRAPH_LINE, AOE_ALL);
  changes->RegisterEntityOS("Cow");
  changes->AddDescriptorOS("weight", 2);
  auto* ends = new OutputFileMDescOS(CLOCK, 0, 0, 1, GRAPH_POINT, AOE_END);
  ends->RegisterEntityOS("Cow");
  ends->AddDescriptorOS("feed", 1);
  SetEntityStructureOS("Udder", CLOCK, 1, 0, 0, "", "", "", OM_APPEND);
}

void MakeModel() {
  K_InstallMetaClasses();
  for (const auto& [id, name] :
       {std::pair(BARN, "Barn"), {COW, "Cow"}, {UDDER, "Udder"}, {STORE, "Store"}, {STONE, "Stone"}})
    CreateMetaClass(id, name)->SetParentClassId(KV_ENTITY);
  SetHierarchy();
  for (int id : {STORE, STONE}) GetMetaClass(id)->UserInstantiable(0);
  DeclareOutputs();
  auto* barn = new Part(BARN);
  barn->ElementClassId(COW);
  barn->Join("barn");
  pCurrentSim->SimulatedEntity(barn);
  auto* marguerite = NewCow("marguerite", nullptr);
  marguerite->SetDoubleVarValue(WEIGHT, 612.5);
  marguerite->AddComponent(NewUdder("udder_1"));
  marguerite->SetIntVarValue(CALVINGS, 3);
  barn->AddElement(marguerite);
  barn->AddElement(NewCow("blanchette", marguerite));
  MakeStore();
  auto* stone = new BasicEntity();
  stone->SetMetaClass(STONE);
  stone->AddInstanceToClass();
  stone->SetInstanceName("stone");
  NewUdder(spareUdder);
  Post("weighing", 10, 20, Weigh);
  Post("calving", 20, 10, Calve);
  Post("weighing", 20, 30, Weigh);
  Post("sale", 35, 10, Sell);
  Post("weighing", 60, 20, Weigh);
}

}  // namespace

int main(int argc, char** argv) {
  alarm(60);
  const auto has = [&](const char* word) {
    return std::any_of(argv, argv + argc, [&](const char* given) { return std::strcmp(given, word) == 0; });
  };
  if (has("loose")) std::ios::sync_with_stdio(false);
  if (has("bare")) std::setvbuf(stdout, nullptr, _IONBF, 0);
  setenv("TZ", "UTC0", 1);
  tzset();
  pCurrentSim = new Simulation();
  pCurrentSim->ClockTimeUnit(HOUR);
  pCurrentSim->ClockTimeUnitQuantity(1);
  pCurrentSim->SetBeginningDate(1, 4, 2008, 6, 30, 0);
  if (has("end")) pCurrentSim->SetEndDate(3, 4, 2008, 18, 30, 0);
  MakeModel();
  if (has("endless")) Post("tick", 61, 50, Tick);
  if (has("clock")) {
    InitChrono();
    StartChrono();
  }
  std::cout << "Ready" << std::endl;
  pCurrentSim->Run(has("limit") ? 3 : K_INTMAX);
  std::cout << "Run is over" << std::endl;
}
