#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <utility>

#include "raster/board.h"
#include "raster/line_walk.h"

namespace pv {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(Fills, BoxesAreHalfOpenAndTheFilledOneMayBeDropped) {
  Board board(6, 4);
  board.canvas.fillRectangle(1, 3, 4, 1, 0xFFFFFF);
  board.canvas.fillRectangle(4, kMax, kMax, 2, 0xFFFFFF);
  board.canvas.fillRectangle(3, 3, 1, 1, 0);  // crossed corners: empty
  board.canvas.fillRectangle(1, 1, 3, 3, 0);
  EXPECT_EQ(board.picture(), Picture({"....##", ".#####", ".###..", "......"}));

  Board boxes(4, 3);
  boxes.canvas.filledBox(1, 4, 3, 1);    // y1 above the canvas
  boxes.canvas.filledBox(1, 2, 3, -1);   // y2 below it
  boxes.canvas.filledBox(5, 2, 9, 0);    // x1 right of it
  boxes.canvas.filledBox(-5, 2, -1, 0);  // x2 left of it
  boxes.canvas.filledBox(-7, 3, 2, 2);
  boxes.canvas.orderedFilledBox(9, 0, 2, 1);
  EXPECT_EQ(boxes.picture(), Picture({"##..", "....", "..##"}));
}

TEST(Fills, BevelConvertsItsColoursAndClipsEachEdge) {
  Board board(5, 4);
  board.canvas.bevelFrame(0, 3, 4, 0, 0xFFFFFF, 0x112233);
  EXPECT_EQ(board.picture(), Picture({"#####", "?...#", "?...#", "????#"}));
  EXPECT_EQ(board.at(0, 0), 0xFF332211U);

  Board clipped(5, 4);
  clipped.canvas.bevelFrame(-3, 9, 2, 1, 0xFFFFFF, 0xFFFFFF);
  EXPECT_EQ(clipped.picture(), Picture({"..#..", "..#..", "###..", "....."}));
}

TEST(Dots, SizesAndEdges) {
  Board board(7, 5);
  board.canvas.squareDot(1, 1, 0.5F);
  board.canvas.squareDot(3, 3, 0.0F);
  board.canvas.squareDot(3, 3, -2.0F);
  board.canvas.squareDot(3, 3, std::nanf(""));
  board.canvas.squareDot(4, 3, 1.0F);
  EXPECT_EQ(board.picture(), Picture({".......", "...##..", "...##..", ".#.....", "......."}));

  Board edges(4, 3);  // the additive pixel is refused at x = width and y = height
  edges.canvas.additiveSquareDot(4, 1, 0.5F);
  edges.canvas.additiveSquareDot(1, 3, 0.5F);
  edges.canvas.additiveSquareDot(-1, 1, 0.5F);
  edges.canvas.squareDot(0, 0, 1.5F);  // -1.5 and 1.5 truncate to -1 and 1
  EXPECT_EQ(edges.picture(), Picture({"....", "....", "#..."}));
  edges.canvas.squareDot(kMin, kMax, kInfinity);
  EXPECT_EQ(edges.picture(), Picture({"####", "####", "####"}));
}

TEST(Dots, AddingSaturates) {
  Board board(3, 3);
  board.canvas.setColour(0x808080);
  board.canvas.additiveSquareDot(1, 1, 0.5F);
  EXPECT_EQ(board.at(1, 1), 0xFF808080U);
  board.canvas.additiveSquareDot(1, 1, 0.5F);
  EXPECT_EQ(board.at(1, 1), 0xFFFFFFFFU);
  board.at(0, 0) = 0xFF404040U;
  board.canvas.additiveSquareDot(0, 0, 1.0F);
  EXPECT_EQ(board.at(0, 0), 0xFFC0C0C0U);
}

// The walk as books print it: of the three next pixels the one nearest to the
// true circle.
template <typename Visit>
void plainWalk(int radius, Visit visit) {
  int x = 0;
  int y = radius;
  int error = 2 * (1 - radius);
  while (y >= 0) {
    visit(x, y);
    const bool across = error < 0 && 2 * error + 2 * y - 1 <= 0;
    const bool down = error > 0 && 2 * error - 2 * x - 1 > 0;
    x += down ? 0 : 1;
    y -= across ? 0 : 1;
    error = (x + 1) * (x + 1) + (y - 1) * (y - 1) - radius * radius;
  }
}

TEST(Circles, Pictures) {
  Board disc(7, 7);
  disc.canvas.filledDisc(3, 3, 3.9F);  // a radius of 3
  EXPECT_EQ(disc.picture(),
            Picture({"..##...", ".####..", "######.", "######.", "######.", ".####..", "..##..."}));
  Board ring(7, 7);
  ring.canvas.thickness = 2;
  ring.canvas.ring(3, 3, 3);
  ring.canvas.circle(0, 0, 0);
  ring.canvas.circle(3, 3, -1);
  EXPECT_EQ(ring.picture(),
            Picture({"..###..", ".#####.", "##...##", "##...##", "##...##", ".#####.", "#.###.."}));
}

TEST(Circles, EqualThePlainWalkWhereverTheyLie) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> place(-60, 90);
  for (int radius = 0; radius < 150; ++radius) {
    const int x = place(random);
    const int y = place(random);
    Board expectedCircle(37, 29);
    Board expectedDisc(37, 29);
    plainWalk(radius, [&](int dx, int dy) {
      for (const int row : {y - dy, y + dy}) {
        expectedCircle.canvas.squareDot(x - dx, row, 0.5F);
        expectedCircle.canvas.squareDot(x + dx, row, 0.5F);
        expectedDisc.canvas.line(x - dx, row, x + dx, row);
      }
    });
    Board circle(37, 29);
    circle.canvas.circle(x, y, radius);
    ASSERT_TRUE(circle == expectedCircle) << x << ' ' << y << ' ' << radius;
    Board disc(37, 29);
    disc.canvas.filledDisc(x, y, static_cast<float>(radius));
    ASSERT_TRUE(disc == expectedDisc) << x << ' ' << y << ' ' << radius;

    Board glow(37, 29);  // one helping of light a pixel, none twice
    glow.canvas.setColour(0x808080);
    glow.canvas.additiveDisc(x, y, static_cast<float>(radius));
    std::replace(&expectedDisc.at(0, 0), &expectedDisc.at(37, 28), 0xFFFFFFFFU, 0xFF808080U);
    ASSERT_TRUE(glow == expectedDisc) << x << ' ' << y << ' ' << radius;
  }
}

TEST(Circles, HugeOnesEndAndStillShow) {
  Board board(4, 3);
  board.canvas.filledDisc(1, 1, std::nanf(""));
  board.canvas.circle(1, 1, kMax);
  board.canvas.filledDisc(kMax, 1, 2147480000.0F);
  EXPECT_EQ(board.picture(), Picture({"....", "....", "...."}));
  board.canvas.circle(-2000000000, 1, 2000000002);
  EXPECT_EQ(board.picture(), Picture({"..#.", "..#.", "..#."}));
  board.canvas.thickness = kMax;
  board.canvas.ring(kMin + 9, 1, kMax - 6);
  EXPECT_EQ(board.picture(), Picture({"###.", "###.", "###."}));
  board.canvas.filledDisc(1, 1, kInfinity);
  EXPECT_EQ(board.picture(), Picture({"####", "####", "####"}));
}

TEST(Lines, EndsAndTies) {
  Board board(6, 4);
  board.canvas.line(3, 3, 3, 3);  // nothing
  board.canvas.line(5, 3, 3, 3);  // right end left out
  board.canvas.line(0, 2, 1, 3);
  board.canvas.line(0, 0, 2, 1);  // error 0 at once: steps up
  board.canvas.line(5, 0, 5, 2);
  EXPECT_EQ(board.picture(), Picture({".#.##.", "#....#", ".##..#", "#....#"}));
}

TEST(Lines, ClippedOnceAnAxis) {
  Board board(6, 4);
  board.canvas.line(-40, -10, 30, 90);  // both axes, still outside
  board.canvas.line(-9, 5, 9, 6);
  board.canvas.line(-4, -5, -1, 9);
  EXPECT_EQ(board.picture(), Picture({"......", "......", "......", "......"}));
  board.canvas.line(-3, 2, 0, 3);   // a single pixel once clipped, yet drawn
  board.canvas.line(0, 2, 99, -9);  // the end moves to y = -9 + 10 and is inside
  board.canvas.line(5, 3, 5, 99);
  EXPECT_EQ(board.picture(), Picture({"#....#", "###...", "...###", "......"}));
}

// The pixels between two points of the canvas, each placed singly.
void plainWalkAlong(Board& board, std::int64_t x, std::int64_t y, std::int64_t endX,
                    std::int64_t endY) {
  const std::int64_t dx = endX - x;
  const std::int64_t dy = std::abs(endY - y);
  const std::int64_t up = endY > y ? 1 : -1;
  std::int64_t error = 2 * std::min(dx, dy) - std::max(dx, dy);
  for (std::int64_t left = std::max(dx, dy); left > 0; --left) {
    board.at(x, y) = 0xFFFFFFFFU;
    const bool both = error >= 0;
    error += 2 * std::min(dx, dy) - (both ? 2 * std::max(dx, dy) : 0);
    x += both || dx >= dy ? 1 : 0;
    y += both || dy > dx ? up : 0;
  }
  board.at(endX, endY) = 0xFFFFFFFFU;
}

// Not for lines that are given flat.
void plainLine(Board& board, std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2) {
  const std::int64_t right = board.canvas.width - 1;
  const std::int64_t top = board.canvas.height - 1;
  if (x1 > x2) {
    std::swap(x1, x2);
    std::swap(y1, y2);
  }
  if (x2 < 0 || std::max(y1, y2) < 0 || x1 > right || std::min(y1, y2) > top) {
    return;
  }
  if (x1 < 0) {
    y1 += (y2 - y1) * (0 - x1) / (x2 - x1);
    x1 = 0;
  } else if (x2 > right) {
    y2 += (y2 - y1) * (right - x2) / (x2 - x1);
    x2 = right;
  }
  const bool low = y1 < 0 || y2 < 0;
  if (y1 != y2 && (low || y1 > top || y2 > top)) {
    const std::int64_t edge = low ? 0 : top;
    const bool first = low ? y1 < 0 : y1 > top;
    const std::int64_t moved = (x2 - x1) * (edge - (first ? y1 : y2)) / (y2 - y1);
    (first ? x1 : x2) += moved;
    (first ? y1 : y2) = edge;
  }
  if (std::min({x1, x2, y1, y2}) >= 0 && std::max(x1, x2) <= right && std::max(y1, y2) <= top) {
    plainWalkAlong(board, x1, y1, x2, y2);
  }
}

TEST(Lines, EqualThePlainOnes) {
  std::mt19937 random(3);
  constexpr std::array<std::int32_t, 4> kReaches = {2, 12, 60, kMax - 1};
  for (int round = 0; round < 30000; ++round) {
    std::array<std::int32_t, 4> ends{};
    for (std::int32_t& value : ends) {
      const std::int32_t reach = kReaches[random() % kReaches.size()];
      value = std::uniform_int_distribution<std::int32_t>(-reach, reach)(random);
    }
    ends[3] += ends[3] == ends[1] ? 1 : 0;
    Board board(11, 7);
    Board expected(11, 7);
    board.canvas.line(ends[0], ends[1], ends[2], ends[3]);
    plainLine(expected, ends[0], ends[1], ends[2], ends[3]);
    ASSERT_TRUE(board == expected) << ends[0] << ' ' << ends[1] << ' ' << ends[2] << ' ' << ends[3];
  }
}

// Every slope of many lengths, the longest included, against error sums.
TEST(Lines, WalksOfEverySlope) {
  constexpr std::int64_t kWidth = 10'000;
  for (const std::int64_t steps : {15, 16, 17, 97, 128, 255, 256, 1021, 4095, 8191, 8192, 8193}) {
    for (std::int64_t drift = 0; drift <= steps; drift += 1 + steps / 600) {
      std::int64_t wanted = 0;
      std::int64_t error = 2 * drift - steps;
      std::int64_t wrong = 0;
      walkLine({0, 0, steps, drift}, kWidth, [&](std::int64_t pixel) {
        wrong += pixel == wanted ? 0 : 1;
        wanted += 1 + (error >= 0 ? kWidth : 0);
        error += 2 * drift - (error >= 0 ? 2 * steps : 0);
      });
      ASSERT_EQ(wrong, 0) << drift << " in " << steps;
    }
  }
}

TEST(Lines, CursorFollows) {
  Board board(5, 4);
  constexpr std::array<PixelPoint, 3> kBend = {{{0, 0}, {0, 3}, {3, 3}}};
  board.canvas.polyline(kBend);
  EXPECT_EQ(PixelPoint({board.canvas.cursorX, board.canvas.cursorY}), kBend.back());
  board.canvas.polyline({});
  board.canvas.lineTo(4, 2);
  EXPECT_EQ(board.picture(), Picture({"####.", "#...#", "#....", "#...."}));
  board.canvas.triangle({1, 0}, {3, 0}, {3, 2});
  EXPECT_EQ(PixelPoint({board.canvas.cursorX, board.canvas.cursorY}), PixelPoint({1, 0}));
  EXPECT_EQ(board.picture(), Picture({"####.", "#..##", "#.##.", "####."}));
}

TEST(Canvas, SurvivesAnyArgument) {
  constexpr auto kWhole = std::to_array<std::int32_t>(
      {kMin, kMin + 1, -1 << 30, -70000, -1, 0, 1, 7, 8, 1 << 16, 1 << 30, kMax - 1, kMax});
  constexpr auto kReal = std::to_array<float>({std::numeric_limits<float>::quiet_NaN(), -kInfinity,
                                               -1.0F, 0.0F, 0.5F, 1.0F, 7.5F, 4e9F, kInfinity});
  std::mt19937 random(11);
  const auto whole = [&] { return kWhole[random() % kWhole.size()]; };
  const auto real = [&] { return kReal[random() % kReal.size()]; };
  for (int round = 0; round < 4000; ++round) {
    // Every fifth canvas is empty.
    Board board(round % 5 == 0 ? 0 : 8, 7);
    RasterCanvas& canvas = board.canvas;
    canvas.thickness = whole();
    canvas.textScale = whole();
    canvas.fillRectangle(whole(), whole(), whole(), whole(), 0x123456);
    canvas.filledBox(whole(), whole(), whole(), whole());
    canvas.orderedFilledBox(whole(), whole(), whole(), whole());
    canvas.bevelFrame(whole(), whole(), whole(), whole(), 1, 2);
    canvas.squareDot(whole(), whole(), real());
    canvas.additiveSquareDot(whole(), whole(), real());
    canvas.filledDisc(whole(), whole(), real());
    canvas.additiveDisc(whole(), whole(), real());
    canvas.circle(whole(), whole(), whole());
    canvas.ring(whole(), whole(), whole());
    canvas.triangle({whole(), whole()}, {whole(), whole()}, {whole(), whole()});
    canvas.text(whole(), whole(), "\xFF~{Qg");
  }
  RasterCanvas nothing(nullptr, -4, 5);
  nothing.clear(0);
  nothing.line(-1, -1, 1, 1);
  EXPECT_EQ(nothing.width, 0);
}

}  // namespace
}  // namespace pv
