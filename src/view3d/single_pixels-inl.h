// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_SINGLE_PIXELS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_SINGLE_PIXELS_INL_H_
#undef PV_VIEW3D_SINGLE_PIXELS_INL_H_
#else
#define PV_VIEW3D_SINGLE_PIXELS_INL_H_
#endif

#include <cstddef>
#include <cstdint>
#include <hwy/highway.h>

#include "view3d/frame_strips.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

// Without vectors no pixel is lit as a byte.
HWY_INLINE void settleRows(const MaskPixels& /*lit*/, std::int64_t /*first*/,
                           std::size_t /*count*/) {}

#else

/// Takes single pixels of a strip over into its words, from word `first` on, the first of
/// a row of cells; so many words, and others of their rows of cells.
HWY_INLINE void settleRows(const MaskPixels& lit, std::int64_t first, std::size_t count) {
  constexpr std::size_t kRows = FrameCells::kHeight;
  constexpr std::size_t kWidth = FrameStrips::kWidth;
  const hn::CappedTag<std::uint8_t, kRows * kWidth> d;
  const hn::CappedTag<std::uint16_t, kRows> dw;
  const hn::Rebind<std::uint8_t, decltype(dw)> db;
  for (std::size_t row = 0; row < count; row += kRows) {
    const auto at = static_cast<std::size_t>(first) + row;
    std::uint8_t* bytes = lit.singles->bytes + at * kWidth;
    std::uint16_t* words = lit.words + at;
    alignas(16) std::uint8_t bits[kRows + 8];  // and what a mask of a vector may overshoot
    auto any = hn::Zero(d);
    for (std::size_t i = 0; i < kRows * kWidth; i += hn::Lanes(d)) {
      const auto some = hn::Load(d, bytes + i);
      hn::StoreMaskBits(d, hn::Ne(some, hn::Zero(d)), bits + i / kWidth);
      any = hn::Or(any, some);
    }
    if (hn::AllTrue(d, hn::Eq(any, hn::Zero(d)))) {
      continue;
    }
    for (std::size_t i = 0; i < kRows * kWidth; i += hn::Lanes(d)) {
      hn::Store(hn::Zero(d), d, bytes + i);
    }
    for (std::size_t i = 0; i < kRows; i += hn::Lanes(dw)) {
      const auto own = hn::PromoteTo(dw, hn::LoadU(db, bits + i));
      hn::Store(hn::Or(hn::Load(dw, words + i), own), dw, words + i);
    }
  }
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
