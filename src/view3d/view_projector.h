#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "math/matrix4.h"
#include "math/vec3.h"
#include "raster/raster_canvas.h"
#include "view3d/view_camera.h"

namespace pv {

/// Flat projections; their numbers are those of the path editor's axis views.
enum class FlatMode : std::int32_t { Side, Top, Front };

/// The flat mode of a view; not for the perspective view.
[[nodiscard]] FlatMode flatModeOf(ViewMode mode);

/// The four handles of a modifier; also the order in which they are tried.
enum class Handle : std::int32_t { None = -1, Centre, X, Y, Z };
inline constexpr std::int32_t kHandleCount = 4;

/// Maps shape space to canvas pixels (y upward) at the size that was last
/// accepted, and keeps where the handles were drawn.
class ViewProjector {
 public:
  /// Takes sizes of 2 to 3999 pixels; others are ignored and the old size stays.
  void setSize(std::int32_t width, std::int32_t height);
  /// True once a size was accepted.
  [[nodiscard]] bool isSized() const { return !dirty_; }
  [[nodiscard]] std::int32_t width() const { return width_; }
  [[nodiscard]] std::int32_t height() const { return height_; }
  [[nodiscard]] std::int32_t minSide() const { return minSide_; }

  /// The middle of the canvas, in whole pixels.
  [[nodiscard]] PixelPoint centre() const { return {width_ / 2, height_ / 2}; }

  /// Nothing for a point at or behind the eye, or that is not a number.
  [[nodiscard]] std::optional<PixelPoint> project3D(Vec3 point, const Matrix4& view,
                                                    PixelPoint centre);
  /// The same for a point that is already in camera space.
  [[nodiscard]] std::optional<PixelPoint> projectCameraSpace(Vec3 point, PixelPoint centre);
  /// Nothing for a point that is not a number.
  [[nodiscard]] std::optional<PixelPoint> projectFlat(Vec3 point, FlatMode mode,
                                                      PixelPoint origin) const;
  /// Camera-space depth of the last point that was projected here in perspective;
  /// whole meshes are projected elsewhere.
  [[nodiscard]] float lastDepth() const { return lastDepth_; }

  /// No squares, and nothing hovered.
  void clearHandles();
  /// No squares; the hover flags stay as the last hit test left them, so that a
  /// frame that is drawn again looks the same.
  void clearSquares();
  /// Remembers a square of `reach` pixels to every side of the handle's centre.
  void placeHandle(Handle handle, PixelPoint centre, std::int32_t reach);
  /// The first handle whose square holds the canvas position (left and bottom
  /// edges inside, right and top edges outside); its hover flag alone is set.
  Handle hitHandle(PixelPoint position);
  [[nodiscard]] bool isHovered(Handle handle) const;

 private:
  struct Square {
    PixelPoint low;
    PixelPoint high;  ///< equal to low while there is no such handle
    bool hovered = false;
  };

  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  std::int32_t minSide_ = 0;
  bool dirty_ = true;
  std::array<Square, kHandleCount> handles_;
  float lastDepth_ = 0.0F;
};

}  // namespace pv
