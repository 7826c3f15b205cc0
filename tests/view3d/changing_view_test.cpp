// One view whose states follow each other at random. What it keeps from frame to
// frame must never be drawn once it is out of date.

#include <algorithm>
#include <array>
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

constexpr int kChanges = kIsWatched ? 80 : 1500;

struct State {
  ShapeRecord shape;
  FrameSetup setup;
  unsigned threads = 1;
};

/// Large enough for several threads and for patches, or longer than a block.
void enlarge(EmitterSettings& emitter, Dice& dice) {
  const bool isSphere = emitter.kind == EmitterKind::SpherePatch;
  if (!isSphere && dice.once(2)) {
    emitter.kind = EmitterKind::GridPatch;
    emitter.horizontalAmount = dice.between(500, 1100);
    emitter.horizontalSize = 1;
    emitter.verticalAmount = dice.between(1, 12);
    return;
  }
  emitter.horizontalAmount = dice.between(60, 110);
  emitter.horizontalSize = isSphere ? 0 : 8;
  emitter.horizontalEnd = 180;
  emitter.verticalAmount = dice.between(70, 110);
  emitter.verticalSize = isSphere ? 360 : 8;
}

void newShape(State& state, Dice& dice) {
  state.shape = reference::randomShape(dice, dice.once(3) ? Taste::Wild : Taste::Useful);
  if (dice.once(2)) {  // nothing between the two transforms
    std::fill_n(state.shape.modifiers.triples.begin() + 3, 8, Vec3{});
    state.shape.duplicates.bulge = {};
  }
  PathRecord& path = state.shape.path;
  if (dice.once(4)) {
    path.count = dice.between(20, kMaxPathPoints);
    for (std::int32_t i = 0; i < path.count; ++i) {
      path.points[static_cast<std::size_t>(i)] = {
          dice.between(-0.5F, 0.5F), dice.between(-0.5F, 0.5F), static_cast<float>(i) / 600.0F};
    }
  }
  if (dice.once(3) && path.count > 0) {
    constexpr std::array kNoNumbers{std::numeric_limits<float>::quiet_NaN(),
                                    std::numeric_limits<float>::infinity()};
    Vec3& point = path.points[static_cast<std::size_t>(dice.below(path.count))];
    point.axis(dice.below(3)) = kNoNumbers[static_cast<std::size_t>(dice.below(2))];
    state.shape.emitter.kind = dice.once(3) ? EmitterKind::LoftPath : EmitterKind::SweepPath;
  }
  if (dice.once(4)) {
    enlarge(state.shape.emitter, dice);
  }
}

void changeModifier(State& state, Dice& dice) {
  const auto changed = static_cast<std::size_t>(dice.below(14));
  const float reach = changed == 1 || changed == 12 ? 180.0F : changed % 11 == 0 ? 0.3F : 60.0F;
  const bool scale = changed == 2 || changed == 13;
  state.shape.modifiers.triples[changed] =
      scale ? Vec3{dice.between(0.5F, 1.4F), 1.0F, dice.between(-1.4F, 1.4F)}
            : Vec3{dice.between(-reach, reach), -0.0F, dice.between(-reach, reach)};
}

void changeCamera(State& state, Dice& dice) {
  state.setup.camera = {dice.between(0.0F, 360.0F), dice.between(-89.0F, 89.0F),
                        dice.between(-179.0F, 179.0F), dice.between(0.3F, 4.0F)};
}

void changeSize(State& state, Dice& dice) {
  state.setup.width = dice.between(2, 300);
  state.setup.height = dice.between(2, 220);
}

constexpr std::array<void (*)(State&, Dice&), 13> kChange{
    newShape,
    changeModifier,
    changeModifier,
    changeCamera,
    changeSize,
    [](State& state, Dice& dice) { state.setup.mode = static_cast<ViewMode>(dice.below(4)); },
    [](State& state, Dice&) { state.setup.showLines = !state.setup.showLines; },
    [](State& state, Dice& dice) { state.threads = static_cast<unsigned>(dice.between(1, 8)); },
    [](State& state, Dice& dice) { state.shape.emitter.copies = dice.between(1, 3); },
    [](State& state, Dice&) { state.shape.emitter.copies = 0; },
    [](State& state, Dice&) { state.shape.useWorldAxis ^= 1; },
    [](State& state, Dice&) { state.shape.applyModifiersGlobally ^= 1; },
    [](State& state, Dice&) {  // Disperse on and off
      Vec3& disperse = state.shape.modifiers.triples[3];
      disperse = disperse == Vec3{} ? Vec3{40, -30, 20} : Vec3{};
    }};

std::string describe(const State& state) {
  const FrameSetup& setup = state.setup;
  return reference::describe(state.shape) + "\nview " +
         std::to_string(static_cast<int>(setup.mode)) + " of " + std::to_string(setup.width) +
         " x " + std::to_string(setup.height) + ", lines " + std::to_string(setup.showLines) +
         ", threads " + std::to_string(state.threads);
}

TEST(ChangingView, NothingStaleIsDrawn) {
  Dice dice(60);
  VectorFormChoice forms;
  State state;
  state.setup.showGrid = false;
  newShape(state, dice);
  ShapeView view;
  reference::Random random;
  for (int i = 0; i < kChanges; ++i) {
    // Every vector form in turn: what one leaves the next one must be able to use.
    forms.choose(static_cast<std::size_t>(i / 4));
    const State before = state;
    for (int changes = dice.once(4) ? 2 : 1; changes > 0; --changes) {
      kChange[static_cast<std::size_t>(dice.below(kChange.size()))](state, dice);
    }
    ShapeRecord modified = before.shape;
    modified.modifiers = state.shape.modifiers;
    if (i == 0 || modified != state.shape || dice.once(20)) {
      view.setShape(state.shape);
      (void)reference::generateShape(state.shape, random);
    } else {
      view.setModifiers(toTable(state.shape.modifiers, state.shape.duplicates.bulge));
    }
    view.setSize(state.setup.width, state.setup.height);
    view.setViewMode(state.setup.mode);
    view.setCamera(state.setup.camera);
    view.setShowLines(state.setup.showLines);
    view.setShowGrid(false);
    if (i == 0 || state.threads != before.threads) {
      view.setThreads(state.threads);
    }
    for (int frames = dice.between(1, 3); frames > 0; --frames) {
      const auto wanted = reference::drawFrame(state.shape, state.setup, random);
      ASSERT_EQ(reference::firstDifference(view.drawFrame(), wanted, state.setup.width), "")
          << i << '\n'
          << describe(state);
    }
  }
}

}  // namespace
}  // namespace pv
