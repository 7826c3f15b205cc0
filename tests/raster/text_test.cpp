#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string_view>
#include <utility>

#include "raster/bitmap_font.h"
#include "raster/board.h"

namespace pv {
namespace {

// First and last row with a dot in it.
std::pair<int, int> extentOf(char character) {
  const Glyph& glyph = glyphOf(static_cast<unsigned char>(character));
  const auto inked = [](std::uint8_t row) { return row != 0; };
  return {std::find_if(glyph.begin(), glyph.end(), inked) - glyph.begin(),
          glyph.rend() - std::find_if(glyph.rbegin(), glyph.rend(), inked) - 1};
}

TEST(Font, EveryGlyphIsItsOwnAndKeepsInsideItsCell) {
  std::set<Glyph> seen;
  for (int code = 0; code < 256; ++code) {
    const Glyph& glyph = glyphOf(static_cast<unsigned char>(code));
    if (code <= 32 || code > 126) {
      EXPECT_EQ(glyph, Glyph{}) << code;
      continue;
    }
    EXPECT_NE(glyph, Glyph{}) << code;
    EXPECT_TRUE(seen.insert(glyph).second) << code << " looks like another";
    EXPECT_EQ(glyph[0], 0) << code;
    for (const std::uint8_t row : glyph) {
      EXPECT_EQ(row & 1, 0) << code;
    }
  }
}

TEST(Font, LettersStandOnOneLine) {
  for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789bdfhkl")) {
    EXPECT_EQ(extentOf(c), std::pair(1, 10)) << c;
  }
  for (const char c : std::string_view("acemnorsuvwxz")) {
    EXPECT_EQ(extentOf(c), std::pair(4, 10)) << c;
  }
  for (const char c : std::string_view("gpqy")) {
    EXPECT_EQ(extentOf(c), std::pair(4, 13)) << c;
  }
}

TEST(Text, StandsOnItsRowAtEveryScale) {
  Board board(8, 15);
  board.canvas.textScale = 0;
  board.canvas.text(0, 0, "L");
  board.canvas.textScale = -2;
  board.canvas.text(0, 0, "L");
  EXPECT_EQ(board.picture(), Picture(15, "........"));
  board.canvas.textScale = 1;
  board.canvas.text(0, 0, "\xE4L");
  board.canvas.text(-8, 0, "\xE4L");
  for (int row = 0; row < kGlyphHeight; ++row) {  // picture row 0 lies above the cell
    const auto index = static_cast<std::size_t>(row);
    EXPECT_EQ(board.picture()[index + 1], row < 1 || row > 10 ? "........"
                                          : row < 10          ? ".#......"
                                                              : ".######.");
  }

  Board large(7, 5);  // the lowest two rows of dots of a bracket
  large.canvas.textScale = 2;
  large.canvas.text(-4, -2, "[");
  EXPECT_EQ(large.picture(), Picture({".......", "##.....", "##.....", "######.", "######."}));
}

TEST(Text, BlocksAtTheFarEdgesAreSkipped) {
  Board board(7, 13);
  board.canvas.text(0, 0, "_|");  // column 6 and row 12 are one too far
  board.canvas.text(-1, 0, "|");
  Picture expected(13, "..#....");
  expected[0] = ".......";
  expected[11] = "######.";
  expected[12] = ".......";
  EXPECT_EQ(board.picture(), expected);
}

}  // namespace
}  // namespace pv
