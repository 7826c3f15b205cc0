#include "path/path_view.h"

#include <algorithm>
#include <cmath>

namespace pv {
namespace {

constexpr std::uint32_t kBackground = 0x606060;
constexpr std::uint32_t kRubberBandColour = 0xC0C0C0;
constexpr float kMaxPixelRatio = 16.0F;  // beyond any screen

ScreenPoint times(ScreenPoint point, float factor) {
  const auto scaled = [factor](std::int32_t value) {
    return nearPixel(std::llround(static_cast<double>(value) * static_cast<double>(factor)));
  };
  return {scaled(point.x), scaled(point.y)};
}

Vec3 times(Vec3 v, float factor) {
  return {v.x * factor, v.y * factor, v.z * factor};
}

}  // namespace

// --- the path ----------------------------------------------------------------

PathResponse PathView::setPoints(const PathRecord& record) {
  endDrag();
  path_.setPoints(record);
  path_.projectAll(viewport());
  hoveredSegment_ = -1;
  refreshHover();
  history_.clear();
  return respond(true, true);
}

Status PathView::load(const std::filesystem::path& fullName) {
  endDrag();
  beginStep();
  Status status = path_.load(fullName);
  if (status) {
    path_.setPoints(path_.getRecord());  // loading alone leaves the drag starts
    path_.projectAll(viewport());
    hoveredSegment_ = -1;
    refreshHover();
    endStep("Load path");
  }
  return status;
}

PathResponse PathView::clearPath() {
  endDrag();
  beginStep();
  forgetHover();
  path_.clear();
  return respond(true, endStep("Delete path"));
}

PathResponse PathView::clearFlags() {
  endDrag();
  forgetHover();
  path_.clearFlags();
  return respond(true);
}

PathResponse PathView::selectAll() {
  if (isDragging()) {
    return respond(false);
  }
  for (std::int32_t i = 0; i < path_.getCount(); ++i) {
    path_.setSelected(i, true);
  }
  refreshHover();
  return respond(true);
}

// --- the view ----------------------------------------------------------------

PathResponse PathView::setTool(PathTool tool) {
  if (!isPathTool(tool)) {
    return respond(false);
  }
  const bool bandChanges = (tool_ == PathTool::Draw) != (tool == PathTool::Draw);
  const bool leavesSegment = hoveredSegment_ >= 0 && tool != PathTool::Add;
  const bool repaint = bandChanges || leavesSegment || isDragging() || rubberBand_;
  endDrag();
  if (leavesSegment) {
    path_.setHighlight(hoveredSegment_, false);
    hoveredSegment_ = -1;
  }
  tool_ = tool;
  drawMode_ = tool == PathTool::Draw;
  chooseCursor();
  PathResponse response = respond(repaint);
  response.takeFocus = true;
  return response;
}

PathResponse PathView::setAxisView(PathAxisView axes) {
  endDrag();
  axes_ = axes;
  path_.snapshotAndProjectSelected(viewport());
  return respond(true);
}

void PathView::setSnapEnabled(bool enabled) {
  snapEnabled_ = enabled;
  path_.setSnapEnabled(enabled);
}

void PathView::setSnapDivisions(std::int32_t divisions) {
  snapDivisions_ = divisions;
  path_.setSnapDivisions(divisions);
}

PathResponse PathView::resetZoom() {
  endDrag();
  pan_ = {};
  zoom_ = kPathDefaultZoom;
  return respond(true);
}

void PathView::setSize(std::int32_t width, std::int32_t height, float pixelRatio) {
  if (width == 0 && height == height_) {
    return;
  }
  width_ = std::clamp(width, 0, kMaxPathFrameSide);
  height_ = std::clamp(height, 0, kMaxPathFrameSide);
  const float ratio = pixelRatio >= 1.0F ? std::min(pixelRatio, kMaxPixelRatio) : 1.0F;
  path_.setSize(width_, height_, ratio);
  if (ratio != pixelRatio_) {
    const float factor = ratio / pixelRatio_;
    pixelRatio_ = ratio;
    for (ScreenPoint* point : {&lastMouse_, &pressMouse_, &grabStartMouse_, &grabStartPan_}) {
      *point = times(*point, factor);
    }
    pan_ = times(pan_, factor);
    pressPan_ = times(pressPan_, factor);
    pointer_.reset();  // until it is known where on the new screen it is
  }
}

// --- frames and figures ------------------------------------------------------

RasterCanvas PathView::startFrame() {
  frame_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  RasterCanvas canvas(frame_.data(), width_, height_);
  canvas.clear(kBackground);
  return canvas;
}

std::span<const std::uint32_t> PathView::drawFrame() {
  RasterCanvas canvas = startFrame();
  if (!frame_.empty()) {
    path_.draw(canvas, viewport());
    drawOverlays(canvas, viewport());
  }
  return frame_;
}

std::span<const std::uint32_t> PathView::drawSegmentsFrame() {
  RasterCanvas canvas = startFrame();
  if (!frame_.empty()) {
    PathViewport view = viewport();
    view.pan = {};
    path_.drawSegments(canvas, view);
    drawOverlays(canvas, view);
  }
  return frame_;
}

void PathView::drawOverlays(RasterCanvas& canvas, const PathViewport& view) {
  if (rubberBand_) {
    PathModel::drawSelectionRect(canvas, pressMouse_, lastMouse_);
  }
  if (drawMode_) {
    canvas.setColour(kRubberBandColour);
    path_.drawRubberBand(canvas, view, lastMouse_);
  }
}

PathReadout PathView::readout() const {
  PathReadout readout{tool_, axes_, {}, path_.getCount(), path_.selectedCount(), zoom_};
  if (pointer_) {
    const PathViewport view = viewport();
    if (const auto at = view.unproject(path_.snapPoint(view, *pointer_))) {
      readout.pointer = {at->axis(view.horizontalAxis()), at->axis(view.verticalAxis())};
    }
  }
  return readout;
}

}  // namespace pv
