#pragma once

#include <array>

#include "math/vec3.h"

namespace pv {

/// A 4 x 4 matrix in the row-vector convention: a point is a row multiplied on
/// the left, and a product a * b applies a first. Single precision throughout.
struct Matrix4 {
  std::array<std::array<float, 4>, 4> m{};

  bool operator==(const Matrix4&) const = default;
};

/// Rotations about one axis, angle in radians.
[[nodiscard]] Matrix4 D3DXMatrixRotationX(float radians);
[[nodiscard]] Matrix4 D3DXMatrixRotationY(float radians);
[[nodiscard]] Matrix4 D3DXMatrixRotationZ(float radians);

/// Roll about z first, then pitch about x, then yaw about y; radians.
[[nodiscard]] Matrix4 D3DXMatrixRotationYawPitchRoll(float yaw, float pitch, float roll);

[[nodiscard]] Matrix4 D3DXMatrixScaling(float x, float y, float z);

/// The product that applies `first`, then `second`.
[[nodiscard]] Matrix4 D3DXMatrixMultiply(const Matrix4& first, const Matrix4& second);

/// Left-handed view matrix: camera space has x to the right, y up and z into
/// the picture. `eye` and `target` must differ, and `up` must not be parallel
/// to the line between them.
[[nodiscard]] Matrix4 D3DXMatrixLookAtLH(Vec3 eye, Vec3 target, Vec3 up);

/// A point times a matrix, the fourth component (always 1 for the matrices
/// above) left away. The terms are summed from left to right.
[[nodiscard]] inline Vec3 D3DXVec3Transform(Vec3 p, const Matrix4& t) {
  return {p.x * t.m[0][0] + p.y * t.m[1][0] + p.z * t.m[2][0] + t.m[3][0],
          p.x * t.m[0][1] + p.y * t.m[1][1] + p.z * t.m[2][1] + t.m[3][1],
          p.x * t.m[0][2] + p.y * t.m[1][2] + p.z * t.m[2][2] + t.m[3][2]};
}

}  // namespace pv
