#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

#include "util/result.h"

namespace pv {

/// Room for any text that writeNumber() makes.
inline constexpr std::size_t kNumberTextSize = 24;

/// Nine significant digits, enough to get the same float back; a point in every
/// locale. `first` has room for kNumberTextSize characters; returns the end.
inline char* writeNumber(char* first, float value) {
  constexpr int kDigits = 9;
  return std::to_chars(first, first + kNumberTextSize, value, std::chars_format::general, kDigits)
      .ptr;
}

[[nodiscard]] inline std::string numberText(float value) {
  char text[kNumberTextSize];
  return {text, writeNumber(text, value)};
}

/// The fewest digits that give the same float back, for people: 1.2.
[[nodiscard]] inline std::string shortNumberText(float value) {
  char text[kNumberTextSize];
  return {text, std::to_chars(text, text + kNumberTextSize, value).ptr};
}

/// The whole text as a number, in no locale's notation but C's. Blanks, trailing
/// characters and numbers beyond the type are refused.
template <class Number>
[[nodiscard]] Result<Number> parseNumber(std::string_view text) {
  const auto refuse = [text](const char* why) {
    return Error{ErrorKind::BadData, {}, {}, "'" + std::string(text) + "' " + why};
  };
  Number value{};
  const char* end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, value);
  if (stop != end || fault == std::errc::invalid_argument) {
    return refuse(std::is_integral_v<Number> ? "is not a whole number" : "is not a number");
  }
  if (fault == std::errc::result_out_of_range) {
    return refuse("does not fit 32 bits");
  }
  if constexpr (std::is_floating_point_v<Number>) {
    if (!std::isfinite(value)) {
      return refuse("is not a finite number");
    }
  }
  return value;
}

}  // namespace pv
