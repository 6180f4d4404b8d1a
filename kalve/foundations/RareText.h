// RareText: a text of one's own that is mostly empty, as wide as a pointer.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>

class RareText {
 public:
  RareText() = default;
  RareText(const RareText& other) { Set(other.Get()); }
  RareText& operator=(const RareText& other) {
    if (mText != nullptr || other.mText != nullptr) Set(other.Get());
    return *this;
  }

  const char* Get() const { return mText != nullptr ? mText.get() : ""; }
  /// Keeps a copy of the text, which may be the one held.
  void Set(const char* text) { mText.reset(*text != '\0' ? strdup(text) : nullptr); }

 private:
  struct Free {
    void operator()(char* text) const { std::free(text); }
  };
  std::unique_ptr<char, Free> mText;
};
