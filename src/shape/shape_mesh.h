#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "math/vec3.h"
#include "path/path_record.h"
#include "shape/buffer.h"
#include "shape/mesh_lines.h"

namespace pv {

/// One vertex as a record of eighteen floats; the mesh keeps the groups as
/// separate streams and hands records out by index.
struct ShapeVertex {
  Vec3 base;      ///< as made by the emitter and by duplication
  Vec3 disperse;  ///< random direction, each component in -1..1
  Vec3 position;  ///< as left by the modifiers; what is drawn
  std::array<Vec3, 3> viewSide;
};

/// One float stream an axis, all of the same length.
struct VectorStreams {
  Buffer<float> x;
  Buffer<float> y;
  Buffer<float> z;

  /// False, and empty, when there is no memory. Values are not initialised.
  [[nodiscard]] bool resize(std::size_t size);
  void clear();
  [[nodiscard]] std::size_t size() const { return x.size(); }
  [[nodiscard]] Vec3 at(std::size_t i) const { return {x[i], y[i], z[i]}; }
  void set(std::size_t i, Vec3 v) {
    x[i] = v.x;
    y[i] = v.y;
    z[i] = v.z;
  }
};

/// Columns, rows and copies of the generated grid, for texture mapping.
struct MeshGrid {
  float columns = 0.0F;
  float rows = 0.0F;
  float copies = 0.0F;
};

/// One generated mesh. `vertexCount` and `lineCount` are the numbers that were
/// asked for; the streams are empty where memory or the limit did not allow
/// them, so loops run over the streams' own sizes.
struct MeshSlot {
  MeshGrid grid;
  std::int32_t vertexCount = 0;
  std::int32_t lineCount = 0;
  VectorStreams base;
  VectorStreams disperse;  ///< empty while the directions were not drawn
  VectorStreams position;
  std::size_t rows = 0;     ///< vertices in a column
  std::size_t columns = 0;  ///< columns in one instance; 0 while nothing is built
  MeshLines lines;

  [[nodiscard]] ShapeVertex vertex(std::size_t i) const;
};

inline constexpr std::int64_t kMaxMeshVertices = 64'000'000;

/// Container of the generated mesh. Slots keep their memory when they are freed
/// and begun again, so that steady sizes allocate nothing.
class ShapeMesh {
 public:
  void BeginMesh();
  /// Out-of-range indices do nothing.
  void FreeMesh(std::int32_t index);
  void ClearProfile() { profile_.count = 0; }
  /// Takes the first 512 points at most.
  void SetProfile(std::span<const Vec3> points);
  [[nodiscard]] std::int32_t ProfileCount() const { return profile_.count; }
  [[nodiscard]] std::span<const Vec3> profile() const;
  /// Nothing happens without a current slot.
  void SetGrid(std::int32_t columns, std::int32_t rows, std::int32_t copies);

  /// The slot that generation and modifiers work on; null without a slot in use.
  [[nodiscard]] MeshSlot* current();
  [[nodiscard]] const MeshSlot* current() const;
  [[nodiscard]] std::int32_t slotCount() const { return slotCount_; }
  [[nodiscard]] std::int32_t currentSlot() const { return currentSlot_; }

  /// Remembers the number of vertices of the current slot, saturated to 32 bits.
  /// False when it is below 1, above the limit, or without a slot.
  bool noteVertices(std::int64_t count);
  /// Gives the current slot `count` uninitialised vertices. Counts below 1,
  /// above the limit or beyond memory leave the streams empty; vertices that were
  /// there before keep their base. Directions are dropped. The count is noted in
  /// any case. True when there are vertices.
  bool allocateVertices(std::int64_t count);
  /// Notes how the vertices of `instances` equal parts are joined. `count` is the
  /// number of lines by the formula, remembered whatever comes of it.
  void setLines(std::int64_t count, std::int64_t instances);

  /// Meshes above this size are not built; at most kMaxMeshVertices.
  void setVertexLimit(std::int64_t limit);
  [[nodiscard]] std::int64_t vertexLimit() const { return vertexLimit_; }

 private:
  PathRecord profile_;
  std::int32_t slotCount_ = 0;
  std::int32_t currentSlot_ = -1;
  std::array<MeshSlot, 2> slots_;
  std::int64_t vertexLimit_ = kMaxMeshVertices;
};

}  // namespace pv
