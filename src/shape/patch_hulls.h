#pragma once

#include <cstddef>

#include "shape/shape_mesh.h"
#include "shape/vertex_kernels.h"

namespace pv {

/// Patches of neighbouring vertices, each as its four corners and how far its
/// vertices get away from what lies between these. A patch holds the lines of the
/// vertices of a chunk of rows in some columns; so it reaches as far as the next
/// row and the next column, and neighbours share corners.
class PatchHulls {
 public:
  static constexpr std::size_t kRows = VertexBlock::kStep;
  static constexpr std::size_t kColumns = 8;

  /// Makes room for the patches of an instance. False, and none, without memory.
  [[nodiscard]] bool prepare(std::size_t rows, std::size_t columns);
  /// Fills in the group of columns that starts with `column`. Columns are whole
  /// chunks, the last vertex repeated. Groups may be filled by several threads.
  void fill(const VectorStreams& vertices, std::size_t column);
  void clear() { columns_ = 0; }
  [[nodiscard]] bool empty() const { return columns_ == 0; }

  /// Streams. A patch is a place in them; its corners are those there and at the
  /// next place, on both sides. Any vector that starts at a corner may be read.
  struct Corners {
    const float* x;
    const float* y;
    const float* z;
  };
  struct Group {
    Corners left;
    Corners right;
    /// How far a vertex may be from the corners' convex hull; no number where one
    /// of them is none, or infinite.
    const float* reach;
    /// At least |x| + |y| + |z| of any vertex.
    const float* size;
  };
  [[nodiscard]] Group group(std::size_t column) const;

 private:
  void fillCorners(const VectorStreams& vertices, std::size_t edge);
  [[nodiscard]] Corners corners(std::size_t edge) const;

  VectorStreams corners_;  ///< the left edge of every group, then the right one of the last
  Buffer<float> reach_;
  Buffer<float> size_;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::size_t chunks_ = 0;  ///< of rows
  std::size_t pitch_ = 0;   ///< of a group
};

}  // namespace pv
