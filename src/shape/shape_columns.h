#pragma once

#include <array>
#include <cstddef>

#include "shape/duplicates.h"
#include "shape/modifiers.h"
#include "shape/shape_mesh.h"
#include "shape/vertex_kernels.h"
#include "util/work_share.h"

namespace pv {

/// The final positions of a shape with all its duplicates, made a stretch at a
/// time where they are wanted instead of being kept: only one instance is ever
/// stored. The same kernels in the same order as ApplyModifiers, so the same
/// positions to the last bit.
class ShapeColumns {
 public:
  /// `mesh` holds the generated shape without its copies, and must stay as it
  /// is while vertices are asked for. Its directions are for one instance, or
  /// for all when the modifiers take the duplicates as one object. What did not
  /// change since the last call is not computed again; `meshChanged` tells about
  /// the mesh.
  void update(const ShapeMesh& mesh, bool meshChanged, const ModifierTable& values,
              const DuplicateStep& step, DuplicateFlags flags, WorkShare& share);

  /// No vertices at all while one of these is 0.
  [[nodiscard]] std::size_t rows() const { return rows_; }
  [[nodiscard]] std::size_t columns() const { return columns_; }
  [[nodiscard]] std::size_t instances() const { return instances_; }

  /// Positions of `count` (1 to VertexBlock::kCapacity) vertices of an instance
  /// from `first` on, column after column. May be called by several threads.
  void vertices(std::size_t instance, std::size_t first, std::size_t count,
                VertexBlock& block) const;

 private:
  void shapeFirstInstance(WorkShare& share);
  void deform(VertexBlock& block, std::size_t firstDirection, std::size_t count) const;

  const MeshSlot* slot_ = nullptr;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::size_t instances_ = 0;

  ModifierTable values_;
  bool eachAnew_ = false;       ///< the modifiers work on every copy, not on the first alone
  bool shapeFirst_ = false;     ///< the shape transform stands before the copies
  bool firstIsShaped_ = false;  ///< shaped_ is up to date
  InstanceTransform vertexTransform_;
  InstanceTransform shapeTransform_;
  std::array<InstanceTransform, kMaxDuplicateCopies + 1> copies_;
  VectorStreams shaped_;  ///< the first instance as far as all copies share it
};

}  // namespace pv
