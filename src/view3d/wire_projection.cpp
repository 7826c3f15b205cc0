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
#include "view3d/wire_road-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

/// A PixelReach in registers.
template <class Ints>
struct Reach {
  explicit Reach(PixelReach& reach) : kept(reach) {}
  void include(hn::Vec<Ints> spots) const {
    const std::int32_t spot = hn::GetLane(spots);
    kept.include(spot & 0xFFFF, spot >> 16);
  }
  void keep() const {}

  PixelReach& kept;
};

#else

template <class Ints>
struct Reach {
  using Shorts = hn::Repartition<std::int16_t, Ints>;

  HWY_INLINE explicit Reach(PixelReach& reach)
      : kept(reach), low(hn::Load(Shorts(), reach.low)), high(hn::Load(Shorts(), reach.high)) {}
  HWY_INLINE void include(hn::Vec<Ints> spots) {
    low = hn::Min(low, hn::BitCast(Shorts(), spots));
    high = hn::Max(high, hn::BitCast(Shorts(), spots));
  }
  HWY_INLINE void keep() const {
    hn::Store(low, Shorts(), kept.low);
    hn::Store(high, Shorts(), kept.high);
  }

  PixelReach& kept;
  hn::Vec<Shorts> low;
  hn::Vec<Shorts> high;
};

#endif

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
    const auto plain = hn::And(spot.visible, hn::And(hn::Lt(hn::Abs(spot.across), reach),
                                                     hn::Lt(hn::Abs(spot.up), reach)));
    const auto x = road.pixelX(hn::IfThenElseZero(plain, spot.across));
    hn::Store(hn::IfThenElse(hn::RebindMask(di, plain), x, hn::Set(di, kInvisible)), di, out.x + i);
    hn::Store(road.pixelY(hn::IfThenElseZero(plain, spot.up)), di, out.y + i);
  }
}

// A conversion of what is too large, or no number, ends near one of the two ends of
// the 32 bits. A pixel of it is off the canvas, wrapped or not.
template <class Road>
HWY_INLINE void projectBy(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                          PixelColumn& out, PixelReach& kept) {
  const hn::RebindToSigned<typename Road::Tag> d;
  const hn::RebindToUnsigned<decltype(d)> words;
  const Road road(from, map);
  const auto width = hn::Set(words, static_cast<std::uint32_t>(map.width));
  const auto height = hn::Set(words, static_cast<std::uint32_t>(map.height));
  Reach<hn::RebindToSigned<typename Road::Tag>> reach(kept);
  std::uint32_t inside = 0;
  for (; chunks != 0; chunks &= chunks - 1) {
    const auto index = static_cast<std::size_t>(std::countr_zero(chunks));
    const std::size_t chunk = index * PixelColumn::kChunk;
    bool isInside = true;
    for (std::size_t i = chunk; i < chunk + PixelColumn::kChunk; i += hn::Lanes(d)) {
      const auto spot = road.spot(i);
      const auto x = road.pixelX(spot.across);
      const auto y = road.pixelY(spot.up);
      const auto onCanvas =
          hn::And(hn::Lt(hn::BitCast(words, x), width), hn::Lt(hn::BitCast(words, y), height));
      const auto both = hn::Or(hn::ShiftLeft<16>(y), x);
      hn::Store(both, d, out.spots + PixelColumn::kLead + i);
      reach.include(both);
      isInside = isInside && hn::AllTrue(d, hn::And(hn::RebindMask(d, onCanvas),
                                                    hn::RebindMask(d, spot.visible)));
    }
    if (isInside) {
      inside |= 1U << index;
    } else {
      projectWide(road, chunk, out);
    }
  }
  out.inside = inside;
  reach.keep();
}

template <class D, class Form>
HWY_INLINE void projectAfter(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                             PixelColumn& out, PixelReach& reach) {
  switch (from.spread.kind) {
    case ProfileSpread::Kind::Move:
      return projectBy<Road<D, Form, 2, Moved>>(from, chunks, map, out, reach);
    case ProfileSpread::Kind::Turn:
      return projectBy<Road<D, Form, 2, Turned>>(from, chunks, map, out, reach);
    default:
      break;
  }
  switch (from.transforms.size()) {
    case 0:
      return projectBy<Road<D, Form, 0>>(from, chunks, map, out, reach);
    case 1:
      return projectBy<Road<D, Form, 1>>(from, chunks, map, out, reach);
    default:
      return projectBy<Road<D, Form, 2>>(from, chunks, map, out, reach);
  }
}

template <class D>
HWY_INLINE void projectIn(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                          PixelColumn& out, PixelReach& reach) {
  if (map.projection.mode == ViewMode::Perspective) {
    projectAfter<D, PerspectiveForm>(from, chunks, map, out, reach);
  } else {
    projectAfter<D, FlatForm>(from, chunks, map, out, reach);
  }
}

void project(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
             PixelColumn& out, PixelReach& reach) {
  // Sums and products of 512 bits lower the clock of some processors by a fifth, and
  // for a millisecond after. That pays while many vertices follow.
  using Narrow = hn::CappedTag<float, 8>;
  if (hn::MaxLanes(Floats()) > hn::MaxLanes(Narrow()) && !map.isLongWork) {
    projectIn<Narrow>(from, chunks, map, out, reach);
  } else {
    projectIn<Floats>(from, chunks, map, out, reach);
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
