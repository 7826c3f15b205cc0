#pragma once

#include <cstdint>

#include "shape/random_sequence.h"
#include "shape/sections.h"
#include "shape/shape_mesh.h"
#include "shape/shape_settings.h"

namespace pv {

/// Whether a generation writes the random directions or only moves the
/// sequence on as if it had (they are read by Vertex Disperse alone).
enum class Directions : std::uint8_t { Draw, SkipOnly };

/// Begins the mesh afresh in slot 0 and says how the emitter makes its vertices,
/// without duplicates. The mesh notes its sizes and its profile; its streams stay
/// empty. An unknown kind leaves no slot and no vertices.
void beginShape(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections);

/// Builds the mesh afresh in slot 0: the emitter, then the duplicates. Loft and
/// sweep read their points from the mesh's profile, which the caller has set.
/// An unknown kind leaves no slot. Returns how many random numbers it took.
std::uint64_t GenerateShape(ShapeMesh& mesh, const EmitterSettings& emitter,
                            const DuplicateSettings& duplicates, CRandSequence& random,
                            Directions directions = Directions::Draw);

}  // namespace pv
