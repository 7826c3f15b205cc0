#include "view3d/line_windows.h"

#include <algorithm>
#include <bit>

#include "raster/line_walk.h"

namespace pv {

namespace {

void light(LineWindows::Window& window, std::int32_t x, std::int32_t y) {
  std::uint16_t& row = window.at(static_cast<std::size_t>(y));
  row = static_cast<std::uint16_t>(row | 1U << static_cast<std::uint32_t>(x));
}

/// From the left end by (dx, dy), either end in the lowest row.
LineWindows::Window shortLine(std::int32_t dx, std::int32_t dy) {
  constexpr std::int32_t kWide = FrameStrips::kWordBits;
  const std::int32_t start = std::max(-dy, 0);
  LineWindows::Window window{};
  forEachLinePixel(0, start, dx, start + dy, {kWide, kWide, kWide}, [&](std::int64_t at) {
    const auto pixel = static_cast<std::int32_t>(at);
    light(window, pixel % kWide, pixel / kWide);
  });
  return window;
}

LineWindows::Window stretch(std::uint32_t turns, bool isSteep, bool isDownward) {
  const auto pixels = static_cast<std::int32_t>(std::bit_width(turns));
  LineWindows::Window window{};
  std::int32_t aside = 0;
  for (std::int32_t step = 0; step < pixels; ++step) {
    const std::int32_t across = isSteep ? aside : step;
    const std::int32_t up = isSteep ? step : aside;
    light(window, across, isDownward ? LineWindows::kHighest - up : up);
    aside += static_cast<std::int32_t>(turns >> static_cast<std::uint32_t>(step) & 1U);
  }
  return window;
}

}  // namespace

LineWindows::LineWindows() {
  for (std::int32_t dy = -kUp; dy <= kUp; ++dy) {
    for (std::int32_t dx = 0; dx <= kAcross; ++dx) {
      set(kMiddle + kPitch * dy + kPlaces * dx, shortLine(dx, dy));
    }
  }
  for (std::int32_t turns = 1; turns < 1 << kStretch; ++turns) {
    for (const bool isSteep : {false, true}) {
      for (const bool isDownward : {false, true}) {
        const std::int32_t kind = (isSteep ? kSteep : 0) + (isDownward ? kDownward : 0);
        set(kStretches + kPlaces * turns + kind,
            stretch(static_cast<std::uint32_t>(turns), isSteep, isDownward));
      }
    }
  }
}

void LineWindows::set(std::int32_t index, const Window& window) {
  for (std::int32_t place = 0; place < kPlaces; ++place) {
    std::transform(
        window.begin(), window.end(),
        windows_.at(static_cast<std::size_t>(index) + static_cast<std::size_t>(place)).begin(),
        [place](std::uint16_t row) { return static_cast<std::uint16_t>(row << place); });
  }
}

}  // namespace pv
