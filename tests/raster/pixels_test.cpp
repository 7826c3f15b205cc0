#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <span>
#include <vector>

#include "raster/frame_presenter.h"
#include "raster/pixel_words.h"
#include "raster/stretch.h"

namespace pv {
namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

TEST(PixelWords, AddsEachByteOnItsOwn) {
  for (std::uint32_t a = 0; a < 256; ++a) {
    for (std::uint32_t b = 0; b < 256; ++b) {
      // The byte under test stands in two lanes, between lanes at both extremes.
      std::array<std::uint32_t, 3> words = {1, a << 24U | 0xFFU << 16U | a << 8U, 1};
      MMXAddDWORDSaturation(&words[1], b << 24U | 0xFF00FFU | b << 8U, 1);
      const std::uint32_t sum = std::min(a + b, 255U);
      ASSERT_EQ(words[1], sum << 24U | 0xFF00FFU | sum << 8U) << a << '+' << b;
      ASSERT_EQ(words[0] + words[2], 2U);
    }
  }
}

TEST(PixelWords, RunsHaveExactlyTheirLength) {
  for (std::size_t count = 0; count < 40; ++count) {
    std::vector<std::uint32_t> words(42, 7);
    MMXDWORDset(words.data() + 1, 0x80FF0010U, count);
    MMXAddDWORDSaturation(words.data() + 1, 0x80010020U, count);
    EXPECT_EQ(std::count(words.begin() + 1, words.end(), 0xFFFF0030U), count);
    EXPECT_EQ(std::count(words.begin(), words.end(), 7U), 42 - count);
    std::vector<std::uint32_t> copy(42, 7);
    MMXcpy(copy.data() + 1, words.data() + 1, count * 4);
    EXPECT_EQ(copy, words);
  }
  MMXcpy(nullptr, nullptr, 0);
}

TEST(FramePresenter, TakesOverFramesAndRefusesOddSizes) {
  using Outcome = FramePresenter::Outcome;
  using Words = std::vector<std::uint32_t>;
  const Words frame = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  FramePresenter presenter;
  EXPECT_EQ(presenter.present(frame, 3, 4), Outcome::Refused);
  EXPECT_TRUE(presenter.bits().empty());
  EXPECT_EQ(presenter.present(frame, 4, 2), Outcome::Recreated);
  EXPECT_EQ(presenter.present(std::span(frame).subspan(2), 4, 2), Outcome::Copied);
  EXPECT_TRUE(std::ranges::equal(presenter.bits(), Words{7, 8, 9, 10, 3, 4, 5, 6}))
      << "the top row, the frame's last, comes first";
  EXPECT_EQ(presenter.present(frame, 4, 0), Outcome::Refused);
  EXPECT_EQ(presenter.present(frame, 4, 4), Outcome::Refused) << "the frame is too short";
  EXPECT_EQ(presenter.present(frame, 20'000'001, 1), Outcome::Refused);
  EXPECT_EQ(presenter.height(), 2);
  EXPECT_EQ(presenter.bits()[0], 7U) << "a refusal leaves the bitmap as it was";
  EXPECT_EQ(presenter.present(frame, 6, 2), Outcome::Recreated);
  EXPECT_TRUE(std::ranges::equal(presenter.bits(), Words{7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6}));
}

ConstPixelBlock wordBlock(const std::vector<std::uint32_t>& words, int width) {
  const auto columns = static_cast<std::size_t>(width);
  return {std::as_bytes(std::span(words)), width, static_cast<std::int32_t>(words.size() / columns),
          columns * 4, PixelFormat::Argb32};
}

std::vector<std::uint32_t> stretched(const ConstPixelBlock& src, int width, int height) {
  const auto columns = static_cast<std::size_t>(width);
  std::vector<std::uint32_t> words(columns * static_cast<std::size_t>(height));
  EXPECT_TRUE(Stretch_Any2Any(
      {std::as_writable_bytes(std::span(words)), width, height, columns * 4, PixelFormat::Argb32},
      src));
  return words;
}

TEST(Stretch, AveragesWhenShrinkingAndRepeatsWhenGrowing) {
  using Words = std::vector<std::uint32_t>;
  const Words row = {0xFF000000U, 0xFF0000FFU, 0xFF00FF00U};
  EXPECT_EQ(stretched(wordBlock(row, 3), 3, 1), row);
  // Each half takes one pixel and half of the middle one: 2 to 1.
  EXPECT_EQ(stretched(wordBlock(row, 3), 2, 1), Words({0xFF000055U, 0xFF00AA55U}));
  EXPECT_EQ(stretched(wordBlock(row, 3), 6, 2),
            Words({row[0], row[0], row[1], row[1], row[2], row[2],  //
                   row[0], row[0], row[1], row[1], row[2], row[2]}));
  // One axis shrinks while the other grows.
  EXPECT_EQ(stretched(wordBlock({0x00000000U, 0xFFFFFFFFU}, 1), 2, 1),
            Words({0x80808080U, 0x80808080U}));
  const Words even(35, 0xFF123456U);
  EXPECT_EQ(stretched(wordBlock(even, 7), 3, 2), Words(6, 0xFF123456U));
}

TEST(Stretch, ConvertsPaddedRowsAndRefusesShortMemory) {
  const std::vector<std::uint32_t> words = {0xFF112233U, 0x00445566U};
  std::array<std::byte, 8> narrow{};
  const PixelBlock column = {narrow, 1, 2, 4, PixelFormat::Bgr24};
  ASSERT_TRUE(Stretch_Any2Any(column, wordBlock(words, 1)));
  constexpr auto kBytes = std::to_array<std::uint8_t>({0x33, 0x22, 0x11, 0, 0x66, 0x55, 0x44, 0});
  EXPECT_TRUE(std::ranges::equal(std::as_bytes(std::span(kBytes)), narrow));
  EXPECT_EQ(stretched({narrow, 1, 2, 4, PixelFormat::Bgr24}, 1, 2),
            std::vector<std::uint32_t>({0xFF112233U, 0xFF445566U}));

  const auto accepts = [&](std::int32_t width, std::int32_t height, std::size_t rowBytes) {
    return Stretch_Any2Any({narrow, width, height, rowBytes, PixelFormat::Bgr24},
                           wordBlock(words, 1));
  };
  EXPECT_FALSE(accepts(0, 1, 4) || accepts(1, -1, 4) || accepts(2, 1, 4) || accepts(1, 3, 4));
  EXPECT_FALSE(accepts(1, 2, static_cast<std::size_t>(-1)) || accepts(kMax, kMax, 0));
  EXPECT_TRUE(accepts(1, 2, 5)) << "the last row may end with its last pixel";
}

}  // namespace
}  // namespace pv
