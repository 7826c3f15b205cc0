#pragma once

#include <deque>
#include <vector>

#include "raster/raster_canvas.h"
#include "shape/shape_columns.h"
#include "util/work_share.h"
#include "view3d/shape_projection.h"
#include "view3d/strip_painter.h"
#include "view3d/view_frame.h"
#include "view3d/view_projector.h"
#include "view3d/wire_lines.h"
#include "view3d/wire_mask.h"

namespace pv {

/// Draws shapes as wires or dots. A shape is first collected, several threads at a
/// time, so that its box is known before anything is drawn; then it is painted.
class ShapePainter {
 public:
  /// The shape's segments; those with an invisible end are left out. Returns a box
  /// around all their pixels.
  PixelBox collectLines(const RasterCanvas& canvas, const ShapeColumns& shape,
                        const ViewProjector& projector, const ShapeProjection& projection,
                        WorkShare& share);
  /// A square dot at every visible vertex.
  PixelBox collectDots(const RasterCanvas& canvas, const ShapeColumns& shape,
                       const ViewProjector& projector, const ShapeProjection& projection,
                       float halfSize, WorkShare& share);
  /// Gives the frame the shape's colour at what was collected, and its background
  /// elsewhere in ViewFrame::restored(). What was collected is then forgotten.
  void paint(ViewFrame& frame, WorkShare& share);

 private:
  bool begin(const RasterCanvas& canvas, const ShapeColumns& shape, std::size_t masks);
  PixelBox end();
  /// Lights first what the painters still have listed.
  PixelBox endLines(WorkShare& share);
  /// Gives every mask what any of them has lit.
  void shareLit(const PixelBox& box);

  std::vector<WireMask> masks_;        ///< one a thread
  std::deque<StripPainter> painters_;  ///< one a thread at least
  PixelBox box_;
  LineWindows windows_;
};

}  // namespace pv
