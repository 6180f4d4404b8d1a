// Copy and deletion of processes by the class that their tag and marks tell.
#pragma once

#include "kalve/foundations/Forward.h"

/// A copy by the copy constructor of the true class; null for an unknown subclass. The caller owns it.
Process* CopyProcess(Process* process);
/// DeleteInDepth of the true class; nothing for an unknown subclass.
void DeleteProcessInDepth(Process* process);
/// Destroys and frees the process alone: whoever shares its methods keeps them.
void DeleteProcessShallowly(Process* process);
