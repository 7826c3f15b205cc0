#pragma once

#include <cstddef>
#include <cstdint>

namespace pv {

/// A frame cut into cells of 16 x 8 pixels, one row of cells after the other; the
/// last ones may reach beyond the frame. Frames are painted and put back by cells.
class FrameCells {
 public:
  static constexpr std::int32_t kWidth = 16;  ///< pixels
  static constexpr std::int32_t kHeight = 8;

  FrameCells() = default;
  FrameCells(std::int32_t width, std::int32_t height)
      : across_((width + kWidth - 1) / kWidth), up_((height + kHeight - 1) / kHeight) {}

  [[nodiscard]] std::size_t count() const {
    return static_cast<std::size_t>(across_) * static_cast<std::size_t>(up_);
  }
  [[nodiscard]] std::size_t cell(std::int32_t x, std::int32_t y) const {
    return static_cast<std::size_t>(y / kHeight) * static_cast<std::size_t>(across_) +
           static_cast<std::size_t>(x / kWidth);
  }

 private:
  std::int32_t across_ = 0;
  std::int32_t up_ = 0;
};

}  // namespace pv
