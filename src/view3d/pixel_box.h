#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace pv {

/// Pixels from (left, bottom) up to, and without, (right, top).
struct PixelBox {
  std::int32_t left = 0;
  std::int32_t bottom = 0;
  std::int32_t right = 0;
  std::int32_t top = 0;

  [[nodiscard]] bool empty() const { return left >= right || bottom >= top; }
  [[nodiscard]] std::size_t pixels() const {
    return empty()
               ? 0
               : static_cast<std::size_t>(right - left) * static_cast<std::size_t>(top - bottom);
  }
  [[nodiscard]] bool contains(const PixelBox& other) const {
    return other.empty() || (left <= other.left && bottom <= other.bottom && right >= other.right &&
                             top >= other.top);
  }
  /// The smallest box around both.
  [[nodiscard]] PixelBox with(const PixelBox& other) const {
    if (empty() || other.empty()) {
      return empty() ? other : *this;
    }
    return {std::min(left, other.left), std::min(bottom, other.bottom),
            std::max(right, other.right), std::max(top, other.top)};
  }
};

}  // namespace pv
