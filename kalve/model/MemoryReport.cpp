// The accounting of constructions and destructions, class by class.
#include <algorithm>
#include <cstdio>
#include <string>

#include "kalve/descriptors/Descriptor.h"
#include "kalve/engine/ContinuousProcess.h"
#include "kalve/engine/DiscreteProcess.h"
#include "kalve/engine/Event.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/File.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/MetaClass.h"
#include "kalve/monitors/DescValueMonitor.h"
#include "kalve/monitors/StructureMonitor.h"
#include "kalve/outputs/OutputSpec.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"

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
    RowOf<EntitySpec>("\nnb const/dest EntitySpec        : "),
    RowOf<Event>("\nnb const/dest Event             : "),
    RowOf<ContinuousProcess>("\nnb const/dest ContinuousProcess : "),
    RowOf<DiscreteProcess>("\nnb const/dest DiscreteProcess   : "),
    RowOf<Descriptor>("\nnb const/dest Descriptor        : "),
    {"\nnb const/dest Descriptor Const  : ", ConstantDescriptor::getNbConstC, ConstantDescriptor::getNbDestC},
    {"\nnb const/dest Descriptor Var    : ", VariableDescriptor::getNbConstV, VariableDescriptor::getNbDestV},
    RowOf<DescValueSpec>("\nnb const/dest DescValueSpec     : "),
    RowOf<StructureMonitor>("\nnb const/dest StructMonitor     : "),
    RowOf<DescValueMonitor>("\nnb const/dest DescValueMonitor  : "),
    RowOf<Method>("\nnb const/dest Method            : "),
    RowOf<Argument>("\nnb const/dest Argument          : "),
    RowOf<Parameter>("\nnb const/dest Parameter         : "),
    RowOf<File>("\nnb const/dest File              : "),
    RowOf<OutputSpec>("\nnb const/dest OutputSpec        : "),
};

/// Descriptors are the most numerous.
int ColumnWidth() { return std::max(5, static_cast<int>(std::to_string(Descriptor::getNbConst()).size())); }

}  // namespace

void MemoryReport() {
  for (const Row& row : rows) {
    char constructions[12];
    std::printf("%s%s %d", row.label, fillLeft(ColumnWidth(), row.constructions(), constructions),
                row.destructions());
  }
  std::printf("\n");
}

void MemoryReport(int force) {
  if (force == 1 || g_KV_MemoryReportMode != 0) MemoryReport();
}
