#include "ours.h"

#include <algorithm>
#include <memory>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "raster/pixel_words.h"
#include "raster/raster_canvas.h"
#include "shape/random_directions.h"
#include "view3d/frame_shape.h"
#include "view3d/shape_view.h"

namespace pv::bench {

namespace {

ShapeProjection projectionFor(FrameSize size) {
  const ViewCamera camera = benchCamera();
  return {ViewMode::Perspective,
          viewMatrix(eyePosition(camera.yaw, camera.pitch, camera.distance), camera.roll),
          {size.width / 2, size.height / 2}};
}

// The bars allow two threads.
unsigned threads() {
  return std::clamp(std::thread::hardware_concurrency(), 1U, 2U);
}

std::shared_ptr<ShapeView> makeView(FrameSize size) {
  auto view = std::make_shared<ShapeView>();
  view->setCamera(benchCamera());
  view->setSize(size.width, size.height);
  view->setThreads(threads());
  return view;
}

std::shared_ptr<ShapeView> viewOf(const ShapeRecord& shape, FrameSize size) {
  auto view = makeView(size);
  view->setShape(shape);
  return view;
}

struct Drawing {
  Drawing(const ShapeRecord& shape, FrameSize size)
      : view(viewOf(shape, size)),
        columns(view->updateColumns()),
        pixels(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)),
        canvas(pixels.data(), size.width, size.height),
        projection(projectionFor(size)),
        share(threads()) {
    projector.setSize(size.width, size.height);
  }
  void draw() {
    MMXDWORDset(pixels.data(), 0, pixels.size());
    drawShapeLines(canvas, columns, projector, projection, share);
  }

  std::shared_ptr<ShapeView> view;
  const ShapeColumns& columns;  ///< the view's
  std::vector<std::uint32_t> pixels;
  RasterCanvas canvas;
  ViewProjector projector;
  ShapeProjection projection;
  WorkShare share;
};

/// A view, and the frame that it drew last.
struct Frame {
  explicit Frame(std::shared_ptr<ShapeView> of) : view(std::move(of)) {}
  void draw() { pixels = view->drawFrame(); }

  std::shared_ptr<ShapeView> view;
  std::span<const std::uint32_t> pixels;
};

}  // namespace

Job ourDrawing(const ShapeRecord& shape, FrameSize size) {
  auto drawing = std::make_shared<Drawing>(shape, size);
  return {[drawing] { drawing->draw(); },
          [drawing] { return std::span<const std::uint32_t>(drawing->pixels); }};
}

Job ourFrame(const ShapeRecord& shape, FrameSize size) {
  auto frame = std::make_shared<Frame>(makeView(size));
  return {[frame, shape] {
            frame->view->setShape(shape);
            frame->draw();
          },
          [frame] { return frame->pixels; }};
}

Job ourStillFrame(const ShapeRecord& shape, FrameSize size) {
  auto frame = std::make_shared<Frame>(viewOf(shape, size));
  return {[frame] { frame->draw(); }, [frame] { return frame->pixels; }};
}

OurDirections::OurDirections(std::size_t count) : count_(count), share_(threads()) {}

void OurDirections::draw() {
  drawDirections(slot_, count_, random_, share_);
}

std::int32_t OurDirections::skip() {
  random_.skip(kDrawsPerVertex * count_);
  return random_.next();
}

}  // namespace pv::bench
