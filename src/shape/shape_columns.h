#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "shape/duplicates.h"
#include "shape/modifiers.h"
#include "shape/patch_hulls.h"
#include "shape/random_directions.h"
#include "shape/sections.h"
#include "shape/shape_mesh.h"
#include "shape/vertex_kernels.h"
#include "util/work_share.h"

namespace pv {

/// A stretch of one column of vertices: streams of whole chunks, aligned to 64
/// bytes, in which the last vertex is repeated to the end of its chunk.
struct ColumnVertices {
  const float* x;
  const float* y;
  const float* z;
  std::size_t count;
  /// What each vertex still goes through, two at most, in this order.
  std::span<const InstanceTransform> transforms;
  /// Before these; if it is anything, there are two.
  ProfileSpread spread;
};

/// The final positions of a shape with all its duplicates, made a stretch at a
/// time where they are wanted instead of being kept: at most one instance is
/// stored. The same kernels in the same order as ApplyModifiers, so the same
/// positions to the last bit.
class ShapeColumns {
 public:
  /// What the columns are made of; it must stay as it is while vertices are asked
  /// for.
  struct Source {
    const ShapeSections& sections;
    /// For the vertices of the first instance, or of all when the modifiers take
    /// the duplicates as one object. Without them nothing is dispersed.
    const RandomDirections& directions;
    bool changed;  ///< one of the two, since the last call
  };

  /// What did not change since the last call is not computed again.
  void update(const Source& source, const ModifierTable& values, const DuplicateStep& step,
              DuplicateFlags flags, WorkShare& share);

  /// No vertices at all while one of these is 0.
  [[nodiscard]] std::size_t rows() const { return rows_; }
  [[nodiscard]] std::size_t columns() const { return columns_; }
  [[nodiscard]] std::size_t instances() const { return instances_; }

  /// `count` (1 to VertexBlock::kCapacity) vertices of a column of an instance;
  /// `first` starts a chunk. What is not stored is made in the workplace. May be
  /// called by several threads, each with a workplace of its own.
  class Workplace;
  [[nodiscard]] ColumnVertices vertices(std::size_t instance, std::size_t column, std::size_t first,
                                        std::size_t count, Workplace& workplace) const;

  /// Patches of the stored vertices, there when several copies share them.
  [[nodiscard]] const PatchHulls& patches() const { return patches_; }
  /// What stored vertices, and their patches, still go through in an instance.
  [[nodiscard]] std::span<const InstanceTransform> transforms(std::size_t instance) const;

 private:
  void shapeFirstInstance(WorkShare& share);
  void hullPatches(WorkShare& share);
  void shapeStretch(Workplace& workplace, std::size_t column, std::size_t first,
                    std::size_t count) const;
  void deform(Workplace& workplace, std::size_t firstDirection, std::size_t count) const;

  const ShapeSections* sections_ = nullptr;
  const RandomDirections* directions_ = nullptr;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::size_t instances_ = 0;

  ModifierTable values_;
  bool eachAnew_ = false;       ///< the modifiers work on every copy, not on the first alone
  bool shapeFirst_ = false;     ///< the shape transform stands before the copies
  bool isPlain_ = true;         ///< nothing happens between the first two transforms
  bool isStored_ = false;       ///< the first instance, in shaped_
  bool firstIsShaped_ = false;  ///< shaped_ is up to date, and so are patches_ if any
  std::array<InstanceTransform, 2> early_;  ///< that of the vertices, that of the shape
  /// For each instance its own transform, then that of the shape.
  std::array<std::array<InstanceTransform, 2>, kMaxDuplicateCopies + 1> copies_;
  /// The first instance as far as all copies share it; columns of whole chunks.
  VectorStreams shaped_;
  PatchHulls patches_;
};

/// Where one thread makes vertices, of one instance after the other and column by
/// column for preference.
class ShapeColumns::Workplace {
 public:
  /// For this shape as it is; to be called again when it was updated.
  void begin(const ShapeColumns& shape) { reader_.begin(*shape.directions_); }

 private:
  friend ShapeColumns;
  VertexBlock block_;
  VertexBlock directions_;
  RandomDirections::Reader reader_;
};

}  // namespace pv
