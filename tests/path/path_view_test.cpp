#include "path/path_view.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "path/path_view_script.h"
#include "util/temporary_folder.h"

namespace pv {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr ScreenPoint kThird{320, 114};

PathRecord tent() {
  return pathRecord({{-0.5F, 0, 0}, {0, 0.5F, 0}, {0.5F, 0.2F, 0}});
}

PathRecord fullPath() {
  PathRecord path;
  path.count = kMaxPathPoints;
  for (int i = 0; i < kMaxPathPoints; ++i) {
    path.points[static_cast<std::size_t>(i)] = {static_cast<float>(i) / 1024, 0, 0};
  }
  return path;
}

/// All selected, the third point pressed with a tool and dragged 48 pixels right.
PathScript inMidDrag(PathTool tool) {
  PathScript script;
  script.set(tent());
  script.selectAll();
  script.tool(tool);
  script.press(kThird);
  script.move({368, 114});
  return script;
}

// --- zoom and pan ------------------------------------------------------------

TEST(PathView, TheWheelKeepsThePointUnderThePointer) {
  for (const PathAxisView axes : kAllPathViews) {
    PathScript script(axes);
    script.view.setSize(401, 299);
    script.mouse.position = {297, 41};
    for (const float notches : {1.0F, 3.0F, -0.5F, -2.0F, 40.0F, -500.0F, 7.0F}) {
      const auto before = script.view.viewport().unproject(script.mouse.position);
      script.take(script.view.wheel(script.mouse, notches));
      const auto shown = script.view.viewport().project(before.value());
      const ScreenPoint at = script.view.viewport().toScreen(shown.value());
      EXPECT_NEAR(at.x, 297, 2) << notches;
      EXPECT_NEAR(at.y, 41, 2) << notches;
      EXPECT_GE(script.view.zoom(), kPathMinZoom);
      EXPECT_LE(script.view.zoom(), kPathMaxZoom);
    }
    EXPECT_FALSE(script.view.wheel(script.mouse, kNan).repaint);
  }
}

TEST(PathView, TheMiddleButtonPansWithAnyTool) {
  for (const PathToolTraits& traits : pathTools()) {
    PathScript script(PathAxisView::Side);
    script.set(tent());
    script.tool(traits.tool);
    script.press({10, 10}, PathMouseButton::Middle);
    script.mouse.leftHeld = true;
    EXPECT_FALSE(script.view.mousePress(script.mouse).takeFocus);  // the other button
    EXPECT_EQ(script.move({30, 5}).cursor, PathCursor::HandOn);
    EXPECT_FALSE(script.view.wheel(script.mouse, 1).repaint);
    script.mouse.leftHeld = false;
    script.release(PathMouseButton::Middle);
    script.move({100, 100});
    EXPECT_EQ(script.view.pan(), (Vec3{0, -5, 20}));
    EXPECT_EQ(script.now(), (PathSnapshot{tent(), {}}));
  }
}

TEST(PathView, ADenseScreenShowsAndDoesTheSame) {
  std::vector<Vec3> ends;
  for (const std::int32_t ratio : {1, 2, 3}) {
    PathScript script(PathAxisView::Front, static_cast<float>(ratio));
    const auto at = [ratio](std::int32_t x, std::int32_t y) {
      return ScreenPoint{x * ratio, y * ratio};
    };
    script.set(tent());
    script.selectAll();
    script.tool(PathTool::Move);
    script.drag(at(326, 108), at(350, 108));  // the reach grows
    script.tool(PathTool::Zoom);
    script.drag(at(0, 0), at(80, 0));
    EXPECT_FLOAT_EQ(script.view.zoom(), 2.2F);
    ends.push_back(script.point(2));
  }
  EXPECT_EQ(ends[1], ends[0]);
  EXPECT_EQ(ends[2], ends[0]);

  PathScript script;
  script.tool(PathTool::Grab);
  script.drag({0, 0}, {40, -20});
  script.view.setSize(800, 600, 2.0F);
  EXPECT_EQ(script.view.pan(), (Vec3{80, -40, 0}));
  script.view.setSize(0, 600, 2.0F);  // folded away
  EXPECT_EQ(script.view.width(), 800);
}

// --- keys --------------------------------------------------------------------

TEST(PathView, ArrowKeysNudgeUpTheScreenInEveryView) {
  struct Case {
    PathAxisView axes;
    Vec3 right, up;
  };
  for (const Case& c : {Case{PathAxisView::Side, {0, 0, 1}, {0, 1, 0}},
                        Case{PathAxisView::Top, {1, 0, 0}, {0, 0, -1}},
                        Case{PathAxisView::Front, {1, 0, 0}, {0, 1, 0}}}) {
    PathScript script(c.axes);
    script.set(pathRecord({{0, 0, 0}}));
    EXPECT_FALSE(script.key(PathKey::Up).handled);  // nothing selected
    script.selectAll();
    EXPECT_FALSE(script.view.canUndo());
    script.key(PathKey::Right);
    script.key(PathKey::Up);
    for (const int axis : {0, 1, 2}) {
      EXPECT_FLOAT_EQ(script.point(0).axis(axis), 0.01F * (c.right + c.up).axis(axis));
    }
    script.key(PathKey::Left);
    script.key(PathKey::Down);
    script.view.setSnapEnabled(true);
    script.view.setSnapDivisions(40);
    script.key(PathKey::Right);
    for (const int axis : {0, 1, 2}) {
      EXPECT_FLOAT_EQ(script.point(0).axis(axis), 0.025F * c.right.axis(axis));
    }
    EXPECT_TRUE(script.isSettled());
  }
}

TEST(PathView, EscapeTakesBackEveryDrag) {
  for (const PathToolTraits& traits : pathTools()) {
    PathScript script = inMidDrag(traits.tool);
    const PathResponse escaped = script.key(PathKey::Escape);
    EXPECT_TRUE(escaped.handled);
    script.move({10, 10});  // the button is still held
    script.release();
    EXPECT_EQ(script.now(), (PathSnapshot{tent(), {}}));
    EXPECT_EQ(script.selection(), (std::vector{0, 1, 2}));
    EXPECT_EQ(script.view.zoom(), 1.2F);
    EXPECT_EQ(script.view.pan(), Vec3{});
    EXPECT_FALSE(script.view.isRubberBand() || script.view.canUndo());
    EXPECT_TRUE(script.isSettled());
    EXPECT_FALSE(script.key(PathKey::Escape).handled);
  }
}

TEST(PathView, BackspaceRemovesWhatWasDrawn) {
  PathScript script;
  EXPECT_FALSE(script.key(PathKey::Backspace).handled);
  script.tool(PathTool::Draw);
  script.click({100, 100});
  script.click({200, 100});
  EXPECT_TRUE(script.key(PathKey::Backspace).pathChanged);
  EXPECT_EQ(script.count(), 1);
  script.key(PathKey::Backspace);
  EXPECT_FALSE(script.key(PathKey::Backspace).handled);
  script.view.undo();
  EXPECT_EQ(script.count(), 1);
}

// --- drags that are interrupted ----------------------------------------------

TEST(PathView, WhateverComesBetweenEndsADragAndKeepsIt) {
  const std::vector<std::function<void(PathScript&)>> interruptions{
      [](PathScript& s) { s.take(s.view.focusLost()); },
      [](PathScript& s) { s.take(s.view.setTool(PathTool::Draw)); },
      [](PathScript& s) { s.take(s.view.setAxisView(PathAxisView::Top)); },
      [](PathScript& s) { s.take(s.view.clearFlags()); },
      [](PathScript& s) { s.take(s.view.resetZoom()); },
      [](PathScript& s) {
        s.mouse.leftHeld = false;
        s.move({390, 114});
      },
  };
  for (std::size_t i = 0; i < interruptions.size(); ++i) {
    for (const PathToolTraits& traits : pathTools()) {
      PathScript script = inMidDrag(traits.tool);
      const PathRecord dragged = script.now().path;
      interruptions[i](script);
      EXPECT_TRUE(script.isSettled()) << i << " " << traits.step;
      EXPECT_FALSE(script.view.isRubberBand());
      EXPECT_EQ(script.view.canUndo(), dragged != tent());
      script.release();
      EXPECT_EQ(script.now().path, dragged) << i << " " << traits.step;
    }
  }
}

TEST(PathView, AResizeInMidDragLosesNothing) {
  PathScript script = inMidDrag(PathTool::Move);
  for (const std::int32_t side : {1, 2, 300, 4000}) {
    script.view.setSize(side, side);
    script.view.drawFrame();
    EXPECT_TRUE(script.view.isDragging());
  }
  script.view.setSize(800, 600, 2.0F);
  script.move({736, 228});
  script.release();
  EXPECT_NEAR(script.point(2).x, 0.7F, 1e-6F);
  EXPECT_TRUE(script.isSettled());
  script.view.undo();
  EXPECT_EQ(script.now(), (PathSnapshot{tent(), {}}));
}

TEST(PathView, ANewPathEndsTheDragAndItsHistory) {
  PathScript script = inMidDrag(PathTool::Scale);
  script.set(fullPath());
  script.release();
  EXPECT_EQ(script.now().path, fullPath());
  EXPECT_TRUE(script.isSettled());
  EXPECT_FALSE(script.view.canUndo());
  for (const PathTool tool : {PathTool::Draw, PathTool::Add}) {
    script.tool(tool);
    script.click({200, 150});
    EXPECT_EQ(script.count(), kMaxPathPoints);
    EXPECT_FALSE(script.view.canUndo());
  }
}

TEST(PathView, LoadingIsAStepAndItsPointsAreDragStarts) {
  const TemporaryFolder folder;
  PathScript script;
  script.set(tent());
  ASSERT_TRUE(script.view.save(folder.path() / "a"));
  script.set(fullPath());
  EXPECT_FALSE(script.view.load(folder.path() / "a"));
  EXPECT_EQ(script.now().path, fullPath());
  ASSERT_TRUE(script.view.load(folder.path() / "a.j2d"));
  EXPECT_EQ(script.now().path, tent());
  EXPECT_TRUE(script.isSettled());
  script.view.undo();
  EXPECT_EQ(script.now().path, fullPath());
  script.take(script.view.clearPath());
  EXPECT_EQ(script.count(), 0);
  script.view.undo();
  EXPECT_EQ(script.now().path, fullPath());
}

// --- undo --------------------------------------------------------------------

TEST(PathView, UndoInMidDragFirstTakesBackTheDrag) {
  PathScript script = inMidDrag(PathTool::Move);
  script.release();
  const PathSnapshot moved = script.now();
  script.press({368, 114});
  script.move({300, 20});
  EXPECT_TRUE(script.view.undo().pathChanged);
  EXPECT_EQ(script.now(), (PathSnapshot{tent(), {}}));
  EXPECT_EQ(script.selection(), (std::vector{0, 1, 2}));  // as when the drag began
  script.release();
  EXPECT_TRUE(script.isSettled());
  script.view.redo();
  EXPECT_EQ(script.now(), moved);
  EXPECT_FALSE(script.view.redo().pathChanged);
}

/// A gesture with whatever tool comes; ends with no button down.
void randomGesture(PathScript& script, std::mt19937& random) {
  const auto below = [&random](unsigned n) { return static_cast<std::int32_t>(random() % n); };
  const auto anywhere = [&] { return ScreenPoint{below(400), below(300)}; };
  script.take(script.view.setAxisView(static_cast<PathAxisView>(below(3))));
  script.view.setSnapEnabled(below(2) == 0);
  if (below(2) == 0) {
    script.selectAll();
    script.take(script.view.resetZoom());
  }
  const auto& tools = pathTools();
  PathTool tool = tools[random() % tools.size()].tool;
  if (tool == PathTool::Delete && below(3) > 0) {
    tool = PathTool::Move;  // else there is soon nothing left
  }
  if (tool == PathTool::Zoom || tool == PathTool::Delete) {
    script.key(static_cast<PathKey>(below(7)));
  }
  script.tool(tool);
  script.mouse.ctrl = below(8) == 0;
  ScreenPoint from = anywhere();
  if (script.count() > 0 && below(3) > 0) {
    const Vec3 on = script.view.path().screen(below(static_cast<unsigned>(script.count())));
    from = {static_cast<std::int32_t>(on.x), static_cast<std::int32_t>(on.y)};
  }
  script.press(from);
  script.move(anywhere());
  script.move(anywhere());
  script.release();
  script.mouse.ctrl = false;
}

TEST(PathView, UndoesAndRedoesRandomGestures) {
  for (unsigned seed = 0; seed < 4; ++seed) {
    std::mt19937 random(seed);
    PathScript script;
    script.set(tent());
    std::vector<PathSnapshot> states{script.now()};
    for (int i = 0; i < 60; ++i) {
      const PathSnapshot before = script.now();
      randomGesture(script, random);
      if (script.now() != before) {
        states.push_back(script.now());
      }
      ASSERT_TRUE(script.isSettled()) << seed << " " << i;
    }
    ASSERT_GT(states.size(), 10U);
    std::size_t undone = 0;
    for (; script.view.canUndo(); ++undone) {
      script.take(script.view.undo());
      ASSERT_TRUE(script.isSettled());
    }
    EXPECT_GE(undone + 1, states.size());  // a gesture may be a key and a drag
    EXPECT_EQ(script.now(), states.front());
    while (script.view.canRedo()) {
      script.take(script.view.redo());
    }
    EXPECT_EQ(script.now(), states.back());
  }
}

// --- hostile -----------------------------------------------------------------

TEST(PathView, SurvivesExtremeSizesPositionsAndPoints) {
  constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t side : {0, 1, 3, 300}) {
    PathScript script;
    script.view.setSize(side, side, side == 3 ? kNan : 1.0F);
    EXPECT_EQ(script.view.drawFrame().size(), std::size_t{1} * side * side);
    script.set(pathRecord({{0, 0, 0}, {kNan, 0, 0}, {kInf, -kInf, 0}, {3e38F, 0, kNan}}));
    const PathSnapshot start = script.now();
    for (const PathToolTraits& traits : pathTools()) {
      script.selectAll();
      script.tool(traits.tool);
      script.press({side / 2, side - side / 2});
      script.move({kFar, -kFar - 1});
      script.move({-kFar - 1, kFar});
      script.release();
      script.key(PathKey::Up);
      script.take(script.view.wheel(script.mouse, kInf));
      static_cast<void>(pathReadoutText(script.view.readout()));
      script.take(script.view.setAxisView(kAllPathViews[script.count() % 3]));
    }
    EXPECT_EQ(script.view.drawSegmentsFrame().size(), std::size_t{1} * side * side);
    while (script.view.canUndo()) {
      script.view.undo();
    }
    EXPECT_EQ(script.now(), start);
  }
}

TEST(PathView, WhatIsNotANumberIsNoChange) {
  PathScript script;
  script.set(pathRecord({{kNan, 0, 0}, {0, 0, 0}}));
  script.selectAll();
  script.drag({300, 20}, {310, 30});
  EXPECT_FALSE(script.view.canUndo());
  PathRecord spare = tent();
  spare.points[5].x = 1;
  EXPECT_EQ((PathSnapshot{spare, {}}), (PathSnapshot{tent(), {1}}));
}

// --- figures -----------------------------------------------------------------

TEST(PathView, ReadsOutTheSnappedPointerInTheViewsAxes) {
  PathScript script;
  script.set(tent());
  script.select({310, 104}, {330, 124});
  const auto text = [&] { return pathReadoutText(script.view.readout()); };
  script.move({323, 117});
  EXPECT_EQ(text(), "X 0.513  Y 0.183   3 of 512 points   1 selected   Zoom 120 %");
  script.view.setSnapEnabled(true);
  EXPECT_EQ(text(), "X 0.500  Y 0.200   3 of 512 points   1 selected   Zoom 120 %");
  script.view.setAxisView(PathAxisView::Top);
  EXPECT_EQ(text(),
            "X 0.500  Z \xE2\x88\x92"
            "0.200   3 of 512 points   1 selected   Zoom 120 %");
  script.view.setAxisView(PathAxisView::Side);
  script.move({201, 149});
  EXPECT_EQ(text(), "Z 0.000  Y 0.000   3 of 512 points   1 selected   Zoom 120 %");
  script.view.mouseLeave();
  EXPECT_EQ(text(), "3 of 512 points   1 selected   Zoom 120 %");
  EXPECT_EQ(pathReadoutText({PathTool::Draw, PathAxisView::Front, PathPosition{-0.0001F, -1e30F}}),
            "X 0.000  Y \xE2\x88\x92"
            "999999.000   0 of 512 points   0 selected   Zoom 100 %");
}

}  // namespace
}  // namespace pv
