// Time series of descriptors: the points that a run keeps of one descriptor of one entity, until they are
// dumped or read by the user interface.
//
// A series holds one point for a clock at most: recording again at the clock of the last point replaces its
// value. Points stand in the order in which they came; callers bring rising clocks.
#pragma once

#include <string>

#include "kalve/foundations/Records.h"

/// One point: a clock and a value. A point of type STRING owns its text.
class ClockValueItem {
 public:
  /// A point whose value does not exist, of type NO_VALUE: the number in it is never shown.
  ClockValueItem(int clock, UnifiedValue value) : mClock(clock), mValueType(NO_VALUE), mValue(value) {}
  ClockValueItem(int clock, int value, ValueTypeId type) : mClock(clock), mValueType(type) {
    mValue.intValue = value;
  }
  ClockValueItem(int clock, float value, ValueTypeId type) : mClock(clock), mValueType(type) {
    mValue.floatValue = value;
  }
  ClockValueItem(int clock, double value, ValueTypeId type) : mClock(clock), mValueType(type) {
    mValue.doubleValue = value;
  }
  /// Copies the text; null counts as empty.
  ClockValueItem(int clock, const char* value, ValueTypeId type);
  ClockValueItem(const ClockValueItem&) = delete;
  ClockValueItem& operator=(const ClockValueItem&) = delete;
  ~ClockValueItem() {
    if (mValueType == STRING) FreeText();
  }

  int GetClock() const { return mClock; }
  UnifiedValue GetValue() const { return mValue; }
  ValueTypeId GetValueType() const { return mValueType; }
  /// For a point whose value another member of the union holds; not for a change to or from STRING.
  void SetValueType(ValueTypeId type) { mValueType = type; }

  /// Same clock, type and value. Only numbers, texts and entities (by address) can be equal.
  bool operator==(const ClockValueItem& other) const;
  /// Prints clock, " -> " and value, for debugging; nothing for a type below INT or above P_ENTITY.
  void display() const;

 private:
  friend class DescTimeSeries;
  void FreeText();
  void SetValue(int value, ValueTypeId type);
  void SetValue(float value, ValueTypeId type);
  void SetValue(double value, ValueTypeId type);
  void SetValue(const char* value, ValueTypeId type);

  int mClock;
  ValueTypeId mValueType;
  UnifiedValue mValue;
};

/// The series owns its points. They stand in chunks and never move, so that a pointer to one is valid until
/// the series dies; a long series costs little more than the size of its points.
///
/// It has one cursor, as a list has: off at first and behind the last point. Recording sets it to what was
/// the last point before.
class DescTimeSeries {
 public:
  /// The descriptor's output specification is not owned.
  explicit DescTimeSeries(DescriptorOS* descriptorOS) : mDescriptorOS(descriptorOS) {}
  DescTimeSeries(const DescTimeSeries&) = delete;
  DescTimeSeries& operator=(const DescTimeSeries&) = delete;
  ~DescTimeSeries();

  DescriptorOS* GetDescriptorOS() const { return mDescriptorOS; }

  // Recording: a point of type INT, FLOAT, DOUBLE or STRING at `clock`. Entities and tables of entities are
  // recorded as texts; a text is copied, null counts as empty.
  void AddClockIntValueItem(int clock, int value);
  void AddClockFloatValueItem(int clock, float value);
  void AddClockDoubleValueItem(int clock, double value);
  void AddClockStringValueItem(int clock, const char* value);

  // Cursor
  void GoHead();
  /// Off behind the last point; nothing when off.
  void GoNext();
  /// GoNext, but with `stayOnLast` the cursor does not leave the last point.
  void GoNext2(bool stayOnLast);
  void GoTail() { MoveTo(mTail, mLast); }
  bool IsCurrentIn() const { return mCurrent != nullptr; }
  /// Throws an `int` when the cursor is off.
  ClockValueItem* GetCurrent() const;

  /// Prints the clocks, separated by " -> ". The cursor stays where it is.
  void MyDisplay() const;

 private:
  struct Chunk;

  template <class Value>
  void Add(int clock, Value value, ValueTypeId type);
  ClockValueItem* NewChunk();
  void MoveTo(Chunk* chunk, ClockValueItem* item) {
    mCurrentChunk = chunk;
    mCurrent = item;
  }

  DescriptorOS* mDescriptorOS;
  Chunk* mHead = nullptr;
  Chunk* mTail = nullptr;
  ClockValueItem* mLast = nullptr;
  ClockValueItem* mEnd = nullptr;  // of the last chunk
  bool mHoldsTexts = false;
  Chunk* mCurrentChunk = nullptr;  // holds mCurrent
  ClockValueItem* mCurrent = nullptr;
};

// Values as texts --------------------------------------------------------------------------------------

/// A point's value as outputs and the user interface show it. Reals have `precision` decimals, or the form
/// "%g", and are narrowed to single precision first, doubles too: files are compared byte for byte. An
/// entity shows its name (nothing for a dead one or null), a point without value "_", any other type is
/// empty.
std::string UnifiedValueToString(const ClockValueItem* item, int precision);
std::string UnifiedValueToString(const ClockValueItem* item);
/// The text with decimals behind another one, without a copy in between.
void AppendValue(std::string& text, const ClockValueItem* item, int precision);
/// The same into a buffer of at least 500 bytes: the text is cut at 499 characters. Any other type leaves
/// the buffer as it is.
void UnifiedValueToString(const ClockValueItem* item, int precision, char* buffer);
void UnifiedValueToString(const ClockValueItem* item, char* buffer);
