#pragma once

#include <array>
#include <cstdint>

namespace pv {

inline constexpr int kGlyphWidth = 8;
inline constexpr int kGlyphHeight = 14;

/// One character's dots: byte 0 is the top row, the most significant bit of a
/// byte the leftmost column.
using Glyph = std::array<std::uint8_t, kGlyphHeight>;

/// The picture of a 7-bit code. Control codes, 127 and everything above it are
/// blank, and so is 0.
[[nodiscard]] const Glyph& glyphOf(unsigned char code);

}  // namespace pv
