// Copying and destruction of descriptors by their tags.
#include <new>

#include "kalve/descriptors/VisitDescriptor.h"

Descriptor* NewDescriptorCopy(const Descriptor& source) {
  Descriptor* copy = nullptr;
  VisitDescriptor(source, [&copy]<class Class>(const Class& original) { copy = new Class(original); });
  return copy;
}

void DestroyDescriptor(Descriptor* descriptor) {
  if (descriptor == nullptr) return;
  // Unsized: the object may be of a class derived from the visited one.
  VisitDescriptor(*descriptor, []<class Class>(Class& object) {
    object.~Class();
    ::operator delete(&object);
  });
}
