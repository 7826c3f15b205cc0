#include "path/path_svg.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "path/outline.h"
#include "util/number_text.h"

namespace pv {

namespace {

struct Sides {
  double left = -1.0;
  double top = -1.0;
  double right = 1.0;
  double bottom = 1.0;
};

/// Where the point lies in the drawing, y downwards.
PlanePoint drawn(Vec3 point, const PathViewport& axes) {
  const auto across = static_cast<double>(point.axis(axes.horizontalAxis()));
  const auto up = static_cast<double>(point.axis(axes.verticalAxis()));
  return {across, axes.verticalSign() < 0 ? up : 0.0 - up};
}

/// As numberText(), for sums that a float may not hold.
std::string text(double value) {
  constexpr int kDigits = 9;
  std::array<char, kNumberTextSize> digits{};
  char* const first = digits.data();
  const auto end =
      std::to_chars(first, first + digits.size(), value, std::chars_format::general, kDigits).ptr;
  return {first, end};
}

std::string pair(double x, double y) {
  return text(x) + " " + text(y);
}

std::string frameText(const Sides& sides) {
  constexpr double kMargin = 0.05;  // of the larger side, for the stroke
  constexpr double kStroke = 0.01;
  const double size = std::max(sides.right - sides.left, sides.bottom - sides.top);
  const double margin = kMargin * size;
  return R"(<svg xmlns="http://www.w3.org/2000/svg" width="512" height="512" viewBox=")" +
         pair(sides.left - margin, sides.top - margin) + " " +
         pair(sides.right - sides.left + 2 * margin, sides.bottom - sides.top + 2 * margin) +
         "\">\n  <path fill=\"none\" stroke=\"#000\" stroke-linejoin=\"round\" stroke-width=\"" +
         text(kStroke * size / 2) + "\"\n    d=\"";
}

}  // namespace

Result<std::string> pathSvg(const PathRecord& path, PathAxisView view) {
  PathViewport axes;
  axes.axes = view;
  Sides sides;
  std::string data;
  for (const Vec3& point : path.inUse()) {
    const PlanePoint at = drawn(point, axes);
    if (!std::isfinite(at.x) || !std::isfinite(at.y)) {
      return Error{ErrorKind::BadData, {}, {}, "a point of the path is not finite"};
    }
    sides.left = std::min(sides.left, at.x);
    sides.right = std::max(sides.right, at.x);
    sides.top = std::min(sides.top, at.y);
    sides.bottom = std::max(sides.bottom, at.y);
    data += (data.empty() ? "M" : "\n       L") + pair(at.x, at.y);
  }
  if (data.empty()) {
    return Error{ErrorKind::BadData, {}, {}, "the path has no points"};
  }
  const auto points = path.inUse();
  constexpr std::size_t kLeastClosed = 4;  // a triangle and its first point again
  const bool closed = points.size() >= kLeastClosed && points.front() == points.back();
  return frameText(sides) + data + (closed ? " Z" : "") + "\"/>\n</svg>\n";
}

}  // namespace pv
