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
#include "shape/profile_spread-inl.h"
#include "shape/vertex_transform-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Ints = hn::RebindToSigned<Floats>;
using I = hn::Vec<Ints>;

#if HWY_TARGET == HWY_SCALAR

/// A PixelReach in registers.
struct Reach {
  explicit Reach(PixelReach& reach) : kept(reach) {}
  void include(I spots) const {
    const std::int32_t spot = hn::GetLane(spots);
    kept.include(spot & 0xFFFF, spot >> 16);
  }
  void keep() const {}

  PixelReach& kept;
};

#else

struct Reach {
  using Shorts = hn::Repartition<std::int16_t, Ints>;

  HWY_INLINE explicit Reach(PixelReach& reach)
      : kept(reach), low(hn::Load(Shorts(), reach.low)), high(hn::Load(Shorts(), reach.high)) {}
  HWY_INLINE void include(I spots) {
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

/// Truncates as the processor does it; only what fits 32 bits comes out the same
/// everywhere.
HWY_INLINE I quickTruncate(F v) {
#if HWY_TARGET == HWY_AVX3
  return I{_mm512_cvttps_epi32(v.raw)};
#elif HWY_TARGET == HWY_AVX2
  return I{_mm256_cvttps_epi32(v.raw)};
#else
  // Some processors make 0 of what is no number.
  const I number = hn::ConvertTo(Ints(), v);
  return hn::IfThenElse(hn::RebindMask(Ints(), hn::Eq(v, v)), number, hn::Set(Ints(), INT32_MIN));
#endif
}

/// Where a vertex comes to lie, as distances from the middle of the canvas.
struct Spot {
  F across;
  F up;
  hn::Mask<Floats> visible;
};

struct PerspectiveForm {
  static constexpr bool kMirrored = true;
  const PixelMap& map;

  HWY_INLINE F column(F x, F y, F z, std::size_t c) const {
    const auto& m = map.projection.view.m;
    return hn::Add(dot(x, y, z, constant(m[0][c]), constant(m[1][c]), constant(m[2][c])),
                   constant(m[3][c]));
  }
  HWY_INLINE Spot operator()(F x, F y, F z) const {
    const F depth = column(x, y, z, 2);
    const F across = hn::Div(hn::Mul(constant(map.scaleX), column(x, y, z, 0)), depth);
    const F up = hn::Div(hn::Mul(constant(map.scaleY), column(x, y, z, 1)), depth);
    return {across, up, hn::Gt(depth, hn::Zero(Floats()))};
  }
};

struct FlatForm {
  static constexpr bool kMirrored = false;
  const PixelMap& map;

  HWY_INLINE Spot operator()(F x, F y, F z) const {
    const F across = map.projection.mode == ViewMode::Side ? z : x;
    const F up = map.projection.mode == ViewMode::Top ? z : y;
    return {hn::Mul(constant(map.scaleX), across), hn::Mul(constant(map.scaleY), up), hn::Eq(x, x)};
  }
};

/// The projection of the vertices from `i` on, after being spread and `kSteps`
/// transforms.
template <class Form, std::size_t kSteps, class Spread = Unspread>
class Road {
 public:
  HWY_INLINE Road(const ColumnVertices& from, const PixelMap& map)
      : map_(map),
        x_(from.x),
        y_(from.y),
        z_(from.z),
        spread_{from.spread},
        steps_{step(from, 0), step(from, 1)} {}

  HWY_INLINE Spot spot(std::size_t i) const {
    const Floats d;
    F x = hn::Load(d, x_ + i);
    F y = hn::Load(d, y_ + i);
    F z = hn::Load(d, z_ + i);
    spread_(x, y, z);
    if constexpr (kSteps > 0) {
      steps_[0](x, y, z);
    }
    if constexpr (kSteps > 1) {
      steps_[1](x, y, z);
    }
    return Form{map_}(x, y, z);
  }
  HWY_INLINE I pixelX(F across) const {
    const Ints d;
    const I columns = quickTruncate(across);
    const I centre = hn::Set(d, map_.projection.centre.x);
    return Form::kMirrored ? hn::Sub(centre, columns) : hn::Add(centre, columns);
  }
  HWY_INLINE I pixelY(F up) const {
    const Ints d;
    const I rows = quickTruncate(up);
    const I centre = hn::Set(d, map_.projection.centre.y);
    const bool downward = !Form::kMirrored && map_.projection.mode == ViewMode::Top;
    return downward ? hn::Sub(centre, rows) : hn::Add(centre, rows);
  }

 private:
  static HWY_INLINE Transform step(const ColumnVertices& from, std::size_t i) {
    static constexpr Matrix4 kNone;
    return i < kSteps ? Transform(from.transforms[i].matrix, from.transforms[i].offset)
                      : Transform(kNone, {});
  }

  const PixelMap& map_;
  const float* x_;
  const float* y_;
  const float* z_;
  Spread spread_;
  Transform steps_[2];
};

// Saturation, points at or behind the eye and what is not a number are rare:
// such lanes are marked and left to the projector.
constexpr float kPlainReach = 1073741824.0F;  // 2^30: neither cut nor overflowing

/// Full positions of a chunk that leaves the canvas.
template <class Road>
HWY_INLINE void projectWide(const Road& road, std::size_t chunk, PixelColumn& out) {
  const Floats d;
  const Ints di;
  const F reach = constant(kPlainReach);
  for (std::size_t i = chunk; i < chunk + PixelColumn::kChunk; i += hn::Lanes(d)) {
    const Spot spot = road.spot(i);
    const auto plain = hn::And(spot.visible, hn::And(hn::Lt(hn::Abs(spot.across), reach),
                                                     hn::Lt(hn::Abs(spot.up), reach)));
    const I x = road.pixelX(hn::IfThenElseZero(plain, spot.across));
    hn::Store(hn::IfThenElse(hn::RebindMask(di, plain), x, hn::Set(di, kInvisible)), di, out.x + i);
    hn::Store(road.pixelY(hn::IfThenElseZero(plain, spot.up)), di, out.y + i);
  }
}

// A conversion of what is too large, or no number, ends near one of the two ends of
// the 32 bits. A pixel of it is off the canvas, wrapped or not.
template <class Road>
HWY_INLINE void projectBy(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                          PixelColumn& out, PixelReach& kept) {
  const Ints d;
  const hn::RebindToUnsigned<Ints> words;
  const Road road(from, map);
  const auto width = hn::Set(words, static_cast<std::uint32_t>(map.width));
  const auto height = hn::Set(words, static_cast<std::uint32_t>(map.height));
  Reach reach(kept);
  std::uint32_t inside = 0;
  for (; chunks != 0; chunks &= chunks - 1) {
    const auto index = static_cast<std::size_t>(std::countr_zero(chunks));
    const std::size_t chunk = index * PixelColumn::kChunk;
    bool isInside = true;
    for (std::size_t i = chunk; i < chunk + PixelColumn::kChunk; i += hn::Lanes(d)) {
      const Spot spot = road.spot(i);
      const I x = road.pixelX(spot.across);
      const I y = road.pixelY(spot.up);
      const auto onCanvas =
          hn::And(hn::Lt(hn::BitCast(words, x), width), hn::Lt(hn::BitCast(words, y), height));
      const I both = hn::Or(hn::ShiftLeft<16>(y), x);
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

template <class Form>
HWY_INLINE void projectAfter(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
                             PixelColumn& out, PixelReach& reach) {
  switch (from.spread.kind) {
    case ProfileSpread::Kind::Move:
      return projectBy<Road<Form, 2, Moved>>(from, chunks, map, out, reach);
    case ProfileSpread::Kind::Turn:
      return projectBy<Road<Form, 2, Turned>>(from, chunks, map, out, reach);
    default:
      break;
  }
  switch (from.transforms.size()) {
    case 0:
      return projectBy<Road<Form, 0>>(from, chunks, map, out, reach);
    case 1:
      return projectBy<Road<Form, 1>>(from, chunks, map, out, reach);
    default:
      return projectBy<Road<Form, 2>>(from, chunks, map, out, reach);
  }
}

void project(const ColumnVertices& from, std::uint32_t chunks, const PixelMap& map,
             PixelColumn& out, PixelReach& reach) {
  if (map.projection.mode == ViewMode::Perspective) {
    projectAfter<PerspectiveForm>(from, chunks, map, out, reach);
  } else {
    projectAfter<FlatForm>(from, chunks, map, out, reach);
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
