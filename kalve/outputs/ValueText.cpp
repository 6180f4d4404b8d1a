// Values of points as texts.
#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

#include "kalve/foundations/FailureReport.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/outputs/DescTimeSeries.h"

namespace {

constexpr std::size_t bufferSize = 500;

// A form of reals: so many decimals, or the general form for none.
using Decimals = std::optional<int>;

void AppendReal(std::string& text, float narrow, Decimals decimals) {
  const auto value = static_cast<double>(narrow);
  char digits[bufferSize];
  const auto end = decimals
                       ? std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                                       std::max(*decimals, 0))
                       : std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6);
  if (end.ec == std::errc())
    text.append(digits, end.ptr);
  else
    text += Text("%.*f", decimals.value_or(0), value);
}

/// False for a type that has no text.
bool AppendValue(std::string& text, const ClockValueItem& item, Decimals decimals) {
  const UnifiedValue value = item.GetValue();
  switch (static_cast<int>(item.GetValueType())) {
    case INT:
      text += std::to_string(value.intValue);
      return true;
    case FLOAT:
      AppendReal(text, value.floatValue, decimals);
      return true;
    case DOUBLE:
      AppendReal(text, static_cast<float>(value.doubleValue), decimals);
      return true;
    case STRING:
      text += value.stringValue;
      return true;
    case P_ENTITY:
      if (IsLivingEntity(value.entityValue)) text += value.entityValue->InstanceName();
      return true;
    case NO_VALUE:
      text += '_';
      return true;
    default:
      return false;
  }
}

std::string ValueText(const ClockValueItem& item, Decimals decimals) {
  std::string text;
  AppendValue(text, item, decimals);
  return text;
}

void WriteText(const ClockValueItem& item, Decimals decimals, char* buffer) {
  std::string text;
  if (!AppendValue(text, item, decimals)) return;
  const std::size_t length = std::min(text.size(), bufferSize - 1);
  std::memcpy(buffer, text.data(), length);
  buffer[length] = '\0';
}

}  // namespace

std::string UnifiedValueToString(const ClockValueItem* item, int precision) {
  return ValueText(*item, precision);
}

std::string UnifiedValueToString(const ClockValueItem* item) { return ValueText(*item, std::nullopt); }

void AppendValue(std::string& text, const ClockValueItem* item, int precision) {
  AppendValue(text, *item, Decimals(precision));
}

void UnifiedValueToString(const ClockValueItem* item, int precision, char* buffer) {
  WriteText(*item, precision, buffer);
}

void UnifiedValueToString(const ClockValueItem* item, char* buffer) {
  WriteText(*item, std::nullopt, buffer);
}
