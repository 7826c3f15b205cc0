// Included once for every kind of processor, inside no namespace.
#if defined(PV_VIEW3D_WIRE_ROAD_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_VIEW3D_WIRE_ROAD_INL_H_
#undef PV_VIEW3D_WIRE_ROAD_INL_H_
#else
#define PV_VIEW3D_WIRE_ROAD_INL_H_
#endif

#include <cstddef>
#include <cstdint>
#include <hwy/highway.h>

#include "shape/profile_spread-inl.h"
#include "shape/vertex_transform-inl.h"
#include "view3d/wire_projection.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template <class V>
using IntsOf = hn::Vec<hn::RebindToSigned<hn::DFromV<V>>>;

/// Truncates as the processor does it; only what fits 32 bits comes out the same
/// everywhere.
template <class V>
HWY_INLINE IntsOf<V> quickTruncate(V v) {
#if HWY_TARGET == HWY_AVX3
  if constexpr (sizeof(v) == 64) {
    return IntsOf<V>{_mm512_cvttps_epi32(v.raw)};
  } else {
    return IntsOf<V>{_mm256_cvttps_epi32(v.raw)};
  }
#elif HWY_TARGET == HWY_AVX2
  return IntsOf<V>{_mm256_cvttps_epi32(v.raw)};
#else
  // Some processors make 0 of what is no number.
  const hn::RebindToSigned<hn::DFromV<V>> d;
  const auto number = hn::ConvertTo(d, v);
  return hn::IfThenElse(hn::RebindMask(d, hn::Eq(v, v)), number, hn::Set(d, INT32_MIN));
#endif
}

/// Where a vertex comes to lie, as distances from the middle of the canvas.
template <class V>
struct Spot {
  V across;
  V up;
  hn::Mask<hn::DFromV<V>> visible;
};

struct PerspectiveForm {
  static constexpr bool kMirrored = true;
  const PixelMap& map;

  template <class V>
  HWY_INLINE V column(V x, V y, V z, std::size_t c) const {
    const auto& m = map.projection.view.m;
    return hn::Add(dot(x, y, z, constant<V>(m[0][c]), constant<V>(m[1][c]), constant<V>(m[2][c])),
                   constant<V>(m[3][c]));
  }
  template <class V>
  HWY_INLINE Spot<V> operator()(V x, V y, V z) const {
    const V depth = column(x, y, z, 2);
    const V across = hn::Div(hn::Mul(constant<V>(map.scaleX), column(x, y, z, 0)), depth);
    const V up = hn::Div(hn::Mul(constant<V>(map.scaleY), column(x, y, z, 1)), depth);
    return {across, up, hn::Gt(depth, constant<V>(0.0F))};
  }
};

struct FlatForm {
  static constexpr bool kMirrored = false;
  const PixelMap& map;

  template <class V>
  HWY_INLINE Spot<V> operator()(V x, V y, V z) const {
    const V across = map.projection.mode == ViewMode::Side ? z : x;
    const V up = map.projection.mode == ViewMode::Top ? z : y;
    return {hn::Mul(constant<V>(map.scaleX), across), hn::Mul(constant<V>(map.scaleY), up),
            hn::Eq(x, x)};
  }
};

/// The projection of the vertices from `i` on, as many as the tag D has lanes, after
/// being spread and `kSteps` transforms.
template <class D, class Form, std::size_t kSteps, class Spread = Unspread>
class Road {
 public:
  using Tag = D;
  using V = hn::Vec<D>;
  using I = IntsOf<V>;

  HWY_INLINE Road(const ColumnVertices& from, const PixelMap& map)
      : map_(map),
        x_(from.x),
        y_(from.y),
        z_(from.z),
        spread_{from.spread},
        steps_{step(from, 0), step(from, 1)} {}

  HWY_INLINE Spot<V> spot(std::size_t i) const {
    const D d;
    V x = hn::Load(d, x_ + i);
    V y = hn::Load(d, y_ + i);
    V z = hn::Load(d, z_ + i);
    spread_(x, y, z);
    if constexpr (kSteps > 0) {
      steps_[0](x, y, z);
    }
    if constexpr (kSteps > 1) {
      steps_[1](x, y, z);
    }
    return Form{map_}(x, y, z);
  }
  HWY_INLINE I pixelX(V across) const {
    const I columns = quickTruncate(across);
    const I centre = hn::Set(hn::RebindToSigned<D>(), map_.projection.centre.x);
    return Form::kMirrored ? hn::Sub(centre, columns) : hn::Add(centre, columns);
  }
  HWY_INLINE I pixelY(V up) const {
    const I rows = quickTruncate(up);
    const I centre = hn::Set(hn::RebindToSigned<D>(), map_.projection.centre.y);
    const bool downward = !Form::kMirrored && map_.projection.mode == ViewMode::Top;
    return downward ? hn::Sub(centre, rows) : hn::Add(centre, rows);
  }

 private:
  static HWY_INLINE Transform step(const ColumnVertices& from, std::size_t i) {
    static constexpr Matrix4 kNone;
    return i < kSteps ? Transform(from.transforms[i].matrix, from.transforms[i].offset)
                      : Transform(kNone, {});
  }

  const PixelMap& map_;
  const float* x_;
  const float* y_;
  const float* z_;
  Spread spread_;
  Transform steps_[2];
};

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
