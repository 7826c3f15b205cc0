// Boxes around patches, carried through the same transforms as their vertices.
// Every step keeps a middle and half a size for each axis, and adds what rounding
// may change in a vertex and in the middle itself: fewer than 8 roundings each, of
// 2^-24 of the sum of the terms' sizes at most.
#include "view3d/hidden_patches.h"

#include <algorithm>
#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/hidden_patches.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "shape/vertex_transform-inl.h"
// clang-format on

#ifndef PV_VIEW3D_HIDDEN_PATCHES_ONCE
#define PV_VIEW3D_HIDDEN_PATCHES_ONCE
namespace pv {

constexpr std::size_t kMostPatches = 32;

/// Pixels from low to high, both included; none when high is below low.
struct alignas(64) PatchAreas {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  PatchAreas() {}

  std::int32_t lowX[kMostPatches];
  std::int32_t highX[kMostPatches];
  std::int32_t lowY[kMostPatches];
  std::int32_t highY[kMostPatches];
};

}  // namespace pv
#endif

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Ints = hn::RebindToSigned<Floats>;

constexpr float kRounding = 0x1p-19F;  // far above 16 * 2^-24

struct Span {
  F middle;
  F half;

  [[nodiscard]] HWY_INLINE F low() const { return hn::Sub(middle, half); }
  [[nodiscard]] HWY_INLINE F high() const { return hn::Add(middle, half); }
};

struct Box {
  Span x;
  Span y;
  Span z;
};

HWY_INLINE Span column(const Box& b, const Matrix4& t, std::size_t c, float move) {
  const F mx = constant(t.m[0][c]);
  const F my = constant(t.m[1][c]);
  const F mz = constant(t.m[2][c]);
  const F offset = constant(t.m[3][c] + move);
  const F ax = hn::Abs(mx);
  const F ay = hn::Abs(my);
  const F az = hn::Abs(mz);
  const F middle = hn::Add(dot(b.x.middle, b.y.middle, b.z.middle, mx, my, mz), offset);
  const F half = dot(b.x.half, b.y.half, b.z.half, ax, ay, az);
  const F size =
      hn::Add(dot(hn::Abs(b.x.middle), hn::Abs(b.y.middle), hn::Abs(b.z.middle), ax, ay, az),
              hn::Add(half, constant(std::abs(t.m[3][c]) + std::abs(move))));
  return {middle, hn::Add(half, hn::Mul(size, constant(kRounding)))};
}

HWY_INLINE Box transformed(const Box& b, const Matrix4& t, const Vec3& move) {
  return {column(b, t, 0, move.x), column(b, t, 1, move.y), column(b, t, 2, move.z)};
}

/// Least and greatest value of scale * v / depth for depths above zero.
HWY_INLINE Span shares(const Span& v, const Span& depth, float scale) {
  const F zero = hn::Zero(Floats());
  const F nearest = hn::Div(constant(scale), depth.low());
  const F furthest = hn::Div(constant(scale), depth.high());
  const F low = v.low();
  const F high = v.high();
  const F least = hn::Mul(low, hn::IfThenElse(hn::Lt(low, zero), nearest, furthest));
  const F most = hn::Mul(high, hn::IfThenElse(hn::Gt(high, zero), nearest, furthest));
  const F half = constant(0.5F);
  return {hn::Mul(hn::Add(least, most), half), hn::Mul(hn::Sub(most, least), half)};
}

/// Pixels of distances from the middle of the canvas, with one more to each side
/// for what rounding and truncation may change in values below 2^15. Values that
/// are larger, or no numbers, give an area off the canvas.
HWY_INLINE void storePixels(const Span& span, hn::Mask<Floats> valid, std::int32_t centre,
                            bool downward, std::int32_t* low, std::int32_t* high) {
  const Ints d;
  const F reach = constant(32768.0F);
  const F least = span.low();
  const F most = span.high();
  const auto isPlain =
      hn::And(valid, hn::And(hn::Lt(hn::Abs(least), reach), hn::Lt(hn::Abs(most), reach)));
  const auto use = hn::RebindMask(d, isPlain);
  const auto from = hn::ConvertTo(d, hn::IfThenElseZero(isPlain, least));
  const auto to = hn::ConvertTo(d, hn::IfThenElseZero(isPlain, most));
  const auto c = hn::Set(d, centre);
  const auto one = hn::Set(d, 1);
  const auto first = hn::Sub(downward ? hn::Sub(c, to) : hn::Add(c, from), one);
  const auto last = hn::Add(downward ? hn::Sub(c, from) : hn::Add(c, to), one);
  hn::Store(hn::IfThenElse(use, first, hn::Set(d, -1)), d, low);
  hn::Store(hn::IfThenElseZero(use, last), d, high);
}

void patchAreas(const PatchBoxes::Group& group, std::size_t first, std::size_t chunks,
                std::span<const InstanceTransform> transforms, const PixelMap& map,
                PatchAreas& areas) {
  const Floats d;
  const ViewMode mode = map.projection.mode;
  const PixelPoint centre = map.projection.centre;
  for (std::size_t i = 0; i < chunks; i += hn::Lanes(d)) {
    const auto span = [&](std::size_t axis) HWY_ATTR {
      return Span{hn::Load(d, group.middle[axis] + first + i),
                  hn::Load(d, group.half[axis] + first + i)};
    };
    Box box{span(0), span(1), span(2)};
    for (const InstanceTransform& transform : transforms) {
      box = transformed(box, transform.matrix, transform.offset);
    }
    if (mode == ViewMode::Perspective) {
      box = transformed(box, map.projection.view, {});
      const auto isBefore = hn::Gt(box.z.low(), constant(0x1p-6F));
      storePixels(shares(box.x, box.z, map.scaleX), isBefore, centre.x, true, areas.lowX + i,
                  areas.highX + i);
      storePixels(shares(box.y, box.z, map.scaleY), isBefore, centre.y, false, areas.lowY + i,
                  areas.highY + i);
    } else {
      const auto scaled = [](const Span& s, float scale) HWY_ATTR {
        return Span{hn::Mul(s.middle, constant(scale)), hn::Mul(s.half, constant(scale))};
      };
      const auto any = hn::Eq(box.x.half, box.x.half);
      storePixels(scaled(mode == ViewMode::Side ? box.z : box.x, map.scaleX), any, centre.x, false,
                  areas.lowX + i, areas.highX + i);
      storePixels(scaled(mode == ViewMode::Top ? box.z : box.y, map.scaleY), any, centre.y,
                  mode == ViewMode::Top, areas.lowY + i, areas.highY + i);
    }
  }
}

/// Whether all bytes of a rectangle are lit. Where some are not, mostly one of its
/// corners sticks out of what is.
HWY_INLINE bool isAllLit(const std::uint8_t* corner, std::int32_t width, std::size_t columns,
                         std::size_t rows) {
  const hn::ScalableTag<std::uint8_t> d;
  const std::uint8_t* top = corner + static_cast<std::int64_t>(rows - 1) * width;
  if ((corner[0] & corner[columns - 1] & top[0] & top[columns - 1]) == 0) {
    return false;
  }
  for (std::size_t x = 0; x < columns; x += hn::Lanes(d)) {
    const auto inUse = hn::FirstN(d, columns - x);
    const std::uint8_t* row = corner + x;
    for (std::size_t y = 0; y < rows; ++y, row += width) {
      const auto dark = hn::Eq(hn::LoadU(d, row), hn::Zero(d));
      if (!hn::AllFalse(d, hn::And(dark, inUse))) {
        return false;
      }
    }
  }
  return true;
}

std::uint32_t visible(const PatchBoxes::Group& group, std::size_t first, std::size_t chunks,
                      std::span<const InstanceTransform> transforms, const PixelMap& map,
                      const std::uint8_t* lit) {
  constexpr std::int32_t kMost = 128;  // pixels a side: what is larger is rarely hidden
  PatchAreas areas;
  patchAreas(group, first, chunks, transforms, map, areas);
  std::uint32_t result = 0;
  for (std::size_t i = 0; i < chunks; ++i) {
    const std::int32_t x = areas.lowX[i];
    const std::int32_t y = areas.lowY[i];
    const bool isOnCanvas =
        x >= 0 && y >= 0 && areas.highX[i] < map.width && areas.highY[i] < map.height;
    const std::int32_t columns = areas.highX[i] - x + 1;
    const std::int32_t rows = areas.highY[i] - y + 1;
    const bool isHidden =
        isOnCanvas && columns <= kMost && rows <= kMost &&
        isAllLit(lit + std::int64_t{y} * map.width + x, map.width,
                 static_cast<std::size_t>(columns), static_cast<std::size_t>(rows));
    result |= static_cast<std::uint32_t>(!isHidden) << i;
  }
  leaveVectors();
  return result;
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(visible);

std::uint32_t visiblePatches(const PatchBoxes::Group& group, std::size_t firstChunk,
                             std::size_t chunks, std::span<const InstanceTransform> transforms,
                             const PixelMap& map, const std::uint8_t* lit) {
  return HWY_DYNAMIC_DISPATCH(visible)(group, firstChunk, chunks, transforms, map, lit);
}

}  // namespace pv

#endif
