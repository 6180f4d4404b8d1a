// The actions that build a structure: records that the structure parser fills field by field, and the
// interpreter that runs them.
//
// A FOR of a structure file becomes an ExternEntityIterationSpec, whose list holds the actions of its block,
// nested loops included; it is run as a whole. What stands outside of loops runs the same way, as a loop of
// one pass. The records are plain data without virtual operations: their kind tells what they are, and
// ParserSpec.cpp has one row for each kind.
#pragma once

#include <string>

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Liste.h"
#include "kalve/foundations/Tableau.h"

/// What the interpreter has to say when it stops before the end, else "". Whoever calls the interpreter
/// clears it first and reads it afterwards: nothing is printed, and the run goes on. Longer texts are cut.
inline constexpr int gErrorStringSize = 100;
extern char gErrorString[gErrorStringSize];
/// The text left there when the application makes no entity of the class.
extern const char* const gUnknownEntityClass;
/// The last text that was made of a text and an iterator, cut when it is longer.
extern char gIterString[50];

/// Any action.
class ExternEntityIteratedActionSpec {
 public:
  enum Kind : int {
    CREATE_ENTITY = 0,  ///< one that stands by itself: ExternEntityAdditionSpec
    END_ENTITY = 1,     ///< pops the stack of containers: ExternEndEntityAdditionSpec
    ADD_COMPONENT = 2,  ///< creates one, a component of the current entity: ExternEntityAdditionSpec
    ADD_ELEMENT = 3,    ///< creates one, an element of the current entity: ExternEntityAdditionSpec
    ASSIGN_VALUE = 4,   ///< to a descriptor of the current entity: ExternEntityDescAffectationSpec
    ITERATION = 5,      ///< a nested loop: ExternEntityIterationSpec
    PLUG_COMPONENT = 6,
    PLUG_ELEMENT = 7,  ///< both do nothing: ExternEntityPlugSpec
    ASSIGN_BODY = 8,   ///< to a method of the current entity: ExternBodyAffectationSpec
  };

  ExternEntityIteratedActionSpec();
  ExternEntityIteratedActionSpec(const ExternEntityIteratedActionSpec&) = delete;
  ExternEntityIteratedActionSpec& operator=(const ExternEntityIteratedActionSpec&) = delete;
  ~ExternEntityIteratedActionSpec();

  static int getNbConst() { return _nbConst; }
  static int getNbDest() { return _nbDest; }

  /// Set by whoever makes the record; an iteration sets its own. Other numbers than those above are passed
  /// over, and such a record is never freed.
  int mKind = K_INT_UNSIGNIFICANT;

 private:
  static int _nbConst;
  static int _nbDest;
};

/// Creation of an entity, which becomes the current one.
class ExternEntityAdditionSpec : public ExternEntityIteratedActionSpec {
 public:
  /// Both copy.
  void SetClassName(const char* name) { mClassName = name; }
  void SetInstanceName(const char* name) { mInstanceName = name; }

  std::string mClassName;
  /// "" leaves the name that the constructor gives.
  std::string mInstanceName;
  /// The value of the iterator follows the instance name.
  bool mIsIteratedName = false;
};

/// A value for a descriptor of the current entity, found by its name.
class ExternEntityDescAffectationSpec : public ExternEntityIteratedActionSpec {
 public:
  /// Both copy.
  void SetDescriptorName(const char* name) { mDescriptorName = name; }
  void SetStringValue(const char* text) { mStringValue = text; }

  /// Not 0: INT and DOUBLE are the iterator of the loop in progress, STRING has it behind its text; no other
  /// type can be dynamic.
  int mIsDynamic = 0;
  /// As it was written. The types that stand for one more value of a table or a domain are ENTITY_TAB,
  /// INTDOMAIN, INT_TAB, and FLOAT_TAB, for both kinds of real tables.
  int mValueType = VOID;
  std::string mDescriptorName;
  int mIntValue = 0;      ///< of an interval the low bound
  int mIntHighValue = 0;  ///< of an interval
  double mDoubleValue = 0.0;
  std::string mStringValue;
  /// Of P_ENTITY and ENTITY_TAB, which make a new entity at each pass. Not owned.
  const char* mEntityClassName = "";
  EntitySpec* mEntitySpec = nullptr;  ///< not owned
};

using PredicateBody = bool (*)(EntityMethod* method);

/// A body for a method of the current entity, found by its name.
class ExternBodyAffectationSpec : public ExternEntityIteratedActionSpec {
 public:
  /// Copies.
  void SetMethodName(const char* name) { mMethodName = name; }

  /// Another type than BOOLEAN does nothing.
  int mBodyType = VOID;
  std::string mMethodName;
  PredicateBody mBody = nullptr;
};

/// Lets a structure file give the body to methods of entities, by this name. The last registration of a name
/// holds; the kernel knows TRUE and FALSE, which always answer so.
void RegisterPredicateBody(const char* name, PredicateBody body);
/// Null for an unknown name.
PredicateBody GetPredicateBody(const char* name);

class ExternEntityPlugSpec : public ExternEntityIteratedActionSpec {};

/// End of the entity in progress.
class ExternEndEntityAdditionSpec : public ExternEntityIteratedActionSpec {};

/// A loop. It owns its actions, and deletes them with itself.
class ExternEntityIterationSpec : public ExternEntityIteratedActionSpec {
 public:
  /// `level` is the depth that traces show; `iteratorRank` tells where the loop keeps the value of its
  /// iterator in the table of iterators; both bounds are included.
  ExternEntityIterationSpec(int level, int iteratorRank, int first, int last);
  ~ExternEntityIterationSpec();

  void addAction(ExternEntityIteratedActionSpec* action) { mActions.push_back(action); }

  /// Runs the actions for each value of the iterator. `containers` is the stack of entities in progress, the
  /// head being the current one. A loop that is nested must leave it as it finds it. On a failure, which
  /// gErrorString tells, the stack and the entities made so far stay as they are.
  void execActionList(Liste<Entity*>* containers, Tableau<int>* iterators);

  /// The action at which the execution stands or has stopped, in nested loops too; null after its end.
  const ExternEntityIteratedActionSpec* ActionInProgress() const;

  int mLevel;
  int mIteratorRank;
  int mFirst;
  int mLast;

 private:
  Liste<ExternEntityIteratedActionSpec*> mActions;
};
