#pragma once

#include <cstdint>
#include <span>

#include "shape/buffer.h"
#include "view3d/frame_cells.h"
#include "view3d/pixel_box.h"
#include "view3d/pixel_column.h"

namespace pv {

/// The pixels that wires light, collected by one thread. A quarter of the frame's
/// size, so that it lies in a nearer cache; and threads that collect into masks of
/// their own never contend for a line of memory. All wires have one colour, so
/// which thread lights a pixel, how often and when cannot be seen.
///
/// Every frame lights its pixels by another bit, so that none has to be put out
/// before the bits are used up.
class WireMask {
 public:
  static constexpr std::uint8_t kFirstMark = 1;
  /// The mark of the frame that follows one with this mark.
  [[nodiscard]] static std::uint8_t nextMark(std::uint8_t mark) {
    return mark == kLastMark ? kFirstMark : static_cast<std::uint8_t>(mark << 1U);
  }

  /// For a frame of this size, whose lit pixels hold the mark; false without memory.
  /// Nothing is lit afterwards.
  [[nodiscard]] bool begin(std::int32_t width, std::int32_t height, std::uint8_t mark);

  [[nodiscard]] MaskPixels pixels() { return {words_.data(), cells_, mark_}; }
  [[nodiscard]] PixelReach& reach() { return reach_; }
  /// Everything that is lit lies in here.
  [[nodiscard]] PixelBox box() const;

 private:
  static constexpr std::uint8_t kLastMark = 0x80;

  void clear();

  Buffer<std::uint32_t> words_;
  FrameCells cells_;
  PixelReach reach_;
  PixelBox used_;  ///< what earlier frames have lit lies in here
  std::uint8_t mark_ = 0;
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
  std::uint8_t mark;
  std::span<WireMask> masks;  ///< 1 to 8 with this mark
  PixelBox box;               ///< whole cells, as far as they lie in the frame
};

/// Gives every pixel of the box the colour where one of the masks is lit, and
/// that of the background elsewhere. Cells that are not dirty show their background
/// already; they are dirty then if they are lit.
void paintMasks(const PaintJob& job);

}  // namespace pv
