#include <algorithm>

#include "path/path_view.h"

namespace pv {
namespace {

constexpr float kNudge = 0.01F;  // path units, while snapping is off

struct ArrowKey {
  PathKey key;
  float right;
  float up;
};
constexpr ArrowKey kArrowKeys[] = {
    {PathKey::Left, -1, 0}, {PathKey::Right, 1, 0}, {PathKey::Up, 0, 1}, {PathKey::Down, 0, -1}};

PathResponse unhandled(PathResponse response) {
  response.handled = false;
  return response;
}

}  // namespace

// --- keys --------------------------------------------------------------------

PathResponse PathView::keyPress(PathKey key) {
  switch (key) {
    case PathKey::Delete:
      return pressDelete();
    case PathKey::Backspace:
      return pressBackspace();
    case PathKey::Escape:
      return pressEscape();
    default:
      return pressArrow(key);
  }
}

// Works in the middle of a drag, too: nothing that this tool drags moves points.
PathResponse PathView::pressDelete() {
  if (tool_ != PathTool::Delete) {
    return unhandled(respond(false));
  }
  beginStep();
  deleteSelected();
  const bool changed = endStep(pathToolTraits(tool_).step);
  beginStep();
  return respond(true, changed);
}

PathResponse PathView::pressBackspace() {
  if (!drawMode_ || isDragging() || path_.getCount() == 0) {
    return unhandled(respond(false));
  }
  beginStep();
  path_.removeLast();
  refreshHover();
  return respond(true, endStep("Remove point"));
}

PathResponse PathView::pressEscape() {
  if (!isDragging() && !rubberBand_) {
    return unhandled(respond(false));
  }
  const bool changed = cancelDrag();
  return respond(true, changed);
}

PathResponse PathView::pressArrow(PathKey key) {
  const auto* arrow = std::ranges::find(kArrowKeys, key, &ArrowKey::key);
  if (arrow == std::end(kArrowKeys) || isDragging() || path_.selectedCount() == 0) {
    return unhandled(respond(false));
  }
  const PathViewport view = viewport();
  const bool snaps = snapEnabled_ && snapDivisions_ > 0;
  const float distance = snaps ? 1.0F / static_cast<float>(snapDivisions_) : kNudge;
  beginStep();
  path_.shiftSelected(view, arrow->right * distance,
                      arrow->up * distance * static_cast<float>(view.verticalSign()));
  path_.projectAll(view);
  refreshHover();
  return respond(true, endStep("Nudge points"));
}

void PathView::deleteSelected() {
  path_.deleteSelected();
  path_.snapshotAndProjectSelected(viewport());
  hoveredVertex_ = -1;  // it was one of them
}

// --- hover and drags ---------------------------------------------------------

void PathView::refreshHover() {
  const bool known = pointer_ && !drawMode_;
  hoveredVertex_ = known ? path_.hitSelectedVertex(*pointer_) : -1;
  if (known && tool_ == PathTool::Add) {
    hoverSegment(*pointer_);  // a pointer that rests has no movement to find it by
  }
}

void PathView::forgetHover() {
  path_.setHighlight(hoveredSegment_, false);
  hoveredSegment_ = -1;
  hoveredVertex_ = -1;
}

void PathView::commitDrag() {
  if (buttonDown_ && dragsSelection()) {
    path_.snapshotAndProjectSelected(viewport());
  }
  buttonDown_ = false;
  middleDown_ = false;
  grabStarted_ = false;
}

void PathView::endDrag() {
  const bool wasDragging = isDragging();
  commitDrag();
  rubberBand_ = false;
  if (wasDragging) {
    path_.projectAll(viewport());
    endStep(pathToolTraits(tool_).step);
  }
}

PathResponse PathView::focusLost() {
  const bool any = isDragging() || rubberBand_;
  endDrag();
  chooseCursor();
  return respond(any);
}

bool PathView::cancelDrag() {
  const bool wasDragging = isDragging();
  buttonDown_ = false;
  middleDown_ = false;
  grabStarted_ = false;
  rubberBand_ = false;
  if (!wasDragging) {
    return false;
  }
  pan_ = pressPan_;
  zoom_ = pressZoom_;
  const bool changed = !(before_ == snapshot());
  show(before_);
  return changed;
}

// --- undo --------------------------------------------------------------------

PathSnapshot PathView::snapshot() const {
  PathSnapshot now{path_.getRecord(), {}};
  for (std::int32_t i = 0; i < path_.getCount(); ++i) {
    now.selected.set(static_cast<std::size_t>(i), path_.isSelected(i));
  }
  return now;
}

void PathView::show(const PathSnapshot& snapshot) {
  path_.setPoints(snapshot.path);
  for (std::int32_t i = 0; i < path_.getCount(); ++i) {
    path_.setSelected(i, snapshot.selected.test(static_cast<std::size_t>(i)));
  }
  path_.projectAll(viewport());
  hoveredSegment_ = -1;  // no flag of the old path is left
  refreshHover();
  chooseCursor();
}

bool PathView::endStep(std::string_view label) {
  return history_.record(before_, snapshot(), label);
}

PathResponse PathView::undo() {
  const bool changed = cancelDrag();
  return travel(history_.undo(), changed);
}

PathResponse PathView::redo() {
  const bool changed = cancelDrag();
  return travel(history_.redo(), changed);
}

PathResponse PathView::travel(const std::optional<PathSnapshot>& to, bool changed) {
  if (to) {
    show(*to);
  }
  return respond(true, changed || to);
}

}  // namespace pv
