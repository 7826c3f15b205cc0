#include <utility>

#include "raster/pixel_words.h"
#include "raster/raster_canvas.h"

namespace pv {

namespace {

// 64 bits hold every product below: a difference of two 32-bit coordinates
// times a distance that is at most 2^31.
struct Segment {
  std::int64_t x1;
  std::int64_t y1;
  std::int64_t x2;
  std::int64_t y2;
};

// x1 <= x2, and one end at least is not left of the canvas, one not right.
void clipAcross(Segment& s, std::int64_t width) {
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
void clipUpward(Segment& s, std::int64_t height) {
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
bool isInside(const RasterCanvas& canvas, std::int64_t x, std::int64_t y) {
  return static_cast<std::uint64_t>(x) < static_cast<std::uint64_t>(canvas.width) &&
         static_cast<std::uint64_t>(y) < static_cast<std::uint64_t>(canvas.height);
}

bool isInside(const RasterCanvas& canvas, const Segment& s) {
  return isInside(canvas, s.x1, s.y1) && isInside(canvas, s.x2, s.y2);
}

bool isBeside(const RasterCanvas& canvas, const Segment& s) {
  return s.x2 < 0 || std::max(s.y1, s.y2) < 0 || s.x1 >= canvas.width ||
         std::min(s.y1, s.y2) >= canvas.height;
}

// Bresenham's walk, unchecked: both ends lie on the canvas and x1 <= x2. An
// error of exactly 0 steps sideways. Most lines of a frame are one to three
// pixels long, so a step has no branch that could be guessed wrongly.
void walk(const RasterCanvas& canvas, const Segment& s) {
  const std::int64_t dx = s.x2 - s.x1;
  const std::int64_t dy = s.y2 - s.y1;
  std::int64_t steps = dx;
  std::int64_t drift = dy < 0 ? -dy : dy;
  std::ptrdiff_t forward = 1;
  std::ptrdiff_t sideways = dy < 0 ? -std::ptrdiff_t{canvas.width} : canvas.width;
  if (drift > steps) {
    std::swap(steps, drift);
    std::swap(forward, sideways);
  }
  const std::uint32_t value = canvas.colour;
  std::uint32_t* pixel = canvas.pixels + s.y1 * canvas.width + s.x1;
  std::int64_t error = 2 * drift - steps;
  for (std::int64_t left = steps; left > 0; --left) {
    *pixel = value;
    const std::int64_t turn = error >= 0 ? -1 : 0;  // all ones, or none
    error += 2 * drift - (2 * steps & turn);
    pixel += forward + (sideways & static_cast<std::ptrdiff_t>(turn));
  }
  *pixel = value;
}

}  // namespace

void RasterCanvas::line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) const {
  if (y1 == y2) {
    const std::span<std::uint32_t> row = clippedRow(y1, std::min(x1, x2), std::max(x1, x2));
    MMXDWORDset(row.data(), colour, row.size());
    return;
  }
  Segment segment = x1 <= x2 ? Segment{x1, y1, x2, y2} : Segment{x2, y2, x1, y1};
  if (!isInside(*this, segment)) {
    if (isBeside(*this, segment)) {
      return;
    }
    clipAcross(segment, width);
    clipUpward(segment, height);
    if (!isInside(*this, segment)) {
      return;
    }
  }
  walk(*this, segment);
}

void RasterCanvas::moveTo(std::int32_t x, std::int32_t y) {
  cursorX = x;
  cursorY = y;
}

void RasterCanvas::lineTo(std::int32_t x, std::int32_t y) {
  line(cursorX, cursorY, x, y);
  moveTo(x, y);
}

void RasterCanvas::polyline(std::span<const PixelPoint> points) {
  if (points.empty()) {
    return;
  }
  moveTo(points.front().x, points.front().y);
  for (const PixelPoint& point : points.subspan(1)) {
    lineTo(point.x, point.y);
  }
}

void RasterCanvas::triangle(PixelPoint a, PixelPoint b, PixelPoint c) {
  moveTo(a.x, a.y);
  lineTo(b.x, b.y);
  lineTo(c.x, c.y);
  lineTo(a.x, a.y);
}

}  // namespace pv
