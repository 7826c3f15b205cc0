#include "view3d/handles.h"

#include <algorithm>
#include <array>

#include "math/scalar.h"
#include "view3d/frame_colours.h"
#include "view3d/view_camera.h"

namespace pv {

namespace {

constexpr float kAxisLength = 0.55F;  // shape units
constexpr float kDiscRadius = 5.0F;   // pixels of 96 dpi, as the two below
constexpr float kRingRadius = 7.0F;
constexpr float kReach = 6.0F;  // half the side of a handle's square

struct Frame {
  Matrix4 axes;
  Vec3 origin;
};

Frame frameOf(const ModifierTable& values, HandleFrame frame) {
  const auto group = [&](ModifierKind move, ModifierKind rotate, ModifierKind scale) {
    const Vec3& angles = values[rotate];
    return Frame{objectMatrix(angles.y, angles.x, angles.z, values[scale]), values[move]};
  };
  const Matrix4 identity = objectMatrix(0.0F, 0.0F, 0.0F, {1.0F, 1.0F, 1.0F});
  switch (frame) {
    case HandleFrame::VertexMoved:
      return {identity, values[ModifierKind::VertexMove]};
    case HandleFrame::ShapeMoved:
      return {identity, values[ModifierKind::ShapeMove]};
    case HandleFrame::VertexTurned:
      return group(ModifierKind::VertexMove, ModifierKind::VertexRotate, ModifierKind::VertexScale);
    case HandleFrame::ShapeTurned:
      return group(ModifierKind::ShapeMove, ModifierKind::ShapeRotate, ModifierKind::ShapeScale);
    case HandleFrame::Identity:
      break;
  }
  return {identity, {}};
}

void drawRoundHandle(RasterCanvas& canvas, PixelPoint at, std::uint32_t colour, bool ring,
                     float pixelRatio) {
  canvas.setColour(colour);
  canvas.filledDisc(at.x, at.y, (ring ? kRingRadius : kDiscRadius) * pixelRatio);
  if (ring) {
    canvas.setColour(0x000000);
    canvas.filledDisc(at.x, at.y, kDiscRadius * pixelRatio);
  }
}

}  // namespace

HandlePoints handlePoints(const ModifierTable& values, ModifierKind kind) {
  const Frame frame = frameOf(values, traits(kind).frame);
  HandlePoints points{frame.origin, {}};
  for (int axis = 0; axis < 3; ++axis) {
    Vec3 end;
    end.axis(axis) = kAxisLength;
    points.ends[static_cast<std::size_t>(axis)] = D3DXVec3Transform(end, frame.axes) + frame.origin;
  }
  return points;
}

PixelBox handlesBox(const RasterCanvas& canvas, ViewProjector& projector,
                    const ShapeProjection& projection, const ModifierSet& set, float pixelRatio) {
  if (!isModifier(set.selected)) {
    return {};
  }
  PixelBox box{canvas.width, canvas.height, 0, 0};
  const std::int64_t reach = truncate(kRingRadius * pixelRatio) + 1;
  const auto cut = [](std::int64_t value, std::int32_t size) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, 0, size));
  };
  // Points off the canvas count too: axes are drawn towards them.
  const auto include = [&](Vec3 point) {
    if (const auto at = projection.map(projector, point)) {
      box.left = std::min(box.left, cut(at->x - reach, canvas.width));
      box.bottom = std::min(box.bottom, cut(at->y - reach, canvas.height));
      box.right = std::max(box.right, cut(at->x + reach + 1, canvas.width));
      box.top = std::max(box.top, cut(at->y + reach + 1, canvas.height));
    }
  };
  const HandlePoints points = handlePoints(set.values, set.selected);
  include(points.origin);
  for (const Vec3& end : points.ends) {
    include(end);
  }
  return box;
}

void drawHandles(RasterCanvas& canvas, ViewProjector& projector, const ShapeProjection& projection,
                 const ModifierSet& set, Handle highlighted, float pixelRatio) {
  if (!isModifier(set.selected)) {
    projector.clearHandles();
    return;
  }
  projector.clearSquares();
  const HandlePoints points = handlePoints(set.values, set.selected);
  const std::int32_t reach = truncate(kReach * pixelRatio);
  const auto origin = projection.map(projector, points.origin);
  const auto handle = [&](Handle which, PixelPoint at, std::uint32_t colour) {
    drawRoundHandle(canvas, at, colour, which == highlighted, pixelRatio);
    projector.placeHandle(which, at, reach);
  };
  constexpr std::array kAxisHandles{Handle::X, Handle::Y, Handle::Z};
  for (std::size_t axis = 0; axis < kAxisHandles.size(); ++axis) {
    const auto end = projection.map(projector, points.ends[axis]);
    if (!end) {
      continue;
    }
    if (origin) {
      canvas.setColour(kAxisColours[axis]);
      canvas.line(origin->x, origin->y, end->x, end->y);
    }
    handle(kAxisHandles[axis], *end, kAxisColours[axis]);
  }
  if (origin) {
    handle(Handle::Centre, *origin, kCentreHandleColour);
  }
}

}  // namespace pv
