// Lines one by one, and lists of them as full as they can get, by every vector form.
#include "view3d/wire_lines.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "raster/line_walk.h"
#include "view3d/vector_form_choice.h"
#include "view3d/wire_mask.h"

namespace pv {
namespace {

using Columns = std::array<PixelColumn, WireGroup::kColumns + 2>;

std::int32_t spotOf(PixelPoint at) {
  return at.y * PixelColumn::kSpotPitch + at.x;
}

/// What lines should light in a frame.
class Wanted {
 public:
  Wanted(std::int32_t width, std::int32_t height)
      : width_(width),
        height_(height),
        lit_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

  void light(PixelPoint at) { lit_.at(static_cast<std::size_t>(at.y * width_ + at.x)) = 1; }
  void draw(PixelPoint a, PixelPoint b) {
    forEachLinePixel(a.x, a.y, b.x, b.y, {width_, height_, width_},
                     [this](std::int64_t at) { lit_.at(static_cast<std::size_t>(at)) = 1; });
  }
  /// Without its ends.
  void drawInner(PixelPoint a, PixelPoint b) {
    forEachLinePixel(a.x, a.y, b.x, b.y, {width_, height_, width_}, [&](std::int64_t at) {
      if (at != a.y * width_ + a.x && at != b.y * width_ + b.x) {
        lit_.at(static_cast<std::size_t>(at)) = 1;
      }
    });
  }
  /// The first pixel where a mask differs; empty if none does.
  [[nodiscard]] std::string difference(const MaskPixels& pixels) const {
    for (std::int32_t y = 0; y < height_; ++y) {
      for (std::int32_t x = 0; x < width_; ++x) {
        if (pixels.isLit(x, y) != (lit_[static_cast<std::size_t>(y * width_ + x)] != 0)) {
          return std::to_string(x) + ' ' + std::to_string(y);
        }
      }
    }
    return {};
  }

 private:
  std::int32_t width_;
  std::int32_t height_;
  std::vector<std::uint8_t> lit_;
};

/// Lights a line between two vertices of a single column.
void lightLine(PixelPoint a, PixelPoint b, const WireTarget& target, WireLists& lists) {
  PixelColumn column;
  std::int32_t* spots = column.spots + PixelColumn::kLead - 1;
  std::fill_n(spots, 9, spotOf(a));
  std::fill_n(spots + 9, 9, spotOf(b));
  WireGroup group;
  group.columns.fill(&column);
  group.chunks[0] = 1;
  group.count = 1;
  lightGroup(group, target, lists);
  lightListed(target, lists);
}

// Each in a frame that ends with it, so that its windows reach beyond all four sides.
TEST(WireLines, EveryLengthAndDirectionUpToTheEdgesOfAFrame) {
  constexpr std::array kLengths{0,  1,  2,  3,  4,  6,  7,  8,  9,  10, 15, 16, 17, 23,
                                24, 25, 31, 32, 33, 47, 48, 49, 61, 62, 63, 64, 65, 90};
  const LineWindows windows;
  const auto lists = std::make_unique<WireLists>();
  WireMask mask;
  VectorFormChoice forms;
  const auto check = [&](std::int32_t left, std::int32_t width, std::int32_t height, int way) {
    PixelPoint a{left, way / 2 == 0 ? 0 : height};
    PixelPoint b{left + width, height - a.y};
    if (way % 2 != 0) {
      std::swap(a, b);
    }
    Wanted wanted(left + width + 1, height + 1);
    wanted.draw(a, b);
    for (const bool isDense : {false, true}) {
      ASSERT_TRUE(mask.begin(left + width + 1, height + 1));
      lightLine(a, b, {mask.pixels(), left + width + 1, height + 1, &windows, isDense}, *lists);
      mask.reach().include(a.x, a.y);
      mask.reach().include(b.x, b.y);
      mask.settle();
      ASSERT_EQ(wanted.difference(mask.pixels()), "")
          << a.x << ' ' << a.y << " to " << b.x << ' ' << b.y << (isDense ? ", dense" : ", loose");
      ASSERT_TRUE(mask.begin(left + width + 1, height + 1));
      const std::span words(mask.pixels().words, mask.pixels().strips.words());
      ASSERT_TRUE(std::ranges::all_of(words, [](std::uint16_t word) { return word == 0; }));
    }
  };
  for (std::size_t i = 0; i < forms.size(); ++i) {
    const std::string form = forms.choose(i);
    for (const std::int32_t width : kLengths) {
      for (const std::int32_t height : kLengths) {
        // Short ones at every place of a strip, others at some.
        const bool isShort = width < 9 && height < 9;
        const std::int32_t first = isShort ? 0 : (width * 3 + height) % 8;
        const std::int32_t step = isShort ? 1 : kIsWatched ? 16 : 5;
        for (std::int32_t left = first; left < 16; left += step) {
          for (int way = 0; way < 4; ++way) {
            check(left, width, height, way);
            ASSERT_FALSE(HasFatalFailure()) << form;
          }
        }
      }
    }
  }
}

// --- full lists --------------------------------------------------------------

constexpr std::size_t kChunks = 9;

/// Lines of one step but in the first and the last chunk, where they have three: all
/// single pixels still wait when the second lot of inner ones comes.
void place(Columns& columns) {
  std::int32_t y = 1;
  for (std::size_t k = 0; k < kChunks * PixelColumn::kChunk; ++k) {
    const std::size_t chunk = k / PixelColumn::kChunk;
    const std::int32_t steps = chunk == 0 || chunk + 1 == kChunks ? 3 : 1;
    std::int32_t x = 5;
    for (PixelColumn& column : columns) {
      column.spots[PixelColumn::kLead + k] = spotOf({x, y});
      x += steps;
    }
    y += steps;
  }
  for (PixelColumn& column : columns) {
    std::int32_t* first = column.spots + PixelColumn::kLead;
    std::int32_t* end = first + kChunks * PixelColumn::kChunk;
    first[-1] = *first;
    *end = end[-1];
  }
}

TEST(WireLines, FullListsLightEveryPixel) {
  constexpr std::int32_t kWidth = 50;
  constexpr std::int32_t kHeight = 260;
  const auto columns = std::make_unique<Columns>();
  place(*columns);
  WireGroup group;
  group.count = WireGroup::kColumns;
  group.chunks.fill((1U << kChunks) - 1);
  for (std::size_t c = 0; c < columns->size(); ++c) {
    group.columns[c] = &(*columns)[c];
  }
  Wanted wanted(kWidth, kHeight);
  for (std::size_t k = 0; k < kChunks * PixelColumn::kChunk; ++k) {
    for (std::size_t c = 1; c <= group.count; ++c) {
      wanted.draw((*columns)[c].spotAt(k), (*columns)[c].spotAt(k + 1));
      wanted.draw((*columns)[c].spotAt(k), (*columns)[c + 1].spotAt(k));
    }
    wanted.light(columns->back().spotAt(k));
  }
  const LineWindows windows;
  VectorFormChoice forms;
  for (std::size_t i = 0; i < 2 * forms.size(); ++i) {
    const bool isDense = i % 2 == 0;
    const std::string name = forms.choose(i / 2) + (isDense ? ", dense" : ", loose");
    WireMask mask;
    ASSERT_TRUE(mask.begin(kWidth, kHeight));
    mask.reach().include(0, 0);
    mask.reach().include(kWidth - 1, kHeight - 1);
    const auto lists = std::make_unique<WireLists>();
    const WireTarget target{mask.pixels(), kWidth, kHeight, &windows, isDense};
    lightGroup(group, target, *lists);
    lightListed(target, *lists);
    mask.settle();
    // The ends of lines are left to the next column, which belongs to another group.
    for (std::size_t k = 0; k < kChunks * PixelColumn::kChunk; ++k) {
      const PixelPoint end = columns->back().spotAt(k);
      mask.pixels().light(end.x, end.y);
    }
    ASSERT_EQ(wanted.difference(mask.pixels()), "") << name;
  }
}

// No group fills them all at once, but any of them can come that far.
TEST(WireLines, ListsWithoutAnyRoomLeft) {
  constexpr std::int32_t kSide = 90;
  const LineWindows windows;
  VectorFormChoice forms;
  for (std::size_t form = 0; form < forms.size(); ++form) {
    const std::string name = forms.choose(form);
    if (name == "SCALAR") {
      continue;  // which lists nothing
    }
    WireMask mask;
    ASSERT_TRUE(mask.begin(kSide, kSide));
    mask.reach().include(0, 0);
    mask.reach().include(kSide - 1, kSide - 1);
    Wanted wanted(kSide, kSide);
    const auto lists = std::make_unique<WireLists>();
    const auto add = [&](WireQueue& queue, PixelPoint a, PixelPoint way) {
      queue.start[queue.count] = spotOf(a);
      queue.way[queue.count++] = spotOf(way);
      const PixelPoint b{a.x + way.x, a.y + way.y};
      &queue == &lists->more ? wanted.draw(a, b) : wanted.drawInner(a, b);
    };
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(WireQueue::kRoom); ++i) {
      add(lists->three, {i * 7 % 80, 10 + i * 11 % 70}, {3, i % 7 - 3});
      add(lists->few, {i * 13 % 80, 10 + i * 17 % 70}, {8, i % 15 - 7});
      add(lists->more, {i % 23, i % 19}, {63 - i % 5, i * 5 % 64});
      lists->windows.start[i] = 0;  // without pixels
      lists->windows.way[i] = static_cast<std::int32_t>(LineWindows::kMiddle * 16);
    }
    lists->windows.count = WireQueue::kRoom;
    lists->pixels.count = WireLists::Pixels::kKept + WireQueue::kOfChunk;
    std::fill_n(lists->pixels.at, lists->pixels.count, 0);
    wanted.light({0, 0});
    lightListed({mask.pixels(), kSide, kSide, &windows, true}, *lists);
    mask.settle();
    ASSERT_EQ(wanted.difference(mask.pixels()), "") << name;
  }
}

}  // namespace
}  // namespace pv
