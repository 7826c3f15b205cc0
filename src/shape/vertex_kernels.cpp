// Modifiers in vector form. Every lane does exactly the operations that the
// formulas ask for, in their order and each rounded on its own, so a result
// does not depend on the vector's length; nothing is fused or reassociated.
#include "shape/vertex_kernels.h"

#include <algorithm>
#include <array>

#include "math/scalar.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/vertex_kernels.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "math/sin_cos-inl.h"
#include "shape/vertex_transform-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Runs `step` over all vertices; it changes x, y and z in place.
template <class Step>
HWY_INLINE void forEachVector(VertexBlock& block, std::size_t count, const Step& step) {
  const Floats d;
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    F x = hn::Load(d, block.x + i);
    F y = hn::Load(d, block.y + i);
    F z = hn::Load(d, block.z + i);
    step(x, y, z);
    hn::Store(x, d, block.x + i);
    hn::Store(y, d, block.y + i);
    hn::Store(z, d, block.z + i);
  }
}

/// v - s * v and v + s * v.
HWY_INLINE F shrunk(F v, F s) {
  return hn::Sub(v, hn::Mul(s, v));
}
HWY_INLINE F grown(F v, F s) {
  return hn::Add(v, hn::Mul(s, v));
}

struct PinchA {
  Vec3 v;
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    x = shrunk(x, hn::Mul(constant(v.x), y));
    y = shrunk(y, hn::Mul(constant(v.y), x));
    z = shrunk(z, hn::Mul(constant(v.z), y));
  }
};

struct PinchB {
  Vec3 v;
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    x = shrunk(x, hn::Mul(constant(v.x), z));
    y = shrunk(y, hn::Mul(constant(v.y), z));
    z = shrunk(z, hn::Mul(constant(v.z), x));
  }
};

/// Two coordinates shrink with the third, for each that has a value.
struct Taper {
  Vec3 raw;
  Vec3 v;
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    along(raw.x, v.x, x, y, z);
    along(raw.y, v.y, y, x, z);
    along(raw.z, v.z, z, y, x);
  }
  static HWY_INLINE void along(float value, float t, F driver, F& first, F& second) {
    if (value != 0.0F) {
      const F s = hn::Mul(constant(t), driver);
      first = shrunk(first, s);
      second = shrunk(second, s);
    }
  }
};

struct ShearA {
  Vec3 v;
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    y = hn::Sub(y, hn::Mul(constant(v.y), x));
    x = hn::Sub(x, hn::Mul(constant(v.x), z));
    z = hn::Sub(z, hn::Mul(constant(v.z), x));
  }
};

struct ShearB {
  Vec3 v;
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    y = hn::Sub(y, hn::Mul(constant(v.y), z));
    x = hn::Sub(x, hn::Mul(constant(v.x), y));
    z = hn::Sub(z, hn::Mul(constant(v.z), y));
  }
};

/// Two coordinates grow where the third is within 2 of zero.
struct Bulge {
  Vec3 v;
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    along(v.x, x, y, z);
    along(v.y, y, x, z);
    along(v.z, z, y, x);
  }
  static HWY_INLINE void along(float amount, F driver, F& first, F& second) {
    const F s = hn::Mul(constant(amount), hn::Sub(constant(2.0F), hn::Abs(driver)));
    first = grown(first, s);
    second = grown(second, s);
  }
};

/// Sine and cosine of degreesPerUnit * along. For a value of zero the angle is a
/// zero or not a number; that is its sine, and one more its cosine.
HWY_INLINE Turns<F> turns(F along, float degreesPerUnit) {
  const F degrees = hn::Mul(constant(degreesPerUnit), along);
  const F radians = hn::Mul(degrees, constant(kRadiansPerDegree));
  if (degreesPerUnit == 0.0F) {
    return {radians, hn::Add(constant(1.0F), radians)};
  }
  return sinCosOf(radians);
}

/// The axis along which each of the three angles grows.
template <int kX, int kY, int kZ>
struct TurnAlong {
  Vec3 degreesPerUnit;

  // Each vertex turns about x, y and z by angles of its own. The product of the
  // three matrices is written out without the terms that have a factor 0 and
  // without the factors 1. That changes at most the sign of a zero in the matrix:
  // a sine is not a number only together with its cosine, and then so is the
  // whole coordinate. The last row's zero, added at the end, makes every zero of
  // a coordinate a positive one again, as the plain product does.
  HWY_INLINE void operator()(F& x, F& y, F& z) const {
    const auto [sx, cx] = turns(axis<kX>(x, y, z), degreesPerUnit.x);
    const auto [sy, cy] = turns(axis<kY>(x, y, z), degreesPerUnit.y);
    const auto [sz, cz] = turns(axis<kZ>(x, y, z), degreesPerUnit.z);
    const F zero = hn::Zero(Floats());
    const F sxsy = hn::Mul(sx, sy);
    const F cxsy = hn::Mul(cx, sy);
    const F across = dot(x, y, z, hn::Mul(cy, cz), hn::Sub(hn::Mul(sxsy, cz), hn::Mul(cx, sz)),
                         hn::Add(hn::Mul(cxsy, cz), hn::Mul(sx, sz)));
    const F up = dot(x, y, z, hn::Mul(cy, sz), hn::Add(hn::Mul(sxsy, sz), hn::Mul(cx, cz)),
                     hn::Sub(hn::Mul(cxsy, sz), hn::Mul(sx, cz)));
    const F deep = dot(x, y, z, hn::Neg(sy), hn::Mul(sx, cy), hn::Mul(cx, cy));
    x = hn::Add(across, zero);
    y = hn::Add(up, zero);
    z = hn::Add(deep, zero);
  }
  template <int kAxis>
  static HWY_INLINE F axis(F x, F y, F z) {
    return kAxis == 0 ? x : (kAxis == 1 ? y : z);
  }
};

Vec3 inHundredths(Vec3 v) {
  constexpr float kPercent = 100.0F;
  return {v.x / kPercent, v.y / kPercent, v.z / kPercent};
}

void disperse(VertexBlock& block, std::size_t count, const VertexBlock& directions, Vec3 values) {
  constexpr float kSliderUnits = 200.0F;
  const Floats d;
  const auto add = [&](float* to, const float* direction, float value) HWY_ATTR {
    const F reach = constant(value / kSliderUnits);
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
      const F moved = hn::Add(hn::Load(d, to + i), hn::Mul(reach, hn::Load(d, direction + i)));
      hn::Store(moved, d, to + i);
    }
  };
  add(block.x, directions.x, values.x);
  add(block.y, directions.y, values.y);
  add(block.z, directions.z, values.z);
}

template <class Formula>
void run(VertexBlock& block, std::size_t count, Vec3 values) {
  forEachVector(block, count, Formula{inHundredths(values)});
}

void taper(VertexBlock& block, std::size_t count, Vec3 values) {
  forEachVector(block, count, Taper{values, inHundredths(values)});
}

void bend(VertexBlock& block, std::size_t count, Vec3 values) {
  forEachVector(block, count, TurnAlong<1, 2, 1>{values});
}

void twist(VertexBlock& block, std::size_t count, Vec3 values) {
  forEachVector(block, count, TurnAlong<0, 1, 2>{values});
}

struct Step {
  ModifierKind kind;
  void (*apply)(VertexBlock&, std::size_t, Vec3);
};

// In the order of application. Each is left out while its values are all zero.
constexpr Step kSteps[] = {
    {ModifierKind::PinchA, run<PinchA>}, {ModifierKind::PinchB, run<PinchB>},
    {ModifierKind::Taper, taper},        {ModifierKind::ShearA, run<ShearA>},
    {ModifierKind::ShearB, run<ShearB>}, {ModifierKind::Bend, bend},
    {ModifierKind::Twist, twist},        {ModifierKind::Bulge, run<Bulge>},
};

void transform(VertexBlock& block, std::size_t count, const Matrix4& matrix, const Vec3& offset) {
  forEachVector(block, count, Transform{matrix, offset});
  leaveVectors();
}

void deform(VertexBlock& block, std::size_t count, const ModifierTable& values,
            const VertexBlock* directions) {
  // Runs also with values of zero, and then adds nothing.
  if (directions != nullptr) {
    disperse(block, count, *directions, values[ModifierKind::VertexDisperse]);
  }
  for (const Step& step : kSteps) {
    const Vec3 v = values[step.kind];
    if (!(v.x == 0.0F && v.y == 0.0F && v.z == 0.0F)) {
      step.apply(block, count, v);
    }
  }
  leaveVectors();
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(transform);
HWY_EXPORT(deform);

namespace {

void load(const Buffer<float>& from, std::size_t first, std::size_t count, float* to) {
  std::copy_n(from.data() + first, count, to);
  std::fill(to + count, to + VertexBlock::padded(count), to[count - 1]);
}

}  // namespace

void loadVertices(const VectorStreams& from, std::size_t first, std::size_t count,
                  VertexBlock& block) {
  load(from.x, first, count, block.x);
  load(from.y, first, count, block.y);
  load(from.z, first, count, block.z);
}

void storeVertices(const VertexBlock& block, std::size_t first, std::size_t count,
                   VectorStreams& to) {
  std::copy_n(block.x, count, to.x.data() + first);
  std::copy_n(block.y, count, to.y.data() + first);
  std::copy_n(block.z, count, to.z.data() + first);
}

void transformVertices(VertexBlock& block, std::size_t count, const Matrix4& matrix, Vec3 move) {
  HWY_DYNAMIC_DISPATCH(transform)(block, VertexBlock::padded(count), matrix, move);
}

bool deforms(const ModifierTable& values) {
  constexpr ModifierKind kKinds[] = {
      ModifierKind::PinchA, ModifierKind::PinchB, ModifierKind::Taper, ModifierKind::ShearA,
      ModifierKind::ShearB, ModifierKind::Bend,   ModifierKind::Twist, ModifierKind::Bulge};
  return std::any_of(std::begin(kKinds), std::end(kKinds), [&](ModifierKind kind) {
    const Vec3& v = values[kind];
    return !(v.x == 0.0F && v.y == 0.0F && v.z == 0.0F);
  });
}

void deformVertices(VertexBlock& block, std::size_t count, const ModifierTable& values,
                    const VertexBlock* directions) {
  HWY_DYNAMIC_DISPATCH(deform)(block, VertexBlock::padded(count), values, directions);
}

}  // namespace pv

#endif
