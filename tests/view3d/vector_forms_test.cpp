// Frames by every vector form that this processor can run, the scalar one
// included, against the plain reference.

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "reference/comparison.h"
#include "reference/random_shapes.h"
#include "reference/reference_view.h"
#include "view3d/shape_view.h"
#include "view3d/vector_form_choice.h"

namespace pv {
namespace {

using reference::Dice;
using reference::FrameSetup;
using reference::Taste;

constexpr int kLessOften = kIsWatched ? 6 : 1;

class VectorForms : public testing::Test {
 protected:
  /// Draws the shape by every form and compares it with the reference.
  void compare(const ShapeRecord& shape, const FrameSetup& setup, unsigned threads = 1) {
    reference::Random random;
    (void)reference::generateShape(shape, random);
    const auto wanted = reference::drawFrame(shape, setup, random);
    for (std::size_t i = 0; i < forms_.size(); ++i) {
      const std::string form = forms_.choose(i);
      ShapeView view;
      view.setSize(setup.width, setup.height);
      view.setViewMode(setup.mode);
      view.setCamera(setup.camera);
      view.setShowLines(setup.showLines);
      view.setShowGrid(setup.showGrid);
      view.setThreads(threads);
      view.setShape(shape);
      ASSERT_EQ(reference::firstDifference(view.drawFrame(), wanted, setup.width), "")
          << form << ", view " << static_cast<int>(setup.mode) << " of " << setup.width << " x "
          << setup.height << '\n'
          << reference::describe(shape);
    }
  }

  static FrameSetup setupOf(Dice& dice) {
    FrameSetup setup;
    setup.width = dice.between(2, 260);
    setup.height = dice.between(2, 200);
    setup.mode = dice.once(2) ? ViewMode::Perspective : static_cast<ViewMode>(dice.below(4));
    // Views without roll have a form of their own.
    setup.camera = {dice.between(0.0F, 360.0F), dice.between(-89.0F, 89.0F),
                    dice.once(2) ? 0.0F : dice.between(-179.0F, 179.0F), dice.between(1.2F, 4.0F)};
    setup.showLines = !dice.once(5);
    setup.showGrid = false;
    return setup;
  }

 private:
  VectorFormChoice forms_;
};

/// A path of `count` points whose steps are whole pixels up to `reach` in the
/// front view, now and then too far or nowhere at all.
void walkPath(ShapeRecord& shape, const FrameSetup& setup, Dice& dice, int count, int reach) {
  const float pixelX = 2.0F / static_cast<float>(setup.width);
  const float pixelY = 2.0F / static_cast<float>(setup.height);
  Vec3 at;
  shape.path.count = count;
  for (std::int32_t i = 0; i < count; ++i) {
    at.x += pixelX * static_cast<float>(dice.between(-reach, reach));
    at.y += pixelY * static_cast<float>(dice.between(-reach, reach));
    at.z += pixelX * static_cast<float>(dice.between(-reach, reach));
    at = {std::remainder(at.x, 2.2F), std::remainder(at.y, 2.2F), std::remainder(at.z, 2.2F)};
    Vec3& point = shape.path.points[static_cast<std::size_t>(i)];
    point = at;
    if (dice.once(200)) {
      point.x = dice.once(2) ? std::numeric_limits<float>::quiet_NaN()
                             : std::numeric_limits<float>::infinity();
    } else if (dice.once(100)) {
      point.y *= 1.0e9F;
    }
  }
}

TEST_F(VectorForms, RandomShapes) {
  Dice dice(40);
  for (int i = 0; i < 1500 / kLessOften; ++i) {
    compare(reference::randomShape(dice, i % 3 == 2 ? Taste::Wild : Taste::Useful), setupOf(dice));
    ASSERT_FALSE(HasFatalFailure()) << i;
  }
}

TEST_F(VectorForms, LinesOfEveryLengthAndDirection) {
  Dice dice(41);
  for (int i = 0; i < 1500 / kLessOften; ++i) {
    const FrameSetup setup = setupOf(dice);
    ShapeRecord shape;
    shape.emitter.kind = dice.once(3) ? EmitterKind::SweepPath : EmitterKind::LoftPath;
    shape.emitter.verticalAmount = dice.between(1, 5);
    shape.emitter.verticalSize = dice.between(0, 400);
    shape.emitter.copies = dice.once(2) ? 0 : 1;
    shape.duplicates.position = {dice.between(-40.0F, 40.0F), 1.0F, 0.0F};
    // Mostly short, some longer than the longest walk in vector form.
    walkPath(shape, setup, dice, dice.between(1, i % 10 == 0 ? kMaxPathPoints : 80), 1 + i % 90);
    compare(shape, setup);
    ASSERT_FALSE(HasFatalFailure()) << i;
  }
}

// Rows of single vertices, some of them behind the eye: where lines end a pixel is often
// lit by the line from the column before alone, which may belong to another group.
TEST_F(VectorForms, LinesThatEndBehindTheEye) {
  Dice dice(45);
  for (int i = 0; i < 300 / kLessOften; ++i) {
    ShapeRecord shape;
    shape.emitter.kind = EmitterKind::GridPatch;
    shape.emitter.horizontalAmount = 1;
    shape.emitter.horizontalSize = 0;
    shape.emitter.verticalAmount = dice.between(10, 60);
    shape.emitter.verticalSize = dice.between(2, 30);
    FrameSetup setup = setupOf(dice);
    setup.mode = ViewMode::Perspective;
    setup.camera.yaw = 90.0F * static_cast<float>(dice.below(4)) + dice.between(-4.0F, 4.0F);
    setup.camera.pitch = dice.between(-4.0F, 4.0F);
    setup.camera.distance = dice.between(0.1F, 0.8F);
    setup.showLines = true;
    compare(shape, setup);
    ASSERT_FALSE(HasFatalFailure()) << i;
  }
}

// Longer than a block, so drawn in strips that share a row.
TEST_F(VectorForms, LongColumns) {
  Dice dice(42);
  for (const std::int32_t rows : {510, 511, 512, 1022, 1023, 1600}) {
    ShapeRecord shape;
    shape.emitter.kind = EmitterKind::GridPatch;
    shape.emitter.horizontalAmount = rows;
    shape.emitter.horizontalSize = 2;
    shape.emitter.verticalAmount = 3;
    shape.emitter.verticalSize = 90;
    shape.emitter.copies = 2;
    shape.duplicates.rotation = {20.0F, 30.0F, 40.0F};
    shape.applyModifiersGlobally = dice.below(2);
    compare(shape, setupOf(dice));
    ASSERT_FALSE(HasFatalFailure()) << rows;
  }
}

// So dense that most patches of the copies are hidden by what is drawn already.
TEST_F(VectorForms, CopiesThatHideEachOther) {
  Dice dice(44);
  for (int i = 0; i < 150 / kLessOften; ++i) {
    ShapeRecord shape = reference::randomShape(dice, i % 5 == 4 ? Taste::Wild : Taste::Useful);
    EmitterSettings& emitter = shape.emitter;
    emitter.kind = std::array{EmitterKind::GridPatch, EmitterKind::SpherePatch,
                              EmitterKind::SpherePatch}[static_cast<std::size_t>(i % 3)];
    emitter.horizontalAmount = dice.between(60, 120);
    emitter.horizontalSize = emitter.kind == EmitterKind::GridPatch ? 10 : 0;
    emitter.horizontalEnd = 180;
    emitter.verticalAmount = dice.between(70, 100);
    emitter.verticalSize = emitter.kind == EmitterKind::GridPatch ? 10 : 360;
    emitter.copies = dice.between(1, 6);
    shape.applyModifiersGlobally = 0;
    shape.modifiers.triples[3] = {};  // no directions, which would tear patches apart
    for (std::size_t axis = 0; axis < 3; ++axis) {
      shape.duplicates.position[axis] = dice.between(-10.0F, 10.0F);
      shape.duplicates.scale[axis] = dice.between(-12.0F, 4.0F);
    }
    compare(shape, setupOf(dice), 1U + static_cast<unsigned>(i % 3));
    ASSERT_FALSE(HasFatalFailure()) << i;
  }
}

TEST_F(VectorForms, OneToEightThreads) {
  Dice dice(43);
  for (unsigned threads = 1; threads <= 8; ++threads) {
    ShapeRecord shape = reference::randomShape(dice, Taste::Useful);
    shape.emitter.kind = EmitterKind::SpherePatch;
    shape.emitter.horizontalAmount = 100 + dice.below(40);
    shape.emitter.verticalAmount = 80 + dice.below(60);
    shape.emitter.copies = dice.between(1, 4);
    shape.applyModifiersGlobally = static_cast<std::int32_t>(threads % 2);
    shape.modifiers.triples[3] = {20.0F, -10.0F, 15.0F};  // disperse
    FrameSetup setup = setupOf(dice);
    setup.showLines = true;
    compare(shape, setup, threads);
    ASSERT_FALSE(HasFatalFailure()) << threads;
  }
}

}  // namespace
}  // namespace pv
