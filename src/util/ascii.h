#pragma once

#include <algorithm>
#include <string_view>

namespace pv {

[[nodiscard]] constexpr char asciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

[[nodiscard]] constexpr bool endsIgnoringCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && equalIgnoringCase(text.substr(text.size() - end.size()), end);
}

}  // namespace pv
