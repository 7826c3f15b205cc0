#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pv {

/// Keeps the picture that a view shows: a bitmap that takes over each finished frame
/// and is replaced only when the frame's size changes. Frames begin with their bottom
/// row, the bitmap with its top one, so that it can be shown as it is.
class FramePresenter {
 public:
  enum class Outcome : std::uint8_t {
    Refused,   ///< width below 4 or above 20,000,000, or no rows: the bitmap stays
    Copied,    ///< same size as before
    Recreated  ///< a new bitmap of the frame's size, cleared, then copied into
  };

  /// `frame` holds width * height words, bottom row first.
  Outcome present(std::span<const std::uint32_t> frame, std::int32_t width, std::int32_t height);

  [[nodiscard]] std::int32_t width() const { return width_; }
  [[nodiscard]] std::int32_t height() const { return height_; }
  /// Top row first; empty until the first frame was accepted.
  [[nodiscard]] std::span<const std::uint32_t> bits() const { return bits_; }

 private:
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  std::vector<std::uint32_t> bits_;
};

}  // namespace pv
