#include "reference/reference_chain.h"

#include <cmath>

#include "math/matrix4.h"
#include "math/scalar.h"

namespace pv::reference {

namespace {

bool allZero(Vec3 v) {
  return v.x == 0.0F && v.y == 0.0F && v.z == 0.0F;
}

Vec3 hundredths(Vec3 v) {
  return {v.x / 100.0F, v.y / 100.0F, v.z / 100.0F};
}

void pinchA(Vec3& p, Vec3 v) {
  const auto [a, b, c] = v;
  p.x = p.x - a * p.y * p.x;
  p.y = p.y - b * p.x * p.y;
  p.z = p.z - c * p.y * p.z;
}

void pinchB(Vec3& p, Vec3 v) {
  const auto [a, b, c] = v;
  p.x = p.x - a * p.z * p.x;
  p.y = p.y - b * p.z * p.y;
  p.z = p.z - c * p.x * p.z;
}

/// `v` tells which axes taper at all.
void taper(Vec3& p, Vec3 v, Vec3 t) {
  if (v.x != 0.0F) {
    p.y = p.y - t.x * p.x * p.y;
    p.z = p.z - t.x * p.x * p.z;
  }
  if (v.y != 0.0F) {
    p.x = p.x - t.y * p.y * p.x;
    p.z = p.z - t.y * p.y * p.z;
  }
  if (v.z != 0.0F) {
    const float s = t.z * p.z;
    p.y = p.y - s * p.y;
    p.x = p.x - s * p.x;
  }
}

void shearA(Vec3& p, Vec3 v) {
  const auto [a, b, c] = v;
  p.y = p.y - b * p.x;
  p.x = p.x - a * p.z;
  p.z = p.z - c * p.x;
}

void shearB(Vec3& p, Vec3 v) {
  const auto [a, b, c] = v;
  p.y = p.y - b * p.z;
  p.x = p.x - a * p.y;
  p.z = p.z - c * p.y;
}

void turn(Vec3& p, float x, float y, float z) {
  const Matrix4 xy =
      D3DXMatrixMultiply(D3DXMatrixRotationX(toRadians(x)), D3DXMatrixRotationY(toRadians(y)));
  p = D3DXVec3Transform(p, D3DXMatrixMultiply(xy, D3DXMatrixRotationZ(toRadians(z))));
}

void bulge(Vec3& p, Vec3 v) {
  const auto [a, b, c] = v;
  float f = 2.0F - std::fabs(p.x);
  p.y = p.y + a * f * p.y;
  p.z = p.z + a * f * p.z;
  f = 2.0F - std::fabs(p.y);
  p.x = p.x + b * f * p.x;
  p.z = p.z + b * f * p.z;
  f = 2.0F - std::fabs(p.z);
  p.y = p.y + c * f * p.y;
  p.x = p.x + c * f * p.x;
}

}  // namespace

Chain::Chain(const ShapeRecord& shape) : values_(shape.modifiers.triples) {
  const std::array<float, 3>& b = shape.duplicates.bulge;
  bulge_ = hundredths({b[0], b[1], b[2]});
  bulges_ = !allZero({b[0], b[1], b[2]});
  disperse_ = {values_[3].x / 200.0F, values_[3].y / 200.0F, values_[3].z / 200.0F};
  for (std::size_t i = 0; i < values_.size(); ++i) {
    hundredths_[i] = hundredths(values_[i]);
    works_[i] = !allZero(values_[i]);
  }
}

void Chain::apply(Vec3& p, Vec3 direction) const {
  p.x += disperse_.x * direction.x;
  p.y += disperse_.y * direction.y;
  p.z += disperse_.z * direction.z;
  if (works_[4]) {
    pinchA(p, hundredths_[4]);
  }
  if (works_[5]) {
    pinchB(p, hundredths_[5]);
  }
  if (works_[6]) {
    taper(p, values_[6], hundredths_[6]);
  }
  if (works_[7]) {
    shearA(p, hundredths_[7]);
  }
  if (works_[8]) {
    shearB(p, hundredths_[8]);
  }
  if (const Vec3 bend = values_[9]; works_[9]) {
    turn(p, bend.x * p.y, bend.y * p.z, bend.z * p.y);
  }
  if (const Vec3 twist = values_[10]; works_[10]) {
    turn(p, twist.x * p.x, twist.y * p.y, twist.z * p.z);
  }
  if (bulges_) {
    bulge(p, bulge_);
  }
}

}  // namespace pv::reference
