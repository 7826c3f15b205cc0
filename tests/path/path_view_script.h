#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "path/path_view.h"

namespace pv {

inline constexpr PathAxisView kAllPathViews[] = {PathAxisView::Side, PathAxisView::Top,
                                                 PathAxisView::Front};

inline PathRecord pathRecord(std::initializer_list<Vec3> points) {
  PathRecord path;
  for (const Vec3& point : points) {
    path.points[static_cast<std::size_t>(path.count++)] = point;
  }
  return path;
}

/// A path view under scripted events that paints as soon as it is asked to. At
/// 400 x 300 pixels and zoom 1.2 a unit is 240 across and 180 up.
class PathScript {
 public:
  explicit PathScript(PathAxisView axes = PathAxisView::Front, float ratio = 1.0F) {
    view.setAxisView(axes);
    view.setSize(static_cast<std::int32_t>(400 * ratio), static_cast<std::int32_t>(300 * ratio),
                 ratio);
    view.drawFrame();
  }

  PathResponse take(PathResponse response) {
    if (response.repaint) {
      view.drawFrame();
    }
    return response;
  }
  PathResponse move(ScreenPoint to) {
    mouse.position = to;
    return take(view.mouseMove(mouse));
  }
  PathResponse press(ScreenPoint at, PathMouseButton button = PathMouseButton::Left) {
    move(at);
    held(button) = true;
    return take(view.mousePress(mouse, button));
  }
  PathResponse release(PathMouseButton button = PathMouseButton::Left) {
    held(button) = false;
    return take(view.mouseRelease(mouse, button));
  }
  void drag(ScreenPoint from, ScreenPoint to) {
    press(from);
    move(to);
    release();
  }
  void click(ScreenPoint at) { drag(at, at); }
  PathResponse key(PathKey which) { return take(view.keyPress(which)); }
  void tool(PathTool which) { take(view.setTool(which)); }
  void set(const PathRecord& record) { take(view.setPoints(record)); }

  void selectAll() { take(view.selectAll()); }
  /// With the select tool, which stays in hand.
  void select(ScreenPoint a, ScreenPoint b) {
    tool(PathTool::Select);
    drag(a, b);
  }
  [[nodiscard]] std::vector<int> selection() const {
    std::vector<int> indices;
    for (int i = 0; i < view.path().getCount(); ++i) {
      if (view.path().isSelected(i)) {
        indices.push_back(i);
      }
    }
    return indices;
  }
  [[nodiscard]] Vec3 point(int index) const { return view.path().point(index); }
  [[nodiscard]] int count() const { return view.path().getCount(); }
  [[nodiscard]] PathSnapshot now() const { return {view.path().getRecord(), {}}; }
  /// Every point is its own drag start, and hovered indices exist.
  [[nodiscard]] bool isSettled() const {
    for (int i = 0; i < count(); ++i) {
      if (view.path().startPoint(i) != point(i)) {
        return false;
      }
    }
    return !view.isDragging() && view.hoveredVertex() < count() && view.hoveredSegment() < count();
  }

  PathView view;
  PathMouse mouse;

 private:
  bool& held(PathMouseButton button) {
    return button == PathMouseButton::Left ? mouse.leftHeld : mouse.middleHeld;
  }
};

}  // namespace pv
