// The directive file: each directive takes effect when it has been read.
#pragma once

#include <optional>
#include <string>

#include "kalve/parsers/Moments.h"
#include "kalve/parsers/ParseState.h"

class DirectiveFile : public ParseState {
 public:
  /// SimulationNotYetCreated without pCurrentSim.
  explicit DirectiveFile(LexicalInputFile* file);

  // One event, its parts in any order; a part may stand once.
  void BeginEvent(const Position& where, const std::string& className);
  void SetMoment(const Position& where, const Moment& moment);
  /// The date is drawn between the two.
  void SetBounds(const Position& where, const Moment& low, const Moment& high);
  void SetPriority(const Position& where, int priority);
  void SetProbability(const Position& where, double probability);
  void SetPercent(const Position& where, int percent);
  void SetName(const Position& where, const std::string& name);
  /// Makes the event and hands it to the agenda, which may refuse it.
  void EndEvent();

 private:
  template <class Value>
  struct Part {
    Position where;
    Value value;
  };
  template <class Value>
  using Optional = std::optional<Part<Value>>;

  struct EventDirective {
    Position where;
    std::string className;
    Optional<Moment> from;
    Optional<Moment> to;
    Optional<int> priority;
    Optional<double> probability;
    Optional<int> percent;
    Optional<std::string> name;
  };

  template <class Value>
  void Set(Optional<Value>& part, const Position& where, const Value& value, const char* word);
  Event* NewEvent() const;
  void GiveName(Event* event) const;
  void GiveProbability(Event* event) const;
  int DrawnClock(Event* event) const;
  int CheckedPriority(Event* event) const;

  EventDirective mEvent;
};
