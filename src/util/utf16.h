#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "util/utf8.h"

namespace pv {

/// Halves of pairs that stand alone become U+FFFD unless they are kept.
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view text,
                                        LoneHalves halves = LoneHalves::Refused);

/// From bytes, the low one first; an odd last one is dropped.
[[nodiscard]] std::string utf8FromUtf16(std::span<const std::byte> bytes);

/// The way back. Each byte that belongs to no character becomes U+FFFD.
[[nodiscard]] std::u16string utf16FromUtf8(std::string_view text,
                                           LoneHalves halves = LoneHalves::Refused);

}  // namespace pv
