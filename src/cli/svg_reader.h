#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "path/outline.h"
#include "util/result.h"

namespace pv {

inline constexpr std::size_t kMaxSvgBytes = std::size_t{16} << 20U;

struct SvgDrawing {
  std::vector<Outline> outlines;  ///< in document order, in one common unit
  std::size_t leftOut = 0;        ///< elements drawn otherwise: text, images, copies
};

/// The lines of all shapes and paths of an SVG file, transformations applied.
/// What is only defined and what is hidden by its own `display` stays away.
/// Refuses, with the reason: more than kMaxSvgBytes, anything but SVG, a fault in
/// the data of a drawn element, elements nested deeper than 256, more than half a
/// million pieces in all, and coordinates beyond 1e12.
[[nodiscard]] Result<SvgDrawing> readSvg(std::span<const std::byte> bytes);

}  // namespace pv
