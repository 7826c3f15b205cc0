#include "view3d/wire_mask.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <hwy/cache_control.h>
#include <utility>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/wire_mask.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "view3d/single_pixels-inl.h"
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

using Pixels = hn::CappedTag<std::uint32_t, FrameCells::kWidth>;
using Rows = hn::CappedTag<std::uint16_t, FrameCells::kHeight>;

/// Where something begins in a row of cells.
struct Band {
  std::uint32_t* pixels;                               ///< in the lowest row
  const std::uint32_t* background;                     ///< null for 0 everywhere
  std::array<const std::uint16_t*, kMostMasks> masks;  ///< in the strip to the left
};

/// Asks for a cell that is written soon: stores to lines that are not at hand hold
/// each other up.
HWY_INLINE void fetch(const std::uint32_t* cell, std::size_t width) {
  for (std::size_t row = 0; row < FrameCells::kHeight; ++row) {
    hwy::Prefetch(cell + row * width);
  }
}

/// Which pixels of a cell are lit: a word for every row.
struct alignas(16) CellLight {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  CellLight() {}

  std::uint16_t rows[FrameCells::kHeight];
};

/// Gathers those of all masks; the cell is right of strip `strip`. False if none is lit.
template <std::size_t kMasks>
HWY_INLINE bool gather(const Band& band, std::size_t strip, std::size_t pitch, CellLight& light) {
  const Rows d;
  auto any = hn::Zero(d);
  for (std::size_t row = 0; row < FrameCells::kHeight; row += hn::Lanes(d)) {
    const auto words = [&](std::size_t s) HWY_ATTR {
      const std::size_t at = (strip + s) * pitch + row;
      auto all = hn::LoadU(d, band.masks[0] + at);
      for (std::size_t m = 1; m < kMasks; ++m) {
        all = hn::Or(all, hn::LoadU(d, band.masks[m] + at));
      }
      return all;
    };
    const auto others = hn::Or(hn::ShiftRight<8>(words(0)), hn::ShiftLeft<8>(words(2)));
    const auto lit = hn::Or(words(1), others);
    hn::Store(lit, d, light.rows + row);
    any = hn::Or(any, lit);
  }
  return !hn::AllTrue(d, hn::Eq(any, hn::Zero(d)));
}

/// What a job's pixels become, kept where stores to the frame cannot be thought to
/// change it.
struct Ink {
  HWY_INLINE explicit Ink(const PaintJob& job)
      : colour(hn::Set(Pixels(), job.colour)), width(static_cast<std::size_t>(job.width)) {
    for (std::size_t i = 0; i < 2 * kVectors; ++i) {
      const auto bit = hn::Iota(Pixels(), static_cast<std::uint32_t>(i * hn::Lanes(Pixels())));
      bits[i] = hn::Shl(hn::Set(Pixels(), 1U), bit);
    }
  }

  static constexpr std::size_t kVectors = FrameCells::kWidth / hn::MaxLanes(Pixels());
  hn::Vec<Pixels> bits[2 * kVectors];  ///< of two rows
  hn::Vec<Pixels> colour;
  std::size_t width;
};

// Rows are taken in twos, since a vector gets 32 bits from memory at once.
template <bool kBlack>
HWY_INLINE void paintCell(const Ink& ink, const CellLight& light, const Band& band, std::size_t x,
                          std::size_t rows) {
  const Pixels d;
  std::uint32_t* to = band.pixels + x;
  const std::uint32_t* behind = kBlack ? nullptr : band.background + x;
  for (std::size_t row = 0; row < rows; ++row) {
    static_assert(std::endian::native == std::endian::little);  // the lower row comes first
    std::uint32_t two = 0;
    std::memcpy(&two, light.rows + row / 2 * 2, sizeof(two));
    const auto lit = hn::Set(d, two);
    for (std::size_t i = 0; i < Ink::kVectors; ++i) {
      const auto isLit = hn::TestBit(lit, ink.bits[row % 2 * Ink::kVectors + i]);
      const std::size_t some = i * hn::Lanes(d);
      if constexpr (kBlack) {
        hn::StoreU(hn::IfThenElseZero(isLit, ink.colour), d, to + some);
      } else {
        hn::StoreU(hn::IfThenElse(isLit, ink.colour, hn::LoadU(d, behind + some)), d, to + some);
      }
    }
    to += ink.width;
    if constexpr (!kBlack) {
      behind += ink.width;
    }
  }
}

/// The part that the frame has of a cell at its right end.
template <bool kBlack>
void paintEdge(const PaintJob& job, const CellLight& light, const Band& band, std::size_t x,
               std::size_t columns, std::size_t rows) {
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t at = x + row * static_cast<std::size_t>(job.width);
    for (std::size_t i = 0; i < columns; ++i) {
      const bool isLit = (light.rows[row] >> i & 1U) != 0;
      band.pixels[at + i] = isLit ? job.colour : kBlack ? 0 : band.background[at + i];
    }
  }
}

/// Cell by cell; those that are clean and stay so are left.
template <std::size_t kMasks, bool kBlack>
HWY_INLINE void paintBand(const PaintJob& job, const Ink& ink, const Band& band, std::size_t pitch,
                          std::size_t count, std::size_t rows, std::uint8_t* dirty) {
  constexpr std::size_t kCell = FrameCells::kWidth;
  // By turns: a compiler that knew which one is written would take the rows out of the
  // vector, which is slower than reading them.
  CellLight lights[2];
  std::size_t strip = 0;
  for (std::size_t x = 0; x < count; x += kCell, ++dirty, strip += 2) {
    CellLight& light = lights[strip / 2 % 2];
    const bool isLit = gather<kMasks>(band, strip, pitch, light);
    if (!isLit && *dirty == 0) {
      continue;
    }
    *dirty = isLit ? 1 : 0;
    if (count - x < kCell) {
      paintEdge<kBlack>(job, light, band, x, count - x, rows);
    } else if (rows == FrameCells::kHeight) {
      fetch(band.pixels + x + kCell, ink.width);
      if (!kBlack) {
        fetch(band.background + x + kCell, ink.width);
      }
      paintCell<kBlack>(ink, light, band, x, FrameCells::kHeight);
    } else {
      paintCell<kBlack>(ink, light, band, x, rows);
    }
  }
}

template <std::size_t kMasks, bool kBlack>
void paintBox(const PaintJob& job) {
  const PixelBox box = job.box;
  const FrameCells cells(job.width, box.top);
  const FrameStrips strips = job.masks[0].pixels().strips;
  const Ink ink(job);
  for (std::int32_t y = box.bottom; y < box.top; y += FrameCells::kHeight) {
    const std::int64_t first = std::int64_t{y} * job.width + box.left;
    Band band{job.pixels + first, kBlack ? nullptr : job.background + first, {}};
    for (std::size_t m = 0; m < kMasks; ++m) {
      band.masks[m] = job.masks[m].pixels().words + strips.word(box.left - FrameStrips::kWidth, y);
    }
    const std::int32_t rows = std::min(box.top - y, FrameCells::kHeight);
    paintBand<kMasks, kBlack>(job, ink, band, static_cast<std::size_t>(strips.pitch()),
                              static_cast<std::size_t>(box.right - box.left),
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

void settle(const MaskPixels& lit, std::int64_t first, std::size_t count) {
  settleRows(lit, first, count);
  leaveVectors();
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
HWY_EXPORT(settle);

bool WireMask::begin(std::int32_t width, std::int32_t height) {
  settle();
  if (width == width_ && height == height_) {
    forEachStrip(strips_, box(), [this](std::int64_t first, std::size_t count) {
      std::fill_n(words_.data() + first, count, std::uint16_t{0});
    });
    reach_.clear();
    return true;
  }
  strips_ = FrameStrips(width, height);
  const bool fits =
      words_.resize(strips_.words()) && bytes_.resize(strips_.words() * FrameStrips::kWidth);
  width_ = fits ? width : 0;
  height_ = fits ? height : 0;
  reach_.clear();
  if (fits) {
    std::fill_n(words_.data(), words_.size(), std::uint16_t{0});
    std::fill_n(bytes_.data(), bytes_.size(), std::uint8_t{0});
    singles_ = {bytes_.data(), false};
  }
  return fits;
}

void WireMask::settle() {
  if (!singles_.areUsed) {
    return;
  }
  constexpr std::int32_t kHeight = FrameCells::kHeight;
  PixelBox rows = box();
  rows.bottom = rows.bottom / kHeight * kHeight;
  rows.top = (rows.top + kHeight - 1) / kHeight * kHeight;
  forEachStrip(strips_, rows, [this](std::int64_t first, std::size_t count) {
    HWY_DYNAMIC_DISPATCH(settle)(pixels(), first, count);
  });
  singles_.areUsed = false;
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
