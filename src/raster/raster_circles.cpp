#include <cmath>

#include "math/plane_angles.h"
#include "math/scalar.h"
#include "raster/pixel_words.h"
#include "raster/raster_canvas.h"

namespace pv {

namespace {

// Exact for values up to 2^62 + 2^32: the estimate is off by one at most.
std::int64_t integerRoot(std::int64_t value) {
  auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(value)));
  if (root * root > value) {
    --root;
  } else if ((root + 1) * (root + 1) <= value) {
    ++root;
  }
  return root;
}

// The midpoint walk of a quarter circle goes from (0, r) to (r, 0) with the
// error term (x + 1)^2 + (y - 1)^2 - r^2, at first 2 * (1 - r). It steps down
// when error + y > 0 and out when error <= x, or both. The two functions below
// are that walk solved for a single row, so that the rows off the canvas cost
// nothing and no radius is too large.

// Largest x in row y, 0 <= y <= r: the largest with
// x^2 + y^2 + 1 - max(x, y) <= r^2.
std::int64_t outermost(std::int64_t r, std::int64_t y) {
  if (r == 0) {
    return 0;
  }
  const std::int64_t room = r * r - y * y - 1;
  const std::int64_t flat = integerRoot(room + y);
  if (flat < y) {
    return flat;
  }
  const std::int64_t steep = integerRoot(room);
  return steep * (steep + 1) <= room ? steep + 1 : steep;
}

// Smallest x in row y: below or diagonally below the last pixel of row y + 1.
std::int64_t innermost(std::int64_t r, std::int64_t y) {
  if (y == r) {
    return 0;
  }
  const std::int64_t above = outermost(r, y + 1);
  const std::int64_t error = (above + 1) * (above + 1) + y * y - r * r;
  return error <= above ? above + 1 : above;
}

struct RowRange {
  std::int64_t first;
  std::int64_t last;
};

RowRange visibleRows(const RasterCanvas& canvas, std::int64_t y, std::int64_t radius) {
  return {std::max<std::int64_t>(y - radius, 0),
          std::min<std::int64_t>(y + radius, canvas.height - 1)};
}

void paintSpan(const RasterCanvas& canvas, std::int64_t y, std::int64_t x1, std::int64_t x2,
               WordOperation operation) {
  const std::span<std::uint32_t> row = canvas.clippedRow(y, x1, x2);
  operation(row.data(), canvas.colour, row.size());
}

// Each row once, so that adding never brightens a pixel twice.
void paintDisc(const RasterCanvas& canvas, std::int32_t x, std::int32_t y, float radius,
               WordOperation operation) {
  if (radius > 0.0F && radius < 1.0F) {
    paintSpan(canvas, y, x, std::int64_t{x} + 1, operation);
    return;
  }
  const std::int64_t r = truncate(radius);
  const RowRange rows = visibleRows(canvas, y, r);
  for (std::int64_t row = rows.first; row <= rows.last; ++row) {
    const std::int64_t reach = outermost(r, std::abs(row - y));
    paintSpan(canvas, row, x - reach, x + reach, operation);
  }
}

// Radii of which a circle around (x, y) can meet the canvas, with a margin of
// two pixels for rounding.
RowRange meetingRadii(const RasterCanvas& canvas, std::int64_t x, std::int64_t y) {
  const std::int64_t right = canvas.width - 1;
  const std::int64_t top = canvas.height - 1;
  const auto nearX = std::max<std::int64_t>({-x, x - right, 0});
  const auto nearY = std::max<std::int64_t>({-y, y - top, 0});
  const std::int64_t farX = std::max(std::abs(x), std::abs(right - x));
  const std::int64_t farY = std::max(std::abs(y), std::abs(top - y));
  const auto distance = [](std::int64_t a, std::int64_t b) {
    return static_cast<std::int64_t>(planeLength(static_cast<double>(a), static_cast<double>(b)));
  };
  return {distance(nearX, nearY) - 2, distance(farX, farY) + 2};
}

}  // namespace

void RasterCanvas::filledDisc(std::int32_t x, std::int32_t y, float radius) const {
  paintDisc(*this, x, y, radius, MMXDWORDset);
}

void RasterCanvas::additiveDisc(std::int32_t x, std::int32_t y, float radius) const {
  paintDisc(*this, x, y, radius, MMXAddDWORDSaturation);
}

void RasterCanvas::circle(std::int32_t x, std::int32_t y, std::int32_t radius) const {
  const RowRange rows = visibleRows(*this, y, radius);
  for (std::int64_t row = rows.first; row <= rows.last; ++row) {
    const std::int64_t up = std::abs(row - y);
    const std::int64_t inner = innermost(radius, up);
    const std::int64_t outer = outermost(radius, up);
    paintSpan(*this, row, x - outer, x - inner + 1, MMXDWORDset);
    paintSpan(*this, row, x + inner, x + outer + 1, MMXDWORDset);
  }
}

void RasterCanvas::ring(std::int32_t x, std::int32_t y, std::int32_t radius) const {
  const RowRange radii = meetingRadii(*this, x, y);
  const std::int64_t smallest =
      std::max({std::int64_t{radius} - thickness + 1, radii.first, std::int64_t{0}});
  for (std::int64_t r = std::min<std::int64_t>(radius, radii.last); r >= smallest; --r) {
    circle(x, y, static_cast<std::int32_t>(r));
  }
}

}  // namespace pv
