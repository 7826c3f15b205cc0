#include "raster/line_walk.h"
#include "raster/pixel_words.h"
#include "raster/raster_canvas.h"

namespace pv {

void RasterCanvas::line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) const {
  if (y1 == y2) {
    const std::span<std::uint32_t> row = clippedRow(y1, std::min(x1, x2), std::max(x1, x2));
    MMXDWORDset(row.data(), colour, row.size());
    return;
  }
  forEachLinePixel(x1, y1, x2, y2, {width, height, width},
                   [to = pixels, value = colour](std::int64_t pixel) { to[pixel] = value; });
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
