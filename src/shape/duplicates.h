#pragma once

#include <array>
#include <cstdint>

#include "math/matrix4.h"
#include "shape/shape_mesh.h"
#include "shape/shape_settings.h"

namespace pv {

/// How each copy differs from the one before, in shape units and degrees.
struct DuplicateStep {
  std::int32_t copies = 0;
  Vec3 position;
  Vec3 scale;  ///< added to the factor 1, once a copy
  std::array<std::int32_t, 3> rotation{};
};

/// Slider units turned into units: position and scale / 200, rotation truncated.
[[nodiscard]] DuplicateStep duplicateStep(const EmitterSettings& emitter,
                                          const DuplicateSettings& duplicates);

/// Scale and rotation, which leave the origin where it is, then a move.
struct InstanceTransform {
  Matrix4 matrix;
  Vec3 offset;
};
/// That of copy k (0 is the shape itself).
[[nodiscard]] InstanceTransform instanceTransform(const DuplicateStep& step, std::int32_t k);

/// Appends the copies' base positions and lines to the current slot; nothing
/// happens unless there are 1 to 20 copies.
void DuplicateShape(ShapeMesh& mesh, const DuplicateStep& step);

/// Replaces the positions of every copy by those of instance 0, transformed.
void ReplicateModifiedInstance(ShapeMesh& mesh, const DuplicateStep& step);

}  // namespace pv
