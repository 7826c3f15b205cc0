#pragma once

#include <vector>

#include "raster/raster_canvas.h"
#include "shape/shape_mesh.h"
#include "view3d/shape_projection.h"
#include "view3d/view_projector.h"

namespace pv {

/// Projects every vertex of the mesh's current slot. Invisible ones get
/// kInvisible as their x.
void projectMesh(const ShapeMesh& mesh, ViewProjector& projector, const ShapeProjection& projection,
                 std::vector<PixelPoint>& projected);

/// The mark of a vertex that is not drawn: no projection reaches this far.
inline constexpr std::int32_t kInvisible = INT32_MIN;

/// The mesh's segments in the shape's colour; those with an invisible end are
/// left out.
void drawMeshLines(RasterCanvas& canvas, const ShapeMesh& mesh,
                   std::span<const PixelPoint> projected);

/// A square dot at every visible vertex.
void drawMeshDots(RasterCanvas& canvas, std::span<const PixelPoint> projected, float halfSize);

}  // namespace pv
