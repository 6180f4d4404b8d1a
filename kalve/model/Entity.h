// Entity: the third layer of entities, which has methods; the usual base of an application's classes.
#pragma once

#include "kalve/model/DescriptedEntity.h"

class Entity : public DescriptedEntity {
 public:
  Entity();
  /// The four forms of BasicEntity.
  Entity(const Entity& source);
  Entity(const Entity& source, int depth);
  Entity(const Entity& source, bool withMonitors);
  Entity(const Entity& source, bool withMonitors, int depth);
  Entity& operator=(const Entity&) = delete;
  ~Entity();

 private:
  void BecomeCopyOf(const Entity& source);
};
