#include "view3d/view_projector.h"

#include <algorithm>
#include <limits>

#include "math/scalar.h"

namespace pv {

namespace {

constexpr std::int32_t kSizeEnd = 4000;

// Projections of far-off points saturate instead of wrapping round.
std::int32_t saturatedSum(std::int64_t a, std::int64_t b) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(
      a + b, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

bool isNumber(float value) {
  return value == value;
}

}  // namespace

FlatMode flatModeOf(ViewMode mode) {
  switch (mode) {
    case ViewMode::Top:
      return FlatMode::Top;
    case ViewMode::Front:
      return FlatMode::Front;
    default:
      return FlatMode::Side;
  }
}

void ViewProjector::setSize(std::int32_t width, std::int32_t height) {
  if (width < 2 || width >= kSizeEnd || height < 2 || height >= kSizeEnd) {
    return;
  }
  width_ = width;
  height_ = height;
  minSide_ = std::min(width, height);
  dirty_ = false;
}

std::optional<PixelPoint> ViewProjector::project3D(Vec3 point, const Matrix4& view,
                                                   PixelPoint centre) {
  return projectCameraSpace(D3DXVec3Transform(point, view), centre);
}

// The x axis is mirrored on purpose: with the left-handed camera space and rows
// that count upward this gives a right-handed looking picture.
std::optional<PixelPoint> ViewProjector::projectCameraSpace(Vec3 point, PixelPoint centre) {
  if (!(point.z > 0.0F)) {
    return std::nullopt;
  }
  lastDepth_ = point.z;
  const float x = static_cast<float>(centre.x) * point.x / point.z;
  const float y = static_cast<float>(centre.y) * point.y / point.z;
  if (!isNumber(x) || !isNumber(y)) {
    return std::nullopt;
  }
  return PixelPoint{saturatedSum(centre.x, -std::int64_t{truncate(x)}),
                    saturatedSum(centre.y, truncate(y))};
}

std::optional<PixelPoint> ViewProjector::projectFlat(Vec3 point, FlatMode mode,
                                                     PixelPoint origin) const {
  const float across = mode == FlatMode::Side ? point.z : point.x;
  const float up = mode == FlatMode::Top ? point.z : point.y;
  const float x = static_cast<float>(width_) / 2.0F * across;
  const float y = static_cast<float>(height_) / 2.0F * up;
  if (!isNumber(x) || !isNumber(y)) {
    return std::nullopt;
  }
  const std::int64_t rise = truncate(y);
  return PixelPoint{saturatedSum(origin.x, truncate(x)),
                    saturatedSum(origin.y, mode == FlatMode::Top ? -rise : rise)};
}

void ViewProjector::clearHandles() {
  handles_ = {};
}

void ViewProjector::clearSquares() {
  for (Square& square : handles_) {
    square.high = square.low;
  }
}

void ViewProjector::placeHandle(Handle handle, PixelPoint centre, std::int32_t reach) {
  Square& square = handles_[static_cast<std::size_t>(handle)];
  square.low = {saturatedSum(centre.x, -reach), saturatedSum(centre.y, -reach)};
  square.high = {saturatedSum(centre.x, reach), saturatedSum(centre.y, reach)};
}

Handle ViewProjector::hitHandle(PixelPoint position) {
  Handle hit = Handle::None;
  for (std::int32_t i = 0; i < kHandleCount; ++i) {
    Square& square = handles_[static_cast<std::size_t>(i)];
    const bool inside = position.x >= square.low.x && position.x < square.high.x &&
                        position.y >= square.low.y && position.y < square.high.y;
    square.hovered = inside && hit == Handle::None;
    if (square.hovered) {
      hit = static_cast<Handle>(i);
    }
  }
  return hit;
}

bool ViewProjector::isHovered(Handle handle) const {
  return handles_[static_cast<std::size_t>(handle)].hovered;
}

}  // namespace pv
