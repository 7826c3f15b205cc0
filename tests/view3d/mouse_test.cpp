#include <gtest/gtest.h>
#include <limits>

#include "view3d/handles.h"
#include "view3d/shape_view.h"

namespace pv {
namespace {

constexpr std::int32_t kWidth = 400;
constexpr std::int32_t kHeight = 300;

/// A view in the front view, where one shape unit is 200 x 150 pixels, with the
/// handles of one modifier on the screen.
class Mouse : public ::testing::Test {
 protected:
  void start(ModifierKind kind, float ratio = 1.0F) {
    view.setCameraTool(CameraTool::Rotate);
    view.setViewMode(ViewMode::Front);
    view.setSize(static_cast<std::int32_t>(kWidth * ratio),
                 static_cast<std::int32_t>(kHeight * ratio), ratio);
    view.SelectModifier(kind);
    view.drawFrame();
  }
  ViewResponse move(std::int32_t x, std::int32_t y) {
    at = {x, y};
    return view.mouseMove(at);
  }
  void drag(PixelPoint from, std::int32_t dx, std::int32_t dy) {
    move(0, 0);  // moving straight from handle to handle would keep the first
    move(from.x, from.y);
    view.mousePress(from);
    move(from.x + dx, from.y + dy);
    view.mouseRelease();
    view.drawFrame();
  }
  [[nodiscard]] Vec3 values(ModifierKind kind) const { return view.modifiers()[kind]; }

  static constexpr PixelPoint kCentre{kWidth / 2, kHeight / 2};
  static constexpr PixelPoint kX{kWidth / 2 + 110, kHeight / 2};
  static constexpr PixelPoint kY{kWidth / 2, kHeight / 2 - 82};
  ShapeView view;
  PixelPoint at;
};

TEST_F(Mouse, HandlesMoveTheirAxisByTwoHundredPixelsAUnit) {
  start(ModifierKind::VertexMove);
  drag(kX, 200, 0);
  EXPECT_FLOAT_EQ(values(ModifierKind::VertexMove).x, 1.0F);
  view.ResetAllModifiers();
  view.drawFrame();
  drag(kX, 100, -100);
  EXPECT_FLOAT_EQ(values(ModifierKind::VertexMove).x, 1.0F);
  view.ResetAllModifiers();
  view.drawFrame();
  drag(kX, 100, 100);
  EXPECT_EQ(values(ModifierKind::VertexMove), Vec3{});
  drag(kY, 0, -50);
  EXPECT_EQ(values(ModifierKind::VertexMove), (Vec3{0, 0.25F, 0}));
}

TEST_F(Mouse, EveryModifierFollowsItsRule) {
  using enum ModifierKind;
  for (std::int32_t i = 0; i < kModifierCount; ++i) {
    const auto kind = static_cast<ModifierKind>(i);
    SCOPED_TRACE(traits(kind).name);
    const bool byUnits =
        kind == VertexMove || kind == VertexScale || kind == ShapeMove || kind == ShapeScale;
    const bool tumbles = kind == VertexRotate || kind == ShapeRotate;
    const bool still = kind == VertexMove || kind == ShapeMove || kind == Taper || kind == ShearA ||
                       kind == ShearB;
    const float base = kind == VertexScale || kind == ShapeScale ? 1.0F : 0.0F;

    view.ResetAllModifiers();
    start(kind);
    drag(kY, 0, -20);
    EXPECT_EQ(values(kind), (Vec3{base, base + (byUnits ? 0.1F : 20.0F), base}));

    view.ResetAllModifiers();
    start(kind);
    drag(kCentre, 20, 50);
    const float all = base + (byUnits ? -0.15F : -30.0F);
    const Vec3 expected = tumbles ? Vec3{20, -50, 0}
                          : still ? Vec3{base, base, base}
                                  : Vec3{all, all, all};
    EXPECT_EQ(values(kind), expected);
    EXPECT_EQ(view.camera(), ViewCamera{});  // a handle drag never turns the camera
  }
}

TEST_F(Mouse, ADragKeepsItsHandleAndEmptySpaceTurnsTheCamera) {
  start(ModifierKind::Bend);
  move(kX.x, kX.y);
  EXPECT_EQ(view.activeHandle(), Handle::X);
  view.mousePress(kX);
  for (int i = 1; i <= 30; ++i) {
    move(kX.x + i, kX.y);
    view.drawFrame();
  }
  move(kY.x, kY.y);  // across another handle
  EXPECT_EQ(view.activeHandle(), Handle::X);
  EXPECT_TRUE(view.isHandleDrag());
  EXPECT_EQ(values(ModifierKind::Bend).x, static_cast<float>((kY.x - kX.x) - (kY.y - kX.y)));
  move(5, 5);
  EXPECT_EQ(view.activeHandle(), Handle::X);
  EXPECT_TRUE(view.mouseRelease().repaint);
  EXPECT_TRUE(move(6, 5).repaint);  // let go of the handle, now that it is far
  EXPECT_EQ(view.activeHandle(), Handle::None);

  const float before = values(ModifierKind::Bend).x;
  drag({20, 20}, -10, 5);
  EXPECT_EQ(values(ModifierKind::Bend).x, before);
  EXPECT_EQ(view.camera().yaw, 260.0F);
  EXPECT_EQ(view.camera().pitch, 5.0F);
}

TEST_F(Mouse, CrossingAHandleWithTheButtonDownStaysACameraDrag) {
  start(ModifierKind::Bend);
  move(kX.x - 30, kX.y);
  view.mousePress(at);
  const ViewResponse entered = move(kX.x, kX.y);
  EXPECT_TRUE(entered.repaint);         // the handle lights up,
  EXPECT_FALSE(entered.cameraChanged);  // which takes this one movement
  EXPECT_TRUE(move(kX.x + 3, kX.y).cameraChanged);
  EXPECT_EQ(values(ModifierKind::Bend), Vec3{});
}

TEST_F(Mouse, SquaresAreTriedInOrderAndHalfOpen) {
  start(ModifierKind::Twist);
  move(kX.x - 6, kX.y);
  EXPECT_EQ(view.activeHandle(), Handle::X);  // left edge inside
  move(kX.x - 7, kX.y);
  EXPECT_EQ(view.activeHandle(), Handle::None);
  move(kX.x + 6, kX.y);
  EXPECT_EQ(view.activeHandle(), Handle::None);  // right edge outside
  move(kX.x, kX.y + 6);
  EXPECT_EQ(view.activeHandle(), Handle::X);  // bottom edge inside
  move(kX.x, kX.y - 6);
  EXPECT_EQ(view.activeHandle(), Handle::None);  // top edge outside
  // In the front view the z handle hides behind the centre, which comes first.
  move(kCentre.x, kCentre.y);
  EXPECT_EQ(view.activeHandle(), Handle::Centre);
  // A second press of the button takes the handles away.
  EXPECT_TRUE(view.toggleModifier(ModifierKind::Twist).repaint);
  view.drawFrame();
  move(kX.x, kX.y);
  EXPECT_EQ(view.activeHandle(), Handle::None);
  EXPECT_FALSE(view.ResetSelectedModifier().repaint);
}

TEST_F(Mouse, AHoveredHandleStaysARingUntilThePointerMoves) {
  start(ModifierKind::Twist);
  const auto pixelOfX = [this] {  // rows count upward
    return view.drawFrame()[static_cast<std::size_t>((kHeight - kX.y) * kWidth + kX.x)];
  };
  EXPECT_EQ(pixelOfX(), 0xFFFF0000U);
  move(kX.x, kX.y);
  EXPECT_EQ(pixelOfX(), 0xFF000000U);
  view.mousePress(at);
  view.mouseRelease();
  EXPECT_EQ(pixelOfX(), 0xFF000000U);
  move(kX.x, kX.y + 20);
  EXPECT_EQ(pixelOfX(), 0xFFFF0000U);
}

TEST_F(Mouse, DragsMeanTheSameOnDenseScreens) {
  start(ModifierKind::VertexMove, 2.0F);
  drag(kX, 200, 0);  // positions count in pixels of 96 dpi
  EXPECT_FLOAT_EQ(values(ModifierKind::VertexMove).x, 1.0F);
  move(kX.x + 200, kX.y);
  move(kX.x + 200 + 5, kX.y);  // the square has grown with the screen
  EXPECT_EQ(view.activeHandle(), Handle::X);
}

TEST_F(Mouse, OutlandishPositionsDoNoHarm) {
  start(ModifierKind::Bulge);
  constexpr auto kFar = std::numeric_limits<std::int32_t>::max();
  drag(kX, kFar - kX.x, 0);
  drag({-kFar, kFar}, 0, -1);
  view.drawFrame();
}

TEST(Camera, RotationMirrorsBelowZero) {
  ViewCamera camera;
  camera.yaw = 3.0F;
  dragCamera(camera, CameraTool::Rotate, -10, 0);
  EXPECT_EQ(camera.yaw, 367.0F);
  dragCamera(camera, CameraTool::Rotate, 0, 1);  // folds on a move of any direction
  EXPECT_EQ(camera.yaw, 7.0F);
  dragCamera(camera, CameraTool::Rotate, 0, 500);
  EXPECT_EQ(camera.pitch, kMaxCameraPitch);
}

TEST(Camera, ZoomAndRollStopAtTheirLimits) {
  ViewCamera camera;
  EXPECT_FALSE(dragCamera(camera, CameraTool::Zoom, 80, 0));  // cannot come closer
  dragCamera(camera, CameraTool::Zoom, -40, 40);
  EXPECT_FLOAT_EQ(camera.distance, 2.2F);
  dragCamera(camera, CameraTool::Zoom, -4000, 0);
  EXPECT_EQ(camera.distance, kMaxCameraDistance);
  EXPECT_FALSE(dragCamera(camera, CameraTool::Roll, 1, 0));
  EXPECT_FALSE(dragCamera(camera, CameraTool::Roll, 0, -1));
  EXPECT_TRUE(dragCamera(camera, CameraTool::Roll, 1, 1));
  EXPECT_EQ(camera.roll, 1.0F);
  dragCamera(camera, CameraTool::Roll, -1000, 0);
  EXPECT_EQ(camera.roll, kMinCameraRoll);
}

TEST(Camera, ItsMarkerGrowsWithThePixelRatio) {
  ShapeView view;
  view.setViewMode(ViewMode::Side);  // the fresh camera's eye hides the origin here
  view.setSize(300, 300, 1.5F);
  const auto frame = view.drawFrame();
  EXPECT_EQ(frame[(150 - 18) * 300 + 150 + 4], 0xFFFFFFFFU);  // on the pyramid's base
}

TEST(Projector, KeepsItsSizeWhenAnotherIsRefused) {
  ViewProjector projector;
  EXPECT_FALSE(projector.isSized());
  projector.setSize(1, 100);
  EXPECT_FALSE(projector.isSized());
  projector.setSize(320, 200);
  projector.setSize(100, 4000);
  EXPECT_EQ(projector.width(), 320);
  EXPECT_EQ(projector.minSide(), 200);
  projector.setSize(3999, 2);
  EXPECT_EQ(projector.width(), 3999);
}

TEST(Projector, PerspectiveMirrorsAndCulls) {
  ViewProjector projector;
  const PixelPoint centre{100, 50};
  EXPECT_EQ(projector.projectCameraSpace({0.5F, 0.5F, 1}, centre), (PixelPoint{50, 75}));
  EXPECT_EQ(projector.projectCameraSpace({-0.5F, -0.5F, 1}, centre), (PixelPoint{150, 25}));
  EXPECT_EQ(projector.lastDepth(), 1.0F);
  EXPECT_FALSE(projector.projectCameraSpace({0, 0, 0}, centre));
  EXPECT_FALSE(projector.projectCameraSpace({0, 0, -1}, centre));
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(projector.projectCameraSpace({0, 0, nan}, centre));
  EXPECT_FALSE(projector.projectCameraSpace({nan, 0, 1}, centre));
  EXPECT_EQ(projector.projectCameraSpace({1e30F, 0, 1e-9F}, centre)->x,
            std::numeric_limits<std::int32_t>::min() + 101);
}

}  // namespace
}  // namespace pv
