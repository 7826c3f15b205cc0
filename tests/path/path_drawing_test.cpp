#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

#include "path/path_grid.h"
#include "path/path_model.h"

namespace pv {
namespace {

constexpr std::uint32_t kBackground = 0xFF606060;

/// 200 x 100 pixels.
class PathDrawing : public ::testing::Test {
 protected:
  PathDrawing() : pixels_(std::size_t{200} * 100), canvas_(pixels_.data(), 200, 100) {
    canvas_.clear(kBackground);
    path_.setSize(200, 100);
  }

  /// Colour at a drawing position, y up.
  [[nodiscard]] std::uint32_t at(int x, int y) const {
    return pixels_[static_cast<std::size_t>(y * 200 + x)] & 0xFFFFFFU;
  }
  [[nodiscard]] std::size_t count(std::uint32_t rgb) const {
    return static_cast<std::size_t>(std::count(pixels_.begin(), pixels_.end(), rgb | 0xFF000000U));
  }
  void set(std::initializer_list<Vec3> points) {
    PathRecord record;
    for (const Vec3& point : points) {
      record.points[static_cast<std::size_t>(record.count++)] = point;
    }
    path_.setPoints(record);
  }

  std::vector<std::uint32_t> pixels_;
  RasterCanvas canvas_;
  PathModel path_;
  PathViewport view_{200, 100, PathAxisView::Front, 1.0F, {}};
};

TEST_F(PathDrawing, GridLinesLieWhereTheirPointsAreDrawn) {
  view_.zoom = 0.5F;
  view_.pan = {20, 10, 0};
  drawPathGrid(canvas_, view_);
  // The origin is at (120, 40); a unit reaches 50 across and 25 up.
  EXPECT_EQ(at(120, 30), 0x999999U);
  EXPECT_EQ(at(71, 40), 0x999999U);
  EXPECT_EQ(at(145, 39), 0x545454U);
  EXPECT_EQ(at(95, 39), 0x545454U);
  EXPECT_EQ(at(146, 52), 0x545454U);  // 12.5 up, cut
  EXPECT_EQ(at(70, 39), 0x333333U);
  EXPECT_EQ(at(170, 39), 0x333333U);
  EXPECT_EQ(at(146, 65), 0x333333U);
  EXPECT_EQ(at(146, 15), 0x333333U);
  EXPECT_EQ(at(171, 40), 0x606060U);
  EXPECT_EQ(at(120, 66), 0x606060U);

  // A grid that is larger than the view shows in all of it.
  canvas_.clear(kBackground);
  view_.zoom = 5.0F;
  view_.pan = {};
  drawPathGrid(canvas_, view_);
  EXPECT_EQ(at(100, 0), 0x999999U);
  EXPECT_EQ(at(100, 99), 0x999999U);
  EXPECT_EQ(at(0, 50), 0x999999U);
  EXPECT_EQ(at(199, 50), 0x999999U);
  EXPECT_EQ(at(150, 99), 0x333333U);
}

TEST_F(PathDrawing, MarkersTellFirstSelectedAndHovered) {
  set({{-0.55F, 0, 0}, {0.05F, 0.55F, 0}, {0.55F, 0.05F, 0}});
  path_.setHighlight(1, true);
  path_.selectInRect(view_, {150, 0}, {160, 99}, PathSelection::Replace);
  path_.draw(canvas_, view_);
  EXPECT_EQ(count(0x0088FF), 25U);
  EXPECT_EQ(count(0x880000), 25U);
  EXPECT_EQ(count(0xFF0433), 49U);
  EXPECT_EQ(at(43, 48), 0x0088FFU);  // 5 x 5 around (45, 50)
  EXPECT_EQ(at(47, 52), 0x0088FFU);
  EXPECT_EQ(at(152, 49), 0xFF0433U);  // 7 x 7 around (155, 52)
  EXPECT_EQ(at(158, 55), 0xFF0433U);
  EXPECT_GT(count(0xFFFFFF), 40U);
  EXPECT_GT(count(0xFF0000), 40U);

  EXPECT_EQ(path_.hitVertex({45, 50}), 0);  // where it was drawn
  path_.setSize(200, 100, 2.0F);
  path_.draw(canvas_, view_);
  EXPECT_EQ(count(0xBCFF06), 14U * 14U);
  EXPECT_EQ(count(0x0088FF), 100U);
}

TEST_F(PathDrawing, NothingBeforeTheFirstSizeAndNoSegmentToAMissingPoint) {
  set({{-0.5F, 0, 0}, {std::numeric_limits<float>::quiet_NaN(), 0, 0}, {0.55F, 0.25F, 0}});
  PathModel unsized;
  unsized.setPoints(path_.getRecord());
  unsized.draw(canvas_, view_);
  EXPECT_EQ(count(0x606060), pixels_.size());
  path_.draw(canvas_, view_);
  EXPECT_EQ(count(0xFFFFFF), 0U);
  EXPECT_EQ(count(0x0088FF) + count(0x880000), 50U);
}

TEST_F(PathDrawing, OutlineAndRubberBand) {
  PathModel::drawSelectionRect(canvas_, {20, 10}, {60, 30});
  for (const auto& [x, y] : {std::pair{20, 90}, {60, 90}, {20, 70}, {60, 70}, {40, 90}, {20, 80}}) {
    EXPECT_EQ(at(x, y), 0x900000U) << x << "," << y;
  }
  EXPECT_EQ(count(0x900000), 2U * 41 + 2U * 19);

  canvas_.clear(kBackground);
  canvas_.setColour(0xABCDEF);
  view_.pan = {4, 3, 0};
  path_.drawRubberBand(canvas_, view_, {150, 20});
  EXPECT_EQ(count(0x606060), pixels_.size());  // no point to draw from
  EXPECT_EQ(path_.nextVertexPixel(), PixelPoint{});
  set({{0, 0, 0}});
  path_.drawRubberBand(canvas_, view_, {150, 20});
  EXPECT_EQ(path_.nextVertexPixel(), (PixelPoint{146, 83}));
  EXPECT_EQ(at(104, 47), 0xABCDEFU);
  EXPECT_EQ(at(150, 80), 0xABCDEFU);
  EXPECT_EQ(path_.screen(0), (Vec3{104, 53, 0}));
}

}  // namespace
}  // namespace pv
