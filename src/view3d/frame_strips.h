#pragma once

#include <cstddef>
#include <cstdint>

#include "view3d/frame_cells.h"

namespace pv {

/// A frame cut into upright strips of eight pixels, for masks with a bit for every pixel.
///
/// A strip has a word of sixteen bits for each row, one behind the other. The lower
/// half are the strip's own pixels, the leftmost one in the lowest bit, the upper half
/// those of the strip to the right. So a pixel has two places, and is lit if one of
/// them is: what is up to nine pixels wide and eight high lies in eight words that
/// follow each other, a single vector of 128 bits, wherever it begins.
class FrameStrips {
 public:
  static constexpr std::int32_t kWidth = 8;  ///< pixels
  static constexpr std::int32_t kWordBits = 16;
  static constexpr std::int32_t kWindowRows = 8;  ///< may be read and written from any row on

  FrameStrips() = default;
  /// Up to 32,727 rows, so that places are found by factors of sixteen bits.
  FrameStrips(std::int32_t width, std::int32_t height)
      : pitch_(((height + kWindowRows + kLine - 1) / kLine | 1) * kLine),
        strips_((width + FrameCells::kWidth - 1) / FrameCells::kWidth * 2) {}

  /// Words of a mask, the strip left of the first one and what may be read behind the
  /// last included.
  [[nodiscard]] std::size_t words() const {
    return static_cast<std::size_t>(strips_ + 1) * static_cast<std::size_t>(pitch_) + kReadable;
  }
  /// Words of a mask from one strip to the next.
  [[nodiscard]] std::int32_t pitch() const { return pitch_; }
  /// Where a mask has the word of a row of the strip with `x`, which may be as far left
  /// as -8.
  [[nodiscard]] std::int64_t word(std::int32_t x, std::int32_t y) const {
    return static_cast<std::int64_t>((x >> 3) + 1) * pitch_ + y;
  }

 private:
  static constexpr std::int32_t kLine = 32;     // words of a line of the cache
  static constexpr std::size_t kReadable = 64;  // a vector, from any word

  // An odd number of lines, so that neighbouring strips do not contend for the same
  // few places of the cache.
  std::int32_t pitch_ = kLine;
  std::int32_t strips_ = 0;
};

/// Single pixels of a frame as bytes, laid out like the lower halves of a mask's words.
/// Storing a byte takes no look at what is there, so pixels next to each other do not
/// wait for one another as bits would.
struct SinglePixels {
  std::uint8_t* bytes = nullptr;  ///< of the strip left of the first one; 1 is lit
  bool areUsed = false;           ///< else none is lit
};

/// The pixels of a frame as bits of a mask, and those that are still bytes.
struct MaskPixels {
  std::uint16_t* words = nullptr;
  SinglePixels* singles = nullptr;
  FrameStrips strips;

  /// Those of the first strip of the frame, in bytes.
  [[nodiscard]] std::uint8_t* firstWords() const {
    return reinterpret_cast<std::uint8_t*>(words + strips.pitch());
  }
  [[nodiscard]] std::uint8_t* firstSingles() const {
    return singles->bytes + std::ptrdiff_t{strips.pitch()} * FrameStrips::kWidth;
  }
  void light(std::int32_t x, std::int32_t y) const {
    std::uint16_t& word = words[strips.word(x, y)];
    word = static_cast<std::uint16_t>(word | 1U << (x & 7));
  }
  /// A pixel that is one word, y above x.
  void lightSpot(std::int64_t spot) const {
    light(static_cast<std::int32_t>(spot & 0xFFFF), static_cast<std::int32_t>(spot >> 16));
  }
  [[nodiscard]] bool isLit(std::int32_t x, std::int32_t y) const {
    const std::int64_t at = strips.word(x, y);
    const std::uint32_t left = words[at - strips.pitch()];
    const std::uint32_t bits = words[at] | left >> 8;
    return (bits >> (x & 7) & 1) != 0 || singles->bytes[at * FrameStrips::kWidth + (x & 7)] != 0;
  }
};

}  // namespace pv
