// Included once for every kind of processor, inside no namespace.
#if defined(PV_MATH_SIN_COS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_MATH_SIN_COS_INL_H_
#undef PV_MATH_SIN_COS_INL_H_
#else
#define PV_MATH_SIN_COS_INL_H_
#endif

#include <cstddef>
#include <hwy/highway.h>

#include "math/scalar.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

/// Sines and cosines of a vector of angles.
template <class V>
struct Turns {
  V sin;
  V cos;
};

#if HWY_TARGET == HWY_SCALAR

template <class V>
HWY_INLINE Turns<V> sinCosOf(V radians) {
  namespace hn = hwy::HWY_NAMESPACE;
  const SinCos turn = sinCos(hn::GetLane(radians));
  return {hn::Set(hn::DFromV<V>(), turn.sin), hn::Set(hn::DFromV<V>(), turn.cos)};
}

#else

// A sum c[0] + r2 * (c[1] + r2 * (...)), innermost term first.
template <class D, class V>
HWY_INLINE V series(D d, V r2, const double (&terms)[5]) {
  namespace hn = hwy::HWY_NAMESPACE;
  V sum = hn::Set(d, terms[4]);
  for (std::size_t i = 4; i-- > 0;) {
    sum = hn::Add(hn::Set(d, terms[i]), hn::Mul(r2, sum));
  }
  return sum;
}

/// sinCos of math/scalar.h within the reach of its quick reduction: the same
/// operations in double precision in the same order.
template <class D, class V>
HWY_INLINE Turns<V> reducedSinCos(D d, V x) {
  namespace hn = hwy::HWY_NAMESPACE;
  const hn::RebindToSigned<D> words;
  const V toInteger = hn::Set(d, 6755399441055744.0);  // 1.5 * 2^52
  const V rounded = hn::Add(hn::Mul(x, hn::Set(d, 0.63661977236758134308)), toInteger);
  const V quarters = hn::Sub(rounded, toInteger);
  const V high = hn::Sub(x, hn::Mul(quarters, hn::Set(d, 1.57079632673412561417e+00)));
  const V r = hn::Sub(high, hn::Mul(quarters, hn::Set(d, 6.07710050650619224932e-11)));
  const V r2 = hn::Mul(r, r);
  const V s = hn::Add(r, hn::Mul(hn::Mul(r, r2), series(d, r2, kSineTerms)));
  const V c = hn::Add(hn::Set(d, 1.0), hn::Mul(r2, series(d, r2, kCosineTerms)));
  // The number of quarter turns stands in the sum's lowest bits.
  const auto quadrant = hn::BitCast(words, rounded);
  const auto one = hn::Set(words, 1);
  const auto two = hn::Set(words, 2);
  const auto swapped = hn::RebindMask(d, hn::TestBit(quadrant, one));
  const auto sineSign = hn::ShiftLeft<62>(hn::And(quadrant, two));
  const auto cosineSign = hn::ShiftLeft<62>(hn::And(hn::Add(quadrant, one), two));
  return {hn::Xor(hn::IfThenElse(swapped, c, s), hn::BitCast(d, sineSign)),
          hn::Xor(hn::IfThenElse(swapped, s, c), hn::BitCast(d, cosineSign))};
}

/// Angles of any size, and what is no angle.
template <class V>
HWY_NOINLINE Turns<V> anySinCos(V radians) {
  namespace hn = hwy::HWY_NAMESPACE;
  const hn::DFromV<V> d;
  HWY_ALIGN float angles[hn::MaxLanes(d)];
  HWY_ALIGN float sines[hn::MaxLanes(d)];
  HWY_ALIGN float cosines[hn::MaxLanes(d)];
  hn::Store(radians, d, angles);
  for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
    const SinCos turn = sinCos(angles[i]);
    sines[i] = turn.sin;
    cosines[i] = turn.cos;
  }
  return {hn::Load(d, sines), hn::Load(d, cosines)};
}

/// sinCos of math/scalar.h in every lane, to the last bit the same.
template <class V>
HWY_INLINE Turns<V> sinCosOf(V radians) {
  namespace hn = hwy::HWY_NAMESPACE;
  const hn::DFromV<V> d;
  const hn::Half<decltype(d)> half;
  const hn::Repartition<double, decltype(d)> wide;
  if (!hn::AllTrue(d, hn::Lt(hn::Abs(radians), hn::Set(d, 1.0e6F)))) {
    return anySinCos(radians);
  }
  const auto low = reducedSinCos(wide, hn::PromoteTo(wide, hn::LowerHalf(half, radians)));
  const auto high = reducedSinCos(wide, hn::PromoteTo(wide, hn::UpperHalf(half, radians)));
  return {hn::Combine(d, hn::DemoteTo(half, high.sin), hn::DemoteTo(half, low.sin)),
          hn::Combine(d, hn::DemoteTo(half, high.cos), hn::DemoteTo(half, low.cos))};
}

#endif

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
