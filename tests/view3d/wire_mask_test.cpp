// Masks and the frames that they are painted into, by every vector form.

#include "view3d/wire_mask.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "reference/comparison.h"
#include "reference/random_shapes.h"
#include "view3d/vector_form_choice.h"

namespace pv {
namespace {

using reference::Dice;

constexpr std::uint32_t kColour = 0xFFABCDEF;

/// A frame that is painted again and again, beside what it should show.
class Painting {
 public:
  Painting(Dice& dice, bool isBlack, bool hasSingles)
      : dice_(dice),
        hasSingles_(hasSingles),
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
    PixelBox drawn;
    std::vector<std::uint32_t> wanted = wanted_;
    for (WireMask& mask : masks_) {
      EXPECT_TRUE(mask.begin(width_, height_));
      if (dice_.once(5)) {  // and this is given up again
        std::vector<std::uint32_t> unused = wanted_;
        light(mask, unused);
        EXPECT_TRUE(mask.begin(width_, height_));
      }
      light(mask, wanted);
      mask.settle();
      drawn = drawn.with(mask.box());
    }
    const PixelBox box = cellsAround(drawn.with(drawn_));
    drawn_ = drawn;
    paintMasks({pixels_.data(), background_.empty() ? nullptr : background_.data(), dirty_.data(),
                width_, kColour, masks_, box});
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
      lightAnyPlace(mask.pixels(), atX, atY);
      mask.reach().include(atX, atY);
      wanted[static_cast<std::size_t>(atY * width_ + atX)] = kColour;
    }
  }
  void lightAnyPlace(const MaskPixels& lit, std::int32_t x, std::int32_t y) {
    const int place = dice_.below(hasSingles_ ? 3 : 2);
    if (place == 0) {
      lit.light(x, y);
    } else if (place == 1) {
      lit.words[lit.strips.word(x - 8, y)] |= static_cast<std::uint16_t>(256U << x % 8);
    } else {
      lit.singles->bytes[lit.strips.word(x, y) * 8 + x % 8] = 1;
      lit.singles->areUsed = true;
    }
  }
  [[nodiscard]] PixelBox cellsAround(const PixelBox& box) const {
    return {box.left / 16 * 16, box.bottom / 8 * 8, std::min((box.right + 15) / 16 * 16, width_),
            std::min((box.top + 7) / 8 * 8, height_)};
  }

  Dice& dice_;
  bool hasSingles_;
  std::int32_t width_;
  std::int32_t height_;
  std::vector<std::uint32_t> background_;
  std::vector<std::uint32_t> wanted_;  ///< without anything lit
  std::vector<std::uint32_t> pixels_;
  std::vector<std::uint8_t> dirty_;
  std::vector<WireMask> masks_;
  PixelBox drawn_;
};

TEST(WireMask, FramesShowOnlyWhatIsLitInThem) {
  Dice dice(90);
  VectorFormChoice forms;
  for (int i = 0; i < 400; ++i) {
    const std::string form = forms.choose(static_cast<std::size_t>(i));
    Painting painting(dice, dice.once(2), form != "SCALAR");
    std::size_t masks = 1;
    for (int frame = 0; frame < 30; ++frame) {
      if (dice.once(5)) {
        masks = static_cast<std::size_t>(dice.between(1, 4));
      }
      ASSERT_EQ(painting.next(masks), "") << form << ", painting " << i << ", frame " << frame;
    }
  }
}

}  // namespace
}  // namespace pv
