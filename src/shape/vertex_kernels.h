#pragma once

#include <cstddef>

#include "math/matrix4.h"
#include "shape/modifier_values.h"
#include "shape/shape_mesh.h"

namespace pv {

/// Where vertices are put, in whole chunks.
struct VertexPlace {
  float* x;
  float* y;
  float* z;
};

/// Some neighbouring vertices that are worked on while they lie in the nearest
/// cache. Kernels run over whole vectors, so streams reach a little further
/// than the vertices; what stands there is defined and otherwise of no account.
struct alignas(64) VertexBlock {
  static constexpr std::size_t kCapacity = 512;
  static constexpr std::size_t kStep = 16;  ///< divisible by every vector's length

  // Left unset: filled before it is read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  VertexBlock() {}

  float x[kCapacity];
  float y[kCapacity];
  float z[kCapacity];

  [[nodiscard]] VertexPlace place() { return {x, y, z}; }
  /// Whole vectors that hold `count` vertices.
  [[nodiscard]] static constexpr std::size_t padded(std::size_t count) {
    return (count + kStep - 1) / kStep * kStep;
  }
};

/// Vertices `first` and on; the last is repeated up to the next whole vector.
/// `count` is 1 to VertexBlock::kCapacity.
void loadVertices(const VectorStreams& from, std::size_t first, std::size_t count,
                  VertexBlock& block);
void storeVertices(const VertexBlock& block, std::size_t first, std::size_t count,
                   VectorStreams& to);

/// Every vertex times the matrix, which scales and turns, then moved.
void transformVertices(VertexBlock& block, std::size_t count, const Matrix4& matrix, Vec3 move);

/// Whether the modifiers below change anything without directions.
[[nodiscard]] bool deforms(const ModifierTable& values);

/// The modifiers between the vertex transform and the shape transform, in their
/// order: Disperse (left out without directions), Pinch A and B, Taper, Shear A
/// and B, Bend, Twist, Bulge.
void deformVertices(VertexBlock& block, std::size_t count, const ModifierTable& values,
                    const VertexBlock* directions);

}  // namespace pv
