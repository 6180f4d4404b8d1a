// The index failures that containers throw.
#pragma once

/// Whether the operation throws an index.
template <class Operation>
bool Throws(Operation operation) {
  try {
    operation();
  } catch (int) {
    return true;
  }
  return false;
}
