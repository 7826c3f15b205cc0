#include "reference/reference_view.h"

#include <array>
#include <string_view>
#include <utility>

#include "math/scalar.h"
#include "reference/reference_lines.h"

namespace pv::reference {

namespace {

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kYellow = 0xFFFF00;

/// A frame under construction.
class Painter {
 public:
  Painter(const FrameSetup& setup, Sheet& sheet)
      : projection_(setup),
        spots_(sheet.spots),
        picture_{sheet.pixels.data(), setup.width, setup.height},
        canvas_(sheet.pixels.data(), setup.width, setup.height) {}

  void line(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2,
            std::uint32_t colour) {
    drawLine(picture_, x1, y1, x2, y2, colour);
  }
  void line(Vec3 a, Vec3 b, std::uint32_t colour) {
    const Spot from = projection_.map(a);
    const Spot to = projection_.map(b);
    if (from.visible && to.visible) {
      line(from.x, from.y, to.x, to.y, colour);
    }
  }
  void lines(const Mesh& mesh) {
    projectVertices(spots_, mesh, projection_);
    drawMeshLines(picture_, mesh, spots_);
  }
  void dot(Vec3 point, std::uint32_t colour) {
    if (const Spot at = projection_.map(point); at.visible) {
      canvas_.setColour(colour);
      canvas_.squareDot(at.x, at.y, 1.0F);
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
  Projection projection_;
  std::vector<Spot>& spots_;
  Picture picture_;
  RasterCanvas canvas_;
};

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

void clear(Sheet& sheet, const FrameSetup& setup) {
  sheet.pixels.assign(
      static_cast<std::size_t>(setup.width) * static_cast<std::size_t>(setup.height), 0);
}

}  // namespace

std::optional<PixelPoint> project(const FrameSetup& setup, Vec3 point) {
  const Spot at = Projection(setup).map(point);
  return at.visible ? std::optional(PixelPoint{at.x, at.y}) : std::nullopt;
}

std::array<std::optional<PixelPoint>, 4> handlePoints(const ShapeRecord& shape,
                                                      const FrameSetup& setup) {
  const auto positions = handlePositions(shape, setup.selected);
  return {project(setup, positions[0]), project(setup, positions[1]), project(setup, positions[2]),
          project(setup, positions[3])};
}

void drawLines(Sheet& sheet, const Mesh& mesh, const FrameSetup& setup) {
  clear(sheet, setup);
  Painter(setup, sheet).lines(mesh);
}

void drawFrame(Frame& frame, const ShapeRecord& shape, const FrameSetup& setup, Random& random) {
  clear(frame.sheet, setup);
  generateShape(frame.mesh, shape, random);
  applyModifiers(frame.mesh, shape);
  Painter paint(setup, frame.sheet);
  if (setup.mode > ViewMode::Side) {
    return;
  }
  if (setup.showGrid) {
    if (setup.mode == ViewMode::Perspective) {
      drawGrid3D(paint, setup);
    } else {
      drawFlatBackground(paint, setup);
    }
  }
  if (setup.showLines) {
    paint.lines(frame.mesh);
  } else {
    for (const Vertex& vertex : frame.mesh.vertices) {
      paint.dot(vertex.position, 0xEEEEEE);
    }
  }
  if (setup.selected != ModifierKind::None) {
    drawHandles(paint, shape, setup);
  }
}

std::vector<std::uint32_t> drawFrame(const ShapeRecord& shape, const FrameSetup& setup,
                                     Random& random) {
  Frame frame;
  drawFrame(frame, shape, setup, random);
  return std::move(frame.sheet.pixels);
}

}  // namespace pv::reference
