#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "path/path_view_script.h"

namespace pv {
namespace {

using Indices = std::vector<int>;

/// `up` is up the screen, which in the top view is against the z axis.
Vec3 place(PathAxisView axes, float across, float up, float depth = 0.25F) {
  switch (axes) {
    case PathAxisView::Side:
      return {depth, up, across};
    case PathAxisView::Top:
      return {across, depth, -up};
    default:
      return {across, up, depth};
  }
}

void expectNear(Vec3 a, Vec3 b, const std::string& what) {
  EXPECT_NEAR(a.x, b.x, 1e-6F) << what;
  EXPECT_NEAR(a.y, b.y, 1e-6F) << what;
  EXPECT_NEAR(a.z, b.z, 1e-6F) << what;
}

/// At (80, 150), (200, 60) and (320, 114) in every view.
PathRecord tent(PathAxisView axes) {
  return pathRecord({place(axes, -0.5F, 0), place(axes, 0, 0.5F), place(axes, 0.5F, 0.2F)});
}
constexpr ScreenPoint kThird{320, 114};

/// What a drag of the selected third point by 51 pixels right and 40 up leaves
/// behind; snapped, it is 48 and 36.
struct DragCase {
  PathTool tool;
  int count;
  Indices selected;
  std::array<float, 2> third, snappedThird;  ///< across and up; of the last point
  float zoom, snappedZoom;
  PathCursor cursor;
};
const DragCase kDrags[] = {
    {PathTool::Zoom, 3, {2}, {0.5F, 0.2F}, {0.5F, 0.2F}, 2.3375F, 2.25F, PathCursor::Zoom},
    {PathTool::Select, 3, {2}, {0.5F, 0.2F}, {0.5F, 0.2F}, 1.2F, 1.2F, PathCursor::Arrow},
    {PathTool::Move,
     3,
     {2},
     {0.7125F, 0.2F + 2 / 9.0F},
     {0.7F, 0.4F},
     1.2F,
     1.2F,
     PathCursor::ArrowMove2},
    {PathTool::Scale,
     3,
     {2},
     {0.5F + 4.5F / 42, 0.2F + 1.8F / 42},
     {0.6F, 0.24F},
     1.2F,
     1.2F,
     PathCursor::Scale},
    {PathTool::ScaleX,
     3,
     {2},
     {0.5F + 4.5F / 42, 0.2F},
     {0.6F, 0.2F},
     1.2F,
     1.2F,
     PathCursor::ScaleX},
    {PathTool::ScaleY,
     3,
     {2},
     {0.5F, 0.2F + 1.8F / 42},
     {0.5F, 0.24F},
     1.2F,
     1.2F,
     PathCursor::ScaleY},
    {PathTool::Draw, 4, {2}, {0.7125F, 38 / 90.0F}, {0.7F, 0.4F}, 1.2F, 1.2F, PathCursor::Pen},
    {PathTool::Add, 3, {}, {0.5F, 0.2F}, {0.5F, 0.2F}, 1.2F, 1.2F, PathCursor::Arrow},
    {PathTool::Delete, 2, {}, {0, 0.5F}, {0, 0.5F}, 1.2F, 1.2F, PathCursor::ArrowSubtract},
    {PathTool::Grab, 3, {2}, {0.5F, 0.2F}, {0.5F, 0.2F}, 1.2F, 1.2F, PathCursor::HandOn},
};

void dragThird(const DragCase& drag, PathAxisView axes, bool snap) {
  const std::string what = std::to_string(static_cast<int>(drag.tool)) + " in view " +
                           std::to_string(static_cast<int>(axes)) + (snap ? " snapped" : "");
  PathScript script(axes);
  script.set(tent(axes));
  script.select({310, 104}, {330, 124});
  script.tool(drag.tool);
  script.view.setSnapEnabled(snap);
  script.move({322, 116});  // within reach: the hover and then its cursor
  script.press(kThird);
  const PathResponse dragged = script.move({371, 74});
  EXPECT_TRUE(dragged.repaint) << what;
  EXPECT_EQ(dragged.cursor, drag.cursor) << what;
  script.release();

  ASSERT_EQ(script.count(), drag.count) << what;
  EXPECT_EQ(script.selection(), drag.selected) << what;
  auto [across, up] = snap ? drag.snappedThird : drag.third;
  const bool drew = drag.tool == PathTool::Draw;
  if (drew && axes == PathAxisView::Top) {
    up = -up;  // new points show mirrored from above
  }
  expectNear(script.point(drag.count - 1), place(axes, across, up, drew ? 0.0F : 0.25F), what);
  EXPECT_NEAR(script.view.zoom(), snap ? drag.snappedZoom : drag.zoom, 1e-5F) << what;
  const Vec3 pan = drag.tool == PathTool::Grab ? place(axes, 51, -40, 0) : Vec3{};
  const Vec3 expectedPan = axes == PathAxisView::Top ? Vec3{pan.x, pan.y, -pan.z} : pan;
  EXPECT_EQ(script.view.pan(), expectedPan) << what;
  EXPECT_TRUE(script.isSettled()) << what;
  EXPECT_FALSE(script.view.isRubberBand()) << what;
  const bool edits = script.now() != PathSnapshot{tent(axes), {}};
  EXPECT_EQ(script.view.canUndo(), edits) << what;
  EXPECT_EQ(script.view.undoLabel(), edits ? pathToolTraits(drag.tool).step : "") << what;
}

TEST(PathTools, DragOfASelectedPointInEveryViewWithAndWithoutSnap) {
  ASSERT_EQ(std::size(kDrags), pathTools().size());
  for (const DragCase& drag : kDrags) {
    for (const PathAxisView axes : kAllPathViews) {
      dragThird(drag, axes, false);
      dragThird(drag, axes, true);
    }
  }
}

TEST(PathTools, CtrlPansWithEveryTool) {
  for (const PathToolTraits& traits : pathTools()) {
    PathScript script;
    script.set(tent(PathAxisView::Front));
    script.selectAll();
    script.tool(traits.tool);
    script.mouse.ctrl = true;
    EXPECT_EQ(script.move({100, 100}).cursor, PathCursor::HandOff);
    script.press(kThird);
    EXPECT_EQ(script.move({325, 104}).cursor, PathCursor::HandOn);
    script.move({331, 114});
    script.release();
    EXPECT_EQ(script.view.pan(), (Vec3{11, 0, 0}));
    EXPECT_EQ(script.now(), (PathSnapshot{tent(PathAxisView::Front), {}}));
    EXPECT_EQ(script.view.zoom(), 1.2F);
  }
}

TEST(PathTools, TheTableHasItsCursorsDrawn) {
  for (std::size_t i = 1; i < kPathCursorCount; ++i) {
    const std::string name(pathCursorImage(static_cast<PathCursor>(i)));
    EXPECT_TRUE(std::filesystem::exists(std::string(PV_SOURCE_DIR) + "/art/rendered/bin/program/" +
                                        name + ".cur"))
        << name;
  }
  EXPECT_EQ(pathCursorImage(PathCursor::Arrow), "");
  PathView view;
  view.setTool(static_cast<PathTool>(12));
  EXPECT_EQ(view.getTool(), PathTool::Select);
}

TEST(PathTools, TheCursorFollowsTheHoverOneMovementLater) {
  PathScript script;
  script.set(tent(PathAxisView::Front));
  script.selectAll();
  script.tool(PathTool::Delete);
  const PathResponse first = script.move({80, 150});
  EXPECT_TRUE(first.repaint);  // the markers change colour
  EXPECT_EQ(first.cursor, PathCursor::Arrow);
  const PathResponse second = script.move({82, 151});
  EXPECT_FALSE(second.repaint);
  EXPECT_EQ(second.cursor, PathCursor::ArrowSubtract);
  EXPECT_EQ(script.view.hoveredVertex(), 0);
  EXPECT_TRUE(script.view.mouseLeave().repaint);
  EXPECT_EQ(script.view.hoveredVertex(), -1);
  EXPECT_FALSE(script.view.path().vertexHover());
}

TEST(PathTools, AddHighlightsOneSegmentAndHalvesIt) {
  PathScript script;
  script.set(tent(PathAxisView::Front));
  script.tool(PathTool::Add);
  EXPECT_EQ(script.move({250, 80}).cursor, PathCursor::ArrowAdd);
  EXPECT_TRUE(script.view.path().isHighlighted(1));
  EXPECT_FALSE(script.move({251, 80}).repaint);
  EXPECT_EQ(script.move({300, 200}).cursor, PathCursor::Arrow);
  EXPECT_FALSE(script.view.path().isHighlighted(1));
  script.click({300, 200});
  EXPECT_EQ(script.count(), 3);

  script.click({100, 100});
  ASSERT_EQ(script.count(), 4);
  expectNear(script.point(1), {-0.25F, 0.25F, 0.25F}, "midpoint");
  EXPECT_EQ(script.view.hoveredSegment(), -1);
  EXPECT_TRUE(script.isSettled());
  script.take(script.view.undo());
  script.click({100, 100});  // the pointer has not moved
  ASSERT_EQ(script.count(), 4);
  script.move({250, 80});
  script.tool(PathTool::Move);
  EXPECT_EQ(script.view.hoveredSegment(), -1);
  EXPECT_FALSE(script.view.path().isHighlighted(2));
}

TEST(PathTools, DrawingBeginsAtThePressAndGoesOnAtTheRelease) {
  PathScript script;
  script.tool(PathTool::Draw);
  script.drag({260, 60}, {300, 100});
  EXPECT_EQ(script.point(0), (Vec3{0.25F, 0.5F, 0}));
  EXPECT_TRUE(script.move({20, 20}).repaint);  // the band follows
  script.drag({0, 0}, {80, 240});
  EXPECT_EQ(script.point(1), (Vec3{-0.5F, -0.5F, 0}));
  // Without a frame between movement and release the point is where the mouse is.
  script.view.mouseMove({{320, 150}});
  script.view.mousePress({{320, 150}, false, true});
  script.view.mouseRelease({{320, 150}});
  EXPECT_EQ(script.point(2), (Vec3{0.5F, 0, 0}));
  EXPECT_TRUE(script.view.setTool(PathTool::Select).repaint);  // the band goes
  EXPECT_TRUE(script.isSettled());
}

TEST(PathTools, APressBesideTheSelectionOpensARectangle) {
  PathScript script;
  script.set(tent(PathAxisView::Front));
  for (const PathTool tool : {PathTool::Select, PathTool::Move, PathTool::ScaleY}) {
    script.tool(tool);
    script.press({190, 130});
    EXPECT_FALSE(script.move({190, 130}).repaint);
    script.move({330, 50});
    EXPECT_TRUE(script.view.isRubberBand());
    script.release();
    EXPECT_EQ(script.selection(), (Indices{1, 2}));
    EXPECT_EQ(script.now(), (PathSnapshot{tent(PathAxisView::Front), {}}));
    script.select({0, 0}, {10, 10});
    EXPECT_EQ(script.selection(), Indices{});
  }
}

TEST(PathTools, ZoomStaysInItsRange) {
  PathScript script;
  script.tool(PathTool::Zoom);
  script.drag({100, 100}, {180, 100});
  EXPECT_FLOAT_EQ(script.view.zoom(), 2.2F);
  script.drag({100, 100}, {100, 60});
  EXPECT_FLOAT_EQ(script.view.zoom(), 2.7F);
  script.drag({0, 0}, {10000, 0});
  EXPECT_EQ(script.view.zoom(), 5.0F);
  script.drag({0, 0}, {0, 10000});
  EXPECT_EQ(script.view.zoom(), 0.1F);
  script.take(script.view.resetZoom());
  EXPECT_EQ(script.view.zoom(), 1.2F);
}

TEST(PathTools, DeleteByClickNeedsAPointAndByKeyTheTool) {
  PathScript script;
  script.set(tent(PathAxisView::Front));
  script.select({190, 50}, {330, 120});
  script.key(PathKey::Delete);
  EXPECT_FALSE(script.key(PathKey::Delete).handled);
  EXPECT_EQ(script.count(), 3);
  script.tool(PathTool::Delete);
  script.click({20, 20});
  EXPECT_EQ(script.count(), 3);
  EXPECT_TRUE(script.key(PathKey::Delete).pathChanged);
  EXPECT_EQ(script.now(), (PathSnapshot{pathRecord({{-0.5F, 0, 0.25F}}), {}}));
}

TEST(PathTools, AReleaseWithCtrlLeavesTheRectangleOpenAndADragDone) {
  PathScript script;
  script.set(tent(PathAxisView::Front));
  script.press({190, 130});
  script.move({330, 50});
  script.mouse.ctrl = true;
  script.release();
  EXPECT_TRUE(script.view.isRubberBand());
  EXPECT_EQ(script.selection(), Indices{});
  script.mouse.ctrl = false;
  script.key(PathKey::Escape);
  EXPECT_FALSE(script.view.isRubberBand());

  script.selectAll();
  script.tool(PathTool::Move);
  script.press(kThird);
  script.move({344, 114});
  script.mouse.ctrl = true;
  script.move({344, 134});  // Ctrl in the middle: the view moves from here
  EXPECT_EQ(script.view.pan(), Vec3{});
  script.release();
  expectNear(script.point(2), {0.6F, 0.2F, 0.25F}, "moved");
  EXPECT_TRUE(script.isSettled());
  EXPECT_EQ(script.view.undoLabel(), "Move points");
}

}  // namespace
}  // namespace pv
