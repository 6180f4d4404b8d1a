// Events on loan to a test: freed in depth, with their methods, at the end of the scope.
#pragma once

#include <memory>

#include "kalve/engine/Event.h"

struct DeepDelete {
  template <class T>
  void operator()(T* object) const {
    object->DeleteInDepth();
  }
};

using OwnedEvent = std::unique_ptr<Event, DeepDelete>;

template <class... Arguments>
OwnedEvent MakeEvent(Arguments... arguments) {
  return OwnedEvent(new Event(arguments...));
}
