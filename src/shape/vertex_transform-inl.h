// Included once for every kind of processor, inside no namespace.
#if defined(PV_SHAPE_VERTEX_TRANSFORM_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_SHAPE_VERTEX_TRANSFORM_INL_H_
#undef PV_SHAPE_VERTEX_TRANSFORM_INL_H_
#else
#define PV_SHAPE_VERTEX_TRANSFORM_INL_H_
#endif

#include <array>
#include <cstddef>
#include <hwy/highway.h>

#include "math/matrix4.h"

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

using Floats = hwy::HWY_NAMESPACE::ScalableTag<float>;
using F = hwy::HWY_NAMESPACE::Vec<Floats>;

template <class V = F>
HWY_INLINE V constant(float value) {
  return hwy::HWY_NAMESPACE::Set(hwy::HWY_NAMESPACE::DFromV<V>(), value);
}

/// A row vector times one column of a matrix, summed from left to right.
template <class V>
HWY_INLINE V dot(V x, V y, V z, V a, V b, V c) {
  namespace hn = hwy::HWY_NAMESPACE;
  return hn::Add(hn::Add(hn::Mul(x, a), hn::Mul(y, b)), hn::Mul(z, c));
}

/// D3DXVec3Transform, then a move, in every lane. The matrix does not move points
/// itself: its last row is zero, unless the whole column is no number. Adding this
/// zero to the move first gives the same, since a sum keeps its value when a zero is
/// added, and a zero keeps its sign only when a negative one is.
class Transform {
 public:
  /// The matrix must stay.
  HWY_INLINE Transform(const Matrix4& matrix, const Vec3& move)
      : m_(matrix.m),
        last_{matrix.m[3][0] + move.x, matrix.m[3][1] + move.y, matrix.m[3][2] + move.z} {}

  template <class V>
  HWY_INLINE void operator()(V& x, V& y, V& z) const {
    const V across = column(x, y, z, 0);
    const V up = column(x, y, z, 1);
    z = column(x, y, z, 2);
    x = across;
    y = up;
  }

 private:
  template <class V>
  HWY_INLINE V column(V x, V y, V z, std::size_t c) const {
    return hwy::HWY_NAMESPACE::Add(
        dot(x, y, z, constant<V>(m_[0][c]), constant<V>(m_[1][c]), constant<V>(m_[2][c])),
        constant<V>(last_[c]));
  }

  const std::array<std::array<float, 4>, 4>& m_;
  std::array<float, 3> last_;
};

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
