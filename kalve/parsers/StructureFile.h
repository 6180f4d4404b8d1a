// The structure file: entities take shape as they are read, loops at their closing brace. Both run as the
// actions of inputs/ParserSpec.h over one stack of entities in progress.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "kalve/foundations/Liste.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/inputs/ParserSpec.h"
#include "kalve/parsers/GivenValues.h"
#include "kalve/parsers/ParseState.h"

/// Instance name of an entity to be made; with an iterator, its value follows the text.
struct InstanceNaming {
  Position where = {};
  std::string text = {};
  std::string iterator = {};
};

class StructureFile : public ParseState {
 public:
  using Action = ExternEntityIteratedActionSpec;

  /// SimulationNotYetCreated without pCurrentSim.
  explicit StructureFile(LexicalInputFile* file);

  // Entities; each is the current one until its EndEntity.
  void BeginEntity(const Position& where, Action::Kind kind, const std::string& className,
                   const InstanceNaming& naming);
  /// A living entity by its instance name, not in a loop, where `kind` would make a new one.
  void BeginReference(const Position& where, Action::Kind kind, const std::string& name);
  /// The current entity is the simulated system; once in a file, and not in a loop.
  void MarkSimulated(const Position& where);
  void EndEntity(const Position& where);

  // Values of the current entity.
  void Assign(const Position& where, const std::string& descriptor, const GivenValue& value);
  /// One more value of a table or a domain; `value` is of the type that a single value would have.
  void AddValue(const Position& where, const std::string& descriptor, GivenValue value);
  /// `body` names a predicate that the application has registered, TRUE or FALSE.
  void AssignBody(const Position& where, const std::string& method, const std::string& body);

  /// What stands behind SPEC, which does not stand in loops.
  void TakeSelection(const Position& where);

  // Loops; the outermost one runs at its EndLoop.
  void BeginLoop(const Position& where, const std::string& iterator, int first, int last);
  void EndLoop();

 private:
  /// A loop whose block is being read.
  struct Loop {
    Position where;
    std::string iterator;
    ExternEntityIterationSpec* actions;
  };
  /// Where a recorded action comes from.
  struct Source {
    Position where;
    std::string statement;
    std::optional<Loop> loop;  ///< the innermost one around it
  };

  void CheckNotInLoop(const Position& where, const char* word) const;
  void CheckHasCurrent(const Position& where, const char* word) const;
  void CheckIterator(const Position& where, const std::string& iterator) const;
  void CheckNoSign(const InstanceNaming& naming) const;
  void Take(Action* action, const Source& source);
  void Run(ExternEntityIterationSpec& loop);
  [[noreturn]] void EndInError(const ExternEntityIterationSpec& loop);
  const Source& SourceOf(const ExternEntityIterationSpec& loop) const;
  std::string Shown(const Source& source);

  Liste<Entity*> mContainers;  ///< entities in progress, the current one first
  Tableau<int> mIterators;     ///< values by rank of the loop
  std::unique_ptr<ExternEntityIterationSpec> mOutermost;
  std::vector<Loop> mLoops;  ///< those being read, the innermost last
  std::unordered_map<const Action*, Source> mSources;
  int mOpenEntities = 0;
  bool mHasSimulated = false;
};
