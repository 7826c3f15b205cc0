#include <array>

#include "path/path_grid.h"
#include "path/path_model.h"

namespace pv {
namespace {

constexpr std::uint32_t kSegmentColour = 0xFFFFFF;
constexpr std::uint32_t kHighlightColour = 0xFF0000;
constexpr std::uint32_t kSelectedColour = 0xFF0433;
constexpr std::uint32_t kSelectedHoverColour = 0xBCFF06;
constexpr std::uint32_t kFirstVertexColour = 0x0088FF;
constexpr std::uint32_t kVertexColour = 0x880000;
constexpr std::uint32_t kSelectionRectColour = 0x900000;

// Sides of the square markers in pixels of 96 dpi.
constexpr std::int32_t kVertexSide = 5;
constexpr std::int32_t kSelectedSide = 7;

}  // namespace

void PathModel::drawMarker(RasterCanvas& canvas, PixelPoint at, std::size_t index) const {
  std::uint32_t rgb = index == 0 ? kFirstVertexColour : kVertexColour;
  if (selected_[index]) {
    rgb = vertexHover_ ? kSelectedHoverColour : kSelectedColour;
  }
  const std::int32_t side = scaled(selected_[index] ? kSelectedSide : kVertexSide);
  const std::int32_t left = at.x - side / 2;
  const std::int32_t bottom = at.y - side / 2;
  canvas.fillRectangle(left, bottom + side, left + side, bottom, rgb);
}

void PathModel::draw(RasterCanvas& canvas, const PathViewport& view) {
  if (width_ < 0) {
    return;
  }
  drawPathGrid(canvas, view);
  drawPoints(canvas, view, true);
}

void PathModel::drawSegments(RasterCanvas& canvas, const PathViewport& view) {
  if (width_ >= 0) {
    drawPoints(canvas, view, false);
  }
}

void PathModel::drawPoints(RasterCanvas& canvas, const PathViewport& view, bool markers) {
  std::optional<PixelPoint> next;
  for (std::size_t i = 0; i < slot(count_); ++i) {
    const auto at = i == 0 ? projectSlot(view, i) : next;
    next = i + 1 < slot(count_) ? projectSlot(view, i + 1) : std::nullopt;
    if (at && next) {
      canvas.setColour(highlighted_[i] ? kHighlightColour : kSegmentColour);
      canvas.line(at->x, at->y, next->x, next->y);
    }
    if (at && markers) {
      drawMarker(canvas, *at, i);
    }
  }
}

void PathModel::drawSelectionRect(RasterCanvas& canvas, ScreenPoint a, ScreenPoint b) {
  PathViewport view;
  view.height = canvas.height;
  const PixelPoint p = view.toDrawing(a);
  const PixelPoint q = view.toDrawing(b);
  const std::array<PixelPoint, 5> outline{p, PixelPoint{q.x, p.y}, q, PixelPoint{p.x, q.y}, p};
  canvas.setColour(kSelectionRectColour);
  canvas.polyline(outline);
}

void PathModel::drawRubberBand(RasterCanvas& canvas, const PathViewport& view, ScreenPoint mouse) {
  lastMouse_ = view.toDrawing(mouse);
  if (count_ == 0) {
    return;
  }
  setNextVertexFromBand(view, mouse);
  if (const auto last = projectSlot(view, slot(count_ - 1))) {
    canvas.line(last->x, last->y, lastMouse_.x, lastMouse_.y);
  }
}

}  // namespace pv
