#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "shape/shape_columns.h"
#include "view3d/hidden_patches.h"
#include "view3d/pixel_column.h"
#include "view3d/wire_lines.h"
#include "view3d/wire_projection.h"

namespace pv {

/// Vertices first..first + count - 1 of every column of an instance; `first` starts
/// a chunk.
struct Strip {
  std::size_t instance = 0;
  std::size_t first = 0;
  std::size_t count = 0;

  bool operator==(const Strip&) const = default;

  /// Bits of all its chunks.
  [[nodiscard]] std::uint32_t chunks() const {
    return ~std::uint32_t{0} >> (32 - VertexBlock::padded(count) / VertexBlock::kStep);
  }
};

/// Collects the wires of strips column by column. Only some columns of pixel
/// positions exist at a time, so that they stay in the nearest cache; columns that
/// follow those of the call before in the same strip are the cheapest.
///
///     begin, once a frame; setDense, the same for all painters of the frame
///     draw, strip by strip
///     finish, before the mask is looked at
class StripPainter {
 public:
  /// All that is handed over must stay until finish().
  void begin(const ShapeColumns& shape, const PixelMap& map, const WireTarget& target,
             PixelReach& reach);

  /// Whether most lines of the shape have a few steps at most, by a sample of them.
  [[nodiscard]] bool isDense();
  void setDense(bool isDense) { target_.isDense = isDense; }

  /// The columns from `begin` to `end`, with the lines to the one behind; as far as
  /// they can still light a pixel. `begin` starts a group of patches.
  void draw(const Strip& strip, std::size_t begin, std::size_t end);

  void finish() { lightListed(target_, lists_); }

 private:
  void drawGroup(std::uint32_t chunks, std::size_t begin, std::size_t end);
  void load(std::size_t column, std::uint32_t chunks);
  [[nodiscard]] std::uint32_t quickChunks(const PixelColumn& before, const PixelColumn& column,
                                          const PixelColumn& after) const;
  void drawRest(const WireGroup& group, std::uint32_t chunks);
  void drawLinesOf(std::size_t k, const PixelColumn& before, const PixelColumn& column,
                   const PixelColumn& after, bool back);
  void drawLine(PixelPoint a, PixelPoint b);
  [[nodiscard]] PixelColumn& at(std::size_t column) { return columns_[column % columns_.size()]; }

  const ShapeColumns* shape_ = nullptr;
  const PixelMap* map_ = nullptr;
  WireTarget target_{};
  PixelReach* reach_ = nullptr;
  Strip strip_;
  std::optional<HiddenPatches> hidden_;  ///< of the strip's instance
  ShapeColumns::Workplace workplace_;
  WireLists lists_;
  std::array<PixelColumn, WireGroup::kColumns + 2> columns_;
  std::size_t nextColumn_ = 0;      ///< the first that is not loaded behind those that are
  std::uint32_t loadedChunks_ = 0;  ///< of the columns that are loaded; none at first
};

}  // namespace pv
