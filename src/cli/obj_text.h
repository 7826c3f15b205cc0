#pragma once

#include <cstdint>
#include <string>

#include "shape/shape_mesh.h"
#include "util/result.h"

namespace pv {

/// Which of a vertex's positions is written.
enum class MeshStage : std::uint8_t {
  Base,   ///< as generated and duplicated
  Final,  ///< as left by the modifiers
};

/// The mesh in Wavefront's text format: a `v` line for each vertex and an `l`
/// line for each segment, both in mesh order, nothing merged. The same text on
/// every machine. Refuses vertices that are not finite, which the format cannot
/// hold.
[[nodiscard]] Result<std::string> objText(const MeshSlot& mesh, MeshStage stage);

}  // namespace pv
