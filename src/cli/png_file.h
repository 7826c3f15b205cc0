#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "util/result.h"

namespace pv {

/// An RGB PNG file of a frame: width * height words 0xAARRGGBB, bottom row
/// first; alpha is left out.
[[nodiscard]] Result<std::vector<std::byte>> encodePng(std::span<const std::uint32_t> frame,
                                                       std::int32_t width, std::int32_t height);

}  // namespace pv
