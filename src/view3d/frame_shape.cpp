#include "view3d/frame_shape.h"

#include <cstdint>

#include "view3d/frame_colours.h"

namespace pv {

void projectMesh(const ShapeMesh& mesh, ViewProjector& projector, const ShapeProjection& projection,
                 std::vector<PixelPoint>& projected) {
  const MeshSlot* slot = mesh.current();
  projected.resize(slot == nullptr ? 0 : slot->position.size());
  for (std::size_t i = 0; i < projected.size(); ++i) {
    const auto point = projection.map(projector, slot->position.at(i));
    projected[i] = point ? *point : PixelPoint{kInvisible, 0};
  }
}

void drawMeshLines(RasterCanvas& canvas, const ShapeMesh& mesh,
                   std::span<const PixelPoint> projected) {
  const MeshSlot* slot = mesh.current();
  if (slot == nullptr) {
    return;
  }
  canvas.setColour(kShapeColour);
  for (const ShapeLine& line : slot->lines.span()) {
    const PixelPoint a = projected[line.first];
    const PixelPoint b = projected[line.second];
    if (a.x != kInvisible && b.x != kInvisible) {
      canvas.line(a.x, a.y, b.x, b.y);
    }
  }
}

void drawMeshDots(RasterCanvas& canvas, std::span<const PixelPoint> projected, float halfSize) {
  canvas.setColour(kShapeColour);
  for (const PixelPoint& point : projected) {
    if (point.x != kInvisible) {
      canvas.squareDot(point.x, point.y, halfSize);
    }
  }
}

}  // namespace pv
