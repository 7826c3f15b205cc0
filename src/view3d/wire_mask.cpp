#include "view3d/wire_mask.h"

#include <algorithm>
#include <array>
#include <bit>
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

using Words = hn::CappedTag<std::uint32_t, FrameCells::kWidth>;

/// Where something begins in a row of cells.
struct Band {
  std::uint32_t* pixels;            ///< in the lowest row
  const std::uint32_t* background;  ///< null for 0 everywhere
  std::array<const std::uint32_t*, kMostMasks> masks;
};

/// Asks for a cell that is written soon: stores to lines that are not at hand hold
/// each other up.
HWY_INLINE void fetch(const std::uint32_t* cell, std::size_t width) {
  for (std::size_t row = 0; row < FrameCells::kHeight; ++row) {
    hwy::Prefetch(cell + row * width);
  }
}

/// The words of all masks from `x` on.
template <std::size_t kMasks, class D>
HWY_INLINE hn::Vec<D> marks(D d, const Band& band, std::size_t x) {
  auto all = hn::LoadU(d, band.masks[0] + x);
  for (std::size_t m = 1; m < kMasks; ++m) {
    all = hn::Or(all, hn::LoadU(d, band.masks[m] + x));
  }
  return all;
}

/// What a job's pixels become, kept where stores to the frame cannot be thought to
/// change it.
template <class D>
struct Ink {
  HWY_INLINE Ink(D d, const PaintJob& job)
      : marked(hn::Set(d, job.mark * 0x01010101U)),
        marks{hn::Set(d, std::uint32_t{job.mark}), hn::Set(d, std::uint32_t{job.mark} << 8U),
              hn::Set(d, std::uint32_t{job.mark} << 16U),
              hn::Set(d, std::uint32_t{job.mark} << 24U)},
        colour(hn::Set(d, job.colour)),
        width(static_cast<std::size_t>(job.width)) {
    static_assert(std::endian::native == std::endian::little);  // the lowest row comes first
  }

  hn::Vec<D> marked;  ///< in every row
  hn::Vec<D> marks[FrameCells::kHeight];
  hn::Vec<D> colour;
  std::size_t width;
};

/// Pixels from `x` on in some rows, as many as the tag has lanes.
template <std::size_t kMasks, bool kBlack, class D>
HWY_INLINE void paintSome(D d, const Ink<D>& ink, const Band& band, std::size_t x,
                          std::size_t rows) {
  const auto lit = marks<kMasks>(d, band, x);
  std::size_t at = x;
  for (std::size_t row = 0; row < rows; ++row, at += ink.width) {
    const auto isLit = hn::TestBit(lit, ink.marks[row]);
    if constexpr (kBlack) {
      hn::StoreU(hn::IfThenElseZero(isLit, ink.colour), d, band.pixels + at);
    } else {
      const auto behind = hn::LoadU(d, band.background + at);
      hn::StoreU(hn::IfThenElse(isLit, ink.colour, behind), d, band.pixels + at);
    }
  }
}

template <std::size_t kMasks, bool kBlack>
HWY_INLINE void paintCell(const Ink<Words>& ink, const Band& band, std::size_t x,
                          std::size_t rows) {
  const Words d;
  for (std::size_t i = 0; i < FrameCells::kWidth; i += hn::Lanes(d)) {
    paintSome<kMasks, kBlack>(d, ink, band, x + i, rows);
  }
}

template <std::size_t kMasks>
HWY_INLINE bool hasLight(const Ink<Words>& ink, const Band& band, std::size_t x) {
  const Words d;
  auto all = hn::Zero(d);
  for (std::size_t i = 0; i < FrameCells::kWidth; i += hn::Lanes(d)) {
    all = hn::Or(all, marks<kMasks>(d, band, x + i));
  }
  return !hn::AllTrue(d, hn::Eq(hn::And(all, ink.marked), hn::Zero(d)));
}

/// Cell by cell; those that are clean and stay so are left.
template <std::size_t kMasks, bool kBlack>
HWY_INLINE void paintBand(const PaintJob& job, const Ink<Words>& ink, const Band& band,
                          std::size_t count, std::size_t rows, std::uint8_t* dirty) {
  constexpr std::size_t kCell = FrameCells::kWidth;
  std::size_t x = 0;
  for (; x + kCell <= count; x += kCell, ++dirty) {
    const bool isLit = hasLight<kMasks>(ink, band, x);
    if (!isLit && *dirty == 0) {
      continue;
    }
    if (rows == FrameCells::kHeight) {
      fetch(band.pixels + x + kCell, ink.width);
      if (!kBlack) {
        fetch(band.background + x + kCell, ink.width);
      }
      paintCell<kMasks, kBlack>(ink, band, x, FrameCells::kHeight);
    } else {
      paintCell<kMasks, kBlack>(ink, band, x, rows);
    }
    *dirty = isLit ? 1 : 0;
  }
  if (x == count) {
    return;
  }
  *dirty = 1;
  using Single = hn::CappedTag<std::uint32_t, 1>;
  const Ink<Single> single(Single(), job);
  for (; x < count; ++x) {
    paintSome<kMasks, kBlack>(Single(), single, band, x, rows);
  }
}

template <std::size_t kMasks, bool kBlack>
void paintBox(const PaintJob& job) {
  const PixelBox box = job.box;
  const FrameCells cells = job.masks[0].pixels().cells;
  const Ink<Words> ink(Words(), job);
  for (std::int32_t y = box.bottom; y < box.top; y += FrameCells::kHeight) {
    const std::int64_t first = std::int64_t{y} * job.width + box.left;
    Band band{job.pixels + first, kBlack ? nullptr : job.background + first, {}};
    for (std::size_t m = 0; m < kMasks; ++m) {
      band.masks[m] = job.masks[m].pixels().words + cells.word(box.left, y);
    }
    const std::int32_t rows = std::min(box.top - y, FrameCells::kHeight);
    paintBand<kMasks, kBlack>(job, ink, band, static_cast<std::size_t>(box.right - box.left),
                              static_cast<std::size_t>(rows), job.dirty + cells.cell(box.left, y));
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

bool WireMask::begin(std::int32_t width, std::int32_t height, std::uint8_t mark) {
  used_ = used_.with(box());
  reach_.clear();
  if (width != width_ || height != height_) {
    cells_ = FrameCells(width, height);
    const bool fits = words_.resize(cells_.words());
    width_ = fits ? width : 0;
    height_ = fits ? height : 0;
    std::fill_n(words_.data(), words_.size(), 0U);
    used_ = {};
    mark_ = mark;
    return fits;
  }
  if (mark <= mark_) {
    clear();
  }
  mark_ = mark;
  return true;
}

void WireMask::clear() {
  constexpr std::int32_t kHeight = FrameCells::kHeight;
  for (std::int32_t y = used_.bottom / kHeight * kHeight; y < used_.top; y += kHeight) {
    std::fill(words_.data() + cells_.word(used_.left, y),
              words_.data() + cells_.word(used_.right, y), 0U);
  }
  used_ = {};
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
