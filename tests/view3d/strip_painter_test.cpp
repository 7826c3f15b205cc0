// One painter that is kept from frame to frame and gets its pieces in any order,
// as they come to a thread, against a new one that takes them in turn.
#include "view3d/strip_painter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

#include "reference/random_shapes.h"
#include "view3d/vector_form_choice.h"
#include "view3d/wire_mask.h"

namespace pv {
namespace {

using reference::Dice;

constexpr int kFrames = kIsWatched ? 10 : 100;

struct Piece {
  Strip strip;
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// All of them, cut as several threads would share them.
std::vector<Piece> piecesOf(const ShapeColumns& shape) {
  constexpr std::size_t kAdvance = VertexBlock::kCapacity - VertexBlock::kStep;
  std::vector<Piece> pieces;
  for (std::size_t instance = 0; instance < shape.instances(); ++instance) {
    for (std::size_t first = 0; first == 0 || first + VertexBlock::kStep < shape.rows();
         first += kAdvance) {
      const std::size_t count = std::min(VertexBlock::kCapacity, shape.rows() - first);
      for (std::size_t begin = 0; begin < shape.columns(); begin += PatchHulls::kColumns) {
        pieces.push_back({{instance, first, count},
                          begin,
                          std::min(begin + PatchHulls::kColumns, shape.columns())});
      }
    }
  }
  return pieces;
}

/// Cuts the pieces into runs, which follow each other anyhow.
void shuffle(std::vector<Piece>& pieces, Dice& dice) {
  const auto anywhere = [&] {
    return pieces.begin() + dice.below(static_cast<int>(pieces.size()) + 1);
  };
  for (int i = 0; i < 12; ++i) {
    std::array cuts{anywhere(), anywhere(), anywhere()};
    std::ranges::sort(cuts);
    std::rotate(cuts[0], cuts[1], cuts[2]);
  }
}

TEST(StripPainter, GoesOnWhereverItIsSentTo) {
  Dice dice(70);
  WorkShare share(1);
  StripPainter kept;
  const LineWindows windows;
  ShapeSections sections;
  const RandomDirections none;
  ShapeColumns columns;
  for (int i = 0; i < kFrames; ++i) {
    if (i % 4 == 0) {  // else only the view changes
      const auto rows = static_cast<std::size_t>(dice.once(2) ? 700 : dice.between(20, 90));
      ASSERT_TRUE(sections.repeatLine(rows, 0.6F, 1.2F / static_cast<float>(rows),
                                      dice.between(20, 120), 0.01F, 0.5F));
      const DuplicateStep step{dice.below(3), {0.1F, 0.02F, 0.0F}, {}, {0, dice.below(90), 0}};
      ModifierTable values;
      values[ModifierKind::ShapeRotate] = {dice.between(0.0F, 360.0F), dice.between(0.0F, 360.0F),
                                           0};
      values[ModifierKind::Twist] = {0, dice.once(2) ? 0.0F : 60.0F, 0};
      columns.update({sections, none, true}, values, step, {false, dice.once(2)}, share);
    }
    const std::int32_t width = dice.between(20, 300);
    const std::int32_t height = dice.between(20, 220);
    ViewProjector projector;
    projector.setSize(width, height);
    const Vec3 eye = eyePosition(dice.between(0.0F, 360.0F), dice.between(-89.0F, 89.0F), 1.3F);
    const PixelMap map(
        {static_cast<ViewMode>(dice.below(4)), viewMatrix(eye, 0.0F), {width / 2, height / 2}},
        projector, width, height);
    const bool isDense = dice.once(2);
    std::array<WireMask, 2> masks;
    StripPainter fresh;
    std::vector<Piece> pieces = piecesOf(columns);
    for (const bool again : {false, true}) {
      WireMask& mask = masks[again ? 1 : 0];
      ASSERT_TRUE(mask.begin(width, height));
      StripPainter& painter = again ? kept : fresh;
      painter.begin(columns, map, {mask.pixels(), width, height, &windows}, mask.reach());
      painter.setDense(isDense);
      for (const Piece& piece : pieces) {
        painter.draw(piece.strip, piece.begin, piece.end);
      }
      painter.finish();
      mask.settle();
      shuffle(pieces, dice);
    }
    for (std::int32_t y = 0; y < height; ++y) {
      for (std::int32_t x = 0; x < width; ++x) {
        ASSERT_EQ(masks[0].pixels().isLit(x, y), masks[1].pixels().isLit(x, y))
            << i << ": " << x << ' ' << y;
      }
    }
  }
}

}  // namespace
}  // namespace pv
