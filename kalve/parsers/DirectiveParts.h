// What a directive is made of, as the file writes it.
#pragma once

#include <optional>
#include <string>

#include "kalve/foundations/FailureReport.h"
#include "kalve/parsers/Moments.h"

/// A part of a directive: in any place among the others, once at most.
template <class Value>
class Part {
 public:
  /// `word` introduces it in the file.
  explicit Part(const char* word) : mWord(word) {}

  /// A second one is a fault.
  void Give(const Position& where, const Value& value) {
    if (mValue) FaultInFile(where, Text("%s est donné deux fois", mWord));
    mWhere = where;
    mValue = value;
  }
  explicit operator bool() const { return mValue.has_value(); }
  const Value& operator*() const { return *mValue; }
  const Value* operator->() const { return &*mValue; }
  const Position& Where() const { return mWhere; }
  const char* Word() const { return mWord; }

 private:
  const char* mWord;
  Position mWhere;
  std::optional<Value> mValue;
};

/// A date, or two between which one is drawn.
struct Occurrence {
  Moment from;
  std::optional<Moment> to = {};
};

/// Between an event and the next of its kind.
struct Delays {
  Duration shortest;
  Duration longest;
};

/// EVENT, up to its block.
struct EventDirective {
  Position where = {};
  std::string className = {};
  Part<Occurrence> occurrence{"AT ou BETWEEN"};
  Part<Delays> every{"EVERY"};
  Part<int> priority{"PRIORITY"};
  Part<double> probability{"PROBABILITY"};
  Part<int> percent{"PERCENT"};
  Part<std::string> name{"NAME"};
  Part<std::string> next{"NEXT"};
  Part<double> nextProbability{"NEXT_PROBABILITY"};
  Part<int> nextPercent{"NEXT_PERCENT"};
};

/// What a process works on: an entity or a selection, by name.
struct Binding {
  std::string name;
  bool isSelection = false;
};

/// The class of a data file: its symbol, or a name that stands for it.
struct FileClass {
  std::optional<int> symbol = {};
  std::string name = {};
};

/// PROCESS, up to its actions; or with READS, up to its end.
struct ProcessDirective {
  Position where = {};
  std::string className = {};
  Part<std::string> name{"NAME"};
  Part<Binding> on{"ON"};
  Part<Duration> delay{"DELAY"};
  Part<Duration> step{"STEP"};

  Part<FileClass> reads{"READS"};
  Part<Moment> moment{"AT"};
  Part<int> priority{"PRIORITY"};
  Part<std::string> path{"PATH"};
  Part<std::string> simpleName{"NAME"};
  Part<std::string> fullName{"FULL_NAME"};
};
