#include "shape/sections.h"

#include <algorithm>

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
  if (!profile_.resize(profile.size())) {
    return false;
  }
  for (std::size_t i = 0; i < profile.size(); ++i) {
    const Vec3& p = profile[i];
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
  if (!repeat({}, sections, Spread::Extrude, step, back) || !profile_.resize(count)) {
    clear();
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) {
    profile_.set(i, {0.0F, top - static_cast<float>(i) * height, 0.0F});
  }
  rows_ = count;
  return true;
}

void ShapeSections::vertices(std::size_t column, std::size_t first, std::size_t count,
                             VertexBlock& block) const {
  loadVertices(profile_, first, count, block);
  const float along = static_cast<float>(column) * step_ - back_;
  if (spread_ == Spread::Extrude) {
    for (std::size_t i = 0; i < VertexBlock::padded(count); ++i) {
      block.z[i] -= along;
    }
    return;
  }
  // Adding a move of zero changes nothing: no sum here is a negative zero.
  transformVertices(block, count, D3DXMatrixRotationYawPitchRoll(toRadians(along), 0, 0), {});
  if (spread_ == Spread::Sweep) {
    std::swap_ranges(block.x, block.x + VertexBlock::padded(count), block.z);
  }
}

}  // namespace pv
