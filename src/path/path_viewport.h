#pragma once

#include <cstdint>
#include <optional>

#include "math/vec3.h"
#include "raster/raster_canvas.h"

namespace pv {

/// The flat view in which a path is edited; any other value counts as Front.
enum class PathAxisView : std::int32_t {
  Side = 0,   ///< z to the right, y up
  Top = 1,    ///< x to the right, z down
  Front = 2,  ///< x to the right, y up
};

/// A position in a window or view: pixels from the upper left corner, y down.
struct ScreenPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;

  bool operator==(const ScreenPoint&) const = default;
};

/// How a flat view looks at path space. One path unit is zoom * width / 2 pixels
/// across and zoom * height / 2 pixels up; the origin is at the integer centre
/// (width / 2, height / 2), moved by the pan. Drawing positions have y up, row 0
/// at the bottom; a screen's y is the height less it.
struct PathViewport {
  std::int32_t width = 0;
  std::int32_t height = 0;
  PathAxisView axes = PathAxisView::Front;
  float zoom = 1.0F;
  Vec3 pan;  ///< pixels, one component for each axis of space

  /// Axis of space, as for Vec3::axis, that runs across and up the view.
  [[nodiscard]] int horizontalAxis() const { return axes == PathAxisView::Side ? 2 : 0; }
  [[nodiscard]] int verticalAxis() const { return axes == PathAxisView::Top ? 2 : 1; }
  /// -1 where the vertical axis points down the screen.
  [[nodiscard]] int verticalSign() const { return axes == PathAxisView::Top ? -1 : 1; }

  /// The pan of the view's axes in whole pixels, both to be added to a screen
  /// position.
  [[nodiscard]] ScreenPoint wholePan() const;

  /// Drawing position of a point of space; none when a coordinate that shows in
  /// this view is not a number.
  [[nodiscard]] std::optional<PixelPoint> project(Vec3 point) const;

  /// Point of space under a screen position, 0 along the axis that does not show;
  /// none in a view without size or zoom.
  [[nodiscard]] std::optional<Vec3> unproject(ScreenPoint screen) const;

  /// Between screen and drawing positions; its own inverse but for the type.
  [[nodiscard]] PixelPoint toDrawing(ScreenPoint screen) const;
  [[nodiscard]] ScreenPoint toScreen(PixelPoint drawing) const;
};

/// Cuts a pixel coordinate to +-2^30, so that markers around it and differences
/// of two stay within 32 bits.
[[nodiscard]] std::int32_t nearPixel(std::int64_t coordinate);

}  // namespace pv
