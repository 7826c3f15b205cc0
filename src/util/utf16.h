#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace pv {

/// From UTF-16 with the low byte first. Halves of pairs that stand alone become
/// U+FFFD, an odd last byte is dropped.
[[nodiscard]] std::string utf8FromUtf16(std::span<const std::byte> bytes);

}  // namespace pv
