#pragma once

#include "path/path_viewport.h"
#include "raster/raster_canvas.h"

namespace pv {

/// The grid behind a path: one unit to each side of the origin, ten cells a
/// unit, half units and the lines through the origin set off. A line lies where
/// a point on it is drawn.
void drawPathGrid(RasterCanvas& canvas, const PathViewport& view);

}  // namespace pv
