#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "reference/reference_shape.h"
#include "shape/shape_mesh.h"

namespace pv::reference {

/// Which streams of the mesh have been written.
struct Compared {
  bool directions = true;
  bool positions = true;
};

/// The first difference in words, floats compared bit by bit (any NaN equals
/// any other); empty when there is none.
[[nodiscard]] std::string firstDifference(const ShapeMesh& mesh, const Mesh& wanted,
                                          Compared compared);

/// The same for two frames of one size.
[[nodiscard]] std::string firstDifference(std::span<const std::uint32_t> frame,
                                          std::span<const std::uint32_t> wanted,
                                          std::int32_t width);

/// A shape in a few lines, for messages.
[[nodiscard]] std::string describe(const ShapeRecord& shape);

}  // namespace pv::reference
