#include "path/path_grid.h"

#include <algorithm>

#include "math/scalar.h"

namespace pv {
namespace {

constexpr std::uint32_t kLineColour = 0x333333;
constexpr std::uint32_t kHalfUnitColour = 0x545454;
constexpr std::uint32_t kCentreLineColour = 0x999999;
constexpr int kCellsPerUnit = 10;

/// The lines across one axis: where the origin is and how far a unit reaches.
struct Axis {
  std::int32_t origin;
  std::int32_t unit;

  Axis(std::int32_t size, float zoom, std::int32_t offset)
      : origin(nearPixel(std::int64_t{size} / 2 + offset)),
        unit(truncate(static_cast<float>(size) * zoom) / 2) {}

  [[nodiscard]] std::int32_t at(int cell) const {
    const float step = static_cast<float>(unit) / static_cast<float>(kCellsPerUnit);
    return nearPixel(std::int64_t{origin} + truncate(static_cast<float>(cell) * step));
  }
};

/// Both ends on the canvas, since a line that sticks out at both is not drawn.
void drawColumn(RasterCanvas& canvas, std::int32_t x, const Axis& rows) {
  const std::int32_t bottom = std::max(rows.at(-kCellsPerUnit), 0);
  const std::int32_t top = std::min(rows.at(kCellsPerUnit), canvas.height - 1);
  if (bottom < top) {
    canvas.line(x, bottom, x, top);
  }
}

void drawCross(RasterCanvas& canvas, const Axis& columns, const Axis& rows, int cell) {
  const std::int32_t y = rows.at(cell);
  canvas.line(columns.at(-kCellsPerUnit), y, columns.at(kCellsPerUnit), y);
  drawColumn(canvas, columns.at(cell), rows);
}

}  // namespace

void drawPathGrid(RasterCanvas& canvas, const PathViewport& view) {
  const ScreenPoint pan = view.wholePan();
  const Axis columns(view.width, view.zoom, pan.x);
  const Axis rows(view.height, view.zoom, -pan.y);
  if (columns.unit <= 0 || rows.unit <= 0) {
    return;
  }
  for (int cell = 1; cell <= kCellsPerUnit; ++cell) {
    canvas.setColour(cell == kCellsPerUnit / 2 ? kHalfUnitColour : kLineColour);
    drawCross(canvas, columns, rows, -cell);
    drawCross(canvas, columns, rows, cell);
  }
  canvas.setColour(kCentreLineColour);
  drawCross(canvas, columns, rows, 0);
}

}  // namespace pv
