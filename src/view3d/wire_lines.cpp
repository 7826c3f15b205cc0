// The lines of some columns of vertices, several vertices at a time.
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
#include "view3d/wire_windows-inl.h"
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
        few(lists.few.count),
        more(lists.more.count),
        windows(lists.windows.count) {}
  HWY_INLINE void keep(WireLists& lists) const {
    lists.pixels.count = pixels;
    lists.three.count = three;
    lists.few.count = few;
    lists.more.count = more;
    lists.windows.count = windows;
  }
  [[nodiscard]] HWY_INLINE bool areHigh() const {
    return std::max({three, few, more, windows}) > WireQueue::kKept ||
           pixels > WireLists::Pixels::kKept;
  }

  std::size_t pixels;
  std::size_t three;
  std::size_t few;
  std::size_t more;
  std::size_t windows;
};

/// Whether a line is not short, as LineWindows sees it.
HWY_INLINE hn::Mask<Ints> isBeyondWindow(S sides) {
  static_assert(LineWindows::kAcross == 8 && LineWindows::kUp == 7);
  const S reach = hn::Sub(sides, halves(hn::Set(Ints(), 1)));
  return hasBits(word(hn::Max(reach, hn::Zero(Shorts()))), 0xFFF8FFF8U);
}

/// Queues whole lines.
HWY_INLINE void queueLines(I spot, I way, const Places& places, WireLists& lists, Counts& counts) {
  const Ints d;
  const auto isLine = hn::Ne(way, hn::Zero(d));
  const auto isBeyond = isBeyondWindow(hn::Abs(halves(way)));
  const Windows windows = windowsOf(spot, way, places);
  add(lists.windows, counts.windows, hn::AndNot(isBeyond, isLine), windows.at, windows.which);
  if (!hn::AllFalse(d, isBeyond)) {
    add(lists.more, counts.more, isBeyond, spot, way);
  }
}

/// Queues what lines of more than one step light between their ends; those in `more`
/// light their ends as well.
HWY_INLINE void queueInner(I spot, I way, WireLists& lists, Counts& counts) {
  const Ints d;
  const S sides = hn::Abs(halves(way));
  const auto hasInner = hasBits(word(sides), 0xFFFEFFFEU);
  if (hn::AllFalse(d, hasInner)) {
    return;
  }
  const auto isBeyondThree = hasBits(word(sides), 0xFFFCFFFCU);
  add(lists.three, counts.three, hn::AndNot(isBeyondThree, hasInner), spot, way);
  if (!hn::AllFalse(d, isBeyondThree)) {
    const auto isBeyond = isBeyondWindow(sides);
    add(lists.few, counts.few, hn::AndNot(isBeyond, isBeyondThree), spot, way);
    add(lists.more, counts.more, isBeyond, spot, way);
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
  const Places places(target.pixels.strips);
  walkThree(lists.three, lists.pixels, places);
  walkFew(lists.few, lists.pixels, target.pixels, places);
  lightPixels(lists.pixels, target.pixels);
  walkMore(lists, target, places);
  lightWindows(lists.windows, target);
  leaveVectors();
}

/// Lists the lines of some vertices, all of them as windows.
HWY_INLINE void listLoose(I spot, I up, I on, const Places& places, WireLists& lists,
                          Counts& counts) {
  queueLines(spot, up, places, lists, counts);
  queueLines(spot, on, places, lists, counts);
}

/// The same for the most part pixel by pixel.
//
// Where all ends are on the canvas a vertex' own pixel is lit exactly when one
// of its four lines lights it: a line that is not horizontal lights both ends,
// a horizontal one its left end, and one without length none. So each vertex
// takes one store at most, and a line adds only the pixels between its ends.
HWY_INLINE void listDense(I spot, I up, I on, I down, I back, const Places& places,
                          WireLists& lists, Counts& counts) {
  add(lists.pixels, counts.pixels, isLit(up, on, down, back), places.singles(spot));
  queueInner(spot, up, lists, counts);
  queueInner(spot, on, lists, counts);
}

/// A chunk of all columns of a group that have it. What is read for a column stays for
/// those beside it; the others are read too, whatever they hold.
template <bool kDense>
HWY_INLINE void listChunk(const WireGroup& group, std::size_t chunk, const Places& places,
                          WireLists& lists, Counts& counts) {
  const Ints d;
  const std::size_t first = PixelColumn::kLead + chunk * PixelColumn::kChunk;
  for (std::size_t i = first; i < first + PixelColumn::kChunk; i += hn::Lanes(d)) {
    I before = hn::Load(d, group.columns[0]->spots + i);
    I spot = hn::Load(d, group.columns[1]->spots + i);
    for (std::size_t c = 0; c < group.count; ++c) {
      const std::int32_t* column = group.columns[c + 1]->spots + i;
      const I after = hn::Load(d, group.columns[c + 2]->spots + i);
      if ((group.chunks[c] >> chunk & 1U) != 0) {
        const I up = difference(hn::LoadU(d, column + 1), spot);
        const I on = difference(after, spot);
        if constexpr (kDense) {
          const I down = difference(hn::LoadU(d, column - 1), spot);
          listDense(spot, up, on, down, difference(before, spot), places, lists, counts);
        } else {
          listLoose(spot, up, on, places, lists, counts);
        }
      }
      before = spot;
      spot = after;
    }
  }
}

template <bool kDense>
void listGroup(const WireGroup& group, const WireTarget& target, WireLists& lists) {
  const Places places(target.pixels.strips);
  std::uint32_t chunks = 0;
  for (std::size_t c = 0; c < group.count; ++c) {
    chunks |= group.chunks[c];
  }
  Counts counts(lists);
  for (; chunks != 0; chunks &= chunks - 1) {
    const auto chunk = static_cast<std::size_t>(std::countr_zero(chunks));
    listChunk<kDense>(group, chunk, places, lists, counts);
    if (counts.areHigh()) {
      counts.keep(lists);
      lightAll(target, lists);
      counts = Counts(lists);
    }
  }
  counts.keep(lists);
}

void light(const WireGroup& group, const WireTarget& target, WireLists& lists) {
  if (target.isDense) {
    listGroup<true>(group, target, lists);
  } else {
    listGroup<false>(group, target, lists);
  }
  leaveVectors();
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(light);
HWY_EXPORT(lightAll);

void lightGroup(const WireGroup& group, const WireTarget& target, WireLists& lists) {
  HWY_DYNAMIC_DISPATCH(light)(group, target, lists);
}

void lightListed(const WireTarget& target, WireLists& lists) {
  HWY_DYNAMIC_DISPATCH(lightAll)(target, lists);
}

}  // namespace pv

#endif
