#include "kalve/methods/Argument.h"

#include <cstdio>
#include <new>

#include "kalve/foundations/Records.h"
#include "kalve/foundations/TraceSwitches.h"

constinit BlockPool Argument::pool{sizeof(EventArgument)};
int Argument::_nbConst = 0;
int Argument::_nbDest = 0;

Argument::Argument(ValueTypeId type, int id, const char* name)
    : mClassType(type), mClassSymbol(id), mClassName(name) {
  ++_nbConst;
  TraceConstruction();
}

Argument::Argument(const Argument& other)
    : mClassType(other.mClassType), mClassSymbol(other.mClassSymbol), mClassName(other.mClassName) {
  ++_nbConst;
  TraceConstruction();
}

Argument::~Argument() {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("-Destruction de l'argument %p\n", static_cast<const void*>(this));
  ++_nbDest;
}

void Argument::TraceConstruction() const {
  if (g_KV_TraceNewDelMode == 0) return;
  if (mClassType == STRING) {
    std::printf("\n+Construction de l'argument STRING '%s' %x", mClassName, Address32(this));
    return;
  }
  const char* word = ValueTypeToChar(mClassType);
  if (mClassType == P_DESCVALUESPEC) word = "DESCVALUESPEC";
  if (mClassType == P_EVENT) word = "EVENT";
  std::printf("+Construction de l'argument %s %s\" %p\n", word, mClassName, static_cast<const void*>(this));
}

namespace {

/// Calls `visit` with the argument as its tagged class: the only place that goes from tag to class.
template <class Visit>
void VisitArgument(const Argument& argument, Visit visit) {
  switch (argument.ClassType()) {
    case INT:
      return visit(static_cast<const IntArgument&>(argument));
    case FLOAT:
      return visit(static_cast<const FloatArgument&>(argument));
    case DOUBLE:
      return visit(static_cast<const DoubleArgument&>(argument));
    case STRING:
      return visit(static_cast<const StringArgument&>(argument));
    case P_ENTITY:
      return visit(static_cast<const EntityArgument&>(argument));
    case ENTITY_TAB:
      return visit(static_cast<const EntityTabArgument&>(argument));
    case INTDOMAIN:
      return visit(static_cast<const IntDomainArgument&>(argument));
    case P_DESCVALUESPEC:
      return visit(static_cast<const DescValueSpecArgument&>(argument));
    case DESCVALUESPEC_TAB:
      return visit(static_cast<const DescValueSpecTabArgument&>(argument));
    case INT_TAB:
      return visit(static_cast<const IntTabArgument&>(argument));
    case FLOAT_TAB:
      return visit(static_cast<const FloatTabArgument&>(argument));
    case DOUBLE_TAB:
      return visit(static_cast<const DoubleTabArgument&>(argument));
    case P_EVENT:
      return visit(static_cast<const EventArgument&>(argument));
    case P_DESCRIPTOR:
      return visit(static_cast<const DescriptorArgument&>(argument));
    case VOID:
    case BOOLEAN:
    case P_ENTITYSPEC:
    case FLOATDOMAIN:
    case DOUBLEDOMAIN:
    case STRING_TAB:
    case NO_VALUE:
      return visit(argument);
  }
}

}  // namespace

Argument* NewArgumentCopy(const Argument& source) {
  Argument* copy = nullptr;
  VisitArgument(source, [&copy]<class Class>(const Class& argument) {
    if constexpr (!std::is_same_v<Class, Argument>) copy = new Class(argument);
  });
  return copy;
}

void AssignArgument(Argument& target, const Argument& source) {
  VisitArgument(source, [&target]<class Class>(const Class& argument) {
    if constexpr (!std::is_same_v<Class, Argument>) static_cast<Class&>(target) = argument;
  });
}

void DestroyArgument(Argument* argument) {
  VisitArgument(*argument, []<class Class>(const Class& tagged) { tagged.~Class(); });
  Argument::operator delete(argument);
}
