#pragma once

#include <cstddef>
#include <cstdint>

#include "shape/shape_columns.h"
#include "shape/vertex_kernels.h"
#include "view3d/shape_projection.h"

namespace pv {

/// The mark, as x, of a vertex that is not drawn: no projection reaches this far.
inline constexpr std::int32_t kInvisible = INT32_MIN;

/// Pixel positions of a stretch of a column, in chunks of sixteen. A position on the
/// canvas is one word, y in the upper half and x in the lower, so that vector
/// code subtracts both at once; a chunk that leaves the canvas keeps its
/// positions as two full words instead. Word k of `spots` stands at kLead + k;
/// before the first and behind the last vertex that vertex is repeated, so that
/// its missing neighbour makes a line without length.
struct alignas(64) PixelColumn {
  static constexpr std::size_t kLead = 16;
  static constexpr std::int32_t kSpotPitch = 65536;  ///< from a word to that of the pixel above
  static constexpr std::size_t kChunk = VertexBlock::kStep;
  static_assert(VertexBlock::kCapacity / kChunk <= 32);

  // Left unset: only what was projected is read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  PixelColumn() {}

  std::int32_t spots[kLead + VertexBlock::kCapacity + kLead];
  std::int32_t x[VertexBlock::kCapacity];
  std::int32_t y[VertexBlock::kCapacity];
  std::uint32_t inside = 0;  ///< bit c: all vertices of chunk c lie on the canvas

  [[nodiscard]] bool isInside(std::size_t chunk) const { return (inside >> chunk & 1U) != 0; }
  [[nodiscard]] PixelPoint at(std::size_t k) const {
    if (!isInside(k / kChunk)) {
      return {x[k], y[k]};
    }
    return spotAt(k);
  }
  [[nodiscard]] PixelPoint spotAt(std::size_t k) const {
    const std::int32_t spot = spots[kLead + k];
    return {spot & 0xFFFF, spot >> 16};
  }
};

/// The pixels of a frame between two corners, both included. Kept by lanes: any
/// even place of `low` and `high` may hold the lowest or highest x, any odd one y.
/// What reaches beyond the canvas is of no account.
struct alignas(64) PixelReach {
  static constexpr std::size_t kLanes = 32;

  PixelReach() { clear(); }
  void clear();
  void include(std::int32_t x, std::int32_t y);
  /// Lets every side reach `pixels` further; not before something was included.
  void widen(std::int32_t pixels);

  std::int16_t low[kLanes] = {};
  std::int16_t high[kLanes] = {};
};

}  // namespace pv
