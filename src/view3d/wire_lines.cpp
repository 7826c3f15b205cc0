// The lines of one column of vertices, several vertices at a time.
#include "view3d/wire_lines.h"

#include <algorithm>
#include <bit>

#include "raster/line_walk.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/wire_lines.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "view3d/wire_walks-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

// Without vectors every vertex draws its two lines, which light their ends too.
void lightAll(const WireTarget& /*target*/, WireLists& /*lists*/) {}

void light(const WireGroup& group, const WireTarget& target, WireLists& /*lists*/) {
  const auto draw = [&](PixelPoint a, PixelPoint b) {
    forEachLinePixel(a.x, a.y, b.x, b.y, {target.width, target.height, PixelColumn::kSpotPitch},
                     [&](std::int64_t spot) { target.pixels.lightSpot(spot); });
  };
  for (std::size_t c = 0; c < group.count; ++c) {
    const PixelColumn& column = *group.columns[c + 1];
    for (std::uint32_t chunks = group.chunks[c]; chunks != 0; chunks &= chunks - 1) {
      const auto chunk = static_cast<std::size_t>(std::countr_zero(chunks));
      for (std::size_t i = 0; i < PixelColumn::kChunk; ++i) {
        const std::size_t k = chunk * PixelColumn::kChunk + i;
        draw(column.spotAt(k), column.spotAt(k + 1));
        draw(column.spotAt(k), group.columns[c + 2]->spotAt(k));
      }
    }
  }
}

#else

/// Those of the lists, in registers while many entries are added.
struct Counts {
  HWY_INLINE explicit Counts(const WireLists& lists)
      : pixels(lists.pixels.count),
        three(lists.three.count),
        five(lists.five.count),
        seven(lists.seven.count),
        nine(lists.nine.count),
        more(lists.more.count) {}
  HWY_INLINE void keep(WireLists& lists) const {
    lists.pixels.count = pixels;
    lists.three.count = three;
    lists.five.count = five;
    lists.seven.count = seven;
    lists.nine.count = nine;
    lists.more.count = more;
  }
  [[nodiscard]] HWY_INLINE bool areHigh() const {
    return std::max({three, five, seven, nine, more}) > WireQueue::kKept ||
           pixels > WireLists::Pixels::kKept;
  }

  std::size_t pixels;
  std::size_t three;
  std::size_t five;
  std::size_t seven;
  std::size_t nine;
  std::size_t more;
};

/// Queues the lines of more than one step from `spot`, whose place in the mask is
/// `start`. The classes are told apart by the highest bit of either side, or of a side
/// and a little more.
HWY_INLINE void queueLines(I spot, I start, I way, WireLists& lists, Counts& counts) {
  const Ints d;
  const S sides = hn::Abs(halves(way));
  const auto isLong = hasBits(word(sides), 0xFFFEFFFEU);
  if (hn::AllFalse(d, isLong)) {
    return;
  }
  const auto beyondThree = hasBits(word(sides), 0xFFFCFFFCU);
  add(lists.three, counts.three, hn::AndNot(beyondThree, isLong), spot, way);
  if (!hn::AllFalse(d, beyondThree)) {
    const auto beyondFive = hasBits(word(hn::Add(sides, hn::Set(Shorts(), 2))), 0xFFF8FFF8U);
    const auto beyondSeven = hasBits(word(sides), 0xFFF8FFF8U);
    add(lists.five, counts.five, hn::AndNot(beyondFive, beyondThree), start, way);
    add(lists.seven, counts.seven, hn::AndNot(beyondSeven, beyondFive), start, way);
    if (!hn::AllFalse(d, beyondSeven)) {
      const auto beyondNine = hasBits(word(hn::Add(sides, hn::Set(Shorts(), 6))), 0xFFF0FFF0U);
      add(lists.nine, counts.nine, hn::AndNot(beyondNine, beyondSeven), start, way);
      add(lists.more, counts.more, beyondNine, spot, way);
    }
  }
}

// --- a group -----------------------------------------------------------------

/// Whether one of a vertex' four lines lights its pixel.
HWY_INLINE hn::Mask<Ints> isLit(I up, I on, I down, I back) {
  const Ints d;
  const I rises = hn::Or(hn::Or(up, on), hn::Or(down, back));
  const S furthest = hn::Max(hn::Max(halves(up), halves(on)), hn::Max(halves(down), halves(back)));
  const S right = hn::Max(furthest, hn::Zero(Shorts()));
  const I lowHalf = hn::Set(d, 0xFFFF);
  return hn::Ne(hn::Or(hn::AndNot(lowHalf, rises), hn::And(lowHalf, word(right))), hn::Zero(d));
}

void lightAll(const WireTarget& target, WireLists& lists) {
  const Places places(target.pixels.cells);
  walkThree(lists.three, lists.pixels, places);
  walkMore(lists.more, target.pixels, lists.pixels, places);
  lightPixels(lists.pixels, target.pixels);
  walkShort(lists.five, target, std::make_index_sequence<4>());
  walkShort(lists.seven, target, std::make_index_sequence<6>());
  walkShort(lists.nine, target, std::make_index_sequence<ShortLines::kMost>());
  leaveVectors();
}

/// A chunk of all columns of a group that have it.
HWY_INLINE void listChunk(const WireGroup& group, std::size_t chunk, const Places& places,
                          WireLists& lists, Counts& counts) {
  const Ints d;
  const std::size_t first = PixelColumn::kLead + chunk * PixelColumn::kChunk;
  for (std::size_t c = 0; c < group.count; ++c) {
    if ((group.chunks[c] >> chunk & 1U) == 0) {
      continue;
    }
    const std::int32_t* before = group.columns[c]->spots;
    const std::int32_t* column = group.columns[c + 1]->spots;
    const std::int32_t* after = group.columns[c + 2]->spots;
    for (std::size_t i = first; i < first + PixelColumn::kChunk; i += hn::Lanes(d)) {
      const I spot = hn::Load(d, column + i);
      const I up = difference(hn::LoadU(d, column + i + 1), spot);
      const I on = difference(hn::Load(d, after + i), spot);
      const I down = difference(hn::LoadU(d, column + i - 1), spot);
      const I back = difference(hn::Load(d, before + i), spot);
      const I start = places(spot);
      add(lists.pixels, counts.pixels, isLit(up, on, down, back), start);
      queueLines(spot, start, up, lists, counts);
      queueLines(spot, start, on, lists, counts);
    }
  }
}

void light(const WireGroup& group, const WireTarget& target, WireLists& lists) {
  const Places places(target.pixels.cells);
  std::uint32_t chunks = 0;
  for (std::size_t c = 0; c < group.count; ++c) {
    chunks |= group.chunks[c];
  }
  Counts counts(lists);
  for (; chunks != 0; chunks &= chunks - 1) {
    listChunk(group, static_cast<std::size_t>(std::countr_zero(chunks)), places, lists, counts);
    if (counts.areHigh()) {
      counts.keep(lists);
      lightAll(target, lists);
      counts = Counts(lists);
    }
  }
  counts.keep(lists);
  leaveVectors();
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(light);
HWY_EXPORT(lightAll);

void ShortLines::setCells(const FrameCells& cells) {
  if (cells == cells_) {
    return;
  }
  cells_ = cells;
  for (std::int32_t dy = -kReach; dy <= kReach; ++dy) {
    for (std::int32_t dx = -kReach; dx <= kReach; ++dx) {
      const std::int32_t line = (dy + kReach) * kSide + dx + kReach;
      for (std::size_t row = 0; row < kRows; ++row) {
        setLine(dx, dy, row,
                inner_.data() + (static_cast<std::size_t>(line) * kRows + row) * kMost);
      }
    }
  }
}

void ShortLines::setLine(std::int32_t dx, std::int32_t dy, std::size_t row,
                         std::int32_t* inner) const {
  constexpr std::int32_t kAway = 4 * FrameCells::kHeight;  // from the frame's corner
  static_assert(kAway >= kReach);
  const std::int32_t x = kAway;
  const std::int32_t y = kAway + static_cast<std::int32_t>(row);
  std::array<std::int64_t, kReach + 1> walked{};
  std::size_t count = 0;
  const LineSegment segment =
      dx >= 0 ? LineSegment{x, y, x + dx, y + dy} : LineSegment{x + dx, y + dy, x, y};
  walkLine(segment, PixelColumn::kSpotPitch,
           [&](std::int64_t spot) { walked[count++] = cells_.byteOf(spot); });
  for (std::size_t i = 0; i < kMost && count > 2; ++i) {
    inner[i] = static_cast<std::int32_t>(walked[i + 2 < count ? i + 1 : 1] - cells_.byte(x, y));
  }
}

void lightGroup(const WireGroup& group, const WireTarget& target, WireLists& lists) {
  HWY_DYNAMIC_DISPATCH(light)(group, target, lists);
}

void lightListed(const WireTarget& target, WireLists& lists) {
  HWY_DYNAMIC_DISPATCH(lightAll)(target, lists);
}

}  // namespace pv

#endif
