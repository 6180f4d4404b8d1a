// A text as a template argument, so that a row of a family can carry its name.
#pragma once

#include <cstddef>

template <std::size_t size>
struct FixedText {
  char text[size];
  // NOLINTNEXTLINE(google-explicit-constructor): a literal stands for its text
  constexpr FixedText(const char (&literal)[size]) {
    for (std::size_t i = 0; i < size; ++i) text[i] = literal[i];
  }
};
