// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_WALKS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_WALKS_INL_H_
#undef PV_VIEW3D_WIRE_WALKS_INL_H_
#else
#define PV_VIEW3D_WIRE_WALKS_INL_H_
#endif

#include <algorithm>
#include <array>
#include <bit>
#include <hwy/highway.h>
#include <utility>

#include "math/pack_order.h"
#include "raster/line_walk.h"
#include "view3d/wire_lines.h"
#include "view3d/wire_words-inl.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

// --- lists -------------------------------------------------------------------

/// Stores the chosen lanes one behind the other, then anything up to a whole
/// vector. Returns their number.
HWY_INLINE std::size_t append(I values, hn::Mask<Ints> mask, std::int32_t* to) {
  const Ints d;
  if constexpr (hn::MaxLanes(Ints()) > 8) {
    hn::StoreU(hn::Compress(values, mask), d, to);
    return hn::CountTrue(d, mask);
  } else {
    // The library's own form makes a copy of its table each time with some compilers.
    std::uint8_t bits[8] = {};
    hn::StoreMaskBits(d, mask, bits);
    const auto order = hn::SetTableIndices(d, kPackOrder[bits[0]].data());
    hn::StoreU(hn::TableLookupLanes(values, order), d, to);
    return static_cast<std::size_t>(std::popcount(bits[0]));
  }
}

/// `count` is the queue's; where much is added it should be kept in a variable.
HWY_INLINE void add(WireQueue& queue, std::size_t& count, hn::Mask<Ints> mask, I starts, I ways) {
  append(starts, mask, queue.start + count);
  count += append(ways, mask, queue.way + count);
}

HWY_INLINE void add(WireLists::Pixels& pixels, std::size_t& count, hn::Mask<Ints> mask, I at) {
  count += append(at, mask, pixels.at + count);
}

/// Some at a time, the last one repeated. Loads stand before stores, of which the
/// compiler cannot know that they do not reach the list.
HWY_INLINE void lightPixels(WireLists::Pixels& pixels, const MaskPixels& lit) {
  constexpr std::size_t kAtATime = 8;
  static_assert(kAtATime <= WireQueue::kSpare);
  const std::size_t count = pixels.count;
  const std::int32_t* at = pixels.at;
  std::uint8_t* bytes = lit.bytes();
  const std::uint8_t mark = lit.mark;
  if (count == 0) {
    return;
  }
  std::fill_n(pixels.at + count, kAtATime - 1, pixels.at[count - 1]);
  for (std::size_t i = 0; i < count; i += kAtATime) {
    std::array<std::uint32_t, kAtATime> some{};
    std::copy_n(at + i, kAtATime, some.begin());
    for (const std::uint32_t pixel : some) {
      bytes[pixel] = mark;
    }
  }
  pixels.count = 0;
}

/// A line as one that leads to the right, or straight up or down.
struct Rightward {
  HWY_INLINE Rightward(I spot, I way) {
    const I leftward = hn::BroadcastSignBit(hn::ShiftLeft<16>(way));
    left = hn::Add(halves(spot), halves(hn::And(leftward, way)));
    sides = hn::Sub(hn::Xor(halves(way), halves(leftward)), halves(leftward));
  }
  S left;   ///< its left end
  S sides;  ///< the way from there
};

// --- lines of two and three steps --------------------------------------------

// Bresenham's walk from the left end is after i of n steps floor((2 i a + n) / (2 n))
// pixels away along a side of length a, which for a = n is i itself. So for n up
// to 3 a side has gone one pixel after the first step if a >= n - 1, otherwise
// none, and after the second of three a pixel less than it will in the end.
HWY_INLINE void walkThree(WireQueue& queue, WireLists::Pixels& pixels, const Places& places) {
  const Ints d;
  const Shorts ds;
  std::size_t count = pixels.count;
  const std::size_t lines = queue.count;
  for (std::size_t i = 0; i < lines; i += hn::Lanes(d)) {
    const Rightward line(hn::Load(d, queue.start + i), hn::Load(d, queue.way + i));
    const S sides = hn::Abs(line.sides);
    const I swapped = hn::Or(hn::ShiftLeft<16>(word(sides)), hn::ShiftRight<16>(word(sides)));
    const S steps = hn::Max(sides, halves(swapped));
    const S unit = hn::Or(hn::BroadcastSignBit(line.sides), hn::Set(ds, 1));
    const S first = hn::IfThenElseZero(hn::Gt(sides, hn::Sub(steps, hn::Set(ds, 2))), unit);
    const S second = hn::Sub(line.sides, first);
    const auto inUse = hn::FirstN(d, lines - i);
    const auto hasSecond = hn::And(inUse, hn::Eq(word(steps), hn::Set(d, 0x00030003)));
    add(pixels, count, inUse, places(word(hn::Add(line.left, first))));
    add(pixels, count, hasSecond, places(word(hn::Add(line.left, second))));
  }
  pixels.count = count;
  queue.count = 0;
}

// --- up to nine steps --------------------------------------------------------

// All look-ups of a line stand before its stores, of which the compiler cannot
// know that they do not reach the table. For the same reason what the loop needs
// is kept in variables of its own. Lines of the table are counted in bytes, so that
// an address is made by the look-up itself.
template <std::size_t... kInner>
HWY_INLINE void walkShort(WireQueue& queue, const WireTarget& target,
                          std::index_sequence<kInner...> /*inner*/) {
  const Ints d;
  constexpr auto kRow = static_cast<std::int32_t>(ShortLines::kMost * sizeof(std::int32_t));
  constexpr auto kLine = static_cast<std::int32_t>(ShortLines::kRows) * kRow;
  constexpr std::int32_t kMiddle = (ShortLines::kSide + 1) * ShortLines::kReach;
  const std::size_t count = queue.count;
  if (count == 0) {
    return;
  }
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const I line = hn::Add(flattened(hn::Load(d, queue.way + i), kLine, kLine * ShortLines::kSide),
                           hn::Set(d, kLine * kMiddle));
    const I row = hn::And(hn::Load(d, queue.start + i), hn::Set(d, FrameCells::kHeight - 1));
    hn::Store(hn::Add(line, hn::Mul(row, hn::Set(d, kRow))), d, queue.way + i);
  }
  const auto* table = reinterpret_cast<const char*>(target.shortLines->data());
  std::uint8_t* lit = target.pixels.bytes();
  const std::uint8_t mark = target.pixels.mark;
  const auto walk = [&](std::size_t i) {
    const std::int64_t line = queue.way[i];
    std::uint8_t* start = lit + queue.start[i];
    const std::int64_t steps[] = {reinterpret_cast<const std::int32_t*>(table + line)[kInner]...};
    ((start[steps[kInner]] = mark), ...);
  };
  // An odd one is walked twice.
  queue.start[count] = queue.start[count - 1];
  queue.way[count] = queue.way[count - 1];
  for (std::size_t i = 0; i < count; i += 2) {
    walk(i);
    walk(i + 1);
  }
  queue.count = 0;
}

// --- longer lines ------------------------------------------------------------

constexpr std::int32_t kVectorWalk = 63;  // steps
static_assert(kVectorWalk < WireLists::Pixels::kLongest);

struct Walks {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  Walks() {}

  static constexpr std::size_t kLanes = hn::MaxLanes(Ints());

  HWY_ALIGN std::int32_t left[kLanes];  // words of two halves, as the steps
  HWY_ALIGN std::int32_t forward[kLanes];
  HWY_ALIGN std::int32_t sideways[kLanes];
  HWY_ALIGN std::int32_t slope[kLanes];
  HWY_ALIGN std::int32_t steps[kLanes];
};

/// The slope, aside per step, has sixteen binary places.
HWY_INLINE void prepareWalks(I spot, I way, Walks& walks) {
  constexpr std::int32_t kUp = PixelColumn::kSpotPitch;
  const Ints d;
  const hn::RebindToFloat<Ints> df;
  const Rightward line(spot, way);
  const I dx = hn::ShiftRight<16>(hn::ShiftLeft<16>(word(line.sides)));
  const I dy = hn::ShiftRight<16>(word(line.sides));
  const I row = hn::IfThenElse(hn::Lt(dy, hn::Zero(d)), hn::Set(d, -kUp), hn::Set(d, kUp));
  const auto isSteep = hn::Gt(hn::Abs(dy), dx);
  const I steps = hn::Max(hn::Abs(dy), dx);
  const I drift = hn::Min(hn::Abs(dy), dx);
  const auto slope = hn::Div(hn::ConvertTo(df, hn::ShiftLeft<16>(drift)), hn::ConvertTo(df, steps));
  hn::Store(word(line.left), d, walks.left);
  hn::Store(hn::IfThenElse(isSteep, row, hn::Set(d, 1)), d, walks.forward);
  hn::Store(hn::IfThenElse(isSteep, hn::Set(d, 1), row), d, walks.sideways);
  hn::Store(hn::ConvertTo(d, slope), d, walks.slope);
  hn::Store(steps, d, walks.steps);
}

// The steps of a line side by side. Step i of n has gone floor((2 i a + n) / (2 n))
// aside, the whole part of i a / n + 1/2, which misses the next whole number by
// 1 / (2 n) > 2^-7 if at all. The slope is less than 1.01 units of 2^-16 below
// a / n, and hardly above, so in 63 steps less than 2^-10 is lost; with 2^-9 more
// than 1/2 added the whole part is the exact one.
HWY_INLINE void walkSteps(const Walks& walks, std::size_t k, WireLists::Pixels& pixels,
                          const Places& places) {
  const Ints d;
  const std::int32_t steps = walks.steps[k];
  const I left = hn::Set(d, walks.left[k]);
  const I forward = hn::Set(d, walks.forward[k]);
  const I sideways = hn::Set(d, walks.sideways[k]);
  const I slope = hn::Set(d, walks.slope[k]);
  const I half = hn::Set(d, (1 << 15) + (1 << 7));
  for (std::int32_t first = 1; first < steps; first += static_cast<std::int32_t>(hn::Lanes(d))) {
    const I step = hn::Iota(d, first);
    const I aside = hn::ShiftRight<16>(hn::Add(hn::Mul(step, slope), half));
    const I at = hn::Add(hn::Add(left, hn::Mul(step, forward)), hn::Mul(aside, sideways));
    hn::StoreU(places(at), d, pixels.at + pixels.count);
    pixels.count += std::min(hn::Lanes(d), static_cast<std::size_t>(steps - first));
  }
}

inline void walkFurther(std::int32_t spot, std::int32_t way, const MaskPixels& lit) {
  const std::int64_t x = spot & 0xFFFF;
  const std::int64_t y = spot >> 16;
  const std::int64_t endX = x + static_cast<std::int16_t>(way & 0xFFFF);
  const std::int64_t endY = y + (way >> 16);
  const LineSegment line =
      x <= endX ? LineSegment{x, y, endX, endY} : LineSegment{endX, endY, x, y};
  if (y == endY) {
    for (std::int64_t i = line.x1; i < line.x2; ++i) {
      lit.light(static_cast<std::int32_t>(i), static_cast<std::int32_t>(y));
    }
  } else {
    walkLine(line, PixelColumn::kSpotPitch, [&](std::int64_t at) { lit.lightSpot(at); });
  }
}

inline HWY_ATTR void walkMore(WireQueue& queue, const MaskPixels& lit, WireLists::Pixels& pixels,
                              const Places& places) {
  const Ints d;
  Walks walks;
  for (std::size_t i = 0; i < queue.count; i += hn::Lanes(d)) {
    const std::size_t count = std::min(hn::Lanes(d), queue.count - i);
    prepareWalks(hn::Load(d, queue.start + i), hn::Load(d, queue.way + i), walks);
    for (std::size_t k = 0; k < count; ++k) {
      if (walks.steps[k] <= kVectorWalk) {
        walkSteps(walks, k, pixels, places);
      } else {
        walkFurther(queue.start[i + k], queue.way[i + k], lit);
      }
      if (pixels.count > WireLists::Pixels::kKept) {
        lightPixels(pixels, lit);
      }
    }
  }
  queue.count = 0;
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
