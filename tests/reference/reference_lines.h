#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "math/matrix4.h"
#include "math/scalar.h"
#include "reference/reference_shape.h"
#include "reference/reference_view.h"

namespace pv::reference {

/// A setup's projection, with what does not depend on the point made once.
class Projection {
 public:
  explicit Projection(const FrameSetup& setup);
  [[nodiscard]] Spot map(Vec3 point) const {
    return mode_ == ViewMode::Perspective ? perspective(point) : flat(point);
  }

 private:
  static std::int32_t toPixel(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
  }
  [[nodiscard]] Spot perspective(Vec3 point) const {
    const Vec3 v = D3DXVec3Transform(point, view_);
    const float x = static_cast<float>(centreX_) * v.x / v.z;
    const float y = static_cast<float>(centreY_) * v.y / v.z;
    if (!(v.z > 0.0F) || x != x || y != y) {
      return {};
    }
    return {toPixel(std::int64_t{centreX_} - truncate(x)),
            toPixel(std::int64_t{truncate(y)} + centreY_), true};
  }
  [[nodiscard]] Spot flat(Vec3 point) const;

  ViewMode mode_;
  Matrix4 view_;
  std::int32_t centreX_;
  std::int32_t centreY_;
  float halfWidth_;
  float halfHeight_;
};

/// Pixels that somebody else owns, bottom row first.
struct Picture {
  std::uint32_t* pixels;
  std::int64_t width;
  std::int64_t height;
};

/// A clipped line by Bresenham's walk; a horizontal one has no right end.
void drawLine(const Picture& picture, std::int64_t x1, std::int64_t y1, std::int64_t x2,
              std::int64_t y2, std::uint32_t colour);

/// A spot for every vertex.
void projectVertices(std::vector<Spot>& spots, const Mesh& mesh, const Projection& projection);

/// The lines between vertices that both show.
void drawMeshLines(const Picture& picture, const Mesh& mesh, const std::vector<Spot>& spots);

}  // namespace pv::reference
