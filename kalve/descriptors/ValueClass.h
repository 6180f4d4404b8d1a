// What a value class of descriptors adds to its parent: its constructors (none, symbol, symbol and name),
// copies, and an assignment that moves the value fields alone and answers its right-hand side.
#pragma once

#define KALVE_DESCRIPTOR(Name, Parent)        \
 public:                                      \
  using Parent::Parent;                       \
  Name() = default;                           \
  Name(const Name&) = default;                \
  const Name& operator=(const Name& source) { \
    TakeValues(source);                       \
    return source;                            \
  }
