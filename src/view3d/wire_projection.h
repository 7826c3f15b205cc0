#pragma once

#include <cstddef>
#include <cstdint>

#include "view3d/pixel_column.h"
#include "view3d/shape_projection.h"
#include "view3d/view_projector.h"

namespace pv {

/// A projection with what its vector form needs.
struct PixelMap {
  PixelMap(const ShapeProjection& projection, const ViewProjector& projector, std::int32_t width,
           std::int32_t height);

  ShapeProjection projection;
  ViewProjector projector;  ///< for the vertices that the vector form leaves over
  float scaleX;             ///< pixels a unit, at depth 1 in perspective
  float scaleY;
  std::int32_t width;  ///< of the canvas, 32767 at most
  std::int32_t height;
  bool isLongWork = true;  ///< whether many vertices are to be projected at once
};

/// Transforms and projects a stretch of a column in one pass, to the bit as
/// D3DXVec3Transform and ShapeProjection::map do one vertex after the other, and
/// adds the positions on the canvas to `reach`: those of the chunks in `chunks`, the
/// others count as off the canvas. May be called by several threads with one map.
void projectColumn(const ColumnVertices& vertices, std::uint32_t chunks, const PixelMap& map,
                   PixelColumn& column, PixelReach& reach);

}  // namespace pv
