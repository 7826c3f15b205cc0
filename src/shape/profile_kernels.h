#pragma once

#include <cstddef>
#include <span>

#include "shape/duplicates.h"
#include "shape/vertex_kernels.h"

namespace pv {

/// A stretch of a profile: whole chunks, aligned to 64 bytes.
struct ProfileRow {
  const float* x;
  const float* y;
  const float* z;
  std::size_t count;
};

/// The profile `along` units towards -z, then through the transforms, two at most.
void moveProfile(const ProfileRow& profile, float along, std::span<const InstanceTransform> then,
                 VertexPlace to);
/// The same for a profile that is turned; `swaps` exchanges x and z after that.
void turnProfile(const ProfileRow& profile, const InstanceTransform& turn, bool swaps,
                 std::span<const InstanceTransform> then, VertexPlace to);

}  // namespace pv
