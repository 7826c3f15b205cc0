#include "reference/reference_view.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>

#include "math/scalar.h"
#include "reference/reference_shape.h"

namespace pv::reference {

namespace {

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kYellow = 0xFFFF00;

std::int32_t toPixel(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(
      value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

Matrix4 turnMatrix(float yaw, float pitch, float roll) {
  return D3DXMatrixRotationYawPitchRoll(toRadians(yaw), toRadians(pitch), toRadians(roll));
}

Vec3 eyeOf(const ViewCamera& camera) {
  return D3DXVec3Transform({0.0F, 0.0F, camera.distance},
                           turnMatrix(360.0F - camera.yaw, -camera.pitch, 0.0F));
}

std::optional<PixelPoint> projectPerspective(const FrameSetup& setup, Vec3 point) {
  const Matrix4 look = D3DXMatrixLookAtLH(eyeOf(setup.camera), {0, 0, 0}, {0, 1, 0});
  const Matrix4 view = D3DXMatrixMultiply(look, turnMatrix(0.0F, 0.0F, setup.camera.roll));
  const Vec3 v = D3DXVec3Transform(point, view);
  if (!(v.z > 0.0F)) {
    return std::nullopt;
  }
  const std::int32_t cx = setup.width / 2;
  const std::int32_t cy = setup.height / 2;
  const float x = static_cast<float>(cx) * v.x / v.z;
  const float y = static_cast<float>(cy) * v.y / v.z;
  if (x != x || y != y) {
    return std::nullopt;
  }
  return PixelPoint{toPixel(std::int64_t{cx} - truncate(x)),
                    toPixel(std::int64_t{truncate(y)} + cy)};
}

std::optional<PixelPoint> projectFlat(const FrameSetup& setup, Vec3 p) {
  const float halfX = static_cast<float>(setup.width) / 2.0F;
  const float halfY = static_cast<float>(setup.height) / 2.0F;
  const std::int64_t cx = setup.width / 2;
  const std::int64_t cy = setup.height / 2;
  const float x = halfX * (setup.mode == ViewMode::Side ? p.z : p.x);
  const float y = halfY * (setup.mode == ViewMode::Top ? p.z : p.y);
  if (x != x || y != y) {
    return std::nullopt;
  }
  const std::int64_t rise = truncate(y);
  return PixelPoint{toPixel(truncate(x) + cx),
                    toPixel(setup.mode == ViewMode::Top ? cy - rise : cy + rise)};
}

/// A frame under construction, with the plainest line there is.
class Painter {
 public:
  Painter(const FrameSetup& setup, std::vector<std::uint32_t>& pixels)
      : setup_(setup), pixels_(pixels), canvas_(pixels.data(), setup.width, setup.height) {}

  void line(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2,
            std::uint32_t colour);
  void line(Vec3 a, Vec3 b, std::uint32_t colour) {
    const auto from = project(setup_, a);
    const auto to = project(setup_, b);
    if (from && to) {
      line(from->x, from->y, to->x, to->y, colour);
    }
  }
  void dot(Vec3 point, std::uint32_t colour) {
    if (const auto at = project(setup_, point)) {
      canvas_.setColour(colour);
      canvas_.squareDot(at->x, at->y, 1.0F);
    }
  }
  void disc(PixelPoint at, float radius, std::uint32_t colour) {
    canvas_.setColour(colour);
    canvas_.filledDisc(at.x, at.y, radius);
  }
  void label(std::int32_t x, std::int32_t y, std::string_view text) {
    canvas_.setColour(0x999999);
    canvas_.text(x, y, text);
  }

 private:
  void set(std::int64_t x, std::int64_t y, std::uint32_t colour) {
    pixels_.at(static_cast<std::size_t>(y * setup_.width + x)) = 0xFF000000U | colour;
  }

  const FrameSetup& setup_;
  std::vector<std::uint32_t>& pixels_;
  RasterCanvas canvas_;
};

void Painter::line(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2,
                   std::uint32_t colour) {
  const std::int64_t w = setup_.width;
  const std::int64_t h = setup_.height;
  if (y1 == y2) {
    if (y1 >= 0 && y1 < h) {
      const std::int64_t end = std::min(std::max(x1, x2), w);
      for (std::int64_t x = std::max<std::int64_t>(std::min(x1, x2), 0); x < end; ++x) {
        set(x, y1, colour);
      }
    }
    return;
  }
  if (x1 > x2) {
    std::swap(x1, x2);
    std::swap(y1, y2);
  }
  if (x2 < 0 || std::max(y1, y2) < 0 || x1 >= w || std::min(y1, y2) >= h) {
    return;
  }
  if (x1 < 0) {
    y1 += (y2 - y1) * (0 - x1) / (x2 - x1);
    x1 = 0;
  } else if (x2 >= w) {
    y2 += (y2 - y1) * (w - 1 - x2) / (x2 - x1);
    x2 = w - 1;
  }
  if (const std::int64_t dy = y2 - y1; dy != 0) {
    const std::int64_t dx = x2 - x1;
    if (y1 < 0) {
      x1 += dx * (0 - y1) / dy;
      y1 = 0;
    } else if (y2 < 0) {
      x2 += dx * (0 - y2) / dy;
      y2 = 0;
    } else if (y1 >= h) {
      x1 += dx * (h - 1 - y1) / dy;
      y1 = h - 1;
    } else if (y2 >= h) {
      x2 += dx * (h - 1 - y2) / dy;
      y2 = h - 1;
    }
  }
  const auto inside = [&](std::int64_t x, std::int64_t y) {
    return x >= 0 && x < w && y >= 0 && y < h;
  };
  if (!inside(x1, y1) || !inside(x2, y2)) {
    return;
  }
  const std::int64_t ax = std::abs(x2 - x1);
  const std::int64_t ay = std::abs(y2 - y1);
  const std::int64_t sx = x2 < x1 ? -1 : 1;
  const std::int64_t sy = y2 < y1 ? -1 : 1;
  const bool steep = ay > ax;
  const std::int64_t major = steep ? ay : ax;
  const std::int64_t minor = steep ? ax : ay;
  std::int64_t error = 2 * minor - major;
  std::int64_t x = x1;
  std::int64_t y = y1;
  for (std::int64_t i = 0; i < major; ++i) {
    set(x, y, colour);
    if (error >= 0) {
      (steep ? x : y) += steep ? sx : sy;
      error -= 2 * major;
    }
    (steep ? y : x) += steep ? sy : sx;
    error += 2 * minor;
  }
  set(x2, y2, colour);
}

void drawGrid3D(Painter& paint, const FrameSetup& setup) {
  for (int i = 1; i <= 19; ++i) {
    const float t = static_cast<float>(i) / 10.0F - 1.0F;
    const std::uint32_t colour = i == 10 ? 0x999999 : (i == 5 || i == 15) ? 0x545454 : 0x333333;
    paint.line({-1, t, 0}, {1, t, 0}, colour);
    paint.line({t, -1, 0}, {t, 1, 0}, colour);
    paint.line({t, 0, -1}, {t, 0, 1}, colour);
    paint.line({-1, 0, t}, {1, 0, t}, colour);
    paint.line({0, t, -1}, {0, t, 1}, colour);
    paint.line({0, -1, t}, {0, 1, t}, colour);
  }
  paint.label(0, setup.height - 15, "3D View");
  paint.line({0, 0, 0}, {1, 0, 0}, kRed);
  paint.line({0, 0, 0}, {0, 1, 0}, kGreen);
  paint.line({0, 0, 0}, {0, 0, 1}, kYellow);
}

void drawFlatBackground(Painter& paint, const FrameSetup& setup) {
  const std::int32_t w = setup.width;
  const std::int32_t h = setup.height;
  const std::int32_t cx = w / 2;
  const std::int32_t cy = h / 2;
  const float stepX = static_cast<float>(cx) / 10.0F;
  const float stepY = static_cast<float>(cy) / 10.0F;
  const auto row = [&](std::int32_t y, std::uint32_t colour) { paint.line(0, y, w, y, colour); };
  const auto column = [&](std::int32_t x, std::uint32_t colour) {
    paint.line(x, 0, x, h - 1, colour);
  };
  for (int i = 1; i <= 9; ++i) {
    const std::uint32_t colour = i == 5 ? 0x545454 : 0x333333;
    const auto n = static_cast<float>(i);
    row(truncate(static_cast<float>(cy) - n * stepY), colour);
    row(truncate(static_cast<float>(cy) + n * stepY), colour);
    column(truncate(static_cast<float>(cx) - n * stepX), colour);
    column(truncate(static_cast<float>(cx) + n * stepX), colour);
  }
  row(cy, 0x999999);
  column(cx, 0x999999);

  const bool top = setup.mode == ViewMode::Top;
  const bool side = setup.mode == ViewMode::Side;
  paint.label(0, h - 15, top ? "Top View" : side ? "Side View" : "Front View");
  paint.label(0, h / 2, side ? "Back" : "Left");
  paint.label(w - 40, h / 2, side ? "Front" : "Right");
  paint.label(w / 2 - 24, 0, top ? "Front" : "Bottom");
  paint.label(w / 2 - (top ? 16 : 12), h - 15, top ? "Back" : "Top");
}

/// The origin and the ends of the three axes of the selected modifier's frame.
std::array<Vec3, 4> handlePositions(const ShapeRecord& shape, ModifierKind selected) {
  const std::array<Vec3, 14>& values = shape.modifiers.triples;
  Matrix4 frame = transformMatrix({0, 0, 0}, {1, 1, 1});
  Vec3 origin;
  switch (selected) {
    case ModifierKind::VertexMove:
      origin = values[0];
      break;
    case ModifierKind::ShapeMove:
      origin = values[11];
      break;
    case ModifierKind::VertexRotate:
    case ModifierKind::VertexScale:
      frame = transformMatrix(values[1], values[2]);
      origin = values[0];
      break;
    case ModifierKind::ShapeRotate:
    case ModifierKind::ShapeScale:
      frame = transformMatrix(values[12], values[13]);
      origin = values[11];
      break;
    default:
      break;
  }
  return {origin, D3DXVec3Transform({0.55F, 0, 0}, frame) + origin,
          D3DXVec3Transform({0, 0.55F, 0}, frame) + origin,
          D3DXVec3Transform({0, 0, 0.55F}, frame) + origin};
}

void drawHandles(Painter& paint, const ShapeRecord& shape, const FrameSetup& setup) {
  const auto positions = handlePositions(shape, setup.selected);
  const auto points = handlePoints(shape, setup);
  for (const int handle : {1, 2, 3, 0}) {
    const auto index = static_cast<std::size_t>(handle);
    const std::uint32_t colour = std::array{0x707070U, kRed, kGreen, kYellow}[index];
    if (handle != 0) {
      paint.line(positions[0], positions[index], colour);
    }
    if (!points[index]) {
      continue;
    }
    if (setup.hovered == handle) {
      paint.disc(*points[index], 7.0F, colour);
      paint.disc(*points[index], 5.0F, 0x000000);
    } else {
      paint.disc(*points[index], 5.0F, colour);
    }
  }
}

}  // namespace

std::optional<PixelPoint> project(const FrameSetup& setup, Vec3 point) {
  return setup.mode == ViewMode::Perspective ? projectPerspective(setup, point)
                                             : projectFlat(setup, point);
}

std::array<std::optional<PixelPoint>, 4> handlePoints(const ShapeRecord& shape,
                                                      const FrameSetup& setup) {
  const auto positions = handlePositions(shape, setup.selected);
  return {project(setup, positions[0]), project(setup, positions[1]), project(setup, positions[2]),
          project(setup, positions[3])};
}

std::vector<std::uint32_t> drawFrame(const ShapeRecord& shape, const FrameSetup& setup) {
  std::vector<std::uint32_t> pixels(
      static_cast<std::size_t>(setup.width) * static_cast<std::size_t>(setup.height), 0);
  Mesh mesh = generateShape(shape);
  applyModifiers(mesh, shape);
  Painter paint(setup, pixels);
  if (setup.mode > ViewMode::Side) {
    return pixels;
  }
  if (setup.showGrid) {
    if (setup.mode == ViewMode::Perspective) {
      drawGrid3D(paint, setup);
    } else {
      drawFlatBackground(paint, setup);
    }
  }
  if (setup.showLines) {
    for (const Line& line : mesh.lines) {
      paint.line(mesh.vertices[static_cast<std::size_t>(line.first)].position,
                 mesh.vertices[static_cast<std::size_t>(line.second)].position, 0xEEEEEE);
    }
  } else {
    for (const Vertex& vertex : mesh.vertices) {
      paint.dot(vertex.position, 0xEEEEEE);
    }
  }
  if (setup.selected != ModifierKind::None) {
    drawHandles(paint, shape, setup);
  }
  return pixels;
}

}  // namespace pv::reference
