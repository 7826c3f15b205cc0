#pragma once

#include "raster/raster_canvas.h"
#include "shape/shape_columns.h"
#include "util/work_share.h"
#include "view3d/shape_projection.h"
#include "view3d/view_projector.h"

namespace pv {

/// The shape's segments in the shape's colour; those with an invisible end are
/// left out.
void drawShapeLines(RasterCanvas& canvas, const ShapeColumns& shape, const ViewProjector& projector,
                    const ShapeProjection& projection, WorkShare& share);

/// A square dot at every visible vertex.
void drawShapeDots(RasterCanvas& canvas, const ShapeColumns& shape, const ViewProjector& projector,
                   const ShapeProjection& projection, float halfSize);

}  // namespace pv
