// Arguments: the typed, named slots of a method.
//
// A body takes no parameters but its method; what a call needs beyond the owner travels in the method's
// arguments. A caller writes a slot by id (Method::SetArgValue), the body reads it, and the slot keeps its
// last value between calls.
//
// An argument is built by the constructor of the method that it serves and belongs to it from AddArg on.
// Nothing is virtual: the tag ClassType() tells the class. What a slot does with its value (own it, share
// it, borrow it) is its keeping class, named in its row.
#pragma once

#include <string>

#include "kalve/foundations/BlockPool.h"
#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Holders.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"

class Argument {
 public:
  /// Counts, and nothing else.
  Argument() { ++_nbConst; }
  Argument& operator=(const Argument&) = delete;
  ~Argument();
  static void* operator new(std::size_t size) { return pool.Take(size); }
  static void operator delete(void* block) { pool.Give(block); }

  ValueTypeId ClassType() const { return mClassType; }
  void ClassType(ValueTypeId type) { mClassType = type; }
  /// The id by which SetArgValue and Get...ArgValue find the slot.
  int ClassSymbol() const { return mClassSymbol; }
  void ClassSymbol(int id) { mClassSymbol = id; }
  /// The pointer is kept, not the text; copies share it.
  const char* ClassName() const { return mClassName; }
  void ClassName(const char* name) { mClassName = name; }

  /// Constructions, copies included, and destructions.
  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }
  /// Arguments that count without an object of their own, as their methods do.
  static void CountUnmade(int constructions, int destructions) {
    _nbConst += constructions;
    _nbDest += destructions;
  }

 protected:
  Argument(ValueTypeId type, int id, const char* name);
  Argument(const Argument& other);

 private:
  void TraceConstruction() const;

  ValueTypeId mClassType = VOID;
  int mClassSymbol = K_INT_UNSIGNIFICANT;
  const char* mClassName = "";

  static BlockPool pool;  // for the slots of numbers and pointers
  static int _nbConst;
  static int _nbDest;
};

// Ways of keeping a value ------------------------------------------------------------------------------

/// The value as it stands; a pointer is borrowed.
template <class T>
class PlainValue {
 public:
  using Value = T;
  T Get() const { return mValue; }
  void Set(T value) { mValue = value; }

 private:
  T mValue{};
};

/// A text of its own, empty at first; null counts as empty. What Get answers lives until the next Set.
class TextValue {
 public:
  using Value = const char*;
  const char* Get() const { return mText.c_str(); }
  void Set(const char* text) { mText = std::string(text != nullptr ? text : ""); }

 private:
  std::string mText;
};

/// A borrowed table. A copy gets a new table that nobody frees; an assignment borrows the same one.
template <class Item>
class BorrowedTable {
 public:
  using Value = Tableau<Item>*;
  BorrowedTable() = default;
  BorrowedTable(const BorrowedTable& other)
      : mTable(other.mTable != nullptr ? new Tableau<Item>(*other.mTable) : nullptr) {}
  BorrowedTable& operator=(const BorrowedTable&) = default;
  Value Get() const { return mTable; }
  void Set(Value table) { mTable = table; }

 private:
  Value mTable = nullptr;
};

/// A table that dies with the last argument that holds it, whoever allocated it. An assignment shares it.
/// A number table is null at first, a copy duplicates it, and the table replaced by Set goes back to the
/// caller. A domain is empty at first, a copy shares it, and a replaced one is freed.
enum class TableRole { Numbers, Domain };

template <class Item, TableRole role>
class ArgumentTable {
 public:
  using Value = Tableau<Item>*;
  ArgumentTable() {
    if constexpr (isDomain) mTable.Made();
  }
  ArgumentTable(const ArgumentTable& other) {
    if constexpr (isDomain)
      mTable.Share(other.mTable);
    else
      mTable.TakeCopy(other.mTable);
  }
  ArgumentTable& operator=(const ArgumentTable& other) {
    if (this == &other) return *this;
    LetGo(other.Get());
    mTable.Share(other.mTable);
    return *this;
  }
  Value Get() const { return mTable.Get(); }
  void Set(Value table) {
    if (table == Get()) return;
    LetGo(table);
    mTable.Take(table);
  }

 private:
  static constexpr bool isDomain = role == TableRole::Domain;
  /// Before `next` takes its place: a table of numbers is not freed, nor is any that comes again.
  void LetGo(const Tableau<Item>* next) {
    if (!isDomain || next == Get()) mTable.Release();
  }

  HeldTable<Item> mTable;
};

// The arguments ----------------------------------------------------------------------------------------

template <ValueTypeId valueType, class Keeping>
class TypedArgument : public Argument {
 public:
  using Value = typename Keeping::Value;
  static constexpr ValueTypeId type = valueType;

  TypedArgument(int id, const char* name) : Argument(type, id, name) {}
  TypedArgument(const TypedArgument& other) = default;

  Value GetValue() const { return mValue.Get(); }
  void SetValue(Value value) { mValue.Set(value); }

 protected:
  void TakeValue(const TypedArgument& other) { mValue = other.mValue; }

 private:
  Keeping mValue;
};

// What each class adds: its constructor (id, name), and an assignment that moves the value alone and answers
// its right-hand side.
#define KALVE_ARGUMENT(Name)                  \
 public:                                      \
  using TypedArgument::TypedArgument;         \
  Name(const Name&) = default;                \
  const Name& operator=(const Name& source) { \
    TakeValue(source);                        \
    return source;                            \
  }

class IntArgument : public TypedArgument<INT, PlainValue<int>> {
  KALVE_ARGUMENT(IntArgument)
};
class FloatArgument : public TypedArgument<FLOAT, PlainValue<float>> {
  KALVE_ARGUMENT(FloatArgument)
};
class DoubleArgument : public TypedArgument<DOUBLE, PlainValue<double>> {
  KALVE_ARGUMENT(DoubleArgument)
};
class StringArgument : public TypedArgument<STRING, TextValue> {
  KALVE_ARGUMENT(StringArgument)
};
class EntityArgument : public TypedArgument<P_ENTITY, PlainValue<BasicEntity*>> {
  KALVE_ARGUMENT(EntityArgument)
};
class EntityTabArgument : public TypedArgument<ENTITY_TAB, BorrowedTable<BasicEntity*>> {
  KALVE_ARGUMENT(EntityTabArgument)
};
class IntDomainArgument : public TypedArgument<INTDOMAIN, ArgumentTable<IntInterval*, TableRole::Domain>> {
  KALVE_ARGUMENT(IntDomainArgument)
  /// Appends to the held table; the interval stays the caller's.
  void AddValue(IntInterval* interval) {
    if (GetValue() == nullptr) SetValue(new Tableau<IntInterval*>);
    GetValue()->push_back(interval);
  }
};
class DescValueSpecArgument : public TypedArgument<P_DESCVALUESPEC, PlainValue<DescValueSpec*>> {
  KALVE_ARGUMENT(DescValueSpecArgument)
};
class DescValueSpecTabArgument
    : public TypedArgument<DESCVALUESPEC_TAB, PlainValue<Tableau<DescValueSpec*>*>> {
  KALVE_ARGUMENT(DescValueSpecTabArgument)
};
class IntTabArgument : public TypedArgument<INT_TAB, ArgumentTable<int, TableRole::Numbers>> {
  KALVE_ARGUMENT(IntTabArgument)
};
class FloatTabArgument : public TypedArgument<FLOAT_TAB, ArgumentTable<float, TableRole::Numbers>> {
  KALVE_ARGUMENT(FloatTabArgument)
};
class DoubleTabArgument : public TypedArgument<DOUBLE_TAB, ArgumentTable<double, TableRole::Numbers>> {
  KALVE_ARGUMENT(DoubleTabArgument)
};
class EventArgument : public TypedArgument<P_EVENT, PlainValue<Event*>> {
  KALVE_ARGUMENT(EventArgument)
};
class DescriptorArgument : public TypedArgument<P_DESCRIPTOR, PlainValue<Descriptor*>> {
  KALVE_ARGUMENT(DescriptorArgument)
};
#undef KALVE_ARGUMENT

// By the tag -------------------------------------------------------------------------------------------

/// A copy of the argument's own class; null for a plain Argument.
Argument* NewArgumentCopy(const Argument& source);
/// Assigns the value; both must have the source's type.
void AssignArgument(Argument& target, const Argument& source);
/// Destroys and frees, by the destructor of the tagged class.
void DestroyArgument(Argument* argument);
