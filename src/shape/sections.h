#pragma once

#include <cstdint>
#include <span>

#include "math/vec3.h"
#include "shape/shape_mesh.h"

namespace pv {

// The steps that the builders share: they repeat a profile across sections and
// join the points to wires, in the mesh's current slot.

/// Makes room for `sections` + 1 columns of `count` points. The number is noted
/// also when nothing can be built. True when the columns are to be filled.
bool allocateColumns(ShapeMesh& mesh, std::int64_t count, std::int32_t sections);

/// Joins the points along every section, then those of neighbouring sections.
void BuildLines(ShapeMesh& mesh, std::int64_t profileCount, std::int64_t sections);

/// Repeats the column pointAt(0..count-1) along z, towards -z, `width` units
/// apart; with `centre` symmetrically about z = 0.
template <class PointAt>
void extrude(ShapeMesh& mesh, std::int64_t count, PointAt pointAt, std::int32_t sections,
             float width, bool centre) {
  if (allocateColumns(mesh, count, sections)) {
    VectorStreams& base = mesh.current()->base;
    const float half = centre ? static_cast<float>(sections) * width / 2.0F : 0.0F;
    std::size_t vertex = 0;
    for (std::int32_t j = 0; j <= sections; ++j) {
      const float offset = static_cast<float>(j) * width - half;
      for (std::int64_t k = 0; k < count; ++k) {
        const Vec3 p = pointAt(k);
        base.set(vertex++, {p.x, p.y, p.z - offset});
      }
    }
  }
  BuildLines(mesh, count, sections);
}

/// The same for a column that is given as points.
void ExtrudeProfile(ShapeMesh& mesh, std::span<const Vec3> points, std::int32_t sections,
                    float width, bool centre);

/// Which way round the y axis a profile is turned.
enum class Turn : std::uint8_t { Sphere, Sweep };

/// Turns the mesh's profile about y over `angle` degrees.
void RotateProfile(ShapeMesh& mesh, std::int32_t sections, std::int32_t angle, bool centre,
                   Turn turn);

}  // namespace pv
