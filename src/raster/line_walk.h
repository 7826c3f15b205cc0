#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace pv {

// Straight segments, pixel by pixel, for whatever is done with the pixels.

// 64 bits hold every product below: a difference of two 32-bit coordinates
// times a distance that is at most 2^31.
struct LineSegment {
  std::int64_t x1;
  std::int64_t y1;
  std::int64_t x2;
  std::int64_t y2;
};

// x1 <= x2, and one end at least is not left of the canvas, one not right.
inline void clipAcross(LineSegment& s, std::int64_t width) {
  const std::int64_t dx = s.x2 - s.x1;
  const std::int64_t dy = s.y2 - s.y1;
  if (s.x1 < 0) {
    s.y1 += dy * -s.x1 / dx;
    s.x1 = 0;
  } else if (s.x2 >= width) {
    s.y2 += dy * (width - 1 - s.x2) / dx;
    s.x2 = width - 1;
  }
}

// One end only, even where both stick out; the caller drops what is left over.
inline void clipUpward(LineSegment& s, std::int64_t height) {
  const std::int64_t dx = s.x2 - s.x1;
  const std::int64_t dy = s.y2 - s.y1;
  if (dy == 0) {
    return;  // flat, and by clipping it to a row it would not come any nearer
  }
  const auto moveStart = [&](std::int64_t y) {
    s.x1 += dx * (y - s.y1) / dy;
    s.y1 = y;
  };
  const auto moveEnd = [&](std::int64_t y) {
    s.x2 += dx * (y - s.y2) / dy;
    s.y2 = y;
  };
  if (s.y1 < 0) {
    moveStart(0);
  } else if (s.y2 < 0) {
    moveEnd(0);
  } else if (s.y1 >= height) {
    moveStart(height - 1);
  } else if (s.y2 >= height) {
    moveEnd(height - 1);
  }
}

// One unsigned comparison an axis; sizes are never negative.
[[nodiscard]] inline bool isInside(const LineSegment& s, std::int64_t width, std::int64_t height) {
  const auto w = static_cast<std::uint64_t>(width);
  const auto h = static_cast<std::uint64_t>(height);
  return static_cast<std::uint64_t>(s.x1) < w && static_cast<std::uint64_t>(s.y1) < h &&
         static_cast<std::uint64_t>(s.x2) < w && static_cast<std::uint64_t>(s.y2) < h;
}

[[nodiscard]] inline bool isBeside(const LineSegment& s, std::int64_t width, std::int64_t height) {
  return s.x2 < 0 || std::max(s.y1, s.y2) < 0 || s.x1 >= width || std::min(s.y1, s.y2) >= height;
}

inline constexpr std::int64_t kLongWalk = 16;  // steps; below, the division costs more
inline constexpr std::int64_t kMostLongSteps = 8192;

// Bresenham's walk without its chain from step to step. After i of n steps it
// has gone aside floor((2 i d + n) / (2 n)) times, an error of 0 counted in. In
// 32 binary places i times the slope falls short by less than i / 2^32 <= 2^-19,
// and the exact value misses the next whole number by 1 / (2 n) >= 2^-14 if at
// all; with 2^-17 added the whole part is therefore the exact one.
template <class Set>
void walkLong(std::int64_t pixel, std::int64_t forward, std::int64_t sideways, std::int64_t steps,
              std::int64_t drift, Set set) {
  constexpr int kPlaces = 32;
  const std::int64_t slope = (drift << kPlaces) / steps;
  std::int64_t aside = (std::int64_t{1} << (kPlaces - 1)) + (std::int64_t{1} << (kPlaces - 17));
  for (std::int64_t i = 0; i <= steps; ++i) {
    set(pixel + (aside >> kPlaces) * sideways);
    pixel += forward;
    aside += slope;
  }
}

// Bresenham's walk: calls `set` with the offset of every pixel, both ends
// included, in a picture of `pitch` words a row. x1 <= x2. An error of exactly 0
// steps sideways. Most lines of a frame are one to three pixels long, so a step
// has no branch that could be guessed wrongly.
template <class Set>
void walkLine(const LineSegment& s, std::int64_t pitch, Set set) {
  const std::int64_t dx = s.x2 - s.x1;
  const std::int64_t dy = s.y2 - s.y1;
  std::int64_t steps = dx;
  std::int64_t drift = dy < 0 ? -dy : dy;
  std::int64_t forward = 1;
  std::int64_t sideways = dy < 0 ? -pitch : pitch;
  if (drift > steps) {
    std::swap(steps, drift);
    std::swap(forward, sideways);
  }
  std::int64_t pixel = s.y1 * pitch + s.x1;
  if (steps >= kLongWalk && steps <= kMostLongSteps) {
    walkLong(pixel, forward, sideways, steps, drift, set);
    return;
  }
  std::int64_t error = 2 * drift - steps;
  for (std::int64_t left = steps; left > 0; --left) {
    set(pixel);
    const std::int64_t turn = error >= 0 ? -1 : 0;  // all ones, or none
    error += 2 * drift - (2 * steps & turn);
    pixel += forward + (sideways & turn);
  }
  set(pixel);
}

/// A picture as lines see it.
struct LineArea {
  std::int64_t width;
  std::int64_t height;
  std::int64_t pitch;  ///< offset from a pixel to the one above it
};

/// The offsets of the pixels of the line from (x1, y1) to (x2, y2), clipped to
/// the picture: a horizontal line without its right end, every other one with both
/// ends. Clipped at most once an axis; what is still outside is dropped.
template <class Set>
void forEachLinePixel(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                      const LineArea& area, Set set) {
  const std::int64_t width = area.width;
  const std::int64_t height = area.height;
  LineSegment s = x1 <= x2 ? LineSegment{x1, y1, x2, y2} : LineSegment{x2, y2, x1, y1};
  if (y1 == y2) {
    if (y1 >= 0 && y1 < height) {
      const std::int64_t row = y1 * area.pitch;
      const std::int64_t end = std::min(s.x2, width);
      for (std::int64_t x = std::max<std::int64_t>(s.x1, 0); x < end; ++x) {
        set(row + x);
      }
    }
    return;
  }
  if (!isInside(s, width, height)) {
    if (isBeside(s, width, height)) {
      return;
    }
    clipAcross(s, width);
    clipUpward(s, height);
    if (!isInside(s, width, height)) {
      return;
    }
  }
  walkLine(s, area.pitch, set);
}

}  // namespace pv
