#include "ours.h"

#include <algorithm>
#include <benchmark/benchmark.h>
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
  constexpr std::size_t kRound = 32 * VertexBlock::kCapacity;
  directions_.take(random_, count_);
  share_.run((count_ + kRound - 1) / kRound, [this](std::size_t round, unsigned) {
    RandomDirections::Reader reader;
    reader.begin(directions_);
    VertexBlock block;
    const std::size_t end = std::min(count_, (round + 1) * kRound);
    for (std::size_t first = round * kRound; first < end; first += VertexBlock::kCapacity) {
      reader.read(first, std::min(VertexBlock::kCapacity, end - first), block);
      benchmark::DoNotOptimize(block.z[0]);
      benchmark::ClobberMemory();
    }
  });
}

void OurDirections::store(VectorStreams& to) {
  CRandSequence random;
  drawDirections(to, count_, random, share_);
}

std::int32_t OurDirections::skip() {
  random_.skip(kDrawsPerVertex * count_);
  return random_.next();
}

}  // namespace pv::bench
