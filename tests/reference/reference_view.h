#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "raster/raster_canvas.h"
#include "reference/reference_shape.h"
#include "shape/modifier_kind.h"
#include "shape/shape_record.h"
#include "view3d/view_camera.h"

namespace pv::reference {

/// What a frame depends on besides the shape.
struct FrameSetup {
  std::int32_t width = 160;
  std::int32_t height = 120;
  ViewMode mode = ViewMode::Perspective;
  ViewCamera camera;
  bool showLines = true;
  bool showGrid = true;
  ModifierKind selected = ModifierKind::None;
  int hovered = -1;  ///< 0 centre, 1 to 3 the axes
};

/// The projection of a setup; nothing for a point that is not drawn.
[[nodiscard]] std::optional<PixelPoint> project(const FrameSetup& setup, Vec3 point);

/// Where the centre and the three axis handles are drawn.
[[nodiscard]] std::array<std::optional<PixelPoint>, 4> handlePoints(const ShapeRecord& shape,
                                                                    const FrameSetup& setup);

/// Where a point of the shape is drawn.
struct Spot {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool visible = false;
};

/// What is drawn on. Used again, it takes no more memory; nor does a frame.
struct Sheet {
  std::vector<Spot> spots;            ///< of the mesh's vertices
  std::vector<std::uint32_t> pixels;  ///< width * height words, bottom row first
};
struct Frame {
  Mesh mesh;
  Sheet sheet;
};

/// Clears and draws the lines of a mesh that has its positions, nothing else.
void drawLines(Sheet& sheet, const Mesh& mesh, const FrameSetup& setup);

/// Generates, modifies and draws. The camera's marker in the flat views is left
/// out, its looks being free.
void drawFrame(Frame& frame, const ShapeRecord& shape, const FrameSetup& setup, Random& random);
[[nodiscard]] std::vector<std::uint32_t> drawFrame(const ShapeRecord& shape,
                                                   const FrameSetup& setup, Random& random);

}  // namespace pv::reference
