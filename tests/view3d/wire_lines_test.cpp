// The lists of lines as full as they can get, by every vector form.
#include "view3d/wire_lines.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "raster/line_walk.h"
#include "view3d/vector_form_choice.h"

namespace pv {
namespace {

constexpr std::int32_t kWidth = 50;
constexpr std::int32_t kHeight = 260;
constexpr std::size_t kChunks = 9;
using Columns = std::array<PixelColumn, WireGroup::kColumns + 2>;

/// Lines of one step but in the first and the last chunk, where they have three: all
/// single pixels still wait when the second lot of inner ones comes.
void place(Columns& columns) {
  std::int32_t y = 1;
  for (std::size_t k = 0; k < kChunks * PixelColumn::kChunk; ++k) {
    const std::size_t chunk = k / PixelColumn::kChunk;
    const std::int32_t steps = chunk == 0 || chunk + 1 == kChunks ? 3 : 1;
    std::int32_t x = 5;
    for (PixelColumn& column : columns) {
      column.spots[PixelColumn::kLead + k] = y * PixelColumn::kSpotPitch + x;
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
  const auto columns = std::make_unique<Columns>();
  place(*columns);
  WireGroup group;
  group.count = WireGroup::kColumns;
  group.chunks.fill((1U << kChunks) - 1);
  for (std::size_t c = 0; c < columns->size(); ++c) {
    group.columns[c] = &(*columns)[c];
  }
  std::array<std::array<bool, kWidth>, kHeight> wanted{};
  const auto draw = [&](PixelPoint a, PixelPoint b) {
    forEachLinePixel(a.x, a.y, b.x, b.y, {kWidth, kHeight, kWidth}, [&](std::int64_t at) {
      wanted.at(static_cast<std::size_t>(at / kWidth)).at(static_cast<std::size_t>(at % kWidth)) =
          true;
    });
  };
  for (std::size_t c = 1; c <= group.count; ++c) {
    for (std::size_t k = 0; k < kChunks * PixelColumn::kChunk; ++k) {
      draw((*columns)[c].spotAt(k), (*columns)[c].spotAt(k + 1));
      draw((*columns)[c].spotAt(k), (*columns)[c + 1].spotAt(k));
    }
  }
  const FrameCells cells(kWidth, kHeight);
  ShortLines shortLines;
  shortLines.setCells(cells);
  VectorFormChoice forms;
  for (std::size_t form = 0; form < forms.size(); ++form) {
    const std::string name = forms.choose(form);
    WireMask mask;
    ASSERT_TRUE(mask.begin(kWidth, kHeight, WireMask::kFirstMark));
    const auto lists = std::make_unique<WireLists>();
    lightGroup(group, {mask.pixels(), kWidth, kHeight, &shortLines}, *lists);
    lightListed({mask.pixels(), kWidth, kHeight, &shortLines}, *lists);
    // The ends of lines are left to the next column, which belongs to another group.
    for (std::size_t k = 0; k < kChunks * PixelColumn::kChunk; ++k) {
      const PixelPoint end = columns->back().spotAt(k);
      mask.pixels().light(end.x, end.y);
      wanted.at(static_cast<std::size_t>(end.y)).at(static_cast<std::size_t>(end.x)) = true;
    }
    for (std::int32_t y = 0; y < kHeight; ++y) {
      for (std::int32_t x = 0; x < kWidth; ++x) {
        const bool isLit = mask.pixels().bytes()[cells.byte(x, y)] == WireMask::kFirstMark;
        ASSERT_EQ(isLit, wanted[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)])
            << name << ' ' << x << ' ' << y;
      }
    }
  }
}

}  // namespace
}  // namespace pv
