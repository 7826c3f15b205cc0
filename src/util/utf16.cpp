#include "util/utf16.h"

#include <cstdint>

#include "util/little_endian.h"

namespace pv {
namespace {

constexpr char32_t kHighHalf = 0xD800;
constexpr char32_t kLowHalf = 0xDC00;
constexpr char32_t kHalfMask = 0xFC00;
constexpr char32_t kFirstOfPairs = 0x10000;
constexpr char32_t kReplacement = 0xFFFD;

bool isHighHalf(char32_t c) {
  return (c & kHalfMask) == kHighHalf;
}
bool isLowHalf(char32_t c) {
  return (c & kHalfMask) == kLowHalf;
}

}  // namespace

std::string utf8FromUtf16(std::u16string_view text, LoneHalves halves) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    char32_t c = text[at];
    const char32_t next = at + 1 < text.size() ? text[at + 1] : 0;
    if (isHighHalf(c) && isLowHalf(next)) {
      c = kFirstOfPairs + ((c - kHighHalf) << 10U) + (next - kLowHalf);
      ++at;
    } else if (halves == LoneHalves::Refused && (isHighHalf(c) || isLowHalf(c))) {
      c = kReplacement;
    }
    appendUtf8Character(result, c);
  }
  return result;
}

std::string utf8FromUtf16(std::span<const std::byte> bytes) {
  std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
  FieldReader reader(bytes);
  for (char16_t& unit : text) {
    std::uint16_t word = 0;
    reader.field(word);
    unit = word;
  }
  return utf8FromUtf16(text);
}

std::u16string utf16FromUtf8(std::string_view text, LoneHalves halves) {
  std::u16string result;
  while (!text.empty()) {
    const auto character = takeUtf8Character(text, halves);
    if (!character) {
      text.remove_prefix(1);
    }
    const char32_t c = character.value_or(kReplacement);
    if (c >= kFirstOfPairs) {
      result += static_cast<char16_t>(kHighHalf + ((c - kFirstOfPairs) >> 10U));
      result += static_cast<char16_t>(kLowHalf + ((c - kFirstOfPairs) & 0x3FFU));
    } else {
      result += static_cast<char16_t>(c);
    }
  }
  return result;
}

}  // namespace pv
