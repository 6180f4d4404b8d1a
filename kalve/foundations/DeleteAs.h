// Deletion of what an application may have derived from: nothing is virtual, so that only the allocation
// knows the true size.
#pragma once

#include <new>

/// Destroys the object as a Class and frees it.
template <class Class>
void DeleteAs(Class* object) {
  object->~Class();
  ::operator delete(static_cast<void*>(object));
}
