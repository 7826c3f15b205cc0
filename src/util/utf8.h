#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pv {

/// What happens to half of a UTF-16 pair that stands alone. It is no character, yet
/// some systems let it into file names.
enum class LoneHalves : std::uint8_t {
  Refused,
  Kept,  ///< three bytes, as if it were a character
};

/// Takes one character off the front; none, and nothing taken, when the bytes there
/// are not UTF-8. The text must not be empty.
[[nodiscard]] std::optional<char32_t> takeUtf8Character(std::string_view& text,
                                                        LoneHalves halves = LoneHalves::Refused);

/// Up to U+10FFFF.
void appendUtf8Character(std::string& text, char32_t character);

}  // namespace pv
