#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "path/svg_data.h"
#include "util/ascii.h"

namespace pv {

/// Reads numbers, flags and words off the front of an attribute's text.
class SvgScanner {
 public:
  explicit SvgScanner(std::string_view text) : text_(text) { skipBlanks(); }

  [[nodiscard]] bool atEnd() const { return at_ == text_.size(); }
  /// The next character, 0 at the end.
  [[nodiscard]] char peek() const { return atEnd() ? '\0' : text_[at_]; }

  void skipBlanks() {
    while (isBlank(peek())) {
      ++at_;
    }
  }
  /// Blanks with at most one comma among them.
  void skipSeparator() {
    skipBlanks();
    if (take(',')) {
      skipBlanks();
    }
  }
  /// Steps over `c` when it comes next.
  bool take(char c) {
    const bool found = !atEnd() && peek() == c;
    at_ += found ? 1 : 0;
    return found;
  }
  /// Letters and percent signs; may be empty.
  std::string_view word() {
    const std::size_t first = at_;
    while ((asciiLower(peek()) >= 'a' && asciiLower(peek()) <= 'z') || peek() == '%') {
      ++at_;
    }
    return text_.substr(first, at_ - first);
  }

  /// A number and the separator behind it; none beyond kMaxSvgNumber.
  std::optional<double> number() {
    const auto value = bareNumber();
    skipSeparator();
    return value;
  }
  /// A number with nothing skipped behind it.
  std::optional<double> bareNumber() {
    const std::size_t sign = peek() == '+' || peek() == '-' ? 1 : 0;
    const std::string_view digits = text_.substr(at_ + sign);
    const auto isDigit = [digits](std::size_t i) {
      return i < digits.size() && digits[i] >= '0' && digits[i] <= '9';
    };
    // Keeps the names of infinity and NaN out.
    if (!isDigit(0) && !(digits.starts_with('.') && isDigit(1))) {
      return std::nullopt;
    }
    double value = 0.0;
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (fault != std::errc{} || value > kMaxSvgNumber) {
      return std::nullopt;
    }
    const bool negative = peek() == '-';
    at_ = static_cast<std::size_t>(end - text_.data());
    return negative ? -value : value;
  }
  /// 0 or 1, which may stand without a separator.
  std::optional<bool> flag() {
    const char c = peek();
    if (c != '0' && c != '1') {
      return std::nullopt;
    }
    ++at_;
    skipSeparator();
    return c == '1';
  }

  /// "`what` at character 12".
  [[nodiscard]] Error fault(const char* what) const {
    return {ErrorKind::BadData, {}, {}, what + (" at character " + std::to_string(at_ + 1))};
  }

 private:
  static bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

inline constexpr const char* kNoNumber = "a number is missing, unreadable or beyond 1e12";

}  // namespace pv
