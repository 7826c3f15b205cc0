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

using Ints = hn::RebindToSigned<Floats>;
using I = hn::Vec<Ints>;

/// Truncates as the processor does it; only what fits 32 bits comes out the same
/// everywhere.
HWY_INLINE I quickTruncate(F v) {
#if HWY_TARGET == HWY_AVX3
  return I{_mm512_cvttps_epi32(v.raw)};
#elif HWY_TARGET == HWY_AVX2
  return I{_mm256_cvttps_epi32(v.raw)};
#else
  // Some processors make 0 of what is no number.
  const I number = hn::ConvertTo(Ints(), v);
  return hn::IfThenElse(hn::RebindMask(Ints(), hn::Eq(v, v)), number, hn::Set(Ints(), INT32_MIN));
#endif
}

/// Where a vertex comes to lie, as distances from the middle of the canvas.
struct Spot {
  F across;
  F up;
  hn::Mask<Floats> visible;
};

struct PerspectiveForm {
  static constexpr bool kMirrored = true;
  const PixelMap& map;

  HWY_INLINE F column(F x, F y, F z, std::size_t c) const {
    const auto& m = map.projection.view.m;
    return hn::Add(dot(x, y, z, constant(m[0][c]), constant(m[1][c]), constant(m[2][c])),
                   constant(m[3][c]));
  }
  HWY_INLINE Spot operator()(F x, F y, F z) const {
    const F depth = column(x, y, z, 2);
    const F across = hn::Div(hn::Mul(constant(map.scaleX), column(x, y, z, 0)), depth);
    const F up = hn::Div(hn::Mul(constant(map.scaleY), column(x, y, z, 1)), depth);
    return {across, up, hn::Gt(depth, hn::Zero(Floats()))};
  }
};

struct FlatForm {
  static constexpr bool kMirrored = false;
  const PixelMap& map;

  HWY_INLINE Spot operator()(F x, F y, F z) const {
    const F across = map.projection.mode == ViewMode::Side ? z : x;
    const F up = map.projection.mode == ViewMode::Top ? z : y;
    return {hn::Mul(constant(map.scaleX), across), hn::Mul(constant(map.scaleY), up), hn::Eq(x, x)};
  }
};

/// The projection of the vertices from `i` on, after being spread and `kSteps`
/// transforms.
template <class Form, std::size_t kSteps, class Spread = Unspread>
class Road {
 public:
  HWY_INLINE Road(const ColumnVertices& from, const PixelMap& map)
      : map_(map),
        x_(from.x),
        y_(from.y),
        z_(from.z),
        spread_{from.spread},
        steps_{step(from, 0), step(from, 1)} {}

  HWY_INLINE Spot spot(std::size_t i) const {
    const Floats d;
    F x = hn::Load(d, x_ + i);
    F y = hn::Load(d, y_ + i);
    F z = hn::Load(d, z_ + i);
    spread_(x, y, z);
    if constexpr (kSteps > 0) {
      steps_[0](x, y, z);
    }
    if constexpr (kSteps > 1) {
      steps_[1](x, y, z);
    }
    return Form{map_}(x, y, z);
  }
  HWY_INLINE I pixelX(F across) const {
    const Ints d;
    const I columns = quickTruncate(across);
    const I centre = hn::Set(d, map_.projection.centre.x);
    return Form::kMirrored ? hn::Sub(centre, columns) : hn::Add(centre, columns);
  }
  HWY_INLINE I pixelY(F up) const {
    const Ints d;
    const I rows = quickTruncate(up);
    const I centre = hn::Set(d, map_.projection.centre.y);
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
