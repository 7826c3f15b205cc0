#include "view3d/frame_shape.h"

#include <cmath>
#include <cstdint>

#include "view3d/frame_colours.h"

namespace pv {

namespace {

// Saturation, points at or behind the eye and what is not a number are rare, so
// the quick loops below leave them, marked, to the projector.
constexpr float kPlainReach = 1073741824.0F;  // 2^30: neither cut nor overflowing

/// The same arithmetic as the projector's, for whole streams; written so that
/// the compiler can take several vertices at a time. True when none was left.
bool projectPlainPerspective(const VectorStreams& positions, const ShapeProjection& projection,
                             std::span<PixelPoint> projected) {
  const float* xs = positions.x.data();
  const float* ys = positions.y.data();
  const float* zs = positions.z.data();
  const auto& m = projection.view.m;
  const PixelPoint centre = projection.centre;
  const auto halfWidth = static_cast<float>(centre.x);
  const auto halfHeight = static_cast<float>(centre.y);
  std::int32_t left = 0;
  for (std::size_t i = 0; i < projected.size(); ++i) {
    const float x = xs[i] * m[0][0] + ys[i] * m[1][0] + zs[i] * m[2][0] + m[3][0];
    const float y = xs[i] * m[0][1] + ys[i] * m[1][1] + zs[i] * m[2][1] + m[3][1];
    const float z = xs[i] * m[0][2] + ys[i] * m[1][2] + zs[i] * m[2][2] + m[3][2];
    const float across = halfWidth * x / z;
    const float up = halfHeight * y / z;
    const bool inFront = z > 0.0F;
    const bool acrossIsPlain = std::fabs(across) < kPlainReach;
    const bool upIsPlain = std::fabs(up) < kPlainReach;
    const bool plain = inFront & acrossIsPlain & upIsPlain;
    const auto column = static_cast<std::int32_t>(plain ? across : 0.0F);
    const auto row = static_cast<std::int32_t>(plain ? up : 0.0F);
    projected[i] = {plain ? centre.x - column : kInvisible, row + centre.y};
    left |= plain ? 0 : 1;
  }
  return left == 0;
}

}  // namespace

void projectMesh(const ShapeMesh& mesh, ViewProjector& projector, const ShapeProjection& projection,
                 std::vector<PixelPoint>& projected) {
  const MeshSlot* slot = mesh.current();
  if (slot == nullptr) {
    projected.clear();
    return;
  }
  projected.resize(slot->position.size());
  const bool perspective = projection.mode == ViewMode::Perspective;
  if (perspective && projectPlainPerspective(slot->position, projection, projected)) {
    return;
  }
  for (std::size_t i = 0; i < projected.size(); ++i) {
    if (perspective && projected[i].x != kInvisible) {
      continue;
    }
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
    if (a == b) {
      continue;  // a line without length draws nothing
    }
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
