#pragma once

#include <cstddef>
#include <cstdint>

namespace pv {

/// A frame cut into cells of 16 x 4 pixels, one row of cells after the other; the
/// last ones may reach beyond the frame.
///
/// A mask of the frame keeps a byte for every pixel, and those of a cell together in
/// one line of memory, as a word for each x with the lowest of the four rows in its
/// lowest byte. So wires of any direction stay in few lines, and four rows of a frame
/// get their colours from words that are where they are needed.
class FrameCells {
 public:
  static constexpr std::int32_t kWidth = 16;  ///< pixels
  static constexpr std::int32_t kHeight = 4;

  FrameCells() = default;
  FrameCells(std::int32_t width, std::int32_t height)
      : across_((width + kWidth - 1) / kWidth), up_((height + kHeight - 1) / kHeight) {}

  /// Words of a mask from one row of cells to the next.
  [[nodiscard]] std::int32_t pitch() const { return across_ * kWidth; }
  /// Words of a mask, and what may be read behind them.
  [[nodiscard]] std::size_t words() const { return count() * kWidth + kReadable; }
  [[nodiscard]] std::size_t count() const {
    return static_cast<std::size_t>(across_) * static_cast<std::size_t>(up_);
  }
  [[nodiscard]] std::size_t cell(std::int32_t x, std::int32_t y) const {
    return static_cast<std::size_t>(y / kHeight) * static_cast<std::size_t>(across_) +
           static_cast<std::size_t>(x / kWidth);
  }
  /// Where a mask has the word of a pixel, and its byte.
  [[nodiscard]] std::int64_t word(std::int32_t x, std::int32_t y) const {
    return static_cast<std::int64_t>(static_cast<std::uint32_t>(y) / kHeight) * pitch() + x;
  }
  [[nodiscard]] std::int64_t byte(std::int32_t x, std::int32_t y) const {
    return word(x, y) * kHeight + static_cast<std::uint32_t>(y) % kHeight;
  }
  /// The same of a pixel that is one word, y above x.
  [[nodiscard]] std::int64_t byteOf(std::int64_t spot) const {
    return byte(static_cast<std::int32_t>(spot & 0xFFFF), static_cast<std::int32_t>(spot >> 16));
  }

  bool operator==(const FrameCells&) const = default;

 private:
  static constexpr std::size_t kReadable = 16;

  std::int32_t across_ = 0;
  std::int32_t up_ = 0;
};

/// The pixels of a frame as bytes of a mask. Those that are lit hold the mark, a
/// single bit; what else they or others hold is left from earlier frames.
struct MaskPixels {
  std::uint32_t* words = nullptr;
  FrameCells cells;
  std::uint8_t mark = 0;

  [[nodiscard]] std::uint8_t* bytes() const { return reinterpret_cast<std::uint8_t*>(words); }
  /// The mark in all four bytes.
  [[nodiscard]] std::uint32_t markedWord() const { return mark * 0x01010101U; }
  void light(std::int32_t x, std::int32_t y) const { bytes()[cells.byte(x, y)] = mark; }
  void lightSpot(std::int64_t spot) const { bytes()[cells.byteOf(spot)] = mark; }
};

}  // namespace pv
