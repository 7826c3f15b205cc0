#include "view3d/frame_grid.h"

#include <array>
#include <cmath>
#include <string_view>

#include "math/scalar.h"
#include "raster/bitmap_font.h"
#include "view3d/frame_colours.h"

namespace pv {

namespace {

/// Draws segments of shape space in perspective; those with an end behind the
/// eye are left out.
struct PerspectivePen {
  RasterCanvas& canvas;
  ViewProjector& projector;
  const Matrix4& view;

  void segment(Vec3 from, Vec3 to) {
    const PixelPoint centre{canvas.width / 2, canvas.height / 2};
    const auto a = projector.project3D(from, view, centre);
    const auto b = projector.project3D(to, view, centre);
    if (a && b) {
      canvas.line(a->x, a->y, b->x, b->y);
    }
  }
};

std::uint32_t gridColour(int line, int centreLine, int halfUnits) {
  if (line == centreLine) {
    return kCentreLineColour;
  }
  return std::abs(line - centreLine) == halfUnits ? kHalfUnitColour : kGridColour;
}

constexpr float kMarkerLength = 12.0F;      // pixels of 96 dpi
constexpr std::int32_t kTopLabelDrop = 15;  // rows from the canvas top to a label's foot

struct FlatLabels {
  std::string_view name;
  std::string_view left;
  std::string_view right;
  std::string_view bottom;
  std::string_view top;
  std::int32_t topShift;  // columns left of the middle
};

const FlatLabels& labelsOf(ViewMode mode) {
  static constexpr FlatLabels kTop{"Top View", "Left", "Right", "Front", "Back", 16};
  static constexpr FlatLabels kFront{"Front View", "Left", "Right", "Bottom", "Top", 12};
  static constexpr FlatLabels kSide{"Side View", "Back", "Front", "Bottom", "Top", 12};
  return mode == ViewMode::Top ? kTop : (mode == ViewMode::Front ? kFront : kSide);
}

void drawFlatLabels(RasterCanvas& canvas, const FlatLabels& labels) {
  const std::int32_t w = canvas.width;
  const std::int32_t h = canvas.height;
  const std::int32_t s = canvas.textScale;
  const std::int32_t top = h - kTopLabelDrop * s;
  canvas.setColour(kLabelColour);
  canvas.text(0, top, labels.name);
  canvas.text(0, h / 2, labels.left);
  canvas.text(w - 40 * s, h / 2, labels.right);
  canvas.text(w / 2 - 24 * s, 0, labels.bottom);
  canvas.text(w / 2 - labels.topShift * s, top, labels.top);
}

void drawFlatGrid(RasterCanvas& canvas) {
  const std::int32_t cx = canvas.width / 2;
  const std::int32_t cy = canvas.height / 2;
  const float stepX = static_cast<float>(cx) / 10.0F;  // a tenth of a shape unit
  const float stepY = static_cast<float>(cy) / 10.0F;
  const auto row = [&](std::int32_t y) { canvas.line(0, y, canvas.width, y); };
  const auto column = [&](std::int32_t x) { canvas.line(x, 0, x, canvas.height - 1); };
  for (int i = 1; i <= 9; ++i) {
    const auto tenths = static_cast<float>(i);
    canvas.setColour(gridColour(i, 0, 5));
    row(truncate(static_cast<float>(cy) - tenths * stepY));
    row(truncate(static_cast<float>(cy) + tenths * stepY));
    column(truncate(static_cast<float>(cx) - tenths * stepX));
    column(truncate(static_cast<float>(cx) + tenths * stepX));
  }
  canvas.setColour(kCentreLineColour);
  row(cy);
  column(cx);
}

// So far outside any canvas that nothing small there shows, and sums with it
// could overflow.
bool isFarOff(PixelPoint p) {
  constexpr std::int32_t kFar = 1 << 24;
  return p.x < -kFar || p.x > kFar || p.y < -kFar || p.y > kFar;
}

// A small pyramid with its tip at the eye and its base towards the origin, which
// is where the camera looks.
void drawCameraMarker(RasterCanvas& canvas, const ViewProjector& projector, FlatMode mode, Vec3 eye,
                      float pixelRatio) {
  const PixelPoint origin{canvas.width / 2, canvas.height / 2};
  const auto tip = projector.projectFlat(eye, mode, origin);
  if (!tip || isFarOff(*tip)) {
    return;
  }
  const auto dx = static_cast<float>(origin.x - tip->x);
  const auto dy = static_cast<float>(origin.y - tip->y);
  const float length = std::sqrt(dx * dx + dy * dy);
  // Seen from straight above the eye hides the origin; any direction will do.
  const float ux = length > 0.0F ? dx / length : 0.0F;
  const float uy = length > 0.0F ? dy / length : -1.0F;
  const float size = kMarkerLength * pixelRatio;
  const auto baseCorner = [&](float side) {
    return PixelPoint{tip->x + truncate(size * ux - side * size * uy / 2.0F),
                      tip->y + truncate(size * uy + side * size * ux / 2.0F)};
  };
  const PixelPoint left = baseCorner(1.0F);
  const PixelPoint right = baseCorner(-1.0F);
  const PixelPoint middle = baseCorner(0.0F);
  canvas.setColour(kMarkerColour);
  canvas.triangle(*tip, left, right);
  const std::array<PixelPoint, 3> ends{left, middle, right};
  for (std::size_t i = 0; i < ends.size(); ++i) {
    canvas.setColour(kAxisColours[i]);
    canvas.line(tip->x, tip->y, ends[i].x, ends[i].y);
  }
  canvas.setColour(kLabelColour);
  canvas.text(tip->x + kGlyphWidth * canvas.textScale, tip->y, "Camera");
}

}  // namespace

void drawGrid3D(RasterCanvas& canvas, ViewProjector& projector, const Matrix4& view) {
  PerspectivePen pen{canvas, projector, view};
  for (int i = 1; i <= 19; ++i) {
    const float t = static_cast<float>(i) / 10.0F - 1.0F;
    canvas.setColour(gridColour(i, 10, 5));
    pen.segment({-1, t, 0}, {1, t, 0});
    pen.segment({t, -1, 0}, {t, 1, 0});
    pen.segment({t, 0, -1}, {t, 0, 1});
    pen.segment({-1, 0, t}, {1, 0, t});
    pen.segment({0, t, -1}, {0, t, 1});
    pen.segment({0, -1, t}, {0, 1, t});
  }
  canvas.setColour(kLabelColour);
  canvas.text(0, canvas.height - kTopLabelDrop * canvas.textScale, "3D View");
  const std::array<Vec3, 3> axes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
  for (std::size_t axis = 0; axis < axes.size(); ++axis) {
    canvas.setColour(kAxisColours[axis]);
    pen.segment({}, axes[axis]);
  }
}

void drawFlatBackground(RasterCanvas& canvas, const ViewProjector& projector, ViewMode mode,
                        Vec3 eye, float pixelRatio) {
  if (!projector.isSized()) {
    return;
  }
  drawFlatGrid(canvas);
  drawCameraMarker(canvas, projector, flatModeOf(mode), eye, pixelRatio);
  drawFlatLabels(canvas, labelsOf(mode));
}

}  // namespace pv
