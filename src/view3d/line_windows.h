#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "view3d/frame_strips.h"

namespace pv {

/// The pixels of short lines, and of stretches of longer ones, as they lie in the words
/// of a strip of FrameStrips.
class LineWindows {
 public:
  /// From the lowest row of the line.
  using Window = std::array<std::uint16_t, FrameStrips::kWindowRows>;
  /// Windows of one line or stretch: for every place of its left end in a strip.
  static constexpr std::int32_t kPlaces = FrameStrips::kWidth;

  // A short line from the left end by (dx, dy) has its windows from kMiddle + kPlaces * dx
  // + kPitch * dy on. As all lines, it lights both ends, unless it is horizontal: then
  // only the left one.
  static constexpr std::int32_t kAcross = 8;  ///< most steps
  static constexpr std::int32_t kUp = FrameStrips::kWindowRows - 1;
  static constexpr std::int32_t kPitch = kPlaces * (kAcross + 1);
  static constexpr std::int32_t kMiddle = kPitch * kUp;

  // A stretch of up to eight pixels has its windows from kStretches + kPlaces * its turns
  // + kSteep and kDownward, if it is so, on. Its turns have a bit for each of its pixels
  // but the first: whether the walk went aside on the way to it; and a bit above.
  static constexpr std::int32_t kStretch = 8;  ///< pixels
  static constexpr std::int32_t kStretches = 2 * kMiddle + kPitch;
  static constexpr std::int32_t kSteep = kPlaces << kStretch;
  static constexpr std::int32_t kDownward = 2 * kSteep;
  /// Those that lead downward have their left end in the highest row of their window.
  static constexpr std::int32_t kHighest = FrameStrips::kWindowRows - 1;

  LineWindows();

  [[nodiscard]] const Window* data() const { return windows_.data(); }

 private:
  /// The windows of a line or stretch, by the one of the first place.
  void set(std::int32_t index, const Window& window);

  alignas(64) std::array<Window, static_cast<std::size_t>(kStretches + 2 * kDownward)> windows_{};
};

}  // namespace pv
