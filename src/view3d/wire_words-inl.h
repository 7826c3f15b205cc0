// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_WORDS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_WORDS_INL_H_
#undef PV_VIEW3D_WIRE_WORDS_INL_H_
#else
#define PV_VIEW3D_WIRE_WORDS_INL_H_
#endif

#include <cstdint>
#include <hwy/highway.h>

#include "view3d/frame_cells.h"

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

/// FrameCells::byte() of spots: as if every pixel were a word in a row of its own, less
/// the rows that share theirs with the one below.
class Places {
 public:
  HWY_INLINE explicit Places(const FrameCells& cells) : pitch_(cells.pitch()) {}

  HWY_INLINE I operator()(I spots) const {
    static_assert(FrameCells::kHeight == 4);
    const I rowInCell = hn::And(spots, hn::Set(Ints(), 0x00030000));
    return hn::Sub(flattened(spots, FrameCells::kHeight, pitch_),
                   flattened(rowInCell, 0, pitch_ - 1));
  }

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
