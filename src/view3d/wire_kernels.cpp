// Projection and drawing of wires, several vertices at a time.
#include "view3d/wire_kernels.h"

#include <bit>
#include <utility>

#include "raster/line_walk.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "view3d/wire_kernels.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Floats = hn::ScalableTag<float>;
using Ints = hn::RebindToSigned<Floats>;
using F = hn::Vec<Floats>;
using I = hn::Vec<Ints>;

// --- projection --------------------------------------------------------------

// Saturation, points at or behind the eye and what is not a number are rare:
// such lanes are marked and left to the projector.
constexpr float kPlainReach = 1073741824.0F;  // 2^30: neither cut nor overflowing

struct Spot {
  F across;
  F up;
  hn::Mask<Floats> visible;
};

struct PerspectiveForm {
  const PixelMap& map;

  HWY_INLINE F column(F x, F y, F z, std::size_t c) const {
    const Floats d;
    const auto& m = map.projection.view.m;
    const F first = hn::Mul(x, hn::Set(d, m[0][c]));
    const F second = hn::Mul(y, hn::Set(d, m[1][c]));
    const F third = hn::Mul(z, hn::Set(d, m[2][c]));
    return hn::Add(hn::Add(hn::Add(first, second), third), hn::Set(d, m[3][c]));
  }
  HWY_INLINE Spot operator()(F x, F y, F z) const {
    const Floats d;
    const F depth = column(x, y, z, 2);
    const F across = hn::Div(hn::Mul(hn::Set(d, map.scaleX), column(x, y, z, 0)), depth);
    const F up = hn::Div(hn::Mul(hn::Set(d, map.scaleY), column(x, y, z, 1)), depth);
    return {across, up, hn::Gt(depth, hn::Zero(d))};
  }
};

struct FlatForm {
  const PixelMap& map;

  HWY_INLINE Spot operator()(F x, F y, F z) const {
    const Floats d;
    const F across = map.projection.mode == ViewMode::Side ? z : x;
    const F up = map.projection.mode == ViewMode::Top ? z : y;
    return {hn::Mul(hn::Set(d, map.scaleX), across), hn::Mul(hn::Set(d, map.scaleY), up),
            hn::Eq(x, x)};
  }
};

/// Fills x, y and the chunks' bits; true when no lane was left over.
template <class Form>
HWY_INLINE bool projectBy(const Form& form, const VertexBlock& block, std::size_t count,
                          const PixelMap& map, PixelColumn& out) {
  const Floats d;
  const Ints di;
  const bool mirrored = map.projection.mode == ViewMode::Perspective;
  const bool downward = map.projection.mode == ViewMode::Top;
  const I centreX = hn::Set(di, map.projection.centre.x);
  const I centreY = hn::Set(di, map.projection.centre.y);
  const I lastX = hn::Set(di, map.width - 1);
  const I lastY = hn::Set(di, map.height - 1);
  bool complete = true;
  out.inside = 0;
  for (std::size_t chunk = 0; chunk < count; chunk += PixelColumn::kChunk) {
    I beyond = hn::Zero(di);  // the sign tells of a coordinate off the canvas
    for (std::size_t i = chunk; i < chunk + PixelColumn::kChunk; i += hn::Lanes(d)) {
      const Spot spot =
          form(hn::Load(d, block.x + i), hn::Load(d, block.y + i), hn::Load(d, block.z + i));
      const auto reach = hn::Set(d, kPlainReach);
      const auto plain = hn::And(spot.visible, hn::And(hn::Lt(hn::Abs(spot.across), reach),
                                                       hn::Lt(hn::Abs(spot.up), reach)));
      const I column = hn::ConvertTo(di, hn::IfThenElseZero(plain, spot.across));
      const I row = hn::ConvertTo(di, hn::IfThenElseZero(plain, spot.up));
      const I wholeX = mirrored ? hn::Sub(centreX, column) : hn::Add(centreX, column);
      const I y = downward ? hn::Sub(centreY, row) : hn::Add(centreY, row);
      const I x = hn::IfThenElse(hn::RebindMask(di, plain), wholeX, hn::Set(di, kInvisible));
      hn::Store(x, di, out.x + PixelColumn::kLead + i);
      hn::Store(y, di, out.y + PixelColumn::kLead + i);
      complete = complete && hn::AllTrue(d, plain);
      beyond = hn::Or(hn::Or(beyond, hn::Or(x, hn::Sub(lastX, x))), hn::Or(y, hn::Sub(lastY, y)));
    }
    const bool isInside = hn::AllFalse(di, hn::Lt(beyond, hn::Zero(di)));
    out.inside |= static_cast<std::uint64_t>(isInside) << (chunk / PixelColumn::kChunk);
  }
  return complete;
}

bool project(const VertexBlock& block, std::size_t count, const PixelMap& map, PixelColumn& out) {
  return map.projection.mode == ViewMode::Perspective
             ? projectBy(PerspectiveForm{map}, block, count, map, out)
             : projectBy(FlatForm{map}, block, count, map, out);
}

// --- lines -------------------------------------------------------------------

constexpr std::size_t kRoom = VertexBlock::kCapacity + 64;  // compressed stores overshoot

/// Lines that wait for their inner pixels: where they start, and which they are.
// Left unset: only what was put in is read.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
struct Queue {
  HWY_ALIGN std::int32_t at[2 * kRoom];
  HWY_ALIGN std::int32_t which[2 * kRoom];
  std::size_t count = 0;

  HWY_INLINE void add(hn::Mask<Ints> mask, I start, I line) {
    const Ints d;
    hn::CompressStore(start, mask, d, at + count);
    count += hn::CompressStore(line, mask, d, which + count);
  }
};

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
struct Queues {
  Queue two;   ///< up to 3 steps, 2 inner pixels
  Queue four;  ///< up to 5 steps
  Queue six;   ///< up to 7 steps
  Queue more;  ///< longer: `which` holds dx, and `rise` dy
  HWY_ALIGN std::int32_t rise[2 * kRoom];
};

/// Queues the lines of more than one step.
HWY_INLINE void queueLines(I start, I dx, I dy, I steps, Queues& queues) {
  const Ints d;
  const auto isLong = hn::Gt(steps, hn::Set(d, 1));
  if (hn::AllFalse(d, isLong)) {
    return;
  }
  constexpr std::int32_t kMiddle = ShortLines::kReach * ShortLines::kSide + ShortLines::kReach;
  const I index =
      hn::Add(hn::Add(hn::Mul(dy, hn::Set(d, ShortLines::kSide)), dx), hn::Set(d, kMiddle));
  const auto beyondTwo = hn::Gt(steps, hn::Set(d, 3));
  const auto beyondFour = hn::Gt(steps, hn::Set(d, 5));
  const auto beyondSix = hn::Gt(steps, hn::Set(d, ShortLines::kReach));
  queues.two.add(hn::AndNot(beyondTwo, isLong), start, index);
  if (!hn::AllFalse(d, beyondTwo)) {
    queues.four.add(hn::AndNot(beyondFour, beyondTwo), start, index);
    queues.six.add(hn::AndNot(beyondSix, beyondFour), start, index);
    if (!hn::AllFalse(d, beyondSix)) {
      hn::CompressStore(dy, beyondSix, d, queues.rise + queues.more.count);
      queues.more.add(beyondSix, start, dx);
    }
  }
}

// All look-ups of a line stand before its stores, of which the compiler cannot
// know that they do not reach the table. The frame is passed by value for the
// same reason: its members then stay in registers.
template <std::size_t... kInner>
HWY_INLINE void drawShort(const Queue& queue, const WireFrame frame,
                          std::index_sequence<kInner...> /*inner*/) {
  const std::size_t count = queue.count;
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t* inner = (*frame.shortLines)[queue.which[i]].data();
    const std::int64_t start = queue.at[i];
    const std::int64_t pixels[] = {start + inner[kInner]...};
    (frame.set(pixels[kInner]), ...);
  }
}

HWY_INLINE void drawDots(const std::int32_t* at, std::size_t count, const WireFrame frame) {
  for (std::size_t i = 0; i < count; ++i) {
    frame.set(at[i]);
  }
}

void drawLong(const Queues& queues, const WireFrame frame) {
  for (std::size_t i = 0; i < queues.more.count; ++i) {
    const std::int64_t dx = queues.more.which[i];
    const std::int64_t dy = queues.rise[i];
    const std::int64_t start = queues.more.at[i];
    const LineSegment line = dx >= 0 ? LineSegment{0, 0, dx, dy} : LineSegment{dx, dy, 0, 0};
    if (dy == 0) {
      for (std::int64_t x = line.x1; x < line.x2; ++x) {
        frame.set(start + x);
      }
    } else {
      walkLine(line, frame.width, [frame, start](std::int64_t pixel) { frame.set(start + pixel); });
    }
  }
}

void drawInside(const PixelColumn& before, const PixelColumn& column, const PixelColumn& after,
                std::uint64_t chunks, const WireFrame& frame) {
  const Ints d;
  const I width = hn::Set(d, frame.width);
  HWY_ALIGN std::int32_t lit[kRoom];
  std::size_t litCount = 0;
  Queues queues;
  for (; chunks != 0; chunks &= chunks - 1) {
    const auto chunk = static_cast<std::size_t>(std::countr_zero(chunks));
    const std::size_t first = PixelColumn::kLead + chunk * PixelColumn::kChunk;
    for (std::size_t i = first; i < first + PixelColumn::kChunk; i += hn::Lanes(d)) {
      const I x = hn::Load(d, column.x + i);
      const I y = hn::Load(d, column.y + i);
      const I upX = hn::Sub(hn::LoadU(d, column.x + i + 1), x);
      const I upY = hn::Sub(hn::LoadU(d, column.y + i + 1), y);
      const I onX = hn::Sub(hn::Load(d, after.x + i), x);
      const I onY = hn::Sub(hn::Load(d, after.y + i), y);
      const I downX = hn::Sub(hn::LoadU(d, column.x + i - 1), x);
      const I downY = hn::Sub(hn::LoadU(d, column.y + i - 1), y);
      const I backX = hn::Sub(hn::Load(d, before.x + i), x);
      const I backY = hn::Sub(hn::Load(d, before.y + i), y);
      const I rises = hn::Or(hn::Or(upY, onY), hn::Or(downY, backY));
      const I right = hn::Max(hn::Max(upX, onX), hn::Max(downX, backX));
      const I start = hn::Add(hn::Mul(y, width), x);
      const I zero = hn::Zero(d);
      const auto isLit = hn::Or(hn::Ne(rises, zero), hn::Gt(right, zero));
      litCount += hn::CompressStore(start, isLit, d, lit + litCount);
      queueLines(start, upX, upY, hn::Max(hn::Abs(upX), hn::Abs(upY)), queues);
      queueLines(start, onX, onY, hn::Max(hn::Abs(onX), hn::Abs(onY)), queues);
    }
  }
  drawDots(lit, litCount, frame);
  drawShort(queues.two, frame, std::make_index_sequence<2>());
  drawShort(queues.four, frame, std::make_index_sequence<4>());
  drawShort(queues.six, frame, std::make_index_sequence<ShortLines::kMost>());
  drawLong(queues, frame);
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(project);
HWY_EXPORT(drawInside);

PixelMap::PixelMap(const ShapeProjection& view, const ViewProjector& sizes,
                   std::int32_t canvasWidth, std::int32_t canvasHeight)
    : projection(view), projector(sizes), width(canvasWidth), height(canvasHeight) {
  const bool perspective = view.mode == ViewMode::Perspective;
  scaleX =
      perspective ? static_cast<float>(view.centre.x) : static_cast<float>(sizes.width()) / 2.0F;
  scaleY =
      perspective ? static_cast<float>(view.centre.y) : static_cast<float>(sizes.height()) / 2.0F;
}

void projectColumn(const VertexBlock& block, std::size_t count, const PixelMap& map,
                   PixelColumn& column) {
  const std::size_t end = PixelColumn::kLead + VertexBlock::padded(count);
  if (!HWY_DYNAMIC_DISPATCH(project)(block, VertexBlock::padded(count), map, column)) {
    ViewProjector projector = map.projector;
    for (std::size_t i = PixelColumn::kLead; i < end; ++i) {
      if (column.x[i] == kInvisible) {
        const std::size_t k = i - PixelColumn::kLead;
        const auto point = map.projection.map(projector, {block.x[k], block.y[k], block.z[k]});
        column.x[i] = point ? point->x : kInvisible;
        column.y[i] = point ? point->y : 0;
      }
    }
  }
  column.x[PixelColumn::kLead - 1] = column.x[PixelColumn::kLead];
  column.y[PixelColumn::kLead - 1] = column.y[PixelColumn::kLead];
  column.x[end] = column.x[end - 1];
  column.y[end] = column.y[end - 1];
}

ShortLines::ShortLines(std::int32_t width) {
  for (std::int32_t dy = -kReach; dy <= kReach; ++dy) {
    for (std::int32_t dx = -kReach; dx <= kReach; ++dx) {
      std::array<std::int32_t, kReach + 1> walked{};
      std::size_t count = 0;
      const LineSegment line = dx >= 0 ? LineSegment{0, 0, dx, dy} : LineSegment{dx, dy, 0, 0};
      walkLine(line, width,
               [&](std::int64_t pixel) { walked[count++] = static_cast<std::int32_t>(pixel); });
      if (count < 3) {
        continue;
      }
      Inner& inner =
          lines_[static_cast<std::size_t>(std::int64_t{dy + kReach} * kSide + dx + kReach)];
      for (std::size_t i = 0; i < kMost; ++i) {
        inner[i] = walked[i + 2 < count ? i + 1 : 1];
      }
    }
  }
}

void drawColumnInside(const PixelColumn& before, const PixelColumn& column,
                      const PixelColumn& after, std::uint64_t chunks, const WireFrame& frame) {
  if (chunks != 0) {
    HWY_DYNAMIC_DISPATCH(drawInside)(before, column, after, chunks, frame);
  }
}

}  // namespace pv

#endif
