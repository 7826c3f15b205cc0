#pragma once

#include <cstddef>
#include <string_view>

#include "path/outline.h"
#include "util/result.h"

namespace pv {

// The little languages inside SVG attributes. Numbers beyond 1e12 are refused,
// so that no sum or product of them leaves the range of a double. Reasons name
// the character, counted from 1, where the text went wrong.

inline constexpr double kMaxSvgNumber = 1e12;
inline constexpr std::size_t kMaxSvgPieces = 500'000;

/// The data of a path element: every command, absolute and relative. On failure
/// the pen has drawn what came before the fault. More than kMaxSvgPieces pieces
/// are refused.
[[nodiscard]] Status drawPathData(std::string_view data, OutlinePen& pen);

/// The points of a polyline; not closed.
[[nodiscard]] Status drawPointList(std::string_view points, OutlinePen& pen);

/// A list of transformations, the last one applied first.
[[nodiscard]] Result<Affine> parseTransform(std::string_view list);

/// A length in pixels of 96 dpi, from any absolute unit; `whole` is 100 %.
[[nodiscard]] Result<double> parseLength(std::string_view text, double whole);

}  // namespace pv
