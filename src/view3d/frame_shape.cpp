#include "view3d/frame_shape.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "raster/line_walk.h"
#include "view3d/frame_colours.h"
#include "view3d/wire_kernels.h"

namespace pv {

namespace {

/// Vertices first..first + count - 1 of every column of an instance.
struct Strip {
  std::size_t instance;
  std::size_t first;
  std::size_t count;
};

/// Draws the wires of a strip column by column. Only three columns of pixel
/// positions exist at a time, so that they stay in the nearest cache.
class StripPainter {
 public:
  // The block and the columns are filled before they are read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
  StripPainter(const ShapeColumns& shape, const PixelMap& map, const WireFrame& frame, Strip strip)
      : shape_(shape), map_(map), frame_(frame), strip_(strip) {}

  /// The columns from `begin` to `end`, with the lines to the one behind.
  void draw(std::size_t begin, std::size_t end) {
    const std::size_t last = shape_.columns() - 1;
    load(begin == 0 ? 0 : begin - 1);
    load(begin);
    std::uint64_t quickBefore = ~std::uint64_t{0};
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
    shape_.vertices(strip_.instance, column * shape_.rows() + strip_.first, strip_.count, block_);
    projectColumn(block_, strip_.count, map_, at(column));
  }

  // Chunks that lie on the canvas with all their neighbours go the quick way,
  // the others line by line. Returns the chunks of the quick way.
  std::uint64_t drawColumn(const PixelColumn& before, const PixelColumn& column,
                           const PixelColumn& after, std::uint64_t quickBefore) {
    const std::size_t chunks = VertexBlock::padded(strip_.count) / PixelColumn::kChunk;
    const std::uint64_t outside = ~(before.inside & column.inside & after.inside);
    const std::uint64_t above = ~column.inside >> 1U;
    const std::uint64_t below = ~column.inside << 1U;
    const std::uint64_t all = (std::uint64_t{1} << chunks) - 1;
    const std::uint64_t quick = all & ~(outside | (above & all >> 1U) | below);
    drawColumnInside(before, column, after, quick, frame_);
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
    forEachLinePixel(a.x, a.y, b.x, b.y, frame_.width, frame_.height,
                     [frame = frame_](std::int64_t pixel) { frame.set(pixel); });
  }

  const ShapeColumns& shape_;
  const PixelMap& map_;
  const WireFrame& frame_;
  Strip strip_;
  VertexBlock block_;
  std::array<PixelColumn, 3> columns_;
};

/// The drawing cut into pieces that threads can take one by one: some columns of
/// one strip. Columns that do not fit a block are drawn in strips that share a
/// row.
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
        strips_(std::max<std::size_t>(1, (rows_ - 1 + kAdvance - 1) / kAdvance)),
        pieces_(areWorthSharing() ? (columns_ + kColumns - 1) / kColumns : 1) {}

  /// Below, waking a helper costs more than it brings.
  [[nodiscard]] bool areWorthSharing() const { return rows_ * columns_ * instances_ >= 10'000; }
  [[nodiscard]] std::size_t count() const { return instances_ * strips_ * pieces_; }
  [[nodiscard]] Piece piece(std::size_t round) const {
    const std::size_t piece = round % pieces_;
    const std::size_t first = round / pieces_ % strips_ * kAdvance;
    const std::size_t count = std::min(VertexBlock::kCapacity, rows_ - first);
    return {{round / pieces_ / strips_, first, count},
            columns_ * piece / pieces_,
            columns_ * (piece + 1) / pieces_};
  }

 private:
  static constexpr std::size_t kAdvance = VertexBlock::kCapacity - 1;
  static constexpr std::size_t kColumns = 48;  // each piece projects two more

  std::size_t rows_;
  std::size_t columns_;
  std::size_t instances_;
  std::size_t strips_;
  std::size_t pieces_;
};

}  // namespace

void drawShapeLines(RasterCanvas& canvas, const ShapeColumns& shape, const ViewProjector& projector,
                    const ShapeProjection& projection, WorkShare& share) {
  if (canvas.width == 0 || shape.instances() == 0 || shape.rows() == 0) {
    return;
  }
  canvas.setColour(kShapeColour);
  const ShortLines shortLines(canvas.width);
  const WireFrame frame{canvas.pixels, canvas.width, canvas.height, canvas.colour, &shortLines};
  const PixelMap map(projection, projector, canvas.width, canvas.height);
  const Rounds rounds(shape);
  const auto draw = [&](std::size_t round) {
    const Rounds::Piece piece = rounds.piece(round);
    StripPainter(shape, map, frame, piece.strip).draw(piece.begin, piece.end);
  };
  if (rounds.areWorthSharing()) {
    share.run(rounds.count(), draw);
    return;
  }
  for (std::size_t round = 0; round < rounds.count(); ++round) {
    draw(round);
  }
}

void drawShapeDots(RasterCanvas& canvas, const ShapeColumns& shape, const ViewProjector& projector,
                   const ShapeProjection& projection, float halfSize) {
  canvas.setColour(kShapeColour);
  const PixelMap map(projection, projector, canvas.width, canvas.height);
  const std::size_t each = shape.rows() * shape.columns();
  VertexBlock block;
  PixelColumn pixels;
  for (std::size_t instance = 0; instance < shape.instances(); ++instance) {
    for (std::size_t first = 0; first < each; first += VertexBlock::kCapacity) {
      const std::size_t count = std::min(VertexBlock::kCapacity, each - first);
      shape.vertices(instance, first, count, block);
      projectColumn(block, count, map, pixels);
      for (std::size_t k = 0; k < count; ++k) {
        const PixelPoint point = pixels.at(k);
        if (point.x != kInvisible) {
          canvas.squareDot(point.x, point.y, halfSize);
        }
      }
    }
  }
}

}  // namespace pv
