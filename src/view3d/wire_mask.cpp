#include "view3d/wire_mask.h"

#include <algorithm>
#include <array>
#include <hwy/cache_control.h>
#include <utility>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/wire_mask.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
// clang-format on

#ifndef PV_VIEW3D_WIRE_MASK_ONCE
#define PV_VIEW3D_WIRE_MASK_ONCE
namespace pv {
inline constexpr std::size_t kMostMasks = 8;
}
#endif

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Where something begins in a row that is painted.
struct Row {
  std::uint32_t* pixels;
  const std::uint32_t* background;
  /// The row above, or this one again at the top.
  const std::uint32_t* nextPixels;
  const std::uint32_t* nextBackground;
  std::array<std::int8_t*, kMostMasks> masks;
};

/// Asks for a cell that is written soon: stores to lines that are not at hand hold
/// each other up.
HWY_INLINE void fetch(const std::uint32_t* cell) {
  constexpr std::size_t kLine = 16;  // pixels
  for (std::size_t i = 0; i < kFrameCell; i += kLine) {
    hwy::Prefetch(cell + i);
  }
}

/// Pixels from `x` on, as many as the tag has lanes.
template <std::size_t kMasks, bool kBlack, class D>
HWY_INLINE void paintSome(D d, std::uint32_t colour, const Row& row, std::size_t x) {
  const hn::Rebind<std::int8_t, D> bytes;
  const hn::RebindToSigned<D> words;
  auto lit = hn::LoadU(bytes, row.masks[0] + x);
  for (std::size_t m = 1; m < kMasks; ++m) {
    lit = hn::Or(lit, hn::LoadU(bytes, row.masks[m] + x));
  }
  const auto isLit = hn::BitCast(d, hn::PromoteTo(words, lit));  // all bits or none
  const auto ink = hn::And(isLit, hn::Set(d, colour));
  if constexpr (kBlack) {
    hn::StoreU(ink, d, row.pixels + x);
  } else {
    hn::StoreU(hn::Or(ink, hn::AndNot(isLit, hn::LoadU(d, row.background + x))), d, row.pixels + x);
  }
}

/// Whether anything is lit in a whole cell.
template <std::size_t kMasks>
HWY_INLINE bool hasLight(const Row& row, std::size_t x) {
  const hn::CappedTag<std::int8_t, kFrameCell> d;
  auto lit = hn::Zero(d);
  for (std::size_t m = 0; m < kMasks; ++m) {
    for (std::size_t i = 0; i < kFrameCell; i += hn::Lanes(d)) {
      lit = hn::Or(lit, hn::LoadU(d, row.masks[m] + x + i));
    }
  }
  return !hn::AllTrue(d, hn::Eq(lit, hn::Zero(d)));
}

/// Puts the masks out, as many pixels as `kPixels` says.
template <std::size_t kMasks, std::size_t kPixels>
HWY_INLINE void putOut(const Row& row, std::size_t x) {
  const hn::CappedTag<std::int8_t, kPixels> d;
  for (std::size_t m = 0; m < kMasks; ++m) {
    for (std::size_t i = 0; i < kPixels; i += hn::Lanes(d)) {
      hn::StoreU(hn::Zero(d), d, row.masks[m] + x + i);
    }
  }
}

/// Cell by cell, from a cell's start on; cells that are clean and stay so are left.
template <std::size_t kMasks, bool kBlack>
HWY_INLINE void paintRow(const Row& row, std::size_t count, std::uint32_t colour,
                         std::uint8_t* dirty) {
  const hn::CappedTag<std::uint32_t, kFrameCell> d;
  const hn::CappedTag<std::uint32_t, 1> single;
  std::size_t x = 0;
  for (; x + kFrameCell <= count; x += kFrameCell, ++dirty) {
    const bool isLit = hasLight<kMasks>(row, x);
    if (isLit || *dirty != 0) {
      fetch(row.nextPixels + x);
      if (!kBlack) {
        fetch(row.nextBackground + x);
      }
      for (std::size_t i = 0; i < kFrameCell; i += hn::Lanes(d)) {
        paintSome<kMasks, kBlack>(d, colour, row, x + i);
      }
      putOut<kMasks, kFrameCell>(row, x);
      *dirty = isLit ? 1 : 0;
    }
  }
  if (x < count) {
    *dirty = 1;
  }
  for (; x < count; ++x) {
    paintSome<kMasks, kBlack>(single, colour, row, x);
    putOut<kMasks, 1>(row, x);
  }
}

template <std::size_t kMasks, bool kBlack>
void paintBox(const PaintJob& job) {
  const std::size_t pitch = frameCells(job.width);
  const auto width = static_cast<std::size_t>(job.box.right - job.box.left);
  for (std::int32_t y = job.box.bottom; y < job.box.top; ++y) {
    const std::int64_t first = std::int64_t{y} * job.width + job.box.left;
    const std::int64_t next = y + 1 < job.box.top ? first + job.width : first;
    Row row{job.pixels + first,
            kBlack ? nullptr : job.background + first,
            job.pixels + next,
            kBlack ? nullptr : job.background + next,
            {}};
    for (std::size_t m = 0; m < kMasks; ++m) {
      row.masks[m] = reinterpret_cast<std::int8_t*>(job.masks[m].lit() + first);
    }
    paintRow<kMasks, kBlack>(row, width, job.colour,
                             job.dirty + static_cast<std::size_t>(y) * pitch +
                                 static_cast<std::size_t>(job.box.left) / kFrameCell);
  }
}

/// One form for every number of masks, so that a pixel takes no loop.
template <std::size_t... kMasks>
HWY_INLINE void paintBoxOf(const PaintJob& job, std::index_sequence<kMasks...> /*most*/) {
  const std::size_t count = job.masks.size();
  const bool isBlack = job.background == nullptr;
  ((count != kMasks + 1 ? void()
    : isBlack           ? paintBox<kMasks + 1, true>(job)
                        : paintBox<kMasks + 1, false>(job)),
   ...);
}

void paint(const PaintJob& job) {
  paintBoxOf(job, std::make_index_sequence<kMostMasks>());
  leaveVectors();
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(paint);

bool WireMask::resize(std::int32_t width, std::int32_t height) {
  if (width == width_ && height == height_) {
    return true;
  }
  reach_.clear();
  const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  const bool fits = lit_.resize(size + kReadable);
  width_ = fits ? width : 0;
  height_ = fits ? height : 0;
  std::fill_n(lit_.data(), lit_.size(), std::uint8_t{0});
  return fits;
}

PixelBox WireMask::box() const {
  PixelBox box{width_, height_, 0, 0};
  for (std::size_t lane = 0; lane < PixelReach::kLanes; lane += 2) {
    box.left = std::min<std::int32_t>(box.left, reach_.low[lane]);
    box.bottom = std::min<std::int32_t>(box.bottom, reach_.low[lane + 1]);
    box.right = std::max<std::int32_t>(box.right, reach_.high[lane] + 1);
    box.top = std::max<std::int32_t>(box.top, reach_.high[lane + 1] + 1);
  }
  return {std::max(box.left, 0), std::max(box.bottom, 0), std::min(box.right, width_),
          std::min(box.top, height_)};
}

void paintMasks(const PaintJob& job) {
  HWY_DYNAMIC_DISPATCH(paint)(job);
}

}  // namespace pv

#endif
