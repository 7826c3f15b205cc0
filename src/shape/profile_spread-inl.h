// Included once for every kind of processor, inside no namespace.
#if defined(PV_SHAPE_PROFILE_SPREAD_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_SHAPE_PROFILE_SPREAD_INL_H_
#undef PV_SHAPE_PROFILE_SPREAD_INL_H_
#else
#define PV_SHAPE_PROFILE_SPREAD_INL_H_
#endif

#include <hwy/highway.h>

#include "shape/profile_kernels.h"
#include "shape/vertex_transform-inl.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

// The kinds of ProfileSpread, in every lane.

struct Unspread {
  const ProfileSpread& how;

  template <class V>
  HWY_INLINE void operator()(V& /*x*/, V& /*y*/, V& /*z*/) const {}
};

struct Moved {
  const ProfileSpread& how;

  template <class V>
  HWY_INLINE void operator()(V& /*x*/, V& /*y*/, V& z) const {
    z = hwy::HWY_NAMESPACE::Sub(z, constant<V>(how.along));
  }
};

struct Turned {
  const ProfileSpread& how;

  template <class V>
  HWY_INLINE void operator()(V& x, V& /*y*/, V& z) const {
    namespace hn = hwy::HWY_NAMESPACE;
    const V before = x;
    x = hn::Add(hn::Mul(before, constant<V>(how.toX[0])), hn::Mul(z, constant<V>(how.toX[1])));
    z = hn::Add(hn::Mul(before, constant<V>(how.toZ[0])), hn::Mul(z, constant<V>(how.toZ[1])));
  }
};

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
