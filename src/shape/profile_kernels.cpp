// Profiles in vector form: from a point to a shaped vertex without memory between.
#include "shape/profile_kernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/profile_kernels.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "shape/profile_spread-inl.h"
#include "shape/vertex_transform-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// A profile's vertices, one vector after the other: first `make`, then the
/// transforms, all in registers.
template <class Make>
HWY_INLINE void spread(const ProfileRow& profile, const Make& make,
                       std::span<const InstanceTransform> then, VertexPlace to) {
  const Floats d;
  const std::size_t steps = then.size();
  constexpr Matrix4 kNone;
  const InstanceTransform none{kNone, {}};
  const InstanceTransform& first = steps > 0 ? then[0] : none;
  const InstanceTransform& second = steps > 1 ? then[1] : none;
  const Transform transforms[] = {{first.matrix, first.offset}, {second.matrix, second.offset}};
  for (std::size_t i = 0; i < profile.count; i += hn::Lanes(d)) {
    F x = hn::Load(d, profile.x + i);
    F y = hn::Load(d, profile.y + i);
    F z = hn::Load(d, profile.z + i);
    make(x, y, z);
    for (std::size_t step = 0; step < steps; ++step) {
      transforms[step](x, y, z);
    }
    hn::Store(x, d, to.x + i);
    hn::Store(y, d, to.y + i);
    hn::Store(z, d, to.z + i);
  }
  leaveVectors();
}

void spreadBy(const ProfileRow& profile, const ProfileSpread& how,
              std::span<const InstanceTransform> then, VertexPlace to) {
  if (how.kind == ProfileSpread::Kind::Turn) {
    spread(profile, Turned{how}, then, to);
  } else {
    spread(profile, Moved{how}, then, to);
  }
}

void turn(const ProfileRow& profile, const Matrix4& by, bool swaps,
          std::span<const InstanceTransform> then, VertexPlace to) {
  const Transform turned(by, {});
  const auto make = [&](F& x, F& y, F& z) HWY_ATTR {
    turned(x, y, z);
    if (swaps) {
      const F before = x;
      x = z;
      z = before;
    }
  };
  spread(profile, make, then, to);
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(spreadBy);
HWY_EXPORT(turn);

void spreadProfile(const ProfileRow& profile, const ProfileSpread& spread,
                   std::span<const InstanceTransform> then, VertexPlace to) {
  HWY_DYNAMIC_DISPATCH(spreadBy)(profile, spread, then, to);
}

void turnProfile(const ProfileRow& profile, const Matrix4& by, bool swaps,
                 std::span<const InstanceTransform> then, VertexPlace to) {
  HWY_DYNAMIC_DISPATCH(turn)(profile, by, swaps, then, to);
}

}  // namespace pv

#endif
