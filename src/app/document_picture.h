#pragma once

#include <cstdint>

#include "library/thumbnail.h"
#include "path/path_record.h"
#include "path/path_viewport.h"
#include "shape/shape_record.h"
#include "util/bmp_file.h"
#include "view3d/shape_view.h"

namespace pv {

/// How a shape is looked at.
struct ShapeLook {
  ViewMode mode = ViewMode::Perspective;
  ViewCamera camera;
  bool lines = true;
  bool grid = true;

  bool operator==(const ShapeLook&) const = default;
};
[[nodiscard]] ShapeLook lookOf(const ShapeView& view);

/// How library pictures look at a shape of which nothing else is known: somewhat
/// from above, without the grid.
inline constexpr ShapeLook kLibraryLook{
    ViewMode::Perspective, {300.0F, 20.0F, 0.0F, 1.2F}, true, false};
/// The same with dots for a shape of points, of which lines would show nothing.
[[nodiscard]] ShapeLook libraryLook(const ShapeRecord& shape);
/// The flat view in which a path is widest; Front where several are.
[[nodiscard]] PathViewport libraryLook(const PathRecord& path);

/// A shape of more vertices would keep a browser's user waiting.
inline constexpr std::int64_t kMaxPreviewVertices = 4'000'000;

/// One frame of a size in device pixels, `pixelRatio` of which make a pixel of 96
/// dpi; without handles. Empty for sizes below 1. A shape of more than `maxVertices`
/// is left out of it.
[[nodiscard]] BmpPicture drawShape(const ShapeRecord& shape, const ShapeLook& look,
                                   std::int32_t width, std::int32_t height, float pixelRatio = 1.0F,
                                   std::int64_t maxVertices = kMaxMeshVertices);
/// The same of a path; the size comes with the viewport.
[[nodiscard]] BmpPicture drawPath(const PathRecord& path, const PathViewport& look,
                                  float pixelRatio = 1.0F);

/// What a view of this size shows, as a thumbnail. The frame is drawn small, so
/// that lines of one pixel are still seen after the averaging.
[[nodiscard]] BmpPicture shapeThumbnail(const ShapeRecord& shape, const ShapeLook& look,
                                        std::int32_t viewWidth, std::int32_t viewHeight);
/// The viewport's size is that of the view. Its pan shrinks with the picture, which
/// shows the segments alone.
[[nodiscard]] BmpPicture pathThumbnail(const PathRecord& path, const PathViewport& look);

}  // namespace pv
