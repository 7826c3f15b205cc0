#include "view3d/shape_painter.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>

#include "math/scalar.h"
#include "view3d/frame_colours.h"
#include "view3d/strip_painter.h"
#include "view3d/wire_projection.h"

namespace pv {

namespace {

/// What RasterCanvas::squareDot fills.
void lightDot(const MaskPixels& lit, const RasterCanvas& canvas, PixelPoint at, float halfSize) {
  const auto middleX = static_cast<float>(at.x);
  const auto middleY = static_cast<float>(at.y);
  const bool single = halfSize > 0.0F && halfSize < 1.0F;
  const std::int64_t left = single ? at.x : truncate(middleX - halfSize);
  const std::int64_t bottom = single ? at.y : truncate(middleY - halfSize);
  const std::int64_t right = single ? left + 1 : truncate(middleX + halfSize);
  const std::int64_t top = single ? bottom + 1 : truncate(middleY + halfSize);
  const auto clipped = [](std::int64_t value, std::int32_t size) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, 0, size));
  };
  for (std::int32_t y = clipped(bottom, canvas.height); y < clipped(top, canvas.height); ++y) {
    for (std::int32_t x = clipped(left, canvas.width); x < clipped(right, canvas.width); ++x) {
      lit.light(x, y);
    }
  }
}

/// The drawing cut into pieces that threads can take one by one: some columns of
/// one strip. Columns that do not fit a block are drawn in strips that overlap.
class Rounds {
 public:
  struct Piece {
    Strip strip;
    std::size_t begin = 0;  ///< columns
    std::size_t end = 0;
  };

  explicit Rounds(const ShapeColumns& shape)
      : rows_(shape.rows()),
        columns_(shape.columns()),
        instances_(shape.instances()),
        strips_(rows_ <= VertexBlock::kCapacity
                    ? 1
                    : (rows_ - VertexBlock::kCapacity + kAdvance - 1) / kAdvance + 1),
        pieces_((columns_ + kColumns - 1) / kColumns) {}

  /// Below, waking a helper costs more than it brings.
  [[nodiscard]] bool areWorthSharing() const { return rows_ * columns_ * instances_ >= 10'000; }
  [[nodiscard]] std::size_t workers(const WorkShare& share) const {
    return areWorthSharing() ? share.threads() : 1;
  }
  /// Calls work(piece, worker) for every piece of these instances.
  template <class Work>
  void run(std::size_t firstInstance, std::size_t endInstance, WorkShare& share,
           const Work& work) const {
    const std::size_t first = firstInstance * strips_ * pieces_;
    const std::size_t count = endInstance * strips_ * pieces_ - first;
    if (areWorthSharing()) {
      share.run(count,
                [&](std::size_t round, unsigned worker) { work(piece(first + round), worker); });
      return;
    }
    for (std::size_t round = 0; round < count; ++round) {
      work(piece(first + round), 0U);
    }
  }

 private:
  [[nodiscard]] Piece piece(std::size_t round) const {
    const std::size_t begin = round % pieces_ * kColumns;
    const std::size_t first = round / pieces_ % strips_ * kAdvance;
    const std::size_t count = std::min(VertexBlock::kCapacity, rows_ - first);
    return {{round / pieces_ / strips_, first, count}, begin, std::min(begin + kColumns, columns_)};
  }

  // One row at least is shared, and every strip starts at a whole chunk.
  static constexpr std::size_t kAdvance = VertexBlock::kCapacity - VertexBlock::kStep;
  // Threads that share the last pieces wait for each other, so these are small.
  // Those that follow their thread's last one cost no more for that.
  static constexpr std::size_t kColumns = PatchHulls::kColumns;

  std::size_t rows_;
  std::size_t columns_;
  std::size_t instances_;
  std::size_t strips_;
  std::size_t pieces_;
};

}  // namespace

bool ShapePainter::begin(const RasterCanvas& canvas, const ShapeColumns& shape, std::size_t masks) {
  box_ = {};
  masks_.resize(masks);
  for (WireMask& mask : masks_) {
    if (!mask.begin(canvas.width, canvas.height)) {
      masks_.clear();
      return false;
    }
  }
  return canvas.width > 0 && shape.instances() > 0 && shape.columns() > 0 && shape.rows() > 0;
}

PixelBox ShapePainter::end() {
  for (const WireMask& mask : masks_) {
    box_ = box_.with(mask.box());
  }
  return box_;
}

PixelBox ShapePainter::endLines(WorkShare& share) {
  const auto finish = [this](std::size_t i) {
    painters_[i].finish();
    masks_[i].settle();
  };
  if (masks_.size() == 1) {
    finish(0);
  } else {
    share.run(masks_.size(), [&](std::size_t i, unsigned /*worker*/) { finish(i); });
  }
  return end();
}

PixelBox ShapePainter::collectLines(const RasterCanvas& canvas, const ShapeColumns& shape,
                                    const ViewProjector& projector,
                                    const ShapeProjection& projection, WorkShare& share) {
  const Rounds rounds(shape);
  if (!begin(canvas, shape, rounds.workers(share))) {
    return {};
  }
  PixelMap map(projection, projector, canvas.width, canvas.height);
  map.isLongWork = rounds.areWorthSharing();
  painters_.resize(std::max(painters_.size(), masks_.size()));
  for (std::size_t i = 0; i < masks_.size(); ++i) {
    painters_[i].begin(shape, map, {masks_[i].pixels(), canvas.width, canvas.height, &windows_},
                       masks_[i].reach());
  }
  const bool isDense = painters_[0].isDense();
  for (StripPainter& painter : painters_) {
    painter.setDense(isDense);
  }
  const auto work = [&](const Rounds::Piece& piece, unsigned worker) {
    painters_[worker].draw(piece.strip, piece.begin, piece.end);
  };
  if (shape.patches().empty()) {
    rounds.run(0, shape.instances(), share, work);
    return endLines(share);
  }
  // What the first instance has lit hides much of the others, for all threads.
  rounds.run(0, 1, share, work);
  shareLit(endLines(share));
  rounds.run(1, shape.instances(), share, work);
  return endLines(share);
}

void ShapePainter::shareLit(const PixelBox& box) {
  if (masks_.size() < 2 || box.empty()) {
    return;
  }
  forEachStrip(masks_[0].pixels().strips, box, [this](std::int64_t first, std::size_t count) {
    std::uint16_t* all = masks_[0].pixels().words + first;
    for (std::size_t m = 1; m < masks_.size(); ++m) {
      const std::uint16_t* lit = masks_[m].pixels().words + first;
      std::transform(all, all + count, lit, all, std::bit_or<>());
    }
    for (std::size_t m = 1; m < masks_.size(); ++m) {
      std::copy_n(all, count, masks_[m].pixels().words + first);
    }
  });
  for (WireMask& mask : masks_) {
    mask.reach().include(box.left, box.bottom);
    mask.reach().include(box.right - 1, box.top - 1);
  }
}

PixelBox ShapePainter::collectDots(const RasterCanvas& canvas, const ShapeColumns& shape,
                                   const ViewProjector& projector,
                                   const ShapeProjection& projection, float halfSize,
                                   WorkShare& share) {
  const Rounds rounds(shape);
  if (!begin(canvas, shape, rounds.workers(share))) {
    return {};
  }
  PixelMap map(projection, projector, canvas.width, canvas.height);
  map.isLongWork = rounds.areWorthSharing();
  const std::int32_t reach = truncate(halfSize) + 1;
  std::deque<ShapeColumns::Workplace> workplaces(masks_.size());
  for (ShapeColumns::Workplace& workplace : workplaces) {
    workplace.begin(shape);
  }
  rounds.run(0, shape.instances(), share, [&](const Rounds::Piece& piece, unsigned worker) {
    ShapeColumns::Workplace& workplace = workplaces[worker];
    PixelColumn pixels;
    WireMask& mask = masks_[worker];
    for (std::size_t column = piece.begin; column < piece.end; ++column) {
      const Strip& strip = piece.strip;
      projectColumn(shape.vertices(strip.instance, column, strip.first, strip.count, workplace),
                    strip.chunks(), map, pixels, mask.reach());
      for (std::size_t k = 0; k < strip.count; ++k) {
        if (const PixelPoint point = pixels.at(k); point.x != kInvisible) {
          lightDot(mask.pixels(), canvas, point, halfSize);
        }
      }
    }
    mask.reach().widen(reach);
  });
  return end();
}

void ShapePainter::paint(ViewFrame& frame, WorkShare& share) {
  constexpr std::int32_t kRows = 32;
  constexpr std::size_t kWorthSharing = 32'768;  // pixels, while helpers are awake
  if (masks_.empty()) {
    frame.restore();
    return;
  }
  const PixelBox box = frame.restored();
  const auto paintRows = [&](std::int32_t bottom, std::int32_t top) {
    paintMasks({frame.data(),
                frame.background(),
                frame.dirty(),
                frame.width(),
                kShapeColour | 0xFF000000U,
                masks_,
                {box.left, bottom, box.right, top}});
  };
  if (masks_.size() == 1 || box.pixels() < kWorthSharing) {
    paintRows(box.bottom, box.top);
    return;
  }
  const auto bands = static_cast<std::size_t>((box.top - box.bottom + kRows - 1) / kRows);
  share.run(bands, [&](std::size_t band, unsigned) {
    const std::int32_t bottom = box.bottom + static_cast<std::int32_t>(band) * kRows;
    paintRows(bottom, std::min(bottom + kRows, box.top));
  });
}

}  // namespace pv
