#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "shape/duplicates.h"
#include "shape/patch_boxes.h"
#include "view3d/wire_projection.h"

namespace pv {

/// Finds the patches that cannot light another pixel: all pixels of a rectangle
/// in which every line of theirs must lie are lit already. A line stays between
/// its ends and no pixel is ever put out, so leaving such a patch away cannot be
/// seen in the picture.
///
/// `lit` holds map.width bytes a row, and 64 readable ones behind the last. Bit c
/// of the result is set while the c-th of the `chunks` (32 at most) chunks of rows
/// from `firstChunk` on, a whole chunk's multiple, has to be drawn.
[[nodiscard]] std::uint32_t visiblePatches(const PatchBoxes::Group& group, std::size_t firstChunk,
                                           std::size_t chunks,
                                           std::span<const InstanceTransform> transforms,
                                           const PixelMap& map, const std::uint8_t* lit);

}  // namespace pv
