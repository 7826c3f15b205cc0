// Included once for every kind of processor, inside no namespace.
#if defined(PV_SHAPE_VERTEX_TRANSFORM_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_SHAPE_VERTEX_TRANSFORM_INL_H_
#undef PV_SHAPE_VERTEX_TRANSFORM_INL_H_
#else
#define PV_SHAPE_VERTEX_TRANSFORM_INL_H_
#endif

#include <cstddef>
#include <hwy/highway.h>

#include "math/matrix4.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

using Floats = hwy::HWY_NAMESPACE::ScalableTag<float>;
using F = hwy::HWY_NAMESPACE::Vec<Floats>;

HWY_INLINE F constant(float value) {
  return hwy::HWY_NAMESPACE::Set(Floats(), value);
}

/// A row vector times one column of a matrix, summed from left to right.
HWY_INLINE F dot(F x, F y, F z, F a, F b, F c) {
  namespace hn = hwy::HWY_NAMESPACE;
  return hn::Add(hn::Add(hn::Mul(x, a), hn::Mul(y, b)), hn::Mul(z, c));
}

/// D3DXVec3Transform, then a move, in every lane.
struct Transform {
  const Matrix4& t;
  const Vec3& move;

  HWY_INLINE F column(F x, F y, F z, std::size_t c, float offset) const {
    namespace hn = hwy::HWY_NAMESPACE;
    const F sum = dot(x, y, z, constant(t.m[0][c]), constant(t.m[1][c]), constant(t.m[2][c]));
    return hn::Add(hn::Add(sum, constant(t.m[3][c])), constant(offset));
  }
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    const F across = column(x, y, z, 0, move.x);
    const F up = column(x, y, z, 1, move.y);
    z = column(x, y, z, 2, move.z);
    x = across;
    y = up;
  }
};

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
