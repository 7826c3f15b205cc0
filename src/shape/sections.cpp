#include "shape/sections.h"

#include <algorithm>
#include <cmath>

#include "math/matrix4.h"
#include "math/scalar.h"

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
  areNumbers_ = std::ranges::all_of(profile, [](const Vec3& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
  });
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

ProfileRow ShapeSections::profile(std::size_t first, std::size_t count) const {
  return {profile_.x.data() + first, profile_.y.data() + first, profile_.z.data() + first,
          VertexBlock::padded(count)};
}

ProfileSpread ShapeSections::spread(std::size_t column) const {
  if (spread_ == Spread::Extrude) {
    return {ProfileSpread::Kind::Move, along(column), {}, {}};
  }
  const std::size_t across = spread_ == Spread::Sweep ? 2 : 0;
  const auto& m = turn(column).m;
  return {ProfileSpread::Kind::Turn,
          0.0F,
          {m[0][across], m[2][across]},
          {m[0][2 - across], m[2][2 - across]}};
}

float ShapeSections::along(std::size_t column) const {
  return static_cast<float>(column) * step_ - back_;
}

Matrix4 ShapeSections::turn(std::size_t column) const {
  return D3DXMatrixRotationYawPitchRoll(toRadians(along(column)), 0, 0);
}

void ShapeSections::vertices(std::size_t column, std::size_t first, std::size_t count,
                             std::span<const InstanceTransform> then, VertexPlace to) const {
  if (spread_ == Spread::Extrude || (areNumbers_ && !then.empty())) {
    spreadProfile(profile(first, count), spread(column), then, to);
  } else {
    turnProfile(profile(first, count), turn(column), spread_ == Spread::Sweep, then, to);
  }
}

}  // namespace pv
