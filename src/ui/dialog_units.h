#pragma once

#include <cmath>

namespace pv {

/// A rectangle as the dialogs' tables have it.
struct DialogRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const DialogRect&) const = default;
};

/// Pixels of 96 dpi in one dialog unit.
inline constexpr double kUnitWidth = 1.5;
inline constexpr double kUnitHeight = 1.625;

/// In pixels of 96 dpi. Edges are rounded, not sizes, so that what touches in
/// units touches in pixels.
[[nodiscard]] inline DialogRect inPixels(DialogRect units) {
  const auto across = [](int u) { return static_cast<int>(std::lround(u * kUnitWidth)); };
  const auto down = [](int u) { return static_cast<int>(std::lround(u * kUnitHeight)); };
  const int left = across(units.x);
  const int top = down(units.y);
  return {left, top, across(units.x + units.width) - left, down(units.y + units.height) - top};
}

}  // namespace pv
