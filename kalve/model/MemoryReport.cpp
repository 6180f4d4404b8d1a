// The accounting of constructions and destructions, class by class.
#include <cstdio>

#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/File.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/MetaClass.h"
#include "kalve/monitors/StructureMonitor.h"
#include "kalve/specs/DescValueSpec.h"

namespace {

struct Row {
  const char* label;
  int (*constructions)();
  int (*destructions)();
};

template <class Class>
constexpr Row RowOf(const char* label) {
  return {label, &Class::getNbConst, &Class::getNbDest};
}

// Entities have no counters of their own: the class of their upper layer counts them.
int EntityConstructions() { return GetMetaClass(KV_ENTITY) != nullptr ? GetEntityCreations(KV_ENTITY) : 0; }
int EntityDestructions() { return GetMetaClass(KV_ENTITY) != nullptr ? GetEntityDeletions(KV_ENTITY) : 0; }

constexpr Row rows[] = {
    {"\nnb const/dest Entity            : ", EntityConstructions, EntityDestructions},
    RowOf<Event>("\nnb const/dest Event             : "),
    RowOf<ContinuousProcess>("\nnb const/dest ContinuousProcess : "),
    RowOf<DiscreteProcess>("\nnb const/dest DiscreteProcess   : "),
    RowOf<DescValueSpec>("\nnb const/dest DescValueSpec     : "),
    RowOf<StructureMonitor>("\nnb const/dest StructMonitor     : "),
    RowOf<Method>("\nnb const/dest Method            : "),
    RowOf<Argument>("\nnb const/dest Argument          : "),
    RowOf<File>("\nnb const/dest File              : "),
};

constexpr int columnWidth = 5;

}  // namespace

void MemoryReport() {
  for (const Row& row : rows) {
    char constructions[12];
    std::printf("%s%s %d", row.label, fillLeft(columnWidth, row.constructions(), constructions),
                row.destructions());
  }
  std::printf("\n");
}

void MemoryReport(int force) {
  if (force == 1 || g_KV_MemoryReportMode != 0) MemoryReport();
}
