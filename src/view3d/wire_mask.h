#pragma once

#include <cstdint>
#include <span>

#include "shape/buffer.h"
#include "view3d/frame_strips.h"
#include "view3d/pixel_box.h"
#include "view3d/pixel_column.h"

namespace pv {

/// The pixels that wires light, collected by one thread. The words are a sixteenth of
/// the frame's size, so that they lie in a nearer cache; and threads that collect into
/// masks of their own never contend for a line of memory. All wires have one colour, so
/// which thread lights a pixel, how often and when cannot be seen.
class WireMask {
 public:
  /// For a frame of this size; false without memory. Nothing is lit afterwards.
  [[nodiscard]] bool begin(std::int32_t width, std::int32_t height);

  [[nodiscard]] MaskPixels pixels() { return {words_.data(), &singles_, strips_}; }
  /// Takes the single pixels over into the words; to be done before the mask is painted.
  void settle();
  [[nodiscard]] PixelReach& reach() { return reach_; }
  /// Everything that is lit lies in here.
  [[nodiscard]] PixelBox box() const;

 private:
  Buffer<std::uint16_t> words_;
  Buffer<std::uint8_t> bytes_;
  SinglePixels singles_;
  FrameStrips strips_;
  PixelReach reach_;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
};

/// Calls work(first, count) for the words, strip by strip, that pixels of a box have.
template <class Work>
void forEachStrip(const FrameStrips& strips, const PixelBox& box, const Work& work) {
  constexpr std::int32_t kWidth = FrameStrips::kWidth;
  if (box.empty()) {
    return;
  }
  for (std::int32_t x = box.left / kWidth * kWidth - kWidth; x < box.right; x += kWidth) {
    work(strips.word(x, box.bottom), static_cast<std::size_t>(box.top - box.bottom));
  }
}

/// A frame, and what its pixels become.
struct PaintJob {
  std::uint32_t* pixels;
  const std::uint32_t* background;  ///< laid out like the frame; null for 0 everywhere
  std::uint8_t* dirty;              ///< of every cell of the frame
  std::int32_t width;
  std::uint32_t colour;
  std::span<WireMask> masks;  ///< 1 to 8
  PixelBox box;               ///< whole cells, as far as they lie in the frame
};

/// Gives every pixel of the box the colour where one of the masks is lit, and
/// that of the background elsewhere. Cells that are not dirty show their background
/// already; they are dirty then if they are lit.
void paintMasks(const PaintJob& job);

}  // namespace pv
