// Masks and the frames that they are painted into, by every vector form.

#include "view3d/wire_mask.h"

#include <gtest/gtest.h>
#include <vector>

#include "reference/comparison.h"
#include "reference/random_shapes.h"
#include "view3d/vector_form_choice.h"

namespace pv {
namespace {

using reference::Dice;

constexpr std::uint32_t kColour = 0xFFABCDEF;

TEST(FrameCells, EveryPixelHasAByteOfItsOwn) {
  for (const auto& [width, height] : {std::pair{1, 1}, {16, 4}, {17, 5}, {50, 30}, {97, 3}}) {
    const FrameCells cells(width, height);
    std::vector<int> uses(cells.words() * sizeof(std::uint32_t));
    std::vector<int> cellUses(cells.count());
    for (std::int32_t y = 0; y < height; ++y) {
      for (std::int32_t x = 0; x < width; ++x) {
        ASSERT_EQ(cells.byte(x, y), cells.byteOf(y * 65536 + x));
        ASSERT_EQ(++uses.at(static_cast<std::size_t>(cells.byte(x, y))), 1) << x << ' ' << y;
        ASSERT_LE(++cellUses.at(cells.cell(x, y)), 64) << x << ' ' << y;
      }
    }
  }
}

/// A frame that is painted again and again, beside what it should show.
class Painting {
 public:
  Painting(Dice& dice, bool isBlack)
      : dice_(dice),
        width_(dice.between(1, 90)),
        height_(dice.between(1, 40)),
        background_(isBlack ? 0 : size()) {
    for (std::uint32_t& pixel : background_) {
      pixel = static_cast<std::uint32_t>(dice.below(1'000'000));
    }
    wanted_ = isBlack ? std::vector<std::uint32_t>(size()) : background_;
    pixels_ = wanted_;
    dirty_.resize(FrameCells(width_, height_).count());
  }

  /// One frame with some pixels lit. What differs from what it should show?
  std::string next(std::size_t count) {
    masks_.resize(count);
    mark_ = WireMask::nextMark(mark_);
    PixelBox drawn;
    std::vector<std::uint32_t> wanted = wanted_;
    for (WireMask& mask : masks_) {
      EXPECT_TRUE(mask.begin(width_, height_, mark_));
      light(mask, wanted);
      drawn = drawn.with(mask.box());
    }
    const PixelBox box = cellsAround(drawn.with(drawn_));
    drawn_ = drawn;
    paintMasks({pixels_.data(), background_.empty() ? nullptr : background_.data(), dirty_.data(),
                width_, kColour, mark_, masks_, box});
    return reference::firstDifference(pixels_, wanted, width_);
  }

 private:
  [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(width_ * height_); }

  void light(WireMask& mask, std::vector<std::uint32_t>& wanted) {
    const std::int32_t x = dice_.below(width_);
    const std::int32_t y = dice_.below(height_);
    for (int i = dice_.below(30); i > 0; --i) {
      const std::int32_t atX = dice_.between(x, std::min(x + 40, width_ - 1));
      const std::int32_t atY = dice_.between(y, std::min(y + 12, height_ - 1));
      mask.pixels().light(atX, atY);
      mask.reach().include(atX, atY);
      wanted[static_cast<std::size_t>(atY * width_ + atX)] = kColour;
    }
  }
  [[nodiscard]] PixelBox cellsAround(const PixelBox& box) const {
    return {box.left / 16 * 16, box.bottom / 4 * 4, std::min((box.right + 15) / 16 * 16, width_),
            std::min((box.top + 3) / 4 * 4, height_)};
  }

  Dice& dice_;
  std::int32_t width_;
  std::int32_t height_;
  std::vector<std::uint32_t> background_;
  std::vector<std::uint32_t> wanted_;  ///< without anything lit
  std::vector<std::uint32_t> pixels_;
  std::vector<std::uint8_t> dirty_;
  std::vector<WireMask> masks_;
  std::uint8_t mark_ = WireMask::kFirstMark;
  PixelBox drawn_;
};

// More frames than there are marks, so that what was lit long ago must be gone.
TEST(WireMask, FramesShowOnlyWhatIsLitInThem) {
  Dice dice(90);
  VectorFormChoice forms;
  for (int i = 0; i < 400; ++i) {
    forms.choose(static_cast<std::size_t>(i));
    Painting painting(dice, i % 2 == 0);
    std::size_t masks = 1;
    for (int frame = 0; frame < 30; ++frame) {
      if (dice.once(5)) {
        masks = static_cast<std::size_t>(dice.between(1, 4));
      }
      ASSERT_EQ(painting.next(masks), "") << "painting " << i << ", frame " << frame;
    }
  }
}

}  // namespace
}  // namespace pv
