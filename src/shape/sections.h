#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "math/vec3.h"
#include "shape/duplicates.h"
#include "shape/profile_kernels.h"
#include "shape/shape_mesh.h"
#include "shape/vertex_kernels.h"

namespace pv {

/// How an emitter makes its vertices: a profile of points that is repeated column
/// after column, moved along z or turned about y. Holds the profile alone; any
/// stretch of any column is made where it is wanted.
class ShapeSections {
 public:
  enum class Spread : std::uint8_t {
    Extrude,  ///< `step` units towards -z from column to column
    Sphere,   ///< turned by `step` degrees
    Sweep,    ///< the same the other way round
  };

  /// No vertices.
  void clear();
  /// `sections` + 1 columns of these points, the first moved or turned back by
  /// `back`. False, and no vertices, without memory.
  bool repeat(std::span<const Vec3> profile, std::int32_t sections, Spread spread, float step,
              float back);
  /// Columns of `count` points on the y axis, from `top` down in steps of `height`.
  bool repeatLine(std::size_t count, float top, float height, std::int32_t sections, float step,
                  float back);

  /// Both 0 while there is nothing to make.
  [[nodiscard]] std::size_t rows() const { return rows_; }
  [[nodiscard]] std::size_t columns() const { return columns_; }
  [[nodiscard]] std::size_t vertices() const { return rows_ * columns_; }

  /// Positions of `count` (1 to VertexBlock::kCapacity) vertices of a column from
  /// `first` on, after two transforms at most, the last repeated to the end of its
  /// chunk. `first` starts a chunk, and the place is aligned to 64 bytes. May be
  /// called by several threads, as what follows.
  void vertices(std::size_t column, std::size_t first, std::size_t count,
                std::span<const InstanceTransform> then, VertexPlace to) const;

  /// Whether vertices that go through a transform may be made from the two below.
  [[nodiscard]] bool canSpread() const { return spread_ == Spread::Extrude || areNumbers_; }
  [[nodiscard]] ProfileRow profile(std::size_t first, std::size_t count) const;
  [[nodiscard]] ProfileSpread spread(std::size_t column) const;

 private:
  [[nodiscard]] float along(std::size_t column) const;
  [[nodiscard]] Matrix4 turn(std::size_t column) const;

  VectorStreams profile_;   ///< whole chunks; x and z exchanged for a sweep
  bool areNumbers_ = true;  ///< none of the profile's coordinates is infinite or no number
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  Spread spread_ = Spread::Extrude;
  float step_ = 0.0F;
  float back_ = 0.0F;
};

}  // namespace pv
