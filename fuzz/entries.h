#pragma once

#include <cstddef>
#include <span>

namespace pv::fuzz {

// One run of a fuzz target on arbitrary bytes. Each ends the process with a
// message where something that must hold does not, so that the fuzzer and the
// replay of its findings share them.

/// Decodes, and encodes and decodes again what was accepted.
void runShapeFile(std::span<const std::byte> bytes);
void runPathFile(std::span<const std::byte> bytes);

/// Reads an SVG drawing, makes paths of its lines, writes and reads them again.
void runSvg(std::span<const std::byte> bytes);

/// Makes a shape, a camera, sizes and a script of events out of the bytes and
/// draws frames of it.
void runRender(std::span<const std::byte> bytes);

}  // namespace pv::fuzz
