// Arguments of every type, for tables of types.
#pragma once

#include <tuple>

#include "kalve/methods/Argument.h"

using ArgumentClasses =
    std::tuple<IntArgument, FloatArgument, DoubleArgument, StringArgument, EntityArgument, EntityTabArgument,
               IntDomainArgument, DescValueSpecArgument, DescValueSpecTabArgument, IntTabArgument,
               FloatTabArgument, DoubleTabArgument, EventArgument, DescriptorArgument>;

/// Calls visit.operator()<Class>() for each class of arguments.
template <class Visit>
void ForEachArgumentClass(Visit visit) {
  [&]<class... Classes>(std::tuple<Classes...>*) {
    (visit.template operator()<Classes>(), ...);
  }(static_cast<ArgumentClasses*>(nullptr));
}

/// A new argument of the type with the given id.
inline Argument* NewArgument(ValueTypeId type, int id) {
  Argument* made = nullptr;
  ForEachArgumentClass([&]<class Class>() {
    if (Class::type == type) made = new Class(id, "argument");
  });
  return made;
}
