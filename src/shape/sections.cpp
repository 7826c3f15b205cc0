#include "shape/sections.h"

#include <algorithm>

#include "math/matrix4.h"
#include "math/scalar.h"
#include "shape/vertex_kernels.h"

namespace pv {

bool allocateColumns(ShapeMesh& mesh, std::int64_t count, std::int32_t sections) {
  const bool any = mesh.allocateVertices((std::int64_t{sections} + 1) * count);
  if (any && sections < 0) {  // two negative amounts make a positive product
    mesh.current()->base.clear();
    mesh.current()->position.clear();
    return false;
  }
  if (any) {
    mesh.current()->rows = static_cast<std::size_t>(count);
    mesh.current()->columns = static_cast<std::size_t>(sections) + 1;
  }
  return any;
}

void ExtrudeProfile(ShapeMesh& mesh, std::span<const Vec3> points, std::int32_t sections,
                    float width, bool centre) {
  const auto pointAt = [=](std::int64_t k) { return points[static_cast<std::size_t>(k)]; };
  extrude(mesh, static_cast<std::int64_t>(points.size()), pointAt, sections, width, centre);
}

void RotateProfile(ShapeMesh& mesh, std::int32_t sections, std::int32_t angle, bool centre,
                   Turn turn) {
  static_assert(kMaxPathPoints <= VertexBlock::kCapacity);
  const std::span<const Vec3> profile = mesh.profile();
  const std::size_t count = profile.size();
  if (allocateColumns(mesh, static_cast<std::int64_t>(count), sections)) {
    VectorStreams& base = mesh.current()->base;
    const float half = centre ? static_cast<float>(angle) / 2.0F : 0.0F;
    const float step =
        sections == 0 ? 0.0F : static_cast<float>(angle) / static_cast<float>(sections);
    // The sweep exchanges x and z around the turn, which turns the other way.
    const bool swaps = turn == Turn::Sweep;
    VertexBlock points;
    for (std::size_t k = 0; k < VertexBlock::padded(count); ++k) {
      const Vec3& p = profile[std::min(k, count - 1)];
      points.x[k] = swaps ? p.z : p.x;
      points.y[k] = p.y;
      points.z[k] = swaps ? p.x : p.z;
    }
    VertexBlock column;
    for (std::int32_t j = 0; j <= sections; ++j) {
      const float degrees = static_cast<float>(j) * step - half;
      column = points;
      // Adding a move of zero changes nothing: no sum here is a negative zero.
      transformVertices(column, count, D3DXMatrixRotationYawPitchRoll(toRadians(degrees), 0, 0),
                        {});
      const std::size_t first = static_cast<std::size_t>(j) * count;
      std::copy_n(swaps ? column.z : column.x, count, base.x.data() + first);
      std::copy_n(column.y, count, base.y.data() + first);
      std::copy_n(swaps ? column.x : column.z, count, base.z.data() + first);
    }
  }
  BuildLines(mesh, static_cast<std::int64_t>(count), sections);
}

void BuildLines(ShapeMesh& mesh, std::int64_t profileCount, std::int64_t sections) {
  mesh.setLines((sections + 1) * (profileCount - 1) + sections * profileCount, 1);
}

}  // namespace pv
