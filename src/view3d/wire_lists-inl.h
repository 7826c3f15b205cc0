// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_LISTS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_LISTS_INL_H_
#undef PV_VIEW3D_WIRE_LISTS_INL_H_
#else
#define PV_VIEW3D_WIRE_LISTS_INL_H_
#endif

#include <bit>
#include <cstddef>
#include <cstdint>
#include <hwy/highway.h>

#include "math/pack_order.h"
#include "view3d/wire_lines.h"
#include "view3d/wire_words-inl.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

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

/// A line as one that leads to the right, or straight up or down.
struct Rightward {
  HWY_INLINE Rightward(I spot, I way) {
    const I leftward = hn::BroadcastSignBit(hn::ShiftLeft<16>(way));
    left = hn::Add(halves(spot), halves(hn::And(leftward, way)));
    sides = hn::Sub(hn::Xor(halves(way), halves(leftward)), halves(leftward));
  }
  [[nodiscard]] HWY_INLINE I dx() const {
    return hn::ShiftRight<16>(hn::ShiftLeft<16>(word(sides)));
  }
  [[nodiscard]] HWY_INLINE I dy() const { return hn::ShiftRight<16>(word(sides)); }

  S left;   ///< its left end
  S sides;  ///< the way from there
};

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
