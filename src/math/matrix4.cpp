#include "math/matrix4.h"

#include <cmath>

#include "math/scalar.h"

namespace pv {

namespace {

float dot(Vec3 a, Vec3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vec3 cross(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vec3 normalized(Vec3 v) {
  const float length = std::sqrt(dot(v, v));
  if (length == 0.0F) {
    return {};
  }
  return {v.x / length, v.y / length, v.z / length};
}

}  // namespace

Matrix4 D3DXMatrixRotationX(float radians) {
  const auto [s, c] = sinCos(radians);
  return {{{{1, 0, 0, 0}, {0, c, s, 0}, {0, -s, c, 0}, {0, 0, 0, 1}}}};
}

Matrix4 D3DXMatrixRotationY(float radians) {
  const auto [s, c] = sinCos(radians);
  return {{{{c, 0, -s, 0}, {0, 1, 0, 0}, {s, 0, c, 0}, {0, 0, 0, 1}}}};
}

Matrix4 D3DXMatrixRotationZ(float radians) {
  const auto [s, c] = sinCos(radians);
  return {{{{c, s, 0, 0}, {-s, c, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}};
}

Matrix4 D3DXMatrixRotationYawPitchRoll(float yaw, float pitch, float roll) {
  const auto [sy, cy] = sinCos(yaw);
  const auto [sp, cp] = sinCos(pitch);
  const auto [sr, cr] = sinCos(roll);
  return {{{{cr * cy + sr * sp * sy, sr * cp, sr * sp * cy - cr * sy, 0},
            {cr * sp * sy - sr * cy, cr * cp, cr * sp * cy + sr * sy, 0},
            {cp * sy, -sp, cp * cy, 0},
            {0, 0, 0, 1}}}};
}

Matrix4 D3DXMatrixScaling(float x, float y, float z) {
  return {{{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}}}};
}

Matrix4 D3DXMatrixMultiply(const Matrix4& first, const Matrix4& second) {
  Matrix4 product;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      product.m[row][column] =
          first.m[row][0] * second.m[0][column] + first.m[row][1] * second.m[1][column] +
          first.m[row][2] * second.m[2][column] + first.m[row][3] * second.m[3][column];
    }
  }
  return product;
}

Matrix4 D3DXMatrixLookAtLH(Vec3 eye, Vec3 target, Vec3 up) {
  const Vec3 forward = normalized(target - eye);
  const Vec3 right = normalized(cross(up, forward));
  const Vec3 above = cross(forward, right);
  return {{{{right.x, above.x, forward.x, 0},
            {right.y, above.y, forward.y, 0},
            {right.z, above.z, forward.z, 0},
            {-dot(right, eye), -dot(above, eye), -dot(forward, eye), 1}}}};
}

}  // namespace pv
