#include "ours.h"

#include <algorithm>
#include <memory>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "shape/random_directions.h"
#include "view3d/shape_view.h"

namespace pv::bench {

namespace {

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

/// A view, and the frame that it drew last.
struct Frame {
  explicit Frame(std::shared_ptr<ShapeView> of) : view(std::move(of)) {}
  void draw() { pixels = view->drawFrame(); }

  std::shared_ptr<ShapeView> view;
  std::span<const std::uint32_t> pixels;
};

}  // namespace

Job ourDrawing(const ShapeRecord& shape, FrameSize size) {
  auto frame = std::make_shared<Frame>(viewOf(shape, size));
  frame->view->setShowGrid(false);
  return {[frame] { frame->draw(); }, [frame] { return frame->pixels; }};
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
  drawDirections(directions_, count_, random_, share_);
}

std::int32_t OurDirections::skip() {
  random_.skip(kDrawsPerVertex * count_);
  return random_.next();
}

}  // namespace pv::bench
