// DescriptedEntity: the second layer of entities, which has attributes.
#pragma once

#include "kalve/model/BasicEntity.h"

class DescriptedEntity : public BasicEntity {
 public:
  DescriptedEntity();
  /// The four forms of BasicEntity.
  DescriptedEntity(const DescriptedEntity& source);
  DescriptedEntity(const DescriptedEntity& source, int depth);
  DescriptedEntity(const DescriptedEntity& source, bool withMonitors);
  DescriptedEntity(const DescriptedEntity& source, bool withMonitors, int depth);
  DescriptedEntity& operator=(const DescriptedEntity&) = delete;
  ~DescriptedEntity();

  /// Kept out of the sets that entity specifications give. Copies start with 0.
  int IsEngineManaged() const { return mIsEngineManaged; }
  void IsEngineManaged(int flag) { mIsEngineManaged = flag; }

 private:
  void BecomeCopy();

  int mIsEngineManaged = 0;
};
