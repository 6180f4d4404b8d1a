#include "kalve/outputs/DescTimeSeries.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Tableau.h"

// A point -----------------------------------------------------------------------------------------------

ClockValueItem::ClockValueItem(int clock, const char* value, ValueTypeId type)
    : mClock(clock), mValueType(type) {
  mValue.stringValue = strdup(OrEmpty(value));
}

void ClockValueItem::FreeText() { std::free(mValue.stringValue); }

bool ClockValueItem::operator==(const ClockValueItem& other) const {
  if (mClock != other.mClock || mValueType != other.mValueType) return false;
  switch (static_cast<int>(mValueType)) {
    case INT:
      return mValue.intValue == other.mValue.intValue;
    case FLOAT:
      return mValue.floatValue == other.mValue.floatValue;
    case DOUBLE:
      return mValue.doubleValue == other.mValue.doubleValue;
    case STRING:
      return std::strcmp(mValue.stringValue, other.mValue.stringValue) == 0;
    case P_ENTITY:
      return mValue.entityValue == other.mValue.entityValue;
    default:
      return false;
  }
}

void ClockValueItem::display() const {
  if (mValueType < INT || mValueType > P_ENTITY) return;
  std::printf("%d -> %s", mClock, UnifiedValueToString(this).c_str());
}

void ClockValueItem::SetValue(int value, ValueTypeId type) {
  if (mValueType == STRING) FreeText();
  mValueType = type;
  mValue.intValue = value;
}

void ClockValueItem::SetValue(float value, ValueTypeId type) {
  if (mValueType == STRING) FreeText();
  mValueType = type;
  mValue.floatValue = value;
}

void ClockValueItem::SetValue(double value, ValueTypeId type) {
  if (mValueType == STRING) FreeText();
  mValueType = type;
  mValue.doubleValue = value;
}

void ClockValueItem::SetValue(const char* value, ValueTypeId type) {
  char* text = strdup(OrEmpty(value));  // the value may be the text that is freed
  if (mValueType == STRING) FreeText();
  mValueType = type;
  mValue.stringValue = text;
}

// The series --------------------------------------------------------------------------------------------

// A header with places behind it, all of them used before the next chunk is made. Capacities double from 4 to
// 256: a run has many series of few points, and some of very many.
struct DescTimeSeries::Chunk {
  Chunk* next;
  long capacity;

  ClockValueItem* First() { return reinterpret_cast<ClockValueItem*>(this + 1); }
  ClockValueItem* End() { return First() + capacity; }
};

DescTimeSeries::~DescTimeSeries() {
  for (Chunk* chunk = mHead; chunk != nullptr;) {
    if (mHoldsTexts) std::destroy(chunk->First(), chunk == mTail ? mLast + 1 : chunk->End());
    Chunk* const next = chunk->next;
    ::operator delete(chunk);
    chunk = next;
  }
}

ClockValueItem* DescTimeSeries::NewChunk() {
  const long capacity = mTail == nullptr ? 4 : std::min(2 * mTail->capacity, 256L);
  static_assert(sizeof(Chunk) % alignof(ClockValueItem) == 0);
  void* memory = ::operator new(sizeof(Chunk) + static_cast<std::size_t>(capacity) * sizeof(ClockValueItem));
  Chunk* const chunk = new (memory) Chunk{nullptr, capacity};
  (mTail == nullptr ? mHead : mTail->next) = chunk;
  mTail = chunk;
  mEnd = chunk->End();
  return chunk->First();
}

template <class Value>
void DescTimeSeries::Add(int clock, Value value, ValueTypeId type) {
  if (type == STRING) mHoldsTexts = true;
  ClockValueItem* place = mEnd;
  if (mLast != nullptr) {
    GoTail();
    if (mLast->mClock == clock) return mLast->SetValue(value, type);
    place = mLast + 1;
  }
  if (place == mEnd) place = NewChunk();
  mLast = new (place) ClockValueItem(clock, value, type);
}

void DescTimeSeries::AddClockIntValueItem(int clock, int value) { Add(clock, value, INT); }
void DescTimeSeries::AddClockFloatValueItem(int clock, float value) { Add(clock, value, FLOAT); }
void DescTimeSeries::AddClockDoubleValueItem(int clock, double value) { Add(clock, value, DOUBLE); }
void DescTimeSeries::AddClockStringValueItem(int clock, const char* value) { Add(clock, value, STRING); }

void DescTimeSeries::GoHead() { MoveTo(mHead, mHead != nullptr ? mHead->First() : nullptr); }

void DescTimeSeries::GoNext() {
  if (mCurrent == nullptr) return;
  if (mCurrent == mLast) return MoveTo(nullptr, nullptr);
  if (++mCurrent == mCurrentChunk->End()) MoveTo(mCurrentChunk->next, mCurrentChunk->next->First());
}

void DescTimeSeries::GoNext2(bool stayOnLast) {
  if (!stayOnLast || mCurrent != mLast) GoNext();
}

ClockValueItem* DescTimeSeries::GetCurrent() const {
  if (mCurrent == nullptr) ThrowIndex(0);
  return mCurrent;
}

void DescTimeSeries::MyDisplay() const {
  const char* separator = "";
  for (Chunk* chunk = mHead; chunk != nullptr; chunk = chunk->next) {
    const ClockValueItem* const end = chunk == mTail ? mLast + 1 : chunk->End();
    for (const ClockValueItem* item = chunk->First(); item != end; ++item, separator = " -> ")
      std::printf("%s%d", separator, item->GetClock());
  }
}
