#include "app/document_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "path/path_model.h"
#include "raster/raster_canvas.h"

namespace pv {
namespace {

constexpr std::uint32_t kPathBackground = 0x606060;
// A line of one pixel keeps a third of its brightness, and a curve its shape.
constexpr std::int32_t kFramePixels = 3;
constexpr std::int32_t kNarrowest = 16;

struct FrameSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// The size in the view's proportions whose 4:3 middle is kFramePixels thumbnails.
FrameSize thumbnailFrame(std::int32_t viewWidth, std::int32_t viewHeight) {
  constexpr std::int32_t width = kFramePixels * kThumbnailWidth;
  constexpr std::int32_t height = kFramePixels * kThumbnailHeight;
  const double w = std::max(viewWidth, kNarrowest);
  const double h = std::max(viewHeight, kNarrowest);
  const auto side = [](double pixels) {
    return static_cast<std::int32_t>(
        std::lround(std::min(pixels, static_cast<double>(kMaxFrameSide))));
  };
  return w * height > h * width ? FrameSize{side(w * height / h), height}
                                : FrameSize{width, side(h * width / w)};
}

template <class Draw>
BmpPicture pictureOf(const PathRecord& path, const PathViewport& look, float pixelRatio,
                     const Draw& draw) {
  if (look.width < 1 || look.height < 1) {
    return {};
  }
  BmpPicture picture{look.width, look.height, {}};
  picture.words.resize(static_cast<std::size_t>(look.width) *
                       static_cast<std::size_t>(look.height));
  RasterCanvas canvas(picture.words.data(), look.width, look.height);
  canvas.clear(kPathBackground);
  PathModel model;
  model.setPoints(path);
  model.setSize(look.width, look.height, pixelRatio);
  draw(model, canvas);
  return picture;
}

BmpPicture shrunk(const BmpPicture& frame) {
  return makeThumbnail(frame.words, frame.width, frame.height).value_or(BmpPicture{});
}

}  // namespace

ShapeLook lookOf(const ShapeView& view) {
  return {view.viewMode(), view.camera(), view.showLines(), view.showGrid()};
}

ShapeLook libraryLook(const ShapeRecord& shape) {
  ShapeLook look = kLibraryLook;
  look.lines = shape.emitter.kind != EmitterKind::Point;
  return look;
}

PathViewport libraryLook(const PathRecord& path) {
  std::array<float, 3> extent{};
  const auto points = path.inUse();
  for (int axis = 0; axis < 3; ++axis) {
    const auto [low, high] = std::ranges::minmax_element(
        points, {}, [axis](const Vec3& point) { return point.axis(axis); });
    extent[static_cast<std::size_t>(axis)] =
        points.empty() ? 0.0F : high->axis(axis) - low->axis(axis);
  }
  PathViewport look;
  float widest = -1.0F;
  for (const PathAxisView axes : {PathAxisView::Front, PathAxisView::Side, PathAxisView::Top}) {
    PathViewport view;
    view.axes = axes;
    const float area = (extent[static_cast<std::size_t>(view.horizontalAxis())] + 1e-3F) *
                       (extent[static_cast<std::size_t>(view.verticalAxis())] + 1e-3F);
    if (area > widest) {
      widest = area;
      look = view;
    }
  }
  return look;
}

BmpPicture drawShape(const ShapeRecord& shape, const ShapeLook& look, std::int32_t width,
                     std::int32_t height, float pixelRatio, std::int64_t maxVertices) {
  ShapeView view;
  view.setVertexLimit(maxVertices);
  view.setShape(shape);
  view.setViewMode(look.mode);
  view.setCamera(look.camera);
  view.setShowLines(look.lines);
  view.setShowGrid(look.grid);
  view.setSize(width, height, pixelRatio);
  const auto frame = view.drawFrame();
  return {view.width(), view.height(), {frame.begin(), frame.end()}};
}

BmpPicture drawPath(const PathRecord& path, const PathViewport& look, float pixelRatio) {
  return pictureOf(path, look, pixelRatio,
                   [&](PathModel& model, RasterCanvas& canvas) { model.draw(canvas, look); });
}

BmpPicture shapeThumbnail(const ShapeRecord& shape, const ShapeLook& look, std::int32_t viewWidth,
                          std::int32_t viewHeight) {
  const FrameSize size = thumbnailFrame(viewWidth, viewHeight);
  // Dots, unlike lines, are to stay as large as in a view of the picture's size.
  const float ratio = look.lines ? 1.0F : static_cast<float>(kFramePixels);
  return shrunk(drawShape(shape, look, size.width, size.height, ratio));
}

BmpPicture pathThumbnail(const PathRecord& path, const PathViewport& look) {
  const FrameSize size = thumbnailFrame(look.width, look.height);
  const float scale =
      static_cast<float>(size.width) / static_cast<float>(std::max(look.width, kNarrowest));
  PathViewport small = look;
  small.width = size.width;
  small.height = size.height;
  small.pan = {look.pan.x * scale, look.pan.y * scale, look.pan.z * scale};
  // Markers would hide a path of many points, and the grid is too fine.
  return shrunk(pictureOf(path, small, 1.0F, [&](PathModel& model, RasterCanvas& canvas) {
    model.drawSegments(canvas, small);
  }));
}

}  // namespace pv
