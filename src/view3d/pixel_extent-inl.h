// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_PIXEL_EXTENT_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_PIXEL_EXTENT_INL_H_
#undef PV_VIEW3D_PIXEL_EXTENT_INL_H_
#else
#define PV_VIEW3D_PIXEL_EXTENT_INL_H_
#endif

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <hwy/highway.h>

#include "view3d/pixel_column.h"
#include "view3d/wire_projection.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Where vectors of pixels leave what tells whether they are on the canvas. Not a member
/// of PixelExtent, which would then lie in memory as a whole.
struct alignas(64) PixelDoubts {
  // Left unset: only what was left is read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  PixelDoubts() {}

  std::int32_t of[VertexBlock::kCapacity];
};

#if HWY_TARGET == HWY_SCALAR

/// How far the pixels of a column reach, and which of its chunks leave the canvas.
template <class D>
class PixelExtent {
 public:
  PixelExtent(const PixelMap& map, PixelDoubts& /*doubts*/, PixelReach& reach)
      : map_(map), reach_(reach) {}

  template <class V>
  void include(std::size_t k, hn::Vec<D> x, hn::Vec<D> y, hn::Vec<D> /*spot*/, V front) {
    const PixelPoint at{hn::GetLane(x), hn::GetLane(y)};
    if (at.x < 0 || at.x >= map_.width || at.y < 0 || at.y >= map_.height ||
        std::signbit(hn::GetLane(front))) {
      outside_ |= 1U << k / PixelColumn::kChunk;
    } else {
      reach_.include(at.x, at.y);
    }
  }
  [[nodiscard]] std::uint32_t outside(std::uint32_t /*chunks*/,
                                      const std::int32_t* /*spots*/) const {
    return outside_;
  }
  void keep() const {}

 private:
  const PixelMap& map_;
  PixelReach& reach_;
  std::uint32_t outside_ = 0;
};

#else

// All chunks are asked at once, which is enough for most columns; asking each by itself
// would cost a fifth of the projection. For the others every vector leaves its doubts.
template <class D>
class PixelExtent {
 public:
  using I = hn::Vec<D>;
  using Shorts = hn::Repartition<std::int16_t, D>;
  using S = hn::Vec<Shorts>;

  HWY_INLINE PixelExtent(const PixelMap& map, PixelDoubts& doubts, PixelReach& reach)
      : each_(doubts.of),
        reach_(reach),
        last_(hn::BitCast(Shorts(), hn::Set(D(), (map.height - 1) << 16 | (map.width - 1)))),
        low_(hn::Set(Shorts(), INT16_MAX)),
        high_(hn::Set(Shorts(), INT16_MIN)),
        doubts_(hn::Zero(D())) {}

  /// Of the vertices from `k` on: their pixels, as two words and as one (whatever that is
  /// worth off the canvas), and what is negative where they are behind the eye; others
  /// that are not visible have pixels off the canvas.
  template <class V>
  HWY_INLINE void include(std::size_t k, I x, I y, I spot, V front) {
    const D d;
    const S halves = hn::BitCast(Shorts(), spot);
    low_ = hn::Min(low_, halves);
    high_ = hn::Max(high_, halves);
    const I isBehind = hn::And(hn::BitCast(d, front), hn::Set(d, INT32_MIN));
    const I doubts = hn::Or(hn::Or(x, y), isBehind);
    hn::Store(doubts, d, each_ + k);
    doubts_ = hn::Or(doubts_, doubts);
  }
  /// Those of `chunks` that leave the canvas, or have a vertex that is not visible; by the
  /// words of all vertices.
  [[nodiscard]] HWY_INLINE std::uint32_t outside(std::uint32_t chunks,
                                                 const std::int32_t* spots) const {
    if (isWithin(doubts_, high_)) {
      return 0;
    }
    const D d;
    std::uint32_t outside = 0;
    for (; chunks != 0; chunks &= chunks - 1) {
      const std::uint32_t chunk = chunks & (~chunks + 1);
      const std::size_t first = std::countr_zero(chunks) * PixelColumn::kChunk;
      for (std::size_t k = first; k < first + PixelColumn::kChunk; k += hn::Lanes(d)) {
        const S halves = hn::BitCast(Shorts(), hn::Load(d, spots + k));
        outside |= isWithin(hn::Load(d, each_ + k), halves) ? 0 : chunk;
      }
    }
    return outside;
  }
  /// Adds all pixels to the reach.
  HWY_INLINE void keep() const {
    const Shorts ds;
    hn::Store(hn::Min(low_, hn::Load(ds, reach_.low)), ds, reach_.low);
    hn::Store(hn::Max(high_, hn::Load(ds, reach_.high)), ds, reach_.high);
  }

 private:
  // Where no doubt has more than 15 bits, so that none is negative, both words are pixels,
  // each in a half of its own, and only the right and the upper border remain to be looked
  // at.
  HWY_INLINE bool isWithin(I doubts, S high) const {
    const D d;
    return hn::AllTrue(d, hn::Eq(hn::And(doubts, hn::Set(d, ~INT16_MAX)), hn::Zero(d))) &&
           hn::AllFalse(Shorts(), hn::Gt(high, last_));
  }

  std::int32_t* each_;
  PixelReach& reach_;
  S last_;  ///< the last column and row of the canvas
  S low_;
  S high_;
  I doubts_;
};

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
