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

 private:
  void BecomeCopy();
};
