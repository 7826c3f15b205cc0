// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_WORDS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_WORDS_INL_H_
#undef PV_VIEW3D_WIRE_WORDS_INL_H_
#else
#define PV_VIEW3D_WIRE_WORDS_INL_H_
#endif

#include <cstdint>
#include <hwy/highway.h>

#include "view3d/frame_strips.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

using Ints = hn::ScalableTag<std::int32_t>;
using Shorts = hn::Repartition<std::int16_t, Ints>;
using I = hn::Vec<Ints>;
using S = hn::Vec<Shorts>;

// Words that hold two halves: x below, y above.

HWY_INLINE I word(S pair) {
  return hn::BitCast(Ints(), pair);
}
HWY_INLINE S halves(I pair) {
  return hn::BitCast(Shorts(), pair);
}
HWY_INLINE I difference(I a, I b) {
  return word(hn::Sub(halves(a), halves(b)));
}

/// across * x + up * y of every word; factors and sum within 16 and 32 bits.
HWY_INLINE I flattened(I pair, std::int32_t across, std::int32_t up) {
  const Ints d;
#if HWY_ARCH_X86 && HWY_TARGET != HWY_EMU128
  // One instruction there: the products of neighbouring halves, summed.
  I unused = hn::Zero(d);
  return hn::ReorderWidenMulAccumulate(d, halves(pair), halves(hn::Set(d, (up << 16) | across)),
                                       hn::Zero(d), unused);
#else
  const I x = hn::ShiftRight<16>(hn::ShiftLeft<16>(pair));
  return hn::Add(hn::Mul(x, hn::Set(d, across)), hn::Mul(hn::ShiftRight<16>(pair), hn::Set(d, up)));
#endif
}

/// Where masks have the pixels of spots, counted from the first strip of the frame.
class Places {
 public:
  HWY_INLINE explicit Places(const FrameStrips& strips) : pitch_(strips.pitch()) {}

  /// Of single pixels.
  HWY_INLINE I singles(I spots) const {
    static_assert(FrameStrips::kWidth == 8);
    const I strips = hn::AndNot(hn::Set(Ints(), 7), spots);
    return hn::Or(flattened(strips, pitch_, 8), inStrip(spots));
  }
  /// Of words, in bytes.
  HWY_INLINE I bytes(I spots) const {
    static_assert(FrameStrips::kWidth == 8);
    return flattened(hn::AndNot(hn::Set(Ints(), 7), spots), pitch_ / 4, 2);
  }
  static HWY_INLINE I inStrip(I spots) { return hn::And(spots, hn::Set(Ints(), 7)); }

 private:
  std::int32_t pitch_;
};

HWY_INLINE hn::Mask<Ints> hasBits(I pair, std::uint32_t bits) {
  const Ints d;
  return hn::Ne(hn::And(pair, hn::Set(d, static_cast<std::int32_t>(bits))), hn::Zero(d));
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
