#include <cstdlib>

#include "opponents.h"
#include "reference/reference_shape.h"
#include "reference/reference_view.h"

namespace pv::bench {

reference::FrameSetup plainSetup(FrameSize size) {
  reference::FrameSetup setup;
  setup.width = size.width;
  setup.height = size.height;
  setup.camera = benchCamera();
  return setup;
}

Job plainFrame(const ShapeRecord& shape, FrameSize size) {
  auto frame = std::make_shared<reference::Frame>();
  auto random = std::make_shared<reference::Random>();
  return {[frame, random, shape, setup = plainSetup(size)] {
            reference::drawFrame(*frame, shape, setup, *random);
          },
          [frame] { return std::span<const std::uint32_t>(frame->sheet.pixels); }};
}

// A view generates once when it gets the shape, and again for its frame.
std::vector<std::uint32_t> plainFirstFrame(const ShapeRecord& shape, FrameSize size) {
  reference::Random random;
  static_cast<void>(reference::generateShape(shape, random));
  return reference::drawFrame(shape, plainSetup(size), random);
}

PlainMesh plainMesh(const ShapeRecord& shape) {
  reference::Random random;
  auto mesh = std::make_shared<reference::Mesh>(reference::generateShape(shape, random));
  reference::applyModifiers(*mesh, shape);
  return mesh;
}

Job plainDrawing(const PlainMesh& mesh, FrameSize size) {
  auto sheet = std::make_shared<reference::Sheet>();
  return {[mesh, sheet, setup = plainSetup(size)] { reference::drawLines(*sheet, *mesh, setup); },
          [sheet] { return std::span<const std::uint32_t>(sheet->pixels); }};
}

// With the C library's own function, as a plain program would.
void plainDirections(std::vector<reference::Vertex>& vertices) {
  const auto component = [] {
    const float a = static_cast<float>(std::rand() % 100001) / 100000.0F;
    return a - static_cast<float>(std::rand() % 100001) / 100000.0F;
  };
  for (reference::Vertex& vertex : vertices) {
    vertex.disperse.x = component();
    vertex.disperse.y = component();
    vertex.disperse.z = component();
  }
}

}  // namespace pv::bench
