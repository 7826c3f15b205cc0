// Lines as windows of a mask: eight rows of a strip at a time.
// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_WINDOWS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_WINDOWS_INL_H_
#undef PV_VIEW3D_WIRE_WINDOWS_INL_H_
#else
#define PV_VIEW3D_WIRE_WINDOWS_INL_H_
#endif

#include <algorithm>
#include <hwy/highway.h>

#include "raster/line_walk.h"
#include "view3d/line_windows.h"
#include "view3d/wire_lines.h"
#include "view3d/wire_lists-inl.h"
#include "view3d/wire_words-inl.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

/// Where windows lie in a mask, and which they are; both in bytes.
struct Windows {
  I at;
  I which;
};

/// Of lines that are short.
HWY_INLINE Windows windowsOf(I spot, I way, const Places& places) {
  const Ints d;
  const Rightward line(spot, way);
  // The way across is not negative, so this is how far down the line goes.
  const S down = hn::Min(line.sides, hn::Zero(Shorts()));
  const I place = hn::Add(Places::inStrip(word(line.left)), hn::Set(d, LineWindows::kMiddle));
  const I which = flattened(word(line.sides), LineWindows::kPlaces, LineWindows::kPitch);
  static_assert(sizeof(LineWindows::Window) == 1U << 4U);
  return {places.bytes(word(hn::Add(line.left, down))), hn::ShiftLeft<4>(hn::Add(which, place))};
}

/// Fills the last vector up with windows of no pixels, and turns the lanes of each vector
/// by another number.
HWY_INLINE void spread(WireQueue& windows) {
  const Ints d;
  constexpr std::int32_t kTurn = 5;  // lanes; 1, 3 and 7 were slower
  constexpr auto kNone =
      static_cast<std::int32_t>(LineWindows::kMiddle * sizeof(LineWindows::Window));
  const I lanes = hn::Set(d, static_cast<std::int32_t>(hn::Lanes(d) - 1));
  I order = hn::Iota(d, 0);
  for (std::size_t i = 0; i < windows.count; i += hn::Lanes(d)) {
    const auto inUse = hn::FirstN(d, windows.count - i);
    const auto turned = hn::IndicesFromVec(d, order);
    const I at = hn::IfThenElseZero(inUse, hn::Load(d, windows.start + i));
    const I which = hn::IfThenElse(inUse, hn::Load(d, windows.way + i), hn::Set(d, kNone));
    hn::Store(hn::TableLookupLanes(at, turned), d, windows.start + i);
    hn::Store(hn::TableLookupLanes(which, turned), d, windows.way + i);
    order = hn::And(hn::Add(order, hn::Set(d, kTurn)), lanes);
  }
}

/// Puts windows over what is in the mask.
//
// A processor that reads what it has just written in other pieces waits until that is in
// the cache. Windows of neighbouring lines overlap, and they are neighbours in the list
// too. So it is gone through lane by lane, and since the lanes are turned, what follows
// each other lies in other rows of other columns.
HWY_INLINE void lightWindows(WireQueue& windows, const WireTarget& target) {
  const Ints d;
  const hn::CappedTag<std::uint16_t, FrameStrips::kWindowRows> dw;
  spread(windows);
  const std::size_t count = hwy::RoundUpTo(windows.count, hn::Lanes(d));
  const auto* table = reinterpret_cast<const std::uint8_t*>(target.windows->data());
  std::uint8_t* bytes = target.pixels.firstWords();
  for (std::size_t lane = 0; lane < hn::Lanes(d); ++lane) {
    for (std::size_t i = lane; i < count; i += hn::Lanes(d)) {
      auto* to = reinterpret_cast<std::uint16_t*>(bytes + windows.start[i]);
      const auto* from = reinterpret_cast<const std::uint16_t*>(table + windows.way[i]);
      for (std::size_t row = 0; row < FrameStrips::kWindowRows; row += hn::Lanes(dw)) {
        hn::StoreU(hn::Or(hn::LoadU(dw, to + row), hn::Load(dw, from + row)), dw, to + row);
      }
    }
  }
  windows.count = 0;
}

// --- longer lines ------------------------------------------------------------

constexpr std::int32_t kMostSteps = 63;

/// Quotients with sixteen binary places. Conversions by 512 bits, like products, would
/// lower the clock of some processors by a fifth for all that follows.
template <class D, class V>
HWY_INLINE V quotient(D d, V a, V b) {
  if constexpr (hn::MaxLanes(d) > 8) {
    const hn::Half<D> half;
    return hn::Combine(d, quotient(half, hn::UpperHalf(half, a), hn::UpperHalf(half, b)),
                       quotient(half, hn::LowerHalf(half, a), hn::LowerHalf(half, b)));
  } else {
    const hn::RebindToFloat<D> df;
    return hn::ConvertTo(d, hn::Div(hn::ConvertTo(df, hn::ShiftLeft<16>(a)), hn::ConvertTo(df, b)));
  }
}

/// Lines that are walked side by side. The slope, aside per step, has sixteen binary
/// places.
struct Slopes {
  HWY_INLINE Slopes(I spot, I way) {
    const Ints d;
    const Rightward line(spot, way);
    left = word(line.left);
    const I dx = line.dx();
    const I dy = line.dy();
    const I height = hn::Abs(dy);
    isSteep = hn::Gt(height, dx);
    isDownward = hn::Lt(dy, hn::Zero(d));
    steps = hn::Max(height, dx);
    slope = quotient(d, hn::Min(height, dx), steps);
    aside = hn::Set(d, (1 << 15) + (1 << 7));
    const auto isFlat = hn::Eq(dy, hn::Zero(d));
    pixels = hn::Add(steps, hn::IfThenZeroElse(isFlat, hn::Set(d, 1)));
  }

  I left;  ///< ends, as words of two halves
  hn::Mask<Ints> isSteep;
  hn::Mask<Ints> isDownward;
  I steps;
  I slope;
  I pixels;  ///< a horizontal line lacks its right end
  I aside;   ///< of the next step
};

/// Queues the windows of the stretches that begin with step `first` of lines that
/// have one.
//
// Step i of n has gone floor((2 i a + n) / (2 n)) aside, the whole part of i a / n +
// 1/2, which misses the next whole number by 1 / (2 n) > 2^-7 if at all. The slope is
// less than 1.01 units of 2^-16 below a / n, and hardly above, so in 63 steps less
// than 2^-10 is lost; with 2^-9 more than 1/2 added the whole part is the exact one.
HWY_INLINE void queueStretches(Slopes& slopes, std::int32_t first, hn::Mask<Ints> inUse,
                               const Places& places, WireQueue& windows) {
  const Ints d;
  constexpr std::int32_t kStretch = LineWindows::kStretch;
  // A turn is the difference of two neighbours; here all of them, times their bits, are
  // summed up.
  const I start = hn::ShiftRight<16>(slopes.aside);
  I before = start;
  I turns = hn::Zero(d);
  for (std::int32_t i = 1; i < kStretch; ++i) {
    slopes.aside = hn::Add(slopes.aside, slopes.slope);
    const I gone = hn::ShiftRight<16>(slopes.aside);
    turns = hn::Add(hn::ShiftRight<1>(turns), hn::ShiftLeft<kStretch - 2>(hn::Sub(gone, before)));
    before = gone;
  }
  slopes.aside = hn::Add(slopes.aside, slopes.slope);
  const I left = hn::Sub(hn::Min(hn::Sub(slopes.pixels, hn::Set(d, first)), hn::Set(d, kStretch)),
                         hn::Set(d, 1));
  const I top = hn::Shl(hn::Set(d, 1), hn::Max(left, hn::Zero(d)));
  turns = hn::Or(hn::And(turns, hn::Sub(top, hn::Set(d, 1))), top);
  const I forward = hn::Set(d, first);
  const I across = hn::IfThenElse(slopes.isSteep, start, forward);
  const I up = hn::IfThenElse(slopes.isSteep, forward, start);
  const I down = hn::Sub(hn::Zero(d), hn::Add(up, hn::Set(d, LineWindows::kHighest)));
  const I spot = word(hn::Add(
      halves(slopes.left),
      halves(hn::Add(hn::ShiftLeft<16>(hn::IfThenElse(slopes.isDownward, down, up)), across))));
  const I kind = hn::Add(hn::IfThenElseZero(slopes.isSteep, hn::Set(d, LineWindows::kSteep)),
                         hn::IfThenElseZero(slopes.isDownward, hn::Set(d, LineWindows::kDownward)));
  const I window = hn::Add(hn::Add(hn::ShiftLeft<3>(turns), kind),
                           hn::Add(Places::inStrip(spot), hn::Set(d, LineWindows::kStretches)));
  add(windows, windows.count, inUse, places.bytes(spot), hn::ShiftLeft<4>(window));
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

/// Lines of up to 63 steps as windows, the others pixel by pixel, with those of their vector.
inline HWY_ATTR void walkMore(WireLists& lists, const WireTarget& target, const Places& places) {
  const Ints d;
  static_assert(PixelColumn::kChunk * (kMostSteps / LineWindows::kStretch + 1) <=
                WireQueue::kRoom - WireQueue::kKept);
  const WireQueue& queue = lists.more;
  for (std::size_t i = 0; i < queue.count; i += hn::Lanes(d)) {
    if (lists.windows.count > WireQueue::kKept) {
      lightWindows(lists.windows, target);
    }
    Slopes slopes(hn::Load(d, queue.start + i), hn::Load(d, queue.way + i));
    const auto inUse = hn::FirstN(d, queue.count - i);
    const auto isTooLong = hn::And(inUse, hn::Gt(slopes.steps, hn::Set(d, kMostSteps)));
    auto goesOn = hn::AndNot(isTooLong, inUse);
    for (std::int32_t first = 0; !hn::AllFalse(d, goesOn); first += LineWindows::kStretch) {
      queueStretches(slopes, first, goesOn, places, lists.windows);
      goesOn = hn::And(goesOn, hn::Gt(slopes.pixels, hn::Set(d, first + LineWindows::kStretch)));
    }
    if (!hn::AllFalse(d, isTooLong)) {
      for (std::size_t k = i; k < std::min(i + hn::Lanes(d), queue.count); ++k) {
        walkFurther(queue.start[k], queue.way[k], target.pixels);
      }
    }
  }
  lists.more.count = 0;
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
