#include "examples/herd/HerdClasses.h"

#include <cstdio>
#include <cstring>
#include <memory>

// A constructor says what the entity may hold, where it may stand and what describes it, and joins its class
// at the end.

namespace {

struct DescriptorRow {
  HerdDescriptor id;
  const char* name;
};
constexpr DescriptorRow descriptorRows[] = {
    {AREA, "area"},          {NITROGEN, "nitrogen"},       {GRASS, "grass"}, {IS_OPEN, "isOpen"},
    {HALF_DAYS, "halfDays"}, {GRAZED, "grazed"},           {HAY, "hay"},     {PLACE, "place"},
    {TANK, "tank"},          {TEMPERATURE, "temperature"}, {RAIN, "rain"},   {HEAT, "heat"},
    {BREED, "breed"},        {CALVINGS, "calvings"},       {TERM, "term"},   {DAYS_IN_MILK, "daysInMilk"},
    {WEIGHT, "weight"},      {INTAKE, "intake"},           {MILK, "milk"},   {SEASON_MILK, "seasonMilk"},
    {WITHHELD, "withheld"},  {CALVES, "calves"},           {SEX, "sex"},     {BIRTH_WEIGHT, "birthWeight"},
    {CAPACITY, "capacity"},
};

const char* NameOf(HerdDescriptor id) { return descriptorRows[id - AREA].name; }

template <class Descriptor>
Descriptor* New(HerdDescriptor id, const char* unit) {
  auto* const descriptor = new Descriptor(id, NameOf(id));
  descriptor->ClassUnity(unit);
  return descriptor;
}

DoubleVariableDescriptor* Measure(HerdDescriptor id, const char* unit, double low, double high) {
  auto* const measure = New<DoubleVariableDescriptor>(id, unit);
  measure->SetSubDomain(low, high);
  return measure;
}

IntVariableDescriptor* Count(HerdDescriptor id, const char* unit, int high) {
  auto* const count = New<IntVariableDescriptor>(id, unit);
  count->SetSubDomain(0, high);
  return count;
}

/// A change below the stubble stops there.
double LeaveStubble(MonitorMethod* change) {
  const double grass = change->GetDoubleArgValue(CANDIDATEDOUBLEVALUE_ARGUMENT);
  return grass < Paddock::stubble ? Paddock::stubble : grass;
}

/// Null, a refusal, once the herd is small.
BasicEntity* KeepSmallestHerd(MonitorMethod* removal) {
  const BasicEntity* herd = removal->GetBasicEntityArgValue(CURRENTENTITYCONTAINER_ARGUMENT);
  if (herd->GetNumberOfElements() <= Herd::smallest) return nullptr;
  return removal->GetBasicEntityArgValue(CANDIDATEENTITYELEMENT_ARGUMENT);
}

DoubleDescValueMonitor* stubbleMonitor = nullptr;
StructureMonitor* herdMonitor = nullptr;

}  // namespace

Farm::Farm() {
  ElementClassId(FARM_UNIT);
  AddVariableDescriptor(Measure(TEMPERATURE, "degC", -20.0, 50.0));
  AddVariableDescriptor(Measure(RAIN, "mm", 0.0, 300.0));
  AddVariableDescriptor(Measure(HEAT, "degC", 0.0, 20.0));
  SetMetaClass(FARM);
  AddInstanceToClass();
}

FarmUnit::FarmUnit() {
  SuperSetClassId(FARM);
  SetMetaClass(FARM_UNIT);
  AddInstanceToClass(0);  // the entity belongs to a more special class, which names it
}

Herd::Herd() {
  ElementClassId(COW);
  AddVariableDescriptor(new EntityVariableDescriptor(PLACE, NameOf(PLACE)));
  AddVariableDescriptor(New<DoubleVariableDescriptor>(TANK, "kg"));
  SetMetaClass(HERD);
  AddInstanceToClass();
  if (herdMonitor != nullptr) herdMonitor->AttachToEntity(this);
}

Paddock::Paddock() {
  AddConstantDescriptor(New<DoubleConstantDescriptor>(AREA, "ha"));
  AddConstantDescriptor(New<DoubleConstantDescriptor>(NITROGEN, "kg/ha"));
  AddVariableDescriptor(Measure(GRASS, "kg/ha", 0.0, 8000.0));
  AddVariableDescriptor(Count(IS_OPEN, "", 1));
  AddVariableDescriptor(New<IntVariableDescriptor>(HALF_DAYS, "d/2"));
  AddVariableDescriptor(New<DoubleVariableDescriptor>(GRAZED, "kg/ha"));
  AddVariableDescriptor(New<DoubleVariableDescriptor>(HAY, "kg/ha"));
  SetMetaClass(PADDOCK);
  AddInstanceToClass();
  if (stubbleMonitor != nullptr) stubbleMonitor->AttachToDescriptor(this, GRASS);
}

Cow::Cow() {
  SuperSetClassId(HERD);
  AddComponentClassId(UDDER);
  auto* const breed = new StringConstantDescriptor(BREED, NameOf(BREED));
  for (const char* known : {"Montbéliarde", "Holstein", "Salers", "Normande"}) breed->AddSubDomain(known);
  AddConstantDescriptor(breed);
  AddVariableDescriptor(Count(CALVINGS, "", 20));
  AddVariableDescriptor(Count(TERM, "d", 366));
  AddVariableDescriptor(Count(DAYS_IN_MILK, "d", 1000));
  AddVariableDescriptor(Measure(WEIGHT, "kg", 300.0, 1000.0));
  AddVariableDescriptor(Measure(INTAKE, "kg", 0.0, 40.0));
  AddVariableDescriptor(Measure(MILK, "kg/d", 0.0, 80.0));
  AddVariableDescriptor(New<DoubleVariableDescriptor>(SEASON_MILK, "kg"));
  AddVariableDescriptor(Count(WITHHELD, "", 100));
  AddVariableDescriptor(new EntityTabVariableDescriptor(CALVES, NameOf(CALVES)));
  SetMetaClass(COW);
  AddInstanceToClass();
}

Calf::Calf() {
  AddConstantDescriptor(new StringConstantDescriptor(SEX, NameOf(SEX)));
  AddConstantDescriptor(New<DoubleConstantDescriptor>(BIRTH_WEIGHT, "kg"));
  SetMetaClass(CALF);
  AddInstanceToClass();
}

Udder::Udder() {
  AddConstantDescriptor(New<DoubleConstantDescriptor>(CAPACITY, "kg"));
  SetMetaClass(UDDER);
  AddInstanceToClass();
}

namespace {

struct ClassRow {
  HerdClass id;
  const char* name;
  int parentId;
  Entity* (*make)();  ///< null for a class without instances of its own
};

template <class Made>
Entity* Make() {
  return new Made;
}

constexpr ClassRow classRows[] = {
    {FARM, "Farm", KV_ENTITY, Make<Farm>},    {FARM_UNIT, "FarmUnit", KV_ENTITY, nullptr},
    {HERD, "Herd", FARM_UNIT, Make<Herd>},    {PADDOCK, "Paddock", FARM_UNIT, Make<Paddock>},
    {COW, "Cow", KV_ENTITY, Make<Cow>},       {CALF, "Calf", KV_ENTITY, Make<Calf>},
    {UDDER, "Udder", KV_ENTITY, Make<Udder>},
};

Entity* MadeOf(const ClassRow& row) { return row.make != nullptr ? row.make() : nullptr; }

}  // namespace

void InstallHerdClasses() {
  K_InstallMetaClasses();
  for (const ClassRow& row : classRows) {
    MetaClass* const metaClass = CreateMetaClass(row.id, row.name);
    metaClass->SetParentClassId(row.parentId);
    metaClass->UserInstantiable(row.make != nullptr ? 1 : 0);
  }
  SetHierarchy();
}

void MakeHerdMonitors() {
  stubbleMonitor = new DoubleDescValueMonitor("stubble");
  stubbleMonitor->AssignWhenSetDoubleMethod(LeaveStubble);
  herdMonitor = new StructureMonitor("herdSize");
  herdMonitor->AssignWhenRemoveElementMethod(KeepSmallestHerd);
}

Entity* NewHerdEntity(const char* className) {
  for (const ClassRow& row : classRows)
    if (std::strcmp(row.name, className) == 0) return MadeOf(row);
  return nullptr;
}

Entity* NewHerdEntityOfId(int classId) {
  for (const ClassRow& row : classRows)
    if (row.id == classId) return MadeOf(row);
  return nullptr;
}

int HerdEnumToInt(const char* name) {
  for (const DescriptorRow& row : descriptorRows)
    if (std::strcmp(row.name, name) == 0) return row.id;
  for (const ClassRow& row : classRows)
    if (std::strcmp(row.name, name) == 0) return row.id;
  return K_INT_UNSIGNIFICANT;
}

namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OwnedFile = std::unique_ptr<std::FILE, FileCloser>;

void NameSymbol(Tableau<const char*>& names, int symbol, const char* name) {
  while (names.size() <= symbol) names.push_back("@");
  names[symbol] = name;
}

void FreeRows(Tableau<Tableau<int>*>& rows) {
  for (Tableau<int>* row : rows) delete row;
}

}  // namespace

void ExportHerdClasses() {
  for (const DescriptorRow& row : descriptorRows) NameSymbol(DescIdToCharTab, row.id, row.name);
  for (const ClassRow& row : classRows) {
    NameSymbol(ClassIdToCharTab, row.id, row.name);
    if (row.make != nullptr && GetNumberOfEntities(row.id) == 0) row.make();
  }
  const OwnedFile classes(std::fopen("herd_classes.cls", "w"));
  const OwnedFile descriptors(std::fopen("herd_descriptors.cls", "w"));
  const OwnedFile methods(std::fopen("herd_methods.cls", "w"));
  if (classes == nullptr || descriptors == nullptr || methods == nullptr) {
    std::perror("herd: the class files");
    return;
  }
  Tableau<Tableau<int>*> descriptorRowsOfClasses;
  Tableau<Tableau<int>*> methodRowsOfClasses;
  WriteToCls(classes.get(), descriptors.get(), methods.get(), descriptorRowsOfClasses, methodRowsOfClasses);
  FreeRows(descriptorRowsOfClasses);
  FreeRows(methodRowsOfClasses);
}
