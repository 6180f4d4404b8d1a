// ChangeStructureItem: one dated change of an entity's structure in the record of its output specification.
#pragma once

#include <string>

#include "kalve/foundations/Forward.h"

class ChangeStructureItem {
 public:
  /// Keeps the class name's pointer and a copy of the instance name. `resultingNumber` is the number of
  /// elements after the change, or 1 and 0 for a component plugged and unplugged.
  ChangeStructureItem(const char* className, const char* instanceName, int clock, int resultingNumber)
      : mClassName(className),
        mInstanceName(instanceName),
        mClock(clock),
        mResultingNumber(resultingNumber) {}

  const char* GetClassName() const { return mClassName; }
  const char* GetInstanceName() const { return mInstanceName.c_str(); }
  int GetClock() const { return mClock; }
  int GetResultingNumber() const { return mResultingNumber; }

 private:
  const char* mClassName;
  std::string mInstanceName;
  int mClock;
  int mResultingNumber;
};
