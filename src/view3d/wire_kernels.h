#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "shape/vertex_kernels.h"
#include "view3d/shape_projection.h"

namespace pv {

/// The mark, as x, of a vertex that is not drawn: no projection reaches this far.
inline constexpr std::int32_t kInvisible = INT32_MIN;

/// Pixel positions of a stretch of one column of vertices. Position k stands at
/// index kLead + k; before the first and behind the last vertex that vertex is
/// repeated, so that its missing neighbour makes a line without length.
struct alignas(64) PixelColumn {
  static constexpr std::size_t kLead = 16;
  static constexpr std::size_t kChunk = VertexBlock::kStep;

  std::int32_t x[kLead + VertexBlock::kCapacity + kLead];
  std::int32_t y[kLead + VertexBlock::kCapacity + kLead];
  std::uint64_t inside = 0;  ///< bit c: all vertices of chunk c lie on the canvas

  [[nodiscard]] PixelPoint at(std::size_t k) const { return {x[kLead + k], y[kLead + k]}; }
};

/// A projection with what its quick form needs.
struct PixelMap {
  PixelMap(const ShapeProjection& projection, const ViewProjector& projector, std::int32_t width,
           std::int32_t height);

  ShapeProjection projection;
  ViewProjector projector;  ///< for the vertices that the quick form leaves over
  float scaleX;             ///< pixels a unit, at depth 1 in perspective
  float scaleY;
  std::int32_t width;  ///< of the canvas
  std::int32_t height;
};

/// Projects the first `count` vertices of the block, to the bit as
/// ShapeProjection::map does. May be called by several threads with one map.
void projectColumn(const VertexBlock& block, std::size_t count, const PixelMap& map,
                   PixelColumn& column);

/// The pixels strictly between the ends of a line of up to seven steps, as
/// distances from the end where one stands, in a frame of a given width.
class ShortLines {
 public:
  static constexpr std::int32_t kReach = 7;
  static constexpr std::int32_t kSide = 2 * kReach + 1;
  static constexpr std::size_t kMost = kReach - 1;  ///< shorter lines repeat a pixel
  using Inner = std::array<std::int32_t, 8>;

  explicit ShortLines(std::int32_t width);
  /// The line to (dx, dy) has the index (dy + kReach) * kSide + dx + kReach.
  [[nodiscard]] const Inner& operator[](std::int32_t index) const {
    return lines_[static_cast<std::size_t>(index)];
  }

 private:
  std::array<Inner, static_cast<std::size_t>(kSide) * kSide> lines_{};
};

/// The frame that wires are drawn into. Threads may draw into one frame at the
/// same time: every store writes the same colour and is a relaxed atomic one,
/// so the order in which they happen cannot be seen in the picture.
struct WireFrame {
  std::uint32_t* pixels;
  std::int32_t width;
  std::int32_t height;
  std::uint32_t colour;
  const ShortLines* shortLines;

  void set(std::int64_t pixel) const {
    std::atomic_ref<std::uint32_t>(pixels[pixel]).store(colour, std::memory_order_relaxed);
  }
};

/// Draws what belongs to the middle column in the chunks of `chunks`: its lines
/// up along the column and on to the next one, and the pixels of its vertices.
/// In these chunks and around them all three columns lie on the canvas.
///
/// Where all ends are on the canvas a vertex' own pixel is lit exactly when one
/// of its four lines lights it: a line that is not horizontal lights both ends,
/// a horizontal one its left end, and one without length none. So each vertex
/// takes one store at most, and a line adds only the pixels between its ends.
void drawColumnInside(const PixelColumn& before, const PixelColumn& column,
                      const PixelColumn& after, std::uint64_t chunks, const WireFrame& frame);

}  // namespace pv
