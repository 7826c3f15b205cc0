#include <cmath>
#include <utility>

#include "cli/svg_reader.h"
#include "entries.h"
#include "path/outline_path.h"
#include "path/path_svg.h"
#include "require.h"

namespace pv::fuzz {

namespace {

void checkPath(const PathRecord& path, std::int32_t most) {
  constexpr float kEdge = 1.00001F;
  require(path.count >= 2 && path.count <= most, "a path has two points to as many as allowed");
  for (const Vec3& point : path.inUse()) {
    require(std::abs(point.x) <= kEdge && std::abs(point.y) <= kEdge && point.z == 0.0F,
            "points are fitted into the view");
  }
}

/// What was written reads as one line with as many points.
void checkRoundTrip(const PathRecord& path) {
  const auto text = pathSvg(path, PathAxisView::Front);
  require(text.ok(), "a fitted path can be written");
  const auto drawing = readSvg(std::as_bytes(std::span(text.value())));
  require(drawing && drawing.value().outlines.size() == 1, "what was written is one line");
  if (const auto again = fitOutline(drawing.value().outlines.front(), std::nullopt)) {
    require(again.value().path.count == path.count, "every point comes back");
  }
}

void checkOutline(const Outline& outline, std::optional<std::int32_t> points) {
  const auto fitted = fitOutline(outline, points);
  if (!fitted) {
    require(!fitted.error().reason.empty(), "a refusal gives its reason");
    return;
  }
  checkPath(fitted.value().path, points.value_or(kMaxPathPoints));
  checkRoundTrip(fitted.value().path);
}

}  // namespace

void runSvg(std::span<const std::byte> bytes) {
  constexpr std::size_t kMostOutlines = 8;
  auto drawing = readSvg(bytes);
  if (!drawing) {
    require(!drawing.error().reason.empty(), "a refusal gives its reason");
    return;
  }
  auto outlines = joinTouching(std::move(drawing.value().outlines));
  if (outlines.size() > kMostOutlines) {
    outlines.resize(kMostOutlines);
  }
  const auto points = static_cast<std::int32_t>(2 + bytes.size() % (kMaxPathPoints - 1));
  for (const Outline& outline : outlines) {
    checkOutline(outline, std::nullopt);
    checkOutline(outline, points);
  }
  if (!outlines.empty()) {
    checkOutline(joinAll(std::move(outlines)), std::nullopt);
  }
}

}  // namespace pv::fuzz
