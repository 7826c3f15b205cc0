// Where patches can come to lie. A vertex is no further from a point between its
// patch's corners than the patch's reach; a projection takes what lies between
// points to what lies between their pixels. So a patch stays between its corners'
// pixels, and as far around as its reach looks at its nearest corner's depth.
#include "view3d/hidden_patches.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/hidden_patches.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "shape/vertex_transform-inl.h"
#include "view3d/single_pixels-inl.h"
// clang-format on

#ifndef PV_VIEW3D_HIDDEN_PATCHES_ONCE
#define PV_VIEW3D_HIDDEN_PATCHES_ONCE
namespace pv {

constexpr std::size_t kMostPatches = 32;

/// Corners before the eye.
struct alignas(64) PatchEdge {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  PatchEdge() {}

  static constexpr std::size_t kRoom = kMostPatches + VertexBlock::kStep;
  float across[kRoom];
  float up[kRoom];
  float depth[kRoom];
};

/// Pixels from low to high, both included; from -1 when they are not known.
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
using Axis = HiddenPatches::Axis;

/// Of four corners.
struct Span {
  F low;
  F high;
};

HWY_INLINE F along(const Axis& axis, F x, F y, F z) {
  const auto& f = axis.factors;
  return hn::Add(dot(x, y, z, constant(f[0]), constant(f[1]), constant(f[2])), constant(f[3]));
}

/// How far a vertex may be, along an axis, from a point between the corners.
HWY_INLINE F slack(const Axis& axis, F reach, F size) {
  return hn::Add(hn::Add(hn::Mul(reach, constant(axis.stretch)),
                         hn::Mul(size, constant(axis.roundingPerSize))),
                 constant(axis.rounding));
}

HWY_INLINE Span around(const float* left, const float* right) {
  const Floats d;
  const F a = hn::Load(d, left);
  const F b = hn::LoadU(d, left + 1);
  const F e = hn::Load(d, right);
  const F f = hn::LoadU(d, right + 1);
  return {hn::Min(hn::Min(a, b), hn::Min(e, f)), hn::Max(hn::Max(a, b), hn::Max(e, f))};
}

void projectCorners(const PatchHulls::Corners& from, std::size_t first, std::size_t count,
                    const std::array<Axis, 3>& axes, PatchEdge& edge) {
  const Floats d;
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const F x = hn::LoadU(d, from.x + first + i);
    const F y = hn::LoadU(d, from.y + first + i);
    const F z = hn::LoadU(d, from.z + first + i);
    const F depth = along(axes[2], x, y, z);
    hn::Store(hn::Div(along(axes[0], x, y, z), depth), d, edge.across + i);
    hn::Store(hn::Div(along(axes[1], x, y, z), depth), d, edge.up + i);
    hn::Store(depth, d, edge.depth + i);
  }
}

/// Pixels of distances from the middle of the canvas. Truncation keeps the order
/// of numbers, and what rounding may change in those below 2^13 is much less than
/// what is added here. Others, or what is no number, count as not known.
HWY_INLINE void storePixels(const Span& span, F margin, float scale, std::int32_t centre,
                            bool downward, hn::Mask<Floats> valid, std::int32_t* low,
                            std::int32_t* high) {
  const Ints d;
  const F limit = constant(8192.0F);
  const F rounding = constant(1.0F / 64.0F);
  const F factor = constant(scale);
  const F least = hn::Sub(hn::Mul(hn::Sub(span.low, margin), factor), rounding);
  const F most = hn::Add(hn::Mul(hn::Add(span.high, margin), factor), rounding);
  const auto isPlain =
      hn::And(valid, hn::And(hn::Lt(hn::Abs(least), limit), hn::Lt(hn::Abs(most), limit)));
  const auto use = hn::RebindMask(d, isPlain);
  const auto from = hn::ConvertTo(d, hn::IfThenElseZero(isPlain, least));
  const auto to = hn::ConvertTo(d, hn::IfThenElseZero(isPlain, most));
  const auto c = hn::Set(d, centre);
  const auto first = downward ? hn::Sub(c, to) : hn::Add(c, from);
  const auto last = downward ? hn::Sub(c, from) : hn::Add(c, to);
  hn::Store(hn::IfThenElse(use, first, hn::Set(d, -1)), d, low);
  hn::Store(hn::IfThenElseZero(use, last), d, high);
}

// With a slack of a across and b in depth, (x + a) / (z - b) is at most
// (a + b |x / z|) / (z - b) away from x / z.
void patchAreas(const HiddenPatches& patches, const PatchHulls::Group& group, std::size_t first,
                std::size_t chunks, PatchAreas& areas) {
  const Floats d;
  const std::array<Axis, 3>& axes = patches.axes();
  const PixelMap& map = patches.map();
  const ViewMode mode = map.projection.mode;
  PatchEdge left;
  PatchEdge right;
  projectCorners(group.left, first, chunks + 1, axes, left);
  projectCorners(group.right, first, chunks + 1, axes, right);
  for (std::size_t i = 0; i < chunks; i += hn::Lanes(d)) {
    const F reach = hn::LoadU(d, group.reach + first + i);
    const F size = hn::LoadU(d, group.size + first + i);
    const F depthSlack = slack(axes[2], reach, size);
    const F nearest = hn::Sub(around(left.depth + i, right.depth + i).low, depthSlack);
    const auto isBefore =
        hn::And(hn::Gt(nearest, constant(0x1p-6F)), hn::Lt(size, constant(patches.sizeEnd())));
    const auto margin = [&](const Span& span, const Axis& axis) HWY_ATTR {
      const F furthest = hn::Max(hn::Abs(span.low), hn::Abs(span.high));
      return hn::Div(hn::Add(slack(axis, reach, size), hn::Mul(depthSlack, furthest)), nearest);
    };
    const Span across = around(left.across + i, right.across + i);
    const Span up = around(left.up + i, right.up + i);
    const bool isDeep = mode == ViewMode::Perspective;
    storePixels(across, margin(across, axes[0]), map.scaleX, map.projection.centre.x, isDeep,
                isBefore, areas.lowX + i, areas.highX + i);
    storePixels(up, margin(up, axes[1]), map.scaleY, map.projection.centre.y, mode == ViewMode::Top,
                isBefore, areas.lowY + i, areas.highY + i);
  }
}

/// Pixels from low to high, both included.
struct Area {
  std::int32_t lowX;
  std::int32_t lowY;
  std::int32_t highX;
  std::int32_t highY;
};

/// Whether all bits of an area's part in the strip from `x` on are set.
HWY_INLINE bool isStripLit(const MaskPixels& lit, const Area& area, std::int32_t x) {
  const hn::ScalableTag<std::uint16_t> d;
  const auto rows = static_cast<std::size_t>(area.highY - area.lowY) + 1;
  const std::uint32_t fromLow = 0xFFU << static_cast<std::uint32_t>(std::max(area.lowX - x, 0));
  const std::uint32_t toHigh = 0xFFU >> static_cast<std::uint32_t>(std::max(x + 7 - area.highX, 0));
  const auto wanted = hn::Set(d, static_cast<std::uint16_t>(fromLow & toHigh));
  const std::uint16_t* own = lit.words + lit.strips.word(x, area.lowY);
  const std::uint16_t* left = own - lit.strips.pitch();
  for (std::size_t y = 0; y < rows; y += hn::Lanes(d)) {
    const auto both = hn::Or(hn::LoadU(d, own + y), hn::ShiftRight<8>(hn::LoadU(d, left + y)));
    const auto dark = hn::Ne(hn::And(both, wanted), wanted);
    if (!hn::AllFalse(d, hn::And(dark, hn::FirstN(d, rows - y)))) {
      return false;
    }
  }
  return true;
}

/// Whether all pixels of an area are lit. Where some are not, mostly one of its corners
/// sticks out of what is. Single pixels that are met become bits.
HWY_INLINE bool isAllLit(const MaskPixels& lit, const Area& area) {
  if (!lit.isLit(area.lowX, area.lowY) || !lit.isLit(area.highX, area.lowY) ||
      !lit.isLit(area.lowX, area.highY) || !lit.isLit(area.highX, area.highY)) {
    return false;
  }
  const std::int32_t bottom = area.lowY / FrameCells::kHeight * FrameCells::kHeight;
  const auto rows = static_cast<std::size_t>(area.highY - bottom) + 1;
  constexpr std::int32_t kWidth = FrameStrips::kWidth;
  for (std::int32_t x = area.lowX / kWidth * kWidth; x <= area.highX; x += kWidth) {
    if (isStripLit(lit, area, x)) {
      continue;
    }
    if (!lit.singles->areUsed) {
      return false;
    }
    settleRows(lit, lit.strips.word(x, bottom), rows);
    if (!isStripLit(lit, area, x)) {
      return false;
    }
  }
  return true;
}

std::uint32_t visible(const HiddenPatches& patches, const PatchHulls::Group& group,
                      std::size_t first, std::size_t chunks, const MaskPixels& lit) {
  constexpr std::int32_t kMost = 128;  // pixels a side: what is larger is rarely hidden
  const PixelMap& map = patches.map();
  PatchAreas areas;
  patchAreas(patches, group, first, chunks, areas);
  std::uint32_t result = 0;
  for (std::size_t i = 0; i < chunks; ++i) {
    const std::int32_t x = areas.lowX[i];
    const std::int32_t y = areas.lowY[i];
    const bool isOnCanvas =
        x >= 0 && y >= 0 && areas.highX[i] < map.width && areas.highY[i] < map.height;
    const std::int32_t columns = areas.highX[i] - x + 1;
    const std::int32_t rows = areas.highY[i] - y + 1;
    const bool isHidden = isOnCanvas && columns <= kMost && rows <= kMost &&
                          isAllLit(lit, {x, y, areas.highX[i], areas.highY[i]});
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

std::uint32_t HiddenPatches::visible(const PatchHulls::Group& group, std::size_t firstChunk,
                                     std::size_t chunks, const MaskPixels& lit) const {
  return HWY_DYNAMIC_DISPATCH(visible)(*this, group, firstChunk, chunks, lit);
}

}  // namespace pv

#endif
