#include "path/path_model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "math/scalar.h"
#include "path/path_file.h"

namespace pv {
namespace {

constexpr std::int32_t kVertexReach = 6;
constexpr std::int32_t kSegmentReach = 2;
constexpr float kMaxPixelRatio = 16.0F;  // beyond any screen

bool isBetween(std::int32_t value, std::int32_t a, std::int32_t b, std::int32_t reach) {
  return std::min(a, b) - reach <= value && value <= std::max(a, b) + reach;
}

/// One axis of snapPoint; the cell is a view's share of `size` pixels.
std::int32_t snapAxis(std::int32_t value, std::int32_t size, float zoom, std::int32_t divisions) {
  const std::int32_t half = truncate(static_cast<float>(size) * zoom) / 2;
  const float cell = static_cast<float>(half) / static_cast<float>(divisions);
  if (!(cell > 0.0F)) {
    return value;
  }
  const std::int64_t centre = size / 2;
  const std::int64_t fromCentre = value - centre;
  const std::int64_t rounding = truncate(cell / 2.0F);
  const std::int64_t rounded = fromCentre >= 0 ? fromCentre + rounding : fromCentre - rounding;
  const std::int32_t cells = truncate(static_cast<float>(rounded) / cell);
  return nearPixel(centre + truncate(static_cast<float>(cells) * cell));
}

}  // namespace

void PathModel::setPoints(const PathRecord& record) {
  count_ = std::clamp(record.count, 0, kMaxPathPoints);
  std::copy_n(record.points.begin(), count_, points_.begin());
  std::copy_n(record.points.begin(), count_, startPoints_.begin());
  clearFlags();
}

PathRecord PathModel::getRecord() const {
  PathRecord record;
  record.count = count_;
  std::copy_n(points_.begin(), count_, record.points.begin());
  return record;
}

Status PathModel::save(const std::filesystem::path& name) const {
  return SavePathFile(name, getRecord());
}

Status PathModel::load(const std::filesystem::path& fullName) {
  const auto record = LoadPathFile(fullName);
  if (!record) {
    return record.error();
  }
  count_ = record.value().count;
  std::copy_n(record.value().points.begin(), count_, points_.begin());
  clearFlags();
  return Done{};
}

void PathModel::setSize(std::int32_t width, std::int32_t height, float pixelRatio) {
  width_ = width;
  height_ = height;
  pixelRatio_ = pixelRatio >= 1.0F ? std::min(pixelRatio, kMaxPixelRatio) : 1.0F;
}

void PathModel::setHighlight(std::int32_t index, bool flag) {
  if (index >= 0 && index < count_) {
    highlighted_[slot(index)] = flag;
  }
}

void PathModel::setSelected(std::int32_t index, bool flag) {
  if (index >= 0 && index < count_) {
    selected_[slot(index)] = flag;
  }
}

std::int32_t PathModel::selectedCount() const {
  return static_cast<std::int32_t>(std::count(selected_.begin(), selected_.begin() + count_, true));
}

void PathModel::clearFlags() {
  for (std::size_t i = 0; i < slot(count_); ++i) {
    clearFlags(i);
  }
}

void PathModel::clearFlags(std::size_t index) {
  selected_[index] = false;
  highlighted_[index] = false;
}

std::optional<PixelPoint> PathModel::projectSlot(const PathViewport& view, std::size_t index) {
  constexpr float kNowhere = std::numeric_limits<float>::quiet_NaN();
  const auto drawing = view.project(points_[index]);
  if (drawing) {
    const ScreenPoint at = view.toScreen(*drawing);
    screen_[index] = {static_cast<float>(at.x), static_cast<float>(at.y), 0.0F};
  } else {
    screen_[index] = {kNowhere, kNowhere, 0.0F};
  }
  return drawing;
}

void PathModel::projectAll(const PathViewport& view) {
  for (std::size_t i = 0; i < slot(count_); ++i) {
    projectSlot(view, i);
  }
}

void PathModel::snapshotAndProjectSelected(const PathViewport& view) {
  for (std::size_t i = 0; i < slot(count_); ++i) {
    if (selected_[i]) {
      startPoints_[i] = points_[i];
      projectSlot(view, i);
    }
  }
}

std::optional<ScreenPoint> PathModel::shownAt(std::size_t index) const {
  const Vec3& at = screen_[index];
  if (std::isnan(at.x) || std::isnan(at.y)) {
    return std::nullopt;
  }
  return ScreenPoint{truncate(at.x), truncate(at.y)};
}

std::int32_t PathModel::scaled(std::int32_t pixels) const {
  return truncate(static_cast<float>(pixels) * pixelRatio_);
}

std::int32_t PathModel::hitVertex(ScreenPoint mouse) {
  vertexHover_ = false;
  std::int32_t hit = -1;
  const std::int32_t reach = scaled(kVertexReach);
  for (std::int32_t i = 0; i < count_; ++i) {
    const auto at = shownAt(slot(i));
    if (at && isBetween(mouse.x, at->x, at->x, reach) && isBetween(mouse.y, at->y, at->y, reach)) {
      vertexHover_ = true;
      hit = i;
    }
  }
  return hit;
}

std::int32_t PathModel::hitSelectedVertex(ScreenPoint mouse) {
  const std::int32_t hit = hitVertex(mouse);
  return hit >= 0 && isSelected(hit) ? hit : -1;
}

std::int32_t PathModel::hitSegment(ScreenPoint mouse) const {
  const std::int32_t reach = scaled(kSegmentReach);
  for (std::int32_t i = 0; i + 1 < count_; ++i) {
    const auto a = shownAt(slot(i));
    const auto b = shownAt(slot(i + 1));
    if (a && b && isBetween(mouse.x, a->x, b->x, reach) && isBetween(mouse.y, a->y, b->y, reach)) {
      return i;
    }
  }
  return -1;
}

ScreenPoint PathModel::snapPoint(const PathViewport& view, ScreenPoint point) const {
  if (!snapEnabled_ || snapDivisions_ <= 0) {
    return point;
  }
  return {snapAxis(point.x, view.width, view.zoom, snapDivisions_),
          snapAxis(point.y, view.height, view.zoom, snapDivisions_)};
}

}  // namespace pv
