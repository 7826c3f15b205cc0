// Profiles in vector form: from a point to a shaped vertex without memory between.
#include "shape/profile_kernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/profile_kernels.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
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
  for (std::size_t i = 0; i < profile.count; i += hn::Lanes(d)) {
    F x = hn::Load(d, profile.x + i);
    F y = hn::Load(d, profile.y + i);
    F z = hn::Load(d, profile.z + i);
    make(x, y, z);
    for (std::size_t step = 0; step < steps; ++step) {
      Transform{then[step].matrix, then[step].offset}(x, y, z);
    }
    hn::Store(x, d, to.x + i);
    hn::Store(y, d, to.y + i);
    hn::Store(z, d, to.z + i);
  }
  leaveVectors();
}

void move(const ProfileRow& profile, float along, std::span<const InstanceTransform> then,
          VertexPlace to) {
  const auto make = [along](F& /*x*/, F& /*y*/, F& z) HWY_ATTR { z = hn::Sub(z, constant(along)); };
  spread(profile, make, then, to);
}

void turn(const ProfileRow& profile, const InstanceTransform& by, bool swaps,
          std::span<const InstanceTransform> then, VertexPlace to) {
  const auto make = [&by, swaps](F& x, F& y, F& z) HWY_ATTR {
    Transform{by.matrix, by.offset}(x, y, z);
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

HWY_EXPORT(move);
HWY_EXPORT(turn);

void moveProfile(const ProfileRow& profile, float along, std::span<const InstanceTransform> then,
                 VertexPlace to) {
  HWY_DYNAMIC_DISPATCH(move)(profile, along, then, to);
}

void turnProfile(const ProfileRow& profile, const InstanceTransform& by, bool swaps,
                 std::span<const InstanceTransform> then, VertexPlace to) {
  HWY_DYNAMIC_DISPATCH(turn)(profile, by, swaps, then, to);
}

}  // namespace pv

#endif
