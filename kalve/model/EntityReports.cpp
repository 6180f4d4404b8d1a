// Lists of entities on standard output and in the log.
#include <cstdio>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/model/MetaClass.h"

std::FILE* pLogFile = nullptr;

namespace {

template <class Layer>
void WriteNames(std::FILE* file, const Tableau<Layer*>& entities, int limit) {
  if (entities.empty()) {
    std::fputs("tableau de taille nulle ", file);
    return;
  }
  std::fputs("(", file);
  for (const Layer* entity : entities)
    if (IsLivingEntity(entity) && limit-- > 0) std::fprintf(file, "%s ", entity->InstanceName());
  std::fputs(")", file);
}

}  // namespace

void DisplayEntities(int classId) {
  const MetaClass* const metaClass = GetMetaClass(classId);
  if (metaClass == nullptr || metaClass->Instances().empty() != 0) {
    const std::string name = metaClass != nullptr ? metaClass->ClassName() : ClassSymbolText(classId);
    std::printf("\n!!! Aucune instances de la classe %s", name.c_str());
    return;
  }
  const Tableau<BasicEntity*>& instances = metaClass->Instances();
  std::printf("\n%d instances de la classe %s : ", instances.size(), metaClass->ClassName());
  for (const BasicEntity* instance : instances) std::printf("%p ", static_cast<const void*>(instance));
}

void DisplayEntityNames(const Tableau<BasicEntity*>& entities) { WriteNames(stdout, entities, K_INTMAX); }
void DisplayEntityNames(const Tableau<DescriptedEntity*>& entities) {
  WriteNames(stdout, entities, K_INTMAX);
}
void DisplayEntityNames(const Tableau<BasicEntity*>& entities, int limit) {
  WriteNames(stdout, entities, limit);
}
void DisplayEntityNames(const Tableau<DescriptedEntity*>& entities, int limit) {
  WriteNames(stdout, entities, limit);
}

void LogEntityNames(const Tableau<BasicEntity*>& entities) {
  if (pLogFile != nullptr) WriteNames(pLogFile, entities, K_INTMAX);
}

void OpenLogFile() { pLogFile = std::fopen("K_logFile", "a+"); }

void ForceToStdout() {
  std::printf("STDOUT%s", gGlobalString);
  std::fflush(stdout);
}
