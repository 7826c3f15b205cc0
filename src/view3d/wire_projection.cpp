// Vertices to pixels, several at a time and in one pass: nothing between a
// stored vertex and its pixel goes through memory.
#include "view3d/wire_projection.h"

#include <algorithm>
#include <bit>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/wire_projection.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
#include "view3d/pixel_extent-inl.h"
#include "view3d/wire_road-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Saturation, points at or behind the eye and what is not a number are rare:
// such lanes are marked and left to the projector.
constexpr float kPlainReach = 1073741824.0F;  // 2^30: neither cut nor overflowing

/// Full positions of a chunk that leaves the canvas.
template <class Road>
HWY_INLINE void projectWide(const Road& road, std::size_t chunk, PixelColumn& out) {
  using V = typename Road::V;
  const typename Road::Tag d;
  const hn::RebindToSigned<typename Road::Tag> di;
  const V reach = constant<V>(kPlainReach);
  for (std::size_t i = chunk; i < chunk + PixelColumn::kChunk; i += hn::Lanes(d)) {
    const auto spot = road.spot(i);
    const auto isNear =
        hn::And(hn::Lt(hn::Abs(spot.across), reach), hn::Lt(hn::Abs(spot.up), reach));
    const auto plain = hn::And(hn::Gt(spot.front, constant<V>(0.0F)), isNear);
    const auto x = road.pixelX(hn::IfThenElseZero(plain, spot.across));
    hn::Store(hn::IfThenElse(hn::RebindMask(di, plain), x, hn::Set(di, kInvisible)), di, out.x + i);
    hn::Store(road.pixelY(hn::IfThenElseZero(plain, spot.up)), di, out.y + i);
  }
}

// A conversion of what is too large, or no number, ends at one of the two ends of
// the 32 bits. A pixel of it is off the canvas, wrapped or not.
template <class Road>
HWY_INLINE void projectBy(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                          PixelColumn& out, PixelReach& reach) {
  using Ints = hn::RebindToSigned<typename Road::Tag>;
  const Ints d;
  const Road road(from, map);
  PixelDoubts doubts;
  PixelExtent<Ints> extent(map, doubts, reach);
  std::int32_t* spots = out.spots + PixelColumn::kLead;
  for (std::uint32_t rest = chunks; rest != 0; rest &= rest - 1) {
    const std::size_t chunk = std::countr_zero(rest) * PixelColumn::kChunk;
    for (std::size_t i = chunk; i < chunk + PixelColumn::kChunk; i += hn::Lanes(d)) {
      const auto spot = road.spot(i);
      const auto x = road.pixelX(spot.across);
      const auto y = road.pixelY(spot.up);
      const auto both = hn::Or(hn::ShiftLeft<16>(y), x);
      hn::Store(both, d, spots + i);
      extent.include(i, x, y, both, spot.front);
    }
  }
  extent.keep();
  const std::uint32_t outside = extent.outside(chunks, spots);
  out.inside = chunks & ~outside;
  for (std::uint32_t rest = outside; rest != 0; rest &= rest - 1) {
    projectWide(road, std::countr_zero(rest) * PixelColumn::kChunk, out);
  }
}

// Sums and products of 512 bits lower the clock of some processors by a fifth, and for a
// millisecond after. That pays while many vertices follow, and only where each goes
// through more than the projection itself.
template <template <class> class Form, std::size_t kSteps, class Spread = Unspread>
HWY_INLINE void projectIn(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                          PixelColumn& out, PixelReach& reach) {
  using Narrow = hn::CappedTag<float, 8>;
  constexpr bool kIsMore = kSteps > 0 && hn::MaxLanes(Floats()) > hn::MaxLanes(Narrow());
  if (kIsMore && map.isLongWork) {
    projectBy<Road<Floats, Form, kSteps, Spread>>(from, chunks, map, out, reach);
  } else {
    projectBy<Road<Narrow, Form, kSteps, Spread>>(from, chunks, map, out, reach);
  }
}

template <template <class> class Form>
HWY_INLINE void projectAfter(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                             PixelColumn& out, PixelReach& reach) {
  switch (from.spread.kind) {
    case ProfileSpread::Kind::Move:
      return projectIn<Form, 2, Moved>(from, chunks, map, out, reach);
    case ProfileSpread::Kind::Turn:
      return projectIn<Form, 2, Turned>(from, chunks, map, out, reach);
    default:
      break;
  }
  switch (from.transforms.size()) {
    case 0:
      return projectIn<Form, 0>(from, chunks, map, out, reach);
    case 1:
      return projectIn<Form, 1>(from, chunks, map, out, reach);
    default:
      return projectIn<Form, 2>(from, chunks, map, out, reach);
  }
}

void project(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
             PixelColumn& out, PixelReach& reach) {
  if (map.projection.mode != ViewMode::Perspective) {
    projectAfter<FlatForm>(from, chunks, map, out, reach);
  } else if (map.projection.view.m[1][0] == 0.0F) {
    projectAfter<LevelForm>(from, chunks, map, out, reach);
  } else {
    projectAfter<TiltedForm>(from, chunks, map, out, reach);
  }
  leaveVectors();
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(project);

PixelMap::PixelMap(const ShapeProjection& view, const ViewProjector& sizes,
                   std::int32_t canvasWidth, std::int32_t canvasHeight)
    : projection(view), projector(sizes), width(canvasWidth), height(canvasHeight) {
  const bool perspective = view.mode == ViewMode::Perspective;
  scaleX =
      perspective ? static_cast<float>(view.centre.x) : static_cast<float>(sizes.width()) / 2.0F;
  scaleY =
      perspective ? static_cast<float>(view.centre.y) : static_cast<float>(sizes.height()) / 2.0F;
}

namespace {

/// What the vector form left over in a chunk.
void projectRest(const ColumnVertices& from, const PixelMap& map, std::size_t chunk,
                 PixelColumn& column) {
  ViewProjector projector = map.projector;
  for (std::size_t k = chunk; k < chunk + PixelColumn::kChunk; ++k) {
    if (column.x[k] == kInvisible) {
      Vec3 vertex = from.spread({from.x[k], from.y[k], from.z[k]});
      for (const InstanceTransform& transform : from.transforms) {
        vertex = D3DXVec3Transform(vertex, transform.matrix) + transform.offset;
      }
      const auto point = map.projection.map(projector, vertex);
      column.x[k] = point ? point->x : kInvisible;
      column.y[k] = point ? point->y : 0;
    }
  }
}

}  // namespace

void projectColumn(const ColumnVertices& vertices, std::uint32_t chunks, const PixelMap& map,
                   PixelColumn& column, PixelReach& reach) {
  HWY_DYNAMIC_DISPATCH(project)(vertices, chunks, map, column, reach);
  if (const std::uint32_t wide = chunks & ~column.inside; wide != 0) {
    for (std::uint32_t left = wide; left != 0; left &= left - 1) {
      const auto chunk = static_cast<std::size_t>(std::countr_zero(left));
      projectRest(vertices, map, chunk * PixelColumn::kChunk, column);
    }
    reach.include(0, 0);  // lines may then reach any pixel
    reach.include(map.width - 1, map.height - 1);
  }
  const std::size_t end = VertexBlock::padded(vertices.count);
  column.spots[PixelColumn::kLead - 1] = column.spots[PixelColumn::kLead];
  column.spots[PixelColumn::kLead + end] = column.spots[PixelColumn::kLead + end - 1];
}

void PixelReach::clear() {
  std::fill(std::begin(low), std::end(low), INT16_MAX);
  std::fill(std::begin(high), std::end(high), INT16_MIN);
}

void PixelReach::include(std::int32_t x, std::int32_t y) {
  const auto add = [this](std::size_t lane, std::int32_t value) {
    const auto v = static_cast<std::int16_t>(value);
    low[lane] = std::min(low[lane], v);
    high[lane] = std::max(high[lane], v);
  };
  add(0, x);
  add(1, y);
}

void PixelReach::widen(std::int32_t pixels) {
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    if (low[lane] <= high[lane]) {
      low[lane] = static_cast<std::int16_t>(std::max(low[lane] - pixels, 0));
      high[lane] = static_cast<std::int16_t>(std::min(high[lane] + pixels, INT16_MAX));
    }
  }
}

}  // namespace pv

#endif
