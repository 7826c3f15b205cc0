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
  // Some processors make 0 of what is no number, and in plain code it must not be asked.
  const hn::RebindToSigned<hn::DFromV<V>> d;
  const auto isNumber = hn::Eq(v, v);
  const auto number = hn::ConvertTo(d, hn::IfThenElseZero(isNumber, v));
  return hn::IfThenElse(hn::RebindMask(d, isNumber), number, hn::Set(d, INT32_MIN));
#endif
}

/// Keeps compilers from reading a value again for every use, as far as there are
/// registers; 16 are too few for all. No result depends on it.
template <class V>
HWY_INLINE V inRegister(V v) {
#if HWY_ARCH_X86 && HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_EMU128 && \
    (HWY_COMPILER_GCC || HWY_COMPILER_CLANG)
  asm("" : "+v"(v.raw));  // NOLINT(hicpp-no-assembler)
#endif
  return v;
}

/// Where a vertex comes to lie, as distances from the middle of the canvas.
template <class V>
struct Spot {
  V across;
  V up;
  /// Above zero if it is visible. If it is not, it is negative, or one of the others is
  /// infinite or not a number.
  V front;
};

/// `kLevel` tells that the view matrix has a zero where y would count for `across`, as
/// cameras have that do not roll. A product with zero is zero, and changes no sum but to
/// another zero, which truncates to the same pixel, unless y is not finite: then neither
/// is `up`.
template <class V, bool kLevel>
struct PerspectiveForm {
  static constexpr bool kMirrored = true;

  HWY_INLINE explicit PerspectiveForm(const PixelMap& map)
      : scaleX_(inRegister(constant<V>(map.scaleX))),
        scaleY_(inRegister(constant<V>(map.scaleY))),
        x_(map.projection.view, 0),
        y_(map.projection.view, 1),
        z_(map.projection.view, 2) {}

  HWY_INLINE Spot<V> operator()(V x, V y, V z) const {
    const V depth = z_(x, y, z);
    const V across = hn::Mul(scaleX_, kLevel ? x_.level(x, z) : x_(x, y, z));
    return {hn::Div(across, depth), hn::Div(hn::Mul(scaleY_, y_(x, y, z)), depth), depth};
  }

 private:
  struct Column {
    HWY_INLINE Column(const Matrix4& view, std::size_t at)
        : a(inRegister(constant<V>(view.m[0][at]))),
          b(inRegister(constant<V>(view.m[1][at]))),
          c(inRegister(constant<V>(view.m[2][at]))),
          move(inRegister(constant<V>(view.m[3][at]))) {}
    HWY_INLINE V operator()(V x, V y, V z) const { return hn::Add(dot(x, y, z, a, b, c), move); }
    HWY_INLINE V level(V x, V z) const {
      return hn::Add(hn::Add(hn::Mul(x, a), hn::Mul(z, c)), move);
    }

    V a;
    V b;
    V c;
    V move;
  };

  V scaleX_;
  V scaleY_;
  Column x_;
  Column y_;
  Column z_;
};

template <class V>
using TiltedForm = PerspectiveForm<V, false>;
template <class V>
using LevelForm = PerspectiveForm<V, true>;

template <class V>
struct FlatForm {
  static constexpr bool kMirrored = false;

  HWY_INLINE explicit FlatForm(const PixelMap& pixels) : map(pixels) {}

  HWY_INLINE Spot<V> operator()(V x, V y, V z) const {
    const V across = map.projection.mode == ViewMode::Side ? z : x;
    const V up = map.projection.mode == ViewMode::Top ? z : y;
    return {hn::Mul(constant<V>(map.scaleX), across), hn::Mul(constant<V>(map.scaleY), up),
            constant<V>(1.0F)};
  }

  const PixelMap& map;
};

/// The projection of the vertices from `i` on, as many as the tag D has lanes, after
/// being spread and `kSteps` transforms.
template <class D, template <class> class FormOf, std::size_t kSteps, class Spread = Unspread>
class Road {
 public:
  using Tag = D;
  using V = hn::Vec<D>;
  using I = IntsOf<V>;
  using Form = FormOf<V>;

  HWY_INLINE Road(const ColumnVertices& from, const PixelMap& map)
      : map_(map),
        form_(map),
        x_(from.x),
        y_(from.y),
        z_(from.z),
        spread_{from.spread},
        steps_{step(from, 0), step(from, 1)} {}

  HWY_INLINE Spot<V> spot(std::size_t i) const {
    const D d;
    V x = inRegister(hn::Load(d, x_ + i));
    V y = inRegister(hn::Load(d, y_ + i));
    V z = inRegister(hn::Load(d, z_ + i));
    spread_(x, y, z);
    if constexpr (kSteps > 0) {
      steps_[0](x, y, z);
    }
    if constexpr (kSteps > 1) {
      steps_[1](x, y, z);
    }
    return form_(x, y, z);
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
  Form form_;
  const float* x_;
  const float* y_;
  const float* z_;
  Spread spread_;
  Transform steps_[2];
};

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
