#include "util/utf16.h"

#include <cstdint>

#include "util/little_endian.h"

namespace pv {
namespace {

constexpr std::uint32_t kHighHalf = 0xD800;
constexpr std::uint32_t kLowHalf = 0xDC00;
constexpr std::uint32_t kHalfMask = 0xFC00;
constexpr std::uint32_t kFirstOfPairs = 0x10000;
constexpr std::uint32_t kReplacement = 0xFFFD;

void appendUtf8(std::string& text, std::uint32_t c) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80U | ((c >> shift) & 0x3FU)); };
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0U | (c >> 6));
    tail(0);
  } else if (c < kFirstOfPairs) {
    text += static_cast<char>(0xE0U | (c >> 12));
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | (c >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

std::uint32_t unitAt(std::span<const std::byte> bytes, std::size_t at) {
  std::uint16_t unit = 0;
  FieldReader(bytes.subspan(at)).field(unit);
  return unit;
}

}  // namespace

std::string utf8FromUtf16(std::span<const std::byte> bytes) {
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    std::uint32_t c = unitAt(bytes, at);
    const std::uint32_t next = at + 3 < bytes.size() ? unitAt(bytes, at + 2) : 0;
    if ((c & kHalfMask) == kHighHalf && (next & kHalfMask) == kLowHalf) {
      c = kFirstOfPairs + ((c - kHighHalf) << 10) + (next - kLowHalf);
      at += 2;
    } else if ((c & kHalfMask) == kHighHalf || (c & kHalfMask) == kLowHalf) {
      c = kReplacement;
    }
    appendUtf8(text, c);
  }
  return text;
}

}  // namespace pv
