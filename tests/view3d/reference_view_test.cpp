#include "reference/reference_view.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "reference/comparison.h"
#include "reference/random_shapes.h"
#include "view3d/shape_view.h"

namespace pv {
namespace {

using reference::Dice;
using reference::FrameSetup;
using reference::Taste;

constexpr std::array<PixelPoint, 4> kSizes{PixelPoint{64, 48}, PixelPoint{160, 120},
                                           PixelPoint{333, 211}, PixelPoint{121, 200}};

FrameSetup randomSetup(Dice& dice) {
  FrameSetup setup;
  const PixelPoint size = kSizes[static_cast<std::size_t>(dice.below(kSizes.size()))];
  setup.width = size.x;
  setup.height = size.y;
  setup.mode = static_cast<ViewMode>(dice.below(4));
  if (!dice.once(4)) {
    setup.camera = {dice.between(0.0F, 360.0F), dice.between(-89.0F, 89.0F),
                    dice.between(-179.0F, 179.0F), dice.between(1.2F, 4.0F)};
  }
  setup.showLines = !dice.once(3);
  setup.showGrid = setup.mode == ViewMode::Perspective && dice.once(2);
  setup.selected = static_cast<ModifierKind>(dice.between(-1, kModifierCount - 1));
  return setup;
}

void apply(ShapeView& view, const FrameSetup& setup) {
  view.setSize(setup.width, setup.height);
  view.setViewMode(setup.mode);
  view.setCamera(setup.camera);
  view.setShowLines(setup.showLines);
  view.setShowGrid(setup.showGrid);
  view.SelectModifier(setup.selected);
}

/// The view's next frame against the reference's next frame.
std::string frameDifference(ShapeView& view, const ShapeRecord& shape, const FrameSetup& setup,
                            reference::Random& random) {
  const auto wanted = reference::drawFrame(shape, setup, random);
  return reference::firstDifference(view.drawFrame(), wanted, setup.width);
}

std::string describe(const ShapeRecord& shape, const FrameSetup& setup) {
  return reference::describe(shape) + "\nview " + std::to_string(static_cast<int>(setup.mode)) +
         " of " + std::to_string(setup.width) + " x " + std::to_string(setup.height) + ", camera " +
         std::to_string(setup.camera.yaw) + ' ' + std::to_string(setup.camera.pitch) + ' ' +
         std::to_string(setup.camera.roll) + ' ' + std::to_string(setup.camera.distance) +
         ", lines " + std::to_string(setup.showLines) + ", grid " + std::to_string(setup.showGrid) +
         ", modifier " + std::to_string(static_cast<int>(setup.selected)) + ", hovered " +
         std::to_string(setup.hovered);
}

TEST(ReferenceView, MeshOfAView) {
  Dice dice(30);
  for (int i = 0; i < 200; ++i) {
    const ShapeRecord shape =
        reference::randomShape(dice, i % 2 == 0 ? Taste::Useful : Taste::Wild);
    ShapeView view;
    view.setShape(shape);
    view.updateMesh();  // generates once more, as a frame does
    reference::Random random;
    (void)reference::generateShape(shape, random);
    reference::Mesh wanted = reference::generateShape(shape, random);
    reference::applyModifiers(wanted, shape);
    const bool scattered = view.modifiers()[ModifierKind::VertexDisperse] != Vec3{};
    ASSERT_EQ(reference::firstDifference(view.mesh(), wanted, {.directions = scattered}), "")
        << i << '\n'
        << reference::describe(shape);
  }
}

TEST(ReferenceView, RandomFrames) {
  Dice dice(31);
  for (int i = 0; i < 400; ++i) {
    const ShapeRecord shape =
        reference::randomShape(dice, i % 4 == 3 ? Taste::Wild : Taste::Useful);
    const FrameSetup setup = randomSetup(dice);
    ShapeView view;
    apply(view, setup);
    view.setShape(shape);
    reference::Random random;
    (void)reference::generateShape(shape, random);
    ASSERT_EQ(frameDifference(view, shape, setup, random), "") << i << '\n'
                                                               << describe(shape, setup);
  }
}

TEST(ReferenceView, ConsecutiveFramesContinueTheRandomSequence) {
  Dice dice(32);
  ShapeView view;
  reference::Random random;
  for (int i = 0; i < 40; ++i) {
    ShapeRecord shape = reference::randomShape(dice, Taste::Useful);
    view.setShape(shape);
    (void)reference::generateShape(shape, random);
    for (int frame = 0; frame < 4; ++frame) {
      FrameSetup setup = randomSetup(dice);
      setup.showLines = dice.once(2);
      // Frames that need no directions stand between those that do.
      shape.modifiers.triples[3] = dice.once(2) ? Vec3{} : Vec3{80, -60, 40};
      apply(view, setup);
      view.setModifiers(toTable(shape.modifiers, shape.duplicates.bulge));
      ASSERT_EQ(frameDifference(view, shape, setup, random), "") << i << " frame " << frame << '\n'
                                                                 << describe(shape, setup);
    }
  }
}

// What a frame drew over must come back, and nothing else.
TEST(ReferenceView, FramesOverOneBackground) {
  Dice dice(35);
  for (int i = 0; i < 60; ++i) {
    ShapeRecord shape = reference::randomShape(dice, Taste::Useful);
    FrameSetup setup = randomSetup(dice);
    ShapeView view;
    view.setShape(shape);
    reference::Random random;
    (void)reference::generateShape(shape, random);
    for (int frame = 0; frame < 10; ++frame) {
      const auto changed = static_cast<std::size_t>(dice.below(14));
      if (changed != 2 && changed != 13) {  // other than the scales
        const float reach = changed == 1 || changed == 12 ? 90.0F : 0.5F;
        shape.modifiers.triples[changed] = {dice.between(-reach, reach), 0,
                                            dice.between(-reach, reach)};
      }
      setup.selected = static_cast<ModifierKind>(dice.between(-1, kModifierCount - 1));
      setup.showLines = !dice.once(4);
      if (dice.once(8)) {
        setup.camera.yaw = dice.between(0.0F, 360.0F);
      }
      apply(view, setup);
      view.setModifiers(toTable(shape.modifiers, shape.duplicates.bulge));
      ASSERT_EQ(frameDifference(view, shape, setup, random), "") << i << " frame " << frame << '\n'
                                                                 << describe(shape, setup);
    }
  }
}

TEST(ReferenceView, HandlesOfEveryModifier) {
  Dice dice(33);
  for (int kind = 0; kind < kModifierCount; ++kind) {
    for (int i = 0; i < 8; ++i) {
      ShapeRecord shape = reference::randomShape(dice, Taste::Useful);
      FrameSetup setup = randomSetup(dice);
      setup.mode = static_cast<ViewMode>(i % 4);
      setup.showGrid = false;
      setup.selected = static_cast<ModifierKind>(kind);
      ShapeView view;
      apply(view, setup);
      view.setShape(shape);
      reference::Random random;
      (void)reference::generateShape(shape, random);
      ASSERT_EQ(frameDifference(view, shape, setup, random), "") << describe(shape, setup);

      // Point at a handle: the first square in the order centre, x, y, z wins.
      const auto points = reference::handlePoints(shape, setup);
      const auto aimed = points[static_cast<std::size_t>(dice.below(4))];
      if (!aimed) {
        continue;
      }
      const PixelPoint at{aimed->x + dice.between(-6, 5), aimed->y + dice.between(-6, 5)};
      for (int handle = 3; handle >= 0; --handle) {
        const auto point = points[static_cast<std::size_t>(handle)];
        if (point && at.x >= point->x - 6 && at.x < point->x + 6 && at.y >= point->y - 6 &&
            at.y < point->y + 6) {
          setup.hovered = handle;
        }
      }
      view.mouseMove({at.x, setup.height - at.y});
      EXPECT_EQ(static_cast<int>(view.activeHandle()), setup.hovered);
      ASSERT_EQ(frameDifference(view, shape, setup, random), "") << describe(shape, setup);
      setup.selected = ModifierKind::None;
      view.SelectModifier(setup.selected);
      ASSERT_EQ(frameDifference(view, shape, setup, random), "") << describe(shape, setup);
    }
  }
}

TEST(ReferenceView, FlatBackgroundsAroundTheCameraMarker) {
  Dice dice(34);
  for (int i = 0; i < 60; ++i) {
    FrameSetup setup = randomSetup(dice);
    setup.mode = static_cast<ViewMode>(1 + i % 3);
    setup.showGrid = true;
    const ShapeRecord shape = reference::randomShape(dice, Taste::Useful);
    ShapeView view;
    apply(view, setup);
    view.setShape(shape);
    reference::Random random;
    (void)reference::generateShape(shape, random);
    std::vector<std::uint32_t> wanted = reference::drawFrame(shape, setup, random);
    const auto drawn = view.drawFrame();
    std::vector<std::uint32_t> frame(drawn.begin(), drawn.end());
    const Vec3 eye = eyePosition(setup.camera.yaw, setup.camera.pitch, setup.camera.distance);
    const auto at = reference::project(setup, eye);
    for (std::int32_t y = std::max(at->y - 30, 0); y < std::min(at->y + 30, setup.height); ++y) {
      for (std::int32_t x = std::max(at->x - 80, 0); x < std::min(at->x + 80, setup.width); ++x) {
        const auto pixel = static_cast<std::size_t>(y * setup.width + x);
        frame[pixel] = wanted[pixel] = 0;
      }
    }
    ASSERT_EQ(reference::firstDifference(frame, wanted, setup.width), "") << i << '\n'
                                                                          << describe(shape, setup);
  }
}

TEST(ReferenceView, AnUnknownViewModeStaysBlack) {
  FrameSetup setup;
  setup.mode = static_cast<ViewMode>(4);
  setup.showGrid = true;
  setup.selected = ModifierKind::Twist;
  ShapeView view;
  apply(view, setup);
  for (const std::uint32_t pixel : view.drawFrame()) {
    ASSERT_EQ(pixel, 0U);
  }
}

TEST(ReferenceView, HugeCameraDragsStopAtTheLimits) {
  using Limits = std::numeric_limits<std::int32_t>;
  ViewCamera camera;
  dragCamera(camera, CameraTool::Roll, Limits::min(), -1);
  EXPECT_EQ(camera.roll, -179.0F);
  dragCamera(camera, CameraTool::Zoom, Limits::min(), Limits::max());
  EXPECT_EQ(camera.distance, 4.0F);
  dragCamera(camera, CameraTool::Zoom, Limits::max(), Limits::min());
  EXPECT_EQ(camera.distance, 1.2F);
}

}  // namespace
}  // namespace pv
