#pragma once

#include <cstddef>

#include "shape/shape_mesh.h"
#include "shape/vertex_kernels.h"

namespace pv {

/// Boxes around patches of neighbouring vertices. A patch holds the lines of the
/// vertices of a chunk of rows in some columns; its box therefore also takes in
/// the next row and the next column.
class PatchBoxes {
 public:
  static constexpr std::size_t kRows = VertexBlock::kStep;
  static constexpr std::size_t kColumns = 8;

  /// Makes room for the boxes of an instance. False, and no boxes, without memory.
  [[nodiscard]] bool prepare(std::size_t rows, std::size_t columns);
  /// Fills the boxes of the group of columns that starts with `column`. Columns are
  /// whole chunks, the last vertex repeated. What is not a number is left out.
  void fill(const VectorStreams& vertices, std::size_t column);
  void clear() { columns_ = 0; }
  [[nodiscard]] bool empty() const { return columns_ == 0; }

  /// Six streams of whole chunks for a group of columns, one value a chunk of rows:
  /// the middle, and half the size.
  struct Group {
    const float* middle[3];
    const float* half[3];
  };
  [[nodiscard]] Group group(std::size_t column) const;

 private:
  VectorStreams middle_;
  VectorStreams half_;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::size_t chunks_ = 0;  ///< of a group, padded
};

}  // namespace pv
