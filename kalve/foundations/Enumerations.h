// The enumerations of the whole kernel and their texts. The numbers are part of the system: output files,
// the control protocol and input files carry them, and tables are indexed by them.
//
// The texts are constants of the kernel: nobody frees them.
#pragma once

#include "kalve/foundations/Forward.h"

/// A truth value in fields and parameters where files and tables carry 0 and 1.
using Boolean = int;

/// Type of a value: the tag of descriptors, arguments, methods, parameters and series items.
enum ValueTypeId : int {
  VOID = 0,
  BOOLEAN = 1,
  INT = 2,
  FLOAT = 3,
  DOUBLE = 4,
  STRING = 5,
  P_ENTITY = 6,
  ENTITY_TAB = 7,
  P_ENTITYSPEC = 8,
  INTDOMAIN = 9,
  FLOATDOMAIN = 10,
  DOUBLEDOMAIN = 11,
  P_DESCVALUESPEC = 12,
  DESCVALUESPEC_TAB = 13,
  STRING_TAB = 14,
  INT_TAB = 15,
  FLOAT_TAB = 16,
  DOUBLE_TAB = 17,
  P_EVENT = 18,
  P_DESCRIPTOR = 19,
  NO_VALUE = 20,  ///< a point of a series that has no value; printed as "_"
};

/// Reserved class symbols. 0 to 2 are the layers of entities; 3 to 6 tag kinds of objects that are no
/// entities. Classes of an application take symbols above 6.
enum ObjectClassId : int {
  KV_BASIC_ENTITY = 0,
  KV_DESCRIPTED_ENTITY = 1,
  KV_ENTITY = 2,
  KV_ENTITYSPEC = 3,
  KV_EVENT = 4,
  KV_MONITOR = 5,
  KV_PROCESS = 6,
};

/// What an event does to a process. Within one event the couples stand by rising number.
enum ActionType : int { INIT = 0, EXEC = 1, STOP = 2, PROCEED = 3, UNSPECIFIED_ACTION = 4 };

enum DescriptorSubclassId : int { CONSTANT = 1, VARIABLE = 2 };

enum ProcessSubclassId : int { DISCRETE_PROCESS = 0, CONTINUOUS_PROCESS = 1 };

/// Units of the simulated clock.
enum TimeUnit : int { DAY = 0, HOUR = 1, MINUTE = 2, SECOND = 3 };

/// How a run under dialogue goes on: with a pause before every event, with one when a step of the clock has
/// passed, freely, or not until a word comes.
enum DialogueMode : int { EVENTSTEP = 0, USERSTEP = 1, CONTINU = 2, WAITING_MODE = 3 };

/// How a date is printed; the formats themselves stand in CoreSimTime.h.
enum TimeType : int {
  CLOCK = 0,
  MIN_HOUR_YEARDAY = 1,
  YEARDAY_HOUR_MIN = 2,
  SIMDAY_HOUR_MIN = 3,
  HOUR_DAY_MONTH = 4,
  DAY_MONTH_YEAR = 5,
  ISO_8601 = 6,
};

/// Access to a file; any other value is refused.
enum AccesTypeId : int { READ_ACCESS = 1, WRITE_ACCESS = 2 };

/// How an output file is opened: OM_APPEND keeps what it holds ("a+"), any other value empties it ("w+").
enum OutputMode : int { OM_APPEND = 1, OM_OVERWRITE = 2 };

/// Tag of the classes of files.
enum FileClassType : int {
  LEXICAL_INPUT_FILE = 1,
  SERIAL_DATA_FILE = 2,
  SEQUENTIAL_DATA_FILE = 3,
  FACTUAL_DATA_FILE = 4,
  OUTPUT_FILE = 5,
};

/// Tag of output specifications.
enum OutputSpecType : int {
  OS_EVENT = 0,
  OS_PROCESS = 1,  ///< discrete and continuous processes together
  OS_CONTINUOUS_PROCESS = 2,
  OS_DISCRETE_PROCESS = 3,
  OS_ENTITY = 5,
};

/// Whether a series keeps every value change or only the last value.
enum AllOrEnd : int { AOE_ALL = 0, AOE_END = 1 };

/// How a user interface draws a series.
enum GraphType : int { GRAPH_POINT = 0, GRAPH_LINE = 1 };

/// Where the set of an entity specification comes from: living instances, or new ones.
enum EntitySpecMode : int { RETURN_INSTANCES = 1, INSTANTIATE = 2 };

/// How many entities a specification takes: the first n that qualify, or all.
enum QuantificatorId : int { NFIRST = 1, ALLENT = 2 };

/// Whether a value specification asks for values inside or outside its domain.
enum RelationalOperator : int { NOT_IN = 0, IN = 1 };

/// "VOID", "INT" and so on; "UNSPECIFIED_VALUETYPE" for NO_VALUE and for any other number.
const char* ValueTypeToChar(ValueTypeId type);

/// "KV_ENTITY" and so on; null for KV_ENTITYSPEC and above KV_PROCESS.
const char* ObjectClassToChar(ObjectClassId kind);

/// "INIT", "EXEC", "STOP", "PROCEED"; "UNSPECIFIED ACTION" for any other number.
const char* StringActionType(ActionType action);

/// "CONSTANT" or "VARIABLE"; null for any other number.
const char* DescriptorSubclassToChar(int subclass);

/// "DAY", "HOUR", "MINUTE", "SECOND"; null for any other number.
const char* TimeUnitToChar(TimeUnit unit);

/// The number of a unit's name. For another text the answer is the difference that `strcmp` found last and
/// may look like a unit: ask TimeUnitToChar to be sure.
int IndexUnite(const char* name);
