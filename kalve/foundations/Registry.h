// What the classes have in common whose living instances stand in a table that applications read: leaving it
// and looking into it. `operation` is the name that the failure prints.
#pragma once

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Tableau.h"

/// InexistantInstance when the instance is not in the table.
template <class T>
void TakeOut(Tableau<T*>& instances, T* instance, const char* operation) {
  const int rank = instances.position(instance);
  if (rank < 0) InexistantInstance(operation);
  instances.remove(rank);
}

/// An index failure out of range.
template <class T>
T* InstanceAt(const Tableau<T*>& instances, int rank, const char* operation) {
  if (rank < 0 || rank >= instances.size()) FailOnIndex(operation, instances.size(), rank);
  return instances[rank];
}
