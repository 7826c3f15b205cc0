#include "view3d/strip_painter.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "raster/line_walk.h"

namespace pv {

void StripPainter::begin(const ShapeColumns& shape, const PixelMap& map, const WireTarget& target,
                         PixelReach& reach) {
  shape_ = &shape;
  map_ = &map;
  target_ = target;
  reach_ = &reach;
  strip_ = {};
  workplace_.begin(shape);
}

bool StripPainter::isDense() {
  constexpr std::int64_t kFew = 4;               // steps; up to here windows are the slower way
  constexpr std::uint32_t kSample = 0x11111111;  // chunks
  strip_ = {0, 0, std::min(shape_->rows(), VertexBlock::kCapacity)};
  const std::uint32_t chunks = strip_.chunks() & kSample;
  const std::size_t column = shape_->columns() / 2;
  const std::size_t next = std::min(column + 1, shape_->columns() - 1);
  load(column, chunks);
  load(next, chunks);
  std::int64_t balance = 0;
  const auto weigh = [&balance](PixelPoint a, PixelPoint b) {
    const std::int64_t across = std::abs(std::int64_t{b.x} - a.x);
    const std::int64_t up = std::abs(std::int64_t{b.y} - a.y);
    balance += kFew - std::min(std::max(across, up), 2 * kFew);
  };
  for (std::uint32_t rest = chunks; rest != 0; rest &= rest - 1) {
    const auto chunk = static_cast<std::size_t>(std::countr_zero(rest));
    const std::size_t first = chunk * PixelColumn::kChunk;
    const std::size_t end = std::min(first + PixelColumn::kChunk, strip_.count) - 1;
    for (std::size_t k = first; k < end; ++k) {
      weigh(at(column).at(k), at(column).at(k + 1));
      weigh(at(column).at(k), at(next).at(k));
    }
  }
  strip_ = {};
  return balance >= 0;
}

void StripPainter::draw(const Strip& strip, std::size_t begin, std::size_t end) {
  if (strip != strip_) {
    strip_ = strip;
    loadedChunks_ = 0;
    hidden_.reset();
  }
  const PatchHulls& patches = shape_->patches();
  if (patches.empty() || strip.instance == 0) {
    for (std::size_t c = begin; c < end; c += PatchHulls::kColumns) {
      drawGroup(strip.chunks(), c, std::min(c + PatchHulls::kColumns, end));
    }
    return;
  }
  if (!hidden_) {
    hidden_.emplace(shape_->transforms(strip.instance), *map_);
  }
  const std::size_t chunks = VertexBlock::padded(strip.count) / VertexBlock::kStep;
  for (std::size_t c = begin; c < end; c += PatchHulls::kColumns) {
    const std::uint32_t visible = hidden_->visible(
        patches.group(c), strip.first / VertexBlock::kStep, chunks, target_.pixels);
    if (visible != 0) {
      drawGroup(visible, c, std::min(c + PatchHulls::kColumns, end));
    }
  }
}

// The chunks above and below are loaded as well, for the neighbours they hold.
// Columns that the group before has loaded are used again where that is enough.
void StripPainter::drawGroup(std::uint32_t chunks, std::size_t begin, std::size_t end) {
  const std::size_t last = shape_->columns() - 1;
  const std::uint32_t needed = (chunks | chunks << 1U | chunks >> 1U) & strip_.chunks();
  if (nextColumn_ != begin + 1 || (needed & ~loadedChunks_) != 0) {
    loadedChunks_ = needed;
    load(begin == 0 ? 0 : begin - 1, needed);
    load(begin, needed);
  }
  for (std::size_t c = begin; c < std::min(end, last); ++c) {
    load(c + 1, loadedChunks_);
  }
  WireGroup group;
  group.count = end - begin;
  group.columns[0] = &at(begin == 0 ? 0 : begin - 1);
  for (std::size_t c = begin; c <= end; ++c) {
    group.columns[c - begin + 1] = &at(std::min(c, last));
  }
  for (std::size_t i = 0; i < group.count; ++i) {
    group.chunks[i] =
        quickChunks(*group.columns[i], *group.columns[i + 1], *group.columns[i + 2]) & chunks;
  }
  lightGroup(group, target_, lists_);
  drawRest(group, chunks);
  nextColumn_ = end + 1;
}

void StripPainter::load(std::size_t column, std::uint32_t chunks) {
  const ColumnVertices vertices =
      shape_->vertices(strip_.instance, column, strip_.first, strip_.count, workplace_);
  projectColumn(vertices, chunks, *map_, at(column), *reach_);
}

// Chunks that lie on the canvas with all their neighbours go the quick way.
std::uint32_t StripPainter::quickChunks(const PixelColumn& before, const PixelColumn& column,
                                        const PixelColumn& after) const {
  const std::uint32_t off = ~column.inside & strip_.chunks();
  const std::uint32_t outside = ~(before.inside & column.inside & after.inside);
  return ~(outside | off >> 1U | off << 1U);
}

// The others are drawn line by line.
void StripPainter::drawRest(const WireGroup& group, std::uint32_t chunks) {
  for (std::size_t c = 0; c < group.count; ++c) {
    const std::uint32_t quickBefore = c > 0 ? group.chunks[c - 1] : ~std::uint32_t{0};
    const std::uint32_t rest = chunks & ~group.chunks[c];
    for (std::size_t k = 0; k < strip_.count && rest != 0; ++k) {
      const std::size_t chunk = k / PixelColumn::kChunk;
      if ((rest >> chunk & 1U) != 0) {
        drawLinesOf(k, *group.columns[c], *group.columns[c + 1], *group.columns[c + 2],
                    (quickBefore >> chunk & 1U) != 0);
      }
    }
  }
}

// Whole lines, since a neighbour that goes the quick way lights only its own
// pixel. The lines back are left out where the column before drew them whole.
void StripPainter::drawLinesOf(std::size_t k, const PixelColumn& before, const PixelColumn& column,
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

void StripPainter::drawLine(PixelPoint a, PixelPoint b) {
  if (a == b || a.x == kInvisible || b.x == kInvisible) {
    return;
  }
  forEachLinePixel(a.x, a.y, b.x, b.y, {target_.width, target_.height, PixelColumn::kSpotPitch},
                   [pixels = target_.pixels](std::int64_t spot) { pixels.lightSpot(spot); });
}

}  // namespace pv
