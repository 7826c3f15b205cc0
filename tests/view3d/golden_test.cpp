#include "support/golden.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

#include "view3d/shape_view.h"

namespace pv {
namespace {

// A bowl on a foot, half a turn, bent, in four copies around the axis.
ShapeRecord bowls() {
  ShapeRecord shape;
  shape.emitter.kind = EmitterKind::SweepPath;
  shape.emitter.verticalAmount = 12;
  shape.emitter.verticalSize = 200;
  shape.emitter.copies = 3;
  shape.duplicates.position = {0, 20, 0};
  shape.duplicates.rotation = {0, 90, 0};
  const std::array<Vec3, 5> profile{{{0.2F, -0.3F, 0},
                                     {0.06F, -0.25F, 0},
                                     {0.06F, -0.1F, 0},
                                     {0.3F, 0.05F, 0},
                                     {0.35F, 0.3F, 0}}};
  std::copy(profile.begin(), profile.end(), shape.path.points.begin());
  shape.path.count = 5;
  ModifierTable values;
  values[ModifierKind::VertexMove] = {0.3F, 0, 0};
  values[ModifierKind::Bend] = {0, 0, 25};
  values[ModifierKind::Bulge] = {0, 10, 0};
  values[ModifierKind::VertexDisperse] = {4, 4, 4};
  values[ModifierKind::ShapeRotate] = {10, 0, 5};
  shape.modifiers = toFileOrder(values);
  shape.duplicates.bulge = bulgeOf(values);
  return shape;
}

constexpr std::array kViewNames{"3d", "top", "front", "side"};

/// Each system has a sequence of random directions of its own.
#ifdef _WIN32
constexpr std::string_view kBowls = "bowls-windows-";
#else
constexpr std::string_view kBowls = "bowls-";
#endif

TEST(Golden, BowlsInAllViewsWithHandles) {
  for (std::size_t mode = 0; mode < kViewNames.size(); ++mode) {
    ShapeView view;  // a new one each time: frames move the random sequence on
    view.setShape(bowls());
    view.setCamera({300, 20, 0, 1.4F});
    view.setViewMode(static_cast<ViewMode>(mode));
    view.SelectModifier(ModifierKind::ShapeRotate);
    view.setSize(320, 240);
    EXPECT_TRUE(matchesGolden(view.drawFrame(), 320, 240, std::string(kBowls) + kViewNames[mode]));
  }
}

TEST(Golden, DotsOnADenseScreen) {
  ShapeRecord shape;
  shape.emitter.kind = EmitterKind::SpherePatch;
  shape.emitter.horizontalAmount = 12;
  shape.emitter.verticalAmount = 24;
  shape.emitter.verticalSize = 360;
  ShapeView view;
  view.setShape(shape);
  view.setShowLines(false);
  view.setCamera({240, -30, 20, 1.2F});
  view.SelectModifier(ModifierKind::VertexMove);
  view.setSize(480, 360, 2.0F);
  view.drawFrame();
  view.mouseMove({120, 90});  // over the centre handle, which becomes a ring
  EXPECT_TRUE(matchesGolden(view.drawFrame(), 480, 360, "sphere-dots"));
}

// Looking straight down shows the eye's marker inside the top view.
TEST(Golden, CameraMarkerInTheTopView) {
  ShapeView view;
  view.setCamera({300, 70, 0, 1.6F});
  view.setViewMode(ViewMode::Top);
  view.setSize(320, 240);
  EXPECT_TRUE(matchesGolden(view.drawFrame(), 320, 240, "camera-marker"));
}

}  // namespace
}  // namespace pv
