// The way of an instance's vertices to the canvas in one step, and how far it may be
// trusted.
#include <algorithm>
#include <cmath>

#include "view3d/hidden_patches.h"

namespace pv {

namespace {

// Each vertex goes the way matrix by matrix, with fewer than 8 roundings of 2^-24
// of the terms' sizes in each, and the way in one step has as many. Numbers so small
// that they have fewer digits lose less than 2^-148 of a unit to begin with, which a
// second matrix can make 2^-18 of one.
constexpr double kRounding = 0x1p-17;
constexpr double kLostDigits = 0x1p-16;  // units

/// What a point (x, y, z, 1) is multiplied with to get one coordinate, and the same
/// of its terms' sizes.
struct Way {
  std::array<double, 4> factors{};
  std::array<double, 4> sizes{};
};

/// One coordinate after a matrix and a move, as one before them.
Way before(const Way& way, const Matrix4& matrix, const Vec3& move) {
  const std::array<float, 3> moves{move.x, move.y, move.z};
  Way result;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t c = 0; c < 3; ++c) {
      const auto factor = static_cast<double>(matrix.m[row][c]);
      const auto more = static_cast<double>(row == 3 ? moves[c] : 0.0F);
      result.factors[row] += (factor + more) * way.factors[c];
      result.sizes[row] += (std::abs(factor) + std::abs(more)) * way.sizes[c];
    }
  }
  result.factors[3] += way.factors[3];
  result.sizes[3] += way.sizes[3];
  return result;
}

/// A coordinate itself, 3 being the 1 behind the others.
Way only(std::size_t coordinate) {
  Way way;
  way.factors.at(coordinate) = 1.0;
  way.sizes = way.factors;
  return way;
}

HiddenPatches::Axis axisOf(const Way& way) {
  HiddenPatches::Axis axis;
  std::transform(way.factors.begin(), way.factors.end(), axis.factors.begin(),
                 [](double factor) { return static_cast<float>(factor); });
  const auto [x, y, z, one] = way.sizes;
  axis.stretch =
      static_cast<float>(std::hypot(way.factors[0], way.factors[1], way.factors[2]) * 1.0001);
  axis.rounding = static_cast<float>(one * kRounding + kLostDigits);
  axis.roundingPerSize = static_cast<float>(std::max({x, y, z}) * kRounding);
  return axis;
}

/// How large a vertex may be so that none of its coordinates gets near infinity on
/// the way: `factor` times its size and `offset` is the most that they can be.
class Growth {
 public:
  void pass(const Matrix4& matrix, const Vec3& move) {
    float most = 0.0F;
    for (std::size_t row = 0; row < 3; ++row) {
      for (std::size_t c = 0; c < 3; ++c) {
        most = std::max(most, std::abs(matrix.m[row][c]));
      }
    }
    const auto growth = 3.0 * static_cast<double>(most);
    const auto& last = matrix.m[3];
    factor_ *= growth;
    offset_ *= growth;
    for (const float more : {last[0], last[1], last[2], move.x, move.y, move.z}) {
      offset_ += static_cast<double>(std::abs(more));
    }
    sizeEnd_ = std::clamp((kMost - offset_) / factor_, 0.0, sizeEnd_);
  }
  [[nodiscard]] float sizeEnd() const { return static_cast<float>(sizeEnd_); }

 private:
  static constexpr double kMost = 0x1p112;  // times a canvas is still a number
  double factor_ = 1.0;
  double offset_ = 0.0;
  double sizeEnd_ = kMost;
};

}  // namespace

HiddenPatches::HiddenPatches(std::span<const InstanceTransform> transforms, const PixelMap& map)
    : map_(&map) {
  const ViewMode mode = map.projection.mode;
  std::array<Way, 3> ways{only(mode == ViewMode::Side ? 2 : 0), only(mode == ViewMode::Top ? 2 : 1),
                          only(mode == ViewMode::Perspective ? 2 : 3)};
  for (std::size_t i = 0; i < ways.size(); ++i) {
    if (mode == ViewMode::Perspective) {
      ways[i] = before(ways[i], map.projection.view, {});
    }
    for (std::size_t step = transforms.size(); step-- > 0;) {
      ways[i] = before(ways[i], transforms[step].matrix, transforms[step].offset);
    }
    axes_[i] = axisOf(ways[i]);
  }
  Growth growth;
  for (const InstanceTransform& transform : transforms) {
    growth.pass(transform.matrix, transform.offset);
  }
  if (mode == ViewMode::Perspective) {
    growth.pass(map.projection.view, {});
  }
  sizeEnd_ = growth.sizeEnd();
}

}  // namespace pv
