// The lines of dense columns, whose inner pixels are lit one by one.
// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_WALKS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_WALKS_INL_H_
#undef PV_VIEW3D_WIRE_WALKS_INL_H_
#else
#define PV_VIEW3D_WIRE_WALKS_INL_H_
#endif

#include <algorithm>
#include <array>
#include <hwy/highway.h>

#include "view3d/wire_lines.h"
#include "view3d/wire_lists-inl.h"
#include "view3d/wire_words-inl.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

/// Some at a time, the last one repeated. Loads stand before stores, of which the
/// compiler cannot know that they do not reach the list.
HWY_INLINE void lightPixels(WireLists::Pixels& pixels, const MaskPixels& lit) {
  constexpr std::size_t kAtATime = 8;
  static_assert(kAtATime <= WireQueue::kSpare);
  const std::size_t count = pixels.count;
  const std::int32_t* at = pixels.at;
  std::uint8_t* bytes = lit.firstSingles();
  if (count == 0) {
    return;
  }
  std::fill_n(pixels.at + count, kAtATime - 1, pixels.at[count - 1]);
  for (std::size_t i = 0; i < count; i += kAtATime) {
    std::array<std::uint32_t, kAtATime> some{};
    std::copy_n(at + i, kAtATime, some.begin());
    for (const std::uint32_t pixel : some) {
      bytes[pixel] = 1;
    }
  }
  lit.singles->areUsed = true;
  pixels.count = 0;
}

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
    add(pixels, count, inUse, places.singles(word(hn::Add(line.left, first))));
    add(pixels, count, hasSecond, places.singles(word(hn::Add(line.left, second))));
  }
  pixels.count = count;
  queue.count = 0;
}

// --- lines of a few steps ----------------------------------------------------

/// Bresenham's walks side by side, from their left ends.
struct Walks {
  HWY_INLINE Walks(const Rightward& line, hn::Mask<Ints> inUse) {
    const Ints d;
    const I dx = line.dx();
    const I height = hn::Abs(line.dy());
    const auto isDownward = hn::Lt(line.dy(), hn::Zero(d));
    const I upward = hn::IfThenElse(isDownward, hn::Set(d, -PixelColumn::kSpotPitch),
                                    hn::Set(d, PixelColumn::kSpotPitch));
    const auto isSteep = hn::Gt(height, dx);
    forward = hn::IfThenElse(isSteep, upward, hn::Set(d, 1));
    sideways = hn::IfThenElse(isSteep, hn::Set(d, 1), upward);
    steps = hn::IfThenElseZero(inUse, hn::Max(height, dx));
    const I drift = hn::Min(height, dx);
    drift2 = hn::Add(drift, drift);
    error = hn::Sub(drift2, steps);
    at = word(line.left);
  }
  HWY_INLINE void step() {
    const Ints d;
    const auto turns = hn::Gt(error, hn::Set(d, -1));
    at = hn::Add(hn::Add(at, forward), hn::IfThenElseZero(turns, sideways));
    const I back = hn::IfThenElseZero(turns, hn::Add(steps, steps));
    error = hn::Add(error, hn::Sub(drift2, back));
  }

  I at;
  I forward;
  I sideways;
  I steps;  ///< 0 where there is no line
  I drift2;
  I error;
};

inline HWY_ATTR void walkFew(WireQueue& queue, WireLists::Pixels& pixels, const MaskPixels& lit,
                             const Places& places) {
  const Ints d;
  for (std::size_t i = 0; i < queue.count; i += hn::Lanes(d)) {
    const Rightward line(hn::Load(d, queue.start + i), hn::Load(d, queue.way + i));
    Walks walks(line, hn::FirstN(d, queue.count - i));
    auto goesOn = hn::Gt(walks.steps, hn::Set(d, 1));
    for (std::int32_t step = 1; !hn::AllFalse(d, goesOn); ++step) {
      walks.step();
      add(pixels, pixels.count, goesOn, places.singles(walks.at));
      goesOn = hn::Gt(walks.steps, hn::Set(d, step + 1));
    }
    if (pixels.count > WireLists::Pixels::kKept) {
      lightPixels(pixels, lit);
    }
  }
  queue.count = 0;
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
