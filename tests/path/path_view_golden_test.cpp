#include <gtest/gtest.h>

#include "path/path_view_script.h"
#include "support/golden.h"

namespace pv {
namespace {

PathRecord goblet() {
  return pathRecord({{0.3F, -0.6F, 0.1F},
                     {0.05F, -0.55F, 0.2F},
                     {0.05F, -0.2F, 0.25F},
                     {0.3F, 0, -0.3F},
                     {0.4F, 0.5F, -0.45F}});
}

TEST(PathGolden, SelectingInTheFrontView) {
  PathScript script;
  script.set(goblet());
  script.select({250, 40}, {310, 160});
  script.press({150, 130});
  script.move({285, 270});
  EXPECT_TRUE(matchesGolden(script.view.drawFrame(), 400, 300, "path-select"));
}

TEST(PathGolden, DrawingWithSnapOnADenseScreen) {
  PathScript script(PathAxisView::Side, 2.0F);
  script.set(goblet());
  script.selectAll();
  script.take(script.view.wheel({{400, 300}}, 3));
  script.view.setSnapEnabled(true);
  script.tool(PathTool::Draw);
  script.move({233, 165});
  EXPECT_TRUE(matchesGolden(script.view.drawFrame(), 800, 600, "path-draw"));
}

TEST(PathGolden, InsertingInThePannedTopView) {
  PathScript script(PathAxisView::Top);
  script.set(goblet());
  script.press({0, 0}, PathMouseButton::Middle);
  script.move({-40, 30});
  script.release(PathMouseButton::Middle);
  script.tool(PathTool::Add);
  script.move({200, 180});
  EXPECT_EQ(script.view.hoveredSegment(), 2);
  EXPECT_TRUE(matchesGolden(script.view.drawFrame(), 400, 300, "path-insert"));
}

TEST(PathGolden, HoveredSelectionAndTheLighterFrame) {
  PathScript script;
  script.set(goblet());
  script.selectAll();
  script.tool(PathTool::Move);
  script.move({272, 150});
  EXPECT_TRUE(matchesGolden(script.view.drawFrame(), 400, 300, "path-hover"));
  EXPECT_TRUE(matchesGolden(script.view.drawSegmentsFrame(), 400, 300, "path-segments"));
}

}  // namespace
}  // namespace pv
