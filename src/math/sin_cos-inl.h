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

// A sum c[0] + r2 * (c[1] + r2 * (...)), innermost term first.
template <class D, class V, std::size_t kCount>
HWY_INLINE V series(D d, V r2, const double (&terms)[kCount]) {
  V sum = hwy::HWY_NAMESPACE::Set(d, terms[kCount - 1]);
  for (std::size_t i = kCount - 1; i-- > 0;) {
    sum = hwy::HWY_NAMESPACE::Add(hwy::HWY_NAMESPACE::Set(d, terms[i]),
                                  hwy::HWY_NAMESPACE::Mul(r2, sum));
  }
  return sum;
}

/// sinCos of math/scalar.h for `count` angles (whole vectors), to the last bit
/// the same: the same operations in double precision in the same order. Vectors
/// with an angle beyond the plain reduction's reach are left to the scalar form.
inline HWY_ATTR void sinCosOf(const float* radians, std::size_t count, float* sines,
                              float* cosines) {
  namespace hn = hwy::HWY_NAMESPACE;
  const hn::ScalableTag<double> d;
  const hn::Rebind<float, decltype(d)> narrow;
  const hn::RebindToSigned<decltype(d)> words;
  using D = hn::Vec<decltype(d)>;
  static constexpr double kSine[] = {-1.0 / 6,
                                     1.0 / 120,
                                     -1.0 / 5040,
                                     1.0 / 362880,
                                     -1.0 / 39916800,
                                     1.0 / 6227020800.0,
                                     -1.0 / 1307674368000.0,
                                     1.0 / 355687428096000.0};
  static constexpr double kCosine[] = {
      -1.0 / 2,       1.0 / 24,          -1.0 / 720,           1.0 / 40320,
      -1.0 / 3628800, 1.0 / 479001600.0, -1.0 / 87178291200.0, 1.0 / 20922789888000.0};
  const D toInteger = hn::Set(d, 6755399441055744.0);  // 1.5 * 2^52
  const D reach = hn::Set(d, 1.0e6);
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const D x = hn::PromoteTo(d, hn::Load(narrow, radians + i));
    if (!hn::AllTrue(d, hn::Lt(hn::Abs(x), reach))) {
      for (std::size_t lane = i; lane < i + hn::Lanes(d); ++lane) {
        const SinCos exact = sinCos(radians[lane]);
        sines[lane] = exact.sin;
        cosines[lane] = exact.cos;
      }
      continue;
    }
    const D rounded = hn::Add(hn::Mul(x, hn::Set(d, 0.63661977236758134308)), toInteger);
    const D quarters = hn::Sub(rounded, toInteger);
    const D high = hn::Sub(x, hn::Mul(quarters, hn::Set(d, 1.57079632673412561417e+00)));
    const D r = hn::Sub(high, hn::Mul(quarters, hn::Set(d, 6.07710050650619224932e-11)));
    const D r2 = hn::Mul(r, r);
    const D s = hn::Add(r, hn::Mul(hn::Mul(r, r2), series(d, r2, kSine)));
    const D c = hn::Add(hn::Set(d, 1.0), hn::Mul(r2, series(d, r2, kCosine)));
    // The number of quarter turns stands in the sum's lowest bits.
    const auto quadrant = hn::BitCast(words, rounded);
    const auto one = hn::Set(words, 1);
    const auto two = hn::Set(words, 2);
    const auto swapped =
        hn::MaskFromVec(hn::BitCast(d, hn::VecFromMask(words, hn::TestBit(quadrant, one))));
    const auto sineSign = hn::ShiftLeft<62>(hn::And(quadrant, two));
    const auto cosineSign = hn::ShiftLeft<62>(hn::And(hn::Add(quadrant, one), two));
    const D sine = hn::Xor(hn::IfThenElse(swapped, c, s), hn::BitCast(d, sineSign));
    const D cosine = hn::Xor(hn::IfThenElse(swapped, s, c), hn::BitCast(d, cosineSign));
    hn::Store(hn::DemoteTo(narrow, sine), narrow, sines + i);
    hn::Store(hn::DemoteTo(narrow, cosine), narrow, cosines + i);
  }
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
