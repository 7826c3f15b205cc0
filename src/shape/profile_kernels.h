#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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

/// How a column comes out of its profile.
struct ProfileSpread {
  enum class Kind : std::uint8_t {
    None,
    Move,  ///< `along` units towards -z
    /// About y, without the products with zeros, so all coordinates have to be
    /// numbers; and without the zeros that a transform adds at the end, so a
    /// transform must follow: the signs of zeros may differ in between.
    Turn
  };

  Kind kind = Kind::None;
  float along = 0.0F;
  std::array<float, 2> toX{};  ///< factors of x and z
  std::array<float, 2> toZ{};

  /// The same for one vertex.
  [[nodiscard]] Vec3 operator()(Vec3 p) const {
    switch (kind) {
      case Kind::Move:
        return {p.x, p.y, p.z - along};
      case Kind::Turn:
        return {p.x * toX[0] + p.z * toX[1], p.y, p.x * toZ[0] + p.z * toZ[1]};
      default:
        return p;
    }
  }
};

/// The profile spread, then through the transforms.
void spreadProfile(const ProfileRow& profile, const ProfileSpread& spread,
                   std::span<const InstanceTransform> then, VertexPlace to);
/// Any profile turned by a matrix; `swaps` exchanges x and z after that.
void turnProfile(const ProfileRow& profile, const Matrix4& turn, bool swaps,
                 std::span<const InstanceTransform> then, VertexPlace to);

}  // namespace pv
