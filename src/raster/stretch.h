#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pv {

enum class PixelFormat : std::uint8_t {
  Argb32,  ///< one word a pixel, 0xAARRGGBB in the machine's byte order
  Bgr24    ///< three bytes a pixel: blue, green, red
};

/// A picture inside memory that somebody else owns. Rows start `rowBytes` apart,
/// which may be more than their pixels need: padded rows, or a crop.
template <typename Byte>
struct BasicPixelBlock {
  std::span<Byte> bytes;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::size_t rowBytes = 0;
  PixelFormat format = PixelFormat::Argb32;
};
using PixelBlock = BasicPixelBlock<std::byte>;
using ConstPixelBlock = BasicPixelBlock<const std::byte>;

/// Scales all of `src` onto all of `dest`, row 0 onto row 0, and converts the
/// format; the blocks must not overlap. An axis that shrinks averages the area
/// under each new pixel, channel by channel; one that grows repeats the nearest
/// pixel. Pixels from a 24-bit block are opaque. Returns false, and writes
/// nothing, when a side is below 1 or above 2^20 or a block's memory is too
/// small for its rows.
bool Stretch_Any2Any(const PixelBlock& dest, const ConstPixelBlock& src);

}  // namespace pv
