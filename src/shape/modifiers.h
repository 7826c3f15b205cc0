#pragma once

#include <cstddef>
#include <cstdint>

#include "math/matrix4.h"
#include "shape/duplicates.h"
#include "shape/modifier_values.h"
#include "shape/shape_mesh.h"

namespace pv {

/// Scaling first, then the rotation; angles x, y, z in degrees.
[[nodiscard]] Matrix4 modifierMatrix(Vec3 rotation, Vec3 scale);

/// The chain from base to position for the first `count` vertices of the
/// current slot: vertex transform, Disperse, Pinch A and B, Taper, Shear A and
/// B, Bend, Twist, Bulge. The order is fixed.
void applyVertexModifiers(ShapeMesh& mesh, const ModifierTable& values, std::size_t count);

/// Shape Scale, Rotate and Move over the positions of the first `count` vertices.
void applyShapeTransform(ShapeMesh& mesh, const ModifierTable& values, std::size_t count);

struct DuplicateFlags {
  bool applyModifiersGlobally = false;
  bool useWorldAxis = false;
};

/// The whole road from a generated mesh to the positions that are drawn:
/// modifiers, then duplicates and shape transform in the order that the flags ask.
void ApplyModifiers(ShapeMesh& mesh, const ModifierTable& values, const DuplicateStep& step,
                    DuplicateFlags flags);

}  // namespace pv
