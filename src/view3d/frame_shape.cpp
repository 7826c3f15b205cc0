#include "view3d/frame_shape.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "math/scalar.h"
#include "raster/line_walk.h"
#include "view3d/frame_colours.h"
#include "view3d/wire_lines.h"
#include "view3d/wire_projection.h"

namespace pv {

namespace {

/// Vertices first..first + count - 1 of every column of an instance.
struct Strip {
  std::size_t instance;
  std::size_t first;
  std::size_t count;
};

/// Collects the wires of a strip column by column. Only three columns of pixel
/// positions exist at a time, so that they stay in the nearest cache.
class StripPainter {
 public:
  // The block and the columns are filled before they are read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
  StripPainter(const ShapeColumns& shape, const PixelMap& map, const WireTarget& target,
               PixelReach& reach, Strip strip)
      : shape_(shape), map_(map), target_(target), reach_(reach), strip_(strip) {}

  /// The columns from `begin` to `end`, with the lines to the one behind.
  void draw(std::size_t begin, std::size_t end) {
    const std::size_t last = shape_.columns() - 1;
    load(begin == 0 ? 0 : begin - 1);
    load(begin);
    std::uint32_t quickBefore = ~std::uint32_t{0};
    for (std::size_t c = begin; c < end; ++c) {
      if (c < last) {
        load(c + 1);
      }
      quickBefore =
          drawColumn(at(c == 0 ? 0 : c - 1), at(c), at(std::min(c + 1, last)), quickBefore);
    }
  }

 private:
  [[nodiscard]] PixelColumn& at(std::size_t column) { return columns_[column % columns_.size()]; }

  void load(std::size_t column) {
    const ColumnVertices vertices =
        shape_.vertices(strip_.instance, column, strip_.first, strip_.count, block_);
    projectColumn(vertices, map_, at(column), reach_);
  }

  // Chunks that lie on the canvas with all their neighbours go the quick way,
  // the others line by line. Returns the chunks of the quick way.
  std::uint32_t drawColumn(const PixelColumn& before, const PixelColumn& column,
                           const PixelColumn& after, std::uint32_t quickBefore) {
    const std::size_t chunks = VertexBlock::padded(strip_.count) / PixelColumn::kChunk;
    const std::uint32_t all = ~std::uint32_t{0} >> (32 - chunks);
    const std::uint32_t outside = ~(before.inside & column.inside & after.inside);
    const std::uint32_t above = (~column.inside & all) >> 1U;
    const std::uint32_t below = ~column.inside << 1U;
    const std::uint32_t quick = all & ~(outside | above | below);
    lightColumn(before, column, after, quick, target_);
    if (quick != all) {
      for (std::size_t k = 0; k < strip_.count; ++k) {
        const std::size_t chunk = k / PixelColumn::kChunk;
        if ((quick >> chunk & 1U) == 0) {
          drawLinesOf(k, before, column, after, (quickBefore >> chunk & 1U) != 0);
        }
      }
    }
    return quick;
  }

  // Whole lines, since a neighbour that goes the quick way lights only its own
  // pixel. The lines back are left out where the column before drew them whole.
  void drawLinesOf(std::size_t k, const PixelColumn& before, const PixelColumn& column,
                   const PixelColumn& after, bool back) {
    const PixelPoint here = column.at(k);
    if (k + 1 < strip_.count) {
      drawLine(here, column.at(k + 1));
    }
    if (k > 0 && k % PixelColumn::kChunk == 0) {
      drawLine(column.at(k - 1), here);
    }
    drawLine(here, after.at(k));
    if (back) {
      drawLine(before.at(k), here);
    }
  }

  void drawLine(PixelPoint a, PixelPoint b) {
    if (a == b || a.x == kInvisible || b.x == kInvisible) {
      return;
    }
    forEachLinePixel(a.x, a.y, b.x, b.y, target_.width, target_.height,
                     [target = target_](std::int64_t pixel) { target.set(pixel); });
  }

  const ShapeColumns& shape_;
  const PixelMap& map_;
  const WireTarget& target_;
  PixelReach& reach_;
  Strip strip_;
  VertexBlock block_;
  std::array<PixelColumn, 3> columns_;
};

/// What RasterCanvas::squareDot fills.
void lightDot(std::uint8_t* lit, const RasterCanvas& canvas, PixelPoint at, float halfSize) {
  const auto x = static_cast<float>(at.x);
  const auto y = static_cast<float>(at.y);
  const bool single = halfSize > 0.0F && halfSize < 1.0F;
  const std::int64_t left = single ? at.x : truncate(x - halfSize);
  const std::int64_t bottom = single ? at.y : truncate(y - halfSize);
  const std::int64_t right = single ? left + 1 : truncate(x + halfSize);
  const std::int64_t top = single ? bottom + 1 : truncate(y + halfSize);
  const std::int64_t from = std::max<std::int64_t>(left, 0);
  const std::int64_t to = std::min<std::int64_t>(right, canvas.width);
  for (std::int64_t row = std::max<std::int64_t>(bottom, 0);
       row < std::min<std::int64_t>(top, canvas.height) && from < to; ++row) {
    std::fill(lit + row * canvas.width + from, lit + row * canvas.width + to, kLit);
  }
}

/// The drawing cut into pieces that threads can take one by one: some columns of
/// one strip. Columns that do not fit a block are drawn in strips that overlap.
class Rounds {
 public:
  struct Piece {
    Strip strip;
    std::size_t begin;  ///< columns
    std::size_t end;
  };

  explicit Rounds(const ShapeColumns& shape)
      : rows_(shape.rows()),
        columns_(shape.columns()),
        instances_(shape.instances()),
        strips_(rows_ <= VertexBlock::kCapacity
                    ? 1
                    : (rows_ - VertexBlock::kCapacity + kAdvance - 1) / kAdvance + 1),
        pieces_(areWorthSharing() ? (columns_ + kColumns - 1) / kColumns : 1) {}

  [[nodiscard]] std::size_t workers(const WorkShare& share) const {
    return areWorthSharing() ? share.threads() : 1;
  }
  /// Calls work(piece, worker) for every piece.
  template <class Work>
  void run(WorkShare& share, const Work& work) const {
    const std::size_t count = instances_ * strips_ * pieces_;
    if (areWorthSharing()) {
      share.run(count, [&](std::size_t round, unsigned worker) { work(piece(round), worker); });
      return;
    }
    for (std::size_t round = 0; round < count; ++round) {
      work(piece(round), 0U);
    }
  }

 private:
  /// Below, waking a helper costs more than it brings.
  [[nodiscard]] bool areWorthSharing() const { return rows_ * columns_ * instances_ >= 10'000; }
  [[nodiscard]] Piece piece(std::size_t round) const {
    const std::size_t piece = round % pieces_;
    const std::size_t first = round / pieces_ % strips_ * kAdvance;
    const std::size_t count = std::min(VertexBlock::kCapacity, rows_ - first);
    return {{round / pieces_ / strips_, first, count},
            columns_ * piece / pieces_,
            columns_ * (piece + 1) / pieces_};
  }

  // One row at least is shared, and every strip starts at a whole chunk.
  static constexpr std::size_t kAdvance = VertexBlock::kCapacity - VertexBlock::kStep;
  static constexpr std::size_t kColumns = 48;  // each piece projects two more

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
    if (!mask.resize(canvas.width, canvas.height)) {
      masks_.clear();
      return false;
    }
    mask.reach().clear();
  }
  return canvas.width > 0 && shape.instances() > 0 && shape.rows() > 0;
}

PixelBox ShapePainter::end() {
  for (const WireMask& mask : masks_) {
    box_ = box_.with(mask.box());
  }
  return box_;
}

PixelBox ShapePainter::collectLines(const RasterCanvas& canvas, const ShapeColumns& shape,
                                    const ViewProjector& projector,
                                    const ShapeProjection& projection, WorkShare& share) {
  const Rounds rounds(shape);
  if (!begin(canvas, shape, rounds.workers(share))) {
    return {};
  }
  shortLines_.setWidth(canvas.width);
  const PixelMap map(projection, projector, canvas.width, canvas.height);
  rounds.run(share, [&](const Rounds::Piece& piece, unsigned worker) {
    WireMask& mask = masks_[worker];
    const WireTarget target{mask.lit(), canvas.width, canvas.height, &shortLines_};
    StripPainter(shape, map, target, mask.reach(), piece.strip).draw(piece.begin, piece.end);
  });
  return end();
}

PixelBox ShapePainter::collectDots(const RasterCanvas& canvas, const ShapeColumns& shape,
                                   const ViewProjector& projector,
                                   const ShapeProjection& projection, float halfSize,
                                   WorkShare& share) {
  const Rounds rounds(shape);
  if (!begin(canvas, shape, rounds.workers(share))) {
    return {};
  }
  const PixelMap map(projection, projector, canvas.width, canvas.height);
  const std::int32_t reach = truncate(halfSize) + 1;
  rounds.run(share, [&](const Rounds::Piece& piece, unsigned worker) {
    VertexBlock block;
    PixelColumn pixels;
    WireMask& mask = masks_[worker];
    for (std::size_t column = piece.begin; column < piece.end; ++column) {
      const Strip& strip = piece.strip;
      projectColumn(shape.vertices(strip.instance, column, strip.first, strip.count, block), map,
                    pixels, mask.reach());
      for (std::size_t k = 0; k < strip.count; ++k) {
        if (const PixelPoint point = pixels.at(k); point.x != kInvisible) {
          lightDot(mask.lit(), canvas, point, halfSize);
        }
      }
    }
    mask.reach().widen(reach);
  });
  return end();
}

void ShapePainter::paint(ViewFrame& frame, WorkShare& share) {
  constexpr std::int32_t kRows = 32;
  constexpr std::size_t kWorthSharing = 200'000;  // pixels
  if (masks_.empty()) {
    frame.restore();
    return;
  }
  const PixelBox box = frame.restored();
  const auto paintRows = [&](std::int32_t bottom, std::int32_t top) {
    paintMasks({frame.data(),
                frame.background(),
                frame.width(),
                kShapeColour | 0xFF000000U,
                masks_,
                {box.left, bottom, box.right, top}});
  };
  if (box.pixels() < kWorthSharing) {
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
