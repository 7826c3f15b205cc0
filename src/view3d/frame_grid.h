#pragma once

#include "math/matrix4.h"
#include "raster/raster_canvas.h"
#include "view3d/view_camera.h"
#include "view3d/view_projector.h"

namespace pv {

/// Three planes of lines through the origin, the view's label and the unit axes.
void drawGrid3D(RasterCanvas& canvas, ViewProjector& projector, const Matrix4& view);

/// Grid, camera marker and labels of a flat view; nothing while the projector
/// was never sized. `mode` is one of the flat views; the marker grows with the
/// device pixels that make a pixel of 96 dpi.
void drawFlatBackground(RasterCanvas& canvas, const ViewProjector& projector, ViewMode mode,
                        Vec3 eye, float pixelRatio);

}  // namespace pv
