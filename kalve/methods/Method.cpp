#include "kalve/methods/Method.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <unordered_map>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/methods/Argument.h"

int Method::mInstanceNumber = 0;
int Method::_nbConst = 0;
int Method::_nbDest = 0;
constinit BlockPool Method::pool{sizeof(VoidEventMethod)};

Method::Method(ObjectClassId branch, ValueTypeId type, int id, const char* name)
    : mObjectClass(static_cast<std::uint8_t>(branch)),
      mClassType(static_cast<std::uint8_t>(type)),
      mClassSymbol(id),
      mClassName(name) {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n+Construction de la méthode %p", static_cast<const void*>(this));
  ++_nbConst;
}

namespace {

/// Comments are rare, and methods many. The table outlives every method.
std::unordered_map<const Method*, std::string>& Comments() {
  static auto& comments = *new std::unordered_map<const Method*, std::string>;
  return comments;
}

constexpr ValueTypeSet copiedArguments = {
    INT,     FLOAT,       DOUBLE, STRING, P_ENTITY, ENTITY_TAB, INTDOMAIN, P_DESCVALUESPEC, DESCVALUESPEC_TAB,
    P_EVENT, P_DESCRIPTOR};

}  // namespace

Method::Method(const Method& other)
    : mObjectClass(other.mObjectClass),
      mClassType(other.mClassType),
      mClassSymbol(other.mClassSymbol),
      mClassName(other.mClassName),
      mBody(other.mBody) {
  if (other.mHasComment) ClassShortComment(other.ClassShortComment());
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n+Copie construction de la méthode %p <- %p", static_cast<const void*>(this),
                static_cast<const void*>(&other));
  for (const Argument* argument : other.mArgumentTab)
    if (copiedArguments.Has(argument->ClassType())) AddArg(NewArgumentCopy(*argument));
  ++_nbConst;
}

Method::~Method() {
  if (g_KV_TraceNewDelMode != 0)
    std::printf("\n-Destruction de la méthode %p", static_cast<const void*>(this));
  for (Argument* argument : mArgumentTab) DestroyArgument(argument);
  if (mHasComment) Comments().erase(this);
  RemoveInstance(this);
  ++_nbDest;
}

void Method::RemoveInstance(Method* /*method*/) { --mInstanceNumber; }

char* Method::ClassName() const { return strdup(OrEmpty(mClassName)); }

const char* Method::ClassShortComment() const { return mHasComment ? Comments()[this].c_str() : ""; }

void Method::ClassShortComment(const char* comment) {
  Comments()[this] = std::string(OrEmpty(comment));
  mHasComment = true;
}

// Arguments --------------------------------------------------------------------------------------------

Tableau<Argument*> ArgumentSlots::Table() const {
  Tableau<Argument*> table(size());
  for (Argument* argument : *this) table.push_back(argument);
  return table;
}

int ArgumentSlots::IdLimit() const {
  if (AreMany()) return mMany->ranks.size();
  int limit = 0;
  for (int rank = 0; rank < mCount; ++rank) limit = std::max(limit, mIds[rank] + 1);
  return limit;
}

void ArgumentSlots::Add(Argument* argument, int id) {
  if (!AreMany()) {
    const bool isNew = Rank(id) < 0 && std::find(begin(), end(), argument) == end();
    if (isNew && mCount < few && id <= std::numeric_limits<std::int16_t>::max()) {
      mFew[mCount] = argument;
      mIds[mCount++] = static_cast<std::int16_t>(id);
      return;
    }
    auto* const many = new Many;
    for (int rank = 0; rank < mCount; ++rank) {
      many->arguments.push_back(mFew[rank]);
      set_nth_num(many->ranks, mIds[rank], rank);
    }
    mMany = many;
    mCount = -1;
  }
  mMany->arguments.push_back_ifnew(argument);
  set_nth_num(mMany->ranks, id, mMany->arguments.size() - 1);
}

void Method::AddArg(Argument* argument) {
  const int id = argument->ClassSymbol();
  if (id < 0) FailOnIndex("Method::AddArg", mArgumentTab.IdLimit(), id);
  mArgumentTab.Add(argument, id);
}

Argument* Method::GetArg(int id) {
  const int rank = mArgumentTab.Rank(id);
  if (rank >= 0) return mArgumentTab.begin()[rank];
  if (id < 0 || id >= mArgumentTab.IdLimit()) FailOnIndex("Method::GetArg", mArgumentTab.IdLimit(), id);
  InexistantArgument(this, id);
}

void Method::TakeValues(const Method& source, const char* leafName, ValueTypeSet accepted) {
  for (int rank = 0; rank < source.mArgumentTab.size(); ++rank) {
    Argument* argument = source.mArgumentTab.begin()[rank];
    if (!accepted.Has(argument->ClassType())) UnsupportedArgumentType(leafName, argument);
    if (rank >= mArgumentTab.size()) FailOnIndex(leafName, mArgumentTab.size(), rank);
    Argument& own = *mArgumentTab.begin()[rank];
    if (own.ClassType() != argument->ClassType()) UnsupportedArgumentType(leafName, argument);
    AssignArgument(own, *argument);
  }
  mBody = source.mBody;
}

template <class Class>
Class& Method::TypedArg(int id, const char* operation) {
  Argument* argument = GetArg(id);
  if (argument->ClassType() != Class::type) BadArgumentType(id, mClassSymbol, operation);
  return static_cast<Class&>(*argument);
}

// One row for each type: argument class, type of the value, name of the getter, words of both failures.
#define KALVE_ARGUMENT_VALUE(Class, Value, Getter, setWords, getWords)                             \
  void Method::SetArgValue(int id, Value value) { TypedArg<Class>(id, setWords).SetValue(value); } \
  Value Method::Getter(int id) { return TypedArg<Class>(id, getWords).GetValue(); }

KALVE_ARGUMENT_VALUE(IntArgument, int, GetIntArgValue, "set arg value int", "get arg value int")
KALVE_ARGUMENT_VALUE(FloatArgument, float, GetFloatArgValue, "set arg value float", "get arg value float")
KALVE_ARGUMENT_VALUE(DoubleArgument, double, GetDoubleArgValue, "set arg value double",
                     "get arg value double")
KALVE_ARGUMENT_VALUE(StringArgument, const char*, GetStringArgValue, "set arg value string",
                     "get arg value string")
KALVE_ARGUMENT_VALUE(EntityArgument, BasicEntity*, GetBasicEntityArgValue, "set arg value entity",
                     "get arg value entity")
KALVE_ARGUMENT_VALUE(EntityTabArgument, Tableau<BasicEntity*>*, GetEntityTabArgValue,
                     "set arg value entitytab", "get arg value entitytab")
KALVE_ARGUMENT_VALUE(IntDomainArgument, Tableau<IntInterval*>*, GetIntDomainArgValue,
                     "set arg value int domain", "get arg value int domain")
KALVE_ARGUMENT_VALUE(DescValueSpecArgument, DescValueSpec*, GetDescValueSpecArgValue,
                     "set arg value DescValueSpec", "get arg value DVS")
KALVE_ARGUMENT_VALUE(DescValueSpecTabArgument, Tableau<DescValueSpec*>*, GetDescValueSpecTabArgValue,
                     "set arg value DescValueSpectab", "get arg value DVSTab")
KALVE_ARGUMENT_VALUE(IntTabArgument, Tableau<int>*, GetIntTabArgValue, "set arg value intTab",
                     "get arg value IntTab")
KALVE_ARGUMENT_VALUE(FloatTabArgument, Tableau<float>*, GetFloatTabArgValue, "set arg value floatTab",
                     "get arg value FloatTab")
KALVE_ARGUMENT_VALUE(DoubleTabArgument, Tableau<double>*, GetDoubleTabArgValue, "set arg value doubleTab",
                     "get arg value DoubleTab")
KALVE_ARGUMENT_VALUE(EventArgument, Event*, GetEventArgValue, "set arg value event", "get arg value event")
KALVE_ARGUMENT_VALUE(DescriptorArgument, Descriptor*, GetDescriptorArgValue, "set arg value descriptor",
                     "get arg value descriptor")
#undef KALVE_ARGUMENT_VALUE

// By the tags ------------------------------------------------------------------------------------------

void AssignMethod(Method& target, const Method& source) {
  MethodLeaves::VisitLeaf(source, [&target]<class Leaf>(const Leaf& leaf) {
    target.TakeValues(leaf, Leaf::leafName, Leaf::accepted);
  });
}
