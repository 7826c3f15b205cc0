#include "raster/raster_canvas.h"

#include "math/scalar.h"
#include "raster/pixel_words.h"

namespace pv {

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;

// left <= x < right and bottom <= y < top.
struct Area {
  std::int64_t left;
  std::int64_t bottom;
  std::int64_t right;
  std::int64_t top;
};

void paint(const RasterCanvas& canvas, const Area& area, std::uint32_t value,
           WordOperation operation) {
  const std::int64_t top = std::min<std::int64_t>(area.top, canvas.height);
  for (std::int64_t y = std::max<std::int64_t>(area.bottom, 0); y < top; ++y) {
    const std::span<std::uint32_t> row = canvas.clippedRow(y, area.left, area.right);
    operation(row.data(), value, row.size());
  }
}

Area pixelArea(std::int64_t x, std::int64_t y) {
  return {x, y, x + 1, y + 1};
}

void paintDot(const RasterCanvas& canvas, std::int32_t x, std::int32_t y, float halfSize,
              WordOperation operation) {
  if (halfSize > 0.0F && halfSize < 1.0F) {
    paint(canvas, pixelArea(x, y), canvas.colour, operation);
    return;
  }
  const auto centreX = static_cast<float>(x);
  const auto centreY = static_cast<float>(y);
  paint(canvas,
        {truncate(centreX - halfSize), truncate(centreY - halfSize), truncate(centreX + halfSize),
         truncate(centreY + halfSize)},
        canvas.colour, operation);
}

// 0x00BBGGRR to an opaque pixel.
constexpr std::uint32_t pixelOfColorref(std::uint32_t colorref) {
  return kOpaque | (colorref & 0xFFU) << 16U | (colorref & 0xFF00U) | (colorref >> 16U & 0xFFU);
}

}  // namespace

RasterCanvas::RasterCanvas(std::uint32_t* block, std::int32_t columns, std::int32_t rows)
    : pixels(block) {
  if (block != nullptr && columns > 0 && rows > 0) {
    width = columns;
    height = rows;
  }
}

void RasterCanvas::clear(std::uint32_t rgb) const {
  MMXDWORDset(pixels, rgb | kOpaque,
              static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

void RasterCanvas::fillRectangle(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                                 std::uint32_t rgb) const {
  paint(*this, {x1, y2, x2, y1}, rgb | kOpaque, MMXDWORDset);
}

void RasterCanvas::filledBox(std::int32_t x1, std::int32_t y1, std::int32_t x2,
                             std::int32_t y2) const {
  if (x1 > width || y1 > height || x2 < 0 || y2 < 0) {
    return;
  }
  paint(*this, {x1, y2, x2, y1}, colour, MMXDWORDset);
}

void RasterCanvas::orderedFilledBox(std::int32_t x1, std::int32_t y1, std::int32_t x2,
                                    std::int32_t y2) const {
  filledBox(std::min(x1, x2), std::max(y1, y2), std::max(x1, x2), std::min(y1, y2));
}

void RasterCanvas::bevelFrame(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                              std::uint32_t topRight, std::uint32_t bottomLeft) const {
  const Area frame = {std::min(x1, x2), std::min(y1, y2), std::int64_t{std::max(x1, x2)} + 1,
                      std::int64_t{std::max(y1, y2)} + 1};
  // Edges hold both their corners; where the colours meet, the later one stays.
  const auto edges = [&](std::int64_t row, std::int64_t column, std::uint32_t colorref) {
    const std::uint32_t value = pixelOfColorref(colorref);
    paint(*this, {frame.left, row, frame.right, row + 1}, value, MMXDWORDset);
    paint(*this, {column, frame.bottom, column + 1, frame.top}, value, MMXDWORDset);
  };
  edges(y2, x1, bottomLeft);
  edges(y1, x2, topRight);
}

void RasterCanvas::squareDot(std::int32_t x, std::int32_t y, float halfSize) const {
  paintDot(*this, x, y, halfSize, MMXDWORDset);
}

void RasterCanvas::additiveSquareDot(std::int32_t x, std::int32_t y, float halfSize) const {
  paintDot(*this, x, y, halfSize, MMXAddDWORDSaturation);
}

}  // namespace pv
