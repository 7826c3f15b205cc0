#include <algorithm>
#include <cmath>

#include "path/path_view.h"

namespace pv {
namespace {

constexpr float kZoomDragPixels = 80.0F;  // of 96 dpi, for a zoom of 1
constexpr float kWheelStep = 0.1F;
constexpr float kMaxNotches = 20.0F;  // in one event
constexpr ScreenPoint kOutside{-(1 << 24), -(1 << 24)};

/// Far beyond any screen, and small enough that differences cannot overflow.
ScreenPoint onDesk(ScreenPoint p) {
  constexpr std::int32_t kReach = 1 << 24;
  return {std::clamp(p.x, -kReach, kReach), std::clamp(p.y, -kReach, kReach)};
}

ScreenPoint operator-(ScreenPoint a, ScreenPoint b) {
  return {a.x - b.x, a.y - b.y};
}

}  // namespace

PathResponse PathView::respond(bool repaint, bool pathChanged) const {
  return {repaint, pathChanged, false, true, cursor_};
}

void PathView::chooseCursor() {
  const PathToolTraits& traits = pathToolTraits(tool_);
  const bool over = (tool_ == PathTool::Add ? hoveredSegment_ : hoveredVertex_) >= 0;
  cursor_ = over ? traits.hoverCursor : traits.cursor;
}

bool PathView::dragsSelection() const {
  return hoveredVertex_ >= 0 && tool_ >= PathTool::Move && tool_ <= PathTool::ScaleY;
}

// --- press -------------------------------------------------------------------

PathResponse PathView::mousePress(const PathMouse& mouse, PathMouseButton button) {
  if (isDragging()) {
    return respond(false);
  }
  const ScreenPoint at = onDesk(mouse.position);
  pointer_ = at;
  beginStep();
  pressPan_ = pan_;
  pressZoom_ = zoom_;
  // A pan starts here even when Ctrl went down after the last movement.
  startGrab(at);
  PathResponse response;
  if (button == PathMouseButton::Middle) {
    middleDown_ = true;
    cursor_ = PathCursor::HandOn;
    response = respond(false);
  } else {
    buttonDown_ = true;
    pressMouse_ = at;
    if (tool_ == PathTool::Add) {
      path_.clearFlags();  // the segment stays chosen, so that the release can halve it
    }
    chooseCursor();
    response = respond(tool_ == PathTool::Add);
  }
  response.takeFocus = true;
  return response;
}

void PathView::startGrab(ScreenPoint position) {
  grabStarted_ = true;
  grabStartMouse_ = position;
  grabStartPan_ = viewport().wholePan();
}

// --- move --------------------------------------------------------------------

PathResponse PathView::mouseMove(const PathMouse& mouse) {
  const ScreenPoint at = onDesk(mouse.position);
  pointer_ = at;
  // The button came up where the window could not see it.
  const bool lost = (buttonDown_ && !mouse.leftHeld) || (middleDown_ && !mouse.middleHeld);
  if (lost) {
    endDrag();
  }
  chooseCursor();
  PathResponse response;
  if (middleDown_ || tool_ == PathTool::Grab || mouse.ctrl) {
    response = moveGrab(at);
  } else {
    response = moveTool(at);
  }
  response.repaint |= lost;
  return response;
}

PathResponse PathView::moveGrab(ScreenPoint position) {
  if (!isDragging()) {
    cursor_ = PathCursor::HandOff;
    startGrab(position);
    return respond(false);
  }
  if (!grabStarted_) {
    startGrab(position);  // Ctrl went down in the middle of another drag
  }
  cursor_ = PathCursor::HandOn;
  const ScreenPoint moved = position - grabStartMouse_;
  const PathViewport view = viewport();
  pan_.axis(view.horizontalAxis()) = static_cast<float>(grabStartPan_.x + moved.x);
  pan_.axis(view.verticalAxis()) = static_cast<float>(grabStartPan_.y + moved.y);
  return respond(true);
}

PathResponse PathView::moveTool(ScreenPoint position) {
  grabStarted_ = false;
  const ScreenPoint current = path_.snapPoint(viewport(), position);
  const bool bandStays = drawMode_ && current == lastMouse_;
  bool redraw = drawMode_;
  if (position != lastMouse_ && tool_ == PathTool::Add) {
    redraw = hoverSegment(position);
  }
  if (!buttonDown_ && !redraw) {
    const std::int32_t hovered = path_.hitSelectedVertex(position);
    redraw = hovered != hoveredVertex_;
    hoveredVertex_ = hovered;
  }
  bool changed = false;
  if (buttonDown_ && dragsSelection() && position != lastMouse_ && current != lastMouse_) {
    dragSelection(current - pressMouse_);
    changed = true;
  } else if (buttonDown_ && current != lastMouse_ && !redraw) {
    dragOther(current - lastMouse_);
    redraw = true;
  }
  lastMouse_ = current;
  return respond((redraw && !bandStays) || changed, changed);
}

/// Returns whether the highlighted segment is another one than before.
bool PathView::hoverSegment(ScreenPoint position) {
  const std::int32_t segment = path_.hitSegment(position);
  const bool changed = segment != hoveredSegment_;
  path_.setHighlight(hoveredSegment_, false);
  path_.setHighlight(segment, true);
  hoveredSegment_ = segment;
  chooseCursor();
  return changed;
}

void PathView::dragSelection(ScreenPoint distance) {
  const PathViewport view = viewport();
  if (tool_ == PathTool::Move) {
    path_.moveSelected(view, distance.x, distance.y);
    return;
  }
  PathScaleAxes axes = PathScaleAxes::Both;
  if (tool_ != PathTool::Scale) {
    axes = tool_ == PathTool::ScaleX ? PathScaleAxes::Horizontal : PathScaleAxes::Vertical;
  }
  path_.scaleSelected(view, distance.x, distance.y, axes);
}

void PathView::dragOther(ScreenPoint distance) {
  if (tool_ != PathTool::Zoom) {
    rubberBand_ = true;
    return;
  }
  const auto pixels = static_cast<float>(distance.x - distance.y);
  zoom_ = std::clamp(zoom_ + pixels / (kZoomDragPixels * pixelRatio_), kPathMinZoom, kPathMaxZoom);
}

// --- release -----------------------------------------------------------------

PathResponse PathView::mouseRelease(const PathMouse& mouse, PathMouseButton button) {
  pointer_ = onDesk(mouse.position);
  if (!(button == PathMouseButton::Left ? buttonDown_ : middleDown_)) {
    return respond(false);
  }
  if (middleDown_ || tool_ == PathTool::Grab || mouse.ctrl) {
    releaseGrab(mouse.ctrl);
  } else {
    releaseTool();
  }
  return respond(true, endStep(pathToolTraits(tool_).step));
}

// A selection rectangle that was begun without Ctrl stays open.
void PathView::releaseGrab(bool ctrl) {
  commitDrag();
  path_.projectAll(viewport());
  chooseCursor();
  if (ctrl || tool_ == PathTool::Grab) {
    cursor_ = PathCursor::HandOff;
  }
}

void PathView::releaseTool() {
  const bool deletes = tool_ == PathTool::Delete && hoveredVertex_ >= 0;
  commitDrag();
  if (deletes) {
    deleteSelected();
  }
  if (drawMode_) {
    appendPoint();
  }
  if (tool_ == PathTool::Add) {
    path_.insertAfter(hoveredSegment_);
    path_.clearFlags();
    forgetHover();
    path_.projectAll(viewport());
  }
  if (rubberBand_) {
    // Never toggles: a release with Ctrl down ends a pan.
    path_.selectInRect(viewport(), pressMouse_, lastMouse_, PathSelection::Replace);
  }
  rubberBand_ = false;
}

void PathView::appendPoint() {
  if (path_.getCount() == 0) {
    path_.setNextVertexFromMouse(viewport(), pressMouse_);
  } else {
    path_.setNextVertexFromBand(viewport(), lastMouse_);
  }
  path_.appendAt(viewport());
  path_.projectAll(viewport());
}

// --- the rest ----------------------------------------------------------------

PathResponse PathView::mouseLeave() {
  pointer_.reset();
  if (isDragging()) {
    return respond(false);
  }
  const bool wasHovering = hoveredSegment_ >= 0 || path_.vertexHover();
  forgetHover();
  static_cast<void>(path_.hitVertex(kOutside));
  chooseCursor();
  return respond(wasHovering);
}

PathResponse PathView::wheel(const PathMouse& mouse, float notches) {
  if (isDragging() || std::isnan(notches)) {
    return respond(false);
  }
  const ScreenPoint at = onDesk(mouse.position);
  pointer_ = at;
  const float step = 1.0F + kWheelStep * std::min(std::abs(notches), kMaxNotches);
  const float zoomed =
      std::clamp(notches < 0.0F ? zoom_ / step : zoom_ * step, kPathMinZoom, kPathMaxZoom);
  // The origin is at the centre plus the pan; its distance to the pointer scales.
  const auto zoomPan = [factor = zoomed / zoom_](float& pan, std::int32_t fromCentre) {
    const auto pointer = static_cast<float>(fromCentre);
    pan = pointer - (pointer - pan) * factor;
  };
  const PathViewport view = viewport();
  zoomPan(pan_.axis(view.horizontalAxis()), at.x - width_ / 2);
  zoomPan(pan_.axis(view.verticalAxis()), at.y - (height_ - height_ / 2));
  zoom_ = zoomed;
  if (drawMode_) {
    lastMouse_ = path_.snapPoint(viewport(), at);  // the snap grid has changed
  }
  return respond(true);
}

}  // namespace pv
