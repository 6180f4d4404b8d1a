#include "kalve/descriptors/PredefinedAttributes.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/inputs/OutputFile.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/model/MetaClass.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/monitors/StructureMonitor.h"
#include "kalve/specs/EntitySpec.h"

namespace {

constexpr int shownToTheUser = 1;
constexpr int withoutInstanceTab = 0;

void EmptyInstanceTables() {
  DescValueMonitor::mpInstanceTab.erase(10);
  EntitySpec::mpInstanceTab.erase(10);
  OutputFile::mpInstanceTab.erase(10);
  StructureMonitor::mpInstanceTab.erase(10);
}

void MakeNameTables() {
  MakeClassIdToCharTab();
  MakeDescIdToCharTab();
  MakeMethodIdToCharTab();
  MakeArgumentIdToCharTab();
  K_MakeShortWeekDayNameToCharTab();
  K_MakeShortWeekDayNameToCharTab2();
  K_MakeShortMonthNameToCharTab();
  K_MakeShortMonthNameToCharTab2();
}

void InstallLayers() {
  gMetaClassTab.erase(100);
  gMetaClassIdTab.erase(100);
  CreateMetaClass(KV_BASIC_ENTITY, "basicEntity", shownToTheUser, withoutInstanceTab);
  CreateMetaClass(KV_DESCRIPTED_ENTITY, "descriptedEntity", shownToTheUser, withoutInstanceTab)
      ->SetParentClassId(KV_BASIC_ENTITY);
  CreateMetaClass(KV_ENTITY, "entity", shownToTheUser, withoutInstanceTab)
      ->SetParentClassId(KV_DESCRIPTED_ENTITY);
}

void ReserveIdentifiers() {
  g_KV_ReservedUserClassId = KV_PROCESS;
  g_KV_ReservedUserDescriptorId = 13;
  g_KV_ReservedUserMethodId = 60;
  g_KV_ReservedUserArgumentId = 50;
  g_KV_ReservedUserEventId = 3;
  g_KV_ReservedUserProcessId = K_INT_UNSIGNIFICANT;
  g_KV_ReservedUserFileId = K_INT_UNSIGNIFICANT;
}

}  // namespace

void K_InstallMetaClasses() {
  EmptyInstanceTables();
  MakeNameTables();
  InstallLayers();
  ReserveIdentifiers();
}
