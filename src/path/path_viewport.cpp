#include "path/path_viewport.h"

#include <algorithm>
#include <cmath>

#include "math/scalar.h"

namespace pv {

std::int32_t nearPixel(std::int64_t coordinate) {
  constexpr std::int64_t kFar = std::int64_t{1} << 30;
  return static_cast<std::int32_t>(std::clamp(coordinate, -kFar, kFar));
}

ScreenPoint PathViewport::wholePan() const {
  return {nearPixel(truncate(pan.axis(horizontalAxis()))),
          nearPixel(truncate(pan.axis(verticalAxis())))};
}

std::optional<PixelPoint> PathViewport::project(Vec3 point) const {
  const float across = zoom * point.axis(horizontalAxis()) * (static_cast<float>(width) / 2.0F);
  const float up = zoom * point.axis(verticalAxis()) * (static_cast<float>(height) / 2.0F);
  if (std::isnan(across) || std::isnan(up)) {
    return std::nullopt;
  }
  const ScreenPoint moved = wholePan();
  const std::int64_t x = std::int64_t{truncate(across)} + width / 2 + moved.x;
  const std::int64_t y =
      std::int64_t{truncate(up)} * verticalSign() + height / 2 - std::int64_t{moved.y};
  return PixelPoint{nearPixel(x), nearPixel(y)};
}

std::optional<Vec3> PathViewport::unproject(ScreenPoint screen) const {
  const float unitAcross = zoom * (static_cast<float>(width) / 2.0F);
  const float unitUp = zoom * (static_cast<float>(height) / 2.0F);
  if (!(unitAcross > 0.0F) || !(unitUp > 0.0F)) {
    return std::nullopt;
  }
  const PixelPoint at = toDrawing(screen);
  const ScreenPoint moved = wholePan();
  const std::int64_t x = std::int64_t{at.x} - width / 2 - moved.x;
  const std::int64_t y = (std::int64_t{at.y} - height / 2 + moved.y) * verticalSign();
  Vec3 point;
  point.axis(horizontalAxis()) = static_cast<float>(x) / unitAcross;
  point.axis(verticalAxis()) = static_cast<float>(y) / unitUp;
  return point;
}

PixelPoint PathViewport::toDrawing(ScreenPoint screen) const {
  return {nearPixel(screen.x), nearPixel(std::int64_t{height} - screen.y)};
}

ScreenPoint PathViewport::toScreen(PixelPoint drawing) const {
  return {nearPixel(drawing.x), nearPixel(std::int64_t{height} - drawing.y)};
}

}  // namespace pv
