#pragma once

#include <cstddef>
#include <cstdint>

#include "shape/random_sequence.h"
#include "shape/shape_mesh.h"
#include "util/work_share.h"

namespace pv {

/// Random numbers that one vertex' direction takes.
inline constexpr std::uint64_t kDrawsPerVertex = 6;

/// Draws directions for `count` vertices: each component is the
/// difference of two numbers from 0 to 1 in steps of 1 / 100000. Without memory
/// there are none, and the sequence moves on as if there were.
void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random, WorkShare& share);

}  // namespace pv
