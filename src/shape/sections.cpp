#include "shape/sections.h"

#include <algorithm>

#include "math/matrix4.h"
#include "math/scalar.h"
#include "shape/profile_kernels.h"

namespace pv {

void ShapeSections::clear() {
  rows_ = 0;
  columns_ = 0;
}

bool ShapeSections::repeat(std::span<const Vec3> profile, std::int32_t sections, Spread spread,
                           float step, float back) {
  clear();
  if (!profile_.resize(VertexBlock::padded(profile.size()))) {
    return false;
  }
  for (std::size_t i = 0; i < profile_.size(); ++i) {
    const Vec3& p = profile[std::min(i, profile.size() - 1)];
    profile_.set(i, spread == Spread::Sweep ? Vec3{p.z, p.y, p.x} : p);
  }
  rows_ = profile.size();
  columns_ = static_cast<std::size_t>(sections) + 1;
  spread_ = spread;
  step_ = step;
  back_ = back;
  return true;
}

bool ShapeSections::repeatLine(std::size_t count, float top, float height, std::int32_t sections,
                               float step, float back) {
  if (!repeat({}, sections, Spread::Extrude, step, back) ||
      !profile_.resize(VertexBlock::padded(count))) {
    clear();
    return false;
  }
  for (std::size_t i = 0; i < profile_.size(); ++i) {
    const auto row = static_cast<float>(std::min(i, count - 1));
    profile_.set(i, {0.0F, top - row * height, 0.0F});
  }
  rows_ = count;
  return true;
}

void ShapeSections::vertices(std::size_t column, std::size_t first, std::size_t count,
                             std::span<const InstanceTransform> then, VertexPlace to) const {
  const float along = static_cast<float>(column) * step_ - back_;
  const ProfileRow row{profile_.x.data() + first, profile_.y.data() + first,
                       profile_.z.data() + first, VertexBlock::padded(count)};
  if (spread_ == Spread::Extrude) {
    moveProfile(row, along, then, to);
    return;
  }
  // Adding a move of zero changes nothing: no sum here is a negative zero.
  const InstanceTransform turn{D3DXMatrixRotationYawPitchRoll(toRadians(along), 0, 0), {}};
  turnProfile(row, turn, spread_ == Spread::Sweep, then, to);
}

}  // namespace pv
