#include <algorithm>

#include "math/scalar.h"
#include "path/path_model.h"

namespace pv {
namespace {

/// A view without size or zoom moves nothing.
float quotient(float value, float divisor) {
  return divisor != 0.0F ? value / divisor : 0.0F;
}

Vec3 midpoint(Vec3 from, Vec3 to) {
  return {from.x + (to.x - from.x) / 2.0F, from.y + (to.y - from.y) / 2.0F,
          from.z + (to.z - from.z) / 2.0F};
}

}  // namespace

void PathModel::selectInRect(const PathViewport& view, ScreenPoint a, ScreenPoint b,
                             PathSelection how) {
  const PixelPoint p = view.toDrawing(a);
  const PixelPoint q = view.toDrawing(b);
  const auto [left, right] = std::minmax(p.x, q.x);
  const auto [bottom, top] = std::minmax(p.y, q.y);
  for (std::size_t i = 0; i < slot(count_); ++i) {
    const auto at = projectSlot(view, i);
    const bool inside = at && left <= at->x && at->x <= right && bottom <= at->y && at->y <= top;
    if (how == PathSelection::Replace) {
      selected_[i] = inside;
    } else if (inside) {
      selected_[i] = !selected_[i];
    }
  }
}

void PathModel::moveSelected(const PathViewport& view, std::int32_t dx, std::int32_t dy) {
  const std::int32_t halfWidth = view.width / 2;
  const std::int32_t halfHeight = view.height / 2;
  const float across = quotient(static_cast<float>(dx), static_cast<float>(halfWidth) * view.zoom);
  const float down = quotient(static_cast<float>(dy), static_cast<float>(halfHeight) * view.zoom);
  for (std::size_t i = 0; i < slot(count_); ++i) {
    if (selected_[i]) {
      Vec3 point = startPoints_[i];
      point.axis(view.horizontalAxis()) += across;
      point.axis(view.verticalAxis()) -= static_cast<float>(view.verticalSign()) * down;
      points_[i] = point;
    }
  }
}

void PathModel::scaleSelected(const PathViewport& view, std::int32_t dx, std::int32_t dy,
                              PathScaleAxes axes) {
  const std::int64_t pixels = (std::int64_t{dx} - dy) / 2;
  const std::int64_t halves = std::int64_t{view.width / 2} + view.height / 2;
  const float factor =
      quotient(static_cast<float>(pixels), static_cast<float>(halves) * view.zoom / 2.0F);
  for (std::size_t i = 0; i < slot(count_); ++i) {
    if (!selected_[i]) {
      continue;
    }
    Vec3 point = startPoints_[i];
    if (axes != PathScaleAxes::Vertical) {
      float& across = point.axis(view.horizontalAxis());
      across += across * factor;
    }
    if (axes != PathScaleAxes::Horizontal) {
      float& up = point.axis(view.verticalAxis());
      up += up * factor;
    }
    points_[i] = point;
  }
}

void PathModel::shiftSelected(const PathViewport& view, float across, float up) {
  for (std::size_t i = 0; i < slot(count_); ++i) {
    if (selected_[i]) {
      points_[i].axis(view.horizontalAxis()) += across;
      points_[i].axis(view.verticalAxis()) += up;
      startPoints_[i] = points_[i];
    }
  }
}

void PathModel::deleteSelected() {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < slot(count_); ++i) {
    if (selected_[i]) {
      continue;
    }
    startPoints_[kept] = startPoints_[i];
    points_[kept] = points_[i];
    screen_[kept] = screen_[i];
    selected_[kept] = false;
    highlighted_[kept] = highlighted_[i];
    ++kept;
  }
  count_ = static_cast<std::int32_t>(kept);
}

bool PathModel::insertAfter(std::int32_t index) {
  if (index < 0 || index > count_ - 2 || count_ >= kMaxPathPoints) {
    return false;
  }
  const std::size_t added = slot(index) + 1;
  for (std::size_t i = slot(count_); i > added; --i) {
    points_[i] = points_[i - 1];
    startPoints_[i] = startPoints_[i - 1];
    clearFlags(i);
  }
  points_[added] = midpoint(points_[added - 1], points_[added]);
  startPoints_[added] = points_[added];
  clearFlags(added);
  ++count_;
  return true;
}

bool PathModel::appendAt(const PathViewport& view) {
  if (count_ >= kMaxPathPoints) {
    return false;
  }
  const std::int64_t dx = std::int64_t{nextVertexPixel_.x} - view.width / 2;
  const std::int64_t dy = std::int64_t{nextVertexPixel_.y} - view.height / 2;
  const float halfWidth = static_cast<float>(view.width) / 2.0F;
  const float halfHeight = static_cast<float>(view.height) / 2.0F;
  // Upwards is positive in every view, also in the top view, which draws its
  // vertical axis downwards: a new point there shows mirrored.
  const std::int64_t up = count_ == 0 ? -dy : dy;
  Vec3 point;
  point.axis(view.horizontalAxis()) =
      quotient(quotient(static_cast<float>(dx), halfWidth), view.zoom);
  point.axis(view.verticalAxis()) =
      quotient(quotient(static_cast<float>(up), halfHeight), view.zoom);
  points_[slot(count_)] = point;
  startPoints_[slot(count_)] = point;
  clearFlags(slot(count_));
  ++count_;
  return true;
}

void PathModel::setNextVertexFromMouse(const PathViewport& view, ScreenPoint mouse) {
  nextVertexPixel_ = {truncate(static_cast<float>(mouse.x) - view.pan.axis(view.horizontalAxis())),
                      truncate(static_cast<float>(mouse.y) - view.pan.axis(view.verticalAxis()))};
}

void PathModel::setNextVertexFromBand(const PathViewport& view, ScreenPoint mouse) {
  const PixelPoint at = view.toDrawing(mouse);
  const ScreenPoint pan = view.wholePan();
  nextVertexPixel_ = {nearPixel(std::int64_t{at.x} - pan.x), nearPixel(std::int64_t{at.y} + pan.y)};
}

}  // namespace pv
