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

std::string RealText(float narrow, Decimals decimals) {
  const auto value = static_cast<double>(narrow);
  char digits[bufferSize];
  const auto end = decimals
                       ? std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                                       std::max(*decimals, 0))
                       : std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6);
  if (end.ec == std::errc()) return {digits, end.ptr};
  return Text("%.*f", decimals.value_or(0), value);
}

std::optional<std::string> ValueText(const ClockValueItem& item, Decimals decimals) {
  const UnifiedValue value = item.GetValue();
  switch (static_cast<int>(item.GetValueType())) {
    case INT:
      return std::to_string(value.intValue);
    case FLOAT:
      return RealText(value.floatValue, decimals);
    case DOUBLE:
      return RealText(static_cast<float>(value.doubleValue), decimals);
    case STRING:
      return value.stringValue;
    case P_ENTITY:
      return IsLivingEntity(value.entityValue) ? value.entityValue->InstanceName() : "";
    case NO_VALUE:
      return "_";
    default:
      return std::nullopt;
  }
}

void WriteText(const std::optional<std::string>& text, char* buffer) {
  if (!text) return;
  const std::size_t length = std::min(text->size(), bufferSize - 1);
  std::memcpy(buffer, text->data(), length);
  buffer[length] = '\0';
}

}  // namespace

std::string UnifiedValueToString(const ClockValueItem* item, int precision) {
  return ValueText(*item, precision).value_or("");
}

std::string UnifiedValueToString(const ClockValueItem* item) {
  return ValueText(*item, std::nullopt).value_or("");
}

void UnifiedValueToString(const ClockValueItem* item, int precision, char* buffer) {
  WriteText(ValueText(*item, precision), buffer);
}

void UnifiedValueToString(const ClockValueItem* item, char* buffer) {
  WriteText(ValueText(*item, std::nullopt), buffer);
}
