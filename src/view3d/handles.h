#pragma once

#include "raster/raster_canvas.h"
#include "shape/modifier_values.h"
#include "view3d/pixel_box.h"
#include "view3d/shape_projection.h"
#include "view3d/view_projector.h"

namespace pv {

/// Where a modifier's handles stand: the centre handle and the ends of the axes.
struct HandlePoints {
  Vec3 origin;
  std::array<Vec3, 3> ends;
};

/// `kind` must be one of the fifteen.
[[nodiscard]] HandlePoints handlePoints(const ModifierTable& values, ModifierKind kind);

/// A box of `canvas` around everything that drawHandles draws; empty without a
/// selection.
[[nodiscard]] PixelBox handlesBox(const RasterCanvas& canvas, ViewProjector& projector,
                                  const ShapeProjection& projection, const ModifierSet& set,
                                  float pixelRatio);

/// Draws the handles of the selected modifier and remembers their squares in the
/// projector; without a selection there is neither. `highlighted` is the handle
/// that shows as a ring; sizes grow with the pixel ratio.
void drawHandles(RasterCanvas& canvas, ViewProjector& projector, const ShapeProjection& projection,
                 const ModifierSet& set, Handle highlighted, float pixelRatio);

}  // namespace pv
