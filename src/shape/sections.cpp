#include "shape/sections.h"

#include "math/matrix4.h"
#include "math/scalar.h"

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
  const std::span<const Vec3> profile = mesh.profile();
  if (allocateColumns(mesh, static_cast<std::int64_t>(profile.size()), sections)) {
    VectorStreams& base = mesh.current()->base;
    const float half = centre ? static_cast<float>(angle) / 2.0F : 0.0F;
    const float step =
        sections == 0 ? 0.0F : static_cast<float>(angle) / static_cast<float>(sections);
    std::size_t vertex = 0;
    for (std::int32_t j = 0; j <= sections; ++j) {
      const float degrees = static_cast<float>(j) * step - half;
      const Matrix4 m = D3DXMatrixRotationYawPitchRoll(toRadians(degrees), 0.0F, 0.0F);
      for (const Vec3& p : profile) {
        // The sweep exchanges x and z around the turn, which turns the other way.
        if (turn == Turn::Sweep) {
          const Vec3 turned = D3DXVec3Transform({p.z, p.y, p.x}, m);
          base.set(vertex++, {turned.z, turned.y, turned.x});
        } else {
          base.set(vertex++, D3DXVec3Transform(p, m));
        }
      }
    }
  }
  BuildLines(mesh, static_cast<std::int64_t>(profile.size()), sections);
}

void BuildLines(ShapeMesh& mesh, std::int64_t profileCount, std::int64_t sections) {
  mesh.setLines((sections + 1) * (profileCount - 1) + sections * profileCount, 1);
}

}  // namespace pv
