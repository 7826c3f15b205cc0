#pragma once

#include <cstdint>
#include <vector>

#include "math/matrix4.h"
#include "math/vec3.h"
#include "reference/reference_random.h"
#include "shape/shape_record.h"

/// A second, deliberately plain implementation that the real one is compared
/// with. It shares only the matrix functions and the record types.
namespace pv::reference {

struct Vertex {
  Vec3 base;
  Vec3 disperse;
  Vec3 position;
};

struct Line {
  std::uint32_t first = 0;
  std::uint32_t second = 0;
};

struct Mesh {
  bool exists = false;  ///< false when the kind is unknown
  std::int64_t vertexCount = 0;
  std::int64_t lineCount = 0;
  Vec3 grid;  ///< columns, rows, copies
  std::vector<Vertex> vertices;
  std::vector<Line> lines;
  std::vector<Vec3> profile;
};

/// Emitter and duplicates. The form with a mesh reuses its memory.
[[nodiscard]] Mesh generateShape(const ShapeRecord& shape, Random& random);
void generateShape(Mesh& mesh, const ShapeRecord& shape, Random& random);

/// A random direction for every vertex.
void drawDirections(std::vector<Vertex>& vertices, Random& random);

/// From base to position: modifiers, duplicates and shape transform.
void applyModifiers(Mesh& mesh, const ShapeRecord& shape);

/// Scale first, then the turn; angles in degrees about x, y, z.
[[nodiscard]] Matrix4 transformMatrix(Vec3 rotation, Vec3 scale);

}  // namespace pv::reference
