#pragma once

#include <cstdint>
#include <span>

#include "shape/buffer.h"
#include "view3d/pixel_box.h"
#include "view3d/pixel_column.h"

namespace pv {

inline constexpr std::uint8_t kLit = 0xFF;

/// The pixels that wires light, a byte each (kLit or 0), collected by one thread. A
/// quarter of the frame's size, so that it lies in a nearer cache; and threads that
/// collect into masks of their own never contend for a line of memory. All wires have
/// one colour, so which thread lights a pixel, how often and when cannot be seen.
class WireMask {
 public:
  /// For a frame of this size; false without memory. Nothing is lit afterwards.
  [[nodiscard]] bool resize(std::int32_t width, std::int32_t height);

  /// Row by row; kReadable more bytes may be read.
  [[nodiscard]] std::uint8_t* lit() { return lit_.data(); }
  [[nodiscard]] PixelReach& reach() { return reach_; }
  /// Everything that is lit lies in here.
  [[nodiscard]] PixelBox box() const;

  static constexpr std::size_t kReadable = 64;

 private:
  Buffer<std::uint8_t> lit_;
  PixelReach reach_;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
};

/// A frame, and what its pixels become.
struct PaintJob {
  std::uint32_t* pixels;
  const std::uint32_t* background;  ///< laid out like the frame; null for 0 everywhere
  std::uint8_t* dirty;              ///< of every cell of the frame
  std::int32_t width;
  std::uint32_t colour;
  std::span<WireMask> masks;  ///< 1 to 8
  PixelBox box;               ///< starts a cell in each row
};

/// Gives every pixel of the box the colour where one of the masks is lit, and
/// that of the background elsewhere; the masks are put out there. Cells that are
/// not dirty show their background already; they are dirty then if they are lit.
void paintMasks(const PaintJob& job);

}  // namespace pv
