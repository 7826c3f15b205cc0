#include "path/path_model.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <vector>

#include "path/path_file.h"
#include "util/files.h"
#include "util/temporary_folder.h"

namespace pv {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr PathAxisView kAllViews[] = {PathAxisView::Side, PathAxisView::Top, PathAxisView::Front};

PathRecord record(std::initializer_list<Vec3> points) {
  PathRecord path;
  for (const Vec3& point : points) {
    path.points[static_cast<std::size_t>(path.count++)] = point;
  }
  return path;
}

PathModel model(std::initializer_list<Vec3> points) {
  PathModel path;
  path.setPoints(record(points));
  return path;
}

/// 400 x 300 pixels at zoom 1.2: a unit is 240 across and 180 up.
PathViewport view(PathAxisView axes = PathAxisView::Front, Vec3 pan = {}) {
  return {400, 300, axes, 1.2F, pan};
}

void selectAll(PathModel& path, const PathViewport& v) {
  path.selectInRect(v, {-100000, -100000}, {100000, 100000}, PathSelection::Replace);
}

std::vector<int> selection(const PathModel& path) {
  std::vector<int> indices;
  for (int i = 0; i < path.getCount(); ++i) {
    if (path.isSelected(i)) {
      indices.push_back(i);
    }
  }
  return indices;
}

using Indices = std::vector<int>;

void expectNear(Vec3 a, Vec3 b) {
  EXPECT_NEAR(a.x, b.x, 1e-6F);
  EXPECT_NEAR(a.y, b.y, 1e-6F);
  EXPECT_NEAR(a.z, b.z, 1e-6F);
}

TEST(PathModel, ProjectsEachViewWithPanTruncated) {
  PathModel path = model({{0.5F, 0.25F, -0.125F}});
  const Vec3 pan{10.9F, -20.9F, 30.9F};
  const auto shown = [&](PathAxisView axes) {
    path.projectAll(view(axes, pan));
    return path.screen(0);
  };
  // Across: x 120, z -30; up: y 45, z -22.5, cut to whole pixels before the sum.
  EXPECT_EQ(shown(PathAxisView::Side), (Vec3{200 - 30 + 30, 150 - 45 - 20, 0}));
  EXPECT_EQ(shown(PathAxisView::Top), (Vec3{200 + 120 + 10, 150 - 22 + 30, 0}));
  EXPECT_EQ(shown(PathAxisView::Front), (Vec3{200 + 120 + 10, 150 - 45 - 20, 0}));
  // Integer centre, but halves of the size in the scale.
  path.projectAll({5, 5, PathAxisView::Front, 4.0F, {}});
  EXPECT_EQ(path.screen(0), (Vec3{2 + 5, 5 - (2 + 2), 0}));
}

TEST(PathModel, HitTestsReachAndOrder) {
  PathModel path = model({{0, 0, 0}, {0.5F, 0, 0}, {0, 0, 0}, {0.5F, 0.5F, 0}});
  path.projectAll(view());
  EXPECT_EQ(path.hitVertex({206, 144}), 2);
  EXPECT_EQ(path.hitVertex({194, 156}), 2);
  EXPECT_TRUE(path.vertexHover());
  EXPECT_EQ(path.hitSelectedVertex({206, 144}), -1);
  EXPECT_TRUE(path.vertexHover());
  EXPECT_EQ(path.hitVertex({207, 150}), -1);
  EXPECT_FALSE(path.vertexHover());
  EXPECT_EQ(path.hitVertex({200, 143}), -1);
  path.setSize(400, 300, 2.0F);
  EXPECT_EQ(path.hitVertex({212, 150}), 2);
  path.setSize(400, 300);

  EXPECT_EQ(path.hitSegment({260, 152}), 0);  // the second segment lies there too
  EXPECT_EQ(path.hitSegment({322, 100}), 2);  // in the box, far from the diagonal
  EXPECT_EQ(path.hitSegment({198, 148}), 0);
  EXPECT_EQ(path.hitSegment({323, 100}), -1);
  EXPECT_EQ(model({{0, 0, 0}}).hitSegment({0, 0}), -1);
}

TEST(PathModel, RectangleReplacesOrToggles) {
  PathModel path = model({{0, 0, 0}, {0.5F, 0, 0}, {1, 0, 0}});
  path.selectInRect(view(), {320, 150}, {200, 150}, PathSelection::Replace);  // edges count
  EXPECT_EQ(selection(path), (Indices{0, 1}));
  path.selectInRect(view(), {300, 0}, {500, 300}, PathSelection::Toggle);
  EXPECT_EQ(selection(path), (Indices{0, 2}));
  path.selectInRect(view(), {201, 0}, {319, 300}, PathSelection::Replace);
  EXPECT_EQ(selection(path), Indices{});
  EXPECT_EQ(path.screen(1).x, 320);
}

TEST(PathModel, MoveComputesFromTheDragStart) {
  const Vec3 start{0.5F, 0.25F, 0.125F};
  for (const auto axes : kAllViews) {
    PathModel path = model({start, start});
    path.selectInRect(view(axes), {0, 0}, {400, 300}, PathSelection::Replace);
    path.moveSelected(view(axes), 7, 7);
    path.moveSelected(view(axes), 60, 45);
    Vec3 expected = start;
    (axes == PathAxisView::Side ? expected.z : expected.x) += 0.25F;
    (axes == PathAxisView::Top ? expected.z : expected.y) +=
        axes == PathAxisView::Top ? 0.25F : -0.25F;
    expectNear(path.point(0), expected);
    EXPECT_EQ(path.startPoint(0), start);

    path.snapshotAndProjectSelected(view(axes));
    path.moveSelected(view(axes), -60, -45);
    expectNear(path.point(1), start);
  }
}

TEST(PathModel, ScaleIsAboutTheOrigin) {
  const Vec3 start{1, 2, 4};
  const auto scaled = [&](PathAxisView axes, PathScaleAxes which) {
    PathModel path = model({start});
    selectAll(path, view(axes));
    path.scaleSelected(view(axes), 80, -25, which);  // 52 pixels of 350 * 1.2 / 2
    return path.point(0);
  };
  const float grown = 1.0F + 52.0F / 210.0F;
  expectNear(scaled(PathAxisView::Side, PathScaleAxes::Both), {1, 2 * grown, 4 * grown});
  expectNear(scaled(PathAxisView::Side, PathScaleAxes::Horizontal), {1, 2, 4 * grown});
  expectNear(scaled(PathAxisView::Top, PathScaleAxes::Vertical), {1, 2, 4 * grown});
  expectNear(scaled(PathAxisView::Front, PathScaleAxes::Horizontal), {grown, 2, 4});
}

TEST(PathModel, DeleteKeepsTheRestTogether) {
  PathModel path = model({{0, 0, 0}, {0.25F, 0, 0}, {0.5F, 0, 0}, {0.75F, 0, 0}});
  path.selectInRect(view(), {255, 0}, {325, 300}, PathSelection::Replace);
  path.setHighlight(3, true);
  path.setHighlight(4, true);
  path.setHighlight(-1, true);
  path.deleteSelected();
  EXPECT_EQ(path.getRecord(), record({{0, 0, 0}, {0.75F, 0, 0}}));
  EXPECT_EQ(path.startPoint(1).x, 0.75F);
  EXPECT_EQ(path.screen(1).x, 380);
  EXPECT_TRUE(path.isHighlighted(1) && !path.isHighlighted(0));
  EXPECT_EQ(selection(path), Indices{});
  selectAll(path, view());
  path.deleteSelected();
  EXPECT_EQ(path.getCount(), 0);
}

TEST(PathModel, InsertHalvesASegment) {
  PathModel path = model({{0, 0, 0}, {1, 2, 4}, {3, 3, 3}});
  selectAll(path, view());
  EXPECT_FALSE(path.insertAfter(2));
  EXPECT_FALSE(path.insertAfter(-1));
  EXPECT_TRUE(path.insertAfter(0));
  EXPECT_EQ(path.getRecord(), record({{0, 0, 0}, {0.5F, 1, 2}, {1, 2, 4}, {3, 3, 3}}));
  EXPECT_EQ(path.startPoint(1), path.point(1));
  EXPECT_EQ(path.startPoint(3), path.point(3));
  EXPECT_EQ(selection(path), Indices{0});
}

TEST(PathModel, AppendLandsUnderTheMouseButMirroredFromAbove) {
  const Vec3 pan{13, -7, 5};
  for (const auto axes : kAllViews) {
    PathModel path;
    std::vector<std::uint32_t> pixels(std::size_t{400} * 300);
    RasterCanvas canvas(pixels.data(), 400, 300);
    const PathViewport v = view(axes, pan);
    path.setNextVertexFromMouse(v, {260, 60});
    ASSERT_TRUE(path.appendAt(v));
    path.drawRubberBand(canvas, v, {100, 250});
    EXPECT_EQ(path.lastMouse(), (PixelPoint{100, 50}));
    ASSERT_TRUE(path.appendAt(v));
    path.projectAll(v);
    const auto shownY = [&](float y) {
      const float centre = 150 + v.pan.axis(v.verticalAxis());
      return axes == PathAxisView::Top ? 2 * centre - y : y;
    };
    EXPECT_NEAR(path.screen(0).x, 260, 1);
    EXPECT_NEAR(path.screen(0).y, shownY(60), 1);
    EXPECT_NEAR(path.screen(1).x, 100, 1);
    EXPECT_NEAR(path.screen(1).y, shownY(250), 1);
    EXPECT_EQ(path.startPoint(1), path.point(1));
  }
}

TEST(PathModel, RefusesThePointAfterTheLast) {
  PathModel path;
  for (int i = 0; i < kMaxPathPoints; ++i) {
    ASSERT_TRUE(path.appendAt(view()));
  }
  EXPECT_FALSE(path.appendAt(view()));
  EXPECT_FALSE(path.insertAfter(0));
  EXPECT_EQ(path.getCount(), kMaxPathPoints);

  PathRecord hostile;
  hostile.count = 100000;
  path.setPoints(hostile);
  EXPECT_EQ(path.getCount(), kMaxPathPoints);
  hostile.count = -5;
  path.setPoints(hostile);
  EXPECT_EQ(path.getCount(), 0);
}

TEST(PathModel, SnapRoundsHalvesAwayFromTheCentre) {
  PathModel path;
  const auto snapped = [&](std::int32_t x, std::int32_t y) {
    return path.snapPoint(view(PathAxisView::Front, {50, 50, 50}), {x, y});
  };
  path.setSnapEnabled(true);
  EXPECT_EQ(snapped(211, 7), (ScreenPoint{211, 7}));  // no divisions chosen yet
  path.setSnapDivisions(10);                          // cells of 24 x 18
  EXPECT_EQ(snapped(211, 158), (ScreenPoint{200, 150}));
  EXPECT_EQ(snapped(212, 159), (ScreenPoint{224, 168}));
  EXPECT_EQ(snapped(188, 141), (ScreenPoint{176, 132}));
  EXPECT_EQ(snapped(189, 142), (ScreenPoint{200, 150}));
  path.setSnapDivisions(40);  // 6 x 4.5
  EXPECT_EQ(snapped(203, 152), (ScreenPoint{206, 150}));
  path.setSnapEnabled(false);
  EXPECT_EQ(snapped(203, 152), (ScreenPoint{203, 152}));

  path.setSnapEnabled(true);
  EXPECT_EQ(path.snapPoint({0, 0, PathAxisView::Front, 1.0F, {}}, {3, 4}), (ScreenPoint{3, 4}));
  EXPECT_EQ(path.snapPoint({9, 9, PathAxisView::Front, kNan, {}}, {3, 4}), (ScreenPoint{3, 4}));
}

TEST(PathModel, LoadLeavesTheDragStartAndABadFileEverything) {
  const TemporaryFolder folder;
  PathModel path = model({{1, 1, 1}, {2, 2, 2}});
  selectAll(path, view());
  ASSERT_TRUE(path.save(folder.path() / "a"));

  PathModel other = model({{5, 5, 5}});
  selectAll(other, view());
  auto bytes = encodePathFile(path.getRecord());
  bytes[0] = std::byte{0x35};
  ASSERT_TRUE(writeFile(folder.path() / "bad", bytes));
  const auto refused = other.load(folder.path() / "bad");
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().kind, ErrorKind::BadData);
  EXPECT_EQ(other.getRecord(), record({{5, 5, 5}}));
  EXPECT_EQ(selection(other), Indices{0});

  ASSERT_TRUE(other.load(folder.path() / "a.j2d"));
  EXPECT_EQ(other.getRecord(), path.getRecord());
  EXPECT_EQ(selection(other), Indices{});
  EXPECT_EQ(other.startPoint(0), (Vec3{5, 5, 5}));
}

TEST(PathModel, SurvivesWhatIsNotANumberAndAbsurdViews) {
  PathModel path = model({{0, 0, 0}, {kNan, 0, 0}, {kInf, -kInf, 0}, {3e38F, 3e38F, kNan}});
  std::vector<std::uint32_t> pixels(64);
  RasterCanvas canvas(pixels.data(), 8, 8);
  constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();
  path.setSize(8, 8, kNan);
  path.setSnapEnabled(true);
  path.setSnapDivisions(10);
  for (const auto axes : kAllViews) {
    for (const float zoom : {1.2F, 0.0F, -1.0F, 1e30F, kInf, kNan}) {
      for (const std::int32_t size : {8, 0, -3, 1, kHuge}) {
        const PathViewport v{size, size, axes, zoom, {kNan, kInf, -kInf}};
        path.draw(canvas, v);
        path.drawRubberBand(canvas, v, {kHuge, -kHuge - 1});
        PathModel::drawSelectionRect(canvas, {kHuge, -kHuge}, {-kHuge, kHuge});
        static_cast<void>(path.hitVertex({kHuge, -kHuge}));
        static_cast<void>(path.hitSegment({-kHuge, kHuge}));
        static_cast<void>(path.snapPoint(v, {kHuge, -kHuge - 1}));
        path.setNextVertexFromMouse(v, {kHuge, -kHuge});
        selectAll(path, v);
        PathModel edited = path;
        edited.scaleSelected(v, kHuge, -kHuge, PathScaleAxes::Both);
        edited.moveSelected(v, kHuge, -kHuge - 1);
        edited.appendAt(v);
        edited.insertAfter(1);
        edited.draw(canvas, v);
      }
    }
  }
  // A point is lost only in the views that show its missing coordinate.
  path.projectAll(view(PathAxisView::Side));
  EXPECT_EQ(path.screen(1).x, 200);
  EXPECT_TRUE(std::isnan(path.screen(3).x));
  path.projectAll(view());
  EXPECT_TRUE(std::isnan(path.screen(1).x));
  EXPECT_EQ(path.hitSegment({200, 150}), -1);
}

}  // namespace
}  // namespace pv
