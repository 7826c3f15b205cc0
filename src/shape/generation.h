#pragma once

#include <cstdint>
#include <span>

#include "shape/random_sequence.h"
#include "shape/shape_mesh.h"
#include "shape/shape_settings.h"

namespace pv {

/// Whether a generation writes the random directions or only moves the
/// sequence on as if it had (they are read by Vertex Disperse alone).
enum class Directions : std::uint8_t { Draw, SkipOnly };

/// Builds the mesh afresh in slot 0: the emitter, then the duplicates. Loft and
/// sweep read their points from the mesh's profile, which the caller has set.
/// An unknown kind leaves no slot.
void GenerateShape(ShapeMesh& mesh, const EmitterSettings& emitter,
                   const DuplicateSettings& duplicates, CRandSequence& random,
                   Directions directions = Directions::Draw);

/// Steps shared by the builders; each works on the mesh's current slot.
/// Copies `points` along z: `sections` + 1 columns, `width` units apart.
void ExtrudeProfile(ShapeMesh& mesh, std::span<const Vec3> points, std::int32_t sections,
                    float width, bool centre);

/// Which way round the y axis a profile is turned.
enum class Turn : std::uint8_t { Sphere, Sweep };
/// Turns the mesh's profile about y over `angle` degrees.
void RotateProfile(ShapeMesh& mesh, std::int32_t sections, std::int32_t angle, bool centre,
                   Turn turn);
/// Profile lines of every section, then the lines between the sections.
void BuildLines(ShapeMesh& mesh, std::int64_t profileCount, std::int64_t sections);

/// A direction for every vertex of the current slot, each component the
/// difference of two draws in 0..1 in steps of 1/100000.
void drawDirections(ShapeMesh& mesh, CRandSequence& random, Directions directions);

}  // namespace pv
