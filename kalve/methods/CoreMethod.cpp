#include "kalve/methods/CoreMethod.h"

#include <array>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/NameTables.h"
#include "kalve/foundations/Tableau.h"

namespace {

// These lists stand on their own: input files and messages carry the names at these very places, and some
// are not those of the ids of the classes (PredefinedIds.h).
// clang-format off
constexpr std::array methodNames = {
    /* 0 */  "@", "PROCESS_PRECONDITION", "PROCESS_POSTPONEMENT_DELAY", "EXEC_PROCESS", "INITIALIZE_PROCESS",
             "GOONESTEPFORWARD_PROCESS", "STOP_PROCESS", "@", "@", "@",
    /* 10 */ "@", "EVENT_POSTCONSEQUENCE", "GENERATE_NEXTEVENT", "UPDATE_NEXTEVENT",
             "DEFINE_NEXTEVENTCLOCKTIME", "RANDOMIZE_THISEVENTCLOCKTIME", "RANDOMIZE_NEXTEVENTCLOCKTIME",
             "IS_POPPING_TO_SUSPEND", "@", "@",
    /* 20 */ "@", "WHEN_SET_INT", "WHEN_SET_FLOAT", "WHEN_SET_DOUBLE", "WHEN_SET_ENTITY",
             "WHEN_SET_ENTITYTAB", "WHEN_SET_STRING", "WHEN_SET_DESCVALUESPECTAB", "@", "@",
    /* 30 */ "@", "WHEN_GET_INT", "WHEN_GET_FLOAT", "WHEN_GET_DOUBLE", "WHEN_GET_ENTITY",
             "WHEN_GET_ENTITYTAB", "WHEN_GET_STRING", "WHEN_GET_DESCVALUESPECTAB", "@", "@",
    /* 40 */ "@", "WHEN_ADD_ENTITY", "WHEN_ADD_DESCVALUESPEC", "WHEN_REMOVE_ENTITY",
             "WHEN_REMOVE_DESCVALUESPEC", "WHEN_ADD_ELEMENT", "WHEN_REMOVE_ELEMENT", "@", "@", "@",
    /* 50 */ "@", "SELECTOR_PREDICATE", "ENTITY_INSTANTIATOR", "ENTITYLIST_INSTANTIATOR",
             "QUANTITY_EVALUATOR", "@", "@", "SPEC_SATISFIED", "@", "@",
    /* 60 */ "@",
};
static_assert(methodNames.size() == 61);

constexpr std::array argumentNames = {
    /* 0 */  "@", "DESCRIPTORID_ARGUMENT", "LISTSIZE_ARGUMENT", "@", "@", "@", "@", "@", "@", "@",
    /* 10 */ "@", "INT_LOW_BOUND_ARGUMENT", "INT_UPPER_BOUND_ARGUMENT", "PREVIOUS_EVENT_ARGUMENT", "@",
             "MONITOREDDESCRIPTOR_ARGUMENT", "@", "@", "@", "@",
    /* 20 */ "@", "CURRENTINTVALUE_ARGUMENT", "CURRENTFLOATVALUE_ARGUMENT", "CURRENTDOUBLEVALUE_ARGUMENT",
             "CURRENTSTRINGVALUE_ARGUMENT", "CURRENTENTITYVALUE_ARGUMENT", "CURRENTENTITYTABVALUE_ARGUMENT",
             "CURRENTDESCVALUESPECTABVALUE_ARGUMENT", "@", "@",
    /* 30 */ "@", "CANDIDATEINTVALUE_ARGUMENT", "CANDIDATEFLOATVALUE_ARGUMENT",
             "CANDIDATEDOUBLEVALUE_ARGUMENT", "CANDIDATESTRINGVALUE_ARGUMENT",
             "CANDIDATEENTITYVALUE_ARGUMENT", "CANDIDATEENTITYTABVALUE_ARGUMENT",
             "CANDIDATEDESCVALUESPECVALUE_ARGUMENT", "CANDIDATEDESCVALUESPECTABVALUE_ARGUMENT", "@",
    /* 40 */ "CURRENTENTITYCONTAINER_ARGUMENT", "CANDIDATEENTITYELEMENT_ARGUMENT", "@",
             "CANDIDATEENTITY_ARGUMENT", "REFERENCEENTITY_ARGUMENT", "CLASSID_ARGUMENT", "LISTSIZE_ARGUMENT",
             "@", "@", "@",
};
static_assert(argumentNames.size() == 50);
// clang-format on

void Fill(Tableau<const char*>& table, int& tableSize, const auto& names) {
  table.erase(100);
  for (const char* name : names) table.push_back(name);
  tableSize = table.size();
}

const char* NameOf(int id, const Tableau<const char*>& table, const char* where) {
  if (id < 0 || id >= table.size()) FailOnIndex(where, table.size(), id);
  return table[id];
}

}  // namespace

void MakeMethodIdToCharTab() { Fill(MethodIdToCharTab, gMethodIdToCharTabSize, methodNames); }
void MakeArgumentIdToCharTab() { Fill(ArgumentIdToCharTab, gArgumentIdToCharTabSize, argumentNames); }

const char* MethodIdToString(int id) { return NameOf(id, MethodIdToCharTab, "MethodIdToString"); }
const char* ArgumentIdToString(int id) { return NameOf(id, ArgumentIdToCharTab, "ArgumentIdToString"); }

bool gAlwaysTrue(EntityMethod* /*method*/) { return true; }
bool gAlwaysTrue(EntitySpecMethod* /*method*/) { return true; }
bool gAlwaysTrue(EventMethod* /*method*/) { return true; }
bool gAlwaysFalse(EntityMethod* /*method*/) { return false; }
bool gAlwaysFalse(EntitySpecMethod* /*method*/) { return false; }
bool gAlwaysFalse(EventMethod* /*method*/) { return false; }
