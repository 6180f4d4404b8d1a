// Ready-made bodies for the methods of events. The default autogeneration stands in methods/CoreMethod.h.
#pragma once

#include "kalve/foundations/Forward.h"

/// Posts the continuation of the event's first process at the present clock, with the event's priority. 0
/// when that process is stopped, or the agenda refused.
int InsertProceedFromCurrentStateEvent(EventMethod* method);
int InsertProceedFromCurrentStateEvent(Method* method);
