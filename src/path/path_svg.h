#pragma once

#include <string>

#include "path/path_record.h"
#include "path/path_viewport.h"
#include "util/result.h"

namespace pv {

/// The path as an SVG drawing of one flat view: a single path element in path
/// units, at least -1 to 1 in sight. Nine significant digits, so that reading it
/// gives the same points. Refuses a path without points and points that are not
/// finite.
[[nodiscard]] Result<std::string> pathSvg(const PathRecord& path, PathAxisView view);

}  // namespace pv
