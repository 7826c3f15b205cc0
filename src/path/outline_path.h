#pragma once

#include <cstdint>
#include <optional>

#include "path/outline.h"
#include "path/path_record.h"
#include "util/result.h"

namespace pv {

struct FittedPath {
  PathRecord path;
  bool cornersLost = false;  ///< too many for the points: evenly spaced all along
};

/// The outline as a path of the front view: z = 0, fitted into -1 to 1 about the
/// origin with its proportions kept, y of the drawing downwards, y of the path
/// upwards. Straight outlines keep their corners. Where there are curves, points
/// lie on all corners and at equal arc lengths between them: without `points` as
/// many as keep the path within a thousandth of a unit of the curve, otherwise
/// `points` (2 to 512) in all. An outline without extent is refused.
[[nodiscard]] Result<FittedPath> fitOutline(const Outline& outline,
                                            std::optional<std::int32_t> points);

}  // namespace pv
