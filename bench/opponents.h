#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "job.h"
#include "reference/reference_lines.h"
#include "scenes.h"

namespace pv::bench {

// What our times are set against. All of them project with the same plain code.

[[nodiscard]] reference::FrameSetup plainSetup(FrameSize size);

/// Generation, modifiers, grid and lines, one thread, one vertex at a time.
[[nodiscard]] Job plainFrame(const ShapeRecord& shape, FrameSize size);

/// A direction for each vertex.
void plainDirections(std::vector<reference::Vertex>& vertices);

/// What a fresh view's first frame must look like.
[[nodiscard]] std::vector<std::uint32_t> plainFirstFrame(const ShapeRecord& shape, FrameSize size);

/// A shape in its final positions, for those that only draw.
using PlainMesh = std::shared_ptr<const reference::Mesh>;
[[nodiscard]] PlainMesh plainMesh(const ShapeRecord& shape);

// Each clears, projects and draws lines.
[[nodiscard]] Job plainDrawing(const PlainMesh& mesh, FrameSize size);
[[nodiscard]] Job painterDrawing(const PlainMesh& mesh, FrameSize size);
[[nodiscard]] Job aggDrawing(const PlainMesh& mesh, FrameSize size);

}  // namespace pv::bench
