#pragma once

#include <optional>

#include "math/matrix4.h"
#include "view3d/view_projector.h"

namespace pv {

/// How the current view maps shape space to the canvas: in perspective through
/// a view matrix, or flat.
struct ShapeProjection {
  ViewMode mode = ViewMode::Perspective;
  Matrix4 view;       ///< used in perspective only
  PixelPoint centre;  ///< the middle of the canvas

  [[nodiscard]] std::optional<PixelPoint> map(ViewProjector& projector, Vec3 point) const {
    return mode == ViewMode::Perspective ? projector.project3D(point, view, centre)
                                         : projector.projectFlat(point, flatModeOf(mode), centre);
  }
};

}  // namespace pv
